// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_XFM_POINT_KERNELS_IMPL_H
#define VELLUM_SRC_XFM_POINT_KERNELS_IMPL_H

// The kernels as templates over `L`, the lanes of one instruction set. Every source file that includes this one defines
// its lanes in an unnamed namespace, so that all instantiations stay inside it: what is compiled for a more capable
// processor must never be picked by the linker for another file. For the same reason every function here is a template
// over something of `L`, and none may call an inline function of the standard library.
//
// `L` offers
//   Doubles              kPoints points, x and y in turn
//   Load, LoadOne        reads kPoints points; one point, repeated in all places
//   Store, StoreOne      writes kPoints points; the first alone
//   Pair                 an x and a y, repeated
//   Exchanged            y and x in turn
//   Add, Multiply        as they say
//   Min, Max             (v, acc): v where it is strictly beyond acc, otherwise acc
//   Ints, Round          the device coordinates of kPoints points
//   Eighths              times eight, wrapping
//   StoreShort, ...One   writes the low 16 bits
//   ModelGroup,          groups of points as the merging of coincident neighbours takes them; see `MergeRun`
//   DeviceGroup
//   kStreams             whether there are stores that bypass the caches: StreamLine, Fence

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "xfm/point_kernels.h"

namespace Vellum::internal {

/// The maps of the three classes of matrices. Each skips the elements that are zero in its class, and each adds the
/// translation last: the order of operations is part of the result.
template <class L>
struct AlignedLanes {
    typename L::Doubles scale;
    typename L::Doubles translation;

    explicit AlignedLanes(const Mtx2D& m) : scale(L::Pair(m.m11, m.m22)), translation(L::Pair(m.dx, m.dy)) {}
    auto operator()(typename L::Doubles p) const { return L::Add(L::Multiply(p, scale), translation); }
};

template <class L>
struct SwappedLanes {
    typename L::Doubles scale;
    typename L::Doubles translation;

    explicit SwappedLanes(const Mtx2D& m) : scale(L::Pair(m.m21, m.m12)), translation(L::Pair(m.dx, m.dy)) {}
    auto operator()(typename L::Doubles p) const { return L::Add(L::Multiply(L::Exchanged(p), scale), translation); }
};

/// Of y' the two products are summed in the other order, which gives the same sum.
template <class L>
struct GeneralLanes {
    typename L::Doubles scale;
    typename L::Doubles crossScale;
    typename L::Doubles translation;

    explicit GeneralLanes(const Mtx2D& m)
        : scale(L::Pair(m.m11, m.m22)), crossScale(L::Pair(m.m21, m.m12)), translation(L::Pair(m.dx, m.dy)) {}
    auto operator()(typename L::Doubles p) const {
        const auto linear = L::Add(L::Multiply(p, scale), L::Multiply(L::Exchanged(p), crossScale));
        return L::Add(linear, translation);
    }
};

/// What is written for a transformed point.
template <class L>
struct AsModel {
    using Number = double;
    static void Put(typename L::Doubles p, Number* out) { L::Store(p, out); }
    static void PutOne(typename L::Doubles p, Number* out) { L::StoreOne(p, out); }
};

template <class L>
struct AsDevice {
    using Number = int32_t;
    static void Put(typename L::Doubles p, Number* out) { L::Store(L::Round(p), out); }
    static void PutOne(typename L::Doubles p, Number* out) { L::StoreOne(L::Round(p), out); }
};

template <class L>
struct AsEighths {
    using Number = int32_t;
    static void Put(typename L::Doubles p, Number* out) { L::Store(L::Eighths(L::Round(p)), out); }
    static void PutOne(typename L::Doubles p, Number* out) { L::StoreOne(L::Eighths(L::Round(p)), out); }
};

template <class L>
struct AsShort {
    using Number = int16_t;
    static void Put(typename L::Doubles p, Number* out) { L::StoreShort(L::Round(p), out); }
    static void PutOne(typename L::Doubles p, Number* out) { L::StoreShortOne(L::Round(p), out); }
};

/// Points that are computed at a time before they are handed to the caller's array.
inline constexpr size_t kBlockPoints = 128;

/// Outputs of this size and more bypass the caches: they would not stay there, and a line that is overwritten as a
/// whole need not be read first.
inline constexpr size_t kStreamingBytes = size_t{8} << 20;

inline constexpr size_t kLineBytes = 64;

/// How many points ahead of the work memory is asked for. Processors do so by themselves, but only up to the end of a
/// page and later than is good for loops as short as these.
inline constexpr size_t kPointsAhead = 256;

/// Asks for what kPoints points take, kPointsAhead on from `points`, if so many are `available` there.
template <class Lanes, size_t kPoints>
void ReadAhead(const double* points, size_t available) {
    constexpr size_t kPointsPerLine = kLineBytes / (2 * sizeof(double));
    if (available < kPointsAhead + kPoints) return;
    for (size_t k = kPointsAhead; k < kPointsAhead + kPoints; k += kPointsPerLine) {
        __builtin_prefetch(points + 2 * k);
    }
}

/// How many points, up to n, come before the first one on a boundary of vectors. Accesses across cache lines cost.
template <class L>
size_t PointsToBoundary(const double* points, size_t n) {
    constexpr size_t kPointBytes = 2 * sizeof(double);
    const size_t count = -reinterpret_cast<uintptr_t>(points) % (L::kPoints * kPointBytes) / kPointBytes;
    return count < n ? count : n;
}

template <class L>
bool Streams(size_t bytes) {
    return L::kStreams && bytes >= kStreamingBytes;
}

/// Collects output on the stack and copies it to the caller's array, which so receives exactly what is kept, whatever
/// the vector code stores beyond it, and in whole cache lines where it is streamed, whatever its alignment.
template <class L, class Number>
class OutputBlock {
public:
    /// @param most the most numbers that can come.
    OutputBlock(Number* out, size_t most)
        : target(reinterpret_cast<unsigned char*>(out)), streaming(Streams<L>(most * sizeof(Number))) {}

