// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_TRANSFORM_PEERS_H
#define VELLUM_BENCHMARKS_TRANSFORM_PEERS_H

#include "vellum/matrix.h"

namespace VellumBench {

/// Points to device integers by other libraries, each in the way that its own documentation suggests.

void AggXfmPts(const Vellum::Mtx2D& m, int n, const Vellum::DblPt* in, int_pt_t* out);
void BoostXfmPts(const Vellum::Mtx2D& m, int n, const Vellum::DblPt* in, int_pt_t* out);
void EigenXfmPts(const Vellum::Mtx2D& m, int n, const Vellum::DblPt* in, int_pt_t* out);

}  // namespace VellumBench

#endif
