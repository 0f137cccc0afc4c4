// SPDX-License-Identifier: MIT
#include "sheet.h"

#include <algorithm>
#include <cmath>

#include "error.h"

namespace tool {

namespace {

constexpr int kColumns = 4;
constexpr int kRows = 4;

// The map's cell: the lower right quarter of the page.
constexpr int kMapColumn = 2;
constexpr int kMapRow = 2;
constexpr int kMapSpan = 2;

// The page at which sizes in pixels are what they are called here.
constexpr double kPageWidth = 1600.0;
constexpr double kPageHeight = 1200.0;
constexpr int kSmallestWidth = 400;
constexpr int kSmallestHeight = 300;

constexpr double kGap = 12.0;
constexpr double kPadding = 12.0;
constexpr double kNameLine = 23.0;
constexpr double kNoteLine = 41.0;
constexpr double kCaptionHeight = 50.0;
constexpr double kNameSize = 17.0;
constexpr double kNoteSize = 13.0;
constexpr double kProbeRadius = 2.1;
constexpr double kCrossArm = 7.0;

constexpr Colour kInk = Rgb(0x2f3b4a);
constexpr Colour kNote = Rgb(0x55616e);
constexpr Colour kBorder = Rgb(0xc8d0d8);

constexpr Pen kBorderPen = {kBorder, 1.0};
constexpr Pen kOutlinePen = {kInk, 1.6};
constexpr Pen kHaloPen = {Rgb(0xffffff), 5.0};
constexpr Pen kGuidePen = {Rgb(0x7d8894), 0.9, 4.0};

Pen ExtentsPen() { return {PaletteStyle(6).line, 1.0, 5.0}; }
Pen CentroidPen() { return {PaletteStyle(2).line, 2.0}; }

PictureSize SizeOf(const PixelBox& box) { return {box.width, box.height}; }

/// The view in which the box of the figures fills a picture.
View FigureView(const PictureSize& size) {
    Feature corners;
    corners.geometry.points = {FigureBox().LL(), FigureBox().UR()};
    return {{{corners}}, {}, size};
}

Points OutlineOf(const Vellum::AlignedDblRect& box) {
    Points corners(4);
    box.GetLL(corners[0]);
    box.GetUL(corners[1]);
    box.GetUR(corners[2]);
    box.GetLR(corners[3]);
    corners.push_back(corners.front());
    return corners;
}

/// Draws what is given in the model's coordinates.
class ModelCanvas {
public:
    ModelCanvas(Canvas& canvas, const View& view) : canvas_(canvas), toDevice_(view.ToDevice()) {}

    void Line(const Points& points, const Pen& pen) {
        DeviceGeometry::Points device;
        for (const Vellum::DblPt& p : points) {
            device.push_back(Device(p));
        }
        canvas_.Line(device, pen);
    }

    void Dot(const Vellum::DblPt& p, double radius, const Colour& colour) { canvas_.Dot(Device(p), radius, colour); }

    void Text(const Vellum::DblPt& p, const std::string& text, const TextStyle& style) {
        canvas_.Text(Device(p), text, style);
    }

    /// @p arm in pixels.
    void Cross(const Vellum::DblPt& center, int arm, const Pen& pen) {
        const Vellum::int_pt_t p = Device(center);
        const int32_t reach = arm * kUnitsPerPixel;
        canvas_.Line({{p.x - reach, p.y}, {p.x + reach, p.y}}, pen);
        canvas_.Line({{p.x, p.y - reach}, {p.x, p.y + reach}}, pen);
    }

private:
    Vellum::int_pt_t Device(const Vellum::DblPt& p) {
        Vellum::int_pt_t device;
        toDevice_.XfmPt(&p, &device);
        return device;
    }

