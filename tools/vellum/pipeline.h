// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_PIPELINE_H
#define VELLUM_TOOL_PIPELINE_H

#include <vector>

#include "drawing.h"
#include "progress.h"
#include "view.h"

/// From a drawing to what the canvas draws. Every stage gives one geometry for each feature of the drawing, in its
/// order.
namespace tool {

/// What is in or near the view.
///
/// The rectangle that everything is clipped against is larger than the view, by as much as the edges seen in it reach
/// beyond it. So no edge in the picture is cut: its ends round to the same device points as in the whole drawing, and
/// the picture is the same. Nor do the edges along the clip rectangle come into the picture.
std::vector<Geometry> Clip(const Drawing& drawing, const View& view, Progress& progress);

/// Everything, whether it is in the view or not. Throws `Error` where device coordinates do not reach that far.
std::vector<Geometry> KeepWhole(const Drawing& drawing, const View& view);

/// In device units, with the points left out that fall on the one before them.
std::vector<DeviceGeometry> ToDevice(const std::vector<Geometry>& geometries, const View& view, Progress& progress);

}  // namespace tool

#endif
