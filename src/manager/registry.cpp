#include "manager/registry.h"

#include <algorithm>
#include <new>

#include "fs/fs.h"
#include "manager/manager_impl.h"
#include "result.h"

namespace Korvel::CANTORIS::PLX {

namespace {

Result checkRequest(const ManagerRequest& request)
{
    if (request.appID == nullptr || request.systemClipDirPath == nullptr ||
        request.userClipDirPath == nullptr) {
        return Result::nullArgument;
    }
    return *request.appID == Char{} ? Result::emptyAppID : Result::success;
}

Result checkDirectories(const ManagerRequest& request)
{
    if (!fs::isDirectory(request.systemClipDirPath)) {
        return Result::noDirectory;
    }
    const String userDirectory = request.userClipDirPath;
    const bool isThere = fs::isDirectory(userDirectory) || fs::createDirectories(userDirectory);
    return isThere ? Result::success : Result::directoryNotCreated;
}

void report(Result result, std::uint32_t* resultCode)
{
    if (resultCode != nullptr) {
        *resultCode = code(result);
    }
}

} // namespace

// Emptied at unload, but not destroyed: a host's own late destructors may still ask it, and are to
// find it empty rather than gone.
union RegistryStorage {
    Registry registry;

    RegistryStorage() : registry() {}
    ~RegistryStorage() { registry.clear(); }
};

Registry& Registry::instance()
{
    static RegistryStorage storage;
    return storage.registry;
}

Registry::Registry() = default;
Registry::~Registry() = default;

Manager* Registry::create(ManagerRequest&& request, std::uint32_t* resultCode)
{
    const std::lock_guard guard(lock_);
    Result result = checkRequest(request);
    if (result == Result::success) {
        if (Manager* const standing = withAppID(request.appID)) {
            return standing;
        }
        result = checkDirectories(request);
    }
    if (result != Result::success) {
        report(result, resultCode);
        return nullptr;
    }
    managers_.push_back(std::make_unique<ManagerImpl>(std::move(request)));
    report(Result::success, resultCode);
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
    const std::lock_guard guard(lock_);
    const auto place = find(manager);
    if (place != managers_.end()) {
        managers_.erase(place);
    }
    return true;
}

void Registry::clear()
{
    const std::lock_guard guard(lock_);
    Managers().swap(managers_);
}

Registry::Managers::const_iterator Registry::find(const Manager* manager) const
{
    return std::find_if(managers_.begin(), managers_.end(),
                        [manager](const auto& own) { return own.get() == manager; });
}

Manager* Registry::withAppID(StringView appID) const
{
    const auto found = std::find_if(managers_.begin(), managers_.end(),
                                    [appID](const auto& own) { return own->appIDText() == appID; });
    return found == managers_.end() ? nullptr : found->get();
}

} // namespace Korvel::CANTORIS::PLX
