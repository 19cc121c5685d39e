#include "fix/difference.h"

#include <algorithm>
#include <vector>

#include <fmt/format.h>

#include "console.h"

namespace plxclip::fix {

namespace {

using Lines = std::vector<std::string_view>;

Lines linesOf(std::string_view text)
{
    Lines lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        line.remove_suffix(line.ends_with('\r') ? 1 : 0);
        lines.push_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

// Lines of the old text that others have taken the place of.
struct Block {
    std::size_t oldBegin;
    std::size_t oldEnd;
    std::size_t newBegin;
    std::size_t newEnd;
};

// The next lines after which both texts are the same again, with as few lines in between as possible.
Block nextBlock(const Lines& before, const Lines& after, std::size_t oldAt, std::size_t newAt)
{
    constexpr std::size_t farthest = 200; // beyond that, the rest counts as one difference
    for (std::size_t distance = 1; distance <= farthest; ++distance) {
        for (std::size_t old = 0; old <= distance; ++old) {
            const std::size_t oldEnd = oldAt + old;
            const std::size_t newEnd = newAt + distance - old;
            const bool isInside = oldEnd < before.size() && newEnd < after.size();
            if (isInside && before[oldEnd] == after[newEnd]) {
                return {oldAt, oldEnd, newAt, newEnd};
            }
        }
    }
    return {oldAt, before.size(), newAt, after.size()};
}

std::vector<Block> blocksOf(const Lines& before, const Lines& after)
{
    std::vector<Block> blocks;
    std::size_t oldAt = 0;
    std::size_t newAt = 0;
    while (oldAt < before.size() || newAt < after.size()) {
        const bool isSame =
            oldAt < before.size() && newAt < after.size() && before[oldAt] == after[newAt];
        if (!isSame) {
            blocks.push_back(nextBlock(before, after, oldAt, newAt));
            oldAt = blocks.back().oldEnd;
            newAt = blocks.back().newEnd;
        } else {
            ++oldAt;
            ++newAt;
        }
    }
    return blocks;
}

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// The part of a line around the letters from begin to end.
std::string cut(std::string_view line, std::size_t begin, std::size_t end)
{
    constexpr std::size_t around = 40;
    constexpr std::size_t shortEnough = 160;
    if (line.size() <= shortEnough) {
        return std::string(line);
    }
    begin = begin > around ? begin - around : 0;
    end = std::min(std::min(end, begin + shortEnough) + around, line.size());
    while (begin > 0 && isContinuation(line[begin])) {
        --begin;
    }
    while (end < line.size() && isContinuation(line[end])) {
        ++end;
    }
    return (begin > 0 ? "..." : "") + std::string(line.substr(begin, end - begin)) +
           (end < line.size() ? "..." : "");
}

// Both lines, cut to where they differ from each other.
std::pair<std::string, std::string> cutPair(std::string_view one, std::string_view other)
{
    const auto [oneAt, otherAt] = std::ranges::mismatch(one, other);
    const auto same = static_cast<std::size_t>(oneAt - one.begin());
    std::size_t tail = 0;
    while (tail < one.size() - same && tail < other.size() - same &&
           one[one.size() - 1 - tail] == other[other.size() - 1 - tail]) {
        ++tail;
    }
    return {cut(one, same, one.size() - tail), cut(other, same, other.size() - tail)};
}

// Writes blocks that are near each other under one heading.
class Writer {
public:
    Writer(const Lines& oldLines, const Lines& newLines) : before(oldLines), after(newLines) {}

    void write(const std::vector<Block>& blocks)
    {
        for (std::size_t at = 0; at < blocks.size();) {
            std::size_t end = at + 1;
            while (end < blocks.size() &&
                   blocks[end].oldBegin - blocks[end - 1].oldEnd <= 2 * context) {
                ++end;
            }
            write(blocks, at, end);
            at = end;
        }
    }

    std::string text;

private:
    static constexpr std::size_t context = 3;

    void write(const std::vector<Block>& blocks, std::size_t first, std::size_t end)
    {
        const std::size_t lead = std::min(context, blocks[first].oldBegin);
        const Block& last = blocks[end - 1];
        const std::size_t tail = std::min(context, before.size() - last.oldEnd);
        const std::size_t oldBegin = blocks[first].oldBegin - lead;
        const std::size_t newBegin = blocks[first].newBegin - lead;
        const std::size_t oldCount = last.oldEnd + tail - oldBegin;
        const std::size_t newCount = last.newEnd + tail - newBegin;
        text += styled(Style::dim,
                       fmt::format("@@ -{},{} +{},{} @@", oldBegin + (oldCount == 0 ? 0 : 1),
                                   oldCount, newBegin + (newCount == 0 ? 0 : 1), newCount)) +
                '\n';
        std::size_t at = oldBegin;
        for (std::size_t index = first; index < end; ++index) {
            same(at, blocks[index].oldBegin);
            different(blocks[index]);
            at = blocks[index].oldEnd;
        }
        same(at, last.oldEnd + tail);
    }

    void same(std::size_t begin, std::size_t end)
    {
        for (; begin < end; ++begin) {
            text += ' ' + cut(before[begin], 0, 0) + '\n';
        }
    }

    void different(const Block& block)
    {
        std::string added;
        const std::size_t oldCount = block.oldEnd - block.oldBegin;
        const std::size_t newCount = block.newEnd - block.newBegin;
        for (std::size_t index = 0; index < std::max(oldCount, newCount); ++index) {
            const std::string_view one =
                index < oldCount ? before[block.oldBegin + index] : std::string_view();
            const std::string_view other =
                index < newCount ? after[block.newBegin + index] : std::string_view();
            const auto [shownOne, shownOther] = cutPair(one, other);
            text += index < oldCount ? styled(Style::bad, '-' + shownOne) + '\n' : "";
            added += index < newCount ? styled(Style::good, '+' + shownOther) + '\n' : "";
        }
        text += added;
    }

    const Lines& before;
    const Lines& after;
};

} // namespace

std::string differenceOf(std::string_view before, std::string_view after, std::string_view name)
{
    const Lines oldLines = linesOf(before);
    const Lines newLines = linesOf(after);
    const std::vector<Block> blocks = blocksOf(oldLines, newLines);
    if (blocks.empty()) {
        return {};
    }
    Writer writer(oldLines, newLines);
    writer.write(blocks);
    return fmt::format("--- {}\n+++ {}\n", name, name) + writer.text;
}

} // namespace plxclip::fix
