#include "support/clip_model.h"

#include <bit>
#include <sstream>

namespace support {
namespace {

// Lines of "path = value".
class Description {
public:
    void add(const std::string& path, const PropertyValue& value)
    {
        stream_ << path << " = " << describe(value) << "\n";
    }

    void add(const std::string& path, const PointModel& point)
    {
        stream_ << path << " = " << point.value << " at " << point.pos << "\n";
    }

    void add(const std::string& path, const EventModel& event)
    {
        stream_ << path << " = " << event.value << " at " << event.pos << "\n";
    }

    template <class Handle>
    void add(const std::string& path, const Values<Handle>& values)
    {
        for (std::size_t i = 0; i < properties<Handle>().size(); ++i) {
            std::visit(
                [&](const auto& property) {
                    const std::string within = property.within;
                    add(path + (within.empty() ? "." : "." + within + ".") + property.key,
                        values.at(i));
                },
                properties<Handle>()[i]);
        }
    }

    void add(const std::string& path, const VibratoModel& vibrato);
    void add(const std::string& path, const DvqmModel& dvqm);
    void add(const std::string& path, const NoteModel& note);
    void add(const std::string& path, const LaneModel& lane);
    void add(const std::string& path, const ParameterModel& parameter);
    void add(const std::string& path, const EffectModel& effect);
    void add(const std::string& path, const PartModel& part);
    void add(const std::string& path, const ClipModel& clip);

    template <class Element>
    void add(const std::string& path, const std::vector<Element>& list)
    {
        add(path + ".size", PropertyValue(static_cast<std::uint32_t>(list.size())));
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
    add(path, vibrato.values);
    add(path + ".depths", vibrato.depths);
    add(path + ".rates", vibrato.rates);
}

void Description::add(const std::string& path, const DvqmModel& dvqm)
{
    add(path, dvqm.values);
    add(path + ".levelNames", dvqm.levelNames);
}

void Description::add(const std::string& path, const NoteModel& note)
{
    add(path, note.values);
    add(path + ".attack", note.attack);
    add(path + ".release", note.release);
    add(path + ".singingSkill", note.singingSkill);
    add(path + ".vibrato", note.vibrato);
}

void Description::add(const std::string& path, const LaneModel& lane)
{
    add(path + ".type", PropertyValue(lane.type));
    add(path + ".events", lane.events);
}

void Description::add(const std::string& path, const ParameterModel& parameter)
{
    add(path + ".name", PropertyValue(parameter.name));
    add(path + ".type", PropertyValue(parameter.type));
    add(path, parameter.values);
}

void Description::add(const std::string& path, const EffectModel& effect)
{
    add(path + ".id", PropertyValue(effect.id));
    add(path + ".type", PropertyValue(effect.type));
    add(path + ".parameters", effect.parameters);
}

void Description::add(const std::string& path, const PartModel& part)
{
    add(path + ".type", PropertyValue(part.type));
    add(path + ".wavFilePath", PropertyValue(part.wavFilePath));
    add(path + ".begin", PropertyValue(part.begin));
    add(path + ".end", PropertyValue(part.end));
    add(path, part.values);
    add(path + ".aiLangIDs", part.aiLangIDs);
    add(path + ".audioEffects", part.audioEffects);
    add(path + ".midiEffects", part.midiEffects);
    add(path + ".notes", part.notes);
    add(path + ".lanes", part.lanes);
}

void Description::add(const std::string& path, const ClipModel& clip)
{
    add(path, clip.values);
    for (std::size_t i = 0; i < tagLists.size(); ++i) {
        add(path + "." + tagLists[i].name(), clip.tags[i]);
    }
    add(path + ".languages", clip.languages);
    add(path + ".part", clip.part);
}

struct ToText {
    std::ostream& stream;

    void operator()(const std::string& text) const { stream << text.size() << ":" << text; }
    void operator()(float value) const
    {
        stream << value << " (" << std::hex << std::bit_cast<std::uint32_t>(value) << ")";
    }
    void operator()(auto value) const { stream << value; }
};

} // namespace

std::string describe(const PropertyValue& value)
{
    std::ostringstream stream;
    std::visit(ToText{stream}, value);
    return stream.str();
}

std::string describe(const ClipModel& clip)
{
    Description description;
    description.add("clip", clip);
    return description.text();
}

} // namespace support
