// The only access to the operating system. Above it a path is UTF-16 text with backslashes, on
// every platform; how paths are converted for the system is hidden behind this header. Nothing here
// throws except when memory runs out.
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

// A path that begins with what a host has passed. The system may read that part as it reads all
// paths of its users: Windows drops blanks and dots at the end. The names after it, from the file
// system or from the library, are used exactly as they are. The text is not copied.
struct Path {
    Path(const String& given) : Path(StringView(given)) {} // NOLINT(google-explicit-constructor)
    Path(const Char* given) : Path(StringView(given)) {}   // NOLINT(google-explicit-constructor)
    Path(StringView given) : Path(given, given.size()) {}  // NOLINT(google-explicit-constructor)
    Path(StringView whole, std::size_t given) : text(whole), givenLength(given) {}

    StringView text;
    std::size_t givenLength; // in units; if it is longer than the text, all of it
};

// The path of the folder, up to the last separator.
inline Path folderOf(const Path& path)
{
    return {parentPath(path.text), path.givenLength};
}

// --- Questions ------------------------------------------------------------------------------------

// Links are followed. A path that cannot be converted for the system does not exist.
bool exists(const Path& path);
bool isMissing(const Path& path); // nothing is there; false if that cannot be found out
bool isDirectory(const Path& path);
bool isPlainFile(const Path& path); // a regular file or a link to one, not a folder, pipe or device

// --- Listing ----------------------------------------------------------------------------------------

class Listing;

// Whether what a path names is a plain file.
enum class Kind { unknown, plain };

// What a walk already knows about the folder of the file that it visits.
class Neighbours {
public:
    explicit Neighbours(const Listing& listing) : listing_(listing) {}

    // Plain if one of the first few entries of the folder is a plain file of that name. `unknown`
    // says nothing: in a large folder, searching for the name would take longer than asking the
    // system.
    [[nodiscard]] Kind kindOf(StringView name) const;

private:
    const Listing& listing_;
};

using Visit = std::function<void(const String& path, const Neighbours& neighbours)>;

// Calls visit for each plain file below the folder, in the order in which the file system lists
// them; a sub-folder is entered at its place in that order. A link counts as what it leads to, but a
// link to a folder is skipped when that folder is being listed above it, or when an earlier link has
// led to it: links in a ring would never end, and links side by side would multiply without limit.
// Special files and files whose names are not valid text are skipped; a folder that cannot be listed
// counts as empty.
// Path and neighbours are valid until visit returns.
// False when memory ran out for a file, in visit too, or for a folder; the others were visited.
[[nodiscard]] bool forEachFile(const Path& folder, const Visit& visit);

// --- Reading ------------------------------------------------------------------------------------------

enum class ReadResult {
    read,
    notOpened, // also when it is not a plain file
    refused,   // it cannot be read to its end, exceeds the limit, or was judged hopeless
};

// What the beginning of a file says about the rest.
enum class Verdict { undecided, worthReading, hopeless };

struct ReadOptions {
    std::uint64_t limit = std::numeric_limits<std::uint64_t>::max(); // in bytes, inclusive
    // Called with what has been read, block by block, until it decides.
    Verdict (*judge)(std::string_view beginning) = nullptr;
    // `plain` when a walk has just found a plain file, which saves asking the system for its kind.
    Kind kind = Kind::unknown;
};

// Reads a plain file to its end, whatever size it reports, into `content`, replacing it. Links are
// followed; pipes and devices are not opened. A file that was changed a moment ago may be in the
// middle of a change: it is read again when the program that changes it releases its lock, or when
// the patience is used up.
ReadResult readFile(const Path& path, std::string& content, const ReadOptions& options,
                    Patience& patience);

// --- Changes ----------------------------------------------------------------------------------------

// Makes the folder and its missing parents, and waits until they are on the disk. True when it is a
// folder afterwards.
bool createDirectories(const Path& path);

// Removes a folder if it is empty; never a link to one. False also when memory runs out.
bool removeEmptyFolder(const Path& path);

enum class WriteResult {
    written,
    notOpened, // nothing was changed
    failed,    // nothing is left of it, unless nothing can be deleted
};

