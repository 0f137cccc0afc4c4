// SPDX-License-Identifier: MIT
#include "plain_loops.h"

#include <cstdint>

namespace VellumBench {
namespace {

using Vellum::DblPt;
using Vellum::Mtx2D;

int32_t RoundToDevice(double v) { return static_cast<int32_t>(v < 0.0 ? v - 0.5 : v + 0.5); }

int_pt_t RoundToDevice(double x, double y) { return {RoundToDevice(x), RoundToDevice(y)}; }

/// Calls `emit(i, x, y)` with every transformed point.
template <typename Point, typename Emit>
[[gnu::always_inline]] inline void ForEachPoint(const Mtx2D& m, int n, const Point* in, Emit emit) {
    switch (m.type) {
        case Vellum::Mtx2DAxisAligned:
            for (int i = 0; i < n; ++i)
                emit(i, in[i].x * m.m11 + m.dx, in[i].y * m.m22 + m.dy);
            break;
        case Vellum::Mtx2DAxisSwapped:
            for (int i = 0; i < n; ++i)
                emit(i, in[i].y * m.m21 + m.dx, in[i].x * m.m12 + m.dy);
            break;
        default:
            for (int i = 0; i < n; ++i) {
                emit(i, in[i].x * m.m11 + in[i].y * m.m21 + m.dx, in[i].x * m.m12 + in[i].y * m.m22 + m.dy);
            }
    }
}

template <typename Point>
bool Equal(const Point& a, const Point& b) {
    return a.x == b.x && a.y == b.y;
}

/// Writes @p point unless it equals the last one written; returns the place where it now stands.
template <typename Point>
int Append(const Point& point, int& count, Point* out) {
    if (count == 0 || !Equal(out[count - 1], point)) out[count++] = point;
    return count - 1;
}

template <typename Point>
int WithoutReturn(int count, const Point* out) {
    return count == 3 && Equal(out[2], out[0]) ? 2 : count;
}

}  // namespace

void PlainXfmPts(Mtx2D m, int n, const DblPt* in, int_pt_t* out) {
    ForEachPoint(m, n, in, [=](int i, double x, double y) { out[i] = RoundToDevice(x, y); });
}

void PlainXfmFPts(Mtx2D m, int n, const DblPt* in, int_pt_t* out) {
    ForEachPoint(m, n, in, [=](int i, double x, double y) { out[i] = {RoundToDevice(x) * 8, RoundToDevice(y) * 8}; });
}

void PlainXfmSPts(Mtx2D m, int n, const DblPt* in, short_pt_t* out) {
    ForEachPoint(m, n, in, [=](int i, double x, double y) {
        out[i] = {static_cast<int16_t>(RoundToDevice(x)), static_cast<int16_t>(RoundToDevice(y))};
    });
}

void PlainRealXfmPts(Mtx2D m, int n, const DblPt* in, DblPt* out) {
    ForEachPoint(m, n, in, [=](int i, double x, double y) { out[i].Set(x, y); });
}

void PlainRealXfmPtsExt(Mtx2D m, int n, DblPt* pts, double& xMin, double& yMin, double& xMax, double& yMax) {
    double left = 3.4028234663852886e38, bottom = left, right = -left, top = -left;
    ForEachPoint(m, n, pts, [&](int i, double x, double y) {
        pts[i].Set(x, y);
        if (x < left) left = x;
        if (y < bottom) bottom = y;
        if (x > right) right = x;
        if (y > top) top = y;
    });
    xMin = left;
    yMin = bottom;
    xMax = right;
    yMax = top;
}

void PlainXfmPolyPts(Mtx2D m, int n, int* outCount, const DblPt* in, int_pt_t* out) {
    int count = 0;
    ForEachPoint(m, n, in, [&](int, double x, double y) { Append(RoundToDevice(x, y), count, out); });
    *outCount = WithoutReturn(count, out);
}

void PlainXfmPolySetPts(Mtx2D m, const DrwPSetT* in, DrwDPSetT* out) {
    int count = 0;
    int_pt_t* pts = out->pts;
    uint32_t* codes = out->codes;
    if (m.type == Vellum::Mtx2DAxisAligned) {
        ForEachPoint(m, in->numPts, in->pts,
                     [&](int i, double x, double y) { codes[Append(RoundToDevice(x, y), count, pts)] = in->codes[i]; });
    } else {
        ForEachPoint(m, in->numPts, in->pts, [&](int, double x, double y) { Append(RoundToDevice(x, y), count, pts); });
    }
    out->numPts = WithoutReturn(count, pts);
}

void PlainRealXfmPolyPtSet(Mtx2D m, const DrwPSetT* in, DrwPSetT* out) {
    int count = 0;
    real_pt_t* pts = out->pts;
    uint32_t* codes = out->codes;
    ForEachPoint(m, in->numPts, in->pts, [&](int i, double x, double y) {
        codes[Append(real_pt_t{x, y}, count, pts)] = in->codes[i];
    });
    out->numPts = WithoutReturn(count, pts);
}

}  // namespace VellumBench
