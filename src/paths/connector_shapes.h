// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_CONNECTOR_SHAPES_H
#define VELLUM_SRC_PATHS_CONNECTOR_SHAPES_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "paths/connector_steps.h"
#include "paths/plane_box.h"
#include "paths/plane_box_tree.h"
#include "paths/scratch_array.h"
#include "vellum/connector.h"

namespace Vellum::internal {

/// Joins a segment to the centroid of a shape that touches it; whether it does.
bool JoinToShape(const NumberedSegment& s, const ClosedShape& shape, ConnectorSink& sink);

/// Finds the shapes that may touch a segment without asking each.
///
/// Where a shape of the library contains points follows from its coordinates. A class that a host derives answers as
/// it pleases, so its shapes may touch any segment, and they are asked in the same order as if all were.
class ShapeIndex {
public:
    /// What the work amounts to.
    struct Effort {
        size_t blocks = 0;  ///< blocks of the tree that were searched
        size_t near = 0;    ///< shapes that were found to be near a run of segments
        size_t asked = 0;   ///< shapes that were asked whether they touch a segment
    };

    /// Of fewer than 2^32 shapes. False where there is not enough memory.
    bool Build(const std::vector<LayerConnector*>& connectors);

    /// Joins each segment of a chain to the first shape of its layer that touches it.
    void Join(std::span<const DblPt> points, uint32_t firstNumber, uint32_t layer, ConnectorSink& sink);

    const Effort& TheEffort() const { return effort_; }

private:
    void JoinRun(const DblPt* pts, size_t segments, uint32_t firstNumber, ConnectorSink& sink);

    const std::vector<LayerConnector*>* connectors_ = nullptr;
    ScratchArray<PlaneBox> boxes_;  ///< for each shape the box outside which it contains nothing
    PlaneBoxTree tree_;
    ScratchArray<uint32_t> layers_;  ///< of the boxes in the tree, ascending
    ScratchArray<uint32_t> near_;    ///< the shapes near a run, in the order added
    const ConnectorReach reach_{0.0};
    Effort effort_;
};

/// The box outside which a shape contains no point, give or take the tolerance of the connector's tests and a
/// rounding of the coordinates. False where it contains none at all.
bool FindRealm(const ClosedShape& shape, PlaneBox& realm);

}  // namespace Vellum::internal

#endif
