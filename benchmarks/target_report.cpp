// SPDX-License-Identifier: MIT
#include "target_report.h"

#include <algorithm>
#include <cstdio>
#include <iomanip>
#include <ostream>

namespace VellumBench {
namespace {

std::string Formatted(const char* format, double value) {
    char text[32];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

std::string Duration(double seconds) {
    if (seconds < 1e-6) return Formatted("%.0f ns", seconds * 1e9);
    if (seconds < 1e-3) return Formatted("%.1f us", seconds * 1e6);
    return Formatted("%.2f ms", seconds * 1e3);
}

std::string Figure(Bound bound, double value) {
    return bound == Bound::TimesShare ? Formatted("%.3f", value) : Duration(value);
}

std::string LastPart(const std::string& benchmarkName) { return benchmarkName.substr(benchmarkName.rfind('/') + 1); }

}  // namespace

std::vector<TargetReport::Row> TargetReport::Rows() const {
    std::vector<Row> rows;
    for (const Target& target : targets) {
        const auto subject = medians.find(target.subject);
        auto fastest = medians.end();
        for (const std::string& name : target.rivals) {
            const auto rival = medians.find(name);
            if (rival != medians.end() && (fastest == medians.end() || rival->second < fastest->second)) {
                fastest = rival;
            }
        }
        if (subject == medians.end() || fastest == medians.end()) continue;

        const bool faster = target.bound == Bound::TimesFaster;
        const double ratio = faster ? fastest->second / subject->second : subject->second / fastest->second;
        Row row = {target.what,
                   Figure(target.bound, subject->second),
                   LastPart(fastest->first) + " " + Figure(target.bound, fastest->second),
                   Formatted("%.2f", ratio),
                   "",
                   ""};
        if (target.limit != kForInformation) {
            row.limit = (faster ? ">= " : "<= ") + Formatted("%.3g", target.limit);
            row.verdict = (faster ? ratio >= target.limit : ratio <= target.limit) ? "OK" : "MISSED";
        }
        rows.push_back(row);
    }
    return rows;
}

void TargetReport::PrintText(std::ostream& out) const {
    const std::vector<Row> rows = Rows();
    if (rows.empty()) return;
    size_t width = 0;
    for (const Row& row : rows)
        width = std::max(width, row.what.size());

    const auto print = [&](const Row& row) {
        out << std::left << std::setw(static_cast<int>(width) + 2) << row.what << std::right << std::setw(10)
            << row.subject << "  " << std::left << std::setw(30) << row.rival << std::right << std::setw(7) << row.ratio
            << "  " << std::left << std::setw(9) << row.limit << row.verdict << '\n';
    };
    out << '\n';
    print({"Target", "Vellum", "held against", "ratio", "asked", ""});
    for (const Row& row : rows)
        print(row);
    const auto count = [&rows](const char* verdict) {
        return std::count_if(rows.begin(), rows.end(), [=](const Row& row) { return row.verdict == verdict; });
    };
    out << count("OK") << " of " << count("OK") + count("MISSED") << " targets reached\n";
}

void TargetReport::PrintMarkdown(std::ostream& out) const {
    out << "| Target | Vellum | Held against | Ratio | Asked | |\n| --- | ---: | --- | ---: | --- | --- |\n";
    for (const Row& row : Rows()) {
        out << "| " << row.what << " | " << row.subject << " | " << row.rival << " | " << row.ratio << " | "
            << row.limit << " | " << row.verdict << " |\n";
    }
}

}  // namespace VellumBench
