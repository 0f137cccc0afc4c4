// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_DATASET_H
#define VELLUM_BENCHMARKS_DATASET_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "vellum/clipping.h"
#include "vellum/points.h"
#include "vellum/rectangles.h"

namespace VellumBench {

/// Points all over a square about the origin, so that the signs are mixed and not to be foreseen.
std::vector<Vellum::DblPt> ScatteredPoints(size_t count);

/// An outline that wanders from device pixel to device pixel about the origin, one unit each, and in three of ten steps
/// stays where it is, as the outlines of a map do when it is shrunk to the screen. A point lies up to @p stray from the
/// centre of its pixel on each axis.
std::vector<Vellum::DblPt> ShrunkOutline(size_t count, double stray);

/// A poly point set that owns its arrays.
struct PolySet {
    std::vector<real_pt_t> pts;
    std::vector<uint32_t> codes;

    /// The record that the library reads.
    DrwPSetT Record() const;
    void AddPolygon(const std::vector<real_pt_t>& polygon);
    /// Calls `visit(first, count)` for every polygon.
    template <typename Visit>
    void ForEachPolygon(Visit visit) const {
        ForEachPolygon(pts.size(), visit);
    }
    /// The same for the first @p size points.
    template <typename Visit>
    void ForEachPolygon(size_t size, Visit visit) const {
        size_t first = 0;
        for (size_t i = 0; i < size; ++i) {
            if (codes[i] != 2) continue;
            visit(&pts[first], i + 1 - first);
            first = i + 1;
        }
    }
};

/// The land masses of the world. Every ring is a polygon of its own, without the closing point that repeats the first.
PolySet LandMap();
/// A hundred thousand polygons of about ten points each, spread evenly over a square.
PolySet SmallPolygons();

/// An outline about @p centre that does not cross itself: a star of five rays, about one unit long, the first of which
/// points to the right. It is rough from point to point.
std::vector<Vellum::DblPt> StarOutline(uint64_t seed, size_t count, const Vellum::DblPt& centre);
/// The largest land mass of the map.
std::vector<Vellum::DblPt> LargestLand();
/// Points all over the box of an outline, every third one close to an edge; none lies on the outline.
std::vector<Vellum::DblPt> PointsAbout(const std::vector<Vellum::DblPt>& outline, size_t count);
/// One bank of a river that winds along the x axis, a point for every unit, rough from point to point. @p side is 1
/// for the left bank and -1 for the right one: they run side by side, nowhere much nearer to each other than elsewhere.
std::vector<Vellum::DblPt> RiverBank(uint64_t seed, size_t count, int side);

/// Lines by their points.
using Lines = std::vector<std::vector<Vellum::DblPt>>;

/// The lines of one of the sample maps.
Lines MapLines(const std::string& map);
/// Segments of one length all over a square, in all directions. The more there are the shorter they are: each crosses
/// two or three others, however many there are.
Lines CrossingSegments(size_t count);
/// A grid of streets, which share the points where they cross and have no others. A crossing strays from its place by
/// up to @p stray of the distance between two of them, on each axis.
Lines Streets(size_t across, size_t up, double stray);

struct Box {
    double left, bottom, right, top;
};

Box BoxOf(const real_pt_t* pts, size_t count);

/// What the data is clipped against.
class View {
public:
    View() = default;
    /// Covers @p share of the area of @p data about @p centre. A share of 1 means all of the data, wherever the centre
    /// lies.
    View(const Box& data, real_pt_t centre, double share, bool turned);

    const Vellum::DblRect& Rectangle() const { return rectangle; }
    const Box& Bounds() const { return bounds; }
    bool Turned() const { return turned; }
    /// Whether the box lies outside the view's bounds.
    bool Misses(const Box& box) const {
        return box.right < bounds.left || box.left > bounds.right || box.top < bounds.bottom || box.bottom > bounds.top;
    }
    /// Whether the box lies inside the view.
    bool Holds(const Box& box) const;

private:
    bool Contains(double x, double y) const;

    Vellum::DblRect rectangle;
    Box bounds = {};
    bool turned = false;
};

}  // namespace VellumBench

#endif
