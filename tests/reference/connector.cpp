// SPDX-License-Identifier: MIT
#include "reference/connector.h"

#include <cmath>
#include <cstddef>
#include <limits>

namespace reference {

using Vellum::AlignedDblRect;
using Vellum::DblPt;

namespace {

constexpr double kDoubleEpsilon = 2.220446049250313e-16;
constexpr double kSingleEpsilon = 1.1920928955078125e-7;
constexpr double kLargest = 1.7976931348623157e308;

double Distance(const DblPt& p, const DblPt& q) {
    const double dx = p.x - q.x;
    const double dy = p.y - q.y;
    return std::sqrt(dx * dx + dy * dy);
}

bool Coincide(const DblPt& p, const DblPt& q, double tol) {
    return std::fabs(p.x - q.x) < tol && std::fabs(p.y - q.y) < tol;
}

bool Same(const DblPt& p, const DblPt& q) { return Coincide(p, q, kDoubleEpsilon); }

bool IsBetween(double v, double a, double b) {
    const double smaller = a < b ? a : b;
    const double larger = a < b ? b : a;
    return v + kSingleEpsilon >= smaller && larger >= v - kSingleEpsilon;
}

bool InBounds(const DblPt& p, const DblPt& a, const DblPt& b) {
    return IsBetween(p.x, a.x, b.x) && IsBetween(p.y, a.y, b.y);
}

DblPt Foot(const DblPt& p, DblPt lo, DblPt hi) {
    if (hi.x < lo.x || (hi.x == lo.x && hi.y < lo.y)) std::swap(lo, hi);
    const double dx = hi.x - lo.x;
    const double dy = hi.y - lo.y;
    if (std::fabs(dx) < kDoubleEpsilon) return {lo.x, p.y};
    if (std::fabs(dy) < kDoubleEpsilon) return {p.x, lo.y};
    const double x = ((p.y - lo.y) * dy * dx + dx * dx * p.x + lo.x * (dy * dy)) / (dy * dy + dx * dx);
    return {x, (x - lo.x) / dx * dy + lo.y};
}

bool CrossLines(const DblPt& a0, const DblPt& a1, const DblPt& b0, const DblPt& b1, DblPt& p) {
    const bool isAVertical = std::fabs(a0.x - a1.x) <= kDoubleEpsilon;
    const bool isBVertical = std::fabs(b0.x - b1.x) <= kDoubleEpsilon;
    const double slopeA = (a1.y - a0.y) / (a1.x - a0.x);
    const double slopeB = (b1.y - b0.y) / (b1.x - b0.x);
    if (isAVertical) {
        if (isBVertical) return false;
        p.Set(a0.x, slopeB * (a0.x - b0.x) + b0.y);
    } else if (isBVertical) {
        p.Set(b0.x, slopeA * (b0.x - a0.x) + a0.y);
    } else {
        if (slopeA == slopeB) return false;
        p.x = ((slopeA * a0.x - a0.y) - (slopeB * b0.x - b0.y)) / (slopeA - slopeB);
        p.y = (p.x - b0.x) * slopeB + b0.y;
    }
    return true;
}

struct Segment {
    size_t number;
    DblPt p0;
    DblPt p1;
};

class Connector {
public:
    Connector(size_t segments, double tol) : tol_(tol), splits(segments) {}

    void JoinSegments(const Segment& a, const Segment& b) {
        if (Same(a.p0, b.p0) || Same(a.p1, b.p0) || Same(a.p0, b.p1) || Same(a.p1, b.p1)) return;
        DblPt p;
        if (!CrossLines(a.p0, a.p1, b.p0, b.p1, p)) {
            JoinParallel(a, b);
        } else if (InBounds(p, a.p0, a.p1) && InBounds(p, b.p0, b.p1)) {
            if (!Same(p, a.p0) && !Same(p, a.p1)) splits[a.number].push_back(p);
            if (!Same(p, b.p0) && !Same(p, b.p1)) splits[b.number].push_back(p);
        } else if (!JoinEnds(a, b)) {
            JoinEndToInterior(a, b);
        }
    }

    void JoinShape(const Segment& s, const Vellum::ClosedShape& shape, bool& acted) {
        DblPt centroid;
        shape.GetCentroid(centroid);
        DblPt touched;
        acted = true;
        if (shape.Contains(s.p0, kSingleEpsilon)) {
            touched = s.p0;
        } else if (shape.Contains(s.p1, kSingleEpsilon)) {
            touched = s.p1;
        } else {
            touched = Foot(centroid, s.p0, s.p1);
            acted = InBounds(touched, s.p0, s.p1) && shape.Contains(touched, kSingleEpsilon);
            if (!acted) return;
            splits[s.number].push_back(touched);
        }
        if (!Coincide(touched, centroid, kSingleEpsilon)) links.push_back({touched, centroid});
    }

private:
    /// The one of four distances that is below the tolerance and below each of the others; 4 where none is.
    size_t Winner(const double (&dist)[4]) const {
        for (size_t i = 0; i < 4; ++i) {
            size_t beaten = 0;
            for (size_t k = 0; k < 4; ++k)
                if (k != i && dist[i] < dist[k]) ++beaten;
            if (dist[i] < tol_ && beaten == 3) return i;
        }
        return 4;
    }

