// SPDX-License-Identifier: MIT
#include "paths/clip_kernels.h"

namespace Vellum::internal {
namespace {

#if defined(__x86_64__)
constexpr const ClipKernels* kBaseline = &kClipKernelsSse2;
#else
constexpr const ClipKernels* kBaseline = &kClipKernelsPlain;
#endif

// Usable from the start: a host's own initialisers may clip before this file's have run.
constinit const ClipKernels* active = kBaseline;

[[maybe_unused]] const bool chosenAtLoad = [] {
    active = ClipKernelsFor(BestInstructionSet());
    return true;
}();

}  // namespace

const ClipKernels* ClipKernelsFor(InstructionSet set) {
    switch (set) {
#if defined(__x86_64__)
        case InstructionSet::Avx512:
            return &kClipKernelsAvx512;
        case InstructionSet::Avx2:
            return &kClipKernelsAvx2;
        case InstructionSet::Sse2:
            return &kClipKernelsSse2;
        default:
            return nullptr;
#else
        case InstructionSet::Plain:
            return &kClipKernelsPlain;
        default:
            return nullptr;
#endif
    }
}

const ClipKernels& ActiveClipKernels() { return *active; }

}  // namespace Vellum::internal
