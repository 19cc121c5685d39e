#include "check/second_look.h"

#include <algorithm>

#include <fmt/format.h>

#include "model/codes.h"
#include "model/note.h"

namespace plxclip::check {

namespace {

using format::Taken;
using Notes = std::vector<const Taken*>;

Finding noted(const Taken& note, Reason reason, std::string message)
{
    return {effect::noted, reason, std::move(message), note.place, note.path};
}

bool hasNoLanguage(const Taken* each)
{
    return each->note->langID() == KRT_PLX_NO_LANGUAGE;
}

std::int64_t endOf(const Taken* each)
{
    return std::int64_t{each->note->pos()} + each->note->duration();
}

// If no note has a language, that is one finding, not one a note.
void lookForLanguages(const Notes& notes, std::vector<Finding>& found)
{
    if (notes.size() > 1 && std::ranges::all_of(notes, hasNoLanguage)) {
        found.push_back(noted(*notes.front(), reason::noLanguage,
                              R"(has no "langID", like all notes of the part)"));
        return;
    }
    for (const Taken* const each : notes) {
        if (hasNoLanguage(each)) {
            found.push_back(noted(*each, reason::noLanguage, R"(has no "langID")"));
        }
    }
}

void lookForEnds(const Notes& notes, std::int32_t end, std::vector<Finding>& found)
{
    for (const Taken* const each : notes) {
        if (endOf(each) > end) {
            found.push_back(noted(*each, reason::beyondEnd,
                                  fmt::format("ends at {}, but the part at {}", endOf(each), end)));
        }
    }
}

void lookForOverlaps(Notes notes, std::vector<Finding>& found)
{
    std::ranges::stable_sort(notes, {}, [](const Taken* each) { return each->note->pos(); });
    const Taken* last = nullptr; // the one that ends last
    for (const Taken* const each : notes) {
        if (last != nullptr && each->note->pos() < endOf(last)) {
            found.push_back(noted(*each, reason::overlap, "begins before " + last->path + " ends"));
        }
        if (last == nullptr || endOf(each) > endOf(last)) {
            last = each;
        }
    }
}

} // namespace

std::vector<Finding> noteworthyOf(own::PartBase& part, const std::vector<Taken>& taken)
{
    std::vector<Finding> found;
    if (const own::MidiPartBase* const midi = part.asMidiPartBase()) {
        const std::string list = '/' + std::string(own::part_type::name(part.type())) + "/notes";
        Notes notes;
        for (const Taken& each : taken) {
            if (each.note != nullptr && isBelow(each.path, list)) {
                notes.push_back(&each);
            }
        }
        lookForLanguages(notes, found);
        lookForEnds(notes, midi->duration(), found);
        lookForOverlaps(std::move(notes), found);
    }
    return found;
}

} // namespace plxclip::check
