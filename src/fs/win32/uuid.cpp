#include <algorithm>

#include <windows.h> // must come before its other headers

#include <rpc.h>

#include "fs/fs.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

// A UUID that is unique only on this computer is enough: so is the folder that gets its name.
bool create(UUID& uuid)
{
    const RPC_STATUS status = UuidCreate(&uuid);
    return status == RPC_S_OK || status == RPC_S_UUID_LOCAL_ONLY;
}

Char toLower(Char unit)
{
    return unit >= 'A' && unit <= 'F' ? static_cast<Char>(unit - 'A' + 'a') : unit;
}

// A text that the system has allocated; frees it.
class UuidText {
public:
    explicit UuidText(UUID& uuid)
    {
        if (UuidToStringW(&uuid, &text_) != RPC_S_OK) {
            text_ = nullptr;
        }
    }
    UuidText(const UuidText&) = delete;
    UuidText& operator=(const UuidText&) = delete;
    ~UuidText() { RpcStringFreeW(&text_); }

    StringView view() const { return viewOrEmpty(reinterpret_cast<const Char*>(text_)); }

private:
    RPC_WSTR text_ = nullptr;
};

} // namespace

String newUuid()
{
    UUID uuid{};
    if (!create(uuid)) {
        return {};
    }
    const UuidText systemText{uuid};
    String text{systemText.view()};
    std::transform(text.begin(), text.end(), text.begin(), toLower);
    return text;
}

} // namespace Korvel::CANTORIS::PLX::fs
