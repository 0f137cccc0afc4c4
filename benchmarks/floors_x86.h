// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_FLOORS_X86_H
#define VELLUM_BENCHMARKS_FLOORS_X86_H

#include "floors.h"

namespace VellumBench {

extern const Floors kFloorsAvx2;
extern const Floors kFloorsAvx512;

}  // namespace VellumBench

#endif
