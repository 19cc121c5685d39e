#include "fix/clip_plan.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include "check/diagnosis.h"
#include "clip_names.h"
#include "fix/whole_members.h"
#include "format/encoding.h"
#include "format/keys.h"
#include "format/limits.h"
#include "format/read.h"
#include "fs/fs.h"
#include "letters.h"
#include "model/codes.h"
#include "paths.h"

namespace plxclip::fix {

namespace fs = std::filesystem;
namespace own = Korvel::CANTORIS::PLX;
namespace format = own::format;
namespace keys = format::keys;
using document::Document;
using document::Node;
using Id = keys::Shape::Id;

namespace {

std::string indentedObject(const Members& members)
{
    std::string text = "{";
    for (const auto& [key, json] : members) {
        text +=
            fmt::format("{}\n    {}: {}", text.size() > 1 ? "," : "", document::quote(key), json);
    }
    return text + "\n}\n";
}

// Whether only the capital letters of the name differ.
std::optional<fs::path> similarFile(const fs::path& wanted)
{
    std::optional<fs::path> found;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(wanted.parent_path(), error)) {
        if (lowerCase(textOf(entry.path().filename())) == textOf(wanted.filename())) {
            if (found) {
                return std::nullopt;
            }
            found = entry.path();
        }
    }
    return found;
}

bool isThere(const fs::path& file)
{
    std::error_code error;
    return fs::exists(fs::symlink_status(file, error));
}

bool canBecome(const fs::path& from, const fs::path& to)
{
    std::error_code error;
    return !isThere(to) || fs::equivalent(from, to, error);
}

// The name with the extension of clips in small letters, and nothing behind it.
fs::path withExtension(const fs::path& file)
{
    const std::string name = textOf(file.filename());
    const std::string trimmed = name.substr(0, name.find_last_not_of(" .") + 1);
    const std::size_t dot = trimmed.rfind('.');
    return file.parent_path() / pathOf(trimmed.substr(0, dot) + lowerCase(trimmed.substr(dot)));
}

} // namespace

struct Planner::State {
    Given given;
    Ask ask;
    std::set<std::string> ids;
    format::DocumentReader reader;
};

// The planning of one clip.
class Planner::Work {
public:
    Work(State& shared, const fs::path& clipFile)
        : state(shared), file(clipFile), folder(clipFile.parent_path()), target(clipFile)
    {
    }

    ClipPlan plan(const check::Finding* obstacle, bool sharesFolder)
    {
        result.file = file;
        const bool isMisnamed = obstacle != nullptr && obstacle->reason == check::reason::extension;
        if (isMisnamed && canBecome(file, withExtension(file))) {
            target = withExtension(file);
        } else if (obstacle != nullptr) {
            result.left.push_back(*obstacle);
            return std::move(result);
        }
        planData();
        planProperties(sharesFolder);
        if (!isUsable && data != nullptr) {
            hearWhole(result.documents.front().left);
        }
        return std::move(result);
    }

    // For a clip file that has no property document.
    std::string made()
    {
        readData();
        return partName.empty() ? std::string() : madeOf({});
    }

private:
    own::fs::Path libraryFolder()
    {
        directory = libraryPath(textOf(folder));
        return directory;
    }

    void leave(std::string_view name)
    {
        for (check::Finding& finding : check::diagnose(file).findings) {
            const bool isAboutFile = finding.place == check::Finding::nowhere ||
                                     finding.reason == check::reason::encoding;
            if (finding.document == name && isAboutFile) {
                result.left.push_back(std::move(finding));
            }
        }
    }

    // Without a usable property document the clip file must have more than a part.
    void hearWhole(std::vector<check::Finding>& left)
    {
        check::Document heard{std::string_view()};
        heard.take(dataText);
        format::LoadedClip clip;
        state.reader.readClip(heard.copy(), libraryFolder(), nullptr, clip, &heard);
        left = lossesIn(heard);
    }

    // --- The clip file ---

    void readData()
    {
        dataBytes = contentOf(file, format::dataDocumentLimit);
        if (dataBytes) {
            dataText = *dataBytes;
            isDataText = format::makeUtf8(dataText);
        }
        if (isDataText) {
            learn();
        }
    }

    void planData()
    {
        readData();
        if (!isDataText) {
            leave({});
        }
        if (!dataBytes) {
            return;
        }
        DocumentPlan plan{{}, target, file, dataBytes, dataText, dataText, {}, {}};
        if (isDataText) {
            Mending mending(dataText,
                            {textOf(file),
                             [this](check::Document& heard) {
                                 state.reader.readPart(heard.copy(), libraryFolder(), nullptr,
                                                       &heard);
                             },
                             [](const format::Loss&) { return std::nullopt; }, state.ask});
            run(mending, plan);
            dataText = mending.text;
            learn();
        }
        addRenaming(plan);
        result.documents.push_back(std::move(plan));
    }

