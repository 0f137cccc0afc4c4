// SPDX-License-Identifier: MIT

// The shortest-path tree with memory that runs out at one allocation after another.

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <limits>
#include <list>
#include <memory>
#include <new>
#include <vector>

#include "paths/spt_networks.h"
#include "paths/spt_queue_index.h"
#include "support/allocation_guard.h"
#include "support/malloc_guard.h"
#include "vellum/shortest_paths.h"

namespace {

using paths_tests::Network;
using paths_tests::NewArray;
using support::AllocationGuard;
using support::MallocGuard;
using Vellum::DblPt;
using Vellum::PolylineGeom;
using Vellum::SPTEngine;
using Vellum::SPTNode;
using Vellum::internal::SPTQueueIndex;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// A start with more neighbours than a queue has room for at first, and a way that is improved.
Network Star() {
    Network network{{{0, 0}, {1, 0}, {1, 10}}, {{0, 0}, {0, 5}, {1, 10}}};
    for (int i = 0; i < 700; ++i)
        network.push_back({DblPt(0, 0), DblPt(-1 - i % 30, i + 1)});
    return network;
}

std::unique_ptr<SPTEngine> NewEngine(const Network& network) {
    return std::make_unique<SPTEngine>(NewArray(network), static_cast<unsigned>(network.size()));
}

bool IsReset(const SPTEngine& engine) {
    if (!engine.pq->empty()) return false;
    for (const SPTNode* node : *engine.nodeList)
        if (node->inTree != 0 || node->inQueue != 0 || node->parent != nullptr) return false;
    return true;
}

std::vector<double> Costs(const SPTEngine& engine) {
    std::vector<double> costs;
    for (const SPTNode* node : *engine.nodeList)
        costs.push_back(node->cost);
    return costs;
}

void ExpectWithoutNodes(SPTEngine& engine) {
    EXPECT_TRUE(engine.nodeList == nullptr || engine.nodeList->empty());
    EXPECT_TRUE(engine.pq == nullptr || engine.pq->empty());
    EXPECT_EQ(engine.nodePolys, nullptr);
    EXPECT_EQ(engine.current, nullptr);
    EXPECT_FALSE(engine.BuildSPT(DblPt(0, 0)));
    EXPECT_FALSE(engine.EnterStartVertex(DblPt(0, 0)));
    const SPTNode* node = nullptr;
    EXPECT_FALSE(engine.NextNode(node));
    EXPECT_FALSE(engine.IsOnPath(DblPt(0, 0)));
    EXPECT_EQ(engine.GenerateSPPolyline(DblPt(0, 0)), nullptr);
    std::list<SPTNode*>::const_iterator it;
    EXPECT_FALSE(engine.FindNode(DblPt(0, 0), it));
    SPTNode own(DblPt(1, 1));
    SPTNode* line[] = {&own, &own};
    engine.SetPQFromCurrentTreeNode();
    engine.AddNeighborsToPQ(line, 2, 0);
    EXPECT_FALSE(engine.AddVertexNodeToPQ(&own));
    engine.PrintNodePolys();
    engine.PrintPQ();
}

/// However many allocations succeed, an engine is whole or has no nodes, and frees what it was given.
TEST(ShortestPathsMemory, Construction) {
    const Network network = Star();
    size_t allowed = 0;
    for (bool isWhole = false; !isWhole; ++allowed) {
        SCOPED_TRACE(allowed);
        ASSERT_LT(allowed, 2000u);
        PolylineGeom** const array = NewArray(network);
        alignas(SPTEngine) unsigned char memory[sizeof(SPTEngine)];
        SPTEngine* engine = nullptr;
        {
            const AllocationGuard guard(allowed);
            engine = new (memory) SPTEngine(array, static_cast<unsigned>(network.size()));
        }
        isWhole = engine->nodePolys != nullptr;
        if (isWhole) {
            EXPECT_EQ(engine->nodeList->size(), 704u);
            EXPECT_TRUE(engine->BuildSPT(DblPt(0, 0)));
            EXPECT_TRUE(engine->IsOnPath(DblPt(1, 10)));
        } else {
            ExpectWithoutNodes(*engine);
        }
        engine->~SPTEngine();
    }
    // One for each node in the list, at the least.
    EXPECT_GT(allowed, 704u);
}

/// More nodes than fit in the memory that is asked for at first.
TEST(ShortestPathsMemory, ConstructionOfManyNodes) {
    Network network(1);
    for (int i = 0; i < 5000; ++i)
        network[0].push_back(DblPt(i, 0));
    for (size_t allowed = 0; allowed < 16; ++allowed) {
        SCOPED_TRACE(allowed);
        SPTEngine engine(nullptr, 0);
        engine.polylines = NewArray(network);
        engine.polylineCount = 1;
        {
            const AllocationGuard guard(allowed);
            engine.InitNodeList();
        }
        ExpectWithoutNodes(engine);
        engine.InitNodeList();
        engine.InitNodePolys();
        EXPECT_EQ(engine.nodeList->size(), 5000u);
        EXPECT_TRUE(engine.BuildSPT(DblPt(0, 0)));
        EXPECT_TRUE(engine.IsOnPath(DblPt(4999, 0)));
    }
}

TEST(ShortestPathsMemory, AnEngineWithoutMemoryGetsItLater) {
    SPTEngine engine(nullptr, 0);
    engine.polylines = NewArray(Star());
    engine.polylineCount = 702;
    for (const size_t allowed : {0U, 1U, 4U, 7U, 20U}) {
        const AllocationGuard guard(allowed);
        engine.InitNodeList();
        engine.InitNodePolys();
    }
    ExpectWithoutNodes(engine);
    engine.InitNodeList();
    engine.InitNodePolys();
    EXPECT_EQ(engine.nodeList->size(), 704u);
    EXPECT_TRUE(engine.BuildSPT(DblPt(0, 0)));
}

TEST(ShortestPathsMemory, MappingAgain) {
    const std::unique_ptr<SPTEngine> engine = NewEngine({{{0, 0}, {1, 0}, {1, 10}}});
    ASSERT_TRUE(engine->EnterStartVertex(DblPt(0, 0)));
    {
        const AllocationGuard guard(1);
        engine->InitNodePolys();
    }
    ExpectWithoutNodes(*engine);
    EXPECT_NE(engine->nodeList, nullptr);
}

/// The queue of a whole search asks for memory a few times; until it gets all of it, nothing is reached.
TEST(ShortestPathsMemory, WholeSearches) {
    const Network star = Star();
    Network chains = star;
    for (size_t i = 2; i < chains.size(); ++i)
        chains[i] = {DblPt(0, 0), DblPt(-100, static_cast<double>(i)), DblPt(-200, static_cast<double>(i))};
    for (const Network& network : {star, chains}) {
        const std::unique_ptr<SPTEngine> whole = NewEngine(network);
        ASSERT_TRUE(whole->BuildSPT(DblPt(0, 0)));
        size_t allowed = 0;
        for (bool isBuilt = false; !isBuilt; ++allowed) {
            SCOPED_TRACE(allowed);
            ASSERT_LT(allowed, 10u);
            const std::unique_ptr<SPTEngine> engine = NewEngine(network);
            {
                const AllocationGuard guard(allowed);
                isBuilt = engine->BuildSPT(DblPt(0, 0));
            }
            if (isBuilt)
                EXPECT_EQ(Costs(*engine), Costs(*whole));
            else
                EXPECT_TRUE(IsReset(*engine));
        }
        EXPECT_GT(allowed, 2u);
    }
}

/// From infinity the search goes step by step.
TEST(ShortestPathsMemory, SearchesFromInfinity) {
    const Network network{{{kInfinity, 0}, {kInfinity, 5}, {3, 3}, {4, 4}}};
    for (size_t allowed = 0; allowed < 3; ++allowed) {
        SCOPED_TRACE(allowed);
        const std::unique_ptr<SPTEngine> engine = NewEngine(network);
        bool isBuilt = true;
        {
            const AllocationGuard guard(allowed);
            isBuilt = engine->BuildSPT(DblPt(kInfinity, 0));
        }
        EXPECT_FALSE(isBuilt);
        EXPECT_TRUE(IsReset(*engine));
        EXPECT_TRUE(engine->BuildSPT(DblPt(kInfinity, 0)));
    }
}

/// A neighbour for which there is no memory stays as it was.
TEST(ShortestPathsMemory, NeighboursThatCannotBeQueued) {
    const std::unique_ptr<SPTEngine> engine = NewEngine({{{2, 0}, {0, 0}, {0, 1}}, {{0, 0}, {5, 0}}});
    {
        const AllocationGuard guard(1);
        EXPECT_TRUE(engine->EnterStartVertex(DblPt(0, 0)));
    }
    ASSERT_EQ(engine->pq->size(), 1u);
    EXPECT_EQ(engine->pq->front(), engine->nodeList->front());
    EXPECT_EQ(engine->pq->front()->cost, 0.96 * 2);
    SPTNode* const left = engine->nodePolys[0][2];
    EXPECT_EQ(left->cost, std::numeric_limits<double>::max());
    EXPECT_EQ(left->parent, nullptr);
    EXPECT_EQ(left->inQueue, 0);
    {
        const AllocationGuard guard(0);
        EXPECT_FALSE(engine->AddVertexNodeToPQ(left));
    }
    EXPECT_TRUE(engine->AddVertexNodeToPQ(left));
}

/// A list is sorted alike whether there is memory for its index or not, from whatever allocation on.
TEST(ShortestPathsMemory, ListsWithoutAnIndex) {
    for (size_t forFollowing = 0; forFollowing < 12; ++forFollowing)
        for (size_t forSorting = 0; forSorting < 8; ++forSorting) {
            SCOPED_TRACE(testing::Message() << forFollowing << ", " << forSorting);
            std::vector<SPTNode> nodes;
            for (const double x : {0, 1, 2, 3, 4})
                nodes.emplace_back(DblPt(x, 0)).cost = 2 * x;
            // The third and the fourth are queued twice, and improved together.
            SPTQueueIndex::Queue queue{&nodes[0], &nodes[1], &nodes[2], &nodes[2], &nodes[3], &nodes[3]};
            SPTQueueIndex index;
            {
                const AllocationGuard guard(forFollowing);
                index.Follow(queue);
            }
            nodes[2].cost = nodes[3].cost = 1;
            queue.push_back(&nodes[3]);
            queue.push_back(&nodes[2]);
            {
                const AllocationGuard guard(forSorting);
                index.Sort(queue, 2);
            }
            EXPECT_EQ(queue, (SPTQueueIndex::Queue{&nodes[0], &nodes[2], &nodes[2], &nodes[3], &nodes[3], &nodes[3],
                                                   &nodes[2], &nodes[1]}));
            index.Follow(queue);
            nodes[4].cost = 1;
            queue.push_back(&nodes[4]);
            index.Sort(queue, 1);
            index.PopFront(queue);
            EXPECT_EQ(queue, (SPTQueueIndex::Queue{&nodes[2], &nodes[2], &nodes[3], &nodes[3], &nodes[3], &nodes[2],
                                                   &nodes[4], &nodes[1]}));
        }
}

TEST(ShortestPathsMemory, Ways) {
    const std::unique_ptr<SPTEngine> engine = NewEngine({{{0, 0}, {1, 0}, {1, 10}, {9, 9}}});
    ASSERT_TRUE(engine->BuildSPT(DblPt(0, 0)));
    {
        const AllocationGuard guard(0);
        EXPECT_EQ(engine->GenerateSPPolyline(DblPt(9, 9)), nullptr);
    }
    {
        const MallocGuard guard(0);
        EXPECT_EQ(engine->GenerateSPPolyline(DblPt(9, 9)), nullptr);
        EXPECT_EQ(guard.Requests(), 1u);
        EXPECT_EQ(guard.LastSize(), 4 * sizeof(DblPt));
    }
    const std::unique_ptr<PolylineGeom> way(engine->GenerateSPPolyline(DblPt(9, 9)));
    EXPECT_EQ(way->NPts(), 4u);
}

TEST(ShortestPathsMemory, FindNodeNeedsNone) {
    const std::unique_ptr<SPTEngine> engine = NewEngine({{{0, 0}, {1, 0}, {1, 10}, {9, 9}}});
    std::list<SPTNode*>::const_iterator it;
    {
        const AllocationGuard guard(0);
        EXPECT_TRUE(engine->FindNode(DblPt(1, 10), it));
    }
    EXPECT_EQ(std::distance(engine->nodeList->cbegin(), it), 2);
}

}  // namespace
