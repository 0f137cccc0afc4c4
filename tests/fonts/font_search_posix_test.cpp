// SPDX-License-Identifier: MIT

// Where fonts are looked for, and in which order.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "fonts/font_machine.h"

namespace {

namespace fs = std::filesystem;

using fonts_test::Catalogue;
using fonts_test::FilesOf;
using fonts_test::Machine;
using fonts_test::ScannedCatalogue;
using fonts_test::SetVariable;
using Names = std::vector<std::string>;

class FontFolder : public testing::Test {
protected:
    Names Files() const { return fonts_test::FolderFiles(*fonts, machine.Path("share")); }

    void Touch(const std::string& name) const { machine.Write(machine.Folder() + '/' + name, "no font"); }

    Catalogue fonts = fonts_test::EmptyCatalogue();
    Machine machine;
};

TEST_F(FontFolder, HoldsTheFilesThatMatchInAnyCase) {
    for (const char* name : {"a.ttf", "B.TTF", "c.tTc", "d.tte", "e.tt_", ".ttf", "f.ttf.ttf", "g.tt\xE9"})
        Touch(name);
    for (const char* name : {"h.tt", "i.ttff", "j.otf", "k.ttf.gz", "lttf", "m.t1f", "n.xtf", "tt", "o.ttf~"})
        Touch(name);
    EXPECT_EQ(Files(), Names({"/fonts/.ttf", "/fonts/B.TTF", "/fonts/a.ttf", "/fonts/c.tTc", "/fonts/d.tte",
                              "/fonts/e.tt_", "/fonts/f.ttf.ttf", "/fonts/g.tt\xE9"}));
}

TEST_F(FontFolder, IsSearchedWithItsSubdirectories) {
    for (const char* name : {"b.ttf", "sub/deep/er/a.ttf", "sub/c.ttf", "sub-a/z.ttf", "sub.ttf", "Sub/y.ttf",
                             ".hidden/x.ttf", "dir.ttf/w.ttf", "sub/deep/other.txt"})
        Touch(name);
    // Paths as a whole are in order: '-' and '.' come before '/'.
    EXPECT_EQ(Files(), Names({"/fonts/.hidden/x.ttf", "/fonts/Sub/y.ttf", "/fonts/b.ttf", "/fonts/dir.ttf/w.ttf",
                              "/fonts/sub-a/z.ttf", "/fonts/sub.ttf", "/fonts/sub/c.ttf", "/fonts/sub/deep/er/a.ttf"}));
}

TEST_F(FontFolder, IsNullWithoutAFile) {
    EXPECT_EQ(fonts->GetFontFileList(), nullptr);
    Touch("readme.txt");
    fs::create_directories(machine.Folder() + "/sub.ttf");
    EXPECT_EQ(fonts->GetFontFileList(), nullptr);
    machine.RemoveFonts();
    EXPECT_EQ(fonts->GetFontFileList(), nullptr);
}

TEST_F(FontFolder, IsThatOfEachDataDirectoryInTurn) {
    for (const char* name : {"z/fonts/b.ttf", "z/fonts/a.ttf", "a/fonts/c.ttf", "a/d.ttf"})
        machine.Write(machine.Path("share/" + std::string(name)), "no font");
    const std::string share = machine.Path("share");
    SetVariable("XDG_DATA_DIRS", share + "/z:" + share + "/none:" + share + "/a");
    EXPECT_EQ(Files(), Names({"/z/fonts/a.ttf", "/z/fonts/b.ttf", "/a/fonts/c.ttf"}));
    // Slashes at the end do not count, nor do empty entries and relative ones.
    SetVariable("XDG_DATA_DIRS", "::" + share + "/a//:z:./z:" + share + "/z/:");
    EXPECT_EQ(Files(), Names({"/a/fonts/c.ttf", "/z/fonts/a.ttf", "/z/fonts/b.ttf"}));
    // One that is named twice is searched once.
    SetVariable("XDG_DATA_DIRS", share + "/a:" + share + "/z:" + share + "/a/");
    EXPECT_EQ(Files(), Names({"/a/fonts/c.ttf", "/z/fonts/a.ttf", "/z/fonts/b.ttf"}));
}

TEST_F(FontFolder, IsTheSystemsWhereNoDataDirectoryIsNamed) {
    const auto systemFiles = [this] { return fonts_test::FolderFiles(*fonts, "/usr/"); };
    SetVariable("XDG_DATA_DIRS", "/usr/local/share:/usr/share");
    const Names named = systemFiles();
    if (named.empty()) GTEST_SKIP() << "the system has no fonts";
    SetVariable("XDG_DATA_DIRS", "");
    EXPECT_EQ(systemFiles(), named);
    fonts_test::UnsetVariable("XDG_DATA_DIRS");
    EXPECT_EQ(systemFiles(), named);
    SetVariable("XDG_DATA_DIRS", "relative/only");
    EXPECT_EQ(systemFiles(), Names());
}

TEST_F(FontFolder, IsListedUpTo1200Files) {
    Names expected;
    for (int i = 0; i < 1203; ++i) {
        const std::string name = "/fonts/" + std::to_string(1000 + i) + ".ttf";
        machine.Write(machine.Path("share") + name, "");
        if (i < 1200) expected.push_back(name);
    }
    EXPECT_EQ(Files(), expected);
}

TEST_F(FontFolder, CountsTo1200OverAllDataDirectories) {
    for (int i = 0; i < 1199; ++i)
        Touch(std::to_string(1000 + i) + ".ttf");
    for (const char* name : {"c.ttf", "a.ttf", "b.ttf"})
        machine.Write(machine.Path("share/more/fonts/" + std::string(name)), "");
    SetVariable("XDG_DATA_DIRS", machine.Path("share") + ':' + machine.Path("share") + "/more");
    const Names files = Files();
    ASSERT_EQ(files.size(), 1200u);
    EXPECT_EQ(files[1198], "/fonts/2198.ttf");
    EXPECT_EQ(files[1199], "/more/fonts/a.ttf");
}

TEST_F(FontFolder, FollowsLinks) {
    machine.Write(machine.Path("outside/deep/a.ttf"), "");
    fs::create_directory_symlink(machine.Path("outside"), machine.Folder() + "/linked");
    fs::create_symlink(machine.Path("outside/deep/a.ttf"), machine.Folder() + "/file.ttf");
    fs::create_symlink(machine.Path("nowhere"), machine.Folder() + "/dangling.ttf");
    EXPECT_EQ(Files(), Names({"/fonts/file.ttf", "/fonts/linked/deep/a.ttf"}));
}

TEST_F(FontFolder, SearchesADirectoryOnceThoughLinksLeadToIt) {
    Touch("b/a.ttf");
    Touch("c/d/e.ttf");
    fs::create_directory_symlink(machine.Folder(), machine.Folder() + "/c/round");
    fs::create_directory_symlink(machine.Folder() + "/b", machine.Folder() + "/a");
    fs::create_directory_symlink(machine.Folder() + "/c/d", machine.Folder() + "/z");
    EXPECT_EQ(Files(), Names({"/fonts/a/a.ttf", "/fonts/c/d/e.ttf"}));
}

TEST_F(FontFolder, HoldsRegularFilesOnly) {
    // Opening such a file would wait for a writer.
    ASSERT_EQ(mkfifo((machine.Folder() + "/pipe.ttf").c_str(), 0600), 0);
    EXPECT_EQ(fonts->GetFontFileList(), nullptr);
}

class RegisteredFonts : public testing::Test {
protected:
    // The files of the records, of which the first is the font folder's.
    Names Registered() {
        const Catalogue fonts = ScannedCatalogue();
        Names files = FilesOf(*fonts);
        EXPECT_EQ(files.at(0), inFolder);
        files.erase(files.begin());
        for (std::string& file : files) {
            EXPECT_EQ(file.rfind(machine.Elsewhere(), 0), 0u) << file;
            file.erase(0, machine.Elsewhere().size());
        }
        return files;
    }

