#include "format/save.h"

#include "clip/clip_files.h"
#include "format/clip_writer.h"
#include "format/limits.h"
#include "format/load.h"
#include "format/part_writer.h"
#include "format/rewrite.h"

namespace Korvel::CANTORIS::PLX::format {

namespace {

// If the document cannot be written, the file is made all the same: if that fails, its failure is
// the one to report.
KRT_PLX_Result writeDocument(const fs::Folder& folder, StringView name,
                             const std::optional<std::string_view>& document)
{
    const auto written = folder.create(name, document.value_or(std::string_view()));
    if (written == fs::WriteResult::notOpened) {
        return KRT_PLX_RESULT_FILE_NOT_OPENED;
    }
    return written == fs::WriteResult::written && document ? KRT_PLX_RESULT_OK
                                                           : KRT_PLX_RESULT_FILE_NOT_WRITTEN;
}

// The text after the last backslash may still contain slashes, and lead out of the clip's folder.
bool isFileName(StringView name)
{
    return !name.empty() && name.find(static_cast<Char>('/')) == StringView::npos;
}

bool isTooLong(const std::optional<std::string_view>& document, std::uint64_t limit)
{
    return document && document->size() > limit;
}

} // namespace

bool rewriteProperties(const fs::Path& path, const ClipBase& clip, const Filter& tags,
                       StringView id, StringView name)
{
    Output output(false);
    writeProperties(output, clip, tags, id, name);
    const auto document = output.finish();
    return document && !isTooLong(document, propertyDocumentLimit) &&
           rewriteDocument(path, *document);
}

// Makes both texts before there is a file, so that a text that is too long makes no file.
class NewClipFolder::Documents {
public:
    Documents(const MutableClipImpl& clip, StringView id, StringView name, bool formatted)
        : properties_(formatted), data_(formatted)
    {
        writeProperties(properties_, clip, clip.tags(), id, name);
        hasData_ = writePart(data_, *clip.part());
    }

    [[nodiscard]] std::optional<std::string_view> properties() const
    {
        return properties_.finish();
    }

    [[nodiscard]] std::optional<std::string_view> data() const
    {
        return hasData_ ? data_.finish() : std::nullopt;
    }

    [[nodiscard]] bool areTooLong() const
    {
        return isTooLong(properties(), propertyDocumentLimit) ||
               isTooLong(data(), dataDocumentLimit);
    }

private:
    Output properties_;
    Output data_;
    bool hasData_ = false;
};

NewClipFolder::NewClipFolder(const String& userClipDirectory, const IsTaken& isTaken)
    : userClipDirectory_(userClipDirectory)
{
    do {
        id_ = fs::newUuid();
        dataName_ = id_ + String(clipExtension);
        dataPath_ = fs::join(fs::join(userClipDirectory, id_), dataName_);
    } while (!id_.empty() && (isTaken(id_) || fs::exists(dataPath())));
}

NewClipFolder::~NewClipFolder()
{
    if (!folder_.isOpen()) {
        return;
    }
    try {
        remove();
    } catch (...) {
        // Without memory the rest is left.
    }
}

// Removes by the known names, in the folders that are held open: that needs neither memory nor
// another open file. What other programs have put there is removed by a walk, if possible.
void NewClipFolder::remove()
{
    if (audioFolder_.isOpen()) {
        audioFolder_.remove(waveName_);
        folder_.remove(audioFolderName);
    }
    folder_.remove(dataName_);
    folder_.remove(propertyFileName);
    // Some systems do not remove an open folder.
    audioFolder_ = {};
    folder_ = {};
    if (!userFolder_.remove(id_) && !userFolder_.removeTree(id_)) {
        emptyProperties();
    }
}

// If nothing may be deleted, an empty property document has the same effect: a scan does not list
// the clip.
void NewClipFolder::emptyProperties() const
{
    const fs::Folder folder = userFolder_.inner(id_);
    if (!folder.isOpen()) {
        return;
    }
    fs::Patience patience;
    fs::HeldFile file = folder.hold(propertyFileName, fs::Folder::Purpose::change, patience);
    if (file.state() == fs::HeldFile::State::held) {
        file.cut(0);
    }
}

KRT_PLX_Result NewClipFolder::write(const MutableClipImpl& clip, StringView name, bool formatted)
{
    const Documents documents(clip, id_, name, formatted);
    if (documents.areTooLong()) {
        return KRT_PLX_RESULT_FILE_NOT_WRITTEN;
    }
    if (!make()) {
        return KRT_PLX_RESULT_DIRECTORY_NOT_CREATED;
    }
    if (clip.partType() == KRT_PLX_PART_AUDIO) {
        const KRT_PLX_Result copied = copyWave(*clip.part());
        if (copied != KRT_PLX_RESULT_OK) {
            return copied;
        }
    }
    return writeDocuments(documents);
}

bool NewClipFolder::make()
{
    userFolder_ = id_.empty() ? fs::Folder() : fs::Folder::open(userClipDirectory_);
    if (userFolder_.isOpen()) {
        folder_ = userFolder_.make(id_);
    }
    return folder_.isOpen();
}

KRT_PLX_Result NewClipFolder::copyWave(PartBase& part)
{
    const MutableAudioPart* const audio = part.asMutableAudioPart();
    if (audio == nullptr) {
        return KRT_PLX_RESULT_NO_PART;
    }
    const String wave = audio->wavFilePath();
    if (!fs::isPlainFile(wave)) {
        return KRT_PLX_RESULT_WAVE_FILE_MISSING;
    }
    waveName_ = fs::fileName(wave);
    audioFolder_ = folder_.make(audioFolderName);
    if (!audioFolder_.isOpen()) {
        return KRT_PLX_RESULT_DIRECTORY_NOT_CREATED;
    }
    const bool isCopied = isFileName(waveName_) &&
                          audioFolder_.copyInto(waveName_, wave) == fs::WriteResult::written &&
                          audioFolder_.sync();
    return isCopied ? KRT_PLX_RESULT_OK : KRT_PLX_RESULT_WAVE_FILE_NOT_COPIED;
}

// A file is on the disk only when the entries of the folders that lead to it are there too.
KRT_PLX_Result NewClipFolder::writeDocuments(const Documents& documents) const
{
    KRT_PLX_Result written = writeDocument(folder_, propertyFileName, documents.properties());
    if (written == KRT_PLX_RESULT_OK) {
        written = writeDocument(folder_, dataName_, documents.data());
    }
    if (written != KRT_PLX_RESULT_OK) {
        return written;
    }
    return folder_.sync() && userFolder_.sync() ? KRT_PLX_RESULT_OK
                                                : KRT_PLX_RESULT_FILE_NOT_WRITTEN;
}

KRT_PLX_Result NewClipFolder::readBack(ClipProperties& properties) const
{
    std::string document;
    const auto read = folder_.read(propertyFileName, document, propertyDocumentLimit);
    if (read == fs::ReadResult::notOpened) {
        return KRT_PLX_RESULT_FILE_NOT_OPENED;
    }
    return read == fs::ReadResult::read && Loader().takeProperties(document, properties)
               ? KRT_PLX_RESULT_OK
               : KRT_PLX_RESULT_FILE_NOT_WRITTEN;
}

} // namespace Korvel::CANTORIS::PLX::format
