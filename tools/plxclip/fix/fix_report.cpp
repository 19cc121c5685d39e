#include "fix/fix_report.h"

#include <fmt/format.h>

#include "console.h"
#include "fix/difference.h"
#include "json_writer.h"
#include "paths.h"

namespace plxclip::fix {

namespace {

std::vector<std::pair<const DocumentPlan*, const check::Finding*>> leftOf(const ClipPlan& plan)
{
    std::vector<std::pair<const DocumentPlan*, const check::Finding*>> all;
    for (const DocumentPlan& document : plan.documents) {
        for (const check::Finding& finding : document.left) {
            all.emplace_back(&document, &finding);
        }
    }
    for (const check::Finding& finding : plan.left) {
        all.emplace_back(nullptr, &finding);
    }
    return all;
}

std::string placeText(const std::string& name, const check::Position& position)
{
    return position.line == 0 ? name
                              : fmt::format("{}:{}:{}", name, position.line, position.column);
}

std::string nameIn(const ClipPlan& plan, const DocumentPlan* document,
                   const check::Finding& finding)
{
    if (document != nullptr) {
        return textOf(document->file.filename());
    }
    return finding.document.empty() ? textOf(plan.file.filename()) : finding.document;
}

std::string lineFor(const std::string& place, const std::string& pointer,
                    const std::string& message)
{
    return fmt::format("    {}: {}{}{}\n", styled(Style::dim, place), pointer,
                       pointer.empty() ? "" : " ", message);
}

std::string changesText(const DocumentPlan& document)
{
    std::string text;
    const std::string name = textOf(document.former.filename());
    for (const Change& change : document.changes) {
        text += lineFor(placeText(name, change.position), change.pointer, change.message);
    }
    return text + differenceOf(document.before, document.after, textOf(document.file.filename()));
}

void writePlace(Json& json, std::string_view document, const std::string& pointer,
                const check::Position& position, const std::string& message)
{
    json.member("document", document.empty() ? std::string_view("clip") : document);
    json.member("pointer", pointer);
    if (position.line != 0) {
        json.member("line", position.line);
        json.member("column", position.column);
    }
    json.member("message", message);
}

void writeClip(Json& json, const ClipPlan& plan, const std::string& failure, bool isDryRun)
{
    json.member("path", textOf(plan.file));
    json.member("written", plan.hasChanges() && failure.empty() && !isDryRun);
    if (!failure.empty()) {
        json.member("failure", failure);
    }
    json.key("changes");
    std::vector<std::pair<const DocumentPlan*, const Change*>> changes;
    for (const DocumentPlan& document : plan.documents) {
        for (const Change& change : document.changes) {
            changes.emplace_back(&document, &change);
        }
    }
    json.array(changes, [&](const auto& each) {
        json.object([&] {
            writePlace(json, each.first->name, each.second->pointer, each.second->position,
                       each.second->message);
        });
    });
    json.key("left");
    json.array(leftOf(plan), [&](const auto& each) {
        const check::Finding& finding = *each.second;
        json.object([&] {
            json.member("effect", finding.effect);
            json.member("reason", finding.reason);
            writePlace(json, each.first != nullptr ? each.first->name : finding.document,
                       finding.pointer, finding.position, finding.message);
        });
    });
}

} // namespace

void Report::begin(const ClipPlan& plan)
{
    ++counts.clips;
    failure.clear();
    if (isJson || (!plan.hasChanges() && leftOf(plan).empty())) {
        return;
    }
    std::string text = styled(Style::heading, textOf(plan.file)) + '\n';
    for (const DocumentPlan& document : plan.documents) {
        text += document.isToBeWritten() ? changesText(document) : "";
    }
    print(text);
}

void Report::end(ClipPlan plan)
{
    const auto left = leftOf(plan);
    const bool isWritten = plan.hasChanges() && failure.empty();
    counts.mended += isWritten ? 1U : 0U;
    counts.clipsLeft += left.empty() && failure.empty() ? 0U : 1U;
    counts.left += left.size();
    for (const DocumentPlan& document : plan.documents) {
        counts.changes += isWritten ? document.changes.size() : 0U;
    }
    if (isJson) {
        for (DocumentPlan& document : plan.documents) {
            document.bytes.reset();
            document.before.clear();
            document.after.clear();
        }
        entries.push_back({std::move(plan), failure});
        return;
    }
    if (!failure.empty()) {
        print("  " + styled(Style::bad, failure) + '\n');
    }
    std::string text = left.empty() ? "" : "  not mended\n";
    for (const auto& [document, finding] : left) {
        text += lineFor(placeText(nameIn(plan, document, *finding), finding->position),
                        finding->pointer, finding->message);
    }
    if (plan.hasChanges() || !left.empty()) {
        print(text + '\n');
    }
}

void Report::finish(const std::string& originals)
{
    isJson ? printJson(originals) : printSummary(originals);
}

void Report::printSummary(const std::string& originals) const
{
    const auto countOf = [](std::size_t number, std::string_view one, std::string_view many) {
        return fmt::format("{} {}", number, number == 1 ? one : many);
    };
    const std::string left = counts.clipsLeft == 0
                                 ? "nothing is left to mend by hand"
                                 : fmt::format("{} left to mend by hand ({})", counts.clipsLeft,
                                               countOf(counts.left, "place", "places"));
    std::string text =
        fmt::format("{}: {} {} ({}); {}\n", countOf(counts.clips, "clip file", "clip files"),
                    counts.mended, isDryRun ? "would be mended" : "mended",
                    countOf(counts.changes, "change", "changes"), left);
    if (!originals.empty()) {
        text += fmt::format("The documents as they were are in {}\n", originals);
    }
    print(text);
}

void Report::printJson(const std::string& originals) const
{
    Json json;
    json.object([&] {
        json.key("clips");
        json.array(entries, [&](const Entry& entry) {
            json.object([&] { writeClip(json, entry.plan, entry.failure, isDryRun); });
        });
        json.key("summary");
        json.object([&] {
            json.member("files", counts.clips);
            json.member("mended", counts.mended);
            json.member("changes", counts.changes);
            json.member("clipsLeft", counts.clipsLeft);
            json.member("left", counts.left);
        });
        json.member("originals", originals);
    });
    print(json.text());
}

} // namespace plxclip::fix
