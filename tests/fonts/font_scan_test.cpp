// SPDX-License-Identifier: MIT

// What a scan makes of the files that it finds.
#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "fonts/font_machine.h"

namespace {

namespace fs = std::filesystem;

using fonts_test::Catalogue;
using fonts_test::CountRecords;
using fonts_test::FacesOf;
using fonts_test::Machine;
using fonts_test::ScannedCatalogue;
using Vellum::FontFaceRec;
using Vellum::Fonts;
using Names = std::vector<std::string>;

class FontScan : public testing::Test {
protected:
    Machine machine;
};

TEST_F(FontScan, ReadsTheFolderInOrder) {
    machine.Install("trio.ttc", "b.ttc");
    machine.Install("plain.ttf", "a.ttf");
    machine.Install("garbage.ttf", "aa.ttf");
    machine.Register("symbol.ttf", "0.ttf");
    const Catalogue fonts = ScannedCatalogue();
    EXPECT_EQ(FacesOf(*fonts), Names({"Vellum Plain/Regular", "Vellum Trio/Regular", "Vellum Duo/Bold",
                                      "Vellum Trio/Italic", "Vellum Symbol/Regular"}));
}

TEST_F(FontScan, ReplacesTheRecordsAndKeepsTheirStrings) {
    machine.Install("trio.ttc");
    const Catalogue fonts = ScannedCatalogue();
    std::vector<FontFaceRec> before(std::begin(fonts->faces), std::end(fonts->faces));
    fonts->unused[99] = fonts.get();
    machine.RemoveFonts();
    machine.Install("plain.ttf");
    EXPECT_TRUE(fonts->InitFaceList());
    EXPECT_EQ(FacesOf(*fonts), Names({"Vellum Plain/Regular"}));
    EXPECT_EQ(fonts->unused[99], nullptr);
    EXPECT_STREQ(before[2].styleName, "Italic");
    fonts_test::ReleaseRecords(before.data());
    for (const FontFaceRec& face :
         std::vector<FontFaceRec>(std::next(std::begin(fonts->faces)), std::end(fonts->faces))) {
        ASSERT_EQ(face.filePath, nullptr);
        ASSERT_EQ(face.familyName, nullptr);
    }
}

TEST_F(FontScan, WithoutAFileLeavesNoRecordsAndTheClassesAsTheyWere) {
    machine.Install("plain.ttf");
    machine.Register("plain.ttf");
    const Catalogue fonts = ScannedCatalogue();
    std::vector<FontFaceRec> before(std::begin(fonts->faces), std::end(fonts->faces));
    fonts->unused[99] = fonts.get();
    fs::remove(machine.Folder() + "/plain.ttf");
    EXPECT_FALSE(fonts->InitFaceList());
    EXPECT_EQ(CountRecords(*fonts), 0u);
    EXPECT_EQ(fonts->unused[99], nullptr);
    EXPECT_EQ(fonts_test::IndicesOf(fonts->regular), std::vector<unsigned>({0, 1}));
    // What was started once answers, from the records that there are.
    EXPECT_EQ(fonts_test::InstalledFaces(*fonts), Names());
    fonts_test::ReleaseRecords(before.data());
}

std::string_view BytesOf(const Fonts& fonts) { return {reinterpret_cast<const char*>(&fonts), sizeof fonts}; }

TEST_F(FontScan, AssignmentCopiesAllBytes) {
    machine.Install("trio.ttc");
    const Catalogue fonts = ScannedCatalogue();
    const auto copy = std::make_unique<Fonts>();
    fonts_test::ReleaseRecords(copy->faces);
    fonts->sentinel = 77;
    fonts->unused[3] = fonts.get();
    EXPECT_EQ(&(*copy = *fonts), copy.get());
    EXPECT_TRUE(BytesOf(*copy) == BytesOf(*fonts));
    EXPECT_EQ(copy->faces[1].familyName, fonts->faces[1].familyName);
    const Fonts& same = *copy;
    *copy = same;
    EXPECT_TRUE(BytesOf(*copy) == BytesOf(*fonts));
}

TEST_F(FontScan, DestructionReleasesNothing) {
    machine.Install("plain.ttf");
    ScannedCatalogue();
    auto fonts = std::make_unique<Fonts>();
    std::vector<FontFaceRec> records(std::begin(fonts->faces), std::end(fonts->faces));
    fonts.reset();
    EXPECT_STREQ(records[0].familyName, "Vellum Plain");
    fonts_test::ReleaseRecords(records.data());
}

}  // namespace
