// SPDX-License-Identifier: MIT

// The connector with memory that runs out at one allocation after another, and how many allocations there are at
// all. What leaks is for the sanitizer to tell.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

#include "paths/connector_checks.h"
#include "paths/connector_join.h"
#include "paths/connector_list.h"
#include "reference/connector.h"
#include "support/allocation_guard.h"
#include "support/malloc_guard.h"
#include "support/random_numbers.h"
#include "vellum/connector.h"

namespace {

using paths_tests::Hold;
using paths_tests::LineOf;
using paths_tests::Network;
using paths_tests::NewPolyline;
using paths_tests::Points;
using paths_tests::TakeLines;
using support::AllocationGuard;
using support::MallocGuard;
using support::RandomNumbers;
using Vellum::AlignedDblRect;
using Vellum::DblPt;
using Vellum::LayerConnector;
using Vellum::PolylineConnector;
using Vellum::PolylineGeom;
using Vellum::internal::ConnectorList;
using Vellum::internal::PolylineJoin;

using Lines = std::vector<Points>;

constexpr size_t kUnlimited = std::numeric_limits<size_t>::max();
constexpr double kTolerance = 0.3;

/// Crossings, several on a segment, links, parallels and shapes.
Network Everything() {
    Network network;
    RandomNumbers random(1);
    for (int i = 0; i < 12; ++i) {
        network.lines.push_back(LineOf({{-1, i * 0.5}, {6, i * 0.5 + 1}}, 0));
        Points points;
        for (int k = 0; k < 4; ++k) {
            const double x = random.Within(0, 5);
            points.emplace_back(x, random.Within(0, 5));
        }
        network.lines.push_back(LineOf(points, 0));
    }
    network.lines.push_back(LineOf({}, 0));
    network.lines.push_back(LineOf({{1, 1}}, 0));
    for (int i = 0; i < 5; ++i)
        network.shapes.push_back({std::make_unique<AlignedDblRect>(i, i * 0.7, i + 0.6, i * 0.7 + 1.1), 0});
    return network;
}

struct Outcome {
    bool isMade;
    bool hasFailed;
    Lines lines;
    size_t requests;
};

/// Connects with so many allocations allowed; all that is connected is there before.
template <class Guard>
Outcome ConnectWithin(size_t allowed, const Network& network) {
    PolylineConnector connector;
    AddTo(connector, network);
    PolylineGeom* something = nullptr;
    PolylineGeom** out = &something;
    unsigned count = 99;
    Outcome outcome{};
    {
        const Guard guard(allowed);
        outcome.isMade = connector.ConnectPolylines(kTolerance, count, out);
        outcome.requests = guard.Requests();
    }
    outcome.hasFailed = connector.failed != 0;
    if (outcome.isMade) {
        outcome.lines = TakeLines(count, out);
    } else {
        EXPECT_EQ(count, 0u);
        EXPECT_EQ(out, nullptr);
        // With memory again, it can be done.
        EXPECT_TRUE(connector.ConnectPolylines(kTolerance, count, out));
        outcome.lines = TakeLines(count, out);
    }
    return outcome;
}

template <class Guard>
void ConnectWithEverLess() {
    const Network network = Everything();
    const Outcome full = ConnectWithin<Guard>(kUnlimited, network);
    ASSERT_TRUE(full.isMade && !full.hasFailed);
    ASSERT_TRUE(Hold(full.lines, reference::ConnectPolylines(network.lines, ShapesOf(network), kTolerance).lines));
    ASSERT_GT(full.lines.size(), network.lines.size() + 10);
    ASSERT_GT(full.requests, 100u);
    for (size_t allowed = 0; allowed < full.requests; ++allowed) {
        // Where one allocation fails so do all that follow, and nothing is left for the output.
        const Outcome outcome = ConnectWithin<Guard>(allowed, network);
        ASSERT_FALSE(outcome.isMade && outcome.hasFailed);
        ASSERT_TRUE(Hold(outcome.lines, full.lines)) << allowed << " allocations";
    }
    EXPECT_FALSE(ConnectWithin<Guard>(0, network).isMade);
    EXPECT_FALSE(ConnectWithin<Guard>(full.requests - 1, network).isMade);
}

TEST(ConnectorMemory, RunsOutOfObjects) { ConnectWithEverLess<AllocationGuard>(); }

TEST(ConnectorMemory, RunsOutOfBlocks) { ConnectWithEverLess<MallocGuard>(); }

TEST(ConnectorMemory, StepsThatCannotReportSetFailed) {
    PolylineConnector connector;
    connector.segCount = 2;
    ASSERT_TRUE(connector.InitNewPolySeg());
    ASSERT_TRUE(connector.InitNewPts());
    connector.AddNewPt(0, DblPt(1, 2));
    for (size_t allowed = 0; allowed < 2; ++allowed) {
        connector.failed = 0;
        {
            const MallocGuard guard(allowed);
            connector.AddNewPt(1, DblPt(3, 4));
        }
        EXPECT_EQ(connector.failed, 1);
        EXPECT_TRUE(connector.newPts[1] == nullptr || connector.newPts[1]->empty());
        // With memory again, the segment takes points.
        connector.failed = 0;
        connector.AddNewPt(1, DblPt(3, 4));
        EXPECT_EQ(connector.failed, 0);
        ASSERT_NE(connector.newPts[1], nullptr);
        EXPECT_EQ(connector.newPts[1]->size(), 1u);
        connector.ClearNewPts();
    }
    for (size_t allowed = 0; allowed < 3; ++allowed) {
        connector.failed = 0;
        {
            const MallocGuard guard(allowed);
            connector.AddNewPolySeg(DblPt(1, 2), DblPt(3, 4));
        }
        EXPECT_EQ(connector.failed, 1);
        EXPECT_TRUE(connector.newPolySegs->empty());
    }
    // A list of split points that cannot grow keeps what it has.
    connector.failed = 0;
    for (int i = 0; i < 3; ++i)
        connector.AddNewPt(0, DblPt(i, 0));
    EXPECT_EQ(connector.failed, 0);
    {
        const MallocGuard guard(0);
        connector.AddNewPt(0, DblPt(9, 9));
    }
    EXPECT_EQ(connector.failed, 1);
    EXPECT_EQ(connector.newPts[0]->size(), 3u);
}

/// A box that takes the memory away when it is found to contain a point, until it is asked where it lies.
class Hungry final : public AlignedDblRect {
public:
    using AlignedDblRect::AlignedDblRect;
    bool Contains(const DblPt& p, double tol) const override {
        const bool isInside = AlignedDblRect::Contains(p.x, p.y, tol);
        if (isInside) guard.emplace(0);
        return isInside;
    }
    void GetCentroid(DblPt& out) const override {
        guard.reset();
        AlignedDblRect::GetCentroid(out);
    }

