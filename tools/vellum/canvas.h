// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_CANVAS_H
#define VELLUM_TOOL_CANVAS_H

#include <cairo.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "drawing.h"
#include "view.h"

namespace tool {

struct DestroyCairo {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using CairoSurface = std::unique_ptr<cairo_surface_t, DestroyCairo>;
using CairoContext = std::unique_ptr<cairo_t, DestroyCairo>;

/// Throws `Error` for a failure of the renderer itself. A file that does not take its bytes reports that on its own,
/// with the cause.
void CheckCairo(cairo_status_t status);

/// A part of the picture in pixels.
struct PixelBox {
    int left;
    int top;
    int width;
    int height;
};

/// A part of the picture, in device units.
struct DeviceBox {
    int32_t left;
    int32_t top;
    int32_t right;
    int32_t bottom;
};

/// How the edges of a path are drawn.
enum class Strokes {
    Joined,   ///< together, smoothed by the renderer
    Separate  ///< each by itself, without smoothing: what is seen of one edge does not depend on any other
};

/// How a line is drawn.
struct Pen {
    Colour colour;
    double width;       ///< in pixels
    double dash = 0.0;  ///< the length of the dashes and of the gaps between them in pixels; 0 for an unbroken line
};

struct TextStyle {
    Colour colour;
    double size;  ///< in pixels
    bool bold = false;
};

/// What things look like. They are drawn over one another in the order of the calls.
class Canvas {
public:
    /// Draws on a surface whose user space is in pixels of the picture, and shows @p part of it.
    Canvas(cairo_surface_t* surface, const PictureSize& size, const DeviceBox& part, Strokes strokes);

    void Background();
    void Paper();
    /// The rings are filled together by the even-odd rule, so that holes stay holes.
    void Polygon(const DeviceGeometry::Polygon& rings, const Colour& colour);
    /// Drawn as one stroke: where lines meet or cross, none covers another.
    void Lines(const std::vector<DeviceGeometry::Points>& lines, const Colour& colour);
    void Point(const Vellum::int_pt_t& point, const Colour& colour);
    void Frame();

    void Line(const DeviceGeometry::Points& line, const Pen& pen);
    /// A disc without an outline, @p radius in pixels.
    void Dot(const Vellum::int_pt_t& point, double radius, const Colour& colour);
    /// A line of text on a thin halo of paper, so that it can be read on anything. It starts at @p point, on its
    /// base line. The font has the letters of ASCII and a box for any other.
    void Text(const Vellum::int_pt_t& point, const std::string& text, const TextStyle& style);

    /// The same with its middle above @p point, moved as far as the picture's sides ask for.
    void Label(const Vellum::int_pt_t& point, const std::string& text, const TextStyle& style);

    /// Runs @p paint on a part of the picture as if it were the whole: nothing is drawn outside it, and its upper
    /// left corner is the origin.
    template <class PaintPart>
    void Within(const PixelBox& box, PaintPart paint) {
        const PictureSize size = size_;
        const DeviceBox part = part_;
        Enter(box);
        paint();
        cairo_restore(context_.get());
        size_ = size;
        part_ = part;
    }

    /// Throws `Error` where anything could not be drawn.
    void Check() const { CheckCairo(cairo_status(context_.get())); }

private:
    void Enter(const PixelBox& box);
    void SelectFont(const TextStyle& style);
    void Letters(double x, double y, const std::string& text, const Colour& colour);
    bool Shows(const DeviceGeometry::Points& ring) const;
    void Path(const DeviceGeometry::Points& points);
    void StrokePath(const DeviceGeometry::Points& points);
    void CloseStrokePath(const DeviceGeometry::Points& points);
    void Edge(Vellum::int_pt_t a, Vellum::int_pt_t b);
    void Fill(const Colour& colour);
    void Stroke(const Colour& colour, double width);

    PictureSize size_;
    DeviceBox part_;
    Strokes strokes_;
    CairoContext context_;
};

}  // namespace tool

#endif
