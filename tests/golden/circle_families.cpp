// SPDX-License-Identifier: MIT
#include "golden/families.h"
#include "vellum/circles.h"
#include "vellum/segment.h"

namespace golden {

using Vellum::AlignedDblRect;
using Vellum::ArcGeom;
using Vellum::CircleGeom;
using Vellum::DblPt;
using Vellum::Mtx2D;

namespace {

constexpr int kRounds = 250;

void Circles(Inputs& inputs, Digest& digest) {
    for (const Kind kind : kAllKinds) {
        for (int i = 0; i < kRounds; ++i) {
            const DblPt centre = inputs.Point(kind);
            CircleGeom circle(centre, inputs.Coordinate(kind));
            const DblPt p = inputs.Point(kind);
            const DblPt q = inputs.Point(kind);
            AlignedDblRect extents;
            circle.GetExtents(extents);
            DblPt closest(7, 7);
            circle.ClosestPt(p, closest);
            DblPt met(7, 7);
            digest.Add(Vellum::FindLineCircleIntersect(circle, Vellum::LineSegmentGeom(p, q), centre, met), met);
            digest.Add(extents, circle.Diameter(), closest, circle.HasVertex(p));
            digest.Add(circle.Contains(p, 0.0), circle.Contains(q.x, q.y, 1.0));
            DblPt max;
            DblPt min;
            DblPt about = q;
            ArcGeom().maxmin_circle(&about, circle.Radius(), &max, &min);
            digest.Add(max, min);
            const Mtx2D m = inputs.Matrix(kind);
            circle.ApplyTransform(&m);
            digest.Add(circle.center, circle.radius);
        }
    }
}

}  // namespace

Families CircleFamilies() { return {{"circles", Circles}}; }

}  // namespace golden
