// SPDX-License-Identifier: MIT

// The winding kernels of every instruction set and `PolygonGeom::Contains` against a plain loop over the edges.
// Arrays end where the points end, so that a checked build sees what is read too far.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

#include "reference/polygon_containment.h"
#include "shapes/winding_kernels.h"
#include "support/random_numbers.h"
#include "vellum/polylines.h"

namespace {

using support::RandomNumbers;
using Vellum::DblPt;
using Vellum::PolygonGeom;
using Vellum::internal::BestInstructionSet;
using Vellum::internal::InstructionSet;
using Vellum::internal::IsOffered;
using Vellum::internal::kFewestWindingPoints;
using Vellum::internal::WindingKernel;
using Vellum::internal::WindingKernelFor;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kSpecial[] = {kNan, -kNan, kInfinity, -kInfinity, 0.0, -0.0};
constexpr double kExtreme[] = {5e-324, -5e-324, 2.3e-308, 1e-170, -1e-170, 1e170,
                               -1e170, 1.7e308, -1.7e308, 0.0,    -0.0,    1.0};

// Two blocks of 64 points and some more.
constexpr size_t kMostPoints = 140;

struct Tier {
    std::string name;
    InstructionSet needs;
    WindingKernel kernel;
    size_t fewestPoints;
};

std::ostream& operator<<(std::ostream& out, const Tier& tier) { return out << tier.name; }

std::vector<Tier> Tiers() {
    return {
        {"Plain", InstructionSet::Plain, Vellum::internal::WindingPlain, kFewestWindingPoints},
#if defined(__x86_64__)
            {"Sse2", InstructionSet::Sse2, Vellum::internal::WindingSse2, kFewestWindingPoints},
            {"Avx2", InstructionSet::Avx2, Vellum::internal::WindingAvx2, kFewestWindingPoints},
            {"Avx512", InstructionSet::Avx512, Vellum::internal::WindingAvx512, kFewestWindingPoints},
#endif
    };
}

std::vector<Tier> TiersOfEveryCount() {
    std::vector<Tier> tiers = Tiers();
    tiers.push_back({"FewPlain", InstructionSet::Plain, Vellum::internal::WindingOfFewPlain, 1});
#if defined(__x86_64__)
    tiers.push_back({"FewSse2", InstructionSet::Sse2, Vellum::internal::WindingOfFewSse2, 1});
#endif
    return tiers;
}

/// A ring that begins a number of doubles after the beginning of an allocation.
class Ring {
public:
    Ring(size_t count, size_t offset) : offset_(offset), numbers_(offset + 2 * count) {}

