// SPDX-License-Identifier: MIT
#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/multi_polygon.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>
#include <boost/geometry/geometry.hpp>

#include "clipping_peer.h"

namespace VellumBench {
namespace {

namespace geometry = boost::geometry;
using BoostPoint = geometry::model::d2::point_xy<double>;
using BoostPolygon = geometry::model::polygon<BoostPoint>;
using BoostBox = geometry::model::box<BoostPoint>;

BoostPolygon ToPolygon(const real_pt_t* pts, size_t count) {
    BoostPolygon polygon;
    for (size_t i = 0; i < count; ++i)
        polygon.outer().emplace_back(pts[i].x, pts[i].y);
    geometry::correct(polygon);
    return polygon;
}

class Boost : public ClippingPeer {
public:
    Boost(const PolySet& set, WithinView within) : ClippingPeer(set, within) {
        set.ForEachPolygon([this](const real_pt_t* pts, size_t count) { polygons.push_back(ToPolygon(pts, count)); });
    }

    double Area() const override { return geometry::area(output); }

private:
    void ConvertView() override {
        real_rect_t corners;
        CurrentView().Rectangle().ToRealRectT(corners);
        viewPolygon = ToPolygon(&corners.ll, 4);
        const Box& bounds = CurrentView().Bounds();
        viewBox = BoostBox(BoostPoint(bounds.left, bounds.bottom), BoostPoint(bounds.right, bounds.top));
    }
    void ReleaseOutput() override { output.clear(); }
    void CopyPolygon(size_t index) override { output.push_back(polygons[index]); }
    void ClipPolygon(size_t index) override {
        if (CurrentView().Turned()) {
            geometry::intersection(polygons[index], viewPolygon, output);
        } else {
            geometry::intersection(polygons[index], viewBox, output);
        }
    }

    std::vector<BoostPolygon> polygons;
    BoostPolygon viewPolygon;
    BoostBox viewBox;
    geometry::model::multi_polygon<BoostPolygon> output;
};

}  // namespace

std::unique_ptr<ClippingContender> MakeBoost(const PolySet& set, WithinView within) {
    return std::make_unique<Boost>(set, within);
}

}  // namespace VellumBench
