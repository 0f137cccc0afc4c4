// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_XFM_MATRIX_CHECKS_H
#define VELLUM_TESTS_XFM_MATRIX_CHECKS_H

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>

#include "vellum/matrix.h"

namespace xfm_tests {

/// A matrix of the given elements, classified.
inline Vellum::Mtx2D MatrixOf(double m11, double m12, double m21, double m22, double dx, double dy) {
    Vellum::Mtx2D m;
    m.m11 = m11;
    m.m12 = m12;
    m.m21 = m21;
    m.m22 = m22;
    m.dx = dx;
    m.dy = dy;
    m.SetType();
    return m;
}

/// Whether the elements are exactly these, or within a tolerance of them.
inline testing::AssertionResult HasElements(const Vellum::Mtx2D& m, double m11, double m12, double m21, double m22,
                                            double dx, double dy, double tol = 0.0) {
    const double found[] = {m.m11, m.m12, m.m21, m.m22, m.dx, m.dy};
    const double expected[] = {m11, m12, m21, m22, dx, dy};
    for (size_t k = 0; k < 6; ++k) {
        if (!(std::fabs(found[k] - expected[k]) <= tol)) {
            return testing::AssertionFailure() << "element " << k << " is " << testing::PrintToString(found[k])
                                               << " instead of " << testing::PrintToString(expected[k]);
        }
    }
    return testing::AssertionSuccess();
}

}  // namespace xfm_tests

#endif
