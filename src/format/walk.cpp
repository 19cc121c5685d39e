#include "format/walk.h"

#include <bit>
#include <cstring>
#include <limits>

#include "format/limits.h"

namespace Korvel::CANTORIS::PLX::format {

namespace {

// The index of a key's row. The search begins at `first`, because most documents have their keys in
// the order of the table.
std::size_t find(std::span<const keys::Row> rows, std::string_view key, std::size_t first)
{
    for (std::size_t place = first; place < rows.size(); ++place) {
        if (rows[place].key == key) {
            return place;
        }
    }
    for (std::size_t place = 0; place < first; ++place) {
        if (rows[place].key == key) {
            return place;
        }
    }
    return noRow;
}

// Whether the whole key is there; its beginning has been compared already.
bool standsAt(const char* at, const char* end, std::string_view key)
{
    constexpr std::size_t known = keys::Beginning::size;
    if (key.size() < known) {
        return true; // its beginning contains the closing quotation mark
    }
    return static_cast<std::size_t>(end - at) > key.size() && at[key.size()] == '"' &&
           std::memcmp(at + known, key.data() + known, key.size() - known) == 0;
}

Value valueAt(const char* at, Value::Kind kind)
{
    Value value;
    value.at = at;
    value.kind = kind;
    return value;
}

} // namespace

// --- Scalars ------------------------------------------------------------------------------------------

bool Walk::Null()
{
    return scalar(valueAt(text_.src_ - std::strlen("null"), Value::Kind::null));
}

bool Walk::Bool(bool flag)
{
    const std::size_t length = std::strlen(flag ? "true" : "false");
    Value value = valueAt(text_.src_ - length, Value::Kind::flag);
    value.number.integer = flag ? 1 : 0;
    return scalar(value);
}

bool Walk::String(const char* utf8, json::SizeType length, bool)
{
    Value value = valueAt(utf8 - 1, Value::Kind::text);
    value.number.length = length;
    return scalar(value);
}

// The number is only converted when its value is needed.
bool Walk::number(const Number& number)
{
    Value value = valueAt(text_.src_, Value::Kind::wideInteger);
    if (number.kind == Number::Kind::integer) {
        value.kind = Value::Kind::integer;
        value.number.integer = number.integer;
    } else if (number.kind == Number::Kind::real) {
        value.kind = Value::Kind::real;
        value.number.real = isAskedFor() ? number.toDouble() : 0;
    }
    return scalar(value);
}

bool Walk::scalar(const Value& value)
{
    if (passedOver_ != 0) {
        return true;
    }
    Level& level = trail_.top();
    if (level.row != noRow) {
        level.values[level.row] = value;
        return true;
    }
    return level.list != nullptr ? element(level, value) : !trail_.isOutside();
}

bool Walk::element(Level& level, const Value& value)
{
    if (level.shape == nullptr) {
        builder_.element(value);
    } else {
        trail_.lostElement(LossReason::wrongKind, value.at);
    }
    ++level.count;
    return true;
}

// --- Objects ------------------------------------------------------------------------------------------

void Walk::expectValueOf(Level& level, std::size_t place)
{
    level.present |= 1U << place;
    level.row = static_cast<std::uint32_t>(place);
    level.next = static_cast<std::uint32_t>(place + 1);
}

bool Walk::takeExpectedKey(const char* begin)
{
    if (passedOver_ != 0) {
        return false;
    }
    Level& level = trail_.top();
    const auto rows = level.shape->rows;
    if (level.next == rows.size() || (level.present >> level.next & 1U) != 0) {
        return false;
    }
    const keys::Row& row = rows[level.next];
    if (!row.beginning.isAt(begin, end_) || !standsAt(begin, end_, row.key)) {
        return false;
    }
    text_.src_ += row.key.size() + 2;
    expectValueOf(level, level.next);
    return true;
}

// Of repeated keys, the first one counts.
bool Walk::Key(const char* utf8, json::SizeType length, bool)
{
    if (passedOver_ != 0) {
        return true;
    }
    Level& level = trail_.top();
    const std::string_view key(utf8, length);
    const std::size_t place = find(level.shape->rows, key, level.next);
    level.row = noRow;
    if (place == noRow) {
        if (level.shape != &document_ || key != keys::schemaReference) {
            trail_.lostKey(LossReason::unknownKey, key, utf8 - 1);
        }
        return true;
    }
    level.next = static_cast<std::uint32_t>(place + 1);
    if ((level.present >> place & 1U) != 0) {
        trail_.lostKey(LossReason::repeatedKey, key, utf8 - 1);
        return true;
    }
    expectValueOf(level, place);
    return true;
}

bool Walk::StartObject()
{
    if (passedOver_ != 0) {
        ++passedOver_;
        return true;
    }
    if (trail_.isOutside()) {
        trail_.enterObject(document_, text_.src_);
        return true;
    }
    Level& level = trail_.top();
    const keys::Shape* inner = level.list == nullptr ? nullptr : level.shape;
    if (level.list == nullptr && level.row != noRow) {
        const keys::Row& row = level.shape->rows[level.row];
        level.values[level.row] = valueAt(text_.src_, Value::Kind::object);
        inner = row.kind == keys::Kind::object ? row.inner : nullptr;
    }
    if (inner != nullptr && builder_.beginObject(*inner)) {
        trail_.enterObject(*inner, text_.src_);
    } else {
        passOver();
    }
    return true;
}

bool Walk::EndObject(json::SizeType)
{
    if (passedOver_ != 0) {
        --passedOver_;
        elementEnded();
        return true;
    }
    const bool isTaken = builder_.endObject();
    if (!isTaken) {
        trail_.lostObject();
    }
    trail_.leave();
    if (trail_.isOutside()) {
        return true;
    }
    Level& outer = trail_.top();
    if (outer.list == nullptr && !isTaken) {
        outer.values[outer.row].kind = Value::Kind::refused;
    }
    elementEnded();
    return true;
}

// --- Lists --------------------------------------------------------------------------------------------

bool Walk::StartArray()
{
    if (passedOver_ != 0) {
        ++passedOver_;
        return true;
    }
    if (trail_.isOutside()) {
        return false;
    }
    Level& level = trail_.top();
    if (level.list == nullptr && level.row != noRow) {
        const keys::Row& row = level.shape->rows[level.row];
        level.values[level.row] = valueAt(text_.src_, Value::Kind::list);
        if (row.kind >= keys::Kind::integers && builder_.beginList(row)) {
            trail_.enterList(row, text_.src_);
            return true;
        }
    }
    passOver();
    return true;
}

bool Walk::EndArray(json::SizeType)
{
    if (passedOver_ != 0) {
        --passedOver_;
        elementEnded();
        return true;
    }
    builder_.endList();
    trail_.leave();
    return true;
}

// Ignores the object or list that begins here.
void Walk::passOver()
{
    const Level& level = trail_.top();
    if (level.list != nullptr) {
        trail_.lostElement(LossReason::wrongKind, text_.src_);
    }
    passedOver_ = 1;
}

void Walk::elementEnded()
{
    if (passedOver_ == 0 && trail_.top().list != nullptr) {
        ++trail_.top().count;
    }
}

} // namespace Korvel::CANTORIS::PLX::format

