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
        const auto add = [this](plx::Clip clip, std::map<plx::String, fs::path>& ids) {
            const fs::path path = pathOf(pathText(clip.path()));
            clips.emplace(path, clip);
            ids.emplace(clip.id(), path);
        };
        for (const plx::Clip clip : manager.systemClips()) {
            add(clip, systemIds);
        }
        for (const plx::Clip clip : manager.userClips()) {
            add(clip, userIds);
        }
    }

    // The file of the clip for which another one with that ID is not listed; null when there is
    // none.
    const fs::path* fileWithID(const plx::String& id, bool isUserClip) const
    {
        const auto system = systemIds.find(id);
        if (system != systemIds.end()) {
            return &system->second;
        }
        const auto user = userIds.find(id);
        return isUserClip && user != userIds.end() ? &user->second : nullptr;
    }

    std::map<fs::path, plx::Clip> clips;
    std::map<plx::String, fs::path> systemIds;
    std::map<plx::String, fs::path> userIds;
};

void report(ClipReport& clip, Effect effect, Reason reason, std::string message)
{
    clip.findings.push_back({effect, reason, {}, {}, Finding::nowhere, std::move(message)});
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
    const fs::path* const other = listed.fileWithID(diagnosis.properties.id, clip.isUserClip);
    if (other == nullptr) {
        report(clip, effect::passedOver, reason::unexplained,
               "the library does not list this clip; no reason was found");
        return;
    }
    Finding finding = diagnosis.id;
    finding.effect = effect::passedOver;
    finding.reason = reason::duplicate;
    finding.message = "is the ID of " + textOf(*other) + ", which was met first";
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
