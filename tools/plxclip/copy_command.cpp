#include <memory>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "building.h"
#include "catalogue.h"
#include "commands.h"
#include "console.h"
#include "options.h"
#include "reading.h"

namespace plxclip {

namespace plx = korvel::plx;

namespace {

struct CopyOptions {
    std::string folder;
    std::string clip;
    std::string target;
    std::vector<std::string> userFolders;
    std::string name;
};

std::string reasonOf(std::optional<plx::Result> code)
{
    switch (code.value_or(plx::Result::noManager)) {
    case plx::Result::noVoiceBank:
    case plx::Result::noAiVoiceBank:
        return "its part names no voice, and without one nothing is saved";
    case plx::Result::badLanguage:
    case plx::Result::noAiLanguage:
    case plx::Result::badAiLanguage:
        return "its part has no language that can be saved";
    case plx::Result::waveFileMissing:
    case plx::Result::waveFileNotCopied:
        return "its wave file cannot be copied; see whether it is there and may be read";
    case plx::Result::userDirectoryMissing:
    case plx::Result::directoryNotCreated:
    case plx::Result::fileNotOpened:
        return "nothing can be made in the folder; see whether you may write to it";
    case plx::Result::fileNotWritten:
        return "its files cannot be written; see whether the disk is full";
    default:
        return "there is no memory left";
    }
}

// The copy is saved in the folder that comes first.
Folders foldersOfCopy(const CopyOptions& options)
{
    Folders folders = foldersOf({options.folder}, options.userFolders);
    requireFolder(options.target, "make it, or name another one to save into");
    folders.user.insert(folders.user.begin(), options.target);
    return folders;
}

plx::UserClip save(const Catalogue& catalogue, const Properties& properties, const Part& part,
                   const std::string& name)
{
    const plx::MutableClip clip = catalogue.manager().createMutableClip();
    build(clip, properties, part);
    const plx::SaveResult result = clip.save(plx::fromUtf8(name), true);
    clip.destroy();
    if (!result) {
        throw Failure(
            fmt::format("\"{}\" is not copied: {}", properties.name, reasonOf(result.code)));
    }
    return result.clip;
}

void report(const Properties& copy, const std::vector<std::string>& losses)
{
    print(fmt::format("{} {}\n{}\n", styled(Style::good, "Saved"), copy.id, copy.path));
    if (!losses.empty()) {
        print("Not the same in the copy:\n");
    }
    for (const std::string& loss : losses) {
        print(fmt::format("  {}\n", styled(Style::warning, loss)));
    }
}

ExitStatus copy(const CopyOptions& options)
{
    const Catalogue catalogue(foldersOfCopy(options));
    const plx::Clip original = catalogue.find(options.clip);
    if (!original.readPart()) {
        throw Failure(fmt::format("\"{}\" is not copied: its part does not read; \"plxclip check\" "
                                  "tells why",
                                  options.clip));
    }
    const Properties properties = propertiesOf(original);
    const Part part = partOf(original);
    const std::string name = options.name.empty() ? properties.name : options.name;
    const plx::UserClip saved = save(catalogue, properties, part, name);
    saved.readPart();
    const Properties copied = propertiesOf(saved);
    report(copied, differences(properties, part, copied, partOf(saved)));
    return exitDone;
}

} // namespace

void addCopy(CLI::App& app, Work& chosen)
{
    CLI::App* const command =
        app.add_subcommand("copy", "Save a clip as a new user clip, and say what that loses");
    const auto options = std::make_shared<CopyOptions>();
    addClip(*command, options->folder, options->clip);
    command->add_option("TARGET", options->target, "The folder of user clips to save into")
        ->type_name("")
        ->required();
    command->add_option("--user", options->userFolders, "A folder to be read as user clips")
        ->type_name("DIR")
        ->allow_extra_args(false);
    command->add_option("--name", options->name, "A name for the copy");
    command->footer("Example:\n"
                    "  plxclip copy examples/library \"An die Freude\" my-clips --name Freude");
    command->callback([options, &chosen] { chosen = [options] { return copy(*options); }; });
}

} // namespace plxclip
