// SPDX-License-Identifier: MIT

// What makes searches fast: the queue of whole searches, the index of the list that single steps work on, how nodes
// and neighbours are found. How much work they take is counted.

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cfloat>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <list>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "paths/monotone_queue.h"
#include "paths/spt_network.h"
#include "paths/spt_networks.h"
#include "paths/spt_queue_index.h"
#include "paths/spt_search.h"
#include "paths/spt_state.h"
#include "support/random_numbers.h"

namespace {

using paths_tests::Network;
using paths_tests::NewArray;
using paths_tests::Polyline;
using support::RandomNumbers;
using Vellum::DblPt;
using Vellum::PolylineGeom;
using Vellum::SPTEngine;
using Vellum::SPTNode;
using Vellum::internal::EdgeCost;
using Vellum::internal::MonotoneQueue;
using Vellum::internal::SearchOutcome;
using Vellum::internal::SPTNetwork;
using Vellum::internal::SPTQueueIndex;

constexpr uint32_t kNone = SPTNetwork::kNone;

std::unique_ptr<SPTEngine> NewEngine(const Network& network) {
    return std::make_unique<SPTEngine>(NewArray(network), static_cast<unsigned>(network.size()));
}

/// A square grid with lines at random distances.
Network RandomGrid(size_t side, RandomNumbers& random) {
    std::vector<double> places{0};
    while (places.size() < side)
        places.push_back(places.back() + random.Within(1, 2));
    Network network;
    for (const double y : places) {
        network.emplace_back();
        for (const double x : places)
            network.back().push_back(DblPt(x, y));
    }
    for (const double x : places) {
        network.emplace_back();
        for (const double y : places)
            network.back().push_back(DblPt(x, y));
    }
    return network;
}

/// Random vertices, each on two or three polylines.
Network RandomWeb(size_t vertices, RandomNumbers& random) {
    Polyline points;
    while (points.size() < vertices)
        points.push_back(DblPt(random.Within(0, 100), random.Within(0, 100)));
    Network network;
    for (size_t i = 0; i < vertices; ++i)
        network.push_back({points[i], points[random.Below(vertices)], points[random.Below(vertices)]});
    return network;
}

// ---- The cost of an edge ----

TEST(SPTEdgeCost, IsTheOctagonalEstimate) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    RandomNumbers random(1);
    for (int i = 0; i < 10000; ++i) {
        const auto coordinate = [&random] { return random.Within(-1, 1) * std::ldexp(1, random.Between(-9, 9)); };
        const DblPt a(coordinate(), coordinate());
        const DblPt b(random.OneIn(5) ? a.x : coordinate(), random.OneIn(5) ? a.y : coordinate());
        ASSERT_EQ(EdgeCost(a, b), a.ApproxDist(b));
        ASSERT_EQ(EdgeCost(b, a), a.ApproxDist(b));
    }
    EXPECT_EQ(EdgeCost(DblPt(0, 0), DblPt(kInfinity, 3)), kInfinity);
    EXPECT_TRUE(std::isnan(EdgeCost(DblPt(kInfinity, 0), DblPt(kInfinity, 3))));
    EXPECT_TRUE(std::isnan(EdgeCost(DblPt(0, -kInfinity), DblPt(3, -kInfinity))));
}

// ---- The queue of whole searches ----

using Item = std::pair<double, uint32_t>;

std::vector<Item> TakeAll(MonotoneQueue& queue) {
    std::vector<Item> items;
    Item item;
    while (queue.Pop(item.first, item.second))
        items.push_back(item);
    return items;
}

