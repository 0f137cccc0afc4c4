// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include "failure_checks.h"
#include "tool_run.h"

namespace {

using DrawToAFullDisk = tool_test::FailureTest;
using tool_test::Sample;

// A limit on the size of files stands for a full disk.
TEST_F(DrawToAFullDisk, LeavesNothing) {
    rlimit former = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &former), 0);
    const rlimit tight = {4096, former.rlim_max};
    const auto action = signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &tight), 0);
    for (const char* name : {"a.png", "a.svg", "a.pdf"}) {
        ExpectFailure({"draw", Sample("countries-110m.geojson"), "-o", scratch.Path(name)},
                      scratch.Path(name) + ": cannot be written: File too large");
    }
    setrlimit(RLIMIT_FSIZE, &former);
    signal(SIGXFSZ, action);
}

}  // namespace
