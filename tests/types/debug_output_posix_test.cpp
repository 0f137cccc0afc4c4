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

#include <string>

#include "vellum/geometry.h"

namespace {

constexpr int kDone = 0;
constexpr int kNotPermitted = 2;

// Runs a function in a child; its result is the child's exit status.
template <class Function>
pid_t RunInChild(Function function) {
    const pid_t child = fork();
    if (child == 0) _exit(function());
    return child;
}

int ExitStatusOf(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

struct Printed {
    int exitStatus;
    std::string text;
};

// What a child that prints through DbgPrintf writes to standard error.
Printed PrintInChild(bool traced) {
    int ends[2];
    if (pipe(ends) != 0) return {-1, {}};
    const pid_t child = RunInChild([&] {
        dup2(ends[1], STDERR_FILENO);
        if (traced && ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) return kNotPermitted;
        Vellum::DbgPrintf("first %d\n", 1);
        Vellum::DbgPrintf("%s", "second % done\n");
        return kDone;
    });
    close(ends[1]);
    Printed printed;
    char buffer[256];
    for (ssize_t n = 0; (n = read(ends[0], buffer, sizeof buffer)) > 0;) {
        printed.text.append(buffer, static_cast<size_t>(n));
    }
    close(ends[0]);
    printed.exitStatus = ExitStatusOf(child);
    return printed;
}

TEST(DebugOutput, IsSilentWithoutATracer) {
    const Printed printed = PrintInChild(false);
    EXPECT_EQ(printed.exitStatus, kDone);
    EXPECT_EQ(printed.text, "");
}

TEST(DebugOutput, GoesToStandardErrorUnderATracer) {
    const Printed printed = PrintInChild(true);
    if (printed.exitStatus == kNotPermitted) GTEST_SKIP() << "processes may not be traced here";
    EXPECT_EQ(printed.exitStatus, kDone);
    EXPECT_EQ(printed.text, "first 1\nsecond % done\n");
}

TEST(DbgBeep, RingsTheControllingTerminal) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0) GTEST_SKIP() << "no pseudo-terminals here";
    const std::string name = ptsname(terminal);
    // Held open, so that what the child writes outlives it.
    const int held = open(name.c_str(), O_RDWR | O_NOCTTY);
    ASSERT_GE(held, 0);

    const pid_t child = RunInChild([&] {
        setsid();
        if (open(name.c_str(), O_RDWR) < 0) return kNotPermitted;
        Vellum::DbgBeep();
        return kDone;
    });
    EXPECT_EQ(ExitStatusOf(child), kDone);
    pollfd waiting = {terminal, POLLIN, 0};
    ASSERT_EQ(poll(&waiting, 1, 10000), 1);
    char text[16];
    ASSERT_EQ(read(terminal, text, sizeof text), 1);
    EXPECT_EQ(text[0], '\a');
    close(held);
    close(terminal);
}

TEST(DbgBeep, IsHarmlessWithoutATerminal) {
    const pid_t child = RunInChild([] {
        setsid();
        Vellum::DbgBeep();
        return kDone;
    });
    EXPECT_EQ(ExitStatusOf(child), kDone);
}

}  // namespace
