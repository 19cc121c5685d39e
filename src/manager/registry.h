// The process-wide list of live managers.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "text.h"

namespace Korvel::CANTORIS::PLX {

class Manager;
class ManagerImpl;

// What a host gives to have a manager made.
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

    // The live manager of that application ID, with `resultCode` left alone, or a new one; null with
    // a code when there can be none.
    Manager* create(ManagerRequest&& request, std::uint32_t* resultCode);

    // Compares addresses and takes no lock: hosts ask this from the manager's own thread.
    bool has(const Manager* manager) const;

    // Deletes the manager if it is registered; the pointer is looked into only then. False for null
    // alone.
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
