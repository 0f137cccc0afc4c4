// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_SHAPES_CONIC_DISTANCE_H
#define VELLUM_SRC_SHAPES_CONIC_DISTANCE_H

#include "vellum/points.h"
#include "vellum/records.h"

namespace Vellum::internal {

/// The points of an ellipse that are nearer to a given point than their neighbours, each as (cos t, sin t).
struct FootPoints {
    DblPt nearest;   ///< the nearest of all
    DblPt opposite;  ///< the other one, across the longer axis
    bool hasOpposite;
};

/// For the ellipse (a cos t, b sin t) and @p p, which lies no further from the centre than 2^60 times the longer
/// semi-axis. Takes at most some sixty steps, whatever the ratio of the axes.
FootPoints FindFootPoints(double a, double b, const DblPt& p);

/// The distance from @p p to the nearest point of @p arc; without an ellipse to the nearer end.
double DistToConicArc(const DblPt& p, const con_arc_str& arc);

}  // namespace Vellum::internal

#endif
