// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstddef>

#include "golden/families.h"
#include "vellum/clearance.h"

namespace golden {

using Vellum::AlignedDblRect;
using Vellum::CircleGeom;
using Vellum::DblPt;
using Vellum::PolygonGeom;
using Vellum::PolylineGeom;

namespace {

template <class Chain>
Chain DrawChain(Inputs& inputs, Kind kind, size_t count) {
    const auto points = inputs.random.OneIn(2) ? inputs.Ring(kind, count) : inputs.Points(kind, count);
    return Chain(static_cast<unsigned>(count), points.data());
}

CircleGeom DrawCircle(Inputs& inputs, Kind kind) {
    const DblPt centre = inputs.Point(kind);
    return CircleGeom(centre, std::fabs(inputs.Coordinate(kind)));
}

/// Pairs of chains of every count, the second one of about the first's or of few points.
template <class First, class Second, class Measure>
void ForPairsOfChains(Inputs& inputs, Digest& digest, Measure measure) {
    for (const Kind kind : kAllKinds) {
        for (const size_t count : kCounts) {
            const size_t few = 2 + inputs.random.Below(20);
            const auto a = DrawChain<First>(inputs, kind, count);
            const auto b = DrawChain<Second>(inputs, kind, inputs.random.OneIn(2) ? few : count);
            DblPt onA(7, 7);
            DblPt onB(7, 7);
            digest.Add(measure(&a, &b, nullptr, &onA, &onB), onA, onB);
        }
    }
}

template <class Chain, class Measure>
void ForChains(Inputs& inputs, Digest& digest, Measure measure) {
    for (const Kind kind : kAllKinds) {
        for (const size_t count : kCounts) {
            const auto chain = DrawChain<Chain>(inputs, kind, count);
            const AlignedDblRect box = inputs.Box(kind);
            const CircleGeom circle = DrawCircle(inputs, kind);
            DblPt onA(7, 7);
            DblPt onB(7, 7);
            digest.Add(measure(chain, box, circle, onA, onB), onA, onB);
        }
    }
}

void Circles(Inputs& inputs, Digest& digest) {
    for (const Kind kind : kAllKinds) {
        for (int i = 0; i < 200; ++i) {
            const CircleGeom a = DrawCircle(inputs, kind);
            const CircleGeom b = DrawCircle(inputs, kind);
            const AlignedDblRect box = inputs.Box(kind);
            DblPt onA(7, 7);
            DblPt onB(7, 7);
            digest.Add(Vellum::CircleCircleGeomClearance(&a, &b, nullptr, &onA, &onB), onA, onB);
            digest.Add(Vellum::CircleRectangleGeomClearance(&a, &box, nullptr, &onA, &onB), onA, onB);
        }
    }
}

void CirclesAndChains(Inputs& inputs, Digest& digest) {
    ForChains<PolygonGeom>(inputs, digest,
                           [](const PolygonGeom& chain, auto&, const CircleGeom& circle, DblPt& onA, DblPt& onB) {
                               return Vellum::CirclePolygonGeomClearance(&circle, &chain, nullptr, &onA, &onB);
                           });
    ForChains<PolylineGeom>(inputs, digest,
                            [](const PolylineGeom& chain, auto&, const CircleGeom& circle, DblPt& onA, DblPt& onB) {
                                return Vellum::CirclePolylineGeomClearance(&circle, &chain, nullptr, &onA, &onB);
                            });
}

void Chains(Inputs& inputs, Digest& digest) {
    ForPairsOfChains<PolygonGeom, PolygonGeom>(inputs, digest, Vellum::PolygonPolygonGeomClearance);
    ForPairsOfChains<PolygonGeom, PolylineGeom>(inputs, digest, Vellum::PolygonPolylineGeomClearance);
    ForPairsOfChains<PolylineGeom, PolylineGeom>(inputs, digest, Vellum::PolylinePolylineGeomClearance);
}

void ChainsAndRectangles(Inputs& inputs, Digest& digest) {
    ForChains<PolygonGeom>(inputs, digest,
                           [](const PolygonGeom& chain, const AlignedDblRect& box, auto&, DblPt& onA, DblPt& onB) {
                               return Vellum::PolygonRectangleGeomClearance(&chain, &box, nullptr, &onA, &onB);
                           });
    ForChains<PolylineGeom>(inputs, digest,
                            [](const PolylineGeom& chain, const AlignedDblRect& box, auto&, DblPt& onA, DblPt& onB) {
                                return Vellum::PolylineRectangleGeomClearance(&chain, &box, nullptr, &onA, &onB);
                            });
}

void RectanglePairs(Inputs& inputs, Digest& digest) {
    for (const Kind kind : kAllKinds) {
        for (int i = 0; i < 200; ++i) {
            const AlignedDblRect a = inputs.Box(kind);
            const AlignedDblRect b = inputs.Box(kind);
            DblPt onA(7, 7);
            DblPt onB(7, 7);
            digest.Add(Vellum::RectangleRectangleGeomClearance(&a, &b, nullptr, &onA, &onB), onA, onB);
        }
    }
}

/// So many points that the index has several levels, far apart and intertwined.
void LargeChains(Inputs& inputs, Digest& digest) {
    for (const Kind kind : {Kind::SmallGrid, Kind::Plane, Kind::ManyScales, Kind::FarOff, Kind::NearTolerance}) {
        for (const bool isApart : {false, true}) {
            const size_t counts[] = {1000 + inputs.random.Below(2000), 1000 + inputs.random.Below(2000)};
            const auto a = DrawChain<PolylineGeom>(inputs, kind, counts[0]);
            auto b = DrawChain<PolylineGeom>(inputs, kind, counts[1]);
            if (isApart)
                for (unsigned i = 0; i < b.NPts(); ++i)
                    b.Vtx(i) += DblPt(23.5, -11.25);
            DblPt onA(7, 7);
            DblPt onB(7, 7);
            digest.Add(Vellum::PolylinePolylineGeomClearance(&a, &b, nullptr, &onA, &onB), onA, onB);
        }
    }
}

}  // namespace

Families ClearanceFamilies() {
    return {{"clearance.circles", Circles},
            {"clearance.circles_and_chains", CirclesAndChains},
            {"clearance.chains", Chains},
            {"clearance.chains_and_rectangles", ChainsAndRectangles},
            {"clearance.rectangles", RectanglePairs},
            {"clearance.large_chains", LargeChains}};
}

}  // namespace golden
