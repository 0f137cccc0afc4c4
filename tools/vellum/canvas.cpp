// SPDX-License-Identifier: MIT
#include "canvas.h"

#include <algorithm>
#include <numbers>
#include <string>
#include <utility>

#include "error.h"

namespace tool {

namespace {

constexpr Colour kBackground = Rgb(0xe4eef4);
constexpr Colour kFrame = Rgb(0x5d6b78);
constexpr Colour kInk = Rgb(0x2f3b4a);
constexpr Colour kPaper = Rgb(0xffffff);

// In pixels.
constexpr double kOutlineWidth = 0.7;
constexpr double kLineWidth = 1.3;
constexpr double kPointRadius = 3.5;
constexpr double kFrameWidth = 2.0;

// How far an outline goes from the area's colour towards ink.
constexpr double kOutlineInk = 0.55;

double Pixels(int32_t units) { return static_cast<double>(units) / kUnitsPerPixel; }

DeviceBox BoxOf(const Vellum::int_pt_t& a, const Vellum::int_pt_t& b) {
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

bool Touches(const DeviceBox& a, const DeviceBox& b) {
    return a.left <= b.right && a.right >= b.left && a.top <= b.bottom && a.bottom >= b.top;
}

DeviceBox Grown(const DeviceBox& box, int32_t margin) {
    return {box.left - margin, box.top - margin, box.right + margin, box.bottom + margin};
}

}  // namespace

void CheckCairo(cairo_status_t status) {
    if (status == CAIRO_STATUS_SUCCESS || status == CAIRO_STATUS_WRITE_ERROR) return;
    throw Error(std::string("the picture cannot be drawn: ") + cairo_status_to_string(status));
}

Canvas::Canvas(cairo_surface_t* surface, const PictureSize& size, const DeviceBox& part, Strokes strokes)
    : size_(size), part_(Grown(part, kInkPixels * kUnitsPerPixel)), strokes_(strokes), context_(cairo_create(surface)) {
    Check();
    cairo_set_antialias(context_.get(), strokes == Strokes::Separate ? CAIRO_ANTIALIAS_NONE : CAIRO_ANTIALIAS_DEFAULT);
    cairo_set_fill_rule(context_.get(), CAIRO_FILL_RULE_EVEN_ODD);
    cairo_set_line_join(context_.get(), CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_cap(context_.get(), CAIRO_LINE_CAP_ROUND);
}

void Canvas::Background() {
    cairo_rectangle(context_.get(), 0.0, 0.0, size_.width, size_.height);
    Fill(kBackground);
}

void Canvas::Polygon(const DeviceGeometry::Polygon& rings, const Colour& colour) {
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
    Stroke(Mix(colour, kInk, kOutlineInk), kOutlineWidth);
}

void Canvas::Lines(const std::vector<DeviceGeometry::Points>& lines, const Colour& colour) {
    for (const DeviceGeometry::Points& line : lines)
        StrokePath(line);
    Stroke(colour, kLineWidth);
}

void Canvas::Point(const Vellum::int_pt_t& point, const Colour& colour) {
    if (!Touches(part_, BoxOf(point, point))) return;
    const auto disc = [&] {
        cairo_arc(context_.get(), Pixels(point.x), Pixels(point.y), kPointRadius, 0.0, 2.0 * std::numbers::pi);
    };
    disc();
    Fill(colour);
    disc();
    Stroke(kPaper, kOutlineWidth);
}

void Canvas::Frame() {
    cairo_rectangle(context_.get(), 0.0, 0.0, size_.width, size_.height);
    // Half of the stroke falls outside the picture.
    Stroke(kFrame, 2.0 * kFrameWidth);
}

bool Canvas::Shows(const DeviceGeometry::Points& ring) const {
    if (ring.empty()) return false;
    const auto [left, right] =
        std::minmax_element(ring.begin(), ring.end(), [](auto& a, auto& b) { return a.x < b.x; });
    const auto [top, bottom] =
        std::minmax_element(ring.begin(), ring.end(), [](auto& a, auto& b) { return a.y < b.y; });
    return Touches(part_, {left->x, top->y, right->x, bottom->y});
}

void Canvas::Path(const DeviceGeometry::Points& points) {
    cairo_new_sub_path(context_.get());
    for (const Vellum::int_pt_t& p : points)
        cairo_line_to(context_.get(), Pixels(p.x), Pixels(p.y));
}

void Canvas::StrokePath(const DeviceGeometry::Points& points) {
    if (strokes_ == Strokes::Joined) {
        Path(points);
    } else {
        for (std::size_t i = 1; i < points.size(); ++i)
            Edge(points[i - 1], points[i]);
    }
}

void Canvas::CloseStrokePath(const DeviceGeometry::Points& points) {
    if (strokes_ == Strokes::Joined) {
        cairo_close_path(context_.get());
    } else {
        Edge(points.back(), points.front());
    }
}

void Canvas::Edge(Vellum::int_pt_t a, Vellum::int_pt_t b) {
    if (!Touches(part_, BoxOf(a, b))) return;
    // The clipping may turn an outline round; an edge looks the same both ways.
    if (std::pair(b.x, b.y) < std::pair(a.x, a.y)) std::swap(a, b);
    cairo_move_to(context_.get(), Pixels(a.x), Pixels(a.y));
    cairo_line_to(context_.get(), Pixels(b.x), Pixels(b.y));
}

void Canvas::Fill(const Colour& colour) {
    cairo_set_source_rgb(context_.get(), colour.red, colour.green, colour.blue);
    cairo_fill(context_.get());
}

void Canvas::Stroke(const Colour& colour, double width) {
    cairo_set_source_rgb(context_.get(), colour.red, colour.green, colour.blue);
    cairo_set_line_width(context_.get(), width);
    cairo_stroke(context_.get());
}

}  // namespace tool
