#include "fs/fs.h"
#include "fs/listing.h"
#include "fs/win32/system.h"

namespace Korvel::CANTORIS::PLX::fs {

namespace {

// The path with links resolved and short names spelled out; empty when it leads nowhere.
String resolve(const String& path)
{
    const Handle handle{path};
    if (!handle) {
        return {};
    }
    String resolved(GetFinalPathNameByHandleW(handle.get(), nullptr, 0, 0), Char{});
    const DWORD length = GetFinalPathNameByHandleW(handle.get(), resolved.data(),
                                                   static_cast<DWORD>(resolved.size()), 0);
    resolved.resize(length < resolved.size() ? length : 0);
    return resolved;
}

bool equalsIgnoringCase(StringView left, StringView right)
{
    return CompareStringOrdinal(left.data(), static_cast<int>(left.size()), right.data(),
                                static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

// Folders may be told apart by case alone; then only their identities tell which one it is.
bool isSameFolder(const String& left, const String& right)
{
    return left == right || (equalsIgnoringCase(left, right) && identify(left) == identify(right));
}

} // namespace

bool exists(const String& path)
{
    return statusOf(path).has_value();
}

bool isDirectory(const String& path)
{
    const auto status = statusOf(path);
    return status && isFolder(status->attributes);
}

bool isPlainFile(const String& path)
{
    const auto status = statusOf(path);
    return status && isPlain(path, *status);
}

bool isStrictlyBelow(const String& path, const String& folder)
{
    const String inner = resolve(path);
    String outer = resolve(folder);
    if (outer.ends_with(separator)) {
        outer.pop_back();
    }
    return !outer.empty() && inner.size() > outer.size() + 1 && inner[outer.size()] == separator &&
           isSameFolder(inner.substr(0, outer.size()), outer);
}

} // namespace Korvel::CANTORIS::PLX::fs
