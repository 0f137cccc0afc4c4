// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_SVG_CANVAS_H
#define VELLUM_TOOL_SVG_CANVAS_H

#include <string>
#include <string_view>
#include <vector>

#include "canvas.h"

namespace tool {

/// The canvas that writes what is drawn as SVG, for whoever shows the picture to render.
class SvgCanvas : public Canvas {
public:
    explicit SvgCanvas(const PictureSize& size);

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

    /// The document of what was drawn so far.
    std::string Document() const;

private:
    void Enter(const PixelBox& box) override;
    void Leave() override;

    /// Writes the parts of an element.
    void Begin(std::string_view name) { (svg_ += '<') += name; }
    void End() { svg_ += "/>\n"; }
    void Attribute(std::string_view name, std::string_view value);
    void Attribute(std::string_view name, double value);
    void Attribute(std::string_view name, const Colour& value);
    void Size(const PictureSize& size);
    void Centre(const Vellum::int_pt_t& point, double radius);
    /// Writes a line of text of which @p anchor, as SVG calls it, is at that place.
    void Letters(double x, double y, std::string_view anchor, const std::string& text, const TextStyle& style);
    void Stroke(const Colour& colour, double width);
    /// Fills all of the place that is drawn on.
    void Fill(const Colour& colour);

    std::string svg_;
    PictureSize size_;
    std::vector<PictureSize> around_;
};

}  // namespace tool

#endif
