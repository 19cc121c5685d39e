#ifndef _WIN32

#include <cstring>
#include <string_view>

#include "fs/fs.h"
#include "fs/posix_system.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

enum class Made { yes, parentMissing, no };

// What exists already is as good, if it is a folder.
Made makeFolder(const char* path)
{
    if (uninterrupted([&] { return ::mkdir(path, 0777); }) == 0) {
        return Made::yes;
    }
    if (errno == ENOENT) {
        return Made::parentMissing;
    }
    return isFolder(path) ? Made::yes : Made::no;
}

// Where the parent of the path ends; 0 when there is nothing left to cut off.
std::size_t parentLength(std::string_view path)
{
    const auto last = path.rfind('/');
    const auto end = path.find_last_not_of('/', last);
    return last == std::string_view::npos || end == std::string_view::npos ? 0 : end + 1;
}

// Cuts the path, from the innermost folder outward, until what is left of it can be made.
Made makeOutermostMissing(char* path, std::size_t length)
{
    Made made = makeFolder(path);
    while (made == Made::parentMissing) {
        length = parentLength({path, length});
        if (length == 0) {
            return Made::no;
        }
        path[length] = '\0';
        made = makeFolder(path);
    }
    return made;
}

} // namespace

bool createDirectories(const String& path)
{
    HostPath host{path};
    if (!host) {
        return false;
    }
    const std::size_t whole = host.length();
    char* text = host.text();
    Made made = makeOutermostMissing(text, whole);
    for (std::size_t end = std::strlen(text); made == Made::yes && end < whole;
         end = std::strlen(text)) {
        text[end] = '/';
        made = makeFolder(text);
    }
    return made == Made::yes;
}

bool remove(const String& path)
{
    const HostPath host{path};
    if (!host) {
        return false;
    }
    if (uninterrupted([&] { return ::unlink(host.text()); }) == 0) {
        return true;
    }
    return (errno == EISDIR || errno == EPERM) &&
           uninterrupted([&] { return ::rmdir(host.text()); }) == 0;
}

} // namespace Korvel::CANTORIS::PLX::fs

#endif
