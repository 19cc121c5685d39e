// How far long work is.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

#include <fmt/format.h>

#include "console.h"

namespace plxclip {

// A line on the terminal that is written again and again while the work is long, and then goes.
class ProgressLine {
public:
    // The words have braces for what is done and for all there is.
    explicit ProgressLine(std::string inWords) : words(std::move(inWords)) {}
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ProgressLine(ProgressLine&&) = delete;
    ProgressLine& operator=(ProgressLine&&) = delete;

    ~ProgressLine()
    {
        if (isShown) {
            printError("\r\x1B[K");
        }
    }

    void operator()(std::size_t done, std::size_t all)
    {
        const auto now = std::chrono::steady_clock::now();
        if (!isTerminal(Stream::error) || now - last < std::chrono::milliseconds(200)) {
            return;
        }
        printError('\r' + fmt::format(fmt::runtime(words), done, all));
        last = now;
        isShown = true;
    }

private:
    std::string words;
    std::chrono::steady_clock::time_point last = std::chrono::steady_clock::now();
    bool isShown = false;
};

} // namespace plxclip
