// SPDX-License-Identifier: MIT
#include "reference/clearance.h"

#include <cfloat>

namespace reference {

using Vellum::DblPt;

Clearance ClearanceOf(std::span<const DblPt> a, std::span<const DblPt> b) {
    Clearance best{DBL_MAX, false, 0, 0, a[0], b[0]};
    for (std::size_t edge = 0; edge + 1 < a.size(); ++edge) {
        for (std::size_t vertex = 0; vertex < b.size(); ++vertex) {
            DblPt foot;
            const double dist = b[vertex].DistToLine(a[edge], a[edge + 1], foot, false);
            if (best.dist > dist) best = {dist, false, edge, vertex, foot, b[vertex]};
        }
    }
    for (std::size_t edge = 0; edge + 1 < b.size(); ++edge) {
        for (std::size_t vertex = 0; vertex < a.size(); ++vertex) {
            DblPt foot;
            const double dist = a[vertex].DistToLine(b[edge], b[edge + 1], foot, false);
            if (best.dist > dist) best = {dist, true, edge, vertex, a[vertex], foot};
        }
    }
    return best;
}

}  // namespace reference
