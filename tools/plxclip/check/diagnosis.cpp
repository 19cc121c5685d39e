#include "check/diagnosis.h"

#include <memory>

#include <korvel/plx/common.h>

#include "check/decoding.h"
#include "check/examination.h"
#include "check/files.h"

namespace plxclip::check {

namespace fs = std::filesystem;

namespace {

// The limits are whole numbers of one of these.
std::string sizeInWords(std::uintmax_t bytes)
{
    constexpr std::uintmax_t mebibyte = std::uintmax_t{1} << 20;
    constexpr std::uintmax_t gibibyte = std::uintmax_t{1} << 30;
    return bytes % gibibyte == 0 ? std::to_string(bytes / gibibyte) + " GiB"
                                 : std::to_string(bytes / mebibyte) + " MiB";
}

class Diagnostician {
public:
    explicit Diagnostician(const fs::path& file) : clipFile(file), folder(file.parent_path()) {}

    Diagnosis run();

private:
    bool examinePropertyDocument();
    void examineClipFile();
    void reportMissing();
    std::string similarName() const;
    std::unique_ptr<Document> load(const fs::path& file, std::string_view name,
                                   std::uintmax_t limit);
    void refuse(std::string_view document, Reason reason, Position position, std::string message);
    void take(const std::optional<Identity>& identity, const Document& document,
              std::string_view name);

    fs::path clipFile;
    fs::path folder;
    Diagnosis result;
};

Diagnosis Diagnostician::run()
{
    result.isListable = examinePropertyDocument();
    examineClipFile();
    return std::move(result);
}

void Diagnostician::refuse(std::string_view document, Reason reason, Position position,
                           std::string message)
{
    result.findings.push_back(
        {Effect::refused, reason, std::string(document), {}, position, std::move(message)});
}

void Diagnostician::take(const std::optional<Identity>& identity, const Document& document,
                         std::string_view name)
{
    if (!identity) {
        return;
    }
    result.id = identity->id;
    result.idDocument = name;
    result.idPointer = pointerTo(*identity->place);
    result.idPosition = document.positionOf(identity->place->start);
    result.tags = identity->tags;
}

std::unique_ptr<Document> Diagnostician::load(const fs::path& file, std::string_view name,
                                              std::uintmax_t limit)
{
    std::string bytes;
    const ReadResult read = readFile(file, limit, bytes);
    if (read == ReadResult::tooLarge) {
        refuse(name, Reason::tooLarge, {}, "is larger than " + sizeInWords(limit));
        return nullptr;
    }
    if (read == ReadResult::unreadable) {
        refuse(name, Reason::unreadable, {}, "cannot be read, or is no plain file");
        return nullptr;
    }
    Decoded decoded = decode(bytes);
    const std::size_t end = decoded.utf8.size();
    auto document = std::make_unique<Document>(std::move(decoded.utf8));
    if (decoded.badByte) {
        refuse(name, Reason::encoding, document->positionOf(end),
               "byte " + std::to_string(*decoded.badByte) + " is no " +
                   std::string(decoded.encoding));
        return nullptr;
    }
    if (const auto& error = document->error()) {
        refuse(name, Reason::syntax, document->positionOf(error->offset), error->message);
        return nullptr;
    }
    return document;
}

// On a system that tells capital letters from small ones the name has to be right to the letter.
std::string Diagnostician::similarName() const
{
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        const std::string name = textOf(entry.path().filename());
        if (equalButForCase(name, propertyDocument)) {
            return name;
        }
    }
    return {};
}

void Diagnostician::reportMissing()
{
    const std::string similar = similarName();
    refuse(propertyDocument, Reason::missingDocument, {},
           similar.empty() ? "there is none beside the clip file"
                           : "there is none beside the clip file; \"" + similar +
                                 "\" is not looked at, capital letters count");
}

bool Diagnostician::examinePropertyDocument()
{
    const fs::path file = folder / propertyDocument;
    std::error_code error;
    if (!fs::exists(file, error)) {
        reportMissing();
        return false;
    }
    const auto document = load(file, propertyDocument, KRT_PLX_PROPERTY_DOCUMENT_LIMIT);
    if (document == nullptr) {
        return false;
    }
    Examiner examiner(*document, propertyDocument, result.findings);
    const auto identity = examineProperties(examiner, document->root());
    take(identity, *document, propertyDocument);
    return identity.has_value();
}

void Diagnostician::examineClipFile()
{
    const auto document = load(clipFile, {}, KRT_PLX_DATA_DOCUMENT_LIMIT);
    if (document == nullptr) {
        return;
    }
    Examiner examiner(*document, {}, result.findings);
    std::optional<Identity> identity;
    if (!result.isListable) {
        identity = examineIdentity(examiner, document->root());
    }
    result.contents = examinePart(examiner, document->root(), folder);
    if (!result.isListable && identity && result.contents) {
        take(identity, *document, {});
        result.isListable = true;
    }
}

} // namespace

Diagnosis diagnose(const fs::path& clipFile)
{
    return Diagnostician(clipFile).run();
}

} // namespace plxclip::check
