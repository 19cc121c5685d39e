#include "fs/listing.h"

#include <algorithm>

#include "fs/fs.h"

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

Kind Neighbours::kindOf(StringView name) const
{
    constexpr std::size_t few = 8;
    const std::size_t count = std::min(listing_.size(), few);
    for (std::size_t index = 0; index < count; ++index) {
        if (listing_.kind(index) == EntryKind::file && listing_.name(index) == name) {
            return Kind::plain;
        }
    }
    return Kind::unknown;
}

} // namespace Korvel::CANTORIS::PLX::fs
