// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_FLOORS_PORTABLE_H
#define VELLUM_BENCHMARKS_FLOORS_PORTABLE_H

#include "floors.h"

namespace VellumBench {

extern const Floors kFloorsPortable;

}  // namespace VellumBench

#endif
