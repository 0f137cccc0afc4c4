// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstring>
#include <map>
#include <memory>

#include "dataset.h"
#include "floors.h"
#include "plain_loops.h"
#include "suite.h"
#include "transform_peers.h"
#include "vellum/matrix.h"

namespace VellumBench {
namespace {

using Vellum::DblPt;
using Vellum::Mtx2D;

constexpr int kSizes[] = {1000, 100000, 10000000};

/// The share of its points that the shrunk outline keeps; the floors' outputs are that much shorter.
constexpr double kKeptShare = 0.7;

template <typename T>
bool SameBytes(const std::vector<T>& a, const std::vector<T>& b) {
    return std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0;
}

/// Everything that a contender may write.
struct Results {
    std::vector<DblPt> pts;  ///< room for points of any kind
    std::vector<uint32_t> codes;
    std::vector<DblPt> moving;  ///< transformed in place, again and again
    int count = 0;
    double xMin = 0, yMin = 0, xMax = 0, yMax = 0;

    template <typename Point>
    Point* Pts() {
        return reinterpret_cast<Point*>(pts.data());
    }
    bool operator==(const Results& r) const {
        return SameBytes(pts, r.pts) && SameBytes(codes, r.codes) && SameBytes(moving, r.moving) && count == r.count &&
               xMin == r.xMin && yMin == r.yMin && xMax == r.xMax && yMax == r.yMax;
    }
};

/// The arrays of one size. All contenders work on the same ones, so that none has a better place in memory.
struct Arrays {
    explicit Arrays(int size)
        : n(size),
          bytes(static_cast<size_t>(n) * sizeof(DblPt)),
          scattered(ScatteredPoints(static_cast<size_t>(n))),
          outline(ShrunkOutline(static_cast<size_t>(n), 0.15)),
          repeating(ShrunkOutline(static_cast<size_t>(n), 0)),
          codes(static_cast<size_t>(n)) {
        for (size_t i = 9; i < codes.size(); i += 10)
            codes[i] = 2;
        ResetResults();
    }

    void ResetResults() {
        results.pts.assign(scattered.size(), DblPt(-1, -1));
        results.codes.assign(codes.size(), 9);
        results.moving = scattered;
    }

    DrwPSetT Set(std::vector<DblPt>& points) { return {n, reinterpret_cast<real_pt_t*>(points.data()), codes.data()}; }

