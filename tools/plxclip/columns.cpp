#include "columns.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <span>

#include "console.h"

namespace plxclip {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// The ranges that names and lyrics use.
constexpr std::array<Range, 6> combining = {{{0x0300, 0x036F},
                                             {0x200B, 0x200F},
                                             {0x20D0, 0x20FF},
                                             {0x3099, 0x309A},
                                             {0xFE00, 0xFE0F},
                                             {0xFE20, 0xFE2F}}};
constexpr std::array<Range, 10> wide = {{{0x1100, 0x115F},
                                         {0x2E80, 0x303E},
                                         {0x3041, 0xA4CF},
                                         {0xAC00, 0xD7A3},
                                         {0xF900, 0xFAFF},
                                         {0xFE30, 0xFE6F},
                                         {0xFF00, 0xFF60},
                                         {0xFFE0, 0xFFE6},
                                         {0x1F300, 0x1FAFF},
                                         {0x20000, 0x3FFFD}}};

bool isIn(std::span<const Range> ranges, char32_t character)
{
    return std::any_of(ranges.begin(), ranges.end(), [character](Range range) {
        return character >= range.first && character <= range.last;
    });
}

std::size_t characterWidth(char32_t character)
{
    if (isIn(combining, character)) {
        return 0;
    }
    return isIn(wide, character) ? 2 : 1;
}

constexpr std::size_t gap = 2;

} // namespace

char32_t takeCharacter(std::string_view& text)
{
    const auto first = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    if (first < 0xC0) {
        return first;
    }
    char32_t character = first & (first < 0xE0 ? 0x1FU : first < 0xF0 ? 0x0FU : 0x07U);
    while (!text.empty() && (static_cast<unsigned char>(text.front()) & 0xC0U) == 0x80U) {
        character = (character << 6U) | (static_cast<unsigned char>(text.front()) & 0x3FU);
        text.remove_prefix(1);
    }
    return character;
}

std::size_t displayWidth(std::string_view text)
{
    std::size_t width = 0;
    while (!text.empty()) {
        width += characterWidth(takeCharacter(text));
    }
    return width;
}

std::string shortened(std::string_view text, std::size_t columns)
{
    if (displayWidth(text) <= columns) {
        return std::string(text);
    }
    std::string_view rest = text;
    std::size_t kept = 0;
    std::size_t width = 1; // of the ellipsis
    while (!rest.empty()) {
        width += characterWidth(takeCharacter(rest));
        if (width > columns) {
            break;
        }
        kept = text.size() - rest.size();
    }
    return std::string(text.substr(0, kept)) + "…";
}

std::string printable(std::string_view text, bool keepsLines)
{
    std::string result;
    while (!text.empty()) {
        const std::string_view rest = text;
        const char32_t letter = takeCharacter(text);
        const bool isControl = letter < 0x20 || (letter >= 0x7F && letter < 0xA0);
        result += isControl && !(keepsLines && letter == '\n')
                      ? "\xEF\xBF\xBD"
                      : rest.substr(0, rest.size() - text.size());
    }
    return result;
}

Table::Table(std::vector<std::string> columnHeadings)
    : headings(std::move(columnHeadings)), rightAligned(headings.size())
{
}

void Table::alignRight(std::size_t column)
{
    rightAligned[column] = true;
}

void Table::add(std::vector<std::string> cells)
{
    for (std::string& cell : cells) {
        cell = printable(cell);
    }
    content.push_back(std::move(cells));
}

std::vector<std::size_t> Table::columnWidths() const
{
    std::vector<std::size_t> widths;
    for (std::size_t column = 0; column < headings.size(); ++column) {
        std::size_t width = displayWidth(headings[column]);
        for (const auto& cells : content) {
            width = std::max(width, displayWidth(cells[column]));
        }
        widths.push_back(width);
    }
    return widths;
}

// The widest column gives way first, so that narrow ones stay whole.
void Table::shorten(std::vector<std::size_t>& widths, std::size_t width) const
{
    std::size_t all = std::accumulate(widths.begin(), widths.end(), gap * (widths.size() - 1));
    while (all > width) {
        std::size_t widest = widths.size();
        for (std::size_t column = 0; column < widths.size(); ++column) {
            if (!rightAligned[column] &&
                (widest == widths.size() || widths[column] > widths[widest])) {
                widest = column;
            }
        }
        if (widest == widths.size() || widths[widest] <= 1) {
            return;
        }
        --widths[widest];
        --all;
    }
}

std::string Table::line(const std::vector<std::string>& cells,
                        const std::vector<std::size_t>& widths) const
{
    std::string line;
    for (std::size_t column = 0; column < cells.size(); ++column) {
        const std::string cell = shortened(cells[column], widths[column]);
        const std::size_t padding = widths[column] - std::min(widths[column], displayWidth(cell));
        line.append(rightAligned[column] ? padding : 0, ' ').append(cell);
        line.append((rightAligned[column] ? 0 : padding) + gap, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

std::string Table::text(std::size_t width) const
{
    std::vector<std::size_t> widths = columnWidths();
    if (width > 0) {
        shorten(widths, width);
    }
    std::string text = styled(Style::heading, line(headings, widths)) + "\n";
    for (const auto& cells : content) {
        text += line(cells, widths) + "\n";
    }
    return text;
}

} // namespace plxclip
