// The process-wide list of live managers.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "text.h"

namespace Korvel::CANTORIS::PLX {

class Manager;
class ManagerImpl;

// What a host passes to create a manager.
struct ManagerRequest {
    const Char* appID;
    const Char* systemClipDirPath;
    const Char* userClipDirPath;
    std::vector<String> extraSystemClipDirs;
    std::vector<String> extraUserClipDirs;
};

class Registry {
public:
    // Its managers are deleted when the host unloads the library, and left alone when the process ends.
    static Registry& instance() noexcept;

    // The live manager with that application ID, without changing `resultCode`, or a new one. Null
    // and a code when a new one cannot be made.
    Manager* create(ManagerRequest&& request, std::uint32_t* resultCode);

    // Compares addresses and takes no lock: hosts call this while no manager is created or
    // destroyed.
    bool has(const Manager* manager) const;

    // Deletes the manager if it is registered; otherwise the pointer is not dereferenced. False
    // only for null.
    bool destroy(const Manager* manager);

private:
    using Managers = std::vector<std::unique_ptr<ManagerImpl>>;
    friend union RegistryStorage;

    constexpr Registry();
    ~Registry();

    Manager* withAppID(StringView appID) const;
    Manager* add(std::unique_ptr<ManagerImpl> manager, std::uint32_t* resultCode);
    void clear();

    // These take no lock.
    Managers::const_iterator find(const Manager* manager) const;
    Managers::const_iterator find(StringView appID) const;

    Managers managers_;
};

} // namespace Korvel::CANTORIS::PLX
