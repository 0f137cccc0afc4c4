// SPDX-License-Identifier: MIT
#include "vellum/connector.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "paths/connector_checks.h"
#include "support/debug_capture.h"
#include "support/point_checks.h"
#include "vellum/circles.h"

namespace {

using paths_tests::Connected;
using paths_tests::Hold;
using paths_tests::LineOf;
using paths_tests::Network;
using paths_tests::NewPolyline;
using paths_tests::Points;
using paths_tests::TakeLines;
using support::IsAt;
using support::TakeDebugTexts;
using Vellum::AlignedDblRect;
using Vellum::CircleGeom;
using Vellum::ClosedShape;
using Vellum::DblPt;
using Vellum::DblPtVec;
using Vellum::DblRect;
using Vellum::LayerConnector;
using Vellum::LayerPolyline;
using Vellum::LineSegmentGeom;
using Vellum::PolylineConnector;
using Vellum::PolylineGeom;

using Lines = std::vector<Points>;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

static_assert(sizeof(LayerPolyline) == 16 && offsetof(LayerPolyline, poly) == 0 && offsetof(LayerPolyline, layer) == 8);
static_assert(sizeof(LayerConnector) == 16 && offsetof(LayerConnector, shape) == 0 &&
              offsetof(LayerConnector, layer) == 8);
static_assert(sizeof(PolylineConnector) == 40 && offsetof(PolylineConnector, newPolySegs) == 0 &&
              offsetof(PolylineConnector, newPts) == 8 && offsetof(PolylineConnector, polylines) == 16 &&
              offsetof(PolylineConnector, connectors) == 24 && offsetof(PolylineConnector, segCount) == 32 &&
              offsetof(PolylineConnector, failed) == 36);

Network NetworkOf(const Lines& lines) {
    Network network;
    for (const Points& line : lines)
        network.lines.push_back(LineOf(line, 7));
    return network;
}

/// The lines of one layer, connected.
Lines Joined(const Lines& lines, double tol) { return Connected(NetworkOf(lines), tol); }

/// A shape of a host's own that contains what lies within 1 of a point on both axes. It counts the objects of its
/// kind, and how often they are asked for their centroids.
class Disc final : public ClosedShape {
public:
    Disc(double x, double y) : centre_(x, y) { ++alive; }
    Disc(const Disc& other) : ClosedShape(other), centre_(other.centre_) { ++alive; }
    Disc& operator=(const Disc&) = default;
    ~Disc() override { --alive; }
    ClosedShape* Clone() const override { return new Disc(*this); }
    void Print() const override {}
    bool Contains(const DblPt& p, double tol) const override { return Contains(p.x, p.y, tol); }
    bool Contains(double x, double y, double tol) const override {
        tolerances.push_back(tol);
        return centre_.XDist(DblPt(x, y)) <= 1 && centre_.YDist(DblPt(x, y)) <= 1;
    }
    void GetCentroid(DblPt& out) const override {
        ++centroids;
        out = centre_;
    }
    void ApplyTransform(const Vellum::Mtx2D*) override {}

    static inline int alive = 0;
    static inline int centroids = 0;
    static inline std::vector<double> tolerances;

private:
    DblPt centre_;
};

/// A connector with work containers for two segments, to take the steps on.
class Steps : public testing::Test {
protected:
    void SetUp() override {
        connector.segCount = 2;
        ASSERT_TRUE(connector.InitNewPolySeg());
        ASSERT_TRUE(connector.InitNewPts());
    }

    /// Adds split points to segment 1, so many that the next one moves them.
    DblPtVec& Filled(const DblPt& p, const DblPt& q, const DblPt& r) {
        for (const DblPt& split : {p, q, r})
            connector.AddNewPt(1, split);
        return *connector.newPts[1];
    }

    Points SplitsOf(unsigned seg) const {
        const DblPtVec* const splits = connector.newPts[seg];
        return splits == nullptr ? Points() : Points(splits->begin(), splits->end());
    }

    Lines Links() const {
        Lines links;
        for (const PolylineGeom* link : *connector.newPolySegs)
            links.emplace_back(link->Start(), link->End());
        return links;
    }

    testing::AssertionResult HasNothing() const {
        const Lines splits = {SplitsOf(0), SplitsOf(1)};
        const auto result = Hold(splits, {{}, {}});
        return result ? Hold(Links(), {}) : result;
    }

