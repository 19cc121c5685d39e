#include "check/words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <locale>
#include <sstream>
#include <vector>

#include <rapidjson/error/en.h>

#include "check/files.h"

namespace plxclip::check {

namespace {

namespace keys = format::keys;
using format::LossReason;
using Id = keys::Shape::Id;
using RowKind = keys::Kind;

// --- What becomes of it ---------------------------------------------------------------------------

struct Consequence {
    Effect effect;
    std::string text;
};

Consequence dropped(std::string_view what)
{
    return {Effect::dropped, "the " + std::string(what) + " is left out"};
}

Consequence consequenceOfObject(Id id)
{
    switch (id) {
    case Id::note:
        return dropped("note");
    case Id::rate:
    case Id::depth:
        return dropped("point");
    case Id::event:
        return dropped("event");
    case Id::controller:
        return dropped("lane");
    case Id::audioEffect:
    case Id::midiEffect:
        return dropped("effect");
    case Id::audioParameter:
    case Id::midiParameter:
        return dropped("parameter");
    case Id::aiLanguage:
        return dropped("language");
    case Id::attack:
    case Id::release:
        return {Effect::dropped, "all of it is left out"};
    case Id::propertyDocument:
    case Id::dataDocument:
    case Id::partHeader:
        return {Effect::refused, "the document gives no clip"};
    default:
        return {Effect::refused, "the part cannot be read"};
    }
}

bool isNumber(const keys::Row& row)
{
    return row.kind == RowKind::integer || row.kind == RowKind::real;
}

// A float shows that it is one.
std::string numberText(const keys::Row& row, double number)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(10);
    text << number;
    const bool isWhole = text.str().find('.') == std::string::npos;
    return text.str() + (row.kind == RowKind::real && isWhole ? ".0" : "");
}

// Where an optional value is not taken.
std::string initialValue(const keys::Row& row)
{
    switch (row.kind) {
    case RowKind::integer:
    case RowKind::real:
        return row.range.initial == KRT_PLX_NO_LANGUAGE
                   ? "there is none"
                   : "it is " + numberText(row, row.range.initial);
    case RowKind::flag:
        return "it is false";
    case RowKind::object:
        return "all in it has defaults";
    case RowKind::text:
        return "it is empty";
    default:
        return "there are none";
    }
}

Consequence consequenceOfHiding(const format::Loss& loss)
{
    switch (loss.shape->id) {
    case Id::note:
        return {Effect::dropped, "it has its defaults"};
    case Id::partHeader:
        return {Effect::ignored, "an audio clip has neither key nor tempo"};
    default:
        return {Effect::dropped, R"("audio" counts before "midiAi", and that before "midi")"};
    }
}

Consequence consequenceOfElement(const format::Loss& loss)
{
    if (loss.row->kind == RowKind::objects) {
        return consequenceOfObject(loss.shape->id);
    }
    return dropped(loss.shape->id == Id::filter ? "tag" : "name");
}

bool isPart(const format::Loss& loss)
{
    return loss.shape->id == Id::dataDocument && loss.row->kind == RowKind::object &&
           loss.row->key != "filter";
}

Consequence consequenceOf(const format::Loss& loss, const std::string& excerpt)
{
    switch (loss.reason) {
    case LossReason::repeatedKey:
        return {Effect::dropped, "the first one counts"};
    case LossReason::unknownKey:
        return {nearestKey(*loss.shape, loss.key).empty() ? Effect::noted : Effect::ignored, ""};
    case LossReason::notLookedAt:
        return consequenceOfHiding(loss);
    case LossReason::clamped:
        return {Effect::ignored,
                excerpt.front() == '-' ? "it becomes 1.17549435e-38" : "it becomes 3.4028234e38"};
    default:
        break;
    }
    if (loss.isElement) {
        return consequenceOfElement(loss);
    }
    if (loss.reason == LossReason::missing && isPart(loss)) {
        return {Effect::refused, R"(there is no "audio", "midiAi" or "midi")"};
    }
    if (isPart(loss)) {
        return {Effect::refused, "the part cannot be read"};
    }
    if (loss.row->need == keys::Need::required) {
        return consequenceOfObject(loss.shape->id);
    }
    if (loss.shape->id == Id::vibrato && loss.reason == LossReason::notAccepted) {
        return {Effect::dropped, "the vibrato is not read any further"};
    }
    return {Effect::ignored, initialValue(*loss.row)};
}

// --- What is wrong ------------------------------------------------------------------------------------

std::string_view describe(Kind kind)
{
    constexpr std::array<std::string_view, 7> words = {
        "null", "true or false", "an integer", "a float", "a string", "an array", "an object"};
    return words[static_cast<std::size_t>(kind)];
}

std::string_view describe(RowKind kind)
{
    constexpr std::array<std::string_view, 7> words = {
        "an integer", "a float",  "true or false",
        "a string",   "a string", "an integer, a float or a string",
        "an object"};
    return kind >= RowKind::integers ? "an array" : words[static_cast<std::size_t>(kind)];
}

// What an element of the list, or the value, must be.
RowKind wantedKind(const format::Loss& loss)
{
    if (!loss.isElement) {
        return loss.row->kind;
    }
    return loss.row->kind == RowKind::objects    ? RowKind::object
           : loss.row->kind == RowKind::integers ? RowKind::integer
                                                 : RowKind::text;
}

std::string wrongKind(const format::Loss& loss, const Text& text)
{
    const Kind is = text.kindAt(loss.place);
    const RowKind wanted = wantedKind(loss);
    if (wanted == RowKind::integer && is == Kind::real) {
        return "is written as a float, but must be an integer";
    }
    const std::string_view number = text.scalarAt(loss.place);
    const std::string example = wanted == RowKind::real && is == Kind::integer && number.size() < 12
                                    ? ", such as " + std::string(number) + ".0"
                                    : "";
    const std::string_view as = example.empty() ? "is " : "is written as ";
    return std::string(as) + std::string(describe(is)) + ", but must be " +
           std::string(describe(wanted)) + example;
}

bool isTooWide(const format::Loss& loss, const Text& text)
{
    if (loss.reason != LossReason::wrongKind || text.kindAt(loss.place) != Kind::integer) {
        return false;
    }
    const RowKind wanted = wantedKind(loss);
    return wanted == RowKind::integer || wanted == RowKind::value;
}

// The range of the key, or what is narrower about this one.
std::string outOfRange(const format::Loss& loss, const Text& text)
{
    const std::string_view written = text.scalarAt(loss.place);
    std::int64_t number = 0;
    std::from_chars(written.data(), written.data() + written.size(), number);
    const auto value = static_cast<double>(number);
    const bool isWithin = loss.range.minimum <= value && value <= loss.range.maximum;
    if (loss.row->kind == RowKind::integer && isWithin) {
        return loss.shape->id == Id::note ? "leads beyond position 2147483647"
                                          : "is longer than the note";
    }
    return std::string("is not in ") + (loss.range.takesZero ? "0 or " : "") +
           numberText(*loss.row, loss.range.minimum) + " to " +
           numberText(*loss.row, loss.range.maximum);
}

std::string notAccepted(const format::Loss& loss, const Text& text)
{
    if (loss.isElement) {
        return loss.row->kind == RowKind::texts ? "is empty" : "is not in 0 to 2147483647";
    }
    if (isNumber(*loss.row)) {
        return outOfRange(loss, text);
    }
    switch (loss.row->rule) {
    case keys::TextRule::partType:
        return R"(is none of "audio", "midiAi" and "midi")";
    case keys::TextRule::controllerName:
        return "names no controller";
    case keys::TextRule::voiceBank:
    case keys::TextRule::voiceBankOrEmpty:
        return "must have " + std::to_string(own::voiceBankIdLength) + " characters";
    default:
        return "is empty";
    }
}

std::string_view duplicate(const format::Loss& loss)
{
    switch (loss.shape->id) {
    case Id::filter:
        return "is there already";
    case Id::controller:
        return "has a lane already";
    case Id::audioEffect:
    case Id::midiEffect:
        return "is in this list already";
    default:
        return "has a point already";
    }
}

std::string unknownKey(const format::Loss& loss)
{
    const std::string_view nearest = nearestKey(*loss.shape, loss.key);
    return nearest.empty() ? "is no key that the library knows"
                           : "is no key; did you mean \"" + std::string(nearest) + "\"?";
}

bool isNoFile(const format::Loss& loss, const std::string& excerpt)
{
    return loss.reason == LossReason::noWaveFile ||
           (loss.reason == LossReason::notAccepted && loss.row->rule == keys::TextRule::fileName &&
            excerpt != R"("")");
}

// A float has the right kind, but not where it is larger than any.
bool isTooLargeFloat(const format::Loss& loss, const Text& text)
{
    return loss.reason == LossReason::wrongKind && wantedKind(loss) == RowKind::real &&
           text.kindAt(loss.place) == Kind::real;
}

struct Problem {
    Reason reason;
    std::string text;
};

Problem problemOf(const format::Loss& loss, const Text& text, const std::string& excerpt)
{
    if (isNoFile(loss, excerpt)) {
        return {Reason::waveFile, R"(is no file in the folder "audio")"};
    }
    if (isTooWide(loss, text)) {
        return {Reason::outOfRange, "does not fit into 32 bits"};
    }
    if (isTooLargeFloat(loss, text)) {
        return {Reason::outOfRange, outOfRange(loss, text)};
    }
    switch (loss.reason) {
    case LossReason::missing:
        return {Reason::missingKey, "is missing"};
    case LossReason::wrongKind:
        return {Reason::wrongType, wrongKind(loss, text)};
    case LossReason::notAccepted:
        return {isNumber(*loss.row) || loss.row->kind == RowKind::integers ? Reason::outOfRange
                                                                           : Reason::wrongValue,
                notAccepted(loss, text)};
    case LossReason::tooFew:
        return {Reason::wrongValue,
                loss.shape->id == Id::controller ? "holds no good event" : "holds no string"};
    case LossReason::tooMany:
        return {Reason::wrongValue,
                "holds more than " + std::to_string(loss.row->most) + " strings"};
    case LossReason::repeatedKey:
        return {Reason::repeated, "stands here again"};
    case LossReason::notLookedAt:
        return {Reason::notLookedAt, loss.shape->id == Id::note
                                         ? R"(is not looked at beside "dvqm")"
                                         : "is not looked at"};
    case LossReason::duplicate:
        return {Reason::repeated, std::string(duplicate(loss))};
    case LossReason::clamped:
        return {Reason::outOfRange, "is beyond what a float holds"};
    default:
        return {Reason::unknownKey, unknownKey(loss)};
    }
}

// Where the place is not that of a value, or the value is not what is wrong.
bool isAboutKey(const format::Loss& loss)
{
    return loss.reason == LossReason::missing || loss.reason == LossReason::repeatedKey ||
           loss.reason == LossReason::unknownKey || loss.reason == LossReason::notLookedAt;
}

// --- Keys -----------------------------------------------------------------------------------------------

// How many letters must be changed, put in or taken out to make one of the other.
std::size_t distanceOf(const std::string& one, const std::string& other)
{
    std::vector<std::size_t> row(other.size() + 1);
    for (std::size_t place = 0; place < row.size(); ++place) {
        row[place] = place;
    }
    for (std::size_t line = 1; line <= one.size(); ++line) {
        std::size_t diagonal = row[0]++;
        for (std::size_t place = 1; place < row.size(); ++place) {
            const std::size_t changed = diagonal + (one[line - 1] == other[place - 1] ? 0 : 1);
            diagonal = row[place];
            row[place] = std::min({changed, row[place] + 1, row[place - 1] + 1});
        }
    }
    return row.back();
}

// --- Texts that are no documents ------------------------------------------------------------------------

// The last letter before the place that is no white space; NUL when there is none.
char letterBefore(std::string_view text)
{
    const auto place = text.find_last_not_of(" \t\r\n");
    return place == std::string_view::npos ? '\0' : text[place];
}

std::string numberDefect(char before)
{
    if (before == '.') {
        return "a number has no digit after its point";
    }
    const bool isExponent = before == 'e' || before == 'E' || before == '+';
    return isExponent ? "a number has no digit in its exponent" : "a number has no digit";
}

// What RapidJSON says is right but not always what helps.
std::string describeGrammar(const std::string& text, std::size_t place, int code)
{
    const std::string_view before = std::string_view(text).substr(0, place);
    const std::string_view rest = std::string_view(text).substr(std::min(place, text.size()));
    const char last = before.empty() ? '\0' : before.back();
    if (text.find_first_not_of(" \t\r\n") == std::string::npos) {
        return "the document is empty";
    }
    if (rest.empty()) {
        return "the document ends in the middle";
    }
    if (rest.front() == '/') {
        return "JSON has no comments";
    }
    if ((rest.front() == '}' || rest.front() == ']') && letterBefore(before) == ',') {
        return std::string("a comma before the closing ") + rest.front();
    }
    const bool isNumber = code == rapidjson::kParseErrorValueInvalid;
    if (isNumber && std::string_view(".eE+-").find(last) != std::string_view::npos &&
        last != '\0') {
        return numberDefect(last);
    }
    if (isNumber && (rest.front() == '-' || ('0' <= rest.front() && rest.front() <= '9'))) {
        return last == '0' ? "a number begins with 0 and goes on" : "a number is too large";
    }
    return rapidjson::GetParseError_En(static_cast<rapidjson::ParseErrorCode>(code));
}

} // namespace

