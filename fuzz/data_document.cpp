// Any bytes as the data document of a clip: standing alone, and beside a property document; in one of
// the encodings, compared with the reading in UTF-8.
#include "folder.h"
#include "walk.h"

namespace fuzz {

namespace {

constexpr std::string_view properties = R"({"id": "ID", "name": "Name", "part": {"type": "midi"}})";

Folder& dataFolder()
{
    static Folder one;
    static const bool isFilled =
        (support::writeFile(one.clipFolder() / "audio" / "take.wav", "RIFF"), true);
    static_cast<void>(isFilled);
    return one;
}

// What came of a document: whether it was taken, and what its part is.
struct Reading {
    bool taken = false;
    std::uint64_t part = 0;
    std::uint64_t all = 0;

    bool operator==(const Reading&) const = default;
};

Reading readingOf(KRT_PLX_ClipBase* clip)
{
    if (clip == nullptr) {
        return {};
    }
    Walk part;
    part.readPart(clip);
    Walk all;
    all.catalogueClip(clip);
    return {true, part.digest(), all.digest()};
}

Reading readWhole(std::string_view bytes)
{
    dataFolder().write(dataFile, bytes);
    dataFolder().remove(propertyFile);
    return readingOf(dataFolder().readUserClip());
}

// Twice, for the second reading takes the place of the first.
Reading readPart()
{
    dataFolder().write(propertyFile, properties);
    KRT_PLX_ClipBase* const clip = dataFolder().readUserClip();
    require(clip != nullptr, "a property document makes a clip");
    const bool taken = KRT_PLX_Clip_readPart(clip);
    const Reading first = readingOf(clip);
    require(KRT_PLX_Clip_readPart(clip) == taken, "a part is read again as it was");
    require(readingOf(clip) == first, "with the same values");
    return {taken, first.part, 0};
}

} // namespace

void runDataDocument(Bytes input)
{
    Input values(input);
    const EncodedDocument document = takeDocument(values);
    const Reading whole = readWhole(document.bytes);
    const Reading part = readPart();
    require(!whole.taken || part.taken, "a document that is taken whole has a part");
    require(!whole.taken || part.part == whole.part, "which is the same when it is read alone");
    if (document.isComparable) {
        require(readWhole(document.text) == whole, "all encodings read alike");
    }
}

} // namespace fuzz
