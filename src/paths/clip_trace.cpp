// SPDX-License-Identifier: MIT
#include "paths/clip_trace.h"

#include <algorithm>

#include "paths/clip_winding.h"

namespace Vellum::internal {

bool CrossingRings::Link(Rings rings) {
    const size_t count = Count();
    if (!memory_.clipOrder.Resize(count) || !memory_.clipRank.Resize(count) || !memory_.isTraced.Resize(count)) {
        return false;
    }
    for (size_t i = 0; i < count; ++i)
        memory_.clipOrder[i] = i;
    std::sort(memory_.clipOrder.begin(), memory_.clipOrder.end(), [&](size_t a, size_t b) {
        const Crossing& p = crossings_[a];
        const Crossing& q = crossings_[b];
        if (p.side != q.side) return p.side < q.side;
        if (p.alphaClip != q.alphaClip) return p.alphaClip < q.alphaClip;
        return a < b;
    });
    for (size_t rank = 0; rank < count; ++rank) {
        memory_.clipRank[memory_.clipOrder[rank]] = rank;
        memory_.isTraced[rank] = false;
    }
    const real_pt_t corner = CornerOf(view_, 0);
    const bool isSpliced = rings == Rings::Spliced;
    startsInRectangle_ =
        (isSpliced ? WindingOfRectangle(polygon_.pts[0]) : WindingOfCorners(view_, polygon_.pts[0])) != 0;
    startsInPolygon_ = (isSpliced ? WindingOfPolygon(corner) : WindingOfOutline(polygon_, corner)) != 0;
    return true;
}

/// The crossings are corners of the ring here: rounding puts them a little off the sides.
int CrossingRings::WindingOfRectangle(const real_pt_t& p) const {
    int winding = 0;
    size_t rank = 0;
    for (unsigned side = 0; side < 4; ++side) {
        real_pt_t a = CornerOf(view_, side);
        for (; rank < Count() && crossings_[memory_.clipOrder[rank]].side == side; ++rank) {
            const real_pt_t& b = crossings_[memory_.clipOrder[rank]].at;
            winding += EdgeWinding(p, a, b);
            a = b;
        }
        winding += EdgeWinding(p, a, CornerOf(view_, (side + 1) % 4));
    }
    return winding;
}

/// The same for the polygon's ring: each edge with crossings gives way to the chain through them.
int CrossingRings::WindingOfPolygon(const real_pt_t& p) const {
    int winding = WindingOfOutline(polygon_, p);
    for (size_t i = 0; i < Count();) {
        const size_t edge = crossings_[i].edge;
        const real_pt_t& end = EdgeEnd(edge);
        real_pt_t a = polygon_.pts[edge];
        winding -= EdgeWinding(p, a, end);
        for (; i < Count() && crossings_[i].edge == edge; ++i) {
            winding += EdgeWinding(p, a, crossings_[i].at);
            a = crossings_[i].at;
        }
        winding += EdgeWinding(p, a, end);
    }
    return winding;
}

bool CrossingRings::IsConsistent() const {
    if (Count() % 2 != 0) return false;
    const bool isClockwise = view_.Orientation() < 0.0;
    const bool rulesDiffer = LeavesRectangle(0) != LeavesPolygon(memory_.clipRank[0]);
    for (size_t i = 0; i < Count(); ++i) {
        // The inside lies right of a clockwise rectangle's sides: where the side leads to the left, the edge comes in.
        const bool leaves = crossings_[i].turnsLeft != isClockwise;
        if (LeavesRectangle(i) != leaves) return false;
        if ((LeavesRectangle(i) != LeavesPolygon(memory_.clipRank[i])) != rulesDiffer) return false;
    }
    return true;
}

void CrossingRings::Trace(ClipWriter& writer) {
    for (size_t i = 0; i < Count(); ++i) {
        if (!memory_.isTraced[i] && ComesBack(i)) WritePiece(i, writer);
    }
}

/// Follows the piece from @p start and marks its crossings. Where the crossings of a ring are odd in number, two walks
/// lead to one crossing, and a trace may run into a cycle that its start is not part of: it has not come back after as
/// many rounds as there are crossings, and never will.
bool CrossingRings::ComesBack(size_t start) {
    size_t current = start;
    for (size_t round = 0; round < Count(); ++round) {
        memory_.isTraced[current] = true;
        current = AlongRectangle(current);
        memory_.isTraced[current] = true;
        current = AlongPolygon(current);
        if (current == start) return true;
    }
    return false;
}

void CrossingRings::WritePiece(size_t start, ClipWriter& writer) const {
    writer.Begin();
    size_t current = start;
    do {
        WriteAlongRectangle(current, writer);
        current = AlongRectangle(current);
        WriteAlongPolygon(current, writer);
        current = AlongPolygon(current);
    } while (current != start);
    writer.Commit();
}

void CrossingRings::WriteAlongRectangle(size_t from, ClipWriter& writer) const {
    const size_t rank = memory_.clipRank[from];
    const bool backwards = LeavesPolygon(rank);
    const size_t nextRank = Step(rank, backwards);
    const unsigned side = crossings_[from].side;
    const unsigned nextSide = crossings_[memory_.clipOrder[nextRank]].side;
    const bool passesStart = backwards ? nextRank >= rank : nextRank <= rank;
    const unsigned corners = (backwards ? side - nextSide : nextSide - side) + (passesStart ? 4 : 0);
    writer.Append(crossings_[from].at, 0);
    for (unsigned i = 0; i < corners; ++i) {
        writer.Append(CornerOf(view_, (backwards ? side - i : side + 1 + i) % 4), 0);
    }
}

void CrossingRings::WriteAlongPolygon(size_t from, ClipWriter& writer) const {
    const bool backwards = LeavesRectangle(from);
    const size_t next = Step(from, backwards);
    const size_t edge = crossings_[from].edge;
    const size_t nextEdge = crossings_[next].edge;
    const size_t last = polygon_.count - 1;
    writer.Append(crossings_[from].at, OpenCode(polygon_.codes[polygon_.VertexOf(edge)]));
    if (backwards) {
        if (next < from) {
            writer.AppendVerticesBackwards(polygon_, nextEdge + 1, edge);
        } else {
            writer.AppendVerticesBackwards(polygon_, 0, edge);
            writer.AppendVerticesBackwards(polygon_, nextEdge + 1, last);
        }
    } else {
        if (next > from) {
            writer.AppendVertices(polygon_, edge + 1, nextEdge);
        } else {
            writer.AppendVertices(polygon_, edge + 1, last);
            writer.AppendVertices(polygon_, 0, nextEdge);
        }
    }
}

}  // namespace Vellum::internal
