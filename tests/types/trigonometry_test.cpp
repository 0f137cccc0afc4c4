// SPDX-License-Identifier: MIT
#include "types/trigonometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace {

using Vellum::internal::Cosine;
using Vellum::internal::Sine;

constexpr double kPi = std::numbers::pi;

TEST(Trigonometry, OfAnglesInEveryQuadrant) {
    EXPECT_EQ(Sine(0.5), 0.479425538604203);
    EXPECT_EQ(Cosine(0.5), 0.8775825618903728);
    EXPECT_EQ(Sine(2.0), 0.9092974268256817);
    EXPECT_EQ(Cosine(2.0), -0.4161468365471424);
    EXPECT_EQ(Sine(4.0), -0.7568024953079282);
    EXPECT_EQ(Cosine(4.0), -0.6536436208636119);
    EXPECT_EQ(Sine(-1.0), -0.8414709848078965);
    EXPECT_EQ(Cosine(-1.0), 0.5403023058681398);
    EXPECT_EQ(Sine(1000.0), 0.8268795405320025);
    EXPECT_EQ(Cosine(1000.0), 0.5623790762907029);
}

// The double next to pi is not pi: these are what it lacks.
TEST(Trigonometry, HasAllDigitsWhereItIsSmall) {
    EXPECT_EQ(Sine(kPi), 1.2246467991473532e-16);
    EXPECT_EQ(Sine(2.0 * kPi), -2.4492935982947064e-16);
    EXPECT_EQ(Cosine(kPi / 2.0), 6.123233995736766e-17);
    EXPECT_EQ(Cosine(-kPi / 2.0), 6.123233995736766e-17);
    EXPECT_EQ(Cosine(1.5 * kPi), -1.8369701987210297e-16);
}

TEST(Trigonometry, OfTheSmallestAngles) {
    EXPECT_EQ(Sine(1e-300), 1e-300);
    EXPECT_EQ(Cosine(1e-300), 1.0);
    EXPECT_EQ(Sine(std::numeric_limits<double>::denorm_min()), std::numeric_limits<double>::denorm_min());
    EXPECT_TRUE(std::signbit(Sine(-0.0)));
    EXPECT_FALSE(std::signbit(Sine(0.0)));
    EXPECT_EQ(Cosine(-0.0), 1.0);
}

TEST(Trigonometry, OfWhatIsNoAngle) {
    for (const double angle : {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_TRUE(std::isnan(Sine(angle)));
        EXPECT_TRUE(std::isnan(Cosine(angle)));
    }
}

}  // namespace
