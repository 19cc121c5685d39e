// What the walk through a tree needs from each platform.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "fs/fs.h"

namespace Korvel::CANTORIS::PLX::fs {

enum class EntryKind : unsigned char {
    file, // a plain file or a link to one
    folder,
    linkToFolder,
};

// The entries of one folder, in the order of the file system. The names are stored one after
// another in one text: a folder with thousands of entries takes a handful of allocations, and a
// listing that is reused takes none.
class Listing {
public:
    struct Entry {
        EntryKind kind;
        std::size_t nameStart;
        std::size_t nameEnd;
    };

    std::size_t size() const { return entries_.size(); }
    EntryKind kind(std::size_t index) const { return entries_[index].kind; }
    StringView name(std::size_t index) const;

    void clear();

    // The next name is appended here; add() then makes an entry of it.
    String& names() { return names_; }
    void add(EntryKind kind);

private:
    String names_;
    std::vector<Entry> entries_;
};

// What identifies a folder, whichever path leads to it.
struct Identity {
    std::uint64_t device;
    std::uint64_t index;
    std::uint64_t more = 0; // for file systems whose numbers have more than 64 bits
    // For file systems without numbers.
    // NOLINTNEXTLINE(readability-redundant-member-init): GCC warns where it is left out.
    String name = {};

    auto operator<=>(const Identity&) const = default; // NOLINT(modernize-use-nullptr): no 0 here
};

// Replaces the listing by the folder's plain files and folders; empty when the folder cannot be
// listed.
void list(const Path& folder, Listing& listing);

// Links are followed. None when the path leads nowhere.
std::optional<Identity> identify(const Path& path);

} // namespace Korvel::CANTORIS::PLX::fs
