// SPDX-License-Identifier: MIT
#include "vellum/matrix.h"
#include "vellum/rectangles.h"
#include "xfm/point_map.h"

namespace Vellum {

namespace {

using internal::DeviceRound;
using internal::MapPoint;

struct Bounds {
    real_pt_t lower;
    real_pt_t upper;
};

void Include(Bounds& bounds, const real_pt_t& p) {
    if (p.x < bounds.lower.x) bounds.lower.x = p.x;
    if (p.y < bounds.lower.y) bounds.lower.y = p.y;
    if (p.x > bounds.upper.x) bounds.upper.x = p.x;
    if (p.y > bounds.upper.y) bounds.upper.y = p.y;
}

template <class Rect>
Bounds BoundsOfImage(const Mtx2D& m, const Rect& r) {
    const real_pt_t first = MapPoint(m, r.ll.x, r.ll.y);
    Bounds bounds{first, first};
    Include(bounds, MapPoint(m, r.ul.x, r.ul.y));
    Include(bounds, MapPoint(m, r.ur.x, r.ur.y));
    Include(bounds, MapPoint(m, r.lr.x, r.lr.y));
    return bounds;
}

template <class Rect, class Point>
Rect Corners(const Point& lower, const Point& upper) {
    return {lower, {lower.x, upper.y}, upper, {upper.x, lower.y}};
}

}  // namespace

void Mtx2D::XfmRect(const int_rect_t* in, real_rect_t* out) {
    const Bounds bounds = BoundsOfImage(*this, *in);
    *out = Corners<real_rect_t>(bounds.lower, bounds.upper);
}

void Mtx2D::XfmRect(const real_rect_t* in, real_rect_t* out) {
    const Bounds bounds = BoundsOfImage(*this, *in);
    *out = Corners<real_rect_t>(bounds.lower, bounds.upper);
}

void Mtx2D::XfmRect(const real_rect_t* in, int_rect_t* out) {
    const Bounds bounds = BoundsOfImage(*this, *in);
    *out = Corners<int_rect_t>(DeviceRound(bounds.lower), DeviceRound(bounds.upper));
}

void Mtx2D::XfmRect(AlignedDblRect& r) const { XfmRect(r, r); }

void Mtx2D::XfmRect(const AlignedDblRect& in, AlignedDblRect& out) const {
    const real_pt_t a = MapPoint(*this, in.ll.x, in.ll.y);
    const real_pt_t b = MapPoint(*this, in.ur.x, in.ur.y);
    out.Set(a.x, a.y, b.x, b.y);
}

}  // namespace Vellum
