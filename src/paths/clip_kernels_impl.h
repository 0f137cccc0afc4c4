// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_CLIP_KERNELS_IMPL_H
#define VELLUM_SRC_PATHS_CLIP_KERNELS_IMPL_H

// The loops of the clipping kernels, once for every instruction set. `Lanes` is what differs: a group of kWidth
// doubles, which holds kWidth / 2 points as they stand in memory or, split, one coordinate of kWidth points, and a
// mask, which is what a comparison of two groups gives. Each source file defines its lanes in an unnamed namespace, and
// everything here is a template over them: what is compiled for a more capable processor must never be picked by the
// linker for another file.

#include "paths/clip_kernels.h"

namespace Vellum::internal {

/// Puts the bits of one group after another into a word.
template <class Lanes, size_t kWidth = Lanes::kWidth>
class BitCollector {
public:
    void Put(size_t at, unsigned bits) { word_ |= uint64_t{bits} << at; }
    uint64_t Word() const { return word_; }

private:
    uint64_t word_ = 0;
};

/// Where a group gives a byte, bytes are stored as they come: shifting each into its place costs more than the rest of
/// the comparison. All machines with such groups are little-endian.
template <class Lanes>
class BitCollector<Lanes, 8> {
public:
    void Put(size_t at, unsigned bits) { bytes_[at / 8] = static_cast<unsigned char>(bits); }
    uint64_t Word() const {
        uint64_t word;
        __builtin_memcpy(&word, bytes_, sizeof word);
        return word;
    }

private:
    unsigned char bytes_[8] = {};
};

template <class Lanes>
struct ClipKernelLoops {
    using Reg = typename Lanes::Reg;
    using Mask = typename Lanes::Mask;
    static constexpr size_t kWidth = Lanes::kWidth;
    static constexpr size_t kPointsPerReg = kWidth / 2;

    static uint64_t EndCodes(const uint32_t* codes, size_t count) {
        uint64_t bits = 0;
        size_t i = 0;
        for (; i + Lanes::kCodes <= count; i += Lanes::kCodes)
            bits |= uint64_t{Lanes::EndCodes(codes + i)} << i;
        for (; i < count; ++i)
            bits |= uint64_t{(codes[i] & ~1u) == 2} << i;
        return bits;
    }

    static Bounds BoundsOf(const real_pt_t* pts, size_t count) {
        if (count < kPointsPerReg) {
            real_pt_t padded[kPointsPerReg];
            for (size_t i = 0; i < kPointsPerReg; ++i)
                padded[i] = pts[i < count ? i : 0];
            return BoundsOf(padded, kPointsPerReg);
        }
        const double* const first = &pts->x;
        Reg low = Lanes::Fill(__builtin_inf());
        Reg high = Lanes::Fill(-__builtin_inf());
        Mask nan = Lanes::Nowhere();
        const auto include = [&](size_t at) {
            const Reg v = Lanes::Load(first + 2 * at);
            low = Lanes::Min(v, low);
            high = Lanes::Max(v, high);
            nan = Lanes::Or(nan, Lanes::Unordered(v));
        };
        size_t i = 0;
        for (; i + kPointsPerReg <= count; i += kPointsPerReg)
            include(i);
        if (i < count) include(count - kPointsPerReg);
        return Gather(low, high, nan);
    }

    static void Classify(const real_pt_t* pts, size_t count, const ViewTest& test, ViewBits& bits) {
        const Reg x = Lanes::Fill(test.x);
        const Reg y = Lanes::Fill(test.y);
        BandTally across(test.across);
        BandTally along(test.along);
        ForEachGroup(pts, count, [&](const Reg& px, const Reg& py, size_t at) {
            const Reg fromX = Lanes::Sub(px, x);
            const Reg fromY = Lanes::Sub(py, y);
            across.Hold(fromX, fromY, at);
            along.Hold(fromX, fromY, at);
        });
        bits.core = across.within.Word() & along.within.Word();
        bits.aboveAcross = across.beyond.Word() & ~across.negative.Word();
        bits.belowAcross = across.beyond.Word() & across.negative.Word();
        bits.aboveAlong = along.beyond.Word() & ~along.negative.Word();
        bits.belowAlong = along.beyond.Word() & along.negative.Word();
        bits.reachesFar = across.ReachesFar() || along.ReachesFar();
    }

