// SPDX-License-Identifier: MIT

// From font files to records.
#include <ft2build.h>
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include FT_FREETYPE_H

#include "fonts/font_machine.h"

namespace {

using namespace std::string_literals;

using fonts_test::Catalogue;
using fonts_test::CountRecords;
using fonts_test::EmptyCatalogue;
using fonts_test::FacesOf;
using fonts_test::Machine;
using fonts_test::SetVariable;
using fonts_test::TestFont;
using fonts_test::UnsetVariable;
using Vellum::FontFaceRec;
using Names = std::vector<std::string>;

class FontRecords : public testing::Test {
protected:
    // Reads a file into the slots from 0 on.
    int Read(const std::string& font) { return ReadPath(TestFont(font)); }

    int ReadPath(std::string path) {
        char* pointer = path.data();
        return fonts->SetupFontList(&pointer, 0);
    }

    Catalogue fonts = EmptyCatalogue();
};

void ExpectName(const char* name, int length, const std::string& expected) {
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(std::string(name, static_cast<size_t>(length)), expected);
}

TEST_F(FontRecords, OfAPlainFont) {
    std::string path = TestFont("plain.ttf");
    EXPECT_EQ(ReadPath(path), 1);
    const FontFaceRec& face = fonts->faces[0];
    EXPECT_EQ(face.filePath, path);
    EXPECT_EQ(face.faceIndex, 0u);
    EXPECT_STREQ(face.familyName, "Vellum Plain");
    EXPECT_STREQ(face.styleName, "Regular");
    EXPECT_EQ(face.localeFlag, 9);
    EXPECT_EQ(face.uniFamilyLen, 0);
    EXPECT_EQ(face.uniFamilyName, nullptr);
    EXPECT_EQ(face.uniStyleLen, 0);
    EXPECT_EQ(face.uniStyleName, nullptr);
    EXPECT_EQ(face.styleFlags, 0);
    EXPECT_EQ(face.reserved, 0);
    EXPECT_EQ(face.isSymbol, 0);
    EXPECT_EQ(face.charmapIndex, 0u);
    EXPECT_EQ(fonts->faces[1].filePath, nullptr);
}

TEST_F(FontRecords, OfACollectionOneForEachFace) {
    std::string path = TestFont("trio.ttc");
    char* pointer = path.data();
    EXPECT_EQ(fonts->SetupFontList(&pointer, 5), 8);
    EXPECT_EQ(fonts->faces[4].filePath, nullptr);
    EXPECT_EQ(fonts->faces[8].filePath, nullptr);
    EXPECT_STREQ(fonts->faces[5].familyName, "Vellum Trio");
    EXPECT_STREQ(fonts->faces[6].familyName, "Vellum Duo");
    EXPECT_STREQ(fonts->faces[7].styleName, "Italic");
    for (uint32_t i = 0; i < 3; ++i) {
        EXPECT_EQ(fonts->faces[5 + i].faceIndex, i);
        EXPECT_EQ(fonts->faces[5 + i].filePath, path);
        EXPECT_NE(fonts->faces[5 + i].filePath, path.data());
    }
    EXPECT_EQ(fonts->faces[5].styleFlags, 0);
    EXPECT_EQ(fonts->faces[6].styleFlags, 2);
    EXPECT_EQ(fonts->faces[7].styleFlags, 1);
}

TEST_F(FontRecords, OfSymbolFonts) {
    EXPECT_EQ(Read("symbol.ttf"), 1);
    EXPECT_EQ(fonts->faces[0].isSymbol, 1);
    EXPECT_EQ(fonts->faces[0].charmapIndex, 1u);
    fonts_test::ReleaseRecords(fonts->faces);
    // Of several symbol maps the last one, here before a Unicode map.
    EXPECT_EQ(Read("symbol-twice.ttf"), 1);
    EXPECT_EQ(fonts->faces[0].isSymbol, 1);
    EXPECT_EQ(fonts->faces[0].charmapIndex, 1u);
}

TEST_F(FontRecords, CarryTheIndexOfTheSymbolMapOnWithinAFile) {
    EXPECT_EQ(Read("symbol-first.ttc"), 2);
    EXPECT_EQ(fonts->faces[0].isSymbol, 1);
    EXPECT_EQ(fonts->faces[0].charmapIndex, 1u);
    EXPECT_EQ(fonts->faces[1].isSymbol, 0);
    EXPECT_EQ(fonts->faces[1].charmapIndex, 1u);
    std::string path = TestFont("plain.ttf");
    char* pointer = path.data();
    EXPECT_EQ(fonts->SetupFontList(&pointer, 2), 3);
    EXPECT_EQ(fonts->faces[2].charmapIndex, 0u);
}

TEST_F(FontRecords, AFaceWithoutAUsableMapEndsItsFile) {
    EXPECT_EQ(Read("no-maps.ttf"), 0);
    EXPECT_EQ(Read("mac-map.ttf"), 0);
    EXPECT_EQ(CountRecords(*fonts), 0u);
    EXPECT_EQ(Read("interrupted.ttc"), 1);
    EXPECT_EQ(FacesOf(*fonts), Names({"Vellum First/Regular"}));
}

TEST_F(FontRecords, MissingNamesAreEmpty) {
    for (const auto& [font, family, style] :
         {std::tuple("no-family.ttf", "", "Orphan"), std::tuple("empty-family.ttf", "", "Orphan"),
          std::tuple("no-style.ttf", "Vellum Styleless", ""), std::tuple("empty-style.ttf", "Vellum Styleless", ""),
          std::tuple("no-names.ttf", "", "")}) {
        EXPECT_EQ(Read(font), 1) << font;
        EXPECT_STREQ(fonts->faces[0].familyName, family) << font;
        EXPECT_STREQ(fonts->faces[0].styleName, style) << font;
        fonts_test::ReleaseRecords(fonts->faces);
    }
}

TEST_F(FontRecords, DamagedFilesAddNone) {
    for (const char* font :
         {"empty.ttf", "garbage.ttf", "garbage-behind-header.ttf", "truncated-header.ttf", "truncated-directory.ttf",
          "truncated-tables.ttf", "truncated.ttc", "no-faces.ttc", "countless-faces.ttc"}) {
        EXPECT_EQ(Read(font), 0) << font;
    }
    EXPECT_EQ(ReadPath("/no/such/file.ttf"), 0);
    EXPECT_EQ(ReadPath("/"), 0);
    EXPECT_EQ(ReadPath(""), 0);
    EXPECT_EQ(CountRecords(*fonts), 0u);
}

TEST_F(FontRecords, DamagedFilesKeepTheFacesBeforeTheDamage) {
    EXPECT_EQ(Read("more-faces-than-offsets.ttc"), 3);
    EXPECT_EQ(FacesOf(*fonts), Names({"Vellum Trio/Regular", "Vellum Duo/Bold", "Vellum Trio/Italic"}));
    fonts_test::ReleaseRecords(fonts->faces);
    EXPECT_EQ(Read("broken-middle.ttc"), 1);
    EXPECT_EQ(FacesOf(*fonts), Names({"Vellum Trio/Regular"}));
}

TEST_F(FontRecords, NamesThatAreNotThereAreEmpty) {
    SetVariable("KVO_LANG_SUB_DIR", "ja");
    for (const auto& [font, style] :
         {std::pair("endless-names.ttf", "Regular"), std::pair("names-elsewhere.ttf", "Regular"),
          std::pair("countless-names.ttf", "")}) {
        EXPECT_EQ(Read(font), 1) << font;
        EXPECT_STREQ(fonts->faces[0].familyName, "") << font;
        EXPECT_STREQ(fonts->faces[0].styleName, style) << font;
        fonts_test::ReleaseRecords(fonts->faces);
    }
    UnsetVariable("KVO_LANG_SUB_DIR");
}

TEST_F(FontRecords, SlotsOutsideTheTableTakeNone) {
    std::string path = TestFont("trio.ttc");
    char* pointer = path.data();
    EXPECT_EQ(fonts->SetupFontList(&pointer, 4095), 4096);
    EXPECT_STREQ(fonts->faces[4095].familyName, "Vellum Trio");
    EXPECT_EQ(fonts->unused[0], nullptr);
    EXPECT_EQ(fonts->SetupFontList(&pointer, 4096), 4096);
    EXPECT_EQ(fonts->SetupFontList(&pointer, 5000), 5000);
    EXPECT_EQ(fonts->SetupFontList(&pointer, -1), -1);
}

TEST(FontLocale, FlagsOfTheLanguages) {
    const Catalogue fonts = EmptyCatalogue();
    UnsetVariable("KVO_LANG_SUB_DIR");
    EXPECT_EQ(fonts->GetFontLocaleFlag(), 9);
    for (const auto& [language, flag] :
         {std::pair("C", 9),     std::pair("de", 7),     std::pair("fr", 12),    std::pair("it", 16),
          std::pair("ja", 17),   std::pair("JaPCK", 17), std::pair("ko", 18),    std::pair("pt", 22),
          std::pair("es", 10),   std::pair("ru", 25),    std::pair("ZhBIG5", 4), std::pair("ZhGBK", 4),
          std::pair("", 9),      std::pair("en", 9),     std::pair("DE", 9),     std::pair("japck", 9),
          std::pair("ja_JP", 9), std::pair(" ja", 9),    std::pair("Zh", 9),     std::pair("zhbig5", 9)}) {
        SetVariable("KVO_LANG_SUB_DIR", language);
        EXPECT_EQ(fonts->GetFontLocaleFlag(), flag) << language;
    }
    UnsetVariable("KVO_LANG_SUB_DIR");
}

class LocalizedRecords : public FontRecords {
protected:
    ~LocalizedRecords() override { UnsetVariable("KVO_LANG_SUB_DIR"); }

