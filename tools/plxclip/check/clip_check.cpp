#include "check/clip_check.h"

#include <map>

#include "check/comparison.h"
#include "check/diagnosis.h"
#include "check/files.h"
#include "paths.h"

namespace plxclip::check {

namespace plx = korvel::plx;
namespace fs = std::filesystem;

namespace {

// The clips that a host lists: the verdict that a check explains.
struct Listed {
    explicit Listed(plx::Manager manager)
    {
        add(manager.systemClips());
        add(manager.userClips());
    }

    template <class Clips>
    void add(const Clips& all)
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

void report(ClipReport& clip, Effect effect, Reason reason, std::string message)
{
    clip.findings.push_back({effect, reason, std::move(message)});
}

void reportDifferences(ClipReport& clip, const std::vector<std::string>& lines)
{
    for (const std::string& line : lines) {
        report(clip, effect::ignored, reason::unexplained, line + "; no reason was found");
    }
}

// What the library and the documents say of a listed clip must be the same.
void compare(ClipReport& clip, plx::Clip listed, const Diagnosis& diagnosis)
{
    if (!diagnosis.isListable) {
        report(clip, effect::passedOver, reason::unexplained,
               "the library lists this clip, though by this check it cannot be listed");
        return;
    }
    reportDifferences(clip, differences(listed, diagnosis.properties));
    if (clip.partReads != (diagnosis.part != nullptr)) {
        report(clip, effect::refused, reason::unexplained,
               clip.partReads ? "the library reads the part, though by this check it cannot be read"
                              : "the library does not read the part; no reason was found");
    } else if (clip.partReads) {
        reportDifferences(clip, differences(listed, *diagnosis.part));
    }
}

void explainAbsence(ClipReport& clip, const Listed& listed, const Diagnosis& diagnosis)
{
    if (!diagnosis.isListable) {
        return;
    }
    const plx::Clip other = listed.clipInsteadOf(diagnosis.properties.id, clip.isUserClip);
    if (!other) {
        report(clip, effect::passedOver, reason::unexplained,
               "the library does not list this clip; no reason was found");
        return;
    }
    Finding finding = diagnosis.id;
    finding.effect = effect::passedOver;
    finding.reason = reason::duplicate;
    finding.message =
        "is the ID of " + textOf(pathOf(pathText(other.path()))) + ", which was met first";
    clip.findings.push_back(std::move(finding));
}

ClipReport checkFile(const fs::path& path, const File& file, const Listed& listed)
{
    ClipReport clip;
    clip.path = textOf(path);
    clip.isUserClip = file.isUserClip;
    if (!file.obstacle.empty()) {
        report(clip, effect::passedOver, file.obstacle, file.message);
        return clip;
    }
    Diagnosis diagnosis = diagnose(path);
    clip.findings = std::move(diagnosis.findings);
    const auto found = listed.clips.find(path);
    if (found == listed.clips.end()) {
        explainAbsence(clip, listed, diagnosis);
        return clip;
    }
    clip.isListed = true;
    clip.partReads = found->second.readPart();
    clip.isWhole = diagnosis.isListable && diagnosis.id.document.empty();
    clip.id = plx::toUtf8(found->second.id());
    clip.name = plx::toUtf8(found->second.name());
    compare(clip, found->second, diagnosis);
    return clip;
}

} // namespace

std::vector<ClipReport> checkClips(plx::Manager manager, const Folders& folders,
                                   const Progress& progress)
{
    Files files;
    for (const std::string& folder : folders.system) {
        addFiles(pathOf(folder), false, files);
    }
    for (const std::string& folder : folders.user) {
        addFiles(pathOf(folder), true, files);
    }
    const Listed listed(manager);
    std::vector<ClipReport> reports;
    for (const auto& [path, file] : files) {
        reports.push_back(checkFile(path, file, listed));
        progress(reports.size(), files.size());
    }
    return reports;
}

} // namespace plxclip::check