// An open file or folder of the system; each platform has its own.
struct OpenFolder;
struct OpenFile;

// A file in an open folder that is about to be changed or removed. While this object lives, other
// programs that ask for the lock leave the file alone.
class HeldFile {
public:
    enum class State {
        held,    // locked, or the file system has no locks
        missing, // there is nothing with that name
        refused, // it is a link, is not a plain file, or cannot be opened
        busy,    // another program holds it, and the patience is used up
    };

    explicit HeldFile(State state); // without a file: not for `held`
    explicit HeldFile(std::unique_ptr<OpenFile> file);
    HeldFile(HeldFile&&) noexcept;
    ~HeldFile();

    [[nodiscard]] State state() const { return state_; }

    // The following are for a file that is held, and was opened for change.

    // Reads it from its beginning.
    ReadResult read(std::string& content, std::uint64_t limit);

    // Writes `content` at `place`, over what is there and beyond the end, in one system call if the
    // system accepts it all at once. False when not all of it was written.
    bool write(std::uint64_t place, std::string_view content);

    // Cuts off everything beyond `size`.
    bool cut(std::uint64_t size);

    // Waits until it is on the disk. True also on file systems that cannot say.
    bool sync();

    // Whether the path leads to this file. Links on the way are followed, one at its end is not.
    // False also when memory runs out: this is called while the change can still be undone.
    [[nodiscard]] bool isAt(const Path& path) const;

private:
    friend class Folder;

    State state_;
    std::unique_ptr<OpenFile> file_;
};

// A folder that is held open. Its functions work on this folder, even if something else takes its
// place meanwhile, and never follow a link: a name that is a link means the link itself. A name is
// a single name, not a path.
class Folder {
public:
    // Links are followed. Returns a closed object for a folder that cannot be opened.
    static Folder open(const Path& path);

    Folder() noexcept; // closed
    Folder(Folder&&) noexcept;
    Folder& operator=(Folder&&) noexcept;
    ~Folder();

    [[nodiscard]] bool isOpen() const { return folder_ != nullptr; }

    // The following are for a folder that is open.

    // A folder in this one; closed when there is none, or when it is a link.
    [[nodiscard]] Folder inner(StringView name) const;

    // The same, but makes the folder if it is missing. If it cannot be opened then, it is removed
    // again.
    Folder make(StringView name) const;

    // Makes a new file, where nothing exists yet, and waits until its content is on the disk. After
    // a failure it removes the file; what another program has put in its place meanwhile stays.
    WriteResult create(StringView name, std::string_view content) const;

    // The same, with the content of a plain file elsewhere. Links to that file are followed; pipes
    // and devices are not opened.
    WriteResult copyInto(StringView name, const Path& from) const;

    ReadResult read(StringView name, std::string& content, std::uint64_t limit) const;

    // Holds a file for a change, or only for its removal. Or makes an empty file where nothing
    // exists yet, and holds it for a change; another program may lock it before this one does, and
    // then the file is theirs.
    enum class Purpose { change, removal, making };
    HeldFile hold(StringView name, Purpose purpose, Patience& patience) const;

    // Removes one file, one link or one empty folder.
    bool remove(StringView name) const;

    // Removes the held file, if the name still means that file. Needs no memory.
    void removeHeld(StringView name, const HeldFile& file) const;

    // Removes a file, a link, or a folder with everything in it; links inside are removed, not
    // followed. False when anything is left, so true when there was nothing.
    bool removeTree(StringView name) const;

    // Whether nothing has that name; false if that cannot be found out.
    [[nodiscard]] bool isMissing(StringView name) const;

    // Waits until everything that was made and removed in it is on the disk. True also on file
    // systems that cannot say.
    bool sync() const;

private:
    explicit Folder(std::unique_ptr<OpenFolder> folder) noexcept;

    std::unique_ptr<OpenFolder> folder_;
};

// --- Identity -------------------------------------------------------------------------------------------

// A new random UUID: 36 characters, lower-case hexadecimal, 8-4-4-4-12. Empty when the system
// returns no random bytes.
String newUuid();

} // namespace Korvel::CANTORIS::PLX::fs
