// SPDX-License-Identifier: MIT
#include <cmath>

#include "types/multiply_add.h"

namespace Vellum::internal {

double MultiplyAdd(double a, double b, double c) { return std::fma(a, b, c); }

}  // namespace Vellum::internal
