#include "check/words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <numeric>
#include <vector>

#include <fmt/format.h>
#include <rapidjson/error/en.h>

#include "check/files.h"

namespace plxclip::check {

namespace {

namespace keys = format::keys;
using format::Loss;
using format::LossReason;
using Id = keys::Shape::Id;
using RowKind = keys::Kind;

// --- Tables -------------------------------------------------------------------------------------------

struct KindWords {
    RowKind is;
    std::string_view name;
    std::string_view initial; // what an optional value is that is not taken
};

constexpr auto kinds = std::to_array<KindWords>({
    {RowKind::integer, kind::integer, "it is {}"},
    {RowKind::real, kind::real, "it is {}"},
    {RowKind::flag, kind::flag, "it is false"},
    {RowKind::text, kind::text, "it is empty"},
    {RowKind::word, kind::text, ""},
    {RowKind::value, "an integer, a float or a string", ""},
    {RowKind::object, kind::object, "all in it has defaults"},
    {RowKind::integers, kind::list, "there are none"},
    {RowKind::texts, kind::list, "there are none"},
    {RowKind::objects, kind::list, "there are none"},
});

struct ObjectWords {
    Id is;
    Effect effect; // if a required value is missing or wrong
    std::string_view lost;
};

constexpr auto objects = std::to_array<ObjectWords>({
    {Id::note, effect::dropped, "the note is left out"},
    {Id::rate, effect::dropped, "the point is left out"},
    {Id::depth, effect::dropped, "the point is left out"},
    {Id::event, effect::dropped, "the event is left out"},
    {Id::controller, effect::dropped, "the lane is left out"},
    {Id::audioEffect, effect::dropped, "the effect is left out"},
    {Id::midiEffect, effect::dropped, "the effect is left out"},
    {Id::audioParameter, effect::dropped, "the parameter is left out"},
    {Id::midiParameter, effect::dropped, "the parameter is left out"},
    {Id::aiLanguage, effect::dropped, "the language is left out"},
    {Id::attack, effect::dropped, "all of it is left out"},
    {Id::release, effect::dropped, "all of it is left out"},
    {Id::propertyDocument, effect::refused, "the document gives no clip"},
    {Id::dataDocument, effect::refused, "the document gives no clip"},
    {Id::partHeader, effect::refused, "the document gives no clip"},
    {Id::midiPart, effect::refused, "the part cannot be read"}, // and any other object
});

struct RuleWords {
    keys::TextRule is;
    std::string_view broken;
};

constexpr auto rules = std::to_array<RuleWords>({
    {keys::TextRule::partType, R"(is none of "audio", "midiAi" and "midi")"},
    {keys::TextRule::controllerName, "names no controller"},
    {keys::TextRule::voiceBank, "must have {} characters"},
    {keys::TextRule::voiceBankOrEmpty, "must have {} characters"},
    {keys::TextRule::any, "is empty"}, // and any other rule
});

// What is said of a loss, whatever the value; the first row that fits. `anywhere` fits any object.
struct Sentence {
    LossReason when;
    Id in;
    Reason reason;
    std::string_view what;
    Effect effect = {}; // empty if it is that of the row or of the object
    std::string_view consequence = {};
};

constexpr Id anywhere{0xFF};
constexpr std::string_view noWaveFile = R"(is no file in the folder "audio")";

constexpr auto sentences = std::to_array<Sentence>({
    {LossReason::missing, anywhere, reason::missingKey, "is missing"},
    {LossReason::tooFew, Id::controller, reason::wrongValue, "holds no good event"},
    {LossReason::tooFew, anywhere, reason::wrongValue, "holds no string"},
    {LossReason::tooMany, anywhere, reason::wrongValue, "holds more than {} strings"},
    {LossReason::duplicate, Id::filter, reason::repeated, "is there already"},
    {LossReason::duplicate, Id::controller, reason::repeated, "has a lane already"},
    {LossReason::duplicate, Id::audioEffect, reason::repeated, "is in this list already"},
    {LossReason::duplicate, Id::midiEffect, reason::repeated, "is in this list already"},
    {LossReason::duplicate, anywhere, reason::repeated, "has a point already"},
    {LossReason::noWaveFile, anywhere, reason::waveFile, noWaveFile},
    {LossReason::clamped, anywhere, reason::outOfRange, "is beyond what a float holds",
     effect::ignored, "it becomes {}"},
    {LossReason::repeatedKey, anywhere, reason::repeated, "stands here again", effect::dropped,
     "the first one counts"},
    {LossReason::notLookedAt, Id::note, reason::notLookedAt, R"(is not looked at beside "dvqm")",
     effect::dropped, "it has its defaults"},
    {LossReason::notLookedAt, Id::partHeader, reason::notLookedAt, "is not looked at",
     effect::ignored, "an audio clip has neither key nor tempo"},
    {LossReason::notLookedAt, anywhere, reason::notLookedAt, "is not looked at", effect::dropped,
     R"("audio" counts before "midiAi", and that before "midi")"},
});

// The row of this key, or the last one.
template <class Table, class Key>
const auto& rowFor(const Table& table, Key key)
{
    const auto row = std::ranges::find(table, key, &Table::value_type::is);
    return row == table.end() ? table.back() : *row;
}

// --- Numbers --------------------------------------------------------------------------------------------

// A float shows that it is one.
std::string numberText(const keys::Row& row, double number)
{
    const std::string text = fmt::format("{:.10g}", number);
    return row.kind == RowKind::real && text.find('.') == std::string::npos ? text + ".0" : text;
}

std::string notInRange(const Loss& loss)
{
    return fmt::format("is not in {}{} to {}", loss.range.takesZero ? "0 or " : "",
                       numberText(*loss.row, loss.range.minimum),
                       numberText(*loss.row, loss.range.maximum));
}

// The range of the key, or what is narrower for this value.
std::string outOfRange(const Loss& loss, const Text& text)
{
    const std::string_view written = text.scalarAt(loss.place);
    std::int64_t number = 0;
    std::from_chars(written.data(), written.data() + written.size(), number);
    const auto value = static_cast<double>(number);
    if (loss.row->kind != RowKind::integer || value < loss.range.minimum ||
        value > loss.range.maximum) {
        return notInRange(loss);
    }
    return loss.shape->id == Id::note ? "leads beyond position 2147483647"
                                      : "is longer than the note";
}

// --- Keys that are like others --------------------------------------------------------------------------

// How many letters must be changed, inserted or removed to make one of the other.
std::size_t distanceOf(const std::string& one, const std::string& other)
{
    std::vector<std::size_t> row(other.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (const char letter : one) {
        std::size_t diagonal = row[0]++;
        for (std::size_t place = 1; place < row.size(); ++place) {
            const std::size_t changed = diagonal + (letter == other[place - 1] ? 0 : 1);
            diagonal = row[place];
            row[place] = std::min({changed, row[place] + 1, row[place - 1] + 1});
        }
    }
    return row.back();
}

// The key of the object that is most like the other one: up to a third of its letters may differ,
// and capital letters do not matter. Empty when there is none.
std::string_view nearestKey(const keys::Shape& shape, std::string_view key)
{
    constexpr std::size_t longest = 64; // no key of the library is nearly as long
    std::string_view nearest;
    std::size_t least = std::max<std::size_t>(key.size() / 3, 1) + 1;
    for (const keys::Row& row : key.size() > longest ? std::span<const keys::Row>() : shape.rows) {
        const std::size_t distance =
            distanceOf(lowerCase(std::string(key)), lowerCase(std::string(row.key)));
        if (distance < least && distance < row.key.size()) {
            least = distance;
            nearest = row.key;
        }
    }
    return nearest;
}

// --- What is wrong --------------------------------------------------------------------------------------

struct Said {
    Reason reason;
    std::string what;
    Effect effect = {};
    std::string consequence = {};
};

// The kind that the value, or the element of a list, must have.
RowKind wantedKind(const Loss& loss)
{
    if (!loss.isElement) {
        return loss.row->kind;
    }
    return loss.row->kind == RowKind::objects    ? RowKind::object
           : loss.row->kind == RowKind::integers ? RowKind::integer
                                                 : RowKind::text;
}

Said wrongKind(const Loss& loss, const Text& text)
{
    const std::string_view is = text.kindAt(loss.place);
    const RowKind wanted = wantedKind(loss);
    if (is == kind::integer && (wanted == RowKind::integer || wanted == RowKind::value)) {
        return {reason::outOfRange, "does not fit into 32 bits"};
    }
    if (is == kind::real && wanted == RowKind::real) {
        return {reason::outOfRange, notInRange(loss)};
    }
    constexpr std::size_t longest = 11; // of a number that helps as an example
    const std::string_view written = text.scalarAt(loss.place);
    const bool lacksPoint =
        is == kind::integer && wanted == RowKind::real && written.size() <= longest;
    const bool isNumber = lacksPoint || (is == kind::real && wanted == RowKind::integer);
    return {reason::wrongType,
            fmt::format("is {}{}, but must be {}{}", isNumber ? "written as " : "", is,
                        rowFor(kinds, wanted).name,
                        lacksPoint ? fmt::format(", such as {}.0", written) : "")};
}

Said notAccepted(const Loss& loss, const Text& text)
{
    const RowKind kind = loss.row->kind;
    if (kind == RowKind::integer || kind == RowKind::real || kind == RowKind::integers) {
        return {reason::outOfRange, outOfRange(loss, text)};
    }
    if (loss.row->rule == keys::TextRule::fileName && text.scalarAt(loss.place) != R"("")") {
        return {reason::waveFile, std::string(noWaveFile)};
    }
    return {reason::wrongValue, fmt::format(fmt::runtime(rowFor(rules, loss.row->rule).broken),
                                            own::voiceBankIdLength)};
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

Said wrong(const Loss& loss, const Text& text)
{
    switch (loss.reason) {
    case LossReason::wrongKind:
        return wrongKind(loss, text);
    case LossReason::notAccepted:
        return notAccepted(loss, text);
    case LossReason::unknownKey:
        return unknownKey(loss);
    default:
        break;
    }
    const Sentence& said = *std::ranges::find_if(sentences, [&loss](const Sentence& each) {
        return each.when == loss.reason && (each.in == anywhere || each.in == loss.shape->id);
    });
    const bool isNegative = text.scalarAt(loss.place).front() == '-';
    const std::size_t most = loss.row != nullptr ? loss.row->most : 0;
    return {said.reason, fmt::format(fmt::runtime(said.what), most), said.effect,
            fmt::format(fmt::runtime(said.consequence),
                        isNegative ? "1.17549435e-38" : "3.4028234e38")};
}

// --- What becomes of it ---------------------------------------------------------------------------------

bool isPart(const Loss& loss)
{
    return loss.shape->id == Id::dataDocument && loss.row->kind == RowKind::object &&
           loss.row->key != "filter";
}

std::string initialValue(const keys::Row& row)
{
    return row.kind == RowKind::integer && row.range.initial == KRT_PLX_NO_LANGUAGE
               ? "there is none"
               : fmt::format(fmt::runtime(rowFor(kinds, row.kind).initial),
                             numberText(row, row.range.initial));
}

// Completes what was said without a consequence.
void addConsequence(Said& said, const Loss& loss)
{
    const ObjectWords& object = rowFor(objects, loss.shape->id);
    const auto become = [&said](Effect effect, std::string_view consequence) {
        said.effect = effect;
        said.consequence = consequence;
    };
    if (loss.isElement && loss.row->kind != RowKind::objects) {
        become(effect::dropped,
               loss.shape->id == Id::filter ? "the tag is left out" : "the name is left out");
    } else if (isPart(loss)) {
        become(effect::refused, loss.reason == LossReason::missing
                                    ? R"(there is no "audio", "midiAi" or "midi")"
                                    : "the part cannot be read");
    } else if (loss.isElement || loss.row->need == keys::Need::required) {
        become(object.effect, object.lost);
    } else if (loss.shape->id == Id::vibrato && loss.reason == LossReason::notAccepted) {
        become(effect::dropped, "the vibrato is not read any further");
    } else {
        become(effect::ignored, initialValue(*loss.row));
    }
}

// If the place is not that of a value, or the value is not what is wrong.
bool isAboutKey(LossReason reason)
{
    return reason == LossReason::missing || reason == LossReason::repeatedKey ||
           reason == LossReason::unknownKey || reason == LossReason::notLookedAt;
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

Finding findingOf(const Heard& heard, const Text& text)
{
    const Loss& loss = heard.loss;
    Said said = wrong(loss, text);
    if (said.effect.empty()) {
        addConsequence(said, loss);
    }
    std::string message = isAboutKey(loss.reason) ? "" : text.excerptAt(loss.place);
    message += (message.empty() ? "" : " ") + said.what;
    message += (said.consequence.empty() ? "" : "; ") + said.consequence;
    return {said.effect, said.reason, std::move(message), loss.place, heard.path};
}

Finding findingOf(const format::Defect& defect, const Text& text)
{
    using Kind = format::Defect::Kind;
    if (defect.kind == Kind::grammar && defect.code == rapidjson::kParseErrorTermination) {
        const std::size_t root = text.utf8().find_first_not_of(" \t\r\n");
        return {effect::refused, reason::wrongType,
                fmt::format("is {}, but must be an object; the document gives no clip",
                            text.kindAt(root)),
                root};
    }
    return {effect::refused, reason::syntax,
            defect.kind == Kind::halfSurrogate
                ? "half of a surrogate pair"
                : describeGrammar(text.utf8(), defect.place, defect.code),
            defect.place};
}

} // namespace plxclip::check
