#include <unordered_set>

#include "check/examination.h"
#include "check/values.h"

namespace plxclip::check {

namespace {

constexpr Loss partRefused{Effect::refused, "the part cannot be read"};
constexpr Loss languageDropped{Effect::dropped, "the language is left out"};
constexpr Loss effectDropped{Effect::dropped, "the effect is left out"};
constexpr Loss parameterDropped{Effect::dropped, "the parameter is left out"};
constexpr Loss controllerDropped{Effect::dropped, "the lane is left out"};
constexpr Loss eventDropped{Effect::dropped, "the event is left out"};

void examineParameter(Examiner& examiner, const Node& element, Contents& contents)
{
    const Fields fields(examiner, element, keys::parameter, parameterDropped);
    if (!fields.complete()) {
        return;
    }
    ++contents.parameters;
    const Node& value = *fields["value"];
    if (value.kind == Kind::real && (value.real > largestFloat || value.real < -largestFloat)) {
        examiner.report(value, Reason::outOfRange, "is beyond what a float holds",
                        {Effect::ignored,
                         value.real > 0 ? "it becomes 3.4028234e38" : "it becomes 1.17549435e-38"});
    }
}

void examineParameters(Examiner& examiner, const Node& array, Contents& contents)
{
    for (const Node& element : Children(array)) {
        if (isObject(examiner, element, parameterDropped)) {
            examineParameter(examiner, element, contents);
        }
    }
}

void examineEffectLists(Examiner& examiner, const Fields& fields, Contents& contents)
{
    if (const Node* const array = fields["audioEffects"]) {
        examineEffects(examiner, *array, EffectList::audio, contents);
    }
    if (const Node* const array = fields["midiEffects"]) {
        examineEffects(examiner, *array, EffectList::midi, contents);
    }
}

// Every name has the form that the library makes of it: backslashes lead into folders too.
std::filesystem::path wavePath(const std::filesystem::path& folder, std::string_view name)
{
    std::u8string text(name.begin(), name.end());
    for (char8_t& letter : text) {
        if (letter == u8'\\') {
            letter = u8'/';
        }
    }
    return folder / "audio" / std::filesystem::path(text).relative_path();
}

bool isPlainFile(const std::filesystem::path& file)
{
    std::error_code ignored;
    return std::filesystem::is_regular_file(file, ignored);
}

std::optional<Contents> examineAudioPart(Examiner& examiner, const Node& object,
                                         const std::filesystem::path& folder)
{
    const Fields fields(examiner, object, keys::audioPart, partRefused);
    if (!fields.complete()) {
        return std::nullopt;
    }
    const Node& name = *fields["wavFileName"];
    const bool canBe = name.whole.size() == name.text.size(); // no file has a NUL in its name
    if (!canBe || !isPlainFile(wavePath(folder, name.text))) {
        examiner.report(name, Reason::waveFile, R"(is no file in the folder "audio")", partRefused);
        return std::nullopt;
    }
    Contents contents;
    examineEffectLists(examiner, fields, contents);
    return contents;
}

void examineLanguages(Examiner& examiner, const Node& array, Contents& contents)
{
    for (const Node& element : Children(array)) {
        if (isObject(examiner, element, languageDropped)) {
            const Fields fields(examiner, element, keys::aiLanguage, languageDropped);
            contents.aiLanguages += fields.complete() ? 1U : 0U;
        }
    }
}

bool examineVoice(Examiner& examiner, const Fields& part, Contents& contents)
{
    if (const Node* const voice = part["voice"]) {
        return Fields(examiner, *voice, keys::voice, partRefused).complete();
    }
    const Node* const voice = part["aiVoice"];
    if (voice == nullptr) {
        return false;
    }
    const Fields fields(examiner, *voice, keys::aiVoice, partRefused);
    if (const Node* const languages = fields["langIDs"]) {
        examineLanguages(examiner, *languages, contents);
    }
    return fields.complete();
}

std::optional<Contents> examineMidiPart(Examiner& examiner, const Node& object,
                                        std::span<const Key> table)
{
    const Fields fields(examiner, object, table, partRefused);
    Contents contents;
    const bool goodVoice = examineVoice(examiner, fields, contents);
    if (!fields.complete() || !goodVoice) {
        return std::nullopt;
    }
    examineEffectLists(examiner, fields, contents);
    if (const Node* const notes = fields["notes"]) {
        examineNotes(examiner, *notes, contents);
    }
    if (const Node* const controllers = fields["controllers"]) {
        examineControllers(examiner, *controllers, contents);
    }
    return contents;
}

// Members that stand where the part stands, but are not the one that counts.
void reportOtherParts(Examiner& examiner, const Node& root, const Node& taken)
{
    for (const Node& member : Children(root)) {
        for (const std::string_view name : keys::parts) {
            if (&member != &taken && member.key == name) {
                examiner.reportKey(member, Reason::notLookedAt, "is not looked at",
                                   {Effect::dropped, "\"audio\" counts before \"midiAi\", and "
                                                     "that before \"midi\""});
            }
        }
    }
}

const Node* partOf(const Node& root)
{
    for (const std::string_view name : keys::parts) {
        if (const Node* const part = memberOf(root, name)) {
            return part;
        }
    }
    return nullptr;
}

void examineController(Examiner& examiner, const Node& element,
                       std::unordered_set<std::string_view>& standing, Contents& contents)
{
    const Fields fields(examiner, element, keys::controller, controllerDropped);
    if (!fields.complete()) {
        return;
    }
    const Node& name = *fields["name"];
    if (standing.contains(name.text)) {
        examiner.report(name, Reason::repeated, "has a lane already", controllerDropped);
        return;
    }
    const keys::Controller& type = *controllerNamed(name.text);
    const Points events = examinePoints(
        examiner, *fields["events"],
        {keys::point(keys::firstPosition, keys::lastPosition, type.minimum, type.maximum),
         eventDropped});
    if (events.count == 0) {
        examiner.report(*fields["events"], Reason::wrongValue, "holds no good event",
                        controllerDropped);
        return;
    }
    standing.insert(name.text);
    ++contents.lanes;
    contents.events += events.count;
    contents.values += events.sum;
}

} // namespace

Points examinePoints(Examiner& examiner, const Node& array, const PointRule& rule)
{
    Points points;
    std::unordered_set<std::int32_t> positions;
    for (const Node& element : Children(array)) {
        if (!isObject(examiner, element, rule.loss)) {
            continue;
        }
        const Fields fields(examiner, element, rule.keys, rule.loss);
        if (!fields.complete()) {
            continue;
        }
        if (positions.insert(fields["pos"]->integer).second) {
            ++points.count;
            points.sum += fields.sum();
        } else {
            examiner.report(*fields["pos"], Reason::repeated, "has one already", rule.loss);
        }
    }
    return points;
}

void examineEffects(Examiner& examiner, const Node& array, EffectList list, Contents& contents)
{
    std::unordered_set<std::string_view> standing;
    for (const Node& element : Children(array)) {
        if (!isObject(examiner, element, effectDropped)) {
            continue;
        }
        const Fields fields(examiner, element, keys::effect, effectDropped);
        if (!fields.complete()) {
            continue;
        }
        if (!standing.insert(fields["id"]->text).second) {
            examiner.report(*fields["id"], Reason::repeated, "is in this list already",
                            effectDropped);
        } else if (const Node* const parameters = fields["parameters"]) {
            examineParameters(examiner, *parameters, contents);
        }
    }
    (list == EffectList::audio ? contents.audioEffects : contents.midiEffects) = standing.size();
}

void examineControllers(Examiner& examiner, const Node& array, Contents& contents)
{
    std::unordered_set<std::string_view> standing;
    for (const Node& element : Children(array)) {
        if (isObject(examiner, element, controllerDropped)) {
            examineController(examiner, element, standing, contents);
        }
    }
}

std::optional<Contents> examinePart(Examiner& examiner, const Node& root,
                                    const std::filesystem::path& folder)
{
    if (!isObject(examiner, root, partRefused)) {
        return std::nullopt;
    }
    const Node* const part = partOf(root);
    if (part == nullptr) {
        examiner.reportMissing(root, keys::parts.back(),
                               {Effect::refused, "there is no \"audio\", \"midiAi\" or \"midi\""});
        return std::nullopt;
    }
    reportOtherParts(examiner, root, *part);
    if (!isObject(examiner, *part, partRefused)) {
        return std::nullopt;
    }
    if (part->key == "audio") {
        return examineAudioPart(examiner, *part, folder);
    }
    return part->key == "midi" ? examineMidiPart(examiner, *part, keys::midiPart)
                               : examineMidiPart(examiner, *part, keys::midiAiPart);
}

} // namespace plxclip::check
