// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_SHAPES_CLEARANCE_KERNELS_H
#define VELLUM_SRC_SHAPES_CLEARANCE_KERNELS_H

#include <cstddef>
#include <cstdint>

#include "types/instruction_set.h"
#include "vellum/points.h"

namespace Vellum::internal {

/// How many boxes make a group, and how many edges or vertices a leaf.
inline constexpr size_t kGroupBoxes = 8;
inline constexpr size_t kLeafEdges = 8;
/// The points that the edges of a leaf run between.
inline constexpr size_t kLeafPoints = kLeafEdges + 1;

/// An empty one reaches from infinity to minus infinity.
struct Box {
    double minX;
    double minY;
    double maxX;
    double maxY;
};

/// Boxes that are held against others together, coordinate by coordinate.
struct BoxGroup {
    double minX[kGroupBoxes];
    double minY[kGroupBoxes];
    double maxX[kGroupBoxes];
    double maxY[kGroupBoxes];
};

/// Eight vertices in a row and the edges that start at them. Each kind is numbered on its own.
struct Leaf {
    const DblPt* pts;  ///< kLeafPoints of them; both coordinates are NaN where the chain has no more
    Box box;           ///< no nearest point of an edge lies outside it
    size_t firstEdge;
    size_t firstVertex;
};

/// An edge and a vertex. Of pairs at the same distance that with the lower edge wins, then that with the lower vertex.
struct NearestPair {
    double dist;
    size_t edge;
    size_t vertex;
};

/// The inner loops of the clearance search for one instruction set. Each gives the same answer in every set.
struct ClearanceKernels {
    /// The boxes of consecutive runs of @p runPoints points, each with the first point of the next run; those past the
    /// last of the @p count points are empty. Bit i of the answer: box i is of no particular value, as a number in run
    /// i is not finite or comes near the largest.
    unsigned (*boxesOfRuns)(const DblPt* pts, size_t count, size_t runPoints, BoxGroup& boxes);
    /// For each of the first @p rowCount boxes of @p rows and each of @p columns, at 8 * row + column: the octagonal
    /// estimate of their distance, and in the answer whether it is @p limit or less. No points in them are nearer;
    /// an empty box is at no such distance, whatever the limit.
    uint64_t (*boundPairs)(const BoxGroup& rows, size_t rowCount, const BoxGroup& columns, double limit,
                           double* bounds);
    /// Measures each vertex of one leaf against each edge of another where that may give a pair before @p best, which
    /// it replaces by the first of them. Returns how many distances it computed.
    size_t (*measureLeaves)(const Leaf& edges, const Leaf& vertices, NearestPair& best);
};

/// The kernels for an instruction set that was built in; null for any other.
const ClearanceKernels* ClearanceKernelsFor(InstructionSet set);

/// The kernels for this processor.
const ClearanceKernels& ActiveClearanceKernels();

extern const ClearanceKernels kClearanceKernelsPlain;
extern const ClearanceKernels kClearanceKernelsSse2;
extern const ClearanceKernels kClearanceKernelsAvx2;
extern const ClearanceKernels kClearanceKernelsAvx512;

}  // namespace Vellum::internal

#endif
