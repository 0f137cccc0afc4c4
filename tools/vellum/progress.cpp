// SPDX-License-Identifier: MIT
#include "progress.h"

#include <cstdio>

#include "platform.h"

namespace tool {

namespace {

constexpr std::chrono::seconds kPatience{1};
constexpr std::chrono::milliseconds kInterval{100};

}  // namespace

Progress::Progress() : Progress(ErrorsGoToTerminal()) {}

Progress::Progress(bool wanted) : wanted_(wanted), next_(Clock::now() + kPatience) {}

Progress::~Progress() {
    if (shown_) std::fputs("\r\033[K", stderr);
}

void Progress::Begin(const char* stage, std::size_t total) {
    stage_ = stage;
    total_ = total;
    done_ = 0;
}

void Progress::Advance() {
    ++done_;
    if (!wanted_) return;
    const Clock::time_point now = Clock::now();
    if (now < next_) return;
    next_ = now + kInterval;
    shown_ = true;
    std::fprintf(stderr, "\r\033[K%s %3zu %%", stage_, done_ * 100 / total_);
}

}  // namespace tool
