// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_ROUTE_PICTURE_H
#define VELLUM_TOOL_ROUTE_PICTURE_H

#include <cstddef>
#include <string>
#include <vector>

#include "canvas.h"
#include "drawing.h"
#include "progress.h"
#include "route.h"
#include "view.h"

namespace tool {

/// What the ends of a way are called.
struct EndNames {
    std::string from = "from";
    std::string to = "to";
};

/// A network with the way between two of its vertices singled out and its two ends labelled.
class RoutePicture {
public:
    /// What lies in @p map is drawn pale under the network. What @p request leaves out follows from the way. Throws
    /// `Error` as `View` does.
    RoutePicture(Drawing map, const std::vector<Points>& network, const Route& route, EndNames names,
                 const ViewRequest& request, const PictureSize& size, Progress& progress);

    void Paint(Canvas& canvas) const;

private:
    std::vector<DeviceGeometry> map_;
    DeviceGeometry network_;
    DeviceGeometry way_;
    /// Nothing where it lies outside the view.
    DeviceGeometry::Points from_;
    DeviceGeometry::Points to_;
    EndNames names_;
};

}  // namespace tool

#endif
