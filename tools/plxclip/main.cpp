#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "commands.h"
#include "completion/service.h"
#include "console.h"

namespace plxclip {

namespace {

void describe(CLI::App& app)
{
    app.set_version_flag("--version", "plxclip " PLXCLIP_VERSION);
    app.set_help_all_flag("--help-all", "Show the help of every command");
    app.require_subcommand(1);
    app.footer("Exit status: 0 done; 1 something was not found, not done or is wrong; 2 the\n"
               "command line makes no sense. Set NO_COLOR to have no colours on a terminal.");
}

void addCommands(CLI::App& app, Work& chosen)
{
    addList(app, chosen);
    addShow(app, chosen);
    addCheck(app, chosen);
    addGallery(app, chosen);
    addFix(app, chosen);
    addEdit(app, chosen);
    addRemove(app, chosen);
    addCopy(app, chosen);
    addNew(app, chosen);
    addClean(app, chosen);
}

void complain(std::string_view text)
{
    printError(fmt::format("{} {}\n", styled(Style::bad, "plxclip:", Stream::error), text));
}

std::string wrongCommand(const CLI::App& app)
{
    std::string known;
    for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; })) {
        known += (known.empty() ? "" : ", ") + command->get_name();
    }
    const std::vector<std::string> others = app.remaining();
    return others.empty() ? fmt::format("no command given; there are {}", known)
                          : fmt::format("\"{}\" is no command; there are {}", others.front(), known);
}

// CLI11 reports help and version in the same way, but they are not errors.
int answer(const CLI::App& app, const CLI::ParseError& error)
{
    if (error.get_exit_code() == 0) {
        return app.exit(error);
    }
    complain(app.get_subcommands().empty() ? wrongCommand(app) : error.what());
    printError("Run \"plxclip --help\", or \"plxclip COMMAND --help\", to see what there is.\n");
    return exitUsage;
}

int perform(const Work& work)
{
    try {
        const ExitStatus status = work();
        if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
            throw Failure("the output cannot be written; see whether the disk is full");
        }
        return status;
    } catch (const Failure& failure) {
        complain(failure.what());
        return failure.status();
    }
}

int run(const std::vector<std::string>& arguments)
{
    CLI::App app("Lists, shows, checks and edits clips.", "plxclip");
    Work chosen;
    describe(app);
    addCommands(app, chosen);
    if (const auto status = completion::serve(app, arguments)) {
        return *status;
    }
    std::vector<const char*> pointers;
    for (const std::string& argument : arguments) {
        pointers.push_back(argument.c_str());
    }
    try {
        app.parse(static_cast<int>(pointers.size()), pointers.data());
    } catch (const CLI::ParseError& error) {
        return answer(app, error);
    }
    return perform(chosen);
}

} // namespace

} // namespace plxclip

int main(int argc, char** argv)
{
    const plxclip::Console console;
    try {
        return plxclip::run(plxclip::commandLine(argc, argv));
    } catch (const std::exception& error) {
        plxclip::complain(error.what());
        return plxclip::exitProblem;
    }
}
