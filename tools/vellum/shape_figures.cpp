// SPDX-License-Identifier: MIT
#include "shape_figures.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>

namespace tool {

namespace {

using Vellum::AlignedDblRect;
using Vellum::DblPt;

constexpr double kHalfWidth = 9.0;
constexpr double kHalfHeight = 5.6;

// Between two probes. They lie half a step off its multiples, at which the upright rectangles have their sides: no
// answer hangs on rounding.
constexpr double kProbeStep = 0.4;
constexpr int kProbeColumns = 22;
constexpr int kProbeRows = 14;

// Of the hit tests.
constexpr double kTolerance = 1.2;

// The distance at which the shading by distance has faded out.
constexpr double kFarthest = 3.0;

constexpr int kCurveSteps = 96;

Colour InsideColour() { return PaletteStyle(5).line; }
Colour NearColour() { return PaletteStyle(0).line; }
constexpr Colour kOutsideColour = Rgb(0xdde1e5);

Colour DistanceColour(double distance) {
    return Mix(InsideColour(), kOutsideColour, std::min(distance / kFarthest, 1.0));
}

/// Asks @p answer, for every place of the grid, what colour it has.
template <class Answer>
std::vector<Probe> ProbesOf(Answer answer) {
    std::vector<Probe> probes;
    for (int row = -kProbeRows; row < kProbeRows; ++row) {
        for (int column = -kProbeColumns; column < kProbeColumns; ++column) {
            const DblPt place((column + 0.5) * kProbeStep, (row + 0.5) * kProbeStep);
            probes.push_back({place, answer(place)});
        }
    }
    return probes;
}

/// Asks a closed shape or a pick region, first without and then with a tolerance.
template <class Region>
std::vector<Probe> HitTests(Region& region) {
    return ProbesOf([&region](DblPt p) {
        if (region.Contains(p, 0.0)) return InsideColour();
        return region.Contains(p, kTolerance) ? NearColour() : kOutsideColour;
    });
}

template <class Shape>
DblPt CentroidOf(const Shape& shape) {
    DblPt centroid;
    shape.GetCentroid(centroid);
    return centroid;
}

template <class Shape>
AlignedDblRect ExtentsOf(const Shape& shape) {
    AlignedDblRect box;
    shape.GetExtents(box);
    return box;
}

Points Closed(Points points) {
    points.push_back(points.front());
    return points;
}

Points CornersOf(const AlignedDblRect& box) {
    Points corners(4);
    box.GetLL(corners[0]);
    box.GetUL(corners[1]);
    box.GetUR(corners[2]);
    box.GetLR(corners[3]);
    return corners;
}

/// The points of a curve that @p pointAt gives for 0 to 1.
template <class PointAt>
Points Curve(PointAt pointAt) {
    Points points;
    for (int i = 0; i <= kCurveSteps; ++i) {
        points.push_back(pointAt(static_cast<double>(i) / kCurveSteps));
    }
    return points;
}

DblPt Direction(double angle) { return {std::cos(angle), std::sin(angle)}; }

constexpr double kTurn = 2.0 * std::numbers::pi;

Figure Titled(const char* name, const char* note) {
    Figure figure;
    figure.name = name;
    figure.note = note;
    return figure;
}

Figure SegmentFigure() {
    const Vellum::LineSegmentGeom segment(DblPt(-6.5, -3.5), DblPt(6.0, 3.0));
    DblPt center;
    segment.GetCenter(center);
    Figure figure = Titled("LineSegmentGeom", "its middle and its box");
    figure.outlines = {{segment.StartPt(), segment.EndPt()}};
    figure.extents = ExtentsOf(segment);
    figure.centroid = center;
    return figure;
}

Figure PolylineFigure() {
    const Points points = {{-7.0, -2.5}, {-4.5, 3.5}, {-2.0, -0.5}, {0.5, 4.0}, {1.5, -4.0}, {5.0, 1.0}, {7.0, -1.5}};
    const Vellum::PolylineGeom polyline(static_cast<unsigned>(points.size()), points.data());
    Figure figure = Titled("PolylineGeom", "the mean of its points");
    figure.outlines = {{polyline.Start(), polyline.End()}};
    figure.extents = polyline.Extents();
    figure.centroid = CentroidOf(polyline);
    return figure;
}

/// A star drawn in one stroke: its middle is wound round twice, and so inside.
Figure PolygonFigure() {
    Points points;
    for (int i = 0; i < 5; ++i) {
        const DblPt tip = Direction(kTurn * (0.25 + 0.4 * i));
        points.emplace_back(tip.x * 6.4, tip.y * 5.2 - 0.3);
    }
    const Vellum::PolygonGeom polygon(static_cast<unsigned>(points.size()), points.data());
    Figure figure = Titled("PolygonGeom", "inside by the winding number");
    figure.outlines = {Closed({polygon.Start(), polygon.End()})};
    figure.extents = polygon.Extents();
    figure.centroid = CentroidOf(polygon);
    figure.probes = HitTests(polygon);
    return figure;
}

Figure CircleFigure() {
    const Vellum::CircleGeom circle(0.0, 0.0, 4.95);
    Figure figure = Titled("CircleGeom", "inside by the octagonal estimate");
    figure.outlines = {Curve([&circle](double share) {
        DblPt point;
        circle.ClosestPt(Direction(kTurn * share), point);
        return point;
    })};
    figure.extents = ExtentsOf(circle);
    figure.centroid = CentroidOf(circle);
    figure.probes = HitTests(circle);
    return figure;
}

Figure ArcFigure() {
    const DblPt center(-0.5, -0.5);
    const DblPt startRay(6.5, -3.0);
    double radius = 5.0;
    double sweep = 3.9;
    const Vellum::ArcGeom arc(startRay, center, radius, sweep);
    const Points points = Curve([arc](double share) mutable {
        double part = arc.Angle() * share;
        Vellum::ArcGeom begun(arc);
        begun.SetAngle(part);
        DblPt point;
        begun.GetArcEndPoint(point);
        return point;
    });
    Figure figure = Titled("ArcGeom", "counter-clockwise from its start ray");
    figure.outlines = {points};
    figure.guides = {{arc.StartVec(), arc.Center(), points.back()}};
    figure.extents = ExtentsOf(arc);
    return figure;
}

Vellum::real_pt_t Record(const DblPt& p) { return {p.x, p.y}; }

Vellum::std_ell_typ StandardPosition(const Vellum::EllipseGeom& ellipse) {
    Vellum::circle_ellipse_s diameters{};
    diameters.center = Record(ellipse.Center());
    diameters.conjugate1 = Record(ellipse.Major());
    diameters.conjugate2 = Record(ellipse.Minor());
    Vellum::CONIC_ARC arc{};
    ellipse.cgm2iges_ellipse(&diameters, true, &arc);
    Vellum::con_arc_str conic = {arc.A, arc.B, arc.C, arc.D, arc.E, arc.F, {arc.X1, arc.Y1}, {arc.X2, arc.Y2}, 1};
    Vellum::std_ell_typ standard{};
    ellipse.utl_standard_ellipse(&conic, &standard);
    return standard;
}

/// About the origin: distances and extents are relative to the centre.
Figure EllipseFigure() {
    const Vellum::EllipseGeom ellipse(DblPt(0.0, 0.0), DblPt(6.4, 2.2), DblPt(-2.4, 3.2));
    Vellum::std_ell_typ standard = StandardPosition(ellipse);
    Figure figure = Titled("EllipseGeom", "shaded by the distance; never an area");
    figure.outlines = {Curve([&](double share) {
        DblPt point;
        ellipse.utl_ellipse_point(&standard, standard.startAngle + standard.sweepAngle * share, &point);
        return point;
    })};
    figure.guides = {{ellipse.Center(), ellipse.Major()}, {ellipse.Center(), ellipse.Minor()}};
    figure.extents = ExtentsOf(ellipse);
    figure.centroid = CentroidOf(ellipse);
    figure.probes = ProbesOf([&ellipse](DblPt p) { return DistanceColour(ellipse.DistPointEllipse(p)); });
    return figure;
}

/// About the origin, for the same reason.
Figure EllipticalArcFigure() {
    DblPt center(0.0, 0.0);
    DblPt end1(6.6, 1.6);
    DblPt end2(-1.5, 3.4);
    DblPt start(3.0, -2.4);
    DblPt end(-5.0, -1.0);
    const Vellum::EllipticalArcGeom shape(center, end1, end2, start, end);
    double semiMajor = 0.0;
    double semiMinor = 0.0;
    bool degenerate = false;
    Vellum::drw_con_arc_t arc =
        shape.Cnj2ConEllipse(&center, &end1, &end2, &start, &end, semiMajor, semiMinor, degenerate, false);
    const auto pointAt = [&](double angle) {
        DblPt point;
        const DblPt ray = Direction(angle);
        shape.IntersectRayEllipse(ray.x, ray.y, &arc, &point);
        return point;
    };
    const double first = std::atan2(arc.start.y, arc.start.x);
    const double last = std::atan2(arc.end.y, arc.end.x);
    const double sweep = last > first ? last - first : last - first + kTurn;
    Figure figure = Titled("EllipticalArcGeom", "its box is that of the turned frame");
    figure.outlines = {Curve([&](double share) { return pointAt(first + sweep * share); })};
    figure.guides = {{shape.Start(), shape.Center(), shape.End()},
                     Curve([&](double share) { return pointAt(last + (kTurn - sweep) * share); })};
    figure.extents = ExtentsOf(shape);
    return figure;
}

Figure AlignedRectFigure() {
    const AlignedDblRect rect(-5.2, -2.8, 5.2, 3.2);
    Figure figure = Titled("AlignedDblRect", "a hit test with a tolerance");
    figure.outlines = {Closed(CornersOf(rect))};
    figure.extents = rect;
    figure.centroid = CentroidOf(rect);
    figure.probes = HitTests(rect);
    return figure;
}

Figure RectFigure() {
    const Vellum::DblRect rect(DblPt(-6.5, -1.5), DblPt(-3.4, 4.4), DblPt(6.5, 0.6), DblPt(3.4, -4.8));
    Figure figure = Titled("DblRect", "inside by the winding test");
    figure.outlines = {Closed({rect.GetPt(0), rect.GetPt(1), rect.GetPt(2), rect.GetPt(3)})};
    figure.extents = AlignedDblRect(rect.Left(), rect.Bottom(), rect.Right(), rect.Top());
    figure.centroid = CentroidOf(rect);
    figure.probes = HitTests(rect);
    return figure;
}

/// The characters of a text, all of them in the range of ASCII.
std::string AsciiOf(const Vellum::RestrictedTextGeom& text) {
    unsigned short* characters = nullptr;
    const unsigned length = text.StringToUChar(&characters);
    const std::unique_ptr<unsigned short[]> owner(characters);
    std::string ascii;
    for (unsigned i = 0; i < length; ++i) {
        ascii += static_cast<char>(owner[i]);
    }
    return ascii;
}

Figure TextFigure() {
    std::u16string words = u"a text in its box";
    std::vector<unsigned short> characters(words.begin(), words.end());
    characters.push_back(0);
    DblPt start(-6.0, -2.0);
    const Vellum::RestrictedTextGeom text(&start, 12.0, 4.0, 1, characters.data());
    const AlignedDblRect box(text.Start().x, text.Start().y, text.Start().x + text.Width(),
                             text.Start().y + text.Height());
    Figure figure = Titled("RestrictedTextGeom", "the box that the text must fit");
    figure.outlines = {Closed(CornersOf(box))};
    figure.labels = {{{box.Left() + 0.8, box.CenterY() - 0.4}, AsciiOf(text), 1.3}};
    return figure;
}

class HostPickRect : public Vellum::PickRect {
public:
    using PickRect::PickRect;
    void Reserved() override {}
};

Figure PickFigure() {
    HostPickRect region(-4.0, -2.8, 3.2, 2.0);
    DblPt lowerLeft;
    DblPt upperRight;
    region.GetPoints(&lowerLeft, &upperRight);
    Figure figure = Titled("PickRect", "what a click selects, with a tolerance");
    figure.outlines = {Closed(CornersOf({lowerLeft, upperRight}))};
    figure.extents = AlignedDblRect(region.Left(), region.Bottom(), region.Right(), region.Top());
    figure.probes = HitTests(region);
    return figure;
}

}  // namespace

AlignedDblRect FigureBox() { return {-kHalfWidth, -kHalfHeight, kHalfWidth, kHalfHeight}; }

std::vector<Figure> ShapeFigures() {
    return {SegmentFigure(),       PolylineFigure(),    PolygonFigure(), CircleFigure(), ArcFigure(), EllipseFigure(),
            EllipticalArcFigure(), AlignedRectFigure(), RectFigure(),    TextFigure(),   PickFigure()};
}

Figure Legend() {
    constexpr int kProbes = 9;
    constexpr double kLeft = -7.5;
    constexpr double kRight = kLeft + (kProbes - 1) * kProbeStep;
    constexpr double kMiddle = (kLeft + kRight) * 0.5;
    constexpr double kWords = -3.5;
    constexpr double kTextSize = 0.75;
    Figure legend = Titled("Legend", "every mark is an answer of the library");
    const auto describe = [&legend](double y, const char* words) {
        legend.labels.push_back({{kWords, y - kTextSize * 0.36}, words, kTextSize});
    };
    legend.outlines = {{{kLeft, 4.4}, {kRight, 4.4}}};
    describe(4.4, "the shape");
    legend.extents = AlignedDblRect(kLeft, 2.5, kRight, 3.3);
    describe(2.9, "its extents");
    legend.centroid = DblPt(kMiddle, 1.4);
    describe(1.4, "its centroid");
    const auto row = [&](double y, const char* words, auto colourAt) {
        for (int i = 0; i < kProbes; ++i) {
            legend.probes.push_back({{kLeft + i * kProbeStep, y}, colourAt(static_cast<double>(i) / (kProbes - 1))});
        }
        describe(y, words);
    };
    row(-0.1, "inside", [](double) { return InsideColour(); });
    row(-1.6, "inside within the tolerance", [](double) { return NearColour(); });
    row(-3.1, "outside", [](double) { return kOutsideColour; });
    row(-4.6, "near to far", [](double share) { return DistanceColour(share * kFarthest); });
    return legend;
}

}  // namespace tool
