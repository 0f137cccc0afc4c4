// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_SPT_NETWORK_H
#define VELLUM_SRC_PATHS_SPT_NETWORK_H

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>

#include "paths/scratch_array.h"
#include "vellum/polylines.h"
#include "vellum/shortest_paths.h"

namespace Vellum::internal {

/// The cost of an edge: `DblPt::ApproxDist`, without a branch on which coordinate is the larger.
inline double EdgeCost(const DblPt& from, const DblPt& to) {
    const double dx = std::fabs(to.x - from.x);
    const double dy = std::fabs(to.y - from.y);
    const double larger = dx > dy ? dx : dy;
    const double smaller = dx > dy ? dy : dx;
    return 0.96 * larger + 0.398 * smaller;
}

/// The nodes of an engine, which are found by position, and the neighbours of each. Nodes are numbered in the order
/// in which they are made, and stay where they are in memory.
class SPTNetwork {
public:
    static constexpr uint32_t kNone = UINT32_MAX;
    /// Nodes, and vertices of the polylines.
    static constexpr size_t kMost = (size_t{1} << 30) - 1;

    /// An occurrence of a node on a polyline: the nodes of the vertices before and after it, `kNone` where there is
    /// none.
    struct Occurrence {
        uint32_t before;
        uint32_t after;
    };

    SPTNetwork() = default;
    SPTNetwork(const SPTNetwork&) = delete;
    SPTNetwork& operator=(const SPTNetwork&) = delete;
    ~SPTNetwork();

    /// Makes a node for every vertex of the first of @p lines, and one for each later vertex that has none; the
    /// nodes have no neighbours until they are joined. False where memory runs out.
    bool AddNodes(std::span<const PolylineGeom* const> lines);
    /// Finds out which nodes are neighbours. False where memory runs out.
    bool Join();
    /// Forgets all nodes, whose memory it keeps for the next ones.
    void Clear();

    uint32_t Size() const { return size_; }
    SPTNode& operator[](uint32_t i) const { return pages_[i / kPageNodes].nodes[i % kPageNodes]; }
    /// The number of the first node exactly at @p p, or `kNone`.
    uint32_t Find(const DblPt& p) const;
    /// Brings all nodes into the state of new ones.
    void Reset() const;

    /// In the order of polylines and vertices.
    std::span<const Occurrence> OccurrencesOf(uint32_t i) const {
        const Occurrence& only = occurrences_[i];
        const size_t count = IsList(only) ? only.before & kListLength : 1;
        visited_ += count;
        return {IsList(only) ? lists_.begin() + only.after : &only, count};
    }
    /// For a node that is soon asked for its occurrences.
    void PrefetchOccurrencesOf(uint32_t i) const {
        if (IsList(occurrences_[i])) __builtin_prefetch(lists_.begin() + occurrences_[i].after);
    }
    /// The way on past node @p i for one who comes from its neighbour @p from; `kNone` where it ends or there is a
    /// choice.
    uint32_t Past(uint32_t i, uint32_t from) const {
        const Occurrence& only = occurrences_[i];
        if (IsList(only)) return kNone;
        return only.before == from ? only.after : only.before;
    }
    /// Whether most nodes occur once.
    bool ConsistsOfChains() const { return onlyOnce_ > size_ / 2; }

    size_t LineCount() const { return starts_.IsEmpty() ? 0 : starts_.Size() - 1; }
    size_t VertexCount() const { return vertexNodes_.Size() - starts_.Size(); }
    /// The nodes of a polyline's vertices, `kNone` for a vertex that is equal to none.
    std::span<const uint32_t> VertexNodesOf(size_t line) const {
        return {vertexNodes_.begin() + starts_[line], starts_[line + 1] - starts_[line] - 1};
    }

    /// How many places of the table have been looked at.
    uint64_t Probes() const { return probes_; }
    /// How many occurrences have been asked for.
    uint64_t Visited() const { return visited_; }

private:
    static constexpr uint32_t kPageNodes = 1024;
    // Apart from numbers of nodes, and from kNone.
    static constexpr uint32_t kList = 0x80000000;
    static constexpr uint32_t kListLength = 0x3fffffff;

    struct Page {
        SPTNode* nodes;
    };

    static bool IsList(const Occurrence& occurrence) { return (occurrence.before & ~kListLength) == kList; }

    bool AppendNode(const DblPt& p);
    bool ReserveTable(size_t nodes);
    size_t HomeOf(uint64_t hash) const { return static_cast<size_t>(hash >> tableShift_); }
    uint32_t TagOf(uint64_t hash) const { return static_cast<uint32_t>(hash) & tagMask_; }
    size_t PlaceOf(const DblPt& p, uint64_t hash) const;
    bool MapVertices(std::span<const DblPt> points, bool areNew, uint32_t* mapped);
    bool MapVertex(const DblPt& p, uint64_t hash, bool isNew, uint32_t& mapped);
    bool MakeRoomForLists();

    ScratchArray<Page> pages_;
    uint32_t size_ = 0;

    // Open addressing with linear probing. A place holds the number of a node, and in the bits above it some of its
    // hash, which tell most nodes apart without a look at them; kNone where it is empty. At least half of the places
    // are.
    ScratchArray<uint32_t> table_;
    unsigned tableShift_ = 0;  ///< takes a hash to its place
    uint32_t tagMask_ = 0;     ///< the bits that are of the hash
    mutable uint64_t probes_ = 0;

    // The nodes of all vertices, with a kNone before and after those of each polyline: every vertex has two
    // neighbours.
    ScratchArray<uint32_t> vertexNodes_;
    ScratchArray<size_t> starts_;  ///< where each polyline starts in it, and one past the last

    // The occurrence of each node that has only one. For any other node `before` is kList with the length of its
    // list, and `after` tells where that starts.
    ScratchArray<Occurrence> occurrences_;
    ScratchArray<Occurrence> lists_;
    uint32_t onlyOnce_ = 0;  ///< nodes with one occurrence
    mutable uint64_t visited_ = 0;
};

}  // namespace Vellum::internal

#endif
