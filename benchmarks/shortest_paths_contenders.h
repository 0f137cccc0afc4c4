// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_SHORTEST_PATHS_CONTENDERS_H
#define VELLUM_BENCHMARKS_SHORTEST_PATHS_CONTENDERS_H

#include <cstddef>
#include <memory>

#include "dataset.h"

namespace VellumBench {

/// Where the search starts: a point of one of the lines.
struct Place {
    size_t line, point;
};

/// What finds the shortest ways from one point of a network to all others. It has the lines in its own form from the
/// beginning, the network only once that is built.
class PathsContender {
public:
    virtual ~PathsContender() = default;
    virtual void Build() = 0;
    virtual void Search(const Vellum::DblPt& start) = 0;
    /// Of the way to a point; the largest double where there is none.
    virtual double CostOf(const Place& place) const = 0;
    /// Releases the network and the ways.
    virtual void Release() = 0;
};

std::unique_ptr<PathsContender> MakeVellumPaths(const Lines& lines);

/// A hash table of the points and a graph in compressed rows, with the costs of its edges computed beforehand.
std::unique_ptr<PathsContender> MakeBoostPaths(const Lines& lines);
/// The same with the search that keeps no colours of the points.
std::unique_ptr<PathsContender> MakeBoostColourlessPaths(const Lines& lines);

}  // namespace VellumBench

#endif