// --- What this library does instead of RapidJSON ------------------------------------------------------

namespace Korvel::CANTORIS::PLX::format::json {

namespace {

// Sets the highest bit of each byte that is zero. Bits above the lowest of them may be wrong.
constexpr std::uint64_t zerosOf(std::uint64_t bytes)
{
    return (bytes - 0x0101010101010101) & ~bytes;
}

constexpr std::uint64_t eightTimes(char letter)
{
    return std::uint64_t{0x0101010101010101} * std::uint64_t{static_cast<unsigned char>(letter)};
}

// Finds the first byte of a string that needs handling: its end, an escape, or a control character,
// which the text's final NUL is, too. Reads eight bytes at a time, as far as they are before `end`.
char* skipPlain(char* at, const char* end)
{
    constexpr std::uint64_t highBits = eightTimes('\x80');
    for (; end - at >= 8; at += 8) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, at, sizeof bytes);
        const std::uint64_t controls = (bytes - eightTimes(' ')) & ~bytes;
        const std::uint64_t found =
            (zerosOf(bytes ^ eightTimes('"')) | zerosOf(bytes ^ eightTimes('\\')) | controls) &
            highBits;
        if (found != 0 && std::endian::native == std::endian::little) {
            return at + std::countr_zero(found) / 8;
        }
        if (found != 0) {
            break;
        }
    }
    while (*at != '"' && *at != '\\' && static_cast<unsigned char>(*at) >= ' ') {
        ++at;
    }
    return at;
}

} // namespace

