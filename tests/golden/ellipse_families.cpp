// SPDX-License-Identifier: MIT
#include "golden/families.h"
#include "vellum/ellipses.h"

namespace golden {

using Vellum::circle_ellipse_s;
using Vellum::con_arc_str;
using Vellum::CONIC_ARC;
using Vellum::DblPt;
using Vellum::drw_con_arc_t;
using Vellum::EllipseGeom;
using Vellum::EllipticalArcGeom;
using Vellum::Mtx2D;
using Vellum::real_pt_t;

namespace {

constexpr int kRounds = 200;

template <class Function>
void ForAllKinds(Function function) {
    for (const Kind kind : kAllKinds)
        for (int i = 0; i < kRounds; ++i)
            function(kind);
}

real_pt_t RecordOf(const DblPt& p) { return {p.x, p.y}; }

template <class Conic>
void AddCoefficients(Digest& digest, const Conic& c) {
    digest.Add(c.A, c.B, c.C, c.D, c.E, c.F);
}

/// Coefficients of any conic, or of one that is an ellipse.
template <class Conic>
void DrawCoefficients(Inputs& inputs, Kind kind, Conic& c) {
    for (double* const coefficient : {&c.A, &c.B, &c.C, &c.D, &c.E, &c.F})
        *coefficient = inputs.Coordinate(kind);
    if (inputs.random.OneIn(3)) c.B = 0.0;
    if (inputs.random.OneIn(2)) {
        c.A = c.A * c.A + 1.0;
        c.C = c.C * c.C + c.B * c.B + 1.0;
        c.F = -(c.F * c.F + c.D * c.D + c.E * c.E);
    }
}

con_arc_str DrawConic(Inputs& inputs, Kind kind) {
    con_arc_str conic = {};
    DrawCoefficients(inputs, kind, conic);
    conic.start = RecordOf(inputs.Point(kind));
    conic.end = RecordOf(inputs.Point(kind));
    conic.closed = 1;
    return conic;
}

void ConicsOfEllipses(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        for (const bool isFull : {false, true}) {
            const std::vector<DblPt> p = inputs.Points(kind, 5);
            circle_ellipse_s diameters = {
                RecordOf(p[0]), RecordOf(p[1]), RecordOf(p[2]), RecordOf(p[3]), RecordOf(p[4]), 7.0, 9.0};
            CONIC_ARC arc = {};
            digest.Add(EllipseGeom().cgm2iges_ellipse(&diameters, isFull, &arc));
            AddCoefficients(digest, arc);
            digest.Add(arc.ZT, arc.X1, arc.Y1, arc.X2, arc.Y2, diameters.semiAxis1, diameters.semiAxis2);
        }
    });
}

void StandardForms(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        con_arc_str conic = DrawConic(inputs, kind);
        Vellum::std_ell_typ form = {};
        EllipseGeom().utl_standard_ellipse(&conic, &form);
        digest.Add(EllipseGeom().utl_conic_type(&conic));
        digest.Add(form.cosine, form.sine, form.center, form.startAngle, form.sweepAngle, form.a, form.b);
        con_arc_str rotated = {};
        const double sign = inputs.random.OneIn(2) ? 1.0 : -1.0;
        EllipseGeom().utlx_rotate_conic(&conic, 0.6, sign * 0.8, &rotated);
        AddCoefficients(digest, rotated);
        digest.Add(rotated.start, rotated.end, rotated.closed);
    });
}

void DistancesToConics(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        con_arc_str conic = DrawConic(inputs, kind);
        DblPt p = inputs.Point(kind);
        digest.Add(EllipseGeom().utl_point_conarc(p, &conic));
        const std::vector<DblPt> ends = inputs.Points(kind, 3);
        digest.Add(EllipseGeom(ends[0], ends[1], ends[2]).DistPointEllipse(p));
    });
}

