// SPDX-License-Identifier: MIT
#include "statistics.h"

#include <iomanip>
#include <ostream>

namespace tool {

namespace {

constexpr int kStageWidth = 10;
constexpr int kColumnWidth = 10;

}  // namespace

void Statistics::Print(std::ostream& out) const {
    out << std::setw(kStageWidth) << "";
    for (const char* column : {"features", "polygons", "rings", "lines", "points"}) {
        out << std::setw(kColumnWidth) << column;
    }
    out << '\n';
    for (const auto& [stage, counts] : counts_) {
        out << std::left << std::setw(kStageWidth) << stage << std::right;
        for (const std::size_t count : {counts.features, counts.polygons, counts.rings, counts.lines, counts.points}) {
            out << std::setw(kColumnWidth) << count;
        }
        out << '\n';
    }
    out << '\n' << std::fixed << std::setprecision(2);
    for (const auto& [stage, time] : times_) {
        const double milliseconds = std::chrono::duration<double, std::milli>(time).count();
        out << std::left << std::setw(kStageWidth) << stage << std::right << std::setw(kColumnWidth) << milliseconds
            << " ms\n";
    }
}

}  // namespace tool
