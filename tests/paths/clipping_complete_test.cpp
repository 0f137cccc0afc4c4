// SPDX-License-Identifier: MIT

// `ClipPolygonSetComplete`: no area is lost and none is made up. The measure is the area by half-planes, which knows
// nothing of crossings.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <fstream>
#include <limits>
#include <nlohmann/json.hpp>
#include <numbers>
#include <string>
#include <vector>

#include "paths/clip_checks.h"
#include "reference/clipping.h"
#include "support/random_numbers.h"

namespace {

using paths_tests::AppendTo;
using paths_tests::Box;
using paths_tests::Clipped;
using paths_tests::ClippedCompletely;
using paths_tests::Corners;
using paths_tests::Holds;
using paths_tests::IsSelection;
using paths_tests::PolygonOf;
using paths_tests::PolygonsOf;
using paths_tests::SetOf;
using paths_tests::TurnedBox;
using reference::Area;
using reference::AreaWithin;
using reference::PointSet;
using support::RandomNumbers;
using Vellum::DblPt;
using Vellum::DblRect;
using Vellum::real_pt_t;

const PointSet kNothing;
const DblRect kSquare = Box(0, 0, 10, 10);
const DblRect kDiamond = Corners({0, 10}, {10, 20}, {20, 10}, {10, 0});

DblRect Reversed(const DblRect& r) { return Corners(r.p0, r.p3, r.p2, r.p1); }

PointSet Reversed(PointSet polygon) {
    std::reverse(polygon.pts.begin(), polygon.pts.end());
    return polygon;
}

/// How far a point is inside a rectangle: its distance from the nearest side, negative outside.
double DepthIn(const DblRect& r, const real_pt_t& p) {
    const double turn = (r.p1.x - r.p0.x) * (r.p2.y - r.p1.y) - (r.p1.y - r.p0.y) * (r.p2.x - r.p1.x);
    double depth = std::numeric_limits<double>::infinity();
    for (unsigned i = 0; i < 4; ++i) {
        const DblPt& a = r.GetPt(i);
        const DblPt& b = r.GetPt((i + 1) % 4);
        const double cross = (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x);
        depth = std::min(depth, (turn < 0 ? -cross : cross) / std::hypot(b.x - a.x, b.y - a.y));
    }
    return depth;
}

double LeastDepthIn(const DblRect& r, const PointSet& set) {
    double least = std::numeric_limits<double>::infinity();
    for (const real_pt_t& p : set.pts)
        least = std::min(least, DepthIn(r, p));
    return least;
}

/// Whether a set is clipped to its area within a rectangle and what comes out lies within it.
testing::AssertionResult KeepsArea(const PointSet& in, const DblRect& clip, double tolerance) {
    const PointSet out = ClippedCompletely(in, clip);
    const double found = Area(out);
    const double expected = AreaWithin(in, clip);
    if (!(std::fabs(found - expected) <= tolerance)) {
        return testing::AssertionFailure()
               << "an area of " << testing::PrintToString(found) << " instead of " << testing::PrintToString(expected);
    }
    if (LeastDepthIn(clip, out) < -tolerance) return testing::AssertionFailure() << "points outside";
    return testing::AssertionSuccess();
}

// ---- By hand ----

TEST(ClipPolygonSetComplete, IsThatOfTheOtherWhereAllIsPlain) {
    PointSet in = SetOf({{1, 1, 2}, {5, 5, 1}, {15, 5, 0}, {15, 15, 7}, {5, 15, 3}});
    AppendTo(in, PolygonOf({{2, -2}, {2, 5}, {4, 5}, {4, -1}, {6, -1}, {6, 5}, {8, 5}, {8, -2}}));
    AppendTo(in, PolygonOf({{-5, -5}, {15, -5}, {15, 15}, {-5, 15}}));
    AppendTo(in, PolygonOf({{20, 1}, {30, 1}, {30, 2}}));
    AppendTo(in, SetOf({{2, 2, 1}, {2, 2, 7}, {4, 2, 0}, {4, 4, 3}}));
    AppendTo(in, SetOf({{2, 2, 1}, {4, 2, 0}, {4, 4, 0}}));
    PointSet expected = SetOf({{10, 5, 0}, {10, 10, 0}, {5, 10, 1}, {5, 5, 3}});
    AppendTo(expected, PolygonOf({{2, 0}, {4, 0}, {4, 5}, {2, 5}}));
    AppendTo(expected, PolygonOf({{6, 0}, {8, 0}, {8, 5}, {6, 5}}));
    AppendTo(expected, PolygonOf({{0, 0}, {0, 10}, {10, 10}, {10, 0}}));
    AppendTo(expected, SetOf({{2, 2, 1}, {2, 2, 7}, {4, 2, 0}, {4, 4, 3}}));
    EXPECT_TRUE(Holds(ClippedCompletely(in, kSquare), expected));
    EXPECT_TRUE(Holds(Clipped(in, kSquare), expected));
}

TEST(ClipPolygonSetComplete, KeepsWhatIsWithinATurnedRectangle) {
    const PointSet middle = PolygonOf({{9, 9}, {11, 9}, {10, 11}});
    EXPECT_TRUE(Holds(Clipped(middle, kDiamond), kNothing));
    EXPECT_TRUE(Holds(ClippedCompletely(middle, kDiamond), middle));
}

TEST(ClipPolygonSetComplete, KeepsATurnedRectangleThatIsWithin) {
    const PointSet about = PolygonOf({{-40, -5}, {60, -5}, {10, 60}});
    EXPECT_TRUE(Holds(Clipped(about, kDiamond), kNothing));
    EXPECT_TRUE(Holds(ClippedCompletely(about, kDiamond), PolygonOf({{0, 10}, {10, 20}, {20, 10}, {10, 0}})));
}

TEST(ClipPolygonSetComplete, ClipsWhatCannotBeTraced) {
    // What is left is the quadrilateral (0, 1), (0, 2/3), (1/4, 0), (1, 0).
    const PointSet in = PolygonOf({{0, 1}, {-2, 6}, {1, -2}, {3, -2}});
    EXPECT_NEAR(Area(ClippedCompletely(in, Box(0, 0, 4, 4))), 5.0 / 12, 1e-12);
}

TEST(ClipPolygonSetComplete, VerticesOnASide) {
    // From inside, from outside, and across.
    EXPECT_NEAR(Area(ClippedCompletely(PolygonOf({{0, 5}, {8, 2}, {8, 6}}), kSquare)), 16, 1e-12);
    EXPECT_NEAR(Area(ClippedCompletely(PolygonOf({{10, 5}, {18, 1}, {18, 9}}), kSquare)), 0, 1e-12);
    EXPECT_NEAR(Area(ClippedCompletely(PolygonOf({{0, 5}, {8, 5}, {8, 20}, {0, 20}}), kSquare)), 40, 1e-12);
}

TEST(ClipPolygonSetComplete, EdgesAlongASide) {
    EXPECT_NEAR(Area(ClippedCompletely(PolygonOf({{0, 2}, {0, 8}, {5, 5}}), kSquare)), 15, 1e-12);
    EXPECT_NEAR(Area(ClippedCompletely(PolygonOf({{0, 2}, {0, 8}, {-5, 5}}), kSquare)), 0, 1e-12);
    EXPECT_NEAR(Area(ClippedCompletely(PolygonOf({{0, -5}, {0, 15}, {5, 15}, {5, -5}}), kSquare)), 50, 1e-12);
}

TEST(ClipPolygonSetComplete, APolygonEqualToTheRectangle) {
    const PointSet in = PolygonOf({{0, 0}, {0, 10}, {10, 10}, {10, 0}});
    for (const DblRect& clip : {kSquare, Reversed(kSquare)}) {
        EXPECT_NEAR(Area(ClippedCompletely(in, clip)), 100, 1e-12);
        EXPECT_NEAR(Area(ClippedCompletely(Reversed(in), clip)), 100, 1e-12);
    }
}

// No vertex is on a side here: it is a corner that lies on an edge.
TEST(ClipPolygonSetComplete, EdgesThroughACorner) {
    const double corners[][2] = {{0, 0}, {0, 10}, {10, 10}, {10, 0}};
    for (const auto& [x, y] : corners) {
        // Towards the middle of the square, and along the edge.
        const double inX = x == 0 ? 1 : -1;
        const double inY = y == 0 ? 1 : -1;
        const DblPt from(x - 20 * inX, y + 20 * inY);
        const DblPt to(x + 20 * inX, y - 20 * inY);
        const PointSet beside = PolygonOf({from, to, {x - 20 * inX, y - 20 * inY}});
        const PointSet about = PolygonOf({from, to, {x + 40 * inX, y + 40 * inY}});
        const PointSet part =
            PolygonOf({{x - 5 * inX, y + 5 * inY}, {x + 5 * inX, y - 5 * inY}, {x + 5 * inX, y + 5 * inY}});
        for (const DblRect& clip : {kSquare, Reversed(kSquare)}) {
            for (const bool isReversed : {false, true}) {
                const auto area = [&](const PointSet& in) {
                    return Area(ClippedCompletely(isReversed ? Reversed(in) : in, clip));
                };
                EXPECT_NEAR(area(beside), 0, 1e-12) << x << ", " << y;
                EXPECT_NEAR(area(about), 100, 1e-12) << x << ", " << y;
                EXPECT_NEAR(area(part), 25, 1e-12) << x << ", " << y;
            }
        }
    }
}

TEST(ClipPolygonSetComplete, CodesFollowTheirEdges) {
    // Clipped side by side because of the vertex on the left one.
    const PointSet out = ClippedCompletely(SetOf({{0, 5, 1}, {20, 1, 1}, {20, 9, 3}}), kSquare);
    EXPECT_TRUE(Holds(out, SetOf({{0, 5, 1}, {10, 3, 0}, {10, 7, 3}})));
}

TEST(ClipPolygonSetComplete, PassesOverPointsThatAreNone) {
    // A vertex on a side has them clipped side by side, where such a point would spoil its neighbours.
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    for (const DblPt& none : {DblPt(nan, 4), DblPt(8, nan), DblPt(infinity, 4), DblPt(8, -infinity)}) {
        EXPECT_TRUE(Holds(ClippedCompletely(PolygonOf({{0, 5}, {8, 2}, none, {8, 6}}), kSquare),
                          PolygonOf({{0, 5}, {8, 2}, {8, 6}})));
        EXPECT_TRUE(Holds(ClippedCompletely(PolygonOf({{5, 15}, {8, 10}, none, {12, 12}}), kDiamond),
                          PolygonOf({{5, 15}, {8, 10}, {12, 12}})));
    }
}

TEST(ClipPolygonSetComplete, OutlinesThatWindTwice) {
    // Twice round, with the left edges at 6 and at 4: in the square there is 40 that is wound round twice and 20 that
    // is wound round once. What comes out winds as often.
    const PointSet in = PolygonOf({{4, -20}, {30, -20}, {30, 30}, {6, 30}, {6, -10}, {20, -10}, {20, 20}, {4, 20}});
    EXPECT_NEAR(Area(ClippedCompletely(in, kSquare)), 100, 1e-12);
}

// ---- Triangles ----

// All triangles of a grid: every way to touch the rectangle's sides and corners with vertices and edges.
TEST(ClipPolygonSetComplete, AllTrianglesOfAGrid) {
    constexpr int kSize = 7;
    const DblRect rectangles[] = {Box(2, 2, 4, 4), Box(5, 1, 2, 4), Corners({1, 3}, {3, 5}, {5, 3}, {3, 1}),
                                  Corners({1, 2}, {3, 6}, {5, 5}, {3, 1}),
                                  Reversed(Corners({3, 1}, {1, 2}, {2, 4}, {4, 3}))};
    const auto place = [](int i) { return DblPt(i % kSize, i / kSize); };
    for (const DblRect& clip : rectangles) {
        for (int i = 0; i < kSize * kSize; ++i) {
            for (int j = 0; j < kSize * kSize; ++j) {
                for (int k = i + 1; k < kSize * kSize; ++k) {
                    const PointSet triangle = PolygonOf({place(i), place(j), place(k)});
                    if (j == i || Area(triangle) == 0) continue;
                    ASSERT_TRUE(KeepsArea(triangle, clip, 1e-12))
                        << i << ", " << j << ", " << k << " and " << clip.p0.x << ", " << clip.p0.y;
                }
            }
        }
    }
}

// ---- Stars ----

/// A view of any proportions, angle and orientation.
DblRect RandomView(double offset, RandomNumbers& random) {
    const bool isPlain = random.OneIn(2);
    const auto coordinate = [&] { return isPlain ? random.Between(0, 4) : random.Within(0, 5); };
    const auto half = [&] { return isPlain ? random.Between(1, 3) : random.Within(0.2, 3.2); };
    const double degrees = random.OneIn(3) ? random.Between(0, 7) * 45 : random.Within(0, 360);
    DblPt centre;
    centre.x = offset + coordinate();
    centre.y = coordinate();
    const double halfWidth = half();
    const DblRect view = TurnedBox(centre, halfWidth, half(), degrees);
    return random.OneIn(2) ? view : Reversed(view);
}

/// A point anywhere near a view, with a leaning towards its corners and sides, and the lines that these are on.
real_pt_t RandomVertex(const DblRect& view, double offset, RandomNumbers& random) {
    const size_t i = random.Below(4);
    const DblPt& a = view.GetPt(static_cast<unsigned>(i));
    const DblPt& b = view.GetPt(static_cast<unsigned>(i + 1) % 4);
    real_pt_t p;
    switch (random.Below(4)) {
        case 0:
            return {a.x, a.y};
        case 1: {
            double t = random.OneIn(2) ? random.Unit() : random.Between(0, 4) * 0.25;
            if (random.OneIn(4)) t = t * 3 - 1;
            return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)};
        }
        case 2:
            p.x = offset + random.Between(-1, 5);
            p.y = random.Between(-1, 5);
            return p;
        default:
            p.x = offset + random.Within(-2, 6);
            p.y = random.Within(-2, 6);
            return p;
    }
}

