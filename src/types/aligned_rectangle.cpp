// SPDX-License-Identifier: MIT
#include <new>

#include "vellum/geometry.h"
#include "vellum/matrix.h"
#include "vellum/rectangles.h"

namespace Vellum {

using namespace EntityHandleEnum;

namespace {

// Handles are numbered row by row from the top, three to a row.
constexpr int kHandlesPerRow = 3;
constexpr int kNoPosition = -1;

// 0, 1 or 2 for the place of v at first, middle or last; the ends are looked at before the middle.
int PositionOf(double v, double first, double middle, double last) {
    if (v == first) return 0;
    if (v == last) return 2;
    return v == middle ? 1 : kNoPosition;
}

double PositionAt(int position, double first, double middle, double last) {
    return position == 0 ? first : position == 1 ? middle : last;
}

// A corner of the box by its two sides.
struct Corner {
    bool isRight;
    bool isTop;
};

bool FindCorner(const AlignedDblRect& r, const DblPt& p, Corner& corner) {
    if ((p.x != r.ll.x && p.x != r.ur.x) || (p.y != r.ll.y && p.y != r.ur.y)) return false;
    corner.isRight = p.x != r.ll.x;
    corner.isTop = p.y != r.ll.y;
    return true;
}

DblPt PointOf(const AlignedDblRect& r, const Corner& corner) {
    return DblPt(corner.isRight ? r.ur.x : r.ll.x, corner.isTop ? r.ur.y : r.ll.y);
}

// The coordinates come by value: a and b may be corners of the box that they are read from.
void SetSide(DblPt& a, DblPt& b, double ax, double ay, double bx, double by) {
    a.Set(ax, ay);
    b.Set(bx, by);
}

double SizeRatio(double targetSize, double size) { return size == 0.0 ? 1.0 : targetSize / size; }

}  // namespace

void AlignedDblRect::ToRealRectT(real_rect_t& out) const {
    out = {{ll.x, ll.y}, {ll.x, ur.y}, {ur.x, ur.y}, {ur.x, ll.y}};
}

void AlignedDblRect::GetLeftSide(DblPt& a, DblPt& b) const { SetSide(a, b, ll.x, ll.y, ll.x, ur.y); }
void AlignedDblRect::GetTopSide(DblPt& a, DblPt& b) const { SetSide(a, b, ll.x, ur.y, ur.x, ur.y); }
void AlignedDblRect::GetRightSide(DblPt& a, DblPt& b) const { SetSide(a, b, ur.x, ur.y, ur.x, ll.y); }
void AlignedDblRect::GetBottomSide(DblPt& a, DblPt& b) const { SetSide(a, b, ur.x, ll.y, ll.x, ll.y); }

AlignedDblRect& AlignedDblRect::operator+=(const AlignedDblRect& r) {
    if (r.ll.x < ll.x) ll.x = r.ll.x;
    if (r.ll.y < ll.y) ll.y = r.ll.y;
    if (ur.x < r.ur.x) ur.x = r.ur.x;
    if (ur.y < r.ur.y) ur.y = r.ur.y;
    return *this;
}

AlignedDblRect& AlignedDblRect::Enclose(double x, double y) {
    if (ll.x > x)
        ll.x = x;
    else if (x > ur.x)
        ur.x = x;
    if (ll.y > y)
        ll.y = y;
    else if (y > ur.y)
        ur.y = y;
    return *this;
}

AlignedDblRect& AlignedDblRect::ExpandBy(double dx, double dy) {
    ll.x -= dx;
    ll.y -= dy;
    ur.x += dx;
    ur.y += dy;
    return *this;
}

AlignedDblRect& AlignedDblRect::Translate(double dx, double dy) {
    ll.x += dx;
    ll.y += dy;
    ur.x += dx;
    ur.y += dy;
    return *this;
}

bool AlignedDblRect::Contains(const DblPt& p, double tol) const { return AlignedDblRect::Contains(p.x, p.y, tol); }

bool AlignedDblRect::Contains(double x, double y, double tol) const {
    return x + tol >= ll.x && ur.x >= x - tol && y + tol >= ll.y && ur.y >= y - tol;
}

bool AlignedDblRect::Contains(const AlignedDblRect& r) const { return r.ll >= ll && r.ur <= ur && r.ur > r.ll; }

bool AlignedDblRect::IsDisjointFrom(const AlignedDblRect& r) const {
    return ll.y > r.ur.y || r.ll.y > ur.y || ll.x > r.ur.x || r.ll.x > ur.x;
}

bool AlignedDblRect::IsDisjointFrom(const AlignedDblRect& r, double tol) const {
    return ll.y > r.ur.y + tol || r.ll.y - tol > ur.y || ll.x > r.ur.x + tol || r.ll.x - tol > ur.x;
}

bool AlignedDblRect::IsIntersectedByLine(const DblPt& a, const DblPt& b) const {
    if (a.y > ur.y && b.y > ur.y) return false;
    if (a.y < ll.y && b.y < ll.y) return false;
    if (a.x < ll.x && b.x < ll.x) return false;
    // One end only, unlike the other three sides: what hosts pick rests on it.
    if (a.x > ur.x) return false;

    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const auto cross = [&](double cornerX, double cornerY) { return (cornerY - a.y) * dx - (cornerX - a.x) * dy; };
    if (cross(ur.x, ur.y) <= 0.0 && cross(ll.x, ll.y) > 0.0) return true;
    return cross(ur.x, ll.y) <= 0.0 && cross(ll.x, ur.y) > 0.0;
}

void AlignedDblRect::GetVertex(EntityHandle h, DblPt& out) const {
    if (h < HandleUpperLeft || h > HandleLowerRight) {
        out.Set(0.0, 0.0);
        return;
    }
    out.Set(PositionAt(h % kHandlesPerRow, ll.x, CenterX(), ur.x),
            PositionAt(h / kHandlesPerRow, ur.y, CenterY(), ll.y));
}

void AlignedDblRect::GetVertexEnum(EntityHandle& h, const DblPt& p) const {
    const int row = PositionOf(p.y, ur.y, CenterY(), ll.y);
    const int column = PositionOf(p.x, ll.x, CenterX(), ur.x);
    const bool found = row != kNoPosition && column != kNoPosition;
    h = found ? static_cast<EntityHandle>(row * kHandlesPerRow + column) : HandleNone;
}

void AlignedDblRect::GetOpposingDiagCorner(const DblPt& p, DblPt& out) const {
    Corner corner;
    out = FindCorner(*this, p, corner) ? PointOf(*this, {!corner.isRight, !corner.isTop}) : p;
}

void AlignedDblRect::GetOpposingHorzCorner(const DblPt& p, DblPt& out) const {
    Corner corner;
    if (FindCorner(*this, p, corner)) out = PointOf(*this, {!corner.isRight, corner.isTop});
}

void AlignedDblRect::GetOpposingVertCorner(const DblPt& p, DblPt& out) const {
    Corner corner;
    if (FindCorner(*this, p, corner)) out = PointOf(*this, {corner.isRight, !corner.isTop});
}

void AlignedDblRect::ClosestPt(const DblPt& p, DblPt& out) const {
    const DblPt ul(ll.x, ur.y);
    const DblPt lr(ur.x, ll.y);
    DblPt closest;
    double closestDist = DistPtLine(p, ll, ul, closest, true);
    const auto trySide = [&](const DblPt& a, const DblPt& b) {
        DblPt candidate;
        const double dist = DistPtLine(p, a, b, candidate, true);
        if (dist < closestDist) {
            closestDist = dist;
            closest = candidate;
        }
    };
    trySide(ul, ur);
    trySide(ur, lr);
    trySide(lr, ll);
    out = closest;
}

void AlignedDblRect::GetTransformParams(const AlignedDblRect& target, double& scaleX, double& scaleY, double& offsetX,
                                        double& offsetY) const {
    const DblPt scale(SizeRatio(target.Width(), Width()), SizeRatio(target.Height(), Height()));
    const DblPt offset(target.CenterX() - CenterX(), target.CenterY() - CenterY());
    scaleX = scale.x;
    scaleY = scale.y;
    offsetX = offset.x;
    offsetY = offset.y;
}

ClosedShape* AlignedDblRect::Clone() const { return new (std::nothrow) AlignedDblRect(*this); }

void AlignedDblRect::Print() const {
    DbgPrintf("DblPt rect[2] = {\n");
    DbgPrintf("DblPt(%lf, %lf),\n", ll.x, ll.y);
    DbgPrintf("DblPt(%lf, %lf)\n", ur.x, ur.y);
    DbgPrintf("};\n\n");
}

void AlignedDblRect::GetCentroid(DblPt& out) const { GetCenter(out); }

void AlignedDblRect::ApplyTransform(const Mtx2D* m) {
    DblPt a;
    DblPt b;
    m->RealXfmPt(ll, a);
    m->RealXfmPt(ur, b);
    Set(a, b);
}

}  // namespace Vellum
