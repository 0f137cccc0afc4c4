// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_STATISTICS_H
#define VELLUM_TOOL_STATISTICS_H

#include <chrono>
#include <cstddef>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

#include "drawing.h"

namespace tool {

/// What a drawing amounts to at one stage. A feature counts where anything is left of it; the points are those of
/// rings, lines and point features together.
struct Counts {
    std::size_t features = 0;
    std::size_t polygons = 0;
    std::size_t rings = 0;
    std::size_t lines = 0;
    std::size_t points = 0;

    template <class Point>
    void Add(const GeometryOf<Point>& geometry) {
        if (!geometry.Empty()) ++features;
        polygons += geometry.polygons.size();
        lines += geometry.lines.size();
        points += geometry.points.size();
        for (const auto& polygon : geometry.polygons) {
            rings += polygon.size();
            for (const auto& ring : polygon) {
                points += ring.size();
            }
        }
        for (const auto& line : geometry.lines) {
            points += line.size();
        }
    }
};

/// Counts and times, stage by stage.
class Statistics {
public:
    void Record(const std::string& stage, const Counts& counts) { counts_.emplace_back(stage, counts); }

    /// Runs a stage and records its time.
    template <class Work>
    auto Time(const std::string& stage, Work work) {
        const Stopwatch stopwatch(*this, stage);
        return work();
    }

    /// Two tables: the counts, and the times in milliseconds.
    void Print(std::ostream& out) const;

private:
    using Clock = std::chrono::steady_clock;

    class Stopwatch {
    public:
        Stopwatch(Statistics& statistics, const std::string& stage)
            : statistics_(statistics), stage_(stage), start_(Clock::now()) {}
        ~Stopwatch() { statistics_.times_.emplace_back(stage_, Clock::now() - start_); }
        Stopwatch(const Stopwatch&) = delete;
        Stopwatch& operator=(const Stopwatch&) = delete;

    private:
        Statistics& statistics_;
        const std::string& stage_;
        Clock::time_point start_;
    };

    std::vector<std::pair<std::string, Counts>> counts_;
    std::vector<std::pair<std::string, Clock::duration>> times_;
};

}  // namespace tool

#endif
