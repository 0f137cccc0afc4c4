// SPDX-License-Identifier: MIT
#include <cstddef>

#include "golden/families.h"
#include "vellum/polylines.h"
#include "vellum/segment.h"

namespace golden {

using Vellum::AlignedDblRect;
using Vellum::DblPt;
using Vellum::LineSegmentGeom;
using Vellum::Mtx2D;
using Vellum::PolygonGeom;
using Vellum::PolylineGeom;

namespace {

constexpr int kRounds = 100;

template <class Function>
void ForAllKinds(Function function) {
    for (const Kind kind : kAllKinds)
        for (int i = 0; i < kRounds; ++i)
            function(kind);
}

template <class Function>
void ForAllCounts(Inputs& inputs, Function function) {
    for (const Kind kind : kAllKinds)
        for (const size_t count : kCounts)
            function(kind, inputs.Points(kind, count));
}

template <class Chain>
Chain ChainOf(const std::vector<DblPt>& points) {
    return Chain(static_cast<unsigned>(points.size()), points.data());
}

template <class Chain>
void AddChain(Digest& digest, const Chain& chain) {
    digest.Add(chain.NPts(), chain.Extents());
    digest.AddAll(chain.Pts(), chain.NPts());
}

/// A point of the chain, or one in the middle of two of its points.
DblPt PointOn(const PolylineGeom& chain, Inputs& inputs) {
    const auto i = static_cast<unsigned>(inputs.random.Below(chain.NPts() - 1));
    const DblPt& a = chain.Vtx(i);
    const DblPt& b = chain.Vtx(i + 1);
    return inputs.random.OneIn(3) ? a : DblPt((a.x + b.x) * 0.5, (a.y + b.y) * 0.5);
}

void Segments(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        const std::vector<DblPt> p = inputs.Points(kind, 4);
        LineSegmentGeom segment(p[0], p[1]);
        LineSegmentGeom sorted;
        sorted.SetSort(p[1], p[2]);
        AlignedDblRect extents;
        segment.GetExtents(extents);
        DblPt centre;
        segment.GetCenter(centre);
        digest.Add(sorted.start, sorted.end, extents, centre, segment.Length(), segment.Radius(), segment.Slope());
        digest.Add(segment.Dx(), segment.Dy(), LineSegmentGeom::Slope(p[2], p[3]));
        digest.Add(segment.IsHorizontal(), segment.IsVertical(), segment.HasVertex(p[3]), segment.IsExactly(sorted));
        digest.Add(segment.IsEqualTo(sorted, inputs.Tolerance()));
        digest.Add(Vellum::DistPtLine(p[3], segment, true), Vellum::DistPtLine(p[2], segment, false));
        segment.Translate(p[3]);
        digest.Add(segment.start, segment.end);
        const Mtx2D m = inputs.Matrix(kind);
        sorted.ApplyTransform(&m);
        digest.Add(sorted.start, sorted.end);
    });
}

void PolylineMeasures(Inputs& inputs, Digest& digest) {
    ForAllCounts(inputs, [&](Kind kind, const std::vector<DblPt>& points) {
        auto chain = ChainOf<PolylineGeom>(points);
        DblPt centroid;
        DblPt middle;
        chain.GetCentroid(centroid);
        chain.GetBBoxCenter(middle);
        digest.Add(chain.ComputeLength(), centroid, middle, chain.HasVertex(inputs.Point(kind)));
        AddChain(digest, chain);
        const Mtx2D m = inputs.Matrix(kind);
        chain.ApplyTransform(&m);
        AddChain(digest, chain);
    });
}

void PolylineEditing(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        const size_t count = 2 + inputs.random.Below(12);
        auto chain = ChainOf<PolylineGeom>(inputs.Points(kind, count));
        const std::vector<DblPt> more = inputs.Points(kind, 4);
        AddChain(digest, PolylineGeom(chain, 0, 1, 3, more.data()));
        AddChain(digest, PolylineGeom(chain, true, 3, more.data()));
        AddChain(digest, PolylineGeom(chain, false, static_cast<unsigned>(count) + 2, more.data()));
        PolylineGeom grown;
        grown.AddPoint(more[0]);
        AddChain(digest, grown);
        chain.AddPoint(more[0]);
        chain.PrependPoint(more[1]);
        chain.InsertPoint(static_cast<unsigned>(inputs.random.Below(chain.NPts())), more[2]);
        AddChain(digest, chain);
        chain.MoveVertexTo(static_cast<unsigned>(inputs.random.Below(chain.NPts() + 1)), more[3]);
        chain.ReverseVertices();
        AddChain(digest, chain);
        chain.TrimFront(more[0], static_cast<unsigned>(inputs.random.Below(3)));
        chain.TrimBack(more[1], static_cast<unsigned>(inputs.random.Below(chain.NPts() + 1)));
        AddChain(digest, chain);
        chain.RecalcExtents();
        digest.Add(chain.Extents());
    });
}

