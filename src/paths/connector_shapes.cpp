// SPDX-License-Identifier: MIT
#include "paths/connector_shapes.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <typeinfo>

#include "paths/spatial_order.h"
#include "shapes/point_chain.h"
#include "vellum/circles.h"
#include "vellum/ellipses.h"
#include "vellum/geometry.h"
#include "vellum/polylines.h"
#include "vellum/rectangles.h"

namespace Vellum::internal {

namespace {

constexpr double kTouch = kConnectorBounds;
constexpr size_t kRunSegments = 16;

void LinkToCentroid(const DblPt& p, const DblPt& centroid, ConnectorSink& sink) {
    if (!p.IsEqualTo(centroid, kTouch)) sink.AddLink(p, centroid);
}

PlaneBox RealmOfBox(const AlignedDblRect& r) {
    // A crossed box contains at most what lies about both its sides.
    const DblPt corners[] = {r.ll, r.ur};
    return BoxOfPoints(corners, 2);
}

/// The octagonal estimate of a distance is no less than 0.96 of the greater difference.
PlaneBox RealmOfCircle(const CircleGeom& c) {
    const double most = c.radius * 1.05;
    const DblPt corners[] = {DblPt(c.center.x - most, c.center.y - most), DblPt(c.center.x + most, c.center.y + most)};
    return BoxOfPoints(corners, 2);
}

/// The realm of a ring with the winding test of `PolygonGeom` and `DblRect`.
///
/// The heights are compared exactly: outside the ring's there is no crossing, and at any height inside the ring has
/// as many edges upwards as downwards. So it is enough that left of the box each of them counts and right of it
/// none. Take an edge from V to W with D = |W.y - V.y| and a point at a distance d from the box on its level, and
/// let w be the box's width. The side test compares the products (W.x - V.x)(y - V.y) and (x - V.x)(W.y - V.y). With
/// rounding the first is at most (w' (1 + u)) D and the second at least (w' + d)(1 - u) D, where w' <= w is the
/// distance from V to the side of the box: the right way round if d > 5u w. On the left the products may then become
/// equal, which counts too. On the right they must differ, also where they are rounded as subnormal numbers, by up
/// to 2^-1075 each: for that D d > 2^-1074 is enough. That products with D do not overflow is seen to by the limit
/// on the coordinates; the product with x may, and has the right sign.
PlaneBox RealmOfRing(std::span<const DblPt> points) {
    constexpr double kFarthest = 1e150;
    constexpr double kSlack = 0x1p-48;
    constexpr double kSubnormal = 4.0 * std::numeric_limits<double>::denorm_min();
    PlaneBox box = BoxOfPoints(points.data(), points.size());
    double leastRise = std::numeric_limits<double>::infinity();
    for (size_t i = 0; i < points.size(); ++i) {
        const double rise = std::fabs(points[i].y - points[i + 1 == points.size() ? 0 : i + 1].y);
        if (rise > 0.0 && rise < leastRise) leastRise = rise;
    }
    const double farthest = std::max({-box.minX, -box.minY, box.maxX, box.maxY});
    if (farthest > kFarthest) return WholePlane();
    const double margin = (box.maxX - box.minX) * kSlack + kSubnormal / leastRise;
    return {box.minX - margin, box.minY, box.maxX + margin, box.maxY};
}

}  // namespace

bool JoinToShape(const NumberedSegment& s, const ClosedShape& shape, ConnectorSink& sink) {
    DblPt centroid;
    shape.GetCentroid(centroid);
    if (shape.Contains(s.p0, kTouch)) {
        LinkToCentroid(s.p0, centroid, sink);
        return true;
    }
    if (shape.Contains(s.p1, kTouch)) {
        LinkToCentroid(s.p1, centroid, sink);
        return true;
    }
    DblPt foot;
    PtLineIntercept(centroid, s.p0, s.p1, foot);
    if (!PointInBounds(foot, s.p0, s.p1, kConnectorBounds) || !shape.Contains(foot, kTouch)) return false;
    sink.AddPoint(s.number, foot);
    LinkToCentroid(foot, centroid, sink);
    return true;
}

bool FindRealm(const ClosedShape& shape, PlaneBox& realm) {
    const std::type_info& type = typeid(shape);
    if (type == typeid(EllipseGeom)) return false;
    if (type == typeid(AlignedDblRect)) {
        realm = RealmOfBox(static_cast<const AlignedDblRect&>(shape));
    } else if (type == typeid(DblRect)) {
        const auto& r = static_cast<const DblRect&>(shape);
        const DblPt corners[] = {r.p0, r.p1, r.p2, r.p3};
        realm = RealmOfRing(corners);
    } else if (type == typeid(CircleGeom)) {
        realm = RealmOfCircle(static_cast<const CircleGeom&>(shape));
    } else if (type == typeid(PolygonGeom)) {
        const std::span<const DblPt> points = PointsOf(static_cast<const PolygonGeom&>(shape));
        if (points.empty()) return false;
        realm = RealmOfRing(points);
    } else {
        realm = WholePlane();
    }
    return true;
}

bool ShapeIndex::Build(const std::vector<LayerConnector*>& connectors) {
    connectors_ = &connectors;
    ScratchArray<LayerPlace> places;
    if (!boxes_.Resize(connectors.size())) return false;
    for (uint32_t i = 0; i < connectors.size(); ++i) {
        PlaneBox& box = boxes_[i];
        if (!FindRealm(*connectors[i]->shape, box)) continue;
        const DblPt middle(box.minX * 0.5 + box.maxX * 0.5, box.minY * 0.5 + box.maxY * 0.5);
        if (!places.Append({middle, connectors[i]->layer, i, 0})) return false;
    }
    OrderSpatially(places);
    const size_t count = places.Size();
    if (!tree_.Allocate(count) || !layers_.Resize(count) || !near_.Reserve(count)) return false;
    for (size_t i = 0; i < count; ++i) {
        tree_.Set(i, boxes_[places[i].owner], places[i].owner);
        layers_[i] = places[i].layer;
    }
    tree_.Build();
    return true;
}

void ShapeIndex::Join(std::span<const DblPt> points, uint32_t firstNumber, uint32_t layer, ConnectorSink& sink) {
    const auto [first, last] = std::equal_range(layers_.begin(), layers_.end(), layer);
    if (first == last) return;
    for (size_t start = 0; start + 1 < points.size(); start += kRunSegments) {
        const size_t segments = std::min(kRunSegments, points.size() - 1 - start);
        near_.Clear();
        const PlaneBox around = reach_.Around(BoxOfPoints(&points[start], segments + 1));
        effort_.blocks += tree_.ForEachMeeting(around, static_cast<size_t>(first - layers_.begin()),
                                               static_cast<size_t>(last - layers_.begin()), PlaneBoxTree::kNobody,
                                               [&](size_t i) { near_.Append(tree_.OwnerOf(i)); });
        effort_.near += near_.Size();
        if (near_.IsEmpty()) continue;
        std::sort(near_.begin(), near_.end());
        JoinRun(&points[start], segments, firstNumber + static_cast<uint32_t>(start), sink);
    }
}

void ShapeIndex::JoinRun(const DblPt* pts, size_t segments, uint32_t firstNumber, ConnectorSink& sink) {
    for (size_t i = 0; i < segments; ++i) {
        const NumberedSegment segment{firstNumber + static_cast<uint32_t>(i), pts[i], pts[i + 1]};
        const PlaneBox around = reach_.Around(BoxOfPoints(&pts[i], 2));
        for (const uint32_t shape : near_) {
            if (!around.Meets(boxes_[shape])) continue;
            ++effort_.asked;
            if (JoinToShape(segment, *(*connectors_)[shape]->shape, sink)) break;
        }
    }
}

}  // namespace Vellum::internal
