// SPDX-License-Identifier: MIT
#include "vellum/pick_regions.h"

namespace Vellum {

bool PickRect::Contains(DblPt& p, double tol) { return box.Contains(p, tol); }

bool PickRect::Contains(double x, double y, double tol) { return box.Contains(x, y, tol); }

double PickRect::Top() const { return box.Top(); }

double PickRect::Bottom() const { return box.Bottom(); }

double PickRect::Left() const { return box.Left(); }

double PickRect::Right() const { return box.Right(); }

void PickRect::GetPoints(DblPt* ll, DblPt* ur) const {
    // Either may be a corner of the box.
    const AlignedDblRect corners = box;
    *ll = corners.ll;
    *ur = corners.ur;
}

}  // namespace Vellum
