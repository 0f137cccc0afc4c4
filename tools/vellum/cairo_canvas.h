// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_CAIRO_CANVAS_H
#define VELLUM_TOOL_CAIRO_CANVAS_H

#include <cairo.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "canvas.h"

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

/// The canvas that cairo renders. Its font has the letters of ASCII and a box for any other.
class CairoCanvas : public Canvas {
public:
    /// Draws on a surface whose user space is in pixels of the picture, and shows @p part of it.
    CairoCanvas(cairo_surface_t* surface, const PictureSize& size, const DeviceBox& part, Strokes strokes);

    void Background() override;
    void Paper() override;
    void Polygon(const DeviceGeometry::Polygon& rings, const Colour& colour) override;
    void Lines(const std::vector<DeviceGeometry::Points>& lines, const Colour& colour) override;
    void Point(const Vellum::int_pt_t& point, const Colour& colour) override;
    void Frame() override;
    void Line(const DeviceGeometry::Points& line, const Pen& pen) override;
    void Dot(const Vellum::int_pt_t& point, double radius, const Colour& colour) override;
    void Text(const Vellum::int_pt_t& point, const std::string& text, const TextStyle& style) override;
    void Label(const Vellum::int_pt_t& point, const std::string& text, const TextStyle& style) override;

    /// Throws `Error` where anything could not be drawn.
    void Check() const { CheckCairo(cairo_status(context_.get())); }

private:
    /// What is drawn on: the picture, or a part that is taken for the whole.
    struct Place {
        PictureSize size;
        DeviceBox part;
    };

    void Enter(const PixelBox& box) override;
    void Leave() override;
    void SelectFont(const TextStyle& style);
    void Letters(double x, double y, const std::string& text, const Colour& colour);
    bool Shows(const DeviceGeometry::Points& ring) const;
    void Path(const DeviceGeometry::Points& points);
    void StrokePath(const DeviceGeometry::Points& points);
    void CloseStrokePath(const DeviceGeometry::Points& points);
    void Edge(Vellum::int_pt_t a, Vellum::int_pt_t b);
    void Fill(const Colour& colour);
    void Stroke(const Colour& colour, double width);

    Place place_;
    std::vector<Place> around_;
    Strokes strokes_;
    CairoContext context_;
};

}  // namespace tool

#endif
