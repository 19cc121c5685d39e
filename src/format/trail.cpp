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

std::string Trail::pathTo(std::string_view key) const
{
    std::string where = path();
    appendStep(where, key);
    return where;
}

void Trail::tell(LossReason reason, std::string&& path, const char* at, const keys::Shape* shape,
                 const keys::Row* row, std::string_view key) const
{
    listener_->lost({.reason = reason,
                     .path = std::move(path),
                     .place = placeOf(at),
                     .shape = shape,
                     .row = row,
                     .isElement = false,
                     .range = row != nullptr ? row->range : keys::Range(),
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
    tell(reason, std::move(where), value != nullptr ? value->at : top().at, members.shape, &row,
         row.key);
}

void Trail::lostKey(LossReason reason, std::string_view key, const char* at) const
{
    if (isHeard()) {
        tell(reason, pathTo(key), at, top().shape, nullptr, key);
    }
}

void Trail::lostElement(LossReason reason, const char* at) const
{
    if (!isHeard()) {
        return;
    }
    const Level& list = top();
    listener_->lost({.reason = reason,
                     .path = pathTo(std::to_string(list.count)),
                     .place = placeOf(at),
                     .shape = list.shape != nullptr ? list.shape : outer().shape,
                     .row = list.list,
                     .isElement = true,
                     .range = list.list->range,
                     .key = list.list->key});
}

void Trail::lostBelow(LossReason reason, const std::string& below, const keys::Shape& shape,
                      std::size_t place, const keys::Range& range, const char* at) const
{
    const keys::Row& row = shape.rows[place];
    std::string where = path() + below;
    appendStep(where, row.key);
    listener_->lost({.reason = reason,
                     .path = std::move(where),
                     .place = placeOf(at),
                     .shape = &shape,
                     .row = &row,
                     .isElement = false,
                     .range = range,
                     .key = row.key});
}

void Trail::lostObject() const
{
    if (!isHeard()) {
        return;
    }
    const bool isRoot = top_ == levels_.data() + 1;
    const bool isElement = !isRoot && outer().list != nullptr;
    const keys::Row* const row = isRoot      ? nullptr
                                 : isElement ? outer().list
                                             : &outer().shape->rows[outer().row];
    listener_->lost({.reason = LossReason::object,
                     .path = path(),
                     .place = placeOf(top().at),
                     .shape = top().shape,
                     .row = row,
                     .isElement = isElement,
                     .range = {},
                     .key = row != nullptr ? row->key : std::string_view()});
}

void Trail::lostWaveFile(const char* at) const
{
    if (!isHeard()) {
        return;
    }
    using Part = keys::AudioPartTable;
    const keys::Row& row = keys::rows<Part>[keys::place<Part>("wavFileName")];
    std::string where;
    appendStep(where, part_type::name(Part::type));
    appendStep(where, row.key);
    listener_->lost({.reason = LossReason::noWaveFile,
                     .path = std::move(where),
                     .place = placeOf(at),
                     .shape = &keys::shape<Part>,
                     .row = &row,
                     .isElement = false,
                     .range = {},
                     .key = row.key});
}

void Trail::took(const keys::Row& row, const Value& value) const
{
    if (isHeard()) {
        listener_->took({pathTo(row.key), placeOf(value.at), nullptr});
    }
}

void Trail::took(const NoteBase& note) const
{
    if (isHeard()) {
        listener_->took({path(), placeOf(top().at), &note});
    }
}

bool Trail::refuse(Defect::Kind kind, std::size_t place, int code) const
{
    if (isHeard()) {
        listener_->refused({kind, place, code});
    }
    return false;
}

} // namespace Korvel::CANTORIS::PLX::format
