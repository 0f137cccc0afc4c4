// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "suite.h"

namespace {

using namespace VellumBench;

/// Prints the medians only, and hands them to the target report.
class MedianReporter : public benchmark::ConsoleReporter {
public:
    explicit MedianReporter(TargetReport& targets) : ConsoleReporter(OO_Tabular), report(targets) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        std::vector<Run> shown;
        for (const Run& run : runs) {
            const bool single = run.run_type == Run::RT_Iteration && run.repetitions == 1;
            if (!single && run.aggregate_name != "median") continue;
            const double perCall = run.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
            report.Record(run.run_name.function_name, perCall);
            shown.push_back(run);
        }
        if (!shown.empty()) ConsoleReporter::ReportRuns(shown);
    }

private:
    TargetReport& report;
};

/// Takes `--report FILE` out of the arguments.
std::string TakeReportPath(std::vector<char*>& arguments) {
    for (size_t i = 1; i + 1 < arguments.size(); ++i) {
        if (std::strcmp(arguments[i], "--report") != 0) continue;
        const std::string path = arguments[i + 1];
        arguments.erase(arguments.begin() + static_cast<std::ptrdiff_t>(i),
                        arguments.begin() + static_cast<std::ptrdiff_t>(i) + 2);
        return path;
    }
    return {};
}

}  // namespace

int main(int argc, char** argv) {
    // Repetitions in random order spread a slow spell of the machine over all contenders. They come first among the
    // arguments so that the user's own prevail.
    std::string defaults[] = {"--benchmark_repetitions=7", "--benchmark_enable_random_interleaving=true",
                              "--benchmark_min_time=0.03"};
    std::vector<char*> arguments(argv, argv + argc);
    const std::string reportPath = TakeReportPath(arguments);
    for (std::string& option : defaults)
        arguments.insert(arguments.begin() + 1, option.data());

    TargetReport report;
    RegisterTransforms(report);
    RegisterClipping(report);
    RegisterContainment(report);
    RegisterClearance(report);
    RegisterConnector(report);
    RegisterShortestPaths(report);
    RegisterFonts(report);

    int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return EXIT_FAILURE;
    MedianReporter reporter(report);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();

    report.PrintText(std::cout);
    if (reportPath.empty()) return EXIT_SUCCESS;
    std::ofstream file(reportPath);
    report.PrintMarkdown(file);
    file.close();
    if (!file) Abort("cannot write " + reportPath);
    return EXIT_SUCCESS;
}
