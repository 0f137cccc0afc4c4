// SPDX-License-Identifier: MIT
#include "shapes/conic_distance.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <limits>
#include <numbers>
#include <vector>

#include "shapes/conics.h"
#include "support/random_numbers.h"
#include "vellum/ellipses.h"

namespace {

using support::RandomNumbers;
using Vellum::DblPt;
using Vellum::internal::DistToConicArc;
using Vellum::internal::FindFootPoints;
using Vellum::internal::FootPoints;
using Vellum::internal::Length;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr long double kPi = std::numbers::pi_v<long double>;
constexpr double kTwoPi = static_cast<double>(2.0L * kPi);

// What the distances may be off by in these tests, in units of the longer semi-axis or of the distance. That is far
// below what is promised, so that a loss of digits shows.
constexpr double kTolerance = 2e-15;

// Ratios of the axes, down to where the shorter one is nothing beside the longer.
constexpr double kRatios[] = {1.0,  1.0 - 1e-15, 1.0 - 1e-8, 0.999, 0.9,   0.5,   0.1,    0.01,
                              1e-3, 1e-5,        1e-8,       1e-12, 1e-16, 1e-50, 1e-150, 1e-300};

// The points center + (a cos t, b sin t), turned, in long double. The distance is searched for along the parameter.
class SearchedEllipse {
public:
    SearchedEllipse(long double semiAxisX, long double semiAxisY) : a(semiAxisX), b(semiAxisY) {}

    // The ellipse of a conic, whose turn is not to be large beside its ratio: the plain formulas cancel.
    explicit SearchedEllipse(const con_arc_str& k) {
        const long double turn = k.B == 0.0 ? 0.0L : std::atan2(Wide{k.B}, Wide{k.A} - k.C) / 2.0L;
        cosine = std::cos(turn);
        sine = std::sin(turn);
        const long double p = k.A * cosine * cosine + k.B * sine * cosine + k.C * sine * sine;
        const long double q = k.A * sine * sine - k.B * sine * cosine + k.C * cosine * cosine;
        const long double d = k.D * cosine + k.E * sine;
        const long double e = k.E * cosine - k.D * sine;
        centerX = -d / (2.0L * p);
        centerY = -e / (2.0L * q);
        const long double f = k.F - p * centerX * centerX - q * centerY * centerY;
        a = std::sqrt(-f / p);
        b = std::sqrt(-f / q);
    }

    DblPt PointAt(long double t) const {
        const long double x = centerX + a * std::cos(t);
        const long double y = centerY + b * std::sin(t);
        return DblPt(static_cast<double>(x * cosine - y * sine), static_cast<double>(x * sine + y * cosine));
    }

    long double ParameterOf(const real_pt_t& p) const {
        return std::atan2((p.y * cosine - p.x * sine - centerY) / b, (p.x * cosine + p.y * sine - centerX) / a);
    }

    // The least distance from p to the arc from one parameter by a sweep.
    long double DistTo(const DblPt& p, long double from, long double sweep) const {
        const long double x = p.x * cosine + p.y * sine - centerX;
        const long double y = p.y * cosine - p.x * sine - centerY;
        const auto distAt = [=, this](long double t) { return std::hypot(x - a * std::cos(t), y - b * std::sin(t)); };
        const std::vector<long double> samples = Samples(from, sweep);
        std::vector<long double> dists;
        for (const long double t : samples)
            dists.push_back(distAt(t));
        long double least = std::min(dists.front(), dists.back());
        for (size_t i = 0; i < samples.size(); ++i) {
            const size_t before = i == 0 ? 0 : i - 1;
            const size_t after = std::min(i + 1, samples.size() - 1);
            if (dists[i] <= dists[before] && dists[i] <= dists[after])
                least = std::min({least, dists[i], LeastBetween(distAt, samples[before], samples[after])});
        }
        return least;
    }

    long double Longer() const { return std::max(a, b); }

private:
    using Wide = long double;

