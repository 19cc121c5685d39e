// Text in columns: how wide it is on a terminal, and tables.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace plxclip {

// Removes the first character of UTF-8 text, which must not be empty, and returns it.
char32_t takeCharacter(std::string_view& text);

// The number of columns: East Asian characters take two, combining ones none.
std::size_t displayWidth(std::string_view text);

// As much of the text as fits into the columns, with an ellipsis if something is cut off.
std::string shortened(std::string_view text, std::size_t columns);

// The text without characters that would move the cursor, end the line or change colours: names come
// from documents. `keepsLines` keeps the ends of lines.
std::string printable(std::string_view text, bool keepsLines = false);

// Rows of cells under headings; every column is as wide as its widest cell, if there is room.
class Table {
public:
    explicit Table(std::vector<std::string> columnHeadings);

    void alignRight(std::size_t column);
    void add(std::vector<std::string> cells);
    std::size_t rows() const { return content.size(); }

    // The lines, none wider than this if at all possible: the widest columns are shortened, but not
    // the right-aligned ones, which are numbers. 0 means any width.
    std::string text(std::size_t width) const;

private:
    std::vector<std::size_t> columnWidths() const;
    void shorten(std::vector<std::size_t>& widths, std::size_t width) const;
    std::string line(const std::vector<std::string>& cells,
                     const std::vector<std::size_t>& widths) const;

    std::vector<std::string> headings;
    std::vector<std::vector<std::string>> content;
    std::vector<bool> rightAligned;
};

} // namespace plxclip
