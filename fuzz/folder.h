// A clip folder in a scratch place, and a manager that scans it: made once, written for every input.
#pragma once

#include <string>
#include <string_view>

#include <korvel/plx.h>

#include "input.h"
#include "support/files.h"

namespace fuzz {

class Folder {
public:
    Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder();

    // Writes a document into the clip's folder, or takes it away.
    void write(std::string_view name, std::string_view bytes);
    void remove(std::string_view name);

    // The only user clip after reading anew, or null.
    KRT_PLX_ClipBase* readUserClip();

    [[nodiscard]] KRT_PLX_Manager* manager() const { return manager_; }
    [[nodiscard]] support::Path clipFolder() const { return scratch_.path() / "user" / "clip"; }

private:
    support::ScratchFolder scratch_;
    KRT_PLX_Manager* manager_;
};

inline constexpr std::string_view propertyFile = "property.json";
inline constexpr std::string_view dataFile = "clip.kxclip";

// The first byte of an input chooses the encoding of the document that follows. Text that cannot be
// stored in that encoding, and one choice in eight, stays as it is.
struct EncodedDocument {
    std::string_view text;
    std::string bytes;
    bool isComparable; // with the reading of the text itself
};
EncodedDocument takeDocument(Input& input);

} // namespace fuzz
