// SPDX-License-Identifier: MIT
#include "floors_x86.h"

#include "floors_portable.h"

namespace VellumBench {

const Floors& MachineFloors() {
    if (__builtin_cpu_supports("avx512f")) return kFloorsAvx512;
    if (__builtin_cpu_supports("avx2")) return kFloorsAvx2;
    return kFloorsPortable;
}

}  // namespace VellumBench
