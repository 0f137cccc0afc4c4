// SPDX-License-Identifier: MIT

// The lists of names that the catalogue hands out.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "fonts/font_machine.h"

namespace {

using fonts_test::Catalogue;
using fonts_test::Entry;
using fonts_test::InstalledFaces;
using fonts_test::Machine;
using fonts_test::ScannedCatalogue;
using fonts_test::SetVariable;
using fonts_test::StylesOf;
using fonts_test::TakeEntries;
using fonts_test::TakeNames;
using fonts_test::UnsetVariable;
using Vellum::fnt_lst_t;
using Vellum::Fonts;
using Names = std::vector<std::string>;

Entry EntryOf(Fonts& fonts, const std::string& name) {
    for (const Entry& entry : TakeEntries(fonts, fonts.GetFontFaceList())) {
        if (entry.name == name) return entry;
    }
    return {"none", {}, {}};
}

void Rename(char*& name, const char* text) {
    delete[] name;
    name = new char[std::strlen(text) + 1];
    std::strcpy(name, text);
}

TEST(FaceList, HoldsStrokeFontsAmongTheOthers) {
    const Machine machine;
    const std::string plain = machine.Install("plain.ttf");
    const std::string styles = machine.Install("styles.ttc");
    const Catalogue fonts = ScannedCatalogue();
    EXPECT_EQ(TakeEntries(*fonts, fonts->GetFontFaceList()), std::vector<Entry>({{"Embolden", {}, styles},
                                                                                 {"Hershey", {}, {}},
                                                                                 {"HersheyBold", {}, {}},
                                                                                 {"HersheyItalic", {}, {}},
                                                                                 {"HersheyMonospace", {}, {}},
                                                                                 {"Iges1001", {}, {}},
                                                                                 {"Iges1002", {}, {}},
                                                                                 {"Iges1003", {}, {}},
                                                                                 {"Obliquely", {}, styles},
                                                                                 {"Vellum ITALICS", {}, styles},
                                                                                 {"Vellum Plain", {}, plain},
                                                                                 {"Vellum Styles", {}, styles}}));
}

TEST(FaceList, AnInstalledFontComesBeforeTheStrokeFontOfItsName) {
    const Machine machine;
    const std::string hershey = machine.Install("hershey.ttf");
    const Catalogue fonts = ScannedCatalogue();
    EXPECT_EQ(
        TakeNames(*fonts, fonts->GetFontFaceList()),
        Names({"Hershey", "HersheyBold", "HersheyItalic", "HersheyMonospace", "Iges1001", "Iges1002", "Iges1003"}));
    EXPECT_EQ(EntryOf(*fonts, "Hershey").file, hershey);
    EXPECT_EQ(StylesOf(*fonts, "Hershey"), Names({"Regular"}));
    EXPECT_EQ(StylesOf(*fonts, "HersheyBold"), Names());
}

TEST(FaceList, OfOneNameTheFirstRecordCounts) {
    const Machine machine;
    machine.Install("plain.ttf", "c.ttf");
    const std::string first = machine.Install("plain-medium.ttf", "b.ttf");
    machine.Install("trio.ttc", "a.ttc");
    machine.Register("plain.ttf", "0.ttf");
    const Catalogue fonts = ScannedCatalogue();
    EXPECT_EQ(EntryOf(*fonts, "Vellum Plain").file, first);
    EXPECT_EQ(InstalledFaces(*fonts), Names({"Vellum Duo", "Vellum Plain", "Vellum Trio"}));
    EXPECT_EQ(StylesOf(*fonts, "Vellum Plain"), Names({"Medium", "Regular", "Regular"}));
}

TEST(FaceList, OfManyOfOneNameTheFirstRecordCounts) {
    const Machine machine;
    const std::string first = machine.Install("plain.ttf", "10.ttf");
    for (int i = 11; i < 60; ++i)
        machine.Install("plain.ttf", std::to_string(i) + ".ttf");
    const Catalogue fonts = ScannedCatalogue();
    EXPECT_EQ(EntryOf(*fonts, "Vellum Plain").file, first);
}

TEST(FaceList, LetterCaseTellsNamesApart) {
    const Machine machine;
    const std::string upper = machine.Install("plain.ttf");
    const std::string lower = machine.Install("plain-lower-case.ttf");
    const Catalogue fonts = ScannedCatalogue();
    EXPECT_EQ(InstalledFaces(*fonts), Names({"Vellum Plain", "vellum plain"}));
    EXPECT_EQ(EntryOf(*fonts, "Vellum Plain").file, upper);
    EXPECT_EQ(EntryOf(*fonts, "vellum plain").file, lower);
    EXPECT_EQ(StylesOf(*fonts, "VELLUM PLAIN"), Names());
}

TEST(FaceList, IsInTheOrderOfUnsignedBytes) {
    const Machine machine;
    machine.Install("styles.ttc");
    const Catalogue fonts = ScannedCatalogue();
    Rename(fonts->faces[0].familyName, "\xE9");
    Rename(fonts->faces[1].familyName, "~");
    Rename(fonts->faces[2].familyName, "Hershex");
    Rename(fonts->faces[3].familyName, "HersheyB");
    Rename(fonts->faces[4].familyName, "hershey");
    Rename(fonts->faces[5].familyName, " ");
    fonts_test::ReleaseRecords(fonts->faces + 6);
    EXPECT_EQ(TakeNames(*fonts, fonts->GetFontFaceList()),
              Names({" ", "Hershex", "Hershey", "HersheyB", "HersheyBold", "HersheyItalic", "HersheyMonospace",
                     "Iges1001", "Iges1002", "Iges1003", "hershey", "~", "\xE9"}));
}

TEST(FaceList, LeavesOutNamesThatFreeTypeCannotRepresent) {
    const Machine machine;
    machine.Install("question-mark.ttf");
    machine.Install("not-ascii.ttf");
    const Catalogue fonts = ScannedCatalogue();
    EXPECT_EQ(fonts_test::FamilyNames(*fonts), Names({"???", "Vellum?"}));
    EXPECT_EQ(InstalledFaces(*fonts), Names());
    EXPECT_EQ(StylesOf(*fonts, "Vellum?"), Names({"Regular"}));
    EXPECT_EQ(StylesOf(*fonts, "???"), Names({"Regular"}));
}

TEST(FaceList, LeavesOutEmptyNames) {
    const Machine machine;
    machine.Install("no-family.ttf");
    machine.Install("no-style.ttf");
    const Catalogue fonts = ScannedCatalogue();
    EXPECT_EQ(InstalledFaces(*fonts), Names({"Vellum Styleless"}));
    EXPECT_EQ(StylesOf(*fonts, ""), Names({"Orphan"}));
    EXPECT_EQ(StylesOf(*fonts, "Vellum Styleless"), Names());
}

TEST(FaceList, HasLocalizedNames) {
    const Machine machine;
    machine.Install("localized.ttf");
    machine.Install("plain.ttf");
    SetVariable("KVO_LANG_SUB_DIR", "ja");
    const Catalogue fonts = ScannedCatalogue();
    // What was scanned counts, not what the variable says when the host asks.
    UnsetVariable("KVO_LANG_SUB_DIR");
    EXPECT_EQ(EntryOf(*fonts, "Vellum Local").localized, u"ベラム");
    EXPECT_EQ(EntryOf(*fonts, "Vellum Plain").localized, std::nullopt);
    EXPECT_EQ(StylesOf(*fonts, "Vellum Local"), Names({"Bold"}));
}

TEST(FaceList, HasNoLocalizedNamesWithoutALanguage) {
    const Machine machine;
    machine.Install("localized.ttf");
    const Catalogue fonts = ScannedCatalogue();
    for (const Entry& entry : TakeEntries(*fonts, fonts->GetFontFaceList()))
        EXPECT_EQ(entry.localized, std::nullopt) << entry.name;
}

TEST(FaceList, NeedsNameAndLengthOfALocalizedName) {
    const Machine machine;
    machine.Install("localized.ttf");
    SetVariable("KVO_LANG_SUB_DIR", "de");
    const Catalogue fonts = ScannedCatalogue();
    UnsetVariable("KVO_LANG_SUB_DIR");
    fonts->faces[0].uniFamilyLen = 0;
    EXPECT_EQ(EntryOf(*fonts, "Vellum Local").localized, std::nullopt);
}

TEST(FaceList, IsTheCallersOwn) {
    const Machine machine;
    machine.Install("plain.ttf");
    const Catalogue fonts = ScannedCatalogue();
    fnt_lst_t* list = fonts->GetFontFaceList();
    fnt_lst_t* other = fonts->GetFontFaceList();
    ASSERT_NE(list, nullptr);
    ASSERT_NE(other, nullptr);
    EXPECT_NE(list, other);
    list[7].face_name[0] = 'W';
    EXPECT_STREQ(other[7].face_name, "Vellum Plain");
    EXPECT_STREQ(fonts->faces[0].familyName, "Vellum Plain");
    EXPECT_NE(other[7].file_name, fonts->faces[0].filePath);
    fonts->DeleteFontFaceList(list);
    fonts->DeleteFontFaceList(other);
}

TEST(StyleList, KeepsOrderAndDuplicates) {
    const Machine machine;
    machine.Install("styles.ttc");
    const Catalogue fonts = ScannedCatalogue();
    EXPECT_EQ(StylesOf(*fonts, "Vellum Styles"), Names({"Regular", "BoLd OBLIQUE", "Both by flag", "Heavy", "Slanted",
                                                        "SEMIBOLD", "iTaLiC", "Oblique", "Regular"}));
}

TEST(StyleList, IsNullForUnknownNames) {
    const Machine machine;
    machine.Install("plain.ttf");
    const Catalogue fonts = ScannedCatalogue();
    for (std::string name : {"Vellum", "Vellum Plain ", "", "Iges1001"})
        EXPECT_EQ(fonts->GetStylesForFontFace(name.data()), nullptr) << name;
    EXPECT_EQ(fonts->GetStylesForFontFace(nullptr), nullptr);
}

TEST(FontLists, NothingIsReleasedForNull) {
    const Catalogue fonts = fonts_test::EmptyCatalogue();
    fonts->DeleteFontFaceList(nullptr);
    fonts->FreeFontFileList(nullptr);
    char** files = nullptr;
    fonts->FreeFontFileList(&files);
    EXPECT_EQ(files, nullptr);
}

TEST(FontLists, AreReleasedUpToTheEntryWithoutAName) {
    const Catalogue fonts = fonts_test::EmptyCatalogue();
    // The second entry's strings are not looked at: the address is nobody's.
    static char outside[] = "outside";
    auto* list = new fnt_lst_t[2]{{nullptr, nullptr, nullptr}, {nullptr, outside, outside}};
    Rename(list[0].face_name, "only");
    fonts->DeleteFontFaceList(list);
}

}  // namespace
