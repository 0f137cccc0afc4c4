// SPDX-License-Identifier: MIT
#include "vellum/shortest_paths.h"

#include <cmath>
#include <iterator>
#include <limits>
#include <memory>
#include <new>

#include "paths/spt_search.h"
#include "paths/spt_state.h"
#include "shapes/point_chain.h"
#include "vellum/geometry.h"

namespace Vellum {

using internal::SearchOutcome;
using internal::SPTNetwork;
using internal::SPTState;

namespace {

// For what may allocate while it is constructed.
template <class T>
T* MakeOrNull() {
    try {
        return new T;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

bool AppendTo(std::list<SPTNode*>& list, SPTNode* node) {
    try {
        list.push_back(node);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

void FreeNodePolys(SPTEngine& engine) {
    if (engine.nodePolys != nullptr) delete[] engine.nodePolys[0];
    delete[] engine.nodePolys;
    engine.nodePolys = nullptr;
}

void EmptyQueue(SPTEngine& engine) {
    engine.pq->clear();
    engine.state->queueIndex.Forget();
}

// Leaves an engine without nodes, as one that was made without a network.
void DropNodes(SPTEngine& engine) {
    EmptyQueue(engine);
    FreeNodePolys(engine);
    engine.current = nullptr;
    engine.nodeList->clear();
    engine.state->listPlaces.Clear();
    engine.state->network.Clear();
}

SPTNode* NodeOf(const SPTNetwork& network, uint32_t i) { return i == SPTNetwork::kNone ? nullptr : &network[i]; }

SPTNode* NodeAt(const SPTEngine& engine, const DblPt& p) {
    if (engine.state == nullptr) return nullptr;
    const SPTNetwork& network = engine.state->network;
    return NodeOf(network, network.Find(p));
}

std::list<SPTNode*>::const_iterator PlaceInList(const SPTEngine& engine, uint32_t i) {
    const std::list<SPTNode*>& list = *engine.nodeList;
    auto& places = engine.state->listPlaces;
    if (places.Size() != list.size()) {
        const bool hasMemory = places.Resize(list.size());
        engine.state->listSteps += hasMemory ? list.size() : i;
        if (!hasMemory) return std::next(list.begin(), i);
        size_t count = 0;
        for (auto place = list.begin(); place != list.end(); ++place)
            places[count++] = place;
    }
    return places[i];
}

// A vertex without a node is where its polyline has it, which a host may have cut since.
DblPt PositionOf(const SPTEngine& engine, size_t line, size_t vertex) {
    if (const SPTNode* const node = engine.nodePolys[line][vertex]) return node->pt;
    const bool hasLine = engine.polylines != nullptr && line < engine.polylineCount;
    const PolylineGeom* const polyline = hasLine ? engine.polylines[line] : nullptr;
    if (polyline != nullptr && vertex < internal::PointsOf(*polyline).size()) return polyline->pts[vertex];
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    return DblPt(kNan, kNan);
}

enum class OfferOutcome { Declined, Accepted, OutOfMemory };

OfferOutcome Offer(SPTEngine& engine, SPTNode* node) {
    SPTNode* const from = engine.current;
    if (node == nullptr || from == nullptr) return OfferOutcome::Declined;
    const double candidate = from->cost + internal::EdgeCost(from->pt, node->pt);
    if (candidate >= node->cost) return OfferOutcome::Declined;
    if (!AppendTo(*engine.pq, node)) return OfferOutcome::OutOfMemory;
    node->cost = candidate;
    node->parent = from;
    node->depth = from->depth + 1;
    node->inQueue = 1;
    return OfferOutcome::Accepted;
}

// False where memory ran out.
bool OfferToPair(SPTEngine& engine, SPTNode* before, SPTNode* after) {
    size_t queued = 0;
    bool hasMemory = true;
    for (SPTNode* node : {before, after}) {
        if (node == nullptr || node->inTree != 0) continue;
        const OfferOutcome outcome = Offer(engine, node);
        if (outcome == OfferOutcome::Accepted) ++queued;
        if (outcome == OfferOutcome::OutOfMemory) hasMemory = false;
    }
    if (queued != 0) engine.state->queueIndex.Sort(*engine.pq, queued);
    return hasMemory;
}

// False where memory ran out.
bool OfferToNeighbours(SPTEngine& engine) {
    if (engine.current == nullptr) return true;
    const SPTNetwork& network = engine.state->network;
    const uint32_t current = network.Find(engine.current->pt);
    if (NodeOf(network, current) != engine.current) return true;
    bool hasMemory = true;
    for (const SPTNetwork::Occurrence& occurrence : network.OccurrencesOf(current))
        hasMemory =
            OfferToPair(engine, NodeOf(network, occurrence.before), NodeOf(network, occurrence.after)) && hasMemory;
    return hasMemory;
}

bool Enter(SPTEngine& engine, SPTNode& start) {
    engine.state->queueIndex.Forget();
    engine.current = &start;
    start.inTree = 1;
    start.cost = 0.0;
    return OfferToNeighbours(engine);
}

bool ExpandFirst(SPTEngine& engine) {
    engine.state->queueIndex.Follow(*engine.pq);
    engine.current = engine.pq->front();
    engine.state->queueIndex.PopFront(*engine.pq);
    engine.current->inTree = 1;
    engine.current->inQueue = 0;
    return OfferToNeighbours(engine);
}

bool SearchStepByStep(SPTEngine& engine, SPTNode& start) {
    bool hasMemory = Enter(engine, start);
    while (hasMemory && !engine.pq->empty())
        hasMemory = ExpandFirst(engine);
    return hasMemory;
}

bool SearchAtOnce(SPTEngine& engine, uint32_t start) {
    SPTState& state = *engine.state;
    SPTNode* last = nullptr;
    SearchOutcome outcome = SearchOutcome::Undecided;
    if (state.network.ConsistsOfChains()) {
        outcome = internal::SearchAlongChains(state.network, state.queue, start, last);
        if (outcome == SearchOutcome::Undecided) state.network.Reset();
    }
    if (outcome == SearchOutcome::Undecided) outcome = internal::SearchInOrder(state.network, state.queue, start, last);
    if (outcome != SearchOutcome::Complete) return false;
    engine.current = last;
    return true;
}

}  // namespace

SPTEngine::SPTEngine(PolylineGeom** network, unsigned count)
    : polylines(network),
      polylineCount(count),
      nodeList(MakeOrNull<std::list<SPTNode*>>()),
      pq(MakeOrNull<std::list<SPTNode*>>()),
      state(MakeOrNull<SPTState>()) {
    if (nodeList == nullptr || pq == nullptr) {
        delete state;
        state = nullptr;
    }
    if (polylines == nullptr || polylineCount == 0) return;
    InitNodeList();
    InitNodePolys();
}

SPTEngine::~SPTEngine() {
    FreeNodePolys(*this);
    delete nodeList;
    delete pq;
    if (state != nullptr && --state->holders == 0) delete state;
    for (uint32_t i = 0; polylines != nullptr && i < polylineCount; ++i)
        delete polylines[i];
    delete[] polylines;
}

SPTEngine& SPTEngine::operator=(const SPTEngine& other) {
    if (other.state != nullptr) ++other.state->holders;
    if (state != nullptr && --state->holders == 0) delete state;
    polylines = other.polylines;
    polylineCount = other.polylineCount;
    nodeList = other.nodeList;
    pq = other.pq;
    nodePolys = other.nodePolys;
    current = other.current;
    state = other.state;
    return *this;
}

void SPTEngine::InitNodeList() {
    if (state == nullptr || polylines == nullptr || polylineCount == 0) return;
    SPTNetwork& network = state->network;
    FreeNodePolys(*this);
    uint32_t listed = network.Size();
    bool hasMemory = network.AddNodes({polylines, polylineCount});
    for (; hasMemory && listed < network.Size(); ++listed)
        hasMemory = AppendTo(*nodeList, &network[listed]);
    if (!hasMemory) DropNodes(*this);
}

void SPTEngine::InitNodePolys() {
    if (state == nullptr || state->network.LineCount() == 0) return;
    SPTNetwork& network = state->network;
    FreeNodePolys(*this);
    std::unique_ptr<SPTNode**[]> lines(new (std::nothrow) SPTNode**[network.LineCount()]);
    std::unique_ptr<SPTNode*[]> nodes(new (std::nothrow) SPTNode*[network.VertexCount()]);
    if (lines == nullptr || nodes == nullptr || !network.Join()) {
        DropNodes(*this);
        return;
    }
    nodePolys = lines.release();
    nodePolys[0] = nodes.release();
    SPTNode** next = nodePolys[0];
    for (size_t i = 0; i < network.LineCount(); ++i) {
        nodePolys[i] = next;
        for (const uint32_t node : network.VertexNodesOf(i))
            *next++ = NodeOf(network, node);
    }
}

bool SPTEngine::BuildSPT(const DblPt& start) {
    if (state == nullptr) return false;
    EmptyQueue(*this);
    state->network.Reset();
    const uint32_t i = state->network.Find(start);
    if (i == SPTNetwork::kNone) return false;
    // From an infinite coordinate costs may be NaN. Where those go in the queue is the sort's own affair.
    const bool isFinite = std::isfinite(start.x) && std::isfinite(start.y);
    if (isFinite ? SearchAtOnce(*this, i) : SearchStepByStep(*this, state->network[i])) return true;
    EmptyQueue(*this);
    state->network.Reset();
    return false;
}

bool SPTEngine::EnterStartVertex(const DblPt& start) {
    if (state == nullptr) return false;
    if (SPTNode* const node = NodeAt(*this, start)) {
        Enter(*this, *node);
        return true;
    }
    for (SPTNode* node : *pq)
        node->inQueue = 0;
    EmptyQueue(*this);
    return false;
}

bool SPTEngine::NextNode(const SPTNode*& node) {
    node = nullptr;
    if (state == nullptr || pq->empty()) return false;
    ExpandFirst(*this);
    node = current;
    return true;
}

bool SPTEngine::IsOnPath(const DblPt& pt) {
    const SPTNode* const node = NodeAt(*this, pt);
    return node != nullptr && node->parent != nullptr;
}

PolylineGeom* SPTEngine::GenerateSPPolyline(const DblPt& pt) const { return GenerateSPPolyline(NodeAt(*this, pt)); }

PolylineGeom* SPTEngine::GenerateSPPolyline(const SPTNode* node) const {
    if (node == nullptr || node->parent == nullptr) return nullptr;
    std::unique_ptr<PolylineGeom> way(new (std::nothrow) PolylineGeom);
    if (way == nullptr || !internal::ChainOf(*way).Allocate(size_t{node->depth} + 1)) return nullptr;
    uint32_t count = 0;
    for (; node != nullptr && count < way->nPts; node = node->parent)
        way->pts[count++] = node->pt;
    way->nPts = count;
    way->RecalcExtents();
    return way.release();
}

bool SPTEngine::FindNode(const DblPt& pt, std::list<SPTNode*>::const_iterator& it) const {
    if (nodeList == nullptr) return false;
    it = nodeList->cend();
    if (state == nullptr) return false;
    const uint32_t i = state->network.Find(pt);
    // A host may have put in a list of its own since, without the nodes.
    if (i >= nodeList->size()) return false;
    it = PlaceInList(*this, i);
    return true;
}

void SPTEngine::SetPQFromCurrentTreeNode() {
    if (state == nullptr) return;
    state->queueIndex.Forget();
    OfferToNeighbours(*this);
}

void SPTEngine::AddNeighborsToPQ(SPTNode** nodes, unsigned n, unsigned i) {
    if (state == nullptr || nodes == nullptr || i > n) return;
    state->queueIndex.Forget();
    OfferToPair(*this, i > 0 ? nodes[i - 1] : nullptr, size_t{i} + 1 < n ? nodes[i + 1] : nullptr);
}

bool SPTEngine::AddVertexNodeToPQ(SPTNode* node) {
    if (state == nullptr) return false;
    return Offer(*this, node) == OfferOutcome::Accepted;
}

void SPTEngine::PrintNodePolys() {
    if (nodePolys == nullptr) return;
    for (size_t i = 0; i < state->network.LineCount(); ++i) {
        DbgPrintf("PolylineGeom {\n");
        const size_t count = state->network.VertexNodesOf(i).size();
        for (size_t k = 0; k < count; ++k) {
            const DblPt p = PositionOf(*this, i, k);
            DbgPrintf("{%lf, %lf},\n", p.x, p.y);
        }
        DbgPrintf("};\n\n");
    }
}

void SPTEngine::PrintPQ() {
    if (pq == nullptr) return;
    DbgPrintf("Priority Queue: {\n");
    for (const SPTNode* node : *pq)
        DbgPrintf("{%lf, %lf},\n", node->pt.x, node->pt.y);
    DbgPrintf("};\n\n");
}

}  // namespace Vellum