    Number* End() { return reinterpret_cast<Number*>(block + held); }
    void Grow(size_t numbers) { held += numbers * sizeof(Number); }
    void Shrink(size_t numbers) { held -= numbers * sizeof(Number); }

    /// Makes room for another block.
    void Flush() {
        const size_t done = streaming ? FlushLines() : CopyAll();
        target += done;
        held -= done;
        std::memmove(block, block + done, held);
    }

    void Finish() {
        CopyAll();
        if (streaming) L::Fence();
    }

private:
    size_t CopyAll() {
        std::memcpy(target, block, held);
        return held;
    }

    size_t FlushLines() {
        const size_t toBoundary = -reinterpret_cast<uintptr_t>(target) % kLineBytes;
        size_t done = toBoundary < held ? toBoundary : held;
        std::memcpy(target, block, done);
        for (; held - done >= kLineBytes; done += kLineBytes) {
            L::StreamLine(block + done, target + done);
        }
        return done;
    }

    // A rest of less than a line, or the points that may yet collapse, a block, and what a vector store reaches
    // beyond its end.
    alignas(kLineBytes) unsigned char block[2 * kLineBytes + kBlockPoints * 2 * sizeof(Number)];
    unsigned char* target;
    size_t held = 0;
    bool streaming;
};

/// Maps the first n of `available` points.
template <class L, class As, class Map>
[[gnu::flatten]] void MapRun(const Mtx2D& m, size_t n, size_t available, const double* in, typename As::Number* out) {
    const Map map(m);
    const auto mapOne = [&](size_t i) { As::PutOne(map(L::LoadOne(in + 2 * i)), out + 2 * i); };
    const auto mapVector = [&](size_t i) { As::Put(map(L::Load(in + 2 * i)), out + 2 * i); };
    const size_t boundary = PointsToBoundary<L>(in, n);
    size_t i = 0;
    for (; i < boundary; ++i) {
        mapOne(i);
    }
    for (; n - i >= 4 * L::kPoints; i += 4 * L::kPoints) {
        ReadAhead<L, 4 * L::kPoints>(in + 2 * i, available - i);
        mapVector(i);
        mapVector(i + L::kPoints);
        mapVector(i + 2 * L::kPoints);
        mapVector(i + 3 * L::kPoints);
    }
    for (; n - i >= L::kPoints; i += L::kPoints) {
        mapVector(i);
    }
    for (; i < n; ++i) {
        mapOne(i);
    }
}

template <class L, class As, class Map>
void MapStreaming(const Mtx2D& m, size_t n, const double* in, typename As::Number* out) {
    OutputBlock<L, typename As::Number> output(out, 2 * n);
    for (size_t i = 0; i < n; i += kBlockPoints) {
        const size_t points = n - i < kBlockPoints ? n - i : kBlockPoints;
        MapRun<L, As, Map>(m, points, n - i, in + 2 * i, output.End());
        output.Grow(2 * points);
        output.Flush();
    }
    output.Finish();
}

template <class L, class As, class Map>
void MapPoints(const Mtx2D& m, int n, const double* in, typename As::Number* out) {
    if (n <= 0) return;
    const auto count = static_cast<size_t>(n);
    if (Streams<L>(2 * count * sizeof(typename As::Number))) {
        MapStreaming<L, As, Map>(m, count, in, out);
    } else {
        MapRun<L, As, Map>(m, count, count, in, out);
    }
}

inline constexpr double kLargestSingle = 3.4028234663852886e38;

template <class L>
struct Lower {
    static constexpr double kStart = kLargestSingle;
    static auto Of(typename L::Doubles v, typename L::Doubles bound) { return L::Min(v, bound); }
    static double Of(double v, double bound) { return v < bound ? v : bound; }
};

template <class L>
struct Upper {
    static constexpr double kStart = -kLargestSingle;
    static auto Of(typename L::Doubles v, typename L::Doubles bound) { return L::Max(v, bound); }
    static double Of(double v, double bound) { return v > bound ? v : bound; }
};

/// The lower or upper bound of the points so far, of each lane for itself. A comparison waits for the one before it, so
/// several chains of them run side by side.
template <class L, class Side>
struct BoundLanes {
    static constexpr size_t kChains = 4;
    static constexpr size_t kNumbers = 2 * L::kPoints;

