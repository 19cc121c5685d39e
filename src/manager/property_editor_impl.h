#pragma once

#include <set>

#include "clip/clip_properties.h"
#include "manager/property_editor.h"

namespace Korvel::CANTORIS::PLX {

class UserClipImpl;

// Starts empty: what the host does not set is saved with its initial value.
class PropertyEditorImpl final : public PropertyEditor {
public:
    explicit PropertyEditorImpl(UserClipImpl& clip) : clip_(clip) {}

    bool setClipName(const Char* text) override;
    bool addFilterType(const Char* text) override { return add(filterTypes_, text); }
    bool addFilterGenre(const Char* text) override { return add(filterGenres_, text); }
    bool setPartKey(std::uint32_t value) noexcept override { return part_.assignPartKey(value); }
    bool setPartTempo(std::uint32_t value) noexcept override
    {
        return part_.assignPartTempo(value);
    }
    bool save() override;

private:
    static bool add(std::set<String>& texts, const Char* text);

    UserClipImpl& clip_;
    String clipName_;
    std::set<String> filterTypes_;
    std::set<String> filterGenres_;
    ClipBaseProperties part_;
};

} // namespace Korvel::CANTORIS::PLX
