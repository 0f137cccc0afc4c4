// SPDX-License-Identifier: MIT
#include "reference/polygon_containment.h"

namespace reference {

int64_t WindingNumber(const Vellum::DblPt* pts, size_t count, double x, double y) {
    int64_t winding = 0;
    for (size_t i = 0; i < count; ++i) {
        const Vellum::DblPt& v = pts[i];
        const Vellum::DblPt& w = pts[i + 1 == count ? 0 : i + 1];
        const double side = (w.x - v.x) * (y - v.y) - (x - v.x) * (w.y - v.y);
        if (v.y <= y && w.y > y && side >= 0.0) ++winding;
        if (v.y > y && w.y <= y && side <= 0.0) --winding;
    }
    return winding;
}

bool RingContains(const Vellum::DblPt* pts, size_t count, double x, double y) {
    return WindingNumber(pts, count, x, y) != 0;
}

}  // namespace reference
