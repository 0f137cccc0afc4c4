// SPDX-License-Identifier: MIT
#include "golden/families.h"
#include "vellum/pick_regions.h"
#include "vellum/rectangles.h"

namespace golden {

using Vellum::AlignedDblRect;
using Vellum::DblPt;
using Vellum::DblRect;
using Vellum::Mtx2D;

namespace {

constexpr int kRounds = 200;

template <class Function>
void ForAllKinds(Function function) {
    for (const Kind kind : kAllKinds)
        for (int i = 0; i < kRounds; ++i)
            function(kind);
}

/// A point that lies on a side or at a corner of the box now and then.
DblPt PointAbout(const AlignedDblRect& box, Inputs& inputs, Kind kind) {
    DblPt p = inputs.Point(kind);
    if (inputs.random.OneIn(3)) p.x = inputs.random.OneIn(2) ? box.ll.x : box.ur.x;
    if (inputs.random.OneIn(3)) p.y = inputs.random.OneIn(2) ? box.ll.y : box.ur.y;
    return p;
}

void BoxMeasures(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        const AlignedDblRect box = inputs.Box(kind);
        const DblPt p = inputs.Point(kind);
        const DblPt size = inputs.Point(kind);
        AlignedDblRect around;
        around.Set(p, size.x, size.y);
        Vellum::real_rect_t corners;
        box.ToRealRectT(corners);
        DblPt centre;
        box.GetCentroid(centre);
        digest.Add(box, around, corners, centre, box.CenterX(), box.CenterY(), box.Width(), box.Height());
        using Side = void (AlignedDblRect::*)(DblPt&, DblPt&) const;
        for (const Side side : {&AlignedDblRect::GetLeftSide, &AlignedDblRect::GetTopSide,
                                &AlignedDblRect::GetRightSide, &AlignedDblRect::GetBottomSide}) {
            DblPt a;
            DblPt b;
            (box.*side)(a, b);
            digest.Add(a, b);
        }
    });
}

void BoxGrowth(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        AlignedDblRect box = inputs.Box(kind);
        const AlignedDblRect other = inputs.Box(kind);
        digest.Add(box == other, box < other);
        digest.Add(box.IsEqualTo(other, inputs.Tolerance()));
        const DblPt p = PointAbout(box, inputs, kind);
        digest.Add(box += p);
        const DblPt by = inputs.Point(kind);
        digest.Add(box += other);
        digest.Add(box.Translate(by));
        digest.Add(box.ExpandBy(by.y, by.x));
        digest.Add(box.ExpandBy(by.x));
    });
}

void BoxContainment(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        const AlignedDblRect box = inputs.Box(kind);
        const AlignedDblRect other = inputs.Box(kind);
        const DblPt p = PointAbout(box, inputs, kind);
        const DblPt q = PointAbout(box, inputs, kind);
        const double tol = inputs.Tolerance();
        digest.Add(box.Contains(p, tol), box.Contains(q.x, q.y, 0.0), box.Contains(other));
        digest.Add(box.IsDisjointFrom(other), box.IsDisjointFrom(other, tol));
        digest.Add(box.IsIntersectedByLine(p, q), box.IsIntersectedByLine(q, p));
    });
}

void BoxCorners(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        const AlignedDblRect box = inputs.Box(kind);
        const DblPt p = PointAbout(box, inputs, kind);
        Vellum::EntityHandleEnum::EntityHandle handle = Vellum::EntityHandleEnum::HandleNone;
        for (int h = 0; h <= Vellum::EntityHandleEnum::HandleNone; ++h) {
            DblPt vertex;
            box.GetVertex(static_cast<Vellum::EntityHandleEnum::EntityHandle>(h), vertex);
            box.GetVertexEnum(handle, vertex);
            digest.Add(vertex, handle);
        }
        box.GetVertexEnum(handle, p);
        DblPt diagonal(7, 7);
        DblPt horizontal(7, 7);
        DblPt vertical(7, 7);
        box.GetOpposingDiagCorner(p, diagonal);
        box.GetOpposingHorzCorner(p, horizontal);
        box.GetOpposingVertCorner(p, vertical);
        DblPt closest;
        box.ClosestPt(p, closest);
        digest.Add(handle, box.HasVertex(p), diagonal, horizontal, vertical, closest);
    });
}

void BoxTransforms(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        AlignedDblRect box = inputs.Box(kind);
        const AlignedDblRect target = inputs.Box(kind);
        const Mtx2D m = inputs.Matrix(kind);
        double scaleX = 7;
        double scaleY = 7;
        double offsetX = 7;
        double offsetY = 7;
        box.GetTransformParams(target, scaleX, scaleY, offsetX, offsetY);
        box.ApplyTransform(&m);
        digest.Add(scaleX, scaleY, offsetX, offsetY, box);
    });
}

void TurnedRectangles(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        DblRect r = inputs.Rectangle(kind);
        const DblRect other = inputs.Rectangle(kind);
        const DblPt a = inputs.Point(kind);
        const DblPt b = inputs.Point(kind);
        DblRect set;
        set.Set(a, b);
        const DblRect chosen(r.p1, r.p3, r.p0, r.p2);
        Vellum::real_rect_t corners;
        r.ToRealRectT(corners);
        DblPt centre;
        r.GetCentroid(centre);
        digest.Add(r, set, chosen, corners, centre, r.Width(), r.Height());
        digest.Add(r.Contains(a, 0.0), r.Contains(b.x, b.y, 1.0), r.Contains(r.p2, 0.0), r.Contains(other, 0.0));
        digest.Add(r.IsEqualTo(other, inputs.Tolerance()));
        const Mtx2D m = inputs.Matrix(kind);
        r.ApplyTransform(&m);
        digest.Add(r);
    });
}

class HostPickRect final : public Vellum::PickRect {
public:
    using PickRect::PickRect;
    void Reserved() override {}
};

void PickRegions(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        DblPt a = inputs.Point(kind);
        DblPt b = inputs.Point(kind);
        HostPickRect region(a, b);
        DblPt p = PointAbout(region.box, inputs, kind);
        const double tol = inputs.Tolerance();
        DblPt ll;
        DblPt ur;
        region.GetPoints(&ll, &ur);
        digest.Add(region.Contains(p, tol), region.Contains(p.x, p.y, 0.0), ll, ur);
        digest.Add(region.Left(), region.Bottom(), region.Right(), region.Top());
    });
}

}  // namespace

Families RectangleFamilies() {
    return {{"boxes.measures", BoxMeasures},       {"boxes.growth", BoxGrowth},
            {"boxes.containment", BoxContainment}, {"boxes.corners", BoxCorners},
            {"boxes.transforms", BoxTransforms},   {"turned_rectangles", TurnedRectangles},
            {"pick_regions", PickRegions}};
}

}  // namespace golden