    static inline std::optional<MallocGuard> guard;
};

TEST(ConnectorMemory, AnIncompleteResultIsHandedOut) {
    PolylineConnector connector;
    connector.AddPolyline(NewPolyline(LineOf({{0, 0}, {10, 0}}, 0)), 1);
    connector.AddPolyline(NewPolyline(LineOf({{0, 9}, {2, 9}, {2, -9}}, 0)), 1);
    connector.AddConnector(new Hungry(3, -1, 7, 2), 1);
    unsigned count = 0;
    PolylineGeom** out = nullptr;
    const bool isMade = connector.ConnectPolylines(0, count, out);
    Hungry::guard.reset();
    ASSERT_TRUE(isMade);
    // The link to the shape is missing; for the split point there was still room.
    EXPECT_EQ(connector.failed, 1);
    EXPECT_TRUE(Hold(TakeLines(count, out), {{{0, 0}, {2, 0}, {5, 0}, {10, 0}}, {{0, 9}, {2, 9}, {2, 0}, {2, -9}}}));
    connector.ClearConnectors();
    EXPECT_TRUE(connector.ConnectPolylines(0, count, out));
    TakeLines(count, out);
    EXPECT_EQ(connector.failed, 1);
    connector.Reset();
    EXPECT_EQ(connector.failed, 0);
}

TEST(ConnectorMemory, WhatCannotBeAddedStaysTheCallers) {
    PolylineConnector connector;
    const std::unique_ptr<PolylineGeom> line(NewPolyline(LineOf({{0, 0}, {4, 0}}, 0)));
    AlignedDblRect shape(0, 0, 2, 2);
    size_t refusals = 0;
    for (size_t allowed = 0; allowed < 2; ++allowed) {
        connector.failed = 0;
        const AllocationGuard guard(allowed);
        ASSERT_FALSE(connector.AddPolyline(line.get(), 1));
        ASSERT_EQ(connector.failed, 1);
    }
    EXPECT_TRUE(connector.polylines->empty());
    for (size_t allowed = 0;; ++allowed, ++refusals) {
        connector.failed = 0;
        auto* const added = new AlignedDblRect(shape);
        bool isAdded = false;
        {
            const AllocationGuard guard(allowed);
            isAdded = connector.AddConnector(added, 1);
        }
        ASSERT_EQ(connector.failed, isAdded ? 0 : 1);
        ASSERT_EQ(connector.connectors->size(), isAdded ? 1u : 0u);
        if (isAdded) break;
        delete added;
    }
    EXPECT_GT(refusals, 0u);
    // What is there already takes no memory.
    const AllocationGuard guard(0);
    EXPECT_TRUE(connector.AddConnector(&shape, 1));
}

TEST(ConnectorMemory, WhatIsThereIsFoundWithoutMemory) {
    PolylineConnector connector;
    for (int i = 0; i < 64; ++i) {
        ASSERT_TRUE(connector.AddConnector(new AlignedDblRect(3 * i, 0, 3 * i + 1, 1), 1));
        AlignedDblRect first(0, 0, 1, 1);
        AlignedDblRect last(3 * i, 0, 3 * i + 1, 1);
        bool areThere = false;
        bool isAdded = true;
        {
            const AllocationGuard guard(0);
            areThere = connector.AddConnector(&first, 1) && connector.AddConnector(&last, 1);
            areThere = areThere && connector.failed == 0;
            isAdded = connector.AddConnector(&last, 2);
        }
        ASSERT_TRUE(areThere) << i;
        ASSERT_FALSE(isAdded) << i;
        ASSERT_EQ(connector.failed, 1);
        connector.failed = 0;
    }
    EXPECT_EQ(connector.connectors->size(), 64u);
}

TEST(ConnectorMemory, ATableThatCouldNotBeMadeIsMadeLater) {
    const auto centroidOf = [](size_t i) { return DblPt(3.0 * static_cast<double>(i) + 0.5, 0.5); };
    std::vector<AlignedDblRect> shapes;
    std::vector<LayerConnector> records;
    for (int i = 0; i < 40; ++i)
        shapes.emplace_back(3 * i, 0, 3 * i + 1, 1);
    for (AlignedDblRect& shape : shapes)
        records.push_back({&shape, 1});
    for (size_t other = 31; other < 40; ++other) {
        ConnectorList list;
        for (size_t i = 0; i < 31; ++i) {
            list.push_back(&records[i]);
            ASSERT_TRUE(list.Holds(1, centroidOf(i)));
        }
        // The last one is taken off, the table for the others cannot be made, and another one takes its place.
        list.pop_back();
        bool isThere = true;
        {
            const AllocationGuard guard(0);
            isThere = list.Holds(1, centroidOf(30));
            ASSERT_EQ(guard.Requests(), 1u);
        }
        ASSERT_FALSE(isThere);
        list.push_back(&records[other]);
        ASSERT_TRUE(list.Holds(1, centroidOf(other)));
        ASSERT_FALSE(list.Holds(1, centroidOf(30)));
        ASSERT_TRUE(list.Holds(1, centroidOf(0)));
    }
}

TEST(ConnectorMemory, AConnectorWithoutMemoryRefusesEverything) {
    const std::unique_ptr<PolylineGeom> line(NewPolyline(LineOf({{0, 0}, {4, 0}}, 0)));
    AlignedDblRect shape(0, 0, 2, 2);
    for (size_t allowed = 0; allowed < 2; ++allowed) {
        std::unique_ptr<PolylineConnector> connector(static_cast<PolylineConnector*>(nullptr));
        {
            // One more for the object itself.
            const AllocationGuard guard(1 + allowed);
            connector = std::make_unique<PolylineConnector>();
        }
        EXPECT_EQ(connector->polylines == nullptr, allowed == 0);
        EXPECT_EQ(connector->connectors, nullptr);
        EXPECT_FALSE(connector->AddConnector(&shape, 1));
        EXPECT_EQ(connector->failed, 1);
        if (allowed == 0) {
            EXPECT_FALSE(connector->AddPolyline(line.get(), 1));
        }
        unsigned count = 9;
        PolylineGeom** out = nullptr;
        EXPECT_FALSE(connector->ConnectPolylines(1, count, out));
        connector->PrintInput();
        connector->ClearPolylines();
        connector->ClearConnectors();
    }
}

TEST(ConnectorMemory, ContainersThatCannotBeMadeAreReported) {
    PolylineConnector connector;
    connector.segCount = 5;
    {
        const AllocationGuard guard(0);
        EXPECT_FALSE(connector.InitNewPolySeg());
        EXPECT_FALSE(connector.InitNewPts());
    }
    EXPECT_EQ(connector.newPolySegs, nullptr);
    EXPECT_EQ(connector.newPts, nullptr);
    connector.AddPolyline(NewPolyline(LineOf({{0, 0}, {4, 0}}, 0)), 1);
    for (size_t allowed = 0; allowed < 2; ++allowed) {
        const MallocGuard guard(allowed);
        EXPECT_EQ(connector.GenerateOutputPoly(0, 0), nullptr);
    }
}

/// A connector in the midst of the steps: split points on both segments of its first line and on its second, so many
/// that they take further memory to be ordered.
void TakeSteps(PolylineConnector& connector) {
    connector.AddPolyline(NewPolyline(LineOf({{0, 0}, {900, 0}, {900, 50}}, 0)), 1);
    connector.AddPolyline(NewPolyline(LineOf({{0, 5}, {4, 5}}, 0)), 1);
    connector.segCount = 3;
    ASSERT_TRUE(connector.InitNewPolySeg());
    ASSERT_TRUE(connector.InitNewPts());
    connector.AddNewPt(0, DblPt(7, 0));
    for (int i = 600; i > 0; --i)
        connector.AddNewPt(1, DblPt(900, i / 16.0));
    connector.AddNewPt(2, DblPt(3, 5));
    connector.AddNewPolySeg(DblPt(1, 2), DblPt(3, 4));
}

/// Lets the output fail with so many allocations or fewer.
template <class Guard>
void RefuseOutput(PolylineConnector& connector, size_t most) {
    for (size_t allowed = 0; allowed <= most; ++allowed) {
        PolylineGeom* something = nullptr;
        PolylineGeom** out = &something;
        unsigned count = 9;
        bool isMade = true;
        {
            const Guard guard(allowed);
            isMade = connector.GenerateOutputPolylist(count, out);
        }
        ASSERT_FALSE(isMade) << allowed << " allocations";
        ASSERT_EQ(count, 0u);
        ASSERT_EQ(out, nullptr);
    }
}

TEST(ConnectorMemory, AnOutputThatCannotBeMadeUsesNothingUp) {
    PolylineConnector connector;
    TakeSteps(connector);
    // The array, two polylines, and twice memory to order the split points in.
    RefuseOutput<AllocationGuard>(connector, 4);
    RefuseOutput<MallocGuard>(connector, 1);
    EXPECT_EQ(connector.newPts[0]->size(), 1u);
    EXPECT_EQ(connector.newPts[1]->size(), 600u);
    EXPECT_EQ(connector.newPts[2]->size(), 1u);
    EXPECT_EQ(connector.newPolySegs->size(), 1u);
    unsigned count = 0;
    PolylineGeom** out = nullptr;
    ASSERT_TRUE(connector.GenerateOutputPolylist(count, out));
    const Lines lines = TakeLines(count, out);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0].size(), 3u + 1 + 600);
    EXPECT_TRUE(Hold({lines[1], lines[2]}, {{{0, 5}, {3, 5}, {4, 5}}, {{1, 2}, {3, 4}}}));
    for (unsigned i = 0; i < 3; ++i)
        EXPECT_TRUE(connector.newPts[i]->empty());
}

