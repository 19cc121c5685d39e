#include "completion/service.h"

#include <algorithm>
#include <exception>

#include <fmt/format.h>

#include "completion/candidates.h"
#include "completion/manual_pages.h"
#include "console.h"
#include "safe_file.h"

namespace plxclip::completion {

namespace {

std::string_view nameOf(Kind kind)
{
    return kind == Kind::files ? "files" : kind == Kind::folders ? "folders" : "words";
}

// The first sentence, on one line.
std::string shortText(std::string text)
{
    std::ranges::replace_if(
        text, [](char letter) { return static_cast<unsigned char>(letter) < ' '; }, ' ');
    return text.substr(0, text.find(". "));
}

void complete(const CLI::App& app, const std::vector<std::string>& words,
              const std::string& current)
{
    const Answer answer = answerFor(app, words, current);
    std::string text = fmt::format("{}\n", nameOf(answer.kind));
    for (const Candidate& candidate : answer.candidates) {
        text += fmt::format("{}\t{}\n", candidate.text, shortText(candidate.description));
    }
    print(text);
}

} // namespace

std::optional<ExitStatus> serve(const CLI::App& app, const std::vector<std::string>& arguments)
{
    if (arguments.size() >= 3 && arguments[1] == "__complete" && arguments[2].starts_with('=')) {
        complete(app, {arguments.begin() + 3, arguments.end()}, arguments[2].substr(1));
        return exitDone;
    }
    if (arguments.size() == 3 && arguments[1] == "__man-pages") {
        for (const auto& [name, text] : manualPagesOf(app)) {
            writeWholeFile(arguments[2] + "/" + name, text);
        }
        return exitDone;
    }
    return std::nullopt;
}

} // namespace plxclip::completion