    PolylineConnector connector;
};

// ---- Crossings ----

TEST(PolylineConnector, SplitsCrossingLines) {
    EXPECT_TRUE(
        Hold(Joined({{{0, 1}, {4, 5}}, {{1, 6}, {5, 2}}}, 0), {{{0, 1}, {3, 4}, {4, 5}}, {{1, 6}, {3, 4}, {5, 2}}}));
}

TEST(PolylineConnector, SplitsWhereOneIsVertical) {
    EXPECT_TRUE(
        Hold(Joined({{{0, 0}, {8, 4}}, {{2, 5}, {2, -1}}}, 0), {{{0, 0}, {2, 1}, {8, 4}}, {{2, 5}, {2, 1}, {2, -1}}}));
    EXPECT_TRUE(
        Hold(Joined({{{2, 5}, {2, -1}}, {{0, 0}, {8, 4}}}, 0), {{{2, 5}, {2, 1}, {2, -1}}, {{0, 0}, {2, 1}, {8, 4}}}));
}

TEST(PolylineConnector, LeavesOtherLayersAlone) {
    Network network = NetworkOf({{{0, 1}, {4, 5}}, {{1, 6}, {5, 2}}, {{0, 4.5}, {9, 4.5}}});
    network.lines[0].layer = 3;
    network.lines[1].layer = 0x80000003;
    network.lines[2].layer = 3;
    EXPECT_TRUE(Hold(Connected(network, 0),
                     {{{0, 1}, {3.5, 4.5}, {4, 5}}, {{1, 6}, {5, 2}}, {{0, 4.5}, {3.5, 4.5}, {9, 4.5}}}));
}

TEST(PolylineConnector, AnEndOnTheInteriorSplitsOnlyThat) {
    EXPECT_TRUE(Hold(Joined({{{0, 0}, {8, 4}}, {{2, 1}, {3, 9}}}, 1), {{{0, 0}, {2, 1}, {8, 4}}, {{2, 1}, {3, 9}}}));
    EXPECT_TRUE(Hold(Joined({{{3, 9}, {2, 1}}, {{0, 0}, {8, 4}}}, 1), {{{3, 9}, {2, 1}}, {{0, 0}, {2, 1}, {8, 4}}}));
}

TEST(PolylineConnector, ACrossingCountsALittleBeyondAnEnd) {
    // The bounds are 2^-23 wider than the segment; the crossing is not the end all the same.
    EXPECT_TRUE(Hold(Joined({{{0, 0}, {4, 0}}, {{2, 1e-7}, {2, 5}, {9, -3}}}, 0),
                     {{{0, 0}, {2, 0}, {4, 0}}, {{2, 1e-7}, {2, 0}, {2, 5}, {9, -3}}}));
    EXPECT_TRUE(Hold(Joined({{{0, 0}, {4, 0}}, {{2, 1.3e-7}, {2, 5}, {9, -3}}}, 0),
                     {{{0, 0}, {4, 0}}, {{2, 1.3e-7}, {2, 5}, {9, -3}}}));
}

TEST(PolylineConnector, SplitsLieInTheOrderOfTheirDistance) {
    const Lines lines = {{{0, 1}, {10, 1}}, {{7, 0}, {7, 3}}, {{2, 0}, {2, 3}}, {{5, 0}, {5, 3}}};
    EXPECT_TRUE(Hold({Joined(lines, 0)[0]}, {{{0, 1}, {2, 1}, {5, 1}, {7, 1}, {10, 1}}}));
}

TEST(PolylineConnector, RepeatedSplitsCollapse) {
    const Lines lines = {{{0, 1}, {10, 1}}, {{5, 0}, {5, 3}}, {{4, 0}, {6, 2}}, {{4, 2}, {6, 0}}};
    EXPECT_TRUE(Hold(
        Joined(lines, 0),
        {{{0, 1}, {5, 1}, {10, 1}}, {{5, 0}, {5, 1}, {5, 3}}, {{4, 0}, {5, 1}, {6, 2}}, {{4, 2}, {5, 1}, {6, 0}}}));
}

TEST(PolylineConnector, EverySegmentOfALineIsSplit) {
    EXPECT_TRUE(Hold(Joined({{{0, 0}, {4, 0}, {4, 8}, {12, 8}}, {{3, -2}, {3, 3}, {6, 3}, {6, 10}}}, 0),
                     {{{0, 0}, {3, 0}, {4, 0}, {4, 3}, {4, 8}, {6, 8}, {12, 8}},
                      {{3, -2}, {3, 0}, {3, 3}, {4, 3}, {6, 3}, {6, 8}, {6, 10}}}));
}

TEST(PolylineConnector, ALineDoesNotCrossItself) {
    const Lines lines = {{{0, 0}, {4, 0}, {4, 2}, {2, -2}}, {{20, 20}, {21, 30}}};
    EXPECT_TRUE(Hold(Joined(lines, 0.5), lines));
}

// ---- Ends ----

TEST(PolylineConnector, GapsOfExactlyTheToleranceAreJoined) {
    const Lines lines = {{{0, 0}, {10, 0}}, {{10, 2}, {13, 8}}};
    const Lines joined = {{{0, 0}, {10, 0}}, {{10, 2}, {13, 8}}, {{10, 0}, {10, 2}}};
    EXPECT_TRUE(Hold(Joined(lines, 2), joined));
    EXPECT_TRUE(Hold(Joined(lines, 1.9999), joined));
    EXPECT_TRUE(Hold(Joined(lines, 1.9998), lines));
}

TEST(PolylineConnector, TheNearestEndsAreJoined) {
    // Each of the four pairs of ends in turn.
    const DblPt a(0, 0);
    const DblPt b(-9, 1);
    const DblPt c(0.5, 1);
    const DblPt d(6, 8);
    EXPECT_TRUE(Hold({Joined({{a, b}, {c, d}}, 3)[2]}, {{{0, 0}, {0.5, 1}}}));
    EXPECT_TRUE(Hold({Joined({{a, b}, {d, c}}, 3)[2]}, {{{0, 0}, {0.5, 1}}}));
    EXPECT_TRUE(Hold({Joined({{b, a}, {c, d}}, 3)[2]}, {{{0, 0}, {0.5, 1}}}));
    EXPECT_TRUE(Hold({Joined({{b, a}, {d, c}}, 3)[2]}, {{{0, 0}, {0.5, 1}}}));
    EXPECT_TRUE(Hold({Joined({{c, d}, {a, b}}, 3)[2]}, {{{0.5, 1}, {0, 0}}}));
}

TEST(PolylineConnector, AnEndAsFarFromBothEndsOfAnotherIsJoinedToItsInterior) {
    EXPECT_TRUE(Hold(Joined({{{5, 0}, {5, 1}}, {{4, 2}, {6, 2}}}, 1.5),
                     {{{5, 0}, {5, 1}}, {{4, 2}, {5, 2}, {6, 2}}, {{5, 1}, {5, 2}}}));
}

TEST(PolylineConnector, LinesThatShareAnEndAreNotJoinedAgain) {
    const Lines lines = {{{0, 0}, {4, 1}}, {{4, 1}, {9, 0.5}}, {{-3, 5}, {0, 0}}};
    EXPECT_TRUE(Hold(Joined({lines[0], lines[1]}, 100), {lines[0], lines[1]}));
    EXPECT_TRUE(Hold(Joined({lines[0], lines[2]}, 100), {lines[0], lines[2]}));
    // On each axis by less than 2^-52.
    EXPECT_TRUE(Hold(Joined({{{0, 0}, {4, 1}}, {{2e-16, -2e-16}, {1, -5}}}, 100),
                     {{{0, 0}, {4, 1}}, {{2e-16, -2e-16}, {1, -5}}}));
    EXPECT_EQ(Joined({{{0, 0}, {4, 1}}, {{2.3e-16, 0}, {1, -5}}}, 100).size(), 2u);
    EXPECT_EQ(Joined({{{0, 0}, {4, 1}}, {{3e-7, -2e-7}, {1, -5}}}, 100).size(), 3u);
}

TEST(PolylineConnector, AnEndNearAnInteriorIsJoinedToIt) {
    EXPECT_TRUE(Hold(Joined({{{0, 0}, {10, 0}}, {{4, 1}, {6, 7}}}, 1.5),
                     {{{0, 0}, {4, 0}, {10, 0}}, {{4, 1}, {6, 7}}, {{4, 1}, {4, 0}}}));
    EXPECT_TRUE(Hold(Joined({{{6, 7}, {4, 1}}, {{0, 0}, {10, 0}}}, 1.5),
                     {{{6, 7}, {4, 1}}, {{0, 0}, {4, 0}, {10, 0}}, {{4, 1}, {4, 0}}}));
    EXPECT_EQ(Joined({{{0, 0}, {10, 0}}, {{4, 1}, {6, 7}}}, 0.9998).size(), 2u);
    EXPECT_EQ(Joined({{{0, 0}, {10, 0}}, {{4, 1}, {6, 7}}}, 1).size(), 3u);
}

TEST(PolylineConnector, EndsComeBeforeInteriors) {
    // The interior is nearer.
    EXPECT_TRUE(Hold(Joined({{{0, 0}, {10, 0}}, {{9, 1}, {9.5, 8}}}, 1.5),
                     {{{0, 0}, {10, 0}}, {{9, 1}, {9.5, 8}}, {{10, 0}, {9, 1}}}));
}

TEST(PolylineConnector, NothingIsWithinANegativeToleranceOrNone) {
    const Lines lines = {{{0, 0}, {10, 0}}, {{4, 1e-5}, {6, 7}}, {{10, 1e-5}, {14, 3}}};
    EXPECT_TRUE(Hold(Joined(lines, 0), lines));
    EXPECT_TRUE(Hold(Joined(lines, -1), lines));
    EXPECT_TRUE(Hold(Joined(lines, kNan), lines));
}

// ---- Parallels ----

TEST(PolylineConnector, JoinsParallelsWhereTheyOverlap) {
    EXPECT_TRUE(Hold(Joined({{{0, 0}, {10, 0}}, {{4, 1}, {14, 1}}}, 1.5),
                     {{{0, 0}, {4, 0}, {10, 0}}, {{4, 1}, {10, 1}, {14, 1}}, {{10, 0}, {10, 1}}, {{4, 1}, {4, 0}}}));
    EXPECT_EQ(Joined({{{0, 0}, {10, 0}}, {{4, 1}, {14, 1}}}, 1).size(), 4u);
    EXPECT_EQ(Joined({{{0, 0}, {10, 0}}, {{4, 1}, {14, 1}}}, 0.9998).size(), 2u);
}

TEST(PolylineConnector, JoinsVerticalParallels) {
    EXPECT_TRUE(Hold(Joined({{{3, 0}, {3, 10}}, {{4, 4}, {4, 14}}}, 1.5),
                     {{{3, 0}, {3, 4}, {3, 10}}, {{4, 4}, {4, 10}, {4, 14}}, {{3, 10}, {4, 10}}, {{4, 4}, {3, 4}}}));
}

TEST(PolylineConnector, CollinearOverlapsAreSplitWithoutALink) {
    EXPECT_TRUE(
        Hold(Joined({{{0, 0}, {6, 0}}, {{2, 0}, {9, 0}}}, 0.5), {{{0, 0}, {2, 0}, {6, 0}}, {{2, 0}, {6, 0}, {9, 0}}}));
}

TEST(PolylineConnector, CollinearEndsAreJoinedOnce) {
    EXPECT_TRUE(
        Hold(Joined({{{0, 0}, {4, 0}}, {{5, 0}, {9, 0}}}, 1), {{{0, 0}, {4, 0}}, {{5, 0}, {9, 0}}, {{4, 0}, {5, 0}}}));
    EXPECT_TRUE(
        Hold(Joined({{{0, 0}, {4, 0}}, {{9, 0}, {5, 0}}}, 1), {{{0, 0}, {4, 0}}, {{9, 0}, {5, 0}}, {{4, 0}, {5, 0}}}));
}

TEST(PolylineConnector, APointIsJoinedFromBothSides) {
    // Of a segment without length the end is meant, and its start is not taken for joined.
    EXPECT_TRUE(Hold(Joined({{{5, 3}, {5, 1}}, {{5, 0}, {5, 0}}}, 2),
                     {{{5, 3}, {5, 1}}, {{5, 0}, {5, 0}}, {{5, 1}, {5, 0}}, {{5, 0}, {5, 1}}}));
}

TEST(PolylineConnector, ParallelsWithoutAToleranceToFailAreJoinedAtAnyDistance) {
    // A distance is not too large for a NaN.
    EXPECT_TRUE(
        Hold(Joined({{{0, 0}, {10, 0}}, {{4, 1e6}, {14, 1e6}}}, kNan),
             {{{0, 0}, {4, 0}, {10, 0}}, {{4, 1e6}, {10, 1e6}, {14, 1e6}}, {{10, 0}, {10, 1e6}}, {{4, 1e6}, {4, 0}}}));
    // As the tolerance is enlarged, an infinite one becomes one.
    EXPECT_EQ(Joined({{{0, 0}, {10, 0}}, {{4, 1e6}, {14, 1e6}}}, kInfinity).size(), 4u);
}

// ---- Whole networks ----

TEST(PolylineConnector, LinksComeInTheOrderOfThePairs) {
    // Neighbours along the x axis, added all over the place.
    const Lines lines = {
        {{40, 0}, {49, 1}}, {{10, 0}, {19, 1}}, {{30, 0}, {39, 1}}, {{0, 0}, {9, 1}}, {{20, 0}, {29, 1}}};
    const Lines joined = Joined(lines, 1.5);
    ASSERT_EQ(joined.size(), 9u);
    EXPECT_TRUE(Hold({joined.begin(), joined.begin() + 5}, lines));
    EXPECT_TRUE(Hold({joined.begin() + 5, joined.end()},
                     {{{40, 0}, {39, 1}}, {{10, 0}, {9, 1}}, {{19, 1}, {20, 0}}, {{30, 0}, {29, 1}}}));
}

TEST(PolylineConnector, LinksComeSegmentBySegment) {
    // Where both segments of a line come near the same place, it is joined twice.
    EXPECT_TRUE(Hold(Joined({{{0, 0}, {10, 0}, {10, 10}}, {{8, 9}, {9, 7}, {3, 1}}}, 1.2),
                     {{{0, 0}, {3, 0}, {10, 0}, {10, 7}, {10, 10}},
                      {{8, 9}, {9, 7}, {3, 1}},
                      {{3, 1}, {3, 0}},
                      {{9, 7}, {10, 7}},
                      {{9, 7}, {10, 7}}}));
}

TEST(PolylineConnector, CachedExtentsDecideWhetherLinesAreLookedAt) {
    // Extents of a that leave just the working tolerance to those of b, on each side, and an ulp more.
    const Points a = {{0, 1}, {4, 5}};
    const Points b = {{1, 6}, {5, 2}};
    const double tol = 2.0 - 2.0 * 0.9999 + 2.0;
    const auto count = [&](const AlignedDblRect& extents) {
        Network network = NetworkOf({a, b});
        network.lines[0].extents = extents;
        return Connected(network, 2.0)[0].size();
    };
    const double more = 100.0;
    // b spans (1, 2)-(5, 6).
    EXPECT_EQ(count(AlignedDblRect(0, 6 + tol, more, more)), 3u);
    EXPECT_EQ(count(AlignedDblRect(0, std::nextafter(6 + tol, more), more, more)), 2u);
    EXPECT_EQ(count(AlignedDblRect(0, -more, more, 2 - tol)), 3u);
    EXPECT_EQ(count(AlignedDblRect(0, -more, more, std::nextafter(2 - tol, -more))), 2u);
    EXPECT_EQ(count(AlignedDblRect(5 + tol, 0, more, more)), 3u);
    EXPECT_EQ(count(AlignedDblRect(std::nextafter(5 + tol, more), 0, more, more)), 2u);
    EXPECT_EQ(count(AlignedDblRect(-more, 0, 1 - tol, more)), 3u);
    EXPECT_EQ(count(AlignedDblRect(-more, 0, std::nextafter(1 - tol, -more), more)), 2u);
}

TEST(PolylineConnector, LinesOfAPointOrNoneComeOutAsTheyAre) {
    const Lines lines = {{}, {{3, 1}}, {{0, 1}, {6, 1}}, {}, {{6, 1.5}}};
    EXPECT_TRUE(Hold(Joined(lines, 5), lines));
    EXPECT_TRUE(Hold(Joined({{{3, 1}}}, 5), {{{3, 1}}}));
    EXPECT_TRUE(Hold(Joined({{}}, 5), {{}}));
}

TEST(PolylineConnector, ASingleLineIsNotJoinedToShapes) {
    Network network = NetworkOf({{{0, 0}, {10, 0}, {10, 5}}});
    network.shapes.push_back({std::make_unique<AlignedDblRect>(-1, -1, 2, 1), 7});
    EXPECT_TRUE(Hold(Connected(network, 1), {{{0, 0}, {10, 0}, {10, 5}}}));
    network.lines.push_back(LineOf({}, 3));
    EXPECT_TRUE(Hold(Connected(network, 1), {{{0, 0}, {10, 0}, {10, 5}}, {}, {{0, 0}, {0.5, 0}}}));
}

TEST(PolylineConnector, TheOutputIsMadeOfCopies) {
    PolylineConnector connector;
    PolylineGeom* const input = NewPolyline(LineOf({{0, 1}, {4, 5}}, 0));
    connector.AddPolyline(input, 1);
    connector.AddPolyline(NewPolyline(LineOf({{1, 6}, {5, 2}}, 0)), 1);
    unsigned count = 0;
    PolylineGeom** out = nullptr;
    ASSERT_TRUE(connector.ConnectPolylines(0, count, out));
    ASSERT_EQ(count, 2u);
    EXPECT_NE(out[0], input);
    EXPECT_EQ(input->NPts(), 2u);
    EXPECT_EQ(connector.segCount, 2u);
    EXPECT_EQ(connector.failed, 0);
    connector.Reset();
    EXPECT_TRUE(Hold(TakeLines(count, out), {{{0, 1}, {3, 4}, {4, 5}}, {{1, 6}, {3, 4}, {5, 2}}}));
}

TEST(PolylineConnector, TheOutputHasExtentsOfItsOwn) {
    Network network = NetworkOf({{{0, 1}, {4, 5}}, {{1, 6}, {5, 2}}});
    network.lines[0].extents = AlignedDblRect(-9, -9, 9, 9);
    PolylineConnector connector;
    paths_tests::AddTo(connector, network);
    unsigned count = 0;
    PolylineGeom** out = nullptr;
    ASSERT_TRUE(connector.ConnectPolylines(0, count, out));
    EXPECT_TRUE(IsAt(out[0]->LLExtent(), 0, 1));
    EXPECT_TRUE(IsAt(out[0]->URExtent(), 4, 5));
    TakeLines(count, out);
}

TEST(PolylineConnector, ASecondRunBeginsAnew) {
    PolylineConnector connector;
    paths_tests::AddTo(connector, NetworkOf({{{0, 0}, {10, 0}}, {{4, 1}, {6, 7}}}));
    unsigned count = 0;
    PolylineGeom** out = nullptr;
    ASSERT_TRUE(connector.ConnectPolylines(1.5, count, out));
    EXPECT_TRUE(Hold(TakeLines(count, out), {{{0, 0}, {4, 0}, {10, 0}}, {{4, 1}, {6, 7}}, {{4, 1}, {4, 0}}}));
    paths_tests::AddTo(connector, NetworkOf({{{8, 3}, {8, -3}, {20, -3}}}));
    ASSERT_TRUE(connector.ConnectPolylines(0.5, count, out));
    EXPECT_EQ(connector.segCount, 4u);
    EXPECT_TRUE(Hold(TakeLines(count, out),
                     {{{0, 0}, {8, 0}, {10, 0}}, {{4, 1}, {6, 7}}, {{8, 3}, {8, 0}, {8, -3}, {20, -3}}}));
    connector.Reset();
    EXPECT_FALSE(connector.ConnectPolylines(0.5, count, out));
}

TEST(PolylineConnector, WithoutLinesThereIsNoOutput) {
    PolylineConnector connector;
    connector.AddConnector(new AlignedDblRect(0, 0, 1, 1), 2);
    unsigned count = 9;
    PolylineGeom* something = nullptr;
    PolylineGeom** out = &something;
    EXPECT_FALSE(connector.ConnectPolylines(1, count, out));
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(out, nullptr);
    count = 9;
    out = &something;
    EXPECT_FALSE(connector.GenerateOutputPolylist(count, out));
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(out, nullptr);
}

// ---- Shapes ----

/// What the shapes, which are added in this order, make of some lines that are far from each other.
Lines JoinedToShapes(const Lines& lines, const std::vector<const ClosedShape*>& shapes) {
    Network network = NetworkOf(lines);
    network.lines.push_back(LineOf({{1000, 1000}, {1001, 1005}}, 7));
    for (const ClosedShape* shape : shapes)
        network.shapes.push_back({std::unique_ptr<ClosedShape>(shape->Clone()), 7});
    Lines joined = Connected(network, 0.01);
    joined.erase(joined.begin() + static_cast<std::ptrdiff_t>(lines.size()));
    return joined;
}

TEST(ConnectorShapes, JoinTheStartThatTheyContain) {
    const AlignedDblRect box(-2, -1, 1, 4);
    EXPECT_TRUE(Hold(JoinedToShapes({{{0, 0}, {10, 5}}}, {&box}), {{{0, 0}, {10, 5}}, {{0, 0}, {-0.5, 1.5}}}));
    // Even where it contains the end, or the foot is nearer.
    EXPECT_TRUE(Hold(JoinedToShapes({{{0, 0}, {-1, 3}}}, {&box}), {{{0, 0}, {-1, 3}}, {{0, 0}, {-0.5, 1.5}}}));
}

TEST(ConnectorShapes, JoinTheEndThatTheyContain) {
    const AlignedDblRect box(-2, -1, 1, 4);
    EXPECT_TRUE(Hold(JoinedToShapes({{{10, 5}, {0, 0}}}, {&box}), {{{10, 5}, {0, 0}}, {{0, 0}, {-0.5, 1.5}}}));
}

TEST(ConnectorShapes, JoinTheFootOfTheirCentroid) {
    const AlignedDblRect box(3, -1, 7, 2);
    EXPECT_TRUE(Hold(JoinedToShapes({{{0, 0}, {10, 0}}}, {&box}), {{{0, 0}, {5, 0}, {10, 0}}, {{5, 0}, {5, 0.5}}}));
    EXPECT_TRUE(Hold(JoinedToShapes({{{5.5, -4}, {5.5, 4}}}, {&box}),
                     {{{5.5, -4}, {5.5, 0.5}, {5.5, 4}}, {{5.5, 0.5}, {5, 0.5}}}));
}

TEST(ConnectorShapes, NeedTheFootWithinThemAndTheSegment) {
    // The segment crosses the box, but not where the foot is.
    const AlignedDblRect box(0, 0, 10, 2);
    EXPECT_EQ(JoinedToShapes({{{7, -1}, {12, 4}}}, {&box}).size(), 1u);
    EXPECT_TRUE(Hold(JoinedToShapes({{{5, -1}, {10, 4}}}, {&box}), {{{5, -1}, {6, 0}, {10, 4}}, {{6, 0}, {5, 1}}}));
    // The foot is in the box, but beyond the segment's end.
    EXPECT_EQ(JoinedToShapes({{{-9, 1.5}, {-1, 1.5}}}, {&box}).size(), 1u);
}

TEST(ConnectorShapes, LeaveOutALinkWithoutLength) {
    const AlignedDblRect box(3, -1, 7, 1);
    // The foot is the centroid, give or take 2^-23; the segment is split all the same.
    EXPECT_TRUE(Hold(JoinedToShapes({{{0, 0}, {10, 0}}}, {&box}), {{{0, 0}, {5, 0}, {10, 0}}}));
    EXPECT_TRUE(Hold(JoinedToShapes({{{0, 1e-7}, {10, 1e-7}}}, {&box}), {{{0, 1e-7}, {5, 1e-7}, {10, 1e-7}}}));
    EXPECT_EQ(JoinedToShapes({{{0, 1.3e-7}, {10, 1.3e-7}}}, {&box}).size(), 2u);
    // So are the start and the end.
    EXPECT_TRUE(Hold(JoinedToShapes({{{5, 0}, {10, 0}}}, {&box}), {{{5, 0}, {10, 0}}}));
    EXPECT_TRUE(Hold(JoinedToShapes({{{10, 0}, {5, 1e-7}}}, {&box}), {{{10, 0}, {5, 1e-7}}}));
}

TEST(ConnectorShapes, AreAskedWithATolerance) {
    // The start lies 1e-7 outside.
    const AlignedDblRect box(3, -1, 7, 1);
    EXPECT_EQ(JoinedToShapes({{{7 + 1e-7, 0.5}, {10, 5}}}, {&box}).size(), 2u);
    EXPECT_EQ(JoinedToShapes({{{7 + 1.3e-7, 0.5}, {10, 5}}}, {&box}).size(), 1u);
    Disc::tolerances.clear();
    const Disc disc(20, 3);
    JoinedToShapes({{{0, 0}, {10, 0}}}, {&disc});
    ASSERT_EQ(Disc::tolerances.size(), 4u);
    for (const double tol : Disc::tolerances)
        EXPECT_EQ(tol, FLT_EPSILON);
}

TEST(ConnectorShapes, TheFirstOneAddedThatTouchesActs) {
    const AlignedDblRect away(30, 30, 40, 40);
    const AlignedDblRect wide(3, -1, 9, 2);
    const AlignedDblRect narrow(4, -1, 6, 2);
    EXPECT_TRUE(Hold(JoinedToShapes({{{0, 0}, {10, 0}}}, {&away, &wide, &narrow}),
                     {{{0, 0}, {6, 0}, {10, 0}}, {{6, 0}, {6, 0.5}}}));
    EXPECT_TRUE(Hold(JoinedToShapes({{{0, 0}, {10, 0}}}, {&away, &narrow, &wide}),
                     {{{0, 0}, {5, 0}, {10, 0}}, {{5, 0}, {5, 0.5}}}));
    // One that acts without a link ends the search too.
    const AlignedDblRect centred(3, -1, 7, 1);
    EXPECT_TRUE(Hold(JoinedToShapes({{{0, 0}, {10, 0}}}, {&centred, &wide}), {{{0, 0}, {5, 0}, {10, 0}}}));
}

TEST(ConnectorShapes, ActOnEverySegment) {
    const AlignedDblRect box(3, -1, 7, 2);
    EXPECT_TRUE(Hold(JoinedToShapes({{{0, 0}, {10, 0}, {10, 9}, {6, 1}}, {{5, 1}, {5, 9}}}, {&box}),
                     {{{0, 0}, {5, 0}, {10, 0}, {10, 9}, {6, 1}},
                      {{5, 1}, {5, 9}},
                      {{5, 0}, {5, 0.5}},
                      {{6, 1}, {5, 0.5}},
                      {{5, 1}, {5, 0.5}}}));
}

TEST(ConnectorShapes, ActOnTheirLayer) {
    Network network = NetworkOf({{{0, 0}, {10, 0}}, {{0, 50}, {10, 50}}});
    network.shapes.push_back({std::make_unique<AlignedDblRect>(3, -1, 7, 2), 8});
    network.shapes.push_back({std::make_unique<AlignedDblRect>(3, 49, 7, 52), 7});
    EXPECT_TRUE(Hold(Connected(network, 0), {{{0, 0}, {10, 0}}, {{0, 50}, {5, 50}, {10, 50}}, {{5, 50}, {5, 50.5}}}));
}

TEST(ConnectorShapes, OfEveryKindAreFound) {
    const CircleGeom circle(5, 1, 1.5);
    EXPECT_TRUE(Hold(JoinedToShapes({{{0, 0}, {10, 0}}}, {&circle}), {{{0, 0}, {5, 0}, {10, 0}}, {{5, 0}, {5, 1}}}));
    const DblRect diamond(5, -1, 8, 2, 5, 5, 2, 2);
    EXPECT_TRUE(Hold(JoinedToShapes({{{0, 0}, {10, 0}}}, {&diamond}), {{{0, 0}, {5, 0}, {10, 0}}, {{5, 0}, {5, 2}}}));
    const Points corners = {{3, -1}, {8, -1}, {4, 5}};
    const Vellum::PolygonGeom polygon(3, corners.data());
    EXPECT_TRUE(Hold(JoinedToShapes({{{0, 0}, {10, 0}}}, {&polygon}), {{{0, 0}, {5, 0}, {10, 0}}, {{5, 0}, {5, 1}}}));
    const Disc disc(6, 0.25);
    EXPECT_TRUE(Hold(JoinedToShapes({{{0, 0}, {10, 0}}}, {&disc}), {{{0, 0}, {6, 0}, {10, 0}}, {{6, 0}, {6, 0.25}}}));
}

TEST(ConnectorShapes, ActAfterTheLines) {
    Network network = NetworkOf({{{0, 0}, {10, 0}}, {{4, 1}, {6, 7}}});
    network.shapes.push_back({std::make_unique<AlignedDblRect>(1, -1, 3, 2), 7});
    EXPECT_TRUE(Hold(Connected(network, 1.5),
                     {{{0, 0}, {2, 0}, {4, 0}, {10, 0}}, {{4, 1}, {6, 7}}, {{4, 1}, {4, 0}}, {{2, 0}, {2, 0.5}}}));
}

// ---- What is held ----

TEST(ConnectorOwnership, AnEmptyConnectorHoldsNothing) {
    const PolylineConnector connector;
    EXPECT_EQ(connector.newPolySegs, nullptr);
    EXPECT_EQ(connector.newPts, nullptr);
    ASSERT_NE(connector.polylines, nullptr);
    EXPECT_TRUE(connector.polylines->empty());
    ASSERT_NE(connector.connectors, nullptr);
    EXPECT_TRUE(connector.connectors->empty());
    EXPECT_EQ(connector.segCount, 0u);
    EXPECT_EQ(connector.failed, 0);
}

TEST(ConnectorOwnership, WhatIsAddedIsHeldInOrder) {
    PolylineConnector connector;
    PolylineGeom* const first = NewPolyline(LineOf({{0, 0}, {4, 0}}, 0));
    PolylineGeom* const second = NewPolyline(LineOf({{0, 5}, {4, 5}}, 0));
    EXPECT_TRUE(connector.AddPolyline(first, 9));
    EXPECT_TRUE(connector.AddPolyline(second, 0xFFFFFFFF));
    ASSERT_EQ(connector.polylines->size(), 2u);
    EXPECT_EQ((*connector.polylines)[0]->poly, first);
    EXPECT_EQ((*connector.polylines)[0]->layer, 9u);
    EXPECT_EQ((*connector.polylines)[1]->poly, second);
    EXPECT_EQ((*connector.polylines)[1]->layer, 0xFFFFFFFF);

    auto* const disc = new Disc(3, 1);
    EXPECT_TRUE(connector.AddConnector(disc, 0xFFFFFFFE));
    ASSERT_EQ(connector.connectors->size(), 1u);
    EXPECT_EQ((*connector.connectors)[0]->shape, disc);
    EXPECT_EQ((*connector.connectors)[0]->layer, 0xFFFFFFFE);
    EXPECT_EQ(connector.failed, 0);
}

TEST(ConnectorOwnership, NullIsRefused) {
    PolylineConnector connector;
    EXPECT_FALSE(connector.AddPolyline(nullptr, 1));
    EXPECT_FALSE(connector.AddConnector(nullptr, 1));
    EXPECT_TRUE(connector.polylines->empty());
    EXPECT_TRUE(connector.connectors->empty());
    EXPECT_EQ(connector.failed, 0);
}

TEST(ConnectorOwnership, AShapeWithACentroidThatIsThereStaysTheCallers) {
    Disc::alive = 0;
    {
        PolylineConnector connector;
        EXPECT_TRUE(connector.AddConnector(new Disc(3, -0.0), 1));
        Disc duplicate(3, 0.0);
        EXPECT_TRUE(connector.AddConnector(&duplicate, 1));
        EXPECT_EQ(connector.connectors->size(), 1u);
        AlignedDblRect another(2, -1, 4, 1);
        EXPECT_TRUE(connector.AddConnector(&another, 1));
        EXPECT_EQ(connector.connectors->size(), 1u);
        EXPECT_TRUE(connector.AddConnector(new Disc(3, 0.0), 2));
        EXPECT_TRUE(connector.AddConnector(new Disc(3, 5e-324), 1));
        EXPECT_TRUE(connector.AddConnector(new Disc(0.0, 3), 1));
        EXPECT_EQ(connector.connectors->size(), 4u);
        EXPECT_EQ(Disc::alive, 5);
    }
    EXPECT_EQ(Disc::alive, 0);
}

TEST(ConnectorOwnership, NoCentroidEqualsNaN) {
    PolylineConnector connector;
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(connector.AddConnector(new Disc(kNan, 0), 1));
        EXPECT_TRUE(connector.AddConnector(new Disc(0, kNan), 1));
    }
    EXPECT_EQ(connector.connectors->size(), 6u);
    EXPECT_TRUE(connector.AddConnector(new Disc(kInfinity, 0), 1));
    Disc duplicate(kInfinity, 0);
    EXPECT_TRUE(connector.AddConnector(&duplicate, 1));
    EXPECT_EQ(connector.connectors->size(), 7u);
}

