// SPDX-License-Identifier: MIT
#include "clearance_picture.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <utility>

#include "map_painting.h"
#include "pipeline.h"
#include "text.h"

namespace tool {

namespace {

constexpr Style kWitness = {Rgb(0xb02a2a), Rgb(0xb02a2a)};

// Places of the palette that neither look like the pale ones nor like one another.
constexpr std::size_t kStyleOfA = 0;
constexpr std::size_t kStyleOfB = 6;

// In pixels.
constexpr double kLabelSize = 15.0;
constexpr int kLabelHeight = 11;
constexpr int kLabelGap = 5;

constexpr int kLabelDigits = 4;

// What follows the map in the list of features.
constexpr std::size_t kFeatures = 2;
constexpr std::size_t kWitnesses = 1;

Feature PointsFeature(const Points& points) {
    Feature feature;
    feature.geometry.points = points;
    return feature;
}

Vellum::DblPt Middle(const Clearance& clearance) {
    return {(clearance.onA.x + clearance.onB.x) * 0.5, (clearance.onA.y + clearance.onB.y) * 0.5};
}

/// The drawing that is shown where nothing else is asked for.
Drawing Surroundings(const Clearance& clearance) {
    const Vellum::AlignedDblRect& a = clearance.partOfA;
    const Vellum::AlignedDblRect& b = clearance.partOfB;
    return {{PointsFeature({a.LL(), a.UR(), b.LL(), b.UR()})}};
}

/// Puts the features that are singled out last, so that they are drawn over the others, and the witnesses after them.
Drawing Scene(Drawing drawing, std::size_t a, std::size_t b, const Clearance& clearance) {
    std::vector<Feature>& features = drawing.features;
    std::vector<Feature> last = {features[a], features[b]};
    features[a].geometry = {};
    features[b].geometry = {};
    Feature& witnesses = last.emplace_back(PointsFeature({clearance.onA, clearance.onB}));
    witnesses.geometry.lines = {{clearance.onA, clearance.onB}};
    last.push_back(PointsFeature({Middle(clearance)}));
    std::move(last.begin(), last.end(), std::back_inserter(features));
    return drawing;
}

/// Whether the line between the witnesses goes down from left to right in the picture.
bool Descends(const Clearance& clearance, const View& view) {
    Vellum::DblPt a = clearance.onA;
    Vellum::DblPt b = clearance.onB;
    Vellum::Mtx2D toFrame = view.ToFrame();
    toFrame.RealXfmPt(a);
    toFrame.RealXfmPt(b);
    return (a.x < b.x) == (a.y > b.y);
}

}  // namespace

ClearancePicture::ClearancePicture(Drawing drawing, std::size_t a, std::size_t b, const Clearance& clearance,
                                   const ViewRequest& request, const PictureSize& size, Progress& progress)
    : styles_(drawing.features.size(), kPaleStyle), label_(RoundedText(clearance.distance, kLabelDigits)) {
    const View view(Surroundings(clearance), request, size);
    const Drawing scene = Scene(std::move(drawing), a, b, clearance);
    styles_.insert(styles_.end(), {PaletteStyle(kStyleOfA), PaletteStyle(kStyleOfB), kWitness});
    geometries_ = ToDevice(Clip(scene, view, progress), view, progress);
    descends_ = Descends(clearance, view);
}

void ClearancePicture::Paint(Canvas& canvas) const {
    canvas.Background();
    const std::span<const DeviceGeometry> geometries(geometries_);
    const std::span<const Style> styles(styles_);
    std::size_t first = 0;
    for (const std::size_t count : {styles_.size() - kFeatures - kWitnesses, kFeatures, kWitnesses}) {
        PaintFeatures(geometries.subspan(first, count), styles.subspan(first, count), canvas);
        first += count;
    }
    PaintLabel(canvas);
    canvas.Frame();
}

void ClearancePicture::PaintLabel(Canvas& canvas) const {
    // The middle may lie outside the view.
    for (Vellum::int_pt_t point : geometries_.back().points) {
        point.x += kLabelGap * kUnitsPerPixel;
        point.y += (descends_ ? -kLabelGap : kLabelGap + kLabelHeight) * kUnitsPerPixel;
        canvas.Text(point, label_, {kWitness.line, kLabelSize, true});
    }
}

}  // namespace tool
