// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_CONNECTOR_STEPS_H
#define VELLUM_SRC_PATHS_CONNECTOR_STEPS_H

#include <cfloat>
#include <cstdint>

#include "paths/connector_reach.h"
#include "vellum/points.h"
#include "vellum/segment.h"

namespace Vellum::internal {

/// Receives what the steps find.
class ConnectorSink {
public:
    ConnectorSink() = default;
    ConnectorSink(const ConnectorSink&) = delete;
    ConnectorSink& operator=(const ConnectorSink&) = delete;

    /// A split point of a segment.
    virtual void AddPoint(uint32_t segment, const DblPt& p) = 0;
    /// The ends of a joining polyline.
    virtual void AddLink(const DblPt& p, const DblPt& q) = 0;

protected:
    ~ConnectorSink() = default;
};

/// A segment with its number in the whole input.
struct NumberedSegment {
    uint32_t number;
    const DblPt& p0;
    const DblPt& p1;
};

/// Points this near on both axes are one point.
inline bool Coincide(const DblPt& p, const DblPt& q) { return p.IsEqualTo(q, DBL_EPSILON); }

/// What is decided about two segments; `PolylineConnector` says what each step means.
class ConnectorSteps {
public:
    ConnectorSteps(double tol, ConnectorSink& sink) : tol_(tol), reach_(tol), sink_(sink) {}

    void Connect(const NumberedSegment& a, const NumberedSegment& b) const;
    static bool AlreadyConnected(const NumberedSegment& a, const NumberedSegment& b);
    bool TryIntersecting(const NumberedSegment& a, const NumberedSegment& b) const;
    bool TryParallel(const NumberedSegment& a, const NumberedSegment& b) const;
    bool ConnectEnds(const NumberedSegment& a, const NumberedSegment& b) const;
    bool ConnectEndToInterior(const NumberedSegment& a, const NumberedSegment& b) const;
    bool ConnectVertex(const DblPt& v, const NumberedSegment& s, bool& hit0, bool& hit1, LineSegmentGeom& link) const;

    const ConnectorReach& Reach() const { return reach_; }

private:
    const double tol_;
    const ConnectorReach reach_;
    ConnectorSink& sink_;
};

}  // namespace Vellum::internal

#endif
