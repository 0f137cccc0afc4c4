// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_VIEW_H
#define VELLUM_TOOL_VIEW_H

#include <optional>

#include "drawing.h"
#include "vellum/vellum.h"

namespace tool {

/// Device units in a pixel: fine enough that the rounding of the device transform does not show in smoothed edges.
constexpr int kUnitsPerPixel = 64;

/// No line or point is drawn further than this outside its geometry.
constexpr int kInkPixels = 8;

/// In pixels.
struct PictureSize {
    int width;
    int height;
};

/// What the user asks to see. What is left out follows from the drawing.
struct ViewRequest {
    std::optional<Vellum::DblPt> center;
    std::optional<double> width;
    double rotation = 0.0;  ///< degrees, counter-clockwise
};

/// The part of the model that fills the picture: a rectangle, turned about its centre.
///
/// The frame is the view's own system of axes: model units, the view's centre at the origin, x along its width.
class View {
public:
    /// Throws `Error` where the pixels are finer than the numbers around the view's centre.
    View(const Drawing& drawing, const ViewRequest& request, const PictureSize& size);

    const Vellum::DblPt& Center() const { return center_; }
    double Width() const { return width_; }
    double Height() const { return PixelLength() * size_.height; }
    double PixelLength() const { return width_ / size_.width; }

    Vellum::Mtx2D ToFrame() const;
    Vellum::Mtx2D ToDevice() const;

    /// The view's rectangle in the model, grown by @p margin on all sides. Its corners run clockwise.
    Vellum::DblRect Rect(double margin) const;

private:
    Vellum::DblPt center_;
    double width_ = 0.0;
    double rotation_;  ///< from 0 to below 360
    PictureSize size_;
};

}  // namespace tool

#endif
