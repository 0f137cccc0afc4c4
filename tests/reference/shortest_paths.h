// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_REFERENCE_SHORTEST_PATHS_H
#define VELLUM_TESTS_REFERENCE_SHORTEST_PATHS_H

#include <cstddef>
#include <cstdint>
#include <list>
#include <vector>

#include "vellum/points.h"

namespace reference {

/// `SPTEngine` as it is defined: nodes are searched for one by one, neighbours are found by a scan over all
/// polylines, and the queue is a list that is sorted as a whole.
class ShortestPathTree {
public:
    struct Node {
        Vellum::DblPt pt;
        Node* parent;
        double cost;
        uint32_t depth;
        bool inQueue;
        bool inTree;

        explicit Node(const Vellum::DblPt& p) : pt(p) { Reset(); }
        void Reset();
    };
    using Polyline = std::vector<Vellum::DblPt>;

    std::list<Node> nodes;
    std::list<Node*> pq;
    std::vector<std::vector<Node*>> nodePolys;
    Node* current = nullptr;

    explicit ShortestPathTree(const std::vector<Polyline>& lines);

    void InitNodeList(const std::vector<Polyline>& lines);
    void InitNodePolys(const std::vector<Polyline>& lines);
    bool BuildSPT(const Vellum::DblPt& start);
    bool EnterStartVertex(const Vellum::DblPt& start);
    /// Null where the queue is empty.
    Node* NextNode();
    void SetPQFromCurrentTreeNode();
    void AddNeighborsToPQ(const std::vector<Node*>& line, size_t i);
    bool AddVertexNodeToPQ(Node* node);
    /// Null where there is none.
    Node* FindNode(const Vellum::DblPt& p);
    bool IsOnPath(const Vellum::DblPt& p);
    /// Without points where there is no way.
    static Polyline WayFrom(const Node* node);
};

}  // namespace reference

#endif
