// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "failure_checks.h"
#include "fonts/font_machine.h"
#include "tool_run.h"

namespace {

using Json = nlohmann::json;
using fonts_test::SetVariable;
using tool_test::Outcome;
using tool_test::RunTool;

// The tool sees a machine with the fonts that a case installs.
class FontsCommand : public tool_test::FailureTest {
protected:
    fonts_test::Machine machine;
};

TEST_F(FontsCommand, PrintsATable) {
    const std::string trio = machine.Install("trio.ttc", "trio.ttc");
    const std::string hershey = machine.Install("hershey.ttf", "h.ttf");
    const Outcome outcome = RunTool({"fonts"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const auto fill = [&trio](const std::string& file) { return file + std::string(trio.size() - file.size(), ' '); };
    EXPECT_EQ(outcome.out, "name              " + fill("file") + "  localized name\n" +  //
                               "Hershey           " + fill(hershey) + "  -\n" +          //
                               "HersheyBold       " + fill("-") + "  -\n" +              //
                               "HersheyItalic     " + fill("-") + "  -\n" +              //
                               "HersheyMonospace  " + fill("-") + "  -\n" +              //
                               "Iges1001          " + fill("-") + "  -\n" +              //
                               "Iges1002          " + fill("-") + "  -\n" +              //
                               "Iges1003          " + fill("-") + "  -\n" +              //
                               "Vellum Duo        " + trio + "  -\n" +                   //
                               "Vellum Trio       " + trio + "  -\n");
}

TEST_F(FontsCommand, PrintsLocalizedNames) {
    const std::string file = machine.Install("localized.ttf");
    SetVariable("KVO_LANG_SUB_DIR", "ja");
    EXPECT_NE(RunTool({"fonts"}).out.find(file + "  ベラム\n"), std::string::npos);
    SetVariable("KVO_LANG_SUB_DIR", "de");
    EXPECT_NE(RunTool({"fonts"}).out.find(file + "  Wellum\n"), std::string::npos);
}

TEST_F(FontsCommand, PrintsJson) {
    const std::string localized = machine.Install("localized.ttf", "l.ttf");
    const std::string plain = machine.Install("plain.ttf", "p.ttf");
    SetVariable("KVO_LANG_SUB_DIR", "ja");
    const Outcome outcome = RunTool({"fonts", "--json"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out.substr(0, 2), "{\n");
    EXPECT_EQ(outcome.out.back(), '\n');
    const Json faces = Json::parse(outcome.out)["faces"];
    ASSERT_EQ(faces.size(), 9u);
    EXPECT_EQ(faces[0], Json({{"name", "Hershey"}, {"file", nullptr}, {"localizedName", nullptr}}));
    EXPECT_EQ(faces[7], Json({{"name", "Vellum Local"}, {"file", localized}, {"localizedName", "ベラム"}}));
    EXPECT_EQ(faces[8], Json({{"name", "Vellum Plain"}, {"file", plain}, {"localizedName", nullptr}}));
}

TEST_F(FontsCommand, WritesPathsInUtf8) {
    const std::string name = "Gr\u00f6\u00dfe.ttf";
    const std::filesystem::path path =
        machine.Folder() / std::filesystem::path(std::u8string(name.begin(), name.end()));
    std::filesystem::copy_file(fonts_test::TestFont("plain.ttf"), path);
    const std::string file = Json::parse(RunTool({"fonts", "--json"}).out)["faces"][7]["file"];
    EXPECT_EQ(file, machine.Folder() + static_cast<char>(std::filesystem::path::preferred_separator) + name);
}

TEST_F(FontsCommand, PrintsStyles) {
    machine.Install("trio.ttc", "trio.ttc");
    const Outcome outcome = RunTool({"fonts", "--styles", "Vellum Trio"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out, "Regular\nItalic\n");
    EXPECT_EQ(Json::parse(RunTool({"fonts", "--json", "--styles", "Vellum Trio"}).out),
              Json({{"name", "Vellum Trio"}, {"styles", {"Regular", "Italic"}}}));
}

TEST_F(FontsCommand, Help) {
    const Outcome help = RunTool({"fonts", "--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* words : {"--styles FACE", "--json", "KVO_LANG_SUB_DIR"}) {
        EXPECT_NE(help.out.find(words), std::string::npos) << words;
    }
}

TEST_F(FontsCommand, Failures) {
    ExpectFailure({"fonts"}, "no font is installed that can be read");
    ExpectFailure({"fonts", "--json", "--styles", "Hershey"}, "no font is installed that can be read");
    machine.Install("plain.ttf", "p.ttf");
    for (const std::string face : {"Vellum", "vellum plain", ""}) {
        ExpectFailure({"fonts", "--styles", face},
                      "--styles: no face is named \"" + face + "\"; vellum fonts lists the names");
    }
    ExpectFailure({"fonts", "--styles", "Hershey"}, "--styles: the face \"Hershey\" has no styles");
    ExpectFailure({"fonts", "FILE"}, "The following argument was not expected: FILE");
    ExpectFailureToPrint({"fonts"});
    ExpectFailureToPrint({"fonts", "--json"});
    ExpectFailureToPrint({"fonts", "--styles", "Vellum Plain"});
}

}  // namespace
