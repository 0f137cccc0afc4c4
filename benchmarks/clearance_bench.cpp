// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "clearance_contenders.h"
#include "dataset.h"
#include "suite.h"

namespace VellumBench {
namespace {

constexpr size_t kSizes[] = {100, 1000, 10000, 100000};

/// What a contender counts for in the targets. A peer builds its indexes, where it has any, within the call.
enum class Role { Vellum, PlainPasses, Peer, PreparedPeer };

struct ContenderKind {
    std::string name;
    std::unique_ptr<ClearanceContender> (*make)(const ShapePair&);
    Role role;
    size_t mostVertices;  ///< takes too long for more
    double tolerance;     ///< how much farther apart, relatively, than the nearest points those found may be
};

constexpr size_t kAnyNumber = SIZE_MAX;
constexpr double kRoundingError = 1e-9;
/// The octagonal estimate lies between 0.96 and 1.0392 of the distance.
constexpr double kEstimateError = 1.0392 / 0.96 - 1;

constexpr size_t kVellum = 0, kExact = 1;

const ContenderKind kKinds[] = {
    {"vellum", MakeVellumClearance, Role::Vellum, kAnyNumber, kEstimateError},
    {"geos_indexed", MakeGeosIndexedClearance, Role::Peer, kAnyNumber, kRoundingError},
    {"boost", MakeBoostClearance, Role::Peer, kAnyNumber, kRoundingError},
    {"geos", MakeGeosClearance, Role::Peer, 1000, kRoundingError},
    {"geos_prepared", MakeGeosPreparedClearance, Role::PreparedPeer, kAnyNumber, kRoundingError},
    {"plain_passes", MakePlainClearance, Role::PlainPasses, 1000, kEstimateError}};

ShapePair Stars(size_t vertices, uint64_t seed) {
    ShapePair stars = {true, StarOutline(seed, vertices, {0, 0}), StarOutline(seed + 1, vertices, {2, 0})};
    stars.a.push_back(stars.a.front());
    stars.b.push_back(stars.b.front());
    return stars;
}

ShapePair River(size_t vertices, uint64_t seed) {
    return {false, RiverBank(seed, vertices, 1), RiverBank(seed + 1, vertices, -1)};
}

using Contenders = std::vector<std::unique_ptr<ClearanceContender>>;

/// Pairs of shapes of one size with all their contenders; those of a kind are made when they are first asked for.
class Subject {
public:
    Subject(std::string subjectName, size_t vertexCount, ShapePair (*make)(size_t, uint64_t))
        : name(std::move(subjectName)),
          vertices(vertexCount),
          pairs(std::max(kLeastVertices / vertices, size_t{1})),
          makeShapes(make) {}

    const Contenders& ContendersOf(size_t kind) {
        for (size_t i = contenders[kind].size(); i < pairs; ++i)
            contenders[kind].push_back(kKinds[kind].make(makeShapes(vertices, kFirstSeed + 2 * i)));
        return contenders[kind];
    }
    void Measure(size_t kind) {
        for (const auto& contender : ContendersOf(kind))
            contender->Measure();
    }
    std::string NameOf(size_t kind) const {
        return "Clearance/" + name + '/' + std::to_string(vertices) + '/' + kKinds[kind].name;
    }
    bool Has(size_t kind) const { return vertices <= kKinds[kind].mostVertices; }

    const std::string name;
    const size_t vertices;  ///< of each shape
    const size_t pairs;

private:
    /// Of small shapes there are as many pairs as have so many vertices together, so that the processor can neither
    /// learn them by heart nor keep them much nearer than large ones.
    static constexpr size_t kLeastVertices = 20000;
    static constexpr uint64_t kFirstSeed = 6;