    typename L::Doubles chains[kChains];

    BoundLanes() {
        for (auto& chain : chains) {
            chain = L::Pair(Side::kStart, Side::kStart);
        }
    }

    void Include(size_t chain, typename L::Doubles p) { chains[chain] = Side::Of(p, chains[chain]); }

    /// The bound of one coordinate (0 for x, 1 for y) of `points`. A bound of zero has the sign of the first zero among
    /// them, as no later zero lies beyond it. In each lane that comes by itself; where lanes found zeros of both signs,
    /// the points tell which came first.
    double Of(size_t coordinate, const double* points) const {
        double values[kNumbers];
        L::Store(Side::Of(Side::Of(chains[0], chains[1]), Side::Of(chains[2], chains[3])), values);
        double bound = values[coordinate];
        for (size_t k = coordinate + 2; k < kNumbers; k += 2) {
            bound = Side::Of(values[k], bound);
        }
        return bound == 0.0 && ZerosDiffer(coordinate) ? FirstZero(points + coordinate) : bound;
    }

private:
    bool ZerosDiffer(size_t coordinate) const {
        bool found[2] = {false, false};
        for (const auto& chain : chains) {
            double values[kNumbers];
            L::Store(chain, values);
            for (size_t k = coordinate; k < kNumbers; k += 2) {
                if (values[k] == 0.0) found[__builtin_signbit(values[k]) != 0] = true;
            }
        }
        return found[0] && found[1];
    }

