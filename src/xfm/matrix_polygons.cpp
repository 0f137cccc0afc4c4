// SPDX-License-Identifier: MIT
#include "vellum/matrix.h"
#include "xfm/point_kernels.h"

namespace Vellum {

namespace {

using internal::CodeArrays;
using internal::KernelsFor;
using internal::Numbers;

}  // namespace

void Mtx2D::XfmPolyPts(int n, int* outCount, const DblPt* in, int_pt_t* out) {
    *outCount = KernelsFor(*this).polygonToDevice(*this, n, Numbers(in), Numbers(out), {});
}

void Mtx2D::XfmPolyPts(int n, int* outCount, const DblPt* in, IntPt* out) {
    *outCount = KernelsFor(*this).polygonToDevice(*this, n, Numbers(in), Numbers(out), {});
}

void Mtx2D::XfmPolySetPts(const DrwPSetT* in, DrwDPSetT* out) {
    // Under any other type hosts keep codes of their own in the output.
    const CodeArrays codes = type == Mtx2DAxisAligned ? CodeArrays{in->codes, out->codes} : CodeArrays{};
    out->numPts = KernelsFor(*this).polygonToDevice(*this, in->numPts, Numbers(in->pts), Numbers(out->pts), codes);
}

void Mtx2D::RealXfmPolyPtSet(const DrwPSetT* in, DrwPSetT* out) {
    out->numPts = KernelsFor(*this).polygonToModel(*this, in->numPts, Numbers(in->pts), Numbers(out->pts),
                                                   {in->codes, out->codes});
}

}  // namespace Vellum
