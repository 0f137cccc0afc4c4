// SPDX-License-Identifier: MIT
#include "drawing.h"

namespace tool {

namespace {

/// Grows a box by arrays of points.
class ExtentsOf {
public:
    explicit ExtentsOf(const Vellum::Mtx2D& matrix) : matrix_(matrix) {}

    void Add(const Points& points) {
        if (points.empty()) return;
        moved_ = points;
        double left = 0.0;
        double bottom = 0.0;
        double right = 0.0;
        double top = 0.0;
        matrix_.RealXfmPtsExt(static_cast<int>(moved_.size()), moved_.data(), left, bottom, right, top);
        const Vellum::AlignedDblRect box(left, bottom, right, top);
        if (box_) {
            *box_ += box;
        } else {
            box_ = box;
        }
    }

    const std::optional<Vellum::AlignedDblRect>& Box() const { return box_; }

private:
    Vellum::Mtx2D matrix_;
    Points moved_;
    std::optional<Vellum::AlignedDblRect> box_;
};

}  // namespace

Style StyleOf(const Feature& feature, std::size_t position) {
    if (const auto* colour = std::get_if<Colour>(&feature.colour)) return {*colour, *colour};
    if (const auto* index = std::get_if<std::size_t>(&feature.colour)) return PaletteStyle(*index - 1);
    if (!feature.name.empty()) return PaletteStyle(NameHash(feature.name));
    return PaletteStyle(position);
}

std::optional<Vellum::AlignedDblRect> Extents(const Drawing& drawing, const Vellum::Mtx2D& matrix) {
    ExtentsOf extents(matrix);
    for (const Feature& feature : drawing.features) {
        for (const Polygon& polygon : feature.geometry.polygons) {
            for (const Points& ring : polygon) {
                extents.Add(ring);
            }
        }
        for (const Points& line : feature.geometry.lines) {
            extents.Add(line);
        }
        extents.Add(feature.geometry.points);
    }
    return extents.Box();
}

}  // namespace tool
