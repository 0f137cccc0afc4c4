// SPDX-License-Identifier: MIT
#include "paths/clip_winding.h"

#include <algorithm>

#include "paths/clip_kernels.h"

namespace Vellum::internal {

int WindingOfCorners(const ClipView& view, const real_pt_t& p) {
    int winding = 0;
    for (unsigned i = 0; i < 4; ++i)
        winding += EdgeWinding(p, CornerOf(view, i), CornerOf(view, (i + 1) % 4));
    return winding;
}

int WindingOfOutline(const ClipPolygon& polygon, const real_pt_t& p) {
    const ClipKernels& kernels = ActiveClipKernels();
    int winding = EdgeWinding(p, polygon.pts[polygon.count - 1], polygon.pts[0]);
    // Only an edge with one end higher than p and one not adds anything.
    for (size_t start = 0; start + 1 < polygon.count; start += kClipBlockPoints - 1) {
        const size_t points = std::min(polygon.count - start, kClipBlockPoints);
        const uint64_t higher = kernels.higherThan(polygon.pts + start, points, p.y);
        const uint64_t edges = (uint64_t{1} << (points - 1)) - 1;
        for (uint64_t rest = (higher ^ higher >> 1) & edges; rest != 0; rest &= rest - 1) {
            const real_pt_t* const edge = polygon.pts + start + __builtin_ctzll(rest);
            winding += EdgeWinding(p, edge[0], edge[1]);
        }
    }
    return winding;
}

}  // namespace Vellum::internal
