#ifndef _WIN32

#    include "fs/posix_path.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

bool isHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

bool isSurrogate(char32_t unit)
{
    return isHighSurrogate(unit) || isLowSurrogate(unit);
}

// Takes one character off the front; 0 for what cannot stand in a path.
char32_t takeCharacter(StringView& text)
{
    const char32_t first = text.front();
    text.remove_prefix(1);
    if (!isSurrogate(first)) {
        return first;
    }
    if (isLowSurrogate(first) || text.empty() || !isLowSurrogate(text.front())) {
        return 0;
    }
    const char32_t second = text.front();
    text.remove_prefix(1);
    return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}

std::size_t encodedLength(char32_t character)
{
    return character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
}

void encode(char32_t character, std::size_t length, char* bytes)
{
    constexpr unsigned leads[] = {0, 0, 0xC0, 0xE0, 0xF0};
    for (std::size_t i = length - 1; i > 0; --i) {
        bytes[i] = static_cast<char>(0x80 | (character & 0x3F));
        character >>= 6;
    }
    bytes[0] = static_cast<char>(leads[length] | character);
}

unsigned byteAt(const char* text)
{
    return static_cast<unsigned char>(*text);
}

// How many bytes follow the first one of a character; -1 when no character starts with it.
int countFollowing(unsigned first)
{
    if (first < 0x80) {
        return 0;
    }
    return first < 0xC0 ? -1 : first < 0xE0 ? 1 : first < 0xF0 ? 2 : first < 0xF8 ? 3 : -1;
}

// Takes one character off the front of a NUL-terminated text; 0 for an invalid one. The NUL is no
// following byte, hence a cut character never leads beyond the end.
char32_t decode(const char*& text)
{
    constexpr char32_t least[] = {0, 0x80, 0x800, 0x10000};
    const unsigned first = byteAt(text++);
    const int following = countFollowing(first);
    if (following <= 0) {
        return following < 0 ? 0 : first;
    }
    char32_t character = first & (0x3Fu >> following);
    for (int i = 0; i < following; ++i, ++text) {
        if ((byteAt(text) & 0xC0) != 0x80) {
            return 0;
        }
        character = (character << 6) | (byteAt(text) & 0x3F);
    }
    const bool valid = character >= least[following] && character <= 0x10FFFF;
    return valid && !isSurrogate(character) ? character : 0;
}

void appendCharacter(char32_t character, String& text)
{
    if (character < 0x10000) {
        text += static_cast<Char>(character);
    } else {
        text += static_cast<Char>(0xD800 + ((character - 0x10000) >> 10));
        text += static_cast<Char>(0xDC00 + (character & 0x3FF));
    }
}

} // namespace

HostPath::HostPath(StringView path)
{
    while (!path.empty()) {
        if (!append(path)) {
            return;
        }
    }
    bytes_[length_] = '\0';
    converted_ = true;
}

bool HostPath::append(StringView& rest)
{
    const char32_t character = takeCharacter(rest);
    const std::size_t count = encodedLength(character);
    if (character == 0 || length_ + count >= sizeof bytes_) {
        return false;
    }
    encode(character == U'\\' ? U'/' : character, count, bytes_ + length_);
    length_ += count;
    return true;
}

void HostPath::dropTrailingSeparators()
{
    while (length_ > 0 && bytes_[length_ - 1] == '/') {
        bytes_[--length_] = '\0';
    }
}

bool appendName(const char* name, String& text)
{
    const std::size_t before = text.size();
    while (*name != '\0') {
        const char32_t character = decode(name);
        if (character == 0 || character == U'\\') {
            text.resize(before);
            return false;
        }
        appendCharacter(character, text);
    }
    return true;
}

} // namespace Korvel::CANTORIS::PLX::fs

#endif
