// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_JOIN_PICTURE_H
#define VELLUM_TOOL_JOIN_PICTURE_H

#include <cstddef>
#include <vector>

#include "canvas.h"
#include "drawing.h"
#include "line_joining.h"
#include "palette.h"
#include "progress.h"
#include "view.h"

namespace tool {

/// Lines that were joined, in a colour for each layer, with the joining lines singled out. The split points are
/// marked where the view shows few enough to tell them apart.
class JoinPicture {
public:
    /// What lies in @p map is drawn pale under the lines. What @p request leaves out follows from the lines. Throws
    /// `Error` as `View` does.
    JoinPicture(Drawing map, const JoinedLines& joined, const std::vector<unsigned>& layers, const ViewRequest& request,
                const PictureSize& size, Progress& progress);

    void Paint(Canvas& canvas) const;

private:
    /// The map and the lines.
    std::vector<Style> styles_;
    std::vector<DeviceGeometry> geometries_;
    /// Their ends are points.
    DeviceGeometry joining_;
    DeviceGeometry::Points splitPoints_;
};

}  // namespace tool

#endif
