#include "manager/property_editor_impl.h"

#include "clip/clip_files.h"
#include "format/save.h"
#include "manager/user_clip_impl.h"

namespace Korvel::CANTORIS::PLX {

namespace {

// Gives the clip its new properties and, unless they are kept, puts the old ones back, however the
// attempt ends.
class Attempt {
public:
    Attempt(ClipImpl& clip, EditableProperties&& properties)
        : clip_(clip), other_(std::move(properties))
    {
        clip_.exchange(other_);
    }
    Attempt(const Attempt&) = delete;
    Attempt& operator=(const Attempt&) = delete;
    ~Attempt()
    {
        if (!kept_) {
            clip_.exchange(other_);
        }
    }

    void keep() { kept_ = true; }

private:
    ClipImpl& clip_;
    EditableProperties other_;
    bool kept_ = false;
};

} // namespace

bool PropertyEditorImpl::setClipName(const Char* text)
{
    if (isNullOrEmpty(text)) {
        return false;
    }
    clipName_ = text;
    return true;
}

bool PropertyEditorImpl::add(std::set<String>& texts, const Char* text)
{
    return !isNullOrEmpty(text) && texts.emplace(text).second;
}

bool PropertyEditorImpl::save()
{
    if (clipName_.empty()) {
        return false;
    }
    Attempt attempt(clip_, {clipName_, part_.partKey, part_.partTempo,
                            TextList({filterTypes_.begin(), filterTypes_.end()}),
                            TextList({filterGenres_.begin(), filterGenres_.end()})});
    const fs::Path clipFile = clip_.filePath();
    const String document = propertyPath(clipFile.text);
    if (!format::rewriteProperties({document, clipFile.givenLength}, clip_, clip_.tags(),
                                   clip_.idText(), clip_.nameText())) {
        return false;
    }
    attempt.keep();
    return true;
}

} // namespace Korvel::CANTORIS::PLX
