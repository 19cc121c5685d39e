#include <bit>
#include <sstream>

#include "clip_model.h"

namespace contract {

namespace {

// Lines of "path = value".
class Description {
public:
    void add(const std::string& path, const std::string& text)
    {
        stream_ << path << " = " << text.size() << ":" << text << "\n";
    }

    void add(const std::string& path, float value)
    {
        stream_ << path << " = " << value << " (" << std::hex << std::bit_cast<std::uint32_t>(value)
                << std::dec << ")\n";
    }

    void add(const std::string& path, std::int64_t value)
    {
        stream_ << path << " = " << value << "\n";
    }

    void add(const std::string& path, const PointModel& point)
    {
        stream_ << path << " = " << point.value << " at " << point.pos << "\n";
    }

    void add(const std::string& path, const EventModel& event)
    {
        stream_ << path << " = " << event.value << " at " << event.pos << "\n";
    }

    void add(const std::string& path, const VibratoModel& vibrato);
    void add(const std::string& path, const DvqmModel& dvqm);
    void add(const std::string& path, const SingingSkillModel& skill);
    void add(const std::string& path, const NoteModel& note);
    void add(const std::string& path, const LaneModel& lane);
    void add(const std::string& path, const ParameterModel& parameter);
    void add(const std::string& path, const EffectModel& effect);
    void add(const std::string& path, const PartModel& part);
    void add(const std::string& path, const ClipModel& clip);

    template <class Element>
    void add(const std::string& path, const std::vector<Element>& list)
    {
        add(path + ".size", static_cast<std::int64_t>(list.size()));
        for (std::size_t i = 0; i < list.size(); ++i) {
            add(path + "[" + std::to_string(i) + "]", list[i]);
        }
    }

    [[nodiscard]] std::string text() const { return stream_.str(); }

private:
    std::ostringstream stream_;
};

void Description::add(const std::string& path, const VibratoModel& vibrato)
{
    add(path + ".type", std::int64_t{vibrato.type});
    add(path + ".duration", std::int64_t{vibrato.duration});
    add(path + ".depths", vibrato.depths);
    add(path + ".rates", vibrato.rates);
}

void Description::add(const std::string& path, const DvqmModel& dvqm)
{
    add(path + ".compID", dvqm.compID);
    add(path + ".levelNames", dvqm.levelNames);
    add(path + ".isProtected", std::int64_t{dvqm.isProtected});
    add(path + ".speed", std::int64_t{dvqm.speed});
    add(path + ".topFactor", dvqm.topFactor);
}

void Description::add(const std::string& path, const SingingSkillModel& skill)
{
    add(path + ".duration", std::int64_t{skill.duration});
    add(path + ".pre", std::int64_t{skill.preWeight});
    add(path + ".post", std::int64_t{skill.postWeight});
}

void Description::add(const std::string& path, const NoteModel& note)
{
    add(path + ".lyric", note.lyric);
    add(path + ".phoneme", note.phoneme);
    add(path + ".langID", std::int64_t{note.langID});
    add(path + ".isProtected", std::int64_t{note.isProtected});
    add(path + ".pos", std::int64_t{note.pos});
    add(path + ".duration", std::int64_t{note.duration});
    add(path + ".number", std::int64_t{note.number});
    add(path + ".velocity", std::int64_t{note.velocity});
    add(path + ".accent", std::int64_t{note.accent});
    add(path + ".bendDepth", std::int64_t{note.bendDepth});
    add(path + ".bendLength", std::int64_t{note.bendLength});
    add(path + ".decay", std::int64_t{note.decay});
    add(path + ".fallPort", std::int64_t{note.fallPort});
    add(path + ".risePort", std::int64_t{note.risePort});
    add(path + ".opening", std::int64_t{note.opening});
    for (std::size_t i = 0; i < aiExpressionFields.size(); ++i) {
        add(path + "." + aiExpressionFields[i].key, note.aiExpression[i]);
    }
    add(path + ".attack", note.attack);
    add(path + ".release", note.release);
    add(path + ".singingSkill", note.singingSkill);
    add(path + ".vibrato", note.vibrato);
}

void Description::add(const std::string& path, const LaneModel& lane)
{
    add(path + ".type", std::int64_t{lane.type});
    add(path + ".events", lane.events);
}

void Description::add(const std::string& path, const ParameterModel& parameter)
{
    add(path + ".name", parameter.name);
    add(path + ".type", std::int64_t{parameter.type});
    add(path + ".int32", std::int64_t{parameter.valueInt32});
    add(path + ".float", parameter.valueFloat);
    add(path + ".string", parameter.valueString);
}

void Description::add(const std::string& path, const EffectModel& effect)
{
    add(path + ".id", effect.id);
    add(path + ".type", std::int64_t{effect.type});
    add(path + ".parameters", effect.parameters);
}

void Description::add(const std::string& path, const PartModel& part)
{
    add(path + ".type", std::int64_t{part.type});
    add(path + ".wavFilePath", part.wavFilePath);
    add(path + ".begin", std::int64_t{part.begin});
    add(path + ".end", std::int64_t{part.end});
    add(path + ".duration", std::int64_t{part.duration});
    add(path + ".styleName", part.styleName);
    add(path + ".stylePresetID", part.stylePresetID);
    add(path + ".voiceBankID", part.voiceBankID);
    add(path + ".langID", std::int64_t{part.langID});
    add(path + ".aiVoiceBankID", part.aiVoiceBankID);
    add(path + ".aiLangIDs.size", static_cast<std::int64_t>(part.aiLangIDs.size()));
    for (const std::uint32_t language : part.aiLangIDs) {
        add(path + ".aiLangID", std::int64_t{language});
    }
    add(path + ".audioEffects", part.audioEffects);
    add(path + ".midiEffects", part.midiEffects);
    add(path + ".notes", part.notes);
    add(path + ".lanes", part.lanes);
}

void Description::add(const std::string& path, const ClipModel& clip)
{
    add(path + "vendorName", clip.vendorName);
    add(path + "partKey", std::int64_t{clip.partKey});
    add(path + "partTempo", std::int64_t{clip.partTempo});
    add(path + "singerGroups", clip.singerGroups);
    add(path + "vendors", clip.vendors);
    add(path + "languages.size", static_cast<std::int64_t>(clip.languages.size()));
    for (const std::int32_t language : clip.languages) {
        add(path + "language", std::int64_t{language});
    }
    add(path + "singerIDs", clip.singerIDs);
    add(path + "types", clip.types);
    add(path + "genres", clip.genres);
    add(path + "part", clip.part);
}

} // namespace

std::string describe(const ClipModel& clip)
{
    Description description;
    description.add("", clip);
    return description.text();
}

} // namespace contract
