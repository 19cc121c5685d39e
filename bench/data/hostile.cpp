#include "data/hostile.h"

#include <functional>
#include <map>
#include <stdexcept>
#include <vector>

#include "data/json_text.h"
#include "data/random.h"

namespace bench {

namespace {

std::vector<std::size_t> shuffledNumbers(std::size_t count)
{
    std::vector<std::size_t> numbers(count);
    for (std::size_t i = 0; i < count; ++i) {
        numbers[i] = i;
    }
    Random(count).shuffle(numbers);
    return numbers;
}

std::int64_t position(std::size_t index)
{
    return static_cast<std::int64_t>(index) * 10;
}

void writeParameter(JsonText& out, std::size_t number)
{
    out.beginObject();
    out.key("name").string("parameter " + std::to_string(number));
    out.key("value").real(0.5);
    out.endObject();
}

void writeNote(JsonText& out, std::int64_t pos)
{
    out.beginObject();
    out.key("lyric").string("ラ");
    out.key("phoneme").string("4 a");
    out.key("pos").integer(pos);
    out.key("duration").integer(10);
    out.key("number").integer(60);
    out.key("velocity").integer(64);
    out.endObject();
}

void writePoint(JsonText& out, std::int64_t pos)
{
    out.beginObject();
    out.key("pos").integer(pos);
    out.key("value").integer(pos % 128);
    out.endObject();
}

void writeUnknownKeys(JsonText& out, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        out.key("unknown " + std::to_string(i)).integer(1);
    }
}

void writeNesting(JsonText& out, std::size_t depth)
{
    out.key("deep");
    for (std::size_t i = 0; i < depth; ++i) {
        out.beginArray();
    }
    for (std::size_t i = 0; i < depth; ++i) {
        out.endArray();
    }
}

void writeEffects(JsonText& out, std::size_t count, bool distinct)
{
    out.key("audioEffects").beginArray();
    for (std::size_t i = 0; i < count; ++i) {
        out.beginObject();
        out.key("id").string("effect " + std::to_string(distinct ? i : 0));
        out.endObject();
    }
    out.endArray();
}

void writeParameters(JsonText& out, std::size_t count)
{
    out.key("midiEffects").beginArray();
    out.beginObject();
    out.key("id").string("effect");
    out.key("parameters").beginArray();
    for (const std::size_t number : shuffledNumbers(count)) {
        writeParameter(out, number);
    }
    out.endArray();
    out.endObject();
    out.endArray();
}

void writeNotes(JsonText& out, std::size_t count, bool onePosition)
{
    out.key("notes").beginArray();
    for (std::size_t i = count; i > 0; --i) {
        writeNote(out, onePosition ? 0 : position(i));
    }
    out.endArray();
}

void writeEvents(JsonText& out, std::size_t count, bool onePosition)
{
    out.key("controllers").beginArray();
    out.beginObject();
    out.key("name").string("dynamics");
    out.key("events").beginArray();
    for (const std::size_t number : shuffledNumbers(count)) {
        writePoint(out, onePosition ? 0 : position(number));
    }
    out.endArray();
    out.endObject();
    out.endArray();
}

// Its duration reaches over all points.
void writeNoteWithVibrato(JsonText& out, std::size_t count)
{
    out.key("notes").beginArray();
    out.beginObject();
    out.key("lyric").string("ラ");
    out.key("phoneme").string("4 a");
    out.key("pos").integer(0);
    out.key("duration").integer(position(count));
    out.key("number").integer(60);
    out.key("velocity").integer(64);
    out.key("vibrato").beginObject();
    out.key("duration").integer(position(count));
    out.key("depths").beginArray();
    for (const std::size_t number : shuffledNumbers(count)) {
        writePoint(out, position(number));
    }
    out.endArray();
    out.endObject();
    out.endObject();
    out.endArray();
}

// In the part and in a note of it: what is known comes last.
void writeUnknown(JsonText& out, std::size_t count)
{
    writeUnknownKeys(out, count / 2);
    out.key("notes").beginArray();
    out.beginObject();
    writeUnknownKeys(out, count / 2);
    out.endObject();
    out.endArray();
}

using WriteContent = std::function<void(JsonText&, std::size_t)>;

const std::map<std::string_view, WriteContent>& contents()
{
    static const std::map<std::string_view, WriteContent> byKind{
        {"effects with distinct IDs", [](auto& out, auto n) { writeEffects(out, n, true); }},
        {"effects with one ID", [](auto& out, auto n) { writeEffects(out, n, false); }},
        {"parameters of one effect", writeParameters},
        {"notes in reverse order", [](auto& out, auto n) { writeNotes(out, n, false); }},
        {"notes at one position", [](auto& out, auto n) { writeNotes(out, n, true); }},
        {"events of one lane", [](auto& out, auto n) { writeEvents(out, n, false); }},
        {"events at one position", [](auto& out, auto n) { writeEvents(out, n, true); }},
        {"vibrato points", writeNoteWithVibrato},
        {"unknown keys", writeUnknown},
        {"deep nesting", writeNesting}};
    return byKind;
}

void writeTags(JsonText& out, std::size_t count)
{
    out.key("filter").beginObject();
    out.key("types").beginArray();
    for (const std::size_t number : shuffledNumbers(count)) {
        out.string("type " + std::to_string(number));
    }
    out.endArray();
    out.endObject();
}

} // namespace

std::string hostileDataDocument(std::string_view kind, std::size_t count)
{
    JsonText out;
    out.beginObject();
    out.key("midi").beginObject();
    contents().at(kind)(out, count);
    out.key("duration").integer(1);
    out.key("voice").beginObject();
    out.key("compID").string("BCXDC6CZLSZHZCB4");
    out.key("langID").integer(0);
    out.endObject();
    out.endObject();
    out.endObject();
    return out.text();
}

std::string hostilePropertyDocument(std::string_view kind, std::size_t count)
{
    JsonText out;
    out.beginObject();
    if (kind == "filter tags") {
        writeTags(out, count);
    } else if (kind == "unknown property keys") {
        writeUnknownKeys(out, count);
    } else if (kind == "deep property nesting") {
        writeNesting(out, count);
    } else {
        throw std::invalid_argument("unknown kind of hostile property document");
    }
    out.key("id").string("hostile");
    out.key("name").string("Hostile");
    out.key("part").beginObject();
    out.key("type").string("midi");
    out.endObject();
    out.endObject();
    return out.text();
}

} // namespace bench
