// SPDX-License-Identifier: MIT
#include "feature_clearance.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <variant>
#include <vector>

#include "feature_parts.h"

namespace tool {

namespace {

using Vellum::AlignedDblRect;
using Vellum::DblPt;
using Vellum::PolygonGeom;
using Vellum::PolylineGeom;

struct Witnesses {
    DblPt onA;
    DblPt onB;
};

// No part is without a point, so each pair has its witnesses.

void Measure(const PolygonGeom& a, const PolygonGeom& b, Witnesses& witnesses) {
    Vellum::PolygonPolygonGeomClearance(&a, &b, nullptr, &witnesses.onA, &witnesses.onB);
}

void Measure(const PolygonGeom& a, const PolylineGeom& b, Witnesses& witnesses) {
    Vellum::PolygonPolylineGeomClearance(&a, &b, nullptr, &witnesses.onA, &witnesses.onB);
}

void Measure(const PolylineGeom& a, const PolygonGeom& b, Witnesses& witnesses) {
    Vellum::PolygonPolylineGeomClearance(&b, &a, nullptr, &witnesses.onB, &witnesses.onA);
}

void Measure(const PolylineGeom& a, const PolylineGeom& b, Witnesses& witnesses) {
    Vellum::PolylinePolylineGeomClearance(&a, &b, nullptr, &witnesses.onA, &witnesses.onB);
}

/// How far one interval lies from another; 0 where they meet.
double Gap(double fromA, double toA, double fromB, double toB) { return std::max({0.0, fromB - toA, fromA - toB}); }

/// Nothing in one box is nearer than this to anything in the other.
double Distance(const AlignedDblRect& a, const AlignedDblRect& b) {
    const double x = Gap(a.Left(), a.Right(), b.Left(), b.Right());
    const double y = Gap(a.Bottom(), a.Top(), b.Bottom(), b.Top());
    return std::sqrt(x * x + y * y);
}

AlignedDblRect Union(const std::vector<Part>& parts) {
    AlignedDblRect box = ExtentsOf(parts.front());
    for (const Part& part : parts) {
        box += ExtentsOf(part);
    }
    return box;
}

/// A part and how far its box lies from all of the other feature.
struct Candidate {
    const Part* part;
    double distance;
};

/// The nearest first.
std::vector<Candidate> Candidates(const std::vector<Part>& parts, const AlignedDblRect& other) {
    std::vector<Candidate> candidates;
    candidates.reserve(parts.size());
    for (const Part& part : parts) {
        candidates.push_back({&part, Distance(ExtentsOf(part), other)});
    }
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate& a, const Candidate& b) { return a.distance < b.distance; });
    return candidates;
}

/// Keeps the nearest pair of those that it is shown, and leaves out what cannot be nearer.
class NearestPair {
public:
    /// Whether parts that far apart, or farther, may still hold a nearer pair.
    bool MayBeNearer(double distance) const { return distance < nearest_.distance; }

    void Show(const Part& a, const Part& b) {
        if (!MayBeNearer(Distance(ExtentsOf(a), ExtentsOf(b)))) return;
        Witnesses witnesses;
        std::visit([&](const auto& shapeA, const auto& shapeB) { Measure(shapeA, shapeB, witnesses); }, a, b);
        const double distance = witnesses.onA.Dist(witnesses.onB);
        if (!MayBeNearer(distance)) return;
        nearest_ = {witnesses.onA, witnesses.onB, distance, ExtentsOf(a), ExtentsOf(b)};
    }

    const Clearance& Nearest() const { return nearest_; }

private:
    Clearance nearest_{{}, {}, std::numeric_limits<double>::infinity(), {}, {}};
};

}  // namespace

Clearance MeasureClearance(const Geometry& a, const Geometry& b, Progress& progress) {
    const std::vector<Part> partsA = PartsOf(a);
    const std::vector<Part> partsB = PartsOf(b);
    const std::vector<Candidate> candidatesB = Candidates(partsB, Union(partsA));
    progress.Begin("measuring", partsA.size());
    NearestPair pair;
    for (const Candidate& candidateA : Candidates(partsA, Union(partsB))) {
        if (!pair.MayBeNearer(candidateA.distance)) break;
        for (const Candidate& candidateB : candidatesB) {
            if (!pair.MayBeNearer(candidateB.distance)) break;
            pair.Show(*candidateA.part, *candidateB.part);
        }
        progress.Advance();
    }
    return pair.Nearest();
}

}  // namespace tool
