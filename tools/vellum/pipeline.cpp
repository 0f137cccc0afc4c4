// SPDX-License-Identifier: MIT
#include "pipeline.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "error.h"
#include "line_clip.h"
#include "point_set.h"

namespace tool {

namespace {

// The renderer keeps coordinates, and their differences, in 32 bits, of which 8 are below its own pixel, and its pixel
// may be as small as an eighth of one of ours.
constexpr double kFarthestPixel = 1 << 19;

/// Measures how far the edges that are seen in the view reach beyond it.
class Reach {
public:
    explicit Reach(const View& view)
        : toFrame_(view.ToFrame()),
          ink_(view.PixelLength() * kInkPixels),
          halfWidth_(view.Width() * 0.5),
          halfHeight_(view.Height() * 0.5) {}

    void Add(const Points& points) {
        moved_.resize(points.size());
        toFrame_.RealXfmPts(static_cast<int>(points.size()), points.data(), moved_.data());
        for (std::size_t i = 1; i < moved_.size(); ++i) {
            AddEdge(moved_[i - 1], moved_[i]);
        }
    }

    double Margin() const { return reach_ + ink_; }

private:
    /// An edge counts as seen where its box touches the view.
    void AddEdge(const Vellum::DblPt& a, const Vellum::DblPt& b) {
        const bool seen = std::min(a.x, b.x) <= halfWidth_ + ink_ && std::max(a.x, b.x) >= -halfWidth_ - ink_ &&
                          std::min(a.y, b.y) <= halfHeight_ + ink_ && std::max(a.y, b.y) >= -halfHeight_ - ink_;
        if (seen) reach_ = std::max({reach_, Beyond(a), Beyond(b)});
    }

    double Beyond(const Vellum::DblPt& p) const {
        return std::max(std::fabs(p.x) - halfWidth_, std::fabs(p.y) - halfHeight_);
    }

    Vellum::Mtx2D toFrame_;
    double ink_;
    double halfWidth_;
    double halfHeight_;
    double reach_ = 0.0;
    Points moved_;
};

Vellum::DblRect ClipRect(const Drawing& drawing, const View& view) {
    Reach reach(view);
    for (const Feature& feature : drawing.features) {
        for (const Polygon& polygon : feature.geometry.polygons) {
            for (const Points& ring : polygon) {
                reach.Add(ring);
            }
        }
        for (const Points& line : feature.geometry.lines) {
            reach.Add(line);
        }
    }
    return view.Rect(std::min(reach.Margin(), kFarthestPixel * view.PixelLength()));
}

/// Clips what a feature consists of. Holes are clipped like outlines, each ring by itself: filled together, by the
/// even-odd rule, they give the clipped polygon.
class Clipper {
public:
    explicit Clipper(const Vellum::DblRect& rect) : rect_(rect) {}

    Geometry Clip(const Geometry& whole) {
        Geometry clipped;
        for (const Polygon& polygon : whole.polygons) {
            Polygon rings = ClipPolygon(polygon);
            if (!rings.empty()) clipped.polygons.push_back(std::move(rings));
        }
        for (const Points& line : whole.lines) {
            std::vector<Points> pieces = ClipLine(line, rect_);
            std::move(pieces.begin(), pieces.end(), std::back_inserter(clipped.lines));
        }
        std::copy_if(whole.points.begin(), whole.points.end(), std::back_inserter(clipped.points),
                     [this](const Vellum::DblPt& p) { return rect_.Contains(p, 0.0); });
        return clipped;
    }

private:
    Polygon ClipPolygon(const Polygon& polygon) {
        std::size_t count = 0;
        for (const Points& ring : polygon) {
            count += ring.size();
        }
        whole_.Reset(count);
        for (const Points& ring : polygon) {
            whole_.Append(ring);
        }
        clipped_.Reset(Vellum::ClipPolygonSetMaxPts(&whole_.Record()));
        Vellum::ClipPolygonSetComplete(&whole_.Record(), &clipped_.Record(), &rect_);
        return clipped_.Rings();
    }

    Vellum::DblRect rect_;
    PointSet whole_;
    PointSet clipped_;
};

/// Transforms what a feature consists of. Rings go through one by one: the transform merges points across the rings of
/// a set, and under a turned view it leaves the codes that tell the rings apart behind.
class DeviceTransform {
public:
    explicit DeviceTransform(const View& view) : matrix_(view.ToDevice()) {}

    DeviceGeometry Apply(const Geometry& model) {
        DeviceGeometry device;
        for (const Polygon& polygon : model.polygons) {
            DeviceGeometry::Polygon& rings = device.polygons.emplace_back();
            for (const Points& ring : polygon) {
                rings.push_back(Ring(ring));
            }
        }
        for (const Points& line : model.lines) {
            device.lines.push_back(Line(line));
        }
        device.points.resize(model.points.size());
        matrix_.XfmPts(static_cast<int>(model.points.size()), model.points.data(), device.points.data());
        return device;
    }

private:
    DeviceGeometry::Points Ring(const Points& ring) {
        set_.Reset(ring.size());
        set_.Append(ring);
        DeviceGeometry::Points points(ring.size());
        deviceCodes_.resize(ring.size());
        Vellum::DrwDPSetT device = {0, points.data(), deviceCodes_.data()};
        matrix_.XfmPolySetPts(&set_.Record(), &device);
        points.resize(static_cast<std::size_t>(device.numPts));
        return points;
    }

    DeviceGeometry::Points Line(const Points& line) {
        DeviceGeometry::Points points(line.size());
        int count = 0;
        matrix_.XfmPolyPts(static_cast<int>(line.size()), &count, line.data(), points.data());
        points.resize(static_cast<std::size_t>(count));
        return points;
    }

    Vellum::Mtx2D matrix_;
    PointSet set_;
    std::vector<uint32_t> deviceCodes_;
};

}  // namespace

std::vector<Geometry> Clip(const Drawing& drawing, const View& view, Progress& progress) {
    progress.Begin("clipping", drawing.features.size());
    Clipper clipper(ClipRect(drawing, view));
    std::vector<Geometry> clipped;
    clipped.reserve(drawing.features.size());
    for (const Feature& feature : drawing.features) {
        clipped.push_back(clipper.Clip(feature.geometry));
        progress.Advance();
    }
    return clipped;
}

std::vector<Geometry> KeepWhole(const Drawing& drawing, const View& view) {
    const double farthest = kFarthestPixel * view.PixelLength();
    const Vellum::AlignedDblRect reachable(-farthest, -farthest, farthest, farthest);
    const auto box = Extents(drawing, view.ToFrame());
    if (box && !(reachable.Contains(box->LL(), 0.0) && reachable.Contains(box->UR(), 0.0))) {
        throw Error("--no-clip: the drawing reaches too far beyond this view to be drawn whole");
    }
    std::vector<Geometry> whole;
    whole.reserve(drawing.features.size());
    for (const Feature& feature : drawing.features) {
        whole.push_back(feature.geometry);
    }
    return whole;
}

std::vector<DeviceGeometry> ToDevice(const std::vector<Geometry>& geometries, const View& view, Progress& progress) {
    progress.Begin("transforming", geometries.size());
    DeviceTransform transform(view);
    std::vector<DeviceGeometry> device;
    device.reserve(geometries.size());
    for (const Geometry& geometry : geometries) {
        device.push_back(transform.Apply(geometry));
        progress.Advance();
    }
    return device;
}

}  // namespace tool
