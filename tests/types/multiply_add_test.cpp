// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "types/multiply_add.h"

namespace {

using Vellum::internal::MultiplyAdd;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(MultiplyAdd, KeepsWhatAProductLoses) {
    EXPECT_EQ(MultiplyAdd(3.0, 4.0, 5.0), 17.0);
    // The double next to 0.1 is 0.1 + 0x1p-54 / 10.
    EXPECT_EQ(MultiplyAdd(0.1, 10.0, -1.0), 0x1p-54);
    EXPECT_EQ(MultiplyAdd(1.0 + 0x1p-52, 1.0 + 0x1p-52, -(1.0 + 0x1p-51)), 0x1p-104);
}

// 3 * 3002399751580331 is 2^53 + 1, which lies halfway between two doubles.
TEST(MultiplyAdd, RoundsOnce) {
    constexpr double kThird = 3002399751580331.0 * 128.0;
    EXPECT_EQ(MultiplyAdd(3.0, kThird, 0.0), 0x1p60);
    EXPECT_EQ(MultiplyAdd(3.0, kThird, 0x1p-60), 0x1p60 + 0x1p8);
    EXPECT_EQ(MultiplyAdd(3.0, kThird, -0x1p-60), 0x1p60);
    EXPECT_EQ(MultiplyAdd(3.0, -kThird, 0x1p-60), -0x1p60);
    EXPECT_EQ(MultiplyAdd(3.0, -kThird, -0x1p-60), -0x1p60 - 0x1p8);
    EXPECT_EQ(MultiplyAdd(3.0, kThird, 0x1p-1074), 0x1p60 + 0x1p8);
}

TEST(MultiplyAdd, RoundsAtTheEndsOfTheRange) {
    EXPECT_EQ(MultiplyAdd(0x1p-1074, 0.5, 0.0), 0.0);
    EXPECT_EQ(MultiplyAdd(0x1p-1074, 0.5, 0x1p-1074), 0x1p-1073);
    EXPECT_EQ(MultiplyAdd(0x1p-1074, 0.25, 0x1p-1074), 0x1p-1074);
    EXPECT_EQ(MultiplyAdd(0x1p1023, 2.0, -0x1p1023), 0x1p1023);
    EXPECT_EQ(MultiplyAdd(0x1p1023, 2.0, 0.0), kInfinity);
}

TEST(MultiplyAdd, KnowsZerosAndWhatIsNotFinite) {
    EXPECT_TRUE(std::signbit(MultiplyAdd(-0.0, 1.0, -0.0)));
    EXPECT_FALSE(std::signbit(MultiplyAdd(-0.0, 1.0, 0.0)));
    EXPECT_FALSE(std::signbit(MultiplyAdd(2.0, 3.0, -6.0)));
    EXPECT_EQ(MultiplyAdd(1e308, 10.0, -kInfinity), -kInfinity);
    EXPECT_EQ(MultiplyAdd(-kInfinity, 2.0, 1e308), -kInfinity);
    EXPECT_TRUE(std::isnan(MultiplyAdd(kInfinity, 0.0, 1.0)));
    EXPECT_TRUE(std::isnan(MultiplyAdd(kInfinity, 1.0, -kInfinity)));
    EXPECT_TRUE(std::isnan(MultiplyAdd(1.0, std::numeric_limits<double>::quiet_NaN(), 1.0)));
}

}  // namespace
