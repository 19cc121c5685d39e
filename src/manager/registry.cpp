#include "manager/registry.h"

#include <algorithm>
#include <utility>

#include "fs/fs.h"
#include "korvel/plx/common.h"
#include "manager/manager_impl.h"
#include "process/lock.h"
#include "process/unloading.h"

namespace Korvel::CANTORIS::PLX {

namespace {

KRT_PLX_Result checkRequest(const ManagerRequest& request)
{
    if (request.appID == nullptr || request.systemClipDirPath == nullptr ||
        request.userClipDirPath == nullptr) {
        return KRT_PLX_RESULT_NULL_ARGUMENT;
    }
    return *request.appID == Char{} ? KRT_PLX_RESULT_EMPTY_APP_ID : KRT_PLX_RESULT_OK;
}

KRT_PLX_Result checkDirectories(const ManagerRequest& request)
{
    if (!fs::isDirectory(request.systemClipDirPath)) {
        return KRT_PLX_RESULT_DIRECTORY_MISSING;
    }
    const String userDirectory = request.userClipDirPath;
    const bool isThere = fs::isDirectory(userDirectory) || fs::createDirectories(userDirectory);
    return isThere ? KRT_PLX_RESULT_OK : KRT_PLX_RESULT_DIRECTORY_NOT_CREATED;
}

void report(KRT_PLX_Result result, std::uint32_t* resultCode)
{
    if (resultCode != nullptr) {
        *resultCode = result;
    }
}

} // namespace

constexpr Registry::Registry() = default;
Registry::~Registry() = default;

// Never destroyed: while the process ends, threads of the host may still be using it, and late
// destructors of the host may still call it.
union RegistryStorage {
    Registry registry;

    constexpr RegistryStorage() : registry() {}
    // NOLINTNEXTLINE(modernize-use-equals-default): a union with such a member has no default one
    ~RegistryStorage() {}
};

namespace {

constinit RegistryStorage storage;

} // namespace

Registry& Registry::instance() noexcept
{
    return storage.registry;
}

// The directories are checked without the lock, so that a slow drive delays only this call.
Manager* Registry::create(ManagerRequest&& request, std::uint32_t* resultCode)
{
    KRT_PLX_Result result = checkRequest(request);
    if (result == KRT_PLX_RESULT_OK) {
        if (Manager* const standing = withAppID(request.appID)) {
            return standing;
        }
        result = checkDirectories(request);
    }
    if (result != KRT_PLX_RESULT_OK) {
        report(result, resultCode);
        return nullptr;
    }
    return add(std::make_unique<ManagerImpl>(std::move(request)), resultCode);
}

Manager* Registry::withAppID(StringView appID) const
{
    const process::Locked locked;
    const auto place = find(appID);
    return place == managers_.end() ? nullptr : place->get();
}

// Another thread may have made a manager of that application ID in the meantime.
Manager* Registry::add(std::unique_ptr<ManagerImpl> manager, std::uint32_t* resultCode)
{
    const process::Locked locked;
    const auto standing = find(manager->appIDText());
    if (standing != managers_.end()) {
        return standing->get();
    }
    managers_.push_back(std::move(manager));
    process::atUnload([] { instance().clear(); });
    report(KRT_PLX_RESULT_OK, resultCode);
    return managers_.back().get();
}

bool Registry::has(const Manager* manager) const
{
    return manager != nullptr && find(manager) != managers_.end();
}

bool Registry::destroy(const Manager* manager)
{
    if (manager == nullptr) {
        return false;
    }
    const process::Locked locked;
    const auto place = find(manager);
    if (place != managers_.end()) {
        managers_.erase(place);
    }
    return true;
}

// Takes no lock: when a host unloads the library, none of its threads may be in it any more.
void Registry::clear()
{
    Managers().swap(managers_);
}

Registry::Managers::const_iterator Registry::find(const Manager* manager) const
{
    return std::find_if(managers_.begin(), managers_.end(),
                        [manager](const auto& own) { return own.get() == manager; });
}

Registry::Managers::const_iterator Registry::find(StringView appID) const
{
    return std::find_if(managers_.begin(), managers_.end(),
                        [appID](const auto& own) { return own->appIDText() == appID; });
}

} // namespace Korvel::CANTORIS::PLX
