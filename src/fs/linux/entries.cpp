// Uses the system call directly: a scan reads a folder for each clip, and for each the C library
// would allocate and free a large block, and ask again what kind of file the folder is.
#include "fs/posix/entries.h"

#include <array>
#include <cstddef>

#include <dirent.h>

namespace Korvel::CANTORIS::PLX::fs {

namespace {

struct Block {
    alignas(dirent64) std::array<char, std::size_t{16} * 1024> bytes;
    std::size_t size;
};

bool readBlock(int folder, Block& block)
{
    const ssize_t size =
        uninterrupted([&] { return ::getdents64(folder, block.bytes.data(), block.bytes.size()); });
    block.size = size > 0 ? static_cast<std::size_t>(size) : 0;
    return block.size > 0;
}

Entry::Kind kindOf(unsigned char type)
{
    switch (type) {
    case DT_REG:
        return Entry::Kind::file;
    case DT_DIR:
        return Entry::Kind::folder;
    case DT_LNK:
    case DT_UNKNOWN:
        return Entry::Kind::unknown;
    default:
        return Entry::Kind::other;
    }
}

} // namespace

bool visitEntries(Descriptor folder, void* visitor, void (*visit)(void* visitor, const Entry&))
{
    Block block; // NOLINT(cppcoreguidelines-pro-type-member-init): 16 KiB, and the system fills it
    while (readBlock(folder.number(), block)) {
        for (std::size_t place = 0; place < block.size;) {
            const auto& entry = reinterpret_cast<const dirent64&>(block.bytes[place]);
            place += entry.d_reclen;
            if (!isSelfOrParent(entry.d_name)) {
                visit(visitor, {folder.number(), entry.d_name, kindOf(entry.d_type)});
            }
        }
    }
    return true;
}

} // namespace Korvel::CANTORIS::PLX::fs
