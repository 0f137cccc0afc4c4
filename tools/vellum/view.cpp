// SPDX-License-Identifier: MIT
#include "view.h"

#include <algorithm>
#include <cmath>

#include "error.h"

namespace tool {

namespace {

// The share of its extents that the default view leaves free around the drawing, both sides together.
constexpr double kMargin = 0.08;

double Normalised(double degrees) {
    const double rest = std::fmod(degrees, 360.0);
    if (rest >= 0.0) return rest;
    return rest + 360.0 < 360.0 ? rest + 360.0 : 0.0;
}

double LargerSide(const Vellum::DblPt& p) { return std::max(std::fabs(p.x), std::fabs(p.y)); }

/// The width at which a box fits into the picture with the margin. A drawing without any extent gets a width too.
double FittingWidth(const Vellum::AlignedDblRect& box, const PictureSize& size) {
    const double aspect = static_cast<double>(size.width) / size.height;
    const double width = std::max(box.Width(), box.Height() * aspect) * (1.0 + kMargin);
    if (width == 0.0) return std::max(1.0, LargerSide(box.LL()) * 1e-6);
    return std::max(width, LargerSide(box.LL()) * 1e-9);
}

}  // namespace

View::View(const Drawing& drawing, const ViewRequest& request, const PictureSize& size)
    : rotation_(Normalised(request.rotation)), size_(size) {
    Vellum::Mtx2D fromFrame;
    fromFrame.Rotate(rotation_, 2);
    const Vellum::AlignedDblRect box = Extents(drawing, fromFrame.Invert()).value_or(Vellum::AlignedDblRect());
    box.GetCenter(center_);
    fromFrame.RealXfmPt(center_);
    if (request.center) center_ = *request.center;
    width_ = request.width.value_or(FittingWidth(box, size));

    const double far = LargerSide(center_) + width_;
    if (far + PixelLength() / kUnitsPerPixel == far) {
        throw Error("the view is too small: points that close to each other cannot be told apart there");
    }
}

Vellum::Mtx2D View::ToFrame() const {
    Vellum::Mtx2D matrix(center_.x, center_.y, Vellum::Mtx2DOrientNone, 1.0, 1.0, 0.0, 0.0);
    matrix.Rotate(360.0 - rotation_, 2);
    return matrix;
}

Vellum::Mtx2D View::ToDevice() const {
    const double scale = kUnitsPerPixel / PixelLength();
    const Vellum::Mtx2D frameToDevice(0.0, 0.0, Vellum::Mtx2DOrientMirrorX, scale, scale,
                                      size_.width * kUnitsPerPixel * 0.5, size_.height * kUnitsPerPixel * 0.5);
    return ToFrame().Postmult(frameToDevice);
}

Vellum::DblRect View::Rect(double margin) const {
    const Vellum::DblPt corner(Width() * 0.5 + margin, Height() * 0.5 + margin);
    Vellum::DblRect rect(Vellum::DblPt(-corner.x, -corner.y), corner);
    Vellum::Mtx2D fromFrame;
    fromFrame.Rotate(rotation_, 2);
    fromFrame.Translate(center_.x, center_.y);
    // Corner by corner: `ApplyTransform` chooses the corners by their extremes and would lose one wherever the turned
    // rectangle comes out upright.
    for (unsigned i = 0; i < 4; ++i) {
        fromFrame.RealXfmPt(rect.GetPt(i));
    }
    return rect;
}

}  // namespace tool
