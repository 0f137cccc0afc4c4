// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_TYPES_MULTIPLY_ADD_H
#define VELLUM_SRC_TYPES_MULTIPLY_ADD_H

namespace Vellum::internal {

/// a b + c, rounded once.
double MultiplyAdd(double a, double b, double c);

}  // namespace Vellum::internal

#endif
