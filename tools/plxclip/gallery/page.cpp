#include "gallery/page.h"

#include <stdexcept>

#include <fmt/format.h>

#include "roll/svg.h"
#include "unicode.h"

namespace plxclip::gallery {

namespace {

// Inside a script a browser looks for "</script" and "<!--" even within strings; JSON can do without
// the character.
void appendSafely(std::string& page, char letter)
{
    letter == '<' ? page += "\\u003c" : page += letter;
}

// Bytes that are not UTF-8 are replaced, so that the whole page is UTF-8.
void appendJson(std::string& page, std::string_view json)
{
    while (!json.empty()) {
        const std::size_t length = Korvel::CANTORIS::PLX::validUtf8Length(json);
        for (const char letter : json.substr(0, length)) {
            appendSafely(page, letter);
        }
        json.remove_prefix(length);
        if (!json.empty()) {
            page += "\xEF\xBF\xBD";
            json.remove_prefix(1);
        }
    }
}

void appendData(std::string& page, const std::string& id, std::string_view json)
{
    page += fmt::format("<script type=\"application/json\" id=\"{}\">", id);
    appendJson(page, json);
    page += "</script>\n";
}

void appendAllData(std::string& page, const Contents& contents)
{
    appendData(page, "catalogue-data", catalogueData(contents));
    for (std::size_t i = 0; i < contents.clips.size(); ++i) {
        appendData(page, fmt::format("part-{}", i), partData(contents.clips[i], contents));
    }
}

// Appends what stands before the mark, and removes it with the mark.
void appendUntil(std::string& page, std::string_view& source, std::string_view mark)
{
    const std::size_t place = source.find(mark);
    if (place == std::string_view::npos) {
        throw std::logic_error(fmt::format("the page has no {}", mark));
    }
    page += source.substr(0, place);
    source.remove_prefix(place + mark.size());
}

} // namespace

std::string pageOf(const Contents& contents)
{
    std::string page;
    std::string_view source = pageSource;
    appendUntil(page, source, "<!--TITLE-->");
    page += roll::escaped(contents.title);
    appendUntil(page, source, "/*STYLE*/");
    page += styleSource;
    appendUntil(page, source, "<!--DATA-->");
    appendAllData(page, contents);
    appendUntil(page, source, "/*SCRIPT*/");
    page += scriptSource;
    return page.append(source);
}

} // namespace plxclip::gallery
