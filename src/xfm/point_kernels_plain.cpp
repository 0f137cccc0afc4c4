// SPDX-License-Identifier: MIT
#include "xfm/point_kernels_impl.h"
#include "xfm/point_map.h"

namespace Vellum::internal {

namespace {

/// One point in plain numbers.
struct PlainLanes {
    static constexpr size_t kPoints = 1;
    static constexpr bool kStreams = false;

    using Doubles = real_pt_t;
    using Ints = int_pt_t;

    static Doubles Load(const double* p) { return {p[0], p[1]}; }
    static Doubles LoadOne(const double* p) { return Load(p); }
    static void Store(Doubles v, double* p) {
        p[0] = v.x;
        p[1] = v.y;
    }
    static void StoreOne(Doubles v, double* p) { Store(v, p); }
    static Doubles Pair(double x, double y) { return {x, y}; }
    static Doubles Exchanged(Doubles v) { return {v.y, v.x}; }
    static Doubles Add(Doubles a, Doubles b) { return {a.x + b.x, a.y + b.y}; }
    static Doubles Multiply(Doubles a, Doubles b) { return {a.x * b.x, a.y * b.y}; }
    static Doubles Min(Doubles v, Doubles acc) { return {v.x < acc.x ? v.x : acc.x, v.y < acc.y ? v.y : acc.y}; }
    static Doubles Max(Doubles v, Doubles acc) { return {v.x > acc.x ? v.x : acc.x, v.y > acc.y ? v.y : acc.y}; }

    static Ints Round(Doubles v) { return DeviceRound(v); }
    static Ints Eighths(Ints v) { return {Eighths(v.x), Eighths(v.y)}; }
    static void Store(Ints v, int32_t* p) {
        p[0] = v.x;
        p[1] = v.y;
    }
    static void StoreOne(Ints v, int32_t* p) { Store(v, p); }
    static void StoreShort(Ints v, int16_t* p) {
        p[0] = static_cast<int16_t>(v.x);
        p[1] = static_cast<int16_t>(v.y);
    }
    static void StoreShortOne(Ints v, int16_t* p) { StoreShort(v, p); }

    static void StreamLine(const unsigned char* from, unsigned char* to) { std::memcpy(to, from, kLineBytes); }
    static void Fence() {}

    template <class Coordinate, class Point>
    struct Group {
        static constexpr size_t kPoints = 1;
        using Number = Coordinate;
        Point p;

        template <class Map>
        static Group Of(const Map& map, const double* in) {
            return {Converted(map(Load(in)))};
        }
        template <class Map>
        static Group OfOne(const Map& map, const double* in) {
            return Of(map, in);
        }
        unsigned Changes(Group before) const { return p.x == before.p.x && p.y == before.p.y ? 0 : 1; }
        static size_t Count(unsigned kept) { return kept; }
        void Keep(unsigned, Number* out) const { Store(p, out); }
        static void KeepCodes(unsigned kept, const uint32_t* codes, uint32_t* out) {
            KeepCodesInTurn<Group>(kept, codes, out);
        }

    private:
        static Point Converted(Doubles v) {
            if constexpr (std::is_same_v<Point, Doubles>) {
                return v;
            } else {
                return Round(v);
            }
        }
    };
    using ModelGroup = Group<double, Doubles>;
    using DeviceGroup = Group<int32_t, Ints>;

private:
    static int32_t Eighths(int32_t v) { return static_cast<int32_t>(static_cast<uint32_t>(v) << 3); }
};

}  // namespace

constinit const PointKernels kPlainPointKernels = MakePointKernels<PlainLanes>();

}  // namespace Vellum::internal
