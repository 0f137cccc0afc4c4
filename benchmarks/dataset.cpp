// SPDX-License-Identifier: MIT
#include "dataset.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>
#include <numbers>

#include "suite.h"

namespace VellumBench {
namespace {

using Vellum::DblPt;
using Vellum::DblRect;

/// The same numbers on every machine; ten million points are drawn in no time.
class Random {
public:
    explicit Random(uint64_t seed) : state(seed) {}

    double Between(double low, double high) {
        return low + (high - low) * (static_cast<double>(Next() >> 11) * 0x1p-53);
    }
    int Whole(int low, int high) { return static_cast<int>(std::floor(Between(low, high + 1))); }

private:
    // splitmix64
    uint64_t Next() {
        uint64_t z = (state += 0x9e3779b97f4a7c15);
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9;
        z = (z ^ (z >> 27)) * 0x94d049bb133111eb;
        return z ^ (z >> 31);
    }

    uint64_t state;
};

nlohmann::json ReadMap(const std::string& name) {
    const std::string path = VELLUM_SAMPLES_DIR "/" + name + ".geojson";
    std::ifstream file(path);
    nlohmann::json map = nlohmann::json::parse(file, nullptr, false);
    if (map.is_discarded()) Abort("cannot read " + path);
    return map;
}

/// A polygon that does not cross itself: its points go round the centre.
std::vector<real_pt_t> StarShaped(Random& random, double centreX, double centreY) {
    const int count = random.Whole(8, 12);
    std::vector<real_pt_t> polygon;
    for (int i = 0; i < count; ++i) {
        const double angle = 2 * std::numbers::pi * (i + random.Between(0.1, 0.9)) / count;
        const double radius = random.Between(0.4, 1.2);
        polygon.push_back({centreX + radius * std::cos(angle), centreY + radius * std::sin(angle)});
    }
    return polygon;
}

}  // namespace

std::vector<DblPt> ScatteredPoints(size_t count) {
    Random random(1);
    std::vector<DblPt> points(count);
    for (DblPt& p : points)
        p.Set(random.Between(-10000, 10000), random.Between(-10000, 10000));
    return points;
}

std::vector<DblPt> ShrunkOutline(size_t count, double stray) {
    constexpr double kEdge = 10000;
    Random random(2);
    std::vector<DblPt> points(count);
    double pixelX = 0, pixelY = 0;
    for (DblPt& p : points) {
        if (random.Between(0, 1) >= 0.3) {
            pixelX = std::clamp(pixelX + random.Whole(1, 8) * (random.Whole(0, 1) * 2 - 1), -kEdge, kEdge);
            pixelY = std::clamp(pixelY + random.Whole(-8, 8), -kEdge, kEdge);
        }
        p.Set(pixelX + random.Between(-stray, stray), pixelY + random.Between(-stray, stray));
    }
    return points;
}

DrwPSetT PolySet::Record() const {
    return {static_cast<int32_t>(pts.size()), const_cast<real_pt_t*>(pts.data()), const_cast<uint32_t*>(codes.data())};
}

void PolySet::AddPolygon(const std::vector<real_pt_t>& polygon) {
    pts.insert(pts.end(), polygon.begin(), polygon.end());
    codes.resize(pts.size(), 0);
    codes.back() = 2;
}

PolySet LandMap() {
    const nlohmann::json map = ReadMap("land-50m");
    PolySet set;
    const auto addRings = [&set](const nlohmann::json& rings) {
        for (const auto& ring : rings) {
            std::vector<real_pt_t> polygon;
            for (const auto& point : ring)
                polygon.push_back({point[0], point[1]});
            polygon.pop_back();
            set.AddPolygon(polygon);
        }
    };
    for (const auto& feature : map["features"]) {
        const auto& geometry = feature["geometry"];
        if (geometry["type"] == "Polygon") addRings(geometry["coordinates"]);
        if (geometry["type"] == "MultiPolygon") {
            for (const auto& rings : geometry["coordinates"])
                addRings(rings);
        }
    }
    return set;
}

PolySet SmallPolygons() {
    constexpr double kSide = 1000;
    Random random(3);
    PolySet set;
    for (int i = 0; i < 100000; ++i)
        set.AddPolygon(StarShaped(random, random.Between(0, kSide), random.Between(0, kSide)));
    return set;
}

std::vector<DblPt> StarOutline(uint64_t seed, size_t count, const DblPt& centre) {
    Random random(seed);
    const double step = 2 * std::numbers::pi / static_cast<double>(count);
    const double roughness = std::min(step, 0.2);
    std::vector<DblPt> outline(count);
    for (size_t i = 0; i < count; ++i) {
        const double angle = step * (static_cast<double>(i) + random.Between(-0.4, 0.4));
        const double radius = (0.75 + 0.25 * std::cos(5 * angle)) * (1 + random.Between(-roughness, roughness));
        outline[i].Set(centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle));
    }
    return outline;
}

std::vector<DblPt> LargestLand() {
    std::vector<DblPt> largest;
    LandMap().ForEachPolygon([&largest](const real_pt_t* pts, size_t count) {
        if (count <= largest.size()) return;
        largest.resize(count);
        std::copy(pts, pts + count, largest.begin());
    });
    return largest;
}

