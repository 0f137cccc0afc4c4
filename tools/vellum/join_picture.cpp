// SPDX-License-Identifier: MIT
#include "join_picture.h"

#include <utility>

#include "map_painting.h"
#include "pipeline.h"

namespace tool {

namespace {

constexpr Colour kPaper = Rgb(0xffffff);
constexpr Colour kInk = Rgb(0x2f3b4a);
constexpr Colour kJoining = Rgb(0xd0202e);

// In pixels.
constexpr double kJoiningWidth = 2.6;
constexpr double kJoiningEnd = 2.4;
constexpr double kSplitPoint = 1.7;
constexpr double kSplitHalo = 2.7;

// More in a picture would hide its lines.
constexpr std::size_t kMostSplitPoints = 2000;

Feature& AddFeature(Drawing& drawing) { return drawing.features.emplace_back(); }

void AddLines(const std::vector<Points>& lines, Drawing& drawing) {
    for (const Points& line : lines) {
        AddFeature(drawing).geometry.lines = {line};
    }
}

Geometry WithEnds(const std::vector<Points>& lines) {
    Geometry geometry;
    geometry.lines = lines;
    for (const Points& line : lines) {
        geometry.points.insert(geometry.points.end(), line.begin(), line.end());
    }
    return geometry;
}

View ViewOf(const JoinedLines& joined, const ViewRequest& request, const PictureSize& size) {
    Drawing drawing;
    AddLines(joined.lines, drawing);
    return View(drawing, request, size);
}

}  // namespace

JoinPicture::JoinPicture(Drawing map, const JoinedLines& joined, const std::vector<unsigned>& layers,
                         const ViewRequest& request, const PictureSize& size, Progress& progress)
    : styles_(map.features.size(), kPaleStyle) {
    const View view = ViewOf(joined, request, size);
    Drawing scene = std::move(map);
    AddLines(joined.lines, scene);
    for (const unsigned layer : layers) {
        styles_.push_back(PaletteStyle(layer));
    }
    AddFeature(scene).geometry = WithEnds(joined.joining);
    AddFeature(scene).geometry.points = joined.splitPoints;

    geometries_ = ToDevice(Clip(scene, view, progress), view, progress);
    splitPoints_ = std::move(geometries_.back().points);
    geometries_.pop_back();
    joining_ = std::move(geometries_.back());
    geometries_.pop_back();
    if (splitPoints_.size() > kMostSplitPoints) splitPoints_.clear();
}

void JoinPicture::Paint(Canvas& canvas) const {
    canvas.Background();
    PaintFeatures(geometries_, styles_, canvas);
    for (const auto& line : joining_.lines) {
        canvas.Line(line, {kJoining, kJoiningWidth});
    }
    // However short the line is, its ends are seen.
    for (const auto& point : joining_.points) {
        canvas.Dot(point, kJoiningEnd, kJoining);
    }
    for (const auto& point : splitPoints_) {
        canvas.Dot(point, kSplitHalo, kPaper);
        canvas.Dot(point, kSplitPoint, kInk);
    }
    canvas.Frame();
}

}  // namespace tool
