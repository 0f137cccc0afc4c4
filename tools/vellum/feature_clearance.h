// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_FEATURE_CLEARANCE_H
#define VELLUM_TOOL_FEATURE_CLEARANCE_H

#include "drawing.h"
#include "progress.h"
#include "vellum/vellum.h"

namespace tool {

/// Where two features come closest to one another.
struct Clearance {
    Vellum::DblPt onA;
    Vellum::DblPt onB;
    double distance;
    /// The boxes of the two parts that the points lie on.
    Vellum::AlignedDblRect partOfA;
    Vellum::AlignedDblRect partOfB;
};

/// The clearance of the pair of parts whose witness points are nearest to one another. Both features must have a
/// geometry.
Clearance MeasureClearance(const Geometry& a, const Geometry& b, Progress& progress);

}  // namespace tool

#endif