    static double FirstZero(const double* numbers) {
        while (*numbers != 0.0) {
            numbers += 2;
        }
        return *numbers;
    }
};

template <class L, class Map>
[[gnu::flatten]] Extents MapInPlace(const Mtx2D& m, int n, double* points) {
    const size_t count = n > 0 ? static_cast<size_t>(n) : 0;
    const Map map(m);
    BoundLanes<L, Lower<L>> lowerSoFar;
    BoundLanes<L, Upper<L>> upperSoFar;
    const auto include = [&](typename L::Doubles p, size_t chain) {
        lowerSoFar.Include(chain, p);
        upperSoFar.Include(chain, p);
    };
    const auto mapOne = [&](size_t i) {
        const auto p = map(L::LoadOne(points + 2 * i));
        L::StoreOne(p, points + 2 * i);
        include(p, 0);
    };
    const auto mapVector = [&](size_t i, size_t chain) {
        const auto p = map(L::Load(points + 2 * i));
        L::Store(p, points + 2 * i);
        include(p, chain);
    };
    const size_t boundary = PointsToBoundary<L>(points, count);
    size_t i = 0;
    for (; i < boundary; ++i) {
        mapOne(i);
    }
    for (; count - i >= 4 * L::kPoints; i += 4 * L::kPoints) {
        ReadAhead<L, 4 * L::kPoints>(points + 2 * i, count - i);
        mapVector(i, 0);
        mapVector(i + L::kPoints, 1);
        mapVector(i + 2 * L::kPoints, 2);
        mapVector(i + 3 * L::kPoints, 3);
    }
    for (; count - i >= L::kPoints; i += L::kPoints) {
        mapVector(i, 0);
    }
    for (; i < count; ++i) {
        mapOne(i);
    }
    // Copies, so that the loops above may keep the originals in registers.
    const auto lower = lowerSoFar;
    const auto upper = upperSoFar;
    return {lower.Of(0, points), lower.Of(1, points), upper.Of(0, points), upper.Of(1, points)};
}

/// Writes the codes of the set bits one after another, and anything beyond them up to one for each point of a
/// group.
template <class Group>
void KeepCodesInTurn(unsigned kept, const uint32_t* codes, uint32_t* out) {
    for (size_t k = 0; k < Group::kPoints; ++k) {
        *out = codes[k];
        out += kept >> k & 1;
    }
}

/// Maps the first n of `available` points and writes those that differ from the one before them; before the first
/// stands the last one of `last`, which is replaced by the last of these. To differ from the last point written is the
/// same, for whatever was dropped in between equals that one. Returns how many were written. Where `codesBefore` is not
/// null, it has the code of the point before each, which is final once the next point is kept, and as many codes are
/// written.
///
/// A `Group` offers
///   Number, kPoints      what it writes; how many points it holds
///   Of, OfOne            (map, in): the images of kPoints points; of one, repeated in all places
///   Changes              (before): bit k is set where point k differs from the one before it, which for the first is
///                        the last of the group `before`
///   Count                (kept): the number of set bits
///   Keep                 (kept, out): writes the points of the set bits one after another, and anything beyond them up
///                        to kPoints in all
///   KeepCodes            (kept, codes, out): the same with codes
template <class Group, class Map>
[[gnu::flatten]] size_t MergeRun(const Mtx2D& m, size_t n, size_t available, const double* in, Group& last,
                                 typename Group::Number* points, const uint32_t* codesBefore, uint32_t* codes) {
    const Map map(m);
    Group before = last;
    size_t written = 0;
    size_t i = 0;
    for (; n - i >= Group::kPoints; i += Group::kPoints) {
        ReadAhead<Group, Group::kPoints>(in + 2 * i, available - i);
        const Group group = Group::Of(map, in + 2 * i);
        const unsigned kept = group.Changes(before);
        group.Keep(kept, points + 2 * written);
        if (codesBefore != nullptr) Group::KeepCodes(kept, codesBefore + i, codes + written);
        written += Group::Count(kept);
        before = group;
    }
    for (; i < n; ++i) {
        const Group one = Group::OfOne(map, in + 2 * i);
        const unsigned kept = one.Changes(before) & 1;
        one.Keep(kept, points + 2 * written);
        if (codesBefore != nullptr) codes[written] = codesBefore[i];
        written += kept;
        before = one;
    }
    last = before;
    return written;
}

/// The most points of a polygon that may yet have to be cut because the last lies on the first.
inline constexpr size_t kThereAndBack = 3;

template <class L, class Group, class Map>
int MapPolygon(const Mtx2D& m, int n, const double* in, typename Group::Number* out, CodeArrays codeArrays) {
    if (n <= 0) return 0;
    const auto count = static_cast<size_t>(n);
    const bool withCodes = codeArrays.out != nullptr;
    OutputBlock<L, typename Group::Number> points(out, 2 * count);
    OutputBlock<L, uint32_t> codes(codeArrays.out, count);

    Group last = Group::OfOne(Map(m), in);
    last.Keep(1, points.End());
    points.Grow(2);
    size_t kept = 1;
    // The first block is a short one, so that the groups of the others lie on boundaries.
    size_t block = count > kBlockPoints ? PointsToBoundary<L>(in + 2, count - 1) : count - 1;
    for (size_t i = 1; i < count;) {
        const size_t written = MergeRun<Group, Map>(m, block, count - i, in + 2 * i, last, points.End(),
                                                    withCodes ? codeArrays.in + i - 1 : nullptr, codes.End());
        kept += written;
        points.Grow(2 * written);
        if (withCodes) codes.Grow(written);
        if (kept > kThereAndBack) {
            points.Flush();
            if (withCodes) codes.Flush();
        }
        i += block;
        block = count - i < kBlockPoints ? count - i : kBlockPoints;
    }

    const auto lastLiesOnFirst = [&] {
        const auto* const first = points.End() - 2 * kThereAndBack;
        return first[4] == first[0] && first[5] == first[1];
    };
    if (kept == kThereAndBack && lastLiesOnFirst()) {
        kept = 2;
        points.Shrink(2);
    } else if (withCodes) {
        *codes.End() = codeArrays.in[count - 1];
        codes.Grow(1);
    }
    points.Finish();
    if (withCodes) codes.Finish();
    return static_cast<int>(kept);
}

template <class L, template <class> class Map>
constexpr ClassKernels MakeClassKernels() {
    return {MapPoints<L, AsModel<L>, Map<L>>,
            MapPoints<L, AsDevice<L>, Map<L>>,
            MapPoints<L, AsEighths<L>, Map<L>>,
            MapPoints<L, AsShort<L>, Map<L>>,
            MapInPlace<L, Map<L>>,
            MapPolygon<L, typename L::ModelGroup, Map<L>>,
            MapPolygon<L, typename L::DeviceGroup, Map<L>>};
}

template <class L>
constexpr PointKernels MakePointKernels() {
    return {MakeClassKernels<L, AlignedLanes>(), MakeClassKernels<L, SwappedLanes>(),
            MakeClassKernels<L, GeneralLanes>()};
}

}  // namespace Vellum::internal

#endif
