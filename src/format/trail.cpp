#include "format/trail.h"

namespace Korvel::CANTORIS::PLX::format {

namespace {

// Appends a key as a step of a JSON pointer.
void appendStep(std::string& path, std::string_view key)
{
    path += '/';
    for (const char letter : key) {
        if (letter == '~') {
            path += "~0";
        } else if (letter == '/') {
            path += "~1";
        } else {
            path += letter;
        }
    }
}

} // namespace

// The path of the innermost object or list.
std::string Trail::path() const
{
    std::string path;
    for (const Level* at = levels_.data() + 1; at < top_; ++at) {
        const Level& level = *at;
        if (level.list == nullptr) {
            appendStep(path, level.shape->rows[level.row].key);
        } else {
            appendStep(path, std::to_string(level.count));
        }
    }
    return path;
}

void Trail::tell(LossReason reason, std::string&& path, const char* at, const keys::Row* row,
                 std::string_view key) const
{
    listener_->lost({.reason = reason,
                     .path = std::move(path),
                     .place = static_cast<std::size_t>(at - text_),
                     .shape = top().shape,
                     .row = row,
                     .key = key});
}

void Trail::lost(LossReason reason, const Members& members, const keys::Row& row,
                 const Value* value) const
{
    if (!isHeard()) {
        return;
    }
    std::string where = path();
    where += members.below;
    if (value != nullptr) {
        appendStep(where, row.key);
    }
    tell(reason, std::move(where), value != nullptr ? value->at : top().at, &row, row.key);
}

void Trail::lostKey(LossReason reason, std::string_view key, const char* at) const
{
    if (!isHeard()) {
        return;
    }
    std::string where = path();
    appendStep(where, key);
    tell(reason, std::move(where), at, nullptr, key);
}

void Trail::lostElement(LossReason reason, std::uint64_t index, const char* at) const
{
    if (!isHeard()) {
        return;
    }
    std::string where = path();
    appendStep(where, std::to_string(index));
    tell(reason, std::move(where), at, nullptr, {});
}

void Trail::lostBelow(LossReason reason, std::string_view below, std::uint64_t index,
                      const char* at) const
{
    std::string where = path();
    where += below;
    appendStep(where, std::to_string(index));
    tell(reason, std::move(where), at, nullptr, {});
}

void Trail::lostObject(LossReason reason) const
{
    if (isHeard()) {
        tell(reason, path(), top().at, nullptr, {});
    }
}

} // namespace Korvel::CANTORIS::PLX::format
