// SPDX-License-Identifier: MIT
#include "vellum/matrix.h"
#include "xfm/point_kernels.h"
#include "xfm/point_map.h"

namespace Vellum {

namespace {

using internal::DeviceRound;
using internal::KernelsFor;
using internal::MapPoint;
using internal::Numbers;

}  // namespace

void Mtx2D::RealXfmPt(const DblPt* in, real_pt_t* out) { *out = MapPoint(*this, in->x, in->y); }

void Mtx2D::RealXfmPt(const DblPt* in, DblPt* out) { *out = MapPoint(*this, in->x, in->y); }

void Mtx2D::RealXfmPt(DblPt& p) const { p = MapPoint(*this, p.x, p.y); }

void Mtx2D::RealXfmPt(const DblPt& in, DblPt& out) const { out = MapPoint(*this, in.x, in.y); }

void Mtx2D::XfmPt(double x, double y, double* outX, double* outY) {
    const real_pt_t p = MapPoint(*this, x, y);
    *outX = p.x;
    *outY = p.y;
}

void Mtx2D::XfmPt(double x, double y, int& outX, int& outY) {
    const int_pt_t p = DeviceRound(MapPoint(*this, x, y));
    outX = p.x;
    outY = p.y;
}

void Mtx2D::XfmPt(const DblPt* in, int_pt_t* out) { *out = DeviceRound(MapPoint(*this, in->x, in->y)); }

void Mtx2D::XfmPt(const DblPt* in, IntPt* out) { XfmPt(in->x, in->y, out->x, out->y); }

void Mtx2D::InvXfmPt(const IntPt* in, DblPt* out) { *out = MapPoint(*this, in->x, in->y); }

void Mtx2D::RealXfmPts(int n, const real_pt_t* in, DblPt* out) {
    KernelsFor(*this).toModel(*this, n, Numbers(in), Numbers(out));
}

void Mtx2D::RealXfmPts(int n, const DblPt* in, real_pt_t* out) {
    KernelsFor(*this).toModel(*this, n, Numbers(in), Numbers(out));
}

void Mtx2D::RealXfmPts(int n, const DblPt* in, DblPt* out) const {
    KernelsFor(*this).toModel(*this, n, Numbers(in), Numbers(out));
}

void Mtx2D::RealXfmPtsExt(int n, DblPt* pts, double& xMin, double& yMin, double& xMax, double& yMax) const {
    const internal::Extents extents = KernelsFor(*this).inPlace(*this, n, Numbers(pts));
    xMin = extents.xMin;
    yMin = extents.yMin;
    xMax = extents.xMax;
    yMax = extents.yMax;
}

void Mtx2D::XfmPts(int n, const DblPt* in, int_pt_t* out) {
    KernelsFor(*this).toDevice(*this, n, Numbers(in), Numbers(out));
}

void Mtx2D::XfmPts(int n, const DblPt* in, IntPt* out) {
    KernelsFor(*this).toDevice(*this, n, Numbers(in), Numbers(out));
}

void Mtx2D::XfmFPts(int n, const DblPt* in, int_pt_t* out) {
    KernelsFor(*this).toEighths(*this, n, Numbers(in), Numbers(out));
}

void Mtx2D::XfmFPts(int n, const DblPt* in, IntPt* out) {
    KernelsFor(*this).toEighths(*this, n, Numbers(in), Numbers(out));
}

void Mtx2D::XfmSPts(int n, const DblPt* in, short_pt_t* out) {
    KernelsFor(*this).toShort(*this, n, Numbers(in), Numbers(out));
}

}  // namespace Vellum