TEST(ConnectorOwnership, ManyShapesAreToldApart) {
    PolylineConnector connector;
    Disc::centroids = 0;
    for (int i = 0; i < 3000; ++i) {
        ASSERT_TRUE(connector.AddConnector(new Disc(i % 50, i / 50), 1));
        ASSERT_EQ(connector.connectors->size(), static_cast<size_t>(i + 1));
    }
    Disc duplicate(0, 0);
    for (int i = 0; i < 3000; ++i) {
        duplicate = Disc(i % 50, i / 50);
        ASSERT_TRUE(connector.AddConnector(&duplicate, 1));
        ASSERT_EQ(connector.connectors->size(), 3000u);
    }
    // Each shape added is held against a few others, not against all.
    EXPECT_LE(Disc::centroids, 6000 * 5);
}

TEST(ConnectorOwnership, WhatIsTakenOffTheEndIsTheHosts) {
    Disc::alive = 0;
    PolylineConnector connector;
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(connector.AddConnector(new Disc(3 * i, 1), 1));
        ASSERT_TRUE(connector.AddPolyline(NewPolyline(LineOf({{0, 2.0 * i}, {4, 2.0 * i}}, 0)), 1));
    }
    const std::unique_ptr<LayerConnector> record(connector.connectors->back());
    const std::unique_ptr<ClosedShape> shape(record->shape);
    connector.connectors->pop_back();
    const std::unique_ptr<LayerPolyline> layered(connector.polylines->back());
    const std::unique_ptr<PolylineGeom> line(layered->poly);
    connector.polylines->pop_back();
    // It is not there any more, and those before it are.
    EXPECT_TRUE(connector.AddConnector(new Disc(6, 1), 1));
    EXPECT_EQ(connector.connectors->size(), 3u);
    Disc duplicate(3, 1);
    EXPECT_TRUE(connector.AddConnector(&duplicate, 1));
    EXPECT_EQ(connector.connectors->size(), 3u);
    unsigned count = 0;
    PolylineGeom** out = nullptr;
    ASSERT_TRUE(connector.ConnectPolylines(0, count, out));
    EXPECT_EQ(connector.segCount, 2u);
    TakeLines(count, out);
    connector.Reset();
    EXPECT_EQ(Disc::alive, 2);
}

