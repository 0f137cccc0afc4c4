// SPDX-License-Identifier: MIT
#include "route.h"

#include <gtest/gtest.h>

#include <cstddef>

#include "support/point_checks.h"

namespace {

using tool::FindRoute;
using tool::Points;
using tool::Route;

void ExpectWay(const Route& route, const Points& expected) {
    ASSERT_EQ(route.way.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_TRUE(support::IsAt(route.way[i], expected[i].x, expected[i].y)) << i;
    }
}

TEST(Route, RunsFromTheOneVertexToTheOther) {
    const Route route = FindRoute({{{7, 4}, {3, 4}, {3, 0}}, {{0, 0}, {3, 0}}}, {-0.3, 0.4}, {3, 5.25});
    ExpectWay(route, {{0, 0}, {3, 0}, {3, 4}});
    EXPECT_EQ(route.length, 7.0);
    EXPECT_TRUE(support::IsAt(route.from.asked, -0.3, 0.4));
    EXPECT_TRUE(support::IsAt(route.from.vertex, 0, 0));
    EXPECT_EQ(route.from.distance, 0.5);
    EXPECT_TRUE(support::IsAt(route.to.asked, 3, 5.25));
    EXPECT_TRUE(support::IsAt(route.to.vertex, 3, 4));
    EXPECT_EQ(route.to.distance, 1.25);
}

TEST(Route, BackwardsIsTheSameWayTurnedRound) {
    ExpectWay(FindRoute({{{7, 4}, {3, 4}, {3, 0}}, {{0, 0}, {3, 0}}}, {3, 4}, {0, 0}), {{3, 4}, {3, 0}, {0, 0}});
}

TEST(Route, LengthIsThatOfTheLines) {
    // The engine's own estimate of this edge is 5.034.
    EXPECT_EQ(FindRoute({{{1, 1}, {4, 5}}}, {1, 1}, {4, 5}).length, 5.0);
}

TEST(Route, TheShorterOfTwoWays) {
    ExpectWay(FindRoute({{{0, 0}, {5, 9}, {10, 0}}, {{0, 0}, {5, -2}, {10, 0}}}, {0, 0}, {10, 0}),
              {{0, 0}, {5, -2}, {10, 0}});
}

TEST(Route, OfVerticesAtTheSameDistanceTheFirst) {
    const Route route = FindRoute({{{9, 9}, {2, 0}}, {{9, 9}, {0, 2}}}, {2, 2}, {9, 9});
    EXPECT_TRUE(support::IsAt(route.from.vertex, 2, 0));
}

TEST(Route, ToTheSameVertexIsThatVertex) {
    const Route route = FindRoute({{{0, 0}, {3, 0}}}, {1, 0}, {-2, 0});
    ExpectWay(route, {{0, 0}});
    EXPECT_EQ(route.length, 0.0);
    EXPECT_EQ(route.from.distance, 1.0);
    EXPECT_EQ(route.to.distance, 2.0);
}

TEST(Route, LinesThatOnlyCrossDoNotMeet) {
    const Route route = FindRoute({{{0, 0}, {4, 0}}, {{1, -1}, {1, 3}}}, {0, 0}, {1, 3});
    EXPECT_TRUE(route.way.empty());
    EXPECT_TRUE(support::IsAt(route.from.vertex, 0, 0));
    EXPECT_TRUE(support::IsAt(route.to.vertex, 1, 3));
}

}  // namespace