    // Evenly spread, and close together next to the ends of the axes, where two minima may be neighbours.
    static std::vector<long double> Samples(long double from, long double sweep) {
        std::vector<long double> samples = {from, from + sweep};
        const auto add = [&](long double t) {
            for (int turns = -2; turns <= 2; ++turns) {
                const long double turned = t + 2.0L * kPi * turns;
                if (turned > from && turned < from + sweep) samples.push_back(turned);
            }
        };
        constexpr int kEven = 180;
        for (int i = 0; i < kEven; ++i)
            add(2.0L * kPi * i / kEven);
        for (int quarter = 0; quarter < 4; ++quarter) {
            long double off = 1e-11L;
            while (off < 0.05L) {
                add(quarter * kPi / 2.0L + off);
                add(quarter * kPi / 2.0L - off);
                off *= 1.6L;
            }
        }
        std::sort(samples.begin(), samples.end());
        return samples;
    }

    // A golden section search.
    template <class Function>
    static long double LeastBetween(const Function& f, long double low, long double high) {
        const long double shrink = std::numbers::phi_v<long double> - 1.0L;
        long double c = high - shrink * (high - low);
        long double d = low + shrink * (high - low);
        long double atC = f(c);
        long double atD = f(d);
        long double least = std::min(atC, atD);
        constexpr int kSteps = 75;
        for (int i = 0; i < kSteps; ++i) {
            if (atC < atD) {
                high = d;
                d = c;
                atD = atC;
                c = high - shrink * (high - low);
                atC = f(c);
            } else {
                low = c;
                c = d;
                atC = atD;
                d = low + shrink * (high - low);
                atD = f(d);
            }
            least = std::min({least, atC, atD});
        }
        return least;
    }

