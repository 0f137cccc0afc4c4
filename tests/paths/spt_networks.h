// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_PATHS_SPT_NETWORKS_H
#define VELLUM_TESTS_PATHS_SPT_NETWORKS_H

#include <cstddef>
#include <vector>

#include "vellum/polylines.h"

namespace paths_tests {

using Polyline = std::vector<Vellum::DblPt>;
using Network = std::vector<Polyline>;

/// An array that an engine can take over. A polyline of any number of points, one and none included.
inline Vellum::PolylineGeom** NewArray(const Network& network) {
    auto** const lines = new Vellum::PolylineGeom*[network.size()];
    for (size_t i = 0; i < network.size(); ++i) {
        lines[i] = new Vellum::PolylineGeom;
        for (const Vellum::DblPt& p : network[i])
            lines[i]->AddPoint(p);
    }
    return lines;
}

}  // namespace paths_tests

#endif
