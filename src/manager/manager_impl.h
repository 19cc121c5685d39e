#pragma once

#include <vector>

#include "clip/mutable_clip_impl.h"
#include "manager/clip_impl.h"
#include "manager/manager.h"
#include "manager/registry.h"
#include "manager/user_clip_impl.h"
#include "model/lists.h"

namespace Korvel::CANTORIS::PLX {

class ManagerImpl final : public Manager, public MutableClipOwner {
public:
    explicit ManagerImpl(ManagerRequest&& request);

    const String& appIDText() const { return appID_; }
    const OwnedList<UserClipImpl>& userClips() const { return userClips_; }

    // Removes the clip from the list and deletes it.
    bool discard(const UserClipImpl& clip) { return userClips_.remove(&clip); }

    void destroy() override { Registry::instance().destroy(this); }
    const Char* appID() const noexcept override { return appID_.c_str(); }
    const Char* systemClipDirPath() const noexcept override { return systemClipDirPath_.c_str(); }
    std::uint32_t readAllClipFiles() override;
    std::uint32_t readUserClipFiles() override;
    std::uint64_t numSystemClips() const noexcept override { return systemClips_.size(); }
    SystemClip* systemClip(std::uint64_t index) const noexcept override
    {
        return systemClips_.at(index);
    }
    bool hasSystemClip(const ClipBase* element) const noexcept override
    {
        return systemClips_.has(element);
    }
    const Char* userClipDirPath() const noexcept override { return userClipDirPath_.c_str(); }
    std::uint64_t numUserClips() const noexcept override { return userClips_.size(); }
    UserClip* userClip(std::uint64_t index) const noexcept override { return userClips_.at(index); }
    bool hasUserClip(const ClipBase* element) const noexcept override
    {
        return userClips_.has(element);
    }
    MutableClip* createMutableClip() override;
    bool hasMutableClip(const ClipBase* element) const noexcept override
    {
        return mutableClips_.has(element);
    }

private:
    Manager* manager() override { return this; }
    bool owns(const MutableClipImpl& clip) const noexcept override;
    void discard(const MutableClipImpl& clip) override { mutableClips_.remove(&clip); }
    UserClip* write(const MutableClipImpl& clip, StringView name, bool formatted,
                    KRT_PLX_Result& result) override;
    bool hasClipWithId(StringView id) const;

    String appID_;
    String systemClipDirPath_;
    String userClipDirPath_;
    std::vector<String> extraSystemClipDirs_;
    std::vector<String> extraUserClipDirs_;
    OwnedList<SystemClipImpl> systemClips_;
    OwnedList<UserClipImpl> userClips_;
    OwnedList<MutableClipImpl> mutableClips_;
};

} // namespace Korvel::CANTORIS::PLX