TEST(ConnectorOwnership, AShapeThatIsHeldStaysHeld) {
    Disc::alive = 0;
    PolylineConnector connector;
    auto* const disc = new Disc(3, 1);
    EXPECT_TRUE(connector.AddConnector(disc, 1));
    EXPECT_TRUE(connector.AddConnector(disc, 1));
    EXPECT_EQ(connector.connectors->size(), 1u);
    connector.Reset();
    EXPECT_EQ(Disc::alive, 0);
}

TEST(ConnectorOwnership, WhatIsAddedTwiceIsDestroyedOnce) {
    Disc::alive = 0;
    {
        PolylineConnector connector;
        auto* const disc = new Disc(100, 0);
        EXPECT_TRUE(connector.AddConnector(disc, 1));
        EXPECT_TRUE(connector.AddConnector(new Disc(200, 0), 1));
        EXPECT_TRUE(connector.AddConnector(disc, 2));
        EXPECT_EQ(connector.connectors->size(), 3u);
        PolylineGeom* const line = NewPolyline(LineOf({{0, 0}, {4, 0}, {2, 3}, {2, -3}}, 0));
        EXPECT_TRUE(connector.AddPolyline(line, 1));
        EXPECT_TRUE(connector.AddPolyline(NewPolyline(LineOf({{0, 90}, {4, 90}}, 0)), 1));
        EXPECT_TRUE(connector.AddPolyline(line, 1));
        unsigned count = 0;
        PolylineGeom** out = nullptr;
        ASSERT_TRUE(connector.ConnectPolylines(0, count, out));
        // A line that is there twice crosses itself.
        EXPECT_TRUE(Hold(TakeLines(count, out), {{{0, 0}, {2, 0}, {4, 0}, {2, 3}, {2, 0}, {2, -3}},
                                                 {{0, 90}, {4, 90}},
                                                 {{0, 0}, {2, 0}, {4, 0}, {2, 3}, {2, 0}, {2, -3}}}));
    }
    EXPECT_EQ(Disc::alive, 0);
}

