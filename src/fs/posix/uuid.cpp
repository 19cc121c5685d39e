#include <array>
#include <cstddef>

#include "fs/fs.h"
#include "fs/posix/random.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

using UuidBytes = std::array<unsigned char, 16>;

// Version 4 (random), and the usual variant.
void markAsRandom(UuidBytes& bytes)
{
    bytes[6] = static_cast<unsigned char>((bytes[6] & 0x0F) | 0x40);
    bytes[8] = static_cast<unsigned char>((bytes[8] & 0x3F) | 0x80);
}

String textOf(const UuidBytes& bytes)
{
    constexpr StringView digits = "0123456789abcdef"_t;
    String text;
    text.reserve(36);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) {
            text += static_cast<Char>('-');
        }
        text += digits[bytes[i] >> 4];
        text += digits[bytes[i] & 0x0F];
    }
    return text;
}

} // namespace

String newUuid()
{
    UuidBytes bytes{};
    if (!fillRandomly(bytes)) {
        return {};
    }
    markAsRandom(bytes);
    return textOf(bytes);
}

} // namespace Korvel::CANTORIS::PLX::fs