    static void Compare(const real_pt_t* pts, size_t count, const EdgeLimits& limits, EdgeBits& bits) {
        const Reg leftLimit = Lanes::Fill(limits.left);
        const Reg rightLimit = Lanes::Fill(limits.right);
        const Reg belowLimit = Lanes::Fill(limits.below);
        const Reg aboveLimit = Lanes::Fill(limits.above);
        BitCollector<Lanes> left;
        BitCollector<Lanes> right;
        BitCollector<Lanes> below;
        BitCollector<Lanes> above;
        ForEachGroup(pts, count, [&](const Reg& px, const Reg& py, size_t at) {
            left.Put(at, Lanes::Bits(Lanes::Less(px, leftLimit)));
            right.Put(at, Lanes::Bits(Lanes::Less(rightLimit, px)));
            below.Put(at, Lanes::Bits(Lanes::Less(py, belowLimit)));
            above.Put(at, Lanes::Bits(Lanes::Less(aboveLimit, py)));
        });
        bits.left = left.Word();
        bits.right = right.Word();
        bits.below = below.Word();
        bits.above = above.Word();
    }

    static uint64_t HigherThan(const real_pt_t* pts, size_t count, double y) {
        const Reg limit = Lanes::Fill(y);
        BitCollector<Lanes> higher;
        ForEachGroup(pts, count, [&](const Reg&, const Reg& py, size_t at) {
            higher.Put(at, Lanes::Bits(Lanes::Less(limit, py)));
        });
        return higher.Word();
    }

    static constexpr ClipKernels kTable{EndCodes, BoundsOf, Classify, Compare, HigherThan};

private:
    /// Holds group after group against one band.
    struct BandTally {
        explicit BandTally(const BandTest& test)
            : dx(Lanes::Fill(test.dx)),
              dy(Lanes::Fill(test.dy)),
              inner(Lanes::Fill(test.inner)),
              outer(Lanes::Fill(test.outer)),
              far(Lanes::Fill(test.far)),
              most(Lanes::Fill(0.0)) {}

        void Hold(const Reg& fromX, const Reg& fromY, size_t at) {
            const Reg u = Lanes::Sub(Lanes::Mul(fromY, dx), Lanes::Mul(fromX, dy));
            const Reg size = Lanes::Abs(u);
            within.Put(at, Lanes::Bits(Lanes::Less(size, inner)));
            beyond.Put(at, Lanes::Bits(Lanes::Less(outer, size)));
            negative.Put(at, Lanes::SignBits(u));
            most = Lanes::Max(size, most);
        }

        bool ReachesFar() const { return Lanes::Bits(Lanes::Less(far, most)) != 0; }

        const Reg dx;
        const Reg dy;
        const Reg inner;
        const Reg outer;
        const Reg far;
        Reg most;
        BitCollector<Lanes> within;
        BitCollector<Lanes> beyond;
        BitCollector<Lanes> negative;
    };

    static Bounds Gather(const Reg& low, const Reg& high, const Mask& nan) {
        double lows[kWidth];
        double highs[kWidth];
        Lanes::Store(lows, low);
        Lanes::Store(highs, high);
        Bounds box{lows[0], lows[1], highs[0], highs[1], Lanes::Bits(nan) != 0};
        for (size_t i = 2; i < kWidth; i += 2) {
            if (lows[i] < box.minX) box.minX = lows[i];
            if (lows[i + 1] < box.minY) box.minY = lows[i + 1];
            if (highs[i] > box.maxX) box.maxX = highs[i];
            if (highs[i + 1] > box.maxY) box.maxY = highs[i + 1];
        }
        return box;
    }

    /// Visits the points in groups of kWidth, the last one filled up with its first point.
    template <class Visit>
    static void ForEachGroup(const real_pt_t* pts, size_t count, Visit visit) {
        real_pt_t filled[kWidth];
        for (size_t at = 0; at < count; at += kWidth) {
            const double* from = &pts[at].x;
            if (at + kWidth > count) {
                for (size_t i = 0; i < kWidth; ++i)
                    filled[i] = pts[at + i < count ? at + i : at];
                from = &filled->x;
            }
            Reg px;
            Reg py;
            Lanes::LoadSplit(from, px, py);
            visit(px, py, at);
        }
    }
};

}  // namespace Vellum::internal

#endif
