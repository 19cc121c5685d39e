#include "fs/win32/identity.h"

#include <cstring>

namespace Korvel::CANTORIS::PLX::fs {

namespace {

constexpr std::uint64_t none = 0;
constexpr std::uint64_t invalid = ~std::uint64_t{0};

// New file systems have 128-bit numbers for their files.
std::optional<Identity> longIdentity(const Handle& handle)
{
    FILE_ID_INFO information{};
    if (!GetFileInformationByHandleEx(handle.get(), FileIdInfo, &information, sizeof information)) {
        return std::nullopt;
    }
    std::uint64_t halves[2];
    static_assert(sizeof halves == sizeof information.FileId);
    std::memcpy(halves, &information.FileId, sizeof halves);
    const bool isNone = halves[0] == none && halves[1] == none;
    const bool isInvalid = halves[0] == invalid && halves[1] == invalid;
    if (isNone || isInvalid) {
        return std::nullopt;
    }
    return Identity{information.VolumeSerialNumber, halves[0], halves[1], {}};
}

std::optional<Identity> shortIdentity(const Handle& handle)
{
    BY_HANDLE_FILE_INFORMATION information{};
    if (!GetFileInformationByHandle(handle.get(), &information)) {
        return std::nullopt;
    }
    const std::uint64_t high = information.nFileIndexHigh;
    const std::uint64_t index = (high << 32) | information.nFileIndexLow;
    if (index == none || index == invalid) {
        return std::nullopt;
    }
    return Identity{information.dwVolumeSerialNumber, index, 0, {}};
}

// Without numbers, the final path may be the same for all ways to the place.
std::optional<Identity> namedIdentity(const Handle& handle)
{
    String name;
    DWORD length = GetFinalPathNameByHandleW(handle.get(), nullptr, 0, 0);
    while (length > name.size()) {
        name.resize(length);
        length = GetFinalPathNameByHandleW(handle.get(), name.data(),
                                           static_cast<DWORD>(name.size()), 0);
    }
    name.resize(length);
    return name.empty() ? std::nullopt : std::optional{Identity{0, 0, 0, std::move(name)}};
}

} // namespace

std::optional<Identity> identityOf(const Handle& handle)
{
    auto identity = longIdentity(handle);
    if (!identity) {
        identity = shortIdentity(handle);
    }
    return identity ? identity : namedIdentity(handle);
}

} // namespace Korvel::CANTORIS::PLX::fs
