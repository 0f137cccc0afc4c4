// SPDX-License-Identifier: MIT
#include "cairo_canvas.h"

#include <algorithm>
#include <array>
#include <numbers>
#include <string>
#include <utility>

#include "error.h"
#include "look.h"

namespace tool {

namespace {

// The renderer's own: the same letters everywhere, and no font that a machine may lack.
constexpr const char* kFont = "@cairo:";

// The eight directions in which a halo reaches.
constexpr std::array<std::array<double, 2>, 8> kAround = {
    {{1.0, 0.0}, {0.7, 0.7}, {0.0, 1.0}, {-0.7, 0.7}, {-1.0, 0.0}, {-0.7, -0.7}, {0.0, -1.0}, {0.7, -0.7}}};

DeviceBox BoxOf(const Vellum::int_pt_t& a, const Vellum::int_pt_t& b) {
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

bool Touches(const DeviceBox& a, const DeviceBox& b) {
    return a.left <= b.right && a.right >= b.left && a.top <= b.bottom && a.bottom >= b.top;
}

DeviceBox Grown(const DeviceBox& box, int32_t margin) {
    return {box.left - margin, box.top - margin, box.right + margin, box.bottom + margin};
}

/// Letters keep their shape and place wherever the grid of pixels lies.
void UseExactText(cairo_t* context) {
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_set_font_options(context, options);
    cairo_font_options_destroy(options);
}

}  // namespace

void CheckCairo(cairo_status_t status) {
    if (status == CAIRO_STATUS_SUCCESS || status == CAIRO_STATUS_WRITE_ERROR) return;
    throw Error(std::string("the picture cannot be drawn: ") + cairo_status_to_string(status));
}

CairoCanvas::CairoCanvas(cairo_surface_t* surface, const PictureSize& size, const DeviceBox& part, Strokes strokes)
    : place_{size, Grown(part, kInkPixels * kUnitsPerPixel)}, strokes_(strokes), context_(cairo_create(surface)) {
    Check();
    cairo_set_antialias(context_.get(), strokes == Strokes::Separate ? CAIRO_ANTIALIAS_NONE : CAIRO_ANTIALIAS_DEFAULT);
    cairo_set_fill_rule(context_.get(), CAIRO_FILL_RULE_EVEN_ODD);
    cairo_set_line_join(context_.get(), CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_cap(context_.get(), CAIRO_LINE_CAP_ROUND);
    UseExactText(context_.get());
}

void CairoCanvas::Background() {
    cairo_rectangle(context_.get(), 0.0, 0.0, place_.size.width, place_.size.height);
    Fill(kBackground);
}

void CairoCanvas::Paper() {
    cairo_rectangle(context_.get(), 0.0, 0.0, place_.size.width, place_.size.height);
    Fill(kPaper);
}

void CairoCanvas::Polygon(const DeviceGeometry::Polygon& rings, const Colour& colour) {
    const auto shown = [this](const DeviceGeometry::Points& ring) { return Shows(ring); };
    if (std::none_of(rings.begin(), rings.end(), shown)) return;
    for (const DeviceGeometry::Points& ring : rings) {
        Path(ring);
        cairo_close_path(context_.get());
    }
    Fill(colour);
    for (const DeviceGeometry::Points& ring : rings) {
        StrokePath(ring);
        CloseStrokePath(ring);
    }
    Stroke(OutlineColour(colour), kOutlineWidth);
}

void CairoCanvas::Lines(const std::vector<DeviceGeometry::Points>& lines, const Colour& colour) {
    for (const DeviceGeometry::Points& line : lines)
        StrokePath(line);
    Stroke(colour, kLineWidth);
}

void CairoCanvas::Point(const Vellum::int_pt_t& point, const Colour& colour) {
    if (!Touches(place_.part, BoxOf(point, point))) return;
    const auto disc = [&] {
        cairo_arc(context_.get(), Pixels(point.x), Pixels(point.y), kPointRadius, 0.0, 2.0 * std::numbers::pi);
    };
    disc();
    Fill(colour);
    disc();
    Stroke(kPaper, kOutlineWidth);
}

void CairoCanvas::Frame() {
    cairo_rectangle(context_.get(), 0.0, 0.0, place_.size.width, place_.size.height);
    // Half of the stroke falls outside the picture.
    Stroke(kFrame, 2.0 * kFrameWidth);
}

void CairoCanvas::Line(const DeviceGeometry::Points& line, const Pen& pen) {
    StrokePath(line);
    cairo_set_dash(context_.get(), &pen.dash, pen.dash > 0.0 ? 1 : 0, 0.0);
    Stroke(pen.colour, pen.width);
    cairo_set_dash(context_.get(), nullptr, 0, 0.0);
}

void CairoCanvas::Dot(const Vellum::int_pt_t& point, double radius, const Colour& colour) {
    if (!Touches(place_.part, BoxOf(point, point))) return;
    cairo_arc(context_.get(), Pixels(point.x), Pixels(point.y), radius, 0.0, 2.0 * std::numbers::pi);
    Fill(colour);
}

void CairoCanvas::Text(const Vellum::int_pt_t& point, const std::string& text, const TextStyle& style) {
    // No letter is wider or higher than the font's size.
    const auto size = static_cast<int32_t>(style.size * kUnitsPerPixel);
    const int32_t width = size * static_cast<int32_t>(text.size());
    if (!Touches(place_.part, {point.x, point.y - size, point.x + width, point.y + size})) return;
    SelectFont(style);
    for (const auto& [right, down] : kAround) {
        Letters(Pixels(point.x) + right * kHaloWidth, Pixels(point.y) + down * kHaloWidth, text, kPaper);
    }
    Letters(Pixels(point.x), Pixels(point.y), text, style.colour);
}

void CairoCanvas::Label(const Vellum::int_pt_t& point, const std::string& text, const TextStyle& style) {
    SelectFont(style);
    cairo_text_extents_t extents;
    cairo_text_extents(context_.get(), text.c_str(), &extents);
    const double room = place_.size.width - kLabelMargin - extents.x_advance;
    const double left = std::max(kLabelMargin, std::min(Pixels(point.x) - extents.x_advance * 0.5, room));
    const double base = std::max(kLabelMargin + style.size, Pixels(point.y));
    Text({static_cast<int32_t>(left * kUnitsPerPixel), static_cast<int32_t>(base * kUnitsPerPixel)}, text, style);
}

void CairoCanvas::SelectFont(const TextStyle& style) {
    cairo_select_font_face(context_.get(), kFont, CAIRO_FONT_SLANT_NORMAL,
                           style.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(context_.get(), style.size);
}

/// As glyphs, not as a path: the renderer's paths of letters differ from run to run.
void CairoCanvas::Letters(double x, double y, const std::string& text, const Colour& colour) {
    cairo_set_source_rgb(context_.get(), colour.red, colour.green, colour.blue);
    cairo_move_to(context_.get(), x, y);
    cairo_show_text(context_.get(), text.c_str());
    cairo_new_path(context_.get());
}

void CairoCanvas::Enter(const PixelBox& box) {
    cairo_save(context_.get());
    cairo_rectangle(context_.get(), box.left, box.top, box.width, box.height);
    cairo_clip(context_.get());
    cairo_translate(context_.get(), box.left, box.top);
    const int32_t left = box.left * kUnitsPerPixel;
    const int32_t top = box.top * kUnitsPerPixel;
    const DeviceBox& part = place_.part;
    around_.push_back(place_);
    place_ = {{box.width, box.height}, {part.left - left, part.top - top, part.right - left, part.bottom - top}};
}

void CairoCanvas::Leave() {
    place_ = around_.back();
    around_.pop_back();
    cairo_restore(context_.get());
}

bool CairoCanvas::Shows(const DeviceGeometry::Points& ring) const {
    if (ring.empty()) return false;
    const auto [left, right] =
        std::minmax_element(ring.begin(), ring.end(), [](auto& a, auto& b) { return a.x < b.x; });
    const auto [top, bottom] =
        std::minmax_element(ring.begin(), ring.end(), [](auto& a, auto& b) { return a.y < b.y; });
    return Touches(place_.part, {left->x, top->y, right->x, bottom->y});
}

void CairoCanvas::Path(const DeviceGeometry::Points& points) {
    cairo_new_sub_path(context_.get());
    for (const Vellum::int_pt_t& p : points)
        cairo_line_to(context_.get(), Pixels(p.x), Pixels(p.y));
}

void CairoCanvas::StrokePath(const DeviceGeometry::Points& points) {
    if (strokes_ == Strokes::Joined) {
        Path(points);
    } else {
        for (std::size_t i = 1; i < points.size(); ++i)
            Edge(points[i - 1], points[i]);
    }
}

void CairoCanvas::CloseStrokePath(const DeviceGeometry::Points& points) {
    if (strokes_ == Strokes::Joined) {
        cairo_close_path(context_.get());
    } else {
        Edge(points.back(), points.front());
    }
}

void CairoCanvas::Edge(Vellum::int_pt_t a, Vellum::int_pt_t b) {
    if (!Touches(place_.part, BoxOf(a, b))) return;
    // The clipping may turn an outline round; an edge looks the same both ways.
    if (std::pair(b.x, b.y) < std::pair(a.x, a.y)) std::swap(a, b);
    cairo_move_to(context_.get(), Pixels(a.x), Pixels(a.y));
    cairo_line_to(context_.get(), Pixels(b.x), Pixels(b.y));
}

void CairoCanvas::Fill(const Colour& colour) {
    cairo_set_source_rgb(context_.get(), colour.red, colour.green, colour.blue);
    cairo_fill(context_.get());
}

void CairoCanvas::Stroke(const Colour& colour, double width) {
    cairo_set_source_rgb(context_.get(), colour.red, colour.green, colour.blue);
    cairo_set_line_width(context_.get(), width);
    cairo_stroke(context_.get());
}

}  // namespace tool
