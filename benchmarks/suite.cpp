// SPDX-License-Identifier: MIT
#include "suite.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <iostream>

namespace VellumBench {

void Abort(const std::string& message) {
    std::cerr << "vellum_bench: " << message << '\n';
    std::exit(EXIT_FAILURE);
}

void Register(const Contender& contender) {
    const auto time = [contender, checked = false, label = std::string()](benchmark::State& state) mutable {
        contender.setUp();
        if (!checked) label = contender.check();
        checked = true;
        while (state.KeepRunningBatch(static_cast<benchmark::IterationCount>(contender.calls))) {
            contender.run();
            benchmark::ClobberMemory();
        }
        state.SetLabel(label);
    };
    benchmark::RegisterBenchmark(contender.name.c_str(), time)->Unit(benchmark::kMicrosecond);
}

}  // namespace VellumBench