TEST(ConnectorOwnership, ClearingDestroysOneKind) {
    Disc::alive = 0;
    PolylineConnector connector;
    connector.AddPolyline(NewPolyline(LineOf({{0, 0}, {4, 0}}, 0)), 1);
    connector.AddConnector(new Disc(3, 1), 1);
    connector.ClearConnectors();
    EXPECT_EQ(Disc::alive, 0);
    EXPECT_TRUE(connector.connectors->empty());
    EXPECT_EQ(connector.polylines->size(), 1u);
    EXPECT_TRUE(connector.AddConnector(new Disc(3, 1), 1));
    EXPECT_EQ(connector.connectors->size(), 1u);
    connector.ClearPolylines();
    EXPECT_TRUE(connector.polylines->empty());
    EXPECT_EQ(Disc::alive, 1);
}

TEST(ConnectorOwnership, ResetDestroysEverything) {
    Disc::alive = 0;
    PolylineConnector connector;
    connector.AddPolyline(NewPolyline(LineOf({{0, 0}, {4, 0}}, 0)), 1);
    connector.AddConnector(new Disc(3, 1), 1);
    connector.segCount = 1;
    connector.failed = 1;
    ASSERT_TRUE(connector.InitNewPolySeg());
    ASSERT_TRUE(connector.InitNewPts());
    connector.AddNewPt(0, DblPt(2, 0));
    connector.AddNewPolySeg(DblPt(1, 0), DblPt(1, 2));
    connector.Reset();
    EXPECT_EQ(Disc::alive, 0);
    EXPECT_TRUE(connector.polylines->empty());
    EXPECT_TRUE(connector.connectors->empty());
    EXPECT_EQ(connector.newPolySegs, nullptr);
    EXPECT_EQ(connector.newPts, nullptr);
    EXPECT_EQ(connector.segCount, 0u);
    EXPECT_EQ(connector.failed, 0);
    connector.Reset();
}

TEST(ConnectorOwnership, AssignmentCopiesTheFieldsAsTheyStand) {
    PolylineConnector connector;
    connector.AddPolyline(NewPolyline(LineOf({{0, 0}, {4, 0}}, 0)), 1);
    connector.AddConnector(new Disc(3, 1), 1);
    connector.segCount = 1;
    connector.failed = 1;
    ASSERT_TRUE(connector.InitNewPolySeg());
    ASSERT_TRUE(connector.InitNewPts());
    PolylineConnector other;
    auto* const ownPolylines = other.polylines;
    auto* const ownConnectors = other.connectors;
    EXPECT_EQ(&(other = connector), &other);
    EXPECT_EQ(other.newPolySegs, connector.newPolySegs);
    EXPECT_EQ(other.newPts, connector.newPts);
    EXPECT_EQ(other.polylines, connector.polylines);
    EXPECT_EQ(other.connectors, connector.connectors);
    EXPECT_EQ(other.segCount, 1u);
    EXPECT_EQ(other.failed, 1);
    // Either of them adds to the same list.
    Disc duplicate(3, 1);
    EXPECT_TRUE(other.AddConnector(&duplicate, 1));
    EXPECT_TRUE(other.AddConnector(new Disc(4, 1), 1));
    EXPECT_EQ(connector.connectors->size(), 2u);
    other.newPolySegs = nullptr;
    other.newPts = nullptr;
    other.polylines = ownPolylines;
    other.connectors = ownConnectors;
    EXPECT_TRUE(other.connectors->empty());
}

TEST(ConnectorOwnership, WithoutPointersThereIsNothingToDestroy) {
    PolylineConnector connector;
    auto* const polylines = std::exchange(connector.polylines, nullptr);
    auto* const connectors = std::exchange(connector.connectors, nullptr);
    AlignedDblRect shape;
    EXPECT_FALSE(connector.AddConnector(&shape, 1));
    EXPECT_FALSE(connector.ApplyConnectorsToSegment({0, 0}, {1, 0}, 1, 0));
    connector.PrintInput();
    connector.Reset();
    connector.polylines = polylines;
    connector.connectors = connectors;
}

TEST(ConnectorOwnership, PrintsLinesThenShapes) {
    PolylineConnector connector;
    connector.AddConnector(new AlignedDblRect(1, 2, 3, 4), 5);
    connector.AddPolyline(NewPolyline(LineOf({{0, 1}, {4, 5}}, 0)), 1);
    connector.AddConnector(new AlignedDblRect(6, 7, 8, 9), 1);
    connector.AddPolyline(NewPolyline(LineOf({}, 0)), 1);
    connector.AddPolyline(NewPolyline(LineOf({{0, 2}}, 0)), 2);
    TakeDebugTexts();
    connector.PrintInput();
    const std::vector<std::string> expected = {"DblPt polyline[2] = {\n",
                                               "DblPt(0.000000, 1.000000),\n",
                                               "DblPt(4.000000, 5.000000)\n",
                                               "};\n\n",
                                               "DblPt polyline[1] = {\n",
                                               "DblPt(0.000000, 2.000000)\n",
                                               "};\n\n",
                                               "DblPt rect[2] = {\n",
                                               "DblPt(1.000000, 2.000000),\n",
                                               "DblPt(3.000000, 4.000000)\n",
                                               "};\n\n",
                                               "DblPt rect[2] = {\n",
                                               "DblPt(6.000000, 7.000000),\n",
                                               "DblPt(8.000000, 9.000000)\n",
                                               "};\n\n"};
    EXPECT_EQ(TakeDebugTexts(), expected);
}

// ---- The steps one by one ----

TEST_F(Steps, TheContainersBeginEmpty) {
    EXPECT_EQ(connector.newPts[0], nullptr);
    EXPECT_EQ(connector.newPts[1], nullptr);
    EXPECT_TRUE(connector.newPolySegs->empty());
}

TEST_F(Steps, SplitPointsAreKeptInOrder) {
    connector.AddNewPt(1, DblPt(3, 4));
    ASSERT_NE(connector.newPts[1], nullptr);
    EXPECT_EQ(connector.newPts[1]->capacity, 4u);
    connector.AddNewPt(1, DblPt(2, 7));
    for (int i = 0; i < 5; ++i)
        connector.AddNewPt(1, DblPt(i, 1));
    EXPECT_TRUE(Hold({SplitsOf(0), SplitsOf(1)}, {{}, {{3, 4}, {2, 7}, {0, 1}, {1, 1}, {2, 1}, {3, 1}, {4, 1}}}));
    EXPECT_EQ(connector.newPts[0], nullptr);
    connector.ClearNewPts();
    ASSERT_NE(connector.newPts, nullptr);
    EXPECT_EQ(connector.newPts[1], nullptr);
}

