// SPDX-License-Identifier: MIT
#include "shapes/clearance_kernels.h"

namespace Vellum::internal {
namespace {

#if defined(__x86_64__)
constexpr const ClearanceKernels* kBaseline = &kClearanceKernelsSse2;
#else
constexpr const ClearanceKernels* kBaseline = &kClearanceKernelsPlain;
#endif

// Usable from the start: a host's own initialisers may measure clearances before this file's have run.
constinit const ClearanceKernels* active = kBaseline;

[[maybe_unused]] const bool chosenAtLoad = [] {
    active = ClearanceKernelsFor(BestInstructionSet());
    return true;
}();

}  // namespace

const ClearanceKernels* ClearanceKernelsFor(InstructionSet set) {
    switch (set) {
#if defined(__x86_64__)
        case InstructionSet::Avx512:
            return &kClearanceKernelsAvx512;
        case InstructionSet::Avx2:
            return &kClearanceKernelsAvx2;
        case InstructionSet::Sse2:
            return &kClearanceKernelsSse2;
        default:
            return nullptr;
#else
        case InstructionSet::Plain:
            return &kClearanceKernelsPlain;
        default:
            return nullptr;
#endif
    }
}

const ClearanceKernels& ActiveClearanceKernels() { return *active; }

}  // namespace Vellum::internal
