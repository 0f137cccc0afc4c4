// SPDX-License-Identifier: MIT
#include "reference/transforms.h"

#include <cmath>
#include <limits>

namespace reference {

using Vellum::Mtx2D;

namespace {

template <class Point>
Polygon<Point> Merged(const std::vector<Point>& points, const std::vector<uint32_t>& codes) {
    Polygon<Point> result;
    for (size_t i = 0; i < points.size(); ++i) {
        const Point& p = points[i];
        const bool repeats = !result.points.empty() && p.x == result.points.back().x && p.y == result.points.back().y;
        if (repeats) {
            result.codes.back() = codes[i];
        } else {
            result.points.push_back(p);
            result.codes.push_back(codes[i]);
        }
    }
    const auto& kept = result.points;
    if (kept.size() == 3 && kept[2].x == kept[0].x && kept[2].y == kept[0].y) {
        result.points.pop_back();
        result.codes.pop_back();
    }
    return result;
}

}  // namespace

real_pt_t Map(const Mtx2D& m, double x, double y) {
    if (m.type == Vellum::Mtx2DAxisAligned) return {x * m.m11 + m.dx, y * m.m22 + m.dy};
    if (m.type == Vellum::Mtx2DAxisSwapped) return {y * m.m21 + m.dx, x * m.m12 + m.dy};
    return {(x * m.m11 + y * m.m21) + m.dx, (x * m.m12 + y * m.m22) + m.dy};
}

int32_t RoundToDevice(double v) {
    const double truncated = std::trunc(v < 0 ? v - 0.5 : v + 0.5);
    if (std::isnan(truncated) || truncated < -2147483648.0 || truncated > 2147483647.0) {
        return std::numeric_limits<int32_t>::min();
    }
    return static_cast<int32_t>(truncated);
}

std::vector<real_pt_t> ToModel(const Mtx2D& m, const std::vector<real_pt_t>& points) {
    std::vector<real_pt_t> result;
    result.reserve(points.size());
    for (const real_pt_t& p : points) {
        result.push_back(Map(m, p.x, p.y));
    }
    return result;
}

std::vector<int_pt_t> ToDevice(const Mtx2D& m, const std::vector<real_pt_t>& points) {
    std::vector<int_pt_t> result;
    result.reserve(points.size());
    for (const real_pt_t& p : ToModel(m, points)) {
        result.push_back({RoundToDevice(p.x), RoundToDevice(p.y)});
    }
    return result;
}

std::vector<int_pt_t> ToEighths(const Mtx2D& m, const std::vector<real_pt_t>& points) {
    std::vector<int_pt_t> result;
    result.reserve(points.size());
    for (const int_pt_t& p : ToDevice(m, points)) {
        result.push_back({static_cast<int32_t>(int64_t{p.x} * 8), static_cast<int32_t>(int64_t{p.y} * 8)});
    }
    return result;
}

std::vector<short_pt_t> ToShort(const Mtx2D& m, const std::vector<real_pt_t>& points) {
    std::vector<short_pt_t> result;
    result.reserve(points.size());
    for (const int_pt_t& p : ToDevice(m, points)) {
        result.push_back({static_cast<int16_t>(p.x), static_cast<int16_t>(p.y)});
    }
    return result;
}

Box ExtentsOf(const std::vector<real_pt_t>& points) {
    Box box{3.4028234663852886e38, 3.4028234663852886e38, -3.4028234663852886e38, -3.4028234663852886e38};
    for (const real_pt_t& p : points) {
        if (box.xMin > p.x) box.xMin = p.x;
        if (box.yMin > p.y) box.yMin = p.y;
        if (p.x > box.xMax) box.xMax = p.x;
        if (p.y > box.yMax) box.yMax = p.y;
    }
    return box;
}

Polygon<real_pt_t> PolygonToModel(const Mtx2D& m, const std::vector<real_pt_t>& points,
                                  const std::vector<uint32_t>& codes) {
    return Merged(ToModel(m, points), codes);
}

Polygon<int_pt_t> PolygonToDevice(const Mtx2D& m, const std::vector<real_pt_t>& points,
                                  const std::vector<uint32_t>& codes) {
    return Merged(ToDevice(m, points), codes);
}

}  // namespace reference
