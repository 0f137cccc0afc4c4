// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_TARGET_REPORT_H
#define VELLUM_BENCHMARKS_TARGET_REPORT_H

#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace VellumBench {

/// How a benchmark's time, or what else it measures, is held against the least of others.
enum class Bound {
    TimesFaster,  ///< at least so many times as fast as the rivals
    TimesFloor,   ///< at most so many times as long as the floors
    TimesShare    ///< at most so many times the share; these figures are no times
};

/// The limit of a target that asks for nothing.
inline constexpr double kForInformation = 0;

/// One figure that the library is to reach.
struct Target {
    std::string what;
    std::string subject;              ///< name of the benchmark that is judged
    std::vector<std::string> rivals;  ///< names of those it is held against; the fastest counts
    Bound bound;
    double limit;
};

/// Collects the medians of one run and judges the targets by them.
class TargetReport {
public:
    void Add(Target target) { targets.push_back(std::move(target)); }
    /// @p figure is the processor time of one call in seconds, or a share.
    void Record(const std::string& benchmarkName, double figure) { medians[benchmarkName] = figure; }

    void PrintText(std::ostream& out) const;
    void PrintMarkdown(std::ostream& out) const;

private:
    struct Row {
        std::string what, subject, rival, ratio, limit, verdict;
    };

    /// The targets for which this run has figures, a filter may have left out some.
    std::vector<Row> Rows() const;

    std::vector<Target> targets;
    std::map<std::string, double> medians;
};

}  // namespace VellumBench

#endif
