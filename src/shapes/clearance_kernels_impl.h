// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_SHAPES_CLEARANCE_KERNELS_IMPL_H
#define VELLUM_SRC_SHAPES_CLEARANCE_KERNELS_IMPL_H

// The loops of the clearance search, once for every instruction set. `Lanes` is what differs: a register of eight
// doubles and a mask, which is what a comparison of two registers gives. Each source file defines its lanes in an
// unnamed namespace, and everything here is a template over them: what is compiled for a more capable processor must
// never be picked by the linker for another file.
//
// Lanes::Min(a, b) is a < b ? a : b in each lane, and Lanes::Max(a, b) is a > b ? a : b; both give b where a is NaN.

#include "shapes/clearance_kernels.h"

namespace Vellum::internal {

template <class Lanes>
struct ClearanceKernelLoops {
    using Reg = typename Lanes::Reg;
    using Mask = typename Lanes::Mask;

    static unsigned BoxesOfRuns(const DblPt* pts, size_t count, size_t runPoints, BoxGroup& boxes) {
        unsigned irregular = 0;
        for (size_t run = 0; run < kGroupBoxes; ++run) {
            const size_t start = run * runPoints;
            Box box{__builtin_inf(), __builtin_inf(), -__builtin_inf(), -__builtin_inf()};
            if (start < count) {
                const size_t left = count - start;
                const bool isRegular = BoxOf(&pts[start].x, left > runPoints ? runPoints + 1 : left, box);
                irregular |= (isRegular ? 0u : 1u) << run;
            }
            boxes.minX[run] = box.minX;
            boxes.minY[run] = box.minY;
            boxes.maxX[run] = box.maxX;
            boxes.maxY[run] = box.maxY;
        }
        return irregular;
    }

    static uint64_t BoundPairs(const BoxGroup& rows, size_t rowCount, const BoxGroup& columns, double limit,
                               double* bounds) {
        const BoxLanes columnLanes(columns);
        const Reg limits = Lanes::Fill(limit);
        uint64_t near = 0;
        for (size_t row = 0; row < rowCount; ++row) {
            const Box box{rows.minX[row], rows.minY[row], rows.maxX[row], rows.maxY[row]};
            const Reg bound = BoxLanes(box).BoundTo(columnLanes);
            Lanes::Store(bounds + kGroupBoxes * row, bound);
            near |= uint64_t{Lanes::Bits(Lanes::NotAbove(bound, limits))} << kGroupBoxes * row;
        }
        return near;
    }

    static size_t MeasureLeaves(const Leaf& edges, const Leaf& vertices, NearestPair& best) {
        Reg x;
        Reg y;
        Lanes::LoadSplit(&vertices.pts->x, x, y);
        const Reg bound = BoxLanes(edges.box).BoundTo(BoxLanes{x, y, x, y});
        unsigned near = Lanes::Bits(Lanes::NotAbove(bound, Lanes::Fill(best.dist)));
        if (near == 0) return 0;

        const EdgeLanes lines(edges.pts);
        // A leaf without bounds has edges at infinity or NaN, whose own boxes are of no value.
        const bool isUnbounded = !(edges.box.minX >= -__DBL_MAX__ && edges.box.minY >= -__DBL_MAX__);
        const BoxLanes lineBoxes = lines.Boxes();
        size_t measured = 0;
        for (; near != 0; near &= near - 1) {
            const auto i = static_cast<size_t>(__builtin_ctz(near));
            const Reg px = Lanes::Fill(vertices.pts[i].x);
            const Reg py = Lanes::Fill(vertices.pts[i].y);
            const Reg lineBound = lineBoxes.BoundTo(BoxLanes{px, py, px, py});
            const unsigned nearLines = Lanes::Bits(Lanes::NotAbove(lineBound, Lanes::Fill(best.dist)));
            if (nearLines == 0 && !isUnbounded) continue;
            const Reg dist = lines.DistanceTo(px, py);
            measured += kLeafEdges;
            const unsigned hits = Lanes::Bits(Lanes::NotAbove(dist, Lanes::Fill(best.dist)));
            if (hits != 0) Consider(dist, hits, edges.firstEdge, vertices.firstVertex + i, best);
        }
        return measured;
    }

