// SPDX-License-Identifier: MIT
#include "svg_canvas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "look.h"
#include "text.h"

namespace tool {

namespace {

// How wide a letter is at most on average, of the font's size.
constexpr double kLetterWidth = 0.7;

// How a line of text stands to its place.
constexpr std::string_view kStart = "start";
constexpr std::string_view kMiddle = "middle";
constexpr std::string_view kEnd = "end";

std::string Hex(const Colour& colour) {
    const auto channel = [](double share) { return static_cast<unsigned>(std::lround(share * 255.0)); };
    std::array<char, 8> text;
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", channel(colour.red), channel(colour.green),
                  channel(colour.blue));
    return text.data();
}

/// Of UTF-8: all bytes but those that continue a letter.
std::ptrdiff_t LetterCount(const std::string& text) {
    return std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; });
}

/// As XML has it between two tags.
std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : OneLine(text)) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

void AddPath(const DeviceGeometry::Points& points, std::string& path) {
    char step = 'M';
    for (const Vellum::int_pt_t& p : points) {
        path += step;
        path += ExactText(Pixels(p.x));
        path += ' ';
        path += ExactText(Pixels(p.y));
        step = 'L';
    }
}

}  // namespace

SvgCanvas::SvgCanvas(const PictureSize& size) : size_(size) {
    svg_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    Begin("svg");
    Attribute("xmlns", "http://www.w3.org/2000/svg");
    Size(size);
    Attribute("fill", "none");
    Attribute("fill-rule", "evenodd");
    Attribute("stroke-linejoin", "round");
    Attribute("stroke-linecap", "round");
    Attribute("font-family", "sans-serif");
    svg_ += ">\n";
}

std::string SvgCanvas::Document() const { return svg_ + "</svg>\n"; }

void SvgCanvas::Background() { Fill(kBackground); }

void SvgCanvas::Paper() { Fill(kPaper); }

void SvgCanvas::Polygon(const DeviceGeometry::Polygon& rings, const Colour& colour) {
    std::string path;
    for (const DeviceGeometry::Points& ring : rings) {
        AddPath(ring, path);
        path += 'Z';
    }
    Begin("path");
    Attribute("d", path);
    Attribute("fill", colour);
    Stroke(OutlineColour(colour), kOutlineWidth);
    End();
}

void SvgCanvas::Lines(const std::vector<DeviceGeometry::Points>& lines, const Colour& colour) {
    if (lines.empty()) return;
    std::string path;
    for (const DeviceGeometry::Points& line : lines) {
        AddPath(line, path);
    }
    Begin("path");
    Attribute("d", path);
    Stroke(colour, kLineWidth);
    End();
}

void SvgCanvas::Point(const Vellum::int_pt_t& point, const Colour& colour) {
    Begin("circle");
    Centre(point, kPointRadius);
    Attribute("fill", colour);
    Stroke(kPaper, kOutlineWidth);
    End();
}

void SvgCanvas::Frame() {
    Begin("rect");
    Size(size_);
    // Half of the stroke falls outside the picture.
    Stroke(kFrame, 2.0 * kFrameWidth);
    End();
}

void SvgCanvas::Line(const DeviceGeometry::Points& line, const Pen& pen) {
    std::string path;
    AddPath(line, path);
    Begin("path");
    Attribute("d", path);
    Stroke(pen.colour, pen.width);
    if (pen.dash > 0.0) Attribute("stroke-dasharray", pen.dash);
    End();
}

void SvgCanvas::Dot(const Vellum::int_pt_t& point, double radius, const Colour& colour) {
    Begin("circle");
    Centre(point, radius);
    Attribute("fill", colour);
    End();
}

void SvgCanvas::Text(const Vellum::int_pt_t& point, const std::string& text, const TextStyle& style) {
    Letters(Pixels(point.x), Pixels(point.y), kStart, text, style);
}

/// How wide the text is, is up to the font in which it will be shown. Beside a side of the picture the text starts or
/// ends at the margin, which is inside for every font.
void SvgCanvas::Label(const Vellum::int_pt_t& point, const std::string& text, const TextStyle& style) {
    const double half = kLetterWidth * style.size * static_cast<double>(LetterCount(text)) * 0.5;
    const double middle = Pixels(point.x);
    const double right = size_.width - kLabelMargin;
    const double base = std::max(kLabelMargin + style.size, Pixels(point.y));
    if (middle - half < kLabelMargin) {
        Letters(kLabelMargin, base, kStart, text, style);
    } else if (middle + half > right) {
        Letters(right, base, kEnd, text, style);
    } else {
        Letters(middle, base, kMiddle, text, style);
    }
}

void SvgCanvas::Letters(double x, double y, std::string_view anchor, const std::string& text, const TextStyle& style) {
    Begin("text");
    Attribute("x", x);
    Attribute("y", y);
    if (anchor != kStart) Attribute("text-anchor", anchor);
    Attribute("font-size", style.size);
    if (style.bold) Attribute("font-weight", "bold");
    Attribute("fill", style.colour);
    // The halo: a stroke of which the letters cover the inner half.
    Stroke(kPaper, 2.0 * kHaloWidth);
    Attribute("paint-order", "stroke");
    ((svg_ += '>') += Escaped(text)) += "</text>\n";
}

void SvgCanvas::Enter(const PixelBox& box) {
    around_.push_back(size_);
    size_ = {box.width, box.height};
    Begin("svg");
    Attribute("x", box.left);
    Attribute("y", box.top);
    Size(size_);
    svg_ += ">\n";
}

void SvgCanvas::Leave() {
    size_ = around_.back();
    around_.pop_back();
    svg_ += "</svg>\n";
}

void SvgCanvas::Attribute(std::string_view name, std::string_view value) {
    ((((svg_ += ' ') += name) += "=\"") += value) += '"';
}

void SvgCanvas::Attribute(std::string_view name, double value) { Attribute(name, ExactText(value)); }

void SvgCanvas::Attribute(std::string_view name, const Colour& value) { Attribute(name, Hex(value)); }

void SvgCanvas::Size(const PictureSize& size) {
    Attribute("width", size.width);
    Attribute("height", size.height);
}

void SvgCanvas::Centre(const Vellum::int_pt_t& point, double radius) {
    Attribute("cx", Pixels(point.x));
    Attribute("cy", Pixels(point.y));
    Attribute("r", radius);
}

void SvgCanvas::Stroke(const Colour& colour, double width) {
    Attribute("stroke", colour);
    Attribute("stroke-width", width);
}

void SvgCanvas::Fill(const Colour& colour) {
    Begin("rect");
    Size(size_);
    Attribute("fill", colour);
    End();
}

}  // namespace tool
