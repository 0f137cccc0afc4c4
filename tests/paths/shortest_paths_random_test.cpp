// SPDX-License-Identifier: MIT

// `SPTEngine` against its reference, bit for bit: whole searches, searches step by step, and whatever else a host
// may do between the steps, on networks full of ties.

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "paths/spt_networks.h"
#include "reference/shortest_paths.h"
#include "support/debug_capture.h"
#include "support/random_numbers.h"
#include "vellum/shortest_paths.h"

namespace {

using paths_tests::Network;
using paths_tests::NewArray;
using paths_tests::Polyline;
using reference::ShortestPathTree;
using support::RandomNumbers;
using support::TakeDebugTexts;
using Vellum::DblPt;
using Vellum::PolylineGeom;
using Vellum::SPTEngine;
using Vellum::SPTNode;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

bool SameBits(double a, double b) {
    return std::bit_cast<uint64_t>(a) == std::bit_cast<uint64_t>(b) || (std::isnan(a) && std::isnan(b));
}

/// An engine and its reference over the same network.
class Pair {
public:
    explicit Pair(const Network& network)
        : engine(NewArray(network), static_cast<unsigned>(network.size())), tree(network) {
        for (const SPTNode* node : *engine.nodeList)
            engineNodes_.push_back(node);
        for (const ShortestPathTree::Node& node : tree.nodes)
            treeNodes_.push_back(&node);
        for (size_t i = 0; i < engineNodes_.size(); ++i)
            numbers_[engineNodes_[i]] = numbers_[i < treeNodes_.size() ? treeNodes_[i] : nullptr] = i;
        numbers_[nullptr] = SIZE_MAX;
    }

    size_t Size() const { return engineNodes_.size(); }
    SPTNode* EngineNode(size_t i) const { return *std::next(engine.nodeList->begin(), static_cast<std::ptrdiff_t>(i)); }
    ShortestPathTree::Node* TreeNode(size_t i) {
        return &*std::next(tree.nodes.begin(), static_cast<std::ptrdiff_t>(i));
    }

    /// Whether everything that a host can see is equal.
    testing::AssertionResult IsEqual() const {
        if (engineNodes_.size() != treeNodes_.size())
            return testing::AssertionFailure() << engineNodes_.size() << " nodes instead of " << treeNodes_.size();
        for (size_t i = 0; i < Size(); ++i) {
            const SPTNode& a = *engineNodes_[i];
            const ShortestPathTree::Node& b = *treeNodes_[i];
            if (!SameBits(a.pt.x, b.pt.x) || !SameBits(a.pt.y, b.pt.y) || !SameBits(a.cost, b.cost) ||
                NumberOf(a.parent) != NumberOf(b.parent) || a.depth != b.depth || (a.inQueue != 0) != b.inQueue ||
                (a.inTree != 0) != b.inTree)
                return testing::AssertionFailure() << "node " << i << ": " << Text(a) << " instead of " << Text(b);
        }
        if (NumberOf(engine.current) != NumberOf(tree.current))
            return testing::AssertionFailure()
                   << "current is " << NumberOf(engine.current) << " instead of " << NumberOf(tree.current);
        const std::vector<size_t> queue = NumbersOf(*engine.pq);
        const std::vector<size_t> expected = NumbersOf(tree.pq);
        if (queue != expected)
            return testing::AssertionFailure()
                   << "queue " << testing::PrintToString(queue) << " instead of " << testing::PrintToString(expected);
        return testing::AssertionSuccess();
    }

    testing::AssertionResult IsMappedEqually() const {
        for (size_t i = 0; i < tree.nodePolys.size(); ++i)
            for (size_t k = 0; k < tree.nodePolys[i].size(); ++k)
                if (NumberOf(engine.nodePolys[i][k]) != NumberOf(tree.nodePolys[i][k]))
                    return testing::AssertionFailure() << "vertex " << k << " of polyline " << i;
        return testing::AssertionSuccess();
    }

