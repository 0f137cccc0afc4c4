// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_SHAPES_CLEARANCE_INDEX_H
#define VELLUM_SRC_SHAPES_CLEARANCE_INDEX_H

#include <cstddef>
#include <span>

#include "shapes/clearance_kernels.h"
#include "vellum/points.h"

namespace Vellum::internal {

/// One of the runs into which a chain is divided: on level 0 a leaf, on each further level eight of the level below.
struct ChainNode {
    unsigned level;
    size_t index;  ///< among those of the level
    Box box;       ///< no vertex that has a distance to anything lies outside, nor a nearest point of an edge

    /// The number of its first vertex, and of the edge that starts there.
    size_t First() const { return index * (kLeafEdges << 3 * level); }
    ChainNode Child(size_t i, const BoxGroup& boxes) const {
        return {level - 1, kGroupBoxes * index + i, {boxes.minX[i], boxes.minY[i], boxes.maxX[i], boxes.maxY[i]}};
    }
};

/// The boxes of the runs of a chain. Points that follow each other lie near each other, so that nothing is sorted. The
/// boxes of leaves, which are most of them, are computed when they are asked for.
class ChainIndex {
public:
    /// How many groups of boxes the index of a chain of @p count points keeps.
    static size_t GroupsFor(size_t count);

    /// @p chain has a point; @p groups has room for its boxes. Both outlive the index.
    ChainIndex(std::span<const DblPt> chain, const ClearanceKernels& kernels, BoxGroup* groups);

    /// The whole chain, on level 1 or above.
    const ChainNode& Root() const { return root_; }
    /// How many of a node's eight children there are.
    size_t ChildCount(const ChainNode& node) const;
    /// The boxes of a node's children. Those of leaves stand there until those of another node's are asked for.
    const BoxGroup& ChildBoxes(const ChainNode& node);
    /// The kLeafPoints points of a leaf.
    const DblPt* LeafPoints(const ChainNode& leaf) const;

private:
    static constexpr unsigned kMaxLevels = 22;
    static constexpr size_t kLeafGroups = 16;

    /// The boxes of eight nodes of a level that has @p nodeCount, from the node @p first on.
    void BoxNodes(unsigned level, size_t nodeCount, size_t first, BoxGroup& boxes) const;
    /// The boxes of eight runs of points from the point @p start on.
    void BoxRuns(size_t start, size_t runPoints, BoxGroup& boxes) const;

    std::span<const DblPt> chain_;
    const ClearanceKernels& kernels_;
    const BoxGroup* boxes_[kMaxLevels];  ///< of the nodes of each level from 1 to below the root
    ChainNode root_;
    DblPt lastLeaf_[kLeafPoints];
    BoxGroup leafGroups_[kLeafGroups];  ///< each holds the leaves of a block whose index leaves its place as remainder
    size_t leafGroupOwners_[kLeafGroups];
};

/// The box of some points and of the edges between them, whatever numbers their coordinates are. Empty where none of
/// these has a distance to anything.
Box BoxOfAnyPoints(std::span<const DblPt> points);

}  // namespace Vellum::internal

#endif