/// A polygon that every ray from a point leaves once, so that it does not cross itself; empty where the vertices do not
/// yield one.
PointSet RandomStar(const DblRect& view, double offset, RandomNumbers& random) {
    DblPt centre;
    view.GetCentroid(centre);
    if (!random.OneIn(3)) {
        centre.x = offset + random.Within(-0.5, 5.5);
        centre.y = random.Within(-0.5, 5.5);
    }
    struct Ray {
        double angle;
        real_pt_t end;
    };
    std::vector<Ray> rays;
    for (size_t count = 3 + random.Below(30); count > 0; --count) {
        const real_pt_t p = RandomVertex(view, offset, random);
        rays.push_back({std::atan2(p.y - centre.y, p.x - centre.x), p});
    }
    std::sort(rays.begin(), rays.end(), [](const Ray& a, const Ray& b) { return a.angle < b.angle; });
    constexpr double kLeast = 1e-6;
    PointSet star;
    double last = rays.back().angle - 2 * std::numbers::pi;
    for (const Ray& ray : rays) {
        if (ray.angle - last < kLeast) continue;
        if (ray.angle - last > std::numbers::pi - kLeast) return {};
        last = ray.angle;
        star.pts.push_back(ray.end);
    }
    if (star.pts.size() < 3) return {};
    const auto begin = static_cast<std::ptrdiff_t>(random.Below(star.pts.size()));
    std::rotate(star.pts.begin(), star.pts.begin() + begin, star.pts.end());
    if (random.OneIn(2)) std::reverse(star.pts.begin(), star.pts.end());
    if (random.OneIn(2)) star.pts.push_back(star.pts[0]);
    star.codes.assign(star.pts.size(), 0);
    star.codes.back() = 2;
    return star;
}

