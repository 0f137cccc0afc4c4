// SPDX-License-Identifier: MIT
#include <cmath>

#include "types/trigonometry.h"

namespace Vellum::internal {

double Sine(double angle) { return std::sin(angle); }

double Cosine(double angle) { return std::cos(angle); }

}  // namespace Vellum::internal
