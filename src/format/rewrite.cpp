#include "format/rewrite.h"

#include <string>

#include "format/encoding.h"
#include "format/limits.h"
#include "fs/fs.h"

namespace Korvel::CANTORIS::PLX::format {

namespace {

// The blanks that make the old document as long as the new one, in the encoding of the old one.
// Blanks after a document have no effect.
std::string roomBehind(std::string_view old, std::size_t size)
{
    const std::string blank = blankIn(detectEncoding(old).encoding);
    std::string room;
    while (old.size() + room.size() < size) {
        room += blank;
    }
    return room;
}

// The order of the steps protects the document:
// - First the file is extended with blanks. If the disk is full, this fails while the old document
//   is still untouched.
// - The blanks must be on the disk before they are overwritten. Otherwise the disk could have the
//   new length with the old document's bytes and nothing after them.
// - The new document is written over the old one in one piece, with blanks up to the end of the
//   file, so that nothing of the old one is left after it.
// - The blanks are cut off only when the document is on the disk, and the path still leads to it.
//   They do not change its meaning, and until they are cut off the old document can be put back.
class Rewriting {
public:
    Rewriting(fs::HeldFile& file, std::string old, std::string_view document)
        : file_(file), oldSize_(old.size()), newSize_(document.size()),
          room_(roomBehind(old, document.size())), old_(std::move(old) + room_), new_(document)
    {
        new_.resize(old_.size(), ' ');
    }

    bool run(const fs::Path& path)
    {
        if (!makeRoom()) {
            file_.cut(oldSize_);
            return false;
        }
        if (!(file_.write(0, new_) && file_.sync())) {
            putBack();
            return false;
        }
        file_.cut(newSize_);
        if (!file_.isAt(path)) {
            putBack();
            return false;
        }
        return true;
    }

private:
    void putBack()
    {
        file_.write(0, old_);
        file_.cut(oldSize_);
    }

    bool makeRoom() { return room_.empty() || (file_.write(oldSize_, room_) && file_.sync()); }

    fs::HeldFile& file_;
    std::size_t oldSize_;
    std::size_t newSize_;
    std::string room_;
    std::string old_; // both with blanks, as long as the file while it is written
    std::string new_;
};

enum class Attempt { done, failed, tryAgain };

// A file that another program has put there in the meantime must not be written.
Attempt rewriteHeld(fs::HeldFile& file, const fs::Path& path, std::string_view document)
{
    if (!file.isAt(path)) {
        return Attempt::tryAgain;
    }
    std::string old;
    if (file.read(old, propertyDocumentLimit) != fs::ReadResult::read) {
        return Attempt::failed;
    }
    return Rewriting(file, std::move(old), document).run(path) ? Attempt::done : Attempt::failed;
}

bool isStillEmpty(fs::HeldFile& file)
{
    std::string content;
    return file.read(content, propertyDocumentLimit) == fs::ReadResult::read && content.empty();
}

// A file that was made for a document is removed again unless it is kept, also when memory runs
// out. What another program has put in its place, or into it, stays.
class MadeFile {
public:
    MadeFile(const fs::Folder& folder, StringView name, fs::HeldFile& file)
        : folder_(folder), name_(name), file_(file)
    {
    }
    MadeFile(const MadeFile&) = delete;
    MadeFile& operator=(const MadeFile&) = delete;

    ~MadeFile()
    {
        if (isOurs_) {
            folder_.removeHeld(name_, file_);
        }
    }

    void keep() { isOurs_ = false; }

private:
    const fs::Folder& folder_;
    StringView name_;
    fs::HeldFile& file_;
    bool isOurs_ = isStillEmpty(file_);
};

Attempt makeDocument(const fs::Folder& folder, StringView name, const fs::Path& path,
                     std::string_view document, fs::Patience& patience)
{
    fs::HeldFile file = folder.hold(name, fs::Folder::Purpose::making, patience);
    if (file.state() != fs::HeldFile::State::held) {
        return folder.isMissing(name) ? Attempt::failed : Attempt::tryAgain;
    }
    MadeFile made(folder, name, file);
    const Attempt attempt = rewriteHeld(file, path, document);
    if (attempt == Attempt::done && folder.sync()) {
        made.keep();
        return Attempt::done;
    }
    return Attempt::failed;
}

Attempt rewriteOnce(const fs::Path& path, std::string_view document, fs::Patience& patience)
{
    const StringView name = fs::fileName(path.text);
    const fs::Folder folder = fs::Folder::open(fs::folderOf(path));
    if (!folder.isOpen()) {
        return Attempt::failed;
    }
    fs::HeldFile file = folder.hold(name, fs::Folder::Purpose::change, patience);
    switch (file.state()) {
    case fs::HeldFile::State::held:
        return rewriteHeld(file, path, document);
    case fs::HeldFile::State::missing:
        return makeDocument(folder, name, path, document, patience);
    default:
        return Attempt::failed;
    }
}

} // namespace

bool rewriteDocument(const fs::Path& path, std::string_view document)
{
    fs::Patience patience;
    Attempt attempt = rewriteOnce(path, document, patience);
    while (attempt == Attempt::tryAgain && patience.wait()) {
        attempt = rewriteOnce(path, document, patience);
    }
    return attempt == Attempt::done;
}

} // namespace Korvel::CANTORIS::PLX::format
