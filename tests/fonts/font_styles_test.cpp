// SPDX-License-Identifier: MIT

// The classes of styles, and the words that make them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fonts/font_machine.h"

namespace {

using fonts_test::Catalogue;
using fonts_test::EmptyCatalogue;
using fonts_test::FacesOf;
using fonts_test::IndicesOf;
using fonts_test::Machine;
using Indices = std::vector<unsigned>;

TEST(FontStyles, ByFlagAndByName) {
    const Machine machine;
    machine.Install("styles.ttc");
    const Catalogue fonts = fonts_test::ScannedCatalogue();
    EXPECT_EQ(FacesOf(*fonts), std::vector<std::string>(
                                   {"Vellum Styles/Regular", "Vellum Styles/BoLd OBLIQUE", "Vellum Styles/Both by flag",
                                    "Vellum Styles/Heavy", "Vellum Styles/Slanted", "Vellum Styles/SEMIBOLD",
                                    "Vellum Styles/iTaLiC", "Vellum Styles/Oblique", "Embolden/Regular",
                                    "Vellum ITALICS/Regular", "Obliquely/Regular", "Vellum Styles/Regular"}));
    EXPECT_EQ(IndicesOf(fonts->regular), Indices({0, 11}));
    EXPECT_EQ(IndicesOf(fonts->bold), Indices({3, 5, 8}));
    EXPECT_EQ(IndicesOf(fonts->italic), Indices({4, 6, 9, 10}));
    EXPECT_EQ(IndicesOf(fonts->boldItalic), Indices({1, 2, 7}));
    EXPECT_EQ(fonts->faces[1].styleFlags, 0);
}

TEST(FontStyles, WithoutRecordsAllClassesAreEmpty) {
    const Catalogue fonts = EmptyCatalogue();
    EXPECT_EQ(IndicesOf(fonts->regular), Indices({0}));
    fonts->ReduceFontListByStyles();
    for (const auto* indices : {&fonts->regular, &fonts->bold, &fonts->italic, &fonts->boldItalic})
        EXPECT_EQ((*indices)[0], 0xFFFFFFFFu);
}

TEST(FontStyles, TheEndMarkIsTheSentinel) {
    const Catalogue fonts = EmptyCatalogue();
    fonts->sentinel = 4321;
    fonts->ReduceFontListByStyles();
    EXPECT_EQ(fonts->regular[0], 4321u);
    EXPECT_EQ(fonts->boldItalic[0], 4321u);
}

TEST(FontStyles, TheFamilyIsSearchedAsFarAsTextsAre) {
    const Machine machine;
    // "Bold" begins at the 260th character.
    machine.Install("long-name.ttf");
    const Catalogue fonts = fonts_test::ScannedCatalogue();
    EXPECT_EQ(IndicesOf(fonts->regular), Indices({0}));
    EXPECT_EQ(IndicesOf(fonts->bold), Indices());
}

class StrIStr : public testing::Test {
protected:
    bool Contains(const std::string& text, const std::string& part) {
        return fonts->StrIStr(text.c_str(), part.c_str());
    }

    Catalogue fonts = EmptyCatalogue();
};

TEST_F(StrIStr, FindsPartsInAnyCase) {
    EXPECT_TRUE(Contains("DejaVu Sans Bold", "bold"));
    EXPECT_TRUE(Contains("dejavu sans bold", "BOLD"));
    EXPECT_TRUE(Contains("BoLdish", "bOlD"));
    EXPECT_TRUE(Contains("same", "SAME"));
    EXPECT_FALSE(Contains("bol", "bold"));
    EXPECT_FALSE(Contains("b old", "bold"));
    EXPECT_FALSE(Contains("bold", "italic"));
}

TEST_F(StrIStr, TheEmptyPartIsInEveryText) {
    EXPECT_TRUE(Contains("bold", ""));
    EXPECT_TRUE(Contains("", ""));
    EXPECT_FALSE(Contains("", "bold"));
}

TEST_F(StrIStr, Looks259CharactersFar) {
    EXPECT_TRUE(Contains(std::string(255, 'x') + "bold", "bold"));
    EXPECT_FALSE(Contains(std::string(256, 'x') + "bold", "bold"));
    EXPECT_TRUE(Contains(std::string(256, 'x') + "bold", "bol"));
    // The part is cut too.
    EXPECT_TRUE(Contains(std::string(259, 'x') + "y", std::string(259, 'X') + "z"));
    EXPECT_FALSE(Contains(std::string(258, 'x') + "y", std::string(258, 'x') + "z"));
    EXPECT_TRUE(Contains(std::string(100000, 'x'), std::string(100000, 'X')));
}

TEST_F(StrIStr, TakesBytesBeyondAsciiAsTheyAre) {
    EXPECT_TRUE(Contains("\xC0\xFF\x80 bold\xE9", "\x80 BOLD\xE9"));
    EXPECT_FALSE(Contains("\xC9", "\xE9"));
    EXPECT_FALSE(Contains("\xFF", "\x7F"));
}

}  // namespace
