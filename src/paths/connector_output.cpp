// SPDX-License-Identifier: MIT
#include "paths/connector_output.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <new>
#include <span>
#include <tuple>

#include "paths/connector_steps.h"
#include "paths/plane_box.h"
#include "shapes/point_chain.h"

namespace Vellum::internal {

namespace {

size_t CountSplits(const DblPtVec* const* splits, size_t segments) {
    if (splits == nullptr) return 0;
    size_t count = 0;
    for (size_t i = 0; i < segments; ++i)
        if (splits[i] != nullptr) count += splits[i]->size();
    return count;
}

void SetExtents(PolylineGeom& polyline) {
    const PlaneBox box = BoxOfPoints(polyline.pts, polyline.nPts);
    const bool isSignOpen = box.minX == 0.0 || box.minY == 0.0 || box.maxX == 0.0 || box.maxY == 0.0;
    if (box.IsWholePlane() || isSignOpen)
        polyline.RecalcExtents();
    else
        polyline.extents.TSet(box.minX, box.minY, box.maxX, box.maxY);
}

}  // namespace

DblPt* FindClosest(const DblPt& from, const DblPtVec& points) {
    DblPt* closest = points.begin();
    double least = from.Dist(*closest);
    for (DblPt* p = closest + 1; p != points.end(); ++p) {
        const double dist = from.Dist(*p);
        if (!(dist < least)) continue;
        least = dist;
        closest = p;
    }
    return closest;
}

/// Puts the indices of the points into the order in which they are taken. A NaN is taken as soon as all before it
/// are: right after the last of them.
bool ConnectorOutput::Order(const DblPt& from, const DblPtVec& points) {
    order_.Clear();
    if (!order_.Reserve(points.size())) return false;
    Split last{-std::numeric_limits<double>::infinity(), 0, 0};
    const auto isBefore = [this](const Split& a, const Split& b) {
        ++comparisons_;
        return std::tie(a.dist, a.after, a.index) < std::tie(b.dist, b.after, b.index);
    };
    for (uint32_t i = 0; i < points.size(); ++i) {
        const double dist = from.Dist(points.begin()[i]);
        const Split split = std::isnan(dist) ? Split{last.dist, last.after, i} : Split{dist, i, i};
        if (isBefore(last, split)) last = split;
        order_.Append(split);
    }
    std::sort(order_.begin(), order_.end(), isBefore);
    return true;
}

PolylineGeom* ConnectorOutput::Rebuild(const PolylineGeom& input, const DblPtVec* const* splits) {
    std::unique_ptr<PolylineGeom> output(new (std::nothrow) PolylineGeom);
    if (output == nullptr || !Fill(*output, input, splits)) return nullptr;
    return output.release();
}

bool ConnectorOutput::Fill(PolylineGeom& output, const PolylineGeom& input, const DblPtVec* const* splits) {
    const std::span<const DblPt> points = PointsOf(input);
    if (points.empty()) return true;
    const size_t segments = points.size() - 1;
    const size_t splitCount = CountSplits(splits, segments);
    if (!ChainOf(output).Allocate(points.size() + splitCount)) return false;
    DblPt* end = output.pts;
    size_t copied = 0;
    for (size_t i = 0; splitCount > 0 && i < segments; ++i) {
        if (splits[i] == nullptr || splits[i]->empty()) continue;
        if (!Order(points[i], *splits[i])) return false;
        end = std::copy(&points[copied], &points[i + 1], end);
        copied = i + 1;
        for (const Split& split : order_) {
            const DblPt& p = splits[i]->begin()[split.index];
            if (!Coincide(p, end[-1])) *end++ = p;
        }
    }
    end = std::copy(points.begin() + static_cast<std::ptrdiff_t>(copied), points.end(), end);
    output.nPts = static_cast<uint32_t>(end - output.pts);
    SetExtents(output);
    return true;
}

}  // namespace Vellum::internal
