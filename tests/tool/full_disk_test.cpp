// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include "failure_checks.h"
#include "tool_run.h"

namespace {

using tool_test::Sample;

// A limit on the size of files stands for a full disk.
class FullDisk : public tool_test::FailureTest {
protected:
    void SetUp() override {
        ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &former_), 0);
        const rlimit tight = {4096, former_.rlim_max};
        action_ = signal(SIGXFSZ, SIG_IGN);
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &tight), 0);
    }

    void TearDown() override {
        setrlimit(RLIMIT_FSIZE, &former_);
        signal(SIGXFSZ, action_);
    }

private:
    rlimit former_ = {};
    void (*action_)(int) = SIG_DFL;
};

TEST_F(FullDisk, LeavesNoPicture) {
    for (const char* name : {"a.png", "a.svg", "a.pdf"}) {
        ExpectFailure({"draw", Sample("countries-110m.geojson"), "-o", scratch.Path(name)},
                      scratch.Path(name) + ": cannot be written: File too large");
    }
}

TEST_F(FullDisk, LeavesAFormerFile) {
    const std::string out = scratch.Write("out.geojson", "a former file");
    ExpectFailure({"join", Sample("railroads-north-america.geojson"), "--tol", "0", "-o", out},
                  out + ": cannot be written: File too large");
    EXPECT_EQ(scratch.Read("out.geojson"), "a former file");
}

}  // namespace
