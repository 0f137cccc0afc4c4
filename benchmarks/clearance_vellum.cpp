// SPDX-License-Identifier: MIT
#include "vellum/clearance.h"

#include "clearance_contenders.h"
#include "plain_passes.h"

namespace VellumBench {
namespace {

using Vellum::DblPt;

template <typename Shape>
Shape ToShape(const std::vector<DblPt>& points) {
    return Shape(static_cast<unsigned>(points.size()), points.data());
}

template <typename Shape>
class VellumClearance : public ClearanceContender {
public:
    using Function = bool (*)(const Shape*, const Shape*, DblPt* extra, DblPt* onA, DblPt* onB);

    VellumClearance(const ShapePair& shapes, Function clearanceFunction)
        : a(ToShape<Shape>(shapes.a)), b(ToShape<Shape>(shapes.b)), clearance(clearanceFunction) {}

    void Measure() override {
        clearance(&a, &b, nullptr, &found.onA, &found.onB);
        found.distance = found.onA.Dist(found.onB);
    }

private:
    Shape a, b;
    Function clearance;
};

class PlainClearancePasses : public ClearanceContender {
public:
    explicit PlainClearancePasses(const ShapePair& pair) : shapes(pair) {}

    void Measure() override {
        PlainClearance(shapes.a.data(), shapes.a.size(), shapes.b.data(), shapes.b.size(), &found.onA, &found.onB);
        found.distance = found.onA.Dist(found.onB);
    }

private:
    ShapePair shapes;
};

}  // namespace

std::unique_ptr<ClearanceContender> MakeVellumClearance(const ShapePair& shapes) {
    using namespace Vellum;
    if (shapes.outlines) return std::make_unique<VellumClearance<PolygonGeom>>(shapes, PolygonPolygonGeomClearance);
    return std::make_unique<VellumClearance<PolylineGeom>>(shapes, PolylinePolylineGeomClearance);
}

std::unique_ptr<ClearanceContender> MakePlainClearance(const ShapePair& shapes) {
    return std::make_unique<PlainClearancePasses>(shapes);
}

}  // namespace VellumBench
