#include "model/vibrato_impl.h"

#include "model/note.h"

namespace Korvel::CANTORIS::PLX {

namespace {

// The three reading functions that both variants share; they use the two curves.
template <class Curves>
std::int64_t countIn(const Curves& curves, std::uint32_t type)
{
    return type < curves.size() ? static_cast<std::int64_t>(curves[type].size()) : -1;
}

template <class Curves>
auto pointIn(const Curves& curves, std::uint32_t type, std::uint64_t index)
{
    return type < curves.size() ? curves[type].at(index) : nullptr;
}

template <class Curves>
bool isIn(const Curves& curves, std::uint32_t type, const VibratoParameterBase* element)
{
    return type < curves.size() && curves[type].has(element);
}

} // namespace

bool VibratoBaseImpl::assignDuration(std::int32_t value)
{
    return assign(duration_, within(note_->duration()), value);
}

VibratoBase* VibratoParameterImpl::parent() const noexcept
{
    return &vibrato_;
}

void VibratoImpl::buildCurve(std::uint32_t type, std::vector<CurvePoint>& points)
{
    orderCurve(points);
    const VibratoCurve curve{*this, type};
    curves_[type].build(curve, points);
}

std::int64_t VibratoImpl::numParameters(std::uint32_t type) const noexcept
{
    return countIn(curves_, type);
}

VibratoParameter* VibratoImpl::parameter(std::uint32_t type, std::uint64_t index) const noexcept
{
    return pointIn(curves_, type, index);
}

bool VibratoImpl::hasParameter(std::uint32_t type,
                               const VibratoParameterBase* element) const noexcept
{
    return isIn(curves_, type, element);
}

VibratoBase* MutableVibratoParameterImpl::parent() const noexcept
{
    return &vibrato_;
}

bool MutableVibratoParameterImpl::remove()
{
    return removeOrdered(vibrato_.curve(type()), *this);
}

// Another point at the new position is removed.
bool MutableVibratoParameterImpl::move(std::int32_t pos)
{
    if (!vibrato_.acceptsPosition(pos)) {
        return false;
    }
    moveUnique(vibrato_.curve(type()), *this, pos, [this, pos] { assignPos(pos); });
    return true;
}

std::int64_t MutableVibratoImpl::numParameters(std::uint32_t type) const noexcept
{
    return countIn(curves_, type);
}

MutableVibratoParameter* MutableVibratoImpl::parameter(std::uint32_t type,
                                                       std::uint64_t index) const noexcept
{
    return pointIn(curves_, type, index);
}

bool MutableVibratoImpl::hasParameter(std::uint32_t type,
                                      const VibratoParameterBase* element) const noexcept
{
    return isIn(curves_, type, element);
}

MutableVibratoParameter* MutableVibratoImpl::insertParameter(std::uint32_t type, std::int32_t pos,
                                                             std::uint32_t value)
{
    if (type >= vibratoCurves) {
        return nullptr;
    }
    Curve& points = curves_[type];
    const std::size_t place = firstNotBefore(points, pos);
    MutableVibratoParameterImpl* const standing = points.at(place);
    // An existing point is updated even beyond the end of a shortened vibrato, where a new point
    // would be refused.
    if (standing != nullptr && standing->pos() == pos) {
        return standing->setValue(value) ? standing : nullptr;
    }
    auto point = std::make_unique<MutableVibratoParameterImpl>(*this, type, pos);
    if (!acceptsPosition(pos) || !point->setValue(value)) {
        return nullptr;
    }
    return points.insert(place, std::move(point));
}

} // namespace Korvel::CANTORIS::PLX
