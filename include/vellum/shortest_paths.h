// SPDX-License-Identifier: MIT
#ifndef VELLUM_SHORTEST_PATHS_H
#define VELLUM_SHORTEST_PATHS_H

/// @file
/// `SPTEngine`, the shortest-path tree over a network of polylines.

#include <cstdint>
#include <limits>
#include <list>

#include "vellum/export.h"
#include "vellum/points.h"
#include "vellum/polylines.h"

namespace Vellum {

namespace internal {
struct SPTState;
}

/// A node of the network: a distinct vertex.
class VELLUM_API SPTNode {
public:
    DblPt pt;         ///< the engine finds the node by it: not for hosts to change
    SPTNode* parent;  ///< the node before it on the way from the start; null for the start and what is not reached
    double cost;      ///< from the start; the largest double for what is not reached
    uint32_t depth;   ///< edges from the start
    uint8_t inQueue;  ///< set when the node joins the queue, cleared when it is taken off
    uint8_t inTree;   ///< the node has been taken off the queue: its cost is final

    VELLUM_INLINE explicit SPTNode(const DblPt& p) : pt(p) { Reset(); }
    /// The state of a new node; the position stays.
    VELLUM_INLINE void Reset() {
        parent = nullptr;
        cost = std::numeric_limits<double>::max();
        depth = 0;
        inQueue = 0;
        inTree = 0;
    }
};

/// Grows the tree of cheapest ways from a vertex over a network: every distinct vertex of its polylines is a node,
/// and consecutive vertices are joined. Polylines meet only where they share a vertex with exactly equal coordinates
/// (-0.0 equals 0.0; NaN equals nothing).
///
/// The cost of an edge is its length by the octagonal estimate (see `DblPt::ApproxDist`), not the Euclidean one: it
/// decides which of two nearly equal ways wins. Among ways of equal cost the first one found is kept.
///
/// The polylines may hold fewer than 2^30 vertices in all. An engine that got no memory for its nodes has none:
/// nothing is found in it.
///
/// Hosts leave out vertices that are not finite. Nothing is reached over them, except from a start at infinity: an
/// edge to another vertex at the same infinity costs NaN, and an offer of NaN is never declined. A node is then
/// queued anew with every offer until it is taken off, and expanded as often, so that a search may take exponential
/// time and memory.
class VELLUM_API SPTEngine {
public:
    PolylineGeom** polylines;  ///< owned, made with new[], its polylines with new; null ones count as empty
    uint32_t polylineCount;
    std::list<SPTNode*>* nodeList;   ///< every node, in the order in which they were made; the engine owns the nodes
    std::list<SPTNode*>* pq;         ///< the queue, by ascending cost
    SPTNode*** nodePolys = nullptr;  ///< for each polyline the nodes of its vertices; null for a vertex with a NaN
    SPTNode* current = nullptr;      ///< the node being expanded

    /// Takes over the array, made with new[], and every polyline in it.
    SPTEngine(PolylineGeom** network, unsigned count);
    SPTEngine(const SPTEngine&) = delete;
    ~SPTEngine();
    /// Copies the fields as they stand: both engines then hold the same network, nodes and queue. Of what this one
    /// held only the nodes are freed; the rest is the host's, which may delete its old lists and `nodePolys` but not
    /// look up the nodes in them.
    ///
    /// Before either engine is destroyed, the host sets the pointers of one of the two to null, or puts back those
    /// that the one assigned to had; but not `state`, which counts the engines that hold it and goes with the last.
    /// The engine whose pointers were changed may be destroyed or assigned to, and not be used otherwise.
    SPTEngine& operator=(const SPTEngine& other);

    /// @name Searching
    /// @{

    /// Grows the whole tree from @p start; false where that is no vertex of the network, and where memory runs out.
    /// Nothing is reached then.
    bool BuildSPT(const DblPt& start);
    /// The first step of a search: the node at @p start joins the tree and its neighbours the queue. The other nodes
    /// are not reset, and what the queue holds stays in it. False, with the queue emptied, where @p start is no
    /// vertex of the network.
    bool EnterStartVertex(const DblPt& start);
    /// One further step: takes the cheapest node off the queue. False, with @p node null, where the queue is empty.
    /// A node that was queued more than once, because a cheaper way to it turned up, is taken off as often.
    ///
    /// Between the steps of one search the queue and the costs of the nodes in it are the engine's to change.
    bool NextNode(const SPTNode*& node);
    /// @}

    /// @name Ways
    /// @{

    /// Whether a way leads from the start to @p pt. The start itself has none and answers false.
    bool IsOnPath(const DblPt& pt);
    /// The way from @p pt back to the start, owned by the caller; null where there is none or no memory.
    PolylineGeom* GenerateSPPolyline(const DblPt& pt) const;
    PolylineGeom* GenerateSPPolyline(const SPTNode* node) const;
    /// Leaves @p it at the first node exactly at @p pt, or at the end of the list (false).
    bool FindNode(const DblPt& pt, std::list<SPTNode*>::const_iterator& it) const;
    /// @}

    /// @name Steps
    /// What construction and searches are made of.
    /// @{

    /// Appends to the list a node for every vertex of the first polyline, then one for each later vertex that has no
    /// node yet. `InitNodePolys` has to follow, to join them.
    void InitNodeList();
    /// Maps the vertices, as they were when `InitNodeList` saw them, to the first node at each. A host that changes
    /// the polylines calls both again.
    void InitNodePolys();
    /// Queues the neighbours of the current node that are not in the tree.
    void SetPQFromCurrentTreeNode();
    /// The same for vertex @p i of the @p n vertices of one polyline; sorts the queue where anything improved. With
    /// @p i equal to @p n there is only the vertex before.
    void AddNeighborsToPQ(SPTNode** nodes, unsigned n, unsigned i);
    /// Offers @p node the way over the current node. Where that is cheaper, @p node is appended to the queue, which
    /// stays unsorted. False where it is not, where @p node is null, and where there is no memory to queue it.
    bool AddVertexNodeToPQ(SPTNode* node);
    /// @}

    /// @name Debug output
    /// @{

    /// A vertex without a node is shown by its own coordinates, or as NaN where its polyline has it no longer.
    void PrintNodePolys();
    void PrintPQ();
    /// @}

    internal::SPTState* state;  ///< the library's own: what finds nodes and neighbours quickly
};

}  // namespace Vellum

#endif
