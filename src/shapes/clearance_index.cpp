// SPDX-License-Identifier: MIT
#include "shapes/clearance_index.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Vellum::internal {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr Box kEmptyBox{kInfinity, kInfinity, -kInfinity, -kInfinity};

/// The points of a node of level 1.
constexpr size_t kBlockPoints = kGroupBoxes * kLeafEdges;

size_t DividedUp(size_t a, size_t b) { return (a + b - 1) / b; }

void Include(Box& box, double x, double y) {
    box.minX = std::min(box.minX, x);
    box.minY = std::min(box.minY, y);
    box.maxX = std::max(box.maxX, x);
    box.maxY = std::max(box.maxY, y);
}

void Include(Box& box, const Box& other) {
    Include(box, other.minX, other.minY);
    Include(box, other.maxX, other.maxY);
}

Box UnionOf(const BoxGroup& boxes) {
    Box all = kEmptyBox;
    for (size_t i = 0; i < kGroupBoxes; ++i) {
        all.minX = std::min(all.minX, boxes.minX[i]);
        all.minY = std::min(all.minY, boxes.minY[i]);
        all.maxX = std::max(all.maxX, boxes.maxX[i]);
        all.maxY = std::max(all.maxY, boxes.maxY[i]);
    }
    return all;
}

void Put(const Box& box, size_t i, BoxGroup& boxes) {
    boxes.minX[i] = box.minX;
    boxes.minY[i] = box.minY;
    boxes.maxX[i] = box.maxX;
    boxes.maxY[i] = box.maxY;
}

bool IsFinite(const DblPt& p) { return std::isfinite(p.x) && std::isfinite(p.y); }

}  // namespace

size_t ChainIndex::GroupsFor(size_t count) {
    size_t groups = 0;
    for (size_t nodes = DividedUp(count, kBlockPoints); nodes > 1;) {
        nodes = DividedUp(nodes, kGroupBoxes);
        groups += nodes;
    }
    return groups;
}

ChainIndex::ChainIndex(std::span<const DblPt> chain, const ClearanceKernels& kernels, BoxGroup* groups)
    : chain_(chain), kernels_(kernels), root_{1, 0, kEmptyBox} {
    std::fill(std::begin(leafGroupOwners_), std::end(leafGroupOwners_), std::numeric_limits<size_t>::max());
    const size_t lastStart = (chain.size() - 1) / kLeafEdges * kLeafEdges;
    const auto last = chain.subspan(lastStart);
    DblPt* const padding = std::copy(last.begin(), last.end(), lastLeaf_);
    std::fill(padding, std::end(lastLeaf_), DblPt(kNan, kNan));

    for (size_t nodes = DividedUp(chain.size(), kBlockPoints); nodes > 1; ++root_.level) {
        const size_t groupCount = DividedUp(nodes, kGroupBoxes);
        for (size_t group = 0; group < groupCount; ++group)
            BoxNodes(root_.level, nodes, kGroupBoxes * group, groups[group]);
        boxes_[root_.level] = groups;
        groups += groupCount;
        nodes = groupCount;
    }
    root_.box = UnionOf(ChildBoxes(root_));
}

size_t ChainIndex::ChildCount(const ChainNode& node) const {
    const size_t childPoints = kLeafEdges << 3 * (node.level - 1);
    return std::min(kGroupBoxes, DividedUp(chain_.size() - node.First(), childPoints));
}

const BoxGroup& ChainIndex::ChildBoxes(const ChainNode& node) {
    if (node.level > 1) return boxes_[node.level - 1][node.index];
    const size_t place = node.index % kLeafGroups;
    if (leafGroupOwners_[place] != node.index) {
        BoxRuns(node.First(), kLeafEdges, leafGroups_[place]);
        leafGroupOwners_[place] = node.index;
    }
    return leafGroups_[place];
}

const DblPt* ChainIndex::LeafPoints(const ChainNode& leaf) const {
    return chain_.size() - leaf.First() < kLeafPoints ? lastLeaf_ : &chain_[leaf.First()];
}

void ChainIndex::BoxNodes(unsigned level, size_t nodeCount, size_t first, BoxGroup& boxes) const {
    if (level == 1) {
        BoxRuns(kBlockPoints * first, kBlockPoints, boxes);
        return;
    }
    for (size_t i = 0; i < kGroupBoxes; ++i)
        Put(first + i < nodeCount ? UnionOf(boxes_[level - 1][first + i]) : kEmptyBox, i, boxes);
}

void ChainIndex::BoxRuns(size_t start, size_t runPoints, BoxGroup& boxes) const {
    const auto points = chain_.subspan(start);
    unsigned irregular = kernels_.boxesOfRuns(points.data(), points.size(), runPoints, boxes);
    for (; irregular != 0; irregular &= irregular - 1) {
        const auto run = static_cast<size_t>(__builtin_ctz(irregular));
        const auto runAndNext = points.subspan(run * runPoints);
        Put(BoxOfAnyPoints(runAndNext.first(std::min(runPoints + 1, runAndNext.size()))), run, boxes);
    }
}

// DistPtLine finds the nearest point by these rules. On an edge that is parallel to an axis and on one whose nearest
// point is an end, no coordinate of it lies outside those of the ends. In between its x is no further out than the
// ends', and its y is (x - lo.x) / dx * dy + lo.y: the quotient lies between 0 and 1, for roundings are monotone, so
// the product lies between 0 and dy and the sum between lo.y and lo.y + dy as that is rounded, which can be beyond
// hi.y. Which end is lo makes a difference to that sum; the box holds both.
//
// A point with a coordinate that is not finite is at no finite distance from any other. Of the edges at such a point
// only those that are exactly parallel to an axis have nearest points with finite coordinates: for the others the
// quotient that gives the x of the foot is NaN. A parallel one can have it anywhere along its axis.
Box BoxOfAnyPoints(std::span<const DblPt> points) {
    Box box = kEmptyBox;
    for (const DblPt& p : points) {
        if (IsFinite(p)) Include(box, p.x, p.y);
    }
    for (size_t i = 1; i < points.size(); ++i) {
        const DblPt& from = points[i - 1];
        const DblPt& to = points[i];
        const double dx = to.x - from.x;
        const double dy = to.y - from.y;
        if (IsFinite(from) && IsFinite(to)) {
            Include(box, from.x, from.y + dy);
            Include(box, from.x, to.y - dy);
        } else if (dx == 0.0) {
            Include(box, {from.x, -kInfinity, from.x, kInfinity});
        } else if (dy == 0.0) {
            Include(box, {-kInfinity, from.y, kInfinity, from.y});
        }
    }
    return box;
}

}  // namespace Vellum::internal
