// SPDX-License-Identifier: MIT
#include "boost_shapes.h"
#include "clearance_contenders.h"

namespace VellumBench {
namespace {

template <typename Shape>
class BoostClearance : public ClearanceContender {
public:
    BoostClearance(const Shape& first, const Shape& second) : a(first), b(second) {}

    void Measure() override { found.distance = boost::geometry::distance(a, b); }

private:
    Shape a, b;
};

}  // namespace

std::unique_ptr<ClearanceContender> MakeBoostClearance(const ShapePair& shapes) {
    if (shapes.outlines) {
        return std::make_unique<BoostClearance<BoostPolygon>>(ToBoostPolygon(shapes.a), ToBoostPolygon(shapes.b));
    }
    return std::make_unique<BoostClearance<BoostLine>>(ToBoostLine(shapes.a), ToBoostLine(shapes.b));
}

}  // namespace VellumBench
