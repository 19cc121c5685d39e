#include "paths.h"

#include <algorithm>

#include "unicode.h"

namespace plxclip {

namespace plx = korvel::plx;
using Korvel::CANTORIS::PLX::validUtf8Length;

std::filesystem::path pathOf(std::string_view utf8)
{
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string textOfBytes(std::string_view bytes)
{
    std::string text;
    for (std::string_view rest = bytes; !rest.empty();) {
        const std::size_t length = validUtf8Length(rest);
        text += rest.substr(0, length);
        text += length < rest.size() ? "\xEF\xBF\xBD" : "";
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
    return text;
}

std::string textOf(const std::filesystem::path& path)
{
    const std::u8string name = path.generic_u8string();
    return textOfBytes(std::string(name.begin(), name.end()));
}

std::string pathText(plx::StringView path)
{
    std::string text = plx::toUtf8(path);
#ifndef _WIN32
    std::replace(text.begin(), text.end(), '\\', '/');
#endif
    return text;
}

plx::String libraryPath(const std::string& path)
{
    std::string text = path;
    std::replace(text.begin(), text.end(), '/', '\\');
    return plx::fromUtf8(text);
}

} // namespace plxclip
