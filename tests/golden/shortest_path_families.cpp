// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>

#include "golden/families.h"
#include "vellum/shortest_paths.h"

namespace golden {

using Vellum::DblPt;
using Vellum::PolylineGeom;
using Vellum::SPTEngine;
using Vellum::SPTNode;

namespace {

constexpr int kNetworks = 40;

/// From a start at infinity a search may take exponentially long.
DblPt Finite(DblPt p) {
    for (double* const v : {&p.x, &p.y})
        if (std::isinf(*v)) *v = 7;
    return p;
}

/// Lines that share vertices, on few points all told.
std::unique_ptr<SPTEngine> DrawNetwork(Inputs& inputs, Kind kind) {
    const size_t vertices = 2 + inputs.random.Below(inputs.random.OneIn(5) ? 300 : 30);
    std::vector<DblPt> places = inputs.Points(kind, vertices);
    std::transform(places.begin(), places.end(), places.begin(), Finite);
    const size_t lines = 1 + inputs.random.Below(vertices);
    auto** const network = new PolylineGeom*[lines];
    for (size_t i = 0; i < lines; ++i) {
        std::vector<DblPt> points(2 + inputs.random.Below(8));
        for (DblPt& p : points)
            p = places[inputs.random.Below(vertices)];
        network[i] = new PolylineGeom(static_cast<unsigned>(points.size()), points.data());
    }
    return std::make_unique<SPTEngine>(network, static_cast<unsigned>(lines));
}

DblPt DrawVertex(Inputs& inputs, const SPTEngine& engine) {
    const PolylineGeom& line = *engine.polylines[inputs.random.Below(engine.polylineCount)];
    return line.Vtx(static_cast<unsigned>(inputs.random.Below(line.NPts())));
}

/// The numbers of the nodes, in the order in which they were made; no node is -1.
class NodeNumbers {
public:
    explicit NodeNumbers(const SPTEngine& engine) {
        int number = 0;
        for (const SPTNode* const node : *engine.nodeList)
            numbers_[node] = number++;
    }

    int operator()(const SPTNode* node) const { return node == nullptr ? -1 : numbers_.at(node); }

private:
    std::unordered_map<const SPTNode*, int> numbers_;
};

template <class Search>
void SearchAll(Inputs& inputs, Search search) {
    for (const Kind kind : kAllKinds) {
        for (int i = 0; i < kNetworks; ++i) {
            const std::unique_ptr<SPTEngine> engine = DrawNetwork(inputs, kind);
            search(*engine, NodeNumbers(*engine));
        }
    }
}

void Trees(Inputs& inputs, Digest& digest) {
    SearchAll(inputs, [&](SPTEngine& engine, const NodeNumbers& number) {
        digest.Add(engine.BuildSPT(DrawVertex(inputs, engine)));
        for (const SPTNode* const node : *engine.nodeList)
            digest.Add(node->pt, number(node->parent), node->cost, node->depth, node->inQueue, node->inTree);
    });
}

void Steps(Inputs& inputs, Digest& digest) {
    SearchAll(inputs, [&](SPTEngine& engine, const NodeNumbers& number) {
        digest.Add(engine.EnterStartVertex(DrawVertex(inputs, engine)));
        const SPTNode* node = nullptr;
        while (engine.NextNode(node)) {
            digest.Add(number(node), number(node->parent), node->cost, node->depth);
            for (const SPTNode* const queued : *engine.pq)
                digest.Add(number(queued));
        }
    });
}

void Ways(Inputs& inputs, Digest& digest) {
    SearchAll(inputs, [&](SPTEngine& engine, const NodeNumbers&) {
        engine.BuildSPT(DrawVertex(inputs, engine));
        for (int i = 0; i < 5; ++i) {
            const DblPt to = DrawVertex(inputs, engine);
            const std::unique_ptr<PolylineGeom> way(engine.GenerateSPPolyline(to));
            digest.Add(engine.IsOnPath(to), way != nullptr);
            if (!way) continue;
            digest.Add(way->NPts(), way->Extents(), way->ComputeLength());
            digest.AddAll(way->Pts(), way->NPts());
        }
    });
}

}  // namespace

Families ShortestPathFamilies() {
    return {{"shortest_paths.trees", Trees}, {"shortest_paths.steps", Steps}, {"shortest_paths.ways", Ways}};
}

}  // namespace golden
