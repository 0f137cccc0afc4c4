// SPDX-License-Identifier: MIT

// What the library does where the host leaves the debugger output to it. Each case runs in a child process, which can
// be traced, and can lose its terminal or get one.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstddef>
#include <cstdio>
#include <string>

#include "vellum/geometry.h"

namespace {

constexpr int kDone = 0;
constexpr int kNotPermitted = 2;

struct ChildRun {
    int exitStatus;
    std::string output;
    std::string errors;
};

std::string ReadToEnd(int file) {
    std::string text;
    char buffer[256];
    for (ssize_t n = 0; (n = read(file, buffer, sizeof buffer)) > 0;) {
        text.append(buffer, static_cast<size_t>(n));
    }
    close(file);
    return text;
}

// Runs a function in a child; its result is the child's exit status.
template <class Function>
ChildRun RunInChild(Function function) {
    int output[2];
    int errors[2];
    if (pipe(output) != 0 || pipe(errors) != 0) return {-1, {}, {}};
    // What the parent has not written yet must not be written by the child.
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        dup2(output[1], STDOUT_FILENO);
        dup2(errors[1], STDERR_FILENO);
        const int exitStatus = function();
        std::fflush(nullptr);
        _exit(exitStatus);
    }
    close(output[1]);
    close(errors[1]);
    ChildRun run = {-1, ReadToEnd(output[0]), ReadToEnd(errors[0])};
    int status = 0;
    if (waitpid(child, &status, 0) == child && WIFEXITED(status)) run.exitStatus = WEXITSTATUS(status);
    return run;
}

ChildRun PrintInChild(bool traced) {
    return RunInChild([&] {
        if (traced && ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) return kNotPermitted;
        Vellum::DbgPrintf("first %d\n", 1);
        Vellum::DbgPrintf("%s", "second % done\n");
        return kDone;
    });
}

TEST(DebugOutput, IsSilentWithoutATracer) {
    const ChildRun run = PrintInChild(false);
    EXPECT_EQ(run.exitStatus, kDone);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "");
}

TEST(DebugOutput, GoesToStandardErrorUnderATracer) {
    const ChildRun run = PrintInChild(true);
    if (run.exitStatus == kNotPermitted) GTEST_SKIP() << "processes may not be traced here";
    EXPECT_EQ(run.exitStatus, kDone);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "first 1\nsecond % done\n");
}

TEST(DbgBeep, RingsTheControllingTerminal) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0) GTEST_SKIP() << "no pseudo-terminals here";
    const std::string name = ptsname(terminal);
    // Held open, so that what the child writes outlives it.
    const int held = open(name.c_str(), O_RDWR | O_NOCTTY);
    ASSERT_GE(held, 0);

    const ChildRun run = RunInChild([&] {
        setsid();
        if (open(name.c_str(), O_RDWR) < 0) return kNotPermitted;
        Vellum::DbgBeep();
        return kDone;
    });
    EXPECT_EQ(run.exitStatus, kDone);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "");
    pollfd waiting = {terminal, POLLIN, 0};
    ASSERT_EQ(poll(&waiting, 1, 10000), 1);
    char text[16];
    ASSERT_EQ(read(terminal, text, sizeof text), 1);
    EXPECT_EQ(text[0], '\a');
    close(held);
    close(terminal);
}

TEST(DbgBeep, IsHarmlessWithoutATerminal) {
    const ChildRun run = RunInChild([] {
        setsid();
        Vellum::DbgBeep();
        return kDone;
    });
    EXPECT_EQ(run.exitStatus, kDone);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "");
}

}  // namespace
