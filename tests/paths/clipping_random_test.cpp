// SPDX-License-Identifier: MIT

// `ClipPolygonSet` against its reference, bit for bit, on random sets: coordinates of many kinds, polygons of all
// lengths at all places of the array, outlines that move about the rectangle in every way. `ClipPolygonSetComplete` is
// given the same sets, to see that it stays within its room too.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <string>
#include <vector>

#include "paths/clip_checks.h"
#include "reference/clipping.h"
#include "support/random_numbers.h"

namespace {

using paths_tests::AppendTo;
using paths_tests::Clipped;
using paths_tests::ClippedCompletely;
using paths_tests::Corners;
using paths_tests::Holds;
using paths_tests::MaxPtsOf;
using paths_tests::TurnedBox;
using reference::PointSet;
using support::RandomNumbers;
using Vellum::DblPt;
using Vellum::DblRect;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

void AppendPoint(PointSet& set, const DblPt& p, uint32_t code) {
    set.pts.push_back({p.x, p.y});
    set.codes.push_back(code);
}

uint32_t RandomCode(RandomNumbers& random) {
    return random.OneIn(10) ? static_cast<uint32_t>(4 + random.Below(5)) : static_cast<uint32_t>(random.Below(2));
}

uint32_t RandomEndCode(RandomNumbers& random) { return static_cast<uint32_t>(2 + random.Below(2)); }

/// False, with what differs, where the set is not clipped as by the reference.
testing::AssertionResult IsClippedAsDefined(const PointSet& in, const DblRect& clip) {
    PointSet expected;
    reference::ClipPolygonSet(in, expected, clip);
    const testing::AssertionResult result = Holds(Clipped(in, clip), expected);
    ClippedCompletely(in, clip);
    return result;
}

// ---- Coordinates of every kind ----

enum class Kind { SmallGrid, WideGrid, HalfGrid, Plane, Special, ManyScales, Perturbed, FarOff, Tiny, Huge };

std::string NameOf(Kind kind) {
    switch (kind) {
        case Kind::SmallGrid:
            return "SmallGrid";
        case Kind::WideGrid:
            return "WideGrid";
        case Kind::HalfGrid:
            return "HalfGrid";
        case Kind::Plane:
            return "Plane";
        case Kind::Special:
            return "Special";
        case Kind::ManyScales:
            return "ManyScales";
        case Kind::Perturbed:
            return "Perturbed";
        case Kind::FarOff:
            return "FarOff";
        case Kind::Tiny:
            return "Tiny";
        default:
            return "Huge";
    }
}

double RandomCoordinate(Kind kind, RandomNumbers& random) {
    switch (kind) {
        case Kind::SmallGrid:
            return random.Between(0, 5);
        case Kind::WideGrid:
            return random.Between(0, 11);
        case Kind::HalfGrid:
            return random.Between(-3, 3) * 0.5;
        case Kind::Plane:
            return random.Within(0, 10);
        case Kind::Special: {
            constexpr double kSpecial[] = {kNan, kInfinity, -kInfinity, -0.0};
            return random.OneIn(5) ? random.OneOf(kSpecial) : random.Between(0, 5);
        }
        case Kind::ManyScales:
            return random.Within(-10, 10) * std::ldexp(1.0, random.Between(-30, 30));
        case Kind::Perturbed: {
            const double near = random.Between(0, 4);
            return random.OneIn(4) ? std::nextafter(near, random.OneIn(2) ? 10 : -10) : near;
        }
        case Kind::FarOff:
            return 1e6 + random.Between(0, 7) * 0.1;
        case Kind::Tiny:
            return random.Between(0, 9) * 1e-8;
        default:
            return random.Within(-1, 1) * std::ldexp(1.0, random.Between(300, 1023));
    }
}

DblPt RandomPoint(Kind kind, RandomNumbers& random) {
    const double x = RandomCoordinate(kind, random);
    return DblPt(x, RandomCoordinate(kind, random));
}

/// Boxes and turned rectangles of all proportions, and any four corners.
DblRect RandomRectangle(Kind kind, RandomNumbers& random) {
    DblPt p[4];
    for (DblPt& corner : p)
        corner = RandomPoint(kind, random);
    switch (random.Below(5)) {
        case 0:
            return DblRect(p[0], p[1]);
        case 1:
            return DblRect(p[0], p[1], p[2], p[3]);
        case 2:
            return Corners(p[0], p[1], p[2], p[3]);
        default: {
            const double degrees = random.OneIn(2) ? random.Between(0, 7) * 45 : random.Between(0, 359);
            return TurnedBox(p[0], p[1].x, p[1].y, degrees);
        }
    }
}

/// An outline of random points, or a walk in steps of the kind's size.
void AppendPolygon(PointSet& set, Kind kind, size_t count, RandomNumbers& random) {
    const size_t first = set.pts.size();
    const bool isWalk = count > 20 && kind != Kind::Special;
    DblPt at = RandomPoint(kind, random);
    const double step = kind == Kind::Tiny ? 1e-8 : kind == Kind::FarOff ? 0.1 : 1.0;
    for (size_t i = 0; i < count; ++i) {
        if (i > 0 && random.OneIn(6)) {
            const Vellum::real_pt_t& last = set.pts.back();
            at = DblPt(last.x, last.y);
        } else if (isWalk) {
            at += DblPt(random.Between(-1, 1) * step, random.Between(-1, 1) * step);
        } else {
            at = RandomPoint(kind, random);
        }
        AppendPoint(set, at, RandomCode(random));
    }
    if (random.OneIn(2) && count > 2) set.pts.back() = set.pts[first];
    set.codes.back() = RandomEndCode(random);
}

class RandomSets : public testing::TestWithParam<Kind> {};

TEST_P(RandomSets, AFewPolygons) {
    for (uint64_t seed = 0; seed < 30000; ++seed) {
        RandomNumbers random(seed);
        const DblRect clip = RandomRectangle(GetParam(), random);
        PointSet in;
        for (size_t polygons = 1 + random.Below(3); polygons > 0; --polygons) {
            if (random.OneIn(12)) AppendPoint(in, RandomPoint(GetParam(), random), RandomEndCode(random));
            AppendPolygon(in, GetParam(), 1 + (random.OneIn(8) ? random.Below(200) : random.Below(12)), random);
        }
        if (random.OneIn(10)) in.codes.back() = 0;
        ASSERT_TRUE(IsClippedAsDefined(in, clip)) << "seed " << seed;
    }
}

TEST_P(RandomSets, ManyPolygons) {
    for (uint64_t seed = 0; seed < 500; ++seed) {
        RandomNumbers random(seed);
        const DblRect clip = RandomRectangle(GetParam(), random);
        PointSet in;
        while (in.pts.size() < 500) {
            AppendPolygon(in, GetParam(), 1 + random.Below(random.OneIn(4) ? 12 : 5), random);
        }
        ASSERT_TRUE(IsClippedAsDefined(in, clip)) << "seed " << seed;
    }
}

// Every length with its first point anywhere: what is done for whole blocks of points must not show.
TEST_P(RandomSets, EveryLength) {
    for (size_t seed = 0; seed < 1500; ++seed) {
        const size_t count = 1 + seed % 300;
        RandomNumbers random(seed);
        const DblRect clip = RandomRectangle(GetParam(), random);
        PointSet in;
        for (size_t before = random.Below(130); before > 0; --before)
            AppendPoint(in, RandomPoint(GetParam(), random), RandomEndCode(random));
        AppendPolygon(in, GetParam(), count, random);
        AppendPolygon(in, GetParam(), 5, random);
        ASSERT_TRUE(IsClippedAsDefined(in, clip)) << "seed " << seed << ", " << count << " points";
    }
}

INSTANTIATE_TEST_SUITE_P(Clipping, RandomSets,
                         testing::Values(Kind::SmallGrid, Kind::WideGrid, Kind::HalfGrid, Kind::Plane, Kind::Special,
                                         Kind::ManyScales, Kind::Perturbed, Kind::FarOff, Kind::Tiny, Kind::Huge),
                         [](const auto& kind) { return NameOf(kind.param); });

// ---- Outlines that move about the rectangle ----

/// A rectangle and points given by where they are relative to it: (-1, -1) and (1, 1) are two of its corners.
class Scene {
public:
    explicit Scene(RandomNumbers& random) {
        constexpr double kDegrees[] = {0, 90, 180, 45, 1e-7, 30, 0, 123};
        degrees_ = random.OneOf(kDegrees);
        constexpr double kScales[] = {1, 1, 1, 1, 1, 1e-5, 1e7, 1e-160, 1e150};
        const double scale = random.OneOf(kScales);
        halfWidth_ = scale * random.Within(0.1, 5);
        halfHeight_ = random.OneIn(8) ? halfWidth_ * 1e-6 : scale * random.Within(0.1, 5);
        constexpr double kOffsets[] = {0, 0, 10, 1e4, 1e9};
        const double offset = random.OneOf(kOffsets);
        centre_ = DblPt(scale * offset, -scale * offset);
    }