    void Configure(const std::string& elements) {
        machine.Write(machine.Path("fonts.conf"),
                      "<fontconfig><cachedir>" + machine.Path("cache") + "</cachedir>" + elements + "</fontconfig>");
    }

    Machine machine;
    std::string inFolder = machine.Install("symbol.ttf");
};

TEST_F(RegisteredFonts, ComeAfterTheFoldersInTheOrderOfTheirPaths) {
    for (const char* name : {"/b.ttf", "/sub/a.ttf", "/a.ttf", "/sub-a.ttf"})
        machine.Register("plain.ttf", name + 1);
    EXPECT_EQ(Registered(), Names({"/a.ttf", "/b.ttf", "/sub-a.ttf", "/sub/a.ttf"}));
}

TEST_F(RegisteredFonts, AreEachReadOnce) {
    machine.Register("trio.ttc");
    EXPECT_EQ(Registered(), Names({"/trio.ttc", "/trio.ttc", "/trio.ttc"}));
}

TEST_F(RegisteredFonts, AreTrueTypeWhateverTheFilesAreCalled) {
    machine.Register("plain.ttf", "plain.bin");
    machine.Register("garbage.ttf");
    machine.Register("cff.otf");
    machine.Write(machine.Elsewhere() + "/bitmap.bdf",
                  "STARTFONT 2.1\nFONT -x-Bitmap-Medium-R-Normal--8-80-75-75-C-80-ISO10646-1\nSIZE 8 75 75\n"
                  "FONTBOUNDINGBOX 8 1 0 0\nCHARS 1\nSTARTCHAR A\nENCODING 65\nSWIDTH 1000 0\nDWIDTH 8 0\n"
                  "BBX 8 1 0 0\nBITMAP\nFF\nENDCHAR\nENDFONT\n");
    EXPECT_EQ(Registered(), Names({"/plain.bin"}));
}

TEST_F(RegisteredFonts, AreScalable) {
    machine.Register("bitmap.ttf");
    machine.Register("plain.ttf");
    EXPECT_EQ(Registered(), Names({"/plain.ttf"}));
}

TEST_F(RegisteredFonts, AreAtMostAHundred) {
    Names expected;
    for (int i = 0; i < 103; ++i) {
        const std::string name = std::to_string(100 + i) + ".ttf";
        machine.Register("plain.ttf", name);
        if (i < 100) expected.push_back('/' + name);
    }
    EXPECT_EQ(Registered(), expected);
}

TEST_F(RegisteredFonts, DoNotLieInTheFontFolder) {
    machine.Install("plain.ttf", "sub/plain.ttf");
    machine.Copy("plain.ttf", machine.Path("share") + "/fonts-too/plain.ttf");
    fs::create_directory_symlink(machine.Folder(), machine.Path("link"));
    fs::create_directory_symlink(machine.Folder() + "/sub", machine.Elsewhere() + "/link");
    machine.Register("plain.ttf", "kept.ttf");
    Configure("<dir>" + machine.Path("link") + "</dir><dir>" + machine.Path("share") + "</dir><dir>" +
              machine.Elsewhere() + "</dir>");
    const Catalogue fonts = ScannedCatalogue();
    EXPECT_EQ(FilesOf(*fonts), Names({machine.Folder() + "/sub/plain.ttf", inFolder, machine.Elsewhere() + "/kept.ttf",
                                      machine.Path("share") + "/fonts-too/plain.ttf"}));
}

TEST_F(RegisteredFonts, DoNotLieInADirectoryLinkedIntoTheFontFolder) {
    const std::string away = machine.Copy("plain.ttf", machine.Path("away/r.ttf"));
    fs::create_directory_symlink(machine.Path("away"), machine.Folder() + "/lk");
    Configure("<dir>" + machine.Path("share") + "</dir>");
    const Names files = {machine.Folder() + "/lk/r.ttf", inFolder};
    EXPECT_EQ(FilesOf(*ScannedCatalogue()), files);
    Configure("<dir>" + machine.Folder() + "/lk</dir>");
    EXPECT_EQ(FilesOf(*ScannedCatalogue()), files);
    // By its own path, which leads through nothing of the folder, the file is another one.
    Configure("<dir>" + machine.Path("away") + "</dir>");
    EXPECT_EQ(FilesOf(*ScannedCatalogue()), Names({files[0], files[1], away}));
}

TEST_F(RegisteredFonts, DoNotLieInAFontFolderThatIsALink) {
    machine.Copy("plain.ttf", machine.Path("away/r.ttf"));
    fs::create_directories(machine.Path("data"));
    fs::create_directory_symlink(machine.Folder(), machine.Path("data/fonts"));
    fs::create_directory_symlink(machine.Path("away"), machine.Folder() + "/lk");
    SetVariable("XDG_DATA_DIRS", machine.Path("data"));
    Configure("<dir>" + machine.Path("data") + "</dir><dir>" + machine.Path("share") + "</dir>");
    EXPECT_EQ(FilesOf(*ScannedCatalogue()),
              Names({machine.Path("data/fonts/lk/r.ttf"), machine.Path("data/fonts/symbol.ttf")}));
}

TEST_F(RegisteredFonts, AreNoLinksToTheFontFoldersFiles) {
    fs::create_symlink(inFolder, machine.Elsewhere() + "/inward.ttf");
    const std::string kept = machine.Register("plain.ttf", "kept.ttf");
    fs::create_symlink(kept, machine.Folder() + "/outward.ttf");
    Configure("<dir>" + machine.Path("share") + "</dir><dir>" + machine.Elsewhere() + "</dir>");
    EXPECT_EQ(FilesOf(*ScannedCatalogue()), Names({machine.Folder() + "/outward.ttf", inFolder, kept}));
}

TEST_F(RegisteredFonts, AreThoseThatFontconfigAccepts) {
    machine.Register("plain.ttf", "plain.ttf");
    machine.Register("plain.ttf", "rejected.ttf");
    Configure("<dir>" + machine.Elsewhere() + "</dir><selectfont><rejectfont><glob>*/rejected.*</glob></rejectfont>" +
              "</selectfont>");
    EXPECT_EQ(Registered(), Names({"/plain.ttf"}));
}

TEST_F(RegisteredFonts, WithoutAConfigurationAreInFontconfigsOwnDirectories) {
    machine.HideSystem();
    machine.Register("plain.ttf");
    const Names files = {inFolder, machine.Copy("plain.ttf", machine.Home() + "/plain.ttf")};
    SetVariable("FONTCONFIG_FILE", machine.Path("none.conf"));
    EXPECT_EQ(FilesOf(*ScannedCatalogue()), files);
    SetVariable("FONTCONFIG_FILE", machine.Path("fonts.conf"));
    machine.Write(machine.Path("fonts.conf"), "<fontconfig><dir>" + machine.Elsewhere() + "</dir>");
    EXPECT_EQ(FilesOf(*ScannedCatalogue()), files);
}

TEST_F(RegisteredFonts, AreFoundWithoutAMessageWhereNoCacheIsConfigured) {
    machine.HideSystem();
    machine.Register("plain.ttf");
    machine.Write(machine.Path("fonts.conf"), "<fontconfig><dir>" + machine.Elsewhere() + "</dir></fontconfig>");
    testing::internal::CaptureStderr();
    EXPECT_EQ(Registered(), Names({"/plain.ttf"}));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(RegisteredFonts, AreNotReadInTheFontFolder) {
    // fontconfig writes a cache for what it reads.
    machine.Register("plain.ttf");
    EXPECT_EQ(Registered(), Names({"/plain.ttf"}));
    EXPECT_EQ(std::count_if(fs::directory_iterator(machine.Path("cache")), {},
                            [](const fs::directory_entry& entry) { return entry.path().extension() != ".TAG"; }),
              1);
}

}  // namespace