void PolylineTrims(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        const size_t count = 2 + inputs.random.Below(12);
        auto chain = ChainOf<PolylineGeom>(inputs.Points(kind, count));
        const DblPt a = PointOn(chain, inputs);
        const DblPt b = inputs.random.OneIn(8) ? a : PointOn(chain, inputs);
        const bool allowPoint = inputs.random.OneIn(2);
        digest.Add(chain.Trim(a, b, allowPoint));
        AddChain(digest, chain);
    });
}

void PolylineJoins(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        const size_t count = 2 + inputs.random.Below(8);
        const size_t otherCount = 2 + inputs.random.Below(8);
        auto chain = ChainOf<PolylineGeom>(inputs.Points(kind, count));
        auto other = ChainOf<PolylineGeom>(inputs.Points(kind, otherCount));
        const bool isAtFront = inputs.random.OneIn(2);
        if (inputs.random.OneIn(2)) other.Vtx(0) = isAtFront ? chain.First() : chain.Last();
        const double tol = inputs.Tolerance();
        unsigned mine = 77;
        unsigned its = 77;
        digest.Add(chain.ConnectsTo(&other, mine, its, tol), mine, its);
        const auto i = static_cast<unsigned>(inputs.random.Below(otherCount));
        const auto j = static_cast<unsigned>(inputs.random.Below(otherCount));
        chain.AppendVertices(&other, i, j, tol);
        AddChain(digest, chain);
    });
}

void PolygonMeasures(Inputs& inputs, Digest& digest) {
    ForAllCounts(inputs, [&](Kind kind, const std::vector<DblPt>& points) {
        auto polygon = ChainOf<PolygonGeom>(points);
        DblPt centroid;
        DblPt middle;
        DblPt closest;
        polygon.GetCentroid(centroid);
        polygon.GetBBoxCenter(middle);
        polygon.ClosestPt(inputs.Point(kind), closest);
        digest.Add(centroid, middle, closest, polygon.HasVertex(inputs.Point(kind)));
        AddChain(digest, polygon);
        DblPt added = inputs.Point(kind);
        polygon.AddPoint(added);
        AddChain(digest, polygon);
        const DblPt to = inputs.Point(kind);
        polygon.MoveVertexTo(static_cast<unsigned>(inputs.random.Below(polygon.NPts())), to);
        const Mtx2D m = inputs.Matrix(kind);
        AddChain(digest, polygon);
        polygon.ApplyTransform(&m);
        AddChain(digest, polygon);
    });
}

void PolygonContainment(Inputs& inputs, Digest& digest) {
    for (const bool isRing : {false, true}) {
        for (const Kind kind : kAllKinds) {
            for (const size_t count : kCounts) {
                const auto points = isRing ? inputs.Ring(kind, count) : inputs.Points(kind, count);
                const auto polygon = ChainOf<PolygonGeom>(points);
                for (int i = 0; i < 12; ++i) {
                    DblPt p = inputs.Point(kind);
                    if (count > 0 && inputs.random.OneIn(3)) p = points[inputs.random.Below(count)];
                    if (count > 0 && inputs.random.OneIn(3)) p.y = points[inputs.random.Below(count)].y;
                    digest.Add(polygon.Contains(p, 0.0), polygon.Contains(p.y, p.x, 1.0));
                }
            }
        }
    }
}

}  // namespace

Families ChainFamilies() {
    return {{"segments", Segments},
            {"polylines.measures", PolylineMeasures},
            {"polylines.editing", PolylineEditing},
            {"polylines.trims", PolylineTrims},
            {"polylines.joins", PolylineJoins},
            {"polygons.measures", PolygonMeasures},
            {"polygons.containment", PolygonContainment}};
}

}  // namespace golden
