#include "fix/whole_members.h"

#include <algorithm>
#include <optional>

#include "document/document.h"

namespace plxclip::fix {

using document::Document;

namespace {

using Words = std::vector<const document::Token*>; // all tokens but white space

Words wordsOf(const Document& document)
{
    Words words;
    for (const document::Token& token : document.tokens()) {
        if (token.kind != document::Kind::white) {
            words.push_back(&token);
        }
    }
    return words;
}

// The index behind the value that begins there; none if the value is not whole, or if nothing follows it.
std::optional<std::size_t> behindValue(const Words& words, std::size_t at)
{
    using document::Kind;
    int depth = 0;
    for (; at + 1 < words.size() && depth >= 0; ++at) {
        const Kind kind = words[at]->kind;
        if (kind == Kind::other) {
            return std::nullopt;
        }
        depth += kind == Kind::open ? 1 : kind == Kind::close ? -1 : 0;
        if (depth == 0) {
            return at + 1;
        }
    }
    return std::nullopt;
}

} // namespace

bool has(const Members& members, std::string_view key)
{
    return std::ranges::any_of(members, [key](const auto& each) { return each.first == key; });
}

Members wholeMembersOf(const std::string& text)
{
    using document::Kind;
    const Document broken(text);
    const Words words = wordsOf(broken);
    const auto is = [&words](std::size_t index, Kind kind) {
        return index < words.size() && words[index]->kind == kind;
    };
    Members members;
    for (std::size_t at = 1; is(0, Kind::open) && is(at, Kind::text) && is(at + 1, Kind::colon);) {
        const auto end = behindValue(words, at + 2);
        if (!end) {
            break;
        }
        const std::size_t begin = words[at + 2]->place;
        const std::string json =
            text.substr(begin, words[*end - 1]->place + words[*end - 1]->text.size() - begin);
        const std::string key = document::unquote(words[at]->text);
        if (Document(json).root() != nullptr && !has(members, key)) {
            members.emplace_back(key, json);
        }
        at = *end + (is(*end, Kind::comma) ? 1 : 0);
    }
    return members;
}

} // namespace plxclip::fix
