// Where a walk through a document is: the open objects and lists, and the values that were found in
// them.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "format/keys.h"
#include "format/losses.h"
#include "format/values.h"

namespace Korvel::CANTORIS::PLX::format {

using keys::mostLevels;
using keys::mostRows;
inline constexpr std::size_t noRow = mostRows;
static_assert(mostRows < 32);

// The values of an object, by the indexes of their rows.
struct Members {
    // Null when the object has no such key.
    const Value* operator[](std::size_t place) const
    {
        return (present >> place & 1U) != 0 ? values + place : nullptr;
    }

    // Whether the object has the key, with an object or a list that was accepted.
    bool hasObject(std::size_t place) const { return hasKind(place, Value::Kind::object); }
    bool hasList(std::size_t place) const { return hasKind(place, Value::Kind::list); }

    std::uint32_t present;
    const Value* values;
    const keys::Shape* shape;
    // The path from the innermost open object to this one.
    // NOLINTNEXTLINE(readability-redundant-member-init): GCC warns where it is left out.
    std::string_view below = {};

private:
    bool hasKind(std::size_t place, Value::Kind kind) const
    {
        const Value* const value = (*this)[place];
        return value != nullptr && value->kind == kind;
    }
};

// Keeps the members of an object that has ended, until they are needed.
template <class Of>
class Kept {
public:
    void keep(const Members& members)
    {
        present_ = members.present;
        std::copy_n(members.values, values_.size(), values_.begin());
    }

    Members members(std::string_view below) const
    {
        return {present_, values_.data(), &keys::shape<Of>, below};
    }

private:
    std::uint32_t present_ = 0;
    std::array<Value, keys::rows<Of>.size()> values_;
};

// An object or a list that is open.
struct Level {
    Members members() const { return {present, values.data(), shape}; }

    const keys::Shape* shape; // of the object, or of the objects in the list; null for another list
    const keys::Row* list;    // null for an object
    const char* at;           // where it begins
    std::uint64_t count;      // of a list: the number of elements so far
    std::uint32_t present;    // a bit for each row that was found
    std::uint32_t row;        // the row whose value comes next, or noRow
    std::uint32_t next;       // the row with which the next key is compared first
    std::array<Value, mostRows> values;
};

class Trail {
public:
    Trail() = default;
    Trail(const Trail&) = delete;
    Trail& operator=(const Trail&) = delete;
    ~Trail() = default;

    void begin(const char* text, Listener* listener)
    {
        text_ = text;
        listener_ = listener;
        top_ = levels_.data();
        *top_ = {};
        top_->row = noRow;
    }

    // Before and after the document, the top is a level without a shape.
    bool isOutside() const { return top_ == levels_.data(); }
    Level& top() { return *top_; }
    const Level& top() const { return *top_; }
    const Level& outer() const { return top_[-1]; }

    void enterObject(const keys::Shape& shape, const char* at) { enter(&shape, nullptr, at); }
    void enterList(const keys::Row& row, const char* at) { enter(row.inner, &row, at); }
    void leave() { --top_; }

    // Without a listener, the following functions only check that there is none.

    bool isHeard() const { return listener_ != nullptr; }
    // Reports the loss of a row of the innermost object, or of one below it. `value` is null when
    // it is missing.
    void lost(LossReason reason, const Members& members, const keys::Row& row,
              const Value* value) const;
    // Reports the loss of a key of the innermost object.
    void lostKey(LossReason reason, std::string_view key, const char* at) const;
    // Of the element of the innermost list that has just begun.
    void lostElement(LossReason reason, const char* at) const;
    // Of a value of an object in a list below the innermost object, which ended before. `below` is the
    // path from there to the object in the list.
    void lostBelow(LossReason reason, const std::string& below, const keys::Shape& shape,
                   std::size_t place, const keys::Range& range, const char* at) const;
    // The innermost object, because of what was lost in it.
    void lostObject() const;
    // Of the part when the document has ended.
    void lostWaveFile(const char* at) const;

    // A value of the innermost object, and that object itself, which is a note.
    void took(const keys::Row& row, const Value& value) const;
    void took(const NoteBase& note) const;

    // The document. False.
    bool refuse(Defect::Kind kind, std::size_t place, int code = 0) const;

private:
    void enter(const keys::Shape* shape, const keys::Row* list, const char* at)
    {
        Level& level = *++top_;
        level.shape = shape;
        level.list = list;
        level.at = at;
        level.count = 0;
        level.present = 0;
        level.row = noRow;
        level.next = 0;
    }

    std::string path() const;
    std::string pathTo(std::string_view key) const;
    std::size_t placeOf(const char* at) const { return static_cast<std::size_t>(at - text_); }
    void tell(LossReason reason, std::string&& path, const char* at, const keys::Shape* shape,
              const keys::Row* row, std::string_view key) const;

    const char* text_ = nullptr;
    Listener* listener_ = nullptr;
    std::array<Level, mostLevels + 1> levels_;
    Level* top_ = levels_.data();
};

} // namespace Korvel::CANTORIS::PLX::format
