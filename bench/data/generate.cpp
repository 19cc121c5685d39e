#include "data/generate.h"

#include <array>
#include <cstdio>
#include <string>

#include "data/clips.h"
#include "data/documents.h"
#include "data/files.h"
#include "data/hostile.h"
#include "data/parts.h"

namespace bench {

namespace {

// To be raised whenever this file or the makers of its content change what they make.
constexpr int version = 3;

constexpr std::size_t clipsPerPack = 50;
constexpr std::size_t templateCount = 64;
constexpr std::size_t firstUserClip = 1000000;
constexpr std::size_t firstSharedClip = 2000000;

// 10 to 40 KB.
std::size_t templateNotes(std::size_t index)
{
    return 8 + index * 27 / templateCount;
}

// 28 KB.
constexpr std::size_t ordinaryNotes = 26;

std::string numbered(const char* word, std::size_t number)
{
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%s-%03zu", word, number);
    return text.data();
}

Path templateFile(const DataFolder& data, std::size_t index)
{
    return data.root() / "templates" / (numbered("part", index % templateCount) + ".kxclip");
}

void writeTemplates(const DataFolder& data)
{
    std::filesystem::create_directories(data.root() / "templates");
    for (std::size_t i = 0; i < templateCount; ++i) {
        const Part part = makePart({.notes = templateNotes(i)}, i);
        writeFile(templateFile(data, i), dataDocument(numbered("part", i), "Part", part));
    }
}

void writeClip(const Path& folder, const Clip& clip, const Path& document, const std::string& file)
{
    std::filesystem::create_directories(folder);
    writeFile(folder / "property.json", propertyDocument(clip));
    linkFile(document, folder / file);
}

void writeLibrary(const DataFolder& data)
{
    for (std::size_t i = 0; i < data.size().scans.back(); ++i) {
        const Path pack =
            data.vendor(i / clipsPerVendor) / numbered("pack", i % clipsPerVendor / clipsPerPack);
        writeClip(pack / numbered("clip", i % clipsPerPack), makeClip(i), templateFile(data, i),
                  "clip.kxclip");
    }
}

void writeUserClips(const DataFolder& data)
{
    for (std::size_t i = 0; i < data.size().userClips; ++i) {
        writeUserClip(data, makeUserClip(i));
    }
}

// Clips that share a data document.
void writeShared(const DataFolder& data, const std::string& name, const std::string& document,
                 std::size_t count = 1)
{
    for (std::size_t i = 0; i < count; ++i) {
        const Path folder = data.clips(name) / std::to_string(i);
        std::filesystem::create_directories(folder);
        writeFile(folder / "property.json", propertyDocument(makeClip(firstSharedClip + i)));
        if (i == 0) {
            writeFile(data.document(name), document);
        } else {
            linkFile(data.document(name), folder / "clip.kxclip");
        }
    }
}

void writeParts(const DataFolder& data)
{
    const PartShape big{.notes = data.size().bigNotes};
    const PartShape ordinary{.notes = ordinaryNotes};
    const PartShape notes{.notes = data.size().builtNotes, .hasLanes = false, .hasEffects = false};
    PartShape dvqm = notes;
    dvqm.ornament = Ornament::dvqm;
    writeShared(data, "ordinary", dataDocument("ordinary", "Ordinary", makePart(ordinary, 1)),
                ordinaryCopies);
    writeShared(data, "big", dataDocument("big", "Big", makePart(big, 2)));
    writeShared(data, "notes", dataDocument("notes", "Notes", makePart(notes, 3)));
    writeShared(data, "dvqm", dataDocument("dvqm", "Dvqm", makePart(dvqm, 4)));
}

void writeHostile(const DataFolder& data)
{
    for (const std::size_t count : {data.size().hostile, data.size().hostile * 10}) {
        for (const char* const kind : hostileParts) {
            writeShared(data, hostileName(kind, count), hostileDataDocument(kind, count));
        }
        for (const char* const kind : hostileProperties) {
            const std::string name = hostileName(kind, count);
            writeShared(data, name, "{}");
            writeFile(data.clips(name) / "0" / "property.json",
                      hostilePropertyDocument(kind, count));
        }
    }
}

std::string stamp(const Size& size)
{
    return "version " + std::to_string(version) + ", " + std::to_string(size.scans.back()) +
           " clips\n";
}

bool isComplete(const Path& stampFile, const std::string& expected)
{
    return std::filesystem::exists(stampFile) && readFile(stampFile) == expected;
}

} // namespace

Clip makeUserClip(std::size_t index)
{
    return makeClip(firstUserClip + index);
}

void writeUserClip(const DataFolder& data, const Clip& clip)
{
    writeClip(data.user() / clip.id, clip, templateFile(data, clip.partTempo), clip.id + ".kxclip");
}

void generate(const DataFolder& data)
{
    const Path stampFile = data.root() / "complete";
    const std::string expected = stamp(data.size());
    if (isComplete(stampFile, expected)) {
        return;
    }
    for (const char* const part : {"library", "user", "clips", "templates", "complete"}) {
        std::filesystem::remove_all(data.root() / part);
    }
    std::filesystem::create_directories(data.emptyFolder());
    writeTemplates(data);
    writeLibrary(data);
    writeUserClips(data);
    writeParts(data);
    writeHostile(data);
    writeFile(stampFile, expected);
}

} // namespace bench