    Canvas& canvas_;
    Vellum::Mtx2D toDevice_;
};

}  // namespace

Sheet::Sheet(const PictureSize& size)
    : size_(size), scale_(std::min(size.width / kPageWidth, size.height / kPageHeight)), figures_(ShapeFigures()) {
    if (size.width < kSmallestWidth || size.height < kSmallestHeight) {
        throw Error("--size: the sheet needs " + std::to_string(kSmallestWidth) + 'x' +
                    std::to_string(kSmallestHeight) + " pixels or more");
    }
    figures_.push_back(Legend());
}

PictureSize Sheet::MapSize() const { return SizeOf(Body(Cell(kMapColumn, kMapRow, kMapSpan))); }

void Sheet::Paint(Canvas& canvas, const std::string& name, const std::string& note,
                  const std::function<void()>& paintMap) const {
    canvas.Paper();
    auto figure = figures_.begin();
    for (int row = 0; row < kRows; ++row) {
        for (int column = 0; column < kColumns; ++column) {
            if (column >= kMapColumn && row >= kMapRow) continue;
            const PixelBox cell = Cell(column, row, 1);
            canvas.Within(cell, [&] { PaintFigure(canvas, cell, *figure); });
            ++figure;
        }
    }
    const PixelBox cell = Cell(kMapColumn, kMapRow, kMapSpan);
    canvas.Within(cell, [&] {
        PaintCaption(canvas, cell, name, note);
        canvas.Within(Body(cell), paintMap);
    });
}

PixelBox Sheet::Cell(int column, int row, int span) const {
    const int gap = Scaled(kGap);
    const int width = size_.width - gap;
    const int height = size_.height - gap;
    const int left = gap + width * column / kColumns;
    const int top = gap + height * row / kRows;
    return {left, top, gap + width * (column + span) / kColumns - left - gap,
            gap + height * (row + span) / kRows - top - gap};
}

PixelBox Sheet::Body(const PixelBox& cell) const {
    const int padding = Scaled(kPadding);
    const int top = Scaled(kCaptionHeight);
    return {padding, top, cell.width - 2 * padding, cell.height - top - padding};
}

int Sheet::Scaled(double pixels) const { return std::max(1, static_cast<int>(std::lround(pixels * scale_))); }

Pen Sheet::Scaled(const Pen& pen) const { return {pen.colour, pen.width * scale_, pen.dash * scale_}; }

void Sheet::PaintCaption(Canvas& canvas, const PixelBox& cell, const std::string& name, const std::string& note) const {
    const int right = cell.width * kUnitsPerPixel;
    const int bottom = cell.height * kUnitsPerPixel;
    canvas.Line({{0, 0}, {right, 0}, {right, bottom}, {0, bottom}, {0, 0}}, Scaled(kBorderPen));
    const int left = Scaled(kPadding) * kUnitsPerPixel;
    canvas.Text({left, Scaled(kNameLine) * kUnitsPerPixel}, name, {kInk, kNameSize * scale_, true});
    canvas.Text({left, Scaled(kNoteLine) * kUnitsPerPixel}, note, {kNote, kNoteSize * scale_});
}

void Sheet::PaintFigure(Canvas& canvas, const PixelBox& cell, const Figure& figure) const {
    PaintCaption(canvas, cell, figure.name, figure.note);
    const PixelBox body = Body(cell);
    canvas.Within(body, [&] { PaintMarks(canvas, SizeOf(body), figure); });
}

void Sheet::PaintMarks(Canvas& canvas, const PictureSize& size, const Figure& figure) const {
    const View view = FigureView(size);
    ModelCanvas model(canvas, view);
    for (const Probe& probe : figure.probes) {
        model.Dot(probe.at, kProbeRadius * scale_, probe.colour);
    }
    for (const Points& guide : figure.guides) {
        model.Line(guide, Scaled(kGuidePen));
    }
    if (figure.extents) model.Line(OutlineOf(*figure.extents), Scaled(ExtentsPen()));
    for (const Points& outline : figure.outlines) {
        model.Line(outline, Scaled(kOutlinePen));
    }
    if (figure.centroid) {
        model.Cross(*figure.centroid, Scaled(kCrossArm), Scaled(kHaloPen));
        model.Cross(*figure.centroid, Scaled(kCrossArm), Scaled(CentroidPen()));
    }
    for (const Label& label : figure.labels) {
        model.Text(label.at, label.text, {kInk, label.size / view.PixelLength()});
    }
}

}  // namespace tool
