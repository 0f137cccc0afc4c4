// SPDX-License-Identifier: MIT
#include "output_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "error.h"
#include "scratch_directory.h"

namespace {

using Names = std::vector<std::string>;

std::string ErrorOf(const std::string& path) {
    try {
        const tool::OutputFile file(path);
    } catch (const tool::Error& error) {
        return error.what();
    }
    return "no error";
}

TEST(OutputFile, AppearsWhenItIsCommitted) {
    const tool_test::ScratchDirectory scratch;
    tool::OutputFile file(scratch.Path("a.svg"));
    EXPECT_TRUE(file.Write("hello", 5));
    EXPECT_NE(scratch.Names(), Names{"a.svg"});
    file.Commit();
    EXPECT_EQ(scratch.Names(), Names{"a.svg"});
    EXPECT_EQ(scratch.Read("a.svg"), "hello");
}

TEST(OutputFile, LeavesNothingWhenItIsNot) {
    const tool_test::ScratchDirectory scratch;
    scratch.Write("a.svg", "before");
    {
        tool::OutputFile file(scratch.Path("a.svg"));
        file.Write("hello", 5);
        EXPECT_EQ(scratch.Names().size(), 2U);
    }
    EXPECT_EQ(scratch.Names(), Names{"a.svg"});
    EXPECT_EQ(scratch.Read("a.svg"), "before");
}

TEST(OutputFile, ReplacesWhatWasThere) {
    const tool_test::ScratchDirectory scratch;
    scratch.Write("a.svg", "before");
    tool::OutputFile file(scratch.Path("a.svg"));
    file.Write("after", 5);
    file.Commit();
    EXPECT_EQ(scratch.Names(), Names{"a.svg"});
    EXPECT_EQ(scratch.Read("a.svg"), "after");
}

TEST(OutputFile, WritesThroughALink) {
    const tool_test::ScratchDirectory scratch;
    scratch.Write("a.svg", "before");
    std::error_code error;
    std::filesystem::create_symlink("a.svg", scratch.Path("link.svg"), error);
    if (error) GTEST_SKIP() << "no links here: " << error.message();
    tool::OutputFile file(scratch.Path("link.svg"));
    file.Write("after", 5);
    file.Commit();
    EXPECT_TRUE(std::filesystem::is_symlink(scratch.Path("link.svg")));
    EXPECT_EQ(scratch.Read("a.svg"), "after");
}

TEST(OutputFile, TakesTheLongestName) {
    const tool_test::ScratchDirectory scratch;
    const std::string name(255, 'a');
    tool::OutputFile file(scratch.Path(name));
    file.Commit();
    EXPECT_EQ(scratch.Names(), Names{name});
}

TEST(OutputFile, FailsWhereNoFileCanBe) {
    const tool_test::ScratchDirectory scratch;
    const std::string missing = scratch.Path("none/a.svg");
    EXPECT_EQ(ErrorOf(missing), missing + ": cannot be written: No such file or directory");
    std::filesystem::create_directory(scratch.Path("d.svg"));
    EXPECT_EQ(ErrorOf(scratch.Path("d.svg")), scratch.Path("d.svg") + ": cannot be written: Is a directory");
    EXPECT_EQ(scratch.Names(), Names{"d.svg"});
}

}  // namespace
