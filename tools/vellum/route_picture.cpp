// SPDX-License-Identifier: MIT
#include "route_picture.h"

#include <utility>

#include "map_painting.h"
#include "pipeline.h"

namespace tool {

namespace {

constexpr Colour kPaper = Rgb(0xffffff);
constexpr Colour kInk = Rgb(0x2f3b4a);
constexpr Colour kWay = Rgb(0xd0202e);
constexpr Pen kNetworkPen = {Rgb(0x7289a3), 1.1};

// In pixels.
constexpr double kWayWidth = 3.2;
constexpr double kWayHalo = 6.4;
constexpr double kEndRadius = 5.5;
constexpr double kEndHalo = 7.5;
constexpr double kLabelSize = 18.0;
constexpr int kLabelUp = 14;

Feature LineFeature(const std::vector<Points>& lines) {
    Feature feature;
    feature.geometry.lines = lines;
    return feature;
}

Feature PointFeature(const Vellum::DblPt& point) {
    Feature feature;
    feature.geometry.points = {point};
    return feature;
}

/// Moves the last geometry out of a list.
DeviceGeometry TakeLast(std::vector<DeviceGeometry>& geometries) {
    DeviceGeometry last = std::move(geometries.back());
    geometries.pop_back();
    return last;
}

void PaintEnd(const DeviceGeometry::Points& end, const std::string& name, Canvas& canvas) {
    for (const Vellum::int_pt_t& point : end) {
        canvas.Dot(point, kEndHalo, kPaper);
        canvas.Dot(point, kEndRadius, kInk);
        canvas.Label({point.x, point.y - kLabelUp * kUnitsPerPixel}, name, {kInk, kLabelSize, true});
    }
}

}  // namespace

RoutePicture::RoutePicture(Drawing map, const std::vector<Points>& network, const Route& route, EndNames names,
                           const ViewRequest& request, const PictureSize& size, Progress& progress)
    : names_(std::move(names)) {
    Drawing whole;
    whole.features = {LineFeature({route.way})};
    const View view(whole, request, size);
    Drawing scene = std::move(map);
    scene.features.push_back(LineFeature(network));
    scene.features.push_back(LineFeature({route.way}));
    scene.features.push_back(PointFeature(route.from.vertex));
    scene.features.push_back(PointFeature(route.to.vertex));

    map_ = ToDevice(Clip(scene, view, progress), view, progress);
    to_ = TakeLast(map_).points;
    from_ = TakeLast(map_).points;
    way_ = TakeLast(map_);
    network_ = TakeLast(map_);
}

void RoutePicture::Paint(Canvas& canvas) const {
    canvas.Background();
    PaintFeatures(map_, std::vector<Style>(map_.size(), kPaleStyle), canvas);
    for (const auto& line : network_.lines) {
        canvas.Line(line, kNetworkPen);
    }
    for (const Pen& pen : {Pen{kPaper, kWayHalo}, Pen{kWay, kWayWidth}}) {
        for (const auto& line : way_.lines) {
            canvas.Line(line, pen);
        }
    }
    PaintEnd(from_, names_.from, canvas);
    PaintEnd(to_, names_.to, canvas);
    canvas.Frame();
}

}  // namespace tool
