// SPDX-License-Identifier: MIT

// The search for the nearest pair, with the kernels of every instruction set, against the two plain passes: the same
// pair to the last bit, with chains of every length around the sizes of leaves, blocks and groups, and with all numbers
// that a coordinate may be. Chains end where an allocation ends, so that a checked build sees what is read too far.

#include "shapes/clearance_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numbers>
#include <string>
#include <vector>

#include "reference/clearance.h"
#include "shapes/clearance_kernels.h"
#include "shapes/clearance_search.h"
#include "support/malloc_guard.h"
#include "support/random_numbers.h"
#include "vellum/clearance.h"
#include "vellum/geometry.h"

namespace {

using support::MallocGuard;
using support::RandomNumbers;
using Vellum::DblPt;
using Vellum::DblPtVec;
using Vellum::PolylineGeom;
using Vellum::internal::ActiveClearanceKernels;
using Vellum::internal::BestInstructionSet;
using Vellum::internal::Box;
using Vellum::internal::BoxGroup;
using Vellum::internal::BoxOfAnyPoints;
using Vellum::internal::ChainIndex;
using Vellum::internal::ChainNode;
using Vellum::internal::ClearanceKernels;
using Vellum::internal::ClearanceKernelsFor;
using Vellum::internal::FindNearestPair;
using Vellum::internal::FindWitnesses;
using Vellum::internal::InstructionSet;
using Vellum::internal::IsOffered;
using Vellum::internal::kGroupBoxes;
using Vellum::internal::kLeafEdges;
using Vellum::internal::kLeafPoints;
using Vellum::internal::Leaf;
using Vellum::internal::NearestPair;
using Vellum::internal::SearchEffort;
using Vellum::internal::Witnesses;

using Chain = std::vector<DblPt>;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kPi = std::numbers::pi;
constexpr double kSpecial[] = {kNan,    kInfinity, -kInfinity, 0.0,     -0.0,  5e-324,
                               -1e-310, 1.7e308,   -1.7e308,   1.2e154, 3e-160};

struct Tier {
    std::string name;
    InstructionSet needs;
    const ClearanceKernels* kernels;
};

std::ostream& operator<<(std::ostream& out, const Tier& tier) { return out << tier.name; }

std::vector<Tier> Tiers() {
    return {
        {"Plain", InstructionSet::Plain, &Vellum::internal::kClearanceKernelsPlain},
#if defined(__x86_64__)
            {"Sse2", InstructionSet::Sse2, &Vellum::internal::kClearanceKernelsSse2},
            {"Avx2", InstructionSet::Avx2, &Vellum::internal::kClearanceKernelsAvx2},
            {"Avx512", InstructionSet::Avx512, &Vellum::internal::kClearanceKernelsAvx512},
#endif
    };
}

/// How the points of a chain come about.
enum class Course {
    Scattered,  // anywhere
    Walk,       // step by step
    FarWalk,    // the same so far out that sums are rounded
    Grid,       // few places, so that distances are equal everywhere
    Staircase,  // only horizontal and vertical edges, some of no length
    Collinear,  // back and forth on one line
    Huge,       // squares overflow, differences too
    Tiny,       // squares underflow
    Spiral,
    Comb,
    Sprinkled,   // a walk on a grid with some special numbers
    Special,     // any coordinate a special number
    AxisAtRest,  // one coordinate changes seldom while the other is a special number now and then
};
constexpr Course kAllCourses[] = {Course::Scattered, Course::Walk,      Course::FarWalk,   Course::Grid,
                                  Course::Staircase, Course::Collinear, Course::Huge,      Course::Tiny,
                                  Course::Spiral,    Course::Comb,      Course::Sprinkled, Course::Special,
                                  Course::AxisAtRest};

/// A chain without room for a further point.
Chain RandomChain(Course course, size_t count, RandomNumbers& random) {
    Chain chain;
    chain.reserve(count);
    DblPt p(random.Between(-5, 5), random.Between(-5, 5));
    const double turn = random.Within(0.0, 6.0);
    for (size_t i = 0; i < count; ++i) {
        switch (course) {
            case Course::Scattered:
                p.Set(random.Within(-10.0, 10.0), random.Within(-10.0, 10.0));
                break;
            case Course::Walk:
                p += DblPt(random.Within(-1.0, 1.2), random.Within(-1.0, 1.0));
                break;
            case Course::FarWalk:
                if (i == 0) p += 1e15 / 3.0;
                p += DblPt(random.Within(-2.0, 2.0), random.Within(-2.0, 2.0));
                break;
            case Course::Grid:
                p.Set(random.Between(-3, 3), random.Between(-3, 3));
                break;
            case Course::Staircase:
                (i % 2 == 0 ? p.x : p.y) += random.Between(-1, 2);
                break;
            case Course::Collinear:
                p.x = random.Between(-50, 50);
                p.y = 0.5 * p.x - 3.0;
                break;
            case Course::Huge:
                p.Set(std::ldexp(random.Within(-1.0, 1.0), random.Between(480, 1024)),
                      std::ldexp(random.Within(-1.0, 1.0), random.Between(480, 1024)));
                break;
            case Course::Tiny:
                p.Set(std::ldexp(random.Within(-1.0, 1.0), random.Between(-1074, -480)),
                      std::ldexp(random.Within(-1.0, 1.0), random.Between(-1074, -480)));
                break;
            case Course::Spiral:
                p.Set(0.1 * double(i) * std::cos(turn + 0.2 * double(i)),
                      0.1 * double(i) * std::sin(turn + 0.2 * double(i)));
                break;
            case Course::Comb:
                p.Set(double(i / 2) + turn, (i / 2 + i) % 2 == 0 ? 20.0 : 20.0 * turn);
                break;
            case Course::Sprinkled:
                p.Set(random.OneIn(30) ? random.OneOf(kSpecial) : random.Between(0, 20),
                      random.OneIn(30) ? random.OneOf(kSpecial) : random.Between(0, 20));
                break;
            case Course::Special:
                p.Set(random.OneIn(3) ? random.OneOf(kSpecial) : random.Between(-2, 2),
                      random.OneIn(3) ? random.OneOf(kSpecial) : random.Between(-2, 2));
                break;
            case Course::AxisAtRest:
                if (random.OneIn(4)) p.Set(random.Between(-30, 30), random.Between(-30, 30));
                if (random.OneIn(2)) (i / 8 % 2 == 0 ? p.x : p.y) = random.OneOf(kSpecial);
                break;
        }
        chain.push_back(p);
    }
    return chain;
}

Chain Moved(Chain chain, double x, double y) {
    for (DblPt& p : chain)
        p += DblPt(x, y);
    return chain;
}

bool IsSame(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) || (a == b && std::signbit(a) == std::signbit(b));
}

