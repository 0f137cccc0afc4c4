// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_PROGRESS_H
#define VELLUM_TOOL_PROGRESS_H

#include <chrono>
#include <cstddef>

namespace tool {

/// Tells a waiting user, on standard error, how far the work has come: only once it has taken a second, and only on a
/// terminal. Its line is gone when the work ends.
class Progress {
public:
    Progress();
    explicit Progress(bool wanted);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Starts a stage of @p total steps.
    void Begin(const char* stage, std::size_t total);
    /// One step of the stage is done.
    void Advance();

private:
    using Clock = std::chrono::steady_clock;

    bool wanted_;
    bool shown_ = false;
    const char* stage_ = "";
    std::size_t total_ = 0;
    std::size_t done_ = 0;
    Clock::time_point next_;
};

}  // namespace tool

#endif
