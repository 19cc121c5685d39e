/**
 * @file manager.hpp
 * The catalogue; see plx/manager.h.
 */
#ifndef KORVEL_FACE_MANAGER_HPP
#define KORVEL_FACE_MANAGER_HPP

#include <cstddef>
#include <vector>

#include <korvel/face/clip.hpp>
#include <korvel/plx/manager.h>

namespace korvel::plx {

/** One clip catalogue. It lives until destroy(), whatever becomes of its handles. */
class Manager : public Handle<KRT_PLX_Manager> {
public:
    using Handle::Handle;

    [[nodiscard]] StringView appID() const noexcept
    {
        return detail::view(KRT_PLX_Manager_appID(raw()));
    }
    [[nodiscard]] StringView systemClipDirPath() const noexcept
    {
        return detail::view(KRT_PLX_Manager_systemClipDirPath(raw()));
    }
    [[nodiscard]] StringView userClipDirPath() const noexcept
    {
        return detail::view(KRT_PLX_Manager_userClipDirPath(raw()));
    }

    /** Kills all system and user clips, and reads them anew. */
    Result readAllClipFiles() const noexcept
    {
        return static_cast<Result>(KRT_PLX_Manager_readAllClipFiles(raw()));
    }
    /** Kills all user clips, and reads them anew. */
    Result readUserClipFiles() const noexcept
    {
        return static_cast<Result>(KRT_PLX_Manager_readUserClipFiles(raw()));
    }

    [[nodiscard]] std::uint64_t numSystemClips() const noexcept
    {
        return detail::count(KRT_PLX_Manager_numSystemClips, raw());
    }
    [[nodiscard]] Clip systemClip(std::uint64_t index) const noexcept
    {
        return Clip(KRT_PLX_Manager_systemClip(raw(), index));
    }
    [[nodiscard]] bool hasSystemClip(ClipBase element) const noexcept
    {
        return KRT_PLX_Manager_hasSystemClip(raw(), element.raw());
    }
    [[nodiscard]] auto systemClips() const noexcept
    {
        return Range<Manager, &Manager::numSystemClips, &Manager::systemClip>(*this);
    }

    [[nodiscard]] std::uint64_t numUserClips() const noexcept
    {
        return detail::count(KRT_PLX_Manager_numUserClips, raw());
    }
    [[nodiscard]] UserClip userClip(std::uint64_t index) const noexcept
    {
        return UserClip(KRT_PLX_Manager_userClip(raw(), index));
    }
    [[nodiscard]] bool hasUserClip(ClipBase element) const noexcept
    {
        return KRT_PLX_Manager_hasUserClip(raw(), element.raw());
    }
    [[nodiscard]] auto userClips() const noexcept
    {
        return Range<Manager, &Manager::numUserClips, &Manager::userClip>(*this);
    }

    [[nodiscard]] MutableClip createMutableClip() const noexcept
    {
        return MutableClip(KRT_PLX_Manager_createMutableClip(raw()));
    }
    [[nodiscard]] bool hasMutableClip(ClipBase element) const noexcept
    {
        return KRT_PLX_Manager_hasMutableClip(raw(), element.raw());
    }

    /** Kills this handle and all that came from it. */
    bool destroy() const noexcept { return KRT_PLX_Manager_destroy(raw()); }
};

/** What creating a manager gives: the manager, or a null handle and why. */
struct CreateResult {
    /** Null when there is none. */
    Manager manager;
    /** Result::ok too when the manager existed already; `code.isGiven()` is false then. Result::noManager
     *  when memory ran out. */
    ResultCode code;

    /** True when there is a manager. */
    explicit operator bool() const noexcept { return static_cast<bool>(manager); }
};

/** Further clip directories, for createManager(). */
using Directories = std::vector<const Char*>;

/** Returns the manager of an application ID, creating it when there is none. */
template <typename AppID, typename SystemDir, typename UserDir>
CreateResult createManager(const AppID& appID,
    const SystemDir& systemClipDirPath,
    const UserDir& userClipDirPath,
    const Directories& extraSystemDirs = {},
    const Directories& extraUserDirs = {})
{
    std::uint32_t code = detail::noCode;
    const Manager manager(KRT_PLX_CreateManager(detail::terminated(appID).c_str(),
        detail::terminated(systemClipDirPath).c_str(), detail::terminated(userClipDirPath).c_str(),
        extraSystemDirs.data(), static_cast<std::int32_t>(extraSystemDirs.size()),
        extraUserDirs.data(), static_cast<std::int32_t>(extraUserDirs.size()), &code));
    return {manager, ResultCode(code, static_cast<bool>(manager))};
}

/** Tells whether a handle is a living manager; a dead one may be passed. */
[[nodiscard]] inline bool hasManager(Manager manager) noexcept
{
    return KRT_PLX_HasManager(manager.raw());
}

inline Manager ClipBase::parent() const noexcept
{
    return Manager(KRT_PLX_ClipBase_parent(raw()));
}

} // namespace korvel::plx

#endif