    static constexpr ClearanceKernels kTable{BoxesOfRuns, BoundPairs, MeasureLeaves};

private:
    static Reg Clamp(const Reg& v, const Reg& low, const Reg& high) {
        return Lanes::Select(Lanes::Less(high, v), high, Lanes::Select(Lanes::Less(v, low), low, v));
    }

    struct BoxLanes {
        BoxLanes(const Reg& lowX, const Reg& lowY, const Reg& highX, const Reg& highY)
            : minX(lowX), minY(lowY), maxX(highX), maxY(highY) {}
        explicit BoxLanes(const Box& box)
            : minX(Lanes::Fill(box.minX)),
              minY(Lanes::Fill(box.minY)),
              maxX(Lanes::Fill(box.maxX)),
              maxY(Lanes::Fill(box.maxY)) {}
        explicit BoxLanes(const BoxGroup& boxes)
            : minX(Lanes::Load(boxes.minX)),
              minY(Lanes::Load(boxes.minY)),
              maxX(Lanes::Load(boxes.maxX)),
              maxY(Lanes::Load(boxes.maxY)) {}

        /// The octagonal estimate of the gaps between the boxes along the axes, rounded as DblPt::ApproxDist rounds it.
        /// The offset between a point of the one box and a point of the other is no smaller than the gap; since
        /// subtractions, products and sums are rounded monotonically, neither is the estimate that is computed of it.
        /// To an empty box it is infinite or NaN.
        Reg BoundTo(const BoxLanes& other) const {
            const Reg x = Gap(minX, maxX, other.minX, other.maxX);
            const Reg y = Gap(minY, maxY, other.minY, other.maxY);
            return Lanes::Add(Lanes::Mul(Lanes::Fill(0.96), Lanes::Max(x, y)),
                              Lanes::Mul(Lanes::Fill(0.398), Lanes::Min(x, y)));
        }

        Reg minX;
        Reg minY;
        Reg maxX;
        Reg maxY;

    private:
        static Reg Gap(const Reg& minA, const Reg& maxA, const Reg& minB, const Reg& maxB) {
            return Lanes::Max(Lanes::Fill(0.0), Lanes::Max(Lanes::Sub(minB, maxA), Lanes::Sub(minA, maxB)));
        }
    };

    /// Eight edges, one in a lane. Each operation is that of DistPtLine, in its order.
    struct EdgeLanes {
        explicit EdgeLanes(const DblPt* pts) {
            Reg ax;
            Reg ay;
            Reg bx;
            Reg by;
            Lanes::LoadSplit(&pts[0].x, ax, ay);
            Lanes::LoadSplit(&pts[1].x, bx, by);
            const Mask swap = Lanes::Or(Lanes::Less(bx, ax), Lanes::And(Lanes::Equal(bx, ax), Lanes::Less(by, ay)));
            loX = Lanes::Select(swap, bx, ax);
            loY = Lanes::Select(swap, by, ay);
            hiX = Lanes::Select(swap, ax, bx);
            hiY = Lanes::Select(swap, ay, by);
            dx = Lanes::Sub(hiX, loX);
            dy = Lanes::Sub(hiY, loY);
        }

        /// Each holds the nearest points of an edge between finite points; BoxOfAnyPoints tells why.
        BoxLanes Boxes() const {
            const Reg reach = Lanes::Add(loY, dy);
            return {loX, Lanes::Min(Lanes::Min(loY, hiY), reach), hiX, Lanes::Max(Lanes::Max(loY, hiY), reach)};
        }

