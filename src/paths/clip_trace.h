// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_CLIP_TRACE_H
#define VELLUM_SRC_PATHS_CLIP_TRACE_H

#include "paths/clip_crossing.h"
#include "paths/clip_writer.h"

namespace Vellum::internal {

/// Working memory of the tracing, kept from polygon to polygon within a call.
struct TraceMemory {
    ScratchArray<size_t> clipOrder;  ///< the crossings in the order of the rectangle's ring
    ScratchArray<size_t> clipRank;   ///< where a crossing stands in that order
    ScratchArray<bool> isTraced;
};

/// The two rings of a polygon and the rectangle, linked at their crossings (of which there is at least one), and the
/// walk over them that yields the intersection.
///
/// A crossing is known by its place along the polygon's ring. Neither ring is built: between two crossings the
/// polygon's vertices stand in the caller's array, and the rectangle's corners are at most four.
class CrossingRings {
public:
    CrossingRings(const ClipPolygon& polygon, const ClipView& view, ScratchArray<Crossing>& crossings,
                  TraceMemory& memory)
        : polygon_(polygon), view_(view), crossings_(crossings), memory_(memory) {}

    /// Which rings the windings are found in that tell entries from exits.
    enum class Rings {
        Spliced,  ///< with the crossings for vertices, which rounding puts a little off the outlines
        Original
    };

    /// Orders the crossings along the rectangle and finds out which are entries. False where memory runs out.
    bool Link(Rings rings);

    /// Whether the crossings alternate the way that the directions of their edges tell: each leads out of the
    /// rectangle, or into it, as its mark says, and the polygon's marks all bear one relation to the rectangle's. Then
    /// every trace ends.
    bool IsConsistent() const;

    /// Traces every piece and writes it.
    void Trace(ClipWriter& writer);

private:
    size_t Count() const { return crossings_.Size(); }

    bool LeavesRectangle(size_t crossing) const { return startsInRectangle_ != ((crossing & 1) != 0); }
    bool LeavesPolygon(size_t rank) const { return startsInPolygon_ != ((rank & 1) != 0); }

    /// A step along a ring of crossings, backwards from an exit and forwards from an entry.
    size_t Step(size_t place, bool backwards) const {
        if (backwards) return place == 0 ? Count() - 1 : place - 1;
        return place + 1 == Count() ? 0 : place + 1;
    }
    size_t AlongRectangle(size_t crossing) const {
        const size_t rank = memory_.clipRank[crossing];
        return memory_.clipOrder[Step(rank, LeavesPolygon(rank))];
    }
    size_t AlongPolygon(size_t crossing) const { return Step(crossing, LeavesRectangle(crossing)); }

    int WindingOfRectangle(const real_pt_t& p) const;
    int WindingOfPolygon(const real_pt_t& p) const;
    const real_pt_t& EdgeEnd(size_t edge) const { return polygon_.pts[edge + 1 == polygon_.count ? 0 : edge + 1]; }

    bool ComesBack(size_t start);
    void WritePiece(size_t start, ClipWriter& writer) const;
    void WriteAlongRectangle(size_t from, ClipWriter& writer) const;
    void WriteAlongPolygon(size_t from, ClipWriter& writer) const;

    const ClipPolygon& polygon_;
    const ClipView& view_;
    ScratchArray<Crossing>& crossings_;
    TraceMemory& memory_;
    bool startsInRectangle_ = false;
    bool startsInPolygon_ = false;
};

}  // namespace Vellum::internal

#endif
