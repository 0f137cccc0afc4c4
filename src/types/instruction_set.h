// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_TYPES_INSTRUCTION_SET_H
#define VELLUM_SRC_TYPES_INSTRUCTION_SET_H

namespace Vellum::internal {

/// The instruction sets for which there are kernels, from the least to the most capable. `Avx512` stands for the
/// generation of it that no longer lowers its clock for wide vectors.
enum class InstructionSet { Plain, Sse2, Avx2, Avx512 };

/// Whether this processor and operating system offer it.
bool IsOffered(InstructionSet set);

/// The most capable one that they offer.
InstructionSet BestInstructionSet();

}  // namespace Vellum::internal

#endif