testing::AssertionResult IsSame(const DblPt& p, const DblPt& expected) {
    if (IsSame(p.x, expected.x) && IsSame(p.y, expected.y)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << testing::PrintToString(p.x) << ", " << testing::PrintToString(p.y)
                                       << " instead of " << testing::PrintToString(expected.x) << ", "
                                       << testing::PrintToString(expected.y);
}

void ExpectPair(const NearestPair& pair, const reference::Clearance& expected, size_t edgesBefore) {
    EXPECT_TRUE(IsSame(pair.dist, expected.dist)) << pair.dist << " instead of " << expected.dist;
    EXPECT_EQ(pair.edge, expected.edge + (expected.isEdgeOfSecond ? edgesBefore : 0));
    EXPECT_EQ(pair.vertex, expected.vertex);
}

class ClearanceSearchTest : public testing::TestWithParam<Tier> {
protected:
    void SetUp() override {
        if (!IsOffered(GetParam().needs)) GTEST_SKIP() << "this processor has none of it";
    }

    static const ClearanceKernels& Kernels() { return *GetParam().kernels; }

    static NearestPair NearestOf(const Chain& a, const Chain& b) {
        SearchEffort effort;
        return FindNearestPair(a, b, Kernels(), effort);
    }

    static void Check(const Chain& a, const Chain& b) {
        ExpectPair(NearestOf(a, b), reference::ClearanceOf(a, b), a.size());
    }
};

TEST_P(ClearanceSearchTest, ShortChainsOfEveryLength) {
    for (const Course course : kAllCourses) {
        for (size_t count = 1; count <= 70; ++count) {
            RandomNumbers random(count);
            const size_t other = 1 + random.Below(70);
            const Chain a = RandomChain(course, count, random);
            const Chain b = RandomChain(course, other, random);
            Check(a, b);
            Check(b, a);
            ASSERT_FALSE(HasFailure()) << "course " << int(course) << ", " << count << " and " << other << " points";
        }
    }
}

// Very short chains many times over: this is where each kind of edge is nearest once.
TEST_P(ClearanceSearchTest, FewEdges) {
    for (const Course course : kAllCourses) {
        for (uint64_t seed = 0; seed < 500; ++seed) {
            RandomNumbers random(seed);
            const Chain a = RandomChain(course, 1 + random.Below(4), random);
            const Chain b =
                RandomChain(random.OneIn(3) ? random.OneOf(kAllCourses) : course, 1 + random.Below(4), random);
            Check(a, b);
            ASSERT_FALSE(HasFailure()) << "course " << int(course) << ", seed " << seed;
        }
    }
}

TEST_P(ClearanceSearchTest, LengthsAroundThoseOfBlocksAndGroups) {
    constexpr size_t kCounts[] = {71, 127, 128, 129, 130, 191, 192, 193, 255, 256, 257, 511, 512, 513, 514, 577, 600};
    for (const Course course : kAllCourses) {
        for (const size_t count : kCounts) {
            RandomNumbers random(count);
            const size_t other = 1 + random.Below(40);
            const Chain a = RandomChain(course, count, random);
            const Chain b = RandomChain(course, other, random);
            Check(a, b);
            Check(b, a);
            ASSERT_FALSE(HasFailure()) << "course " << int(course) << ", " << count << " and " << other << " points";
        }
    }
}

TEST_P(ClearanceSearchTest, TwoLongChains) {
    for (const Course course : kAllCourses) {
        RandomNumbers random(static_cast<uint64_t>(course));
        const Chain a = RandomChain(course, 520 + random.Below(70), random);
        const Chain b = RandomChain(course, 520 + random.Below(70), random);
        Check(a, b);
        ASSERT_FALSE(HasFailure()) << "course " << int(course);
    }
}

// A chain against one that is more than two levels higher.
TEST_P(ClearanceSearchTest, LevelsFarApart) {
    constexpr size_t kCounts[] = {4095, 4096, 4097, 5000, 33000};
    for (const size_t count : kCounts) {
        for (const Course course : {Course::Walk, Course::Staircase, Course::Sprinkled}) {
            RandomNumbers random(count);
            const Chain a = RandomChain(course, count, random);
            const Chain b = Moved(RandomChain(course, 1 + random.Below(9), random), 40.0, 30.0);
            Check(a, b);
            Check(b, a);
            ASSERT_FALSE(HasFailure()) << "course " << int(course) << ", " << count << " points";
        }
    }
}

// Side by side, so that most of the chains is passed over.
TEST_P(ClearanceSearchTest, ChainsApart) {
    for (const Course course :
         {Course::Scattered, Course::Walk, Course::Grid, Course::Spiral, Course::Comb, Course::Sprinkled}) {
        for (uint64_t seed = 0; seed < 12; ++seed) {
            RandomNumbers random(seed);
            const Chain a = RandomChain(course, 1 + random.Below(300), random);
            const Chain b = Moved(RandomChain(course, 1 + random.Below(300), random), random.Between(-30, 30), 15.0);
            Check(a, b);
            ASSERT_FALSE(HasFailure()) << "course " << int(course) << ", seed " << seed;
        }
    }
}

// Copies of each other, where the same distance comes up everywhere: the first pair wins.
TEST_P(ClearanceSearchTest, EqualDistances) {
    for (const Course course : {Course::Walk, Course::FarWalk, Course::Grid, Course::Staircase, Course::Collinear}) {
        for (uint64_t seed = 0; seed < 4; ++seed) {
            RandomNumbers random(seed);
            const Chain a = RandomChain(course, 100 + random.Below(200), random);
            const Chain moved = Moved(a, random.Between(-4, 4), random.Between(-4, 4));
            const Chain reversed(moved.rbegin(), moved.rend());
            Check(a, a);
            Check(a, moved);
            Check(a, reversed);
            Check(reversed, a);
            ASSERT_FALSE(HasFailure()) << "course " << int(course) << ", seed " << seed;
        }
    }
}

// One vertex that is nearer than all others, at each place of the chain.
TEST_P(ClearanceSearchTest, TheNearestVertexAtEveryPlace) {
    const size_t count = 140;
    Chain level;
    for (size_t i = 0; i < count; ++i)
        level.emplace_back(3.0 * double(i), 0.0);
    const Chain above = Moved(level, 1.0, 10.0);
    for (size_t at = 0; at < count; ++at) {
        Chain dented = above;
        dented[at].y -= 0.25;
        Check(level, dented);
        Check(dented, level);
        ASSERT_FALSE(HasFailure()) << "at " << at;
    }
}

// A single number that is not finite, at each place of an edge-parallel chain and of a sloping one.
TEST_P(ClearanceSearchTest, OneSpecialNumberAtEveryPlace) {
    const size_t count = 80;
    Chain level;
    Chain upright;
    Chain sloping;
    for (size_t i = 0; i < count; ++i) {
        level.emplace_back(double(i), 5.0);
        upright.emplace_back(5.0, double(i));
        sloping.emplace_back(double(i), 0.5 * double(i));
    }
    const Chain others[] = {{DblPt(300.0, 7.0)}, {DblPt(7.0, 300.0), DblPt(8.0, 301.0)}, {DblPt(-200.0, -190.0)}};
    for (const Chain& chain : {level, upright, sloping}) {
        for (size_t at = 0; at < count; ++at) {
            for (const double value : {kNan, kInfinity, -kInfinity, 1.7e308}) {
                Chain first = chain;
                Chain second = chain;
                first[at].x = value;
                second[at].y = value;
                for (const Chain& other : others) {
                    Check(first, other);
                    Check(second, other);
                    Check(other, first);
                }
                ASSERT_FALSE(HasFailure()) << value << " at " << at;
            }
        }
    }
}

TEST_P(ClearanceSearchTest, NothingAtAFiniteDistance) {
    for (const size_t count : {1u, 8u, 9u, 65u, 600u}) {
        const Chain nowhere(count, DblPt(kNan, kInfinity));
        const Chain somewhere(20, DblPt(3.0, 4.0));
        Check(nowhere, somewhere);
        Check(somewhere, nowhere);
        Check(nowhere, nowhere);
        EXPECT_EQ(NearestOf(nowhere, somewhere).dist, DBL_MAX);
    }
}

// A distance of exactly DBL_MAX does not count as found, and the largest number below it does.
TEST_P(ClearanceSearchTest, TheLargestDistances) {
    const double below = std::nextafter(DBL_MAX, 0.0);
    for (const double x : {DBL_MAX, below, DBL_MAX / 0.96, below / 0.96}) {
        for (const double step : {-2.0, -1.0, 0.0, 1.0}) {
            const Chain a(3, DblPt(0.5 * x * (1.0 + step * DBL_EPSILON), 0.0));
            const Chain b(3, DblPt(-0.5 * x, 0.0));
            Check(a, b);
        }
    }
}

// The number of pairs looked at grows as the chains do, and not as their product.

/// A ring whose radius changes at random.
Chain Star(size_t count, double x, double y, uint64_t seed) {
    RandomNumbers random(seed);
    Chain chain;
    for (size_t i = 0; i < count; ++i) {
        const double angle = 2.0 * kPi * double(i) / double(count - 1);
        const double radius = 100.0 * random.Within(0.5, 1.0);
        chain.emplace_back(x + radius * std::cos(angle), y + radius * std::sin(angle));
    }
    return chain;
}

Chain Bank(size_t count, double y, uint64_t seed) {
    RandomNumbers random(seed);
    Chain chain;
    for (size_t i = 0; i < count; ++i) {
        const double x = double(i);
        const double course = 40.0 * std::sin(0.02 * x) + 13.0 * std::sin(0.11 * x);
        chain.emplace_back(x, course + y + random.Within(-1.0, 1.0));
    }
    return chain;
}

template <class MakeA, class MakeB>
void CheckGrowth(const ClearanceKernels& kernels, MakeA makeA, MakeB makeB) {
    size_t before = 0;
    for (const size_t count : {1000u, 10000u, 100000u}) {
        SearchEffort effort;
        FindNearestPair(makeA(count), makeB(count), kernels, effort);
        const size_t all = effort.bounds + effort.distances;
        EXPECT_GT(effort.bounds, 0u);
        EXPECT_GT(effort.distances, 0u);
        EXPECT_LT(all, 20 * count);
        if (before != 0) {
            EXPECT_LT(all, 13 * before) << count << " points";
        }
        before = all;
    }
}

TEST_P(ClearanceSearchTest, EffortForStarsSideBySide) {
    CheckGrowth(
        Kernels(), [](size_t count) { return Star(count, 0.0, 0.0, 1); },
        [](size_t count) { return Star(count, 260.0, 30.0, 2); });
}

TEST_P(ClearanceSearchTest, EffortForRiverBanks) {
    CheckGrowth(
        Kernels(), [](size_t count) { return Bank(count, 0.0, 1); }, [](size_t count) { return Bank(count, 10.0, 2); });
}

// Where every distance is the same, all but the first pairs are passed over.
TEST_P(ClearanceSearchTest, EffortForEqualDistances) {
    constexpr size_t kCount = 5000;
    Chain level;
    for (size_t i = 0; i < kCount; ++i)
        level.emplace_back(double(i), 3.0);
    const Chain steady(kCount, DblPt(1.5, 2.75));
    const Chain pairs[][2] = {{level, Moved(level, 0.0, 10.0)},
                              {level, level},
                              {steady, Moved(steady, 0.1, 0.0)},
                              {steady, Moved(steady, 0.0, 0.1)},
                              {steady, Moved(steady, 7.3, 0.1)}};
    for (const auto& [a, b] : pairs) {
        SearchEffort effort;
        const NearestPair pair = FindNearestPair(a, b, Kernels(), effort);
        EXPECT_EQ(pair.edge, 0u);
        EXPECT_EQ(pair.vertex, 0u);
        EXPECT_LT(effort.bounds, 1000u);
        EXPECT_LT(effort.distances, 1000u);
    }
}

TEST_P(ClearanceSearchTest, EqualDistancesAreFoundFirstOfAll) {
    constexpr size_t kCount = 2000;
    Chain level;
    for (size_t i = 0; i < kCount; ++i)
        level.emplace_back(double(i), 0.0);
    const Chain opposite(level.rbegin(), level.rend());
    SearchEffort effort;
    const NearestPair pair = FindNearestPair(level, Moved(opposite, 0.0, 10.0), Kernels(), effort);
    EXPECT_EQ(pair.dist, 0.96 * 10.0);
    EXPECT_EQ(pair.edge, 0u);
    EXPECT_EQ(pair.vertex, kCount - 2);  // opposite the end of the first edge, as its start is further down the chain
}

/// The boxes and what is in them.

bool Holds(const Box& box, const DblPt& p) {
    return box.minX <= p.x && p.x <= box.maxX && box.minY <= p.y && p.y <= box.maxY;
}

Box BoxAt(const BoxGroup& boxes, size_t i) { return {boxes.minX[i], boxes.minY[i], boxes.maxX[i], boxes.maxY[i]}; }

bool IsEmpty(const Box& box) {
    return box.minX == kInfinity && box.minY == kInfinity && box.maxX == -kInfinity && box.maxY == -kInfinity;
}

/// Points that are nearest to some inner point of the chain or to its ends.
template <class Check>
void ForEachFoot(const Chain& run, RandomNumbers& random, Check check) {
    for (size_t edge = 0; edge + 1 < run.size(); ++edge) {
        const DblPt& from = run[edge];
        const DblPt& to = run[edge + 1];
        const DblPt probes[] = {from,
                                to,
                                DblPt(from.x, to.y),
                                DblPt(random.OneOf(kSpecial), to.y),
                                DblPt(to.x + random.Within(-1.0, 1.0), to.y + random.Within(-1.0, 1.0)),
                                DblPt(random.Within(-9.0, 9.0), random.Within(-9.0, 9.0))};
        for (const DblPt& probe : probes) {
            DblPt foot;
            if (DistPtLine(probe, from, to, foot, false) < DBL_MAX) check(foot);
        }
    }
}

TEST_P(ClearanceSearchTest, BoxesHoldTheNearestPointsOfEdges) {
    for (const Course course : kAllCourses) {
        for (uint64_t seed = 0; seed < 60; ++seed) {
            RandomNumbers random(seed);
            const Chain chain = RandomChain(course, 1 + random.Below(80), random);
            const size_t runPoints = random.OneIn(2) ? 8 : 64;
            BoxGroup boxes;
            const unsigned irregular = Kernels().boxesOfRuns(chain.data(), chain.size(), runPoints, boxes);
            for (size_t i = 0; i < kGroupBoxes; ++i) {
                const size_t start = i * runPoints;
                if (start >= chain.size()) {
                    EXPECT_TRUE(IsEmpty(BoxAt(boxes, i)));
                    EXPECT_EQ(irregular >> i & 1, 0u);
                    continue;
                }
                const auto end = static_cast<std::ptrdiff_t>(std::min(start + runPoints + 1, chain.size()));
                const Chain run(chain.begin() + static_cast<std::ptrdiff_t>(start), chain.begin() + end);
                const bool isFinite = std::all_of(
                    run.begin(), run.end(), [](const DblPt& p) { return std::isfinite(p.x) && std::isfinite(p.y); });
                const bool isRegular = (irregular >> i & 1) == 0;
                EXPECT_LE(isRegular, isFinite);
                EXPECT_TRUE(isRegular || !isFinite || course == Course::Huge || course == Course::Special ||
                            course == Course::Sprinkled || course == Course::AxisAtRest);
                const Box ofAny = BoxOfAnyPoints(run);
                if (isRegular) {
                    EXPECT_LE(BoxAt(boxes, i).minX, ofAny.minX);
                    EXPECT_LE(BoxAt(boxes, i).minY, ofAny.minY);
                    EXPECT_GE(BoxAt(boxes, i).maxX, ofAny.maxX);
                    EXPECT_GE(BoxAt(boxes, i).maxY, ofAny.maxY);
                }
                ForEachFoot(run, random,
                            [&](const DblPt& foot) { EXPECT_TRUE(Holds(ofAny, foot)) << foot.x << ", " << foot.y; });
            }
            ASSERT_FALSE(HasFailure()) << "course " << int(course) << ", seed " << seed;
        }
    }
}

// The point that is computed for the end of an edge can lie beyond that end.
TEST_P(ClearanceSearchTest, BoxesHoldWhatAnEdgeReachesByRounding) {
    const double reach = -4.1 + (5.2 - -4.1);
    ASSERT_GT(reach, 5.2);
    const Chain up = {DblPt(0.0, -4.1), DblPt(1.0, 5.2)};
    const Chain down = {DblPt(0.0, 5.2), DblPt(-1.0, -4.1)};
    for (const Chain& chain : {up, down}) {
        BoxGroup boxes;
        ASSERT_EQ(Kernels().boxesOfRuns(chain.data(), 2, 8, boxes), 0u);
        EXPECT_EQ(boxes.maxY[0], reach);
        EXPECT_LE(boxes.minY[0], -4.1);
        EXPECT_EQ(BoxOfAnyPoints(chain).maxY, reach);
    }
}

TEST_P(ClearanceSearchTest, BoxesOfOneNumberOutOfPlace) {
    for (const size_t runPoints : {8u, 64u}) {
        for (size_t count = 1; count <= runPoints + 3; ++count) {
            for (size_t at = 0; at < count; ++at) {
                Chain chain(count, DblPt(1.0, 2.0));
                chain[at].Set(-4.0, 7.0);
                BoxGroup boxes;
                EXPECT_EQ(Kernels().boxesOfRuns(chain.data(), count, runPoints, boxes), 0u);
                EXPECT_EQ(boxes.minX[0], at <= runPoints ? -4.0 : 1.0);
                EXPECT_EQ(boxes.maxY[0], at <= runPoints ? 7.0 : 2.0);
                EXPECT_EQ(boxes.maxX[0], count == 1 ? -4.0 : 1.0);
                EXPECT_EQ(boxes.minY[0], count == 1 ? 7.0 : 2.0);
                for (const double value : {kNan, kInfinity, -kInfinity}) {
                    for (const bool isX : {true, false}) {
                        (isX ? chain[at].x : chain[at].y) = value;
                        const unsigned irregular = Kernels().boxesOfRuns(chain.data(), count, runPoints, boxes);
                        // The first point of a run counts to the one before it too.
                        const unsigned expected = at < runPoints ? 1 : at == runPoints ? 3 : 2;
                        EXPECT_EQ(irregular, expected);
                        chain[at].Set(-4.0, 7.0);
                    }
                }
                ASSERT_FALSE(HasFailure()) << count << " points, the one at " << at;
            }
        }
    }
}

BoxGroup RandomBoxes(RandomNumbers& random) {
    BoxGroup boxes;
    const auto side = [&](double& low, double& high) {
        low = random.Between(-5, 5);
        high = low + random.Between(0, 3);
        if (random.OneIn(6)) low = -kInfinity;
        if (random.OneIn(6)) high = kInfinity;
    };
    for (size_t i = 0; i < kGroupBoxes; ++i) {
        side(boxes.minX[i], boxes.maxX[i]);
        side(boxes.minY[i], boxes.maxY[i]);
        if (!random.OneIn(6)) continue;
        boxes.minX[i] = kInfinity;
        boxes.minY[i] = kInfinity;
        boxes.maxX[i] = -kInfinity;
        boxes.maxY[i] = -kInfinity;
    }
    return boxes;
}

TEST_P(ClearanceSearchTest, BoundsAreDistancesOfBoxes) {
    for (uint64_t seed = 0; seed < 200; ++seed) {
        RandomNumbers random(seed);
        const BoxGroup rows = RandomBoxes(random);
        const BoxGroup columns = RandomBoxes(random);
        const size_t rowCount = 1 + random.Below(kGroupBoxes);
        const double limit = random.OneIn(4) ? DBL_MAX : random.OneIn(4) ? 0.0 : random.Within(0.0, 6.0);
        std::vector<double> bounds(kGroupBoxes * rowCount);
        const uint64_t near = Kernels().boundPairs(rows, rowCount, columns, limit, bounds.data());
        EXPECT_EQ(rowCount == kGroupBoxes ? 0 : near >> kGroupBoxes * rowCount, 0u);
        for (size_t i = 0; i < bounds.size(); ++i) {
            const Box row = BoxAt(rows, i / kGroupBoxes);
            const Box column = BoxAt(columns, i % kGroupBoxes);
            if (IsEmpty(row) || IsEmpty(column)) {
                EXPECT_EQ(near >> i & 1, 0u);
                continue;
            }
            const double x = std::max({0.0, row.minX - column.maxX, column.minX - row.maxX});
            const double y = std::max({0.0, row.minY - column.maxY, column.minY - row.maxY});
            EXPECT_EQ(bounds[i], DblPt(0.0, 0.0).ApproxDist(x, y));
            EXPECT_EQ(near >> i & 1, bounds[i] <= limit ? 1u : 0u);
        }
        ASSERT_FALSE(HasFailure()) << "seed " << seed;
    }
}

TEST_P(ClearanceSearchTest, LeavesAreMeasuredOnlyWhereTheyMayHoldTheNearest) {
    Chain edges;
    Chain vertices;
    for (size_t i = 0; i < kLeafPoints; ++i) {
        edges.emplace_back(double(i), 0.0);
        vertices.emplace_back(double(i), 4.0 + double(i));
    }
    const Leaf edgeLeaf{edges.data(), BoxOfAnyPoints(edges), 100, 200};
    const Leaf vertexLeaf{vertices.data(), BoxOfAnyPoints(vertices), 300, 400};
    NearestPair best{DBL_MAX, 0, 0};
    EXPECT_EQ(Kernels().measureLeaves(edgeLeaf, vertexLeaf, best), 8u);  // the first vertex against all edges
    EXPECT_EQ(best.dist, 0.96 * 4.0);
    EXPECT_EQ(best.edge, 100u);
    EXPECT_EQ(best.vertex, 400u);

    best = {0.96 * 4.0, 7, 7};  // as near, and earlier
    EXPECT_EQ(Kernels().measureLeaves(edgeLeaf, vertexLeaf, best), 8u);
    EXPECT_EQ(best.edge, 7u);
    EXPECT_EQ(best.vertex, 7u);

    best = {0.96 * 4.0, 100, 401};  // as near, and later by the vertex alone
    Kernels().measureLeaves(edgeLeaf, vertexLeaf, best);
    EXPECT_EQ(best.edge, 100u);
    EXPECT_EQ(best.vertex, 400u);

    best = {0.96 * 3.9, 900, 900};
    EXPECT_EQ(Kernels().measureLeaves(edgeLeaf, vertexLeaf, best), 0u);
    EXPECT_EQ(best.edge, 900u);
}

// Nothing is passed over because of a bound that is too high, by however little: a pair that is just as near as the
// best so far, and earlier, is found. The vertices lie across from ends of edges, where bounds are closest to
// distances.
TEST_P(ClearanceSearchTest, NoPairIsPassedOverByTheLastBit) {
    for (uint64_t seed = 0; seed < 1500; ++seed) {
        RandomNumbers random(seed);
        Chain edges(kLeafPoints, DblPt(kNan, kNan));
        for (size_t i = 0; i < 3; ++i)
            edges[i].Set(0.1 * random.Between(-99, 99), 0.1 * random.Between(-99, 99));
        const Leaf edgeLeaf{edges.data(), BoxOfAnyPoints(edges), 0, 0};
        const DblPt& end = edges[random.Below(3)];
        const double out = 0.1 * random.Between(-20, 20);
        const DblPt probe(end.x + out * (edges[1].y - edges[0].y), end.y - out * (edges[1].x - edges[0].x));
        Chain vertices(kLeafPoints, DblPt(kNan, kNan));
        vertices[0] = probe;
        const Leaf vertexLeaf{vertices.data(), BoxOfAnyPoints(vertices), 0, 0};

        const double dist =
            std::min(DistPtLine(probe, edges[0], edges[1], false), DistPtLine(probe, edges[1], edges[2], false));
        NearestPair best{dist, 50, 0};
        Kernels().measureLeaves(edgeLeaf, vertexLeaf, best);
        EXPECT_EQ(best.dist, dist);
        EXPECT_LT(best.edge, 2u) << "seed " << seed;
    }
}

Box BoxOfRun(const ClearanceKernels& kernels, const Chain& chain, size_t start, size_t points) {
    BoxGroup boxes;
    kernels.boxesOfRuns(chain.data() + start, chain.size() - start, points, boxes);
    return BoxAt(boxes, 0);
}

void ExpectSameBox(const Box& box, const Box& expected) {
    EXPECT_EQ(box.minX, expected.minX);
    EXPECT_EQ(box.minY, expected.minY);
    EXPECT_EQ(box.maxX, expected.maxX);
    EXPECT_EQ(box.maxY, expected.maxY);
}

/// Visits the nodes below one in the order of the chain and returns the number of the vertex after them.
size_t CheckNodes(ChainIndex& index, const ClearanceKernels& kernels, const Chain& chain, const ChainNode& node,
                  size_t first) {
    EXPECT_EQ(node.First(), first);
    if (node.level == 0) {
        const DblPt* const points = index.LeafPoints(node);
        for (size_t i = 0; i < kLeafPoints; ++i) {
            EXPECT_TRUE(IsSame(points[i], first + i < chain.size() ? chain[first + i] : DblPt(kNan, kNan)));
        }
        ExpectSameBox(node.box, BoxOfRun(kernels, chain, first, kLeafEdges));
        return std::min(first + kLeafEdges, chain.size());
    }
    const size_t childCount = index.ChildCount(node);
    const BoxGroup boxes = index.ChildBoxes(node);
    for (size_t i = childCount; i < kGroupBoxes; ++i)
        EXPECT_TRUE(IsEmpty(BoxAt(boxes, i)));
    size_t end = first;
    for (size_t i = 0; i < childCount; ++i) {
        const ChainNode child = node.Child(i, boxes);
        EXPECT_TRUE(Holds(node.box, DblPt(child.box.minX, child.box.minY)));
        EXPECT_TRUE(Holds(node.box, DblPt(child.box.maxX, child.box.maxY)));
        end = CheckNodes(index, kernels, chain, child, end);
    }
    return end;
}

TEST_P(ClearanceSearchTest, NodesCoverTheChain) {
    for (const size_t count : {1u, 7u, 8u, 9u, 63u, 64u, 65u, 511u, 512u, 513u, 1500u, 4096u, 4097u, 9000u}) {
        RandomNumbers random(count);
        const Chain chain = RandomChain(Course::Walk, count, random);
        std::vector<BoxGroup> groups(ChainIndex::GroupsFor(count));
        ChainIndex index(chain, Kernels(), groups.data());
        EXPECT_EQ(CheckNodes(index, Kernels(), chain, index.Root(), 0), count);
        ASSERT_FALSE(HasFailure()) << count << " points";
    }
}

// Whichever node's were asked for before.
TEST_P(ClearanceSearchTest, BoxesOfLeavesInAnyOrder) {
    constexpr size_t kBlocks = 50;
    RandomNumbers random(1);
    const Chain chain = RandomChain(Course::Walk, 64 * kBlocks, random);
    std::vector<BoxGroup> groups(ChainIndex::GroupsFor(chain.size()));
    ChainIndex index(chain, Kernels(), groups.data());
    for (size_t round = 0; round < 500; ++round) {
        const size_t block = random.Below(kBlocks);
        const BoxGroup& boxes = index.ChildBoxes(ChainNode{1, block, {}});
        for (size_t i = 0; i < kGroupBoxes; ++i)
            ExpectSameBox(BoxAt(boxes, i), BoxOfRun(Kernels(), chain, 64 * block + 8 * i, kLeafEdges));
        ASSERT_FALSE(HasFailure()) << "block " << block;
    }
}

INSTANTIATE_TEST_SUITE_P(EveryInstructionSet, ClearanceSearchTest, testing::ValuesIn(Tiers()),
                         [](const auto& tier) { return tier.param.name; });

TEST(ClearanceBoxes, EdgesAtInfinityOrNan) {
    const auto boxOf = [](const DblPt& from, const DblPt& to) { return BoxOfAnyPoints(Chain{from, to}); };
    for (const double value : {kNan, kInfinity, -kInfinity}) {
        // Upright: anywhere above and below its x; level: anywhere left and right of its y.
        const Box upright = boxOf(DblPt(3.0, value), DblPt(3.0, 4.0));
        EXPECT_EQ(upright.minX, 3.0);
        EXPECT_EQ(upright.maxX, 3.0);
        EXPECT_EQ(upright.minY, -kInfinity);
        EXPECT_EQ(upright.maxY, kInfinity);
        const Box level = boxOf(DblPt(3.0, 4.0), DblPt(value, 4.0));
        EXPECT_EQ(level.minX, -kInfinity);
        EXPECT_EQ(level.maxX, kInfinity);
        EXPECT_EQ(level.minY, 4.0);
        EXPECT_EQ(level.maxY, 4.0);
        // Any other has no nearest point; what is left is its finite end as a vertex.
        const Box sloping = boxOf(DblPt(3.0, value), DblPt(5.0, 4.0));
        EXPECT_EQ(sloping.minX, 5.0);
        EXPECT_EQ(sloping.maxX, 5.0);
        EXPECT_EQ(sloping.minY, 4.0);
        EXPECT_EQ(sloping.maxY, 4.0);
        EXPECT_TRUE(IsEmpty(boxOf(DblPt(3.0, value), DblPt(value, 4.0))));
    }
}

TEST(ClearanceIndex, KeepsAGroupForEightBlocks) {
    EXPECT_EQ(ChainIndex::GroupsFor(1), 0u);
    EXPECT_EQ(ChainIndex::GroupsFor(64), 0u);
    EXPECT_EQ(ChainIndex::GroupsFor(65), 1u);
    EXPECT_EQ(ChainIndex::GroupsFor(512), 1u);
    EXPECT_EQ(ChainIndex::GroupsFor(513), 3u);
    EXPECT_EQ(ChainIndex::GroupsFor(4096), 9u);
    EXPECT_EQ(ChainIndex::GroupsFor(4097), 12u);
}

TEST(ClearanceWitnesses, LieOnThePairFound) {
    for (const Course course : kAllCourses) {
        for (uint64_t seed = 0; seed < 20; ++seed) {
            RandomNumbers random(seed);
            const Chain a = RandomChain(course, 1 + random.Below(30), random);
            const Chain b = Moved(RandomChain(course, 1 + random.Below(30), random), random.Between(-9, 9), 0.0);
            const Witnesses found = FindWitnesses(a, b);
            const reference::Clearance expected = reference::ClearanceOf(a, b);
            ASSERT_TRUE(IsSame(found.onA, expected.onA)) << "course " << int(course) << ", seed " << seed;
            ASSERT_TRUE(IsSame(found.onB, expected.onB)) << "course " << int(course) << ", seed " << seed;
        }
    }
}

TEST(ClearanceMemory, IsAskedForOnceByLongChainsOnly) {
    RandomNumbers random(1);
    const Chain large = RandomChain(Course::Walk, 100000, random);
    const Chain medium = RandomChain(Course::Walk, 6000, random);
    const Chain longer = RandomChain(Course::Walk, 6500, random);
    const Chain longest = RandomChain(Course::Walk, 7000, random);
    {
        const MallocGuard guard(100);
        FindWitnesses(medium, longest);
        EXPECT_EQ(guard.Requests(), 0u);
        FindWitnesses(longer, longest);
        EXPECT_EQ(guard.Requests(), 1u);
    }
    const MallocGuard guard(100);
    FindWitnesses(medium, medium);
    EXPECT_EQ(guard.Requests(), 0u);
    FindWitnesses(large, medium);
    EXPECT_EQ(guard.Requests(), 1u);
    FindWitnesses(large, large);
    EXPECT_EQ(guard.Requests(), 2u);
    EXPECT_LT(guard.LastSize(), 2 * large.size());  // a byte for each point of either chain
}

TEST(ClearanceMemory, WithoutItThePairIsTheSame) {
    for (const Course course : {Course::Walk, Course::Grid, Course::Sprinkled}) {
        RandomNumbers random(2);
        const Chain large = RandomChain(course, 20000, random);
        const Chain small = RandomChain(course, 25, random);
        for (const auto& [a, b] : {std::pair(large, small), std::pair(small, large)}) {
            const Witnesses expected = FindWitnesses(a, b);
            const MallocGuard guard(0);
            const Witnesses found = FindWitnesses(a, b);
            EXPECT_EQ(guard.Requests(), 1u);
            EXPECT_TRUE(IsSame(found.onA, expected.onA));
            EXPECT_TRUE(IsSame(found.onB, expected.onB));
            SearchEffort effort;
            ExpectPair(FindNearestPair(a, b, ActiveClearanceKernels(), effort), reference::ClearanceOf(a, b), a.size());
            EXPECT_EQ(effort.distances, (a.size() - 1) * b.size() + (b.size() - 1) * a.size());
        }
    }
}

TEST(ClearanceMemory, APolylineWithoutMemoryForItsPointsIsEmpty) {
    DblPtVec points;
    points.push_back(DblPt(1.0, 2.0));
    points.push_back(DblPt(3.0, 5.0));
    PolylineGeom* polyline = nullptr;
    {
        const MallocGuard guard(0);
        EXPECT_TRUE(ToPolylineGeom(points, &polyline));
    }
    ASSERT_NE(polyline, nullptr);
    EXPECT_EQ(polyline->NPts(), 0u);
    EXPECT_EQ(polyline->Pts(), nullptr);
    delete polyline;
}

TEST(ClearanceKernels, TheBestInstructionSetIsUsed) {
    for (const Tier& tier : Tiers())
        EXPECT_EQ(&ActiveClearanceKernels() == tier.kernels, tier.needs == BestInstructionSet()) << tier;
}

TEST(ClearanceKernels, ThereIsATableForWhatIsBuiltIn) {
    const bool isPlainBuiltIn = BestInstructionSet() == InstructionSet::Plain;
    for (const Tier& tier : Tiers()) {
        const bool isBuiltIn = tier.needs != InstructionSet::Plain || isPlainBuiltIn;
        EXPECT_EQ(ClearanceKernelsFor(tier.needs), isBuiltIn ? tier.kernels : nullptr) << tier;
    }
}

}  // namespace
