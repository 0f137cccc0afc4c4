// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_SHEET_H
#define VELLUM_TOOL_SHEET_H

#include <functional>
#include <string>
#include <vector>

#include "canvas.h"
#include "shape_figures.h"
#include "view.h"

namespace tool {

/// A page with a cell for every figure and one of four times the size for a map.
class Sheet {
public:
    /// Throws `Error` where there is no room for cells.
    explicit Sheet(const PictureSize& size);

    /// The room for the map.
    PictureSize MapSize() const;

    /// @p paintMap draws the map, as a picture of its own.
    void Paint(Canvas& canvas, const std::string& name, const std::string& note,
               const std::function<void()>& paintMap) const;

private:
    PixelBox Cell(int column, int row, int span) const;
    /// What the caption leaves of a cell, in the cell's own pixels.
    PixelBox Body(const PixelBox& cell) const;
    int Scaled(double pixels) const;
    Pen Scaled(const Pen& pen) const;
    void PaintCaption(Canvas& canvas, const PixelBox& cell, const std::string& name, const std::string& note) const;
    void PaintFigure(Canvas& canvas, const PixelBox& cell, const Figure& figure) const;
    void PaintMarks(Canvas& canvas, const PictureSize& size, const Figure& figure) const;

    PictureSize size_;
    double scale_;
    std::vector<Figure> figures_;
};

}  // namespace tool

#endif