void RaysAndVectors(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        CONIC_ARC conic = {};
        DrawCoefficients(inputs, kind, conic);
        const DblPt ray = inputs.Point(kind);
        DblPt met(7, 7);
        digest.Add(EllipseGeom().intersectRayEllipse(ray.x, ray.y, &conic, &met), met);
        DblPt vector = inputs.Point(kind);
        digest.Add(EllipseGeom().utlx_normalize_vector(vector), vector);
        digest.Add(EllipseGeom().utlx_correct_angle(inputs.Coordinate(kind)));
        drw_con_arc_t arc = {};
        DrawCoefficients(inputs, kind, arc);
        digest.Add(EllipticalArcGeom().IntersectRayEllipse(ray.y, ray.x, &arc, &met), met);
    });
}

void EllipseTransforms(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        const std::vector<DblPt> p = inputs.Points(kind, 4);
        EllipseGeom ellipse(p[0], p[1], p[2]);
        const Mtx2D m = inputs.Matrix(kind);
        ellipse.ApplyTransform(&m);
        digest.Add(ellipse.Center(), ellipse.Major(), ellipse.Minor(), ellipse.HasVertex(p[3]));
        ellipse.Translate(p[3]);
        digest.Add(ellipse.Center(), ellipse.Major(), ellipse.Minor());
    });
}

void ConicsOfEllipticalArcs(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        for (const bool isFull : {false, true}) {
            const std::vector<DblPt> p = inputs.Points(kind, 5);
            DblPt centre = p[0];
            DblPt first = p[1];
            DblPt second = p[2];
            DblPt start = p[3];
            DblPt end = p[4];
            double semiMajor = 7;
            double semiMinor = 7;
            bool isDegenerate = false;
            const drw_con_arc_t arc = EllipticalArcGeom().Cnj2ConEllipse(&centre, &first, &second, &start, &end,
                                                                         semiMajor, semiMinor, isDegenerate, isFull);
            AddCoefficients(digest, arc);
            digest.Add(arc.start, arc.end, arc.reversed, semiMajor, semiMinor, isDegenerate);
        }
        const DblPt start = inputs.Point(kind);
        const DblPt end = inputs.Point(kind);
        DblPt first = start;
        DblPt last = end;
        Mtx2D frame = inputs.Matrix(kind);
        EllipticalArcGeom().ComputeConicEndpoints(&first, &last, inputs.random.OneIn(2), &first, &last, &frame);
        digest.Add(first, last);
    });
}

/// Of ellipses along the axes: a turned one takes the sine of its angle.
void EllipticalArcExtents(Inputs& inputs, Digest& digest) {
    ForAllKinds([&](Kind kind) {
        drw_con_arc_t arc = {};
        DrawCoefficients(inputs, kind, arc);
        arc.B = 0.0;
        arc.start = RecordOf(inputs.Point(kind));
        arc.end = RecordOf(inputs.Point(kind));
        arc.reversed = inputs.random.Between(0, 1);
        for (const auto type : {Vellum::ArcOpen, Vellum::ArcPie, Vellum::ArcChord}) {
            DblPt min(7, 7);
            DblPt max(7, 7);
            digest.Add(EllipticalArcGeom().GetEllipticalArcExtents(&arc, type, min.x, min.y, max.x, max.y), min, max);
        }
        const std::vector<DblPt> p = inputs.Points(kind, 5);
        const EllipticalArcGeom upright(p[0], DblPt(p[1].x, p[0].y), DblPt(p[0].x, p[2].y), p[3], p[4]);
        Vellum::AlignedDblRect box;
        upright.GetExtents(box);
        digest.Add(box);
    });
}

}  // namespace

Families EllipseFamilies() {
    return {{"ellipses.conics", ConicsOfEllipses},
            {"ellipses.standard_forms", StandardForms},
            {"ellipses.distances", DistancesToConics},
            {"ellipses.rays_and_vectors", RaysAndVectors},
            {"ellipses.transforms", EllipseTransforms},
            {"elliptical_arcs.conics", ConicsOfEllipticalArcs},
            {"elliptical_arcs.extents_upright", EllipticalArcExtents}};
}

}  // namespace golden
