// SPDX-License-Identifier: MIT
#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <filesystem>
#include <utility>

#include "platform.h"

namespace tool {

namespace {

constexpr int kInterrupts[] = {SIGHUP, SIGINT, SIGTERM};

// Read by the handler, so no more than a pointer.
std::atomic<const char*> doomed = nullptr;
static_assert(std::atomic<const char*>::is_always_lock_free);

// Calls nothing that a signal handler may not.
extern "C" void RemoveAndEnd(int number) {
    if (const char* path = doomed.load()) unlink(path);
    signal(number, SIG_DFL);
    raise(number);
}

void Handle(int number, void (*from)(int), void (*to)(int)) {
    struct sigaction action = {};
    // A signal that is handled otherwise, as under nohup, stays so.
    if (sigaction(number, nullptr, &action) != 0 || action.sa_handler != from) return;
    action.sa_handler = to;
    sigaction(number, &action, nullptr);
}

}  // namespace

void PrepareStreams() {}

bool ErrorsGoToTerminal() { return isatty(STDERR_FILENO) == 1; }

unsigned long ProcessNumber() { return static_cast<unsigned long>(getpid()); }

std::filesystem::path PathOf(const std::string& name) { return name; }

std::FILE* OpenFile(const std::filesystem::path& path) { return std::fopen(path.c_str(), "rb"); }

std::FILE* OpenNewFile(const std::filesystem::path& path) { return std::fopen(path.c_str(), "wbx"); }

RemoveOnInterrupt::RemoveOnInterrupt(std::filesystem::path path) : path_(std::move(path)) {
    doomed = path_.c_str();
    for (const int number : kInterrupts) {
        Handle(number, SIG_DFL, RemoveAndEnd);
    }
}

RemoveOnInterrupt::~RemoveOnInterrupt() {
    for (const int number : kInterrupts) {
        Handle(number, RemoveAndEnd, SIG_DFL);
    }
    doomed = nullptr;
}

}  // namespace tool
