// SPDX-License-Identifier: MIT
#include "text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

TEST(Text, OneLineHasNoControlCharacters) {
    EXPECT_EQ(tool::OneLine("a\nb\tc\x7f" + std::string(1, '\0')), "a?b?c??");
    EXPECT_EQ(tool::OneLine("C\u00f4te d'Ivoire"), "C\u00f4te d'Ivoire");
}

TEST(Text, EqualsInAnyCaseOfTheLettersAToZ) {
    EXPECT_TRUE(tool::EqualsInAnyCase("", ""));
    EXPECT_TRUE(tool::EqualsInAnyCase("NaMe", "nAmE"));
    EXPECT_TRUE(tool::EqualsInAnyCase("AZ", "az"));
    EXPECT_FALSE(tool::EqualsInAnyCase("name", "names"));
    EXPECT_FALSE(tool::EqualsInAnyCase("names", "name"));
    // What lies beside the letters, and 32 away from it.
    EXPECT_FALSE(tool::EqualsInAnyCase("@", "`"));
    EXPECT_FALSE(tool::EqualsInAnyCase("[", "{"));
}

TEST(Text, ExactTextIsShortAndLosesNothing) {
    EXPECT_EQ(tool::ExactText(0.1), "0.1");
    EXPECT_EQ(tool::ExactText(1.0 / 3.0), "0.3333333333333333");
    EXPECT_EQ(tool::ExactText(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(tool::ExactText(-12.0), "-12");
    EXPECT_EQ(tool::ExactText(1e30), "1e+30");
    EXPECT_EQ(tool::ExactText(-std::numeric_limits<double>::denorm_min()), "-5e-324");
}

TEST(Text, ExactTextOfAPoint) { EXPECT_EQ(tool::ExactText(Vellum::DblPt(-0.1, 12.0)), "(-0.1, 12)"); }

TEST(Text, RoundedTextHasThatManyDigits) {
    EXPECT_EQ(tool::RoundedText(3.97512, 4), "3.975");
    EXPECT_EQ(tool::RoundedText(45676.02, 6), "45676");
    EXPECT_EQ(tool::RoundedText(2.0, 4), "2");
    EXPECT_EQ(tool::RoundedText(-1234567.0, 3), "-1.23e+06");
}

}  // namespace
