// SPDX-License-Identifier: MIT
#include "reference/shortest_paths.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace reference {

using Vellum::DblPt;

namespace {

double EdgeCost(const DblPt& c, const DblPt& n) {
    const double dx = std::fabs(n.x - c.x);
    const double dy = std::fabs(n.y - c.y);
    if (dx > dy) return 0.96 * dx + 0.398 * dy;
    return 0.96 * dy + 0.398 * dx;
}

}  // namespace

void ShortestPathTree::Node::Reset() {
    parent = nullptr;
    cost = DBL_MAX;
    depth = 0;
    inQueue = false;
    inTree = false;
}

ShortestPathTree::ShortestPathTree(const std::vector<Polyline>& lines) {
    if (lines.empty()) return;
    InitNodeList(lines);
    InitNodePolys(lines);
}

void ShortestPathTree::InitNodeList(const std::vector<Polyline>& lines) {
    for (const DblPt& p : lines[0])
        nodes.emplace_back(p);
    for (size_t i = 1; i < lines.size(); ++i)
        for (const DblPt& p : lines[i])
            if (FindNode(p) == nullptr) nodes.emplace_back(p);
}

void ShortestPathTree::InitNodePolys(const std::vector<Polyline>& lines) {
    nodePolys.clear();
    for (const Polyline& line : lines) {
        nodePolys.emplace_back();
        for (const DblPt& p : line)
            nodePolys.back().push_back(FindNode(p));
    }
}

ShortestPathTree::Node* ShortestPathTree::FindNode(const DblPt& p) {
    for (Node& node : nodes)
        if (node.pt.x == p.x && node.pt.y == p.y) return &node;
    return nullptr;
}

bool ShortestPathTree::BuildSPT(const DblPt& start) {
    for (Node& node : nodes)
        node.Reset();
    pq.clear();
    if (!EnterStartVertex(start)) return false;
    while (!pq.empty())
        NextNode();
    return true;
}

bool ShortestPathTree::EnterStartVertex(const DblPt& start) {
    Node* const node = FindNode(start);
    if (node == nullptr) {
        for (Node* queued : pq)
            queued->inQueue = false;
        pq.clear();
        return false;
    }
    current = node;
    current->inTree = true;
    current->cost = 0.0;
    SetPQFromCurrentTreeNode();
    return true;
}

ShortestPathTree::Node* ShortestPathTree::NextNode() {
    if (pq.empty()) return nullptr;
    current = pq.front();
    pq.pop_front();
    current->inTree = true;
    current->inQueue = false;
    SetPQFromCurrentTreeNode();
    return current;
}

void ShortestPathTree::SetPQFromCurrentTreeNode() {
    if (current == nullptr) return;
    for (const std::vector<Node*>& line : nodePolys)
        for (size_t i = 0; i < line.size(); ++i)
            if (line[i] == current) AddNeighborsToPQ(line, i);
}

void ShortestPathTree::AddNeighborsToPQ(const std::vector<Node*>& line, size_t i) {
    const auto add = [this](Node* node) { return node != nullptr && !node->inTree && AddVertexNodeToPQ(node); };
    const bool isBeforeAdded = i > 0 && add(line[i - 1]);
    const bool isAfterAdded = i + 1 < line.size() && add(line[i + 1]);
    if (isBeforeAdded || isAfterAdded) pq.sort([](const Node* a, const Node* b) { return a->cost < b->cost; });
}

bool ShortestPathTree::AddVertexNodeToPQ(Node* node) {
    if (node == nullptr || current == nullptr) return false;
    const double candidate = current->cost + EdgeCost(current->pt, node->pt);
    if (candidate >= node->cost) return false;
    node->cost = candidate;
    node->parent = current;
    node->depth = current->depth + 1;
    pq.push_back(node);
    node->inQueue = true;
    return true;
}

bool ShortestPathTree::IsOnPath(const DblPt& p) {
    const Node* const node = FindNode(p);
    return node != nullptr && node->parent != nullptr;
}

ShortestPathTree::Polyline ShortestPathTree::WayFrom(const Node* node) {
    if (node == nullptr || node->parent == nullptr) return {};
    Polyline way;
    const size_t count = size_t{node->depth} + 1;
    for (; node != nullptr && way.size() < count; node = node->parent)
        way.push_back(node->pt);
    return way;
}

}  // namespace reference