    size_t Count() const { return (numbers_.size() - offset_) / 2; }
    const DblPt* Data() const { return reinterpret_cast<const DblPt*>(numbers_.data() + offset_); }
    DblPt& operator[](size_t i) { return reinterpret_cast<DblPt*>(numbers_.data() + offset_)[i]; }

private:
    size_t offset_;
    std::vector<double> numbers_;
};

enum class Kind { Grid, Plane, Steps, Line, Extreme, Special, AllNan, Smooth };
constexpr Kind kAllKinds[] = {Kind::Grid,    Kind::Plane,   Kind::Steps,  Kind::Line,
                              Kind::Extreme, Kind::Special, Kind::AllNan, Kind::Smooth};

DblPt RandomPoint(Kind kind, RandomNumbers& random) {
    switch (kind) {
        case Kind::Plane:
            return {random.Within(-10.0, 10.0), random.Within(-10.0, 10.0)};
        case Kind::Steps:  // nearly every edge is horizontal or a single point
            return {static_cast<double>(random.Between(-20, 20)), random.OneIn(8) ? 1.0 : 0.0};
        case Kind::Line: {  // on one line, as well as rounding allows
            const double t = random.Within(-3.0, 3.0);
            return {t, 0.3 * t};
        }
        case Kind::Extreme:
            return {random.OneOf(kExtreme), random.OneOf(kExtreme)};
        case Kind::Special:
            return {random.OneIn(6) ? random.OneOf(kSpecial) : random.Between(-3, 3),
                    random.OneIn(6) ? random.OneOf(kSpecial) : random.Between(-3, 3)};
        case Kind::AllNan:
            return {kNan, -kNan};
        default:
            return {static_cast<double>(random.Between(-3, 3)), static_cast<double>(random.Between(-3, 3))};
    }
}

/// A round ring has two edges that cross the height of a point; one of random points has many.
Ring RandomRing(Kind kind, size_t count, RandomNumbers& random) {
    Ring ring(count, random.Below(2));
    for (size_t i = 0; i < count; ++i) {
        if (kind == Kind::Smooth) {
            const double angle = 6.3 * static_cast<double>(i) / static_cast<double>(count);
            ring[i] = DblPt(3.0 * std::cos(angle), 2.0 * std::sin(angle));
        } else {
            ring[i] = i > 0 && random.OneIn(10) ? ring[i - 1] : RandomPoint(kind, random);
        }
    }
    return ring;
}

/// A corner of the ring, the middle of an edge, level with a corner, or anywhere.
DblPt RandomQuery(Kind kind, Ring& ring, RandomNumbers& random) {
    const DblPt anywhere = RandomPoint(kind, random);
    if (ring.Count() == 0) return anywhere;
    const size_t i = random.Below(ring.Count());
    const DblPt& v = ring[i];
    const DblPt& w = ring[(i + 1) % ring.Count()];
    switch (random.Below(4)) {
        case 0:
            return v;
        case 1:
            return {0.5 * (v.x + w.x), 0.5 * (v.y + w.y)};
        case 2:
            return {anywhere.x, v.y};
        default:
            return anywhere;
    }
}

std::string Describe(Ring& ring, const DblPt& p) {
    std::string text = "about " + testing::PrintToString(p.x) + ", " + testing::PrintToString(p.y) + " of";
    for (size_t i = 0; i < ring.Count(); ++i)
        text += " (" + testing::PrintToString(ring[i].x) + ", " + testing::PrintToString(ring[i].y) + ")";
    return text;
}

class WindingKernels : public testing::TestWithParam<Tier> {
protected:
    void SetUp() override {
        if (!IsOffered(GetParam().needs)) GTEST_SKIP() << "this processor does not offer " << GetParam().name;
    }

