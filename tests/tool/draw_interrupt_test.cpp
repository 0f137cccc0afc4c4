// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <signal.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "scratch_directory.h"
#include "tool_process.h"
#include "tool_run.h"

namespace {

using tool_test::Sample;

TEST(DrawInterrupt, LeavesNoFileBehind) {
    const tool_test::ScratchDirectory scratch;
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        // Large enough that the signal comes while it is being drawn.
        const pid_t tool = tool_test::StartTool(
            {"draw", Sample("land-50m.geojson"), "-o", scratch.Path("a.png"), "--size", "12000x12000"});
        while (scratch.Names().empty())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        kill(tool, number);
        EXPECT_EQ(tool_test::WaitForTool(tool), 128 + number);
        EXPECT_TRUE(scratch.Names().empty()) << number;
    }
}

}  // namespace
