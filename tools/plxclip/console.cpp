#include "console.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

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

bool confirm(std::string_view question)
{
    printError(question);
    std::string answer;
    std::getline(std::cin, answer);
    while (!answer.empty() && (answer.back() == '\r' || answer.back() == ' ')) {
        answer.pop_back();
    }
    return answer == "y" || answer == "Y" || answer == "yes";
}

} // namespace plxclip