TEST(MonotoneQueue, TakesOffByAscendingCost) {
    MonotoneQueue queue;
    ASSERT_TRUE(queue.Clear());
    const std::vector<Item> pushed{{3.5, 1}, {0.0, 2}, {DBL_MAX, 3}, {1e-300, 4}, {5e-324, 5}, {3.25, 6}, {1e300, 7}};
    for (const auto& [cost, item] : pushed)
        ASSERT_TRUE(queue.Push(cost, item));
    EXPECT_EQ(TakeAll(queue),
              (std::vector<Item>{{0.0, 2}, {5e-324, 5}, {1e-300, 4}, {3.25, 6}, {3.5, 1}, {1e300, 7}, {DBL_MAX, 3}}));
    EXPECT_EQ(TakeAll(queue), std::vector<Item>{});
}

TEST(MonotoneQueue, TakesOffEqualCostsAsPushed) {
    MonotoneQueue queue;
    ASSERT_TRUE(queue.Clear());
    for (const auto& [cost, item] : std::vector<Item>{{7, 1}, {5, 2}, {7, 3}, {5, 4}, {6, 5}, {7, 6}, {5, 7}})
        ASSERT_TRUE(queue.Push(cost, item));
    Item first;
    ASSERT_TRUE(queue.Pop(first.first, first.second));
    EXPECT_EQ(first, (Item{5, 2}));
    // Also those that come when others of that cost have been taken off, or have been dealt to other buckets.
    ASSERT_TRUE(queue.Push(5, 8));
    ASSERT_TRUE(queue.Push(7, 9));
    EXPECT_EQ(TakeAll(queue), (std::vector<Item>{{5, 4}, {5, 7}, {5, 8}, {6, 5}, {7, 1}, {7, 3}, {7, 6}, {7, 9}}));
}

TEST(MonotoneQueue, ClearForgets) {
    MonotoneQueue queue;
    ASSERT_TRUE(queue.Clear());
    for (uint32_t i = 0; i < 100; ++i)
        ASSERT_TRUE(queue.Push(50 + i % 7, i));
    Item item;
    ASSERT_TRUE(queue.Pop(item.first, item.second));
    ASSERT_TRUE(queue.Clear());
    EXPECT_FALSE(queue.Pop(item.first, item.second));
    // Lower than what was taken off before.
    ASSERT_TRUE(queue.Push(2, 1));
    ASSERT_TRUE(queue.Push(1, 2));
    EXPECT_EQ(TakeAll(queue), (std::vector<Item>{{1, 2}, {2, 1}}));
}

/// Against a map that keeps equal costs in the order in which they came.
TEST(MonotoneQueue, RandomCosts) {
    for (uint64_t seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE(seed);
        RandomNumbers random(seed);
        MonotoneQueue queue;
        ASSERT_TRUE(queue.Clear());
        std::multimap<double, uint32_t> expected;
        double least = 0;
        const int scale = random.Between(-40, 40);
        const bool isWhole = random.OneIn(2);
        for (uint32_t i = 0; i < 400; ++i) {
            if (random.OneIn(2) || expected.empty()) {
                const double more = isWhole ? random.Between(0, 4) : random.Unit() * random.Unit();
                const double cost = least + std::ldexp(more, random.OneIn(9) ? 0 : scale);
                ASSERT_TRUE(queue.Push(cost, i));
                expected.emplace(cost, i);
            } else {
                Item item;
                ASSERT_TRUE(queue.Pop(item.first, item.second));
                ASSERT_EQ(item, Item(*expected.begin()));
                least = item.first;
                expected.erase(expected.begin());
            }
        }
        ASSERT_EQ(TakeAll(queue), std::vector<Item>(expected.begin(), expected.end()));
    }
}

/// No item is moved more often than a cost has digits, and the usual one seldom.
TEST(MonotoneQueue, MovesFewItems) {
    RandomNumbers random(3);
    MonotoneQueue queue;
    ASSERT_TRUE(queue.Clear());
    constexpr uint32_t kItems = 100000;
    constexpr uint32_t kQueued = 1000;
    double least = 0;
    for (uint32_t i = 0; i < kItems; ++i) {
        ASSERT_TRUE(queue.Push(least + random.Unit(), i));
        uint32_t item = 0;
        ASSERT_TRUE(i < kQueued || queue.Pop(least, item));
    }
    EXPECT_GE(queue.Moves(), kItems);
    EXPECT_LT(queue.Moves(), 5 * kItems);
}

