#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace Korvel::CANTORIS::PLX::fs {

// Copies the whole content of an open file into another. Each system has its own readSome() and
// writeAll().
template <class File>
bool copyAll(const File& from, const File& to)
{
    constexpr std::size_t blockSize = std::size_t{64} * 1024;
    const auto block = std::make_unique<char[]>(blockSize);
    std::uint64_t place = 0;
    long long count = readSome(from, block.get(), blockSize, place);
    while (count > 0) {
        const auto size = static_cast<std::size_t>(count);
        if (!writeAll(to, {block.get(), size}, place)) {
            return false;
        }
        place += size;
        count = readSome(from, block.get(), blockSize, place);
    }
    return count == 0;
}

} // namespace Korvel::CANTORIS::PLX::fs
