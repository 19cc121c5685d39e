// The only door to the operating system. Above it a path is UTF-16 text with backslashes, on every
// platform; what a call does to a path before the system sees it stays behind this header.
// Nothing here throws except for want of memory.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "text.h"

namespace Korvel::CANTORIS::PLX::fs {

// --- Path logic: pure text, backslashes only -----------------------------------------------------

inline constexpr Char separator = static_cast<Char>('\\');

// Everything up to the last separator, without it; the empty text when there is none.
StringView parentPath(StringView path);

// Everything after the last separator; the empty text when there is none.
StringView fileName(StringView path);

// From the last dot anywhere in the path to its end; the empty text when there is none.
StringView extension(StringView path);

// The two joined by one separator.
String join(StringView folder, StringView name);

// --- Questions ------------------------------------------------------------------------------------

// Links are followed. A path that cannot be put into the host's form does not exist.
bool exists(const String& path);
bool isMissing(const String& path); // nothing is there; what cannot be looked at is not missing
bool isDirectory(const String& path);
bool isPlainFile(const String& path); // a regular file or a link to one: no folder, pipe or device

// True when both exist and, with links resolved, `path` lies strictly below `folder`.
bool isStrictlyBelow(const String& path, const String& folder);

// --- Listing ----------------------------------------------------------------------------------------

class Listing;

// Whether what a path names is a plain file.
enum class Kind { unknown, plain };

// What a walk has learned about the folder of the file that it visits.
class Neighbours {
public:
    explicit Neighbours(const Listing& listing) : listing_(listing) {}

    // Plain for a plain file of that name among the first few of the folder. It may well be one where
    // this says unknown: in a large folder, to look for it would cost more than to ask the system.
    [[nodiscard]] Kind kindOf(StringView name) const;

private:
    const Listing& listing_;
};

using Visit = std::function<void(const String& path, const Neighbours& neighbours)>;

// Calls visit for each plain file below the folder, in the order in which the file system lists
// them; a sub-folder is descended into at its place in that order. A link counts as what it leads to,
// except that a link to a folder is passed over when that folder is being listed above it, or when
// an earlier link has led there already: links in a ring would never end, and links side by side
// would multiply without bound. Names that are no valid text and special files are passed over; a
// folder that cannot be listed counts as empty.
// Path and neighbours are good until visit returns.
void forEachFile(const String& folder, const Visit& visit);

// --- Changes ----------------------------------------------------------------------------------------

// Makes the folder and its missing ancestors. True when it is a folder afterwards.
bool createDirectories(const String& path);

// Removes one file, one link (never what it leads to) or one empty folder.
bool remove(const String& path);

// Removes a folder if it is empty; never a link to one.
bool removeEmptyFolder(const String& path);

// Removes a file, a link, or a folder with everything in it; links inside are removed, not followed.
// False when anything is left, hence true when there was nothing.
bool removeTree(const String& path);

// --- Contents -----------------------------------------------------------------------------------------

// Reads a plain file whole into `content`, replacing it. False when it is missing, is no plain file
// (pipes and devices are not opened), or cannot be read to its end. Where a walk has just found a plain
// file, to say so saves asking for its kind.
bool readFile(const String& path, std::string& content, Kind kind = Kind::unknown);

enum class WriteResult {
    written,
    notOpened, // nothing was changed
    failed,    // the file was opened, hence emptied; it holds what was written before the failure
};

// Replaces the file's content. Only a write whose every step succeeded, closing included, is written.
WriteResult writeFile(const String& path, std::string_view content);

// Copies a plain file byte for byte to a path where nothing is yet. What a failed copy has written
// is left there.
bool copyFile(const String& from, const String& to);

// --- Identity -------------------------------------------------------------------------------------------

// A new random UUID: 36 characters, lower-case hexadecimal, 8-4-4-4-12. Empty when the system has no
// randomness to give.
String newUuid();

} // namespace Korvel::CANTORIS::PLX::fs
