#include "usage.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>

#include "letters.h"
#include "options.h"

namespace plxclip {

namespace {

using CLI::ExitCodes;

// The command that was given, or the program.
const CLI::App& commandOf(const CLI::App& app)
{
    const auto chosen = app.get_subcommands();
    return chosen.empty() ? app : *chosen.front();
}

std::string titleOf(const CLI::App& command)
{
    return command.get_parent() == nullptr ? "plxclip" : "plxclip " + command.get_name();
}

// "a", "a and b", "a, b and c"
std::string listed(const std::vector<std::string>& words)
{
    return words.size() == 1
               ? words.front()
               : fmt::format("{} and {}", fmt::join(words.begin(), std::prev(words.end()), ", "),
                             words.back());
}

std::string didYouMean(std::string_view nearest)
{
    return nearest.empty() ? std::string() : fmt::format("; did you mean \"{}\"?", nearest);
}

// --- Arguments that were not expected ---

std::string nearestOption(const CLI::App& command, std::string name)
{
    name.resize(std::min(name.find('='), name.size()));
    name.erase(0, name.find_first_not_of('-'));
    std::vector<std::string_view> known;
    for (const CLI::Option* const option : command.get_options()) {
        for (const std::string& each : option->get_lnames()) {
            known.push_back(each);
        }
    }
    const std::string_view nearest = nearestWord(known, name);
    return nearest.empty() ? std::string() : fmt::format("--{}", nearest);
}

std::string unknownOptionText(const CLI::App& command, const std::string& name)
{
    const std::string nearest = nearestOption(command, name);
    return fmt::format("\"{}\" is no option of \"{}\"{}", name, titleOf(command),
                       nearest.empty() ? "; put \"--\" before what only begins like an option"
                                       : didYouMean(nearest));
}

std::string positionalsOf(const CLI::App& command)
{
    std::vector<std::string> names;
    for (const CLI::Option* const option : command.get_options()) {
        if (option->get_positional()) {
            names.push_back(option->get_name());
        }
    }
    return names.empty() ? "no more" : fmt::format("only {}", listed(names));
}

std::string extraText(const CLI::App& app)
{
    for (const CLI::App* const command : {&app, &commandOf(app)}) {
        const std::vector<std::string> others = command->remaining();
        const auto option =
            std::ranges::find_if(others, [](const auto& each) { return each.starts_with('-'); });
        if (option != others.end()) {
            return unknownOptionText(*command, *option);
        }
        if (!others.empty() && command == &app) {
            return wrongCommandText(app, others.front());
        }
    }
    return fmt::format("\"{}\" is one argument too many; \"{}\" takes {}",
                       commandOf(app).remaining().front(), titleOf(commandOf(app)),
                       positionalsOf(commandOf(app)));
}

// --- Options ---

// The messages begin with the option's name, with or without its dashes.
const CLI::Option* optionOf(const CLI::App& command, std::string_view message)
{
    message.remove_prefix(std::min(message.find_first_not_of('-'), message.size()));
    const std::string_view name = message.substr(0, message.find_first_of(": "));
    for (const CLI::Option* const option : command.get_options()) {
        const std::vector<std::string>& names = option->get_lnames();
        if (std::ranges::find(names, name) != names.end() || option->get_name() == name) {
            return option;
        }
    }
    return nullptr;
}

std::string missingText(const CLI::App& command)
{
    std::vector<std::string> missing;
    for (const CLI::Option* const option : command.get_options()) {
        if (option->get_required() && option->count() == 0) {
            missing.push_back(option->get_name());
        }
    }
    return missing.empty() ? std::string()
                           : fmt::format("\"{}\" needs {}", titleOf(command), listed(missing));
}

std::string excludesText(const CLI::App& command)
{
    for (const CLI::Option* const option : command.get_options()) {
        for (const CLI::Option* const other : option->get_excludes()) {
            if (option->count() > 0 && other->count() > 0) {
                return fmt::format("{} and {} cannot be given together", option->get_name(),
                                   other->get_name());
            }
        }
    }
    return {};
}

std::string wrongValueText(const CLI::Option* option)
{
    if (option == nullptr) {
        return {};
    }
    if (!takesValue(*option)) {
        return fmt::format("{} takes no value", option->get_name());
    }
    if (option->count() > 1) {
        return fmt::format("{} is given {} times; give it once", option->get_name(),
                           option->count());
    }
    const std::string type = option->get_type_name();
    return fmt::format("{} needs a value after it: {} {}", option->get_name(), option->get_name(),
                       type.substr(0, type.find(':')));
}

std::string sentenceOf(const CLI::App& app, const CLI::ParseError& error)
{
    const CLI::App& command = commandOf(app);
    switch (static_cast<ExitCodes>(error.get_exit_code())) {
    case ExitCodes::ExtrasError:
        return extraText(app);
    case ExitCodes::RequiredError:
        return missingText(command);
    case ExitCodes::ExcludesError:
        return excludesText(command);
    case ExitCodes::ArgumentMismatch:
    case ExitCodes::ConversionError:
        return wrongValueText(optionOf(command, error.what()));
    default:
        return {};
    }
}

bool hasOptionWithValue(const CLI::App& app, const std::string& name)
{
    const auto has = [&name](const CLI::App* command) {
        return std::ranges::any_of(command->get_options(), [&name](const CLI::Option* option) {
            return option->check_lname(name) && takesValue(*option);
        });
    };
    return std::ranges::any_of(commandsOf(app), has);
}

// "--vendor="
bool isOptionWithoutValue(const CLI::App& app, const std::string& argument)
{
    return argument.size() > 3 && argument.starts_with("--") &&
           argument.find('=') == argument.size() - 1 &&
           hasOptionWithValue(app, argument.substr(2, argument.size() - 3));
}

// Stands behind "[a, b]" while the parser reads it, so that it is one value.
constexpr char guard = '\x1F';

std::string withoutGuard(std::string& value)
{
    if (value.ends_with(guard)) {
        value.pop_back();
    }
    return {};
}

} // namespace

void takeValuesAsWritten(CLI::App& app)
{
    for (CLI::Option* const option : app.get_options()) {
        if (!takesValue(*option)) {
            option->disable_flag_override();
        } else {
            option->transform(CLI::Validator(withoutGuard, ""));
        }
    }
    for (CLI::App* const command : app.get_subcommands([](CLI::App*) { return true; })) {
        takeValuesAsWritten(*command);
    }
}

std::vector<std::string> argumentsAsWritten(const CLI::App& app,
                                            const std::vector<std::string>& arguments)
{
    std::vector<std::string> result;
    bool areOptionsOver = false;
    for (const std::string& argument : arguments) {
        areOptionsOver = areOptionsOver || argument == "--";
        const bool isEmpty = !areOptionsOver && isOptionWithoutValue(app, argument);
        result.push_back(argument);
        if (isEmpty) {
            result.back().pop_back();
            result.emplace_back();
        } else if (argument.starts_with('[') && argument.ends_with(']')) {
            result.back() += guard;
        }
    }
    return result;
}

std::string wrongCommandText(const CLI::App& app, const std::string& name)
{
    std::vector<std::string> names;
    for (const CLI::App* const command : commandsOf(app)) {
        names.push_back(command->get_name());
    }
    const std::string known = fmt::format("there are {}", fmt::join(names, ", "));
    if (name.empty()) {
        return "no command given; " + known;
    }
    const std::vector<std::string_view> words(names.begin(), names.end());
    const std::string_view nearest = nearestWord(words, name);
    return fmt::format("\"{}\" is no command{}", name,
                       nearest.empty() ? "; " + known : didYouMean(nearest));
}

std::string usageText(const CLI::App& app, const CLI::ParseError& error)
{
    if (app.get_subcommands().empty()) {
        return app.remaining().empty() ? wrongCommandText(app, "") : extraText(app);
    }
    const std::string sentence = sentenceOf(app, error);
    return sentence.empty() ? error.what() : sentence;
}

} // namespace plxclip
