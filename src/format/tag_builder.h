#pragma once

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "clip/filter_tags.h"
#include "format/taking.h"

namespace Korvel::CANTORIS::PLX::format {

// Collects the tags of a filter, list by list: a list is set whole, when it ends. The clips of a
// catalogue have few different lists of tags, so clips with the same tags share one list.
class TagBuilder {
public:
    void beginList();
    void addText(std::string_view utf8);
    void addLanguage(std::int32_t number) { languages_.push_back(number); }
    // Tells of the element that was added last, if it is no tag or is one that the list has already.
    void tellOfLoss(const keys::Row& row, const Trail& trail, const Value& value);
    // The list is that of the innermost object's row.
    void endList(const keys::Row& row, FilterTags& tags);

    // The clip's vendor is its only tag of that kind.
    void setVendor(const String& name, FilterTags& tags);

private:
    // The texts of a list as the document has them: in UTF-8, end to end, and where each one ends.
    struct Texts {
        Tag tag = Tag::vendor;
        std::string utf8;
        std::vector<std::size_t> ends;

        bool operator==(const Texts&) const = default;
        std::string_view at(std::size_t index) const;
    };

    struct Hash {
        std::size_t operator()(const Texts& texts) const;
    };

    TextList list();
    TextList newList() const;

    Texts texts_;
    FilterTags::Languages languages_;
    std::unordered_map<Texts, TextList, Hash> known_;
    TextList vendor_; // of the last clip
    // What was added, as long as anyone listens.
    std::set<std::string, std::less<>> knownTexts_;
    std::set<std::int32_t> knownLanguages_;
};

} // namespace Korvel::CANTORIS::PLX::format
