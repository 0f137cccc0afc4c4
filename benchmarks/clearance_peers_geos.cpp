// SPDX-License-Identifier: MIT
#include "clearance_contenders.h"
#include "geos_shapes.h"
#include "suite.h"

namespace VellumBench {
namespace {

class GeosClearance : public ClearanceContender {
public:
    explicit GeosClearance(const ShapePair& pair)
        : a(ToGeometry(pair.outlines, pair.a)), b(ToGeometry(pair.outlines, pair.b)) {}

    void Measure() final {
        if (!MeasureDistance(&found.distance)) Abort("GEOS cannot measure a distance");
    }

protected:
    GEOSContextHandle_t Context() const { return shapes.Context(); }
    const GEOSGeometry* A() const { return a; }
    const GEOSGeometry* B() const { return b; }

private:
    /// Gives 0 where it fails, as GEOS does.
    virtual int MeasureDistance(double* distance) = 0;

    const GEOSGeometry* ToGeometry(bool outline, const std::vector<Vellum::DblPt>& points) {
        return outline ? shapes.Polygon(points) : shapes.Line(points);
    }

    GeosShapes shapes;
    const GEOSGeometry* a;
    const GEOSGeometry* b;
};

class GeosPlain : public GeosClearance {
public:
    using GeosClearance::GeosClearance;

private:
    int MeasureDistance(double* distance) override { return GEOSDistance_r(Context(), A(), B(), distance); }
};

class GeosIndexed : public GeosClearance {
public:
    using GeosClearance::GeosClearance;

private:
    int MeasureDistance(double* distance) override { return GEOSDistanceIndexed_r(Context(), A(), B(), distance); }
};

class GeosPrepared : public GeosClearance {
public:
    explicit GeosPrepared(const ShapePair& pair) : GeosClearance(pair), prepared(GEOSPrepare_r(Context(), A())) {
        Measure();
    }
    GeosPrepared(const GeosPrepared&) = delete;
    GeosPrepared& operator=(const GeosPrepared&) = delete;
    ~GeosPrepared() override { GEOSPreparedGeom_destroy_r(Context(), prepared); }

private:
    int MeasureDistance(double* distance) override {
        return GEOSPreparedDistance_r(Context(), prepared, B(), distance);
    }

    const GEOSPreparedGeometry* prepared;
};

}  // namespace

std::unique_ptr<ClearanceContender> MakeGeosClearance(const ShapePair& shapes) {
    return std::make_unique<GeosPlain>(shapes);
}

std::unique_ptr<ClearanceContender> MakeGeosIndexedClearance(const ShapePair& shapes) {
    return std::make_unique<GeosIndexed>(shapes);
}

std::unique_ptr<ClearanceContender> MakeGeosPreparedClearance(const ShapePair& shapes) {
    return std::make_unique<GeosPrepared>(shapes);
}

}  // namespace VellumBench
