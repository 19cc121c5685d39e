#pragma once

#include <memory>

#include "manager/clip_impl.h"
#include "manager/property_editor_impl.h"

namespace Korvel::CANTORIS::PLX {

class ManagerImpl;

class UserClipImpl final : public UserClip, public ClipImpl {
public:
    static constexpr ClipKind kind = ClipKind::user;

    explicit UserClipImpl(ManagerImpl* manager);

    bool remove() override;
    PropertyEditor* createPropertyEditor() override;
    void destroyPropertyEditor(PropertyEditor* editor) override;
    UserClip* asUserClip() noexcept override { return this; }

private:
    ManagerImpl* owner_;
    std::unique_ptr<PropertyEditorImpl> editor_;
};

} // namespace Korvel::CANTORIS::PLX