    /// Whether the ways from all nodes, and from a point, are equal.
    testing::AssertionResult HasEqualWays(const DblPt& p) {
        for (size_t i = 0; i < Size(); ++i)
            if (!IsWay(engine.GenerateSPPolyline(engineNodes_[i]), ShortestPathTree::WayFrom(treeNodes_[i])))
                return testing::AssertionFailure() << "the way from node " << i;
        if (engine.IsOnPath(p) != tree.IsOnPath(p)) return testing::AssertionFailure() << "IsOnPath";
        if (!IsWay(engine.GenerateSPPolyline(p), ShortestPathTree::WayFrom(tree.FindNode(p))))
            return testing::AssertionFailure() << "the way from a point";
        std::list<SPTNode*>::const_iterator found;
        const bool isFound = engine.FindNode(p, found);
        if (isFound != (tree.FindNode(p) != nullptr) || isFound != (found != engine.nodeList->end()) ||
            (isFound && NumberOf(*found) != NumberOf(tree.FindNode(p))))
            return testing::AssertionFailure() << "FindNode";
        return testing::AssertionSuccess();
    }

    template <class Node>
    size_t NumberOf(const Node* node) const {
        const auto found = numbers_.find(node);
        return found == numbers_.end() ? SIZE_MAX - 1 : found->second;
    }

    SPTEngine engine;
    ShortestPathTree tree;

private:
    template <class Node>
    std::vector<size_t> NumbersOf(const std::list<Node*>& queue) const {
        std::vector<size_t> numbers;
        for (const Node* node : queue)
            numbers.push_back(NumberOf(node));
        return numbers;
    }

    template <class Node>
    std::string Text(const Node& node) const {
        return "cost " + testing::PrintToString(node.cost) + ", parent " + std::to_string(NumberOf(node.parent)) +
               ", depth " + std::to_string(node.depth) + ", flags " + std::to_string(int{node.inQueue}) +
               std::to_string(int{node.inTree});
    }

    static bool IsWay(PolylineGeom* found, const Polyline& expected) {
        const std::unique_ptr<PolylineGeom> way(found);
        if (way == nullptr) return expected.empty();
        if (way->NPts() != expected.size()) return false;
        for (unsigned i = 0; i < way->NPts(); ++i)
            if (!SameBits(way->Vtx(i).x, expected[i].x) || !SameBits(way->Vtx(i).y, expected[i].y)) return false;
        return true;
    }

