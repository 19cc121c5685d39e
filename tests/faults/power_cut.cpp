#include "power_cut.h"

#include <algorithm>
#include <set>
#include <utility>

namespace faults {

namespace {

using Kind = Change::Kind;

constexpr std::size_t pageSize = 4096;
constexpr std::size_t sectorSize = 512;

std::string relativeTo(const support::Path& root, const std::string& path)
{
    const std::string folder = root.string() + "/";
    if (path.starts_with(folder)) {
        return path.substr(folder.size());
    }
    const auto relative = support::Path(path).lexically_relative(std::filesystem::canonical(root));
    return relative == "." ? "" : relative.string();
}

// The folder that contains the path, as a tree spells it; empty for the root itself.
std::string folderOf(const std::string& path)
{
    const std::size_t end = path.rfind('/');
    return end == std::string::npos ? "" : path.substr(0, end);
}

bool isOfContent(const Change& change)
{
    return change.kind == Kind::write || change.kind == Kind::cut;
}

// Whether the first argument, a synchronisation, keeps the change.
bool keeps(const Change& sync, const Change& change)
{
    return sync.kind == Kind::sync &&
           sync.path == (isOfContent(change) ? change.path : folderOf(change.path));
}

// The places at which a write can be cut off.
std::set<std::size_t> breaks(const Change& write)
{
    const std::size_t size = write.bytes.size();
    const std::size_t unit = size > pageSize ? sectorSize : pageSize;
    std::set<std::size_t> places;
    for (std::size_t at = unit - write.place % unit; at < size; at += unit) {
        places.insert(at);
    }
    return places;
}

std::string nameOf(const Change& change)
{
    constexpr const char* names[] = {"make file", "make folder", "write",
                                     "cut",       "remove",      "synchronise"};
    return std::string(names[static_cast<std::size_t>(change.kind)]) + " " + change.path;
}

// An entry of a folder that is not there itself cannot be made. The path of a folder ends with a
// slash.
void makeEntry(support::Tree& tree, const std::string& path, const char* ending)
{
    const std::string folder = folderOf(path);
    if (folder.empty() || tree.contains(folder + "/")) {
        tree.emplace(path + ending, "");
    }
}

// Removes everything in it too, because nothing can reach that any more.
void removeEntry(support::Tree& tree, const std::string& path)
{
    std::erase_if(tree, [&](const auto& entry) {
        return entry.first == path || entry.first.starts_with(path + "/");
    });
}

bool isBlank(const std::string& content)
{
    return content.find_first_not_of(std::string_view(" \0", 2)) == std::string::npos;
}

} // namespace

PowerCut::PowerCut(const support::Path& root, support::Tree before, const Changes& changes)
    : before_(std::move(before))
{
    for (const Change& change : changes) {
        Step step{change, {}};
        step.change.path = relativeTo(root, change.path);
        const std::size_t size = change.bytes.size();
        step.parts = {{0, 0, false}, {0, size, true}};
        if (change.kind == Kind::write) {
            step.parts.push_back({0, size, false});
            for (const std::size_t place : breaks(change)) {
                step.parts.push_back({0, place, true});
                step.parts.push_back({place, size, true});
            }
        }
        steps_.push_back(std::move(step));
    }
}

std::size_t PowerCut::forEachState(std::size_t count, const Sample& sample, support::Random& random,
                                   const std::function<void(const State&)>& visit)
{
    std::size_t visits = 0;
    const std::vector<std::size_t> open = unsynchronised(count);
    for (const Choice& choice : choices(open, sample, random)) {
        const State state = build(count, open, choice);
        std::string text;
        for (const auto& [path, content] : state.tree) {
            text += path + '\0' + content + '\0';
        }
        const std::size_t hash = std::hash<std::string>()(text);
        const auto place = std::lower_bound(visited_.begin(), visited_.end(), hash);
        if (place == visited_.end() || *place != hash) {
            visited_.insert(place, hash);
            visit(state);
            ++visits;
        }
    }
    return visits;
}

std::vector<std::size_t> PowerCut::unsynchronised(std::size_t count) const
{
    std::vector<std::size_t> open;
    for (std::size_t index = 0; index < count; ++index) {
        if (steps_[index].change.kind != Kind::sync && !isKept(index, count)) {
            open.push_back(index);
        }
    }
    return open;
}

bool PowerCut::isKept(std::size_t index, std::size_t count) const
{
    const auto at = [this](std::size_t place) {
        return steps_.begin() + static_cast<std::ptrdiff_t>(place);
    };
    return std::any_of(at(index), at(count),
                       [&](const Step& step) { return keeps(step.change, steps_[index].change); });
}

PowerCut::State PowerCut::build(std::size_t count, const std::vector<std::size_t>& open,
                                const Choice& choice) const
{
    State state{before_, {}, "after " + std::to_string(count) + " changes"};
    std::size_t next = 0;
    for (std::size_t index = 0; index < count; ++index) {
        const bool isOpen = next < open.size() && open[next] == index;
        const std::size_t part = isOpen ? choice[next++] : 1;
        if (part == 0) {
            state.description += ", without: " + nameOf(steps_[index].change);
        } else {
            apply(steps_[index], part, state);
        }
    }
    return state;
}

void PowerCut::apply(const Step& step, std::size_t part, State& state) const
{
    const auto& [kind, path, place, bytes] = step.change;
    if (kind == Kind::makeFile || kind == Kind::makeFolder) {
        makeEntry(state.tree, path, kind == Kind::makeFile ? "" : "/");
        return;
    }
    if (kind == Kind::remove) {
        removeEntry(state.tree, path);
        return;
    }
    const auto file = state.tree.find(path);
    if (file == state.tree.end() || kind == Kind::sync) {
        return;
    }
    std::string& content = file->second;
    if (kind == Kind::cut) {
        content.resize(std::min<std::size_t>(place, content.size()));
        return;
    }
    const auto [first, last, grows] = step.parts[part];
    const std::size_t begin = place + first;
    const std::size_t end = grows ? place + last : std::min(place + last, content.size());
    if (begin >= end || begin > content.size()) {
        return;
    }
    if (end - begin < bytes.size()) {
        state.description += ", bytes " + std::to_string(begin) + " to " + std::to_string(end) +
                             " only of: " + nameOf(step.change);
    }
    if (last - first < bytes.size() && place < content.size() && !isBlank(content)) {
        state.torn.push_back(path);
    }
    content.replace(begin, end - begin, bytes, first, end - begin);
}

std::vector<PowerCut::Choice> PowerCut::choices(const std::vector<std::size_t>& open,
                                                const Sample& sample, support::Random& random) const
{
    std::size_t number = 1;
    for (std::size_t i = 0; i < open.size() && number <= sample.most; ++i) {
        number *= steps_[open[i]].parts.size();
    }
    if (number <= sample.most) {
        return allChoices(open);
    }
    std::vector<Choice> some = singleChoices(open);
    const std::size_t singles = some.size();
    for (std::size_t i = 0; i < std::max(singles, sample.most); ++i) {
        Choice choice;
        for (const std::size_t index : open) {
            choice.push_back(random.below(steps_[index].parts.size()));
        }
        some.push_back(choice);
    }
    if (!sample.all) {
        for (std::size_t i = 0; i < sample.most; ++i) {
            std::swap(some[i], some[i + random.below(some.size() - i)]);
        }
        some.resize(sample.most);
    }
    return some;
}

std::vector<PowerCut::Choice> PowerCut::allChoices(const std::vector<std::size_t>& open) const
{
    std::vector<Choice> all{{}};
    for (const std::size_t index : open) {
        std::vector<Choice> longer;
        for (const Choice& choice : all) {
            for (std::size_t part = 0; part < steps_[index].parts.size(); ++part) {
                longer.push_back(choice);
                longer.back().push_back(part);
            }
        }
        all = std::move(longer);
    }
    return all;
}

std::vector<PowerCut::Choice> PowerCut::singleChoices(const std::vector<std::size_t>& open) const
{
    std::vector<Choice> all;
    for (std::size_t i = 0; i < open.size(); ++i) {
        for (std::size_t part = 0; part < steps_[open[i]].parts.size(); ++part) {
            Choice choice(open.size(), 1);
            choice[i] = part;
            all.push_back(choice);
            std::fill(choice.begin() + static_cast<std::ptrdiff_t>(i) + 1, choice.end(), 0);
            all.push_back(choice);
        }
    }
    return all;
}

DiskWriter::DiskWriter(support::Path root) : root_(std::move(root)), there_(support::treeOf(root_))
{
}

void DiskWriter::write(const support::Tree& tree)
{
    for (auto entry = there_.rbegin(); entry != there_.rend(); ++entry) {
        if (!tree.contains(entry->first)) {
            std::filesystem::remove_all(root_ / entry->first);
        }
    }
    for (const auto& [path, content] : tree) {
        const auto found = there_.find(path);
        if (path.ends_with('/')) {
            std::filesystem::create_directories(root_ / path);
        } else if (found == there_.end() || found->second != content) {
            support::writeFile(root_ / path, content);
        }
    }
    there_ = tree;
}

} // namespace faults
