// SPDX-License-Identifier: MIT
#include "failure_checks.h"

#include "tool_run.h"

namespace tool_test {

void FailureTest::ExpectFailure(const std::vector<std::string>& arguments, const std::string& message,
                                int status) const {
    const std::vector<std::string> before = scratch.Names();
    const Outcome outcome = RunTool(arguments);
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "vellum: " + message + "\n");
    EXPECT_EQ(scratch.Names(), before);
}

void FailureTest::ExpectFailureToPrint(const std::vector<std::string>& arguments) {
    const Outcome outcome = RunToolWithoutOutput(arguments);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "vellum: standard output: cannot be written\n");
}

}  // namespace tool_test