TEST_F(Steps, LinksAreKeptInOrder) {
    connector.AddNewPolySeg(DblPt(3, 4), DblPt(1, 9));
    connector.AddNewPolySeg(DblPt(5, 5), DblPt(5, 5));
    EXPECT_TRUE(Hold(Links(), {{{3, 4}, {1, 9}}, {{5, 5}, {5, 5}}}));
    EXPECT_TRUE(IsAt(connector.newPolySegs->front()->LLExtent(), 1, 4));
    EXPECT_TRUE(IsAt(connector.newPolySegs->front()->URExtent(), 3, 9));
    connector.ClearNewPolySeg();
    ASSERT_NE(connector.newPolySegs, nullptr);
    EXPECT_TRUE(connector.newPolySegs->empty());
}

TEST_F(Steps, InitEmptiesTheContainers) {
    connector.AddNewPt(1, DblPt(3, 4));
    connector.AddNewPolySeg(DblPt(3, 4), DblPt(1, 9));
    EXPECT_TRUE(connector.InitNewPolySeg());
    EXPECT_TRUE(connector.InitNewPts());
    EXPECT_TRUE(HasNothing());
}

TEST(ConnectorSteps, RecordNothingWithoutContainers) {
    PolylineConnector connector;
    connector.AddNewPt(0, DblPt(1, 2));
    connector.AddNewPolySeg(DblPt(1, 2), DblPt(3, 4));
    EXPECT_TRUE(connector.TryIntersectingSegments(0, {0, 1}, {4, 5}, 1, {1, 6}, {5, 2}, 1));
    EXPECT_FALSE(connector.ApplyConnectorsToSegment({0, 0}, {1, 0}, 1, 0));
    connector.ClearNewPts();
    connector.ClearNewPolySeg();
    DblPt last;
    bool isNew = false;
    EXPECT_FALSE(connector.GetNextClosestPt(DblPt(), 0, last, isNew));
    connector.AddPolyline(NewPolyline(LineOf({{0, 0}, {4, 0}}, 0)), 1);
    unsigned count = 0;
    PolylineGeom** out = nullptr;
    ASSERT_TRUE(connector.GenerateOutputPolylist(count, out));
    EXPECT_TRUE(Hold(TakeLines(count, out), {{{0, 0}, {4, 0}}}));
    EXPECT_EQ(connector.failed, 0);
}

TEST_F(Steps, AlreadyConnected) {
    const DblPt p(1, 2);
    const DblPt q(5, 3);
    const DblPt r(7, -4);
    EXPECT_TRUE(connector.AlreadyConnected(p, q, p, r));
    EXPECT_TRUE(connector.AlreadyConnected(q, p, p, r));
    EXPECT_TRUE(connector.AlreadyConnected(p, q, r, p));
    EXPECT_TRUE(connector.AlreadyConnected(q, p, r, p));
    EXPECT_FALSE(connector.AlreadyConnected(p, q, r, DblPt(1, 3)));
    // Within 2^-52 on both axes, and no further.
    EXPECT_TRUE(connector.AlreadyConnected(DblPt(), q, DblPt(2e-16, -2e-16), r));
    EXPECT_FALSE(connector.AlreadyConnected(DblPt(), q, DblPt(DBL_EPSILON, 0), r));
    EXPECT_FALSE(connector.AlreadyConnected(DblPt(), q, DblPt(0, -DBL_EPSILON), r));
    // A segment's own ends do not count.
    EXPECT_FALSE(connector.AlreadyConnected(p, p, r, r));
}

TEST_F(Steps, TryIntersectingSegments) {
    EXPECT_TRUE(connector.TryIntersectingSegments(1, {0, 1}, {4, 5}, 0, {1, 6}, {5, 2}, 0));
    EXPECT_TRUE(Hold({SplitsOf(0), SplitsOf(1)}, {{{3, 4}}, {{3, 4}}}));
    connector.ClearNewPts();
    // Parallel, vertical both, meeting at ends, meeting elsewhere.
    EXPECT_FALSE(connector.TryIntersectingSegments(0, {0, 0}, {4, 2}, 1, {0, 1}, {8, 5}, 9));
    EXPECT_FALSE(connector.TryIntersectingSegments(0, {0, 0}, {2e-16, 2}, 1, {0, 1}, {0, 5}, 9));
    EXPECT_TRUE(connector.TryIntersectingSegments(0, {0, 0}, {4, 2}, 1, {4, 2}, {9, 1}, 9));
    EXPECT_TRUE(connector.TryIntersectingSegments(0, {0, 0}, {4, 2}, 1, {20, 30}, {21, 40}, 9));
    EXPECT_TRUE(HasNothing());
    EXPECT_TRUE(connector.TryIntersectingSegments(0, {0, 0}, {10, 0}, 1, {10, 2}, {13, 8}, 2.5));
    EXPECT_TRUE(Hold(Links(), {{{10, 0}, {10, 2}}}));
    EXPECT_TRUE(connector.TryIntersectingSegments(1, {0, 0}, {10, 0}, 0, {4, 1}, {6, 7}, 1.5));
    EXPECT_TRUE(Hold(Links(), {{{10, 0}, {10, 2}}, {{4, 1}, {4, 0}}}));
    EXPECT_TRUE(Hold({SplitsOf(0), SplitsOf(1)}, {{}, {{4, 0}}}));
}

TEST_F(Steps, ConnectEndPoints) {
    const DblPt a0(0, 0);
    const DblPt a1(10, 1);
    EXPECT_TRUE(connector.ConnectEndPoints(a0, a1, {-3, 4}, {90, 90}, 5.1));
    EXPECT_TRUE(connector.ConnectEndPoints(a0, a1, {90, 90}, {-3, 4}, 5.1));
    EXPECT_TRUE(connector.ConnectEndPoints(a1, a0, {-3, 4}, {90, 90}, 5.1));
    EXPECT_TRUE(connector.ConnectEndPoints(a1, a0, {90, 90}, {-3, 4}, 5.1));
    EXPECT_TRUE(Hold(Links(), {{{0, 0}, {-3, 4}}, {{0, 0}, {-3, 4}}, {{0, 0}, {-3, 4}}, {{0, 0}, {-3, 4}}}));
    connector.ClearNewPolySeg();
    // The distance must be below the tolerance, and nothing may tie.
    EXPECT_FALSE(connector.ConnectEndPoints(a0, a1, {-3, 4}, {90, 90}, 5));
    EXPECT_FALSE(connector.ConnectEndPoints(a0, a1, {-3, 4}, {-4, 3}, 5.1));
    EXPECT_FALSE(connector.ConnectEndPoints(a0, {-6, 8}, {-3, 4}, {90, 90}, 5.1));
    EXPECT_FALSE(connector.ConnectEndPoints(a0, {7, 3}, {-3, 4}, {10, 7}, 5.1));
    EXPECT_FALSE(connector.ConnectEndPoints(a0, a1, {-3, 4}, {kNan, 90}, 5.1));
    EXPECT_TRUE(HasNothing());
    EXPECT_TRUE(connector.ConnectEndPoints(a0, a1, {0, 0}, {90, 90}, 5.1));
    EXPECT_TRUE(Hold(Links(), {{{0, 0}, {0, 0}}}));
}

TEST_F(Steps, ConnectEndToSegmentInterior) {
    EXPECT_TRUE(connector.ConnectEndToSegmentInterior(0, {4, 1}, {6, 7}, 1, {0, 0}, {10, 0}, 1.5));
    EXPECT_TRUE(connector.ConnectEndToSegmentInterior(0, {6, 7}, {5, 1}, 1, {0, 0}, {10, 0}, 1.5));
    EXPECT_TRUE(Hold({SplitsOf(0), SplitsOf(1)}, {{}, {{4, 0}, {5, 0}}}));
    EXPECT_TRUE(connector.ConnectEndToSegmentInterior(0, {0, 0}, {10, 0}, 1, {3, 1}, {6, 7}, 1.5));
    EXPECT_TRUE(connector.ConnectEndToSegmentInterior(0, {0, 0}, {10, 0}, 1, {6, 7}, {2, 1}, 1.5));
    EXPECT_TRUE(Hold({SplitsOf(0), SplitsOf(1)}, {{{3, 0}, {2, 0}}, {{4, 0}, {5, 0}}}));
    EXPECT_TRUE(Hold(Links(), {{{4, 1}, {4, 0}}, {{5, 1}, {5, 0}}, {{3, 1}, {3, 0}}, {{2, 1}, {2, 0}}}));
}

TEST_F(Steps, ConnectEndToSegmentInteriorNeedsOneThatIsNearest) {
    // At the tolerance; a tie; feet beyond the other's ends.
    EXPECT_FALSE(connector.ConnectEndToSegmentInterior(0, {4, 1}, {6, 7}, 1, {0, 0}, {10, 0}, 1));
    EXPECT_FALSE(connector.ConnectEndToSegmentInterior(0, {4, 1}, {6, 1}, 1, {0, 0}, {10, 0}, 1.5));
    EXPECT_FALSE(connector.ConnectEndToSegmentInterior(0, {11, 1}, {12, 7}, 1, {0, 0}, {10, 0}, 9));
    EXPECT_FALSE(connector.ConnectEndToSegmentInterior(0, {10 + 1.3e-7, 1}, {12, 7}, 1, {0, 0}, {10, 0}, 9));
    EXPECT_TRUE(HasNothing());
    EXPECT_TRUE(connector.ConnectEndToSegmentInterior(0, {10 + 1e-7, 1}, {12, 7}, 1, {0, 0}, {10, 0}, 9));
    EXPECT_TRUE(Hold({SplitsOf(1)}, {{{10 + 1e-7, 0}}}));
}