    void run(Mending& mending, DocumentPlan& plan)
    {
        mending.run();
        plan.after = mending.text;
        plan.left = mending.left;
        const bool isWorthIt = mending.isDocument || !mending.changes.empty();
        if (isWorthIt && plan.bytes && *plan.bytes != plan.before) {
            plan.changes.push_back(
                {{}, {}, "the encoding becomes UTF-8, without a byte order mark"});
        }
        std::ranges::move(mending.changes, std::back_inserter(plan.changes));
    }

    static void addRenaming(DocumentPlan& plan)
    {
        if (plan.file != plan.former) {
            plan.changes.push_back(
                {{}, {}, fmt::format("the file becomes \"{}\"", textOf(plan.file.filename()))});
        }
    }

    // What the property document may need of the clip file.
    void learn()
    {
        check::Document heard{std::string_view()};
        heard.take(dataText);
        part = state.reader.readPart(heard.copy(), libraryFolder(), nullptr, &heard);
        partName.clear();
        data.reset();
        if (heard.whyUnreadable()) {
            return;
        }
        data = std::make_unique<Document>(dataText);
        for (const auto& type : own::part_type::types) {
            if (part != nullptr ? part->type() == type.code
                                : Document::member(data->root(), type.name) != nullptr) {
                partName = type.name;
                return;
            }
        }
    }

    // A member of the data document, as JSON.
    std::optional<std::string> dataMember(std::string_view key)
    {
        Node* const node = data == nullptr ? nullptr : Document::member(data->root(), key);
        return node == nullptr ? std::nullopt : std::optional(Document::textOf(*node));
    }

    // --- What a property document must have ---

    // The same for a text that is not empty.
    std::optional<std::string> textMember(std::string_view key)
    {
        const auto json = dataMember(key);
        // A text ends at its first NUL.
        const std::string text = json ? document::unquote(*json) : std::string();
        return text.empty() || text.front() == '\0' ? std::nullopt : json;
    }

    std::string folderName() const
    {
        std::error_code error;
        return textOf(fs::absolute(file, error).lexically_normal().parent_path().filename());
    }

    std::string idFor()
    {
        if (const auto json = textMember("id")) {
            return *json;
        }
        std::string id = std::exchange(state.given.id, std::nullopt).value_or(folderName());
        if (id.empty() || state.ids.contains(id)) {
            id = korvel::plx::toUtf8(own::fs::newUuid());
        }
        return document::quote(id);
    }

    std::string nameFor()
    {
        const auto json = textMember("name");
        return json ? *json : document::quote(state.given.name.value_or(folderName()));
    }

    std::string partFor() const { return fmt::format(R"({{ "type": "{}" }})", partName); }

    std::optional<std::string> supply(const format::Loss& loss)
    {
        // Without a part there is no clip, whatever its properties are.
        if (loss.row == nullptr || loss.isElement || partName.empty()) {
            return std::nullopt;
        }
        if (loss.shape->id == Id::partHeader && loss.row->rule == keys::TextRule::partType) {
            return document::quote(partName);
        }
        return loss.shape->id == Id::propertyDocument && loss.row->need == keys::Need::required
                   ? std::optional(requiredMember(loss.row->key))
                   : std::nullopt;
    }

    std::string requiredMember(std::string_view key)
    {
        return key == "id" ? idFor() : key == "name" ? nameFor() : partFor();
    }

    std::optional<std::string> memberFor(const keys::Row& row)
    {
        if (row.need == keys::Need::required) {
            return requiredMember(row.key);
        }
        if (row.key == "vendor" && state.given.vendor && !dataMember(row.key)) {
            return document::quote(*state.given.vendor);
        }
        return dataMember(row.key);
    }

    std::string madeOf(Members members)
    {
        for (const keys::Row& row : keys::rows<keys::PropertyDocument>) {
            const auto json = has(members, std::string(row.key)) ? std::nullopt : memberFor(row);
            if (json) {
                members.emplace_back(row.key, *json);
            }
        }
        return indentedObject(members);
    }

    // --- The property document ---

    Mending propertyMending(std::string text, const fs::path& place)
    {
        return {std::move(text),
                {textOf(place),
                 [this](check::Document& heard) {
                     properties = {};
                     isUsable = state.reader.readProperties(heard.copy(), properties, &heard);
                 },
                 [this](const format::Loss& loss) { return supply(loss); }, state.ask}};
    }