    const FontFaceRec& ReadIn(const char* language) {
        fonts_test::ReleaseRecords(fonts->faces);
        SetVariable("KVO_LANG_SUB_DIR", language);
        EXPECT_EQ(Read("localized.ttf"), 1);
        return fonts->faces[0];
    }
};

TEST_F(LocalizedRecords, TakeTheFirstNameOfTheBareLanguage) {
    for (const char* language : {"ja", "JaPCK"}) {
        const FontFaceRec& face = ReadIn(language);
        EXPECT_STREQ(face.familyName, "Vellum Local");
        EXPECT_EQ(face.localeFlag, 17);
        EXPECT_EQ(face.uniFamilyLen, 8);
        ExpectName(face.uniFamilyName, face.uniFamilyLen, "\xD9\x30\xE9\x30\xE0\x30\0\0"s);
        EXPECT_EQ(face.uniStyleLen, 6);
        ExpectName(face.uniStyleName, face.uniStyleLen, "\x2A\x59\x57\x5B\0\0"s);
    }
}

TEST_F(LocalizedRecords, TakeEachLanguagesNames) {
    const FontFaceRec* face = &ReadIn("de");
    EXPECT_EQ(face->localeFlag, 7);
    ExpectName(face->uniFamilyName, face->uniFamilyLen, "W\0e\0l\0l\0u\0m\0\0\0"s);
    EXPECT_EQ(face->uniStyleName, nullptr);
    EXPECT_EQ(face->uniStyleLen, 0);
    face = &ReadIn("fr");
    EXPECT_EQ(face->localeFlag, 12);
    EXPECT_EQ(face->uniFamilyName, nullptr);
    EXPECT_EQ(face->uniFamilyLen, 0);
    ExpectName(face->uniStyleName, face->uniStyleLen, "G\0r\0a\0s\0\0\0"s);
    for (const auto& [language, text] : {std::pair("it", "L\0001\0006\0\0\0"s), std::pair("ko", "L\0001\0008\0\0\0"s),
                                         std::pair("pt", "L\0002\0002\0\0\0"s), std::pair("ru", "L\0002\0005\0\0\0"s),
                                         std::pair("ZhBIG5", "\x87\x65\0\0"s), std::pair("ZhGBK", "\x87\x65\0\0"s)}) {
        face = &ReadIn(language);
        ExpectName(face->uniFamilyName, face->uniFamilyLen, text);
        EXPECT_EQ(face->uniStyleName, nullptr);
    }
}

TEST_F(LocalizedRecords, KeepTheLengthOfANameOfAnOddNumberOfBytes) {
    const FontFaceRec& face = ReadIn("es");
    EXPECT_EQ(face.uniFamilyLen, 7);
    ExpectName(face.uniFamilyName, face.uniFamilyLen, "V\0e\0\0\0\0"s);
    EXPECT_EQ(face.uniStyleLen, 3);
    ExpectName(face.uniStyleName, face.uniStyleLen, "\0\0\0"s);
}

TEST_F(LocalizedRecords, TakeNoneForEnglish) {
    for (const char* language : {"C", "en", "us"}) {
        const FontFaceRec& face = ReadIn(language);
        EXPECT_EQ(face.localeFlag, 9);
        EXPECT_EQ(face.uniFamilyName, nullptr);
        EXPECT_EQ(face.uniFamilyLen, 0);
        EXPECT_EQ(face.uniStyleName, nullptr);
        EXPECT_EQ(face.uniStyleLen, 0);
    }
}

// A face that the host opened itself.
class HostFace {
public:
    explicit HostFace(const std::string& font) {
        EXPECT_EQ(FT_Init_FreeType(&library_), 0);
        EXPECT_EQ(FT_New_Face(library_, TestFont(font).c_str(), 0, &face_), 0);
    }
    ~HostFace() {
        FT_Done_Face(face_);
        FT_Done_FreeType(library_);
    }
    HostFace(const HostFace&) = delete;
    HostFace& operator=(const HostFace&) = delete;

