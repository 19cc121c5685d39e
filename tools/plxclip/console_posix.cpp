#ifndef _WIN32

#    include "console.h"

#    include <sys/ioctl.h>
#    include <unistd.h>

namespace plxclip {

// Nothing to do: this system's arguments and terminals are in UTF-8 already.
Console::Console() = default;
Console::~Console() = default;

std::vector<std::string> commandLine(int argc, char** argv)
{
    return {argv, argv + argc};
}

// Not every system of this kind has such a link.
std::filesystem::path programFile()
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

bool isTerminal(Stream stream)
{
    return isatty(stream == Stream::output ? STDOUT_FILENO : STDERR_FILENO) != 0;
}

bool isInputTerminal()
{
    return isatty(STDIN_FILENO) != 0;
}

std::size_t terminalWidth()
{
    winsize size = {};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) {
        return 100;
    }
    return size.ws_col;
}

} // namespace plxclip

#endif
