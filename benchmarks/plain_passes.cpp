// SPDX-License-Identifier: MIT
#include "plain_passes.h"

#include <cfloat>

namespace VellumBench {
namespace {

using Vellum::DblPt;

double Clamp(double v, double low, double high) { return v > high ? high : low > v ? low : v; }

/// The point of the edge that is nearest to @p p.
DblPt Foot(const DblPt& p, const DblPt& a, const DblPt& b) {
    const bool swap = b.x < a.x || (b.x == a.x && b.y < a.y);
    const DblPt& lo = swap ? b : a;
    const DblPt& hi = swap ? a : b;
    const double dx = hi.x - lo.x, dy = hi.y - lo.y;
    if (dx == 0) return DblPt(lo.x, Clamp(p.y, lo.y, hi.y));
    if (dy == 0) return DblPt(Clamp(p.x, lo.x, hi.x), lo.y);
    const double x = ((p.y - lo.y) * dy * dx + dx * dx * p.x + lo.x * (dy * dy)) / (dy * dy + dx * dx);
    if (lo.x > x) return lo;
    if (x > hi.x) return hi;
    return DblPt(x, (x - lo.x) / dx * dy + lo.y);
}

/// One pass: the edges of one chain, the points of the other. Returns the nearest distance yet.
double Pass(const DblPt* edges, size_t edgePoints, const DblPt* vertices, size_t vertexCount, double best, DblPt* foot,
            DblPt* vertex) {
    for (size_t e = 0; e + 1 < edgePoints; ++e) {
        for (size_t v = 0; v < vertexCount; ++v) {
            const DblPt nearest = Foot(vertices[v], edges[e], edges[e + 1]);
            const double distance = nearest.ApproxDist(vertices[v]);
            if (!(best > distance)) continue;
            best = distance;
            *foot = nearest;
            *vertex = vertices[v];
        }
    }
    return best;
}

}  // namespace

bool PlainContains(const DblPt* outline, size_t count, const DblPt& p) {
    int winding = 0;
    const DblPt* v = outline + count - 1;
    for (const DblPt* w = outline; w != outline + count; v = w++) {
        const auto side = [&] { return (w->x - v->x) * (p.y - v->y) - (p.x - v->x) * (w->y - v->y); };
        if (v->y <= p.y) {
            if (w->y > p.y && side() >= 0) ++winding;
        } else {
            if (w->y <= p.y && side() <= 0) --winding;
        }
    }
    return winding != 0;
}

void PlainClearance(const DblPt* a, size_t aCount, const DblPt* b, size_t bCount, DblPt* onA, DblPt* onB) {
    const double best = Pass(a, aCount, b, bCount, DBL_MAX, onA, onB);
    Pass(b, bCount, a, aCount, best, onB, onA);
}

}  // namespace VellumBench
