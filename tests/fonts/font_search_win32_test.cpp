// SPDX-License-Identifier: MIT

// Where Windows keeps fonts.

#define WIN32_LEAN_AND_MEAN
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "fonts/font_machine.h"
#include "fonts/font_registry_win32.h"

namespace {

namespace fs = std::filesystem;

using fonts_test::AddFamily;
using fonts_test::Machine;
using fonts_test::RegisterFont;
using fonts_test::WriteFontBytes;
using Names = std::vector<std::string>;

class FontFolder : public testing::Test {
protected:
    Names Files() const { return fonts_test::FolderFiles(*fonts, machine.Folder() + '\\'); }

    void Touch(const std::string& name) const { machine.Write(machine.Folder() + '\\' + name, "no font"); }

    fonts_test::Catalogue fonts = fonts_test::EmptyCatalogue();
    Machine machine;
};

TEST_F(FontFolder, HoldsTheFilesThatMatchInAnyCase) {
    for (const char* name : {"a.ttf", "B.TTF", "c.tTc", "d.tte", "e.tt_", "f.ttf.ttf"})
        Touch(name);
    for (const char* name : {"h.otf", "i.fon", "k.ttf.gz", "lttf", "m.t1f", "n.xtf"})
        Touch(name);
    Names files = Files();
    std::sort(files.begin(), files.end());
    EXPECT_EQ(files, Names({"B.TTF", "a.ttf", "c.tTc", "d.tte", "e.tt_", "f.ttf.ttf"}));
}

TEST_F(FontFolder, IsSearchedWithoutSubdirectories) {
    Touch("sub\\a.ttf");
    Touch("b.ttf");
    EXPECT_EQ(Files(), Names({"b.ttf"}));
}

TEST_F(FontFolder, HoldsADirectoryOfSuchAName) {
    Touch("d.ttf\\a.ttf");
    EXPECT_EQ(Files(), Names({"d.ttf"}));
    EXPECT_TRUE(fonts->InitFaceList());
    EXPECT_EQ(fonts_test::CountRecords(*fonts), 0u);
}

TEST_F(FontFolder, IsNullWithoutAFile) { EXPECT_EQ(fonts->GetFontFileList(), nullptr); }

TEST_F(FontFolder, IsListedUpTo1200Files) {
    for (int i = 0; i < 1203; ++i)
        Touch(std::to_string(1000 + i) + ".ttf");
    Names files = Files();
    EXPECT_EQ(files.size(), 1200u);
    std::sort(files.begin(), files.end());
    EXPECT_EQ(std::unique(files.begin(), files.end()), files.end());
}

class RegisteredFonts : public testing::Test {
protected:
    Names Registered() const { return fonts_test::ScanRegistered(inFolder); }

