// SPDX-License-Identifier: MIT
#include "shapes/clearance_search.h"

#include <cfloat>
#include <cstdlib>
#include <memory>

#include "shapes/clearance_index.h"

namespace Vellum::internal {
namespace {

/// Enough for two chains of 6,000 points.
constexpr size_t kStackGroups = 32;

constexpr NearestPair kNoPair{DBL_MAX, 0, 0};

struct Free {
    void operator()(void* block) const { std::free(block); }
};

/// Goes down the indices of two chains at once, to the nearest pair of nodes first.
class PairSearch {
public:
    PairSearch(ChainIndex& a, ChainIndex& b, size_t bEdges, const ClearanceKernels& kernels, SearchEffort& effort)
        : a_(a), b_(b), bEdges_(bEdges), kernels_(kernels), effort_(effort) {}

    NearestPair Run() {
        Visit(a_.Root(), b_.Root());
        return best_;
    }

private:
    /// The children of two nodes, or of one with the other: a row for each of the one, a column for each of the other.
    void Visit(const ChainNode& a, const ChainNode& b) {
        if (a.level > b.level) {
            const BoxGroup& boxes = a_.ChildBoxes(a);
            VisitNearest(GroupOf(b.box), 1, boxes, [&](size_t, size_t i) { return Pair{a.Child(i, boxes), b}; });
        } else if (b.level > a.level) {
            const BoxGroup& boxes = b_.ChildBoxes(b);
            VisitNearest(GroupOf(a.box), 1, boxes, [&](size_t, size_t i) { return Pair{a, b.Child(i, boxes)}; });
        } else {
            const BoxGroup& rows = a_.ChildBoxes(a);
            const BoxGroup& columns = b_.ChildBoxes(b);
            VisitNearest(rows, a_.ChildCount(a), columns, [&](size_t row, size_t column) {
                return Pair{a.Child(row, rows), b.Child(column, columns)};
            });
        }
    }

    struct Pair {
        ChainNode a;
        ChainNode b;
    };

    static BoxGroup GroupOf(const Box& box) {
        BoxGroup group;
        group.minX[0] = box.minX;
        group.minY[0] = box.minY;
        group.maxX[0] = box.maxX;
        group.maxY[0] = box.maxY;
        return group;
    }

    template <class PairAt>
    void VisitNearest(const BoxGroup& rows, size_t rowCount, const BoxGroup& columns, PairAt pairAt) {
        double bounds[kGroupBoxes * kGroupBoxes];
        uint64_t near = kernels_.boundPairs(rows, rowCount, columns, best_.dist, bounds);
        effort_.bounds += kGroupBoxes * rowCount;
        if (near == 0) return;
        const auto visit = [&](size_t i) {
            if (bounds[i] > best_.dist) return;
            const Pair pair = pairAt(i / kGroupBoxes, i % kGroupBoxes);
            if (bounds[i] == best_.dist && !MayComeBeforeBest(pair)) return;
            if (pair.a.level == 0) {
                MeasureLeaves(pair.a, pair.b);
            } else {
                Visit(pair.a, pair.b);
            }
        };
        const size_t nearest = NearestOf(near, bounds);
        visit(nearest);
        for (near &= ~(uint64_t{1} << nearest); near != 0; near &= near - 1)
            visit(static_cast<size_t>(__builtin_ctzll(near)));
    }

    static size_t NearestOf(uint64_t near, const double* bounds) {
        auto nearest = static_cast<size_t>(__builtin_ctzll(near));
        for (near &= near - 1; near != 0; near &= near - 1) {
            const auto i = static_cast<size_t>(__builtin_ctzll(near));
            nearest = bounds[i] < bounds[nearest] ? i : nearest;
        }
        return nearest;
    }

    /// Whether the first of all pairs in two nodes comes before the best, were it as near.
    bool MayComeBeforeBest(const Pair& pair) const {
        const size_t edge = pair.a.First();
        return edge < best_.edge || (edge == best_.edge && pair.b.First() < best_.vertex);
    }

    void MeasureLeaves(const ChainNode& a, const ChainNode& b) {
        const Leaf leafA{a_.LeafPoints(a), a.box, a.First(), a.First()};
        const Leaf leafB{b_.LeafPoints(b), b.box, bEdges_ + b.First(), b.First()};
        effort_.distances += kernels_.measureLeaves(leafA, leafB, best_);
        effort_.distances += kernels_.measureLeaves(leafB, leafA, best_);
    }

    ChainIndex& a_;
    ChainIndex& b_;
    const size_t bEdges_;
    const ClearanceKernels& kernels_;
    SearchEffort& effort_;
    NearestPair best_ = kNoPair;
};

void MeasureAll(std::span<const DblPt> edges, std::span<const DblPt> vertices, size_t firstEdge, NearestPair& best) {
    for (size_t edge = 0; edge + 1 < edges.size(); ++edge) {
        for (size_t vertex = 0; vertex < vertices.size(); ++vertex) {
            DblPt foot;
            const double dist = vertices[vertex].DistToLine(edges[edge], edges[edge + 1], foot, false);
            if (dist < best.dist) best = {dist, firstEdge + edge, vertex};
        }
    }
}

/// Without any memory.
NearestPair FindNearestPairOfAll(std::span<const DblPt> a, std::span<const DblPt> b, SearchEffort& effort) {
    NearestPair best = kNoPair;
    MeasureAll(a, b, 0, best);
    MeasureAll(b, a, a.size(), best);
    effort.distances += (a.size() - 1) * b.size() + (b.size() - 1) * a.size();
    return best;
}

}  // namespace

NearestPair FindNearestPair(std::span<const DblPt> a, std::span<const DblPt> b, const ClearanceKernels& kernels,
                            SearchEffort& effort) {
    const size_t groupsA = ChainIndex::GroupsFor(a.size());
    const size_t groupCount = groupsA + ChainIndex::GroupsFor(b.size());
    BoxGroup stackGroups[kStackGroups];
    BoxGroup* groups = stackGroups;
    std::unique_ptr<BoxGroup, Free> block;
    if (groupCount > kStackGroups) {
        block.reset(static_cast<BoxGroup*>(std::malloc(groupCount * sizeof(BoxGroup))));
        groups = block.get();
        if (groups == nullptr) return FindNearestPairOfAll(a, b, effort);
    }
    ChainIndex indexA(a, kernels, groups);
    ChainIndex indexB(b, kernels, groups + groupsA);
    return PairSearch(indexA, indexB, a.size(), kernels, effort).Run();
}

Witnesses FindWitnesses(std::span<const DblPt> a, std::span<const DblPt> b) {
    SearchEffort effort;
    const NearestPair nearest = FindNearestPair(a, b, ActiveClearanceKernels(), effort);
    Witnesses found{a.front(), b.front()};
    if (nearest.dist == kNoPair.dist) return found;
    if (nearest.edge < a.size()) {
        found.onB = b[nearest.vertex];
        found.onB.DistToLine(a[nearest.edge], a[nearest.edge + 1], found.onA, false);
    } else {
        const size_t edge = nearest.edge - a.size();
        found.onA = a[nearest.vertex];
        found.onA.DistToLine(b[edge], b[edge + 1], found.onB, false);
    }
    return found;
}

}  // namespace Vellum::internal
