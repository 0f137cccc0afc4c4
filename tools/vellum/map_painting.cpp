// SPDX-License-Identifier: MIT
#include "map_painting.h"

#include <cstddef>

namespace tool {

void PaintFeatures(std::span<const DeviceGeometry> geometries, std::span<const Style> styles, Canvas& canvas) {
    const auto each = [&](auto paint) {
        for (std::size_t i = 0; i < geometries.size(); ++i) {
            paint(geometries[i], styles[i]);
        }
    };
    each([&canvas](const DeviceGeometry& geometry, const Style& style) {
        for (const auto& polygon : geometry.polygons) {
            canvas.Polygon(polygon, style.area);
        }
    });
    each([&canvas](const DeviceGeometry& geometry, const Style& style) { canvas.Lines(geometry.lines, style.line); });
    each([&canvas](const DeviceGeometry& geometry, const Style& style) {
        for (const auto& point : geometry.points) {
            canvas.Point(point, style.line);
        }
    });
}

}  // namespace tool
