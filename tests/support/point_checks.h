// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_SUPPORT_POINT_CHECKS_H
#define VELLUM_TESTS_SUPPORT_POINT_CHECKS_H

#include <gtest/gtest.h>

#include "vellum/points.h"

namespace support {

/// Whether a point has exactly these coordinates.
inline testing::AssertionResult IsAt(const Vellum::DblPt& p, double x, double y) {
    if (p.x == x && p.y == y) return testing::AssertionSuccess();
    return testing::AssertionFailure() << testing::PrintToString(p.x) << ", " << testing::PrintToString(p.y)
                                       << " instead of " << testing::PrintToString(x) << ", "
                                       << testing::PrintToString(y);
}

}  // namespace support

#endif