TEST(ConnectorMemory, APolylineThatCannotBeMadeUsesNothingUp) {
    PolylineConnector connector;
    TakeSteps(connector);
    size_t allowed = 0;
    std::unique_ptr<PolylineGeom> made;
    for (; made == nullptr; ++allowed) {
        ASSERT_EQ(connector.newPts[0]->size(), 1u);
        ASSERT_EQ(connector.newPts[1]->size(), 600u);
        const AllocationGuard guard(allowed);
        made.reset(connector.GenerateOutputPoly(0, 0));
    }
    EXPECT_GE(allowed, 3u);
    EXPECT_EQ(made->NPts(), 3u + 1 + 600);
    EXPECT_TRUE(connector.newPts[0]->empty());
    EXPECT_TRUE(connector.newPts[1]->empty());
    EXPECT_EQ(connector.newPts[2]->size(), 1u);
}

/// How many allocations the search for pairs takes among these lines.
size_t RequestsOf(const Lines& lines, double tol, size_t& pairs) {
    PolylineConnector connector;
    for (const Points& points : lines)
        connector.AddPolyline(NewPolyline(LineOf(points, 0)), 1);
    PolylineJoin join(*connector.polylines, tol);
    const AllocationGuard guard(kUnlimited);
    EXPECT_TRUE(join.Find());
    pairs = join.TheEffort().segmentPairs;
    return guard.Requests();
}

