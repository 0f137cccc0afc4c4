// SPDX-License-Identifier: MIT

// The catalogue when the program ends.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "fonts/font_machine.h"

namespace {

using fonts_test::Catalogue;
using fonts_test::CountRecords;
using fonts_test::Machine;

// What a host may do in its own static object, which is made before those of the library that it is linked with and
// destroyed after them.
struct LastScan {
    LastScan() = default;
    ~LastScan() {
        if (!fonts) return;
        fonts_test::ReleaseRecords(fonts->faces);
        if (fonts->InitFaceList() && CountRecords(*fonts) == 2) return;
        std::fputs("The last scan has failed.\n", stderr);
        std::_Exit(EXIT_FAILURE);
    }
    LastScan(const LastScan&) = delete;
    LastScan& operator=(const LastScan&) = delete;

    std::unique_ptr<Machine> machine;
    Catalogue fonts;
} lastScan;

TEST(FontsExit, AStaticObjectOfTheHostMayScan) {
    lastScan.machine = std::make_unique<Machine>();
    lastScan.machine->Install("plain.ttf");
    lastScan.machine->Register("symbol.ttf");
    lastScan.fonts = fonts_test::ScannedCatalogue();
    EXPECT_EQ(CountRecords(*lastScan.fonts), 2u);
}

}  // namespace
