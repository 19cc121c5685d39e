#include "check/clip_check.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <set>
#include <system_error>

#include "check/comparison.h"
#include "check/diagnosis.h"
#include "clip_names.h"
#include "letters.h"
#include "paths.h"
#include "unicode.h"

namespace plxclip::check {

namespace plx = korvel::plx;
namespace fs = std::filesystem;

namespace {

// --- Files --------------------------------------------------------------------------------------------

// In the order of their names, each once. A file with a finding cannot be read as a clip.
using Reports = std::map<fs::path, ClipReport>;

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

// Goes through a folder as a host does, following links once.
class Walk {
public:
    Walk(fs::path folder, bool areUserClips, Reports& reports)
        : root(std::move(folder)), isUserClip(areUserClips), found(reports)
    {
    }

    void run() { list(root); }

private:
    void list(const fs::path& folder)
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

    bool isWorthEntering(const fs::directory_entry& folder)
    {
        std::error_code error;
        if (!folder.is_symlink(error)) {
            return true;
        }
        const fs::path target = fs::canonical(folder.path(), error);
        return std::ranges::find(open, target) == open.end() && linked.insert(target).second;
    }

    void meet(const fs::directory_entry& entry)
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
    bool isReachable(const fs::path& path) const
    {
        const std::u8string text = path.lexically_relative(root).generic_u8string();
        return Korvel::CANTORIS::PLX::isValidUtf8(std::string(text.begin(), text.end())) &&
               text.find(u8'\\') == std::u8string::npos;
    }

    void add(const fs::path& path, Reason obstacle = {}, std::string message = {})
    {
        ClipReport clip{.path = textOf(path), .isUserClip = isUserClip};
        if (!obstacle.empty()) {
            clip.findings.push_back({effect::passedOver, obstacle, std::move(message)});
        }
        found.try_emplace(path, std::move(clip));
    }

    fs::path root;
    bool isUserClip;
    Reports& found;
    std::vector<fs::path> open;
    std::set<fs::path> linked;
};

// --- Clips --------------------------------------------------------------------------------------------

// The clips that a host lists: the verdict that a check explains.
struct Listed {
    explicit Listed(const std::vector<plx::Clip>& all)
    {
        for (const plx::Clip clip : all) {
            clips.emplace(pathOf(pathText(clip.path())), clip);
            byID.emplace(clip.id(), clip);
        }
    }

    // The clip for which another one with that ID is not listed; null when there is none. A system
    // clip is never dropped for a user clip.
    plx::Clip clipInsteadOf(const plx::String& id, bool isUserClip) const
    {
        const auto found = byID.find(id);
        const bool counts =
            found != byID.end() && (isUserClip || found->second.type() == plx::ClipKind::system);
        return counts ? found->second : plx::Clip();
    }

    std::map<fs::path, plx::Clip> clips;
    std::map<plx::String, plx::Clip> byID;
};

void reportUnexplained(ClipReport& clip, Effect effect, std::string message)
{
    clip.findings.push_back({effect, reason::unexplained, std::move(message)});
}

// What the library and the documents say of a listed clip must be the same.
void compare(ClipReport& clip, plx::Clip listed, const Diagnosis& diagnosis)
{
    if (!diagnosis.isListable) {
        reportUnexplained(clip, effect::passedOver,
                          "the library lists this clip, though by this check it cannot be listed");
        return;
    }
    std::vector<std::string> lines = differences(listed, diagnosis.properties);
    if (clip.partReads != (diagnosis.part != nullptr)) {
        reportUnexplained(clip, effect::refused,
                          clip.partReads
                              ? "the library reads the part, though by this check it cannot be read"
                              : "the library does not read the part; no reason was found");
    } else if (clip.partReads) {
        std::ranges::move(differences(listed, *diagnosis.part), std::back_inserter(lines));
    }
    for (const std::string& line : lines) {
        reportUnexplained(clip, effect::ignored, line + "; no reason was found");
    }
}

void explainAbsence(ClipReport& clip, const Listed& listed, const Diagnosis& diagnosis)
{
    const plx::Clip other = listed.clipInsteadOf(diagnosis.properties.id, clip.isUserClip);
    if (!other) {
        reportUnexplained(clip, effect::passedOver,
                          "the library does not list this clip; no reason was found");
        return;
    }
    Finding& finding = clip.findings.emplace_back(diagnosis.id);
    finding.effect = effect::passedOver;
    finding.reason = reason::duplicate;
    finding.message =
        "is the ID of " + textOf(pathOf(pathText(other.path()))) + ", which was met first";
}

void checkListed(ClipReport& clip, plx::Clip listed, const Diagnosis& diagnosis)
{
    clip.isListed = true;
    clip.partReads = listed.readPart();
    clip.isWhole = diagnosis.isListable && diagnosis.id.document.empty();
    clip.id = plx::toUtf8(listed.id());
    clip.name = plx::toUtf8(listed.name());
    compare(clip, listed, diagnosis);
}

void checkFile(const fs::path& path, ClipReport& clip, const Listed& listed)
{
    const Diagnosis diagnosis = diagnose(path);
    clip.findings = diagnosis.findings;
    if (const auto found = listed.clips.find(path); found != listed.clips.end()) {
        checkListed(clip, found->second, diagnosis);
    } else if (diagnosis.isListable) {
        explainAbsence(clip, listed, diagnosis);
    }
}

} // namespace

std::vector<ClipReport> checkClips(const std::vector<plx::Clip>& listed, const Folders& folders,
                                   const Progress& progress)
{
    Reports files;
    for (const std::string& folder : folders.system) {
        Walk(pathOf(folder), false, files).run();
    }
    for (const std::string& folder : folders.user) {
        Walk(pathOf(folder), true, files).run();
    }
    const Listed byHost(listed);
    std::vector<ClipReport> reports;
    for (auto& [path, clip] : files) {
        if (clip.findings.empty()) {
            checkFile(path, clip, byHost);
        }
        reports.push_back(std::move(clip));
        progress(reports.size(), files.size());
    }
    return reports;
}

} // namespace plxclip::check
