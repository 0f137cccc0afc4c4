// SPDX-License-Identifier: MIT
#include "vellum/shortest_paths.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <list>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "paths/spt_networks.h"
#include "support/debug_capture.h"
#include "support/point_checks.h"

#ifdef __SSE2__
#include <xmmintrin.h>
#endif

namespace {

using paths_tests::Network;
using paths_tests::NewArray;
using support::IsAt;
using support::TakeDebugTexts;
using Vellum::DblPt;
using Vellum::PolylineGeom;
using Vellum::SPTEngine;
using Vellum::SPTNode;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kUnreached = 1.7976931348623157e308;

static_assert(std::is_standard_layout_v<SPTNode> && std::is_standard_layout_v<SPTEngine>);
static_assert(sizeof(void*) != 8 || sizeof(SPTNode) == 40);
static_assert(offsetof(SPTNode, pt) == 0 && offsetof(SPTNode, parent) == 16);
static_assert(sizeof(void*) != 8 || (offsetof(SPTNode, cost) == 24 && offsetof(SPTNode, depth) == 32 &&
                                     offsetof(SPTNode, inQueue) == 36 && offsetof(SPTNode, inTree) == 37));
static_assert(sizeof(void*) != 8 || (offsetof(SPTEngine, polylines) == 0 && offsetof(SPTEngine, polylineCount) == 8 &&
                                     offsetof(SPTEngine, nodeList) == 16 && offsetof(SPTEngine, pq) == 24 &&
                                     offsetof(SPTEngine, nodePolys) == 32 && offsetof(SPTEngine, current) == 40));
static_assert(!std::is_copy_constructible_v<SPTEngine>);

/// An engine over polylines that are written out.
class Engine : public SPTEngine {
public:
    explicit Engine(const Network& network) : SPTEngine(NewArray(network), static_cast<unsigned>(network.size())) {}

    /// The first node at a point.
    SPTNode* At(double x, double y) const {
        for (SPTNode* node : *nodeList)
            if (node->pt.x == x && node->pt.y == y) return node;
        return nullptr;
    }

