#include "clip/editable_tags.h"

#include <algorithm>

namespace Korvel::CANTORIS::PLX {

bool EditableTags::add(Tag tag, const Char* text)
{
    if (text == nullptr) {
        return false;
    }
    const StringView wanted = text;
    if (!takesText(tag, wanted)) {
        return false;
    }
    list(tag).add(wanted);
    return true;
}

bool EditableTags::addLanguage(std::int32_t number)
{
    if (!takesLanguage(number)) {
        return false;
    }
    auto& numbers = languageList();
    if (std::find(numbers.begin(), numbers.end(), number) == numbers.end()) {
        numbers.push_back(number);
    }
    return true;
}

bool EditableTags::remove(Tag tag, const Char* text)
{
    return text != nullptr && list(tag).remove(text);
}

bool EditableTags::removeLanguage(std::int32_t number)
{
    auto& numbers = languageList();
    const auto found = std::find(numbers.begin(), numbers.end(), number);
    if (found == numbers.end()) {
        return false;
    }
    numbers.erase(found);
    return true;
}

} // namespace Korvel::CANTORIS::PLX
