#include "model/dvqm_impl.h"

namespace Korvel::CANTORIS::PLX {

const Char* DvqmBaseImpl::compID() const noexcept
{
    return component_ == nullptr ? ""_t.data() : component_->id.c_str();
}

std::uint64_t DvqmBaseImpl::numLevelNames() const noexcept
{
    return component_ == nullptr ? 0 : component_->levelNames.size();
}

const Char* DvqmBaseImpl::levelName(std::uint64_t index) const noexcept
{
    return index < numLevelNames() ? component_->levelNames[static_cast<std::size_t>(index)].c_str()
                                   : nullptr;
}

void DvqmBaseImpl::assignCompID(StringView text)
{
    if (!text.empty() || component_ != nullptr) {
        component().id = String(text); // a copy first: the text may be our own
    }
}

void DvqmBaseImpl::appendLevelName(StringView text)
{
    component().levelNames.emplace_back(text);
}

DvqmBaseImpl::Component& DvqmBaseImpl::component()
{
    if (component_ == nullptr) {
        component_ = std::make_unique<Component>();
    }
    return *component_;
}

bool MutableDvqmImpl::addLevelName(const Char* text)
{
    if (isNullOrEmpty(text) || numLevelNames() >= maxEditedLevelNames) {
        return false;
    }
    appendLevelName(text);
    return true;
}

// Returns the flag, not whether it succeeded: hosts rely on it.
bool MutableDvqmImpl::protect(bool value) noexcept
{
    assignProtected(value);
    return value;
}

} // namespace Korvel::CANTORIS::PLX