    double CostAt(double x, double y) const { return At(x, y)->cost; }
    DblPt ParentAt(double x, double y) const { return At(x, y)->parent->pt; }
};

using Points = std::vector<std::vector<double>>;

template <class Nodes>
Points PointsOf(const Nodes& nodes) {
    Points points;
    for (const SPTNode* node : nodes)
        points.push_back({node->pt.x, node->pt.y});
    return points;
}

Points PointsOf(PolylineGeom* owned) {
    const std::unique_ptr<PolylineGeom> line(owned);
    Points points;
    for (const DblPt* p = line->Start(); p != line->End(); ++p)
        points.push_back({p->x, p->y});
    return points;
}

/// The nodes that the steps from here on take off the queue.
Points RemainingSteps(SPTEngine& engine) {
    Points taken;
    const SPTNode* node = nullptr;
    while (engine.NextNode(node))
        taken.push_back({node->pt.x, node->pt.y});
    EXPECT_EQ(node, nullptr);
    return taken;
}

bool IsNew(const SPTNode& node) {
    return node.parent == nullptr && node.cost == kUnreached && node.depth == 0 && node.inQueue == 0 &&
           node.inTree == 0;
}

// ---- Nodes ----

TEST(SPTNode, IsNewUntilReached) {
    const SPTNode node(DblPt(3, -4));
    EXPECT_TRUE(IsAt(node.pt, 3, -4));
    EXPECT_EQ(node.parent, nullptr);
    EXPECT_EQ(node.cost, 1.7976931348623157e308);
    EXPECT_EQ(node.depth, 0u);
    EXPECT_EQ(node.inQueue, 0);
    EXPECT_EQ(node.inTree, 0);
}

TEST(SPTNode, ResetKeepsThePosition) {
    SPTNode node(DblPt(3, -4));
    SPTNode parent(DblPt(1, 1));
    node.parent = &parent;
    node.cost = 5;
    node.depth = 7;
    node.inQueue = node.inTree = 1;
    node.Reset();
    EXPECT_TRUE(IsNew(node));
    EXPECT_TRUE(IsAt(node.pt, 3, -4));
}

// ---- Construction ----

TEST(SPTEngine, WithoutAnArrayHasNoNodes) {
    SPTEngine engine(nullptr, 3);
    EXPECT_EQ(engine.polylines, nullptr);
    EXPECT_EQ(engine.polylineCount, 3u);
    EXPECT_TRUE(engine.nodeList->empty());
    EXPECT_TRUE(engine.pq->empty());
    EXPECT_EQ(engine.nodePolys, nullptr);
    EXPECT_EQ(engine.current, nullptr);
    EXPECT_FALSE(engine.BuildSPT(DblPt(0, 0)));
    EXPECT_FALSE(engine.EnterStartVertex(DblPt(0, 0)));
    const SPTNode other(DblPt(0, 0));
    const SPTNode* node = &other;
    EXPECT_FALSE(engine.NextNode(node));
    EXPECT_EQ(node, nullptr);
    EXPECT_FALSE(engine.IsOnPath(DblPt(0, 0)));
    EXPECT_EQ(engine.GenerateSPPolyline(DblPt(0, 0)), nullptr);
    std::list<SPTNode*>::const_iterator it;
    EXPECT_FALSE(engine.FindNode(DblPt(0, 0), it));
    EXPECT_TRUE(it == engine.nodeList->end());
    engine.InitNodeList();
    engine.InitNodePolys();
    engine.SetPQFromCurrentTreeNode();
    EXPECT_TRUE(engine.nodeList->empty());
}

TEST(SPTEngine, OwnsAnArrayWithoutPolylines) {
    auto** const array = new PolylineGeom*[4];
    SPTEngine engine(array, 0);
    EXPECT_EQ(engine.polylines, array);
    EXPECT_TRUE(engine.nodeList->empty());
    EXPECT_EQ(engine.nodePolys, nullptr);
    EXPECT_FALSE(engine.BuildSPT(DblPt(0, 0)));
}

/// A polyline that tells when it is destroyed.
class Witness : public PolylineGeom {
public:
    Witness(int& destroyed, const DblPt& p) : destroyed_(destroyed) { AddPoint(p); }
    ~Witness() override { ++destroyed_; }

private:
    int& destroyed_;
};

TEST(SPTEngine, DestroysItsPolylinesThroughTheVirtualDestructor) {
    int destroyed = 0;
    {
        auto** const array = new PolylineGeom*[2];
        array[0] = new Witness(destroyed, DblPt(1, 2));
        array[1] = new Witness(destroyed, DblPt(3, 4));
        const SPTEngine engine(array, 2);
        EXPECT_EQ(engine.polylines, array);
        EXPECT_EQ(engine.polylineCount, 2u);
        EXPECT_EQ(destroyed, 0);
    }
    EXPECT_EQ(destroyed, 2);
}

TEST(SPTEngine, MakesNodesInOrder) {
    const Engine engine({{{5, 1}, {2, 7}, {2, 3}}, {{9, 9}, {2, 7}, {0, 4}}, {{0, 4}, {8, 8}}});
    EXPECT_EQ(PointsOf(*engine.nodeList), (Points{{5, 1}, {2, 7}, {2, 3}, {9, 9}, {0, 4}, {8, 8}}));
    for (const SPTNode* node : *engine.nodeList)
        EXPECT_TRUE(IsNew(*node));
    EXPECT_TRUE(engine.pq->empty());
    EXPECT_EQ(engine.current, nullptr);
}

TEST(SPTEngine, FirstPolylineRepeatsNodesAndLaterOnesDoNot) {
    const Engine engine({{{1, 2}, {1, 2}, {3, 4}, {1, 2}}, {{5, 6}, {5, 6}, {1, 2}, {5, 6}}});
    EXPECT_EQ(PointsOf(*engine.nodeList), (Points{{1, 2}, {1, 2}, {3, 4}, {1, 2}, {5, 6}}));
    // Every vertex is mapped to the first node there.
    SPTNode* const first = engine.nodeList->front();
    SPTNode* const last = engine.nodeList->back();
    const std::vector<SPTNode*> mapped(engine.nodePolys[0], engine.nodePolys[0] + 4);
    EXPECT_EQ(mapped, (std::vector<SPTNode*>{first, first, *std::next(engine.nodeList->begin(), 2), first}));
    const std::vector<SPTNode*> later(engine.nodePolys[1], engine.nodePolys[1] + 4);
    EXPECT_EQ(later, (std::vector<SPTNode*>{last, last, first, last}));
}

TEST(SPTEngine, RepeatedNodesOfTheFirstPolylineStayUnconnected) {
    Engine engine({{{1, 2}, {1, 2}, {3, 4}, {1, 2}, {0, 0}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(3, 4)));
    std::vector<bool> reached;
    for (const SPTNode* node : *engine.nodeList)
        reached.push_back(node->inTree != 0);
    EXPECT_EQ(reached, (std::vector<bool>{true, false, true, false, true}));
}

TEST(SPTEngine, VerticesThatDifferInTheLastBitAreDifferentNodes) {
    const double next = std::nextafter(3.0, 4.0);
    Engine engine({{{1, 2}, {3, 4}}, {{next, 4}, {5, 6}}, {{3, std::nextafter(4.0, 0.0)}, {7, 8}}});
    EXPECT_EQ(engine.nodeList->size(), 6u);
    ASSERT_TRUE(engine.BuildSPT(DblPt(1, 2)));
    EXPECT_TRUE(engine.IsOnPath(DblPt(3, 4)));
    EXPECT_FALSE(engine.IsOnPath(DblPt(next, 4)));
    EXPECT_FALSE(engine.IsOnPath(DblPt(5, 6)));
    EXPECT_FALSE(engine.IsOnPath(DblPt(7, 8)));
}

TEST(SPTEngine, ZerosOfBothSignsAreEqual) {
    Engine engine({{{0.0, -0.0}, {3, 4}}, {{-0.0, 0.0}, {5, 6}}, {{-0.0, -0.0}, {7, 9}}});
    EXPECT_EQ(PointsOf(*engine.nodeList), (Points{{0, 0}, {3, 4}, {5, 6}, {7, 9}}));
    ASSERT_TRUE(engine.BuildSPT(DblPt(-0.0, -0.0)));
    EXPECT_TRUE(engine.IsOnPath(DblPt(3, 4)));
    EXPECT_TRUE(engine.IsOnPath(DblPt(5, 6)));
    EXPECT_TRUE(engine.IsOnPath(DblPt(7, 9)));
}

TEST(SPTEngine, VerticesWithANanAreNodesThatNobodyFinds) {
    Engine engine({{{1, 2}, {kNan, 4}, {3, 4}}, {{kNan, 4}, {3, 4}, {5, kNan}, {5, kNan}}, {{3, 4}, {6, 6}}});
    EXPECT_EQ(engine.nodeList->size(), 7u);
    EXPECT_EQ(engine.nodePolys[0][1], nullptr);
    EXPECT_EQ(engine.nodePolys[1][0], nullptr);
    EXPECT_EQ(engine.nodePolys[1][2], nullptr);
    EXPECT_EQ(engine.nodePolys[1][1], engine.At(3, 4));
    std::list<SPTNode*>::const_iterator it;
    EXPECT_FALSE(engine.FindNode(DblPt(kNan, 4), it));
    EXPECT_TRUE(it == engine.nodeList->end());
    EXPECT_FALSE(engine.BuildSPT(DblPt(kNan, 4)));
    EXPECT_FALSE(engine.IsOnPath(DblPt(kNan, 4)));
    // They join nothing: there is no way past them.
    ASSERT_TRUE(engine.BuildSPT(DblPt(3, 4)));
    EXPECT_TRUE(engine.IsOnPath(DblPt(6, 6)));
    EXPECT_FALSE(engine.IsOnPath(DblPt(1, 2)));
    EXPECT_EQ(RemainingSteps(engine), Points{});
}

TEST(SPTEngine, PolylinesThatAreNullEmptyOrOfOnePoint) {
    auto** const array = new PolylineGeom*[5];
    array[0] = nullptr;
    array[1] = new PolylineGeom;
    array[2] = new PolylineGeom;
    array[2]->AddPoint(DblPt(4, 3));
    array[3] = nullptr;
    const DblPt line[] = {DblPt(4, 3), DblPt(6, 3)};
    array[4] = new PolylineGeom(2, line);
    SPTEngine engine(array, 5);
    EXPECT_EQ(PointsOf(*engine.nodeList), (Points{{4, 3}, {6, 3}}));
    EXPECT_EQ(engine.nodePolys[2][0], engine.nodeList->front());
    ASSERT_TRUE(engine.BuildSPT(DblPt(4, 3)));
    EXPECT_TRUE(engine.IsOnPath(DblPt(6, 3)));
    TakeDebugTexts();
    engine.PrintNodePolys();
    EXPECT_EQ(
        TakeDebugTexts(),
        (std::vector<std::string>{"PolylineGeom {\n", "};\n\n", "PolylineGeom {\n", "};\n\n", "PolylineGeom {\n",
                                  "{4.000000, 3.000000},\n", "};\n\n", "PolylineGeom {\n", "};\n\n", "PolylineGeom {\n",
                                  "{4.000000, 3.000000},\n", "{6.000000, 3.000000},\n", "};\n\n"}));
}

TEST(SPTEngine, ASinglePointIsATree) {
    Engine engine({{{4, 3}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(4, 3)));
    EXPECT_EQ(engine.CostAt(4, 3), 0.0);
    EXPECT_EQ(engine.current, engine.At(4, 3));
    EXPECT_FALSE(engine.IsOnPath(DblPt(4, 3)));
}

TEST(SPTEngine, TakesANetworkAfterConstruction) {
    SPTEngine engine(nullptr, 0);
    engine.polylines = NewArray({{{1, 2}, {3, 4}}, {{3, 4}, {8, 4}}});
    engine.polylineCount = 2;
    engine.InitNodeList();
    EXPECT_EQ(PointsOf(*engine.nodeList), (Points{{1, 2}, {3, 4}, {8, 4}}));
    engine.InitNodePolys();
    EXPECT_EQ(engine.nodePolys[1][0], engine.nodePolys[0][1]);
    ASSERT_TRUE(engine.BuildSPT(DblPt(1, 2)));
    EXPECT_TRUE(engine.IsOnPath(DblPt(8, 4)));
}

/// Anew, the first polyline makes nodes for all its vertices; all others have theirs already.
TEST(SPTEngine, InitNodeListAppends) {
    Engine engine({{{1, 2}, {3, 4}}, {{3, 4}, {8, 4}}});
    SPTNode* const first = engine.nodeList->front();
    engine.InitNodeList();
    engine.InitNodePolys();
    EXPECT_EQ(PointsOf(*engine.nodeList), (Points{{1, 2}, {3, 4}, {8, 4}, {1, 2}, {3, 4}}));
    EXPECT_EQ(engine.nodePolys[0][0], first);
    ASSERT_TRUE(engine.BuildSPT(DblPt(8, 4)));
    EXPECT_EQ(first->depth, 2u);
    EXPECT_TRUE(IsNew(*engine.nodeList->back()));
    std::list<SPTNode*>::const_iterator it;
    ASSERT_TRUE(engine.FindNode(DblPt(3, 4), it));
    EXPECT_EQ(std::distance(engine.nodeList->cbegin(), it), 1);
}

/// There was room for few nodes at first, or for none.
TEST(SPTEngine, InitNodeListSeesWhatHasBeenAdded) {
    Engine grown(Network{{}});
    for (const DblPt& p : {DblPt(0, 0), DblPt(1, 0), DblPt(1, 5)})
        grown.polylines[0]->AddPoint(p);
    grown.InitNodeList();
    grown.InitNodePolys();
    EXPECT_EQ(grown.nodePolys[0][1], grown.At(1, 0));
    EXPECT_EQ(grown.nodePolys[0][2], grown.At(1, 5));
    ASSERT_TRUE(grown.BuildSPT(DblPt(0, 0)));
    EXPECT_EQ(grown.CostAt(1, 5), 0.96 * 1 + 0.96 * 5);

    Engine joined({{{0, 0}}, {}});
    for (const DblPt& p : {DblPt(0, 0), DblPt(1, 0), DblPt(1, 5)})
        joined.polylines[1]->AddPoint(p);
    joined.InitNodeList();
    joined.InitNodePolys();
    EXPECT_EQ(PointsOf(*joined.nodeList), (Points{{0, 0}, {0, 0}, {1, 0}, {1, 5}}));
    EXPECT_EQ(joined.nodePolys[1][0], joined.nodeList->front());
    EXPECT_EQ(joined.nodePolys[1][1], joined.At(1, 0));
    EXPECT_EQ(joined.nodePolys[1][2], joined.At(1, 5));
    ASSERT_TRUE(joined.BuildSPT(DblPt(0, 0)));
    EXPECT_EQ(joined.CostAt(1, 5), 0.96 * 1 + 0.96 * 5);
}

/// As many nodes as fill several of the blocks in which memory for them is asked for, with every way of meeting the
/// numbers at which one ends.
TEST(SPTEngine, ManyNodesStayWhereTheyAre) {
    Network network(3);
    for (int i = 0; i < 5000; ++i)
        network[0].push_back(DblPt(i, 0));
    for (int i = 0; i < 5000; i += 7)
        network[1].push_back(DblPt(i, i % 2));
    SPTEngine engine(NewArray(network), 3);
    EXPECT_EQ(engine.nodeList->size(), 5357u);
    std::list<SPTNode*>::const_iterator it = engine.nodeList->begin();
    for (int i = 0; i < 5000; ++i, ++it)
        ASSERT_TRUE(IsAt((*it)->pt, i, 0));
    ASSERT_TRUE(engine.FindNode(DblPt(4095, 0), it));
    EXPECT_TRUE(IsAt((*it)->pt, 4095, 0));
    EXPECT_EQ(std::distance(engine.nodeList->cbegin(), it), 4095);
    ASSERT_TRUE(engine.FindNode(DblPt(4991, 1), it));
    EXPECT_TRUE(IsAt((*it)->pt, 4991, 1));
    EXPECT_FALSE(engine.FindNode(DblPt(4991, 2), it));
}

// ---- Which vertices are connected ----

TEST(SPTEngine, PolylinesThatOnlyCrossAreNotConnected) {
    Engine engine({{{0, 0}, {4, 4}}, {{0, 4}, {4, 0}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(0, 0)));
    EXPECT_TRUE(engine.IsOnPath(DblPt(4, 4)));
    EXPECT_FALSE(engine.IsOnPath(DblPt(0, 4)));
    EXPECT_FALSE(engine.IsOnPath(DblPt(4, 0)));
    EXPECT_TRUE(IsNew(*engine.At(0, 4)));
}

TEST(SPTEngine, AVertexOfThreePolylinesConnectsAllThree) {
    const Network network{{{1, 1}, {5, 5}}, {{5, 5}, {9, 1}, {12, 2}}, {{7, 8}, {5, 5}, {2, 9}}};
    for (const DblPt& start : {DblPt(1, 1), DblPt(12, 2), DblPt(2, 9), DblPt(5, 5)}) {
        Engine engine(network);
        ASSERT_TRUE(engine.BuildSPT(start));
        for (const SPTNode* node : *engine.nodeList)
            EXPECT_TRUE(node->inTree) << node->pt.x << ", " << node->pt.y;
    }
}

TEST(SPTEngine, OnlyConsecutiveVerticesAreJoined) {
    Engine engine({{{0, 0}, {10, 0}, {10, 1}, {0, 1}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(0, 0)));
    EXPECT_TRUE(IsAt(engine.ParentAt(0, 1), 10, 1));
    EXPECT_EQ(engine.At(0, 1)->depth, 3u);
}

// ---- Costs ----

TEST(SPTEngine, EdgesCostTheOctagonalEstimate) {
    Engine engine({{{0, 0}, {3, 4}}, {{0, 0}, {-4, 3}}, {{0, 0}, {2, -2}}, {{0, 0}, {-7, 0}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(0, 0)));
    EXPECT_EQ(engine.CostAt(0, 0), 0.0);
    EXPECT_EQ(engine.CostAt(3, 4), 0.96 * 4 + 0.398 * 3);
    EXPECT_DOUBLE_EQ(engine.CostAt(3, 4), 5.034);
    EXPECT_EQ(engine.CostAt(-4, 3), 0.96 * 4 + 0.398 * 3);
    EXPECT_EQ(engine.CostAt(2, -2), 0.96 * 2 + 0.398 * 2);
    EXPECT_EQ(engine.CostAt(-7, 0), 0.96 * 7);
}

TEST(SPTEngine, CostsAddUpFromTheStart) {
    Engine engine({{{0.1, 0.7}, {0.3, 1.9}, {2.2, 2.3}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(0.1, 0.7)));
    const double first = 0.96 * (1.9 - 0.7) + 0.398 * (0.3 - 0.1);
    EXPECT_EQ(engine.CostAt(0.3, 1.9), first);
    EXPECT_EQ(engine.CostAt(2.2, 2.3), first + (0.96 * (2.2 - 0.3) + 0.398 * (2.3 - 1.9)));
    EXPECT_EQ(engine.At(2.2, 2.3)->depth, 2u);
}

/// By Euclidean length the upper way is shorter, 6.795 against 7; the estimate makes it 6.8698 against 6.72.
TEST(SPTEngine, TheEstimateDecidesBetweenNearlyEqualWays) {
    Engine engine({{{0, 0}, {-0.4, 3.3}, {3, 4}}, {{0, 0}, {3, 0}, {3, 4}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(0, 0)));
    EXPECT_TRUE(IsAt(engine.ParentAt(3, 4), 3, 0));
    EXPECT_EQ(engine.CostAt(3, 4), 0.96 * 3 + 0.96 * 4);
    // A single edge beats both.
    Engine direct({{{0, 0}, {3, 0}, {3, 4}}, {{3, 4}, {0, 0}}});
    ASSERT_TRUE(direct.BuildSPT(DblPt(0, 0)));
    EXPECT_TRUE(IsAt(direct.ParentAt(3, 4), 0, 0));
    EXPECT_EQ(direct.At(3, 4)->depth, 1u);
}

TEST(SPTEngine, ACheaperWayReplacesTheFirst) {
    // (1, 10) is first reached over (1, 0), at 10.56, and then over (0, 5), at 9.998.
    Engine engine({{{0, 0}, {1, 0}, {1, 10}}, {{0, 0}, {0, 5}, {1, 10}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(0, 0)));
    EXPECT_TRUE(IsAt(engine.ParentAt(1, 10), 0, 5));
    EXPECT_EQ(engine.CostAt(1, 10), 0.96 * 5 + (0.96 * 5 + 0.398 * 1));
}

// ---- Ties ----

TEST(SPTEngine, OfEqualWaysTheFirstFoundIsKept) {
    const Network over10{{{0, 0}, {1, 0}, {1, 1}}, {{0, 0}, {0, 1}, {1, 1}}};
    Engine first(over10);
    ASSERT_TRUE(first.BuildSPT(DblPt(0, 0)));
    EXPECT_EQ(first.CostAt(1, 1), 0.96 + 0.96);
    EXPECT_TRUE(IsAt(first.ParentAt(1, 1), 1, 0));
    Engine second({over10[1], over10[0]});
    ASSERT_TRUE(second.BuildSPT(DblPt(0, 0)));
    EXPECT_TRUE(IsAt(second.ParentAt(1, 1), 0, 1));
}

TEST(SPTEngine, TheVertexBeforeComesAheadOfTheOneAfter) {
    Engine engine({{{1, 0}, {0, 0}, {0, 1}}, {{1, 0}, {1, 1}}, {{0, 1}, {1, 1}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(0, 0)));
    EXPECT_TRUE(IsAt(engine.ParentAt(1, 1), 1, 0));
    Engine reversed({{{0, 1}, {0, 0}, {1, 0}}, {{1, 0}, {1, 1}}, {{0, 1}, {1, 1}}});
    ASSERT_TRUE(reversed.BuildSPT(DblPt(0, 0)));
    EXPECT_TRUE(IsAt(reversed.ParentAt(1, 1), 0, 1));
}

/// Along chains: (6, 6) is met from both sides at the same cost, and the cheaper of its neighbours came first.
TEST(SPTEngine, WhereChainsMeetTheCheaperNeighbourCameFirst) {
    const Network network{{{0, 0}, {6, 0}, {6, 6}}, {{0, 0}, {0, 2}, {0, 6}, {6, 6}}};
    Engine engine(network);
    ASSERT_TRUE(engine.BuildSPT(DblPt(0, 0)));
    ASSERT_EQ(engine.CostAt(6, 0), 0.96 * 6);
    ASSERT_EQ(engine.CostAt(6, 6), 0.96 * 6 + 0.96 * 6);
    EXPECT_TRUE(IsAt(engine.ParentAt(6, 6), 6, 0));
    // Where the neighbours cost the same too, what counts is which of them came first.
    Engine square({{{0, 0}, {6, 0}, {6, 6}}, {{0, 0}, {0, 6}, {6, 6}}});
    ASSERT_TRUE(square.BuildSPT(DblPt(0, 0)));
    EXPECT_TRUE(IsAt(square.ParentAt(6, 6), 6, 0));
    EXPECT_EQ(square.current, square.At(6, 6));
}

/// Three neighbours at the same cost, since the edges between them are lost in the sums: that of the way over (-6, 0)
/// was queued first, and so offers to (0, 0) first.
TEST(SPTEngine, EdgesThatVanishInTheSumKeepTheOrder) {
    Engine engine({{{-6, -2}, {0, -2}, {0, -1e-17}, {0, 0}, {-1e-17, 0}, {-6, 0}, {-6, -2}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(-6, -2)));
    EXPECT_EQ(engine.CostAt(0, 0), 0.96 * 6 + 0.96 * 2);
    EXPECT_EQ(engine.CostAt(0, -1e-17), engine.CostAt(0, 0));
    EXPECT_EQ(engine.CostAt(-1e-17, 0), engine.CostAt(0, 0));
    EXPECT_TRUE(IsAt(engine.ParentAt(0, 0), -1e-17, 0));
    EXPECT_EQ(engine.At(0, 0)->depth, 3u);
}

#ifdef __SSE2__
/// A host may have set the processor to take what is smaller than any normal number for zero: an edge costs nothing.
TEST(SPTEngine, EdgesThatAreFlushedToZero) {
    Engine engine({{{2.3e-308, 0}, {2.5e-308, 0}}});
    const unsigned mode = _MM_GET_FLUSH_ZERO_MODE();
    _MM_SET_FLUSH_ZERO_MODE(_MM_FLUSH_ZERO_ON);
    const bool isBuilt = engine.BuildSPT(DblPt(2.3e-308, 0));
    _MM_SET_FLUSH_ZERO_MODE(mode);
    ASSERT_TRUE(isBuilt);
    EXPECT_EQ(engine.CostAt(2.5e-308, 0), 0.0);
    EXPECT_EQ(engine.At(2.5e-308, 0)->parent, engine.At(2.3e-308, 0));
    EXPECT_EQ(engine.current, engine.At(2.5e-308, 0));
}
#endif

/// Both (10, 1) and (10, -1) are queued by (-3, 0), the upper one first, and both are improved at once by (10, 0),
/// which offers to the lower one first. The entries that they have already move ahead of the new ones, in their
/// order.
TEST(SPTEngine, NodesQueuedAlreadyKeepTheirOrder) {
    const Network network{{{0, 0}, {-3, 0}},
                          {{10, 1}, {-3, 0}, {10, -1}},
                          {{0, 0}, {10, 0}},
                          {{10, -1}, {10, 0}, {10, 1}},
                          {{10, -1}, {30, 0}, {10, 1}}};
    Engine engine(network);
    ASSERT_TRUE(engine.EnterStartVertex(DblPt(0, 0)));
    EXPECT_EQ(RemainingSteps(engine), (Points{{-3, 0}, {10, 0}, {10, 1}, {10, -1}, {10, -1}, {10, 1}, {30, 0}}));
    EXPECT_TRUE(IsAt(engine.ParentAt(30, 0), 10, 1));
    Engine whole(network);
    ASSERT_TRUE(whole.BuildSPT(DblPt(0, 0)));
    EXPECT_TRUE(IsAt(whole.ParentAt(30, 0), 10, 1));
}

/// The same, with nothing beyond: what is taken off last is the newest entry, not that of the node which came last.
TEST(SPTEngine, TheLastEntryIsExpandedLast) {
    const Network network{
        {{0, 0}, {-3, 0}}, {{10, 1}, {-3, 0}, {10, -1}}, {{0, 0}, {10, 0}}, {{10, -1}, {10, 0}, {10, 1}}};
    Engine engine(network);
    ASSERT_TRUE(engine.BuildSPT(DblPt(0, 0)));
    EXPECT_TRUE(IsAt(engine.current->pt, 10, 1));
}

/// As before, but on two polylines: the queue is sorted for each, so nothing of the second is ahead of the first.
TEST(SPTEngine, TheQueueIsSortedForEachPolyline) {
    Engine engine({{{0, 0}, {-3, 0}},
                   {{10, 1}, {-3, 0}, {10, -1}},
                   {{0, 0}, {10, 0}},
                   {{10, -1}, {10, 0}},
                   {{10, 0}, {10, 1}},
                   {{10, -1}, {30, 0}, {10, 1}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(0, 0)));
    EXPECT_TRUE(IsAt(engine.ParentAt(30, 0), 10, -1));
    ASSERT_TRUE(engine.BuildSPT(DblPt(0, 0)));
    EXPECT_TRUE(IsAt(engine.ParentAt(30, 0), 10, -1));
}

// ---- Searches ----

TEST(SPTEngine, BuildSPTReachesWhatIsConnected) {
    Engine engine({{{0, 0}, {2, 0}, {2, 5}}, {{2, 0}, {9, 0}}, {{20, 20}, {21, 21}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(2, 0)));
    EXPECT_TRUE(engine.pq->empty());
    EXPECT_EQ(engine.current, engine.At(9, 0));
    for (const SPTNode* node : *engine.nodeList) {
        const bool isReached = node->pt.x < 20;
        EXPECT_EQ(node->inTree, isReached ? 1 : 0);
        EXPECT_EQ(node->inQueue, 0);
        EXPECT_EQ(node->cost == kUnreached, !isReached);
    }
    EXPECT_EQ(engine.At(2, 0)->parent, nullptr);
    EXPECT_EQ(engine.At(2, 0)->depth, 0u);
    EXPECT_EQ(engine.At(9, 0)->depth, 1u);
    EXPECT_TRUE(IsNew(*engine.At(20, 20)));
}

TEST(SPTEngine, EachBuildSPTStartsAnew) {
    Engine engine({{{0, 0}, {2, 0}, {2, 5}}, {{20, 20}, {21, 21}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(0, 0)));
    ASSERT_TRUE(engine.BuildSPT(DblPt(20, 20)));
    EXPECT_TRUE(IsNew(*engine.At(0, 0)));
    EXPECT_TRUE(IsNew(*engine.At(2, 5)));
    EXPECT_TRUE(engine.IsOnPath(DblPt(21, 21)));
    ASSERT_TRUE(engine.BuildSPT(DblPt(2, 5)));
    EXPECT_EQ(engine.CostAt(0, 0), 0.96 * 5 + 0.96 * 2);
    EXPECT_TRUE(IsNew(*engine.At(21, 21)));
}

TEST(SPTEngine, BuildSPTFromElsewhereFindsNothing) {
    Engine engine({{{0, 0}, {2, 0}, {2, 5}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(0, 0)));
    SPTNode* const last = engine.current;
    EXPECT_FALSE(engine.BuildSPT(DblPt(1, 0)));
    for (const SPTNode* node : *engine.nodeList)
        EXPECT_TRUE(IsNew(*node));
    EXPECT_TRUE(engine.pq->empty());
    EXPECT_EQ(engine.current, last);
    ASSERT_TRUE(engine.EnterStartVertex(DblPt(0, 0)));
    EXPECT_FALSE(engine.BuildSPT(DblPt(0, 0.5)));
    EXPECT_TRUE(engine.pq->empty());
    EXPECT_TRUE(IsNew(*engine.At(2, 0)));
}

TEST(SPTEngine, EnterStartVertexTakesTheFirstStep) {
    Engine engine({{{0, 0}, {2, 0}, {2, 5}}, {{0, 0}, {0, 1}}});
    ASSERT_TRUE(engine.EnterStartVertex(DblPt(0, 0)));
    const SPTNode* const start = engine.At(0, 0);
    EXPECT_EQ(engine.current, start);
    EXPECT_EQ(start->cost, 0.0);
    EXPECT_EQ(start->inTree, 1);
    EXPECT_EQ(start->inQueue, 0);
    EXPECT_EQ(PointsOf(*engine.pq), (Points{{0, 1}, {2, 0}}));
    const SPTNode* const near = engine.At(0, 1);
    EXPECT_EQ(near->inQueue, 1);
    EXPECT_EQ(near->inTree, 0);
    EXPECT_EQ(near->parent, start);
    EXPECT_EQ(near->cost, 0.96);
    EXPECT_EQ(near->depth, 1u);
    EXPECT_TRUE(IsNew(*engine.At(2, 5)));
}

TEST(SPTEngine, EnterStartVertexResetsNothing) {
    Engine engine({{{0, 0}, {2, 0}, {2, 5}, {9, 5}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(0, 0)));
    ASSERT_TRUE(engine.EnterStartVertex(DblPt(2, 5)));
    // All neighbours are in the tree.
    EXPECT_TRUE(engine.pq->empty());
    SPTNode* const start = engine.At(2, 5);
    EXPECT_EQ(start->cost, 0.0);
    EXPECT_TRUE(IsAt(start->parent->pt, 2, 0));
    EXPECT_EQ(start->depth, 2u);
    EXPECT_EQ(engine.CostAt(9, 5), 0.96 * 2 + 0.96 * 5 + 0.96 * 7);
}

TEST(SPTEngine, ASecondStartAddsToTheQueue) {
    Engine engine({{{0, 0}, {2, 0}, {2, 5}, {9, 5}}, {{30, 0}, {30, 1}}});
    ASSERT_TRUE(engine.EnterStartVertex(DblPt(0, 0)));
    ASSERT_TRUE(engine.EnterStartVertex(DblPt(30, 0)));
    EXPECT_EQ(PointsOf(*engine.pq), (Points{{30, 1}, {2, 0}}));
    EXPECT_EQ(RemainingSteps(engine), (Points{{30, 1}, {2, 0}, {2, 5}, {9, 5}}));
}

TEST(SPTEngine, EnterStartVertexElsewhereLeavesNoSearch) {
    Engine engine({{{0, 0}, {2, 0}, {2, 5}}});
    EXPECT_FALSE(engine.EnterStartVertex(DblPt(7, 7)));
    EXPECT_EQ(engine.current, nullptr);
    EXPECT_TRUE(engine.pq->empty());
    ASSERT_TRUE(engine.EnterStartVertex(DblPt(0, 0)));
    EXPECT_FALSE(engine.EnterStartVertex(DblPt(7, 7)));
    EXPECT_TRUE(engine.pq->empty());
    EXPECT_EQ(engine.At(2, 0)->inQueue, 0);
    EXPECT_EQ(engine.current, engine.At(0, 0));
    const SPTNode* node = nullptr;
    EXPECT_FALSE(engine.NextNode(node));
}

TEST(SPTEngine, NextNodeTakesTheCheapest) {
    Engine engine({{{0, 0}, {2, 0}, {2, 5}}, {{0, 0}, {0, 1}, {0, 8}}});
    ASSERT_TRUE(engine.EnterStartVertex(DblPt(0, 0)));
    const SPTNode* node = nullptr;
    ASSERT_TRUE(engine.NextNode(node));
    EXPECT_EQ(node, engine.At(0, 1));
    EXPECT_EQ(engine.current, node);
    EXPECT_EQ(node->inTree, 1);
    EXPECT_EQ(node->inQueue, 0);
    EXPECT_EQ(PointsOf(*engine.pq), (Points{{2, 0}, {0, 8}}));
    EXPECT_EQ(RemainingSteps(engine), (Points{{2, 0}, {2, 5}, {0, 8}}));
    EXPECT_FALSE(engine.NextNode(node));
    EXPECT_EQ(engine.current, engine.At(0, 8));
}

TEST(SPTEngine, NodesAreTakenOffAsOftenAsTheyWereQueued) {
    Engine engine({{{0, 0}, {1, 0}, {1, 10}}, {{0, 0}, {0, 5}, {1, 10}}});
    ASSERT_TRUE(engine.EnterStartVertex(DblPt(0, 0)));
    const SPTNode* node = nullptr;
    ASSERT_TRUE(engine.NextNode(node) && engine.NextNode(node));
    EXPECT_TRUE(IsAt(node->pt, 0, 5));
    EXPECT_EQ(PointsOf(*engine.pq), (Points{{1, 10}, {1, 10}}));
    const SPTNode* const twice = engine.At(1, 10);
    EXPECT_EQ(twice->inQueue, 1);
    ASSERT_TRUE(engine.NextNode(node));
    EXPECT_EQ(node, twice);
    EXPECT_EQ(twice->inQueue, 0);
    EXPECT_EQ(twice->inTree, 1);
    EXPECT_EQ(PointsOf(*engine.pq), (Points{{1, 10}}));
    ASSERT_TRUE(engine.NextNode(node));
    EXPECT_EQ(node, twice);
    EXPECT_FALSE(engine.NextNode(node));
}

TEST(SPTEngine, StepsGrowTheTreeOfBuildSPT) {
    const Network network{{{0, 0}, {1, 0}, {1, 10}, {4, 9}}, {{0, 0}, {0, 5}, {1, 10}}, {{4, 9}, {0, 5}, {7, 7}}};
    Engine whole(network);
    Engine stepped(network);
    ASSERT_TRUE(whole.BuildSPT(DblPt(7, 7)));
    ASSERT_TRUE(stepped.EnterStartVertex(DblPt(7, 7)));
    RemainingSteps(stepped);
    for (const SPTNode* node : *whole.nodeList) {
        const SPTNode& other = *stepped.At(node->pt.x, node->pt.y);
        EXPECT_EQ(node->cost, other.cost);
        EXPECT_EQ(node->depth, other.depth);
        const DblPt& parent = node->parent == nullptr ? node->pt : node->parent->pt;
        EXPECT_TRUE(IsAt(other.parent == nullptr ? other.pt : other.parent->pt, parent.x, parent.y));
    }
    EXPECT_TRUE(IsAt(whole.current->pt, stepped.current->pt.x, stepped.current->pt.y));
}

TEST(SPTEngine, NoWayLeadsToInfinity) {
    Engine engine({{{0, 0}, {kInfinity, 0}, {5, 5}}, {{0, 0}, {1e308, 0}, {-1e308, 0}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(0, 0)));
    EXPECT_FALSE(engine.IsOnPath(DblPt(kInfinity, 0)));
    EXPECT_FALSE(engine.IsOnPath(DblPt(5, 5)));
    EXPECT_TRUE(engine.IsOnPath(DblPt(1e308, 0)));
    EXPECT_FALSE(engine.IsOnPath(DblPt(-1e308, 0)));
}

/// From an infinite coordinate to an equal one the difference is NaN, which is not greater than any cost.
TEST(SPTEngine, AStartAtInfinityReachesItsLike) {
    Engine engine({{{kInfinity, 0}, {kInfinity, 5}, {3, 3}}, {{kInfinity, 0}, {1, 1}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(kInfinity, 0)));
    const SPTNode* const like = engine.At(kInfinity, 5);
    EXPECT_TRUE(std::isnan(like->cost));
    EXPECT_EQ(like->depth, 1u);
    EXPECT_TRUE(IsAt(engine.ParentAt(3, 3), kInfinity, 5));
    EXPECT_TRUE(std::isnan(engine.CostAt(3, 3)));
    EXPECT_TRUE(IsNew(*engine.At(1, 1)));
    EXPECT_TRUE(engine.pq->empty());
}

// ---- Ways ----

TEST(SPTEngine, IsOnPathOfAllButTheStart) {
    Engine engine({{{0, 0}, {2, 0}, {2, 5}}, {{20, 20}, {21, 21}}});
    EXPECT_FALSE(engine.IsOnPath(DblPt(2, 0)));
    ASSERT_TRUE(engine.BuildSPT(DblPt(0, 0)));
    EXPECT_FALSE(engine.IsOnPath(DblPt(0, 0)));
    EXPECT_TRUE(engine.IsOnPath(DblPt(2, 0)));
    EXPECT_TRUE(engine.IsOnPath(DblPt(2, 5)));
    EXPECT_FALSE(engine.IsOnPath(DblPt(20, 20)));
    EXPECT_FALSE(engine.IsOnPath(DblPt(1, 0)));
}

TEST(SPTEngine, WaysRunFromTheTargetToTheStart) {
    Engine engine({{{-9, -1}, {-7, -1}, {-7, -6}, {-3, -6}}, {{20, 20}, {21, 21}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(-9, -1)));
    EXPECT_EQ(engine.GenerateSPPolyline(DblPt(-9, -1)), nullptr);
    EXPECT_EQ(PointsOf(engine.GenerateSPPolyline(DblPt(-7, -1))), (Points{{-7, -1}, {-9, -1}}));
    EXPECT_EQ(PointsOf(engine.GenerateSPPolyline(DblPt(-3, -6))), (Points{{-3, -6}, {-7, -6}, {-7, -1}, {-9, -1}}));
    EXPECT_EQ(PointsOf(engine.GenerateSPPolyline(engine.At(-7, -6))), (Points{{-7, -6}, {-7, -1}, {-9, -1}}));
    EXPECT_EQ(engine.GenerateSPPolyline(DblPt(20, 20)), nullptr);
    EXPECT_EQ(engine.GenerateSPPolyline(DblPt(-8, -1)), nullptr);
    EXPECT_EQ(engine.GenerateSPPolyline(engine.At(20, 20)), nullptr);
    EXPECT_EQ(engine.GenerateSPPolyline(engine.At(-9, -1)), nullptr);
    EXPECT_EQ(engine.GenerateSPPolyline(static_cast<const SPTNode*>(nullptr)), nullptr);
}

TEST(SPTEngine, WaysHaveTheExtentsOfTheirPoints) {
    Engine engine({{{-9, -1}, {-7, -1}, {-7, -6}, {-3, -6}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(-9, -1)));
    const std::unique_ptr<PolylineGeom> way(engine.GenerateSPPolyline(DblPt(-3, -6)));
    EXPECT_TRUE(IsAt(way->LLExtent(), -9, -6));
    EXPECT_TRUE(IsAt(way->URExtent(), -3, -1));
}

TEST(SPTEngine, WaysOutliveTheEngineAndTheNextSearch) {
    std::unique_ptr<PolylineGeom> way;
    {
        Engine engine({{{0, 0}, {2, 0}, {2, 5}}});
        ASSERT_TRUE(engine.BuildSPT(DblPt(0, 0)));
        way.reset(engine.GenerateSPPolyline(DblPt(2, 5)));
        ASSERT_TRUE(engine.BuildSPT(DblPt(2, 5)));
    }
    EXPECT_EQ(PointsOf(way.release()), (Points{{2, 5}, {2, 0}, {0, 0}}));
}

/// A host can build a ring of parents; the way ends after as many points as the depth tells.
TEST(SPTEngine, AWayHasOnePointMoreThanItsDepth) {
    const Engine engine({{{0, 0}, {2, 0}}});
    SPTNode a(DblPt(1, 1));
    SPTNode b(DblPt(2, 2));
    a.parent = &b;
    b.parent = &a;
    a.depth = 3;
    EXPECT_EQ(PointsOf(engine.GenerateSPPolyline(&a)), (Points{{1, 1}, {2, 2}, {1, 1}, {2, 2}}));
    b.parent = nullptr;
    EXPECT_EQ(PointsOf(engine.GenerateSPPolyline(&a)), (Points{{1, 1}, {2, 2}}));
}

TEST(SPTEngine, FindNodeStopsAtTheFirst) {
    const Engine engine({{{1, 2}, {3, 4}, {1, 2}, {5, 6}}, {{8, 9}, {5, 6}}});
    std::list<SPTNode*>::const_iterator it;
    ASSERT_TRUE(engine.FindNode(DblPt(1, 2), it));
    EXPECT_TRUE(it == engine.nodeList->begin());
    ASSERT_TRUE(engine.FindNode(DblPt(8, 9), it));
    EXPECT_TRUE(it == std::prev(engine.nodeList->end()));
    EXPECT_FALSE(engine.FindNode(DblPt(1, 9), it));
    EXPECT_TRUE(it == engine.nodeList->end());
    EXPECT_FALSE(engine.FindNode(DblPt(8, 2), it));
}

// ---- Steps ----

TEST(SPTEngine, OfferingToANodeAppendsIt) {
    Engine engine({{{0, 0}, {2, 0}, {2, 5}}, {{9, 9}, {0, 1}}});
    ASSERT_TRUE(engine.EnterStartVertex(DblPt(0, 0)));
    SPTNode* const far = engine.At(2, 5);
    SPTNode* const near = engine.At(0, 1);
    ASSERT_TRUE(engine.AddVertexNodeToPQ(far));
    ASSERT_TRUE(engine.AddVertexNodeToPQ(near));
    // Cheaper than both that stand before it.
    EXPECT_EQ(PointsOf(*engine.pq), (Points{{2, 0}, {2, 5}, {0, 1}}));
    EXPECT_EQ(far->cost, 0.96 * 5 + 0.398 * 2);
    EXPECT_EQ(far->parent, engine.current);
    EXPECT_EQ(far->depth, 1u);
    EXPECT_EQ(far->inQueue, 1);
    // The same again is no improvement, nor is a tie.
    EXPECT_FALSE(engine.AddVertexNodeToPQ(near));
    EXPECT_FALSE(engine.AddVertexNodeToPQ(engine.current));
    EXPECT_FALSE(engine.AddVertexNodeToPQ(nullptr));
    EXPECT_EQ(engine.pq->size(), 3u);
    // What is queued already is queued once more.
    near->cost = 1.5;
    ASSERT_TRUE(engine.AddVertexNodeToPQ(near));
    EXPECT_EQ(PointsOf(*engine.pq), (Points{{2, 0}, {2, 5}, {0, 1}, {0, 1}}));
    // The first step from here on takes the first, sorted or not; then all is sorted.
    const SPTNode* node = nullptr;
    ASSERT_TRUE(engine.NextNode(node));
    EXPECT_TRUE(IsAt(node->pt, 2, 0));
    ASSERT_TRUE(engine.NextNode(node));
    EXPECT_TRUE(IsAt(node->pt, 2, 5));
    EXPECT_EQ(PointsOf(*engine.pq), (Points{{0, 1}, {0, 1}}));
}

TEST(SPTEngine, OfferingTakesNoNoticeOfTheTree) {
    Engine engine({{{0, 0}, {2, 0}, {2, 5}}});
    ASSERT_TRUE(engine.BuildSPT(DblPt(2, 5)));
    SPTNode* const node = engine.At(0, 0);
    engine.current = engine.At(2, 5);
    ASSERT_TRUE(engine.AddVertexNodeToPQ(node));
    EXPECT_EQ(node->cost, 0.96 * 5 + 0.398 * 2);
    EXPECT_EQ(node->inTree, 1);
}

TEST(SPTEngine, WithoutACurrentNodeNothingIsOffered) {
    Engine engine({{{0, 0}, {2, 0}, {2, 5}}, {{1, kNan}, {4, 4}}});
    engine.SetPQFromCurrentTreeNode();
    engine.AddNeighborsToPQ(engine.nodePolys[0], 3, 1);
    EXPECT_FALSE(engine.AddVertexNodeToPQ(engine.At(2, 0)));
    EXPECT_TRUE(engine.pq->empty());
    EXPECT_TRUE(IsNew(*engine.At(2, 0)));
}

TEST(SPTEngine, NeighboursOnOnePolyline) {
    Engine engine({{{0, 0}, {5, 0}}});
    SPTNode nodes[] = {SPTNode(DblPt(9, 0)), SPTNode(DblPt(1, 1)), SPTNode(DblPt(3, 0)), SPTNode(DblPt(0, 2))};
    SPTNode* line[] = {&nodes[0], &nodes[1], &nodes[2], nullptr, &nodes[3]};
    engine.current = engine.At(0, 0);
    engine.current->cost = 0;
    engine.AddNeighborsToPQ(line, 1, 0);
    EXPECT_TRUE(engine.pq->empty());
    // Sorted, and so ahead of what costs more.
    engine.AddNeighborsToPQ(line, 5, 1);
    EXPECT_EQ(PointsOf(*engine.pq), (Points{{3, 0}, {9, 0}}));
    EXPECT_TRUE(IsNew(nodes[1]));
    // Only the one after, and only the one before.
    engine.AddNeighborsToPQ(line, 5, 0);
    EXPECT_EQ(PointsOf(*engine.pq), (Points{{1, 1}, {3, 0}, {9, 0}}));
    engine.AddNeighborsToPQ(line + 3, 2, 1);
    EXPECT_EQ(engine.pq->size(), 3u);
    engine.AddNeighborsToPQ(line + 3, 2, 0);
    EXPECT_EQ(PointsOf(*engine.pq), (Points{{1, 1}, {0, 2}, {3, 0}, {9, 0}}));
    engine.AddNeighborsToPQ(nullptr, 5, 1);
    engine.AddNeighborsToPQ(line, 0, 0);
    EXPECT_EQ(engine.pq->size(), 4u);
    // Past the last one, that comes before; any further there is none.
    nodes[2].Reset();
    engine.AddNeighborsToPQ(line, 3, 4);
    engine.AddNeighborsToPQ(line, 2, std::numeric_limits<unsigned>::max());
    EXPECT_TRUE(IsNew(nodes[2]));
    engine.AddNeighborsToPQ(line, 3, 3);
    EXPECT_EQ(nodes[2].cost, 0.96 * 3);
    EXPECT_EQ(engine.pq->size(), 5u);
    // The queue goes before the nodes do.
    engine.pq->clear();
}

TEST(SPTEngine, NeighboursInTheTreeAreSkipped) {
    Engine engine({{{0, 0}, {5, 0}}});
    SPTNode nodes[] = {SPTNode(DblPt(9, 0)), SPTNode(DblPt(1, 1)), SPTNode(DblPt(3, 0))};
    SPTNode* line[] = {&nodes[0], &nodes[1], &nodes[2]};
    engine.current = engine.At(0, 0);
    engine.current->cost = 0;
    nodes[0].inTree = 1;
    engine.AddNeighborsToPQ(line, 3, 1);
    EXPECT_EQ(PointsOf(*engine.pq), (Points{{3, 0}}));
    EXPECT_EQ(nodes[0].cost, kUnreached);
    engine.pq->clear();
}

/// The queue stays as it is where nothing improves, even unsorted.
TEST(SPTEngine, WithoutAnImprovementNothingIsSorted) {
    Engine engine({{{0, 0}, {2, 0}, {2, 5}}, {{9, 9}, {0, 1}}});
    ASSERT_TRUE(engine.EnterStartVertex(DblPt(0, 0)));
    ASSERT_TRUE(engine.AddVertexNodeToPQ(engine.At(0, 1)));
    engine.AddNeighborsToPQ(engine.nodePolys[0], 3, 0);
    engine.SetPQFromCurrentTreeNode();
    EXPECT_EQ(PointsOf(*engine.pq), (Points{{2, 0}, {0, 1}}));
    engine.current = engine.At(2, 0);
    engine.SetPQFromCurrentTreeNode();
    EXPECT_EQ(PointsOf(*engine.pq), (Points{{0, 1}, {2, 0}, {2, 5}}));
}

TEST(SPTEngine, ACurrentNodeOfTheHostHasNoNeighbours) {
    Engine engine({{{0, 0}, {2, 0}, {2, 5}}});
    SPTNode own(DblPt(2, 0));
    own.cost = 0;
    engine.current = &own;
    engine.SetPQFromCurrentTreeNode();
    EXPECT_TRUE(engine.pq->empty());
    SPTNode nan(DblPt(kNan, 0));
    engine.current = &nan;
    engine.SetPQFromCurrentTreeNode();
    EXPECT_TRUE(engine.pq->empty());
}

/// Between searches a host may reset the nodes and empty the queue itself.
TEST(SPTEngine, HostsMayResetByHand) {
    Engine engine({{{0, 0}, {1, 0}, {1, 10}}, {{0, 0}, {0, 5}, {1, 10}}});
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(engine.EnterStartVertex(DblPt(0, 0)));
        const SPTNode* node = nullptr;
        ASSERT_TRUE(engine.NextNode(node));
        EXPECT_TRUE(IsAt(node->pt, 1, 0));
        EXPECT_EQ(PointsOf(*engine.pq), (Points{{0, 5}, {1, 10}}));
        for (SPTNode* each : *engine.nodeList)
            each->Reset();
        engine.pq->clear();
    }
}

// ---- Assignment ----

TEST(SPTEngine, AssignmentSharesEverything) {
    Engine engine({{{0, 0}, {2, 0}, {2, 5}}});
    ASSERT_TRUE(engine.EnterStartVertex(DblPt(0, 0)));
    SPTEngine other(nullptr, 0);
    delete other.nodeList;
    delete other.pq;
    other = engine;
    EXPECT_EQ(other.polylines, engine.polylines);
    EXPECT_EQ(other.polylineCount, 1u);
    EXPECT_EQ(other.nodeList, engine.nodeList);
    EXPECT_EQ(other.pq, engine.pq);
    EXPECT_EQ(other.nodePolys, engine.nodePolys);
    EXPECT_EQ(other.current, engine.current);
    // A search goes on with either.
    const SPTNode* node = nullptr;
    ASSERT_TRUE(other.NextNode(node));
    EXPECT_TRUE(IsAt(node->pt, 2, 0));
    EXPECT_EQ(engine.current, engine.At(0, 0));
    ASSERT_TRUE(engine.NextNode(node));
    EXPECT_TRUE(IsAt(node->pt, 2, 5));
    ASSERT_TRUE(other.BuildSPT(DblPt(2, 5)));
    EXPECT_TRUE(engine.IsOnPath(DblPt(0, 0)));
    // One of the two lets go.
    engine.polylines = nullptr;
    engine.nodeList = engine.pq = nullptr;
    engine.nodePolys = nullptr;
    engine.current = nullptr;
}

/// The one that was assigned from goes first; the other one has the nodes still.
TEST(SPTEngine, NodesLiveAsLongAsEitherEngine) {
    SPTEngine other(nullptr, 0);
    delete other.nodeList;
    delete other.pq;
    {
        Engine engine({{{0, 0}, {2, 0}, {2, 5}}});
        other = engine;
        engine.polylines = nullptr;
        engine.nodeList = engine.pq = nullptr;
        engine.nodePolys = nullptr;
    }
    ASSERT_TRUE(other.BuildSPT(DblPt(0, 0)));
    EXPECT_EQ(PointsOf(other.GenerateSPPolyline(DblPt(2, 5))), (Points{{2, 5}, {2, 0}, {0, 0}}));
}

/// A host may take the fields of the assigned engine back.
TEST(SPTEngine, FieldsMayBePutBack) {
    Engine engine({{{0, 0}, {2, 0}}});
    SPTEngine other(nullptr, 0);
    auto* const nodeList = other.nodeList;
    auto* const queue = other.pq;
    other = engine;
    other.polylines = nullptr;
    other.nodeList = nodeList;
    other.pq = queue;
    other.nodePolys = nullptr;
    other.current = nullptr;
    std::list<SPTNode*>::const_iterator it;
    EXPECT_FALSE(other.FindNode(DblPt(2, 0), it));
    EXPECT_TRUE(it == nodeList->end());
    ASSERT_TRUE(engine.FindNode(DblPt(2, 0), it));
    EXPECT_TRUE(IsAt((*it)->pt, 2, 0));
}

TEST(SPTEngine, SelfAssignmentChangesNothing) {
    Engine engine({{{0, 0}, {2, 0}, {2, 5}}});
    SPTEngine& same = engine;
    engine = static_cast<Engine&>(same);
    ASSERT_TRUE(engine.BuildSPT(DblPt(0, 0)));
    EXPECT_EQ(PointsOf(*engine.nodeList), (Points{{0, 0}, {2, 0}, {2, 5}}));
}

// ---- Debug output ----

TEST(SPTEngine, PrintNodePolys) {
    Engine engine({{{0, 0.5}, {-2, 0}, {kNan, 3}}, {{1e7, -2.25}, {0, 0.5}}});
    TakeDebugTexts();
    engine.PrintNodePolys();
    EXPECT_EQ(TakeDebugTexts(),
              (std::vector<std::string>{"PolylineGeom {\n", "{0.000000, 0.500000},\n", "{-2.000000, 0.000000},\n",
                                        "{nan, 3.000000},\n", "};\n\n", "PolylineGeom {\n",
                                        "{10000000.000000, -2.250000},\n", "{0.000000, 0.500000},\n", "};\n\n"}));
    // The coordinates are those of the nodes.
    Engine zeros({{{0.0, 1}, {2, 2}}, {{-0.0, 1}, {3, 3}}});
    zeros.PrintNodePolys();
    EXPECT_EQ(TakeDebugTexts()[5], "{0.000000, 1.000000},\n");
}

/// Vertices without a node that are there no longer.
TEST(SPTEngine, PrintNodePolysOfPolylinesThatWereCut) {
    Engine engine({{{0, 0.5}, {kNan, 3}, {kNan, 4}}, {{kNan, 5}, {7, 8}}, {{kNan, 9}}});
    engine.polylines[0]->nPts = 2;
    delete engine.polylines[1];
    engine.polylines[1] = nullptr;
    engine.polylineCount = 2;
    TakeDebugTexts();
    engine.PrintNodePolys();
    engine.polylineCount = 3;
    EXPECT_EQ(
        TakeDebugTexts(),
        (std::vector<std::string>{"PolylineGeom {\n", "{0.000000, 0.500000},\n", "{nan, 3.000000},\n", "{nan, nan},\n",
                                  "};\n\n", "PolylineGeom {\n", "{nan, nan},\n", "{7.000000, 8.000000},\n", "};\n\n",
                                  "PolylineGeom {\n", "{nan, nan},\n", "};\n\n"}));
}

TEST(SPTEngine, PrintPQ) {
    Engine engine({{{0, 0}, {2, 0}, {2, 5}}, {{0, 0}, {0, 1}}});
    TakeDebugTexts();
    engine.PrintPQ();
    EXPECT_EQ(TakeDebugTexts(), (std::vector<std::string>{"Priority Queue: {\n", "};\n\n"}));
    ASSERT_TRUE(engine.EnterStartVertex(DblPt(0, 0)));
    engine.PrintPQ();
    EXPECT_EQ(TakeDebugTexts(), (std::vector<std::string>{"Priority Queue: {\n", "{0.000000, 1.000000},\n",
                                                          "{2.000000, 0.000000},\n", "};\n\n"}));
}

TEST(SPTEngine, WithoutANetworkNothingIsPrinted) {
    SPTEngine engine(nullptr, 0);
    TakeDebugTexts();
    engine.PrintNodePolys();
    EXPECT_EQ(TakeDebugTexts(), std::vector<std::string>{});
    engine.PrintPQ();
    EXPECT_EQ(TakeDebugTexts(), (std::vector<std::string>{"Priority Queue: {\n", "};\n\n"}));
}

}  // namespace
