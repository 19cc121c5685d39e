#include "format/load.h"

#include <optional>

#include "format/encoding.h"
#include "format/limits.h"

namespace Korvel::CANTORIS::PLX::format {

namespace {

// Every document is an object. A file that begins with anything else is not read further.
fs::Verdict judge(std::string_view beginning)
{
    constexpr std::size_t enoughForTheEncoding = 4;
    const auto unit = beginning.size() < enoughForTheEncoding ? std::nullopt : firstUnit(beginning);
    if (!unit) {
        return fs::Verdict::undecided;
    }
    return *unit == U'{' ? fs::Verdict::worthReading : fs::Verdict::hopeless;
}

} // namespace

class Loader::Source {
public:
    // The bytes of a file that can be a document, valid until the next call; null for any other
    // file.
    std::string* read(const fs::Path& path, std::uint64_t limit, fs::Kind kind)
    {
        const fs::ReadOptions options{limit, judge, kind};
        const bool isRead = fs::readFile(path, bytes_, options, patience_) == fs::ReadResult::read;
        return isRead ? &bytes_ : nullptr;
    }

    std::string* readData(const fs::Path& path)
    {
        return read(path, dataDocumentLimit, fs::Kind::unknown);
    }

    DocumentReader& reader() { return reader_; }

private:
    std::string bytes_;
    fs::Patience patience_;
    DocumentReader reader_;
};

Loader::Loader() : source_(std::make_unique<Source>()) {}
Loader::~Loader() = default;

bool Loader::loadProperties(const fs::Path& path, ClipProperties& properties, fs::Kind kind)
{
    std::string* const bytes = source_->read(path, propertyDocumentLimit, kind);
    return bytes != nullptr && takeProperties(*bytes, properties);
}

bool Loader::takeProperties(std::string& bytes, ClipProperties& properties)
{
    return source_->reader().readProperties(bytes, properties);
}

bool Loader::loadClip(const fs::Path& path, ClipBase* clip, LoadedClip& loaded)
{
    std::string* const bytes = source_->readData(path);
    return bytes != nullptr && source_->reader().readClip(*bytes, fs::folderOf(path), clip, loaded);
}

std::unique_ptr<PartBase> Loader::loadPart(const fs::Path& path, ClipBase* clip)
{
    std::string* const bytes = source_->readData(path);
    return bytes == nullptr ? nullptr
                            : source_->reader().readPart(*bytes, fs::folderOf(path), clip);
}

} // namespace Korvel::CANTORIS::PLX::format
