// The commands, and how the program ends after one.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>

namespace CLI {
class App;
}

namespace plxclip {

enum ExitStatus : int {
    exitDone = 0,
    exitProblem = 1, // something was not found, could not be done or is wrong with a clip
    exitUsage = 2    // the command line is wrong
};

// Ends a command early. The text is shown to the user and says what to do about it.
class Failure : public std::runtime_error {
public:
    explicit Failure(const std::string& text, ExitStatus status = exitProblem)
        : std::runtime_error(text), exitStatus(status)
    {
    }

    ExitStatus status() const { return exitStatus; }

private:
    ExitStatus exitStatus;
};

// The work of a command, with its options bound.
using Work = std::function<ExitStatus()>;

// Each adds its command to the command line; if the user chooses the command, `chosen` becomes its
// work.
void addList(CLI::App& app, Work& chosen);
void addShow(CLI::App& app, Work& chosen);
void addCheck(CLI::App& app, Work& chosen);
void addGallery(CLI::App& app, Work& chosen);
void addFix(CLI::App& app, Work& chosen);
void addEdit(CLI::App& app, Work& chosen);
void addRemove(CLI::App& app, Work& chosen);
void addCopy(CLI::App& app, Work& chosen);
void addNew(CLI::App& app, Work& chosen);
void addClean(CLI::App& app, Work& chosen);
void addHelp(CLI::App& app, Work& chosen);

} // namespace plxclip
