#include "format/point_list.h"

#include <algorithm>
#include <unordered_set>

namespace Korvel::CANTORIS::PLX::format {

std::vector<CurvePoint>& PointList::keepAccepted(const PointRule& rule, const Trail& trail,
                                                 std::string_view below)
{
    if (trail.isHeard()) {
        tellOfLosses(rule, trail, below);
    }
    points_.erase(std::remove_if(points_.begin(), points_.end(),
                                 [&rule](const CurvePoint& point) { return !rule.accepts(point); }),
                  points_.end());
    return points_;
}

// Of several points at one position the first one stays.
void PointList::tellOfLosses(const PointRule& rule, const Trail& trail,
                             std::string_view below) const
{
    std::unordered_set<std::int32_t> positions;
    for (std::size_t index = 0; index < points_.size(); ++index) {
        const CurvePoint& point = points_[index];
        const Origin& origin = origins_[index];
        const std::string path = std::string(below) + '/' + std::to_string(origin.index);
        if (!rule.position.accepts(point.pos)) {
            trail.lostBelow(LossReason::notAccepted, path, rule.shape, posPlace,
                            keys::rangeOf(rule.position), origin.pos);
        } else if (!rule.value.accepts(point.value)) {
            trail.lostBelow(LossReason::notAccepted, path, rule.shape, valuePlace,
                            keys::rangeOf(rule.value), origin.value);
        } else if (!positions.insert(point.pos).second) {
            trail.lostBelow(LossReason::duplicate, path, rule.shape, posPlace,
                            keys::rangeOf(rule.position), origin.pos);
        }
    }
}

} // namespace Korvel::CANTORIS::PLX::format
