// SPDX-License-Identifier: MIT

// What lets the connector look at neighbours only: the reach of its steps, the tree of boxes, the order in the
// plane, where shapes contain points, and the order that comes out at the end. And how much work is left.

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <limits>
#include <memory>
#include <nlohmann/json.hpp>
#include <tuple>
#include <utility>
#include <vector>

#include "paths/connector_checks.h"
#include "paths/connector_findings.h"
#include "paths/connector_join.h"
#include "paths/connector_list.h"
#include "paths/connector_networks.h"
#include "paths/connector_output.h"
#include "paths/connector_reach.h"
#include "paths/connector_shapes.h"
#include "paths/connector_steps.h"
#include "paths/plane_box.h"
#include "paths/plane_box_tree.h"
#include "paths/spatial_order.h"
#include "reference/connector.h"
#include "support/random_numbers.h"
#include "vellum/circles.h"
#include "vellum/ellipses.h"

namespace {

using paths_tests::Connected;
using paths_tests::Hold;
using paths_tests::Kind;
using paths_tests::LineOf;
using paths_tests::Network;
using paths_tests::Points;
using paths_tests::SameBits;
using support::RandomNumbers;
using Vellum::AlignedDblRect;
using Vellum::CircleGeom;
using Vellum::ClosedShape;
using Vellum::DblPt;
using Vellum::DblPtVec;
using Vellum::DblRect;
using Vellum::EllipseGeom;
using Vellum::LayerConnector;
using Vellum::PolygonGeom;
using Vellum::PolylineConnector;
using Vellum::internal::BoxOfPoints;
using Vellum::internal::BoxOfSegment;
using Vellum::internal::ConnectorFindings;
using Vellum::internal::ConnectorList;
using Vellum::internal::ConnectorOutput;
using Vellum::internal::ConnectorReach;
using Vellum::internal::ConnectorSink;
using Vellum::internal::ConnectorSteps;
using Vellum::internal::FindRealm;
using Vellum::internal::LayerPlace;
using Vellum::internal::PlaneBox;
using Vellum::internal::PlaneBoxBlock;
using Vellum::internal::PlaneBoxTree;
using Vellum::internal::PolylineJoin;
using Vellum::internal::ScratchArray;
using Vellum::internal::ShapeIndex;
using Vellum::internal::WholePlane;

using Lines = std::vector<Points>;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr uint32_t kNobody = PlaneBoxTree::kNobody;

bool AreSame(const PlaneBox& a, const PlaneBox& b) {
    return SameBits(a.minX, b.minX) && SameBits(a.minY, b.minY) && SameBits(a.maxX, b.maxX) && SameBits(a.maxY, b.maxY);
}

/// Keeps all points of each segment and all links.
class Collected final : public ConnectorSink {
public:
    explicit Collected(size_t segments) : splits(segments) {}
    void AddPoint(uint32_t segment, const DblPt& p) override { splits[segment].push_back(p); }
    void AddLink(const DblPt& p, const DblPt& q) override { links.push_back({p, q}); }

