// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_SHAPES_WINDING_KERNELS_IMPL_H
#define VELLUM_SRC_SHAPES_WINDING_KERNELS_IMPL_H

// The loop of the winding kernels, once for every instruction set. `Lanes` is what differs: a register of kWidth
// doubles, which holds one coordinate of kWidth points, and comparisons of two of them that answer in bits. Each
// source file defines its lanes in an unnamed namespace, and everything here is a template over them: what is
// compiled for a more capable processor must never be picked by the linker for another file.

#include "shapes/winding_kernels.h"

namespace Vellum::internal {

/// Only an edge that has one end higher than the point and one not can add to the winding number. A word of bits
/// tells which points of a block are higher; the few edges where it changes are held against the point. A NaN passes
/// for not higher there, but both ends enter the test of the side, which then holds for neither direction.
template <class Lanes>
class WindingLoop {
public:
    static int64_t Winding(const DblPt* pts, size_t count, double x, double y) {
        const WindingLoop loop(x, y);
        int64_t winding = WindingOfEdge(pts[count - 1], pts[0], x, y);
        size_t from = 0;
        for (; from + kBlockPoints <= count; from += kBlockPoints - 1)
            winding += loop.WindingOfBlock(pts + from, kBlockPoints, 0);
        if (from + 1 < count) {
            // What is left is seen in a block that reaches back over edges already counted.
            const size_t points = count < kBlockPoints ? count : kBlockPoints;
            const size_t start = count - points;
            winding += loop.WindingOfBlock(pts + start, points, from - start);
        }
        return winding;
    }

private:
    using Reg = typename Lanes::Reg;
    static constexpr size_t kWidth = Lanes::kWidth;
    static constexpr size_t kBlockPoints = 64;
    static_assert(kWidth < kFewestWindingPoints);

    /// With more crossing edges than this it is cheaper to test all edges of the block in their order.
    static constexpr int kFewCrossings = 4;

    /// On which side of an edge the point lies, or that it lies on its line: bit i is the edge from point i.
    struct SideBits {
        uint64_t atLeastZero = 0;
        uint64_t atMostZero = 0;
    };

    WindingLoop(double x, double y) : x_(Lanes::Fill(x)), y_(Lanes::Fill(y)) {}

    /// Counts the edges between neighbours among @p points points but for the first @p skipped. Inlined so that the
    /// block of full size gets a loop of its own.
    [[gnu::always_inline]] int64_t WindingOfBlock(const DblPt* pts, size_t points, size_t skipped) const {
        const uint64_t higher = HigherThanPoint(pts, points);
        const uint64_t edges = (uint64_t{1} << (points - 1)) - (uint64_t{1} << skipped);
        const uint64_t crossing = (higher ^ higher >> 1) & edges;
        return crossing == 0 ? 0 : WindingOfCrossing(pts, points - 1, crossing & ~higher, crossing & higher);
    }

    /// Apart from the loop over the blocks, which keeps its registers that way.
    [[gnu::noinline]] int64_t WindingOfCrossing(const DblPt* pts, size_t edges, uint64_t up, uint64_t down) const {
        SideBits sides;
        const uint64_t crossing = up | down;
        if (__builtin_popcountll(crossing) > kFewCrossings) {
            for (size_t at = 0; at < edges; at += kWidth)
                AddSides(pts, edges, at, sides);
        } else {
            for (uint64_t rest = crossing; rest != 0; rest &= rest - 1)
                AddSides(pts, edges, static_cast<size_t>(__builtin_ctzll(rest)), sides);
        }
        return __builtin_popcountll(up & sides.atLeastZero) - __builtin_popcountll(down & sides.atMostZero);
    }

    uint64_t HigherThanPoint(const DblPt* pts, size_t points) const {
        const size_t last = points - kWidth;
        uint64_t bits = Higher(pts + last) << last;
        for (size_t at = 0; at < last; at += kWidth)
            bits |= Higher(pts + at) << at;
        return bits;
    }

    uint64_t Higher(const DblPt* pts) const {
        Reg x;
        Reg y;
        Lanes::LoadSplit(&pts->x, x, y);
        return Lanes::Less(y_, y);
    }

    /// Tests kWidth edges from number @p at on, or the last ones where there are not as many.
    void AddSides(const DblPt* pts, size_t edges, size_t at, SideBits& sides) const {
        if (at + kWidth > edges) at = edges - kWidth;
        Reg vx;
        Reg vy;
        Reg wx;
        Reg wy;
        Lanes::LoadSplit(&pts[at].x, vx, vy);
        Lanes::LoadSplit(&pts[at + 1].x, wx, wy);
        const Reg side = Lanes::Sub(Lanes::Mul(Lanes::Sub(wx, vx), Lanes::Sub(y_, vy)),
                                    Lanes::Mul(Lanes::Sub(x_, vx), Lanes::Sub(wy, vy)));
        const Reg zero = Lanes::Fill(0.0);
        sides.atLeastZero |= Lanes::AtLeast(side, zero) << at;
        sides.atMostZero |= Lanes::AtLeast(zero, side) << at;
    }

    Reg x_;
    Reg y_;
};

}  // namespace Vellum::internal

#endif