    int n;
    size_t bytes;
    std::vector<DblPt> scattered;
    std::vector<DblPt> outline;    ///< for merging on the device
    std::vector<DblPt> repeating;  ///< the same with points that are equal to the last bit
    std::vector<uint32_t> codes;
    Results results;
};

Arrays& ArraysOf(int n) {
    static std::map<int, std::unique_ptr<Arrays>> all;
    std::unique_ptr<Arrays>& arrays = all[n];
    if (!arrays) arrays = std::make_unique<Arrays>(n);
    return *arrays;
}

struct MatrixClass {
    std::string name;
    Mtx2D toDevice;
    Mtx2D isometry;   ///< may be applied any number of times without the points running away
    Mtx2D wholeUnit;  ///< keeps points of one pixel together and those of two apart
};

Mtx2D Matrix(double m11, double m12, double m21, double m22, double dx, double dy) {
    Mtx2D m;
    m.m11 = m11;
    m.m12 = m12;
    m.m21 = m21;
    m.m22 = m22;
    m.dx = dx;
    m.dy = dy;
    m.SetType();
    return m;
}

std::vector<MatrixClass>& MatrixClasses() {
    const double cosine = std::cos(0.5), sine = std::sin(0.5), scale = 0.37;
    static std::vector<MatrixClass> classes = {
        {"aligned", Matrix(scale, 0, 0, -scale, 12.25, 700.5), Matrix(-1, 0, 0, -1, 0.5, 0.25),
         Matrix(1, 0, 0, -1, 12, 700)},
        {"swapped", Matrix(0, scale, -scale, 0, 12.25, 700.5), Matrix(0, 1, -1, 0, 0.5, 0.25),
         Matrix(0, 1, -1, 0, 12, 700)},
        {"general", Matrix(scale * cosine, scale * sine, -scale * sine, scale * cosine, 12.25, 700.5),
         Matrix(cosine, sine, -sine, cosine, 0.5, 0.25), Matrix(2, 1, 1, 1, 12, 700)}};
    return classes;
}

using Run = void (*)(MatrixClass&, Arrays&, Results&);
using FloorRun = std::function<void(Arrays&, Results&)>;
using NamedFloors = std::vector<std::pair<std::string, FloorRun>>;

/// A member of `Mtx2D`, and what does the same work.
struct Member {
    std::string name;
    Run vellum;
    Run plainLoop;
    NamedFloors floors;
};

NamedFloors ReadWriteFloors(double outPerIn, bool withCodes) {
    NamedFloors named;
    const auto add = [&](const std::string& name, Floors::ReadWrite pass) {
        named.emplace_back(name, [=](Arrays& a, Results& r) {
            const auto shareOf = [=](size_t bytes) {
                return static_cast<size_t>(static_cast<double>(bytes) * outPerIn);
            };
            pass(a.scattered.data(), a.bytes, r.pts.data(), shareOf(a.bytes));
            const size_t codeBytes = a.codes.size() * sizeof a.codes[0];
            if (withCodes) pass(a.codes.data(), codeBytes, r.codes.data(), shareOf(codeBytes));
        });
    };
    const Floors& floors = MachineFloors();
    add("copying", floors.copying);
    add("memcpying", floors.memcpying);
    add("streaming", floors.streaming);
    add("bursts", floors.bursts);
    return named;
}

NamedFloors InPlaceFloor() {
    return {{"in_place", [](Arrays& a, Results& r) { MachineFloors().inPlace(r.moving.data(), a.bytes); }}};
}

NamedFloors CopyFloor() {
    return {{"memcpy", [](Arrays& a, Results& r) {
                 std::memcpy(static_cast<void*>(r.pts.data()), a.scattered.data(), a.bytes);
             }}};
}

/// The same bytes as for another member.
NamedFloors NoFloorOfItsOwn() { return {}; }

const std::vector<Member>& Members() {
    static const std::vector<Member> members = {
        {"XfmPts",
         [](MatrixClass& c, Arrays& a, Results& r) { c.toDevice.XfmPts(a.n, a.scattered.data(), r.Pts<int_pt_t>()); },
         [](MatrixClass& c, Arrays& a, Results& r) {
             PlainXfmPts(c.toDevice, a.n, a.scattered.data(), r.Pts<int_pt_t>());
         },
         ReadWriteFloors(0.5, false)},
        {"XfmFPts",
         [](MatrixClass& c, Arrays& a, Results& r) { c.toDevice.XfmFPts(a.n, a.scattered.data(), r.Pts<int_pt_t>()); },
         [](MatrixClass& c, Arrays& a, Results& r) {
             PlainXfmFPts(c.toDevice, a.n, a.scattered.data(), r.Pts<int_pt_t>());
         },
         NoFloorOfItsOwn()},
        {"XfmSPts",
         [](MatrixClass& c, Arrays& a, Results& r) {
             c.toDevice.XfmSPts(a.n, a.scattered.data(), r.Pts<short_pt_t>());
         },
         [](MatrixClass& c, Arrays& a, Results& r) {
             PlainXfmSPts(c.toDevice, a.n, a.scattered.data(), r.Pts<short_pt_t>());
         },
         ReadWriteFloors(0.25, false)},
        {"RealXfmPts",
         [](MatrixClass& c, Arrays& a, Results& r) { c.toDevice.RealXfmPts(a.n, a.scattered.data(), r.pts.data()); },
         [](MatrixClass& c, Arrays& a, Results& r) {
             PlainRealXfmPts(c.toDevice, a.n, a.scattered.data(), r.pts.data());
         },
         CopyFloor()},
        {"RealXfmPtsExt",
         [](MatrixClass& c, Arrays& a, Results& r) {
             c.isometry.RealXfmPtsExt(a.n, r.moving.data(), r.xMin, r.yMin, r.xMax, r.yMax);
         },
         [](MatrixClass& c, Arrays& a, Results& r) {
             PlainRealXfmPtsExt(c.isometry, a.n, r.moving.data(), r.xMin, r.yMin, r.xMax, r.yMax);
         },
         InPlaceFloor()},
        {"XfmPolyPts",
         [](MatrixClass& c, Arrays& a, Results& r) {
             c.wholeUnit.XfmPolyPts(a.n, &r.count, a.outline.data(), r.Pts<int_pt_t>());
         },
         [](MatrixClass& c, Arrays& a, Results& r) {
             PlainXfmPolyPts(c.wholeUnit, a.n, &r.count, a.outline.data(), r.Pts<int_pt_t>());
         },
         ReadWriteFloors(0.5 * kKeptShare, false)},
        {"XfmPolySetPts",
         [](MatrixClass& c, Arrays& a, Results& r) {
             const DrwPSetT in = a.Set(a.outline);
             DrwDPSetT out = {0, r.Pts<int_pt_t>(), r.codes.data()};
             c.wholeUnit.XfmPolySetPts(&in, &out);
             r.count = out.numPts;
         },
         [](MatrixClass& c, Arrays& a, Results& r) {
             const DrwPSetT in = a.Set(a.outline);
             DrwDPSetT out = {0, r.Pts<int_pt_t>(), r.codes.data()};
             PlainXfmPolySetPts(c.wholeUnit, &in, &out);
             r.count = out.numPts;
         },
         ReadWriteFloors(0.5 * kKeptShare, true)},
        {"RealXfmPolyPtSet",
         [](MatrixClass& c, Arrays& a, Results& r) {
             const DrwPSetT in = a.Set(a.repeating);
             DrwPSetT out = {0, r.Pts<real_pt_t>(), r.codes.data()};
             c.wholeUnit.RealXfmPolyPtSet(&in, &out);
             r.count = out.numPts;
         },
         [](MatrixClass& c, Arrays& a, Results& r) {
             const DrwPSetT in = a.Set(a.repeating);
             DrwPSetT out = {0, r.Pts<real_pt_t>(), r.codes.data()};
             PlainRealXfmPolyPtSet(c.wholeUnit, &in, &out);
             r.count = out.numPts;
         },
         ReadWriteFloors(kKeptShare, true)}};
    return members;
}

struct Peer {
    std::string name;
    void (*xfmPts)(const Mtx2D&, int, const DblPt*, int_pt_t*);
};

const Peer kPeers[] = {{"agg", AggXfmPts}, {"boost", BoostXfmPts}, {"eigen", EigenXfmPts}};

std::string Name(const std::string& member, const std::string& matrixClass, int n, const std::string& contender) {
    return member + '/' + matrixClass + '/' + std::to_string(n) + '/' + contender;
}

/// What the plain loop makes of fresh arrays; @p a is left fresh again.
Results ExpectedResults(const Member& member, MatrixClass& matrixClass, Arrays& a) {
    a.ResetResults();
    member.plainLoop(matrixClass, a, a.results);
    Results expected = a.results;
    a.ResetResults();
    return expected;
}

void RegisterMember(const Member& member, MatrixClass& c, int n) {
    const auto add = [&](const std::string& contender, Run run) {
        const std::string name = Name(member.name, c.name, n, contender);
        const auto check = [&member, &c, n, run, name] {
            Arrays& a = ArraysOf(n);
            const Results expected = ExpectedResults(member, c, a);
            run(c, a, a.results);
            if (!(a.results == expected)) Abort(name + ": the results are not those of the plain loop");
            return std::string();
        };
        Register({name, check, [n] { ArraysOf(n); }, [&c, n, run] { run(c, ArraysOf(n), ArraysOf(n).results); }});
    };
    add("vellum", member.vellum);
    add("plain_loop", member.plainLoop);
}

/// Other libraries may sum in another order, and so may round to the neighbouring pixel.
bool SamePixels(Results& a, Results& b, int n) {
    for (int i = 0; i < n; ++i) {
        const int_pt_t& p = a.Pts<int_pt_t>()[i];
        const int_pt_t& q = b.Pts<int_pt_t>()[i];
        if (std::abs(p.x - q.x) > 1 || std::abs(p.y - q.y) > 1) return false;
    }
    return true;
}

void RegisterPeer(const Peer& peer, const Member& member, MatrixClass& c, int n) {
    const std::string name = Name(member.name, c.name, n, peer.name);
    const auto run = [&peer, &c, n] {
        Arrays& a = ArraysOf(n);
        peer.xfmPts(c.toDevice, n, a.scattered.data(), a.results.Pts<int_pt_t>());
    };
    const auto check = [&member, &c, n, run, name] {
        Results expected = ExpectedResults(member, c, ArraysOf(n));
        run();
        if (!SamePixels(ArraysOf(n).results, expected, n))
            Abort(name + ": the results are not those of the plain loop");
        return std::string();
    };
    Register({name, check, [n] { ArraysOf(n); }, run});
}

std::vector<std::string> RegisterFloors(const Member& member, int n) {
    std::vector<std::string> names;
    for (const auto& [contender, floor] : member.floors) {
        names.push_back(Name(member.name, "floor", n, contender));
        const auto run = [&floor = floor, n] { floor(ArraysOf(n), ArraysOf(n).results); };
        Register({names.back(), [] { return std::string(); }, [n] { ArraysOf(n); }, run});
    }
    return names;
}

void AddTargets(TargetReport& report, const std::string& member, const std::string& matrixClass, int n,
                const std::vector<std::string>& floors) {
    const std::string what = member + ", " + matrixClass + ", " + std::to_string(n) + " points: ";
    const std::string subject = Name(member, matrixClass, n, "vellum");
    const auto floorTarget = [&](double limit) {
        report.Add({what + "the floor", subject, floors, Bound::TimesFloor, limit});
    };
    const bool atMost100000 = n <= 100000;
    if (member == "XfmPts" && n == 1000) {
        std::vector<std::string> peers;
        for (const Peer& peer : kPeers)
            peers.push_back(Name(member, matrixClass, n, peer.name));
        report.Add({what + "fastest peer", subject, peers, Bound::TimesFaster, 3});
        report.Add({what + "plain loop", subject, {Name(member, matrixClass, n, "plain_loop")}, Bound::TimesFaster, 3});
    }
    if (member == "XfmPts" && n == 10000000) floorTarget(1.3);
    if (n == 1000) return;
    if (member == "RealXfmPts") floorTarget(1.1);
    if (member == "RealXfmPtsExt") floorTarget(1.2);
    if (member == "XfmPolyPts") floorTarget(atMost100000 ? 3.2 : 1.5);
}

}  // namespace

void RegisterTransforms(TargetReport& report) {
    for (const Member& member : Members()) {
        for (const int n : kSizes) {
            const std::vector<std::string> floors = RegisterFloors(member, n);
            for (MatrixClass& c : MatrixClasses()) {
                RegisterMember(member, c, n);
                if (member.name == "XfmPts") {
                    for (const Peer& peer : kPeers)
                        RegisterPeer(peer, member, c, n);
                }
                AddTargets(report, member.name, c.name, n, floors);
            }
        }
    }
}

}  // namespace VellumBench
