// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_GOLDEN_FORCED_KERNELS_H
#define VELLUM_TESTS_GOLDEN_FORCED_KERNELS_H

#include <string>
#include <vector>

#include "types/instruction_set.h"

namespace golden {

/// From here on the library's loops are those for `set`, which the processor must offer, and not the ones that the
/// library chose. False where none were built.
bool ForceKernels(Vellum::internal::InstructionSet set);

/// The groups of loops that the library has not asked for so far.
std::vector<std::string> KernelsNotAskedFor();

}  // namespace golden

#endif
