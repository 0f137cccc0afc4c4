// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

#include "connector_contenders.h"
#include "shortest_paths_contenders.h"
#include "suite.h"

namespace VellumBench {
namespace {

using Vellum::DblPt;

struct ContenderKind {
    std::string name;
    std::unique_ptr<PathsContender> (*make)(const Lines& lines);
};

constexpr size_t kVellum = 0, kBoost = 1;

const ContenderKind kKinds[] = {
    {"vellum", MakeVellumPaths}, {"boost", MakeBoostPaths}, {"boost_colourless", MakeBoostColourlessPaths}};

/// What is timed. What the network takes to be released is part of the first, since it is built for one search.
enum class Task { BuildAndSearch, Search };

constexpr Task kTasks[] = {Task::BuildAndSearch, Task::Search};

const char* NameOf(Task task) { return task == Task::Search ? "search" : "build_and_search"; }

/// A network with all its contenders; those of a kind are made when they are first asked for.
class Subject {
public:
    /// The search starts at the point nearest to @p startArea.
    Subject(std::string subjectName, Lines (*makeLines)(), const DblPt& startArea, double buildLimit,
            double searchLimit)
        : name(std::move(subjectName)), limits{buildLimit, searchLimit}, make(makeLines), start(startArea) {}

    void SetUp(Task task, size_t kind) {
        Entrant& entrant = EntrantOf(kind);
        if (entrant.isBuilt == (task == Task::Search)) return;
        if (entrant.isBuilt) {
            entrant.contender->Release();
        } else {
            entrant.contender->Build();
        }
        entrant.isBuilt = !entrant.isBuilt;
    }
    void Run(Task task, size_t kind) {
        PathsContender& contender = *entrants[kind].contender;
        if (task == Task::BuildAndSearch) contender.Build();
        contender.Search(start);
        if (task == Task::BuildAndSearch) contender.Release();
    }
    std::vector<double> CostsBy(size_t kind) {
        SetUp(Task::Search, kind);
        PathsContender& contender = *entrants[kind].contender;
        contender.Search(start);
        std::vector<double> costs;
        for (size_t line = 0; line < lines.size(); ++line) {
            for (size_t point = 0; point < lines[line].size(); ++point)
                costs.push_back(contender.CostOf({line, point}));
        }
        return costs;
    }
    std::string NameOf(Task task, size_t kind) const {
        return "ShortestPaths/" + name + '/' + VellumBench::NameOf(task) + '/' + kKinds[kind].name;
    }
    double LimitOf(Task task) const { return limits[task == Task::Search ? 1 : 0]; }

    const std::string name;

private:
    struct Entrant {
        std::unique_ptr<PathsContender> contender;
        bool isBuilt = false;
    };

    Entrant& EntrantOf(size_t kind) {
        if (lines.empty()) {
            lines = make();
            start = NearestPoint();
        }
        Entrant& entrant = entrants[kind];
        if (entrant.contender == nullptr) entrant.contender = kKinds[kind].make(lines);
        return entrant;
    }
    DblPt NearestPoint() const {
        DblPt nearest = lines.front().front();
        for (const auto& line : lines) {
            for (const DblPt& p : line)
                if (start.Dist(p) < start.Dist(nearest)) nearest = p;
        }
        return nearest;
    }

    double limits[std::size(kTasks)];
    Lines (*make)();
    DblPt start;
    Lines lines;
    Entrant entrants[std::size(kKinds)];
};

/// The railroads joined where they cross, touch or miss each other by no more than a kilometre.
Lines JoinedRailroads() { return ConnectedByVellum(MapLines("railroads-north-america"), 0.01); }

template <size_t Across, size_t Up>
Lines CrookedStreets() {
    return Streets(Across, Up, 0.3);
}

template <size_t Across, size_t Up>
Lines EvenStreets() {
    return Streets(Across, Up, 0);
}

std::vector<std::unique_ptr<Subject>>& Subjects() {
    static std::vector<std::unique_ptr<Subject>> subjects;
    if (subjects.empty()) {
        const auto add = [](auto... arguments) { subjects.push_back(std::make_unique<Subject>(arguments...)); };
        const DblPt chicago(-87.6, 41.9);
        add("railroads", JoinedRailroads, chicago, 4.0, 2.0);
        add("streets/100000", CrookedStreets<400, 250>, DblPt(200, 125), 2.0, kForInformation);
        add("streets/1000000", CrookedStreets<1000, 1000>, DblPt(500, 500), 2.0, kForInformation);
        // Nearly all ways have others of the same cost beside them.
        add("even_streets/100000", EvenStreets<400, 250>, DblPt(200, 125), kForInformation, kForInformation);
    }
    return subjects;
}

std::string CheckCosts(Subject& subject, Task task, size_t kind) {
    constexpr double kRoundingError = 1e-12;
    const std::vector<double> expected = subject.CostsBy(kBoost), costs = subject.CostsBy(kind);
    size_t reached = 0;
    for (size_t i = 0; i < costs.size(); ++i) {
        if (std::fabs(costs[i] - expected[i]) > kRoundingError * expected[i]) {
            Abort(subject.NameOf(task, kind) + ": a way costs " + std::to_string(costs[i]) + ", the peer's " +
                  std::to_string(expected[i]));
        }
        if (costs[i] != std::numeric_limits<double>::max()) ++reached;
    }
    subject.SetUp(task, kind);
    char text[64];
    std::snprintf(text, sizeof text, "%zu of %zu points reached", reached, costs.size());
    return text;
}

void AddTarget(TargetReport& report, const Subject& subject, Task task) {
    std::string name = subject.name;
    std::replace(name.begin(), name.end(), '_', ' ');
    const size_t slash = name.find('/');
    if (slash != std::string::npos) name = name.substr(0, slash) + ", " + name.substr(slash + 1) + " points";
    report.Add({"Shortest paths, " + name + ": " + (task == Task::Search ? "search" : "build and search"),
                subject.NameOf(task, kVellum),
                {subject.NameOf(task, 1), subject.NameOf(task, 2)},
                Bound::TimesFaster,
                subject.LimitOf(task)});
}

}  // namespace

void RegisterShortestPaths(TargetReport& report) {
    for (const auto& subject : Subjects()) {
        for (const Task task : kTasks) {
            for (size_t kind = 0; kind < std::size(kKinds); ++kind) {
                Register({subject->NameOf(task, kind),
                          [&subject, task, kind] { return CheckCosts(*subject, task, kind); },
                          [&subject, task, kind] { subject->SetUp(task, kind); },
                          [&subject, task, kind] { subject->Run(task, kind); }});
            }
            AddTarget(report, *subject, task);
        }
    }
}

}  // namespace VellumBench