    Lines splits;
    Lines links;
};

// ---- Boxes ----

TEST(PlaneBox, OfPoints) {
    const Points points = {{3, 1}, {-2, 5}, {7, 0.5}};
    EXPECT_TRUE(AreSame(BoxOfPoints(points.data(), 1), {3, 1, 3, 1}));
    EXPECT_TRUE(AreSame(BoxOfPoints(points.data(), 2), {-2, 1, 3, 5}));
    EXPECT_TRUE(AreSame(BoxOfPoints(points.data(), 3), {-2, 0.5, 7, 5}));
    EXPECT_TRUE(AreSame(BoxOfSegment(points[1], points[2]), {-2, 0.5, 7, 5}));
    EXPECT_TRUE(AreSame(BoxOfSegment(points[2], points[1]), {-2, 0.5, 7, 5}));
}

TEST(PlaneBox, IsTheWholePlaneWhereACoordinateIsNotFinite) {
    for (const double bad : {kNan, kInfinity, -kInfinity}) {
        for (size_t i = 0; i < 3; ++i) {
            Points points = {{3, 1}, {-2, 5}, {7, 0.5}};
            points[i].x = bad;
            EXPECT_TRUE(BoxOfPoints(points.data(), 3).IsWholePlane());
            points[i] = DblPt(1, bad);
            EXPECT_TRUE(AreSame(BoxOfPoints(points.data(), 3), WholePlane()));
        }
    }
    EXPECT_FALSE((PlaneBox{-1e308, 0, 1, 1}).IsWholePlane());
}

TEST(PlaneBox, KeepsTheFirstOfTheTwoZeros) {
    const Points points = {{-0.0, 0.0}, {0.0, -0.0}};
    EXPECT_TRUE(AreSame(BoxOfPoints(points.data(), 2), {-0.0, 0.0, -0.0, 0.0}));
}

std::vector<double> BoxCoordinates(RandomNumbers& random) {
    std::vector<double> c;
    for (size_t i = 0; i < 4; ++i)
        c.push_back(random.OneIn(20) ? random.OneOf({kInfinity, -kInfinity}) : random.Between(0, 30));
    return c;
}

PlaneBox RandomBox(RandomNumbers& random) {
    const std::vector<double> c = BoxCoordinates(random);
    const double width = random.Between(0, 5);
    if (random.OneIn(4))
        return {std::min(c[0], c[1]), std::min(c[2], c[3]), std::max(c[0], c[1]), std::max(c[2], c[3])};
    return {c[0], c[1], c[0] + width, c[1] + width};
}

TEST(PlaneBoxBlock, MeetsWhatItsBoxesMeet) {
    RandomNumbers random(1);
    for (int round = 0; round < 2000; ++round) {
        PlaneBoxBlock block;
        PlaneBox boxes[PlaneBoxBlock::kCount];
        uint32_t omitted = 0;
        for (size_t i = 0; i < PlaneBoxBlock::kCount; ++i) {
            boxes[i] = RandomBox(random);
            block.Set(i, boxes[i]);
            EXPECT_TRUE(AreSame(block[i], boxes[i]));
            if (!random.OneIn(9)) continue;
            block.Omit(i);
            omitted |= uint32_t{1} << i;
        }
        const PlaneBox box = random.OneIn(9) ? WholePlane() : RandomBox(random);
        uint32_t expected = 0;
        for (size_t i = 0; i < PlaneBoxBlock::kCount; ++i)
            expected |= uint32_t{boxes[i].Meets(box)} << i;
        ASSERT_EQ(block.Meeting(box), expected & ~omitted);
    }
}

TEST(PlaneBoxTree, FindsWhatMeetsABoxInOrder) {
    RandomNumbers random(2);
    for (const size_t count : {0u, 1u, 7u, 8u, 9u, 63u, 64u, 65u, 100u, 511u, 513u, 700u}) {
        PlaneBoxTree tree;
        ASSERT_TRUE(tree.Allocate(count));
        std::vector<PlaneBox> boxes;
        std::vector<uint32_t> owners;
        for (size_t i = 0; i < count; ++i) {
            boxes.push_back(RandomBox(random));
            owners.push_back(i > 0 && !random.OneIn(12) ? owners.back() : static_cast<uint32_t>(random.Below(4)));
            tree.Set(i, boxes[i], owners[i]);
        }
        tree.Build();
        for (int round = 0; round < 60; ++round) {
            const PlaneBox box = RandomBox(random);
            const size_t first = random.OneIn(2) ? 0 : random.Below(count + 1);
            const size_t last = random.OneIn(2) ? count : first + random.Below(count - first + 1);
            const uint32_t except = random.OneIn(3) ? kNobody : static_cast<uint32_t>(random.Below(5));
            std::vector<size_t> expected;
            for (size_t i = first; i < last; ++i)
                if (boxes[i].Meets(box) && owners[i] != except) expected.push_back(i);
            std::vector<size_t> found;
            tree.ForEachMeeting(box, first, last, except, [&](size_t i) { found.push_back(i); });
            ASSERT_EQ(found, expected) << count << " boxes, from " << first << " to " << last;
        }
        for (size_t i = 0; i < count; ++i)
            ASSERT_TRUE(AreSame(tree[i], boxes[i]) && tree.OwnerOf(i) == owners[i]);
    }
}

TEST(PlaneBoxTree, PassesOverWhatIsFarAwayAndWhatIsOneOwners) {
    constexpr size_t kCount = 4096;
    PlaneBoxTree tree;
    ASSERT_TRUE(tree.Allocate(kCount));
    for (size_t i = 0; i < kCount; ++i) {
        const double x = static_cast<double>(i);
        tree.Set(i, {x, 0, x + 0.5, 1}, i == 3000 ? 2 : 1);
    }
    tree.Build();
    size_t found = 0;
    const auto count = [&](size_t) { ++found; };
    EXPECT_EQ(tree.ForEachMeeting({1000, 0, 1000, 1}, 0, kCount, kNobody, count), 4u);
    EXPECT_EQ(tree.ForEachMeeting({-9, 0, -1, 1}, 0, kCount, kNobody, count), 1u);
    EXPECT_EQ(tree.ForEachMeeting(WholePlane(), 64, 128, kNobody, count), 1u + 1 + 1 + 8);
    EXPECT_EQ(tree.ForEachMeeting(WholePlane(), 5, 5, kNobody, count), 0u);
    EXPECT_EQ(found, 1u + 64);
    EXPECT_EQ(tree.ForEachMeeting(WholePlane(), 0, kCount, 1, count), 4u);
    EXPECT_EQ(found, 1u + 64 + 1);
}

// ---- The order in the plane ----

ScratchArray<LayerPlace> PlacesOf(const Points& points) {
    ScratchArray<LayerPlace> places;
    for (uint32_t i = 0; i < points.size(); ++i)
        EXPECT_TRUE(places.Append({points[i], 0, i, 3 * i}));
    return places;
}

/// The mean of half the outlines of blocks of eight.
double MeanReachOfBlocks(const ScratchArray<LayerPlace>& places) {
    double sum = 0.0;
    size_t blocks = 0;
    for (size_t first = 0; first + 8 <= places.Size(); first += 8, ++blocks) {
        Points points;
        for (size_t i = first; i < first + 8; ++i)
            points.push_back(places[i].at);
        const PlaneBox box = BoxOfPoints(points.data(), points.size());
        sum += box.maxX - box.minX + box.maxY - box.minY;
    }
    return sum / static_cast<double>(blocks);
}

TEST(SpatialOrder, KeepsAllPlacesLayerByLayer) {
    constexpr double kSpecial[] = {kNan, kInfinity, -kInfinity, 1e308, -1e308, 0.0, -0.0};
    RandomNumbers random(3);
    for (const size_t count : {0u, 1u, 8u, 9u, 1000u}) {
        ScratchArray<LayerPlace> places;
        for (uint32_t i = 0; i < count; ++i) {
            const double x = random.OneIn(3) ? random.OneOf(kSpecial) : random.Unit();
            const double y = random.OneIn(3) ? random.OneOf(kSpecial) : random.Unit();
            const auto layer = static_cast<uint32_t>(random.Below(5)) * 0x40000000;
            ASSERT_TRUE(places.Append({DblPt(x, y), layer, i, layer + i}));
        }
        OrderSpatially(places);
        ASSERT_EQ(places.Size(), count);
        std::vector<bool> isThere(count);
        for (size_t i = 0; i < count; ++i) {
            isThere[places[i].owner] = true;
            ASSERT_EQ(places[i].part, places[i].layer + places[i].owner);
            ASSERT_TRUE(i == 0 || places[i - 1].layer <= places[i].layer);
            ASSERT_FALSE(std::isnan(places[i].at.x) || std::isnan(places[i].at.y));
        }
        EXPECT_EQ(std::count(isThere.begin(), isThere.end(), true), static_cast<std::ptrdiff_t>(count));
    }
}

TEST(SpatialOrder, BringsNeighboursTogether) {
    RandomNumbers random(4);
    constexpr size_t kCount = 8 * 1024;
    const auto reachOf = [&](double width, double height, const Points& more) {
        Points points = more;
        while (points.size() < kCount) {
            const double x = random.Unit() * width;
            points.emplace_back(x, random.Unit() * height);
        }
        ScratchArray<LayerPlace> places = PlacesOf(points);
        OrderSpatially(places);
        return MeanReachOfBlocks(places);
    };
    // Blocks of eight that share a square of 1 by 1 among them measure 1/32 by 1/32 each.
    EXPECT_LT(reachOf(1, 1, {}), 0.065);
    // Also where the plane is not.
    EXPECT_LT(reachOf(1e-6, 1, {}), 0.0015);
    EXPECT_LT(reachOf(1, 1e-6, {}), 0.0015);
    EXPECT_LT(reachOf(0, 1, {}), 0.0015);
    // An outlier bloats a block or two.
    EXPECT_LT(reachOf(1, 1, {{0.5, 1000}}), 0.065 + 1001.0 / 1024);
    EXPECT_LT(reachOf(1, 1, {{1000, 0.5}}), 0.065 + 1001.0 / 1024);
}

// ---- The reach of the steps ----

/// Says whether anything was found.
class Alarm final : public ConnectorSink {
public:
    void AddPoint(uint32_t, const DblPt&) override { isRaised = true; }
    void AddLink(const DblPt&, const DblPt&) override { isRaised = true; }