// ---- How nodes and neighbours are found ----

/// A network alone, over polylines that it does not own.
struct Joined {
    explicit Joined(const Network& given) : lines(NewArray(given)), count(given.size()) {
        EXPECT_TRUE(network.AddNodes({lines, count}));
        EXPECT_TRUE(network.Join());
    }
    Joined(const Joined&) = delete;
    Joined& operator=(const Joined&) = delete;
    ~Joined() {
        for (size_t i = 0; i < count; ++i)
            delete lines[i];
        delete[] lines;
    }

    /// The numbers before and after each occurrence of a node.
    std::vector<std::pair<uint32_t, uint32_t>> OccurrencesOf(uint32_t i) const {
        std::vector<std::pair<uint32_t, uint32_t>> all;
        for (const SPTNetwork::Occurrence& occurrence : network.OccurrencesOf(i))
            all.emplace_back(occurrence.before, occurrence.after);
        return all;
    }

    PolylineGeom** lines;
    size_t count;
    SPTNetwork network;
};

TEST(SPTNetwork, FindsNeighboursInTheOrderOfPolylinesAndVertices) {
    const Joined joined({{{0, 0}, {1, 0}, {2, 0}},
                         {{3, 0}, {1, 0}},
                         {{5, 5}},
                         {{1, 0}, {4, 0}, {1, 0}},
                         {{6, 0}, {std::nan(""), 0}, {7, 0}}});
    using Pairs = std::vector<std::pair<uint32_t, uint32_t>>;
    EXPECT_EQ(joined.network.Size(), 9u);
    EXPECT_EQ(joined.OccurrencesOf(0), (Pairs{{kNone, 1}}));
    EXPECT_EQ(joined.OccurrencesOf(1), (Pairs{{0, 2}, {3, kNone}, {kNone, 5}, {5, kNone}}));
    EXPECT_EQ(joined.OccurrencesOf(4), (Pairs{{kNone, kNone}}));
    EXPECT_EQ(joined.OccurrencesOf(5), (Pairs{{1, 1}}));
    EXPECT_EQ(joined.OccurrencesOf(6), (Pairs{{kNone, kNone}}));
    EXPECT_EQ(joined.OccurrencesOf(7), Pairs{});
    EXPECT_EQ(joined.network.Past(1, 0), kNone);
    EXPECT_EQ(joined.network.Past(5, 1), 1u);
    EXPECT_EQ(joined.network.Past(0, 1), kNone);
    EXPECT_EQ(joined.network.Past(2, 1), kNone);
}

TEST(SPTNetwork, GoesOnAlongChains) {
    const Joined joined({{{0, 0}, {1, 0}, {2, 0}, {3, 0}}, {{8, 8}, {3, 0}}});
    EXPECT_EQ(joined.network.Past(1, 0), 2u);
    EXPECT_EQ(joined.network.Past(1, 2), 0u);
    EXPECT_EQ(joined.network.Past(3, 2), kNone);
    EXPECT_TRUE(joined.network.ConsistsOfChains());
    const Joined crossed({{{0, 0}, {1, 0}, {2, 0}}, {{0, 0}, {1, 0}, {2, 0}}});
    EXPECT_FALSE(crossed.network.ConsistsOfChains());
}

TEST(SPTNetwork, HasNoNeighboursUntilJoined) {
    PolylineGeom** const lines = NewArray({{{0, 0}, {1, 0}, {2, 0}}});
    SPTNetwork network;
    ASSERT_TRUE(network.AddNodes({lines, 1}));
    ASSERT_EQ(network.OccurrencesOf(1).size(), 1u);
    EXPECT_EQ(network.OccurrencesOf(1)[0].before, kNone);
    EXPECT_EQ(network.OccurrencesOf(1)[0].after, kNone);
    ASSERT_TRUE(network.Join());
    EXPECT_EQ(network.OccurrencesOf(1)[0].before, 0u);
    network.Clear();
    EXPECT_EQ(network.Size(), 0u);
    EXPECT_EQ(network.LineCount(), 0u);
    EXPECT_EQ(network.Find(DblPt(1, 0)), kNone);
    delete lines[0];
    delete[] lines;
}

