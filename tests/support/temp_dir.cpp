#include "support/temp_dir.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "support/temp_dir_system.h"

namespace TestSupport {

namespace {

constexpr auto backslash = static_cast<KRT_PLX_Char>('\\');

bool isHigh(char32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLow(char32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

void append(char32_t character, Text& text)
{
    if (character >= 0x10000) {
        text += static_cast<KRT_PLX_Char>(0xD7C0 + (character >> 10));
        character = 0xDC00 + (character & 0x3FF);
    }
    text += static_cast<KRT_PLX_Char>(character);
}

void append(char32_t character, std::string& bytes)
{
    const int following = character < 0x80      ? 0
                          : character < 0x800   ? 1
                          : character < 0x10000 ? 2
                                                : 3;
    constexpr unsigned leads[] = {0, 0xC0, 0xE0, 0xF0};
    bytes += static_cast<char>(leads[following] | (character >> (6 * following)));
    for (int i = following - 1; i >= 0; --i) {
        bytes += static_cast<char>(0x80 | ((character >> (6 * i)) & 0x3F));
    }
}

void check(bool success, const char* what, const Text& path)
{
    if (!success) {
        throw std::runtime_error(std::string(what) + ": " + utf8(path));
    }
}

} // namespace

Text text(std::string_view utf8)
{
    Text text;
    for (std::size_t i = 0; i < utf8.size();) {
        const auto byte = [&](std::size_t at) {
            return static_cast<char32_t>(static_cast<unsigned char>(utf8.at(at)));
        };
        const char32_t first = byte(i++);
        const int following = first < 0xC0 ? 0 : first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
        char32_t character = following == 0 ? first : first & (0x3Fu >> following);
        for (const std::size_t end = i + static_cast<std::size_t>(following); i < end; ++i) {
            character = (character << 6) | (byte(i) & 0x3F);
        }
        append(character, text);
    }
    return text;
}

std::string utf8(TextView text)
{
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t character = text[i];
        if (isHigh(character) && i + 1 < text.size() && isLow(text[i + 1])) {
            character = 0x10000 + ((character - 0xD800) << 10) + (text[++i] - char32_t{0xDC00});
        }
        append(character, bytes);
    }
    return bytes;
}

TempDir::TempDir() : path_(makeFreshFolder()) {}

TempDir::~TempDir()
{
    removeAll(path_);
}

Text TempDir::operator/(TextView relative) const
{
    return path_ + backslash + Text{relative};
}

void makeFolder(const Text& path)
{
    std::filesystem::create_directories(hostPath(path));
}

void writeBytes(const Text& path, std::string_view content)
{
    std::filesystem::create_directories(hostPath(path).parent_path());
    std::ofstream file(hostPath(path), std::ios::binary | std::ios::trunc);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    check(!file.fail(), "cannot write", path);
}

std::string readBytes(const Text& path)
{
    std::ifstream file(hostPath(path), std::ios::binary);
    check(file.is_open(), "cannot open", path);
    return {std::istreambuf_iterator<char>(file), {}};
}

bool exists(const Text& path)
{
    std::error_code error;
    return std::filesystem::exists(hostPath(path), error);
}

} // namespace TestSupport
