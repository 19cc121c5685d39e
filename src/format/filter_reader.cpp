#include "format/filter_reader.h"

#include "format/values.h"

namespace Korvel::CANTORIS::PLX::format {

namespace {

// The elements that are texts, as the list's add operation wants them.
FilterTags::Texts textsOf(const Value& array)
{
    FilterTags::Texts texts;
    texts.reserve(array.Size());
    for (const auto& element : array.GetArray()) {
        if (auto text = asText(&element)) {
            texts.push_back(std::move(*text));
        }
    }
    return texts;
}

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
            tags.addAll(list.tag, textsOf(*array));
        }
    }
    if (const Value* const array = asArray(members[schema::filter::languages])) {
        tags.addAllLanguages(integersOf(*array));
    }
    tags.add(Tag::vendor, vendorName.c_str());
}

} // namespace Korvel::CANTORIS::PLX::format