    FT_Face Get() const { return face_; }

private:
    FT_Library library_ = nullptr;
    FT_Face face_ = nullptr;
};

class LocalizedNames : public testing::Test {
protected:
    void ExpectFound(int language, int nameId, const std::string& expected) {
        int length = -1;
        const std::unique_ptr<char[]> name(fonts->GetUnicodeForLanguageLite(face.Get(), language, nameId, &length));
        EXPECT_EQ(length, static_cast<int>(expected.size()));
        ExpectName(name.get(), length, expected);
    }

    void ExpectNone(int language, int nameId) {
        int length = -1;
        EXPECT_EQ(fonts->GetUnicodeForLanguageLite(face.Get(), language, nameId, &length), nullptr);
        EXPECT_EQ(length, 0);
    }

    Catalogue fonts = EmptyCatalogue();
    HostFace face = HostFace("localized.ttf");
};

TEST_F(LocalizedNames, OfAFaceThatTheHostOpened) {
    ExpectFound(7, 1, "W\0e\0l\0l\0u\0m\0\0\0"s);
    ExpectFound(12, 2, "G\0r\0a\0s\0\0\0"s);
    ExpectFound(17, 4, "f\0u\0l\0l\0 \0n\0a\0m\0e\0\0\0"s);
    // The host may name a country's language, or English.
    ExpectFound(0x411, 1, "s\0u\0b\0-\0l\0a\0n\0g\0u\0a\0g\0e\0\0\0"s);
    ExpectFound(0x409, 2, "B\0o\0l\0d\0\0\0"s);
}

TEST_F(LocalizedNames, AreNoneWithoutAMatch) {
    ExpectNone(9, 1);
    ExpectNone(7, 2);
    ExpectNone(17, 3);
    ExpectNone(0x10011, 1);
    ExpectNone(-1, 1);
}

TEST_F(LocalizedNames, AreNoneWithoutANameTable) {
    const HostFace nameless("no-names.ttf");
    int length = -1;
    EXPECT_EQ(fonts->GetUnicodeForLanguageLite(nameless.Get(), 0x409, 1, &length), nullptr);
    EXPECT_EQ(length, 0);
    EXPECT_EQ(fonts->GetUnicodeForLanguageLite(nullptr, 0x409, 1, &length), nullptr);
}

TEST(FontTable, EndsAt4096Records) {
    const Machine machine;
    machine.Write(machine.Folder() + "/many.ttc",
                  fonts_test::CollectionOf(fonts_test::ReadFile(TestFont("plain.ttf")), 4100));
    machine.Install("trio.ttc", "more.ttc");
    const Catalogue fonts = fonts_test::ScannedCatalogue();
    EXPECT_EQ(CountRecords(*fonts), 4096u);
    EXPECT_EQ(fonts->faces[4095].faceIndex, 4095u);
    EXPECT_EQ(fonts->unused[0], nullptr);
    // A full array of indices has no end mark, and the next one begins as it should.
    for (uint32_t i = 0; i < 4096; ++i)
        ASSERT_EQ(fonts->regular[i], i);
    EXPECT_EQ(fonts->bold[0], 0xFFFFFFFFu);
    EXPECT_EQ(fonts->italic[0], 0xFFFFFFFFu);
    EXPECT_EQ(fonts->boldItalic[0], 0xFFFFFFFFu);

    EXPECT_EQ(fonts_test::InstalledFaces(*fonts), Names({"Vellum Plain"}));
    EXPECT_EQ(fonts_test::StylesOf(*fonts, "Vellum Plain"), Names(4096, "Regular"));
    // The same with all of them bold italic, whose array is the last one.
    for (FontFaceRec& face : fonts->faces)
        face.styleFlags = 3;
    fonts->ReduceFontListByStyles();
    EXPECT_EQ(fonts->boldItalic[4095], 4095u);
    EXPECT_EQ(fonts->sentinel, -1);
    EXPECT_EQ(fonts->regular[0], 0xFFFFFFFFu);
}

}  // namespace
