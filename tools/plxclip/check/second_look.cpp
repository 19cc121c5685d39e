#include "check/second_look.h"

#include <algorithm>

#include "model/codes.h"
#include "model/fields.h"
#include "model/note.h"

namespace plxclip::check {

namespace {

using format::Taken;

class SecondLook {
public:
    SecondLook(own::MidiPartBase& examined, const std::vector<Taken>& taken) : part(examined)
    {
        const std::string list = '/' + std::string(own::part_type::name(part.type())) + "/notes";
        for (const Taken& each : taken) {
            if (each.note != nullptr && isBelow(each.path, list)) {
                notes.push_back(&each);
            }
        }
    }

    std::vector<Note> take()
    {
        lookForLanguages();
        lookForEnds();
        lookForOverlaps();
        std::stable_sort(found.begin(), found.end(),
                         [](const Note& a, const Note& b) { return a.place < b.place; });
        return std::move(found);
    }

private:
    void add(const Taken& note, Reason reason, std::string message)
    {
        found.push_back(
            {{Effect::noted, reason, {}, note.path, {}, std::move(message)}, note.place});
    }

    static std::int64_t endOf(const own::NoteBase& note)
    {
        return std::int64_t{note.pos()} + note.duration();
    }

    // Where no note has a language, that is one finding and not one a note.
    void lookForLanguages()
    {
        const auto hasNone = [](const Taken* each) {
            return each->note->langID() == KRT_PLX_NO_LANGUAGE;
        };
        if (notes.size() > 1 && std::all_of(notes.begin(), notes.end(), hasNone)) {
            add(*notes.front(), Reason::noLanguage,
                R"(has no "langID", like all notes of the part)");
            return;
        }
        for (const Taken* const each : notes) {
            if (hasNone(each)) {
                add(*each, Reason::noLanguage, R"(has no "langID")");
            }
        }
    }

    void lookForEnds()
    {
        for (const Taken* const each : notes) {
            if (endOf(*each->note) > part.duration()) {
                add(*each, Reason::beyondEnd,
                    "ends at " + std::to_string(endOf(*each->note)) + ", but the part at " +
                        std::to_string(part.duration()));
            }
        }
    }

    void lookForOverlaps()
    {
        std::stable_sort(notes.begin(), notes.end(), [](const Taken* a, const Taken* b) {
            return a->note->pos() < b->note->pos();
        });
        const Taken* last = nullptr; // the one that ends last
        for (const Taken* const each : notes) {
            if (last != nullptr && each->note->pos() < endOf(*last->note)) {
                add(*each, Reason::overlap, "begins before " + last->path + " ends");
            }
            if (last == nullptr || endOf(*each->note) > endOf(*last->note)) {
                last = each;
            }
        }
    }

    own::MidiPartBase& part;
    std::vector<const Taken*> notes;
    std::vector<Note> found;
};

} // namespace

std::vector<Note> noteworthyOf(own::PartBase& part, const std::vector<Taken>& taken)
{
    own::MidiPartBase* const midi = part.asMidiPartBase();
    return midi != nullptr ? SecondLook(*midi, taken).take() : std::vector<Note>();
}

} // namespace plxclip::check
