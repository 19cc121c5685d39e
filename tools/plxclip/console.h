// The terminal: arguments and output in UTF-8 on every system, and colours on terminals.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace plxclip {

// Prepares the console for UTF-8 while it lives, and restores it afterwards.
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

// The file of this program; empty if the system does not tell.
std::filesystem::path programFile();

enum class Stream { output, error };

bool isTerminal(Stream stream);
bool isInputTerminal();

// The width of the terminal in columns; a usual width if it does not tell.
std::size_t terminalWidth();

// How wide a line of the output may be: COLUMNS, or the width of the terminal. 0 for any width, when
// the output goes elsewhere.
std::size_t outputWidth();

enum class Style { plain, heading, dim, good, warning, bad };

// The text in a style, or unchanged when the stream is not a terminal or NO_COLOR is set.
std::string styled(Style style, std::string_view text, Stream stream = Stream::output);

// Write the text as it is, without a line end. False when the output is closed, such as a closed
// pipe.
bool print(std::string_view text);
void printError(std::string_view text);

// Prints the question on standard error and reads a line. True for "y" and "yes", in small letters or
// capitals.
bool confirm(std::string_view question);

} // namespace plxclip
