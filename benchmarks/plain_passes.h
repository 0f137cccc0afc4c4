// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_PLAIN_PASSES_H
#define VELLUM_BENCHMARKS_PLAIN_PASSES_H

#include <cstddef>

#include "vellum/points.h"

namespace VellumBench {

/// What a programmer writes who has no library, with the library's results.

/// Whether the outline of @p count points winds round @p p.
bool PlainContains(const Vellum::DblPt* outline, size_t count, const Vellum::DblPt& p);

/// Holds every edge of each chain against every point of the other, by the octagonal estimate of the distance.
void PlainClearance(const Vellum::DblPt* a, size_t aCount, const Vellum::DblPt* b, size_t bCount, Vellum::DblPt* onA,
                    Vellum::DblPt* onB);

}  // namespace VellumBench

#endif
