// SPDX-License-Identifier: MIT
#include "paths/connector_steps.h"

#include <cmath>
#include <optional>

#include "vellum/geometry.h"

namespace Vellum::internal {

namespace {

constexpr double kParallel = DBL_EPSILON;

bool IsInBounds(const DblPt& p, const NumberedSegment& s) { return PointInBounds(p, s.p0, s.p1, kConnectorBounds); }

bool IsEnd(const DblPt& p, const NumberedSegment& s) { return Coincide(p, s.p0) || Coincide(p, s.p1); }

// Which of four distances is below tol and below each of the others.
std::optional<int> FindLeast(const double (&dist)[4], double tol) {
    for (int i = 0; i < 4; ++i) {
        bool isLeast = dist[i] < tol;
        for (int k = 0; k < 4; ++k)
            isLeast = isLeast && (k == i || dist[i] < dist[k]);
        if (isLeast) return i;
    }
    return {};
}

bool IsFinite(const NumberedSegment& s) { return (s.p0.x + s.p0.y + s.p1.x + s.p1.y) * 0.0 == 0.0; }

}  // namespace

void ConnectorSteps::Connect(const NumberedSegment& a, const NumberedSegment& b) const {
    if (!AlreadyConnected(a, b) && !TryIntersecting(a, b)) TryParallel(a, b);
}

bool ConnectorSteps::AlreadyConnected(const NumberedSegment& a, const NumberedSegment& b) {
    return IsEnd(b.p0, a) || IsEnd(b.p1, a);
}

bool ConnectorSteps::TryIntersecting(const NumberedSegment& a, const NumberedSegment& b) const {
    DblPt p;
    if (!FindLineIntersect(a.p0, a.p1, b.p0, b.p1, kParallel, p)) return false;
    if (IsInBounds(p, a) && IsInBounds(p, b)) {
        if (!IsEnd(p, a)) sink_.AddPoint(a.number, p);
        if (!IsEnd(p, b)) sink_.AddPoint(b.number, p);
    } else if (!ConnectEnds(a, b)) {
        ConnectEndToInterior(a, b);
    }
    return true;
}

bool ConnectorSteps::ConnectEnds(const NumberedSegment& a, const NumberedSegment& b) const {
    const std::optional<int> least =
        FindLeast({a.p0.Dist(b.p0), a.p0.Dist(b.p1), a.p1.Dist(b.p0), a.p1.Dist(b.p1)}, tol_);
    if (!least) return false;
    sink_.AddLink(*least < 2 ? a.p0 : a.p1, *least % 2 == 0 ? b.p0 : b.p1);
    return true;
}

bool ConnectorSteps::ConnectEndToInterior(const NumberedSegment& a, const NumberedSegment& b) const {
    struct Candidate {
        const DblPt& end;
        const NumberedSegment& other;
        DblPt foot;
    } candidates[] = {{a.p0, b, {}}, {a.p1, b, {}}, {b.p0, a, {}}, {b.p1, a, {}}};
    const bool areFinite = IsFinite(a) && IsFinite(b);
    double dist[4];
    for (int i = 0; i < 4; ++i) {
        auto& [end, other, foot] = candidates[i];
        dist[i] = DBL_MAX;
        // Out of reach the distance is no less than tol, and then it does not matter which it is.
        if (areFinite && !reach_.Around(BoxOfSegment(other.p0, other.p1)).Meets({end.x, end.y, end.x, end.y})) continue;
        PtLineIntercept(end, other.p0, other.p1, foot);
        if (IsInBounds(foot, other)) dist[i] = end.Dist(foot);
    }
    const std::optional<int> least = FindLeast(dist, tol_);
    if (!least) return false;
    const auto& [end, other, foot] = candidates[*least];
    sink_.AddPoint(other.number, foot);
    if (!Coincide(end, foot)) sink_.AddLink(end, foot);
    return true;
}

bool ConnectorSteps::TryParallel(const NumberedSegment& a, const NumberedSegment& b) const {
    DblPt foot;
    PtLineIntercept(a.p0, b.p0, b.p1, foot);
    if (a.p0.Dist(foot) >= tol_) return false;
    LineSegmentGeom link;
    const auto connect = [&](const DblPt& v, const NumberedSegment& s, bool& hit0, bool& hit1) {
        if (ConnectVertex(v, s, hit0, hit1, link)) sink_.AddLink(link.start, link.end);
    };
    bool hitB0 = false;
    bool hitB1 = false;
    connect(a.p0, b, hitB0, hitB1);
    connect(a.p1, b, hitB0, hitB1);
    bool hitA = false;
    if (!hitB0) connect(b.p0, a, hitA, hitA);
    if (!hitB1) connect(b.p1, a, hitA, hitA);
    return true;
}

bool ConnectorSteps::ConnectVertex(const DblPt& v, const NumberedSegment& s, bool& hit0, bool& hit1,
                                   LineSegmentGeom& link) const {
    DblPt foot;
    PtLineIntercept(v, s.p0, s.p1, foot);
    if (v.Dist(foot) >= tol_) return false;
    if (IsInBounds(foot, s)) {
        sink_.AddPoint(s.number, foot);
        if (Coincide(v, foot)) return false;
        link.Set(v, foot);
        return true;
    }
    const double dist0 = v.Dist(s.p0);
    const double dist1 = v.Dist(s.p1);
    if (dist1 > dist0 && dist0 < tol_) {
        link.Set(v, s.p0);
        hit0 = true;
        return true;
    }
    if (dist1 <= dist0 && dist1 < tol_) {
        link.Set(v, s.p1);
        hit1 = true;
        return true;
    }
    return false;
}

}  // namespace Vellum::internal