// A third of the letters may be wrong, and capital letters cost nothing.
std::string_view nearestKey(const keys::Shape& shape, std::string_view key)
{
    constexpr std::size_t longest = 64; // of what can be like a key
    std::string_view nearest;
    std::size_t least = key.size() > longest ? 0 : std::max<std::size_t>(key.size() / 3, 1) + 1;
    for (const keys::Row& row : shape.rows) {
        const std::size_t distance =
            least == 0 ? least
                       : distanceOf(lowerCase(std::string(key)), lowerCase(std::string(row.key)));
        if (distance < least && distance < row.key.size()) {
            least = distance;
            nearest = row.key;
        }
    }
    return nearest;
}

Finding findingOf(const Heard& heard, Text& text)
{
    const format::Loss& loss = heard.loss;
    const std::string excerpt = isAboutKey(loss) ? std::string() : text.excerptAt(loss.place);
    const Problem problem = problemOf(loss, text, excerpt);
    const Consequence consequence = consequenceOf(loss, excerpt);
    std::string message = excerpt.empty() ? problem.text : excerpt + ' ' + problem.text;
    message += consequence.text.empty() ? "" : "; " + consequence.text;
    return {consequence.effect,          problem.reason,    {}, heard.path,
            text.positionOf(loss.place), std::move(message)};
}

Finding findingOf(const format::Defect& defect, Text& text)
{
    Finding finding{Effect::refused, Reason::syntax, {}, {}, text.positionOf(defect.place), {}};
    if (defect.kind == format::Defect::Kind::halfSurrogate) {
        finding.message = "half of a surrogate pair";
    } else if (defect.kind == format::Defect::Kind::grammar &&
               defect.code == rapidjson::kParseErrorTermination) {
        const std::size_t root = text.utf8().find_first_not_of(" \t\r\n");
        finding.reason = Reason::wrongType;
        finding.position = text.positionOf(root);
        finding.message = "is " + std::string(describe(text.kindAt(root))) +
                          ", but must be an object; the document gives no clip";
    } else {
        finding.message = describeGrammar(text.utf8(), defect.place, defect.code);
    }
    return finding;
}

} // namespace plxclip::check
