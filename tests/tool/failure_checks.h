// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_TOOL_FAILURE_CHECKS_H
#define VELLUM_TESTS_TOOL_FAILURE_CHECKS_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "scratch_directory.h"

namespace tool_test {

/// For tests of what goes wrong, with a directory for the files of each.
class FailureTest : public testing::Test {
protected:
    /// Runs the tool, and expects one line on standard error, that status, nothing else printed and no file left
    /// behind.
    void ExpectFailure(const std::vector<std::string>& arguments, const std::string& message, int status = 2) const;

    /// Runs the tool with a standard output that takes nothing, and expects it to say so.
    static void ExpectFailureToPrint(const std::vector<std::string>& arguments);

    ScratchDirectory scratch;
};

}  // namespace tool_test

#endif
