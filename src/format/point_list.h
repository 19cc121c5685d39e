#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "format/taking.h"
#include "model/positions.h"

namespace Korvel::CANTORIS::PLX::format {

// What a point of a curve must be, once its curve is known.
struct PointRule {
    bool accepts(const CurvePoint& point) const
    {
        return position.accepts(point.pos) && value.accepts(point.value);
    }

    const keys::Shape& shape; // of a point
    Field<std::int32_t> position;
    Field<std::int32_t> value;
};

// The points of a list as they come.
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
        const Members members = trail.top().members();
        CurvePoint point{};
        if (!taker.take<Of>(members, point)) {
            return false;
        }
        points_.push_back(point);
        if (trail.isHeard()) {
            origins_.push_back(
                {trail.outer().count, members[posPlace]->at, members[valuePlace]->at});
        }
        return true;
    }

    // Takes out the points that the rule does not accept. `below` is the path to the list from the
    // innermost object.
    std::vector<CurvePoint>& keepAccepted(const PointRule& rule, const Trail& trail,
                                          std::string_view below);

private:
    static constexpr std::size_t posPlace = keys::place<keys::Event>("pos");
    static constexpr std::size_t valuePlace = keys::place<keys::Event>("value");

    // Where a point stood, as long as anyone listens.
    struct Origin {
        std::uint64_t index;
        const char* pos;
        const char* value;
    };

    void tellOfLosses(const PointRule& rule, const Trail& trail, std::string_view below) const;

    std::vector<CurvePoint> points_;
    std::vector<Origin> origins_;
};

} // namespace Korvel::CANTORIS::PLX::format
