#include "clip/filter_impl.h"

#include "model/fields.h"

namespace Korvel::CANTORIS::PLX {

std::int32_t FilterImpl::language(std::uint64_t index) const noexcept
{
    const auto& languages = tags_.languages();
    return index < languages.size() ? languages[index] : unsetInt32;
}

const Char* FilterImpl::text(Tag tag, std::uint64_t index) const
{
    const auto& texts = tags_.texts(tag);
    return index < texts.size() ? texts[index].data() : nullptr;
}

} // namespace Korvel::CANTORIS::PLX