TEST_F(Steps, AFootBeyondTheSegmentIsAsFarAsAnythingCanBe) {
    // The distances of the other three are too large for a number. That of the first end is the largest number.
    EXPECT_FALSE(connector.ConnectEndToSegmentInterior(0, {0, 0}, {10, 0}, 1, {2, 1e200}, {10, 1e200}, 1e308));
    EXPECT_FALSE(connector.ConnectEndToSegmentInterior(0, {0, 0}, {10, 0}, 1, {2, 1e200}, {10, 1e200}, DBL_MAX));
    EXPECT_TRUE(HasNothing());
    EXPECT_TRUE(connector.ConnectEndToSegmentInterior(0, {0, 0}, {10, 0}, 1, {2, 1e200}, {10, 1e200}, kInfinity));
    EXPECT_TRUE(Hold({SplitsOf(0), SplitsOf(1)}, {{}, {{0, 1e200}}}));
    EXPECT_TRUE(Hold(Links(), {{{0, 0}, {0, 1e200}}}));
}

TEST_F(Steps, AnEndOnTheOtherSegmentSplitsItWithoutALink) {
    EXPECT_TRUE(connector.ConnectEndToSegmentInterior(0, {4, 0}, {6, 7}, 1, {0, 0}, {10, 0}, 1));
    EXPECT_TRUE(Hold({SplitsOf(0), SplitsOf(1)}, {{}, {{4, 0}}}));
    EXPECT_TRUE(connector.newPolySegs->empty());
}

TEST_F(Steps, TryParallelSegments) {
    EXPECT_FALSE(connector.TryParallelSegments(0, {0, 0}, {10, 0}, 1, {4, 1}, {14, 1}, 1));
    EXPECT_TRUE(HasNothing());
    EXPECT_TRUE(connector.TryParallelSegments(1, {0, 0}, {10, 0}, 0, {4, 1}, {14, 1}, 1.5));
    EXPECT_TRUE(Hold({SplitsOf(0), SplitsOf(1)}, {{{10, 1}}, {{4, 0}}}));
    EXPECT_TRUE(Hold(Links(), {{{10, 0}, {10, 1}}, {{4, 1}, {4, 0}}}));
    connector.ClearNewPolySeg();
    // Near enough, but nothing to join.
    EXPECT_TRUE(connector.TryParallelSegments(0, {0, 0}, {10, 0}, 1, {40, 1}, {50, 1}, 1.5));
    EXPECT_TRUE(connector.newPolySegs->empty());
}

TEST_F(Steps, VtxToSegment) {
    LineSegmentGeom link(1, 2, 3, 4);
    bool hit0 = false;
    bool hit1 = false;
    const auto join = [&](const DblPt& v, double tol) {
        return connector.VtxToSegment(v, 1, DblPt(0, 0), hit0, DblPt(10, 0), hit1, tol, link);
    };
    EXPECT_FALSE(join({4, 2}, 2));
    EXPECT_FALSE(join({-3, 0}, 3));
    EXPECT_FALSE(join({13, 0}, 3));
    EXPECT_TRUE(HasNothing());
    EXPECT_TRUE(link.IsExactly({1, 2, 3, 4}));

    EXPECT_TRUE(join({4, 2}, 2.5));
    EXPECT_TRUE(link.IsExactly({4, 2, 4, 0}));
    EXPECT_TRUE(Hold({SplitsOf(0), SplitsOf(1)}, {{}, {{4, 0}}}));
    EXPECT_FALSE(join({5, 0}, 2.5));
    EXPECT_TRUE(Hold({SplitsOf(0), SplitsOf(1)}, {{}, {{4, 0}, {5, 0}}}));
    EXPECT_FALSE(hit0);
    EXPECT_FALSE(hit1);

    EXPECT_TRUE(join({-3, 1}, 4));
    EXPECT_TRUE(link.IsExactly({-3, 1, 0, 0}));
    EXPECT_TRUE(hit0);
    EXPECT_FALSE(hit1);
    hit0 = false;
    EXPECT_TRUE(join({12, 1}, 4));
    EXPECT_TRUE(link.IsExactly({12, 1, 10, 0}));
    EXPECT_FALSE(hit0);
    EXPECT_TRUE(hit1);
    // The flags are only ever set.
    EXPECT_FALSE(join({16, 1}, 4));
    EXPECT_TRUE(hit1);
    EXPECT_TRUE(Links().empty());
    EXPECT_EQ(SplitsOf(1).size(), 2u);
}

TEST_F(Steps, VtxToSegmentTakesSplitPoints) {
    const DblPtVec& splits = Filled({20, 20}, {3, 0.1}, {0, 0});
    LineSegmentGeom link;
    bool hit0 = false;
    bool hit1 = false;
    EXPECT_TRUE(connector.VtxToSegment(splits.begin()[1], 1, splits.begin()[2], hit0, {10, 0}, hit1, 2, link));
    EXPECT_TRUE(link.IsExactly({3, 0.1, 3, 0}));
    EXPECT_TRUE(Hold({SplitsOf(1)}, {{{20, 20}, {3, 0.1}, {0, 0}, {3, 0}}}));
}

TEST_F(Steps, VtxToSegmentTakesPointsOfTheLink) {
    LineSegmentGeom link(-1, 0, 10, 0);
    bool hit0 = false;
    bool hit1 = false;
    EXPECT_TRUE(connector.VtxToSegment({-2, 1}, 1, link.end, hit0, link.start, hit1, 4, link));
    EXPECT_TRUE(link.IsExactly({-2, 1, -1, 0}));
    EXPECT_TRUE(hit1);
}

TEST_F(Steps, TryParallelSegmentsTakesSplitPoints) {
    DblPtVec& splits = Filled({2, 1}, {6, 1}, {20, 20});
    EXPECT_TRUE(connector.TryParallelSegments(0, splits[0], splits[1], 1, {-5, 0}, {10, 0}, 2));
    EXPECT_TRUE(Hold({SplitsOf(0), SplitsOf(1)}, {{}, {{2, 1}, {6, 1}, {20, 20}, {2, 0}, {6, 0}}}));
    EXPECT_TRUE(Hold(Links(), {{{2, 1}, {2, 0}}, {{6, 1}, {6, 0}}}));
}

TEST_F(Steps, TryIntersectingSegmentsTakesSplitPoints) {
    DblPtVec& splits = Filled({1, 6}, {5, 2}, {20, 20});
    EXPECT_TRUE(connector.TryIntersectingSegments(1, {0, 1}, {4, 5}, 0, splits[0], splits[1], 0));
    EXPECT_TRUE(Hold({SplitsOf(0), SplitsOf(1)}, {{{3, 4}}, {{1, 6}, {5, 2}, {20, 20}, {3, 4}}}));
}

TEST_F(Steps, ConnectEndToSegmentInteriorTakesSplitPoints) {
    DblPtVec& splits = Filled({4, 1}, {6, 7}, {20, 20});
    EXPECT_TRUE(connector.ConnectEndToSegmentInterior(0, splits[0], splits[1], 1, {0, 0}, {10, 0}, 1.5));
    EXPECT_TRUE(Hold({SplitsOf(0), SplitsOf(1)}, {{}, {{4, 1}, {6, 7}, {20, 20}, {4, 0}}}));
    EXPECT_TRUE(Hold(Links(), {{{4, 1}, {4, 0}}}));
}

TEST_F(Steps, ConnectLineSegmentsTakesSplitPoints) {
    DblPtVec& splits = Filled({4, 1}, {6, 7}, {20, 20});
    connector.ConnectLineSegments(0, splits[0], splits[1], 1, {0, 0}, {10, 0}, 1.5);
    EXPECT_TRUE(Hold({SplitsOf(0), SplitsOf(1)}, {{}, {{4, 1}, {6, 7}, {20, 20}, {4, 0}}}));
    EXPECT_TRUE(Hold(Links(), {{{4, 1}, {4, 0}}}));
}

TEST_F(Steps, AddNewPtTakesASplitPoint) {
    DblPtVec& splits = Filled({4, 1}, {6, 7}, {20, 20});
    connector.AddNewPt(1, splits[1]);
    EXPECT_TRUE(Hold({SplitsOf(1)}, {{{4, 1}, {6, 7}, {20, 20}, {6, 7}}}));
}

TEST_F(Steps, ApplyConnectorsToSegmentTakesSplitPoints) {
    connector.AddConnector(new AlignedDblRect(3, -1, 7, 2), 5);
    DblPtVec& splits = Filled({0, 0}, {10, 0}, {20, 20});
    EXPECT_TRUE(connector.ApplyConnectorsToSegment(splits[0], splits[1], 5, 1));
    EXPECT_TRUE(Hold({SplitsOf(1)}, {{{0, 0}, {10, 0}, {20, 20}, {5, 0}}}));
    EXPECT_TRUE(Hold(Links(), {{{5, 0}, {5, 0.5}}}));
}

TEST_F(Steps, LinksAreMadeOfPointsOfLinks) {
    connector.AddNewPolySeg({1, 2}, {3, 5});
    for (int i = 0; i < 3; ++i) {
        const PolylineGeom& last = *connector.newPolySegs->back();
        connector.AddNewPolySeg(last.Start()[1], last.Start()[0]);
    }
    EXPECT_TRUE(Hold(Links(), {{{1, 2}, {3, 5}}, {{3, 5}, {1, 2}}, {{1, 2}, {3, 5}}, {{3, 5}, {1, 2}}}));
}

