// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_LOOK_H
#define VELLUM_TOOL_LOOK_H

#include <cstdint>

#include "palette.h"
#include "view.h"

/// What is the same on every canvas.
namespace tool {

inline constexpr Colour kBackground = Rgb(0xe4eef4);
inline constexpr Colour kFrame = Rgb(0x5d6b78);
inline constexpr Colour kInk = Rgb(0x2f3b4a);
inline constexpr Colour kPaper = Rgb(0xffffff);

// In pixels.
inline constexpr double kOutlineWidth = 0.7;
inline constexpr double kLineWidth = 1.3;
inline constexpr double kPointRadius = 3.5;
inline constexpr double kFrameWidth = 2.0;
inline constexpr double kHaloWidth = 1.8;
inline constexpr double kLabelMargin = 6.0;

// How far an outline goes from the area's colour towards ink.
inline constexpr double kOutlineInk = 0.55;

inline double Pixels(int32_t units) { return static_cast<double>(units) / kUnitsPerPixel; }

inline Colour OutlineColour(const Colour& area) { return Mix(area, kInk, kOutlineInk); }

}  // namespace tool

#endif
