// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_CLIP_KERNELS_H
#define VELLUM_SRC_PATHS_CLIP_KERNELS_H

#include <cstddef>
#include <cstdint>

#include "types/instruction_set.h"
#include "vellum/records.h"

namespace Vellum::internal {

/// The most points that a kernel which answers in bits takes at once: bit i of the answer is point i.
inline constexpr size_t kClipBlockPoints = 64;

/// The box of a run of points. NaN coordinates are left out of it and leave a mark.
struct Bounds {
    double minX;
    double minY;
    double maxX;
    double maxY;
    bool hasNan;
};

/// A linear measure across the plane about a centre c, U(p) = (p.y - c.y) * dx - (p.x - c.x) * dy, and the two limits
/// that |U| is held against.
struct BandTest {
    double dx;
    double dy;
    double inner;  ///< below it a point is within the band
    double outer;  ///< above it a point is beyond the band, on the side of U's sign
    double far;    ///< above it a point is further away than `inner` and `outer` allow for
};

/// Two bands that cross.
struct ViewTest {
    double x;  ///< the centre
    double y;
    BandTest across;
    BandTest along;
};

/// Which points of a block lie where; bits past the count mean nothing. A point in none of these is too near to a limit
/// to tell, or NaN.
struct ViewBits {
    uint64_t core;         ///< within both bands
    uint64_t aboveAcross;  ///< beyond the first
    uint64_t belowAcross;
    uint64_t aboveAlong;  ///< beyond the second
    uint64_t belowAlong;
    bool reachesFar;  ///< some point is too far away for the others to mean anything
};

/// Limits on the coordinates themselves.
struct EdgeLimits {
    double left;
    double right;
    double below;
    double above;
};

/// Which points of a block are strictly past which limit; bits past the count mean nothing.
struct EdgeBits {
    uint64_t left;
    uint64_t right;
    uint64_t below;
    uint64_t above;
};

/// The inner loops of clipping for one instruction set. Each gives the same answer in every set.
struct ClipKernels {
    /// Which of up to 64 codes end a polygon.
    uint64_t (*endCodes)(const uint32_t* codes, size_t count);
    /// The box of @p count points, at least one.
    Bounds (*boundsOf)(const real_pt_t* pts, size_t count);
    /// Holds up to 64 points against the bands of a view.
    void (*classify)(const real_pt_t* pts, size_t count, const ViewTest& test, ViewBits& bits);
    /// Holds up to 64 points against limits.
    void (*compare)(const real_pt_t* pts, size_t count, const EdgeLimits& limits, EdgeBits& bits);
    /// Which of up to 64 points have y > @p y.
    uint64_t (*higherThan)(const real_pt_t* pts, size_t count, double y);
};

/// The kernels for an instruction set that was built in; null for any other.
const ClipKernels* ClipKernelsFor(InstructionSet set);

/// The kernels for this processor.
const ClipKernels& ActiveClipKernels();

extern const ClipKernels kClipKernelsPlain;
extern const ClipKernels kClipKernelsSse2;
extern const ClipKernels kClipKernelsAvx2;
extern const ClipKernels kClipKernelsAvx512;

}  // namespace Vellum::internal

#endif
