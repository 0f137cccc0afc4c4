// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_SUITE_H
#define VELLUM_BENCHMARKS_SUITE_H

#include <cstddef>
#include <functional>
#include <string>

#include "target_report.h"

namespace VellumBench {

/// A run's figures mean nothing where the contenders do not do the same work, so this ends it.
[[noreturn]] void Abort(const std::string& message);

struct Contender {
    std::string name;
    /// Called once, before anything is timed: holds the result against what is expected. Its text stands beside the
    /// figures.
    std::function<std::string()> check;
    /// Called before each repetition; not timed.
    std::function<void()> setUp;
    std::function<void()> run;
    /// How many calls of the contender a run makes; the times are those of one.
    size_t calls = 1;
};

void Register(const Contender& contender);

void RegisterTransforms(TargetReport& report);
void RegisterClipping(TargetReport& report);
void RegisterContainment(TargetReport& report);
void RegisterClearance(TargetReport& report);
void RegisterConnector(TargetReport& report);
void RegisterShortestPaths(TargetReport& report);
void RegisterFonts(TargetReport& report);

}  // namespace VellumBench

#endif
