// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_CONNECTOR_LIST_H
#define VELLUM_SRC_PATHS_CONNECTOR_LIST_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "vellum/connector.h"

namespace Vellum::internal {

/// The vector behind `PolylineConnector::connectors`, with a hash table by layer and centroid beside it.
class ConnectorList : public std::vector<LayerConnector*> {
public:
    /// Whether a connector of the layer has exactly this centroid. Connectors may have been added since it was asked
    /// before, or taken off the end, but not both.
    bool Holds(uint32_t layer, const DblPt& centroid);

private:
    bool EnterNew();
    void Enter(size_t index);
    size_t FirstSlot(uint32_t layer, const DblPt& centroid) const;

    static constexpr size_t kFree = SIZE_MAX;

    std::vector<size_t> slots_;  ///< a power of two, at most half of them taken: indices of connectors
    size_t entered_ = 0;         ///< so many connectors, from the first on, have been looked at
};

}  // namespace Vellum::internal

#endif
