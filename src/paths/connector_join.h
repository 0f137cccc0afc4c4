// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_CONNECTOR_JOIN_H
#define VELLUM_SRC_PATHS_CONNECTOR_JOIN_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "paths/connector_findings.h"
#include "paths/connector_steps.h"
#include "paths/plane_box_tree.h"
#include "paths/scratch_array.h"
#include "paths/spatial_order.h"
#include "vellum/connector.h"

namespace Vellum::internal {

/// The joining of all pairs of polylines of the same layer: what `PolylineConnector::AddIntersections` does to each
/// pair in turn, without the segment pairs that are too far apart for anything to come of them.
///
/// The polylines are taken as runs of a few consecutive segments, and the runs are put in an order in which
/// neighbours lie near each other in the plane. They are joined in that order, a block of runs with all that follow
/// it, and what comes of it is kept until it can be put into the order of the input. So the memory grows with input
/// and output alone, however many pairs are within reach of each other.
class PolylineJoin {
public:
    /// What the work amounts to.
    struct Effort {
        size_t blocks = 0;        ///< blocks of the tree that were searched
        size_t runs = 0;          ///< runs that were held against a block of others
        size_t runPairs = 0;      ///< runs of two polylines that were found to be near each other
        size_t segmentPairs = 0;  ///< segments that the steps were taken on
    };

    PolylineJoin(const std::vector<LayerPolyline*>& polylines, double tol)
        : polylines_(polylines), tol_(tol), steps_(tol, findings_) {}

    /// False where there is not enough memory.
    bool Find();
    /// Passes on what was found. To be called once, at the end. False where there is not enough memory.
    bool PassTo(ConnectorSink& sink);

    const Effort& TheEffort() const { return effort_; }

private:
    static constexpr size_t kRunSegments = 20;
    static_assert(2 * (kRunSegments + 1) <= 53, "two bits of a whole double for each point of a run");
    // So many runs of a polyline get their place in the plane together.
    static constexpr size_t kPieceSegments = 8 * kRunSegments;

    /// A polyline.
    struct Chain {
        const DblPt* pts;
        uint32_t segments;
        uint32_t firstNumber;  ///< of its segments
        AlignedDblRect extents;
    };

    struct Run {
        const DblPt* pts;
        uint32_t segments;
        uint32_t firstNumber;  ///< of its segments
        uint32_t polyline;
        uint32_t layer;
        AlignedDblRect extents;
    };

    bool MakeRuns();
    void AddRuns(const LayerPlace& piece);
    static bool IsShort(size_t segments) { return segments <= kRunSegments; }
    const DblPt* Gathered(const DblPt* pts, size_t count);
    void JoinBlock(size_t first, size_t end);
    void JoinRuns(size_t i, size_t k);
    void JoinSegment(const Run& a, uint32_t i, const Run& b, bool toAll);

    PlaneBox Around(const PlaneBox& box) const { return steps_.Reach().Around(box); }

    const std::vector<LayerPolyline*>& polylines_;
    const double tol_;
    ConnectorFindings findings_;
    const ConnectorSteps steps_;
    ScratchArray<Chain> chains_;
    size_t segmentCount_ = 0;
    // In the order in the plane.
    ScratchArray<Run> runs_;
    ScratchArray<DblPt> points_;  ///< of short polylines, so that what is looked at together lies together
    PlaneBoxTree tree_;           ///< of the runs' boxes
    Effort effort_;
};

}  // namespace Vellum::internal

#endif