template <>
template <>
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): named for what they are here
void GenericReader<CheckedUtf8, CheckedUtf8, ThrowingAllocator>::ParseNumber<parseFlags>(Text& text,
                                                                                         Walk& walk)
{
    Number number; // NOLINT(cppcoreguidelines-pro-type-member-init)
    if (!readNumber(text.src_, walk.end(), number)) {
        SetParseError(kParseErrorValueInvalid, static_cast<std::size_t>(number.end - text.head_));
        return;
    }
    if (!walk.number(number)) {
        SetParseError(kParseErrorTermination, text.Tell());
        return;
    }
    text.src_ += number.end - text.src_;
}

// Strings without escapes stay where they are; others are left to RapidJSON.
template <>
template <>
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): named for what they are here
void GenericReader<CheckedUtf8, CheckedUtf8, ThrowingAllocator>::ParseString<parseFlags>(Text& text,
                                                                                         Walk& walk,
                                                                                         bool isKey)
{
    char* const begin = text.src_ + 1;
    if (isKey && walk.takeExpectedKey(begin)) {
        return;
    }
    char* const end = skipPlain(begin, walk.end());
    std::size_t length = static_cast<std::size_t>(end - begin);
    if (*end == '"') {
        text.src_ = end + 1;
    } else {
        text.src_ = begin;
        text.PutBegin();
        ParseStringToStream<parseFlags, CheckedUtf8, CheckedUtf8>(text, text);
        if (HasParseError()) {
            return;
        }
        length = text.PutEnd(begin) - 1;
    }
    // In UTF-8 a document may take half as much again.
    static_assert(2 * dataDocumentLimit <= std::numeric_limits<SizeType>::max());
    const auto size = static_cast<SizeType>(length);
    if (!(isKey ? walk.Key(begin, size, false) : walk.String(begin, size, false))) {
        SetParseError(kParseErrorTermination, text.Tell());
    }
}

} // namespace Korvel::CANTORIS::PLX::format::json

namespace Korvel::CANTORIS::PLX::format {

bool parse(char* text, std::size_t size, const Wanted& wanted, Trail& trail, ClipBuilder& builder)
{
    ThrowingAllocator memory;
    json::GenericReader<CheckedUtf8, CheckedUtf8, ThrowingAllocator> reader(&memory);
    Text stream(text);
    Walk walk(wanted.document, trail, builder, stream, text + size);
    try {
        reader.Parse<parseFlags>(stream, walk);
    } catch (const DocumentDefect&) {
        return trail.refuse(Defect::Kind::halfSurrogate, stream.Tell());
    }
    if (reader.HasParseError()) {
        return trail.refuse(Defect::Kind::grammar, reader.GetErrorOffset(),
                            reader.GetParseErrorCode());
    }
    // RapidJSON takes a NUL for the end of the text: whatever stands behind it was not looked at.
    return stream.Tell() == size || trail.refuse(Defect::Kind::grammar, stream.Tell(),
                                                 json::kParseErrorDocumentRootNotSingular);
}

} // namespace Korvel::CANTORIS::PLX::format
