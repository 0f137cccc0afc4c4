// SPDX-License-Identifier: MIT
#include "paths/plane_box_tree.h"

#include <algorithm>

namespace Vellum::internal {

bool PlaneBoxTree::Allocate(size_t count) {
    count_ = count;
    top_ = 0;
    size_t blocks = BlocksOf(count);
    size_t total = blocks;
    while (blocks > 1) {
        levelStart_[++top_] = total;
        blocks = BlocksOf(blocks);
        total += blocks;
    }
    return blocks_.Resize(total) && owners_.Resize(total * kFanOut);
}

void PlaneBoxTree::Build() {
    size_t boxes = count_;
    for (size_t level = 0; boxes > 0; ++level) {
        const size_t blocks = BlocksOf(boxes);
        PlaneBoxBlock* const own = blocks_.begin() + levelStart_[level];
        for (size_t i = boxes; i < blocks * kFanOut; ++i)
            own[i / kFanOut].Omit(i % kFanOut);
        if (level == top_) return;
        const uint32_t* const owners = owners_.begin() + levelStart_[level] * kFanOut;
        PlaneBoxBlock* const above = blocks_.begin() + levelStart_[level + 1];
        uint32_t* const ownersAbove = owners_.begin() + levelStart_[level + 1] * kFanOut;
        for (size_t i = 0; i < blocks; ++i) {
            PlaneBox box = own[i][0];
            for (size_t k = 1; k < kFanOut; ++k)
                box.Enclose(own[i][k]);
            above[i / kFanOut].Set(i % kFanOut, box);
            const uint32_t* const first = owners + i * kFanOut;
            const uint32_t* const last = owners + std::min(boxes, (i + 1) * kFanOut);
            const bool isOnes = std::all_of(first, last, [first](uint32_t owner) { return owner == *first; });
            ownersAbove[i] = isOnes ? *first : kNobody;
        }
        boxes = blocks;
    }
}

}  // namespace Vellum::internal
