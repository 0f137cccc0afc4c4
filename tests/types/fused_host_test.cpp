// SPDX-License-Identifier: MIT

// Inline members are compiled by the host, with the host's options. They must give the library's bits all the same, so
// they are compared here with the formulas as written, compiled without fusing.

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "support/point_checks.h"
#include "types/fused_host.h"

namespace {

using Vellum::AlignedDblRect;
using Vellum::DblPt;

constexpr int kRounds = 20000;

uint64_t Bits(double v) { return std::bit_cast<uint64_t>(v); }

class FusedHost : public testing::Test {
protected:
    void SetUp() override {
        if (!__builtin_cpu_supports("fma") || !__builtin_cpu_supports("avx2"))
            GTEST_SKIP() << "this processor has no fused multiply-add";
    }

    double Coordinate() { return coordinate(random); }
    DblPt Point() {
        const double x = Coordinate();
        return DblPt(x, Coordinate());
    }

private:
    std::mt19937_64 random{7};
    std::uniform_real_distribution<double> coordinate{-1000.0, 1000.0};
};

double Distsq(const DblPt& a, const DblPt& b) {
    const double dx = a.x - b.x;
    const double dy = a.y - b.y;
    return dx * dx + dy * dy;
}

double ApproxDist(const DblPt& a, const DblPt& b) {
    const double dx = std::fabs(a.x - b.x);
    const double dy = std::fabs(a.y - b.y);
    return dx > dy ? 0.96 * dx + 0.398 * dy : 0.96 * dy + 0.398 * dx;
}

TEST_F(FusedHost, Fuses) {
    int different = 0;
    for (int i = 0; i < kRounds; ++i) {
        const DblPt factors = Point();
        const double c = Coordinate();
        different += Bits(fused_host::MultiplyAdd(factors.x, factors.y, c)) != Bits(factors.x * factors.y + c);
    }
    EXPECT_GT(different, 0);
}

TEST_F(FusedHost, Distances) {
    for (int i = 0; i < kRounds; ++i) {
        const DblPt a = Point();
        const DblPt b = Point();
        ASSERT_EQ(Bits(fused_host::Distsq(a, b)), Bits(Distsq(a, b)));
        ASSERT_EQ(Bits(fused_host::Dist(a, b)), Bits(std::sqrt(Distsq(a, b))));
        ASSERT_EQ(Bits(fused_host::ApproxDist(a, b)), Bits(ApproxDist(a, b)));
    }
}

TEST_F(FusedHost, DistancesInALoop) {
    std::vector<DblPt> points(kRounds);
    for (DblPt& p : points) {
        p = Point();
    }
    const DblPt from = Point();
    std::vector<double> squares(kRounds);
    std::vector<double> estimates(kRounds);
    fused_host::DistsqOfAll(points.data(), kRounds, from, squares.data());
    fused_host::ApproxDistOfAll(points.data(), kRounds, from, estimates.data());
    for (size_t i = 0; i < points.size(); ++i) {
        ASSERT_EQ(Bits(squares[i]), Bits(Distsq(points[i], from)));
        ASSERT_EQ(Bits(estimates[i]), Bits(ApproxDist(points[i], from)));
    }
}

TEST_F(FusedHost, PointsAllButOnALine) {
    int left = 0;
    for (int i = 0; i < kRounds; ++i) {
        const DblPt a = Point();
        const DblPt b = Point();
        const double t = Coordinate() / 500.0;
        const DblPt p(a.x + t * (b.x - a.x), a.y + t * (b.y - a.y));
        const bool expected = (p.y - a.y) * (b.x - a.x) - (b.y - a.y) * (p.x - a.x) > 0.0;
        const bool expectedLoose = (b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x) > 0.0;
        ASSERT_EQ(fused_host::IsLeftOfLine(p, a, b), expected);
        ASSERT_EQ(fused_host::IsLooseLeftOfLine(p, a, b), expectedLoose);
        left += expected;
    }
    EXPECT_GT(left, kRounds / 10);
    EXPECT_LT(left, kRounds / 2);
}

TEST_F(FusedHost, Boxes) {
    for (int i = 0; i < kRounds; ++i) {
        // Halving is exact for all but the tiniest numbers, so these count in steps of the smallest one.
        const double unit = i % 2 == 0 ? 1.0 : 5e-324;
        const DblPt a(std::round(Coordinate()) * unit, Coordinate());
        const DblPt b(std::round(Coordinate()) * unit, std::round(Coordinate()) * unit);
        const AlignedDblRect box(a, b);
        ASSERT_EQ(Bits(fused_host::CenterX(box)), Bits((box.ur.x - box.ll.x) * 0.5 + box.ll.x));
        ASSERT_EQ(Bits(fused_host::CenterY(box)), Bits((box.ur.y - box.ll.y) * 0.5 + box.ll.y));

        AlignedDblRect around;
        fused_host::SetAround(around, a, b.x, b.y);
        ASSERT_EQ(Bits(around.ll.x), Bits(a.x - b.x * 0.5));
        ASSERT_EQ(Bits(around.ll.y), Bits(a.y - b.y * 0.5));
        ASSERT_EQ(Bits(around.ur.x), Bits(a.x + b.x * 0.5));
        ASSERT_EQ(Bits(around.ur.y), Bits(a.y + b.y * 0.5));
    }
}

}  // namespace
