#include "reference/filter_reader.h"

#include <vector>

#include "reference/values.h"
#include "unicode.h"

namespace Korvel::CANTORIS::PLX::reference {

namespace {

// The elements of an array that are texts: their units end to end, and a view of each.
class Texts {
public:
    explicit Texts(const Value& array)
    {
        reserveFor(array);
        for (const auto& element : array.GetArray()) {
            if (const auto utf8 = asUtf8(&element)) {
                const std::size_t start = units_.size();
                appendUtf16(units_, *utf8);
                views_.emplace_back(units_.data() + start, units_.size() - start);
            }
        }
    }

    const std::vector<StringView>& views() const { return views_; }

private:
    // The views point into the units, which must stay where they are: no text has more units than
    // bytes.
    void reserveFor(const Value& array)
    {
        std::size_t bytes = 0;
        for (const auto& element : array.GetArray()) {
            bytes += asUtf8(&element).value_or(std::string_view()).size();
        }
        units_.reserve(bytes);
        views_.reserve(array.Size());
    }

    String units_;
    std::vector<StringView> views_;
};

FilterTags::Languages integersOf(const Value& array)
{
    FilterTags::Languages numbers;
    numbers.reserve(array.Size());
    for (const auto& element : array.GetArray()) {
        if (const auto number = asInteger(&element)) {
            numbers.push_back(*number);
        }
    }
    return numbers;
}

} // namespace

void readFilter(const Value& object, const String& vendorName, FilterTags& tags)
{
    const Members members(object, schema::filter::keys);
    for (const auto& list : schema::filter::textLists) {
        if (const Value* const array = asArray(members[list.key])) {
            tags.addAll(list.tag, Texts(*array).views());
        }
    }
    if (const Value* const array = asArray(members[schema::filter::languages])) {
        tags.addAllLanguages(integersOf(*array));
    }
    tags.addAll(Tag::vendor, {vendorName});
}

} // namespace Korvel::CANTORIS::PLX::reference
