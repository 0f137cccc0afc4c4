// SPDX-License-Identifier: MIT
#include "vellum/clipping.h"

#include <algorithm>

#include "paths/clip_half_planes.h"
#include "paths/clip_scan.h"
#include "paths/clip_trace.h"
#include "paths/clip_winding.h"
#include "paths/clip_writer.h"

namespace Vellum {

using namespace internal;

namespace {

/// The bits of the ways in which an edge and a side lie apart: the first that holds of left, right, below and above,
/// seen from the edge.
unsigned SeparationBit(const real_pt_t& a, const real_pt_t& b, const ClipSide& k) {
    if (k.minX > a.x && k.minX > b.x) return 1;
    if (k.maxX < a.x && k.maxX < b.x) return 2;
    if (k.minY > a.y && k.minY > b.y) return 4;
    if (k.maxY < a.y && k.maxY < b.y) return 8;
    return 0;
}

/// Whether edges within a box that is free of NaN may lie both below a side and above one, without being left or right
/// of it.
bool MayBeSeparatedInY(const Bounds& box, const ClipView& view) {
    bool below = false;
    bool above = false;
    for (unsigned i = 0; i < 4; ++i) {
        const ClipSide& side = view.Side(i);
        if (side.minX > box.maxX || side.maxX < box.minX) continue;
        below = below || side.minY > box.minY;
        above = above || side.maxY < box.maxY;
    }
    return below && above;
}

bool MayBeSeparatedInX(const Bounds& box, const ClipView& view) {
    return box.minX < view.Limits().left && box.maxX > view.Limits().right;
}

/// The proof of nesting, edge by edge.
bool IsSeparatedOnBothSides(const ClipPolygon& polygon, const ClipView& view) {
    const Bounds box = ActiveClipKernels().boundsOf(polygon.pts, polygon.count);
    if (!box.hasNan && !MayBeSeparatedInX(box, view) && !MayBeSeparatedInY(box, view)) return false;
    unsigned separation = 0;
    for (size_t i = 0; i < polygon.count; ++i) {
        if (polygon.IsRepeated(i)) continue;
        size_t next = i + 1;
        while (next < polygon.count && polygon.IsRepeated(next))
            ++next;
        const real_pt_t& end = polygon.pts[next < polygon.count ? next : 0];
        for (unsigned side = 0; side < 4; ++side)
            separation |= SeparationBit(polygon.pts[i], end, view.Side(side));
        if ((separation & 3) == 3 || (separation & 12) == 12) return true;
    }
    return false;
}

void WriteRectangle(const ClipView& view, ClipWriter& writer) {
    writer.Begin();
    for (unsigned i = 0; i < 4; ++i)
        writer.Append(CornerOf(view, i), 0);
    writer.Commit();
}

bool HasTwoVertices(const ClipPolygon& polygon) {
    size_t i = 1;
    while (i < polygon.count && polygon.IsRepeated(i))
        ++i;
    return i < polygon.count;
}

/// The clipping of the polygons of one call.
class SetClipper {
public:
    SetClipper(DrwPSetT& out, const DblRect& clip) : view_(clip), writer_(out) {}

    void Clip(const DrwPSetT& in) {
        SetScan scan(in, view_, view_.IsSoundForWinding() ? SetScan::Beyond::IsOutside : SetScan::Beyond::IsToBeVisited,
                     crossings_);
        scan.Run([this, &scan](const ClipPolygon& polygon, const OutlineFindings& found) {
            if (found.isIncomplete) return;
            if (crossings_.IsEmpty()) {
                if (HasTwoVertices(polygon)) WriteProvenNested(polygon, found.places, scan);
                return;
            }
            CrossingRings rings(polygon, view_, crossings_, traceMemory_);
            if (rings.Link(CrossingRings::Rings::Spliced)) rings.Trace(writer_);
        });
        writer_.Flush();
    }