    DblRect Rectangle() const { return TurnedBox(centre_, halfWidth_, halfHeight_, degrees_); }

    /// The same arithmetic as for the corners, so that what is on a side is as near to it as rounding permits.
    DblPt At(double across, double up) const {
        return TurnedBox(centre_, halfWidth_ * across, halfHeight_ * up, degrees_).p2;
    }

private:
    double degrees_;
    double halfWidth_;
    double halfHeight_;
    DblPt centre_;
};

/// A coordinate, in half sizes of the rectangle, in the manner of the last one: well inside, about a side, beyond it by
/// little or by very much.
double RandomPlace(double last, RandomNumbers& random) {
    constexpr double kAboutASide[] = {1, 1, 1 + 1e-16, 1 - 1e-16, 1 + 1e-9, 1 - 1e-9, 1.0001, 0.9999, 0.5, 0};
    const double sign = random.OneIn(2) ? 1 : -1;
    switch (random.Below(5)) {
        case 0:
            return sign * random.OneOf(kAboutASide);
        case 1:
            return random.Within(-1, 1);
        case 2:
            return sign * random.Within(1, 4);
        case 3:
            return sign * std::ldexp(random.Within(1, 2), random.Between(1, 50));
        default:
            return last;
    }
}

/// An outline that stays in one manner of places for a while and then goes elsewhere. `restlessness` is the chance to
/// go, in percent.
void AppendJourney(PointSet& set, const Scene& scene, size_t count, size_t restlessness, RandomNumbers& random) {
    double across = RandomPlace(0, random);
    double up = RandomPlace(0, random);
    for (size_t i = 0; i < count; ++i) {
        if (random.Below(100) < restlessness) {
            across = RandomPlace(across, random);
            up = RandomPlace(up, random);
        }
        const bool staysPut = random.OneIn(8);
        const double stir = staysPut ? 1 : random.Within(0.98, 1.02);
        AppendPoint(set, scene.At(across * stir, up * stir), RandomCode(random));
    }
    if (random.OneIn(3)) set.pts.back() = set.pts[set.pts.size() - count];
    set.codes.back() = RandomEndCode(random);
}

TEST(ClippingJourneys, LengthsAboutTheSizeOfABlock) {
    constexpr size_t kLengths[] = {2, 3, 61, 62, 63, 64, 65, 66, 67, 125, 126, 127, 128, 129, 130, 131, 190};
    for (const size_t count : kLengths) {
        for (size_t before = 0; before <= 66; ++before) {
            RandomNumbers random(1000 * count + before);
            const Scene scene(random);
            PointSet in;
            if (before > 0) AppendJourney(in, scene, before, 20, random);
            AppendJourney(in, scene, count, 5, random);
            AppendJourney(in, scene, 4, 50, random);
            ASSERT_TRUE(IsClippedAsDefined(in, scene.Rectangle())) << count << " points after " << before;
        }
    }
}

TEST(ClippingJourneys, MostlyInOnePlace) {
    for (uint64_t seed = 0; seed < 6000; ++seed) {
        RandomNumbers random(seed);
        const Scene scene(random);
        PointSet in;
        for (size_t polygons = 1 + random.Below(4); polygons > 0; --polygons)
            AppendJourney(in, scene, 2 + random.Below(300), 1 + random.Below(6), random);
        ASSERT_TRUE(IsClippedAsDefined(in, scene.Rectangle())) << "seed " << seed;
    }
}

TEST(ClippingJourneys, ManySmallPolygons) {
    for (uint64_t seed = 0; seed < 2500; ++seed) {
        RandomNumbers random(seed);
        const Scene scene(random);
        PointSet in;
        while (in.pts.size() < 300)
            AppendJourney(in, scene, 1 + random.Below(8), 15, random);
        ASSERT_TRUE(IsClippedAsDefined(in, scene.Rectangle())) << "seed " << seed;
    }
}

// Vertices on the lines of the sides, a few units in the last place off them, and about the corners: what rounding
// makes of edges that are all but parallel to a side and end next to it.
TEST(ClippingJourneys, AlongTheLinesOfTheSides) {
    for (uint64_t seed = 0; seed < 30000; ++seed) {
        RandomNumbers random(seed);
        const Scene scene(random);
        const auto onLine = [&random] {
            const double sign = random.OneIn(2) ? 1 : -1;
            return sign * (1 + random.Between(-4, 4) * 0x1p-52);
        };
        const auto alongIt = [&random] {
            const double sign = random.OneIn(2) ? 1 : -1;
            return random.OneIn(4) ? random.Within(-3, 3)
                                   : sign * (1 + random.Between(-4, 4) * std::ldexp(1.0, -random.Between(1, 52)));
        };
        PointSet in;
        double across = onLine();
        double up = alongIt();
        for (size_t count = 3 + random.Below(12); count > 0; --count) {
            if (random.OneIn(3)) across = random.OneIn(3) ? onLine() : alongIt();
            if (random.OneIn(2)) up = random.OneIn(4) ? onLine() : alongIt();
            AppendPoint(in, scene.At(across, up), 0);
        }
        in.codes.back() = 2;
        ASSERT_TRUE(IsClippedAsDefined(in, scene.Rectangle())) << "seed " << seed;
    }
}

// Sets that are long beside whatever is looked at together.
TEST(ClippingJourneys, LongSets) {
    for (uint64_t seed = 0; seed < 300; ++seed) {
        RandomNumbers random(seed);
        const Scene scene(random);
        const size_t length = 500 + random.Below(4000);
        PointSet in;
        while (in.pts.size() < length) {
            const bool isLong = random.OneIn(20);
            AppendJourney(in, scene, 1 + random.Below(isLong ? 2000 : 30), isLong ? 1 : 10, random);
        }
        ASSERT_TRUE(IsClippedAsDefined(in, scene.Rectangle())) << "seed " << seed;
    }
}

TEST(ClippingJourneys, OnePointIsInfiniteOrNan) {
    constexpr double kSpecial[] = {kNan, kInfinity, -kInfinity, 1e308, -1e308};
    for (uint64_t seed = 0; seed < 6000; ++seed) {
        RandomNumbers random(seed);
        const Scene scene(random);
        PointSet in;
        AppendJourney(in, scene, 1 + random.Below(100), 10, random);
        AppendJourney(in, scene, 2 + random.Below(100), 10, random);
        Vellum::real_pt_t& changed = in.pts[random.Below(in.pts.size())];
        (random.OneIn(2) ? changed.x : changed.y) = random.OneOf(kSpecial);
        ASSERT_TRUE(IsClippedAsDefined(in, scene.Rectangle())) << "seed " << seed;
    }
}

// ---- Containment over many blocks ----

/// An outline of many points about the centre, within the rectangle or round it.
PointSet Ring(const Scene& scene, double size, size_t count, RandomNumbers& random) {
    PointSet ring;
    const double from = random.Within(0, 2 * std::numbers::pi);
    for (size_t i = 0; i < count; ++i) {
        const double angle = from + 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(count);
        const double radius = size * random.Within(0.9, 1);
        AppendPoint(ring, scene.At(radius * std::cos(angle), radius * std::sin(angle)), RandomCode(random));
    }
    ring.codes.back() = RandomEndCode(random);
    return ring;
}

TEST(ClippingRings, WithinAndAbout) {
    constexpr double kSizes[] = {1e-9, 0.01, 0.3, 0.7, 0.999, 1.05, 1.3, 1.6, 3, 1000};
    for (uint64_t seed = 0; seed < 2500; ++seed) {
        RandomNumbers random(seed);
        const Scene scene(random);
        PointSet in;
        for (const double size : kSizes)
            AppendTo(in, Ring(scene, size, 3 + random.Below(random.OneIn(3) ? 150 : 6), random));
        ASSERT_TRUE(IsClippedAsDefined(in, scene.Rectangle())) << "seed " << seed;
    }
}

// Polygons that go out as they stand may be copied together, but only while there is nothing between them.
TEST(ClippingRings, RunsOfCopies) {
    for (uint64_t seed = 0; seed < 60; ++seed) {
        RandomNumbers random(seed);
        const Scene scene(random);
        const size_t rarity = 1 + random.Below(1000);
        PointSet in;
        while (in.pts.size() < 30000) {
            AppendTo(in, Ring(scene, random.Within(0.1, 0.9), 2 + random.Below(random.OneIn(50) ? 500 : 20), random));
            if (!random.OneIn(rarity)) continue;
            constexpr double kOthers[] = {1.2, 2, 3};
            AppendTo(in, Ring(scene, random.OneOf(kOthers), 1 + random.Below(20), random));
        }
        ASSERT_TRUE(IsClippedAsDefined(in, scene.Rectangle())) << "seed " << seed;
    }
}

// ---- As many points as can be had ----

// Each edge of a comb or a star crosses all four sides of a bow; where the crossings are odd in number walks meet and
// go over the same vertices. Nothing of it may need more room than `ClipPolygonSetMaxPts` asks for, which is what the
// output is given.
TEST(ClippingBound, CombsAgainstBows) {
    for (int teeth = 1; teeth <= 70; ++teeth) {
        PointSet comb;
        for (int i = 0; i < teeth; ++i) {
            const double x = (2 * i + 1) / (2.0 * teeth);
            AppendPoint(comb, DblPt(x, -2), 0);
            AppendPoint(comb, DblPt(x + 0.4 / teeth, 2), 0);
        }
        comb.codes.back() = 2;
        for (const double height : {0.25, 0.5, 1.0, 1.9, 2.0}) {
            const DblRect bow = Corners({0, -height}, {1, height}, {0, height / 2}, {1, -height / 2});
            ASSERT_TRUE(IsClippedAsDefined(comb, bow)) << teeth << " teeth, height " << height;
        }
    }
}

TEST(ClippingBound, StarsAgainstBows) {
    for (size_t points = 3; points <= 41; ++points) {
        for (size_t step = 1; 2 * step < points; ++step) {
            PointSet star;
            for (size_t i = 0; i < points; ++i) {
                const double angle =
                    2 * std::numbers::pi * static_cast<double>(i * step % points) / static_cast<double>(points);
                AppendPoint(star, DblPt(std::cos(angle), std::sin(angle)), 1);
            }
            star.codes.back() = 3;
            for (const double size : {0.05, 0.3, 0.7, 1.0}) {
                const DblRect bow = Corners({-size, -size}, {size, size}, {size, -size / 2}, {-size, size / 2});
                ASSERT_TRUE(IsClippedAsDefined(star, bow)) << points << " points by " << step << ", size " << size;
            }
        }
    }
}

/// A polygon of few vertices and four corners, all on a small grid.
class Puzzle {
public:
    Puzzle(size_t vertices, RandomNumbers& random) : places_(4 + vertices) {
        for (size_t i = 0; i < places_.size(); ++i)
            Move(i, random);
    }

