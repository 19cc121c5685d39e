#include "format/read.h"

#include "format/encoding.h"
#include "format/walk.h"

namespace Korvel::CANTORIS::PLX::format {

class DocumentReader::State {
public:
    bool read(std::string& bytes, const Wanted& wanted, Listener* listener)
    {
        const bool isText = makeUtf8(bytes);
        trail_.begin(bytes.data(), listener);
        if (!isText) {
            return trail_.refuse(Defect::Kind::encoding, bytes.size());
        }
        builder_.begin(wanted);
        return parse(bytes.data(), bytes.size(), wanted, trail_, builder_);
    }

    ClipBuilder& builder() { return builder_; }

private:
    Trail trail_;
    ClipBuilder builder_{trail_};
};

DocumentReader::DocumentReader() : state_(std::make_unique<State>()) {}
DocumentReader::~DocumentReader() = default;

bool DocumentReader::readProperties(std::string& bytes, ClipProperties& properties,
                                    Listener* listener)
{
    const Wanted wanted{.document = keys::shape<keys::PropertyDocument>, .properties = &properties};
    return state_->read(bytes, wanted, listener) && state_->builder().hasProperties();
}

bool DocumentReader::readClip(std::string& bytes, const fs::Path& directory, ClipBase* clip,
                              LoadedClip& loaded, Listener* listener)
{
    const Wanted wanted{.document = keys::shape<keys::DataDocument>,
                        .clip = clip,
                        .properties = &loaded.properties};
    if (!state_->read(bytes, wanted, listener)) {
        return false;
    }
    const bool hasProperties = state_->builder().hasProperties();
    if (hasProperties || listener != nullptr) {
        loaded.part = state_->builder().releasePart(directory);
    }
    return hasProperties && loaded.part != nullptr;
}

std::unique_ptr<PartBase> DocumentReader::readPart(std::string& bytes, const fs::Path& directory,
                                                   ClipBase* clip, Listener* listener)
{
    const Wanted wanted{.document = keys::shape<keys::DataDocument>, .clip = clip};
    return state_->read(bytes, wanted, listener) ? state_->builder().releasePart(directory)
                                                 : nullptr;
}

} // namespace Korvel::CANTORIS::PLX::format
