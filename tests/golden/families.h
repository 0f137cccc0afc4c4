// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_GOLDEN_FAMILIES_H
#define VELLUM_TESTS_GOLDEN_FAMILIES_H

#include <string>
#include <vector>

#include "golden/digest.h"
#include "golden/inputs.h"

namespace golden {

/// Results that are the same bits everywhere, and what makes them.
struct Family {
    const char* name;
    void (*compute)(Inputs& inputs, Digest& digest);
};

using Families = std::vector<Family>;

Families GeometryFamilies();
Families RectangleFamilies();
Families MatrixFamilies();
Families TransformFamilies();
Families ChainFamilies();
Families CircleFamilies();
Families EllipseFamilies();
Families ClearanceFamilies();
Families ClippingFamilies();
Families ConnectorFamilies();
Families ShortestPathFamilies();

/// A result that depends on the platform's maths library.
struct Reading {
    std::string name;
    double value;
    /// The size of what went into the sum that it is, in whose units in the last place it may differ, where that is
    /// more than the value's own.
    double magnitude;
};

std::vector<Reading> MathsLibraryReadings();

}  // namespace golden

#endif
