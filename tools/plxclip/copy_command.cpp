#include <algorithm>
#include <memory>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "catalogue.h"
#include "commands.h"
#include "console.h"
#include "naming.h"
#include "options.h"
#include "paths.h"

namespace plxclip {

namespace plx = korvel::plx;

namespace {

struct CopyOptions {
    std::string folder;
    std::string clip;
    std::string target;
    std::vector<std::string> userFolders;
    std::string name;
    std::optional<std::uint32_t> language;
    std::int32_t semitones = 0;
};

// The copy is saved in the folder that comes first; the library makes it.
Folders foldersOfCopy(const CopyOptions& options)
{
    Folders folders = foldersOf({options.folder}, options.userFolders);
    folders.user.insert(folders.user.begin(), folderToSaveInto(options.target));
    return folders;
}

// Each in a line of its own.
std::string linesOf(const plx::Notices& notices)
{
    std::string text;
    for (const plx::Notice& notice : notices) {
        text += "\n  " + notice.text;
    }
    return text;
}

plx::Notices preventingSaving(const plx::Notices& notices)
{
    plx::Notices found;
    std::copy_if(notices.begin(), notices.end(), std::back_inserter(found),
                 [](const auto& notice) { return notice.reason == plx::Reason::preventsSaving; });
    return found;
}

// What the user can do about it.
std::string adviceOn(plx::Result code, const std::string& target)
{
    switch (code) {
    case plx::Result::waveFileMissing:
    case plx::Result::waveFileNotCopied:
        return "; see whether it is there and may be read";
    case plx::Result::userDirectoryMissing:
    case plx::Result::directoryNotCreated:
    case plx::Result::fileNotOpened:
    case plx::Result::fileNotWritten:
        return fmt::format("; see whether you may write to \"{}\" and whether the disk is full",
                           target);
    default:
        return "";
    }
}

[[noreturn]] void failToCopy(const CopyOptions& options, const std::string& why)
{
    throw Failure(fmt::format("\"{}\" is not copied: {}", options.clip, why));
}

plx::EditResult edit(plx::Clip original, const CopyOptions& options)
{
    if (!original.readPart()) {
        failToCopy(options, "its part does not read; \"plxclip check\" tells why");
    }
    plx::EditResult result = plx::edit(original, options.language);
    if (!result) {
        failToCopy(options, "out of memory" + linesOf(result.notices));
    }
    return result;
}

void transpose(plx::MutableClip clip, const CopyOptions& options)
{
    if (options.semitones == 0) {
        return;
    }
    if (!clip.midiPart()) {
        failToCopy(options,
                   "it has an audio part, which cannot be transposed; leave --transpose out");
    }
    const plx::ChangeResult result = plx::transpose(clip.midiPart(), options.semitones);
    if (!result) {
        failToCopy(options, "its notes cannot be moved so far:" + linesOf(result.notices));
    }
}

plx::UserClip save(const plx::EditResult& edited, plx::StringView name, const CopyOptions& options)
{
    const plx::SaveResult result = edited.clip.save(name, true);
    if (!result) {
        failToCopy(options, std::string(plx::textOf(result.code)) +
                                adviceOn(result.code, options.target) +
                                linesOf(preventingSaving(edited.notices)));
    }
    return result.clip;
}

void tell(plx::UserClip copy, const plx::Notices& notices)
{
    print(fmt::format("{} {}\n{}\n", styled(Style::good, "Saved"), plx::toUtf8(copy.id()),
                      pathText(copy.path())));
    if (!notices.empty()) {
        print("Not the same in the copy:\n");
    }
    for (const plx::Notice& notice : notices) {
        print(fmt::format("  {}\n", styled(Style::warning, notice.text)));
    }
}

ExitStatus copy(const CopyOptions& options)
{
    const Catalogue catalogue(foldersOfCopy(options));
    const plx::Clip original = catalogue.find(options.clip);
    const plx::EditResult edited = edit(original, options);
    transpose(edited.clip, options);
    const plx::String name =
        options.name.empty() ? plx::String(original.name()) : plx::fromUtf8(options.name);
    tell(save(edited, name, options), edited.notices);
    return exitDone;
}

} // namespace

void addCopy(CLI::App& app, Work& chosen)
{
    CLI::App* const command =
        app.add_subcommand("copy", "Save a clip as a new user clip, and say what that loses");
    const auto options = std::make_shared<CopyOptions>();
    addClip(*command, options->folder, options->clip);
    command->add_option("TARGET", options->target, targetHelp)
        ->type_name("")
        ->required()
        ->check(notEmpty());
    addUserFolders(*command, options->userFolders);
    command->add_option("--name", options->name, "A name for the copy")->check(notEmpty());
    command
        ->add_option("--transpose", options->semitones,
                     "Move all notes by this many semitones; down when it is below 0")
        ->type_name("NUMBER")
        ->check(between(-127, 127));
    addNumberOption(*command, "--language", options->language, findNoteLanguage,
                    "The language for notes that have none; without this, that of their part",
                    noteLanguageValues);
    command->footer(
        "Example:\n"
        "  plxclip copy examples/library \"An die Freude\" my-clips --name Freude --transpose 2");
    command->callback([options, &chosen] { chosen = [options] { return copy(*options); }; });
}

} // namespace plxclip
