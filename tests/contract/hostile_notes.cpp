#include "hostile_shapes.h"

namespace hostile {
namespace {

using support::count;
using support::jsonString;
using support::noteObject;
using support::Object;
using support::utf8;

std::string notesAt(std::size_t size, const std::function<std::size_t(std::size_t)>& position)
{
    return part("notes", arrayOf(size, [&](std::size_t i) {
                    return "{\"lyric\":\"" + std::to_string(i) +
                           "\",\"phoneme\":\"a\",\"duration\":9,\"number\":60,\"velocity\":64,"
                           "\"pos\":" +
                           std::to_string(position(i)) + "}";
                }));
}

std::string notesReversed(std::size_t size)
{
    return notesAt(size, [size](std::size_t i) { return size - 1 - i; });
}

std::string notesAtOnePosition(std::size_t size)
{
    return notesAt(size, [](std::size_t) { return 480; });
}

// From both ends in turn: 0, n-1, 1, n-2, ...
std::string notesFromBothEnds(std::size_t size)
{
    return notesAt(size, [size](std::size_t i) { return i % 2 == 0 ? i / 2 : size - 1 - i / 2; });
}

std::string members(std::size_t size, const std::function<std::string(std::size_t)>& key)
{
    std::string result;
    for (std::size_t i = 0; i < size; ++i) {
        result += "\"" + key(i) + "\":" + std::to_string(i) + ",";
    }
    return result;
}

std::string unknownKeys(std::size_t size)
{
    const std::string unknown = members(size, name);
    const std::string note = "{" + unknown + noteObject().text().substr(1);
    return "{" + unknown + part("notes", "[" + note + "]").substr(1);
}

std::string repeatedKeys(std::size_t size)
{
    const std::string again = members(size, [](std::size_t) { return "velocity"; });
    const std::string note = noteObject();
    return part("notes", "[" + note.substr(0, note.size() - 1) + "," + again + "\"x\":0}]");
}

std::string longTexts(std::size_t size)
{
    std::string escapes;
    for (std::size_t i = 0; i < size / 6; ++i) {
        escapes += "\\u685c";
    }
    const Object note = noteObject()
                            .with("lyric", jsonString(std::string(size, 'x')))
                            .with("phoneme", jsonString(escapes))
                            .with(std::string(size, 'k'), "1");
    return part("notes", "[" + note.text() + "]");
}

void expectNotes(KRT_PLX_PartBase* part, std::size_t size,
                 const std::function<std::size_t(std::size_t)>& placeInFile)
{
    ASSERT_EQ(count(KRT_PLX_MidiPartBase_numNotes, part), size);
    for (std::size_t i = 0; i < size; ++i) {
        KRT_PLX_NoteBase* note = KRT_PLX_MidiPart_note(part, i);
        ASSERT_EQ(utf8(KRT_PLX_NoteBase_lyric(note)), std::to_string(placeInFile(i))) << i;
    }
}

void expectNotesReversed(KRT_PLX_PartBase* part, std::size_t size)
{
    expectNotes(part, size, [size](std::size_t i) { return size - 1 - i; });
}

void expectNotesInFileOrder(KRT_PLX_PartBase* part, std::size_t size)
{
    expectNotes(part, size, [](std::size_t i) { return i; });
}

void expectNotesFromBothEnds(KRT_PLX_PartBase* part, std::size_t size)
{
    const std::size_t half = (size + 1) / 2;
    expectNotes(part, size, [=](std::size_t i) { return i < half ? 2 * i : 2 * (size - i) - 1; });
}

void expectOneNote(KRT_PLX_PartBase* part, std::size_t)
{
    ASSERT_EQ(count(KRT_PLX_MidiPartBase_numNotes, part), 1u);
    EXPECT_EQ(KRT_PLX_NoteBase_velocity(KRT_PLX_MidiPart_note(part, 0)), 64u);
}

void expectLongTexts(KRT_PLX_PartBase* part, std::size_t size)
{
    KRT_PLX_NoteBase* note = KRT_PLX_MidiPart_note(part, 0);
    EXPECT_TRUE(utf8(KRT_PLX_NoteBase_lyric(note)) == std::string(size, 'x'));
    const std::string phoneme = utf8(KRT_PLX_NoteBase_phoneme(note));
    EXPECT_EQ(phoneme.size(), size / 6 * 3);
    EXPECT_EQ(phoneme.substr(phoneme.size() - 3), "桜");
}

} // namespace

std::vector<Shape> noteShapes()
{
    return {{"NotesReversed", 100000, notesReversed, expectNotesReversed},
            {"NotesAtOnePosition", 100000, notesAtOnePosition, expectNotesInFileOrder},
            {"NotesFromBothEnds", 100000, notesFromBothEnds, expectNotesFromBothEnds},
            {"UnknownKeys", 50000, unknownKeys, expectOneNote},
            {"RepeatedKeys", 50000, repeatedKeys, expectOneNote},
            {"LongTexts", 3000000, longTexts, expectLongTexts}};
}

} // namespace hostile
