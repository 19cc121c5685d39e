// Saving, for tests: clips that lack nothing, the documents they make, and the disk before and after.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "support/host.h"

namespace support {

// What stands below a folder: the bytes of each file, by its path within the folder. A folder's own
// path ends with a slash. Links are named and not followed.
using Tree = std::map<std::string, std::string>;
Tree treeOf(const Path& folder);

// Identifiers of voice banks have this length.
inline constexpr std::string_view voiceBankID = "ABCDEFGHIJKLMNOP";

// Parts with nothing in them but what saving asks for.
KRT_PLX_PartBase* createMidiPart(KRT_PLX_ClipBase* clip);
KRT_PLX_PartBase* createMidiAiPart(KRT_PLX_ClipBase* clip);
KRT_PLX_PartBase* createAudioPart(KRT_PLX_ClipBase* clip, const Path& waveFile);

// Code units as they are, for names that are no valid text.
Text units(std::initializer_list<unsigned> values);

enum class Form { compact, indented };

struct SaveResult {
    KRT_PLX_ClipBase* clip;
    std::uint32_t code;
};

// The code starts as one that saving never writes.
SaveResult save(KRT_PLX_ClipBase* clip, const Text& name, Form form = Form::compact);
SaveResult save(KRT_PLX_ClipBase* clip, std::string_view name = "Name", Form form = Form::compact);

// The text with every occurrence of a part of it replaced.
std::string replaced(std::string text, std::string_view part, std::string_view replacement);

} // namespace support

// An empty editable clip, and what becomes of it when it is saved.
class SaveTest : public HostTest {
protected:
    struct Documents {
        std::string properties;
        std::string data;
    };

    // A file outside the clip directories.
    support::Path addWaveFile(std::string_view name = "take.wav", std::string_view bytes = "RIFF");

    support::Path folderOf(KRT_PLX_ClipBase* savedClip);

    // The documents of a clip that was saved, with the word ID in place of its ID.
    Documents documentsOf(KRT_PLX_ClipBase* savedClip);

    // Saves the clip, which must succeed, and returns its documents.
    Documents save(support::Form form = support::Form::compact);

    // Saves the clip, which must fail with that code, write nothing and leave the catalogue alone.
    void expectRefused(std::uint32_t code, const support::Text& name = support::text("Name"));

    KRT_PLX_ClipBase* const clip = createMutableClip();
};
