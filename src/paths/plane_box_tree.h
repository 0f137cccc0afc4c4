// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_PLANE_BOX_TREE_H
#define VELLUM_SRC_PATHS_PLANE_BOX_TREE_H

#include <cstddef>
#include <cstdint>
#include <limits>

#include "paths/plane_box.h"
#include "paths/scratch_array.h"

namespace Vellum::internal {

/// Eight boxes, held against another one all at once.
struct PlaneBoxBlock {
    static constexpr size_t kCount = 8;

    double minX[kCount];
    double minY[kCount];
    double maxX[kCount];
    double maxY[kCount];

    PlaneBox operator[](size_t i) const { return {minX[i], minY[i], maxX[i], maxY[i]}; }

    void Set(size_t i, const PlaneBox& box) {
        minX[i] = box.minX;
        minY[i] = box.minY;
        maxX[i] = box.maxX;
        maxY[i] = box.maxY;
    }

    /// Leaves box @p i out: it meets nothing, not even the whole plane.
    void Omit(size_t i) {
        constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
        Set(i, {kNan, kNan, kNan, kNan});
    }

    /// Bit i: box i meets @p box.
    uint32_t Meeting(const PlaneBox& box) const {
        TwoDoubles meeting = {};
        for (size_t i = 0; i < kCount; i += 2) {
            const TwoDoubles own = {static_cast<double>(1 << i), static_cast<double>(2 << i)};
            const TwoBits meets = (LoadTwo(minX + i) <= box.maxX) & (LoadTwo(maxX + i) >= box.minX) &
                                  (LoadTwo(minY + i) <= box.maxY) & (LoadTwo(maxY + i) >= box.minY);
            meeting += Chosen(meets, own);
        }
        return static_cast<uint32_t>(meeting[0] + meeting[1]);
    }
};

/// A row of boxes with a pyramid above it, each level with a box for every eight of the level below. How much a
/// search passes over depends on how near to each other neighbours in the row lie.
///
/// Each box has an owner, and a search can leave out those of one owner. That is worth while for whole branches: a
/// polyline may lie about itself in so many coils that nearly all that is found there is its own.
class PlaneBoxTree {
public:
    static constexpr uint32_t kNobody = UINT32_MAX;

    /// Makes a row of so many boxes, to be set before `Build`. False where there is no memory.
    bool Allocate(size_t count);
    void Set(size_t i, const PlaneBox& box, uint32_t owner) {
        blocks_[i / kFanOut].Set(i % kFanOut, box);
        owners_[i] = owner;
    }
    void Build();

    PlaneBox operator[](size_t i) const { return blocks_[i / kFanOut][i % kFanOut]; }
    uint32_t OwnerOf(size_t i) const { return owners_[i]; }

    /// Calls `visit(i)` for each box i of the row from @p first to @p last - 1 that meets @p box and is not @p
    /// except's, in that order. Returns how many blocks were looked at.
    template <class Visit>
    size_t ForEachMeeting(const PlaneBox& box, size_t first, size_t last, uint32_t except, Visit&& visit) const {
        return first < last ? SearchBlock(top_, 0, {box, first, last - 1, except}, visit) : 0;
    }

private:
    static constexpr size_t kShift = 3;
    static constexpr size_t kFanOut = size_t{1} << kShift;
    static_assert(kFanOut == PlaneBoxBlock::kCount);
    static constexpr size_t kMostLevels = 64 / kShift + 1;

    struct Search {
        PlaneBox box;
        size_t first;
        size_t last;
        uint32_t except;
    };

    static size_t BlocksOf(size_t boxes) { return (boxes + kFanOut - 1) / kFanOut; }

    template <class Visit>
    size_t SearchBlock(size_t level, size_t block, const Search& search, Visit& visit) const {
        const size_t shift = level * kShift;
        const uint32_t* const owners = owners_.begin() + levelStart_[level] * kFanOut;
        size_t searched = 1;
        for (uint32_t rest = blocks_[levelStart_[level] + block].Meeting(search.box); rest != 0; rest &= rest - 1) {
            const size_t child = block * kFanOut + static_cast<size_t>(__builtin_ctz(rest));
            if (child < search.first >> shift || child > search.last >> shift) continue;
            if (search.except != kNobody && owners[child] == search.except) continue;
            if (level == 0)
                visit(child);
            else
                searched += SearchBlock(level - 1, child, search, visit);
        }
        return searched;
    }

    ScratchArray<PlaneBoxBlock> blocks_;  ///< those of the row, then those of the levels above it
    ScratchArray<uint32_t> owners_;       ///< of each box in the blocks; nobody's where those below differ
    size_t count_ = 0;
    size_t top_ = 0;
    size_t levelStart_[kMostLevels] = {};
};

}  // namespace Vellum::internal

#endif
