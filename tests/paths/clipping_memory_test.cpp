// SPDX-License-Identifier: MIT

// Clipping with memory that runs out at one allocation after another, and how many allocations there are at all.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "paths/clip_checks.h"
#include "support/allocation_guard.h"
#include "support/random_numbers.h"
#include "vellum/clipping.h"

namespace {

using paths_tests::AppendTo;
using paths_tests::Box;
using paths_tests::Holds;
using paths_tests::IsSelection;
using paths_tests::MaxPtsOf;
using paths_tests::PolygonOf;
using reference::PointSet;
using support::AllocationGuard;
using support::RandomNumbers;
using Vellum::DblRect;
using Vellum::DrwPSetT;
using Vellum::real_pt_t;

constexpr size_t kUnlimited = std::numeric_limits<size_t>::max();

enum class Service { AsDefined, Complete };

/// What a call appended, and how many allocations it asked for.
struct Outcome {
    PointSet appended;
    size_t requests;
};

/// Clips with so many allocations allowed. All that the call is given is there before.
Outcome ClipWithin(size_t allowed, Service service, const PointSet& set, const DblRect& rectangle) {
    constexpr real_pt_t kEarlier{7, -7};
    constexpr uint32_t kEarlierCode = 77;
    PointSet given = set;
    DblRect clip = rectangle;
    const size_t room = MaxPtsOf(set);
    std::vector<real_pt_t> pts(1 + room, kEarlier);
    std::vector<uint32_t> codes(1 + room, kEarlierCode);
    DrwPSetT in{static_cast<int32_t>(given.pts.size()), given.pts.data(), given.codes.data()};
    DrwPSetT out{1, pts.data(), codes.data()};
    Outcome outcome;
    {
        const AllocationGuard guard(allowed);
        if (service == Service::AsDefined)
            Vellum::ClipPolygonSet(&in, &out, &clip);
        else
            Vellum::ClipPolygonSetComplete(&in, &out, &clip);
        outcome.requests = guard.Requests();
    }
    EXPECT_TRUE(pts[0].x == kEarlier.x && pts[0].y == kEarlier.y && codes[0] == kEarlierCode);
    EXPECT_GE(out.numPts, 1);
    const auto end = static_cast<std::ptrdiff_t>(out.numPts);
    outcome.appended = {{pts.begin() + 1, pts.begin() + end}, {codes.begin() + 1, codes.begin() + end}};
    return outcome;
}

/// A comb from below into the square from (0, 0) to (100, 100). Each tooth has two crossings.
PointSet Comb(size_t teeth) {
    PointSet comb;
    for (size_t i = 0; i < teeth; ++i) {
        const double x = 100 * (static_cast<double>(i) + 0.25) / static_cast<double>(teeth);
        comb.pts.push_back({x, -1});
        comb.pts.push_back({x + 25 / static_cast<double>(teeth), 50});
    }
    comb.codes.resize(comb.pts.size(), 0);
    comb.codes.back() = 2;
    return comb;
}

const DblRect kSquare = Box(0, 0, 100, 100);

/// Begins on a side of the square, so that it is not simply traced where nothing may be lost; many vertices to keep.
PointSet Delicate(size_t vertices) {
    PointSet polygon = PolygonOf({{0, 1}});
    RandomNumbers random(vertices);
    for (size_t i = 0; i < vertices; ++i)
        polygon.pts.push_back({random.Within(1, 120), 1 + static_cast<double>(i) / static_cast<double>(vertices)});
    polygon.codes.assign(polygon.pts.size(), 0);
    polygon.codes.back() = 2;
    return polygon;
}

/// Polygons of all fates: copied, traced, clipped by other means, about the rectangle, outside.
PointSet Mixture(size_t rounds, size_t teeth) {
    PointSet set;
    for (size_t i = 0; i < rounds; ++i) {
        AppendTo(set, PolygonOf({{10, 10}, {20, 10}, {20, 20}}));
        AppendTo(set, Comb(teeth));
        AppendTo(set, PolygonOf({{50, 50}, {150, 50}, {150, 150}, {50, 150}}));
        AppendTo(set, Delicate(2 * teeth));
        AppendTo(set, PolygonOf({{-50, -50}, {150, -50}, {150, 150}, {-50, 150}}));
        AppendTo(set, PolygonOf({{210, 10}, {220, 10}, {220, 20}}));
        AppendTo(set, PolygonOf({{-3, 60}, {5, 61}, {5, 62}}));
    }
    return set;
}

class ClippingMemory : public testing::TestWithParam<Service> {};

TEST_P(ClippingMemory, WhatCannotBeAllocatedIsLeftOut) {
    PointSet in;
    for (const size_t teeth : {200u, 1000u, 4000u})
        AppendTo(in, Mixture(1, teeth));
    const Outcome full = ClipWithin(kUnlimited, GetParam(), in, kSquare);
    ASSERT_GE(full.requests, 10u);
    for (size_t allowed = 0; allowed < full.requests; ++allowed) {
        const Outcome outcome = ClipWithin(allowed, GetParam(), in, kSquare);
        EXPECT_LT(outcome.appended.pts.size(), full.appended.pts.size()) << allowed << " allocations";
        EXPECT_TRUE(IsSelection(outcome.appended, full.appended)) << allowed << " allocations";
    }
    EXPECT_TRUE(Holds(ClipWithin(full.requests, GetParam(), in, kSquare).appended, full.appended));
}

TEST_P(ClippingMemory, CopiesNeedNone) {
    PointSet in = PolygonOf({{10, 10}, {20, 10}, {20, 20}});
    AppendTo(in, PolygonOf({{-50, -50}, {150, -50}, {150, 150}, {-50, 150}}));
    AppendTo(in, PolygonOf({{210, 10}, {220, 10}, {220, 20}}));
    PointSet expected = PolygonOf({{10, 10}, {20, 10}, {20, 20}});
    AppendTo(expected, PolygonOf({{0, 0}, {0, 100}, {100, 100}, {100, 0}}));
    const Outcome outcome = ClipWithin(0, GetParam(), in, kSquare);
    EXPECT_TRUE(Holds(outcome.appended, expected));
    EXPECT_EQ(outcome.requests, 0u);
}

TEST_P(ClippingMemory, PolygonsShareTheirMemory) {
    const size_t few = ClipWithin(kUnlimited, GetParam(), Mixture(1, 20), kSquare).requests;
    EXPECT_GT(few, 0u);
    EXPECT_EQ(ClipWithin(kUnlimited, GetParam(), Mixture(50, 20), kSquare).requests, few);
}

TEST_P(ClippingMemory, MemoryGrowsByDoubling) {
    size_t before = ClipWithin(kUnlimited, GetParam(), Mixture(1, 500), kSquare).requests;
    for (size_t teeth = 1000; teeth <= 32000; teeth *= 2) {
        const size_t requests = ClipWithin(kUnlimited, GetParam(), Mixture(1, teeth), kSquare).requests;
        // One for each array that is kept during a call, of which there are a handful.
        EXPECT_LE(requests, before + 6) << teeth << " teeth";
        before = requests;
    }
}

INSTANTIATE_TEST_SUITE_P(BothServices, ClippingMemory, testing::Values(Service::AsDefined, Service::Complete),
                         [](const auto& service) {
                             return service.param == Service::AsDefined ? "AsDefined" : "Complete";
                         });

}  // namespace