/// More nodes than there was room for: what stood in the table is found still.
TEST(SPTNetwork, FindsEarlierNodesInALargerTable) {
    Network few{{{1, 1}, {std::nan(""), 1}, {2, 1}, {1, 1}}};
    Network many(1);
    for (int i = 0; i < 3000; ++i)
        many[0].push_back(DblPt(i, 1));
    const Joined joined(few);
    PolylineGeom** const lines = NewArray(many);
    SPTNetwork network;
    ASSERT_TRUE(network.AddNodes({joined.lines, 1}));
    ASSERT_TRUE(network.AddNodes({lines, 1}));
    EXPECT_EQ(network.Size(), 3004u);
    EXPECT_EQ(network.Find(DblPt(1, 1)), 0u);
    EXPECT_EQ(network.Find(DblPt(2, 1)), 2u);
    EXPECT_EQ(network.Find(DblPt(0, 1)), 4u);
    EXPECT_EQ(network.Find(DblPt(2999, 1)), 3003u);
    EXPECT_EQ(network.Find(DblPt(3000, 1)), kNone);
    delete lines[0];
    delete[] lines;
}

/// Coordinates that have few bits in common with random ones: grids of whole numbers, of powers of two, of multiples
/// of a tenth, far off, on a line, and many NaN.
TEST(SPTNetwork, LooksAtFewPlaces) {
    const auto probesPerVertex = [](const auto& pointAt) {
        Network network(1);
        for (int i = 0; i < 200; ++i)
            for (int k = 0; k < 200; ++k)
                network[0].push_back(pointAt(i, k));
        const Joined joined(network);
        for (const DblPt& p : network[0])
            joined.network.Find(p);
        return static_cast<double>(joined.network.Probes()) / 80000;
    };
    EXPECT_LT(probesPerVertex([](int i, int k) { return DblPt(i, k); }), 1.3);
    EXPECT_LT(probesPerVertex([](int i, int k) { return DblPt(k, -i); }), 1.3);
    EXPECT_LT(probesPerVertex([](int i, int k) { return DblPt(i * 4096.0, k * 65536.0); }), 1.3);
    EXPECT_LT(probesPerVertex([](int i, int k) { return DblPt(std::ldexp(1, i), std::ldexp(1, k)); }), 1.3);
    EXPECT_LT(probesPerVertex([](int i, int k) { return DblPt(i * 0.1, k * 0.1); }), 1.3);
    EXPECT_LT(probesPerVertex([](int i, int k) { return DblPt(1e9 + i, -1e9 - k); }), 1.3);
    EXPECT_LT(probesPerVertex([](int i, int k) { return DblPt(0, i * 200 + k); }), 1.3);
    EXPECT_LT(probesPerVertex([](int i, int k) { return DblPt(i * 200 + k, i * 200 + k); }), 1.3);
    EXPECT_EQ(probesPerVertex([](int i, int) { return DblPt(i, std::nan("")); }), 0.0);
    // A point that is repeated so often is found at once.
    EXPECT_LT(probesPerVertex([](int, int k) { return DblPt(k, 0); }), 1.05);
}

// ---- Whole searches ----

struct Result {
    SearchOutcome outcome;
    DblPt last;
    uint64_t moves;
};

template <class Search>
Result Run(Search search, const Joined& joined, const DblPt& start) {
    joined.network.Reset();
    MonotoneQueue queue;
    SPTNode* last = nullptr;
    const SearchOutcome outcome = search(joined.network, queue, joined.network.Find(start), last);
    return {outcome, outcome == SearchOutcome::Complete ? last->pt : DblPt(-1, -1), queue.Moves()};
}

