// SPDX-License-Identifier: MIT
#include "types/fused_host.h"

namespace fused_host {

using Vellum::AlignedDblRect;
using Vellum::DblPt;

double Dist(const DblPt& a, const DblPt& b) { return a.Dist(b); }
double Distsq(const DblPt& a, const DblPt& b) { return a.Distsq(b); }
double ApproxDist(const DblPt& a, const DblPt& b) { return a.ApproxDist(b); }
bool IsLeftOfLine(const DblPt& p, const DblPt& a, const DblPt& b) { return p.isLeftOfLine(a, b); }
bool IsLooseLeftOfLine(const DblPt& p, const DblPt& a, const DblPt& b) { return DblPt::isLeftOfLine(a, b, p.x, p.y); }
double CenterX(const AlignedDblRect& r) { return r.CenterX(); }
double CenterY(const AlignedDblRect& r) { return r.CenterY(); }

void SetAround(AlignedDblRect& r, const DblPt& centre, double width, double height) { r.Set(centre, width, height); }

void DistsqOfAll(const DblPt* points, int n, const DblPt& from, double* out) {
    for (int i = 0; i < n; ++i) {
        out[i] = points[i].Distsq(from);
    }
}

void ApproxDistOfAll(const DblPt* points, int n, const DblPt& from, double* out) {
    for (int i = 0; i < n; ++i) {
        out[i] = points[i].ApproxDist(from);
    }
}

double MultiplyAdd(double a, double b, double c) { return a * b + c; }

}  // namespace fused_host
