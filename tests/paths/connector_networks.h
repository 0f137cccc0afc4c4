// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_PATHS_CONNECTOR_NETWORKS_H
#define VELLUM_TESTS_PATHS_CONNECTOR_NETWORKS_H

#include <memory>
#include <string>

#include "paths/connector_checks.h"
#include "support/random_numbers.h"
#include "vellum/points.h"
#include "vellum/shape.h"

namespace paths_tests {

/// Kinds of coordinates: such that much coincides, near the tolerances, of all sizes, and none at all.
enum class Kind {
    SmallGrid,
    WideGrid,
    HalfGrid,
    Plane,
    Special,
    ManyScales,
    Perturbed,
    FarOff,
    VeryFarOff,
    Tiny,
    Huge
};

constexpr Kind kAllKinds[] = {Kind::SmallGrid,  Kind::WideGrid,   Kind::HalfGrid,  Kind::Plane,
                              Kind::Special,    Kind::ManyScales, Kind::Perturbed, Kind::FarOff,
                              Kind::VeryFarOff, Kind::Tiny,       Kind::Huge};

std::string NameOf(Kind kind);

Vellum::DblPt RandomPoint(Kind kind, support::RandomNumbers& random);

/// A tolerance from nothing to everything, or none.
double RandomTolerance(support::RandomNumbers& random);

/// A shape of any class, a host's own among them.
std::unique_ptr<Vellum::ClosedShape> RandomShape(Kind kind, support::RandomNumbers& random);

/// Some lines, few or many, short and long, in up to three layers, a few with extents that are out of date; some
/// shapes.
Network RandomNetwork(Kind kind, support::RandomNumbers& random);

}  // namespace paths_tests

#endif
