#pragma once

#include <vector>

#include "reference/values.h"
#include "model/positions.h"

namespace Korvel::CANTORIS::PLX::reference {

// The (position, value) objects of an array that `accepts` lets in, in the array's order.
template <class Accepts>
std::vector<CurvePoint> readPoints(const Value& array, Accepts accepts)
{
    std::vector<CurvePoint> points;
    points.reserve(array.Size());
    for (const auto& element : array.GetArray()) {
        if (!element.IsObject()) {
            continue;
        }
        const Members members(element, schema::point::keys);
        const auto pos = asInteger(members[schema::point::pos]);
        const auto value = asInteger(members[schema::point::value]);
        if (pos && value && accepts(*pos, *value)) {
            points.push_back({*pos, *value});
        }
    }
    return points;
}

} // namespace Korvel::CANTORIS::PLX::reference