    void planProperties(bool sharesFolder)
    {
        const fs::path wanted = folder / propertyName;
        const fs::path former = isThere(wanted) ? wanted : similarFile(wanted).value_or(wanted);
        DocumentPlan plan{std::string(propertyName), wanted, former, {}, {}, {}, {}, {}};
        if (!isThere(former)) {
            makeProperties(plan, {}, "is made from the clip file");
        } else {
            plan.bytes = contentOf(former, format::propertyDocumentLimit);
            if (!plan.bytes) {
                leave(propertyName);
                return;
            }
            mendProperties(plan);
        }
        addRenaming(plan);
        if (isUsable && part != nullptr && !sharesFolder && properties.partType != part->type()) {
            setType(plan);
        }
        if (isUsable) {
            state.ids.insert(korvel::plx::toUtf8(properties.id));
        }
        result.documents.push_back(std::move(plan));
    }

    void mendProperties(DocumentPlan& plan)
    {
        plan.before = *plan.bytes;
        const bool isText = format::makeUtf8(plan.before);
        Mending mending = propertyMending(plan.before, plan.former);
        run(mending, plan);
        if (isText && mending.isDocument && !mending.text.empty() && isObject(mending.text)) {
            return;
        }
        const std::string why = mending.left.empty() ? "" : mending.left.front().message;
        plan.changes.clear();
        plan.left.clear();
        makeProperties(plan, wholeMembersOf(plan.before),
                       "is made anew of what is whole in it, and of the clip file" +
                           (why.empty() ? std::string() : ": " + why));
        if (plan.changes.empty()) {
            leaveBroken(plan, mending, isText);
        }
    }

    void leaveBroken(DocumentPlan& plan, const Mending& mending, bool isText)
    {
        plan.left = mending.left;
        if (!isText) {
            plan.left.clear();
            leave(propertyName);
        }
    }

    static bool isObject(const std::string& text)
    {
        Document document(text);
        return document.root() != nullptr && document.root()->isObject();
    }

    void makeProperties(DocumentPlan& plan, const Members& members, const std::string& how)
    {
        if (partName.empty()) {
            leave(propertyName);
            return;
        }
        Mending mending = propertyMending(madeOf(members), plan.file);
        mending.run();
        if (!isUsable && !members.empty()) {
            makeProperties(plan, {}, how);
            return;
        }
        plan.after = mending.text;
        plan.left = mending.left;
        plan.changes.push_back({{}, {}, how});
        std::ranges::move(mending.changes, std::back_inserter(plan.changes));
    }

    // A catalogue would show another type than the part has.
    void setType(DocumentPlan& plan)
    {
        Mending mending = propertyMending(plan.after, plan.file);
        if (mending.set("part", "type", document::quote(partName), ", as in the clip file")) {
            plan.after = mending.text;
            std::ranges::move(mending.changes, std::back_inserter(plan.changes));
        }
    }

    State& state;
    fs::path file;
    fs::path folder;
    fs::path target;
    ClipPlan result;
    own::String directory;
    std::optional<std::string> dataBytes;
    std::string dataText;
    bool isDataText = false;
    std::unique_ptr<Document> data;
    std::unique_ptr<own::PartBase> part;
    std::string partName; // of the clip file's part; empty if it does not tell
    own::ClipProperties properties;
    bool isUsable = false;
};

bool ClipPlan::hasChanges() const
{
    return std::ranges::any_of(documents, &DocumentPlan::isToBeWritten);
}

Planner::Planner(Given values, Ask whetherWanted, std::set<std::string> ids)
    : state(std::make_unique<State>())
{
    state->given = std::move(values);
    state->ask = std::move(whetherWanted);
    state->ids = std::move(ids);
}

Planner::~Planner() = default;

ClipPlan Planner::plan(const fs::path& file, const check::Finding* obstacle, bool sharesFolder)
{
    return Work(*state, file).plan(obstacle, sharesFolder);
}

std::optional<std::string> contentOf(const fs::path& file, std::uint64_t limit)
{
    std::string bytes;
    own::fs::Patience patience;
    const auto read =
        own::fs::readFile(libraryPath(textOf(file)), bytes, {.limit = limit}, patience);
    return read == own::fs::ReadResult::read ? std::optional(std::move(bytes)) : std::nullopt;
}

std::string Planner::made(const fs::path& clipFile)
{
    return Work(*state, clipFile).made();
}

} // namespace plxclip::fix
