#include "fs/posix/path.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "fs/fs.h"
#include "unicode.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

char32_t withSlash(char32_t point)
{
    return point == separator ? U'/' : point;
}

} // namespace

HostPath::HostPath(StringView path)
{
    const auto unitAt = [path](std::size_t index) -> char32_t {
        return index < path.size() ? path[index] : 0;
    };
    for (std::size_t index = takeAscii(path); index < path.size();) {
        char32_t point = 0;
        if (!takeCodePoint(unitAt, index, point) || !append(point)) {
            length_ = 0;
            break;
        }
    }
    bytes_[length_] = '\0';
}

// Paths are mostly ASCII, where each unit is one byte. Returns where the first other unit is.
std::size_t HostPath::takeAscii(StringView path)
{
    const std::size_t end = std::min(path.size(), sizeof bytes_ - 1);
    while (length_ < end && path[length_] != 0 && path[length_] < 0x80) {
        bytes_[length_] = static_cast<char>(withSlash(path[length_]));
        ++length_;
    }
    return length_;
}

bool HostPath::append(char32_t point)
{
    std::array<char, 4> bytes;
    const std::size_t count = encodeUtf8(withSlash(point), bytes.data());
    if (point == 0 || length_ + count >= sizeof bytes_) {
        return false;
    }
    for (std::size_t index = 0; index < count; ++index) {
        bytes_[length_++] = bytes[index];
    }
    return true;
}

void HostPath::clear()
{
    length_ = 0;
    bytes_[0] = '\0';
}

HostName::HostName(StringView name) : HostPath(name)
{
    const std::string_view host{text(), length()};
    if (host == "." || host == ".." || host.find('/') != std::string_view::npos) {
        clear();
    }
}

HostName::HostName(StringView name, std::size_t folderPathLength) : HostName(name)
{
    if (folderPathLength + 1 + length() >= PATH_MAX) {
        clear();
    }
}

bool appendName(const char* name, String& text)
{
    const std::string_view utf8 = name;
    return utf8.find('\\') == std::string_view::npos && appendUtf16(text, utf8);
}

} // namespace Korvel::CANTORIS::PLX::fs
