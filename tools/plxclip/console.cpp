#include "console.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "columns.h"
#include "letters.h"

namespace plxclip {

namespace {

bool wantsColours(Stream stream)
{
    static const bool refused = [] {
        const char* value = std::getenv("NO_COLOR");
        return value != nullptr && *value != '\0';
    }();
    return !refused && isTerminal(stream);
}

std::string_view escapeOf(Style style)
{
    switch (style) {
    case Style::heading:
        return "\x1b[1m";
    case Style::dim:
        return "\x1b[2m";
    case Style::good:
        return "\x1b[32m";
    case Style::warning:
        return "\x1b[33m";
    case Style::bad:
        return "\x1b[31m";
    case Style::plain:
        break;
    }
    return {};
}

} // namespace

std::string styled(Style style, std::string_view text, Stream stream)
{
    if (style == Style::plain || text.empty() || !wantsColours(stream)) {
        return std::string(text);
    }
    return std::string(escapeOf(style)).append(text).append("\x1b[0m");
}

bool print(std::string_view text)
{
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
}

void printError(std::string_view text)
{
    std::fflush(stdout); // so that the two appear in the order in which they were written
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fflush(stderr);
}

std::size_t outputWidth()
{
    if (!isTerminal(Stream::output)) {
        return 0;
    }
    const char* const wanted = std::getenv("COLUMNS");
    const unsigned long columns = wanted == nullptr ? 0 : std::strtoul(wanted, nullptr, 10);
    return columns > 0 && columns < 10000 ? columns : terminalWidth();
}

bool confirm(std::string_view question)
{
    printError(printable(question));
    std::string answer;
    if (!std::getline(std::cin, answer)) {
        printError("\n"); // as the user's own line end would have done
        return false;
    }
    answer.erase(0, answer.find_first_not_of(' '));
    answer.erase(answer.find_last_not_of(" \r") + 1);
    answer = lowerCase(answer);
    return answer == "y" || answer == "yes";
}

} // namespace plxclip
