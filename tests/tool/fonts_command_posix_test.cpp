// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "fonts/font_machine.h"
#include "tool_run.h"

namespace {

TEST(FontsCommandPaths, MayHoldAnyBytes) {
    const fonts_test::Machine machine;
    machine.Install("plain.ttf", "\xFF.ttf");
    const auto faces = nlohmann::json::parse(tool_test::RunTool({"fonts", "--json"}).out)["faces"];
    EXPECT_EQ(faces[7]["file"], machine.Folder() + "/\uFFFD.ttf");
}

}  // namespace