    /// Moves one to three vertices or corners.
    void Change(RandomNumbers& random) {
        for (size_t moves = 1 + random.Below(3); moves > 0; --moves)
            Move(random.Below(places_.size()), random);
    }

    DblRect Rectangle() const { return Corners(places_[0], places_[1], places_[2], places_[3]); }

    PointSet Polygon() const {
        PointSet polygon;
        for (size_t i = 4; i < places_.size(); ++i)
            AppendPoint(polygon, places_[i], i + 1 == places_.size() ? 2 : 0);
        return polygon;
    }

private:
    void Move(size_t i, RandomNumbers& random) {
        places_[i].x = random.Between(0, 6);
        places_[i].y = random.Between(0, 6);
    }

    std::vector<DblPt> places_;
};

TEST(ClippingBound, FewVerticesOnASmallGrid) {
    for (uint64_t seed = 0; seed < 60000; ++seed) {
        RandomNumbers random(seed);
        const Puzzle puzzle(2 + random.Below(4), random);
        ASSERT_TRUE(IsClippedAsDefined(puzzle.Polygon(), puzzle.Rectangle())) << "seed " << seed;
    }
}

// From random beginnings, whatever does not make the output smaller is kept.
TEST(ClippingBound, ClimbingTowardsTheBound) {
    double best = 0;
    for (uint64_t seed = 0; seed < 60; ++seed) {
        RandomNumbers random(seed);
        Puzzle puzzle(4 + random.Below(5), random);
        double reached = 0;
        for (int step = 0; step < 6000; ++step) {
            Puzzle changed = puzzle;
            changed.Change(random);
            const PointSet in = changed.Polygon();
            const double room = static_cast<double>(MaxPtsOf(in));
            if (room == 0) continue;
            // Fails the test where there is more than there is room for.
            const double share = static_cast<double>(Clipped(in, changed.Rectangle()).pts.size()) / room;
            if (share < reached) continue;
            reached = share;
            puzzle = changed;
        }
        best = std::max(best, reached);
    }
    // The search would mean little if it came nowhere near.
    EXPECT_GE(best, 0.8);
}

}  // namespace