Result RunAlongChains(const Joined& joined, const DblPt& start) {
    return Run(Vellum::internal::SearchAlongChains, joined, start);
}

TEST(SPTSearch, WalksChainsWithoutQueueingThem) {
    Network network{{{0, 0}}, {{1000, 0}}, {{1000, 0}, {1000, 3}}};
    for (int i = 0; i <= 1000; ++i) {
        network[0].push_back(DblPt(i + 0.5 * (i % 2), 1));
        network[1].push_back(DblPt(1000 - i - 0.25 * (i % 3), 2));
    }
    network[1].push_back(DblPt(0, 0));
    const Joined joined(network);
    const Result result = RunAlongChains(joined, DblPt(0, 0));
    EXPECT_EQ(result.outcome, SearchOutcome::Complete);
    // The start, and the ends of the three polylines.
    EXPECT_LT(result.moves, 20u);
    for (uint32_t i = 0; i < joined.network.Size(); ++i)
        ASSERT_TRUE(joined.network[i].inTree) << i;
}

TEST(SPTSearch, GivesUpWhereOnlyTheOrderCanTell) {
    const Joined square({{{0, 0}, {6, 0}, {6, 6}}, {{0, 0}, {0, 6}, {6, 6}}});
    EXPECT_EQ(RunAlongChains(square, DblPt(0, 0)).outcome, SearchOutcome::Undecided);
    // Two farthest nodes, from nodes of equal cost.
    const Joined cross({{{0, 0}, {1, 0}, {3, 0}}, {{0, 0}, {0, 1}, {0, 3}}});
    EXPECT_EQ(RunAlongChains(cross, DblPt(0, 0)).outcome, SearchOutcome::Undecided);
    // From a cheaper and a dearer one: the latter was expanded later.
    const Joined uneven({{{0, 0}, {1, 0}, {3, 0}}, {{0, 0}, {0, 2}, {0, 3}}});
    const Result result = RunAlongChains(uneven, DblPt(0, 0));
    EXPECT_EQ(result.outcome, SearchOutcome::Complete);
    EXPECT_EQ(result.last.y, 3);
    // Neighbours of the same cost, one of which is reached over the other: the edges between them vanish in the sum.
    const Joined ring({{{-6, -2}, {0, -2}, {0, -1e-17}, {0, 0}, {-1e-17, 0}, {-6, 0}, {-6, -2}}});
    EXPECT_EQ(RunAlongChains(ring, DblPt(-6, -2)).outcome, SearchOutcome::Undecided);
    // A tie that a node dearer than both breaks.
    const Joined beyond({{{0, 0}, {1, 0}, {3, 0}}, {{0, 0}, {0, 1}, {0, 3}}, {{0, 0}, {-9, 0}}});
    EXPECT_EQ(RunAlongChains(beyond, DblPt(0, 0)).last.x, -9);
}

// ---- How the work grows ----

struct Work {
    uint64_t probes;      ///< of the table of nodes, in construction
    uint64_t moves;       ///< in the queue of a whole search
    uint64_t placed;      ///< in the queue of a search by steps
    uint64_t stepProbes;  ///< of the table of nodes, in that search
    uint64_t visited;     ///< occurrences of nodes in the whole search
    uint64_t stepVisits;  ///< and in the one by steps
};

Work WorkFor(const Network& network) {
    const std::unique_ptr<SPTEngine> engine = NewEngine(network);
    Work work{};
    work.probes = engine->state->network.Probes();
    const DblPt start = network[network.size() / 2][0];
    EXPECT_TRUE(engine->BuildSPT(start));
    work.visited = engine->state->network.Visited();
    work.moves = engine->state->queue.Moves();
    for (SPTNode* node : *engine->nodeList)
        node->Reset();
    const uint64_t probes = engine->state->network.Probes();
    EXPECT_TRUE(engine->EnterStartVertex(start));
    const SPTNode* node = nullptr;
    while (engine->NextNode(node)) {
    }
    work.placed = engine->state->queueIndex.Placed();
    work.stepProbes = engine->state->network.Probes() - probes;
    work.stepVisits = engine->state->network.Visited() - work.visited;
    return work;
}

