#include "format/save.h"

#include "clip/clip_files.h"
#include "format/clip_writer.h"
#include "format/load.h"
#include "fs/fs.h"

namespace Korvel::CANTORIS::PLX::format {

namespace {

// A document that cannot be written opens its file all the same: a file that cannot be opened is the
// earlier failure of the two.
Result writeDocument(const String& path, const std::optional<std::string_view>& document)
{
    const auto written = fs::writeFile(path, document.value_or(std::string_view()));
    if (written == fs::WriteResult::notOpened) {
        return Result::documentNotOpened;
    }
    return written == fs::WriteResult::written && document ? Result::success
                                                           : Result::documentNotWritten;
}

// What follows the last backslash may still hold slashes, and with them lead out of the clip's folder.
bool isFileName(StringView name)
{
    return !name.empty() && name.find(static_cast<Char>('/')) == StringView::npos;
}

} // namespace

bool rewriteProperties(const String& path, const ClipBase& clip, const FilterTags& tags,
                       StringView id, StringView name)
{
    Output output(false);
    writeProperties(output, clip, tags, id, name);
    const auto document = output.finish();
    return document && fs::writeFile(path, *document) == fs::WriteResult::written;
}

NewClipFolder::NewClipFolder(const String& userClipDirectory, const IsTaken& isTaken)
{
    do {
        id_ = fs::newUuid();
        directory_ = fs::join(userClipDirectory, id_);
        dataPath_ = fs::join(directory_, id_ + String(clipExtension));
    } while (!id_.empty() && (isTaken(id_) || fs::exists(dataPath_)));
    propertyPath_ = propertyPath(dataPath_);
}

NewClipFolder::~NewClipFolder()
{
    if (!made_) {
        return;
    }
    try {
        remove();
    } catch (...) {
        // Without memory the rest stays.
    }
}

// Where nothing may be deleted, an empty property document serves as well: a scan lists no clip
// without it.
void NewClipFolder::remove() const
{
    if (!removeTree() && fs::exists(propertyPath_)) {
        fs::writeFile(propertyPath_, {});
    }
}

// That steps through no link which another has put there meanwhile, but takes memory. Where the attempt
// has ended for want of it, by name.
bool NewClipFolder::removeTree() const
{
    try {
        return fs::removeTree(directory_);
    } catch (...) {
        return removeByName();
    }
}

bool NewClipFolder::removeByName() const
{
    fs::remove(dataPath_);
    fs::remove(propertyPath_);
    fs::remove(wavePath_);
    fs::removeEmptyFolder(audioFolder_);
    return fs::removeEmptyFolder(directory_);
}

Result NewClipFolder::write(const MutableClipImpl& clip, StringView name, bool formatted)
{
    made_ = !id_.empty() && fs::createDirectories(directory_);
    if (!made_) {
        return Result::directoryNotCreated;
    }
    if (clip.partType() == part_type::audio) {
        const Result copied = copyWave(*clip.part());
        if (copied != Result::success) {
            return copied;
        }
    }
    return writeDocuments(clip, name, formatted);
}

Result NewClipFolder::copyWave(PartBase& part)
{
    const MutableAudioPart* const audio = part.asMutableAudioPart();
    if (audio == nullptr) {
        return Result::noUsablePart;
    }
    const String wave = audio->wavFilePath();
    if (!fs::isPlainFile(wave)) {
        return Result::noWaveFile;
    }
    audioFolder_ = audioFolder(directory_);
    if (!fs::createDirectories(audioFolder_)) {
        return Result::directoryNotCreated;
    }
    const StringView fileName = fs::fileName(wave);
    if (!isFileName(fileName)) {
        return Result::waveFileNotCopied;
    }
    wavePath_ = wavePath(directory_, fileName);
    return fs::copyFile(wave, wavePath_) ? Result::success : Result::waveFileNotCopied;
}

Result NewClipFolder::writeDocuments(const MutableClipImpl& clip, StringView name,
                                     bool formatted) const
{
    Output properties(formatted);
    writeProperties(properties, clip, clip.tags(), id_, name);
    const Result written = writeDocument(propertyPath_, properties.finish());
    if (written != Result::success) {
        return written;
    }
    Output data(formatted);
    const bool hasData = writeData(data, *clip.part());
    return writeDocument(dataPath_, hasData ? data.finish() : std::nullopt);
}

Result NewClipFolder::readBack(ClipProperties& properties) const
{
    if (!fs::isPlainFile(propertyPath_)) {
        return Result::documentNotOpened;
    }
    return Loader().loadProperties(propertyPath_, properties) ? Result::success
                                                              : Result::documentNotWritten;
}

} // namespace Korvel::CANTORIS::PLX::format
