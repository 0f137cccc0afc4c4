// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/debug_capture.h"
#include "vellum/geometry.h"

namespace {

using Texts = std::vector<std::string>;

TEST(DbgPrintf, FormatsAndAddsNothing) {
    support::TakeDebugTexts();
    Vellum::DbgPrintf("%d %s %.2lf", 7, "seven", 7.125);
    Vellum::DbgPrintf("plain");
    Vellum::DbgPrintf("%s", "");
    EXPECT_EQ(support::TakeDebugTexts(), (Texts{"7 seven 7.12", "plain", ""}));
}

TEST(DbgPrintf, CutsAfter1023Characters) {
    support::TakeDebugTexts();
    const std::string fits(1023, 'x');
    Vellum::DbgPrintf("%s", fits.c_str());
    Vellum::DbgPrintf("%sy", fits.c_str());
    Vellum::DbgPrintf("%sy%s", fits.c_str(), fits.c_str());
    EXPECT_EQ(support::TakeDebugTexts(), (Texts{fits, fits, fits}));
}

}  // namespace
