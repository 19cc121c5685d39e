#include <algorithm>
#include <memory>

#include <CLI/CLI.hpp>

#include "commands.h"
#include "console.h"
#include "usage.h"

namespace plxclip {

namespace {

// The parser's own function would show the help of "help", because that is the command given.
std::string helpOf(const CLI::App& command, const std::string& title)
{
    return command.get_formatter()->make_help(&command, title, CLI::AppFormatMode::Normal);
}

ExitStatus help(const CLI::App& app, const std::string& name)
{
    if (name.empty()) {
        print(helpOf(app, app.get_name()));
        return exitDone;
    }
    const auto found = app.get_subcommands(
        [&name](const CLI::App* command) { return command->get_name() == name; });
    if (found.empty()) {
        throw Failure(wrongCommandText(app, name), exitUsage);
    }
    print(helpOf(*found.front(), app.get_name() + " " + name));
    return exitDone;
}

} // namespace

void addHelp(CLI::App& app, Work& chosen)
{
    CLI::App* const command = app.add_subcommand("help", "Show the help of a command");
    const auto name = std::make_shared<std::string>();
    command->add_option("COMMAND", *name, "The command; without it, the commands are shown")
        ->type_name("");
    command->callback(
        [&app, name, &chosen] { chosen = [&app, name] { return help(app, *name); }; });
}

} // namespace plxclip
