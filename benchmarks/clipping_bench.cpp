// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstdio>
#include <functional>
#include <limits>
#include <memory>

#include "clipping_contenders.h"
#include "dataset.h"
#include "floors.h"
#include "suite.h"

namespace VellumBench {
namespace {

using Make = std::function<std::unique_ptr<ClippingContender>(const PolySet&)>;

/// What a contender counts for in the targets.
enum class Role { Vellum, Peer, CopyingPeer };

struct ContenderKind {
    std::string name;
    Make make;
    Role role;
    bool uprightOnly;
    double areaTolerance;  ///< relative to the area that ClipPolygonSetComplete draws
};

Make Peer(std::unique_ptr<ClippingContender> (*make)(const PolySet&, WithinView), WithinView within) {
    return [make, within](const PolySet& set) { return make(set, within); };
}

constexpr size_t kComplete = 0;

/// ClipPolygonSet leaves out much that lies inside a turned view, and Clipper rounds all points to its integers.
const ContenderKind kKinds[] = {
    {"ClipPolygonSetComplete", MakeClipPolygonSetComplete, Role::Vellum, false, 0},
    {"ClipPolygonSet", MakeClipPolygonSet, Role::Vellum, false, std::numeric_limits<double>::infinity()},
    {"boost", Peer(MakeBoost, WithinView::Clip), Role::Peer, false, 1e-6},
    {"clipper", Peer(MakeClipper, WithinView::Clip), Role::Peer, false, 1e-5},
    {"geos", Peer(MakeGeos, WithinView::Clip), Role::Peer, false, 1e-6},
    {"geos_rectangle", Peer(MakeGeosRectangle, WithinView::Clip), Role::Peer, true, 1e-6},
    {"boost_copying", Peer(MakeBoost, WithinView::Copy), Role::CopyingPeer, false, 1e-6},
    {"clipper_copying", Peer(MakeClipper, WithinView::Copy), Role::CopyingPeer, false, 1e-5},
    {"geos_rectangle_copying", Peer(MakeGeosRectangle, WithinView::Copy), Role::CopyingPeer, true, 1e-6}};

/// A set of polygons with all its contenders; each is made when it is first asked for.
class Subject {
public:
    Subject(std::string subjectName, PolySet (*make)(), real_pt_t viewCentre)
        : name(std::move(subjectName)), centre(viewCentre), makeSet(make) {}

    const PolySet& Set() {
        if (set.pts.empty()) set = makeSet();
        return set;
    }
    ClippingContender& Contender(size_t kind) {
        if (!contenders[kind]) contenders[kind] = kKinds[kind].make(Set());
        return *contenders[kind];
    }

    const std::string name;
    const real_pt_t centre;  ///< of the views

private:
    PolySet (*makeSet)();
    PolySet set;
    std::unique_ptr<ClippingContender> contenders[std::size(kKinds)];
};

std::vector<std::unique_ptr<Subject>>& Subjects() {
    static std::vector<std::unique_ptr<Subject>> subjects;
    if (subjects.empty()) {
        subjects.push_back(std::make_unique<Subject>("land", LandMap, real_pt_t{20, 45}));
        subjects.push_back(std::make_unique<Subject>("small_polygons", SmallPolygons, real_pt_t{500, 500}));
    }
    return subjects;
}

/// One view of one set.
struct Case {
    Subject& subject;
    int percent;
    bool turned;

    std::string Name(const std::string& contender) const {
        return "Clip/" + subject.name + (turned ? "_turned/" : "_upright/") + std::to_string(percent) + "/" + contender;
    }
    /// Makes contender @p kind ready for this view.
    ClippingContender& Ready(size_t kind) const {
        ClippingContender& contender = subject.Contender(kind);
        const PolySet& set = subject.Set();
        contender.SetView(View(BoxOf(set.pts.data(), set.pts.size()), subject.centre, percent / 100.0, turned));
        return contender;
    }
};

std::string CheckArea(const Case& c, size_t kind) {
    const auto areaBy = [&c](size_t contender) {
        ClippingContender& clipping = c.Ready(contender);
        clipping.Clip();
        return clipping.Area();
    };
    const double expected = areaBy(kComplete);
    const double area = areaBy(kind);
    char text[64];
    std::snprintf(text, sizeof text, "area %.9g", area);
    if (!(std::fabs(area - expected) <= kKinds[kind].areaTolerance * expected)) {
        Abort(c.Name(kKinds[kind].name) + ": " + text + ", ClipPolygonSetComplete has " + std::to_string(expected));
    }
    return text;
}

void RegisterKind(const Case& c, size_t kind) {
    Register({c.Name(kKinds[kind].name), [c, kind] { return CheckArea(c, kind); }, [c, kind] { c.Ready(kind); },
              [c, kind] { c.subject.Contender(kind).Clip(); }});
}

std::string RegisterReading(Subject& subject) {
    const std::string name = "Clip/" + subject.name + "/floor/reading";
    const auto read = [&subject] {
        const PolySet& set = subject.Set();
        MachineFloors().reading(set.pts.data(), set.pts.size() * sizeof set.pts[0]);
        MachineFloors().reading(set.codes.data(), set.codes.size() * sizeof set.codes[0]);
    };
    Register({name, [] { return std::string(); }, [&subject] { subject.Set(); }, read});
    return name;
}

std::vector<std::string> NamesOf(const Case& c, Role role) {
    std::vector<std::string> names;
    for (const ContenderKind& kind : kKinds) {
        if (kind.role == role) names.push_back(c.Name(kind.name));
    }
    return names;
}

void AddTargets(TargetReport& report, const Case& c, const std::string& reading) {
    const bool few = c.percent == 1;
    const double turnedLimit = few && c.subject.name == "small_polygons" ? 3 : 4;
    const double uprightLimit = few ? 1 : 2;
    for (const std::string& name : NamesOf(c, Role::Vellum)) {
        const auto add = [&](const std::string& against, const std::vector<std::string>& rivals, Bound bound,
                             double limit) {
            report.Add({name + ": " + against, name, rivals, bound, limit});
        };
        add("fastest peer", NamesOf(c, Role::Peer), Bound::TimesFaster, c.turned ? turnedLimit : uprightLimit);
        if (c.turned) add("reading once", {reading}, Bound::TimesFloor, 6);
        add("copying peer", NamesOf(c, Role::CopyingPeer), Bound::TimesFaster, kForInformation);
    }
}

}  // namespace

void RegisterClipping(TargetReport& report) {
    for (const auto& subject : Subjects()) {
        const std::string reading = RegisterReading(*subject);
        for (const bool turned : {true, false}) {
            for (const int percent : {1, 25, 100}) {
                const Case c = {*subject, percent, turned};
                for (size_t kind = 0; kind < std::size(kKinds); ++kind) {
                    if (!turned || !kKinds[kind].uprightOnly) RegisterKind(c, kind);
                }
                AddTargets(report, c, reading);
            }
        }
    }
}

}  // namespace VellumBench
