// SPDX-License-Identifier: MIT
#include "shapes/winding_kernels.h"

namespace Vellum::internal {

namespace {

#if defined(__x86_64__)
constexpr WindingKernel kBaseline = WindingSse2;
constexpr WindingKernel kOfFew = WindingOfFewSse2;
#else
constexpr WindingKernel kBaseline = WindingPlain;
constexpr WindingKernel kOfFew = WindingOfFewPlain;
#endif

// Usable from the start: a host may ask while it initialises its own static objects.
constinit WindingKernel active = kBaseline;

[[gnu::constructor]] void RaiseToBestInstructionSet() { active = WindingKernelFor(BestInstructionSet()); }

}  // namespace

WindingKernel WindingKernelFor(InstructionSet set) {
    switch (set) {
#if defined(__x86_64__)
        case InstructionSet::Avx512:
            return WindingAvx512;
        case InstructionSet::Avx2:
            return WindingAvx2;
        case InstructionSet::Sse2:
            return WindingSse2;
        default:
            return nullptr;
#else
        case InstructionSet::Plain:
            return WindingPlain;
        default:
            return nullptr;
#endif
    }
}

int64_t WindingOfRing(const DblPt* pts, size_t count, double x, double y) {
    return (count < kFewestWindingPoints ? kOfFew : active)(pts, count, x, y);
}

}  // namespace Vellum::internal
