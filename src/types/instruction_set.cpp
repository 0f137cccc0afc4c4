// SPDX-License-Identifier: MIT
#include "types/instruction_set.h"

namespace Vellum::internal {

bool IsOffered(InstructionSet set) {
#if defined(__x86_64__)
    __builtin_cpu_init();
    switch (set) {
        case InstructionSet::Avx512:
            return __builtin_cpu_supports("avx512vbmi2") && __builtin_cpu_supports("avx512vl") &&
                   __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512dq") &&
                   __builtin_cpu_supports("bmi2");
        case InstructionSet::Avx2:
            return __builtin_cpu_supports("avx2");
        default:
            return true;
    }
#else
    return set == InstructionSet::Plain;
#endif
}

InstructionSet BestInstructionSet() {
    if (IsOffered(InstructionSet::Avx512)) return InstructionSet::Avx512;
    if (IsOffered(InstructionSet::Avx2)) return InstructionSet::Avx2;
    if (IsOffered(InstructionSet::Sse2)) return InstructionSet::Sse2;
    return InstructionSet::Plain;
}

}  // namespace Vellum::internal
