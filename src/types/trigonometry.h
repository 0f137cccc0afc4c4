// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_TYPES_TRIGONOMETRY_H
#define VELLUM_SRC_TYPES_TRIGONOMETRY_H

namespace Vellum::internal {

/// @name Sine and cosine
/// The nearest double or one beside it, for every angle, in radians: what is close to 0 has all its digits, too.
/// @{
double Sine(double angle);
double Cosine(double angle);
/// @}

}  // namespace Vellum::internal

#endif
