// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_SHAPE_FIGURES_H
#define VELLUM_TOOL_SHAPE_FIGURES_H

#include <optional>
#include <string>
#include <vector>

#include "drawing.h"
#include "palette.h"
#include "vellum/vellum.h"

namespace tool {

/// A place at which a shape was asked a question, in the colour of its answer.
struct Probe {
    Vellum::DblPt at;
    Colour colour;
};

struct Label {
    Vellum::DblPt at;
    std::string text;
    double size;
};

/// One shape with its answers: its points and distances, its box, its centroid and its hit tests are the library's.
/// All coordinates lie in or near `FigureBox`.
struct Figure {
    std::string name;
    std::string note;
    /// Lines; closed ones end where they begin.
    std::vector<Points> outlines;
    /// Lines that belong to the shape without being drawn by it, such as the radii of an arc.
    std::vector<Points> guides;
    std::optional<Vellum::AlignedDblRect> extents;
    std::optional<Vellum::DblPt> centroid;
    std::vector<Probe> probes;
    std::vector<Label> labels;
};

/// The box in the middle of which a figure is drawn.
Vellum::AlignedDblRect FigureBox();

/// Every class of shape.
std::vector<Figure> ShapeFigures();

/// What the marks in the figures mean.
Figure Legend();

}  // namespace tool

#endif
