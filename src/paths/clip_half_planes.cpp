// SPDX-License-Identifier: MIT
#include "paths/clip_half_planes.h"

#include <cmath>
#include <utility>

namespace Vellum::internal {
namespace {

bool LoadVertices(const ClipPolygon& polygon, ScratchArray<CodedPoint>& vertices) {
    vertices.Clear();
    for (size_t i = 0; i < polygon.count; ++i) {
        const real_pt_t& p = polygon.pts[i];
        if (polygon.IsRepeated(i) || !std::isfinite(p.x) || !std::isfinite(p.y)) continue;
        if (!vertices.Append({p, OpenCode(polygon.codes[i])})) return false;
    }
    return true;
}

/// How far @p p lies inside of the line of @p side, in units of the side's length.
double Depth(const real_pt_t& p, const ClipSide& side, double orientation) {
    return orientation * (side.dx * (p.y - side.y) - side.dy * (p.x - side.x));
}

real_pt_t Between(const real_pt_t& a, const real_pt_t& b, double t) {
    return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)};
}

bool KeepInside(const ClipSide& side, double orientation, ScratchArray<CodedPoint>& before,
                ScratchArray<CodedPoint>& after) {
    after.Clear();
    if (before.IsEmpty()) return true;
    bool fits = true;
    bool hasInside = false;
    double depth = Depth(before[0].at, side, orientation);
    for (size_t i = 0; i < before.Size(); ++i) {
        const CodedPoint& a = before[i];
        const CodedPoint& b = before[i + 1 == before.Size() ? 0 : i + 1];
        const double nextDepth = Depth(b.at, side, orientation);
        hasInside = hasInside || depth > 0.0;
        if (depth >= 0.0) fits = fits && after.Append(a);
        if ((depth > 0.0 && nextDepth < 0.0) || (depth < 0.0 && nextDepth > 0.0)) {
            const bool leaves = depth > 0.0;
            // What follows an exit runs along the side and carries the rectangle's own code.
            fits = fits && after.Append({Between(a.at, b.at, depth / (depth - nextDepth)), leaves ? 0 : a.code});
        }
        depth = nextDepth;
    }
    // An outline that only runs along the side from outside has nothing inside.
    if (!hasInside) after.Clear();
    return fits;
}

}  // namespace

void ClipByHalfPlanes(const ClipPolygon& polygon, const ClipView& view, HalfPlaneMemory& memory, ClipWriter& writer) {
    ScratchArray<CodedPoint>* before = &memory.before;
    ScratchArray<CodedPoint>* after = &memory.after;
    if (!LoadVertices(polygon, *before)) return;
    for (unsigned i = 0; i < 4; ++i) {
        if (!KeepInside(view.Side(i), view.Orientation(), *before, *after)) return;
        std::swap(before, after);
    }
    if (before->Size() < 3) return;
    writer.Begin();
    for (const CodedPoint& p : *before)
        writer.Append(p.at, p.code);
    writer.Commit();
}

}  // namespace Vellum::internal
