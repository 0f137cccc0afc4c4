// SPDX-License-Identifier: MIT
#include "paths/connector_join.h"

#include <algorithm>
#include <span>

#include "shapes/point_chain.h"

namespace Vellum::internal {

namespace {

// So many polylines ahead memory is asked for.
constexpr size_t kAhead = 8;

size_t SegmentsOf(std::span<const DblPt> points) { return points.empty() ? 0 : points.size() - 1; }

DblPt MiddleOf(const DblPt& p, const DblPt& q) {
    // Halved first, since the sum of huge coordinates overflows.
    return DblPt(p.x * 0.5 + q.x * 0.5, p.y * 0.5 + q.y * 0.5);
}

// Sets of a run's segments: bit 2i is segment i.
uint64_t AllSegments(uint32_t count) { return ((uint64_t{1} << (2 * count)) - 1) & 0x5555555555555555; }

uint32_t FirstOf(uint64_t segments) { return static_cast<uint32_t>(__builtin_ctzll(segments)) / 2; }

/// The segments within reach of a box: those that have not both their ends beyond the same side. The points must be
/// finite.
uint64_t NearSegments(const DblPt* pts, uint32_t segments, const PlaneBox& around) {
    const TwoDoubles least = LoadTwo(&around.minX);
    const TwoDoubles most = LoadTwo(&around.maxX);
    // Bit 2i is for the x of point i, the one after it for its y.
    TwoDoubles own = {1, 2};
    TwoDoubles below = {};
    TwoDoubles above = {};
    for (uint32_t i = 0; i <= segments; ++i) {
        const TwoDoubles p = LoadTwo(&pts[i].x);
        below += Chosen(p < least, own);
        above += Chosen(p > most, own);
        own *= 4.0;
    }
    const auto low = static_cast<uint64_t>(below[0] + below[1]);
    const auto high = static_cast<uint64_t>(above[0] + above[1]);
    const uint64_t beyond = (low & low >> 2) | (high & high >> 2);
    return ~(beyond | beyond >> 1) & AllSegments(segments);
}

}  // namespace

bool PolylineJoin::Find() {
    if (!MakeRuns()) return false;
    size_t layerEnd = 0;
    for (size_t first = 0; first < runs_.Size(); first += PlaneBoxBlock::kCount) {
        const size_t last = std::min(first + PlaneBoxBlock::kCount, runs_.Size()) - 1;
        layerEnd = std::max(layerEnd, last + 1);
        while (layerEnd < runs_.Size() && runs_[layerEnd].layer == runs_[last].layer)
            ++layerEnd;
        JoinBlock(first, layerEnd);
        if (!findings_.IsComplete()) return false;
    }
    return true;
}

bool PolylineJoin::PassTo(ConnectorSink& sink) {
    // What is passed on needs memory too.
    chains_.Release();
    runs_.Release();
    points_.Release();
    tree_ = {};
    return findings_.PassTo(sink, segmentCount_);
}

bool PolylineJoin::MakeRuns() {
    ScratchArray<LayerPlace> pieces;
    if (!chains_.Resize(polylines_.size())) return false;
    size_t runs = 0;
    size_t gathered = 0;
    size_t number = 0;
    for (uint32_t i = 0; i < polylines_.size(); ++i) {
        const PolylineGeom& poly = *polylines_[i]->poly;
        const std::span<const DblPt> points = PointsOf(poly);
        const size_t segments = SegmentsOf(points);
        for (size_t start = 0; start < segments; start += kPieceSegments) {
            const size_t end = std::min(segments, start + kPieceSegments);
            const DblPt middle = MiddleOf(points[start], points[end]);
            if (!pieces.Append({middle, polylines_[i]->layer, i, static_cast<uint32_t>(start)})) return false;
        }
        chains_[i] = {points.data(), static_cast<uint32_t>(segments), static_cast<uint32_t>(number), poly.extents};
        number += segments;
        runs += (segments + kRunSegments - 1) / kRunSegments;
        gathered += IsShort(segments) ? points.size() : 0;
    }
    segmentCount_ = number;
    OrderSpatially(pieces);
    if (!tree_.Allocate(runs) || !runs_.Reserve(runs) || !points_.Reserve(gathered)) return false;
    for (size_t i = 0; i < pieces.Size(); ++i) {
        // Polylines that are neighbours in the plane are so in memory only by chance.
        if (i + 2 * kAhead < pieces.Size()) __builtin_prefetch(&chains_[pieces[i + 2 * kAhead].owner]);
        if (i + kAhead < pieces.Size()) __builtin_prefetch(chains_[pieces[i + kAhead].owner].pts);
        AddRuns(pieces[i]);
    }
    tree_.Build();
    return true;
}

void PolylineJoin::AddRuns(const LayerPlace& piece) {
    const Chain& chain = chains_[piece.owner];
    const size_t end = std::min<size_t>(chain.segments, piece.part + kPieceSegments);
    for (size_t start = piece.part; start < end; start += kRunSegments) {
        const size_t segments = std::min(kRunSegments, end - start);
        const DblPt* const pts = IsShort(chain.segments) ? Gathered(chain.pts, segments + 1) : chain.pts + start;
        tree_.Set(runs_.Size(), BoxOfPoints(pts, segments + 1), piece.owner);
        runs_.Append({pts, static_cast<uint32_t>(segments), chain.firstNumber + static_cast<uint32_t>(start),
                      piece.owner, piece.layer, chain.extents});
    }
}

/// Copies the points of a short polyline to where those of its neighbours are.
const DblPt* PolylineJoin::Gathered(const DblPt* pts, size_t count) {
    const size_t first = points_.Size();
    points_.Resize(first + count);
    std::copy_n(pts, count, &points_[first]);
    return &points_[first];
}

/// Joins the runs of a block with each other and with the runs behind it, up to @p end.
void PolylineJoin::JoinBlock(size_t first, size_t end) {
    const size_t last = std::min(first + PlaneBoxBlock::kCount, end);
    PlaneBoxBlock around;
    PlaneBox aroundAll = NoPlane();
    uint32_t owner = tree_.OwnerOf(first);
    for (size_t i = first; i < first + PlaneBoxBlock::kCount; ++i) {
        if (i >= last) {
            around.Omit(i - first);
            continue;
        }
        const PlaneBox box = Around(tree_[i]);
        around.Set(i - first, box);
        aroundAll.Enclose(box);
        if (tree_.OwnerOf(i) != owner) owner = PlaneBoxTree::kNobody;
    }
    effort_.blocks += tree_.ForEachMeeting(aroundAll, first, end, owner, [&](size_t k) {
        ++effort_.runs;
        uint32_t near = around.Meeting(tree_[k]);
        if (k < last) near &= (uint32_t{1} << (k - first)) - 1;
        for (; near != 0; near &= near - 1) {
            const size_t i = first + static_cast<size_t>(__builtin_ctz(near));
            if (tree_.OwnerOf(i) != tree_.OwnerOf(k)) JoinRuns(i, k);
        }
    });
}

void PolylineJoin::JoinRuns(size_t i, size_t k) {
    if (runs_[i].layer != runs_[k].layer) return;
    if (runs_[i].polyline > runs_[k].polyline) std::swap(i, k);
    const Run& a = runs_[i];
    const Run& b = runs_[k];
    ++effort_.runPairs;
    if (a.extents.IsDisjointFrom(b.extents, tol_)) return;
    const bool isAnywhere = tree_[i].IsWholePlane() || tree_[k].IsWholePlane();
    uint64_t nearA = isAnywhere ? AllSegments(a.segments) : NearSegments(a.pts, a.segments, Around(tree_[k]));
    for (; nearA != 0; nearA &= nearA - 1)
        JoinSegment(a, FirstOf(nearA), b, isAnywhere);
}

/// Joins a segment to those of a run that are within its reach, or to all of them.
void PolylineJoin::JoinSegment(const Run& a, uint32_t i, const Run& b, bool toAll) {
    const DblPt* const p = a.pts + i;
    const NumberedSegment segA{a.firstNumber + i, p[0], p[1]};
    uint64_t near = toAll ? AllSegments(b.segments) : NearSegments(b.pts, b.segments, Around(BoxOfSegment(p[0], p[1])));
    for (; near != 0; near &= near - 1) {
        const uint32_t k = FirstOf(near);
        const DblPt* const q = b.pts + k;
        const NumberedSegment segB{b.firstNumber + k, q[0], q[1]};
        ++effort_.segmentPairs;
        findings_.Enter({a.polyline, b.polyline, segA.number, segB.number});
        steps_.Connect(segA, segB);
    }
}

}  // namespace Vellum::internal
