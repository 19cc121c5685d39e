#include "fix/originals.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>

#include <fmt/format.h>

#include "commands.h"
#include "fs/fs.h"
#include "paths.h"

namespace plxclip::fix {

namespace fs = std::filesystem;
namespace own = Korvel::CANTORIS::PLX;

namespace {

// Where programs of this system keep what belongs to a user and is no setting.
fs::path folderOfPrograms()
{
#ifdef _WIN32
    const wchar_t* const folder = _wgetenv(L"LOCALAPPDATA");
    return folder == nullptr ? fs::path() : fs::path(folder);
#else
    const char* const folder = std::getenv("XDG_STATE_HOME");
    if (folder != nullptr && *folder == '/') {
        return folder;
    }
    const char* const home = std::getenv("HOME");
    return home == nullptr ? fs::path() : fs::path(home) / ".local/state";
#endif
}

fs::path standardFolder()
{
    const fs::path folder = folderOfPrograms();
    if (folder.empty()) {
        throw Failure("there is no folder for the originals; name one with --originals");
    }
    return folder / "plxclip" / "originals";
}

bool isWithin(const fs::path& inner, const fs::path& outer)
{
    std::error_code error;
    const fs::path place = fs::weakly_canonical(inner, error);
    const fs::path whole = fs::weakly_canonical(outer, error);
    const auto [end, rest] = std::mismatch(whole.begin(), whole.end(), place.begin(), place.end());
    return end == whole.end();
}

// A new name, of the time.
fs::path folderOfThisRun(const fs::path& base)
{
    const std::time_t now = std::time(nullptr);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d %H-%M-%S", std::gmtime(&now));
    fs::path folder = base / text.data();
    std::error_code error;
    for (int number = 2; fs::exists(folder, error); ++number) {
        folder = base / fmt::format("{} {}", text.data(), number);
    }
    return folder;
}

std::string nameOfRoot(const fs::path& root)
{
    std::error_code error;
    fs::path whole = fs::absolute(root, error).lexically_normal();
    whole = whole.has_filename() ? whole : whole.parent_path();
    return whole.has_filename() ? textOf(whole.filename()) : std::string("clips");
}

} // namespace

Originals::Originals(const std::optional<std::string>& wanted, const Folders& folders)
{
    const fs::path base = wanted ? pathOf(*wanted) : standardFolder();
    runFolder = folderOfThisRun(base);
    textOfFolder = textOf(runFolder);
    for (const auto* const list : {&folders.system, &folders.user}) {
        for (const std::string& folder : *list) {
            if (isWithin(base, pathOf(folder))) {
                throw Failure(fmt::format("\"{}\" is among the clips; name a folder for the "
                                          "originals elsewhere, with --originals",
                                          textOf(base)),
                              exitUsage);
            }
            const std::string name = nameOfRoot(pathOf(folder));
            const auto same = std::ranges::count(
                roots, name, [](const auto& root) { return nameOfRoot(root.first); });
            roots.emplace_back(pathOf(folder),
                               same == 0 ? name : fmt::format("{} {}", name, same + 1));
        }
    }
}

// Below the name of the folder that the user has named.
fs::path Originals::placeOf(const fs::path& file) const
{
    for (const auto& [root, name] : roots) {
        const fs::path below = file.lexically_relative(root);
        if (!below.empty() && *below.begin() != "..") {
            return runFolder / pathOf(name) / below;
        }
    }
    return runFolder / file.filename();
}

bool Originals::keep(const fs::path& file, const std::string& content)
{
    const fs::path place = placeOf(file);
    const auto folder = libraryPath(textOf(place.parent_path()));
    if (!own::fs::createDirectories(folder)) {
        return false;
    }
    const auto open = own::fs::Folder::open(folder);
    const bool isKept = open.isOpen() &&
                        open.create(libraryPath(textOf(place.filename())), content) ==
                            own::fs::WriteResult::written &&
                        open.sync();
    isUsed = isUsed || isKept;
    return isKept;
}

} // namespace plxclip::fix
