#include "format/tag_builder.h"

#include <type_traits>

namespace Korvel::CANTORIS::PLX::format {

namespace {

std::vector<StringView> viewsOf(const String& units, const std::vector<std::size_t>& ends)
{
    std::vector<StringView> views;
    views.reserve(ends.size());
    std::size_t start = 0;
    for (const std::size_t end : ends) {
        views.emplace_back(units.data() + start, end - start);
        start = end;
    }
    return views;
}

} // namespace

void TagBuilder::beginList()
{
    units_.clear();
    ends_.clear();
    languages_.clear();
    knownTexts_.clear();
    knownLanguages_.clear();
}

void TagBuilder::addText(std::string_view utf8)
{
    appendValidUtf16(units_, utf8);
    ends_.push_back(units_.size());
}

void TagBuilder::tellOfLoss(const keys::Row& row, const Trail& trail, const Value& value)
{
    const bool isText = row.kind == keys::Kind::texts;
    const bool isTag = isText ? !lastText().empty() : takesLanguage(languages_.back());
    const bool isNew = isText ? knownTexts_.emplace(lastText()).second
                              : knownLanguages_.insert(languages_.back()).second;
    if (!isTag || !isNew) {
        trail.lostElement(isTag ? LossReason::duplicate : LossReason::notAccepted, value.at);
    }
}

StringView TagBuilder::lastText() const
{
    const std::size_t begin = ends_.size() < 2 ? 0 : ends_[ends_.size() - 2];
    return StringView(units_).substr(begin);
}

void TagBuilder::endList(const keys::Row& row, FilterTags& tags)
{
    const auto add = [&](const auto& entry) {
        if (entry.row.key != row.key) {
            return;
        }
        if constexpr (std::remove_cvref_t<decltype(entry)>::kind == keys::Kind::integers) {
            tags.addAllLanguages(languages_);
        } else {
            tags.addAll(entry.what, viewsOf(units_, ends_));
        }
    };
    std::apply([&](const auto&... entry) { (add(entry), ...); }, keys::FilterTable::entries);
}

} // namespace Korvel::CANTORIS::PLX::format
