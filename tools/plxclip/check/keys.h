// Every key of both documents: its type, its range, whether its object needs it, and what holds where
// an optional one is not taken.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <string_view>

namespace plxclip::check {

enum class Type : std::uint8_t { object, array, text, integer, real, flag, parameterValue };

enum class TextRule : std::uint8_t {
    any,
    notEmpty,
    voiceBank, // 16 UTF-16 units
    voiceBankOrEmpty,
    partType,
    controllerName
};

enum class Need : std::uint8_t { optional, required };

struct Key {
    std::string_view name;
    Type type;
    Need need = Need::optional;
    std::string_view instead = {}; // what holds instead of an optional value that is not taken
    std::int64_t minimum = std::numeric_limits<std::int32_t>::min();
    std::int64_t maximum = std::numeric_limits<std::int32_t>::max();
    TextRule rule = TextRule::any;
    bool zeroToo = false; // 0 is taken beside the range
    float initial = 0;    // the number that `instead` tells
};

namespace keys {

inline constexpr auto required = Need::required;
inline constexpr auto optional = Need::optional;

constexpr Key object(std::string_view name, Need need = optional)
{
    return {.name = name, .type = Type::object, .need = need, .instead = "all in it has defaults"};
}

constexpr Key array(std::string_view name, Need need = optional)
{
    return {.name = name, .type = Type::array, .need = need, .instead = "there are none"};
}

constexpr Key requiredText(std::string_view name, TextRule rule)
{
    return {.name = name, .type = Type::text, .need = required, .rule = rule};
}

constexpr Key optionalText(std::string_view name)
{
    return {.name = name, .type = Type::text, .instead = "it is empty"};
}

constexpr Key requiredInteger(std::string_view name, std::int64_t minimum, std::int64_t maximum)
{
    return {.name = name,
            .type = Type::integer,
            .need = required,
            .minimum = minimum,
            .maximum = maximum};
}

constexpr Key optionalInteger(std::string_view name, std::int64_t minimum, std::int64_t maximum,
                              std::string_view instead, float initial = 0)
{
    return {.name = name,
            .type = Type::integer,
            .instead = instead,
            .minimum = minimum,
            .maximum = maximum,
            .initial = initial};
}

constexpr Key real(std::string_view name, std::int64_t maximum, std::string_view instead,
                   float initial)
{
    return {.name = name,
            .type = Type::real,
            .instead = instead,
            .minimum = 0,
            .maximum = maximum,
            .initial = initial};
}

constexpr Key flag(std::string_view name)
{
    return {.name = name, .type = Type::flag, .instead = "it is false"};
}

inline constexpr std::int64_t lastPosition = std::numeric_limits<std::int32_t>::max();
inline constexpr std::int64_t firstPosition = std::numeric_limits<std::int32_t>::min();

// --- The property document ----------------------------------------------------------------------

inline constexpr std::array property = {
    requiredText("id", TextRule::notEmpty), requiredText("name", TextRule::notEmpty),
    object("part", required), optionalText("vendor"), object("filter")};

inline constexpr std::array partHeader = {requiredText("type", TextRule::partType)};

// Of a part with notes.
inline constexpr std::array midiHeader = {requiredText("type", TextRule::partType),
                                          optionalInteger("key", 0, 30, "it is 0"),
                                          Key{.name = "tempo",
                                              .type = Type::integer,
                                              .instead = "it is 0",
                                              .minimum = 2000,
                                              .maximum = 30000,
                                              .zeroToo = true}};

inline constexpr std::array filter = {array("singerGroups"), array("languages"), array("singerIDs"),
                                      array("types"), array("genres")};
inline constexpr std::string_view languages = "languages";

// --- The data document --------------------------------------------------------------------------

inline constexpr std::array data = {requiredText("id", TextRule::notEmpty),
                                    requiredText("name", TextRule::notEmpty),
                                    optionalText("vendor"), object("filter")};

// The first that is there counts.
inline constexpr std::array<std::string_view, 3> parts = {"audio", "midiAi", "midi"};

inline constexpr std::array audioPart = {requiredText("wavFileName", TextRule::notEmpty),
                                         array("audioEffects")};

inline constexpr std::array midiPart = {requiredInteger("duration", 1, lastPosition),
                                        optionalText("styleName"),
                                        optionalText("stylePresetID"),
                                        object("voice", required),
                                        array("audioEffects"),
                                        array("midiEffects"),
                                        array("notes"),
                                        array("controllers")};

inline constexpr std::array midiAiPart = {requiredInteger("duration", 1, lastPosition),
                                          optionalText("styleName"),
                                          optionalText("stylePresetID"),
                                          object("aiVoice", required),
                                          array("audioEffects"),
                                          array("midiEffects"),
                                          array("notes"),
                                          array("controllers")};

inline constexpr std::array voice = {requiredText("compID", TextRule::voiceBank),
                                     requiredInteger("langID", 0, 127)};

inline constexpr std::array aiVoice = {requiredText("compID", TextRule::voiceBankOrEmpty),
                                       array("langIDs")};

inline constexpr std::array aiLanguage = {requiredInteger("langID", 0, 127)};

inline constexpr std::array effect = {requiredText("id", TextRule::notEmpty), array("parameters")};

inline constexpr std::array parameter = {
    requiredText("name", TextRule::notEmpty),
    Key{.name = "value", .type = Type::parameterValue, .need = required}};

inline constexpr std::array controller = {requiredText("name", TextRule::controllerName),
                                          array("events", required)};

struct Controller {
    std::string_view name;
    std::int32_t minimum;
    std::int32_t maximum;
};

inline constexpr std::array<Controller, 12> controllers = {{{"dynamics", 0, 127},
                                                            {"portamento", 0, 127},
                                                            {"pitchBendSens", 0, 24},
                                                            {"pitchBend", -8192, 8191},
                                                            {"breathiness", 0, 127},
                                                            {"brightness", 0, 127},
                                                            {"clearness", 0, 127},
                                                            {"voiceBlend", 0, 127},
                                                            {"growl", 0, 127},
                                                            {"exciter", -64, 63},
                                                            {"air", 0, 127},
                                                            {"character", -64, 63}}};

// An event of a lane or a point of a vibrato; how far each value goes depends on which.
constexpr std::array<Key, 2> point(std::int64_t firstPos, std::int64_t lastPos,
                                   std::int64_t minimum, std::int64_t maximum)
{
    return {requiredInteger("pos", firstPos, lastPos), requiredInteger("value", minimum, maximum)};
}

// --- Notes --------------------------------------------------------------------------------------

inline constexpr std::array note = {requiredText("lyric", TextRule::notEmpty),
                                    requiredText("phoneme", TextRule::notEmpty),
                                    optionalInteger("langID", 0, 127, "there is none", -1),
                                    flag("isProtected"),
                                    requiredInteger("pos", firstPosition, lastPosition - 1),
                                    requiredInteger("duration", 1, lastPosition),
                                    requiredInteger("number", 0, 127),
                                    requiredInteger("velocity", 0, 127),
                                    object("exp"),
                                    object("aiExp"),
                                    object("dvqm"),
                                    object("singingSkill"),
                                    object("vibrato")};

inline constexpr std::array expression = {optionalInteger("accent", 0, 100, "it is 50", 50),
                                          optionalInteger("bendDepth", 0, 100, "it is 0"),
                                          optionalInteger("bendLength", 0, 100, "it is 0"),
                                          optionalInteger("decay", 0, 100, "it is 50", 50),
                                          flag("fallPort"),
                                          flag("risePort"),
                                          optionalInteger("opening", 0, 127, "it is 127", 127)};

constexpr Key aiValue(std::string_view name)
{
    return real(name, 1, "it is 0.5", 0.5F);
}

inline constexpr std::array aiExpression = {
    aiValue("pitchFine"),          aiValue("pitchDriftStart"),    aiValue("pitchDriftEnd"),
    aiValue("pitchScalingCenter"), aiValue("pitchScalingOrigin"), aiValue("pitchTransitionStart"),
    aiValue("pitchTransitionEnd"), aiValue("amplitudeWhole"),     aiValue("amplitudeStart"),
    aiValue("amplitudeEnd"),       aiValue("formantWhole"),       aiValue("formantStart"),
    aiValue("formantEnd")};

inline constexpr std::array dvqmPair = {object("attack"), object("release")};

inline constexpr std::array dvqm = {
    requiredText("compID", TextRule::notEmpty), array("levelNames", required), flag("isProtected"),
    optionalInteger("speed", 0, 100, "it is 50", 50), real("topFactor", 2, "it is 1.0", 1.0F)};
inline constexpr std::size_t mostLevelNames = 4;

constexpr std::array<Key, 2> singingSkill(std::int64_t noteDuration)
{
    return {optionalInteger("duration", 0, noteDuration, "it is 0"), object("weight")};
}

inline constexpr std::array weight = {optionalInteger("pre", 0, 127, "it is 64", 64),
                                      optionalInteger("post", 0, 127, "it is 64", 64)};

// Its two numbers end the reading of the vibrato where they are out of range.
inline constexpr std::array vibrato = {
    optionalInteger("type", firstPosition, lastPosition, "it is 0"),
    optionalInteger("duration", firstPosition, lastPosition, "it is 0"), array("depths"),
    array("rates")};
inline constexpr std::int32_t lastVibratoType = 16;
inline constexpr std::int32_t lastVibratoValue = 127;

} // namespace keys

} // namespace plxclip::check
