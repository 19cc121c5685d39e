#include <algorithm>

#include <windows.h> // before its own parts

#include <rpc.h>

#include "fs/fs.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

// A UUID that is unique on this computer alone is enough: so is the folder that it names.
bool create(UUID& uuid)
{
    const RPC_STATUS status = UuidCreate(&uuid);
    return status == RPC_S_OK || status == RPC_S_UUID_LOCAL_ONLY;
}

Char toLower(Char unit)
{
    return unit >= 'A' && unit <= 'F' ? static_cast<Char>(unit - 'A' + 'a') : unit;
}

// The text of the system, freed whatever happens.
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
