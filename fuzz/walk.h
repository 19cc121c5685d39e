// A walk over all that can be reached from a clip. It requires what must always hold, adds every
// value up to one number, and gathers the handles.
#pragma once

#include <cstdint>
#include <string_view>
#include <tuple>
#include <vector>

#include <korvel/plx.h>

namespace fuzz {

template <class Handle>
struct Living {
    std::vector<Handle*> readOnly;
    std::vector<Handle*> editable;
};

using LivingHandles =
    std::tuple<Living<KRT_PLX_Manager>, Living<KRT_PLX_ClipBase>, Living<KRT_PLX_PropertyEditor>,
               Living<KRT_PLX_Filter>, Living<KRT_PLX_PartBase>, Living<KRT_PLX_NoteBase>,
               Living<KRT_PLX_DvqmBase>, Living<KRT_PLX_SingingSkillBase>,
               Living<KRT_PLX_VibratoBase>, Living<KRT_PLX_VibratoParameterBase>,
               Living<KRT_PLX_MidiControllerBase>, Living<KRT_PLX_MidiEventBase>,
               Living<KRT_PLX_EffectBase>, Living<KRT_PLX_EffectParameterBase>>;

// All values that were added, and their order, in one number.
class Digest {
public:
    void add(std::uint64_t value);
    void add(float value);
    void add(std::basic_string_view<KRT_PLX_Char> text);

    [[nodiscard]] std::uint64_t value() const { return value_; }

private:
    std::uint64_t value_ = 0;
};

// Whether the objects' addresses count as values: for asking if anything at all has changed.
enum class Addresses : bool { ignored, counted };

class Walk {
public:
    explicit Walk(Addresses addresses = Addresses::ignored) : addresses_(addresses) {}

    void manager(KRT_PLX_Manager* manager);
    void catalogueClip(KRT_PLX_ClipBase* clip); // without its path
    void mutableClip(KRT_PLX_ClipBase* clip);
    void readPart(KRT_PLX_ClipBase* clip); // the loaded part alone

    [[nodiscard]] std::uint64_t digest() const { return digest_.value(); }
    [[nodiscard]] LivingHandles& handles() { return handles_; }

private:
    // How to reach the children of one variant of the objects.
    struct ReadOnly;
    struct Editable;

    template <class Variant, class Handle>
    void meet(Handle* handle);
    void text(const KRT_PLX_Char* text);
    void nonEmptyText(const KRT_PLX_Char* text);
    void number(std::uint32_t value, std::uint32_t largest);
    template <class Handle>
    void values(Handle* handle);

    template <class Variant>
    void clip(KRT_PLX_ClipBase* clip);
    void filter(KRT_PLX_Filter* filter);
    template <class Variant>
    void part(KRT_PLX_ClipBase* clip);
    template <class Variant>
    void audioPart(KRT_PLX_PartBase* part);
    template <class Variant>
    void midiPart(KRT_PLX_PartBase* part);
    void aiLanguages(KRT_PLX_PartBase* part);
    template <class Variant>
    void notes(KRT_PLX_PartBase* part);
    template <class Variant>
    void note(KRT_PLX_NoteBase* note);
    template <class Variant>
    void dvqm(KRT_PLX_DvqmBase* dvqm);
    template <class Variant>
    void singingSkill(KRT_PLX_SingingSkillBase* skill);
    template <class Variant>
    void vibrato(KRT_PLX_VibratoBase* vibrato);
    template <class Variant>
    void points(KRT_PLX_VibratoBase* vibrato, std::uint32_t type);
    template <class Variant>
    void lane(KRT_PLX_MidiControllerBase* lane);
    template <class Variant>
    void effects(KRT_PLX_PartBase* part, bool (*count)(KRT_PLX_PartBase*, std::uint64_t*),
                 KRT_PLX_EffectBase* (*at)(KRT_PLX_PartBase*, std::uint64_t),
                 bool (*has)(KRT_PLX_PartBase*, KRT_PLX_EffectBase*),
                 KRT_PLX_PartBase* (*parent)(KRT_PLX_EffectBase*));
    template <class Variant>
    void effect(KRT_PLX_EffectBase* effect);

    Addresses addresses_;
    Digest digest_;
    LivingHandles handles_;
};

} // namespace fuzz
