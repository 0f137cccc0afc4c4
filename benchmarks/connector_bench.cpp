// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstdio>

#include "connector_contenders.h"
#include "suite.h"

namespace VellumBench {
namespace {

struct ContenderKind {
    std::string name;
    std::unique_ptr<ConnectorContender> (*make)(const Lines& lines, double tol);
    size_t mostSegments;  ///< takes too long for more
};

constexpr size_t kVellum = 0, kNoder = 1;

const ContenderKind kKinds[] = {{"vellum", MakeVellumConnector, SIZE_MAX},
                                {"geos_noder", MakeGeosNoder, 100000},
                                {"geos_node", MakeGeosNode, 10000}};

/// Far less than two different points of the maps are apart, so that all contenders do the same: only what crosses or
/// touches is split.
constexpr double kTolerance = 1e-9;

/// Lines with all their contenders; those of a kind are made when they are first asked for.
class Subject {
public:
    Subject(std::string subjectName, Lines (*makeLines)(), double tolerance, size_t randomSegments = 0)
        : name(std::move(subjectName)), segments(randomSegments), make(makeLines), tol(tolerance) {}

    const Lines& TheLines() {
        if (lines.empty()) lines = make();
        return lines;
    }
    ConnectorContender& ContenderOf(size_t kind) {
        if (contenders[kind] == nullptr) contenders[kind] = kKinds[kind].make(TheLines(), tol);
        return *contenders[kind];
    }
    void Connect(size_t kind) {
        ConnectorContender& contender = ContenderOf(kind);
        contender.Connect();
        contender.Release();
    }
    double CountPieces(size_t kind) {
        ConnectorContender& contender = ContenderOf(kind);
        contender.Connect();
        const size_t pieces = contender.CountPieces();
        contender.Release();
        return static_cast<double>(pieces);
    }
    double MemoryShare() { return MemoryShareOfVellumConnector(TheLines(), tol); }
    std::string NameOf(size_t kind) const { return "Connector/" + name + '/' + kKinds[kind].name; }
    std::string NameOfMemory() const { return NameOf(kVellum) + "_memory"; }
    bool Has(size_t kind) const { return segments <= kKinds[kind].mostSegments; }
    /// The peers do not bridge gaps.
    bool IsForPeers() const { return tol == kTolerance; }

    const std::string name;
    const size_t segments;  ///< of random ones; 0 for a map

private:
    Lines (*make)();
    const double tol;
    Lines lines;
    std::unique_ptr<ConnectorContender> contenders[std::size(kKinds)];
};

Lines Railroads() { return MapLines("railroads-north-america"); }

Lines Rivers() { return MapLines("rivers-50m"); }

template <size_t Count>
Lines RandomSegments() {
    return CrossingSegments(Count);
}

std::vector<std::unique_ptr<Subject>>& Subjects() {
    static std::vector<std::unique_ptr<Subject>> subjects;
    if (subjects.empty()) {
        const auto add = [](auto... arguments) { subjects.push_back(std::make_unique<Subject>(arguments...)); };
        add("railroads", Railroads, kTolerance);
        // About a kilometre.
        add("railroads_with_gaps", Railroads, 0.01);
        add("rivers", Rivers, kTolerance);
        add("random/10000", RandomSegments<10000>, kTolerance, 10000);
        add("random/100000", RandomSegments<100000>, kTolerance, 100000);
        add("random/1000000", RandomSegments<1000000>, kTolerance, 1000000);
    }
    return subjects;
}

/// Where lines of the maps run on top of each other the contenders split them differently. Vellum does not split a
/// line where it crosses itself.
constexpr double kMostDifferent = 0.01;

std::string CheckPieces(Subject& subject, size_t kind, TargetReport& report) {
    const double pieces = subject.CountPieces(kind);
    const bool hasPeers = subject.IsForPeers() && subject.Has(kNoder);
    const double expected = hasPeers ? subject.CountPieces(kNoder) : pieces;
    if (std::fabs(pieces - expected) > kMostDifferent * expected) {
        Abort(subject.NameOf(kind) + ": the lines have " + std::to_string(pieces) + " segments, those of the peer " +
              std::to_string(expected));
    }
    const std::string text = std::to_string(static_cast<size_t>(pieces)) + " segments";
    const double share = kind == kVellum && subject.segments != 0 ? subject.MemoryShare() : 0;
    if (share == 0) return text;
    report.Record(subject.NameOfMemory(), share);
    char memory[64];
    std::snprintf(memory, sizeof memory, ", in memory %.2f times in and output", share);
    return text + memory;
}

std::string TargetName(const Subject& subject, const std::string& what) {
    std::string name = subject.name;
    const size_t slash = name.find('/');
    if (slash != std::string::npos) name = "random, " + name.substr(slash + 1) + " segments";
    return "Connector, " + name + ": " + what;
}

void AddPeerTarget(TargetReport& report, const Subject& subject, double limit) {
    report.Add({TargetName(subject, "fastest peer"),
                subject.NameOf(kVellum),
                {subject.NameOf(1), subject.NameOf(2)},
                Bound::TimesFaster,
                limit});
}

double PeerLimit(const Subject& subject) {
    if (subject.name == "railroads") return 4;
    if (subject.name == "rivers") return 10;
    if (subject.segments == 100000) return 1.7;
    return kForInformation;
}

/// What n log n predicts from fewer segments.
void AddGrowthTarget(TargetReport& report, const Subject& subject, const Subject& smaller) {
    const auto work = [](const Subject& s) {
        const double n = static_cast<double>(s.segments);
        return n * std::log(n);
    };
    report.Add({TargetName(subject, "growth from " + std::to_string(smaller.segments)),
                subject.NameOf(kVellum),
                {smaller.NameOf(kVellum)},
                Bound::TimesFloor,
                work(subject) / work(smaller)});
}

/// The share stays what it is with fewer segments, but for how near to full the arrays that grow happen to be.
void AddMemoryTarget(TargetReport& report, const Subject& subject, const Subject& smallest) {
    report.Add({TargetName(subject, "memory for in and output, against " + std::to_string(smallest.segments)),
                subject.NameOfMemory(),
                {smallest.NameOfMemory()},
                Bound::TimesShare,
                1.2});
}

}  // namespace

void RegisterConnector(TargetReport& report) {
    const Subject* smallest = nullptr;
    const Subject* smaller = nullptr;
    for (const auto& subject : Subjects()) {
        for (size_t kind = 0; kind < std::size(kKinds); ++kind) {
            if (!subject->Has(kind) || (kind != kVellum && !subject->IsForPeers())) continue;
            Register({subject->NameOf(kind), [&subject, kind, &report] { return CheckPieces(*subject, kind, report); },
                      [&subject, kind] { subject->ContenderOf(kind); }, [&subject, kind] { subject->Connect(kind); }});
        }
        AddPeerTarget(report, *subject, PeerLimit(*subject));
        if (subject->segments == 0) continue;
        if (smallest == nullptr) {
            smallest = subject.get();
        } else {
            AddGrowthTarget(report, *subject, *smaller);
            AddMemoryTarget(report, *subject, *smallest);
        }
        smaller = subject.get();
    }
}

}  // namespace VellumBench
