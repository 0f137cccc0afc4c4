// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_PLAIN_LOOPS_H
#define VELLUM_BENCHMARKS_PLAIN_LOOPS_H

#include "vellum/matrix.h"

namespace VellumBench {

/// What a programmer writes who has no library: a loop over the points for each class of matrix, with the results of
/// the members of `Mtx2D` of the same name.

void PlainXfmPts(Vellum::Mtx2D m, int n, const Vellum::DblPt* in, int_pt_t* out);
void PlainXfmFPts(Vellum::Mtx2D m, int n, const Vellum::DblPt* in, int_pt_t* out);
void PlainXfmSPts(Vellum::Mtx2D m, int n, const Vellum::DblPt* in, short_pt_t* out);
void PlainRealXfmPts(Vellum::Mtx2D m, int n, const Vellum::DblPt* in, Vellum::DblPt* out);
void PlainRealXfmPtsExt(Vellum::Mtx2D m, int n, Vellum::DblPt* pts, double& xMin, double& yMin, double& xMax,
                        double& yMax);
void PlainXfmPolyPts(Vellum::Mtx2D m, int n, int* outCount, const Vellum::DblPt* in, int_pt_t* out);
void PlainXfmPolySetPts(Vellum::Mtx2D m, const DrwPSetT* in, DrwDPSetT* out);
void PlainRealXfmPolyPtSet(Vellum::Mtx2D m, const DrwPSetT* in, DrwPSetT* out);

}  // namespace VellumBench

#endif