    bool isRaised = false;
};

bool AreFinite(const Points& points) { return !BoxOfPoints(points.data(), points.size()).IsWholePlane(); }

TEST(ConnectorReach, WhateverIsFoundIsWithinIt) {
    for (const Kind kind : paths_tests::kAllKinds) {
        size_t found = 0;
        for (uint64_t seed = 0; seed < 4000; ++seed) {
            RandomNumbers random(seed);
            Points p;
            for (int i = 0; i < 4; ++i)
                p.push_back(RandomPoint(kind, random));
            if (random.OneIn(3)) p[3] = DblPt(p[2].x + (p[1].x - p[0].x), p[2].y + (p[1].y - p[0].y));
            const double tol = paths_tests::RandomTolerance(random);
            if (!AreFinite(p)) continue;
            Alarm alarm;
            const ConnectorSteps steps(tol, alarm);
            steps.Connect({0, p[0], p[1]}, {1, p[2], p[3]});
            if (!alarm.isRaised) continue;
            ++found;
            const PlaneBox a = BoxOfSegment(p[0], p[1]);
            const PlaneBox b = BoxOfSegment(p[2], p[3]);
            ASSERT_TRUE(steps.Reach().Around(a).Meets(b)) << NameOf(kind) << ", seed " << seed;
            ASSERT_TRUE(steps.Reach().Around(b).Meets(a)) << NameOf(kind) << ", seed " << seed;
        }
        EXPECT_GT(found, 200u) << NameOf(kind);
    }
}

TEST(ConnectorReach, IsJustEnough) {
    // Segments as far apart as a step can still join them, found by bisection, near the origin and far from it.
    for (const double at : {0.0, 1.0, -1e6, 1e12, -0x1p54}) {
        for (const double tol : {0.0, 1e-9, 0.5, 3.0, 1e7}) {
            const auto isFound = [&](double gap, bool isParallel) {
                Alarm alarm;
                const ConnectorSteps steps(tol, alarm);
                const DblPt p(at, 0);
                const DblPt q(at, 8);
                const DblPt r(at + gap, 3);
                const DblPt s(isParallel ? at + gap : at + gap + 9, 5);
                steps.Connect({0, p, q}, {1, r, s});
                const bool meets = steps.Reach().Around(BoxOfSegment(p, q)).Meets(BoxOfSegment(r, s));
                EXPECT_TRUE(!alarm.isRaised || meets) << "at " << at << ", tolerance " << tol << ", gap " << gap;
                return alarm.isRaised;
            };
            for (const bool isParallel : {false, true}) {
                double near = 0.0;
                double far = 1e9;
                for (int i = 0; i < 120; ++i) {
                    const double middle = (near + far) / 2;
                    (isFound(middle, isParallel) ? near : far) = middle;
                }
                EXPECT_GE(near, tol * 0.9 - std::fabs(at) * 1e-15) << "at " << at << ", tolerance " << tol;
            }
        }
    }
    const PlaneBox around = ConnectorReach(0.5).Around({1, 2, 3, 4});
    EXPECT_NEAR(around.minX, 0.5, 2e-7);
    EXPECT_NEAR(around.minY, 1.5, 2e-7);
    EXPECT_NEAR(around.maxX, 3.5, 2e-7);
    EXPECT_NEAR(around.maxY, 4.5, 2e-7);
    EXPECT_NEAR(ConnectorReach(-7).Around({1, 2, 3, 4}).minX, 1, 3e-7);
    EXPECT_NEAR(ConnectorReach(-kInfinity).Around({1, 2, 3, 4}).minX, 1, 3e-7);
}

TEST(ConnectorReach, AllowsForRounding) {
    // Where the bounds tolerance is half a unit in the last place, it rounds up to a whole one on either side of the
    // crossing, which lies in the middle between the segments.
    const auto x = [](int units) { return 0x1p30 + units * 0x1p-22; };
    const DblPt p[] = {{x(1), -9}, {x(2), 16}, {x(6), 12}, {x(4), 12}};
    const PlaneBox a = BoxOfSegment(p[0], p[1]);
    const PlaneBox b = BoxOfSegment(p[2], p[3]);
    ASSERT_EQ(b.minX - a.maxX, 4 * FLT_EPSILON);
    Collected found(2);
    const ConnectorSteps steps(0, found);
    steps.Connect({0, p[0], p[1]}, {1, p[2], p[3]});
    EXPECT_TRUE(Hold(found.splits, {{{x(3), 12}}, {{x(3), 12}}}));
    EXPECT_TRUE(steps.Reach().Around(a).Meets(b));
    EXPECT_TRUE(steps.Reach().Around(b).Meets(a));
    Network network;
    network.lines = {LineOf({p[0], p[1]}, 0), LineOf({p[2], p[3], {x(-9), 7}}, 0)};
    EXPECT_TRUE(Hold(Connected(network, 0), reference::ConnectPolylines(network.lines, {}, 0).lines));
    EXPECT_EQ(Connected(network, 0)[0].size(), 4u);
}

TEST(ConnectorReach, IsEverywhereWithoutABound) {
    for (const double tol : {kNan, kInfinity, std::numeric_limits<double>::max()}) {
        EXPECT_TRUE(AreSame(ConnectorReach(tol).Around({-1e300, 2, 1e300, 2}), WholePlane())) << tol;
    }
    EXPECT_TRUE(AreSame(ConnectorReach(1).Around(WholePlane()), WholePlane()));
}

TEST(ConnectorSteps, AnEndOutOfReachDoesNotDecide) {
    // The end at infinity has no distance from the vertical segment, and so nothing is nearest.
    Collected found(2);
    const ConnectorSteps steps(2, found);
    const DblPt p(5, kInfinity);
    const DblPt q(4, 1);
    const DblPt r(3, 0);
    const DblPt s(3, kInfinity);
    EXPECT_FALSE(steps.ConnectEndToInterior({0, p, q}, {1, r, s}));
    EXPECT_TRUE(Hold(found.splits, {{}, {}}));
    const DblPt nearer(5, 9);
    EXPECT_TRUE(steps.ConnectEndToInterior({0, nearer, q}, {1, r, s}));
    EXPECT_TRUE(Hold(found.splits, {{}, {{3, 1}}}));
}

// ---- The order of what is found ----

/// Of so many segments, three to a polyline and numbered in steps, every pair that belongs to two polylines is told,
/// in any order.
void ExpectTheOrderOfThePairs(uint32_t segments, uint32_t step) {
    std::vector<ConnectorFindings::Pair> pairs;
    for (uint32_t a = 0; a < segments; ++a)
        for (uint32_t b = (a / 3 + 1) * 3; b < segments; ++b)
            pairs.push_back({a / 3, b / 3, a * step, b * step});
    RandomNumbers random(5);
    for (size_t i = pairs.size(); i > 1; --i)
        std::swap(pairs[i - 1], pairs[random.Below(i)]);
    const auto tellIn = [](const ConnectorFindings::Pair& pair, ConnectorSink& sink) {
        const DblPt name(pair.first, pair.second);
        sink.AddPoint(pair.second, name);
        sink.AddLink(name, DblPt(1, 0));
        sink.AddPoint(pair.first, name);
        sink.AddLink(name, DblPt(2, 0));
        sink.AddPoint(pair.second, DblPt(-name.x, name.y));
    };
    ConnectorFindings findings;
    for (const auto& pair : pairs) {
        findings.Enter(pair);
        tellIn(pair, findings);
    }
    EXPECT_TRUE(findings.IsComplete());
    Collected found(segments * step);
    ASSERT_TRUE(findings.PassTo(found, segments * step));

    std::sort(pairs.begin(), pairs.end(), [](const auto& p, const auto& q) {
        return std::tie(p.firstPolyline, p.secondPolyline, p.first, p.second) <
               std::tie(q.firstPolyline, q.secondPolyline, q.first, q.second);
    });
    Collected expected(segments * step);
    for (const auto& pair : pairs)
        tellIn(pair, expected);
    EXPECT_TRUE(Hold(found.splits, expected.splits));
    EXPECT_TRUE(Hold(found.links, expected.links));
}

TEST(ConnectorFindings, PassOnEverythingInTheOrderOfThePairs) { ExpectTheOrderOfThePairs(12, 1); }

// Some 5,000 points on 60 neighbouring segments.
TEST(ConnectorFindings, PassOnCrowdsInTheOrderOfThePairs) { ExpectTheOrderOfThePairs(60, 1); }

// Few points here and there, on 4,800 segments.
TEST(ConnectorFindings, PassOnStragglersInTheOrderOfThePairs) { ExpectTheOrderOfThePairs(12, 400); }

// Crowds in different parts of 3,900 segments.
TEST(ConnectorFindings, PassOnManyCrowdsInTheOrderOfThePairs) { ExpectTheOrderOfThePairs(78, 50); }

TEST(ConnectorOutput, TakesTheSplitPointsAsOneByOne) {
    RandomNumbers random(6);
    ConnectorOutput output;
    const std::unique_ptr<Vellum::PolylineGeom> input(paths_tests::NewPolyline(LineOf({{0, 0}, {90, 90}}, 0)));
    for (int round = 0; round < 300; ++round) {
        DblPtVec splits(4);
        Points points;
        const size_t count = random.Below(round % 10 == 0 ? 60 : 8);
        for (size_t i = 0; i < count; ++i) {
            // The second coordinate tells points at the same distance apart.
            points.emplace_back(random.OneIn(5) ? random.OneOf({kNan, kInfinity}) : random.Between(1, 5) * 1e20, i);
            ASSERT_TRUE(splits.push_back(points.back()));
        }
        Points expected = reference::TakenClosestFirst(DblPt(), points);
        expected.insert(expected.begin(), DblPt(0, 0));
        expected.emplace_back(90, 90);

        PolylineConnector connector;
        connector.segCount = 1;
        ASSERT_TRUE(connector.InitNewPts());
        for (const DblPt& p : points)
            connector.AddNewPt(0, p);
        Points oneByOne = {{0, 0}};
        bool isNew = false;
        for (DblPt last; connector.GetNextClosestPt(DblPt(), 0, last, isNew);) {
            ASSERT_TRUE(isNew);
            oneByOne.push_back(last);
        }
        oneByOne.emplace_back(90, 90);
        ASSERT_TRUE(Hold({oneByOne}, {expected}));

        DblPtVec* const lists[] = {&splits};
        const std::unique_ptr<Vellum::PolylineGeom> rebuilt(output.Rebuild(*input, lists));
        ASSERT_NE(rebuilt, nullptr);
        ASSERT_TRUE(Hold({Points(rebuilt->Start(), rebuilt->End())}, {expected}));
        EXPECT_EQ(splits.size(), count);
    }
}

TEST(ConnectorOutput, ComparesAsSortingDoes) {
    const auto comparisonsOf = [](uint32_t count, uint32_t step) {
        const std::unique_ptr<Vellum::PolylineGeom> input(paths_tests::NewPolyline(LineOf({{0, 0}, {90, 0}}, 0)));
        DblPtVec splits(4);
        for (uint32_t i = 0; i < count; ++i)
            EXPECT_TRUE(splits.push_back(DblPt(1 + i * step % count, 0)));
        DblPtVec* const lists[] = {&splits};
        ConnectorOutput output;
        const std::unique_ptr<Vellum::PolylineGeom> rebuilt(output.Rebuild(*input, lists));
        EXPECT_NE(rebuilt, nullptr);
        EXPECT_EQ(rebuilt->NPts(), count + 2);
        return output.Comparisons();
    };
    // From the start on, from the end, and all over the place.
    for (const uint32_t step : {1u, 16383u, 4097u * 3, 5555u}) {
        const size_t comparisons = comparisonsOf(16384, step);
        EXPECT_GE(comparisons, 16383u);
        EXPECT_LE(comparisons, 16384u * 28) << step;
    }
}

TEST(PolylineJoin, FindsWhatAllPairsFindInTheSameOrder) {
    for (const Kind kind : paths_tests::kAllKinds) {
        for (uint64_t seed = 1000; seed < 1060; ++seed) {
            RandomNumbers random(seed);
            const Network network = RandomNetwork(kind, random);
            const double tol = paths_tests::RandomTolerance(random);
            const double workingTol = tol - tol * 0.9999 + tol;
            const reference::Connected expected = reference::ConnectPolylines(network.lines, {}, tol);
            PolylineConnector connector;
            AddTo(connector, network);
            PolylineJoin join(*connector.polylines, workingTol);
            ASSERT_TRUE(join.Find());
            Collected found(expected.splits.size());
            ASSERT_TRUE(join.PassTo(found));
            ASSERT_TRUE(Hold(found.splits, expected.splits)) << NameOf(kind) << ", seed " << seed;
            const auto links = expected.lines.begin() + static_cast<std::ptrdiff_t>(network.lines.size());
            ASSERT_TRUE(Hold(found.links, {links, expected.lines.end()})) << NameOf(kind) << ", seed " << seed;
        }
    }
}

/// The rivers of the sample about a place, cut to what lies within a distance of it on both axes.
Network RiversAbout(double x, double y, double distance) {
    std::ifstream file(VELLUM_SAMPLES "/rivers-50m.geojson");
    const nlohmann::json rivers = nlohmann::json::parse(file);
    Network network;
    for (const auto& feature : rivers["features"]) {
        const auto& geometry = feature["geometry"];
        const bool isSingle = geometry["type"] == "LineString";
        for (const auto& line : isSingle ? nlohmann::json::array({geometry["coordinates"]}) : geometry["coordinates"]) {
            Points points;
            for (const auto& position : line) {
                const DblPt p(position[0], position[1]);
                if (std::fabs(p.x - x) <= distance && std::fabs(p.y - y) <= distance)
                    points.push_back(p);
                else if (!points.empty())
                    network.lines.push_back(LineOf(std::exchange(points, {}), 0));
            }
            if (!points.empty()) network.lines.push_back(LineOf(points, 0));
        }
    }
    return network;
}

TEST(PolylineJoin, JoinsRivers) {
    const Network network = RiversAbout(10, 50, 12);
    size_t segments = 0;
    for (const auto& line : network.lines)
        segments += line.points.size() - 1;
    ASSERT_GT(segments, 400u);
    for (const double tol : {0.0, 1e-6, 0.05, 0.5, 100.0}) {
        const reference::Connected expected = reference::ConnectPolylines(network.lines, {}, tol);
        EXPECT_TRUE(Hold(Connected(network, tol), expected.lines)) << "tolerance " << tol;
    }
}

// ---- How much work there is ----

/// All that is looked at.
size_t EffortOf(const Lines& lines, double tol) {
    Network network;
    for (const Points& points : lines)
        network.lines.push_back(LineOf(points, 0));
    PolylineConnector connector;
    AddTo(connector, network);
    PolylineJoin join(*connector.polylines, tol);
    EXPECT_TRUE(join.Find());
    const PolylineJoin::Effort& effort = join.TheEffort();
    return effort.blocks + effort.runs + effort.runPairs + effort.segmentPairs;
}

/// However much input there is, a segment costs no more than so many steps, and four times as much input costs
/// little more than four times as much.
void ExpectNearLinear(Lines (*make)(size_t), double tol, size_t perSegment) {
    const size_t few = EffortOf(make(16000), tol);
    const size_t many = EffortOf(make(64000), tol);
    EXPECT_LE(few, perSegment * 16000);
    EXPECT_LE(many, perSegment * 64000);
    EXPECT_LE(many, few * 6);
}

DblPt Direction(double turns, double length) {
    const double angle = turns * 6.283185307179586;
    return DblPt(std::cos(angle) * length, std::sin(angle) * length);
}

Lines RandomSegments(size_t count) {
    RandomNumbers random(count);
    const double length = 1.5 / std::sqrt(static_cast<double>(count));
    Lines lines;
    for (size_t i = 0; i < count; ++i) {
        const double x = random.Unit();
        const DblPt p(x, random.Unit());
        DblPt q = Direction(random.Unit(), length);
        q += p;
        lines.push_back({p, q});
    }
    return lines;
}

TEST(Effort, IsNearLinearInRandomSegments) { ExpectNearLinear(RandomSegments, 0, 8); }

TEST(Effort, IsNearLinearFarFromTheOriginAndWithAnOutlier) {
    ExpectNearLinear(
        [](size_t count) {
            Lines lines = RandomSegments(count);
            for (Points& line : lines)
                for (DblPt& p : line)
                    p += DblPt(5e6, -3e6);
            lines.push_back({{0, 1e300}, {1, 1e300}});
            lines.push_back({{-1e9, 0}, {-1e9, 1}});
            return lines;
        },
        1e-5, 8);
}

/// Streets of as many segments as there are crossings.
Lines Streets(size_t count, const DblPt& along, const DblPt& across) {
    const auto side = static_cast<int>(std::sqrt(static_cast<double>(count) / 2));
    Lines lines;
    for (int i = 0; i < side; ++i) {
        Points there;
        Points back;
        for (int k = 0; k <= side; ++k) {
            const double s = i + 0.5;
            const double t = k;
            there.emplace_back(along.x * t + across.x * s, along.y * t + across.y * s);
            back.emplace_back(along.x * s + across.x * t, along.y * s + across.y * t);
        }
        lines.push_back(there);
        lines.push_back(back);
    }
    return lines;
}

TEST(Effort, IsNearLinearInAGridOfStreets) {
    ExpectNearLinear([](size_t count) { return Streets(count, {1, 0}, {0, 1}); }, 0, 3);
    // Along both diagonals, so that the boxes of the streets as a whole tell nothing.
    ExpectNearLinear([](size_t count) { return Streets(count, {1, 1}, {1, -1}); }, 0, 13);
}

TEST(Effort, IsNearLinearAlongALine) {
    ExpectNearLinear(
        [](size_t count) {
            RandomNumbers random(count);
            Lines lines;
            for (size_t i = 0; i < count; ++i) {
                const double y = static_cast<double>(random.Below(count));
                lines.push_back({{random.Unit() * 1e-3, y}, {random.Unit() * 1e-3, y + 1.5}});
            }
            return lines;
        },
        0, 5);
}

TEST(Effort, IsNearLinearAboutACoil) {
    // A line that crosses the whole drawing with every segment. It is not joined to itself, and there is little
    // else.
    ExpectNearLinear(
        [](size_t count) {
            RandomNumbers random(count);
            Points coil;
            for (size_t i = 0; i < count; ++i) {
                const double x = random.Unit();
                coil.emplace_back(x, random.Unit());
            }
            return Lines{coil, {{0.5, 0.4}, {0.6, 0.5}}, {{0.1, 0.7}, {0.3, 0.2}}};
        },
        0, 2);
}

TEST(Effort, IsNearLinearInNestedRings) {
    ExpectNearLinear(
        [](size_t count) {
            // As contour lines are drawn: as far apart as their points.
            Lines lines;
            size_t segments = 0;
            for (size_t i = 10; segments < count; ++i) {
                const auto radius = static_cast<double>(i);
                const size_t points = 6 * i;
                Points ring;
                for (size_t k = 0; k <= points; ++k)
                    ring.push_back(Direction(static_cast<double>(k) / static_cast<double>(points), radius));
                lines.push_back(ring);
                segments += points;
            }
            return lines;
        },
        0, 4);
}

TEST(Effort, LayersDoNotMeet) {
    // The same segments over and over, each time in a layer of its own.
    const Lines lines = RandomSegments(200);
    PolylineConnector connector;
    const auto effortOf = [&](uint32_t layers) {
        connector.Reset();
        for (uint32_t layer = 0; layer < layers; ++layer)
            for (const Points& line : lines)
                connector.AddPolyline(paths_tests::NewPolyline(LineOf(line, 0)), layer);
        PolylineJoin join(*connector.polylines, 0);
        EXPECT_TRUE(join.Find());
        return join.TheEffort().segmentPairs + join.TheEffort().runPairs;
    };
    EXPECT_EQ(effortOf(50), 50 * effortOf(1));
}

TEST(Effort, OnlyNearSegmentsAreLookedAt) {
    // Long lines that come near each other in one place.
    Points level;
    Points slope;
    for (int i = 0; i <= 1000; ++i) {
        level.emplace_back(i, 0);
        slope.emplace_back(i, (i - 500.25) * 3);
    }
    Network network;
    network.lines = {LineOf(level, 0), LineOf(slope, 0)};
    PolylineConnector connector;
    AddTo(connector, network);
    PolylineJoin join(*connector.polylines, 0.1);
    ASSERT_TRUE(join.Find());
    EXPECT_LE(join.TheEffort().segmentPairs, 3u);
    EXPECT_GE(join.TheEffort().segmentPairs, 1u);
}

// ---- Shapes ----

/// One that contains points where its base does not.
class Elsewhere final : public AlignedDblRect {
public:
    using AlignedDblRect::AlignedDblRect;
    bool Contains(const DblPt& p, double tol) const override { return Contains(p.x, p.y, tol); }
    bool Contains(double x, double y, double) const override { return x > 50 && y > 50; }
};

TEST(Realm, OfEachClass) {
    PlaneBox realm{};
    EXPECT_TRUE(FindRealm(AlignedDblRect(1, 2, 3, 5), realm));
    EXPECT_TRUE(AreSame(realm, {1, 2, 3, 5}));
    EXPECT_TRUE(FindRealm(DblRect(DblPt(3, 5), DblPt(1, 2)), realm));
    EXPECT_NEAR(realm.minX, 1, 1e-12);
    EXPECT_EQ(realm.minY, 2);
    EXPECT_NEAR(realm.maxX, 3, 1e-12);
    EXPECT_EQ(realm.maxY, 5);
    const Points points = {{4, 1}, {-3, 2}, {0, 9}};
    EXPECT_TRUE(FindRealm(PolygonGeom(3, points.data()), realm));
    EXPECT_NEAR(realm.minX, -3, 1e-12);
    EXPECT_EQ(realm.minY, 1);
    EXPECT_NEAR(realm.maxX, 4, 1e-12);
    EXPECT_EQ(realm.maxY, 9);
    EXPECT_TRUE(FindRealm(CircleGeom(10, 20, 2), realm));
    EXPECT_NEAR(realm.minX, 8, 0.11);
    EXPECT_NEAR(realm.maxY, 22, 0.11);
    EXPECT_FALSE(FindRealm(EllipseGeom({0, 0}, {1, 0}, {0, 2}), realm));
    EXPECT_FALSE(FindRealm(PolygonGeom(), realm));
    EXPECT_TRUE(FindRealm(Elsewhere(1, 2, 3, 5), realm));
    EXPECT_TRUE(realm.IsWholePlane());
}

TEST(Realm, IsTheWholePlaneWhereNothingIsSure) {
    PlaneBox realm{};
    for (const double bad : {kNan, kInfinity, 1e200}) {
        const DblPt p(bad, 0);
        const Points points = {{4, 1}, {-3, 2}, {0, bad}};
        EXPECT_TRUE(FindRealm(DblRect(DblPt(), p), realm));
        EXPECT_TRUE(realm.IsWholePlane());
        EXPECT_TRUE(FindRealm(PolygonGeom(3, points.data()), realm));
        EXPECT_TRUE(realm.IsWholePlane());
    }
    EXPECT_TRUE(FindRealm(CircleGeom(0, 0, kNan), realm));
    EXPECT_TRUE(realm.IsWholePlane());
    AlignedDblRect open;
    open.TSet(-kInfinity, 0, 4, 1);
    EXPECT_TRUE(FindRealm(open, realm));
    EXPECT_TRUE(realm.IsWholePlane());
}

TEST(Realm, HoldsTheSliverThatRoundingAdds) {
    // An edge so flat that the side of a point half a unit away is lost.
    const Points points = {{0, 0}, {0.2, 0}, {0.2, 5e-324}, {0, 1}};
    const PolygonGeom polygon(4, points.data());
    ASSERT_TRUE(polygon.Contains(0.6, 0, 0));
    ASSERT_FALSE(polygon.Contains(0.8, 0, 0));
    PlaneBox realm{};
    ASSERT_TRUE(FindRealm(polygon, realm));
    EXPECT_GE(realm.maxX, 0.7);
    EXPECT_LE(realm.maxX, 5);
}

TEST(Realm, HoldsAllPointsThatAShapeContains) {
    const ConnectorReach reach(0.0);
    for (const Kind kind : paths_tests::kAllKinds) {
        size_t contained = 0;
        for (uint64_t seed = 0; seed < 1500; ++seed) {
            RandomNumbers random(seed);
            const std::unique_ptr<ClosedShape> shape = RandomShape(kind, random);
            PlaneBox realm{};
            const bool hasRealm = FindRealm(*shape, realm);
            for (int i = 0; i < 20; ++i) {
                DblPt p = RandomPoint(kind, random);
                if (random.OneIn(2)) p.x += random.Between(-3, 3) * 5e-8;
                if (random.OneIn(2)) p.x = std::nextafter(p.x, random.OneIn(2) ? kInfinity : -kInfinity);
                if (random.OneIn(2)) p.y += random.Between(-3, 3) * 5e-8;
                if (!shape->Contains(p, FLT_EPSILON)) continue;
                ++contained;
                ASSERT_TRUE(hasRealm);
                ASSERT_TRUE(reach.Around(BoxOfPoints(&p, 1)).Meets(realm)) << NameOf(kind) << ", seed " << seed;
            }
        }
        EXPECT_GT(contained, 500u) << NameOf(kind);
    }
}

TEST(ShapeIndex, AsksOnlyShapesNearby) {
    const auto effortOf = [](int side) {
        ConnectorList connectors;
        std::vector<std::unique_ptr<LayerConnector>> records;
        std::vector<std::unique_ptr<ClosedShape>> shapes;
        Points line;
        for (int i = 0; i < side; ++i) {
            line.emplace_back(i, i % 2 * 0.2);
            for (int k = 0; k < side; ++k) {
                shapes.push_back(std::make_unique<AlignedDblRect>(i, k + 0.5, i + 0.4, k + 0.9));
                records.push_back(std::make_unique<LayerConnector>(LayerConnector{shapes.back().get(), 3}));
                connectors.push_back(records.back().get());
            }
        }
        ShapeIndex index;
        EXPECT_TRUE(index.Build(connectors));
        Collected found(line.size());
        index.Join(line, 0, 3, found);
        EXPECT_EQ(index.TheEffort().near, 0u);
        EXPECT_EQ(index.TheEffort().asked, 0u);
        for (DblPt& p : line)
            p.y += 2.6;
        index.Join(line, 0, 3, found);
        EXPECT_EQ(found.links.size(), line.size() - 1);
        index.Join(line, 0, 2, found);
        index.Join(line, 0, 4, found);
        EXPECT_EQ(found.links.size(), line.size() - 1);
        return index.TheEffort();
    };
    for (const int side : {20, 100, 300}) {
        const ShapeIndex::Effort effort = effortOf(side);
        const auto segments = static_cast<size_t>(side - 1);
        EXPECT_LE(effort.asked, 2 * segments);
        EXPECT_LE(effort.near, 2 * segments);
        EXPECT_LE(effort.blocks, 2 * segments);
    }
}

TEST(ShapeIndex, ActsAsTheShapesOneByOne) {
    for (const Kind kind : paths_tests::kAllKinds) {
        size_t links = 0;
        for (uint64_t seed = 0; seed < 60; ++seed) {
            RandomNumbers random(seed);
            Network network = RandomNetwork(kind, random);
            for (int i = 0; i < 40; ++i)
                network.shapes.push_back({RandomShape(kind, random), network.lines[0].layer});
            PolylineConnector connector;
            AddTo(connector, network);
            ShapeIndex index;
            ASSERT_TRUE(index.Build(*connector.connectors));
            const Points& line = network.lines[0].points;
            Collected found(line.size());
            index.Join(line, 0, network.lines[0].layer, found);
            connector.segCount = static_cast<uint32_t>(line.size());
            ASSERT_TRUE(connector.InitNewPolySeg() && connector.InitNewPts());
            connector.ApplyConnectorsToPolyline(connector.polylines->front(), 0);
            Lines splits(line.size());
            for (size_t i = 0; i < line.size(); ++i)
                if (const DblPtVec* own = connector.newPts[i]) splits[i].assign(own->begin(), own->end());
            Lines expected;
            for (const auto* link : *connector.newPolySegs)
                expected.emplace_back(link->Start(), link->End());
            ASSERT_TRUE(Hold(found.splits, splits)) << NameOf(kind) << ", seed " << seed;
            ASSERT_TRUE(Hold(found.links, expected)) << NameOf(kind) << ", seed " << seed;
            links += expected.size();
        }
        // The shapes of tiny drawings lie about their centroids within the tolerance.
        EXPECT_TRUE(links > 60 || kind == Kind::Tiny) << NameOf(kind);
    }
}

TEST(ConnectorList, KnowsWhatIsInTheVector) {
    AlignedDblRect shapes[] = {{0, 0, 2, 4}, {5, 0, 7, 4}, {0, 9, 2, 13}};
    LayerConnector records[] = {{&shapes[0], 1}, {&shapes[1], 1}, {&shapes[2], 2}};
    ConnectorList list;
    EXPECT_FALSE(list.Holds(1, DblPt(1, 2)));
    for (LayerConnector& record : records)
        list.push_back(&record);
    EXPECT_TRUE(list.Holds(1, DblPt(1, 2)));
    EXPECT_TRUE(list.Holds(1, DblPt(6, 2)));
    EXPECT_TRUE(list.Holds(2, DblPt(1, 11)));
    EXPECT_FALSE(list.Holds(2, DblPt(1, 2)));
    EXPECT_FALSE(list.Holds(1, DblPt(2, 1)));
    // Also when it is taken off again.
    list.pop_back();
    EXPECT_FALSE(list.Holds(2, DblPt(1, 11)));
    EXPECT_TRUE(list.Holds(1, DblPt(6, 2)));
    list.clear();
    EXPECT_FALSE(list.Holds(1, DblPt(6, 2)));
}

}  // namespace
