/**
 * @file expression.hpp
 * The expression objects of a note: Dvqm, singing skill, vibrato; see plx/expression.h.
 */
#ifndef KORVEL_FACE_EXPRESSION_HPP
#define KORVEL_FACE_EXPRESSION_HPP

#include <korvel/face/codes.hpp>
#include <korvel/face/handle.hpp>
#include <korvel/face/range.hpp>
#include <korvel/face/text.hpp>
#include <korvel/plx/expression.h>

namespace korvel::plx {

class Dvqm;
class MutableDvqm;
class MutableNote;
class MutableSingingSkill;
class Note;
class SingingSkill;

/** Any voice-quality component. */
class DvqmBase : public Handle<KRT_PLX_DvqmBase> {
public:
    using Handle::Handle;

    [[nodiscard]] bool isMutable() const noexcept { return KRT_PLX_DvqmBase_isMutable(raw()); }
    [[nodiscard]] bool isAttack() const noexcept { return KRT_PLX_DvqmBase_isAttack(raw()); }
    [[nodiscard]] StringView compID() const noexcept
    {
        return detail::view(KRT_PLX_DvqmBase_compID(raw()));
    }
    [[nodiscard]] std::uint64_t numLevelNames() const noexcept
    {
        return detail::count(KRT_PLX_DvqmBase_numLevelNames, raw());
    }
    [[nodiscard]] StringView levelName(std::uint64_t index) const noexcept
    {
        return detail::view(KRT_PLX_DvqmBase_levelName(raw(), index));
    }
    [[nodiscard]] Range<DvqmBase, &DvqmBase::numLevelNames, &DvqmBase::levelName> levelNames()
        const noexcept
    {
        return Range<DvqmBase, &DvqmBase::numLevelNames, &DvqmBase::levelName>(*this);
    }
    [[nodiscard]] bool isProtected() const noexcept { return KRT_PLX_DvqmBase_isProtected(raw()); }
    [[nodiscard]] std::uint32_t speed() const noexcept { return KRT_PLX_DvqmBase_speed(raw()); }
    [[nodiscard]] float topFactor() const noexcept { return KRT_PLX_DvqmBase_topFactor(raw()); }

    [[nodiscard]] Dvqm asDvqm() const noexcept;
    [[nodiscard]] MutableDvqm asMutableDvqm() const noexcept;
};

/** A component of a read-only note. */
class Dvqm : public DvqmBase {
public:
    using DvqmBase::DvqmBase;

    [[nodiscard]] Note parent() const noexcept;
};

/** A component of an editable note. */
class MutableDvqm : public DvqmBase {
public:
    using DvqmBase::DvqmBase;

    [[nodiscard]] MutableNote parent() const noexcept;

    template <typename Text>
    bool setCompID(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableDvqm_setCompID(raw(), detail::terminated(text).c_str());
    }
    template <typename Text>
    bool addLevelName(const Text& text) const noexcept(detail::isBorrowed<Text>)
    {
        return KRT_PLX_MutableDvqm_addLevelName(raw(), detail::terminated(text).c_str());
    }
    /** Returns the mark, not success. */
    bool protect(bool value) const noexcept { return KRT_PLX_MutableDvqm_protect(raw(), value); }
    bool setSpeed(std::uint32_t value) const noexcept
    {
        return KRT_PLX_MutableDvqm_setSpeed(raw(), value);
    }
    bool setTopFactor(float value) const noexcept
    {
        return KRT_PLX_MutableDvqm_setTopFactor(raw(), value);
    }
};

inline Dvqm DvqmBase::asDvqm() const noexcept
{
    return detail::castIf<Dvqm>(!isMutable(), *this);
}

inline MutableDvqm DvqmBase::asMutableDvqm() const noexcept
{
    return detail::castIf<MutableDvqm>(isMutable(), *this);
}

/** Any singing skill. */
class SingingSkillBase : public Handle<KRT_PLX_SingingSkillBase> {
public:
    using Handle::Handle;

    [[nodiscard]] bool isMutable() const noexcept
    {
        return KRT_PLX_SingingSkillBase_isMutable(raw());
    }
    [[nodiscard]] std::int32_t duration() const noexcept
    {
        return KRT_PLX_SingingSkillBase_duration(raw());
    }
    [[nodiscard]] std::uint32_t preWeight() const noexcept
    {
        return KRT_PLX_SingingSkillBase_preWeight(raw());
    }
    [[nodiscard]] std::uint32_t postWeight() const noexcept
    {
        return KRT_PLX_SingingSkillBase_postWeight(raw());
    }

    [[nodiscard]] SingingSkill asSingingSkill() const noexcept;
    [[nodiscard]] MutableSingingSkill asMutableSingingSkill() const noexcept;
};

/** The singing skill of a read-only note. */
class SingingSkill : public SingingSkillBase {
public:
    using SingingSkillBase::SingingSkillBase;

    [[nodiscard]] Note parent() const noexcept;
};

/** The singing skill of an editable note. */
class MutableSingingSkill : public SingingSkillBase {
public:
    using SingingSkillBase::SingingSkillBase;

    [[nodiscard]] MutableNote parent() const noexcept;

    bool setDuration(std::int32_t duration) const noexcept
    {
        return KRT_PLX_MutableSingingSkill_setDuration(raw(), duration);
    }
    bool setPreWeight(std::uint32_t value) const noexcept
    {
        return KRT_PLX_MutableSingingSkill_setPreWeight(raw(), value);
    }
    bool setPostWeight(std::uint32_t value) const noexcept
    {
        return KRT_PLX_MutableSingingSkill_setPostWeight(raw(), value);
    }
};

inline SingingSkill SingingSkillBase::asSingingSkill() const noexcept
{
    return detail::castIf<SingingSkill>(!isMutable(), *this);
}

inline MutableSingingSkill SingingSkillBase::asMutableSingingSkill() const noexcept
{
    return detail::castIf<MutableSingingSkill>(isMutable(), *this);
}

} // namespace korvel::plx

#endif
