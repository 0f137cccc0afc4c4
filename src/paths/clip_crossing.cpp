// SPDX-License-Identifier: MIT
#include "paths/clip_crossing.h"

#include <algorithm>
#include <cmath>

namespace Vellum::internal {
namespace {

constexpr double kSingleEpsilon = 1.1920928955078125e-7;
constexpr double kSingleSmallest = 1.1754943508222875e-38;

bool AreApart(const real_pt_t& a, const real_pt_t& b, const ClipSide& k) {
    return k.minX > std::max(a.x, b.x) || k.maxX < std::min(a.x, b.x) || k.minY > std::max(a.y, b.y) ||
           k.maxY < std::min(a.y, b.y);
}

// The terms of a corner's distance from a line carry at most some ten roundings; this leaves ample room.
constexpr double kRoundingShare = 256.0 * 0x1p-53;

/// NaN counts as being on the line.
bool MayPassThrough(const real_pt_t& s, double dx, double dy, const ClipSide& corner) {
    const double fromX = s.x - corner.x;
    const double fromY = s.y - corner.y;
    const double reach = std::max({std::fabs(fromX), std::fabs(fromY), std::fabs(dx), std::fabs(dy)});
    return !(std::fabs(fromY * dx - fromX * dy) > kRoundingShare * reach * (std::fabs(dx) + std::fabs(dy)));
}

bool IsParameter(double alpha) { return alpha >= 0.0 && alpha <= 1.0; }

/// A hit at the start of an edge moves a hair into it, apart from the hit at the end of the edge before.
double Nudged(double alpha) { return alpha == 0.0 ? kSingleEpsilon : alpha; }

/// At most one crossing with each side: an insertion sort, which keeps the order of equal parameters.
void SortByParameter(ScratchArray<Crossing>& crossings, size_t from) {
    for (size_t i = from + 1; i < crossings.Size(); ++i) {
        const Crossing moved = crossings[i];
        size_t at = i;
        for (; at > from && crossings[at - 1].alphaSubject > moved.alphaSubject; --at)
            crossings[at] = crossings[at - 1];
        crossings[at] = moved;
    }
}

}  // namespace

EdgeFindings FindCrossings(const ClipPolygon& polygon, size_t edge, const real_pt_t& end, const ClipView& view,
                           ScratchArray<Crossing>& crossings) {
    const real_pt_t& s = polygon.pts[polygon.VertexOf(edge)];
    const double dx = end.x - s.x;
    const double dy = end.y - s.y;
    const size_t before = crossings.Size();
    EdgeFindings findings{false, false};
    for (unsigned side = 0; side < 4; ++side) {
        const ClipSide& k = view.Side(side);
        findings.isDelicate = findings.isDelicate || MayPassThrough(s, dx, dy, k);
        if (AreApart(s, end, k)) continue;
        const double denom = dx * k.dy - dy * k.dx;
        const bool isSameDirection = std::fabs(dx - k.dx) < kSingleEpsilon && std::fabs(dy - k.dy) < kSingleEpsilon;
        if (isSameDirection || (-kSingleSmallest <= denom && denom <= kSingleSmallest)) {
            findings.isDelicate = true;
            continue;
        }
        const double alphaSubject = ((s.y - k.y) * k.dx - (s.x - k.x) * k.dy) / denom;
        const double alphaClip = ((s.y - k.y) * dx - (s.x - k.x) * dy) / denom;
        if (!IsParameter(alphaSubject) || !IsParameter(alphaClip)) continue;
        const double alpha = Nudged(alphaSubject);
        const real_pt_t at{s.x + alpha * dx, s.y + alpha * dy};
        if (!crossings.Append({at, alpha, Nudged(alphaClip), edge, side, denom > 0.0})) findings.isIncomplete = true;
    }
    SortByParameter(crossings, before);
    return findings;
}

}  // namespace Vellum::internal
