// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "vellum/matrix.h"
#include "vellum/rectangles.h"
#include "xfm/matrix_checks.h"

namespace {

using Vellum::AlignedDblRect;
using Vellum::Mtx2D;
using xfm_tests::MatrixOf;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Whether a rectangle is the box from (left, bottom) to (right, top) with its corners in order.
template <class Rect>
testing::AssertionResult IsBox(const Rect& r, double left, double bottom, double right, double top, double tol = 0.0) {
    const double found[] = {double(r.ll.x), double(r.ll.y), double(r.ul.x), double(r.ul.y),
                            double(r.ur.x), double(r.ur.y), double(r.lr.x), double(r.lr.y)};
    const double expected[] = {left, bottom, left, top, right, top, right, bottom};
    for (int k = 0; k < 8; ++k) {
        if (!(std::fabs(found[k] - expected[k]) <= tol)) {
            return testing::AssertionFailure()
                   << "coordinate " << k << " is " << found[k] << " instead of " << expected[k];
        }
    }
    return testing::AssertionSuccess();
}

testing::AssertionResult IsBox(const AlignedDblRect& r, double left, double bottom, double right, double top,
                               double tol = 0.0) {
    const double found[] = {r.ll.x, r.ll.y, r.ur.x, r.ur.y};
    const double expected[] = {left, bottom, right, top};
    for (int k = 0; k < 4; ++k) {
        if (!(std::fabs(found[k] - expected[k]) <= tol)) {
            return testing::AssertionFailure() << "bound " << k << " is " << found[k] << " instead of " << expected[k];
        }
    }
    return testing::AssertionSuccess();
}

const real_rect_t kUnitSquare{{0, 0}, {0, 1}, {1, 1}, {1, 0}};

Mtx2D Turned45() {
    Mtx2D m;
    m.Rotate(45, 2);
    return m;
}

template <class Rect>
real_rect_t RealImage(Mtx2D m, const Rect& in) {
    real_rect_t out{};
    m.XfmRect(&in, &out);
    return out;
}

int_rect_t DeviceImage(Mtx2D m, const real_rect_t& in) {
    int_rect_t out{};
    m.XfmRect(&in, &out);
    return out;
}

TEST(Mtx2DRectangles, TurnedSquareGivesItsBoundingBox) {
    EXPECT_TRUE(IsBox(RealImage(Turned45(), kUnitSquare), -std::sqrt(0.5), 0, std::sqrt(0.5), std::sqrt(2.0), 1e-15));
}

TEST(Mtx2DRectangles, EveryTypeOfMatrix) {
    Mtx2D marked;
    marked.SetIdentity();
    marked.Translate(1, 2);
    const struct {
        Mtx2D m;
        double model[4];
        int device[4];
    } expectations[] = {{MatrixOf(2, 0, 0, -3, 0.5, 0), {2.5, -60, 6.5, -30}, {3, -60, 7, -30}},
                        {MatrixOf(0, 1, -1, 0, 0.5, 0), {-19.5, 1, -9.5, 3}, {-20, 1, -10, 3}},
                        {MatrixOf(1, 1, -1, 1, 0.5, 0), {-18.5, 11, -6.5, 23}, {-19, 11, -7, 23}},
                        {marked, {2, 12, 4, 22}, {2, 12, 4, 22}}};
    const real_rect_t in{{1, 10}, {1, 20}, {3, 20}, {3, 10}};
    const int_rect_t intIn{{1, 10}, {1, 20}, {3, 20}, {3, 10}};
    for (const auto& [m, model, device] : expectations) {
        SCOPED_TRACE(testing::Message() << "type " << m.type);
        EXPECT_TRUE(IsBox(RealImage(m, in), model[0], model[1], model[2], model[3]));
        EXPECT_TRUE(IsBox(RealImage(m, intIn), model[0], model[1], model[2], model[3]));
        EXPECT_TRUE(IsBox(DeviceImage(m, in), device[0], device[1], device[2], device[3]));
    }
}

TEST(Mtx2DRectangles, OnlyANaNInTheFirstCornerStays) {
    const real_rect_t first = RealImage(Mtx2D(), real_rect_t{{kNaN, 0}, {0, 1}, {1, 1}, {1, 0}});
    EXPECT_TRUE(std::isnan(first.ll.x) && std::isnan(first.ur.x));
    EXPECT_EQ(first.ll.y, 0.0);
    EXPECT_EQ(first.ur.y, 1.0);
    EXPECT_TRUE(IsBox(RealImage(Mtx2D(), real_rect_t{{0, 0}, {0, 1}, {kNaN, 1}, {1, 0}}), 0, 0, 1, 1));
}

TEST(Mtx2DRectangles, AllFourCornersCount) {
    // Each corner is an extreme of its own.
    const real_rect_t in{{0, 5}, {2, 9}, {9, 3}, {4, -1}};
    EXPECT_TRUE(IsBox(RealImage(Mtx2D(), in), 0, -1, 9, 9));
}

TEST(Mtx2DRectangles, IntCornersAreConvertedFirst) {
    const int_rect_t in{{-2147483647, 0}, {-2147483647, 3}, {2147483647, 3}, {2147483647, 0}};
    Mtx2D m = MatrixOf(2, 0, 0, 0.5, 0, 0);
    real_rect_t out{};
    m.XfmRect(&in, &out);
    EXPECT_TRUE(IsBox(out, -4294967294.0, 0, 4294967294.0, 1.5));
}

TEST(Mtx2DRectangles, DeviceBoundsAreRounded) {
    const real_rect_t in{{-2.5, 0.4}, {-2.5, 1.5}, {2.4999, 1.5}, {2.4999, 0.4}};
    EXPECT_TRUE(IsBox(DeviceImage(Mtx2D(), in), -3, 0, 2, 2));
    const real_rect_t far{{-3e9, 1}, {-3e9, 2}, {5, 2}, {5, 1}};
    EXPECT_TRUE(IsBox(DeviceImage(Mtx2D(), far), -2147483648.0, 1, 5, 2));
    // Turned corners are not whole, their bounds are.
    EXPECT_TRUE(IsBox(DeviceImage(Turned45(), kUnitSquare), -1, 0, 1, 1));
}

TEST(Mtx2DRectangles, ARecordMayBeItsOwnImage) {
    real_rect_t r{{1, 10}, {1, 20}, {3, 20}, {3, 10}};
    Mtx2D m = MatrixOf(0, 1, -1, 0, 0, 0);
    m.XfmRect(&r, &r);
    EXPECT_TRUE(IsBox(r, -20, 1, -10, 3));
}

TEST(Mtx2DRectangles, AlignedRectangleMapsTwoCorners) {
    AlignedDblRect r(0, 0, 1, 1);
    Turned45().XfmRect(r);
    EXPECT_TRUE(IsBox(r, 0, 0, 0, std::sqrt(2.0), 1e-15));
}

TEST(Mtx2DRectangles, MirroringKeepsTheBoundsInOrder) {
    const Mtx2D m = MatrixOf(2, 0, 0, -3, 1, 2);
    const AlignedDblRect in(1, 10, 3, 20);
    AlignedDblRect out;
    m.XfmRect(in, out);
    EXPECT_TRUE(IsBox(out, 3, -58, 7, -28));
    EXPECT_TRUE(IsBox(in, 1, 10, 3, 20));
    AlignedDblRect inPlace(1, 10, 3, 20);
    m.XfmRect(inPlace);
    EXPECT_TRUE(IsBox(inPlace, 3, -58, 7, -28));
    m.XfmRect(inPlace, inPlace);
    EXPECT_TRUE(IsBox(inPlace, 7, 86, 15, 176));
}

TEST(Mtx2DRectangles, QuarterTurnIsExact) {
    Mtx2D m;
    m.Rotate(90, 2);
    AlignedDblRect r(1, 10, 3, 20);
    m.XfmRect(r);
    EXPECT_TRUE(IsBox(r, -20, 1, -10, 3));
}

}  // namespace
