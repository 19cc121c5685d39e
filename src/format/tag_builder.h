#pragma once

#include <cstddef>
#include <set>
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
    // Tells of the element that was added last, if it is no tag or is one that the list has already.
    void tellOfLoss(const keys::Row& row, const Trail& trail, const Value& value);
    // The list is that of the innermost object's row.
    void endList(const keys::Row& row, FilterTags& tags);

private:
    StringView lastText() const;

    String units_; // the texts end to end
    std::vector<std::size_t> ends_;
    FilterTags::Languages languages_;
    // What was added, as long as anyone listens.
    std::set<String> knownTexts_;
    std::set<std::int32_t> knownLanguages_;
};

} // namespace Korvel::CANTORIS::PLX::format
