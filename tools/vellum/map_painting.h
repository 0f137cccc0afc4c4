// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_MAP_PAINTING_H
#define VELLUM_TOOL_MAP_PAINTING_H

#include <span>

#include "canvas.h"
#include "drawing.h"
#include "palette.h"

namespace tool {

/// For what only surrounds the thing that is shown.
constexpr Style kPaleStyle = {Rgb(0xf7f5f0), Rgb(0xc9c4ba)};

/// Draws features, each in its style. Areas lie under lines and lines under points, whatever their order.
void PaintFeatures(std::span<const DeviceGeometry> geometries, std::span<const Style> styles, Canvas& canvas);

}  // namespace tool

#endif
