// SPDX-License-Identifier: MIT
#include "vellum/segment.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <type_traits>

#include "support/point_checks.h"
#include "vellum/geometry.h"
#include "vellum/matrix.h"

namespace {

using support::IsAt;
using Vellum::AlignedDblRect;
using Vellum::ClosedShape;
using Vellum::DblPt;
using Vellum::LineSegmentGeom;
using Vellum::Mtx2D;
using Vellum::Shape;

static_assert(std::is_base_of_v<Shape, LineSegmentGeom>);
static_assert(!std::is_base_of_v<ClosedShape, LineSegmentGeom>);

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kEpsilon = 1.1920928955078125e-7;

testing::AssertionResult Holds(const LineSegmentGeom& s, double x0, double y0, double x1, double y1) {
    const auto start = IsAt(s.start, x0, y0);
    if (!start) return testing::AssertionFailure() << "start: " << start.message();
    const auto end = IsAt(s.end, x1, y1);
    if (!end) return testing::AssertionFailure() << "end: " << end.message();
    return testing::AssertionSuccess();
}

TEST(LineSegmentGeom, StartsAsTheOrigin) { EXPECT_TRUE(Holds(LineSegmentGeom(), 0.0, 0.0, 0.0, 0.0)); }

TEST(LineSegmentGeom, HoldsItsEndsInTheOrderGiven) {
    EXPECT_TRUE(Holds(LineSegmentGeom(DblPt(7.0, 2.0), DblPt(3.0, 5.0)), 7.0, 2.0, 3.0, 5.0));
    EXPECT_TRUE(Holds(LineSegmentGeom(7.0, 2.0, 3.0, 5.0), 7.0, 2.0, 3.0, 5.0));
    LineSegmentGeom s;
    s.Set(DblPt(7.0, 2.0), DblPt(3.0, 5.0));
    EXPECT_TRUE(Holds(s, 7.0, 2.0, 3.0, 5.0));
    s.Set(1.0, 9.0, 8.0, 4.0);
    EXPECT_TRUE(Holds(s, 1.0, 9.0, 8.0, 4.0));
}

TEST(LineSegmentGeom, CopiesItsEnds) {
    const LineSegmentGeom s(7.0, 2.0, 3.0, 5.0);
    EXPECT_TRUE(Holds(LineSegmentGeom(s), 7.0, 2.0, 3.0, 5.0));
    LineSegmentGeom assigned;
    EXPECT_EQ(&(assigned = s), &assigned);
    EXPECT_TRUE(Holds(assigned, 7.0, 2.0, 3.0, 5.0));
}

TEST(LineSegmentGeom, IsDestroyedThroughItsBase) {
    const std::unique_ptr<Shape> shape = std::make_unique<LineSegmentGeom>(7.0, 2.0, 3.0, 5.0);
    EXPECT_NE(shape, nullptr);
}

TEST(LineSegmentGeom, SettersReadTheirArgumentsFirst) {
    LineSegmentGeom s(7.0, 2.0, 3.0, 5.0);
    s.Set(s.end, s.start);
    EXPECT_TRUE(Holds(s, 3.0, 5.0, 7.0, 2.0));
    s.SetSort(s.end, s.start);
    EXPECT_TRUE(Holds(s, 7.0, 2.0, 3.0, 5.0));
    s.Set(1.0, 1.0, 2.0, 2.0);
    s.SetSort(s.start, s.end);
    EXPECT_TRUE(Holds(s, 2.0, 2.0, 1.0, 1.0));
    s.Translate(s.end);
    EXPECT_TRUE(Holds(s, 3.0, 3.0, 2.0, 2.0));
    s.Set(7.0, 2.0, 3.0, 5.0);
    s.Translate(s.start);
    EXPECT_TRUE(Holds(s, 14.0, 4.0, 10.0, 7.0));
}

TEST(LineSegmentGeom, SetSortStartsAtTheFirstWhereEitherOfItsCoordinatesIsLarger) {
    LineSegmentGeom s;
    s.SetSort(DblPt(3.0, 1.0), DblPt(0.0, 5.0));  // by x, though its y is smaller
    EXPECT_TRUE(Holds(s, 3.0, 1.0, 0.0, 5.0));
    s.SetSort(DblPt(0.0, 5.0), DblPt(3.0, 1.0));  // by y, though its x is smaller
    EXPECT_TRUE(Holds(s, 0.0, 5.0, 3.0, 1.0));
    s.SetSort(DblPt(3.0, 5.0), DblPt(3.0, 1.0));
    EXPECT_TRUE(Holds(s, 3.0, 5.0, 3.0, 1.0));
    s.SetSort(DblPt(4.0, 1.0), DblPt(3.0, 1.0));
    EXPECT_TRUE(Holds(s, 4.0, 1.0, 3.0, 1.0));
}

TEST(LineSegmentGeom, SetSortStartsAtTheSecondOtherwise) {
    LineSegmentGeom s;
    s.SetSort(DblPt(1.0, 1.0), DblPt(2.0, 2.0));
    EXPECT_TRUE(Holds(s, 2.0, 2.0, 1.0, 1.0));
    s.SetSort(DblPt(1.0, 1.0), DblPt(1.0, 2.0));
    EXPECT_TRUE(Holds(s, 1.0, 2.0, 1.0, 1.0));
    s.SetSort(DblPt(1.0, 1.0), DblPt(2.0, 1.0));
    EXPECT_TRUE(Holds(s, 2.0, 1.0, 1.0, 1.0));

    // Equal points are told apart by the signs of their zeros.
    s.SetSort(DblPt(0.0, 0.0), DblPt(-0.0, -0.0));
    EXPECT_TRUE(Holds(s, 0.0, 0.0, 0.0, 0.0));
    EXPECT_TRUE(std::signbit(s.start.x));
    EXPECT_TRUE(std::signbit(s.start.y));
    EXPECT_FALSE(std::signbit(s.end.x));
    EXPECT_FALSE(std::signbit(s.end.y));

    s.SetSort(DblPt(kNan, 1.0), DblPt(5.0, 2.0));
    EXPECT_TRUE(IsAt(s.start, 5.0, 2.0));
    s.SetSort(DblPt(kNan, 3.0), DblPt(5.0, 2.0));
    EXPECT_TRUE(IsAt(s.end, 5.0, 2.0));
}

TEST(LineSegmentGeom, MovesBothEnds) {
    LineSegmentGeom s(7.0, 2.0, 3.0, 5.0);
    s.Translate(DblPt(10.0, 100.0));
    EXPECT_TRUE(Holds(s, 17.0, 102.0, 13.0, 105.0));
    s.Translate(-10.0, -200.0);
    EXPECT_TRUE(Holds(s, 7.0, -98.0, 3.0, -95.0));
    s.TranslateX(1.0);
    EXPECT_TRUE(Holds(s, 8.0, -98.0, 4.0, -95.0));
    s.TranslateY(2.0);
    EXPECT_TRUE(Holds(s, 8.0, -96.0, 4.0, -93.0));
}

TEST(LineSegmentGeom, ApplyTransformMapsBothEnds) {
    Mtx2D m;
    m.m11 = 2.0;
    m.m12 = 3.0;
    m.m21 = 5.0;
    m.m22 = 7.0;
    m.dx = 100.0;
    m.dy = 200.0;
    m.SetType();
    LineSegmentGeom s(1.0, 10.0, 20.0, 3.0);
    s.ApplyTransform(&m);
    EXPECT_TRUE(Holds(s, 152.0, 273.0, 155.0, 281.0));

    // The path is that of the matrix's type.
    m.type = Vellum::Mtx2DAxisAligned;
    s.Set(1.0, 10.0, 20.0, 3.0);
    s.ApplyTransform(&m);
    EXPECT_TRUE(Holds(s, 102.0, 270.0, 140.0, 221.0));
}

TEST(LineSegmentGeom, GivesItsEnds) {
    const LineSegmentGeom s(7.0, 2.0, 3.0, 5.0);
    EXPECT_EQ(&s.StartPt(), &s.start);
    EXPECT_EQ(&s.EndPt0(), &s.start);
    EXPECT_EQ(&s.EndPt(), &s.end);
    EXPECT_EQ(&s.EndPt1(), &s.end);
    EXPECT_EQ(s.Dx(), -4.0);
    EXPECT_EQ(s.Dy(), 3.0);
}

TEST(LineSegmentGeom, GivesItsCentre) {
    const LineSegmentGeom s(7.0, 2.0, 3.0, 5.0);
    EXPECT_EQ(s.CenterX(), 5.0);
    EXPECT_EQ(s.CenterY(), 3.5);
    DblPt c;
    s.GetCenter(c);
    EXPECT_TRUE(IsAt(c, 5.0, 3.5));

    // The sum comes first: it overflows where the halves would not.
    const LineSegmentGeom far(1.5e308, -1.5e308, 1.5e308, -1.5e308);
    EXPECT_EQ(far.CenterX(), std::numeric_limits<double>::infinity());
    EXPECT_EQ(far.CenterY(), -std::numeric_limits<double>::infinity());
}

TEST(LineSegmentGeom, GivesItsExtents) {
    const LineSegmentGeom s(7.0, 2.0, 3.0, 5.0);
    EXPECT_EQ(s.LLX(), 3.0);
    EXPECT_EQ(s.LLY(), 2.0);
    EXPECT_EQ(s.URX(), 7.0);
    EXPECT_EQ(s.URY(), 5.0);
    AlignedDblRect r(-50.0, -50.0, 50.0, 50.0);
    s.GetExtents(r);
    EXPECT_TRUE(IsAt(r.ll, 3.0, 2.0));
    EXPECT_TRUE(IsAt(r.ur, 7.0, 5.0));
    LineSegmentGeom(3.0, 5.0, 7.0, 2.0).GetExtents(r);
    EXPECT_TRUE(IsAt(r.ll, 3.0, 2.0));
    EXPECT_TRUE(IsAt(r.ur, 7.0, 5.0));
}

TEST(LineSegmentGeom, GivesItsLength) {
    const LineSegmentGeom s(7.0, 2.0, 3.0, 5.0);
    EXPECT_EQ(s.Length(), 5.0);
    EXPECT_EQ(s.Radius(), 2.5);
    double value = 0.0;
    s.GetLength(value);
    EXPECT_EQ(value, 5.0);
    s.GetRadius(value);
    EXPECT_EQ(value, 2.5);

    // Nothing is scaled on the way to the root.
    EXPECT_EQ(LineSegmentGeom(0.0, 0.0, 3e200, 4e200).Length(), std::numeric_limits<double>::infinity());
    EXPECT_EQ(LineSegmentGeom(0.0, 0.0, 3e-200, 4e-200).Length(), 0.0);
}

TEST(LineSegmentGeom, GivesItsSlope) {
    EXPECT_EQ(LineSegmentGeom(1.0, 2.0, 5.0, 12.0).Slope(), 2.5);
    EXPECT_EQ(LineSegmentGeom(5.0, 12.0, 1.0, 2.0).Slope(), 2.5);
    EXPECT_EQ(LineSegmentGeom(1.0, 12.0, 5.0, 2.0).Slope(), -2.5);
    EXPECT_EQ(LineSegmentGeom::Slope(DblPt(1.0, 2.0), DblPt(5.0, 12.0)), 2.5);
    EXPECT_EQ(LineSegmentGeom::Slope(DblPt(1.0, 12.0), DblPt(5.0, 2.0)), -2.5);
}

TEST(LineSegmentGeom, HasNoSlopeAlongAnAxis) {
    EXPECT_EQ(LineSegmentGeom(0.0, 0.0, 1e-8, 5.0).Slope(), 0.0);
    EXPECT_FALSE(LineSegmentGeom(0.0, 0.0, 1e-8, 5.0).IsVertical());
    EXPECT_EQ(LineSegmentGeom(0.0, 0.0, -1e-8, 5.0).Slope(), 0.0);
    EXPECT_EQ(LineSegmentGeom(0.0, 0.0, 5.0, 1e-8).Slope(), 0.0);
    EXPECT_EQ(LineSegmentGeom(0.0, 0.0, 5.0, -1e-8).Slope(), 0.0);
    EXPECT_EQ(LineSegmentGeom(2.0, 0.0, 2.0, 5.0).Slope(), 0.0);
    EXPECT_EQ(LineSegmentGeom::Slope(DblPt(0.0, 0.0), DblPt(1e-8, 5.0)), 0.0);
    EXPECT_EQ(LineSegmentGeom::Slope(DblPt(0.0, 0.0), DblPt(5.0, 1e-8)), 0.0);

    // The threshold itself counts as a direction, whatever the other coordinate.
    EXPECT_EQ(LineSegmentGeom(0.0, 0.0, kEpsilon, 5.0).Slope(), 5.0 / kEpsilon);
    EXPECT_EQ(LineSegmentGeom(0.0, 0.0, -kEpsilon, 5.0).Slope(), -5.0 / kEpsilon);
    EXPECT_EQ(LineSegmentGeom(0.0, 0.0, 4.0, kEpsilon).Slope(), kEpsilon / 4.0);
    EXPECT_EQ(LineSegmentGeom(0.0, 0.0, 1e300, kEpsilon).Slope(), kEpsilon / 1e300);
    EXPECT_EQ(LineSegmentGeom(0.0, 0.0, std::nextafter(kEpsilon, 0.0), 5.0).Slope(), 0.0);
    EXPECT_EQ(LineSegmentGeom(0.0, 0.0, 5.0, std::nextafter(kEpsilon, 0.0)).Slope(), 0.0);
    EXPECT_TRUE(std::isnan(LineSegmentGeom(kNan, 0.0, 1.0, 5.0).Slope()));
}

TEST(LineSegmentGeom, ParallelToAnAxisMeansExactly) {
    EXPECT_TRUE(LineSegmentGeom(1.0, 3.0, 5.0, 3.0).IsHorizontal());
    EXPECT_FALSE(LineSegmentGeom(1.0, 3.0, 5.0, std::nextafter(3.0, 4.0)).IsHorizontal());
    EXPECT_FALSE(LineSegmentGeom(1.0, 3.0, 1.0, 4.0).IsHorizontal());
    EXPECT_TRUE(LineSegmentGeom(3.0, 1.0, 3.0, 5.0).IsVertical());
    EXPECT_FALSE(LineSegmentGeom(3.0, 1.0, std::nextafter(3.0, 4.0), 5.0).IsVertical());
    EXPECT_FALSE(LineSegmentGeom(3.0, 1.0, 4.0, 1.0).IsVertical());
}

TEST(LineSegmentGeom, WithoutLengthIsAPoint) {
    const LineSegmentGeom s(4.0, 9.0, 4.0, 9.0);
    EXPECT_EQ(s.Length(), 0.0);
    EXPECT_EQ(s.Slope(), 0.0);
    EXPECT_TRUE(s.IsHorizontal());
    EXPECT_TRUE(s.IsVertical());
    AlignedDblRect r;
    s.GetExtents(r);
    EXPECT_TRUE(IsAt(r.ll, 4.0, 9.0));
    EXPECT_TRUE(IsAt(r.ur, 4.0, 9.0));
}

TEST(LineSegmentGeom, HasItsEndsAsVertices) {
    const LineSegmentGeom s(7.0, 2.0, 3.0, 5.0);
    EXPECT_TRUE(s.HasVertex(DblPt(7.0, 2.0)));
    EXPECT_TRUE(s.HasVertex(DblPt(3.0, 5.0)));
    EXPECT_FALSE(s.HasVertex(DblPt(7.0, 5.0)));
    EXPECT_FALSE(s.HasVertex(DblPt(3.0, 2.0)));
    EXPECT_FALSE(s.HasVertex(DblPt(5.0, 3.5)));
    EXPECT_FALSE(s.HasVertex(DblPt(std::nextafter(7.0, 8.0), 2.0)));
}

TEST(LineSegmentGeom, ComparesExactly) {
    const LineSegmentGeom s(7.0, 2.0, 3.0, 5.0);
    EXPECT_TRUE(s.IsExactly(LineSegmentGeom(7.0, 2.0, 3.0, 5.0)));
    EXPECT_FALSE(s.IsExactly(LineSegmentGeom(7.5, 2.0, 3.0, 5.0)));
    EXPECT_FALSE(s.IsExactly(LineSegmentGeom(7.0, 2.5, 3.0, 5.0)));
    EXPECT_FALSE(s.IsExactly(LineSegmentGeom(7.0, 2.0, 3.5, 5.0)));
    EXPECT_FALSE(s.IsExactly(LineSegmentGeom(7.0, 2.0, 3.0, std::nextafter(5.0, 6.0))));
    EXPECT_FALSE(s.IsExactly(LineSegmentGeom(3.0, 5.0, 7.0, 2.0)));
    EXPECT_FALSE(LineSegmentGeom(kNan, 0.0, 1.0, 1.0).IsExactly(LineSegmentGeom(kNan, 0.0, 1.0, 1.0)));
}

TEST(LineSegmentGeom, ComparesWithinATolerance) {
    const LineSegmentGeom s(7.0, 2.0, 3.0, 5.0);
    EXPECT_TRUE(s.IsEqualTo(LineSegmentGeom(7.25, 1.75, 3.25, 4.75), 0.5));
    EXPECT_FALSE(s.IsEqualTo(LineSegmentGeom(7.5, 2.0, 3.0, 5.0), 0.5));
    EXPECT_FALSE(s.IsEqualTo(LineSegmentGeom(7.0, 1.5, 3.0, 5.0), 0.5));
    EXPECT_FALSE(s.IsEqualTo(LineSegmentGeom(7.0, 2.0, 2.5, 5.0), 0.5));
    EXPECT_FALSE(s.IsEqualTo(LineSegmentGeom(7.0, 2.0, 3.0, 5.5), 0.5));
    EXPECT_FALSE(s.IsEqualTo(LineSegmentGeom(3.0, 5.0, 7.0, 2.0), 0.5));
    EXPECT_FALSE(s.IsEqualTo(s, 0.0));
}

TEST(LineSegmentGeom, MeasuresItsDistanceAsTheFreeFunction) {
    const LineSegmentGeom s(0.0, 0.0, 10.0, 0.0);
    EXPECT_EQ(DistPtLine(DblPt(5.0, 5.0), s, true), 5.0);
    EXPECT_EQ(DistPtLine(DblPt(5.0, 5.0), s, false), 4.8);
    EXPECT_EQ(DistPtLine(DblPt(13.0, 4.0), s, true), 5.0);
    EXPECT_EQ(DistPtLine(DblPt(-5.0, 12.0), s, true), 13.0);
    const LineSegmentGeom oblique(1.0, 2.0, 8.0, 5.0);
    const DblPt p(3.0, 7.0);
    EXPECT_EQ(DistPtLine(p, oblique, true), DistPtLine(p, oblique.start, oblique.end, true));
    EXPECT_EQ(DistPtLine(p, oblique, false), DistPtLine(p, oblique.start, oblique.end, false));
}

}  // namespace