        /// The octagonal estimate of the distance of (px, py) to each edge.
        Reg DistanceTo(const Reg& px, const Reg& py) const {
            const Reg dxdx = Lanes::Mul(dx, dx);
            const Reg dydy = Lanes::Mul(dy, dy);
            const Reg along = Lanes::Add(Lanes::Mul(Lanes::Mul(Lanes::Sub(py, loY), dy), dx), Lanes::Mul(dxdx, px));
            const Reg foot = Lanes::Div(Lanes::Add(along, Lanes::Mul(loX, dydy)), Lanes::Add(dydy, dxdx));
            const Reg yAtFoot = Lanes::Add(Lanes::Mul(Lanes::Div(Lanes::Sub(foot, loX), dx), dy), loY);

            const Mask isBefore = Lanes::Less(foot, loX);
            const Mask isBeyond = Lanes::Less(hiX, foot);
            Reg x = Lanes::Select(isBefore, loX, Lanes::Select(isBeyond, hiX, foot));
            Reg y = Lanes::Select(isBefore, loY, Lanes::Select(isBeyond, hiY, yAtFoot));

            const Mask isHorizontal = Lanes::Equal(dy, Lanes::Fill(0.0));
            x = Lanes::Select(isHorizontal, Clamp(px, loX, hiX), x);
            y = Lanes::Select(isHorizontal, loY, y);

            const Mask isVertical = Lanes::Equal(dx, Lanes::Fill(0.0));
            x = Lanes::Select(isVertical, loX, x);
            y = Lanes::Select(isVertical, Clamp(py, loY, hiY), y);

            const Reg offX = Lanes::Abs(Lanes::Sub(x, px));
            const Reg offY = Lanes::Abs(Lanes::Sub(y, py));
            // Chosen by a mask, since a minimum or maximum would lose a NaN.
            const Mask isWide = Lanes::Less(offY, offX);
            return Lanes::Add(Lanes::Mul(Lanes::Fill(0.96), Lanes::Select(isWide, offX, offY)),
                              Lanes::Mul(Lanes::Fill(0.398), Lanes::Select(isWide, offY, offX)));
        }

        Reg loX;
        Reg loY;
        Reg hiX;
        Reg hiY;
        Reg dx;
        Reg dy;
    };

    static void Consider(const Reg& dist, unsigned hits, size_t firstEdge, size_t vertex, NearestPair& best) {
        double dists[kLeafEdges];
        Lanes::Store(dists, dist);
        for (; hits != 0; hits &= hits - 1) {
            const auto i = static_cast<size_t>(__builtin_ctz(hits));
            const size_t edge = firstEdge + i;
            const bool isEarlier = edge < best.edge || (edge == best.edge && vertex < best.vertex);
            if (dists[i] < best.dist || (dists[i] == best.dist && isEarlier)) best = {dists[i], edge, vertex};
        }
    }

    /// The box of some points, x and y in turn, and of how far the edges between them reach. False where a number is
    /// not finite, and perhaps where the sum of some is not.
    static bool BoxOf(const double* numbers, size_t count, Box& box) {
        double padded[2 * kPaddedPoints];
        if (count < kPaddedPoints) {
            for (size_t i = 0; i < 2 * kPaddedPoints; ++i)
                padded[i] = numbers[i < 2 * count ? i : 2 * count - 2 + i % 2];
            numbers = padded;
            count = kPaddedPoints;
        }
        Reg low = Lanes::Fill(__builtin_inf());
        Reg high = Lanes::Fill(-__builtin_inf());
        Reg sum = Lanes::Fill(0.0);
        const auto includeFour = [&](size_t at) {
            const Reg from = Lanes::Load(numbers + 2 * at);
            const Reg to = Lanes::Load(numbers + 2 * at + 2);
            const Reg step = Lanes::Sub(to, from);
            const Reg reach = Lanes::Add(from, step);
            const Reg reachBack = Lanes::Sub(to, step);
            low = Lanes::Min(Lanes::Min(from, Lanes::Min(reach, reachBack)), low);
            high = Lanes::Max(Lanes::Max(from, Lanes::Max(reach, reachBack)), high);
            sum = Lanes::Add(sum, from);
        };
        const size_t starts = count - 1;
        size_t at = 0;
        for (; at + 4 <= starts; at += 4)
            includeFour(at);
        if (at < starts) includeFour(starts - 4);
        const Reg last = Lanes::Load(numbers + 2 * (count - 4));
        sum = Lanes::Add(sum, last);
        Lanes::LowestPair(Lanes::Min(last, low), box.minX, box.minY);
        Lanes::HighestPair(Lanes::Max(last, high), box.maxX, box.maxY);
        return Lanes::Bits(Lanes::Equal(Lanes::Sub(sum, sum), Lanes::Fill(0.0))) == 0xFF;
    }

    static constexpr size_t kPaddedPoints = 5;
};

}  // namespace Vellum::internal

#endif