    ShapePair (*makeShapes)(size_t, uint64_t);
    Contenders contenders[std::size(kKinds)];
};

std::vector<std::unique_ptr<Subject>>& Subjects() {
    static std::vector<std::unique_ptr<Subject>> subjects;
    if (subjects.empty()) {
        for (const size_t vertices : kSizes) {
            subjects.push_back(std::make_unique<Subject>("stars", vertices, Stars));
            subjects.push_back(std::make_unique<Subject>("river", vertices, River));
        }
    }
    return subjects;
}

std::string CheckClearance(Subject& subject, size_t kind) {
    const auto foundBy = [&subject](size_t contender) {
        subject.Measure(contender);
        std::vector<Clearance> all;
        for (const auto& pair : subject.ContendersOf(contender))
            all.push_back(pair->Found());
        return all;
    };
    const std::vector<Clearance> nearest = foundBy(kExact), byVellum = foundBy(kVellum), found = foundBy(kind);
    double worst = 1;
    for (size_t i = 0; i < found.size(); ++i) {
        const double ratio = found[i].distance / nearest[i].distance;
        if (!(ratio >= 1 - kRoundingError && ratio <= 1 + kKinds[kind].tolerance)) {
            Abort(subject.NameOf(kind) + ": the points found are " + std::to_string(found[i].distance) +
                  " apart, the shapes " + std::to_string(nearest[i].distance));
        }
        const bool samePoints = found[i].onA.IsExactly(byVellum[i].onA) && found[i].onB.IsExactly(byVellum[i].onB);
        if (kKinds[kind].role == Role::PlainPasses && !samePoints) {
            Abort(subject.NameOf(kind) + ": the points found are not those that Vellum finds");
        }
        worst = std::max(worst, ratio);
    }
    char text[64];
    std::snprintf(text, sizeof text, "%.4f of the distance at most", worst);
    return text;
}

void RegisterKind(Subject& subject, size_t kind) {
    Register({subject.NameOf(kind), [&subject, kind] { return CheckClearance(subject, kind); },
              [&subject, kind] { subject.ContendersOf(kind); }, [&subject, kind] { subject.Measure(kind); },
              subject.pairs});
}

std::vector<std::string> NamesOf(const Subject& subject, Role role) {
    std::vector<std::string> names;
    for (size_t kind = 0; kind < std::size(kKinds); ++kind) {
        if (kKinds[kind].role == role && subject.Has(kind)) names.push_back(subject.NameOf(kind));
    }
    return names;
}

std::string TargetName(const Subject& subject, const std::string& against) {
    return "Clearance, " + subject.name + ", " + std::to_string(subject.vertices) + " vertices: " + against;
}

void AddTargets(TargetReport& report, const Subject& subject) {
    const auto add = [&](const std::string& against, Role rivals, double limit) {
        report.Add({TargetName(subject, against), subject.NameOf(kVellum), NamesOf(subject, rivals), Bound::TimesFaster,
                    limit});
    };
    const double peerLimit = subject.vertices == 100 ? 3 : subject.vertices == 1000 ? 4.5 : 10;
    add("fastest peer", Role::Peer, peerLimit);
    add("prepared peer", Role::PreparedPeer, kForInformation);
    add("plain passes", Role::PlainPasses, kForInformation);
}

/// What n log n predicts from a tenth of the vertices.
void AddGrowthTarget(TargetReport& report, const Subject& subject, const Subject& smaller) {
    const auto work = [](const Subject& s) {
        const double n = static_cast<double>(s.vertices);
        return n * std::log(n);
    };
    report.Add({TargetName(subject, "growth from " + std::to_string(smaller.vertices)),
                subject.NameOf(kVellum),
                {smaller.NameOf(kVellum)},
                Bound::TimesFloor,
                work(subject) / work(smaller)});
}

}  // namespace

void RegisterClearance(TargetReport& report) {
    for (const auto& subject : Subjects()) {
        for (size_t kind = 0; kind < std::size(kKinds); ++kind) {
            if (subject->Has(kind)) RegisterKind(*subject, kind);
        }
        AddTargets(report, *subject);
        for (const auto& smaller : Subjects()) {
            const bool tenth = smaller->name == subject->name && smaller->vertices * 10 == subject->vertices;
            if (tenth && smaller->vertices >= 1000) AddGrowthTarget(report, *subject, *smaller);
        }
    }
}

}  // namespace VellumBench