/// Sixteen times the vertices take sixteen times the work, and what the logarithm adds.
void ExpectNearlyLinear(const Work& small, const Work& large) {
    const auto ratio = [](uint64_t a, uint64_t b) { return static_cast<double>(b) / static_cast<double>(a); };
    EXPECT_GT(small.moves, 0u);
    EXPECT_LT(ratio(small.probes, large.probes), 18);
    EXPECT_LT(ratio(small.moves, large.moves), 24);
    EXPECT_LT(ratio(small.placed, large.placed), 18);
    EXPECT_LT(ratio(small.stepProbes, large.stepProbes), 18);
    EXPECT_LT(ratio(small.stepVisits, large.stepVisits), 18);
}

TEST(SPTWork, GrowsNearlyLinearlyOnGrids) {
    RandomNumbers random(4);
    const Work small = WorkFor(RandomGrid(30, random));
    const Work large = WorkFor(RandomGrid(120, random));
    constexpr uint64_t kNodes = uint64_t{120} * 120;
    EXPECT_LT(large.probes, 3 * kNodes);
    EXPECT_LT(large.moves, 4 * kNodes);
    EXPECT_LT(large.placed, 2 * kNodes);
    EXPECT_LT(large.stepProbes, 2 * kNodes);
    // Each node is expanded once in a whole search, and by steps as often as it was queued.
    EXPECT_EQ(large.visited, 2 * kNodes);
    EXPECT_GE(large.stepVisits, 2 * kNodes);
    EXPECT_LT(large.stepVisits, 3 * kNodes);
    ExpectNearlyLinear(small, large);
}

TEST(SPTWork, GrowsNearlyLinearlyOnRandomNetworks) {
    RandomNumbers random(5);
    const Work small = WorkFor(RandomWeb(1000, random));
    const Work large = WorkFor(RandomWeb(16000, random));
    constexpr uint64_t kNodes = 16000;
    EXPECT_LT(large.probes, 4 * kNodes);
    EXPECT_LT(large.moves, 7 * kNodes);
    EXPECT_LT(large.placed, 2 * kNodes);
    EXPECT_LT(large.stepProbes, 2 * kNodes);
    EXPECT_GE(large.visited, 2 * kNodes);
    EXPECT_LE(large.visited, 3 * kNodes);
    EXPECT_GE(large.stepVisits, large.visited);
    EXPECT_LT(large.stepVisits, 5 * kNodes);
    ExpectNearlyLinear(small, large);
}

/// The list is passed once, however many nodes are looked for.
TEST(SPTWork, FindNodeKnowsTheList) {
    RandomNumbers random(6);
    const Network network = RandomGrid(50, random);
    const std::unique_ptr<SPTEngine> engine = NewEngine(network);
    std::list<SPTNode*>::const_iterator it;
    for (const Polyline& line : network)
        for (const DblPt& p : line)
            ASSERT_TRUE(engine->FindNode(p, it) && (*it)->pt.IsExactly(p));
    EXPECT_EQ(engine->state->listSteps, 2500u);
}

// ---- The index of the list ----

/// A list of nodes at costs, in which a node is changed and appended.
struct Indexed {
    explicit Indexed(const std::vector<double>& costs) {
        for (const double cost : costs) {
            nodes.emplace_back(std::make_unique<SPTNode>(DblPt(static_cast<double>(nodes.size()), 0)));
            nodes.back()->cost = cost;
            queue.push_back(nodes.back().get());
        }
    }

    void Append(size_t i, double cost) {
        nodes[i]->cost = cost;
        queue.push_back(nodes[i].get());
    }

    std::vector<int> Order() const {
        std::vector<int> order;
        for (const SPTNode* node : queue)
            order.push_back(static_cast<int>(node->pt.x));
        return order;
    }

