#include "check/words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include <fmt/format.h>
#include <rapidjson/error/en.h>

#include "letters.h"
#include "unicode.h"

namespace plxclip::check {

namespace {

namespace keys = format::keys;
using format::Loss;
using format::LossReason;
using keys::Kind;
using keys::TextRule;
using Id = keys::Shape::Id;

// --- Tables -------------------------------------------------------------------------------------------

constexpr Kind null{0xFF}; // which no key wants

struct KindWords {
    Kind is;
    std::string_view name;
    std::string_view begins = {};  // the first letters of its values
    std::string_view initial = {}; // what an optional value is that is not taken
    Kind element = {};             // of a list
};

constexpr auto kinds = std::to_array<KindWords>({
    {Kind::integer, "an integer", "-0123456789", "it is {}"},
    {Kind::real, "a float", {}, "it is {}"},
    {Kind::flag, "true or false", "tf", "it is false"},
    {Kind::text, "a string", "\"", "it is empty"},
    {Kind::word, "a string"},
    {Kind::value, "an integer, a float or a string"},
    {Kind::object, "an object", "{", "all in it has defaults"},
    {Kind::integers, "an array", "[", "there are none", Kind::integer},
    {Kind::texts, "an array", {}, "there are none", Kind::text},
    {Kind::objects, "an array", {}, "there are none", Kind::object},
    {null, "null", "n"},
});

struct ObjectWords {
    Id is;
    Effect effect; // if a required value is missing or wrong
    std::string_view lost;
    std::string_view duplicate = {}; // if what it names may be there only once
};

constexpr auto objects = std::to_array<ObjectWords>({
    {Id::note, effect::dropped, "the note is left out"},
    {Id::rate, effect::dropped, "the point is left out", "has a point already"},
    {Id::depth, effect::dropped, "the point is left out", "has a point already"},
    {Id::event, effect::dropped, "the event is left out", "has a point already"},
    {Id::controller, effect::dropped, "the lane is left out", "has a lane already"},
    {Id::audioEffect, effect::dropped, "the effect is left out", "is in this list already"},
    {Id::midiEffect, effect::dropped, "the effect is left out", "is in this list already"},
    {Id::audioParameter, effect::dropped, "the parameter is left out"},
    {Id::midiParameter, effect::dropped, "the parameter is left out"},
    {Id::aiLanguage, effect::dropped, "the language is left out"},
    {Id::attack, effect::dropped, "all of it is left out"},
    {Id::release, effect::dropped, "all of it is left out"},
    {Id::filter, effect::dropped, "the tag is left out", "is there already"},
    {Id::propertyDocument, effect::refused, "the document gives no clip"},
    {Id::dataDocument, effect::refused, "the document gives no clip"},
    {Id::partHeader, effect::refused, "the document gives no clip"},
    {Id::midiPart, effect::refused, "the part cannot be read"}, // and any other object
});

struct RuleWords {
    TextRule is;
    std::string_view broken;
};

constexpr auto rules = std::to_array<RuleWords>({
    {TextRule::partType, R"(is none of "audio", "midiAi" and "midi")"},
    {TextRule::controllerName, "names no controller"},
    {TextRule::voiceBank, "must have {} characters"},
    {TextRule::voiceBankOrEmpty, "must have {} characters"},
    {TextRule::any, "is empty"}, // and any other rule
});

// What is said of a value, or of a key whatever its value: then also what becomes of it.
struct Said {
    Reason reason;
    std::string what;
    Effect effect = {};
    std::string consequence = {};
};

// The row of this key, or the last one.
template <class Table, class Key>
const auto& rowFor(const Table& table, Key key)
{
    const auto row = std::ranges::find(table, key, &Table::value_type::is);
    return row == table.end() ? table.back() : *row;
}

// --- Values as they are written -------------------------------------------------------------------------

// The value or the key at the beginning of valid JSON; of an object or a list only the beginning.
std::string_view firstOf(std::string_view text)
{
    if (text.front() != '"') {
        return text.substr(0, text.find_first_of(" \t\r\n,]}"));
    }
    std::size_t end = 1;
    while (end < text.size() && text[end] != '"') {
        end += text[end] == '\\' ? 2 : 1;
    }
    return text.substr(0, end + 1);
}

const KindWords& kindOf(std::string_view written)
{
    const auto fits = [written](const KindWords& kind) {
        return kind.begins.find(written.front()) != std::string_view::npos;
    };
    const KindWords& kind = *std::ranges::find_if(kinds, fits);
    const bool isReal = written.find_first_of(".eE") != std::string_view::npos;
    return kind.is == Kind::integer && isReal ? rowFor(kinds, Kind::real) : kind;
}

// Cut if it is long; empty for an object or a list.
std::string excerptOf(std::string_view written)
{
    constexpr std::size_t longest = 40;
    if (written.front() == '{' || written.front() == '[') {
        return {};
    }
    if (written.size() <= longest) {
        return std::string(written);
    }
    return std::string(written.substr(0, own::validUtf8Length(written.substr(0, longest)))) + "...";
}

// --- Numbers --------------------------------------------------------------------------------------------

// A float shows that it is one.
std::string numberText(const keys::Row& row, double number)
{
    const std::string text = fmt::format("{:.10g}", number);
    return row.kind == Kind::real && text.find('.') == std::string::npos ? text + ".0" : text;
}

std::string notInRange(const Loss& loss)
{
    return fmt::format("is not in {}{} to {}", loss.range.takesZero ? "0 or " : "",
                       numberText(*loss.row, loss.range.minimum),
                       numberText(*loss.row, loss.range.maximum));
}

// The range of the key, or what is narrower for this value.
std::string outOfRange(const Loss& loss, std::string_view written)
{
    double value = 0;
    std::from_chars(written.data(), written.data() + written.size(), value);
    if (loss.row->kind != Kind::integer || value < loss.range.minimum ||
        value > loss.range.maximum) {
        return notInRange(loss);
    }
    return loss.shape->id == Id::note ? "leads beyond position 2147483647"
                                      : "is longer than the note";
}

} // namespace

std::string_view nearestKey(const keys::Shape& shape, std::string_view key)
{
    std::vector<std::string_view> known;
    for (const keys::Row& row : shape.rows) {
        known.push_back(row.key);
    }
    return nearestWord(known, key);
}

namespace {

// --- What is wrong --------------------------------------------------------------------------------------

Said wrongKind(const Loss& loss, std::string_view written)
{
    const KindWords& kind = kindOf(written);
    const bool isInteger = kind.is == Kind::integer;
    const Kind own = loss.row->kind;
    const Kind wanted = loss.isElement ? rowFor(kinds, own).element : own;
    if (isInteger && (wanted == Kind::integer || wanted == Kind::value)) {
        return {reason::outOfRange, "does not fit into 32 bits"};
    }
    if (kind.is == Kind::real && wanted == Kind::real) {
        return {reason::outOfRange, notInRange(loss)};
    }
    constexpr std::size_t longest = 11; // of a number that helps as an example
    const bool lacksPoint = isInteger && wanted == Kind::real && written.size() <= longest;
    const bool isNumber = lacksPoint || (kind.is == Kind::real && wanted == Kind::integer);
    return {reason::wrongType,
            fmt::format("is {}{}, but must be {}{}", isNumber ? "written as " : "", kind.name,
                        rowFor(kinds, wanted).name,
                        lacksPoint ? fmt::format(", such as {}.0", written) : "")};
}

Said notAccepted(const Loss& loss, std::string_view written)
{
    const keys::Row& row = *loss.row;
    if (row.kind == Kind::integer || row.kind == Kind::real || row.kind == Kind::integers) {
        return {reason::outOfRange, outOfRange(loss, written)};
    }
    if (row.rule == TextRule::fileName && written != R"("")") {
        return {reason::waveFile, R"(is no file in the folder "audio")"};
    }
    return {reason::wrongValue,
            fmt::format(fmt::runtime(rowFor(rules, row.rule).broken), own::voiceBankIdLength)};
}

Said notLookedAt(Id object)
{
    if (object == Id::note) {
        return {reason::notLookedAt, R"(is not looked at beside "dvqm")", effect::dropped,
                "it has its defaults"};
    }
    if (object == Id::partHeader) {
        return {reason::notLookedAt, "is not looked at", effect::ignored,
                "an audio clip has neither key nor tempo"};
    }
    return {reason::notLookedAt, "is not looked at", effect::dropped,
            R"("audio" counts before "midiAi", and that before "midi")"};
}

Said unknownKey(const Loss& loss)
{
    const std::string_view nearest = nearestKey(*loss.shape, loss.key);
    if (nearest.empty()) {
        return {reason::unknownKey, "is no key that the library knows", effect::noted};
    }
    return {reason::unknownKey, fmt::format("is no key; did you mean \"{}\"?", nearest),
            effect::ignored};
}

Said wrong(const Loss& loss, std::string_view written)
{
    const Id object = loss.shape->id;
    switch (loss.reason) {
    case LossReason::wrongKind:
        return wrongKind(loss, written);
    case LossReason::notAccepted:
    case LossReason::noWaveFile:
        return notAccepted(loss, written);
    case LossReason::unknownKey:
        return unknownKey(loss);
    case LossReason::notLookedAt:
        return notLookedAt(object);
    case LossReason::tooFew:
        return {reason::wrongValue,
                object == Id::controller ? "holds no good event" : "holds no string"};
    case LossReason::tooMany:
        return {reason::wrongValue, fmt::format("holds more than {} strings", loss.row->most)};
    case LossReason::repeatedKey:
        return {reason::repeated, "stands here again", effect::dropped, "the first one counts"};
    case LossReason::duplicate:
        return {reason::repeated, std::string(rowFor(objects, object).duplicate)};
    case LossReason::clamped:
        return {reason::outOfRange, "is beyond what a float holds"};
    case LossReason::missing:
    case LossReason::object: // which is told by what was lost in it
        break;
    }
    return {reason::missingKey, "is missing"};
}

// --- What becomes of it ---------------------------------------------------------------------------------

std::string initialValue(const keys::Row& row)
{
    return row.kind == Kind::integer && row.range.initial == KRT_PLX_NO_LANGUAGE
               ? "there is none"
               : fmt::format(fmt::runtime(rowFor(kinds, row.kind).initial),
                             numberText(row, row.range.initial));
}

std::pair<Effect, std::string> outcomeOf(const Loss& loss, std::string_view written)
{
    const ObjectWords& object = rowFor(objects, loss.shape->id);
    const bool isPart = object.is == Id::dataDocument && loss.row->kind == Kind::object &&
                        loss.row->key != "filter";
    if (loss.reason == LossReason::clamped) {
        return {effect::ignored,
                written.front() == '-' ? "it becomes 1.17549435e-38" : "it becomes 3.4028234e38"};
    }
    if (loss.isElement && loss.row->kind == Kind::texts && object.is != Id::filter) {
        return {effect::dropped, "the name is left out"};
    }
    if (isPart) {
        return {effect::refused, loss.reason == LossReason::missing
                                     ? R"(there is no "audio", "midiAi" or "midi")"
                                     : "the part cannot be read"};
    }
    if (loss.isElement || loss.row->need == keys::Need::required) {
        return {object.effect, std::string(object.lost)};
    }
    if (loss.shape->id == Id::vibrato && loss.reason == LossReason::notAccepted) {
        return {effect::dropped, "the vibrato is not read any further"};
    }
    return {effect::ignored, initialValue(*loss.row)};
}

// --- Texts that are not JSON ----------------------------------------------------------------------------

// The letters around the place where a text stops being JSON; an empty set stands for all letters.
struct Stop {
    std::string_view visible; // the last one before it that is not white space
    std::string_view before;
    std::string_view at;
    std::string_view words; // with braces for the letter there
    bool isInNumber = true;
};

constexpr std::string_view none = "\xFF"; // where there is no letter; no byte of UTF-8
constexpr std::string_view numeric = "-0123456789";

constexpr auto stops = std::to_array<Stop>({
    {none, "", none, "the document is empty", false},
    {"", "", none, "the document ends in the middle", false},
    {"", "", "/", "JSON has no comments", false},
    {",", "", "}]", "a comma before the closing {}", false},
    {"", ".", "", "a number has no digit after its point"},
    {"", "eE+", "", "a number has no digit in its exponent"},
    {"", "-", "", "a number has no digit"},
    {"", "0", numeric, "a number begins with 0 and goes on"},
    {"", "", numeric, "a number is too large"},
});

std::string describeGrammar(std::string_view text, std::size_t place, int code)
{
    const std::string_view front = text.substr(0, place);
    const auto letterAt = [](std::string_view in, std::size_t index) {
        return index < in.size() ? in[index] : none.front();
    };
    const auto fits = [](std::string_view letters, char letter) {
        return letters.empty() || letters.find(letter) != std::string_view::npos;
    };
    const char visible = letterAt(front, front.find_last_not_of(" \t\r\n"));
    const char at = letterAt(text, place);
    for (const Stop& stop : stops) {
        if ((!stop.isInNumber || code == rapidjson::kParseErrorValueInvalid) &&
            fits(stop.visible, visible) && fits(stop.before, letterAt(front, front.size() - 1)) &&
            fits(stop.at, at)) {
            return fmt::format(fmt::runtime(stop.words), at);
        }
    }
    return rapidjson::GetParseError_En(static_cast<rapidjson::ParseErrorCode>(code));
}

} // namespace

Finding findingOf(const Loss& loss, std::string_view text)
{
    const std::string_view written = firstOf(text.substr(loss.place));
    Said said = wrong(loss, written);
    std::string message;
    if (said.effect.empty()) {
        std::tie(said.effect, said.consequence) = outcomeOf(loss, written);
        message = excerptOf(written);
    }
    message += (message.empty() ? "" : " ") + said.what;
    message += (said.consequence.empty() ? "" : "; ") + said.consequence;
    return {said.effect, said.reason, std::move(message), loss.place, loss.path};
}

Finding findingOf(const format::Defect& defect, std::string_view text)
{
    using DefectKind = format::Defect::Kind;
    if (defect.kind == DefectKind::grammar && defect.code == rapidjson::kParseErrorTermination) {
        const std::size_t root = text.find_first_not_of(" \t\r\n");
        return {effect::refused, reason::wrongType,
                fmt::format("is {}, but must be an object; the document gives no clip",
                            kindOf(firstOf(text.substr(root))).name),
                root};
    }
    return {effect::refused, reason::syntax,
            defect.kind == DefectKind::halfSurrogate
                ? "half of a surrogate pair"
                : describeGrammar(text, defect.place, defect.code),
            defect.place};
}

} // namespace plxclip::check
