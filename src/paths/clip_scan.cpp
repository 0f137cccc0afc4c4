// SPDX-License-Identifier: MIT
#include "paths/clip_scan.h"

namespace Vellum::internal {
namespace {

// What lies beyond a band in a block does so by 2^-20 of that block's distance, and the rounding about the edge between
// a polygon's last point and its first grows with the greater distance of the two. Up to this ratio the gap outweighs
// the rounding by far; beyond it the places that the blocks share prove nothing about that edge.
constexpr double kComparableDistances = 1024.0;

// How far from the rectangle, in units of its reach, most points are expected to be.
constexpr double kUsualDistance = 64.0;

/// Bit i: points i and i + 1 share a place.
uint64_t SharedWithNext(const ViewBits& bits) {
    const auto pairs = [](uint64_t place) { return place & place >> 1; };
    return pairs(bits.core) | pairs(bits.aboveAcross) | pairs(bits.belowAcross) | pairs(bits.aboveAlong) |
           pairs(bits.belowAlong);
}

uint64_t InNoPlace(const ViewBits& bits) {
    return ~(bits.core | bits.aboveAcross | bits.belowAcross | bits.aboveAlong | bits.belowAlong);
}

Places SharedByAll(const ViewBits& bits, uint64_t points) {
    const auto all = [points](uint64_t place, Places bit) { return (points & ~place) == 0 ? bit : 0; };
    return all(bits.core, kCore) | all(bits.aboveAcross, kAboveAcross) | all(bits.belowAcross, kBelowAcross) |
           all(bits.aboveAlong, kAboveAlong) | all(bits.belowAlong, kBelowAlong);
}

}  // namespace

SetScan::SetScan(const DrwPSetT& set, const ClipView& view, Beyond beyond, ScratchArray<Crossing>& crossings)
    : pts_(set.pts),
      codes_(set.codes),
      count_(set.numPts > 0 ? static_cast<size_t>(set.numPts) : 0),
      view_(view),
      passedOver_(beyond == Beyond::IsOutside ? kBeyond : 0),
      crossings_(crossings),
      kernels_(ActiveClipKernels()),
      usualTest_(view.TestWithin(kUsualDistance * view.Reach())) {}

void SetScan::LoadBlocks(size_t start) {
    nextBlocks_ = start + kBlocksAtOnce * kBlockStep;
    for (Block& block : blocks_) {
        if (start >= count_) return;
        const size_t points = std::min(count_ - start, kClipBlockPoints);
        block.ends = kernels_.endCodes(codes_ + start, points);
        block.distance = kUsualDistance * view_.Reach();
        kernels_.classify(pts_ + start, points, usualTest_, block.places);
        if (block.places.reachesFar) {
            block.distance = view_.DistanceWithin(kernels_.boundsOf(pts_ + start, points));
            kernels_.classify(pts_ + start, points, view_.TestWithin(block.distance), block.places);
        }
        start += kBlockStep;
    }
}

void SetScan::EnterBlock(size_t start) {
    if (start == nextBlocks_) LoadBlocks(start);
    const size_t points = std::min(count_ - start, kClipBlockPoints);
    block_ = &blocks_[start / kBlockStep % kBlocksAtOnce];
    start_ = start;
    owned_ = std::min(points, kBlockStep);
    doubtfulEdges_ = ~SharedWithNext(block_->places) & BitsBelow(points - 1);
    if (isOpen_) {
        leastDistance_ = std::min(leastDistance_, block_->distance);
        greatestDistance_ = std::max(greatestDistance_, block_->distance);
    }
}

/// Passes over what begins before point @p from, polygons of a single point, and those that are beyond a band as a
/// whole.
SetScan::NotableEnds SetScan::FindNotableEnds(size_t from) const {
    const uint64_t ends = block_->ends & BitsBelow(owned_) & ~BitsBelow(from);
    const uint64_t starts = (ends << 1 | (BitsBelow(from + 1) & ~BitsBelow(from))) & BitsBelow(owned_);
    // A carry that enters a polygon at its start comes out at its end if all the points between are set.
    const auto wholly = [=](uint64_t place) { return ((starts & place) + (place & ~ends)) & place & ends; };
    if (passedOver_ == 0) return {ends & ~starts, ends & ~starts & wholly(block_->places.core)};
    const uint64_t beyond = wholly(block_->places.aboveAcross) | wholly(block_->places.belowAcross) |
                            wholly(block_->places.aboveAlong) | wholly(block_->places.belowAlong);
    const uint64_t all = ends & ~starts & ~beyond;
    return {all, all & wholly(block_->places.core)};
}

/// Takes the block's points from @p from on into the polygon, up to its last or to the end of the block, with the edges
/// between them; returns where it stopped.
size_t SetScan::ScanOn(size_t from) {
    const uint64_t ends = block_->ends & BitsBelow(owned_) & ~BitsBelow(from);
    const uint64_t last = ends & (~ends + 1);
    isOpen_ = last == 0;
    const uint64_t points = (isOpen_ ? BitsBelow(owned_) : last | (last - 1)) & ~BitsBelow(from);
    findings_.places &= SharedByAll(block_->places, points);
    if (const uint64_t doubtful = doubtfulEdges_ & points & ~last) SearchEdges(doubtful);
    return isOpen_ ? owned_ : static_cast<size_t>(__builtin_ctzll(last)) + 1;
}

void SetScan::SearchEdges(uint64_t edges) {
    for (uint64_t rest = InNoPlace(block_->places) & (edges | edges << 1); rest != 0; rest &= rest - 1) {
        const real_pt_t& p = pts_[start_ + static_cast<size_t>(__builtin_ctzll(rest))];
        findings_.isDelicate = findings_.isDelicate || view_.MayTouch(p);
    }
    const ClipPolygon polygon{pts_ + first_, codes_ + first_, count_ - first_};
    for (uint64_t rest = edges; rest != 0; rest &= rest - 1) {
        const size_t edge = start_ - first_ + static_cast<size_t>(__builtin_ctzll(rest));
        if (!polygon.IsRepeated(edge + 1)) Search(polygon, edge, polygon.pts[edge + 1]);
    }
}

void SetScan::Search(const ClipPolygon& polygon, size_t edge, const real_pt_t& end) {
    const EdgeFindings found = FindCrossings(polygon, edge, end, view_, crossings_);
    findings_.isDelicate = findings_.isDelicate || found.isDelicate;
    findings_.isIncomplete = findings_.isIncomplete || found.isIncomplete;
}

/// The edge from the last point to the first.
void SetScan::CloseOutline(const ClipPolygon& polygon) {
    if (greatestDistance_ > kComparableDistances * leastDistance_) findings_.places = 0;
    if (findings_.places != 0) return;
    const real_pt_t ends[2] = {polygon.pts[polygon.count - 1], polygon.pts[0]};
    if (ends[0].x == ends[1].x && ends[0].y == ends[1].y) return;
    const ViewTest test = view_.TestWithin(view_.DistanceWithin(kernels_.boundsOf(ends, 2)));
    ViewBits places;
    kernels_.classify(ends, 2, test, places);
    if (SharedWithNext(places) & 1) return;
    findings_.isDelicate = findings_.isDelicate || view_.MayTouch(ends[0]) || view_.MayTouch(ends[1]);
    Search(polygon, polygon.count - 1, ends[1]);
}

NestingProof SetScan::ProofOfNesting(const ClipPolygon& polygon) {
    if (first_ < start_) return NestingProof::Unknown;
    if (edgeBitsOf_ != start_) {
        kernels_.compare(pts_ + start_, std::min(count_ - start_, kClipBlockPoints), view_.Limits(), edgeBits_);
        edgeBitsOf_ = start_;
    }
    const size_t from = first_ - start_;
    const uint64_t points = BitsBelow(from + polygon.count) & ~BitsBelow(from);
    if (HasEdgeWithin(points, edgeBits_.left) && HasEdgeWithin(points, edgeBits_.right)) return NestingProof::Found;
    const bool mayBeProven = HasEdgeWithin(points, edgeBits_.below) && HasEdgeWithin(points, edgeBits_.above);
    return mayBeProven ? NestingProof::Unknown : NestingProof::Missing;
}

/// Whether an edge of the ring has both its ends among @p points that are past a limit.
bool SetScan::HasEdgeWithin(uint64_t points, uint64_t past) const {
    const uint64_t ends = points & past;
    const uint64_t first = points & (~points + 1);
    const uint64_t last = points & ~(points >> 1);
    if ((ends & first) != 0 && (ends & last) != 0) return true;
    for (uint64_t rest = ends & ends >> 1; rest != 0; rest &= rest - 1) {
        const real_pt_t* const edge = pts_ + start_ + __builtin_ctzll(rest);
        if (edge[0].x != edge[1].x || edge[0].y != edge[1].y) return true;
    }
    return false;
}

}  // namespace Vellum::internal
