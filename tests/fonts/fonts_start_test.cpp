// SPDX-License-Identifier: MIT

// How the catalogue of the process starts and how it fails. What happens first in a process decides, so every case
// needs a process of its own, which it has under ctest.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "fonts/folder_searches.h"
#include "fonts/font_machine.h"

namespace {

using fonts_test::Catalogue;
using fonts_test::CountRecords;
using fonts_test::Entry;
using fonts_test::IndicesOf;
using fonts_test::InstalledFaces;
using fonts_test::Machine;
using fonts_test::StylesOf;
using fonts_test::TakeEntries;
using Vellum::fnt_lst_t;
using Vellum::Fonts;
using Names = std::vector<std::string>;

class FontsStart : public testing::Test {
protected:
    void SetUp() override {
        static bool isUsed = false;
        if (isUsed) GTEST_SKIP() << "needs a process of its own";
        isUsed = true;
    }

    static void ExpectFailed(Fonts& fonts) {
        EXPECT_EQ(fonts.GetFontFaceList(), nullptr);
        EXPECT_EQ(StylesOf(fonts, "Vellum Plain"), Names());
        EXPECT_FALSE(fonts.InitializeFreeType());
    }

    Machine machine;
};

TEST_F(FontsStart, TheFirstQueryScans) {
    const std::string plain = machine.Install("plain.ttf");
    Fonts* fonts = Fonts::getInstance();
    EXPECT_EQ(fonts->faces[0].filePath, nullptr);
    EXPECT_EQ(fonts->faces[0].familyName, nullptr);
    for (const auto* indices : {&fonts->regular, &fonts->bold, &fonts->italic, &fonts->boldItalic})
        EXPECT_EQ((*indices)[0], 0xFFFFFFFFu);
    EXPECT_EQ(fonts->sentinel, -1);
    EXPECT_EQ(Fonts::getInstance(), fonts);

    // Installed since: the query's scan finds it.
    const std::string symbol = machine.Install("symbol.ttf");
    const std::vector<Entry> entries = TakeEntries(*fonts, fonts->GetFontFaceList());
    const std::vector<Entry> expected = {
        {"Hershey", {}, {}},          {"HersheyBold", {}, {}},     {"HersheyItalic", {}, {}},
        {"HersheyMonospace", {}, {}}, {"Iges1001", {}, {}},        {"Iges1002", {}, {}},
        {"Iges1003", {}, {}},         {"Vellum Plain", {}, plain}, {"Vellum Symbol", {}, symbol}};
    EXPECT_EQ(entries, expected);
    EXPECT_EQ(CountRecords(*fonts), 2u);
    EXPECT_EQ(IndicesOf(fonts->regular), std::vector<unsigned>({0, 1}));
}

TEST_F(FontsStart, ThreadsThatComeAtOnceGetOneCatalogueFromOneSearch) {
    const fonts_test::SlowFolderSearches searches;
    std::array<Fonts*, 4> catalogues = {};
    std::vector<std::thread> threads;
    for (Fonts*& catalogue : catalogues)
        threads.emplace_back([&catalogue] { catalogue = Fonts::getInstance(); });
    for (std::thread& thread : threads)
        thread.join();
    for (const Fonts* catalogue : catalogues)
        EXPECT_EQ(catalogue, Fonts::getInstance());
    EXPECT_EQ(searches.Count(), 1);
}

TEST_F(FontsStart, StylesMayBeAskedForFirst) {
    machine.Install("trio.ttc");
    Fonts& fonts = *Fonts::getInstance();
    EXPECT_EQ(StylesOf(fonts, "Vellum Trio"), Names({"Regular", "Italic"}));
}

TEST_F(FontsStart, FreeTypeMayBeStartedFirst) {
    machine.Install("trio.ttc");
    Fonts& fonts = *Fonts::getInstance();
    EXPECT_TRUE(fonts.InitializeFreeType());
    EXPECT_EQ(CountRecords(fonts), 3u);
    machine.Install("plain.ttf");
    EXPECT_TRUE(fonts.InitializeFreeType());
    EXPECT_EQ(CountRecords(fonts), 3u);
}

TEST_F(FontsStart, BeforeFreeTypeFilesAreListedAndNotRead) {
    std::string plain = machine.Install("plain.ttf");
    Fonts& fonts = *Fonts::getInstance();
    EXPECT_EQ(fonts_test::FolderFiles(fonts, ""), Names({plain}));
    char* path = plain.data();
    EXPECT_EQ(fonts.SetupFontList(&path, 0), 0);
    EXPECT_EQ(fonts.faces[0].filePath, nullptr);
    EXPECT_TRUE(fonts.InitFaceList());
    EXPECT_EQ(fonts.faces[0].filePath, nullptr);
}

TEST_F(FontsStart, LaterQueriesTouchNoFile) {
    machine.Install("trio.ttc");
    machine.Register("plain.ttf");
    Fonts& fonts = *Fonts::getInstance();
    const std::vector<Entry> first = TakeEntries(fonts, fonts.GetFontFaceList());
    machine.RemoveFonts();
    EXPECT_EQ(TakeEntries(fonts, fonts.GetFontFaceList()), first);
    EXPECT_EQ(InstalledFaces(fonts), Names({"Vellum Duo", "Vellum Plain", "Vellum Trio"}));
    EXPECT_EQ(StylesOf(fonts, "Vellum Duo"), Names({"Bold"}));
}

TEST_F(FontsStart, WithoutAFontFileItFailsForGood) {
    // The registered fonts do not count.
    machine.Register("plain.ttf");
    Fonts& fonts = *Fonts::getInstance();
    ExpectFailed(fonts);
    EXPECT_EQ(fonts.GetFontFileList(), nullptr);

    machine.Install("plain.ttf");
    ExpectFailed(fonts);
    EXPECT_EQ(CountRecords(fonts), 0u);
    // A scan that the host asks for does find it, and the queries stay without an answer.
    const Catalogue other(new Fonts);
    EXPECT_EQ(CountRecords(*other), 2u);
    ExpectFailed(*other);
}

TEST_F(FontsStart, WithoutAUsableFaceItFailsForGood) {
    machine.Install("garbage.ttf");
    machine.Install("no-maps.ttf");
    machine.Register("mac-map.ttf");
    Fonts& fonts = *Fonts::getInstance();
    ExpectFailed(fonts);
    machine.Install("plain.ttf");
    ExpectFailed(fonts);
}

TEST_F(FontsStart, AFailureOfStartingIsOneForGood) {
    Fonts& fonts = *Fonts::getInstance();
    EXPECT_FALSE(fonts.InitializeFreeType());
    machine.Install("plain.ttf");
    ExpectFailed(fonts);
}

TEST_F(FontsStart, RegisteredFontsAloneMakeRecordsWhereTheFolderHoldsAFile) {
    machine.Install("garbage.ttf");
    machine.Register("plain.ttf");
    EXPECT_EQ(InstalledFaces(*Fonts::getInstance()), Names({"Vellum Plain"}));
}

TEST_F(FontsStart, TheInstanceIsMadeInZeroedMemory) {
    // Without a font file the classes are not filled.
    const Fonts& fonts = *Fonts::getInstance();
    for (const auto* indices : {&fonts.regular, &fonts.bold, &fonts.italic, &fonts.boldItalic})
        EXPECT_TRUE(std::all_of(std::begin(*indices), std::end(*indices), [](uint32_t i) { return i == 0; }));
    EXPECT_TRUE(std::all_of(std::begin(fonts.unused), std::end(fonts.unused), [](void* p) { return p == nullptr; }));
}

}  // namespace