    static int64_t Winding(const Ring& ring, double x, double y) {
        return GetParam().kernel(ring.Data(), ring.Count(), x, y);
    }
};

INSTANTIATE_TEST_SUITE_P(EveryInstructionSet, WindingKernels, testing::ValuesIn(TiersOfEveryCount()),
                         [](const auto& tier) { return tier.param.name; });

TEST_P(WindingKernels, CountLikeThePlainLoop) {
    RandomNumbers random(31);
    for (const Kind kind : kAllKinds) {
        for (size_t count = GetParam().fewestPoints; count <= kMostPoints; ++count) {
            for (int round = 0; round < 5; ++round) {
                Ring ring = RandomRing(kind, count, random);
                for (int query = 0; query < 10; ++query) {
                    const DblPt p = RandomQuery(kind, ring, random);
                    ASSERT_EQ(Winding(ring, p.x, p.y), reference::WindingNumber(ring.Data(), count, p.x, p.y))
                        << Describe(ring, p);
                }
            }
        }
    }
}

// A tooth whose rising side passes right of the point and whose falling side passes left of it, at every place in
// the ring. All other points lie below.
TEST_P(WindingKernels, CountAnEdgeWhereverItStands) {
    for (size_t count = std::max<size_t>(GetParam().fewestPoints, 3); count <= kMostPoints; ++count) {
        for (size_t tip = 0; tip < count; ++tip) {
            Ring ring(count, 0);
            for (size_t i = 0; i < count; ++i)
                ring[(tip + i) % count] = DblPt(2 * i < count ? -1.0 : 1.0, 0.0);
            ring[tip] = DblPt(1.0, 2.0);
            ASSERT_EQ(Winding(ring, 0.0, 0.5), 1) << "point " << tip << " of " << count;
            ASSERT_EQ(Winding(ring, -0.8, 0.5), 0) << "point " << tip << " of " << count;
            ASSERT_EQ(Winding(ring, 1.1, 0.5), 0) << "point " << tip << " of " << count;
            for (size_t i = 0; i < count; ++i)
                ring[i].x = -ring[i].x;
            ASSERT_EQ(Winding(ring, 0.0, 0.5), -1) << "point " << tip << " of " << count;
        }
    }
}

DblPt SquareCorner(size_t i) {
    const double corners[][2] = {{0.0, 0.0}, {4.0, 0.0}, {4.0, 4.0}, {0.0, 4.0}};
    return {corners[i % 4][0], corners[i % 4][1]};
}

TEST_P(WindingKernels, CountEveryTurn) {
    for (size_t turns = (GetParam().fewestPoints + 3) / 4; turns <= 35; ++turns) {
        Ring ring(4 * turns, 0);
        for (size_t i = 0; i < ring.Count(); ++i)
            ring[i] = SquareCorner(i);
        EXPECT_EQ(Winding(ring, 1.0, 2.0), static_cast<int64_t>(turns));
        EXPECT_EQ(Winding(ring, 5.0, 2.0), 0);
        EXPECT_EQ(Winding(ring, 4.0, 2.0), static_cast<int64_t>(turns));
        EXPECT_EQ(Winding(ring, 0.0, 2.0), 0);
        for (size_t i = 0; i < ring.Count(); ++i)
            ring[i] = SquareCorner(ring.Count() - 1 - i);
        EXPECT_EQ(Winding(ring, 1.0, 2.0), -static_cast<int64_t>(turns));
    }
}

TEST_P(WindingKernels, CountInALargeRing) {
    constexpr size_t kPoints = 10007;
    RandomNumbers random(32);
    Ring ring(kPoints, 1);
    for (size_t i = 0; i < kPoints; ++i) {
        const double angle = 6.283185307179586 * static_cast<double>(i) / static_cast<double>(kPoints);
        const double radius = random.Within(0.5, 1.0);
        ring[i] = DblPt(radius * std::cos(angle), radius * std::sin(angle));
    }
    for (int query = 0; query < 100; ++query) {
        const DblPt p(random.Within(-1.1, 1.1), random.Within(-1.1, 1.1));
        ASSERT_EQ(Winding(ring, p.x, p.y), reference::WindingNumber(ring.Data(), kPoints, p.x, p.y));
    }
}

TEST(WindingKernelFor, HasTheBestOfEveryMachine) {
    const WindingKernel best = WindingKernelFor(BestInstructionSet());
    ASSERT_NE(best, nullptr);
    RandomNumbers random(33);
    Ring ring = RandomRing(Kind::Plane, 100, random);
    EXPECT_EQ(Vellum::internal::WindingOfRing(ring.Data(), 100, 0.5, 0.25), best(ring.Data(), 100, 0.5, 0.25));
}

TEST(WindingKernelFor, GivesEachSetItsOwn) {
    for (const Tier& tier : Tiers()) {
#if defined(__x86_64__)
        const bool isBuiltIn = tier.needs != InstructionSet::Plain;
#else
        const bool isBuiltIn = true;
#endif
        EXPECT_EQ(WindingKernelFor(tier.needs), isBuiltIn ? tier.kernel : nullptr) << tier.name;
    }
}

// Through the shape, below and above the number of points from which a kernel is called.
TEST(PolygonContainment, IsThatOfThePlainLoop) {
    RandomNumbers random(34);
    size_t inside = 0;
    for (const Kind kind : kAllKinds) {
        for (size_t count = 0; count <= kMostPoints; ++count) {
            Ring ring = RandomRing(kind, count, random);
            PolygonGeom polygon;
            for (size_t i = 0; i < count; ++i)
                ASSERT_TRUE(polygon.AddPoint(ring[i]));
            for (int query = 0; query < 12; ++query) {
                const DblPt p = RandomQuery(kind, ring, random);
                const bool expected = reference::RingContains(ring.Data(), count, p.x, p.y);
                ASSERT_EQ(polygon.Contains(p, 0.0), expected) << Describe(ring, p);
                ASSERT_EQ(polygon.Contains(p.x, p.y, 0.0), expected) << Describe(ring, p);
                inside += expected ? 1 : 0;
            }
        }
    }
    EXPECT_GT(inside, 1000U);
}

}  // namespace
