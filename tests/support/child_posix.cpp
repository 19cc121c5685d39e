#ifndef _WIN32

#    include "support/child.h"

#    include <csignal>
#    include <thread>

#    include <spawn.h>
#    include <sys/wait.h>
#    include <unistd.h>

namespace support {

namespace {

std::optional<pid_t> start(const Path& program, std::vector<Path> arguments)
{
    arguments.insert(arguments.begin(), program);
    std::vector<char*> words;
    for (const Path& argument : arguments) {
        words.push_back(const_cast<char*>(argument.c_str()));
    }
    words.push_back(nullptr);
    pid_t child = 0;
    const int error = posix_spawn(&child, program.c_str(), nullptr, nullptr, words.data(), environ);
    return error == 0 ? std::optional{child} : std::nullopt;
}

// Passes the time until the program ends; false when it takes too long.
bool wait(pid_t program, int& status, std::chrono::seconds limit)
{
    const auto end = std::chrono::steady_clock::now() + limit;
    while (waitpid(program, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

} // namespace

std::optional<int> runProgram(const Path& program, const std::vector<Path>& arguments,
                              std::chrono::seconds limit)
{
    const auto child = start(program, arguments);
    if (!child) {
        return std::nullopt;
    }
    int status = 0;
    if (!wait(*child, status, limit)) {
        kill(*child, SIGKILL);
        waitpid(*child, &status, 0);
        return std::nullopt;
    }
    return WIFEXITED(status) ? std::optional{WEXITSTATUS(status)} : std::nullopt;
}

} // namespace support

#endif
