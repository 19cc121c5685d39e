#include <memory>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "catalogue.h"
#include "columns.h"
#include "commands.h"
#include "console.h"
#include "options.h"
#include "reading.h"

namespace plxclip {

namespace plx = korvel::plx;

namespace {

struct RemoveOptions {
    std::string folder;
    std::string clip;
    bool isAgreed = false;
};

ExitStatus removeClip(const RemoveOptions& options)
{
    const Catalogue catalogue(foldersToChange(options.folder));
    const plx::UserClip clip = catalogue.findUserClip(options.clip);
    const Properties properties = propertiesOf(clip);
    if (!options.isAgreed && !confirm(fmt::format("Delete \"{}\" ({}) from disk? [y/N] ",
                                                  properties.name, properties.path))) {
        throw Failure(fmt::format("\"{}\" is kept; answer \"y\", or give --yes, to delete it",
                                  properties.name));
    }
    clip.readPart(); // otherwise a wave file would stay on disk
    if (!clip.remove()) {
        throw Failure(fmt::format("\"{}\" is not removed; see whether you may delete {}",
                                  properties.name, properties.path));
    }
    print(fmt::format("{} {}\n", styled(Style::good, "Removed"), printable(properties.name)));
    return exitDone;
}

} // namespace

void addRemove(CLI::App& app, Work& chosen)
{
    CLI::App* const command =
        app.add_subcommand("remove", "Delete a user clip from disk; asks before it does");
    const auto options = std::make_shared<RemoveOptions>();
    addClip(*command, options->folder, options->clip);
    command->add_flag("--yes", options->isAgreed, "Do not ask");
    command->footer(
        "DIR is a folder of user clips, or one that has \"system\" and \"user\" in it.");
    command->callback([options, &chosen] { chosen = [options] { return removeClip(*options); }; });
}

} // namespace plxclip
