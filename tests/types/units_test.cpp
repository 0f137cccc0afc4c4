// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "vellum/geometry.h"

namespace {

using Vellum::InchesToUnits;
using Vellum::MeasurementSizeFromFactor;
using Vellum::UnitsAbbr;
using Vellum::UnitsToInches;

constexpr double kFloatEpsilon = 1.1920928955078125e-7;

const struct {
    int unit;
    const char* abbr;
    double perInch;
} kTable[] = {
    {0, nullptr, 1.0},       {1, "\x22", 1.0},         {2, "mm", 25.4},         {3, nullptr, 1.0},
    {4, "\x27", 1.0 / 12.0}, {5, "mi", 1.0 / 63360.0}, {6, "m", 0.0254},        {7, "km", 0.0000254},
    {8, "mil", 1000.0},      {9, "\xB5", 25400.0},     {10, "cm", 2.54},        {11, "\xB5\x69\x6E", 1000000.0},
    {12, "yd", 1.0 / 36.0},  {13, "\xC5", 1.0},        {14, "nm", 1.0},         {15, "dm", 1.0},
    {16, "hm", 1.0},         {17, "Gm", 1.0},          {18, "AU", 1.0},         {19, "ly", 1.0},
    {20, "pc", 1.0},         {21, nullptr, 10000.0},   {22, nullptr, 100000.0},
};

TEST(Units, EveryUnitHasItsFactorAndAbbreviation) {
    for (const auto& e : kTable) {
        EXPECT_STREQ(UnitsAbbr(e.unit), e.abbr) << e.unit;
        EXPECT_EQ(InchesToUnits(1.0, e.unit), e.perInch) << e.unit;
        EXPECT_EQ(InchesToUnits(-7.3, e.unit), -7.3 * e.perInch) << e.unit;
        EXPECT_EQ(UnitsToInches(e.perInch, e.unit), 1.0) << e.unit;
        EXPECT_EQ(UnitsToInches(7.3, e.unit), 7.3 / e.perInch) << e.unit;
    }
}

TEST(Units, MillimetresConvertExactly) {
    EXPECT_EQ(UnitsToInches(25.4, 2), 1.0);
    EXPECT_EQ(InchesToUnits(2.0, 2), 50.8);
}

TEST(Units, ThereIsNoUnitAbove22) {
    for (const int unit : {23, 24, 1000, std::numeric_limits<int>::max()}) {
        EXPECT_EQ(InchesToUnits(1.0, unit), 0.0) << unit;
        EXPECT_EQ(UnitsToInches(1.0, unit), 0.0) << unit;
        EXPECT_EQ(UnitsAbbr(unit), nullptr) << unit;
    }
}

TEST(Units, AbbreviationsAreStatic) {
    // All are taken first: texts in a shared buffer would have become the last one.
    std::vector<const char*> taken;
    for (const auto& e : kTable) {
        taken.push_back(UnitsAbbr(e.unit));
    }
    for (size_t i = 0; i < taken.size(); ++i) {
        EXPECT_STREQ(taken[i], kTable[i].abbr);
        EXPECT_EQ(taken[i], UnitsAbbr(kTable[i].unit));
    }
}

TEST(MeasurementSize, SevenFactorsHaveASize) {
    const double factors[] = {0.000625, 0.00125, 0.0025, 0.005, 0.0075, 0.01, 0.02};
    for (int size = 0; size < 7; ++size) {
        EXPECT_EQ(int{MeasurementSizeFromFactor(factors[size])}, size);
        EXPECT_EQ(int{MeasurementSizeFromFactor(factors[size] + 1.1e-7)}, size);
        EXPECT_EQ(int{MeasurementSizeFromFactor(factors[size] - 1.1e-7)}, size);
        EXPECT_EQ(int{MeasurementSizeFromFactor(factors[size] + 1.3e-7)}, -1);
        EXPECT_EQ(int{MeasurementSizeFromFactor(factors[size] - 1.3e-7)}, -1);
    }
}

TEST(MeasurementSize, TheMatchIsStrict) {
    const double f = 0.02 + kFloatEpsilon;
    ASSERT_EQ(f - 0.02, kFloatEpsilon);
    EXPECT_EQ(int{MeasurementSizeFromFactor(f)}, -1);
    EXPECT_EQ(int{MeasurementSizeFromFactor(std::nextafter(f, 0.0))}, 6);
}

TEST(MeasurementSize, OtherFactorsAreToldApartBySign) {
    EXPECT_EQ(int{MeasurementSizeFromFactor(0.0)}, -2);
    EXPECT_EQ(int{MeasurementSizeFromFactor(0.3)}, -1);
    EXPECT_EQ(int{MeasurementSizeFromFactor(1e-300)}, -1);
    EXPECT_EQ(int{MeasurementSizeFromFactor(-0.01)}, -2);
    EXPECT_EQ(int{MeasurementSizeFromFactor(std::numeric_limits<double>::quiet_NaN())}, -2);
}

}  // namespace
