// What the reader takes as a value of each kind, and how it finds the members of an object.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <type_traits>

#include "reference/tree.h"
#include "reference/schema.h"

namespace Korvel::CANTORIS::PLX::reference {

// Doubles beyond this in either direction are no floats. It lies a little below the largest one.
inline constexpr double largestFloat = 3.4028234e38;

// Each takes null, for an absent key, as it takes a value of another kind: there is no such value.
// Every text of the model ends at its first NUL, and so it is read; what is only compared is taken whole.
std::optional<std::int32_t> asInteger(const Value* value);
std::optional<float> asFloat(const Value* value);
std::optional<bool> asFlag(const Value* value);
std::optional<String> asText(const Value* value);
std::optional<std::string_view> asUtf8(const Value* value);      // valid as long as the document
std::optional<std::string_view> asWholeUtf8(const Value* value); // the same
const Value* asObject(const Value* value);
const Value* asArray(const Value* value);

// The members of one object, set out by a list of keys: each member is looked at once, of repeated
// keys the first counts, and documents with their keys in the list's order are the quickest.
template <std::size_t Count>
class Members {
public:
    Members(const Value& object, const schema::Keys<Count>& keys)
    {
        std::size_t next = 0;
        for (const auto& member : object.GetObject()) {
            const std::size_t place = find(keys, nameOf(member.name), next);
            if (place == Count) {
                continue;
            }
            if (values_[place] == nullptr) {
                values_[place] = &member.value;
            }
            next = place + 1;
        }
    }

    // Null when the object has no such key.
    const Value* operator[](std::size_t key) const { return values_[key]; }

private:
    static std::string_view nameOf(const Value& name)
    {
        return {name.GetString(), name.GetStringLength()};
    }

    static std::size_t find(const schema::Keys<Count>& keys, std::string_view name,
                            std::size_t start)
    {
        for (std::size_t place = start; place < Count; ++place) {
            if (keys[place] == name) {
                return place;
            }
        }
        for (std::size_t place = 0; place < start; ++place) {
            if (keys[place] == name) {
                return place;
            }
        }
        return Count;
    }

    std::array<const Value*, Count> values_{};
};

template <std::size_t Count>
Members(const Value&, const schema::Keys<Count>&) -> Members<Count>;

// --- Reading one field of the schema into its object --------------------------------------------------

template <class Target, class Source, class Number>
bool readField(const schema::Integer<Target, Source, Number>& field, const Value* value,
               std::type_identity_t<Target>& target)
{
    const auto number = asInteger(value);
    return number && (target.*field.put)(static_cast<Number>(*number));
}

template <class Target, class Source>
bool readField(const schema::Flag<Target, Source>& field, const Value* value,
               std::type_identity_t<Target>& target)
{
    const auto flag = asFlag(value);
    return flag && (target.*field.put)(*flag);
}

template <class Target, class Source>
bool readField(const schema::Text<Target, Source>& field, const Value* value,
               std::type_identity_t<Target>& target)
{
    const auto text = asText(value);
    return text && (target.*field.put)(*text);
}

// Reads all fields, whose keys must be the first of the members'. False when a required one fails.
template <class... Field, std::size_t Count, class Target>
bool readFields(const std::tuple<Field...>& fields, const Members<Count>& members, Target& target)
{
    std::size_t place = 0;
    const auto read = [&](const auto& field) {
        return readField(field, members[place++], target) || field.need == schema::Need::optional;
    };
    return std::apply([&](const auto&... field) { return (read(field) && ...); }, fields);
}

} // namespace Korvel::CANTORIS::PLX::reference
