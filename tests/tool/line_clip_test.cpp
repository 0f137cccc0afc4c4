// SPDX-License-Identifier: MIT
#include "line_clip.h"

#include <gtest/gtest.h>

namespace {

const Vellum::DblRect kBox(Vellum::DblPt(0, 0), Vellum::DblPt(10, 10));

void ExpectPoint(const Vellum::DblPt& p, double x, double y) {
    EXPECT_NEAR(p.x, x, 1e-12);
    EXPECT_NEAR(p.y, y, 1e-12);
}

TEST(LineClip, InsideIsKeptExactly) {
    const tool::Points line = {{0.1, 0.2}, {0.3, 9.7}, {10, 10}};
    const auto pieces = tool::ClipLine(line, kBox);
    ASSERT_EQ(pieces.size(), 1U);
    ASSERT_EQ(pieces[0].size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_TRUE(pieces[0][i].IsExactly(line[i]));
    }
}

TEST(LineClip, OutsideIsDropped) {
    EXPECT_TRUE(tool::ClipLine({{-5, 3}, {-1, 7}, {-2, 20}}, kBox).empty());
    // The boxes overlap, the segment passes the corner.
    EXPECT_TRUE(tool::ClipLine({{-3, 2}, {2, -3}}, kBox).empty());
}

TEST(LineClip, CutAtBothEnds) {
    const auto pieces = tool::ClipLine({{-5, 5}, {15, 5}}, kBox);
    ASSERT_EQ(pieces.size(), 1U);
    ASSERT_EQ(pieces[0].size(), 2U);
    ExpectPoint(pieces[0][0], 0, 5);
    ExpectPoint(pieces[0][1], 10, 5);
}

TEST(LineClip, ALineThatLeavesAndComesBackGivesTwoPieces) {
    const auto pieces = tool::ClipLine({{5, 5}, {15, 5}, {15, 8}, {5, 8}, {5, 9}}, kBox);
    ASSERT_EQ(pieces.size(), 2U);
    ASSERT_EQ(pieces[0].size(), 2U);
    ExpectPoint(pieces[0][1], 10, 5);
    ASSERT_EQ(pieces[1].size(), 3U);
    ExpectPoint(pieces[1][0], 10, 8);
    ExpectPoint(pieces[1][1], 5, 8);
}

TEST(LineClip, TurnedRectangle) {
    const Vellum::DblRect diamond(0, 1, 1, 2, 2, 1, 1, 0);
    const auto pieces = tool::ClipLine({{-1, 1.5}, {3, 1.5}}, diamond);
    ASSERT_EQ(pieces.size(), 1U);
    ExpectPoint(pieces[0][0], 0.5, 1.5);
    ExpectPoint(pieces[0][1], 1.5, 1.5);
    EXPECT_TRUE(tool::ClipLine({{0, 1.9}, {0.5, 1.9}}, diamond).empty());
}

}  // namespace
