#pragma once

#include <memory>

#include "clip/clip_base_impl.h"
#include "clip/filter_impl.h"
#include "fs/fs.h"
#include "manager/clip.h"
#include "model/part.h"

namespace Korvel::CANTORIS::PLX {

// The catalogue properties that an editor changes, all at once.
struct EditableProperties {
    String name;
    std::uint32_t partKey;
    std::uint32_t partTempo;
    TextList types;
    TextList genres;
};

class ClipImpl : public virtual Clip, public ClipBaseImpl {
public:
    ClipImpl(Manager* manager, ClipKind kind) : ClipBaseImpl(manager), kind_(kind) {}

    // Fills a new clip. The part, which may be null, must have this clip as its parent.
    void fill(ClipProperties&& properties, std::unique_ptr<PartBase> part);
    void setPath(const fs::Path& path)
    {
        path_ = path.text;
        directoryLength_ = path.givenLength;
    }

    // Swaps the clip's own values with these.
    void exchange(EditableProperties& properties) noexcept;

    const String& idText() const { return id_; }
    const String& nameText() const { return name_; }
    fs::Path filePath() const { return {path_, directoryLength_}; }
    const Filter& tags() const { return filter_; }

    const Char* id() const noexcept override { return id_.c_str(); }
    const Char* name() const noexcept override { return name_.c_str(); }
    std::uint32_t type() const noexcept override { return static_cast<std::uint32_t>(kind_); }
    const Char* path() const noexcept override { return path_.c_str(); }
    std::uint32_t partType() const noexcept override;
    Filter* filter() noexcept override { return &filter_; }
    bool readPart() override;
    AudioPart* audioPart() const noexcept override;
    bool hasAudioPart(const PartBase* element) const noexcept override;
    MidiPart* midiPart() const noexcept override;
    bool hasMidiPart(const PartBase* element) const noexcept override;
    Clip* asClip() noexcept override { return this; }

private:
    String id_;
    String name_;
    String path_;
    std::size_t directoryLength_ = 0; // of the clip directory that the host passed
    FilterImpl<FilterTags> filter_;
    std::unique_ptr<PartBase> part_;
    std::uint32_t partType_ = KRT_PLX_PART_NONE; // as in the property document
    ClipKind kind_;
};

class SystemClipImpl final : public SystemClip, public ClipImpl {
public:
    static constexpr ClipKind kind = ClipKind::system;

    explicit SystemClipImpl(Manager* manager) : ClipImpl(manager, kind) {}
};

} // namespace Korvel::CANTORIS::PLX
