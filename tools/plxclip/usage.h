// What is wrong with a command line, in sentences: the parser's own messages are not for users.
#pragma once

#include <string>
#include <vector>

#include <CLI/CLI.hpp>

namespace plxclip {

// Makes the options of all commands take their values as they are written: the parser would take
// "--json=5" for "--json", and "[a, b]" for two values.
void takeValuesAsWritten(CLI::App& app);

// The command line for a parser that was prepared so. It would take "--name=" for an option whose
// value comes next.
std::vector<std::string> argumentsAsWritten(const CLI::App& app,
                                            const std::vector<std::string>& arguments);

// "gallery", and which command was meant if one is like it.
std::string wrongCommandText(const CLI::App& app, const std::string& name);

// What is wrong, and what to write instead.
std::string usageText(const CLI::App& app, const CLI::ParseError& error);

} // namespace plxclip
