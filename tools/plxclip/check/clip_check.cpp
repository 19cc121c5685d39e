#include "check/clip_check.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

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

// --- Where the library and the diagnosis differ, which must be said ----------------------------------

struct Count {
    std::string_view name;
    std::size_t Contents::*field;
};

constexpr std::array<Count, 9> counts = {{{"notes", &Contents::notes},
                                          {"vibrato points", &Contents::vibratoPoints},
                                          {"level names", &Contents::levelNames},
                                          {"lanes", &Contents::lanes},
                                          {"events", &Contents::events},
                                          {"audio effects", &Contents::audioEffects},
                                          {"MIDI effects", &Contents::midiEffects},
                                          {"effect parameters", &Contents::parameters},
                                          {"AI languages", &Contents::aiLanguages}}};

void reportDifference(ClipReport& clip, std::string_view what, std::size_t has,
                      std::size_t expected)
{
    if (has != expected) {
        report(clip, Effect::dropped, Reason::unexplained,
               "the library has " + std::to_string(has) + ' ' + std::string(what) +
                   ", this check expects " + std::to_string(expected) + "; no reason was found");
    }
}

void compareParts(ClipReport& clip, const std::optional<Contents>& has,
                  const std::optional<Contents>& expected)
{
    if (has.has_value() != expected.has_value()) {
        report(clip, Effect::refused, Reason::unexplained,
               has ? "the library reads the part, though by this check it cannot be read"
                   : "the library does not read the part; no reason was found");
        return;
    }
    if (!has) {
        return;
    }
    for (const Count& count : counts) {
        reportDifference(clip, count.name, (*has).*count.field, (*expected).*count.field);
    }
    if (has->values != expected->values) {
        report(clip, Effect::ignored, Reason::unexplained,
               "the numbers of the notes or the events are not what this check expects; no reason "
               "was found");
    }
}

void compare(ClipReport& clip, const LibraryClip& listed, const Diagnosis& diagnosis)
{
    if (!diagnosis.isListable) {
        report(clip, Effect::passedOver, Reason::unexplained,
               "the library lists this clip, though by this check it cannot be listed");
        return;
    }
    if (listed.id != diagnosis.id) {
        report(clip, Effect::ignored, Reason::unexplained,
               "the library has the ID \"" + listed.id + "\", this check expects \"" +
                   diagnosis.id + '"');
    }
    reportDifference(clip, "tags", listed.tags, diagnosis.tags);
    compareParts(clip, listed.contents, diagnosis.contents);
}

// --- Clips that are not listed --------------------------------------------------------------------------

void explainAbsence(ClipReport& clip, const Library& library, const Diagnosis& diagnosis)
{
    if (!diagnosis.isListable) {
        return;
    }
    const std::string other = library.fileWithID(diagnosis.id, clip.isUserClip);
    if (other.empty()) {
        report(clip, Effect::passedOver, Reason::unexplained,
               "the library does not list this clip; no reason was found");
        return;
    }
    clip.findings.push_back({Effect::passedOver, Reason::duplicate, diagnosis.idDocument,
                             diagnosis.idPointer, diagnosis.idPosition,
                             "is the ID of " + other + ", which was met first"});
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
    clip.partReads = listed->contents.has_value();
    clip.isWhole = diagnosis.isListable && diagnosis.idDocument.empty();
    clip.id = listed->id;
    clip.name = listed->name;
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

    const std::vector<File>& all() const { return files; }

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
    Collection files;
    files.addFolders(folders.system, false);
    files.addFolders(folders.user, true);
    const Library library(manager);
    std::vector<ClipReport> reports;
    for (const File& file : files.all()) {
        reports.push_back(checkFile(file, library));
        progress(reports.size(), files.all().size());
    }
    return reports;
}

} // namespace plxclip::check