    long double cosine = 1.0L;
    long double sine = 0.0L;
    long double centerX = 0.0L;
    long double centerY = 0.0L;
    long double a = 0.0L;
    long double b = 0.0L;
};

double DistToFoot(const DblPt& p, double a, double b, const DblPt& foot) {
    EXPECT_NEAR(foot.x * foot.x + foot.y * foot.y, 1.0, 1e-15);
    return Length(p.x - a * foot.x, p.y - b * foot.y);
}

// A number from 1 down to 1e-20, all powers of ten equally likely.
double AnyPower(RandomNumbers& random) { return std::pow(10.0, random.Within(-20.0, 0.0)); }

double Signed(RandomNumbers& random, double v) { return random.OneIn(2) ? v : -v; }

// A point where a nearest point is hard to find, for the semi-axes 1 and ratio.
DblPt DelicatePoint(RandomNumbers& random, double ratio) {
    const double flatness = (1.0 - ratio) * (1.0 + ratio);
    const double t = random.Within(0.0, kTwoPi);
    const double c = std::cos(t);
    const double s = std::sin(t);
    switch (random.Below(8)) {
        case 0: {
            const double x = random.Within(-1.5, 1.5);
            return DblPt(x, random.Within(-1.5, 1.5));
        }
        case 1:  // on the axes
            return DblPt(random.Within(-1.5, 1.5), 0.0);
        case 2:
            return DblPt(0.0, random.Within(-1.5, 1.5));
        case 3:  // on the ellipse
            return DblPt(c, ratio * s);
        case 4: {  // on the evolute, where it is not too far up
            const double y = -flatness * s * s * s / ratio;
            return DblPt(flatness * c * c * c, std::fabs(y) < 1e3 ? y : Signed(random, AnyPower(random)));
        }
        case 5: {  // beside the centre
            const double x = Signed(random, AnyPower(random));
            return DblPt(x, Signed(random, AnyPower(random)));
        }
        case 6: {  // beside the evolute's cusp
            const double x = Signed(random, flatness + Signed(random, AnyPower(random)));
            return DblPt(x, Signed(random, AnyPower(random)));
        }
        default: {  // outside, near and far
            const double far = std::pow(10.0, random.Within(0.0, 17.0));
            return DblPt(far * c, far * s);
        }
    }
}

TEST(FootPoints, TheNearestIsThatOfASearch) {
    RandomNumbers random(1);
    for (int i = 0; i < 480; ++i) {
        const double ratio = i % 3 == 0 ? random.Within(0.0, 1.0) : kRatios[static_cast<size_t>(i) % 16];
        const bool isUpright = random.OneIn(2);
        const DblPt lying = DelicatePoint(random, ratio);
        const DblPt p = isUpright ? DblPt(lying.y, lying.x) : lying;
        const double a = isUpright ? ratio : 1.0;
        const double b = isUpright ? 1.0 : ratio;
        const FootPoints feet = FindFootPoints(a, b, p);
        const long double expected = SearchedEllipse(a, b).DistTo(p, 0.0L, 2.0L * kPi);
        EXPECT_NEAR(DistToFoot(p, a, b, feet.nearest), static_cast<double>(expected),
                    kTolerance * static_cast<double>(1.0L + expected))
            << "a " << a << " b " << b << " p " << p.x << ", " << p.y;
    }
}

// Whether an arc that starts at one parameter holds another one.
bool Holds(long double from, long double sweep, const DblPt& parameter) {
    long double turn = std::atan2(static_cast<long double>(parameter.y), static_cast<long double>(parameter.x)) - from;
    while (turn < 0.0L)
        turn += 2.0L * kPi;
    return std::fmod(turn, 2.0L * kPi) <= sweep;
}

TEST(FootPoints, WithTheEndsTheyAreAllThatCountsForAnArc) {
    RandomNumbers random(2);
    int oppositeDecides = 0;
    for (int i = 0; i < 480; ++i) {
        const double ratio = i % 3 == 0 ? random.Within(0.0, 1.0) : kRatios[static_cast<size_t>(i) % 16];
        const DblPt p = DelicatePoint(random, ratio);
        const SearchedEllipse ellipse(1.0L, ratio);
        const long double from = random.Within(0.0, kTwoPi);
        const long double sweep = random.Within(0.0, 6.28);
        const auto distAt = [&](long double t) {
            return static_cast<double>(std::hypot(p.x - std::cos(t), p.y - ratio * std::sin(t)));
        };
        const FootPoints feet = FindFootPoints(1.0, ratio, p);
        double dist = std::min(distAt(from), distAt(from + sweep));
        if (Holds(from, sweep, feet.nearest)) dist = std::min(dist, DistToFoot(p, 1.0, ratio, feet.nearest));
        if (feet.hasOpposite && Holds(from, sweep, feet.opposite)) {
            const double toOpposite = DistToFoot(p, 1.0, ratio, feet.opposite);
            oppositeDecides += toOpposite < dist - 1e-9;
            dist = std::min(dist, toOpposite);
        }
        const long double expected = ellipse.DistTo(p, from, sweep);
        EXPECT_NEAR(dist, static_cast<double>(expected), kTolerance * static_cast<double>(1.0L + expected))
            << "ratio " << ratio << " p " << p.x << ", " << p.y << " from " << from << " by " << sweep;
    }
    EXPECT_GT(oppositeDecides, 30);
}

TEST(FootPoints, AreFoundForEveryMagnitude) {
    const double values[] = {0.0, 0x1p-1074, 1e-310, 1e-300, 1e-290, 1e-200, 1e-20, 1e-8, 0.1, 1.0, 1e3, 1e15, 0x1p60};
    for (const double ratio : kRatios) {
        for (const double x : values) {
            for (const double y : values) {
                for (const double sign : {1.0, -1.0}) {
                    const DblPt p(sign * x, -sign * y);
                    const FootPoints feet = FindFootPoints(1.0, ratio, p);
                    const double nearest = DistToFoot(p, 1.0, ratio, feet.nearest);
                    EXPECT_GE(feet.nearest.x * p.x, 0.0);
                    EXPECT_GE(feet.nearest.y * p.y, 0.0);
                    // No further than the ends of the axes and the point straight above.
                    const double straight = std::fabs(std::fabs(y) - ratio * std::sqrt(std::max(0.0, 1.0 - x * x)));
                    const double above = x <= 1.0 ? straight : kInf;
                    const double least =
                        std::min({Length(x - 1.0, y), Length(x, y - ratio), Length(x + 1.0, y), above});
                    EXPECT_LE(nearest, least + kTolerance * (1.0 + least)) << ratio << " " << x << " " << y;
                    if (!feet.hasOpposite) continue;
                    EXPECT_LE(feet.opposite.y * p.y, 0.0);
                    EXPECT_GE(DistToFoot(p, 1.0, ratio, feet.opposite), nearest - kTolerance);
                }
            }
        }
    }
}

TEST(FootPoints, TheOppositeOneIsThereInsideTheEvolute) {
    // For semi-axes 5 and 3 the evolute's cusps are at (16 / 5, 0) and (0, 16 / 3).
    EXPECT_TRUE(FindFootPoints(5.0, 3.0, DblPt(0.0, 0.0)).hasOpposite);
    EXPECT_TRUE(FindFootPoints(5.0, 3.0, DblPt(3.19, 0.0)).hasOpposite);
    EXPECT_FALSE(FindFootPoints(5.0, 3.0, DblPt(3.21, 0.0)).hasOpposite);
    EXPECT_TRUE(FindFootPoints(5.0, 3.0, DblPt(0.0, -5.33)).hasOpposite);
    EXPECT_FALSE(FindFootPoints(5.0, 3.0, DblPt(0.0, -5.34)).hasOpposite);
    // At 45 degrees: x = (16 / 5) sqrt(1 / 8), y = (16 / 3) sqrt(1 / 8).
    const double eighth = std::sqrt(0.125);
    EXPECT_TRUE(FindFootPoints(5.0, 3.0, DblPt(3.199 * eighth, 5.33 * eighth)).hasOpposite);
    EXPECT_FALSE(FindFootPoints(5.0, 3.0, DblPt(3.201 * eighth, 5.34 * eighth)).hasOpposite);
    EXPECT_FALSE(FindFootPoints(1.0, 1.0, DblPt(0.1, 0.2)).hasOpposite);
}

con_arc_str MakeConic(double a, double b, double c, double f) {
    con_arc_str conic = {};
    conic.A = a;
    conic.B = b;
    conic.C = c;
    conic.F = f;
    conic.closed = 1;
    return conic;
}

con_arc_str ArcOf(con_arc_str conic, const DblPt& start, const DblPt& end) {
    conic.start = {start.x, start.y};
    conic.end = {end.x, end.y};
    conic.closed = 0;
    return conic;
}

double Dist(const DblPt& p, con_arc_str arc) {
    DblPt measured = p;
    const double dist = Vellum::EllipseGeom().utl_point_conarc(measured, &arc);
    const double again = DistToConicArc(p, arc);
    EXPECT_TRUE(dist == again || (std::isnan(dist) && std::isnan(again)));
    return dist;
}

// x^2 / 25 + y^2 / 9 = 1.
const con_arc_str kFiveThree = MakeConic(9.0, 0.0, 25.0, -225.0);

TEST(ConicDistance, FromTheAxes) {
    EXPECT_EQ(Dist(DblPt(7.0, 0.0), kFiveThree), 2.0);
    EXPECT_EQ(Dist(DblPt(-7.0, 0.0), kFiveThree), 2.0);
    EXPECT_EQ(Dist(DblPt(0.0, 7.0), kFiveThree), 4.0);
    EXPECT_EQ(Dist(DblPt(0.0, -7.0), kFiveThree), 4.0);
    EXPECT_EQ(Dist(DblPt(0.0, 1.0), kFiveThree), 2.0);
    EXPECT_EQ(Dist(DblPt(4.5, 0.0), kFiveThree), 0.5);
    // Nearer to the centre than the evolute's cusp at 3.2 the foot is off the axis: 9 (1 - x^2 / 16) is the square.
    EXPECT_NEAR(Dist(DblPt(1.0, 0.0), kFiveThree), std::sqrt(8.4375), 1e-15);
    EXPECT_NEAR(Dist(DblPt(-1.0, 0.0), kFiveThree), std::sqrt(8.4375), 1e-15);
    EXPECT_NEAR(Dist(DblPt(3.2, 0.0), kFiveThree), 1.8, 1e-15);
}

TEST(ConicDistance, FromTheCentreIsTheShorterSemiAxis) {
    EXPECT_EQ(Dist(DblPt(0.0, 0.0), kFiveThree), 3.0);
    EXPECT_EQ(Dist(DblPt(-0.0, -0.0), kFiveThree), 3.0);
    EXPECT_EQ(Dist(DblPt(0.0, 0.0), MakeConic(25.0, 0.0, 9.0, -225.0)), 3.0);
    EXPECT_EQ(Dist(DblPt(0.0, 0.0), MakeConic(1.0, 0.0, 1.0, -4.0)), 2.0);
}

TEST(ConicDistance, FromACircle) {
    const con_arc_str circle = MakeConic(1.0, 0.0, 1.0, -4.0);
    EXPECT_NEAR(Dist(DblPt(3.0, 4.0), circle), 3.0, 1e-15);
    EXPECT_NEAR(Dist(DblPt(-0.6, 0.8), circle), 1.0, 1e-15);
    EXPECT_EQ(Dist(DblPt(0.0, 2.0), circle), 0.0);
}

TEST(ConicDistance, TheConicMayHaveACentreOfItsOwn) {
    // (x - 3)^2 + 4 (y + 5)^2 = 16.
    con_arc_str conic = MakeConic(1.0, 0.0, 4.0, 93.0);
    conic.D = -6.0;
    conic.E = 40.0;
    EXPECT_EQ(Dist(DblPt(3.0, -5.0), conic), 2.0);
    EXPECT_EQ(Dist(DblPt(17.0, -5.0), conic), 10.0);
    EXPECT_EQ(Dist(DblPt(3.0, 5.0), conic), 8.0);
}

TEST(ConicDistance, TheEndsOfAClosedConicDoNotCount) {
    con_arc_str conic = kFiveThree;
    conic.start = {7.0, 0.0};
    conic.end = {7.0, 0.0};
    EXPECT_EQ(Dist(DblPt(7.0, 0.0), conic), 2.0);
}

TEST(ConicDistance, OfAnArcIsThatToTheNearestOfItsPoints) {
    const DblPt right(5.0, 0.0);
    const DblPt left(-5.0, 0.0);
    const DblPt top(0.0, 3.0);
    const DblPt bottom(0.0, -3.0);
    // The foot on the arc.
    EXPECT_EQ(Dist(DblPt(0.0, 7.0), ArcOf(kFiveThree, right, left)), 4.0);
    // Off it, the nearer end.
    EXPECT_EQ(Dist(DblPt(0.0, 12.0), ArcOf(kFiveThree, left, right)), 13.0);
    EXPECT_EQ(Dist(DblPt(4.0, 3.0), ArcOf(kFiveThree, top, bottom)), 4.0);
    EXPECT_EQ(Dist(DblPt(-4.0, -3.0), ArcOf(kFiveThree, bottom, top)), 4.0);
    // The nearest foot off the arc and the one opposite on it: the bottom, not the ends at sqrt(26).
    EXPECT_EQ(Dist(DblPt(0.0, 1.0), ArcOf(kFiveThree, left, right)), 4.0);
    EXPECT_EQ(Dist(DblPt(0.0, 1.0), ArcOf(kFiveThree, right, left)), 2.0);
    // Two feet at one distance, of which either may be on the arc.
    EXPECT_NEAR(Dist(DblPt(1.0, 0.0), ArcOf(kFiveThree, left, right)), std::sqrt(8.4375), 1e-15);
    EXPECT_NEAR(Dist(DblPt(1.0, 0.0), ArcOf(kFiveThree, right, left)), std::sqrt(8.4375), 1e-15);
    EXPECT_EQ(Dist(DblPt(0.0, 0.0), ArcOf(kFiveThree, left, right)), 3.0);
    EXPECT_EQ(Dist(DblPt(0.0, 0.0), ArcOf(kFiveThree, right, left)), 3.0);
    // Neither: the left quarters only, seen from (1, 0).
    EXPECT_NEAR(Dist(DblPt(1.0, 0.0), ArcOf(kFiveThree, top, bottom)), std::sqrt(10.0), 1e-15);
}

TEST(ConicDistance, AnArcBetweenEqualEndsIsAPoint) {
    for (const DblPt& end : {DblPt(5.0, 0.0), DblPt(3.0, 2.4), DblPt(-3.0, 2.4), DblPt(0.0, -3.0)}) {
        const con_arc_str arc = ArcOf(kFiveThree, end, end);
        for (const DblPt& p : {DblPt(7.0, 0.0), DblPt(-7.0, 1.0), DblPt(0.5, 0.25), DblPt(-1.0, -9.0)})
            EXPECT_EQ(Dist(p, arc), Length(p.x - end.x, p.y - end.y));
    }
}

TEST(ConicDistance, EndsARoundingApartAreInTheOrderGiven) {
    const DblPt first(3.0, 2.4);
    const DblPt second(std::nextafter(3.0, 0.0), 2.4);
    EXPECT_NEAR(Dist(DblPt(0.0, -7.0), ArcOf(kFiveThree, first, second)), Length(3.0, 9.4), 1e-14);
    EXPECT_EQ(Dist(DblPt(0.0, -7.0), ArcOf(kFiveThree, second, first)), 4.0);
}

TEST(ConicDistance, FarAwayItIsTheDistanceFromTheCentre) {
    EXPECT_EQ(Dist(DblPt(3.0 * 0x1p700, -4.0 * 0x1p700), kFiveThree), 5.0 * 0x1p700);
    EXPECT_EQ(Dist(DblPt(1e300, 0.0), kFiveThree), 1e300);
    EXPECT_EQ(Dist(DblPt(0.0, -1e300), kFiveThree), 1e300);
    const con_arc_str arc = ArcOf(kFiveThree, DblPt(5.0, 0.0), DblPt(0.0, 3.0));
    EXPECT_EQ(Dist(DblPt(3.0 * 0x1p700, -4.0 * 0x1p700), arc), 5.0 * 0x1p700);
    // Where the ellipse still tells, and where it begins not to.
    for (const double far : {1e3, 1e8, 1e15, 1e17, 1e18, 1.2e18, 1e19}) {
        EXPECT_NEAR(Dist(DblPt(5.0 * far, 0.0), kFiveThree), 5.0 * far - 5.0, 5.0 * far * 2e-16);
        EXPECT_NEAR(Dist(DblPt(0.0, 3.0 * far), kFiveThree), 3.0 * far - 3.0, 3.0 * far * 2e-16);
    }
}

TEST(ConicDistance, AtEveryScale) {
    const double exponents[] = {-180.0, -150.0, -20.0, 0.0, 20.0, 150.0, 180.0};
    for (const double exponent : exponents) {
        // Coefficients and constant share the scale, since its square may leave the range of numbers.
        const double scale = std::pow(10.0, exponent);
        const double up = std::pow(10.0, std::trunc(exponent * 0.8));
        const double down = up / scale / scale;
        const con_arc_str conic = MakeConic(9.0 * down, 0.0, 25.0 * down, -225.0 * up);
        EXPECT_NEAR(Dist(DblPt(7.0 * scale, 0.0), conic) / scale, 2.0, 1e-14) << exponent;
        EXPECT_NEAR(Dist(DblPt(0.0, -7.0 * scale), conic) / scale, 4.0, 1e-14) << exponent;
        EXPECT_NEAR(Dist(DblPt(1.0 * scale, 0.0), conic) / scale, std::sqrt(8.4375), 1e-14) << exponent;
        EXPECT_NEAR(Dist(DblPt(0.0, scale), ArcOf(conic, DblPt(-5.0 * scale, 0.0), DblPt(5.0 * scale, 0.0))) / scale,
                    4.0, 1e-14)
            << exponent;
        // Turned: semi-axes 2 sqrt(2) along the diagonal and sqrt(2) across.
        const con_arc_str turned = MakeConic(5.0 * down, -6.0 * down, 5.0 * down, -16.0 * up);
        EXPECT_NEAR(Dist(DblPt(4.0 * scale, 4.0 * scale), turned) / scale, 2.0 * std::sqrt(2.0), 1e-14) << exponent;
        EXPECT_NEAR(Dist(DblPt(2.0 * scale, -2.0 * scale), turned) / scale, std::sqrt(2.0), 1e-14) << exponent;
        // The same around (1, -1).
        con_arc_str moved = MakeConic(5.0 * down, -6.0 * down, 5.0 * down, 0.0);
        moved.D = -16.0 * up / scale;
        moved.E = 16.0 * up / scale;
        EXPECT_NEAR(Dist(DblPt(5.0 * scale, 3.0 * scale), moved) / scale, 2.0 * std::sqrt(2.0), 1e-14) << exponent;
    }
}

TEST(ConicDistance, OfEllipsesAllButFlat) {
    for (const double ratio : {1e-3, 1e-10, 1e-50, 1e-150}) {
        const con_arc_str conic = MakeConic(1.0, 0.0, 1.0 / ratio / ratio, -1.0);
        EXPECT_NEAR(Dist(DblPt(0.0, 1.0), conic), 1.0 - ratio, 1e-15);
        EXPECT_NEAR(Dist(DblPt(0.6, -1.0), conic), 1.0 - 0.8 * ratio, ratio * ratio + 1e-15);
        EXPECT_NEAR(Dist(DblPt(4.0, 4.0), conic), 5.0, 4.0 * ratio * ratio + 1e-15);
        EXPECT_NEAR(Dist(DblPt(0.0, 0.0), conic), ratio, 1e-15 * ratio);
        const con_arc_str right = ArcOf(conic, DblPt(0.0, -ratio), DblPt(0.0, ratio));
        EXPECT_NEAR(Dist(DblPt(-3.0, 4.0), right), 5.0, ratio);
        EXPECT_NEAR(Dist(DblPt(0.6, 1.0), right), 1.0, ratio);
    }
}

TEST(ConicDistance, OfAFlatTurnedEllipseKeepsItsDigits) {
    // 5001 x^2 - 9998 xy + 5001 y^2 = 2: the roots of the quadratic form are 2 and 10000, exactly.
    const con_arc_str conic = MakeConic(5001.0, -9998.0, 5001.0, -2.0);
    const double across = std::sqrt(2e-4);
    EXPECT_NEAR(Dist(DblPt(0.0, 0.0), conic), across, 1e-17);
    EXPECT_NEAR(Dist(DblPt(3.0, 3.0), conic), std::sqrt(18.0) - 1.0, 1e-15);
    // With roots 2 and 2^53 a semi-axis computed as the difference of trace and root would be off by far.
    const double half = 0x1p52;
    const con_arc_str flat = MakeConic(half + 1.0, -2.0 * (half - 1.0), half + 1.0, -2.0);
    EXPECT_NEAR(Dist(DblPt(3.0, 3.0), flat), std::sqrt(18.0) - 1.0, 1e-15);
}

TEST(ConicDistance, WithoutARealEllipseItIsThatToTheNearerEnd) {
    const con_arc_str conics[] = {MakeConic(0.0, 0.0, 0.0, 0.0),  MakeConic(1.0, 0.0, 1.0, 1.0),
                                  MakeConic(1.0, 0.0, 1.0, 0.0),  MakeConic(1.0, 0.0, -1.0, -1.0),
                                  MakeConic(1.0, 2.0, 1.0, -1.0), MakeConic(1.0, 3.0, 1.0, -1.0),
                                  MakeConic(1.0, 0.0, 0.0, -1.0), MakeConic(kNaN, 0.0, 1.0, -1.0),
                                  MakeConic(1.0, kNaN, 1.0, 1.0), MakeConic(1.0, kInf, 1.0, -1.0)};
    for (con_arc_str conic : conics) {
        conic.start = {4.0, 6.0};
        conic.end = {-2.0, -2.0};
        for (const int32_t closed : {0, 1}) {
            conic.closed = closed;
            EXPECT_EQ(Dist(DblPt(1.0, 2.0), conic), 5.0);
            EXPECT_EQ(Dist(DblPt(4.0, 16.0), conic), 10.0);
            EXPECT_EQ(Dist(DblPt(-2.0, -12.0), conic), 10.0);
        }
    }
}

TEST(ConicDistance, WhatIsNoNumberHasNone) {
    const con_arc_str arc = ArcOf(kFiveThree, DblPt(5.0, 0.0), DblPt(0.0, 3.0));
    for (const con_arc_str& conic : {kFiveThree, arc, MakeConic(0.0, 0.0, 0.0, 0.0)}) {
        EXPECT_TRUE(std::isnan(Dist(DblPt(kNaN, 0.0), conic)));
        EXPECT_TRUE(std::isnan(Dist(DblPt(1.0, kNaN), conic)));
        EXPECT_TRUE(std::isnan(Dist(DblPt(kNaN, kNaN), conic)));
        EXPECT_EQ(Dist(DblPt(kInf, 0.0), conic), kInf);
        EXPECT_EQ(Dist(DblPt(1.0, -kInf), conic), kInf);
    }
}

// The conic of semi-axes a and b around a centre, turned, and times a factor.
con_arc_str TurnedConic(double a, double b, double turn, const DblPt& center, double factor) {
    const double c = std::cos(turn);
    const double s = std::sin(turn);
    const double p = factor / (a * a);
    const double q = factor / (b * b);
    con_arc_str k = MakeConic(p * c * c + q * s * s, 2.0 * (p - q) * s * c, p * s * s + q * c * c, 0.0);
    k.D = -2.0 * k.A * center.x - k.B * center.y;
    k.E = -2.0 * k.C * center.y - k.B * center.x;
    k.F = k.A * center.x * center.x + k.B * center.x * center.y + k.C * center.y * center.y - factor;
    return k;
}

TEST(ConicDistance, OfTurnedConicsIsThatOfASearch) {
    RandomNumbers random(3);
    for (int i = 0; i < 240; ++i) {
        const double ratio = std::pow(10.0, random.Within(-2.0, 0.0));
        const double size = std::pow(10.0, random.Within(-6.0, 6.0));
        const double turn = random.Within(-4.0, 4.0);
        const bool isCentred = random.OneIn(2);
        const DblPt center(isCentred ? 0.0 : size * random.Within(-3.0, 3.0),
                           isCentred ? 0.0 : size * random.Within(-3.0, 3.0));
        const con_arc_str conic = TurnedConic(size, size * ratio, turn, center, Signed(random, AnyPower(random)));
        const SearchedEllipse searched(conic);

        const DblPt delicate = DelicatePoint(random, ratio);
        const DblPt p(center.x + size * (delicate.x * std::cos(turn) - delicate.y * std::sin(turn)),
                      center.y + size * (delicate.x * std::sin(turn) + delicate.y * std::cos(turn)));
        // A centre of its own is lost in the coefficients by as much as their rounding.
        const double lost = isCentred ? 1.0 : 1.0 / ratio / ratio;
        const auto check = [&](const con_arc_str& arc, long double expected) {
            const double off = lost * kTolerance * (size + static_cast<double>(expected));
            EXPECT_NEAR(Dist(p, arc), static_cast<double>(expected), off)
                << "size " << size << " ratio " << ratio << " turned " << turn << " p " << delicate.x << ", "
                << delicate.y;
        };
        check(conic, searched.DistTo(p, 0.0L, 2.0L * kPi));

        const long double from = random.Within(0.0, kTwoPi);
        const con_arc_str arc = ArcOf(conic, searched.PointAt(from), searched.PointAt(from + random.Within(0.05, 6.2)));
        // From the ends as the record holds them.
        const long double start = searched.ParameterOf(arc.start);
        long double sweep = searched.ParameterOf(arc.end) - start;
        if (sweep < 0.0L) sweep += 2.0L * kPi;
        check(arc, searched.DistTo(p, start, sweep));
    }
}

TEST(ConicDistance, OfUprightConicsOfEveryRatioIsThatOfASearch) {
    RandomNumbers random(4);
    for (int i = 0; i < 240; ++i) {
        const double ratio = std::max(kRatios[random.Below(16)], 1e-150);
        const bool isUpright = random.OneIn(2);
        const double square = 1.0 / ratio / ratio;
        const con_arc_str conic = MakeConic(isUpright ? square : 1.0, 0.0, isUpright ? 1.0 : square, -1.0);
        const SearchedEllipse searched(conic);
        const DblPt lying = DelicatePoint(random, ratio);
        const DblPt p = isUpright ? DblPt(lying.y, lying.x) : lying;
        const long double from = random.Within(0.0, kTwoPi);
        const con_arc_str arc = ArcOf(conic, searched.PointAt(from), searched.PointAt(from + random.Within(0.05, 6.2)));
        const long double start = searched.ParameterOf(arc.start);
        long double sweep = searched.ParameterOf(arc.end) - start;
        if (sweep < 0.0L) sweep += 2.0L * kPi;
        const long double whole = searched.DistTo(p, 0.0L, 2.0L * kPi);
        const long double part = searched.DistTo(p, start, sweep);
        EXPECT_NEAR(Dist(p, conic), static_cast<double>(whole), kTolerance * static_cast<double>(1.0L + whole))
            << ratio << " " << lying.x << " " << lying.y;
        EXPECT_NEAR(Dist(p, arc), static_cast<double>(part), kTolerance * static_cast<double>(1.0L + part))
            << ratio << " " << lying.x << " " << lying.y << " from " << from;
    }
}

}  // namespace
