#include "format/tag_builder.h"

#include <functional>
#include <type_traits>

namespace Korvel::CANTORIS::PLX::format {

namespace {

constexpr std::size_t knownLists = 256;
// Bytes and texts. A larger list is not kept for clips to come: it could be as large as a document.
constexpr std::size_t mostKnown = 1024;

} // namespace

std::string_view TagBuilder::Texts::at(std::size_t index) const
{
    const std::size_t begin = index == 0 ? 0 : ends[index - 1];
    return std::string_view(utf8).substr(begin, ends[index] - begin);
}

void TagBuilder::beginList()
{
    texts_.utf8.clear();
    texts_.ends.clear();
    languages_.clear();
    knownTexts_.clear();
    knownLanguages_.clear();
}

void TagBuilder::addText(std::string_view utf8)
{
    texts_.utf8 += utf8;
    texts_.ends.push_back(texts_.utf8.size());
}

void TagBuilder::tellOfLoss(const keys::Row& row, const Trail& trail, const Value& value)
{
    const bool isText = row.kind == keys::Kind::texts;
    const auto lastText = isText ? texts_.at(texts_.ends.size() - 1) : std::string_view();
    const bool isTag = isText ? !lastText.empty() : takesLanguage(languages_.back());
    const bool isNew = isText ? knownTexts_.emplace(lastText).second
                              : knownLanguages_.insert(languages_.back()).second;
    if (!isTag || !isNew) {
        trail.lostElement(isTag ? LossReason::duplicate : LossReason::notAccepted, value.at);
    }
}

void TagBuilder::endList(const keys::Row& row, FilterTags& tags)
{
    const auto set = [&](const auto& entry) {
        if (entry.row.key != row.key) {
            return;
        }
        if constexpr (std::remove_cvref_t<decltype(entry)>::kind == keys::Kind::integers) {
            tags.setLanguages(FilterTags::distinct(languages_));
        } else {
            texts_.tag = entry.what;
            tags.set(entry.what, list());
        }
    };
    std::apply([&](const auto&... entry) { (set(entry), ...); }, keys::FilterTable::entries);
}

void TagBuilder::setVendor(const String& name, FilterTags& tags)
{
    if (vendor_.size() == 0 || vendor_[0] != name) {
        vendor_ = FilterTags::distinct(Tag::vendor, {name});
    }
    tags.set(Tag::vendor, vendor_.share());
}

std::size_t TagBuilder::Hash::operator()(const Texts& texts) const
{
    return std::hash<std::string>{}(texts.utf8) + static_cast<std::size_t>(texts.tag);
}

// Most lists are known, so they are not even converted.
TextList TagBuilder::list()
{
    if (texts_.utf8.size() + texts_.ends.size() > mostKnown) {
        return newList();
    }
    const auto known = known_.find(texts_);
    if (known != known_.end()) {
        return known->second.share();
    }
    if (known_.size() == knownLists) {
        known_.clear();
    }
    return known_.emplace(texts_, newList()).first->second.share();
}

TextList TagBuilder::newList() const
{
    String units;
    std::vector<std::size_t> ends;
    for (std::size_t index = 0; index < texts_.ends.size(); ++index) {
        appendValidUtf16(units, texts_.at(index));
        ends.push_back(units.size());
    }
    std::vector<StringView> views;
    std::size_t begin = 0;
    for (const std::size_t end : ends) {
        views.push_back(StringView(units).substr(begin, end - begin));
        begin = end;
    }
    return FilterTags::distinct(texts_.tag, views);
}

} // namespace Korvel::CANTORIS::PLX::format