void ClipStars(double offset, double tolerance) {
    size_t stars = 0;
    for (uint64_t seed = 0; seed < 100000; ++seed) {
        RandomNumbers random(seed);
        const DblRect view = RandomView(offset, random);
        const PointSet star = RandomStar(view, offset, random);
        if (star.pts.empty()) continue;
        ASSERT_TRUE(KeepsArea(star, view, tolerance)) << "seed " << seed;
        ++stars;
    }
    EXPECT_GT(stars, 50000u);
}

TEST(ClipPolygonSetComplete, StarsAboutAView) { ClipStars(0, 1e-9); }

TEST(ClipPolygonSetComplete, StarsFarFromTheOrigin) { ClipStars(1e5, 1e-6); }

// A corner of a turned view is on such an edge but for rounding, which may put it on either side.
TEST(ClipPolygonSetComplete, EdgesThroughCornersOfTurnedViews) {
    for (uint64_t seed = 0; seed < 100000; ++seed) {
        RandomNumbers random(seed);
        const DblRect view = RandomView(0, random);
        const DblPt& corner = view.GetPt(static_cast<unsigned>(random.Below(4)));
        const double angle = random.Within(0, 2 * std::numbers::pi);
        const DblPt along(std::cos(angle), std::sin(angle));
        // The longer ones have the view between them and their third vertex, or beside them.
        const double size = random.OneIn(2) ? 1 : 100;
        const double before = size * random.Within(0.1, 10);
        const double after = size * random.Within(0.1, 10);
        DblPt third;
        third.x = size * random.Within(-9, 9);
        third.y = size * random.Within(-9, 9);
        const PointSet triangle = PolygonOf({{corner.x - before * along.x, corner.y - before * along.y},
                                             {corner.x + after * along.x, corner.y + after * along.y},
                                             third});
        ASSERT_TRUE(KeepsArea(triangle, view, 1e-9 * size)) << "seed " << seed;
    }
}

