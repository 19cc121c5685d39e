#include "kit_fixture.h"

namespace kit {

void Notices::keep(void* context, const KRT_PLX_KitNotice* notice)
{
    static_cast<Notices*>(context)->all_.push_back(*notice);
}

std::vector<std::string> Notices::lines() const
{
    std::vector<std::string> result;
    for (const KRT_PLX_KitNotice& notice : all_) {
        std::string line(KRT_PLX_Kit_describe(&notice, nullptr, 0), ' ');
        KRT_PLX_Kit_describe(&notice, line.data(), line.size());
        line.pop_back();
        result.push_back(line);
    }
    return result;
}

} // namespace kit
