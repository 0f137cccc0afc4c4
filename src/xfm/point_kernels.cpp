// SPDX-License-Identifier: MIT
#include "xfm/point_kernels.h"

#include "types/instruction_set.h"

namespace Vellum::internal {

namespace {

// The baseline stands there before any initialiser has run: a host may transform points while it initialises its own
// static objects.
#if defined(__x86_64__)
constinit const PointKernels* active = &kSse2PointKernels;

[[gnu::constructor]] void RaiseToBestInstructionSet() {
    if (IsOffered(InstructionSet::Avx2)) active = &kAvx2PointKernels;
    if (IsOffered(InstructionSet::Avx512)) active = &kAvx512PointKernels;
}
#else
constinit const PointKernels* const active = &kPlainPointKernels;
#endif

}  // namespace

const ClassKernels& KernelsFor(const Mtx2D& m) { return active->ForType(m.type); }

}  // namespace Vellum::internal
