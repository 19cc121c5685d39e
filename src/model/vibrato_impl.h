#pragma once

#include <array>
#include <cstdint>

#include "model/assign.h"
#include "model/expression.h"
#include "model/lists.h"
#include "model/positions.h"

namespace Korvel::CANTORIS::PLX {

class VibratoBaseImpl : public virtual VibratoBase {
public:
    explicit VibratoBaseImpl(NoteBase& note) : note_(&note) {}

    std::uint32_t type() const noexcept override { return type_; }
    std::int32_t duration() const noexcept override { return duration_; }

    bool assignType(std::uint32_t value) { return assign(type_, field::vibratoType, value); }
    // 0 up to the note's current duration.
    bool assignDuration(std::int32_t value);

    // Whether a point may be there: within the vibrato's current duration.
    bool acceptsPosition(std::int32_t pos) const { return within(duration_).accepts(pos); }

protected:
    NoteBase* note() const { return note_; }

private:
    NoteBase* note_;
    std::int32_t duration_ = 0;
    std::uint8_t type_ = field::vibratoType.initial;
};

class VibratoParameterBaseImpl : public virtual VibratoParameterBase {
public:
    VibratoParameterBaseImpl(std::uint32_t type, CurvePoint point)
        : pos_(point.pos), type_(static_cast<std::uint8_t>(type)),
          value_(static_cast<std::uint8_t>(point.value))
    {
    }

    std::uint32_t type() const noexcept override { return type_; }
    std::int32_t pos() const noexcept override { return pos_; }
    std::uint32_t value() const noexcept override { return value_; }

    bool assignValue(std::uint32_t value) { return assign(value_, field::vibratoValue, value); }

protected:
    void assignPos(std::int32_t pos) { pos_ = pos; }

private:
    std::int32_t pos_;
    std::uint8_t type_;
    std::uint8_t value_;
};

class VibratoImpl;

// The curve to which a read-only point belongs; points are made from it.
struct VibratoCurve {
    VibratoImpl& vibrato;
    std::uint32_t type;
};

class VibratoParameterImpl final : public VibratoParameter, public VibratoParameterBaseImpl {
public:
    VibratoParameterImpl(const VibratoCurve& curve, CurvePoint point)
        : VibratoParameterBaseImpl(curve.type, point), vibrato_(curve.vibrato)
    {
    }

    bool isMutable() const noexcept override { return false; }
    VibratoBase* parent() const noexcept override;
    VibratoParameter* asVibratoParameter() noexcept override { return this; }

private:
    VibratoImpl& vibrato_;
};

class VibratoImpl final : public Vibrato, public VibratoBaseImpl {
public:
    using VibratoBaseImpl::VibratoBaseImpl;

    // Replaces one curve. The values of the points must be accepted ones; their order does not
    // matter.
    void buildCurve(std::uint32_t type, std::vector<CurvePoint>& points);

    std::int64_t numParameters(std::uint32_t type) const noexcept override;
    bool isMutable() const noexcept override { return false; }
    NoteBase* parent() const noexcept override { return note(); }
    VibratoParameter* parameter(std::uint32_t type, std::uint64_t index) const noexcept override;
    bool hasParameter(std::uint32_t type,
                      const VibratoParameterBase* element) const noexcept override;
    Vibrato* asVibrato() noexcept override { return this; }

private:
    std::array<FixedList<VibratoParameterImpl>, vibratoCurves> curves_;
};

class MutableVibratoImpl;

class MutableVibratoParameterImpl final : public MutableVibratoParameter,
                                          public VibratoParameterBaseImpl {
public:
    MutableVibratoParameterImpl(MutableVibratoImpl& vibrato, std::uint32_t type, std::int32_t pos)
        : VibratoParameterBaseImpl(type, {pos, field::vibratoValue.initial}), vibrato_(vibrato)
    {
    }

    bool isMutable() const noexcept override { return true; }
    VibratoBase* parent() const noexcept override;
    bool remove() override;
    bool move(std::int32_t pos) override;
    bool setValue(std::uint32_t value) noexcept override { return assignValue(value); }
    MutableVibratoParameter* asMutableVibratoParameter() noexcept override { return this; }

private:
    MutableVibratoImpl& vibrato_;
};

class MutableVibratoImpl final : public MutableVibrato, public VibratoBaseImpl {
public:
    using Curve = BlockList<MutableVibratoParameterImpl>;
    using VibratoBaseImpl::VibratoBaseImpl;

    Curve& curve(std::uint32_t type) { return curves_[type]; }

    std::int64_t numParameters(std::uint32_t type) const noexcept override;
    bool isMutable() const noexcept override { return true; }
    NoteBase* parent() const noexcept override { return note(); }
    bool setType(std::uint32_t value) noexcept override { return assignType(value); }
    bool setDuration(std::int32_t value) noexcept override { return assignDuration(value); }
    MutableVibratoParameter* parameter(std::uint32_t type,
                                       std::uint64_t index) const noexcept override;
    bool hasParameter(std::uint32_t type,
                      const VibratoParameterBase* element) const noexcept override;
    MutableVibratoParameter* insertParameter(std::uint32_t type, std::int32_t pos,
                                             std::uint32_t value) override;
    MutableVibrato* asMutableVibrato() noexcept override { return this; }

private:
    std::array<Curve, vibratoCurves> curves_;
};

} // namespace Korvel::CANTORIS::PLX
