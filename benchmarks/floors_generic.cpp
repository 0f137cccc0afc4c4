// SPDX-License-Identifier: MIT
#include "floors_portable.h"

namespace VellumBench {

const Floors& MachineFloors() { return kFloorsPortable; }

}  // namespace VellumBench
