#include "check/files.h"

#include <algorithm>
#include <fstream>
#include <set>
#include <system_error>
#include <vector>

#include "unicode.h"

namespace plxclip::check {

namespace fs = std::filesystem;
using Korvel::CANTORIS::PLX::validUtf8Length;

namespace {

constexpr std::string_view clipExtension = ".kxclip";

// A name as the file system has it: on Windows always text, elsewhere bytes.
bool isUsable(const fs::path& name)
{
#ifdef _WIN32
    return !name.empty();
#else
    return validUtf8Length(name.native()) == name.native().size() &&
           name.native().find('\\') == std::string::npos;
#endif
}

// From the last dot of the name, which may be its first letter.
std::string extensionOf(const std::string& name)
{
    const auto dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : name.substr(dot);
}

// Blanks and dots at the end are easily added and hard to see.
std::string withoutTail(const std::string& name)
{
    return name.substr(0, name.find_last_not_of(" .") + 1);
}

enum class Likeness { none, almost, exact };

Likeness likenessOf(const std::string& name)
{
    if (extensionOf(name) == clipExtension) {
        return Likeness::exact;
    }
    const bool almost = lowerCase(extensionOf(withoutTail(name))) == clipExtension;
    return almost ? Likeness::almost : Likeness::none;
}

class Walk {
public:
    explicit Walk(const std::function<void(const FoundFile&)>& visitor) : visit(visitor) {}

    void list(const fs::path& folder, bool isReachable);

private:
    void enter(const fs::directory_entry& entry, bool isReachable);
    void meet(const fs::directory_entry& entry, bool isReachable);

    const std::function<void(const FoundFile&)>& visit;
    std::vector<fs::path> open;
    std::set<fs::path> linked;
};

void Walk::list(const fs::path& folder, bool isReachable)
{
    std::error_code error;
    fs::directory_iterator entries(folder, error);
    if (error) {
        visit({folder, FileKind::closedFolder});
        return;
    }
    open.push_back(fs::canonical(folder, error));
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        const fs::directory_entry& entry = *entries;
        const bool isNamed = isReachable && isUsable(entry.path().filename());
        std::error_code unknown;
        if (entry.is_directory(unknown)) {
            enter(entry, isNamed);
        } else {
            meet(entry, isNamed);
        }
    }
    open.pop_back();
}

void Walk::enter(const fs::directory_entry& entry, bool isReachable)
{
    std::error_code error;
    if (entry.is_symlink(error)) {
        const fs::path target = fs::canonical(entry.path(), error);
        if (std::find(open.begin(), open.end(), target) != open.end() ||
            !linked.insert(target).second) {
            return;
        }
    }
    list(entry.path(), isReachable);
}

void Walk::meet(const fs::directory_entry& entry, bool isReachable)
{
    const Likeness likeness = likenessOf(textOf(entry.path().filename()));
    std::error_code error;
    if (likeness == Likeness::none) {
        return;
    }
    if (!isReachable) {
        visit({entry.path(), FileKind::unusableName});
    } else if (likeness == Likeness::almost) {
        visit({entry.path(), FileKind::otherExtension});
    } else {
        visit(
            {entry.path(), entry.is_regular_file(error) ? FileKind::clip : FileKind::noPlainFile});
    }
}

} // namespace

void forEachFile(const fs::path& folder, const std::function<void(const FoundFile& file)>& visit)
{
    Walk(visit).list(folder, true);
}

fs::path pathOf(std::string_view utf8)
{
    return {std::u8string(utf8.begin(), utf8.end())};
}

#ifdef _WIN32

std::string textOf(const fs::path& path)
{
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

#else

std::string textOf(const fs::path& path)
{
    std::string_view bytes = path.native();
    std::string text;
    for (;;) {
        const std::size_t length = validUtf8Length(bytes);
        text += bytes.substr(0, length);
        if (length == bytes.size()) {
            break;
        }
        text += "\xEF\xBF\xBD";
        bytes.remove_prefix(length + 1);
    }
    return text;
}

#endif

std::string lowerCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](char letter) {
        return 'A' <= letter && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return text;
}

std::string keyOf(std::string_view path)
{
    std::string key;
    for (const char letter : path) {
        const char same = letter == '\\' ? '/' : letter;
        if (same != '/' || key.empty() || key.back() != '/') {
            key += same;
        }
    }
    return key;
}

ReadResult readFile(const fs::path& path, std::uintmax_t limit, std::string& bytes)
{
    std::error_code error;
    if (!fs::is_regular_file(path, error)) {
        return ReadResult::unreadable;
    }
    const std::uintmax_t size = fs::file_size(path, error);
    if (!error && size > limit) {
        return ReadResult::tooLarge;
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        return ReadResult::unreadable;
    }
    bytes.assign(std::istreambuf_iterator<char>(file), {});
    return file.bad() ? ReadResult::unreadable : ReadResult::read;
}

} // namespace plxclip::check
