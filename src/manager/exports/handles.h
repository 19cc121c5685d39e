// Which interface belongs to which handle. A handle is always the address of the family's root
// interface, so that handles of the same object are equal, whatever virtual bases it has.
#pragma once

#include "clip/clip_base.h"
#include "clip/filter.h"
#include "korvel/plx/common.h"
#include "manager/clip.h"
#include "manager/manager.h"
#include "manager/property_editor.h"
#include "model/controller.h"
#include "model/effect.h"
#include "model/expression.h"
#include "model/note.h"
#include "model/part.h"

namespace Korvel::CANTORIS::PLX::exports {

// One overload in each direction: a derived interface selects that of its family by its conversion
// to the root.
template <class Root, class Handle>
struct Family {
    static Handle* handleOf(Root* root) { return reinterpret_cast<Handle*>(root); }
    static Root* rootOf(Handle* handle) { return reinterpret_cast<Root*>(handle); }
};

template <class... Family_>
struct AllFamilies : Family_... {
    using Family_::handleOf...;
    using Family_::rootOf...;

    // The only interface that is not derived from the root of its family.
    static auto handleOf(MutableFilter* filter)
    {
        return handleOf(filter == nullptr ? nullptr : filter->asFilter());
    }
};

using Families = AllFamilies<
    Family<Manager, KRT_PLX_Manager>, Family<ClipBase, KRT_PLX_ClipBase>,
    Family<PropertyEditor, KRT_PLX_PropertyEditor>, Family<Filter, KRT_PLX_Filter>,
    Family<PartBase, KRT_PLX_PartBase>, Family<NoteBase, KRT_PLX_NoteBase>,
    Family<DvqmBase, KRT_PLX_DvqmBase>, Family<SingingSkillBase, KRT_PLX_SingingSkillBase>,
    Family<VibratoBase, KRT_PLX_VibratoBase>,
    Family<VibratoParameterBase, KRT_PLX_VibratoParameterBase>,
    Family<MidiControllerBase, KRT_PLX_MidiControllerBase>,
    Family<MidiEventBase, KRT_PLX_MidiEventBase>, Family<EffectBase, KRT_PLX_EffectBase>,
    Family<EffectParameterBase, KRT_PLX_EffectParameterBase>>;

// How to ask a root whether it is also of a derived interface: by one virtual call, because a
// dynamic_cast across virtual bases would cost many times the call that it guards. A root interface
// need not be asked.
template <class Interface>
inline constexpr auto query = nullptr;

template <>
inline constexpr auto query<Clip> = &ClipBase::asClip;
template <>
inline constexpr auto query<UserClip> = &ClipBase::asUserClip;
template <>
inline constexpr auto query<MutableClip> = &ClipBase::asMutableClip;
template <>
inline constexpr auto query<MutableFilter> = &Filter::asMutableFilter;
template <>
inline constexpr auto query<MidiPartBase> = &PartBase::asMidiPartBase;
template <>
inline constexpr auto query<MidiPart> = &PartBase::asMidiPart;
template <>
inline constexpr auto query<MutableMidiPart> = &PartBase::asMutableMidiPart;
template <>
inline constexpr auto query<AudioPartBase> = &PartBase::asAudioPartBase;
template <>
inline constexpr auto query<AudioPart> = &PartBase::asAudioPart;
template <>
inline constexpr auto query<MutableAudioPart> = &PartBase::asMutableAudioPart;
template <>
inline constexpr auto query<Note> = &NoteBase::asNote;
template <>
inline constexpr auto query<MutableNote> = &NoteBase::asMutableNote;
template <>
inline constexpr auto query<Dvqm> = &DvqmBase::asDvqm;
template <>
inline constexpr auto query<MutableDvqm> = &DvqmBase::asMutableDvqm;
template <>
inline constexpr auto query<SingingSkill> = &SingingSkillBase::asSingingSkill;
template <>
inline constexpr auto query<MutableSingingSkill> = &SingingSkillBase::asMutableSingingSkill;
template <>
inline constexpr auto query<Vibrato> = &VibratoBase::asVibrato;
template <>
inline constexpr auto query<MutableVibrato> = &VibratoBase::asMutableVibrato;
template <>
inline constexpr auto query<VibratoParameter> = &VibratoParameterBase::asVibratoParameter;
template <>
inline constexpr auto query<MutableVibratoParameter> =
    &VibratoParameterBase::asMutableVibratoParameter;
template <>
inline constexpr auto query<MidiController> = &MidiControllerBase::asMidiController;
template <>
inline constexpr auto query<MutableMidiController> = &MidiControllerBase::asMutableMidiController;
template <>
inline constexpr auto query<MidiEvent> = &MidiEventBase::asMidiEvent;
template <>
inline constexpr auto query<MutableMidiEvent> = &MidiEventBase::asMutableMidiEvent;
template <>
inline constexpr auto query<Effect> = &EffectBase::asEffect;
template <>
inline constexpr auto query<AudioEffect> = &EffectBase::asAudioEffect;
template <>
inline constexpr auto query<MidiEffect> = &EffectBase::asMidiEffect;
template <>
inline constexpr auto query<MutableEffect> = &EffectBase::asMutableEffect;
template <>
inline constexpr auto query<MutableAudioEffect> = &EffectBase::asMutableAudioEffect;
template <>
inline constexpr auto query<MutableMidiEffect> = &EffectBase::asMutableMidiEffect;
template <>
inline constexpr auto query<EffectParameter> = &EffectParameterBase::asEffectParameter;
template <>
inline constexpr auto query<MutableEffectParameter> =
    &EffectParameterBase::asMutableEffectParameter;

// The interface behind a handle; null for a null handle and for an object of another kind.
template <class Interface, class Handle>
Interface* reach(Handle* handle)
{
    auto* const root = Families::rootOf(handle);
    if constexpr (std::is_null_pointer_v<std::remove_const_t<decltype(query<Interface>)>>) {
        return root;
    } else {
        return root == nullptr ? nullptr : (root->*query<Interface>)();
    }
}

} // namespace Korvel::CANTORIS::PLX::exports
