// SPDX-License-Identifier: MIT
#include <algorithm>
#include <functional>

#include "containment_contenders.h"
#include "dataset.h"
#include "floors.h"
#include "suite.h"

namespace VellumBench {
namespace {

/// What a contender counts for in the targets. A peer meets each outline unprepared.
enum class Role { Vellum, PlainLoop, Peer, PreparedPeer };

struct ContenderKind {
    std::string name;
    std::unique_ptr<ContainmentContender> (*make)(const ContainmentData&);
    Role role;
    size_t mostVertices;  ///< takes too long for more
};

constexpr size_t kAnyNumber = SIZE_MAX;
constexpr size_t kVellum = 0, kPlainLoop = 1;

const ContenderKind kKinds[] = {{"vellum", MakeVellumContainment, Role::Vellum, kAnyNumber},
                                {"plain_loop", MakePlainContainment, Role::PlainLoop, kAnyNumber},
                                {"boost", MakeBoostContainment, Role::Peer, kAnyNumber},
                                {"boost_franklin", MakeBoostFranklinContainment, Role::Peer, kAnyNumber},
                                {"boost_crossings", MakeBoostCrossingsContainment, Role::Peer, kAnyNumber},
                                {"geos", MakeGeosContainment, Role::Peer, 1000},
                                {"geos_distance", MakeGeosDistanceContainment, Role::Peer, kAnyNumber},
                                {"geos_indexed", MakeGeosIndexedContainment, Role::Peer, kAnyNumber},
                                {"geos_prepared", MakeGeosPreparedContainment, Role::PreparedPeer, kAnyNumber}};

/// An outline with all its contenders; each is made when it is first asked for.
class Subject {
public:
    Subject(std::string subjectName, size_t vertexCount, size_t queryCount,
            std::function<std::vector<Vellum::DblPt>()> make)
        : name(std::move(subjectName)), vertices(vertexCount), queries(queryCount), makeOutline(std::move(make)) {}

    ContainmentContender& Contender(size_t kind) {
        if (!contenders[kind]) contenders[kind] = kKinds[kind].make(Data());
        return *contenders[kind];
    }
    std::string NameOf(const std::string& contender) const {
        return "Contains/" + name + '/' + std::to_string(vertices) + '/' + contender;
    }
    std::string NameOf(size_t kind) const { return NameOf(kKinds[kind].name); }
    bool Has(size_t kind) const { return vertices <= kKinds[kind].mostVertices; }
    const ContainmentData& Data() {
        if (data.outline.empty()) {
            data.outline = makeOutline();
            if (data.outline.size() != vertices) Abort(name + ": not " + std::to_string(vertices) + " vertices");
            data.queries = PointsAbout(data.outline, queries);
        }
        return data;
    }

    const std::string name;
    const size_t vertices;
    const size_t queries;

private:
    std::function<std::vector<Vellum::DblPt>()> makeOutline;
    ContainmentData data;
    std::unique_ptr<ContainmentContender> contenders[std::size(kKinds)];
};

constexpr size_t kLargestLandVertices = 10296;

std::vector<std::unique_ptr<Subject>>& Subjects() {
    static std::vector<std::unique_ptr<Subject>> subjects;
    const auto add = [](const std::string& name, size_t vertices, size_t queries, auto make) {
        subjects.push_back(std::make_unique<Subject>(name, vertices, queries, make));
    };
    if (subjects.empty()) {
        // So many questions of the smallest outline that the processor cannot learn the answers by heart.
        for (const auto& [vertices, queries] : {std::pair<size_t, size_t>(10, 65535), {1000, 999}, {100000, 30}}) {
            add("star", vertices, queries, [vertices = vertices] { return StarOutline(5, vertices, {0, 0}); });
        }
        add("land", kLargestLandVertices, 99, LargestLand);
    }
    return subjects;
}

/// As no point lies on the outline, all methods must answer alike.
std::string CheckAnswers(Subject& subject, size_t kind) {
    const auto answersOf = [&subject](size_t contender) {
        subject.Contender(contender).Ask();
        return subject.Contender(contender).Answers();
    };
    const std::vector<char> expected = answersOf(kPlainLoop);
    if (answersOf(kind) != expected) Abort(subject.NameOf(kind) + ": the answers are not those of the plain loop");
    return std::to_string(std::count(expected.begin(), expected.end(), 1)) + " of " + std::to_string(expected.size()) +
           " inside";
}

void RegisterKind(Subject& subject, size_t kind) {
    Register({subject.NameOf(kind), [&subject, kind] { return CheckAnswers(subject, kind); },
              [&subject, kind] { subject.Contender(kind); }, [&subject, kind] { subject.Contender(kind).Ask(); },
              subject.queries});
}

std::string RegisterReading(Subject& subject) {
    const std::string name = subject.NameOf("floor/reading");
    const auto read = [&subject] {
        const std::vector<Vellum::DblPt>& outline = subject.Data().outline;
        MachineFloors().reading(outline.data(), outline.size() * sizeof outline[0]);
    };
    Register({name, [] { return std::string(); }, [&subject] { subject.Data(); }, read});
    return name;
}

std::vector<std::string> NamesOf(const Subject& subject, Role role) {
    std::vector<std::string> names;
    for (size_t kind = 0; kind < std::size(kKinds); ++kind) {
        if (kKinds[kind].role == role && subject.Has(kind)) names.push_back(subject.NameOf(kind));
    }
    return names;
}

void AddTargets(TargetReport& report, const Subject& subject, const std::string& reading) {
    const auto add = [&](const std::string& against, const std::vector<std::string>& rivals, Bound bound,
                         double limit) {
        report.Add({"Contains, " + subject.name + ", " + std::to_string(subject.vertices) + " vertices: " + against,
                    subject.NameOf(kVellum), rivals, bound, limit});
    };
    // From so few vertices nothing can be gained.
    const bool isSmall = subject.vertices < 1000, isStar = subject.name == "star";
    const double loopLimit = isSmall ? 1 : 6, peerLimit = isSmall ? kForInformation : 2;
    add("plain loop", NamesOf(subject, Role::PlainLoop), Bound::TimesFaster, isStar ? loopLimit : kForInformation);
    add("fastest peer", NamesOf(subject, Role::Peer), Bound::TimesFaster, isStar ? peerLimit : kForInformation);
    add("prepared peer", NamesOf(subject, Role::PreparedPeer), Bound::TimesFaster, kForInformation);
    add("reading once", {reading}, Bound::TimesFloor, kForInformation);
}

}  // namespace

void RegisterContainment(TargetReport& report) {
    for (const auto& subject : Subjects()) {
        for (size_t kind = 0; kind < std::size(kKinds); ++kind) {
            if (subject->Has(kind)) RegisterKind(*subject, kind);
        }
        AddTargets(report, *subject, RegisterReading(*subject));
    }
}

}  // namespace VellumBench
