#include "contract/export_table.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace contract {
namespace {

std::vector<Export> allExports()
{
    std::vector<Export> all;
    for (const auto family : {catalogueExports, partExports, noteExports, expressionExports,
                              controllerExports, effectExports}) {
        for (Export& one : family()) {
            all.push_back(std::move(one));
        }
    }
    return all;
}

} // namespace

const std::vector<Export>& exportTable()
{
    static const std::vector<Export> table = allExports();
    return table;
}

bool Export::changes() const
{
    constexpr std::string_view verbs[] = {"add",  "create", "Create", "destroy", "insert", "move",
                                          "read", "remove", "save",   "set",     "protect"};
    return std::any_of(std::begin(verbs), std::end(verbs),
                       [this](std::string_view verb) { return operation().starts_with(verb); });
}

bool Export::defaultMeansRefusal() const
{
    const std::string_view name = operation();
    return !changes() && !name.starts_with("is") && !name.starts_with("has") &&
           !name.ends_with("Port") && name != "audioPart" && name != "midiPart";
}

void Arguments::report(Outcome& outcome) const
{
    outcome.count = count_;
    outcome.code = code_;
    outcome.wroteOutParameter = count_ != countMark || code_ != codeMark;
}

} // namespace contract
