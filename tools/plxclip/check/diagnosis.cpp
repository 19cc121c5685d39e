#include "check/diagnosis.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>

#include "check/document.h"
#include "clip_names.h"
#include "format/limits.h"
#include "format/read.h"
#include "letters.h"
#include "model/codes.h"
#include "model/note.h"
#include "paths.h"

namespace plxclip::check {

namespace fs = std::filesystem;

namespace {

// On a system that tells capital letters from small ones the name must match exactly.
std::string similarName(const fs::path& folder)
{
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        const std::string name = textOf(entry.path().filename());
        if (lowerCase(name) == propertyName) {
            return fmt::format("; \"{}\" is not looked at, capital letters count", name);
        }
    }
    return {};
}

// --- What loses nothing, and may be a mistake all the same --------------------------------------------

using format::Taken;

bool hasNoLanguage(const Taken& each)
{
    return each.note->langID() == KRT_PLX_NO_LANGUAGE;
}

std::int64_t endOf(const Taken& each)
{
    return std::int64_t{each.note->pos()} + each.note->duration();
}

Finding noted(const Taken& note, Reason reason, std::string message)
{
    return {effect::noted, reason, std::move(message), note.place, note.path};
}

// If no note has a language, that is one finding, not one a note.
void lookForLanguages(const std::vector<Taken>& notes, Document& document)
{
    if (notes.size() > 1 && std::ranges::all_of(notes, hasNoLanguage)) {
        document.add(noted(notes.front(), reason::noLanguage,
                           R"(has no "langID", like all notes of the part)"));
        return;
    }
    for (const Taken& each : notes) {
        if (hasNoLanguage(each)) {
            document.add(noted(each, reason::noLanguage, R"(has no "langID")"));
        }
    }
}

// Of notes in the order of their positions.
void lookForPlaces(const std::vector<Taken>& notes, std::int32_t end, Document& document)
{
    const Taken* last = nullptr; // the one that ends last
    for (const Taken& each : notes) {
        if (endOf(each) > end) {
            document.add(noted(each, reason::beyondEnd,
                               fmt::format("ends at {}, but the part at {}", endOf(each), end)));
        }
        if (last != nullptr && each.note->pos() < endOf(*last)) {
            document.add(noted(each, reason::overlap, "begins before " + last->path + " ends"));
        }
        if (last == nullptr || endOf(each) > endOf(*last)) {
            last = &each;
        }
    }
}

void lookAtNotes(const own::MidiPartBase& part, Document& document)
{
    const std::string list = fmt::format("/{}/notes/", own::part_type::name(part.type()));
    std::vector<Taken> notes;
    std::ranges::copy_if(document.allTaken(), std::back_inserter(notes), [&](const Taken& each) {
        return each.note != nullptr && each.path.starts_with(list);
    });
    lookForLanguages(notes, document);
    std::ranges::stable_sort(notes, {}, [](const Taken& each) { return each.note->pos(); });
    lookForPlaces(notes, part.duration(), document);
}

// --- Both documents -----------------------------------------------------------------------------------

void examineProperties(const fs::path& folder, Document& document, Diagnosis& result)
{
    const fs::path file = folder / propertyName;
    std::error_code error;
    if (!fs::exists(file, error)) {
        document.add({effect::refused, reason::missingDocument,
                      "there is none beside the clip file" + similarName(folder)});
    } else if (document.load(file, format::propertyDocumentLimit)) {
        result.isListable =
            format::DocumentReader().readProperties(document.copy(), result.properties, &document);
        result.id = document.placeOf("/id");
    }
}

// A catalogue shows the type of the property document, but a host sees the part of the clip file.
void compareTypes(Document& properties, const Diagnosis& result)
{
    const std::uint32_t shown = result.properties.partType;
    if (result.part == nullptr || result.part->type() == shown) {
        return;
    }
    Finding finding = properties.placeOf("/part/type");
    finding.effect = effect::noted;
    finding.reason = reason::otherType;
    finding.message =
        fmt::format(R"("{}" is shown in a catalogue, but the part of the clip file is "{}")",
                    own::part_type::name(shown), own::part_type::name(result.part->type()));
    properties.add(std::move(finding));
}

// Of a clip that is not listable by its properties, the clip file says everything.
void examineClipFile(const fs::path& file, Document& properties, Document& document,
                     Diagnosis& result)
{
    if (!document.load(file, format::dataDocumentLimit)) {
        return;
    }
    const auto directory = libraryPath(textOf(file.parent_path()));
    format::DocumentReader reader;
    if (result.isListable) {
        result.part = reader.readPart(document.copy(), directory, nullptr, &document);
        compareTypes(properties, result);
    } else {
        format::LoadedClip clip;
        result.isListable = reader.readClip(document.copy(), directory, nullptr, clip, &document);
        result.properties = std::move(clip.properties);
        result.part = std::move(clip.part);
        result.id = document.placeOf("/id");
    }
    if (own::MidiPart* const midi = result.part ? result.part->asMidiPart() : nullptr) {
        lookAtNotes(*midi, document);
    }
}

} // namespace

Diagnosis diagnose(const fs::path& clipFile)
{
    Document properties(propertyName);
    Document data("");
    Diagnosis result;
    examineProperties(clipFile.parent_path(), properties, result);
    examineClipFile(clipFile, properties, data, result);
    result.findings = properties.findings();
    std::ranges::move(data.findings(), std::back_inserter(result.findings));
    return result;
}

} // namespace plxclip::check