    void ClipComplete(const DrwPSetT& in) {
        const bool isConvex = view_.Orientation() != 0.0;
        SetScan scan(in, view_, SetScan::Beyond::IsOutside, crossings_);
        scan.Run([this, isConvex](const ClipPolygon& polygon, const OutlineFindings& found) {
            if (found.isIncomplete) return;
            if ((found.places & kCore) != 0 && isConvex) {
                if (HasTwoVertices(polygon)) writer_.WriteVerbatim(polygon);
            } else if (found.isDelicate && isConvex) {
                ClipByHalfPlanes(polygon, view_, halfPlaneMemory_, writer_);
            } else if (crossings_.IsEmpty()) {
                if (HasTwoVertices(polygon)) WriteNested(polygon);
            } else {
                ClipCrossed(polygon, isConvex);
            }
        });
        writer_.Flush();
    }

private:
    void ClipCrossed(const ClipPolygon& polygon, bool isConvex) {
        CrossingRings rings(polygon, view_, crossings_, traceMemory_);
        if (!rings.Link(isConvex ? CrossingRings::Rings::Original : CrossingRings::Rings::Spliced)) return;
        if (isConvex && !rings.IsConsistent())
            ClipByHalfPlanes(polygon, view_, halfPlaneMemory_, writer_);
        else
            rings.Trace(writer_);
    }

    void WriteProvenNested(const ClipPolygon& polygon, Places places, SetScan& scan) {
        const NestingProof proof = scan.ProofOfNesting(polygon);
        if (proof == NestingProof::Missing) return;
        if (proof == NestingProof::Unknown && !IsSeparatedOnBothSides(polygon, view_)) return;
        const bool isCore = (places & kCore) != 0 && view_.Orientation() != 0.0;
        if (isCore || WindingOfCorners(view_, polygon.pts[0]) != 0)
            writer_.WriteVerbatim(polygon);
        else if (WindingOfOutline(polygon, CornerOf(view_, 0)) != 0)
            WriteRectangle(view_, writer_);
    }

    void WriteNested(const ClipPolygon& polygon) {
        if (WindingOfCorners(view_, polygon.pts[0]) != 0)
            writer_.WriteVerbatim(polygon);
        else if (WindingOfOutline(polygon, {view_.CentreX(), view_.CentreY()}) != 0)
            WriteRectangle(view_, writer_);
    }

    const ClipView view_;
    ClipWriter writer_;
    ScratchArray<Crossing> crossings_;
    TraceMemory traceMemory_;
    HalfPlaneMemory halfPlaneMemory_;
};

/// The most points that one polygon can add; `ClipPolygonSetMaxPts` tells why.
size_t MostPointsFrom(const ClipPolygon& polygon) {
    if (polygon.count < 2) return 0;
    size_t vertices = 0;
    for (size_t i = 0; i < polygon.count; ++i)
        vertices += polygon.IsRepeated(i) ? 0 : 1;
    if (vertices < 2) return 0;
    const real_pt_t& first = polygon.pts[0];
    const real_pt_t& last = polygon.pts[polygon.count - 1];
    const bool isClosed = first.x == last.x && first.y == last.y;
    const size_t edges = isClosed ? vertices - 1 : vertices;
    return std::max(polygon.count, 2 * vertices + 8 * edges + 4);
}

}  // namespace

void ClipPolygonSet(DrwPSetT* in, DrwPSetT* out, DblRect* clip) { SetClipper(*out, *clip).Clip(*in); }

void ClipPolygonSetComplete(const DrwPSetT* in, DrwPSetT* out, const DblRect* clip) {
    SetClipper(*out, *clip).ClipComplete(*in);
}

size_t ClipPolygonSetMaxPts(const DrwPSetT* in) {
    const size_t count = in->numPts > 0 ? static_cast<size_t>(in->numPts) : 0;
    size_t most = 0;
    size_t first = 0;
    for (size_t i = 0; i < count; ++i) {
        if (!IsEndCode(in->codes[i])) continue;
        most += MostPointsFrom({in->pts + first, in->codes + first, i - first + 1});
        first = i + 1;
    }
    return most;
}

}  // namespace Vellum
