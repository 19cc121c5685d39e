#include "support/exported.h"

#include <map>

#include <exported_functions.h>

namespace support {

std::string_view nameOfFunction(void (*function)())
{
    static constexpr std::string_view prefix = "KRT_PLX_";
    static const auto names = [] {
        std::map<void (*)(), std::string_view> all;
        forEachExportedFunction([&all](std::string_view name, auto address) {
            all.emplace(reinterpret_cast<void (*)()>(address), name.substr(prefix.size()));
        });
        return all;
    }();
    return names.at(function);
}

} // namespace support
