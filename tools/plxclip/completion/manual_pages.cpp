#include "completion/manual_pages.h"

#include <algorithm>
#include <cctype>
#include <memory>
#include <sstream>
#include <vector>

#include <fmt/format.h>

#include "columns.h"
#include "options.h"

namespace plxclip::completion {

namespace {

// --- Text of roff -------------------------------------------------------------------------------------

std::string escaped(char32_t character)
{
    switch (character) {
    case '\\':
        return "\\e";
    case '-':
        return "\\-"; // plain, so that what is copied from the page works
    case '\'':
        return "\\(aq";
    case '`':
        return "\\(ga";
    case '^':
        return "\\(ha";
    case '~':
        return "\\(ti";
    case '"':
        return "\\(dq";
    default:
        return character < 0x80 ? std::string(1, static_cast<char>(character))
                                : fmt::format("\\[u{:04X}]", static_cast<std::uint32_t>(character));
    }
}

// A line that begins with a dot would be a request.
std::string roff(std::string_view text)
{
    std::string result = text.starts_with('.') ? "\\&" : "";
    while (!text.empty()) {
        result += escaped(takeCharacter(text));
    }
    return result;
}

std::string bold(std::string_view text)
{
    return "\\fB" + roff(text) + "\\fR";
}

std::string italic(std::string_view text)
{
    return "\\fI" + roff(text) + "\\fR";
}

std::string section(std::string_view title)
{
    return fmt::format(".SH {}\n", roff(title));
}

std::string entry(const std::string& term, std::string_view description)
{
    return fmt::format(".TP\n{}\n{}\n", term, roff(description));
}

// --- The footer of --help -----------------------------------------------------------------------------

struct Footer {
    std::string notes;
    std::string exitStatus;
    std::string examples;
};

// Examples are indented, and stay as they are; of other paragraphs the lines are filled anew.
Footer footerOf(const CLI::App& app)
{
    constexpr std::string_view exitHeading = "Exit status: ";
    Footer footer;
    std::string* target = &footer.notes;
    std::istringstream lines(app.get_footer());
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("Example")) {
            target = &footer.examples;
        } else if (line.empty()) {
            target = &footer.notes;
            footer.notes += footer.notes.empty() ? "" : ".PP\n";
        } else if (line.starts_with(exitHeading)) {
            target = &footer.exitStatus;
            footer.exitStatus = roff(line.substr(exitHeading.size())) + '\n';
        } else {
            *target += roff(line.substr(line.find_first_not_of(' '))) + '\n';
        }
    }
    while (footer.notes.ends_with(".PP\n")) {
        footer.notes.resize(footer.notes.size() - std::string_view(".PP\n").size());
    }
    return footer;
}

std::string textOf(const Footer& footer, const Footer& ofProgram)
{
    const std::string& status =
        footer.exitStatus.empty() ? ofProgram.exitStatus : footer.exitStatus;
    std::string text = footer.notes.empty() ? "" : section("NOTES") + footer.notes;
    text += section("EXIT STATUS") + status;
    return footer.examples.empty()
               ? text
               : text + section("EXAMPLES") + ".nf\n" + footer.examples + ".fi\n";
}

// --- Options ------------------------------------------------------------------------------------------

using Options = std::vector<const CLI::Option*>;

Options optionsOf(const CLI::App& app, bool arePositional)
{
    return app.get_options([arePositional](const CLI::Option* option) {
        return option->get_positional() == arePositional && !option->get_group().empty();
    });
}

// The type of the value and the like, as --help shows them.
std::string valueOf(const CLI::App& app, const CLI::Option& option)
{
    const auto formatter = std::dynamic_pointer_cast<CLI::Formatter>(app.get_formatter());
    return formatter == nullptr ? "" : formatter->make_option_opts(&option);
}

std::string termOf(const CLI::App& app, const CLI::Option& option)
{
    const bool isPositional = option.get_positional();
    const std::string name =
        isPositional ? italic(option.get_name(true)) : bold(option.get_name(false, true));
    const std::string value = valueOf(app, option);
    return name + (isPositional ? roff(value) : italic(value));
}

