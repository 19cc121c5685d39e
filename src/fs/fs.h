// The only door to the operating system. Above it a path is UTF-16 text with backslashes, on every
// platform; what a call does to a path before the system sees it stays behind this header.
// Nothing here throws except when memory runs out.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

#include "fs/patience.h"
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

// A path that begins with what a host has given. A system may take that part with some freedom, as it
// takes all paths of its users: Windows drops blanks and dots at the end. The names behind it, from the
// file system or from the library, mean just what they are. The text is not copied.
struct Path {
    Path(const String& given) : Path(StringView(given)) {} // NOLINT(google-explicit-constructor)
    Path(const Char* given) : Path(StringView(given)) {}   // NOLINT(google-explicit-constructor)
    Path(StringView given) : Path(given, given.size()) {}  // NOLINT(google-explicit-constructor)
    Path(StringView whole, std::size_t given) : text(whole), givenLength(given) {}

    StringView text;
    std::size_t givenLength; // in units; all of the text if that is shorter
};

// The path of the folder, up to the last separator.
inline Path folderOf(const Path& path)
{
    return {parentPath(path.text), path.givenLength};
}

// --- Questions ------------------------------------------------------------------------------------

// Links are followed. A path that cannot be put into the host's form does not exist.
bool exists(const Path& path);
bool isMissing(const Path& path); // nothing is there; what cannot be looked at is not missing
bool isDirectory(const Path& path);
bool isPlainFile(const Path& path); // a regular file or a link to one: no folder, pipe or device

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
// False when memory ran out: for one file, in visit too, or for one folder. The others were visited.
[[nodiscard]] bool forEachFile(const Path& folder, const Visit& visit);

// --- Reading ------------------------------------------------------------------------------------------

enum class ReadResult {
    read,
    notOpened, // also for what is no plain file
    refused,   // it cannot be read to its end, is larger than the limit, or was judged hopeless
};

// What the beginning of a file says about the rest.
enum class Verdict { undecided, worthReading, hopeless };

struct ReadOptions {
    std::uint64_t limit = std::numeric_limits<std::uint64_t>::max(); // in bytes, this many included
    // Asked with what has been read, block by block, until it decides.
    Verdict (*judge)(std::string_view beginning) = nullptr;
    // Where a walk has just found a plain file, to say so saves asking for its kind.
    Kind kind = Kind::unknown;
};

// Reads a plain file to its end, whatever size it reports, into `content`, replacing it. Links are
// followed; pipes and devices are not opened. A file that was changed a moment ago may be in the
// middle of a change: it is read again when the program that changes it has let it go, or when the
// patience is used up.
ReadResult readFile(const Path& path, std::string& content, const ReadOptions& options,
                    Patience& patience);

// --- Changes ----------------------------------------------------------------------------------------

// Makes the folder and its missing ancestors, and waits until the disk has them. True when it is a
// folder afterwards.
bool createDirectories(const Path& path);

// Removes a folder if it is empty; never a link to one. False also when there is no memory.
bool removeEmptyFolder(const Path& path);

enum class WriteResult {
    written,
    notOpened, // nothing was changed
    failed,    // nothing is left of it, unless nothing can be deleted
};

// Something of the system that is held open; each platform has its own.
struct OpenFolder;
struct OpenFile;

// A file in an open folder that is about to be changed or removed. While this lives, other programs
// that ask first leave the file alone.
class HeldFile {
public:
    enum class State {
        held,    // locked, or the file system knows no locks
        missing, // there is nothing of that name
        refused, // it is a link, is no plain file, or cannot be opened
        busy,    // another program holds it, and the patience is used up
    };

    explicit HeldFile(State state); // without a file: not for `held`
    explicit HeldFile(std::unique_ptr<OpenFile> file);
    HeldFile(HeldFile&&) noexcept;
    ~HeldFile();

    [[nodiscard]] State state() const { return state_; }

    // The following are for a file that is held, and was opened for change.

    // From its beginning.
    ReadResult read(std::string& content, std::uint64_t limit);

    // Writes `content` over what stands at `place`, and beyond the end, in one call of the system where
    // that takes it whole. False when not all of it was written.
    bool write(std::uint64_t place, std::string_view content);

    // Cuts off what lies beyond `size`.
    bool cut(std::uint64_t size);

    // Waits until the disk has it. True also on file systems that cannot tell.
    bool sync();

    // Whether the path leads to this very file. Links on the way are followed, one at its end is not.
    // False also when there is no memory to tell: it is asked when the change can still be taken back.
    [[nodiscard]] bool isAt(const Path& path) const;

private:
    friend class Folder;

    State state_;
    std::unique_ptr<OpenFile> file_;
};

// A folder that is held open. What is done by its name is done in this very folder, whatever takes the
// folder's place meanwhile, and never through a link: a name that is a link means the link.
// A name is one name, not a path.
class Folder {
public:
    // Links are followed. A folder that cannot be opened is closed.
    static Folder open(const Path& path);

    Folder() noexcept; // closed
    Folder(Folder&&) noexcept;
    Folder& operator=(Folder&&) noexcept;
    ~Folder();

    [[nodiscard]] bool isOpen() const { return folder_ != nullptr; }

    // The following are for a folder that is open.

    // A folder in it; closed when there is none, or a link.
    [[nodiscard]] Folder inner(StringView name) const;

    // The same, made if it is missing. When it cannot be opened, it is not left behind.
    Folder make(StringView name) const;

    // Makes a file where nothing is yet, and waits until the disk has its content. After a failure it
    // goes again; what another program has put in its place meanwhile stays.
    WriteResult create(StringView name, std::string_view content) const;

    // The same, with what a plain file elsewhere holds. Links to it are followed; pipes and devices are
    // not opened.
    WriteResult copyInto(StringView name, const Path& from) const;

    ReadResult read(StringView name, std::string& content, std::uint64_t limit) const;

    // Takes a file for a change, or only for its removal. Or makes an empty one where nothing is yet,
    // and takes it for a change: between its making and its holding another program may have taken it,
    // and then it is theirs.
    enum class Purpose { change, removal, making };
    HeldFile hold(StringView name, Purpose purpose, Patience& patience) const;

    // Removes one file, one link or one empty folder.
    bool remove(StringView name) const;

    // Removes the file that is held, if the name still means it. Takes no memory.
    void removeHeld(StringView name, const HeldFile& file) const;

    // Removes a file, a link, or a folder with everything in it; links inside are removed, not
    // followed. False when anything is left, hence true when there was nothing.
    bool removeTree(StringView name) const;

    // Whether nothing of that name is there; what cannot be looked at is not missing.
    [[nodiscard]] bool isMissing(StringView name) const;

    // Waits until the disk has what was made and removed in it. True also on file systems that cannot
    // tell.
    bool sync() const;

private:
    explicit Folder(std::unique_ptr<OpenFolder> folder) noexcept;

    std::unique_ptr<OpenFolder> folder_;
};

// --- Identity -------------------------------------------------------------------------------------------

// A new random UUID: 36 characters, lower-case hexadecimal, 8-4-4-4-12. Empty when the system has no
// randomness to give.
String newUuid();

} // namespace Korvel::CANTORIS::PLX::fs
