/**
 * @file vibrato.hpp
 * The vibrato of a note and the points of its curves; see plx/expression.h.
 */
#ifndef KORVEL_FACE_VIBRATO_HPP
#define KORVEL_FACE_VIBRATO_HPP

#include <optional>

#include <korvel/face/codes.hpp>
#include <korvel/face/handle.hpp>
#include <korvel/face/range.hpp>
#include <korvel/plx/expression.h>

namespace korvel::plx {

class MutableNote;
class MutableVibrato;
class MutableVibratoParameter;
class Note;
class Vibrato;
class VibratoParameter;

/** Any point of a vibrato's curve. */
class VibratoParameterBase : public Handle<KRT_PLX_VibratoParameterBase> {
public:
    using Handle::Handle;

    [[nodiscard]] bool isMutable() const noexcept
    {
        return KRT_PLX_VibratoParameterBase_isMutable(raw());
    }
    [[nodiscard]] VibratoPointKind type() const noexcept
    {
        return static_cast<VibratoPointKind>(KRT_PLX_VibratoParameterBase_type(raw()));
    }
    [[nodiscard]] std::int32_t pos() const noexcept
    {
        return KRT_PLX_VibratoParameterBase_pos(raw());
    }
    [[nodiscard]] std::uint32_t value() const noexcept
    {
        return KRT_PLX_VibratoParameterBase_value(raw());
    }

    [[nodiscard]] VibratoParameter asVibratoParameter() const noexcept;
    [[nodiscard]] MutableVibratoParameter asMutableVibratoParameter() const noexcept;
};

/** A point of a read-only vibrato. */
class VibratoParameter : public VibratoParameterBase {
public:
    using VibratoParameterBase::VibratoParameterBase;

    [[nodiscard]] Vibrato parent() const noexcept;
};

/** A point of an editable vibrato. */
class MutableVibratoParameter : public VibratoParameterBase {
public:
    using VibratoParameterBase::VibratoParameterBase;

    [[nodiscard]] MutableVibrato parent() const noexcept;

    /** Kills this handle. */
    bool remove() const noexcept { return KRT_PLX_MutableVibratoParameter_remove(raw()); }
    /** Kills the handle of a point of the same curve that stands there already. */
    bool move(std::int32_t pos) const noexcept
    {
        return KRT_PLX_MutableVibratoParameter_move(raw(), pos);
    }
    bool setValue(std::uint32_t value) const noexcept
    {
        return KRT_PLX_MutableVibratoParameter_setValue(raw(), value);
    }
};

inline VibratoParameter VibratoParameterBase::asVibratoParameter() const noexcept
{
    return detail::castIf<VibratoParameter>(!isMutable(), *this);
}

inline MutableVibratoParameter VibratoParameterBase::asMutableVibratoParameter() const noexcept
{
    return detail::castIf<MutableVibratoParameter>(isMutable(), *this);
}

/** One of the two curves of a vibrato, as the owner of a range of points. */
template <typename VibratoType>
class VibratoCurve {
public:
    /** Of a null handle. */
    VibratoCurve() noexcept = default;
    /** One of the two. */
    VibratoCurve(VibratoType vibrato, VibratoPointKind kind) noexcept
        : vibrato_(vibrato), kind_(kind)
    {
    }

    /** The number of points. */
    [[nodiscard]] std::uint64_t numPoints() const noexcept { return vibrato_.numParameters(kind_); }
    /** A point by its place. */
    [[nodiscard]] auto point(std::uint64_t index) const noexcept
    {
        return vibrato_.parameter(kind_, index);
    }

private:
    VibratoType vibrato_;
    VibratoPointKind kind_ = VibratoPointKind::none;
};

/** The points of a curve. */
template <typename VibratoType>
using VibratoPoints = Range<VibratoCurve<VibratoType>,
    &VibratoCurve<VibratoType>::numPoints,
    &VibratoCurve<VibratoType>::point>;

/** Any vibrato. */
class VibratoBase : public Handle<KRT_PLX_VibratoBase> {
public:
    using Handle::Handle;

    [[nodiscard]] bool isMutable() const noexcept { return KRT_PLX_VibratoBase_isMutable(raw()); }
    /** In the host's numbering; empty for a null handle. */
    [[nodiscard]] std::optional<std::uint32_t> type() const noexcept
    {
        const std::uint32_t type = KRT_PLX_VibratoBase_type(raw());
        return type != KRT_PLX_VIBRATO_TYPE_NONE ? std::optional<std::uint32_t>(type)
                                                 : std::nullopt;
    }
    [[nodiscard]] std::int32_t duration() const noexcept
    {
        return KRT_PLX_VibratoBase_duration(raw());
    }
    /** Unlike the C function, 0 for a kind that is none. */
    [[nodiscard]] std::uint64_t numParameters(VibratoPointKind kind) const noexcept
    {
        const auto type = static_cast<std::uint32_t>(kind);
        const std::uint64_t number = detail::count(KRT_PLX_VibratoBase_numParameters, raw(), type);
        return number == KRT_PLX_VIBRATO_NO_COUNT ? 0 : number;
    }