    Machine machine;
    std::string inFolder = machine.Install("symbol.ttf");
};

TEST_F(RegisteredFonts, ComeAfterTheFolders) {
    const std::string first = machine.Register("plain.ttf", "b.ttf");
    const std::string second = machine.Register("plain.ttf", "a.ttf");
    EXPECT_EQ(Registered(), Names({first, second}));
}

TEST_F(RegisteredFonts, AreReadWithAllTheirFaces) {
    const std::string trio = machine.Register("trio.ttc", "whatever.bin");
    EXPECT_EQ(Registered(), Names({trio, trio, trio}));
}

TEST_F(RegisteredFonts, AreNamedWithTheirDrive) {
    const std::string elsewhere = machine.Copy("plain.ttf", machine.Elsewhere() + "\\plain.ttf");
    ASSERT_EQ(elsewhere.substr(1, 2), ":\\");
    const std::string family = AddFamily(machine);
    // These lead to the file, but for the last.
    fs::current_path(machine.Elsewhere());
    const Names values = {
        elsewhere.substr(2), "plain.ttf", ".\\plain.ttf", "\\\\?\\" + elsewhere, "symbol.ttf", "p", ""};
    for (const std::string& value : values) {
        RegisterFont(family, value);
        EXPECT_EQ(Registered(), Names()) << value;
    }
    RegisterFont(family, elsewhere);
    EXPECT_EQ(Registered(), Names({elsewhere}));
    fs::current_path(machine.Folder());
}

TEST_F(RegisteredFonts, AreNamedForAReportedTrueTypeFamily) {
    const std::string file = machine.Copy("plain.ttf", machine.Elsewhere() + "\\plain.ttf");
    const std::string family = AddFamily(machine);
    const Names names = {family, family + " Regular (TrueType)", family + " (OpenType)", family + "(TrueType)",
                         "Vellum Windows absent (TrueType)"};
    for (const std::string& name : names) {
        fonts_test::WriteFontValue(name, file);
        EXPECT_EQ(Registered(), Names()) << name;
    }
    RegisterFont(family, file);
    EXPECT_EQ(Registered(), Names({file}));
}

TEST_F(RegisteredFonts, ThatAreNotThereAddNothing) {
    RegisterFont(AddFamily(machine), machine.Elsewhere() + "\\none.ttf");
    const std::string plain = machine.Register("plain.ttf");
    EXPECT_EQ(Registered(), Names({plain}));
}

TEST_F(RegisteredFonts, AreReadForEveryCharacterSet) {
    const std::string file = machine.Copy("plain.ttf", machine.Elsewhere() + "\\plain.ttf");
    RegisterFont(AddFamily(machine, "windows-thrice.ttf"), file);
    EXPECT_EQ(Registered(), Names({file, file, file}));
}

TEST_F(RegisteredFonts, AreAtMostAHundred) {
    Names expected;
    for (int i = 0; i < 102; ++i) {
        const std::string file = machine.Register("plain.ttf", std::to_string(100 + i) + ".ttf");
        if (i < 100) expected.push_back(file);
    }
    EXPECT_EQ(Registered(), expected);
}

TEST_F(RegisteredFonts, HavePathsOfUpTo199Characters) {
    // With the terminator a value has 200 bytes.
    const std::string directory = machine.Elsewhere() + '\\';
    const std::string longest = directory + std::string(199 - directory.size() - 4, 'x') + ".ttf";
    const std::string tooLong = directory + std::string(200 - directory.size() - 4, 'y') + ".ttf";
    for (const std::string& file : {tooLong, longest})
        RegisterFont(AddFamily(machine), machine.Copy("plain.ttf", file));
    EXPECT_EQ(Registered(), Names({longest}));
}

TEST_F(RegisteredFonts, CountWithTheirRepetitions) {
    Names expected;
    for (int i = 0; i < 34; ++i) {
        const std::string file =
            machine.Copy("plain.ttf", machine.Elsewhere() + '\\' + std::to_string(100 + i) + ".ttf");
        RegisterFont(AddFamily(machine, "windows-thrice.ttf"), file);
        expected.insert(expected.end(), i < 33 ? 3 : 1, file);
    }
    EXPECT_EQ(Registered(), expected);
}

TEST_F(RegisteredFonts, OfNoPathTakeAPlaceWhereTheSecondCharacterIsAColon) {
    WriteFontBytes(AddFamily(machine) + " (TrueType)", REG_BINARY, std::string("\0:", 2));
    Names expected;
    for (int i = 0; i < 100; ++i) {
        const std::string file = machine.Register("plain.ttf", std::to_string(100 + i) + ".ttf");
        if (i < 99) expected.push_back(file);
    }
    EXPECT_EQ(Registered(), expected);
}

TEST_F(RegisteredFonts, AreNamedByUpTo200BytesOfAnyType) {
    const std::string directory = machine.Elsewhere() + '\\';
    const auto pathOf = [&directory](size_t length, char letter) {
        return directory + std::string(length - directory.size() - 4, letter) + ".ttf";
    };
    const std::string longest = machine.Copy("plain.ttf", pathOf(200, 'x'));
    const std::string tooLong = machine.Copy("plain.ttf", pathOf(201, 'y'));
    const std::string name = AddFamily(machine) + " (TrueType)";
    // Without a terminator.
    WriteFontBytes(name, REG_BINARY, tooLong);
    EXPECT_EQ(Registered(), Names());
    WriteFontBytes(name, REG_BINARY, longest);
    EXPECT_EQ(Registered(), Names({longest}));
}

TEST_F(RegisteredFonts, AreNamedByPathsThatMayBeExpandedAndAreNot) {
    const std::string file = machine.Copy("plain.ttf", machine.Elsewhere() + "\\plain.ttf");
    const std::string name = AddFamily(machine) + " (TrueType)";
    fonts_test::SetVariable("VELLUM_TEST_PATH", machine.Elsewhere());
    WriteFontBytes(name, REG_EXPAND_SZ, std::string("%VELLUM_TEST_PATH%\\plain.ttf") + '\0');
    EXPECT_EQ(Registered(), Names());
    WriteFontBytes(name, REG_EXPAND_SZ, file + '\0');
    EXPECT_EQ(Registered(), Names({file}));
    fonts_test::UnsetVariable("VELLUM_TEST_PATH");
}

TEST_F(RegisteredFonts, AreNotNamedByLessThanTwoBytes) {
    const std::string name = AddFamily(machine) + " (TrueType)";
    for (const char* bytes : {"", ":"}) {
        WriteFontBytes(name, REG_BINARY, bytes);
        EXPECT_EQ(Registered(), Names());
    }
}

TEST_F(RegisteredFonts, OfTheFolderAreReadTwice) {
    RegisterFont(AddFamily(machine), inFolder);
    EXPECT_EQ(Registered(), Names({inFolder}));
}

}  // namespace