TEST_F(Steps, ConnectLineSegmentsTakesOneStepAfterTheOther) {
    connector.ConnectLineSegments(0, {0, 0}, {4, 1}, 1, {4, 1}, {4, 0.5}, 9);
    EXPECT_TRUE(HasNothing());
    connector.ConnectLineSegments(0, {0, 1}, {4, 5}, 1, {1, 6}, {5, 2}, 0);
    EXPECT_TRUE(Hold({SplitsOf(0), SplitsOf(1)}, {{{3, 4}}, {{3, 4}}}));
    connector.ConnectLineSegments(0, {0, 0}, {4, 0}, 1, {5, 0}, {9, 0}, 1.5);
    EXPECT_TRUE(Hold(Links(), {{{4, 0}, {5, 0}}}));
}

TEST_F(Steps, AddIntersectionsNumbersTheSegments) {
    connector.Reset();
    connector.segCount = 9;
    ASSERT_TRUE(connector.InitNewPolySeg());
    ASSERT_TRUE(connector.InitNewPts());
    const std::unique_ptr<PolylineGeom> a(NewPolyline(LineOf({{0, 0}, {4, 0}, {4, 8}}, 0)));
    const std::unique_ptr<PolylineGeom> b(NewPolyline(LineOf({{9, 9}, {8, 2}, {2, 2}, {2, -2}}, 0)));
    connector.AddIntersections(a.get(), 4, b.get(), 6, 0);
    EXPECT_TRUE(Hold({SplitsOf(4), SplitsOf(5), SplitsOf(6), SplitsOf(7), SplitsOf(8)},
                     {{{2, 0}}, {{4, 2}}, {}, {{4, 2}}, {{2, 0}}}));
    const std::unique_ptr<PolylineGeom> point(NewPolyline(LineOf({{2, 0}}, 0)));
    const std::unique_ptr<PolylineGeom> none(NewPolyline(LineOf({}, 0)));
    for (PolylineGeom* few : {point.get(), none.get()}) {
        connector.AddIntersections(a.get(), 4, few, 6, 9);
        connector.AddIntersections(few, 4, b.get(), 6, 9);
    }
    EXPECT_EQ(SplitsOf(4).size(), 1u);
    EXPECT_TRUE(connector.newPolySegs->empty());
    a->extents = AlignedDblRect(50, 50, 60, 60);
    connector.AddIntersections(a.get(), 4, b.get(), 6, 0);
    EXPECT_EQ(SplitsOf(4).size(), 1u);
}

TEST_F(Steps, ShapesAreAppliedToALineOrASegment) {
    connector.AddConnector(new AlignedDblRect(3, -1, 7, 2), 5);
    connector.AddConnector(new AlignedDblRect(20, -1, 24, 2), 5);
    EXPECT_FALSE(connector.ApplyConnectorsToSegment({0, 0}, {10, 0}, 4, 1));
    EXPECT_FALSE(connector.ApplyConnectorsToSegment({0, 9}, {10, 9}, 5, 1));
    EXPECT_TRUE(HasNothing());
    EXPECT_TRUE(connector.ApplyConnectorsToSegment({0, 0}, {10, 0}, 5, 1));
    EXPECT_TRUE(Hold({SplitsOf(0), SplitsOf(1)}, {{}, {{5, 0}}}));
    EXPECT_TRUE(Hold(Links(), {{{5, 0}, {5, 0.5}}}));
    // It has acted although it has nothing to add.
    EXPECT_TRUE(connector.ApplyConnectorsToSegment({5, 0.5}, {10, 9}, 5, 1));
    EXPECT_EQ(Links().size(), 1u);

    const std::unique_ptr<PolylineGeom> line(NewPolyline(LineOf({{0, 1}, {10, 1}, {30, 1}}, 0)));
    LayerPolyline layered{line.get(), 5};
    connector.ClearNewPts();
    connector.ApplyConnectorsToPolyline(&layered, 0);
    EXPECT_TRUE(Hold({SplitsOf(0), SplitsOf(1)}, {{{5, 1}}, {{22, 1}}}));
    layered.layer = 6;
    connector.ApplyConnectorsToPolyline(&layered, 0);
    EXPECT_EQ(SplitsOf(0).size(), 1u);
}

TEST_F(Steps, TheClosestSplitPointIsTakenFirst) {
    for (const DblPt& p : Points{{9, 0}, {4, 3}, {3, 4}, {1, 0}, {5, 0}})
        connector.AddNewPt(1, p);
    DblPt last(0, 0);
    bool isNew = false;
    const Points expected = {{1, 0}, {4, 3}, {3, 4}, {5, 0}, {9, 0}};
    for (const DblPt& p : expected) {
        ASSERT_TRUE(connector.GetNextClosestPt(DblPt(), 1, last, isNew));
        EXPECT_TRUE(isNew);
        EXPECT_TRUE(IsAt(last, p.x, p.y));
    }
    EXPECT_FALSE(connector.GetNextClosestPt(DblPt(), 1, last, isNew));
    EXPECT_FALSE(connector.GetNextClosestPt(DblPt(), 0, last, isNew));
    EXPECT_TRUE(IsAt(last, 9, 0));
    EXPECT_EQ(connector.newPts[1]->size(), 0u);
}

TEST_F(Steps, TheClosestSplitPointIsTakenWithPointsOfTheList) {
    DblPtVec& splits = Filled({9, 0}, {1, 0}, {5, 0});
    bool isNew = false;
    EXPECT_TRUE(connector.GetNextClosestPt({0, 0}, 1, splits[2], isNew));
    EXPECT_TRUE(isNew);
    EXPECT_TRUE(IsAt(splits[2], 1, 0));
    EXPECT_TRUE(Hold({SplitsOf(1)}, {{{9, 0}, {5, 0}}}));
    // It is the closest itself.
    DblPt last;
    EXPECT_TRUE(connector.GetNextClosestPt(splits[0], 1, last, isNew));
    EXPECT_TRUE(IsAt(last, 9, 0));
    // What the next one is measured from may be where it is put.
    connector.AddNewPt(1, {8, 0});
    EXPECT_TRUE(connector.GetNextClosestPt(last, 1, last, isNew));
    EXPECT_TRUE(IsAt(last, 8, 0));
    EXPECT_TRUE(Hold({SplitsOf(1)}, {{{5, 0}}}));
}

TEST_F(Steps, ASplitPointIsNewUnlessItRepeatsTheOneBefore) {
    for (const double x : {1.5e-16, 3e-16, 3e-16, 4e-16, 6e-16})
        connector.AddNewPt(0, DblPt(x, 0));
    DblPt last(0, 0);
    const double lasts[] = {0, 3e-16, 3e-16, 3e-16, 6e-16};
    const bool areNew[] = {false, true, false, false, true};
    for (size_t i = 0; i < 5; ++i) {
        bool isNew = !areNew[i];
        ASSERT_TRUE(connector.GetNextClosestPt(DblPt(), 0, last, isNew));
        EXPECT_EQ(isNew, areNew[i]) << i;
        EXPECT_EQ(last.x, lasts[i]) << i;
    }
}

TEST_F(Steps, ANaNIsTakenWhenItIsTheFirst) {
    for (const double x : {5.0, kNan, 1.0, kInfinity, kNan, 7.0, 2.0})
        connector.AddNewPt(0, DblPt(x, 0));
    DblPt last;
    bool isNew = false;
    const double expected[] = {1, 2, 5, kNan, 7, kInfinity, kNan};
    for (const double x : expected) {
        ASSERT_TRUE(connector.GetNextClosestPt(DblPt(), 0, last, isNew));
        EXPECT_TRUE(paths_tests::SameBits(last.x, x)) << last.x << " instead of " << x;
        EXPECT_TRUE(isNew);
    }
}

TEST_F(Steps, TheOutputHasTheSplitPointsInTheSameOrder) {
    connector.AddPolyline(NewPolyline(LineOf({{50, 50}, {60, 60}}, 0)), 1);
    connector.AddPolyline(NewPolyline(LineOf({{0, 0}, {20, 20}}, 0)), 1);
    for (const double x : {5.0, kNan, 1.0, 5.0, kInfinity, kNan, 7.0, 2.0})
        connector.AddNewPt(1, DblPt(x, 0));
    for (const DblPt& p : Points{{4, 3}, {3, 4}, {0, 5}, {1e-16, 1e-16}})
        connector.AddNewPt(1, p);
    connector.AddNewPolySeg({1, 2}, {3, 4});
    const std::unique_ptr<PolylineGeom> single(connector.GenerateOutputPoly(1, 1));
    ASSERT_NE(single, nullptr);
    // Two points at infinity do not coincide, nor do two NaN.
    EXPECT_TRUE(Hold({Points(single->Start(), single->End())}, {{{0, 0},
                                                                 {1, 0},
                                                                 {2, 0},
                                                                 {5, 0},
                                                                 {kNan, 0},
                                                                 {5, 0},
                                                                 {4, 3},
                                                                 {3, 4},
                                                                 {0, 5},
                                                                 {7, 0},
                                                                 {kInfinity, 0},
                                                                 {kNan, 0},
                                                                 {20, 20}}}));
    EXPECT_TRUE(connector.newPts[1]->empty());
    connector.AddNewPt(0, {55, 55});
    connector.AddNewPt(1, {3, 3});
    unsigned count = 0;
    PolylineGeom** out = nullptr;
    ASSERT_TRUE(connector.GenerateOutputPolylist(count, out));
    EXPECT_TRUE(connector.newPolySegs->empty());
    EXPECT_TRUE(
        Hold(TakeLines(count, out), {{{50, 50}, {55, 55}, {60, 60}}, {{0, 0}, {3, 3}, {20, 20}}, {{1, 2}, {3, 4}}}));
}

}  // namespace
