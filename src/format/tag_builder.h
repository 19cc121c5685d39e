#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "clip/filter_tags.h"
#include "format/taking.h"

namespace Korvel::CANTORIS::PLX::format {

// Collects the tags of a filter, list by list: a list is added whole, when it ends.
class TagBuilder {
public:
    void beginList();
    void addText(std::string_view utf8);
    void addLanguage(std::int32_t number) { languages_.push_back(number); }
    // `row` is the list's row in the innermost object.
    void endList(const keys::Row& row, FilterTags& tags);

private:
    String units_; // all texts, one after another
    std::vector<std::size_t> ends_;
    FilterTags::Languages languages_;
};

} // namespace Korvel::CANTORIS::PLX::format
