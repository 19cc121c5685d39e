#include "check/files.h"

#include <algorithm>
#include <set>
#include <system_error>
#include <vector>

#include "paths.h"
#include "unicode.h"

namespace plxclip::check {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view clipExtension = ".kxclip";

// From the last dot of the name, which may be its first letter.
std::string extensionOf(const std::string& name)
{
    return name.substr(std::min(name.rfind('.'), name.size()));
}

// Also with capital letters, or with blanks and dots at the end, which are hard to see.
bool looksLikeClip(const std::string& name)
{
    const std::string withoutTail = name.substr(0, name.find_last_not_of(" .") + 1);
    return extensionOf(name) == clipExtension ||
           lowerCase(extensionOf(withoutTail)) == clipExtension;
}

class Walk {
public:
    Walk(fs::path folder, bool areUserClips, Files& files)
        : root(std::move(folder)), isUserClip(areUserClips), found(files)
    {
    }

    void list(const fs::path& folder);

private:
    bool isWorthEntering(const fs::directory_entry& folder);
    void meet(const fs::directory_entry& entry);
    bool isReachable(const fs::path& path) const;
    void add(const fs::path& path, Reason obstacle = {}, std::string message = {})
    {
        found.try_emplace(path, File{isUserClip, obstacle, std::move(message)});
    }

    fs::path root;
    bool isUserClip;
    Files& found;
    std::vector<fs::path> open;
    std::set<fs::path> linked;
};

void Walk::list(const fs::path& folder)
{
    std::error_code error;
    fs::directory_iterator entries(folder, error);
    if (error) {
        add(folder, reason::unreadable, "the folder cannot be listed");
        return;
    }
    open.push_back(fs::canonical(folder, error));
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        std::error_code unknown;
        if (!entries->is_directory(unknown)) {
            meet(*entries);
        } else if (isWorthEntering(*entries)) {
            list(entries->path());
        }
    }
    open.pop_back();
}

bool Walk::isWorthEntering(const fs::directory_entry& folder)
{
    std::error_code error;
    if (!folder.is_symlink(error)) {
        return true;
    }
    const fs::path target = fs::canonical(folder.path(), error);
    return std::find(open.begin(), open.end(), target) == open.end() &&
           linked.insert(target).second;
}

void Walk::meet(const fs::directory_entry& entry)
{
    const fs::path& path = entry.path();
    const std::string name = textOf(path.filename());
    std::error_code error;
    if (!looksLikeClip(name)) {
        return;
    }
    if (!isReachable(path)) {
        add(path, reason::fileName,
            "the name, or that of a folder above it, holds a backslash or is no UTF-8");
    } else if (extensionOf(name) != clipExtension) {
        add(path, reason::extension, "the extension is not \".kxclip\" to the letter");
    } else if (!entry.is_regular_file(error)) {
        add(path, reason::unreadable, "is no plain file");
    } else {
        add(path);
    }
}

// Whether a library can ask for it. Names are bytes here, except on Windows.
bool Walk::isReachable(const fs::path& path) const
{
    const std::u8string text = path.lexically_relative(root).generic_u8string();
    return Korvel::CANTORIS::PLX::isValidUtf8(std::string(text.begin(), text.end())) &&
           text.find(u8'\\') == std::u8string::npos;
}

} // namespace

void addFiles(const fs::path& folder, bool areUserClips, Files& files)
{
    Walk(folder, areUserClips, files).list(folder);
}

std::string lowerCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](char letter) {
        return 'A' <= letter && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return text;
}

} // namespace plxclip::check
