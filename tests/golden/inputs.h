// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_GOLDEN_INPUTS_H
#define VELLUM_TESTS_GOLDEN_INPUTS_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "support/random_numbers.h"
#include "vellum/matrix.h"
#include "vellum/points.h"
#include "vellum/rectangles.h"

namespace golden {

/// Kinds of coordinates: such that much coincides, of one size and of all, next to the tolerances, and all that there
/// are.
enum class Kind { SmallGrid, HalfGrid, Plane, ManyScales, FarOff, NearTolerance, Special, AnyBits };

inline constexpr Kind kAllKinds[] = {Kind::SmallGrid, Kind::HalfGrid,      Kind::Plane,   Kind::ManyScales,
                                     Kind::FarOff,    Kind::NearTolerance, Kind::Special, Kind::AnyBits};

/// All counts about the widths of the vector loops and the sizes of their blocks.
inline constexpr size_t kCounts[] = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,   10,  11,  12,  13,  15,  16,  17, 23,
                                     24, 25, 31, 32, 33, 47, 63, 64, 65, 127, 128, 129, 130, 191, 255, 257, 400};

/// The inputs of one family of results, determined by its name alone.
///
/// Compilers differ in the order in which they evaluate arguments and operands. So that all draw the same numbers, no
/// two draws stand in one expression, but for a braced list, which is evaluated from left to right.
class Inputs {
public:
    explicit Inputs(std::string_view family);

    double Coordinate(Kind kind);
    Vellum::DblPt Point(Kind kind);
    /// Points, some of which repeat the one before them or an earlier one.
    std::vector<Vellum::DblPt> Points(Kind kind, size_t count);
    /// Points in turn round a centre, so that the ring mostly does not cross itself.
    std::vector<Vellum::DblPt> Ring(Kind kind, size_t count);
    /// From less than nothing to everything, or none.
    double Tolerance();

    /// A box with its corners in any order, stored as they are, one time in four, and a proper one otherwise.
    Vellum::AlignedDblRect Box(Kind kind);
    /// Upright, turned, or any four corners.
    Vellum::DblRect Rectangle(Kind kind);

    /// A matrix of every class, with a type that is not its own now and then.
    Vellum::Mtx2D Matrix(Kind kind);
    /// A matrix that turns, scales and mirrors moderately.
    Vellum::Mtx2D PlainMatrix();

    support::RandomNumbers random;

private:
    double AnyBits();
};

}  // namespace golden

#endif
