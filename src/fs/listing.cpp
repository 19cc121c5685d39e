#include "fs/listing.h"

namespace Korvel::CANTORIS::PLX::fs {

StringView Listing::name(std::size_t index) const
{
    const Entry& entry = entries_[index];
    return StringView{names_}.substr(entry.nameStart, entry.nameEnd - entry.nameStart);
}

void Listing::clear()
{
    names_.clear();
    entries_.clear();
}

void Listing::add(EntryKind kind)
{
    const std::size_t start = entries_.empty() ? 0 : entries_.back().nameEnd;
    entries_.push_back({kind, start, names_.size()});
}

} // namespace Korvel::CANTORIS::PLX::fs
