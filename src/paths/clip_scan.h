// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_CLIP_SCAN_H
#define VELLUM_SRC_PATHS_CLIP_SCAN_H

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "paths/clip_crossing.h"
#include "paths/clip_kernels.h"
#include "paths/clip_polygon.h"
#include "paths/clip_view.h"

namespace Vellum::internal {

/// What one pass over a polygon found out.
struct OutlineFindings {
    Places places;      ///< what all of the polygon shares
    bool isDelicate;    ///< the decision about some edge hung on a rounding
    bool isIncomplete;  ///< working memory ran out: the crossings are not complete
};

/// Whether a polygon has edges apart from sides of the rectangle both to the left and to the right, or both below and
/// above: without that the two are not taken to be nested, even where they are.
enum class NestingProof { Found, Missing, Unknown };

/// One pass over a set, a block of points at a time. It splits the set into polygons and finds the crossings of each,
/// in the order of the polygon's ring: by edge, and on an edge by parameter. What happens to a polygon within a block
/// is a matter of bits.
class SetScan {
public:
    /// Whether a polygon beyond a band is passed over.
    enum class Beyond { IsOutside, IsToBeVisited };

    SetScan(const DrwPSetT& set, const ClipView& view, Beyond beyond, ScratchArray<Crossing>& crossings);

    /// Calls `visit(polygon, findings)` for each polygon of two points or more that is not passed over; its crossings
    /// stand in the array given at construction until the call returns. Stray end codes before a polygon are passed
    /// over, and a tail without an end code is ignored.
    template <class Visit>
    void Run(Visit visit) {
        // Blocks share a point, so that every edge has both its ends in one of them.
        for (size_t start = 0; start < count_; start += kBlockStep) {
            EnterBlock(start);
            size_t at = 0;
            if (isOpen_) {
                at = ScanOn(0);
                if (!isOpen_) Close(visit, start_ + at - 1);
            }
            const NotableEnds notable = FindNotableEnds(at);
            for (uint64_t ends = notable.all; ends != 0; ends &= ends - 1) {
                const size_t end = static_cast<size_t>(__builtin_ctzll(ends));
                Open(start_ + StartBefore(end, at));
                if (notable.core >> end & 1) {
                    CloseCore(visit, start_ + end);
                } else {
                    ScanOn(first_ - start_);
                    Close(visit, start_ + end);
                }
            }
            const size_t tail = StartBefore(owned_, at);
            if (tail < owned_) {
                Open(start_ + tail);
                ScanOn(tail);
            }
        }
    }

    /// To be asked about the polygon that is being visited. `Unknown` where its edges have to be looked at one by one.
    NestingProof ProofOfNesting(const ClipPolygon& polygon);

private:
    static constexpr size_t kBlockStep = kClipBlockPoints - 1;

    /// So many blocks are held against the rectangle at once: the kernels run on undisturbed by what comes of the bits.
    static constexpr size_t kBlocksAtOnce = 8;

    struct Block {
        ViewBits places;
        uint64_t ends;
        double distance;
    };

    /// The ends, within a block, of the polygons that begin in it and have to be looked at.
    struct NotableEnds {
        uint64_t all;
        uint64_t core;  ///< those of polygons that lie in the core as a whole
    };

    static uint64_t BitsBelow(size_t count) { return count >= 64 ? ~uint64_t{0} : (uint64_t{1} << count) - 1; }

    /// Where the polygon that ends at point @p end of the block begins, which is not before @p from.
    size_t StartBefore(size_t end, size_t from) const {
        const uint64_t before = block_->ends & BitsBelow(end) & ~BitsBelow(from);
        return before == 0 ? from : kClipBlockPoints - static_cast<size_t>(__builtin_clzll(before));
    }

    void Open(size_t first) {
        first_ = first;
        isOpen_ = true;
        crossings_.Clear();
        findings_ = {kCore | kBeyond, false, false};
        leastDistance_ = greatestDistance_ = block_->distance;
    }

    template <class Visit>
    void Close(Visit& visit, size_t last) {
        isOpen_ = false;
        const ClipPolygon polygon{pts_ + first_, codes_ + first_, last - first_ + 1};
        if (findings_.places == 0 || first_ < start_) CloseOutline(polygon);
        if ((findings_.places & passedOver_) == 0) visit(polygon, findings_);
    }

    template <class Visit>
    void CloseCore(Visit& visit, size_t last) {
        isOpen_ = false;
        findings_.places = kCore;
        visit(ClipPolygon{pts_ + first_, codes_ + first_, last - first_ + 1}, findings_);
    }

    void LoadBlocks(size_t start);
    void EnterBlock(size_t start);
    bool HasEdgeWithin(uint64_t points, uint64_t past) const;
    NotableEnds FindNotableEnds(size_t from) const;
    size_t ScanOn(size_t from);
    void SearchEdges(uint64_t edges);
    void Search(const ClipPolygon& polygon, size_t edge, const real_pt_t& end);
    void CloseOutline(const ClipPolygon& polygon);

    const real_pt_t* const pts_;
    const uint32_t* const codes_;
    const size_t count_;
    const ClipView& view_;
    const Places passedOver_;
    ScratchArray<Crossing>& crossings_;
    const ClipKernels& kernels_;
    const ViewTest usualTest_;

    Block blocks_[kBlocksAtOnce];
    size_t nextBlocks_ = 0;  ///< the start of the first block that is not loaded yet

    // The block: `owned_` of its points, and the edges that start at them, are not the next block's.
    const Block* block_ = nullptr;
    size_t start_ = 0;
    size_t owned_ = 0;
    EdgeBits edgeBits_{};
    size_t edgeBitsOf_ = SIZE_MAX;  ///< the start of the block that they belong to
    uint64_t doubtfulEdges_ = 0;    ///< bit i: the ends of the edge from point i share no place

    // The polygon.
    size_t first_ = 0;
    bool isOpen_ = false;
    OutlineFindings findings_{};
    double leastDistance_ = 0.0;
    double greatestDistance_ = 0.0;
};

}  // namespace Vellum::internal

#endif
