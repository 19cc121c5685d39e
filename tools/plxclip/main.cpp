#include <cstdio>
#include <exception>
#include <sstream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "columns.h"
#include "commands.h"
#include "completion/service.h"
#include "console.h"
#include "paths.h"
#include "unicode.h"
#include "usage.h"

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
    addHelp(app, chosen);
}

void complain(std::string_view text)
{
    printError(fmt::format("{} {}\n", styled(Style::bad, "plxclip:", Stream::error),
                           printable(text, true)));
}

// Only text can be the name of a clip or a folder.
void requireText(const std::vector<std::string>& arguments)
{
    for (const std::string& argument : arguments) {
        if (!Korvel::CANTORIS::PLX::isValidUtf8(argument)) {
            throw Failure(
                fmt::format("an argument is not text in UTF-8: \"{}\"", textOfBytes(argument)),
                exitUsage);
        }
    }
}

void requireOutput()
{
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        throw Failure("the output cannot be written; see whether the disk is full");
    }
}

// CLI11 reports help and version in the same way, but they are not errors.
int answer(const CLI::App& app, const CLI::ParseError& error)
{
    if (error.get_exit_code() == 0) {
        std::ostringstream text;
        app.exit(error, text);
        print(text.str());
        requireOutput();
        return exitDone;
    }
    complain(usageText(app, error));
    const auto chosen = app.get_subcommands();
    printError(fmt::format("Run \"plxclip help{}\" to see what there is.\n",
                           chosen.empty() ? "" : " " + chosen.front()->get_name()));
    return exitUsage;
}

int run(const std::vector<std::string>& given)
{
    requireText(given);
    CLI::App app("Lists, shows, checks and edits clips.", "plxclip");
    Work chosen;
    describe(app);
    addCommands(app, chosen);
    if (const auto status = completion::serve(app, given)) {
        return *status;
    }
    takeValuesAsWritten(app);
    const std::vector<std::string> arguments = argumentsAsWritten(app, given);
    std::vector<const char*> pointers;
    for (const std::string& argument : arguments) {
        pointers.push_back(argument.c_str());
    }
    try {
        app.parse(static_cast<int>(pointers.size()), pointers.data());
    } catch (const CLI::ParseError& error) {
        return answer(app, error);
    }
    const ExitStatus status = chosen();
    requireOutput();
    return status;
}

} // namespace

} // namespace plxclip

int main(int argc, char** argv)
{
    const plxclip::Console console;
    try {
        return plxclip::run(plxclip::commandLine(argc, argv));
    } catch (const plxclip::Failure& failure) {
        plxclip::complain(failure.what());
        return failure.status();
    } catch (const std::exception& error) {
        plxclip::complain(error.what());
        return plxclip::exitProblem;
    }
}