// Of polygons that cross themselves this much is true: nothing of them comes out that is outside.
TEST(ClipPolygonSetComplete, TanglesStayWithin) {
    size_t points = 0;
    for (uint64_t seed = 0; seed < 50000; ++seed) {
        RandomNumbers random(seed);
        const DblRect view = RandomView(0, random);
        PointSet tangle;
        for (size_t count = 3 + random.Below(10); count > 0; --count)
            tangle.pts.push_back(RandomVertex(view, 0, random));
        tangle.codes.assign(tangle.pts.size(), 0);
        tangle.codes.back() = 2;
        const PointSet out = ClippedCompletely(tangle, view);
        ASSERT_GT(LeastDepthIn(view, out), -1e-9) << "seed " << seed;
        points += out.pts.size();
    }
    EXPECT_GT(points, 100000u);
}

// ---- Maps ----

void AppendRings(PointSet& set, const nlohmann::json& polygon) {
    for (const nlohmann::json& ring : polygon) {
        for (const nlohmann::json& place : ring) {
            set.pts.push_back({place[0].get<double>(), place[1].get<double>()});
            set.codes.push_back(0);
        }
        set.codes.back() = 2;
    }
}

/// All rings of a sample, each a polygon of its own.
PointSet ReadMap(const std::string& name) {
    std::ifstream file(std::string(VELLUM_SAMPLES) + "/" + name);
    const nlohmann::json document = nlohmann::json::parse(file);
    PointSet set;
    for (const nlohmann::json& feature : document["features"]) {
        const nlohmann::json& geometry = feature["geometry"];
        if (geometry["type"] == "Polygon") AppendRings(set, geometry["coordinates"]);
        if (geometry["type"] == "MultiPolygon") {
            for (const nlohmann::json& polygon : geometry["coordinates"])
                AppendRings(set, polygon);
        }
    }
    return set;
}

