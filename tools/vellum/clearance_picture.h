// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_CLEARANCE_PICTURE_H
#define VELLUM_TOOL_CLEARANCE_PICTURE_H

#include <cstddef>
#include <string>
#include <vector>

#include "canvas.h"
#include "drawing.h"
#include "feature_clearance.h"
#include "palette.h"
#include "progress.h"
#include "view.h"

namespace tool {

/// A map in pale colours with two of its features singled out, the witness points of their clearance, the line between
/// them, and its length.
class ClearancePicture {
public:
    /// The features are those at @p a and @p b of @p drawing. What @p request leaves out follows from the two nearest
    /// parts. Throws `Error` as `View` does.
    ClearancePicture(Drawing drawing, std::size_t a, std::size_t b, const Clearance& clearance,
                     const ViewRequest& request, const PictureSize& size, Progress& progress);

    void Paint(Canvas& canvas) const;

private:
    void PaintLabel(Canvas& canvas) const;

    std::vector<Style> styles_;
    /// The map, then the two features, then the witnesses, and last the middle of the line between them.
    std::vector<DeviceGeometry> geometries_;
    std::string label_;
    bool descends_ = false;
};

}  // namespace tool

#endif
