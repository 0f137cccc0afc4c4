// SPDX-License-Identifier: MIT
#include "vellum/points.h"

#include "vellum/geometry.h"

namespace Vellum {

double DblPt::DistToLine(const DblPt& a, const DblPt& b, DblPt& closest, bool exact) const {
    return DistPtLine(*this, a, b, closest, exact);
}

}  // namespace Vellum
