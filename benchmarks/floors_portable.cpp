// SPDX-License-Identifier: MIT
#include "floors_portable.h"

#include "floors_impl.h"

namespace VellumBench {
namespace {

/// The compiler makes vectors of these, as far as any processor has them.
struct Portable {
    using Vector = uint64_t;

    static Vector Load(const char* from) {
        Vector v;
        std::memcpy(&v, from, sizeof v);
        return v;
    }
    static void Store(char* to, Vector v) { std::memcpy(to, &v, sizeof v); }
    static void Stream(char* to, Vector v) { Store(to, v); }
    static Vector Add(Vector a, Vector b) { return a + b; }
    static Vector FlipSigns(Vector v) { return v ^ (Vector{1} << 63); }
    static void Use(Vector v) { [[maybe_unused]] volatile Vector sink = v; }
    static void Fence() {}
};

}  // namespace

constinit const Floors kFloorsPortable = FloorPasses<Portable>::All();

}  // namespace VellumBench