    [[nodiscard]] Vibrato asVibrato() const noexcept;
    [[nodiscard]] MutableVibrato asMutableVibrato() const noexcept;
};

/** The vibrato of a read-only note. */
class Vibrato : public VibratoBase {
public:
    using VibratoBase::VibratoBase;

    [[nodiscard]] Note parent() const noexcept;

    [[nodiscard]] VibratoParameter parameter(
        VibratoPointKind kind, std::uint64_t index) const noexcept
    {
        return VibratoParameter(
            KRT_PLX_Vibrato_parameter(raw(), static_cast<std::uint32_t>(kind), index));
    }
    [[nodiscard]] bool hasParameter(
        VibratoPointKind kind, VibratoParameterBase element) const noexcept
    {
        return KRT_PLX_Vibrato_hasParameter(raw(), static_cast<std::uint32_t>(kind), element.raw());
    }
    /** The points of a curve by position, ascending. */
    [[nodiscard]] auto points(VibratoPointKind kind) const noexcept;
    /** The points of the depth curve. */
    [[nodiscard]] auto depths() const noexcept;
    /** The points of the rate curve. */
    [[nodiscard]] auto rates() const noexcept;
};

/** The vibrato of an editable note. */
class MutableVibrato : public VibratoBase {
public:
    using VibratoBase::VibratoBase;

    [[nodiscard]] MutableNote parent() const noexcept;

    bool setType(std::uint32_t type) const noexcept
    {
        return KRT_PLX_MutableVibrato_setType(raw(), type);
    }
    bool setDuration(std::int32_t duration) const noexcept
    {
        return KRT_PLX_MutableVibrato_setDuration(raw(), duration);
    }
    [[nodiscard]] MutableVibratoParameter parameter(
        VibratoPointKind kind, std::uint64_t index) const noexcept
    {
        return MutableVibratoParameter(
            KRT_PLX_MutableVibrato_parameter(raw(), static_cast<std::uint32_t>(kind), index));
    }
    [[nodiscard]] bool hasParameter(
        VibratoPointKind kind, VibratoParameterBase element) const noexcept
    {
        return KRT_PLX_MutableVibrato_hasParameter(
            raw(), static_cast<std::uint32_t>(kind), element.raw());
    }
    MutableVibratoParameter insertParameter(
        VibratoPointKind kind, std::int32_t pos, std::uint32_t value) const noexcept
    {
        return MutableVibratoParameter(KRT_PLX_MutableVibrato_insertParameter(
            raw(), static_cast<std::uint32_t>(kind), pos, value));
    }
    /** The points of a curve by position, ascending. */
    [[nodiscard]] auto points(VibratoPointKind kind) const noexcept;
    /** The points of the depth curve. */
    [[nodiscard]] auto depths() const noexcept;
    /** The points of the rate curve. */
    [[nodiscard]] auto rates() const noexcept;
};

inline Vibrato VibratoBase::asVibrato() const noexcept
{
    return detail::castIf<Vibrato>(!isMutable(), *this);
}

inline MutableVibrato VibratoBase::asMutableVibrato() const noexcept
{
    return detail::castIf<MutableVibrato>(isMutable(), *this);
}

inline Vibrato VibratoParameter::parent() const noexcept
{
    return Vibrato(KRT_PLX_VibratoParameter_parent(raw()));
}

inline MutableVibrato MutableVibratoParameter::parent() const noexcept
{
    return MutableVibrato(KRT_PLX_MutableVibratoParameter_parent(raw()));
}

inline auto Vibrato::points(VibratoPointKind kind) const noexcept
{
    return VibratoPoints<Vibrato>(VibratoCurve<Vibrato>(*this, kind));
}

inline auto Vibrato::depths() const noexcept
{
    return points(VibratoPointKind::depth);
}

inline auto Vibrato::rates() const noexcept
{
    return points(VibratoPointKind::rate);
}

inline auto MutableVibrato::points(VibratoPointKind kind) const noexcept
{
    return VibratoPoints<MutableVibrato>(VibratoCurve<MutableVibrato>(*this, kind));
}

inline auto MutableVibrato::depths() const noexcept
{
    return points(VibratoPointKind::depth);
}

inline auto MutableVibrato::rates() const noexcept
{
    return points(VibratoPointKind::rate);
}

} // namespace korvel::plx

#endif
