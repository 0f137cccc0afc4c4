// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <type_traits>

#include "support/point_checks.h"
#include "support/random_numbers.h"
#include "vellum/ellipses.h"
#include "vellum/matrix.h"

namespace {

using support::IsAt;
using support::RandomNumbers;
using Vellum::AlignedDblRect;
using Vellum::ArcChord;
using Vellum::ArcOpen;
using Vellum::ArcPie;
using Vellum::ClosedShape;
using Vellum::DblPt;
using Vellum::DrwArcCT;
using Vellum::EllipticalArcGeom;
using Vellum::Mtx2D;
using Vellum::Shape;

static_assert(std::is_base_of_v<Shape, EllipticalArcGeom> && !std::is_base_of_v<ClosedShape, EllipticalArcGeom>);
static_assert(ArcOpen == 0 && ArcChord == 1 && ArcPie == 2);

constexpr double kPi = std::numbers::pi;
constexpr double kTwoPi = 2.0 * kPi;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kUnwritten = -77.0;
const double kDiagonal = std::sqrt(0.8);

testing::AssertionResult IsBox(const AlignedDblRect& r, double left, double bottom, double right, double top,
                               double tol = 0.0) {
    const double off = std::max(
        {std::fabs(r.ll.x - left), std::fabs(r.ll.y - bottom), std::fabs(r.ur.x - right), std::fabs(r.ur.y - top)});
    if (off <= tol) return testing::AssertionSuccess();
    return testing::AssertionFailure() << testing::PrintToString(r.ll.x) << ", " << testing::PrintToString(r.ll.y)
                                       << " - " << testing::PrintToString(r.ur.x) << ", "
                                       << testing::PrintToString(r.ur.y) << " instead of " << left << ", " << bottom
                                       << " - " << right << ", " << top;
}

AlignedDblRect ExtentsOf(const EllipticalArcGeom& arc) {
    AlignedDblRect r(-1.0, -2.0, -3.0, -4.0);
    arc.GetExtents(r);
    EXPECT_EQ(arc.LLX(), r.ll.x);
    EXPECT_EQ(arc.LLY(), r.ll.y);
    EXPECT_EQ(arc.URX(), r.ur.x);
    EXPECT_EQ(arc.URY(), r.ur.y);
    return r;
}

// An arc of x^2 / 4 + y^2 = 1.
EllipticalArcGeom FlatArc(const DblPt& start, const DblPt& end) {
    return EllipticalArcGeom(DblPt(), DblPt(2.0, 0.0), DblPt(0.0, 1.0), start, end);
}

testing::AssertionResult Holds(const EllipticalArcGeom& arc, const DblPt (&points)[5]) {
    const DblPt* held[] = {&arc.center, &arc.conjugateDiameterPt1, &arc.conjugateDiameterPt2, &arc.start, &arc.end};
    for (int i = 0; i < 5; ++i) {
        const auto result = IsAt(*held[i], points[i].x, points[i].y);
        if (!result) return testing::AssertionFailure() << "point " << i << ": " << result.message();
    }
    return testing::AssertionSuccess();
}

TEST(EllipticalArcGeom, StartsAsNothing) { EXPECT_TRUE(Holds(EllipticalArcGeom(), {{}, {}, {}, {}, {}})); }

TEST(EllipticalArcGeom, ConstructsAndCopies) {
    const DblPt points[] = {{1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}, {7.0, 8.0}, {9.0, 10.0}};
    const EllipticalArcGeom arc(points[0], points[1], points[2], points[3], points[4]);
    EXPECT_TRUE(Holds(arc, points));
    EXPECT_TRUE(Holds(EllipticalArcGeom(&points[0], &points[1], &points[2], &points[3], &points[4]), points));
    EXPECT_TRUE(Holds(EllipticalArcGeom(arc), points));
    EllipticalArcGeom assigned;
    EXPECT_EQ(&(assigned = arc), &assigned);
    EXPECT_TRUE(Holds(assigned, points));
}

TEST(EllipticalArcGeom, SetsAndTellsItsPoints) {
    DblPt points[] = {{1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}, {7.0, 8.0}, {9.0, 10.0}};
    EllipticalArcGeom arc;
    arc.SetCenter(points[0]);
    arc.SetConjugateDiameterPt1(points[1]);
    arc.SetConjugateDiameterPt2(points[2]);
    arc.SetStart(points[3]);
    arc.SetEnd(points[4]);
    EXPECT_TRUE(Holds(arc, points));
    EXPECT_EQ(&arc.Center(), &arc.center);
    EXPECT_EQ(&arc.ConjugateDiameterPt1(), &arc.conjugateDiameterPt1);
    EXPECT_EQ(&arc.ConjugateDiameterPt2(), &arc.conjugateDiameterPt2);
    EXPECT_EQ(&arc.Start(), &arc.start);
    EXPECT_EQ(&arc.End(), &arc.end);
}

TEST(EllipticalArcGeom, ThePointsAreItsVertices) {
    const DblPt points[] = {{1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}, {7.0, 8.0}, {9.0, 10.0}};
    const EllipticalArcGeom arc(points[0], points[1], points[2], points[3], points[4]);
    for (const DblPt& p : points) {
        EXPECT_TRUE(arc.HasVertex(p));
        EXPECT_FALSE(arc.HasVertex(DblPt(p.x, std::nextafter(p.y, 99.0))));
        EXPECT_FALSE(arc.HasVertex(DblPt(p.y, p.x)));
    }
}

TEST(EllipticalArcExtents, OverTheTop) {
    EXPECT_TRUE(
        IsBox(ExtentsOf(FlatArc(DblPt(1.0, 1.0), DblPt(-1.0, 1.0))), -kDiagonal, kDiagonal, kDiagonal, 1.0, 1e-15));
}

TEST(EllipticalArcExtents, TheLongWayAbout) {
    EXPECT_TRUE(IsBox(ExtentsOf(FlatArc(DblPt(-1.0, 1.0), DblPt(1.0, 1.0))), -2.0, -1.0, 2.0, kDiagonal, 1e-15));
}

TEST(EllipticalArcExtents, ClockwiseDiametersRunTheOtherWay) {
    const EllipticalArcGeom arc(DblPt(), DblPt(2.0, 0.0), DblPt(0.0, -1.0), DblPt(1.0, 1.0), DblPt(-1.0, 1.0));
    EXPECT_TRUE(IsBox(ExtentsOf(arc), -2.0, -1.0, 2.0, kDiagonal, 1e-15));
}

TEST(EllipticalArcExtents, TheyAreRelativeToTheCentre) {
    const EllipticalArcGeom arc(DblPt(10.0, 20.0), DblPt(12.0, 20.0), DblPt(10.0, 21.0), DblPt(13.0, 23.0),
                                DblPt(9.0, 21.0));
    EXPECT_TRUE(IsBox(ExtentsOf(arc), -kDiagonal, kDiagonal, kDiagonal, 1.0, 1e-15));
}

TEST(EllipticalArcExtents, ATurnedEllipseHasTheBoxOfItsTurnedRectangle) {
    // Semi-axes 2 sqrt(2) along the diagonal and sqrt(2) across; the tight box would reach to sqrt(5).
    const EllipticalArcGeom arc(DblPt(), DblPt(2.0, 2.0), DblPt(-1.0, 1.0), DblPt(1.0, 0.0), DblPt(1.0, 0.0));
    EXPECT_TRUE(IsBox(ExtentsOf(arc), -3.0, -3.0, 3.0, 3.0, 1e-14));
    const EllipticalArcGeom mirrored(DblPt(), DblPt(2.0, -2.0), DblPt(1.0, 1.0), DblPt(1.0, 0.0), DblPt(1.0, 0.0));
    EXPECT_TRUE(IsBox(ExtentsOf(mirrored), -3.0, -3.0, 3.0, 3.0, 1e-14));
    // Of one quarter, between the ends of the axes: a rectangle on two semi-axes.
    const EllipticalArcGeom quarter(DblPt(), DblPt(2.0, 2.0), DblPt(-1.0, 1.0), DblPt(1.0, 1.0), DblPt(-1.0, 1.0));
    EXPECT_TRUE(IsBox(ExtentsOf(quarter), -1.0, 0.0, 2.0, 3.0, 1e-14));
}

TEST(EllipticalArcExtents, ACircleIsAnEllipseHere) {
    // Without a B nothing is turned, whatever the directions of the diameters.
    const EllipticalArcGeom circle(DblPt(), DblPt(1.0, 1.0), DblPt(-1.0, 1.0), DblPt(3.0, 0.0), DblPt(3.0, 0.0));
    const double r = std::sqrt(2.0);
    EXPECT_TRUE(IsBox(ExtentsOf(circle), -r, -r, r, r, 1e-15));
}

// The ends of the arc in the middle of their quadrants, where none of their coordinates can be mistaken for a side.
TEST(EllipticalArcExtents, ForEveryPairOfQuadrants) {
    constexpr bool kStays = false;
    constexpr bool kReaches = true;
    struct Case {
        int from;
        int to;
        bool right;
        bool top;
        bool left;
        bool bottom;
    };
    const Case cases[] = {
        {0, 1, kStays, kReaches, kStays, kStays},     {0, 2, kStays, kReaches, kReaches, kStays},
        {0, 3, kStays, kReaches, kReaches, kReaches}, {1, 0, kReaches, kStays, kReaches, kReaches},
        {1, 2, kStays, kStays, kReaches, kStays},     {1, 3, kStays, kStays, kReaches, kReaches},
        {2, 0, kReaches, kStays, kStays, kReaches},   {2, 1, kReaches, kReaches, kStays, kReaches},
        {2, 3, kStays, kStays, kStays, kReaches},     {3, 0, kReaches, kStays, kStays, kStays},
        {3, 1, kReaches, kReaches, kStays, kStays},   {3, 2, kReaches, kReaches, kReaches, kStays},
    };
    const auto at = [](double t) { return DblPt(2.0 * std::cos(t), std::sin(t)); };
    for (const Case& c : cases) {
        const DblPt s = at(c.from * kPi / 2.0 + 0.5);
        const DblPt e = at(c.to * kPi / 2.0 + 0.7);
        EXPECT_TRUE(IsBox(ExtentsOf(FlatArc(s, e)), c.left ? -2.0 : std::min(s.x, e.x),
                          c.bottom ? -1.0 : std::min(s.y, e.y), c.right ? 2.0 : std::max(s.x, e.x),
                          c.top ? 1.0 : std::max(s.y, e.y), 1e-15))
            << c.from << " to " << c.to;
    }
    for (int quadrant = 0; quadrant < 4; ++quadrant) {
        const DblPt s = at(quadrant * kPi / 2.0 + 0.5);
        const DblPt e = at(quadrant * kPi / 2.0 + 0.7);
        EXPECT_TRUE(IsBox(ExtentsOf(FlatArc(s, e)), std::min(s.x, e.x), std::min(s.y, e.y), std::max(s.x, e.x),
                          std::max(s.y, e.y), 1e-15))
            << quadrant;
        EXPECT_TRUE(IsBox(ExtentsOf(FlatArc(e, s)), -2.0, -1.0, 2.0, 1.0)) << quadrant;
        EXPECT_TRUE(IsBox(ExtentsOf(FlatArc(s, s)), -2.0, -1.0, 2.0, 1.0)) << quadrant;
    }
}

TEST(EllipticalArcExtents, EndsOnTheAxes) {
    const DblPt ends[] = {{2.0, 0.0}, {0.0, 1.0}, {-2.0, 0.0}, {0.0, -1.0}};
    // From one to the next, to the one opposite, and to the one before.
    const double boxes[4][3][4] = {{{0, 0, 2, 1}, {-2, 0, 2, 1}, {-2, -1, 2, 1}},
                                   {{-2, 0, 0, 1}, {-2, -1, 0, 1}, {-2, -1, 2, 1}},
                                   {{-2, -1, 0, 0}, {-2, -1, 2, 0}, {-2, -1, 2, 1}},
                                   {{0, -1, 2, 0}, {0, -1, 2, 1}, {-2, -1, 2, 1}}};
    for (int from = 0; from < 4; ++from) {
        for (int step = 0; step < 3; ++step) {
            const double* box = boxes[from][step];
            EXPECT_TRUE(
                IsBox(ExtentsOf(FlatArc(ends[from], ends[(from + step + 1) % 4])), box[0], box[1], box[2], box[3]))
                << from << " " << step;
        }
        EXPECT_TRUE(IsBox(ExtentsOf(FlatArc(ends[from], ends[from])), -2.0, -1.0, 2.0, 1.0)) << from;
    }
    // A negative zero is zero.
    EXPECT_TRUE(IsBox(ExtentsOf(FlatArc(DblPt(2.0, -0.0), DblPt(-0.0, 1.0))), 0.0, 0.0, 2.0, 1.0));
}

TEST(EllipticalArcExtents, TwoEndsAHairApart) {
    const double tiny = 1e-15;
    for (const DblPt& at : {DblPt(1.0, 0.0), DblPt(1.0, 0.25), DblPt(1.0, 2.0), DblPt(tiny, 3.0)}) {
        const DblPt beside(at.x, at.y + 4.0 * tiny);
        const DblPt ahead = at.x > tiny ? beside : DblPt(0.0, 3.0);
        const AlignedDblRect rest = ExtentsOf(FlatArc(ahead, at));
        EXPECT_TRUE(IsBox(rest, -2.0, -1.0, 2.0, 1.0));
        const AlignedDblRect between = ExtentsOf(FlatArc(at, ahead));
        EXPECT_LT(between.Width() + between.Height(), 1e-13);
    }
}

// The box of points u cos t + v sin t.
AlignedDblRect WalkedBox(const DblPt& u, const DblPt& v, double from, double sweep) {
    constexpr int kSteps = 4000;
    AlignedDblRect box;
    for (int i = 0; i <= kSteps; ++i) {
        const double t = from + sweep * i / kSteps;
        const DblPt p(u.x * std::cos(t) + v.x * std::sin(t), u.y * std::cos(t) + v.y * std::sin(t));
        if (i == 0) box.TSet(p, p);
        box += p;
    }
    return box;
}

AlignedDblRect Turned(const AlignedDblRect& r, double turn) {
    const DblPt corners[] = {r.ll, DblPt(r.ur.x, r.ll.y), r.ur, DblPt(r.ll.x, r.ur.y)};
    AlignedDblRect box;
    for (int i = 0; i < 4; ++i) {
        const DblPt p(corners[i].x * std::cos(turn) - corners[i].y * std::sin(turn),
                      corners[i].x * std::sin(turn) + corners[i].y * std::cos(turn));
        if (i == 0) box.TSet(p, p);
        box += p;
    }
    return box;
}

// An arc of the ellipse with semi-axes a and b, turned, by the parameters of its ends.
testing::AssertionResult IsWalked(const DblPt& center, double a, double b, double turn, double from, double sweep) {
    const double c = std::cos(turn);
    const double s = std::sin(turn);
    const auto at = [&](double x, double y) { return DblPt(center.x + x * c - y * s, center.y + x * s + y * c); };
    const EllipticalArcGeom arc(center, at(a, 0.0), at(0.0, b), at(3.0 * a * std::cos(from), 3.0 * b * std::sin(from)),
                                at(a * std::cos(from + sweep), b * std::sin(from + sweep)));
    const AlignedDblRect walked = Turned(WalkedBox(DblPt(a, 0.0), DblPt(0.0, b), from, sweep), turn);
    return IsBox(ExtentsOf(arc), walked.ll.x, walked.ll.y, walked.ur.x, walked.ur.y, 3e-6 * (a + b))
           << " for " << a << ", " << b << " turned by " << turn << " from " << from << " by " << sweep;
}

TEST(EllipticalArcExtents, AreThoseOfAWalkAlongTheArc) {
    const double offsets[] = {0.0, 0.2, 0.7, 1.5};
    for (int from = 0; from < 4; ++from) {
        for (int to = 0; to < 8; ++to) {
            for (const double fromOffset : offsets) {
                for (const double toOffset : offsets) {
                    const double start = from * kPi / 2.0 + fromOffset;
                    const double sweep = to * kPi / 2.0 + toOffset - start;
                    if (sweep < 0.1 || sweep > kTwoPi - 0.1) continue;
                    EXPECT_TRUE(IsWalked(DblPt(), 3.0, 2.0, 0.0, start, sweep));
                    EXPECT_TRUE(IsWalked(DblPt(-4.0, 7.0), 1.0, 2.5, 0.5, start, sweep));
                }
            }
        }
    }
}

TEST(EllipticalArcExtents, OfRandomArcsAreThoseOfAWalk) {
    RandomNumbers random(36);
    for (int i = 0; i < 300; ++i) {
        const DblPt center(random.Within(-9.0, 9.0), random.Within(-9.0, 9.0));
        const double a = random.Within(0.2, 9.0);
        const double b = random.Within(0.2, 9.0);
        EXPECT_TRUE(IsWalked(center, a, b, random.Within(-kPi, kPi), random.Within(0.0, kTwoPi),
                             random.Within(0.01, kTwoPi - 0.01)));
    }
}

struct Conversion {
    drw_con_arc_t arc;
    double semiMajor;
    double semiMinor;
    bool isDegenerate;
};

Conversion Convert(DblPt c, DblPt p1, DblPt p2, DblPt start, DblPt end, bool full) {
    Conversion conversion = {{}, kUnwritten, kUnwritten, false};
    conversion.arc = EllipticalArcGeom().Cnj2ConEllipse(&c, &p1, &p2, &start, &end, conversion.semiMajor,
                                                        conversion.semiMinor, conversion.isDegenerate, full);
    EXPECT_EQ(conversion.arc.reversed, 0);
    EXPECT_EQ(conversion.arc.D, 0.0);
    EXPECT_EQ(conversion.arc.E, 0.0);
    return conversion;
}

testing::AssertionResult HasCoefficients(const drw_con_arc_t& arc, double a, double b, double c, double f) {
    if (arc.A == a && arc.B == b && arc.C == c && arc.F == f) return testing::AssertionSuccess();
    return testing::AssertionFailure() << arc.A << " " << arc.B << " " << arc.C << " " << arc.F;
}

testing::AssertionResult HasEnds(const drw_con_arc_t& arc, const DblPt& start, const DblPt& end, double tol = 0.0) {
    if (std::fabs(arc.start.x - start.x) <= tol && std::fabs(arc.start.y - start.y) <= tol &&
        std::fabs(arc.end.x - end.x) <= tol && std::fabs(arc.end.y - end.y) <= tol)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << arc.start.x << " " << arc.start.y << " " << arc.end.x << " " << arc.end.y;
}

TEST(EllipticalArcConic, OfPerpendicularDiameters) {
    const Conversion c =
        Convert(DblPt(10.0, 20.0), DblPt(12.0, 20.0), DblPt(10.0, 21.0), DblPt(13.0, 23.0), DblPt(8.0, 22.0), false);
    EXPECT_FALSE(c.isDegenerate);
    EXPECT_EQ(c.semiMajor, 2.0);
    EXPECT_EQ(c.semiMinor, 1.0);
    EXPECT_TRUE(HasCoefficients(c.arc, 0.25, 0.0, 1.0, -1.0));
    EXPECT_TRUE(HasEnds(c.arc, DblPt(kDiagonal, kDiagonal), DblPt(-kDiagonal, kDiagonal), 1e-15));
    const Conversion full =
        Convert(DblPt(10.0, 20.0), DblPt(12.0, 20.0), DblPt(10.0, 21.0), DblPt(13.0, 23.0), DblPt(8.0, 22.0), true);
    EXPECT_TRUE(HasEnds(full.arc, DblPt(2.0, 0.0), DblPt(2.0, 0.0)));
}

TEST(EllipticalArcConic, ClockwiseDiametersExchangeTheEnds) {
    const Conversion c =
        Convert(DblPt(10.0, 20.0), DblPt(12.0, 20.0), DblPt(10.0, 19.0), DblPt(13.0, 23.0), DblPt(8.0, 22.0), false);
    EXPECT_FALSE(c.isDegenerate);
    EXPECT_TRUE(HasCoefficients(c.arc, 0.25, 0.0, 1.0, -1.0));
    EXPECT_TRUE(HasEnds(c.arc, DblPt(-kDiagonal, kDiagonal), DblPt(kDiagonal, kDiagonal), 1e-15));
}

TEST(EllipticalArcConic, FollowsTheFormulasInTheirOrder) {
    RandomNumbers random(37);
    for (int i = 0; i < 500; ++i) {
        const auto draw = [&]() {
            const double x = random.Within(-9.0, 9.0);
            return DblPt(x, random.Within(-9.0, 9.0));
        };
        const DblPt center = draw();
        const DblPt p1 = draw();
        const DblPt p2 = draw();
        const Conversion conversion = Convert(center, p1, p2, DblPt(), DblPt(), true);
        ASSERT_FALSE(conversion.isDegenerate);
        const double ux = p1.x - center.x;
        const double uy = p1.y - center.y;
        const double vx = p2.x - center.x;
        const double vy = p2.y - center.y;
        const double det = vy * ux - vx * uy;
        const double a = vy * vy + uy * uy;
        const double b = -2.0 * (vy * vx + uy * ux);
        const double c = vx * vx + ux * ux;
        const double f = -(det * det);
        const double m = (a + c) / 2.0;
        const double h = std::sqrt((c - a) * (c - a) + b * b) / 2.0;
        const double r1 = (m - h) / (det * det);
        const double r2 = (m + h) / (det * det);
        const double largest = std::max({std::fabs(a), std::fabs(b), std::fabs(c)});
        EXPECT_TRUE(HasCoefficients(conversion.arc, a / largest, b / largest, c / largest, f / largest));
        EXPECT_TRUE(HasEnds(conversion.arc, DblPt(ux, uy), DblPt(ux, uy)));
        EXPECT_EQ(conversion.semiMajor, 1.0 / std::sqrt(r1));
        EXPECT_EQ(conversion.semiMinor, 1.0 / std::sqrt(r2));
    }
}

TEST(EllipticalArcConic, ACircleIsAnEllipse) {
    const Conversion c = Convert(DblPt(1.0, 1.0), DblPt(4.0, 5.0), DblPt(-3.0, 4.0), DblPt(), DblPt(), true);
    EXPECT_FALSE(c.isDegenerate);
    EXPECT_EQ(c.semiMajor, 5.0);
    EXPECT_EQ(c.semiMinor, 5.0);
    EXPECT_TRUE(HasCoefficients(c.arc, 1.0, 0.0, 1.0, -25.0));
}

TEST(EllipticalArcConic, ExactlyCollinearDiametersHaveTheEndsOfAFullEllipse) {
    const EllipticalArcGeom arc(DblPt(1.0, 2.0), DblPt(3.0, 2.0), DblPt(5.0, 2.0), DblPt(9.0, 9.0), DblPt(8.0, 8.0));
    const Conversion c =
        Convert(arc.center, arc.conjugateDiameterPt1, arc.conjugateDiameterPt2, arc.start, arc.end, false);
    EXPECT_TRUE(c.isDegenerate);
    EXPECT_TRUE(HasCoefficients(c.arc, 0.0, 0.0, 0.0, 0.0));
    EXPECT_TRUE(HasEnds(c.arc, DblPt(2.0, 0.0), DblPt(2.0, 0.0)));
    EXPECT_EQ(c.semiMajor, 0.0);
    EXPECT_EQ(c.semiMinor, 0.0);
    EXPECT_TRUE(IsBox(ExtentsOf(arc), 2.0, 0.0, 2.0, 0.0));
}

TEST(EllipticalArcConic, ADegenerateOneStartsAtTheCentreItself) {
    // Too flat: the smaller root cancels to nothing, the larger one does not.
    const EllipticalArcGeom flat(DblPt(10.0, 20.0), DblPt(11.0, 20.0), DblPt(10.0, 20.0 + 0x1p-35), DblPt(19.0, 29.0),
                                 DblPt(8.0, 28.0));
    const Conversion c =
        Convert(flat.center, flat.conjugateDiameterPt1, flat.conjugateDiameterPt2, flat.start, flat.end, false);
    EXPECT_TRUE(c.isDegenerate);
    EXPECT_TRUE(HasCoefficients(c.arc, 0.0, 0.0, 0.0, -0x1p-70));
    EXPECT_TRUE(HasEnds(c.arc, DblPt(10.0, 20.0), DblPt(0.0, 0.0)));
    EXPECT_EQ(c.semiMajor, 0x1p-35);
    EXPECT_EQ(c.semiMinor, 0.0);
    EXPECT_TRUE(IsBox(ExtentsOf(flat), 0.0, 0.0, 10.0, 20.0));
    const Conversion full =
        Convert(flat.center, flat.conjugateDiameterPt1, flat.conjugateDiameterPt2, flat.start, flat.end, true);
    EXPECT_TRUE(full.isDegenerate);
    EXPECT_TRUE(HasEnds(full.arc, DblPt(1.0, 0.0), DblPt(1.0, 0.0)));
}

TEST(EllipticalArcConic, ASemiAxisOutOfRangeIsDegenerate) {
    const Conversion large = Convert(DblPt(), DblPt(1e20, 0.0), DblPt(0.0, 3e17), DblPt(), DblPt(), true);
    EXPECT_TRUE(large.isDegenerate);
    EXPECT_NEAR(large.semiMajor, 1e20, 1e10);
    EXPECT_NEAR(large.semiMinor, 3e17, 1e3);
    EXPECT_FALSE(Convert(DblPt(), DblPt(9e18, 0.0), DblPt(0.0, 3e17), DblPt(), DblPt(), true).isDegenerate);
    const Conversion huge = Convert(DblPt(), DblPt(1e39, 0.0), DblPt(0.0, 3e38), DblPt(), DblPt(), true);
    EXPECT_TRUE(huge.isDegenerate);
    EXPECT_EQ(huge.semiMajor, 0.0);
    EXPECT_EQ(huge.semiMinor, 0.0);
}

TEST(EllipticalArcConic, TheSmallerRootMustReachItsThreshold) {
    // Axes whose smaller root is 1e-38 itself.
    const double x = 0x1.158e460913d00p+63;
    const double y = 0x1.522ad2fc49636p+62;
    const double det = y * x;
    ASSERT_EQ(((y * y + x * x) / 2.0 - (x * x - y * y) / 2.0) / (det * det), 1e-38);
    EXPECT_FALSE(Convert(DblPt(), DblPt(x, 0.0), DblPt(0.0, y), DblPt(), DblPt(), true).isDegenerate);
    EXPECT_TRUE(Convert(DblPt(), DblPt(x * (1.0 + 1e-14), 0.0), DblPt(0.0, y), DblPt(), DblPt(), true).isDegenerate);
}

TEST(EllipticalArcConic, TheDeterminantMustBeAboveItsThreshold) {
    const double threshold = 1e-38 / 1e-19;
    ASSERT_EQ(threshold * 1e-19, 1e-38);
    const Conversion at = Convert(DblPt(), DblPt(1e-19, 0.0), DblPt(0.0, threshold), DblPt(), DblPt(), true);
    EXPECT_TRUE(at.isDegenerate);
    EXPECT_TRUE(HasCoefficients(at.arc, 0.0, 0.0, 0.0, 0.0));
    EXPECT_EQ(at.semiMajor, 0.0);
    const Conversion above = Convert(DblPt(), DblPt(1e-19, 0.0), DblPt(0.0, 2.0 * threshold), DblPt(), DblPt(), true);
    EXPECT_FALSE(above.isDegenerate);
    EXPECT_NEAR(above.semiMajor, 2e-19, 1e-30);
}

TEST(EllipticalArcConic, WhatIsNoNumberIsDegenerate) {
    for (const double v : {kNaN, kInf, -kInf, 1e160}) {
        const Conversion c = Convert(DblPt(3.0, 4.0), DblPt(v, 0.0), DblPt(0.0, 1.0), DblPt(), DblPt(), false);
        EXPECT_TRUE(c.isDegenerate) << v;
        EXPECT_EQ(c.arc.A, 0.0);
        EXPECT_EQ(c.arc.B, 0.0);
        EXPECT_EQ(c.arc.C, 0.0);
        EXPECT_TRUE(HasEnds(c.arc, DblPt(3.0, 4.0), DblPt(0.0, 0.0)));
    }
}

TEST(EllipticalArcConic, ResultsMayOverwriteTheArguments) {
    DblPt c(10.0, 20.0);
    DblPt p1(12.0, 20.0);
    DblPt p2(10.0, 21.0);
    DblPt start(13.0, 23.0);
    DblPt end(8.0, 22.0);
    bool isDegenerate = true;
    const drw_con_arc_t arc =
        EllipticalArcGeom().Cnj2ConEllipse(&c, &p1, &p2, &start, &end, c.x, start.x, isDegenerate, false);
    EXPECT_FALSE(isDegenerate);
    EXPECT_TRUE(HasEnds(arc, DblPt(kDiagonal, kDiagonal), DblPt(-kDiagonal, kDiagonal), 1e-15));
    EXPECT_EQ(c.x, 2.0);
    EXPECT_EQ(start.x, 1.0);
}

drw_con_arc_t MakeConic(double a, double b, double c, double d, double e, double f, const DblPt& start,
                        const DblPt& end, int64_t reversed = 0) {
    return {a, b, c, d, e, f, {start.x, start.y}, {end.x, end.y}, reversed};
}

struct ConicExtents {
    bool isReal;
    AlignedDblRect box;
};

// The box stays crossed, from (4, 3) to (2, 1), where nothing is written.
ConicExtents ExtentsOf(drw_con_arc_t arc, DrwArcCT type = ArcOpen) {
    ConicExtents extents;
    extents.box.TSet(4.0, 3.0, 2.0, 1.0);
    extents.isReal = EllipticalArcGeom().GetEllipticalArcExtents(&arc, type, extents.box.ll.x, extents.box.ll.y,
                                                                 extents.box.ur.x, extents.box.ur.y);
    return extents;
}

TEST(ConicArcExtents, APieHoldsTheCentre) {
    const double t = 0.4;
    const DblPt start(2.0 * std::cos(t), std::sin(t));
    const DblPt end(2.0 * std::cos(3.0 * t), std::sin(3.0 * t));
    const drw_con_arc_t arc = MakeConic(0.25, 0.0, 1.0, 0.0, 0.0, -1.0, start, end);
    for (const DrwArcCT type : {ArcOpen, ArcChord, static_cast<DrwArcCT>(3), static_cast<DrwArcCT>(-1)}) {
        const ConicExtents open = ExtentsOf(arc, type);
        EXPECT_TRUE(open.isReal);
        EXPECT_TRUE(IsBox(open.box, end.x, start.y, start.x, end.y));
    }
    const ConicExtents pie = ExtentsOf(arc, ArcPie);
    EXPECT_TRUE(pie.isReal);
    EXPECT_TRUE(IsBox(pie.box, 0.0, 0.0, start.x, end.y));
}

TEST(ConicArcExtents, AReversedArcRunsFromItsEndToItsStart) {
    const DblPt right(kDiagonal, kDiagonal);
    const DblPt left(-kDiagonal, kDiagonal);
    const ConicExtents forward = ExtentsOf(MakeConic(0.25, 0.0, 1.0, 0.0, 0.0, -1.0, right, left));
    EXPECT_TRUE(IsBox(forward.box, -kDiagonal, kDiagonal, kDiagonal, 1.0));
    for (const int64_t flag : {int64_t{1}, int64_t{-1}, int64_t{1} << 40}) {
        const ConicExtents reversed = ExtentsOf(MakeConic(0.25, 0.0, 1.0, 0.0, 0.0, -1.0, right, left, flag));
        EXPECT_TRUE(reversed.isReal);
        EXPECT_TRUE(IsBox(reversed.box, -2.0, -1.0, 2.0, kDiagonal));
    }
}

TEST(ConicArcExtents, AZeroCoordinateCountsAsPositive) {
    // Ends off the ellipse show which of its extremes the walk passes.
    const auto box = [](const DblPt& start, const DblPt& end) {
        return ExtentsOf(MakeConic(0.25, 0.0, 1.0, 0.0, 0.0, -1.0, start, end)).box;
    };
    EXPECT_TRUE(IsBox(box(DblPt(1.0, 0.0), DblPt(0.0, 0.5)), 0.0, 0.0, 1.0, 0.5));
    EXPECT_TRUE(IsBox(box(DblPt(0.0, 0.5), DblPt(-1.0, 0.0)), -1.0, 0.0, 0.0, 1.0));
    EXPECT_TRUE(IsBox(box(DblPt(-1.0, 0.0), DblPt(-1.0, -0.5)), -2.0, -0.5, -1.0, 0.0));
    EXPECT_TRUE(IsBox(box(DblPt(-1.0, -0.5), DblPt(0.0, -0.5)), -1.0, -1.0, 0.0, -0.5));
    EXPECT_TRUE(IsBox(box(DblPt(0.0, -0.5), DblPt(1.0, 0.0)), 0.0, -0.5, 2.0, 0.0));
}

TEST(ConicArcExtents, TheConicMayHaveACentreOfItsOwn) {
    // (x - 3)^2 + 4 (y + 5)^2 = 16: over the top from (7, -5) to (-1, -5), and the quarter before that, as a pie.
    const ConicExtents half =
        ExtentsOf(MakeConic(1.0, 0.0, 4.0, -6.0, 40.0, 93.0, DblPt(7.0, -5.0), DblPt(-1.0, -5.0)));
    EXPECT_TRUE(half.isReal);
    EXPECT_TRUE(IsBox(half.box, -1.0, -5.0, 7.0, -3.0));
    const ConicExtents pie =
        ExtentsOf(MakeConic(1.0, 0.0, 4.0, -6.0, 40.0, 93.0, DblPt(3.0, -7.0), DblPt(6.9, -5.3)), ArcPie);
    EXPECT_TRUE(IsBox(pie.box, 3.0, -7.0, 6.9, -5.0, 1e-15));
    // All signs the other way round.
    const ConicExtents negated =
        ExtentsOf(MakeConic(-1.0, 0.0, -4.0, 6.0, -40.0, -93.0, DblPt(7.0, -5.0), DblPt(-1.0, -5.0)));
    EXPECT_TRUE(IsBox(negated.box, -1.0, -5.0, 7.0, -3.0));
}

TEST(ConicArcExtents, ATurnedConicMayHaveACentreOfItsOwn) {
    // Semi-axes 2 sqrt(2) along the diagonal and sqrt(2) across, 5 x^2 - 6 xy + 5 y^2 = 16, moved to (10, 20).
    const double linearX = -2.0 * 5.0 * 10.0 + 6.0 * 20.0;
    const double linearY = -2.0 * 5.0 * 20.0 + 6.0 * 10.0;
    const double constant = 5.0 * 100.0 - 6.0 * 200.0 + 5.0 * 400.0 - 16.0;
    const ConicExtents all =
        ExtentsOf(MakeConic(5.0, -6.0, 5.0, linearX, linearY, constant, DblPt(12.0, 22.0), DblPt(12.0, 22.0)));
    EXPECT_TRUE(all.isReal);
    EXPECT_TRUE(IsBox(all.box, 7.0, 17.0, 13.0, 23.0, 1e-12));
    // From one tip to a point on the far side of the ellipse's left half.
    const ConicExtents part = ExtentsOf(
        MakeConic(5.0, -6.0, 5.0, linearX, linearY, constant,
                  DblPt(10.0 + 2.0 * std::cos(0.1) - std::sin(0.1), 20.0 + 2.0 * std::cos(0.1) + std::sin(0.1)),
                  DblPt(9.0, 21.0)));
    // The turned rectangle: along the diagonal from 0 to cos(0.1) of the axis, across from sin(0.1) to 1.
    const double along = 2.0 * std::cos(0.1);
    const double across = std::sin(0.1);
    EXPECT_TRUE(IsBox(part.box, 9.0, 20.0 + across, 10.0 + along - across, 20.0 + along + 1.0, 1e-12));
}

TEST(ConicArcExtents, CloseCoefficientsTurnByAnEighth) {
    // All but circles, of which the whole is taken: its box tells the turn, as |cos| + |sin|.
    const auto reach = [](double a, double b, double c) {
        return ExtentsOf(MakeConic(a, b, c, 0.0, 0.0, -1.0, DblPt(1.0, 0.0), DblPt(1.0, 0.0))).box.ur.x;
    };
    EXPECT_NEAR(reach(1.0 + 5e-8, 1e-7, 1.0), std::sqrt(2.0), 1e-6);
    EXPECT_NEAR(reach(1.0, -1e-9, 1.0 + 9e-8), std::sqrt(2.0), 1e-6);
    const double half = std::atan2(1e-7, 2e-7) / 2.0;
    EXPECT_NEAR(reach(1.0 + 2e-7, 1e-7, 1.0), std::cos(half) + std::sin(half), 1e-6);
    EXPECT_NEAR(reach(1.0, 1e-7, 1.0 + 2e-7), std::cos(half) + std::sin(half), 1e-6);
    // A difference of 1e-7 itself is not close: x^2 * 2e-7 + xy * 1e-8 + y^2 * 1e-7.
    const double turn = std::atan2(1e-8, 1e-7) / 2.0;
    const double c = std::cos(turn);
    const double s = std::sin(turn);
    const double a = 1.0 / std::sqrt(2e-7 * c * c + 1e-8 * s * c + 1e-7 * s * s);
    const double b = 1.0 / std::sqrt(2e-7 * s * s - 1e-8 * s * c + 1e-7 * c * c);
    EXPECT_NEAR(reach(2e-7, 1e-8, 1e-7), a * c + b * s, 1e-9);
}

TEST(ConicArcExtents, AnEighthEitherWay) {
    // 5 x^2 + 6 xy + 5 y^2 = 16, whose longer axis falls, from its lower right tip to the upper right end of the
    // other.
    const ConicExtents falling =
        ExtentsOf(MakeConic(5.0, 6.0, 5.0, 0.0, 0.0, -16.0, DblPt(2.0, -2.0), DblPt(1.0, 1.0)));
    EXPECT_TRUE(falling.isReal);
    EXPECT_TRUE(IsBox(falling.box, 0.0, -2.0, 3.0, 1.0, 1e-14));
    const ConicExtents rising =
        ExtentsOf(MakeConic(5.0, -6.0, 5.0, 0.0, 0.0, -16.0, DblPt(2.0, 2.0), DblPt(-1.0, 1.0)));
    EXPECT_TRUE(rising.isReal);
    EXPECT_TRUE(IsBox(rising.box, -1.0, 0.0, 2.0, 3.0, 1e-14));
}

TEST(ConicArcExtents, WhatIsNoRealEllipseIsRejected) {
    const DblPt p(1.0, 0.0);
    const DblPt q(0.0, 1.0);
    const drw_con_arc_t rejected[] = {
        MakeConic(0.0, 0.0, 0.0, 0.0, 0.0, 0.0, p, q),   MakeConic(0.0, 0.0, 0.0, 1.0, 1.0, -1.0, p, q),
        MakeConic(1.0, 0.0, 1.0, 0.0, 0.0, 1.0, p, q),   MakeConic(-1.0, 0.0, -1.0, 0.0, 0.0, -1.0, p, q),
        MakeConic(1.0, 0.0, -1.0, 0.0, 0.0, -1.0, p, q), MakeConic(-1.0, 0.0, 1.0, 0.0, 0.0, -1.0, p, q),
        MakeConic(1.0, 3.0, 1.0, 0.0, 0.0, -1.0, p, q),  MakeConic(0.0, 0.0, 1.0, 1.0, 0.0, -1.0, p, q),
        MakeConic(1.0, 0.0, 0.0, 0.0, 1.0, -1.0, p, q),  MakeConic(1.0, 0.0, 0.0, 0.0, 0.0, -1.0, p, q),
        MakeConic(0.0, 0.0, 1.0, 0.0, 0.0, -1.0, p, q),  MakeConic(kNaN, 0.0, 1.0, 0.0, 0.0, -1.0, p, q),
        MakeConic(1.0, kNaN, 1.0, 0.0, 0.0, -1.0, p, q), MakeConic(1.0, 0.0, 1.0, 0.0, 0.0, -kInf, p, q),
    };
    for (const drw_con_arc_t& arc : rejected) {
        const ConicExtents extents = ExtentsOf(arc);
        EXPECT_FALSE(extents.isReal);
        EXPECT_TRUE(IsBox(extents.box, 4.0, 3.0, 2.0, 1.0));
    }
}

TEST(ConicArcExtents, AnAllButParabolicConicIsRejected) {
    const auto isReal = [](double a, double c, double d, double e) {
        return ExtentsOf(MakeConic(a, 0.0, c, d, e, -1.0, DblPt(1.0, 0.0), DblPt(1.0, 0.0))).isReal;
    };
    // 2 A / D against 1e-7.
    EXPECT_FALSE(isReal(0.9e-7, 1.0, 2.0, 0.0));
    EXPECT_FALSE(isReal(0.9e-7, 1.0, -2.0, 0.0));
    EXPECT_TRUE(isReal(1.1e-7, 1.0, 2.0, 0.0));
    EXPECT_FALSE(isReal(1.0, 0.9e-7, 0.0, 2.0));
    EXPECT_FALSE(isReal(1.0, 0.9e-7, 0.0, -2.0));
    EXPECT_TRUE(isReal(1.0, 1.1e-7, 0.0, 2.0));
    EXPECT_TRUE(isReal(1e-7 / 2.0, 1.0, 1.0, 0.0));
    // Only a linear coefficient above 1e-7 counts.
    EXPECT_TRUE(isReal(1e-16, 1.0, 1e-7, 0.0));
    EXPECT_FALSE(isReal(1e-16, 1.0, 1.1e-7, 0.0));
    EXPECT_TRUE(isReal(1.0, 1e-16, 0.0, -1e-7));
    EXPECT_FALSE(isReal(1.0, 1e-16, 0.0, -1.1e-7));
}

TEST(ConicArcExtents, APointIsAnEllipse) {
    const ConicExtents extents = ExtentsOf(MakeConic(1.0, 0.0, 4.0, 0.0, 0.0, 0.0, DblPt(), DblPt()));
    EXPECT_TRUE(extents.isReal);
    EXPECT_TRUE(IsBox(extents.box, 0.0, 0.0, 0.0, 0.0));
}

TEST(ConicArcExtents, FromTheFivePoints) {
    AlignedDblRect box;
    box.TSet(4.0, 3.0, 2.0, 1.0);
    const EllipticalArcGeom geom;
    EXPECT_TRUE(geom.EllipticalArcExtents(DblPt(10.0, 20.0), DblPt(12.0, 20.0), DblPt(10.0, 21.0), DblPt(13.0, 23.0),
                                          DblPt(9.0, 21.0), ArcOpen, box.ll.x, box.ll.y, box.ur.x, box.ur.y));
    EXPECT_TRUE(IsBox(box, -kDiagonal, kDiagonal, kDiagonal, 1.0, 1e-15));
    EXPECT_TRUE(geom.EllipticalArcExtents(DblPt(10.0, 20.0), DblPt(12.0, 20.0), DblPt(10.0, 21.0), DblPt(13.0, 23.0),
                                          DblPt(9.0, 21.0), ArcPie, box.ll.x, box.ll.y, box.ur.x, box.ur.y));
    EXPECT_TRUE(IsBox(box, -kDiagonal, 0.0, kDiagonal, 1.0, 1e-15));
    box.TSet(4.0, 3.0, 2.0, 1.0);
    EXPECT_FALSE(geom.EllipticalArcExtents(DblPt(1.0, 2.0), DblPt(3.0, 2.0), DblPt(5.0, 2.0), DblPt(9.0, 9.0),
                                           DblPt(8.0, 8.0), ArcOpen, box.ll.x, box.ll.y, box.ur.x, box.ur.y));
    EXPECT_TRUE(IsBox(box, 4.0, 3.0, 2.0, 1.0));
}

TEST(ConicArcExtents, WhatIsNoNumberGivesNoCrash) {
    for (const double v : {kNaN, kInf, -kInf, 1e200, -1e308, 1e-320}) {
        for (int field = 0; field < 10; ++field) {
            double values[] = {0.5, 0.25, 2.0, 0.5, -0.5, 1.0, 3.0, 1.0, -1.0, 2.0};
            values[field] = v;
            const EllipticalArcGeom arc(DblPt(values[0], values[1]), DblPt(values[2], values[3]),
                                        DblPt(values[4], values[5]), DblPt(values[6], values[7]),
                                        DblPt(values[8], values[9]));
            AlignedDblRect r;
            arc.GetExtents(r);
            EXPECT_TRUE(std::isnan(r.ll.x) || std::isnan(r.ur.x) || r.ll.x <= r.ur.x) << "field " << field << " " << v;
        }
    }
}

TEST(ConicArcRay, MeetsTheEllipse) {
    drw_con_arc_t arc = MakeConic(0.25, 0.0, 1.0, 0.0, 0.0, -1.0, DblPt(), DblPt());
    const EllipticalArcGeom geom;
    DblPt out;
    EXPECT_TRUE(geom.IntersectRayEllipse(7.0, 0.0, &arc, &out));
    EXPECT_TRUE(IsAt(out, 2.0, 0.0));
    EXPECT_TRUE(geom.IntersectRayEllipse(-3.0, 3.0, &arc, &out));
    EXPECT_NEAR(out.x, -kDiagonal, 1e-15);
    EXPECT_EQ(out.y, -out.x);
    // Towards a point relative to the conic's own centre.
    drw_con_arc_t moved = MakeConic(1.0, 0.0, 4.0, -6.0, 40.0, 93.0, DblPt(), DblPt());
    EXPECT_TRUE(geom.IntersectRayEllipse(0.0, 1.0, &moved, &out));
    EXPECT_TRUE(IsAt(out, 3.0, -3.0));
}

TEST(ConicArcRay, LeavesThePointWhereItMeetsNothing) {
    drw_con_arc_t arc = MakeConic(0.25, 0.0, 1.0, 0.0, 0.0, -1.0, DblPt(), DblPt());
    drw_con_arc_t nothing = MakeConic(0.0, 0.0, 0.0, 0.0, 0.0, -4.0, DblPt(), DblPt());
    const EllipticalArcGeom geom;
    DblPt out(5.0, 6.0);
    EXPECT_FALSE(geom.IntersectRayEllipse(0.0, 0.0, &arc, &out));
    EXPECT_FALSE(geom.IntersectRayEllipse(1.0, 1.0, &nothing, &out));
    EXPECT_TRUE(IsAt(out, 5.0, 6.0));
}

TEST(ConicEndpoints, AreMappedIntoTheFrame) {
    Mtx2D frame;
    frame.Scale(2.0, 3.0);
    frame.Translate(10.0, 20.0);
    const EllipticalArcGeom geom;
    DblPt start(1.0, 2.0);
    DblPt end(-3.0, 4.0);
    DblPt startOut;
    DblPt endOut;
    geom.ComputeConicEndpoints(&start, &end, false, &startOut, &endOut, &frame);
    EXPECT_TRUE(IsAt(startOut, 12.0, 26.0));
    EXPECT_TRUE(IsAt(endOut, 4.0, 32.0));
    geom.ComputeConicEndpoints(&start, &end, true, &startOut, &endOut, &frame);
    EXPECT_TRUE(IsAt(startOut, 4.0, 32.0));
    EXPECT_TRUE(IsAt(endOut, 12.0, 26.0));
    // Not rounded to the device; in place, too.
    start.Set(0.125, 0.25);
    geom.ComputeConicEndpoints(&start, &end, true, &start, &end, &frame);
    EXPECT_TRUE(IsAt(start, 4.0, 32.0));
    EXPECT_TRUE(IsAt(end, 10.25, 20.75));
}

TEST(ConicArcExtents, FollowTheFormulasInTheirOrder) {
    RandomNumbers random(38);
    for (int i = 0; i < 300; ++i) {
        const double a = random.Within(0.5, 2.0);
        const double b = random.Within(-0.4, 0.4);
        const double c = random.Within(0.5, 2.0);
        const double d = random.Within(-3.0, 3.0);
        const double e = random.Within(-3.0, 3.0);
        const double f = random.Within(-9.0, -5.0);
        // The ends inside, so that the box is the whole ellipse's.
        const AlignedDblRect box = ExtentsOf(MakeConic(a, b, c, d, e, f, DblPt(), DblPt())).box;
        const double t = std::atan2(b, a - c) / 2.0;
        const double cs = std::cos(t);
        const double sn = std::sin(t);
        const double a1 = a * (cs * cs) + b * sn * cs + c * (sn * sn);
        const double c1 = a * (sn * sn) - b * sn * cs + c * (cs * cs);
        const double cx = (d * cs + e * sn) / (2.0 * a1);
        const double cy = (e * cs - d * sn) / (2.0 * c1);
        const double f2 = f - (cy * cy * c1 + cx * cx * a1);
        const double alongX = std::sqrt(-f2 / a1);
        const double alongY = std::sqrt(-f2 / c1);
        Mtx2D frame;
        frame.Rotate(-(t * 57.29577951308232), 2);
        frame.Translate(cx, cy);
        const Mtx2D back = frame.Invert();
        AlignedDblRect expected;
        for (int k = 0; k < 4; ++k) {
            DblPt p(k % 3 == 0 ? -alongX : alongX, k < 2 ? -alongY : alongY);
            back.RealXfmPt(p);
            if (k == 0) expected.TSet(p, p);
            expected += p;
        }
        EXPECT_EQ(box, expected);
    }
}

TEST(EllipticalArcExtents, FallBackToTheEndsOfAConicThatCancels) {
    // u = (7, 11), v = -3 u + 2^-24 (-11, 7): not degenerate, but turned into its axes a coefficient is negative.
    const EllipticalArcGeom thin(DblPt(), DblPt(7.0, 11.0), DblPt(-21.0 - 11.0 * 0x1p-24, -33.0 + 7.0 * 0x1p-24),
                                 DblPt(7.0, 11.0), DblPt(-7.0, -11.0));
    Conversion c =
        Convert(thin.center, thin.conjugateDiameterPt1, thin.conjugateDiameterPt2, thin.start, thin.end, false);
    ASSERT_FALSE(c.isDegenerate);
    ASSERT_FALSE(ExtentsOf(c.arc).isReal);
    ASSERT_GT(c.arc.start.x, 7.0);
    EXPECT_TRUE(IsBox(ExtentsOf(thin), c.arc.end.x, c.arc.end.y, c.arc.start.x, c.arc.start.y));
}

// A conic that is a point leaves the ends where they are; they are compared by their coordinates all the same.
TEST(ConicArcExtents, OfAPointAreTheBoxOfTheEnds) {
    const AlignedDblRect box = ExtentsOf(MakeConic(1.0, 0.0, 4.0, 0.0, 0.0, 0.0, DblPt(2.0, 1.0), DblPt(1.0, 2.0))).box;
    EXPECT_EQ(box, AlignedDblRect(1.0, 1.0, 2.0, 2.0));
}

}  // namespace
