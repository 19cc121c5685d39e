#include "check/clip_check.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "check/comparison.h"
#include "check/diagnosis.h"
#include "check/files.h"
#include "check/library.h"

namespace plxclip::check {

namespace {

struct File {
    FoundFile found;
    bool isUserClip;
};

void report(ClipReport& clip, Effect effect, Reason reason, std::string message)
{
    clip.findings.push_back({effect, reason, {}, {}, {}, std::move(message)});
}

// --- Where the library and the documents differ, which must be said ---------------------------------

void reportDifferences(ClipReport& clip, const std::vector<std::string>& lines)
{
    for (const std::string& line : lines) {
        report(clip, Effect::ignored, Reason::unexplained, line + "; no reason was found");
    }
}

void compare(ClipReport& clip, korvel::plx::Clip listed, const Diagnosis& diagnosis)
{
    if (!diagnosis.isListable) {
        report(clip, Effect::passedOver, Reason::unexplained,
               "the library lists this clip, though by this check it cannot be listed");
        return;
    }
    reportDifferences(clip, differences(listed, diagnosis.properties));
    if (clip.partReads != (diagnosis.part != nullptr)) {
        report(clip, Effect::refused, Reason::unexplained,
               clip.partReads ? "the library reads the part, though by this check it cannot be read"
                              : "the library does not read the part; no reason was found");
    } else if (clip.partReads) {
        reportDifferences(clip, differences(listed, *diagnosis.part));
    }
}

// --- Clips that are not listed --------------------------------------------------------------------------

void explainAbsence(ClipReport& clip, const Library& library, const Diagnosis& diagnosis)
{
    if (!diagnosis.isListable) {
        return;
    }
    const std::string other = library.fileWithID(diagnosis.properties.id, clip.isUserClip);
    if (other.empty()) {
        report(clip, Effect::passedOver, Reason::unexplained,
               "the library does not list this clip; no reason was found");
        return;
    }
    Finding finding = diagnosis.id;
    finding.effect = Effect::passedOver;
    finding.reason = Reason::duplicate;
    finding.message = "is the ID of " + other + ", which was met first";
    clip.findings.push_back(std::move(finding));
}

ClipReport checkClip(ClipReport clip, const std::filesystem::path& path, const Library& library)
{
    Diagnosis diagnosis = diagnose(path);
    clip.findings = std::move(diagnosis.findings);
    const auto listed = library.find(clip.path);
    clip.isListed = listed.has_value();
    if (!listed) {
        explainAbsence(clip, library, diagnosis);
        return clip;
    }
    clip.partReads = listed->readPart();
    clip.isWhole = diagnosis.isListable && diagnosis.id.document.empty();
    clip.id = korvel::plx::toUtf8(listed->id());
    clip.name = korvel::plx::toUtf8(listed->name());
    compare(clip, *listed, diagnosis);
    return clip;
}

ClipReport checkFile(const File& file, const Library& library)
{
    ClipReport clip;
    clip.path = textOf(file.found.path);
    clip.isUserClip = file.isUserClip;
    switch (file.found.kind) {
    case FileKind::clip:
        return checkClip(std::move(clip), file.found.path, library);
    case FileKind::otherExtension:
        report(clip, Effect::passedOver, Reason::extension,
               "the extension is not \".kxclip\" to the letter");
        break;
    case FileKind::noPlainFile:
        report(clip, Effect::passedOver, Reason::unreadable, "is no plain file");
        break;
    case FileKind::unusableName:
        report(clip, Effect::passedOver, Reason::fileName,
               "the name, or that of a folder above it, holds a backslash or is no UTF-8");
        break;
    default:
        report(clip, Effect::passedOver, Reason::unreadable, "the folder cannot be listed");
        break;
    }
    return clip;
}

// --- All of them ----------------------------------------------------------------------------------------

class Collection {
public:
    void addFolders(const std::vector<std::string>& folders, bool areUserClips)
    {
        for (const std::string& folder : folders) {
            forEachFile(pathOf(folder), [&](const FoundFile& file) { add(file, areUserClips); });
        }
    }

    // In the order of their names.
    std::vector<File> take()
    {
        std::sort(files.begin(), files.end(),
                  [](const File& a, const File& b) { return a.found.path < b.found.path; });
        return std::move(files);
    }

private:
    // Folders may overlap.
    void add(const FoundFile& file, bool isUserClip)
    {
        if (seen.insert(keyOf(textOf(file.path))).second) {
            files.push_back({file, isUserClip});
        }
    }

    std::vector<File> files;
    std::unordered_set<std::string> seen;
};

} // namespace

std::vector<ClipReport> checkClips(korvel::plx::Manager manager, const Folders& folders,
                                   const Progress& progress)
{
    Collection collection;
    collection.addFolders(folders.system, false);
    collection.addFolders(folders.user, true);
    const std::vector<File> files = collection.take();
    const Library library(manager);
    std::vector<ClipReport> reports;
    for (const File& file : files) {
        reports.push_back(checkFile(file, library));
        progress(reports.size(), files.size());
    }
    return reports;
}

} // namespace plxclip::check
