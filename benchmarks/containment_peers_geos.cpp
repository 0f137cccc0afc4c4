// SPDX-License-Identifier: MIT
#include "containment_contenders.h"
#include "geos_shapes.h"
#include "suite.h"

namespace VellumBench {
namespace {

class GeosContainment : public ContainmentContender {
public:
    explicit GeosContainment(const ContainmentData& data)
        : ContainmentContender(data), polygon(shapes.Polygon(data.outline)) {
        for (const Vellum::DblPt& p : data.queries)
            queries.push_back(shapes.Point(p));
    }

    void Ask() final {
        for (size_t i = 0; i < queries.size(); ++i)
            answers[i] = Contains(queries[i]);
    }

protected:
    GEOSContextHandle_t Context() const { return shapes.Context(); }
    const GEOSGeometry* Polygon() const { return polygon; }

private:
    virtual char Contains(const GEOSGeometry* point) = 0;

    GeosShapes shapes;
    const GEOSGeometry* polygon;
    std::vector<const GEOSGeometry*> queries;
};

class GeosPlain : public GeosContainment {
public:
    using GeosContainment::GeosContainment;

private:
    char Contains(const GEOSGeometry* point) override { return GEOSContains_r(Context(), Polygon(), point); }
};

class GeosDistance : public GeosContainment {
public:
    using GeosContainment::GeosContainment;

private:
    char Contains(const GEOSGeometry* point) override {
        double distance = 0;
        if (!GEOSDistance_r(Context(), Polygon(), point, &distance)) Abort("GEOS cannot measure a distance");
        return distance == 0;
    }
};

class GeosIndexed : public GeosContainment {
public:
    using GeosContainment::GeosContainment;

private:
    char Contains(const GEOSGeometry* point) override {
        const GEOSPreparedGeometry* prepared = GEOSPrepare_r(Context(), Polygon());
        const char answer = GEOSPreparedContains_r(Context(), prepared, point);
        GEOSPreparedGeom_destroy_r(Context(), prepared);
        return answer;
    }
};

class GeosPrepared : public GeosContainment {
public:
    explicit GeosPrepared(const ContainmentData& data)
        : GeosContainment(data), prepared(GEOSPrepare_r(Context(), Polygon())) {
        Ask();
    }
    GeosPrepared(const GeosPrepared&) = delete;
    GeosPrepared& operator=(const GeosPrepared&) = delete;
    ~GeosPrepared() override { GEOSPreparedGeom_destroy_r(Context(), prepared); }

private:
    char Contains(const GEOSGeometry* point) override { return GEOSPreparedContains_r(Context(), prepared, point); }

    const GEOSPreparedGeometry* prepared;
};

}  // namespace

std::unique_ptr<ContainmentContender> MakeGeosContainment(const ContainmentData& data) {
    return std::make_unique<GeosPlain>(data);
}

std::unique_ptr<ContainmentContender> MakeGeosDistanceContainment(const ContainmentData& data) {
    return std::make_unique<GeosDistance>(data);
}

std::unique_ptr<ContainmentContender> MakeGeosIndexedContainment(const ContainmentData& data) {
    return std::make_unique<GeosIndexed>(data);
}

std::unique_ptr<ContainmentContender> MakeGeosPreparedContainment(const ContainmentData& data) {
    return std::make_unique<GeosPrepared>(data);
}

}  // namespace VellumBench
