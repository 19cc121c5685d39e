#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "format/taking.h"
#include "model/positions.h"

namespace Korvel::CANTORIS::PLX::format {

// The points of a list, as they are read. Which ones are accepted is known when their curve is.
class PointList {
public:
    void clear()
    {
        points_.clear();
        origins_.clear();
    }

    // Adds the innermost object, which has ended. False when it is not a point.
    template <class Of>
    bool append(const Trail& trail, Taker& taker)
    {
        CurvePoint point{};
        if (!taker.take<Of>(trail.top().members(), point)) {
            return false;
        }
        points_.push_back(point);
        if (trail.isHeard()) {
            origins_.push_back({trail.outer().count, trail.top().at});
        }
        return true;
    }

    // Removes the points that `accepts` refuses. `below` is the path from the innermost object to
    // the list.
    template <class Accepts>
    std::vector<CurvePoint>& keepAccepted(Accepts accepts, const Trail& trail,
                                          std::string_view below)
    {
        std::size_t kept = 0;
        for (std::size_t index = 0; index < points_.size(); ++index) {
            if (accepts(points_[index])) {
                points_[kept++] = points_[index];
            } else if (trail.isHeard()) {
                trail.lostBelow(LossReason::notAccepted, below, origins_[index].index,
                                origins_[index].at);
            }
        }
        points_.resize(kept);
        return points_;
    }

private:
    // Where a point was in the document; only used with a listener.
    struct Origin {
        std::uint64_t index;
        const char* at;
    };

    std::vector<CurvePoint> points_;
    std::vector<Origin> origins_;
};

} // namespace Korvel::CANTORIS::PLX::format
