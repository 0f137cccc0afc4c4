// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_SHAPES_CHAIN_CHECKS_H
#define VELLUM_TESTS_SHAPES_CHAIN_CHECKS_H

// What the tests of polylines and polygons share.

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "support/point_checks.h"
#include "vellum/points.h"
#include "vellum/polylines.h"
#include "vellum/rectangles.h"

namespace chains {

using Points = std::vector<Vellum::DblPt>;

/// A polyline or polygon of these points, however few, with its extents.
template <class Chain>
Chain Of(const Points& points) {
    Chain chain;
    for (const Vellum::DblPt& p : points) {
        Vellum::DblPt added = p;
        if (!chain.AddPoint(added)) ADD_FAILURE() << "no memory";
    }
    if (!points.empty()) chain.MoveVertexTo(0U, points[0]);
    return chain;
}

/// Whether the chain has exactly these points, in this order.
template <class Chain>
testing::AssertionResult Holds(const Chain& chain, const Points& points) {
    if (chain.nPts != points.size())
        return testing::AssertionFailure() << chain.nPts << " points instead of " << points.size();
    for (size_t i = 0; i < points.size(); ++i) {
        const auto result = support::IsAt(chain.pts[i], points[i].x, points[i].y);
        if (!result) return testing::AssertionFailure() << "point " << i << ": " << result.message();
    }
    return testing::AssertionSuccess();
}

/// Whether the chain has neither points nor a block.
template <class Chain>
testing::AssertionResult IsEmpty(const Chain& chain) {
    if (chain.nPts == 0 && chain.pts == nullptr) return testing::AssertionSuccess();
    return testing::AssertionFailure() << chain.nPts << " points at " << static_cast<const void*>(chain.pts);
}

/// Whether the cached extents are exactly these.
template <class Chain>
testing::AssertionResult Spans(const Chain& chain, double left, double bottom, double right, double top) {
    const auto ll = support::IsAt(chain.extents.ll, left, bottom);
    if (!ll) return testing::AssertionFailure() << "lower left: " << ll.message();
    const auto ur = support::IsAt(chain.extents.ur, right, top);
    if (!ur) return testing::AssertionFailure() << "upper right: " << ur.message();
    return testing::AssertionSuccess();
}

}  // namespace chains

#endif