std::vector<DblPt> PointsAbout(const std::vector<DblPt>& outline, size_t count) {
    Random random(4);
    const auto byX = std::minmax_element(outline.begin(), outline.end(), [](auto& p, auto& q) { return p.x < q.x; });
    const auto byY = std::minmax_element(outline.begin(), outline.end(), [](auto& p, auto& q) { return p.y < q.y; });
    std::vector<DblPt> points(count);
    for (size_t i = 0; i < count; ++i) {
        if (i % 3 < 2) {
            points[i].Set(random.Between(byX.first->x, byX.second->x), random.Between(byY.first->y, byY.second->y));
            continue;
        }
        const size_t edge = static_cast<size_t>(random.Between(0, static_cast<double>(outline.size())));
        const DblPt& a = outline[edge];
        const DblPt& b = outline[(edge + 1) % outline.size()];
        const double along = random.Between(0, 1);
        const double aside = random.Between(0.01, 0.2) * (random.Whole(0, 1) * 2 - 1);
        points[i].Set(a.x + along * (b.x - a.x) - aside * (b.y - a.y), a.y + along * (b.y - a.y) + aside * (b.x - a.x));
    }
    return points;
}

std::vector<DblPt> RiverBank(uint64_t seed, size_t count, int side) {
    constexpr double kHalfWidth = 10, kRoughness = 0.3;
    Random random(seed);
    std::vector<DblPt> bank(count);
    for (size_t i = 0; i < count; ++i) {
        const double x = static_cast<double>(i);
        const double y = 60 * std::sin(x / 130) + 25 * std::sin(x / 47);
        const double direction = std::atan(60.0 / 130 * std::cos(x / 130) + 25.0 / 47 * std::cos(x / 47));
        bank[i].Set(x - side * kHalfWidth * std::sin(direction) + random.Between(-kRoughness, kRoughness),
                    y + side * kHalfWidth * std::cos(direction) + random.Between(-kRoughness, kRoughness));
    }
    return bank;
}

Lines MapLines(const std::string& map) {
    Lines lines;
    const auto addLine = [&lines](const nlohmann::json& points) {
        std::vector<DblPt>& line = lines.emplace_back();
        for (const auto& point : points)
            line.emplace_back(point[0], point[1]);
    };
    const nlohmann::json contents = ReadMap(map);
    for (const auto& feature : contents["features"]) {
        const auto& geometry = feature["geometry"];
        if (geometry["type"] == "LineString") addLine(geometry["coordinates"]);
        if (geometry["type"] == "MultiLineString") {
            for (const auto& points : geometry["coordinates"])
                addLine(points);
        }
    }
    return lines;
}

Lines CrossingSegments(size_t count) {
    constexpr double kSide = 10000;
    const double length = 2 * kSide / std::sqrt(static_cast<double>(count));
    Random random(5);
    Lines segments(count);
    for (auto& segment : segments) {
        const DblPt start(random.Between(0, kSide), random.Between(0, kSide));
        const double direction = random.Between(0, 2 * std::numbers::pi);
        segment = {start, {start.x + length * std::cos(direction), start.y + length * std::sin(direction)}};
    }
    return segments;
}

Lines Streets(size_t across, size_t up, double stray) {
    Random random(6);
    Lines streets(across + up);
    for (size_t y = 0; y < up; ++y) {
        for (size_t x = 0; x < across; ++x) {
            const DblPt crossing(static_cast<double>(x) + random.Between(-stray, stray),
                                 static_cast<double>(y) + random.Between(-stray, stray));
            streets[y].push_back(crossing);
            streets[up + x].push_back(crossing);
        }
    }
    return streets;
}

Box BoxOf(const real_pt_t* pts, size_t count) {
    Box box = {pts[0].x, pts[0].y, pts[0].x, pts[0].y};
    for (size_t i = 1; i < count; ++i) {
        box.left = std::min(box.left, pts[i].x);
        box.bottom = std::min(box.bottom, pts[i].y);
        box.right = std::max(box.right, pts[i].x);
        box.top = std::max(box.top, pts[i].y);
    }
    return box;
}

View::View(const Box& data, real_pt_t centre, double share, bool isTurned) : turned(isTurned) {
    const double angle = turned ? std::numbers::pi / 6 : 0;
    const double cosine = std::cos(angle), sine = std::sin(angle);
    double halfWidth = (data.right - data.left) / 2 * std::sqrt(share);
    double halfHeight = (data.top - data.bottom) / 2 * std::sqrt(share);
    if (share == 1) {
        constexpr double kMargin = 1.01;
        centre = {(data.left + data.right) / 2, (data.bottom + data.top) / 2};
        const double allWidth = halfWidth * cosine + halfHeight * sine;
        const double allHeight = halfWidth * sine + halfHeight * cosine;
        halfWidth = allWidth * kMargin;
        halfHeight = allHeight * kMargin;
    }
    if (turned) {
        const auto corner = [&](double across, double up) {
            return DblPt(centre.x + across * cosine - up * sine, centre.y + across * sine + up * cosine);
        };
        rectangle.Set(corner(-halfWidth, -halfHeight), corner(-halfWidth, halfHeight), corner(halfWidth, halfHeight),
                      corner(halfWidth, -halfHeight));
    } else {
        rectangle.Set(DblPt(centre.x - halfWidth, centre.y - halfHeight),
                      DblPt(centre.x + halfWidth, centre.y + halfHeight));
    }
    real_rect_t corners;
    rectangle.ToRealRectT(corners);
    bounds = BoxOf(&corners.ll, 4);
}

bool View::Contains(double x, double y) const {
    for (unsigned i = 0; i < 4; ++i) {
        if (DblPt::isLeftOfLine(rectangle.GetPt(i), rectangle.GetPt((i + 1) % 4), x, y)) return false;
    }
    return true;
}

bool View::Holds(const Box& box) const {
    if (!turned) {
        return box.left >= bounds.left && box.bottom >= bounds.bottom && box.right <= bounds.right &&
               box.top <= bounds.top;
    }
    return Contains(box.left, box.bottom) && Contains(box.left, box.top) && Contains(box.right, box.bottom) &&
           Contains(box.right, box.top);
}

}  // namespace VellumBench
