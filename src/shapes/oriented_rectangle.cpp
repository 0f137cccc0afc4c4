// SPDX-License-Identifier: MIT
#include <new>

#include "shapes/winding_kernels.h"
#include "vellum/geometry.h"
#include "vellum/matrix.h"
#include "vellum/rectangles.h"

namespace Vellum {

using internal::WindingOfEdge;

void DblRect::Set(const DblPt& a, const DblPt& b) { *this = a > b ? DblRect(b, a) : DblRect(a, b); }

void DblRect::Set(const DblPt& a, const DblPt& b, const DblPt& c, const DblPt& d) {
    const DblPt left = a.LeftOf(b).LeftOf(c).LeftOf(d);
    const DblPt top = a.Above(b).Above(c).Above(d);
    const DblPt right = a.RightOf(b).RightOf(c).RightOf(d);
    const DblPt bottom = a.Below(b).Below(c).Below(d);
    p0 = left;
    p1 = top;
    p2 = right;
    p3 = bottom;
}

void DblRect::Set(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4) {
    Set(DblPt(x1, y1), DblPt(x2, y2), DblPt(x3, y3), DblPt(x4, y4));
}

void DblRect::ToRealRectT(real_rect_t& out) const { out = {{p0.x, p0.y}, {p1.x, p1.y}, {p2.x, p2.y}, {p3.x, p3.y}}; }

ClosedShape* DblRect::Clone() const { return new (std::nothrow) DblRect(*this); }

void DblRect::Print() const {
    DbgPrintf("DblPt rect[4] = {\n");
    DbgPrintf("DblPt(%lf, %lf),\n", p0.x, p0.y);
    // No comma here: the text stays as the readers of these dumps know it.
    DbgPrintf("DblPt(%lf, %lf)\n", p1.x, p1.y);
    DbgPrintf("DblPt(%lf, %lf),\n", p2.x, p2.y);
    DbgPrintf("DblPt(%lf, %lf)\n", p3.x, p3.y);
    DbgPrintf("};\n\n");
}

bool DblRect::Contains(const DblPt& p, double tol) const { return Contains(p.x, p.y, tol); }

bool DblRect::Contains(double x, double y, double) const {
    const int winding = WindingOfEdge(p0, p1, x, y) + WindingOfEdge(p1, p2, x, y) + WindingOfEdge(p2, p3, x, y) +
                        WindingOfEdge(p3, p0, x, y);
    return winding != 0;
}

bool DblRect::Contains(const DblRect& r, double tol) {
    return Contains(r.p0, tol) && Contains(r.p1, tol) && Contains(r.p2, tol) && Contains(r.p3, tol);
}

void DblRect::GetCentroid(DblPt& out) const {
    out.Set((p0.x + p1.x + p2.x + p3.x) * 0.25, (p0.y + p1.y + p2.y + p3.y) * 0.25);
}

void DblRect::ApplyTransform(const Mtx2D* m) {
    DblPt a;
    DblPt b;
    DblPt c;
    DblPt d;
    m->RealXfmPt(p0, a);
    m->RealXfmPt(p1, b);
    m->RealXfmPt(p2, c);
    m->RealXfmPt(p3, d);
    Set(a, b, c, d);
}

}  // namespace Vellum
