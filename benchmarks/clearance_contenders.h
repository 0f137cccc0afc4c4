// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_CLEARANCE_CONTENDERS_H
#define VELLUM_BENCHMARKS_CLEARANCE_CONTENDERS_H

#include <memory>
#include <vector>

#include "vellum/points.h"

namespace VellumBench {

/// Two shapes side by side: open lines, or outlines that end with their first point.
struct ShapePair {
    bool outlines;
    std::vector<Vellum::DblPt> a, b;
};

struct Clearance {
    double distance = 0;
    Vellum::DblPt onA, onB;  ///< where; not all contenders tell
};

/// What finds how far the shapes lie apart. It has them in its own form from the beginning.
class ClearanceContender {
public:
    virtual ~ClearanceContender() = default;
    virtual void Measure() = 0;
    /// What was found last.
    const Clearance& Found() const { return found; }

protected:
    Clearance found;
};

std::unique_ptr<ClearanceContender> MakeVellumClearance(const ShapePair& shapes);
std::unique_ptr<ClearanceContender> MakePlainClearance(const ShapePair& shapes);

std::unique_ptr<ClearanceContender> MakeBoostClearance(const ShapePair& shapes);
/// Without an index.
std::unique_ptr<ClearanceContender> MakeGeosClearance(const ShapePair& shapes);
/// Builds the indexes of both shapes for each measurement.
std::unique_ptr<ClearanceContender> MakeGeosIndexedClearance(const ShapePair& shapes);
/// Has the index of the first shape beforehand.
std::unique_ptr<ClearanceContender> MakeGeosPreparedClearance(const ShapePair& shapes);

}  // namespace VellumBench

#endif