    std::vector<std::unique_ptr<SPTNode>> nodes;
    SPTQueueIndex::Queue queue;
    SPTQueueIndex index;
};

using Order = std::vector<int>;

TEST(SPTQueueIndex, MovesWhatHasChangedAndNothingElse) {
    Indexed list({1, 2, 3, 3, 5, 8});
    list.index.Follow(list.queue);
    EXPECT_EQ(list.index.Placed(), 6u);
    list.Append(5, 3);
    list.index.Sort(list.queue, 1);
    EXPECT_EQ(list.Order(), (Order{0, 1, 2, 3, 5, 5, 4}));
    // Its entry and the new one.
    EXPECT_EQ(list.index.Placed(), 8u);
    list.Append(5, 1);
    list.Append(4, 1);
    list.index.Sort(list.queue, 2);
    EXPECT_EQ(list.Order(), (Order{0, 5, 5, 4, 5, 4, 1, 2, 3}));
    EXPECT_EQ(list.index.Placed(), 13u);
    list.index.PopFront(list.queue);
    list.index.PopFront(list.queue);
    EXPECT_EQ(list.Order(), (Order{5, 4, 5, 4, 1, 2, 3}));
    // Followed already.
    list.index.Follow(list.queue);
    EXPECT_EQ(list.index.Placed(), 13u);
    list.Append(3, 1.5);
    list.index.Sort(list.queue, 1);
    EXPECT_EQ(list.Order(), (Order{5, 4, 5, 4, 3, 3, 1, 2}));
}

TEST(SPTQueueIndex, SortsAllWhatItDoesNotFollow) {
    Indexed list({4, 2, 3, 2});
    list.index.Follow(list.queue);
    EXPECT_EQ(list.index.Placed(), 0u);
    list.Append(0, 3);
    list.index.Sort(list.queue, 1);
    EXPECT_EQ(list.Order(), (Order{1, 3, 0, 2, 0}));
    EXPECT_EQ(list.index.Placed(), 0u);
    list.index.PopFront(list.queue);
    EXPECT_EQ(list.Order(), (Order{3, 0, 2, 0}));
}

TEST(SPTQueueIndex, DoesNotFollowNanCosts) {
    Indexed list({1, 2, std::nan("")});
    list.index.Follow(list.queue);
    EXPECT_EQ(list.index.Placed(), 0u);
    Indexed turning({1, 2, 3});
    turning.index.Follow(turning.queue);
    turning.Append(0, std::nan(""));
    turning.index.Sort(turning.queue, 1);
    SPTQueueIndex::Queue expected{turning.nodes[0].get(), turning.nodes[1].get(), turning.nodes[2].get(),
                                  turning.nodes[0].get()};
    expected.sort([](const SPTNode* a, const SPTNode* b) { return a->cost < b->cost; });
    EXPECT_EQ(turning.queue, expected);
    EXPECT_EQ(turning.index.Placed(), 3u);
}

TEST(SPTQueueIndex, NoticesWhatTheHostDidToTheQueue) {
    Indexed list({1, 2, 3});
    list.index.Follow(list.queue);
    list.queue.clear();
    list.index.Follow(list.queue);
    for (const int i : {0, 2})
        list.queue.push_back(list.nodes[static_cast<size_t>(i)].get());
    list.index.Follow(list.queue);
    EXPECT_EQ(list.index.Placed(), 5u);
    list.queue.reverse();
    list.index.Follow(list.queue);
    list.Append(1, 2);
    list.index.Sort(list.queue, 1);
    EXPECT_EQ(list.Order(), (Order{0, 1, 2}));
    // Another queue is another matter.
    SPTQueueIndex::Queue other{list.nodes[1].get()};
    list.index.Follow(other);
    EXPECT_EQ(list.index.Placed(), 6u);
    list.index.PopFront(other);
    EXPECT_TRUE(other.empty());
}

}  // namespace
