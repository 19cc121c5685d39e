#include "korvel/plx/manager.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "manager/exports/guard.h"
#include "manager/registry.h"

using namespace Korvel::CANTORIS::PLX;
using namespace Korvel::CANTORIS::PLX::exports;

namespace {

// Null entries count as empty texts, which are no directory's path.
std::vector<String> copyTexts(const KRT_PLX_Char* const* texts, int32_t size)
{
    std::vector<String> copies;
    if (texts != nullptr && size > 0) {
        std::transform(texts, texts + size, std::back_inserter(copies),
                       [](const KRT_PLX_Char* text) { return String(viewOrEmpty(text)); });
    }
    return copies;
}

} // namespace

KRT_PLX_Manager* KRT_PLX_CreateManager(
    const KRT_PLX_Char* appID, const KRT_PLX_Char* systemClipDirPath,
    const KRT_PLX_Char* userClipDirPath, const KRT_PLX_Char* const* extraSystemDirs,
    int32_t extraSystemDirCount, const KRT_PLX_Char* const* extraUserDirs,
    int32_t extraUserDirCount, uint32_t* resultCode) KRT_PLX_NOEXCEPT
{
    return guarded<KRT_PLX_Manager*>(nullptr, [&] {
        return toHost(Registry::instance().create({appID, systemClipDirPath, userClipDirPath,
                                                   copyTexts(extraSystemDirs, extraSystemDirCount),
                                                   copyTexts(extraUserDirs, extraUserDirCount)},
                                                  resultCode));
    });
}

bool KRT_PLX_HasManager(KRT_PLX_Manager* manager) KRT_PLX_NOEXCEPT
{
    return guarded(false, [=] { return Registry::instance().has(fromHost(manager)); });
}

// Manager

const KRT_PLX_Char* KRT_PLX_Manager_appID(KRT_PLX_Manager* manager) KRT_PLX_NOEXCEPT
{
    return call<&Manager::appID>(manager, nullptr);
}

const KRT_PLX_Char* KRT_PLX_Manager_systemClipDirPath(KRT_PLX_Manager* manager) KRT_PLX_NOEXCEPT
{
    return call<&Manager::systemClipDirPath>(manager, nullptr);
}

const KRT_PLX_Char* KRT_PLX_Manager_userClipDirPath(KRT_PLX_Manager* manager) KRT_PLX_NOEXCEPT
{
    return call<&Manager::userClipDirPath>(manager, nullptr);
}

uint32_t KRT_PLX_Manager_readAllClipFiles(KRT_PLX_Manager* manager) KRT_PLX_NOEXCEPT
{
    return call<&Manager::readAllClipFiles>(manager, KRT_PLX_RESULT_NO_MANAGER);
}

uint32_t KRT_PLX_Manager_readUserClipFiles(KRT_PLX_Manager* manager) KRT_PLX_NOEXCEPT
{
    return call<&Manager::readUserClipFiles>(manager, KRT_PLX_RESULT_NO_MANAGER);
}

bool KRT_PLX_Manager_numSystemClips(KRT_PLX_Manager* manager, uint64_t* count) KRT_PLX_NOEXCEPT
{
    return countOf<&Manager::numSystemClips>(manager, count);
}

KRT_PLX_ClipBase* KRT_PLX_Manager_systemClip(KRT_PLX_Manager* manager,
                                             uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&Manager::systemClip>(manager, nullptr, index);
}

bool KRT_PLX_Manager_hasSystemClip(KRT_PLX_Manager* manager,
                                   KRT_PLX_ClipBase* element) KRT_PLX_NOEXCEPT
{
    return call<&Manager::hasSystemClip>(manager, false, element);
}

bool KRT_PLX_Manager_numUserClips(KRT_PLX_Manager* manager, uint64_t* count) KRT_PLX_NOEXCEPT
{
    return countOf<&Manager::numUserClips>(manager, count);
}

KRT_PLX_ClipBase* KRT_PLX_Manager_userClip(KRT_PLX_Manager* manager,
                                           uint64_t index) KRT_PLX_NOEXCEPT
{
    return call<&Manager::userClip>(manager, nullptr, index);
}

bool KRT_PLX_Manager_hasUserClip(KRT_PLX_Manager* manager,
                                 KRT_PLX_ClipBase* element) KRT_PLX_NOEXCEPT
{
    return call<&Manager::hasUserClip>(manager, false, element);
}

KRT_PLX_ClipBase* KRT_PLX_Manager_createMutableClip(KRT_PLX_Manager* manager) KRT_PLX_NOEXCEPT
{
    return call<&Manager::createMutableClip>(manager, nullptr);
}

bool KRT_PLX_Manager_hasMutableClip(KRT_PLX_Manager* manager,
                                    KRT_PLX_ClipBase* element) KRT_PLX_NOEXCEPT
{
    return call<&Manager::hasMutableClip>(manager, false, element);
}

// The handle may be dead. Only the registry knows, and it does not touch what it does not know.
bool KRT_PLX_Manager_destroy(KRT_PLX_Manager* manager) KRT_PLX_NOEXCEPT
{
    return guarded(false, [=] { return Registry::instance().destroy(fromHost(manager)); });
}