    std::vector<const SPTNode*> engineNodes_;
    std::vector<const ShortestPathTree::Node*> treeNodes_;
    std::unordered_map<const void*, size_t> numbers_;
};

// ---- Networks ----

/// Where vertices lie. `Square` has equal edges everywhere; `Uneven` has edges of many lengths that add up to equal
/// costs often; `Plane` has no ties but those of the estimate itself; `Mirror` has pairs of nodes with equal edges
/// from the same. `Vanishing` has edges that leave most costs as they are, `Coarse` edges of about the last bit of
/// the costs.
enum class Kind { Square, Uneven, Plane, Special, Mirror, Vanishing, Coarse };

std::string NameOf(Kind kind) {
    constexpr const char* kNames[] = {"Square", "Uneven", "Plane", "Special", "Mirror", "Vanishing", "Coarse"};
    return kNames[static_cast<size_t>(kind)];
}

double RandomCoordinate(Kind kind, int size, RandomNumbers& random) {
    constexpr double kUneven[] = {0, 1, 3, 4, 7, 9, 10, 16, 17, 25};
    constexpr double kSpecial[] = {kNan, kInfinity, -kInfinity, -0.0, 1e308, -1e308, 5e-324};
    constexpr double kVanishing[] = {0, 1, 2, 3, 1e16, 1e16 + 2, 2e16, 1e-17, 3e-17, 1e8};
    switch (kind) {
        case Kind::Vanishing:
            if (random.OneIn(3)) return random.OneOf(kVanishing);
            return random.Between(0, 2);
        case Kind::Coarse:
            return random.OneIn(2) ? 0 : 1e15 + random.Between(0, size) * 0.125;
        case Kind::Uneven:
            return kUneven[random.Below(static_cast<size_t>(size))];
        case Kind::Plane:
            return random.Within(-10, 10);
        case Kind::Special:
            if (random.OneIn(6)) return random.OneOf(kSpecial);
            return random.Between(0, size - 1);
        default:
            return random.Between(0, size - 1);
    }
}

DblPt RandomPoint(Kind kind, int size, RandomNumbers& random) {
    const double x = RandomCoordinate(kind, size, random);
    return DblPt(x, RandomCoordinate(kind, size, random));
}

/// Polylines through vertices drawn from a few, so that they meet, repeat points and cross themselves.
Network RandomNetwork(Kind kind, RandomNumbers& random) {
    const int size = random.Between(2, 5);
    std::vector<DblPt> vertices;
    for (int i = random.Between(2, 24); i > 0; --i)
        vertices.push_back(RandomPoint(kind, size, random));
    Network network(1 + random.Below(7));
    for (Polyline& line : network)
        for (size_t i = random.Below(9); i > 0; --i) {
            const bool isRepeated = !line.empty() && random.OneIn(8);
            line.push_back(isRepeated ? DblPt(line.back()) : vertices[random.Below(vertices.size())]);
        }
    return network;
}

/// From each vertex of a chain to the next, at the least: no other chain comes there, where that is large.
double ChainStep(Kind kind) {
    if (kind == Kind::Vanishing) return 1e-17;
    return kind == Kind::Coarse ? 0.125 : 100;
}

/// Junctions with chains of vertices between them.
Network RandomChains(Kind kind, RandomNumbers& random) {
    std::vector<DblPt> junctions;
    for (int i = random.Between(2, 8); i > 0; --i)
        junctions.push_back(RandomPoint(kind, 5, random));
    Network network(1 + random.Below(10));
    const double step = ChainStep(kind);
    double offset = step;
    for (Polyline& line : network) {
        line.push_back(junctions[random.Below(junctions.size())]);
        for (size_t i = random.Below(7); i > 0; --i) {
            offset += step;
            line.push_back(DblPt(offset + RandomCoordinate(kind, 5, random), RandomCoordinate(kind, 5, random)));
        }
        if (!random.OneIn(6)) line.push_back(junctions[random.Below(junctions.size())]);
    }
    return network;
}

/// Polylines between a point of an axis and two that mirror each other in it, so that two nodes at a time are
/// offered the same; other edges have queued one of them before, or both.
Network RandomMirror(RandomNumbers& random) {
    const auto onAxis = [&random] { return DblPt(random.Between(-6, 6), 0); };
    Network network(8 + random.Below(32));
    for (Polyline& line : network) {
        const DblPt side(random.Between(-6, 6), random.OneIn(2) ? 1 : -1);
        if (random.OneIn(4))
            line = {onAxis(), onAxis()};
        else if (random.OneIn(4))
            line = {onAxis(), side};
        else
            line = {side, onAxis(), DblPt(side.x, -side.y)};
    }
    return network;
}

Network RandomOfKind(Kind kind, RandomNumbers& random) {
    if (kind == Kind::Mirror) return RandomMirror(random);
    return random.OneIn(3) ? RandomChains(kind, random) : RandomNetwork(kind, random);
}

/// All the rows and columns of a grid, whose lines lie at the given places.
Network GridOf(const std::vector<double>& xs, const std::vector<double>& ys) {
    Network network;
    for (const double y : ys) {
        network.emplace_back();
        for (const double x : xs)
            network.back().push_back(DblPt(x, y));
    }
    for (const double x : xs) {
        network.emplace_back();
        for (const double y : ys)
            network.back().push_back(DblPt(x, y));
    }
    return network;
}

DblPt RandomVertex(const Network& network, RandomNumbers& random) {
    const Polyline& line = network[random.Below(network.size())];
    return line.empty() || random.OneIn(12) ? DblPt(0.5, 77) : line[random.Below(line.size())];
}

// ---- What hosts do ----

void Search(Pair& pair, const Network& network, RandomNumbers& random) {
    const DblPt start = RandomVertex(network, random);
    ASSERT_EQ(pair.engine.BuildSPT(start), pair.tree.BuildSPT(start));
}

void Enter(Pair& pair, const Network& network, RandomNumbers& random) {
    const DblPt start = RandomVertex(network, random);
    ASSERT_EQ(pair.engine.EnterStartVertex(start), pair.tree.EnterStartVertex(start));
}

void Step(Pair& pair) {
    const SPTNode* node = pair.engine.current;
    const ShortestPathTree::Node* const expected = pair.tree.NextNode();
    ASSERT_EQ(pair.engine.NextNode(node), expected != nullptr);
    ASSERT_EQ(pair.NumberOf(node), pair.NumberOf(expected));
}

void OfferToRandomNode(Pair& pair, RandomNumbers& random) {
    const size_t i = random.Below(pair.Size());
    ASSERT_EQ(pair.engine.AddVertexNodeToPQ(pair.EngineNode(i)), pair.tree.AddVertexNodeToPQ(pair.TreeNode(i)));
}

void OfferAlongPolyline(Pair& pair, RandomNumbers& random) {
    const size_t line = random.Below(pair.tree.nodePolys.size());
    const size_t count = pair.tree.nodePolys[line].size();
    const size_t i = random.Below(count + 1);
    pair.engine.AddNeighborsToPQ(pair.engine.nodePolys[line], static_cast<unsigned>(count), static_cast<unsigned>(i));
    pair.tree.AddNeighborsToPQ(pair.tree.nodePolys[line], i);
}

void ExpandRandomNode(Pair& pair, RandomNumbers& random) {
    const size_t i = random.Below(pair.Size());
    pair.engine.current = pair.EngineNode(i);
    pair.tree.current = pair.TreeNode(i);
    pair.engine.SetPQFromCurrentTreeNode();
    pair.tree.SetPQFromCurrentTreeNode();
}

/// Brings everything into the state before any search, as a host does it that searches step by step twice.
void ResetByHand(Pair& pair) {
    for (size_t i = 0; i < pair.Size(); ++i) {
        pair.EngineNode(i)->Reset();
        pair.TreeNode(i)->Reset();
    }
    pair.engine.pq->clear();
    pair.tree.pq.clear();
}

void ReverseByHand(Pair& pair) {
    pair.engine.pq->reverse();
    pair.tree.pq.reverse();
}

void PrintQueue(Pair& pair) {
    TakeDebugTexts();
    pair.engine.PrintPQ();
    const std::vector<std::string> texts = TakeDebugTexts();
    ASSERT_EQ(texts.size(), pair.tree.pq.size() + 2);
    size_t i = 1;
    for (const ShortestPathTree::Node* node : pair.tree.pq) {
        char text[1024];
        std::snprintf(text, sizeof text, "{%lf, %lf},\n", node->pt.x, node->pt.y);
        ASSERT_EQ(texts[i++], text);
    }
}

void DoSomething(Pair& pair, const Network& network, RandomNumbers& random) {
    switch (random.Below(14)) {
        case 0:
            return Search(pair, network, random);
        case 1:
            return Enter(pair, network, random);
        case 2:
            return OfferToRandomNode(pair, random);
        case 3:
            return OfferAlongPolyline(pair, random);
        case 4:
            return ExpandRandomNode(pair, random);
        case 5:
            if (!random.OneIn(3)) return;
            ResetByHand(pair);
            return Enter(pair, network, random);
        case 6:
            return PrintQueue(pair);
        case 7:
            if (random.OneIn(3)) ReverseByHand(pair);
            return;
        default:
            return Step(pair);
    }
}

class ShortestPathsRandom : public testing::TestWithParam<Kind> {};

TEST_P(ShortestPathsRandom, WholeSearches) {
    for (uint64_t seed = 0; seed < 1500; ++seed) {
        SCOPED_TRACE(seed);
        RandomNumbers random(seed);
        const Network network = RandomOfKind(GetParam(), random);
        Pair pair(network);
        ASSERT_TRUE(pair.IsEqual());
        ASSERT_TRUE(pair.IsMappedEqually());
        for (int i = 0; i < 3; ++i) {
            ASSERT_NO_FATAL_FAILURE(Search(pair, network, random));
            ASSERT_TRUE(pair.IsEqual());
            ASSERT_TRUE(pair.HasEqualWays(RandomVertex(network, random)));
        }
    }
}

TEST_P(ShortestPathsRandom, StepByStep) {
    for (uint64_t seed = 0; seed < 1000; ++seed) {
        SCOPED_TRACE(seed);
        RandomNumbers random(1000 + seed);
        const Network network = RandomOfKind(GetParam(), random);
        Pair pair(network);
        ASSERT_NO_FATAL_FAILURE(Enter(pair, network, random));
        ASSERT_TRUE(pair.IsEqual());
        while (!pair.tree.pq.empty()) {
            ASSERT_NO_FATAL_FAILURE(Step(pair));
            ASSERT_TRUE(pair.IsEqual());
            ASSERT_NO_FATAL_FAILURE(PrintQueue(pair));
        }
        ASSERT_NO_FATAL_FAILURE(Step(pair));
        ASSERT_TRUE(pair.HasEqualWays(RandomVertex(network, random)));
    }
}

TEST_P(ShortestPathsRandom, AnythingInAnyOrder) {
    for (uint64_t seed = 0; seed < 600; ++seed) {
        SCOPED_TRACE(seed);
        RandomNumbers random(5000 + seed);
        const Network network = RandomOfKind(GetParam(), random);
        Pair pair(network);
        if (pair.Size() == 0) continue;
        for (int i = 0; i < 60; ++i) {
            ASSERT_NO_FATAL_FAILURE(DoSomething(pair, network, random));
            ASSERT_TRUE(pair.IsEqual()) << "after " << i << " calls";
            ASSERT_TRUE(pair.HasEqualWays(RandomVertex(network, random)));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllKinds, ShortestPathsRandom,
                         testing::Values(Kind::Square, Kind::Uneven, Kind::Plane, Kind::Special, Kind::Mirror,
                                         Kind::Vanishing, Kind::Coarse),
                         [](const testing::TestParamInfo<Kind>& param) { return NameOf(param.param); });

/// Grids with lines at random whole distances: the same cost along many ways, and better ways to nodes in the queue.
TEST(ShortestPathsRandomGrid, WholeSearchesAndSteps) {
    for (uint64_t seed = 0; seed < 30; ++seed) {
        SCOPED_TRACE(seed);
        RandomNumbers random(seed);
        const auto places = [&random](size_t count) {
            std::vector<double> all{0};
            while (all.size() < count)
                all.push_back(all.back() + random.Between(1, 4));
            return all;
        };
        Network network = GridOf(places(6 + random.Below(7)), places(6 + random.Below(7)));
        // Short cuts of all directions, which make ways better that are queued already.
        for (int i = 0; i < 40; ++i)
            network.push_back({RandomVertex(network, random), RandomVertex(network, random)});
        Pair pair(network);
        ASSERT_NO_FATAL_FAILURE(Search(pair, network, random));
        ASSERT_TRUE(pair.IsEqual());
        ResetByHand(pair);
        ASSERT_NO_FATAL_FAILURE(Enter(pair, network, random));
        while (!pair.tree.pq.empty()) {
            ASSERT_NO_FATAL_FAILURE(Step(pair));
            ASSERT_TRUE(pair.IsEqual());
        }
    }
}

}  // namespace
