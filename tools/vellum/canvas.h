// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_CANVAS_H
#define VELLUM_TOOL_CANVAS_H

#include <cstdint>
#include <string>
#include <vector>

#include "drawing.h"
#include "view.h"

namespace tool {

/// A part of the picture in pixels.
struct PixelBox {
    int left;
    int top;
    int width;
    int height;
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
    Canvas() = default;
    virtual ~Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    virtual void Background() = 0;
    virtual void Paper() = 0;
    /// The rings are filled together by the even-odd rule, so that holes stay holes.
    virtual void Polygon(const DeviceGeometry::Polygon& rings, const Colour& colour) = 0;
    /// Drawn as one stroke: where lines meet or cross, none covers another.
    virtual void Lines(const std::vector<DeviceGeometry::Points>& lines, const Colour& colour) = 0;
    virtual void Point(const Vellum::int_pt_t& point, const Colour& colour) = 0;
    virtual void Frame() = 0;

    virtual void Line(const DeviceGeometry::Points& line, const Pen& pen) = 0;
    /// A disc without an outline, @p radius in pixels.
    virtual void Dot(const Vellum::int_pt_t& point, double radius, const Colour& colour) = 0;
    /// A line of text on a thin halo of paper, so that it can be read on anything. It starts at @p point, on its base
    /// line.
    virtual void Text(const Vellum::int_pt_t& point, const std::string& text, const TextStyle& style) = 0;

    /// The same with its middle above @p point, moved as far as the picture's sides ask for.
    virtual void Label(const Vellum::int_pt_t& point, const std::string& text, const TextStyle& style) = 0;

    /// Runs @p paint on a part of the picture as if it were the whole: nothing is drawn outside it, and its upper left
    /// corner is the origin.
    template <class PaintPart>
    void Within(const PixelBox& box, PaintPart paint) {
        Enter(box);
        paint();
        Leave();
    }

private:
    virtual void Enter(const PixelBox& box) = 0;
    virtual void Leave() = 0;
};

}  // namespace tool

#endif
