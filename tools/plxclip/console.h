// The terminal: arguments and output in UTF-8 on every system, colours where they can be seen.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace plxclip {

// Prepares the console for UTF-8 as long as it lives, and gives it back as it was.
class Console {
public:
    Console();
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;
    Console(Console&&) = delete;
    Console& operator=(Console&&) = delete;

private:
    unsigned formerCodePage = 0;
};

// The command line in UTF-8, the program's name first.
std::vector<std::string> commandLine(int argc, char** argv);

enum class Stream { output, error };

bool isTerminal(Stream stream);
bool isInputTerminal();

// How many columns the terminal has; those of a usual one when the output goes elsewhere.
std::size_t terminalWidth();

enum class Style { plain, heading, dim, good, warning, bad };

// The text in a style, or as it is when the stream is no terminal or NO_COLOR is set.
std::string styled(Style style, std::string_view text, Stream stream = Stream::output);

// Write as they are, without a line end. False when the output is gone, such as a closed pipe.
bool print(std::string_view text);
void printError(std::string_view text);

// Puts the question on the error output and reads a line. True for "y" and "yes".
bool confirm(std::string_view question);

} // namespace plxclip
