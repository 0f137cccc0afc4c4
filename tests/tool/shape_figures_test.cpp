// SPDX-License-Identifier: MIT
#include "shape_figures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/point_checks.h"

namespace {

using support::IsAt;
using tool::Colour;
using tool::Figure;
using tool::Points;
using Vellum::DblPt;

Figure FigureOf(const std::string& name) {
    for (const Figure& figure : tool::ShapeFigures()) {
        if (figure.name == name) return figure;
    }
    throw std::runtime_error("no figure of " + name);
}

bool Same(const Colour& a, const Colour& b) { return a.red == b.red && a.green == b.green && a.blue == b.blue; }

/// The colour of the probe nearest to a place.
Colour ColourAt(const Figure& figure, const DblPt& place) {
    return std::min_element(figure.probes.begin(), figure.probes.end(),
                            [&](const auto& a, const auto& b) { return a.at.Distsq(place) < b.at.Distsq(place); })
        ->colour;
}

/// Expects the probes to have the first of the legend's rows of colours where @p inside holds, the second where only
/// @p near does, and the third elsewhere; and each of those somewhere that @p near or @p inside can tell apart.
void ExpectHits(const Figure& figure, const std::function<bool(DblPt)>& inside,
                const std::function<bool(DblPt)>& near) {
    const Figure legend = tool::Legend();
    const Colour colours[] = {ColourAt(legend, {-6, -0.1}), ColourAt(legend, {-6, -1.6}), ColourAt(legend, {-6, -3.1})};
    ASSERT_FALSE(figure.probes.empty());
    int hits = 0;
    for (const tool::Probe& probe : figure.probes) {
        const int answer = inside(probe.at) ? 0 : near(probe.at) ? 1 : 2;
        hits += answer == 0 ? 1 : 0;
        EXPECT_TRUE(Same(probe.colour, colours[answer])) << probe.at.x << ", " << probe.at.y;
    }
    EXPECT_GT(hits, 100);
    EXPECT_LT(hits, static_cast<int>(figure.probes.size()));
}

void ExpectBox(const Figure& figure, double left, double bottom, double right, double top) {
    ASSERT_TRUE(figure.extents);
    EXPECT_NEAR(figure.extents->Left(), left, 1e-9);
    EXPECT_NEAR(figure.extents->Bottom(), bottom, 1e-9);
    EXPECT_NEAR(figure.extents->Right(), right, 1e-9);
    EXPECT_NEAR(figure.extents->Top(), top, 1e-9);
}

TEST(ShapeFigures, EveryShapeIsThere) {
    std::vector<std::string> names;
    for (const Figure& figure : tool::ShapeFigures()) {
        names.push_back(figure.name);
    }
    EXPECT_EQ(names, (std::vector<std::string>{"LineSegmentGeom", "PolylineGeom", "PolygonGeom", "CircleGeom",
                                               "ArcGeom", "EllipseGeom", "EllipticalArcGeom", "AlignedDblRect",
                                               "DblRect", "RestrictedTextGeom", "PickRect"}));
}

TEST(ShapeFigures, AllIsWithinTheBox) {
    const Vellum::AlignedDblRect box = tool::FigureBox();
    std::vector<Figure> figures = tool::ShapeFigures();
    figures.push_back(tool::Legend());
    for (const Figure& figure : figures) {
        EXPECT_FALSE(figure.outlines.empty()) << figure.name;
        EXPECT_FALSE(figure.note.empty()) << figure.name;
        std::vector<Points> lines = figure.outlines;
        lines.insert(lines.end(), figure.guides.begin(), figure.guides.end());
        for (const Points& line : lines) {
            EXPECT_GE(line.size(), 2U) << figure.name;
            for (const DblPt& p : line) {
                EXPECT_TRUE(box.Contains(p, 0.0)) << figure.name;
            }
        }
        for (const tool::Probe& probe : figure.probes) {
            EXPECT_TRUE(box.Contains(probe.at, 0.0)) << figure.name;
        }
        if (figure.extents) {
            EXPECT_TRUE(box.Contains(figure.extents->LL(), 0.0)) << figure.name;
            EXPECT_TRUE(box.Contains(figure.extents->UR(), 0.0)) << figure.name;
        }
    }
}

// Wherever there are both, the outline lies in the box; that of the ellipse is made of points 5 degrees apart.
TEST(ShapeFigures, BoxesHoldTheirOutlines) {
    for (const Figure& figure : tool::ShapeFigures()) {
        if (!figure.extents) continue;
        for (const DblPt& p : figure.outlines[0]) {
            EXPECT_TRUE(figure.extents->Contains(p, 0.01)) << figure.name << ": " << p.x << ", " << p.y;
        }
    }
}

TEST(ShapeFigures, Segment) {
    const Figure figure = FigureOf("LineSegmentGeom");
    ExpectBox(figure, -6.5, -3.5, 6.0, 3.0);
    EXPECT_TRUE(IsAt(figure.centroid.value(), -0.25, -0.25));
}

TEST(ShapeFigures, Polyline) {
    const Figure figure = FigureOf("PolylineGeom");
    ExpectBox(figure, -7.0, -4.0, 7.0, 4.0);
    EXPECT_TRUE(IsAt(figure.centroid.value(), 0.5 / 7.0, 0.0));
}

TEST(ShapeFigures, Polygon) {
    const Figure figure = FigureOf("PolygonGeom");
    const Points& ring = figure.outlines.at(0);
    ASSERT_EQ(ring.size(), 6U);
    EXPECT_TRUE(ring.front().IsExactly(ring.back()));
    const Vellum::PolygonGeom polygon(5, ring.data());
    ExpectHits(
        figure, [&](const DblPt& p) { return polygon.Contains(p, 0.0); }, [](const DblPt&) { return false; });
    // The middle of the star is wound round twice.
    EXPECT_TRUE(polygon.Contains(figure.centroid.value(), 0.0));
}

TEST(ShapeFigures, Circle) {
    const Figure figure = FigureOf("CircleGeom");
    ExpectBox(figure, -4.95, -4.95, 4.95, 4.95);
    for (const DblPt& p : figure.outlines.at(0)) {
        EXPECT_NEAR(p.Dist({0, 0}), 4.95, 1e-12);
    }
    const Vellum::CircleGeom circle(0, 0, 4.95);
    ExpectHits(
        figure, [&](const DblPt& p) { return circle.Contains(p, 0.0); }, [](const DblPt&) { return false; });
    // The estimate tells: there are probes inside by it that lie beyond the rim, and the other way round.
    const auto beyond = [](const tool::Probe& probe) {
        return probe.at.Dist({0, 0}) > 4.95 && DblPt(0, 0).ApproxDist(probe.at) < 4.95;
    };
    EXPECT_TRUE(std::any_of(figure.probes.begin(), figure.probes.end(), beyond));
}

TEST(ShapeFigures, Arc) {
    const Figure figure = FigureOf("ArcGeom");
    const DblPt center(-0.5, -0.5);
    const Points& arc = figure.outlines.at(0);
    for (const DblPt& p : arc) {
        EXPECT_NEAR(p.Dist(center), 5.0, 1e-9);
    }
    const double start = std::atan2(-2.5, 7.0);
    EXPECT_NEAR(arc.front().x, -0.5 + 5.0 * std::cos(start), 1e-9);
    EXPECT_NEAR(arc.back().y, -0.5 + 5.0 * std::sin(start + 3.9), 1e-9);
    EXPECT_FALSE(figure.centroid);
    ExpectBox(figure, -5.5, -0.5 + 5.0 * std::sin(start + 3.9), 4.5, 4.5);
}

TEST(ShapeFigures, Ellipse) {
    const Figure figure = FigureOf("EllipseGeom");
    const DblPt u(6.4, 2.2);
    const DblPt v(-2.4, 3.2);
    // In terms of the conjugate diameters every point of the ellipse lies on the unit circle.
    const double det = u.x * v.y - u.y * v.x;
    for (const DblPt& p : figure.outlines.at(0)) {
        EXPECT_NEAR(std::hypot(p.x * v.y - p.y * v.x, u.x * p.y - u.y * p.x) / det, 1.0, 1e-9);
    }
    const Colour near = ColourAt(tool::Legend(), {-7.5, -4.6});
    const Colour far = ColourAt(tool::Legend(), {-4.3, -4.6});
    Vellum::EllipseGeom ellipse({0, 0}, u, v);
    for (const tool::Probe& probe : figure.probes) {
        DblPt p = probe.at;
        const double share = std::min(ellipse.DistPointEllipse(p) / 3.0, 1.0);
        EXPECT_NEAR(probe.colour.green, near.green + (far.green - near.green) * share, 1e-12);
    }
    EXPECT_TRUE(IsAt(figure.centroid.value(), 0, 0));
}

TEST(ShapeFigures, EllipticalArc) {
    const Figure figure = FigureOf("EllipticalArcGeom");
    const Points& arc = figure.outlines.at(0);
    // From the ray through (3, -2.4) counter-clockwise to that through (-5, -1).
    EXPECT_NEAR(std::atan2(arc.front().y, arc.front().x), std::atan2(-2.4, 3.0), 1e-9);
    EXPECT_NEAR(std::atan2(arc.back().y, arc.back().x), std::atan2(-1.0, -5.0), 1e-9);
    EXPECT_TRUE(std::any_of(arc.begin(), arc.end(), [](const DblPt& p) { return p.y > 3.0; }));
    EXPECT_TRUE(std::none_of(arc.begin(), arc.end(), [](const DblPt& p) { return p.y < -2.8; }));
}

TEST(ShapeFigures, Rectangles) {
    const Figure aligned = FigureOf("AlignedDblRect");
    ExpectBox(aligned, -5.2, -2.8, 5.2, 3.2);
    const Vellum::AlignedDblRect box(-5.2, -2.8, 5.2, 3.2);
    ExpectHits(
        aligned, [&](const DblPt& p) { return box.Contains(p, 0.0); },
        [&](const DblPt& p) { return box.Contains(p, 1.2); });

    const Figure turned = FigureOf("DblRect");
    ExpectBox(turned, -6.5, -4.8, 6.5, 4.4);
    const Vellum::DblRect rect(DblPt(-6.5, -1.5), DblPt(-3.4, 4.4), DblPt(6.5, 0.6), DblPt(3.4, -4.8));
    ExpectHits(
        turned, [&](const DblPt& p) { return rect.Contains(p, 0.0); }, [](const DblPt&) { return false; });
}

TEST(ShapeFigures, TextAndPickRegion) {
    const Figure text = FigureOf("RestrictedTextGeom");
    EXPECT_EQ(text.labels.at(0).text, "a text in its box");
    EXPECT_TRUE(IsAt(text.outlines.at(0).at(0), -6, -2));
    EXPECT_TRUE(IsAt(text.outlines.at(0).at(2), 6, 2));

    const Figure pick = FigureOf("PickRect");
    ExpectBox(pick, -4.0, -2.8, 3.2, 2.0);
    const Vellum::AlignedDblRect box(-4.0, -2.8, 3.2, 2.0);
    ExpectHits(
        pick, [&](const DblPt& p) { return box.Contains(p, 0.0); },
        [&](const DblPt& p) { return box.Contains(p, 1.2); });
}

}  // namespace