    bool JoinEnds(const Segment& a, const Segment& b) {
        const Points pairs[] = {{a.p0, b.p0}, {a.p0, b.p1}, {a.p1, b.p0}, {a.p1, b.p1}};
        double dist[4];
        for (size_t i = 0; i < 4; ++i)
            dist[i] = Distance(pairs[i][0], pairs[i][1]);
        const size_t winner = Winner(dist);
        if (winner == 4) return false;
        links.push_back(pairs[winner]);
        return true;
    }

    void JoinEndToInterior(const Segment& a, const Segment& b) {
        const DblPt ends[] = {a.p0, a.p1, b.p0, b.p1};
        DblPt feet[4];
        double dist[4];
        for (size_t i = 0; i < 4; ++i) {
            const Segment& other = i < 2 ? b : a;
            feet[i] = Foot(ends[i], other.p0, other.p1);
            dist[i] = InBounds(feet[i], other.p0, other.p1) ? Distance(ends[i], feet[i]) : kLargest;
        }
        const size_t winner = Winner(dist);
        if (winner == 4) return;
        splits[winner < 2 ? b.number : a.number].push_back(feet[winner]);
        if (!Same(ends[winner], feet[winner])) links.push_back({ends[winner], feet[winner]});
    }

    void JoinParallel(const Segment& a, const Segment& b) {
        if (Distance(a.p0, Foot(a.p0, b.p0, b.p1)) >= tol_) return;
        bool hit0 = false;
        bool hit1 = false;
        JoinVertex(a.p0, b, hit0, hit1);
        JoinVertex(a.p1, b, hit0, hit1);
        bool ignored = false;
        if (!hit0) JoinVertex(b.p0, a, ignored, ignored);
        if (!hit1) JoinVertex(b.p1, a, ignored, ignored);
    }

    void JoinVertex(const DblPt& v, const Segment& s, bool& hit0, bool& hit1) {
        const DblPt foot = Foot(v, s.p0, s.p1);
        if (Distance(v, foot) >= tol_) return;
        if (InBounds(foot, s.p0, s.p1)) {
            splits[s.number].push_back(foot);
            if (!Same(v, foot)) links.push_back({v, foot});
            return;
        }
        const double dist0 = Distance(v, s.p0);
        const double dist1 = Distance(v, s.p1);
        if (dist1 > dist0 && dist0 < tol_) {
            links.push_back({v, s.p0});
            hit0 = true;
        } else if (dist1 <= dist0 && dist1 < tol_) {
            links.push_back({v, s.p1});
            hit1 = true;
        }
    }

    double tol_;

public:
    std::vector<Points> splits;
    std::vector<Points> links;
};

bool AreApart(const AlignedDblRect& a, const AlignedDblRect& b, double tol) {
    return a.ll.y > b.ur.y + tol || b.ll.y - tol > a.ur.y || a.ll.x > b.ur.x + tol || b.ll.x - tol > a.ur.x;
}

/// The segments of each line, numbered throughout.
std::vector<std::vector<Segment>> SegmentsOf(const std::vector<InputLine>& lines, size_t& count) {
    std::vector<std::vector<Segment>> segments(lines.size());
    count = 0;
    for (size_t i = 0; i < lines.size(); ++i)
        for (size_t k = 1; k < lines[i].points.size(); ++k)
            segments[i].push_back({count++, lines[i].points[k - 1], lines[i].points[k]});
    return segments;
}

Points Rebuilt(const Points& line, const std::vector<Segment>& segments, const std::vector<Points>& splits) {
    Points out;
    for (const Segment& s : segments) {
        out.push_back(s.p0);
        for (const DblPt& p : TakenClosestFirst(s.p0, splits[s.number]))
            if (!Same(p, out.back())) out.push_back(p);
    }
    if (!line.empty()) out.push_back(line.back());
    return out;
}

}  // namespace

Points TakenClosestFirst(const DblPt& from, Points points) {
    Points taken;
    while (!points.empty()) {
        size_t closest = 0;
        for (size_t i = 1; i < points.size(); ++i)
            if (Distance(from, points[i]) < Distance(from, points[closest])) closest = i;
        taken.push_back(points[closest]);
        points.erase(points.begin() + static_cast<std::ptrdiff_t>(closest));
    }
    return taken;
}

Connected ConnectPolylines(const std::vector<InputLine>& lines, const std::vector<InputShape>& shapes, double tol) {
    size_t count = 0;
    const std::vector<std::vector<Segment>> segments = SegmentsOf(lines, count);
    const double workingTol = tol - tol * 0.9999 + tol;
    Connector connector(count, workingTol);
    for (size_t i = 0; i < lines.size(); ++i)
        for (size_t j = i + 1; j < lines.size(); ++j) {
            if (lines[i].layer != lines[j].layer) continue;
            if (AreApart(lines[i].extents, lines[j].extents, workingTol)) continue;
            for (const Segment& a : segments[i])
                for (const Segment& b : segments[j])
                    connector.JoinSegments(a, b);
        }
    for (size_t i = 0; lines.size() > 1 && i < lines.size(); ++i)
        for (const Segment& s : segments[i]) {
            bool acted = false;
            for (const InputShape& shape : shapes)
                if (!acted && shape.layer == lines[i].layer) connector.JoinShape(s, *shape.shape, acted);
        }

    Connected result;
    for (size_t i = 0; i < lines.size(); ++i)
        result.lines.push_back(Rebuilt(lines[i].points, segments[i], connector.splits));
    result.lines.insert(result.lines.end(), connector.links.begin(), connector.links.end());
    result.splits = connector.splits;
    return result;
}

}  // namespace reference