TEST(ConnectorMemory, ASearchThatRunsOutSaysSo) {
    PolylineConnector connector;
    AddTo(connector, Everything());
    size_t requests = 0;
    {
        PolylineJoin join(*connector.polylines, kTolerance);
        const AllocationGuard guard(kUnlimited);
        ASSERT_TRUE(join.Find());
        requests = guard.Requests();
    }
    ASSERT_GT(requests, 5u);
    for (size_t allowed = 0; allowed < requests; ++allowed) {
        PolylineJoin join(*connector.polylines, kTolerance);
        const AllocationGuard guard(allowed);
        ASSERT_FALSE(join.Find());
    }
}

TEST(ConnectorMemory, PairsWithoutAnEffectTakeNone) {
    // Segments that share an end with all others, and segments that are far from each other.
    Lines star;
    Lines scattered;
    for (int i = 0; i < 2000; ++i) {
        const double x = i;
        star.push_back({{0, 0}, {x, 2000 - x}});
        scattered.push_back({{x * 10, 0}, {x * 10, 5}});
    }
    size_t pairs = 0;
    const size_t few = RequestsOf(scattered, 0, pairs);
    EXPECT_EQ(pairs, 0u);
    EXPECT_EQ(RequestsOf(star, 1e6, pairs), few);
    EXPECT_EQ(pairs, 2000u * 1999 / 2);
    EXPECT_LE(few, 20u);
}

}  // namespace