/// The polygons all of whose points are within a rectangle and not near its sides.
PointSet PolygonsWithin(const std::vector<PointSet>& polygons, const DblRect& clip) {
    PointSet within;
    for (const PointSet& polygon : polygons) {
        if (LeastDepthIn(clip, polygon) > 1e-9) AppendTo(within, polygon);
    }
    return within;
}

class MapTest : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override {
        map_ = ReadMap(GetParam());
        ASSERT_GT(map_.pts.size(), 10000u);
        polygons_ = PolygonsOf(map_);
    }

    void Check(const DblRect& view) {
        const PointSet out = ClippedCompletely(map_, view);
        const double area = AreaWithin(map_, view);
        EXPECT_NEAR(Area(out), area, 1e-10 * (1 + area));
        EXPECT_GT(LeastDepthIn(view, out), -1e-11);
        EXPECT_TRUE(IsSelection(PolygonsWithin(polygons_, view), out)) << "a polygon within is not as it was";
    }

    PointSet map_;
    std::vector<PointSet> polygons_;
};

TEST_P(MapTest, TurnedViews) {
    const DblPt centres[] = {{10, 50}, {-100, 45}, {0, 0}, {140, -25}, {179, -17}};
    for (const DblPt& centre : centres) {
        for (const double width : {0.5, 3.0, 12.0, 45.0, 180.0, 400.0}) {
            for (const double degrees : {0, 10, 45, 90, 123, 180, 200, 270, 315, 350}) {
                const DblRect view = TurnedBox(centre, width / 2, width * 0.35, degrees);
                Check(view);
                ASSERT_FALSE(HasFailure())
                    << "about " << centre.x << ", " << centre.y << ", " << width << " wide, " << degrees << " degrees";
            }
        }
    }
}

// The corners and sides of these are vertices and edges of the map.
TEST_P(MapTest, ViewsFromVertexToVertex) {
    RandomNumbers random(1);
    for (int round = 0; round < 60; ++round) {
        const PointSet& polygon = polygons_[random.Below(polygons_.size())];
        const size_t i = random.Below(polygon.pts.size() - 1);
        const real_pt_t& a = polygon.pts[i];
        const real_pt_t& b = polygon.pts[round % 2 == 0 ? i + 1 : random.Below(polygon.pts.size() - 1)];
        if (a.x == b.x || a.y == b.y) continue;
        Check(Box(std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)));
        const DblPt across(2 * (b.y - a.y), -2 * (b.x - a.x));
        Check(Corners({a.x, a.y}, {b.x, b.y}, {b.x + across.x, b.y + across.y}, {a.x + across.x, a.y + across.y}));
        ASSERT_FALSE(HasFailure()) << "from " << a.x << ", " << a.y << " to " << b.x << ", " << b.y;
    }
}

INSTANTIATE_TEST_SUITE_P(ClipPolygonSetComplete, MapTest, testing::Values("countries-110m.geojson", "land-50m.geojson"),
                         [](const auto& map) { return map.param.substr(0, map.param.find('-')); });

}  // namespace