std::string entriesOf(const CLI::App& app, const Options& options)
{
    std::string text;
    for (const CLI::Option* const option : options) {
        text += entry(termOf(app, *option), option->get_description());
    }
    return text;
}

std::string argumentsOf(const CLI::App& app)
{
    const Options positionals = optionsOf(app, true);
    return positionals.empty() ? "" : section("ARGUMENTS") + entriesOf(app, positionals);
}

std::string optionsText(const CLI::App& app)
{
    std::string text = section("OPTIONS");
    for (const std::string& group : app.get_groups()) {
        Options members = optionsOf(app, false);
        std::erase_if(members,
                      [&group](const auto* option) { return option->get_group() != group; });
        const bool hasTitle = group != "Options" && !members.empty();
        text += hasTitle ? fmt::format(".SS {}\n", roff(group)) : "";
        text += entriesOf(app, members);
    }
    return text;
}

// --- Pages --------------------------------------------------------------------------------------------

std::string upperCase(std::string text)
{
    std::ranges::transform(text, text.begin(), [](unsigned char letter) {
        return static_cast<char>(std::toupper(letter));
    });
    return text;
}

std::string withSmallInitial(std::string text)
{
    text.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(text.front())));
    return text.substr(0, text.find_last_not_of('.') + 1);
}

// No date: a build that is repeated makes the same page.
std::string beginning(const std::string& name, const std::string& description)
{
    return fmt::format(".TH {} 1 \"\" \"krt_plx {}\" \"User Commands\"\n", roff(upperCase(name)),
                       roff(PLXCLIP_VERSION)) +
           section("NAME") +
           fmt::format("{} \\- {}\n", roff(name), roff(withSmallInitial(description)));
}

std::string synopsisOf(const CLI::App& app, const CLI::App& command)
{
    std::string text = section("SYNOPSIS") + bold(app.get_name() + " " + command.get_name()) +
                       " [" + italic("OPTION") + "]...";
    for (const CLI::Option* const option : optionsOf(command, true)) {
        const std::string name = italic(option->get_name(true));
        text += option->get_required() ? " " + name : " [" + name + "]";
        text += option->get_items_expected_max() > 1 ? "..." : "";
    }
    return text + "\n";
}

std::string reference(const std::string& page)
{
    return bold(page) + "(1)";
}

std::string pageOf(const CLI::App& app, const CLI::App& command)
{
    const std::string description = command.get_description();
    return beginning(app.get_name() + "-" + command.get_name(), description) +
           synopsisOf(app, command) + section("DESCRIPTION") + roff(description) + ".\n" +
           argumentsOf(command) + optionsText(command) + textOf(footerOf(command), footerOf(app)) +
           section("SEE ALSO") + reference(app.get_name()) + "\n";
}

std::string pageOfProgram(const CLI::App& app, const std::vector<const CLI::App*>& commands)
{
    std::string list;
    std::string references;
    for (const CLI::App* const command : commands) {
        const std::string page = app.get_name() + "-" + command->get_name();
        list += entry(bold(command->get_name()), command->get_description() + ".");
        references += (references.empty() ? "" : ",\n") + reference(page);
    }
    return beginning(app.get_name(), app.get_description()) + section("SYNOPSIS") +
           bold(app.get_name()) + " " + italic("COMMAND") + " [" + italic("ARGUMENT") + "]...\n" +
           section("DESCRIPTION") + roff(app.get_description()) + "\n" + section("COMMANDS") +
           list + optionsText(app) + textOf(footerOf(app), {}) + section("SEE ALSO") + references +
           "\n";
}

} // namespace

std::map<std::string, std::string> manualPagesOf(const CLI::App& app)
{
    const std::vector<const CLI::App*> commands = commandsOf(app);
    std::map<std::string, std::string> pages = {
        {app.get_name() + ".1", pageOfProgram(app, commands)}};
    for (const CLI::App* const command : commands) {
        pages[app.get_name() + "-" + command->get_name() + ".1"] = pageOf(app, *command);
    }
    return pages;
}

} // namespace plxclip::completion
