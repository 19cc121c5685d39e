#include "model/positions.h"

namespace Korvel::CANTORIS::PLX {

void orderCurve(std::vector<CurvePoint>& points)
{
    const auto before = [](const CurvePoint& a, const CurvePoint& b) { return a.pos < b.pos; };
    if (!std::is_sorted(points.begin(), points.end(), before)) {
        std::stable_sort(points.begin(), points.end(), before);
    }
    const auto same = [](const CurvePoint& a, const CurvePoint& b) { return a.pos == b.pos; };
    points.erase(std::unique(points.begin(), points.end(), same), points.end());
}

} // namespace Korvel::CANTORIS::PLX
