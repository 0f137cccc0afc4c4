// SPDX-License-Identifier: MIT
#include <bit>
#include <boost/graph/compressed_sparse_row_graph.hpp>
#include <boost/graph/dijkstra_shortest_paths.hpp>
#include <boost/graph/dijkstra_shortest_paths_no_color_map.hpp>
#include <cmath>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "shortest_paths_contenders.h"

namespace VellumBench {
namespace {

using Vellum::DblPt;

struct PointHash {
    size_t operator()(const DblPt& p) const {
        // The sum turns -0.0 into 0.0, which equals it.
        const uint64_t hash = std::bit_cast<uint64_t>(p.x + 0.0) * 0x9e3779b97f4a7c15;
        return ((hash ^ hash >> 32) + std::bit_cast<uint64_t>(p.y + 0.0)) * 0xbf58476d1ce4e5b9 >> 16;
    }
};

struct PointEqual {
    bool operator()(const DblPt& p, const DblPt& q) const { return p.x == q.x && p.y == q.y; }
};

struct Edge {
    double cost;
};

using Graph = boost::compressed_sparse_row_graph<boost::directedS, boost::no_property, Edge, boost::no_property,
                                                 uint32_t, uint32_t>;

double EdgeCost(const DblPt& from, const DblPt& to) {
    const double dx = std::fabs(to.x - from.x);
    const double dy = std::fabs(to.y - from.y);
    return dx > dy ? 0.96 * dx + 0.398 * dy : 0.96 * dy + 0.398 * dx;
}

struct Network {
    std::unordered_map<DblPt, uint32_t, PointHash, PointEqual> indexes;
    Graph graph;
    // By vertex.
    std::vector<uint32_t> parents;
    std::vector<double> costs;
    std::vector<boost::default_color_type> colours;

    explicit Network(const Lines& lines) {
        size_t points = 0;
        for (const auto& line : lines)
            points += line.size();
        indexes.reserve(points);
        std::vector<std::pair<uint32_t, uint32_t>> ends;
        std::vector<Edge> edges;
        ends.reserve(2 * points);
        edges.reserve(2 * points);
        for (const auto& line : lines) {
            uint32_t from = 0;
            for (size_t i = 0; i < line.size(); ++i) {
                const uint32_t to = indexes.try_emplace(line[i], static_cast<uint32_t>(indexes.size())).first->second;
                if (i > 0) {
                    const double cost = EdgeCost(line[i - 1], line[i]);
                    ends.emplace_back(from, to);
                    edges.push_back({cost});
                    ends.emplace_back(to, from);
                    edges.push_back({cost});
                }
                from = to;
            }
        }
        const auto count = static_cast<uint32_t>(indexes.size());
        graph = Graph(boost::edges_are_unsorted_multi_pass, ends.begin(), ends.end(), edges.begin(), count);
        parents.resize(count);
        costs.resize(count);
        colours.resize(count);
    }
};

class BoostPaths : public PathsContender {
public:
    explicit BoostPaths(const Lines& networkLines) : lines(networkLines) {}

    void Build() override { network.emplace(lines); }
    void Search(const DblPt& start) override {
        const Graph& graph = network->graph;
        const auto byVertex = [&](auto& values) {
            return boost::make_iterator_property_map(values.begin(), get(boost::vertex_index, graph));
        };
        boost::dijkstra_shortest_paths(graph, network->indexes.at(start),
                                       boost::weight_map(get(&Edge::cost, graph))
                                           .predecessor_map(byVertex(network->parents))
                                           .distance_map(byVertex(network->costs))
                                           .color_map(byVertex(network->colours)));
    }
    double CostOf(const Place& place) const override {
        return network->costs[network->indexes.at(lines[place.line][place.point])];
    }
    void Release() override { network.reset(); }

protected:
    const Lines lines;
    std::optional<Network> network;
};

class BoostColourlessPaths : public BoostPaths {
public:
    using BoostPaths::BoostPaths;

    void Search(const DblPt& start) override {
        const Graph& graph = network->graph;
        const auto byVertex = [&](auto& values) {
            return boost::make_iterator_property_map(values.begin(), get(boost::vertex_index, graph));
        };
        boost::dijkstra_shortest_paths_no_color_map(graph, network->indexes.at(start),
                                                    boost::weight_map(get(&Edge::cost, graph))
                                                        .predecessor_map(byVertex(network->parents))
                                                        .distance_map(byVertex(network->costs)));
    }
};

}  // namespace

std::unique_ptr<PathsContender> MakeBoostPaths(const Lines& lines) { return std::make_unique<BoostPaths>(lines); }

std::unique_ptr<PathsContender> MakeBoostColourlessPaths(const Lines& lines) {
    return std::make_unique<BoostColourlessPaths>(lines);
}

}  // namespace VellumBench
