// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <utility>
#include <vector>

#include "vellum/matrix.h"
#include "xfm/matrix_checks.h"

namespace {

using Vellum::DblPt;
using Vellum::IntPt;
using Vellum::Mtx2D;
using xfm_tests::MatrixOf;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr int32_t kUnwritten = 777;

using Coordinates = std::vector<std::pair<double, double>>;

/// What a member left in an array: its points in order, with `kUnwritten` where it wrote nothing.
template <class Point>
Coordinates CoordinatesOf(const std::vector<Point>& points) {
    Coordinates result;
    for (const Point& p : points) {
        result.emplace_back(p.x, p.y);
    }
    return result;
}

const std::pair<double, double> kNothing(kUnwritten, kUnwritten);

struct PolygonResult {
    int count;
    Coordinates points;
};

template <class Point>
PolygonResult MapPolygon(Mtx2D m, const std::vector<DblPt>& in, const Point& unwritten) {
    std::vector<Point> out(in.size(), unwritten);
    int count = -1;
    m.XfmPolyPts(static_cast<int>(in.size()), &count, in.data(), out.data());
    return {count, CoordinatesOf(out)};
}

void ExpectPolygon(const Mtx2D& m, const std::vector<DblPt>& in, int count, const Coordinates& points) {
    const PolygonResult records = MapPolygon(m, in, int_pt_t{kUnwritten, kUnwritten});
    EXPECT_EQ(records.count, count);
    EXPECT_EQ(records.points, points);
    const PolygonResult objects = MapPolygon(m, in, IntPt(kUnwritten, kUnwritten));
    EXPECT_EQ(objects.count, count);
    EXPECT_EQ(objects.points, points);
}

struct SetResult {
    int count;
    Coordinates points;
    std::vector<uint32_t> codes;
};

SetResult MapDeviceSet(Mtx2D m, std::vector<real_pt_t> in, std::vector<uint32_t> codes) {
    std::vector<int_pt_t> out(in.size(), int_pt_t{kUnwritten, kUnwritten});
    std::vector<uint32_t> outCodes(in.size(), kUnwritten);
    const DrwPSetT inSet{static_cast<int32_t>(in.size()), in.data(), codes.data()};
    DrwDPSetT outSet{-1, out.data(), outCodes.data()};
    m.XfmPolySetPts(&inSet, &outSet);
    return {outSet.numPts, CoordinatesOf(out), outCodes};
}

SetResult MapModelSet(Mtx2D m, std::vector<real_pt_t> in, std::vector<uint32_t> codes) {
    std::vector<real_pt_t> out(in.size(), real_pt_t{kUnwritten, kUnwritten});
    std::vector<uint32_t> outCodes(in.size(), kUnwritten);
    const DrwPSetT inSet{static_cast<int32_t>(in.size()), in.data(), codes.data()};
    DrwPSetT outSet{-1, out.data(), outCodes.data()};
    m.RealXfmPolyPtSet(&inSet, &outSet);
    return {outSet.numPts, CoordinatesOf(out), outCodes};
}

Mtx2D QuarterTurn() {
    Mtx2D m;
    m.Rotate(90, 2);
    return m;
}

Mtx2D MarkedIdentity() {
    Mtx2D m;
    m.SetIdentity();
    return m;
}

TEST(Mtx2DPolygons, DropsWhatLandsOnTheSamePixel) {
    ExpectPolygon(Mtx2D(), {DblPt(0, 0), DblPt(0.2, 0.2), DblPt(10, 0), DblPt(10, 5), DblPt(10.4, 5.4), DblPt(0, 5)}, 4,
                  {{0, 0}, {10, 0}, {10, 5}, {0, 5}, kNothing, kNothing});
}

TEST(Mtx2DPolygons, ThereAndBackCollapses) {
    ExpectPolygon(Mtx2D(), {DblPt(0, 0), DblPt(0.2, 0.2), DblPt(10, 0), DblPt(0.1, 0)}, 2,
                  {{0, 0}, {10, 0}, kNothing, kNothing});
    ExpectPolygon(Mtx2D(), {DblPt(0, 0), DblPt(10, 0), DblPt(0, 0)}, 2, {{0, 0}, {10, 0}, kNothing});
}

TEST(Mtx2DPolygons, OnlyThreePointsCollapse) {
    ExpectPolygon(Mtx2D(), {DblPt(0, 0), DblPt(10, 0), DblPt(10, 10), DblPt(0, 0)}, 4,
                  {{0, 0}, {10, 0}, {10, 10}, {0, 0}});
    ExpectPolygon(Mtx2D(), {DblPt(0, 0), DblPt(10, 0), DblPt(0, 0), DblPt(10, 0)}, 4,
                  {{0, 0}, {10, 0}, {0, 0}, {10, 0}});
    ExpectPolygon(Mtx2D(), {DblPt(0, 0), DblPt(10, 0), DblPt(0, 1)}, 3, {{0, 0}, {10, 0}, {0, 1}});
    ExpectPolygon(Mtx2D(), {DblPt(0, 0), DblPt(10, 0), DblPt(1, 0)}, 3, {{0, 0}, {10, 0}, {1, 0}});
}

TEST(Mtx2DPolygons, OnePixelIsOnePoint) {
    ExpectPolygon(Mtx2D(), {DblPt(0, 0), DblPt(0.1, 0), DblPt(0.1, 0.1), DblPt(-0.1, 0.4)}, 1,
                  {{0, 0}, kNothing, kNothing, kNothing});
}

TEST(Mtx2DPolygons, BothCoordinatesMustAgree) {
    ExpectPolygon(Mtx2D(), {DblPt(1, 1), DblPt(1, 2), DblPt(2, 2), DblPt(2, 2), DblPt(2, 3)}, 4,
                  {{1, 1}, {1, 2}, {2, 2}, {2, 3}, kNothing});
}

// What is compared is the point kept last, not the first of all and not the raw input.
TEST(Mtx2DPolygons, PointsThatComeAgainLaterStay) {
    ExpectPolygon(Mtx2D(), {DblPt(1, 1), DblPt(2, 2), DblPt(1, 1), DblPt(1, 1), DblPt(2, 2)}, 4,
                  {{1, 1}, {2, 2}, {1, 1}, {2, 2}, kNothing});
}

TEST(Mtx2DPolygons, WhatDoesNotFitMergesToo) {
    ExpectPolygon(Mtx2D(), {DblPt(kNaN, 3e9), DblPt(-5e9, kNaN), DblPt(0, 0)}, 2,
                  {{-2147483648.0, -2147483648.0}, {0, 0}, kNothing});
}

TEST(Mtx2DPolygons, EveryTypeOfMatrixMerges) {
    ExpectPolygon(QuarterTurn(), {DblPt(1, 2), DblPt(1.2, 2.2), DblPt(3, 4)}, 2, {{-2, 1}, {-4, 3}, kNothing});
    ExpectPolygon(MarkedIdentity(), {DblPt(1, 2), DblPt(1.2, 2.2), DblPt(3, 4)}, 2, {{1, 2}, {3, 4}, kNothing});
    ExpectPolygon(MatrixOf(1, 1, -1, 1, 0, 0), {DblPt(1, 2), DblPt(1.2, 2.2), DblPt(3, 4)}, 2,
                  {{-1, 3}, {-1, 7}, kNothing});
}

TEST(Mtx2DPolygons, NoPointsGiveNone) {
    Mtx2D m;
    for (const int n : {0, -1, -2147483647}) {
        int count = 99;
        int_pt_t device{kUnwritten, kUnwritten};
        m.XfmPolyPts(n, &count, nullptr, &device);
        EXPECT_EQ(count, 0);
        count = 99;
        IntPt point(kUnwritten, kUnwritten);
        m.XfmPolyPts(n, &count, nullptr, &point);
        EXPECT_EQ(count, 0);

        real_pt_t real{kUnwritten, kUnwritten};
        uint32_t code = kUnwritten;
        const DrwPSetT in{n, nullptr, nullptr};
        DrwDPSetT deviceSet{99, &device, &code};
        m.XfmPolySetPts(&in, &deviceSet);
        EXPECT_EQ(deviceSet.numPts, 0);
        DrwPSetT realSet{99, &real, &code};
        m.RealXfmPolyPtSet(&in, &realSet);
        EXPECT_EQ(realSet.numPts, 0);

        EXPECT_EQ(CoordinatesOf(std::vector{device}), Coordinates{kNothing});
        EXPECT_EQ(CoordinatesOf(std::vector{point}), Coordinates{kNothing});
        EXPECT_EQ(CoordinatesOf(std::vector{real}), Coordinates{kNothing});
        EXPECT_EQ(code, uint32_t{kUnwritten});
    }
}

TEST(Mtx2DPolygons, ModelSetMergesByExactEquality) {
    const SetResult r = MapModelSet(Mtx2D(), {{0, 0}, {0.2, 0.2}, {0.2, 0.2}, {1, 1}}, {10, 11, 12, 13});
    EXPECT_EQ(r.count, 3);
    EXPECT_EQ(r.points, (Coordinates{{0, 0}, {0.2, 0.2}, {1, 1}, kNothing}));
    EXPECT_EQ(r.codes, (std::vector<uint32_t>{10, 12, 13, kUnwritten}));
}

TEST(Mtx2DPolygons, ClosingCodeMovesOntoTheKeptPoint) {
    for (const Mtx2D& m : {Mtx2D(), MarkedIdentity(), MatrixOf(0, 1, 1, 0, 0, 0), MatrixOf(1, 1, 1, 1, 0, 0)}) {
        const SetResult r = MapModelSet(m, {{1, 2}, {3, 4}, {5, 6}, {7, 8}, {7, 8}}, {0, 0, 0, 0, 2});
        EXPECT_EQ(r.count, 4);
        EXPECT_EQ(r.codes, (std::vector<uint32_t>{0, 0, 0, 2, kUnwritten}));
    }
    const SetResult device = MapDeviceSet(Mtx2D(), {{1, 2}, {3, 4}, {5, 6}, {7, 8}, {7.1, 8.1}}, {0, 0, 0, 0, 3});
    EXPECT_EQ(device.count, 4);
    EXPECT_EQ(device.codes, (std::vector<uint32_t>{0, 0, 0, 3, kUnwritten}));
}

TEST(Mtx2DPolygons, DeviceSetOfAnAlignedMatrixCarriesTheCodes) {
    const SetResult r =
        MapDeviceSet(MatrixOf(2, 0, 0, -2, 0, 10), {{0, 0}, {0.1, 0.1}, {3, 1}, {3, 2}, {0, 2}}, {1, 5, 0, 4, 3});
    EXPECT_EQ(r.count, 4);
    EXPECT_EQ(r.points, (Coordinates{{0, 10}, {6, 8}, {6, 6}, {0, 6}, kNothing}));
    EXPECT_EQ(r.codes, (std::vector<uint32_t>{5, 0, 4, 3, kUnwritten}));
}

TEST(Mtx2DPolygons, DeviceSetOfAnyOtherMatrixLeavesTheCodes) {
    for (const Mtx2D& m : {QuarterTurn(), MarkedIdentity(), MatrixOf(1, 1, -1, 1, 0, 0)}) {
        const SetResult r = MapDeviceSet(m, {{0, 0}, {5, 0}, {5, 0}, {5, 5}, {0, 2}}, {1, 0, 4, 3, 2});
        EXPECT_EQ(r.count, 4);
        EXPECT_EQ(r.codes, std::vector<uint32_t>(5, kUnwritten));
    }
}

TEST(Mtx2DPolygons, DeviceSetOfEveryTypeHasItsImages) {
    const auto imageUnder = [](const Mtx2D& m) {
        return MapDeviceSet(m, {{1, 2}, {1.2, 2.2}, {3, 4}}, {0, 0, 2}).points;
    };
    EXPECT_EQ(imageUnder(MatrixOf(2, 0, 0, -3, 0, 1)), (Coordinates{{2, -5}, {2, -6}, {6, -11}}));
    EXPECT_EQ(imageUnder(QuarterTurn()), (Coordinates{{-2, 1}, {-4, 3}, kNothing}));
    EXPECT_EQ(imageUnder(MatrixOf(1, 1, -1, 1, 0, 0)), (Coordinates{{-1, 3}, {-1, 7}, kNothing}));
    EXPECT_EQ(imageUnder(MarkedIdentity()), (Coordinates{{1, 2}, {3, 4}, kNothing}));
}

// Such a set needs no codes at all.
TEST(Mtx2DPolygons, DeviceSetOfATurnedMatrixReadsNoCodes) {
    Mtx2D m = QuarterTurn();
    real_pt_t in[] = {{1, 2}, {3, 4}};
    int_pt_t out[2];
    const DrwPSetT inSet{2, in, nullptr};
    DrwDPSetT outSet{0, out, nullptr};
    m.XfmPolySetPts(&inSet, &outSet);
    EXPECT_EQ(outSet.numPts, 2);
    EXPECT_EQ(out[1].x, -4);
    EXPECT_EQ(out[1].y, 3);
}

TEST(Mtx2DPolygons, MergingCrossesPolygonBoundaries) {
    const std::vector<real_pt_t> points = {{0, 0}, {5, 0}, {5, 5}, {5, 5}, {9, 5}, {9, 9}};
    const std::vector<uint32_t> codes = {0, 0, 2, 0, 0, 2};
    const SetResult model = MapModelSet(Mtx2D(), points, codes);
    EXPECT_EQ(model.count, 5);
    EXPECT_EQ(model.codes, (std::vector<uint32_t>{0, 0, 0, 0, 2, kUnwritten}));
    const SetResult device = MapDeviceSet(Mtx2D(), points, codes);
    EXPECT_EQ(device.count, 5);
    EXPECT_EQ(device.points, (Coordinates{{0, 0}, {5, 0}, {5, 5}, {9, 5}, {9, 9}, kNothing}));
    EXPECT_EQ(device.codes, (std::vector<uint32_t>{0, 0, 0, 0, 2, kUnwritten}));
}

TEST(Mtx2DPolygons, CollapseIsForTheWholeSet) {
    const SetResult whole = MapModelSet(Mtx2D(), {{0, 0}, {5, 0}, {5, 0}, {0, 0}, {0, 0}}, {7, 8, 9, 5, 2});
    EXPECT_EQ(whole.count, 2);
    EXPECT_EQ(whole.points, (Coordinates{{0, 0}, {5, 0}, kNothing, kNothing, kNothing}));
    EXPECT_EQ(whole.codes, (std::vector<uint32_t>{7, 9, kUnwritten, kUnwritten, kUnwritten}));

    const SetResult device = MapDeviceSet(Mtx2D(), {{0, 0}, {5, 0}, {0, 0.2}}, {0, 0, 2});
    EXPECT_EQ(device.count, 2);
    EXPECT_EQ(device.codes, (std::vector<uint32_t>{0, 0, kUnwritten}));

    // Two such outlines in one set stay as they are.
    const SetResult two = MapModelSet(Mtx2D(), {{0, 0}, {5, 0}, {0, 0}, {1, 1}, {2, 2}, {1, 1}}, {0, 0, 2, 0, 0, 2});
    EXPECT_EQ(two.count, 6);
    EXPECT_EQ(two.codes, (std::vector<uint32_t>{0, 0, 2, 0, 0, 2}));
}

TEST(Mtx2DPolygons, NaNEqualsNothing) {
    const SetResult r = MapModelSet(Mtx2D(), {{1, kNaN}, {1, kNaN}, {1, 1}, {1, 1}}, {1, 2, 3, 4});
    EXPECT_EQ(r.count, 3);
    EXPECT_TRUE(std::isnan(r.points[1].second));
    EXPECT_EQ(r.codes, (std::vector<uint32_t>{1, 2, 4, kUnwritten}));

    // Nor does a third point that is not a number lie on the first.
    EXPECT_EQ(MapModelSet(Mtx2D(), {{1, kNaN}, {2, 2}, {1, kNaN}}, {0, 0, 2}).count, 3);
}

TEST(Mtx2DPolygons, ZerosOfBothSignsAreEqualAndTheFirstStays) {
    Mtx2D m;
    m.dx = m.dy = -0.0;
    for (const double first : {0.0, -0.0}) {
        const SetResult r = MapModelSet(m, {{first, 1}, {-first, 1}, {4, -first}, {4, first}, {5, 5}}, {0, 1, 2, 3, 4});
        EXPECT_EQ(r.count, 3);
        EXPECT_EQ(std::signbit(r.points[0].first), std::signbit(first));
        EXPECT_EQ(std::signbit(r.points[1].second), !std::signbit(first));
    }
}

TEST(Mtx2DPolygons, LongSetsKeepEveryCodeInItsSlot) {
    std::vector<real_pt_t> points;
    std::vector<uint32_t> codes;
    Coordinates expected;
    std::vector<uint32_t> expectedCodes;
    for (uint32_t i = 0; i < 5000; ++i) {
        const uint32_t run = i / 3;
        const double x = run;
        points.push_back({x, -x});
        codes.push_back(i);
        if (i % 3 == 0) expected.emplace_back(x, -x);
        if (i % 3 == 2) expectedCodes.push_back(i);
    }
    expectedCodes.push_back(4999);
    const int count = static_cast<int>(expected.size());
    expected.resize(points.size(), kNothing);
    expectedCodes.resize(points.size(), kUnwritten);
    const SetResult device = MapDeviceSet(Mtx2D(), points, codes);
    EXPECT_EQ(device.count, count);
    EXPECT_EQ(device.points, expected);
    EXPECT_EQ(device.codes, expectedCodes);
    const SetResult model = MapModelSet(Mtx2D(), points, codes);
    EXPECT_EQ(model.count, count);
    EXPECT_EQ(model.points, expected);
    EXPECT_EQ(model.codes, expectedCodes);
}

}  // namespace
