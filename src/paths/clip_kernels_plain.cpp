// SPDX-License-Identifier: MIT
#include "paths/clip_kernels_impl.h"

namespace Vellum::internal {
namespace {

struct PlainLanes {
    struct Reg {
        double lane[2];
    };
    using Mask = Reg;
    static constexpr size_t kWidth = 2;
    static constexpr size_t kCodes = 1;

    static unsigned EndCodes(const uint32_t* codes) { return (*codes & ~1u) == 2 ? 1 : 0; }
    static Reg Fill(double v) { return {{v, v}}; }
    static Reg Load(const double* from) { return {{from[0], from[1]}}; }
    static void LoadSplit(const double* from, Reg& x, Reg& y) {
        x = {{from[0], from[2]}};
        y = {{from[1], from[3]}};
    }
    static void Store(double* to, const Reg& a) {
        to[0] = a.lane[0];
        to[1] = a.lane[1];
    }
    static Reg Sub(const Reg& a, const Reg& b) { return {{a.lane[0] - b.lane[0], a.lane[1] - b.lane[1]}}; }
    static Reg Mul(const Reg& a, const Reg& b) { return {{a.lane[0] * b.lane[0], a.lane[1] * b.lane[1]}}; }
    static Reg Abs(const Reg& a) { return {{__builtin_fabs(a.lane[0]), __builtin_fabs(a.lane[1])}}; }
    static Reg Min(const Reg& a, const Reg& b) {
        return {{a.lane[0] < b.lane[0] ? a.lane[0] : b.lane[0], a.lane[1] < b.lane[1] ? a.lane[1] : b.lane[1]}};
    }
    static Reg Max(const Reg& a, const Reg& b) {
        return {{a.lane[0] > b.lane[0] ? a.lane[0] : b.lane[0], a.lane[1] > b.lane[1] ? a.lane[1] : b.lane[1]}};
    }
    static Mask Less(const Reg& a, const Reg& b) { return Truth(a.lane[0] < b.lane[0], a.lane[1] < b.lane[1]); }
    static Mask Unordered(const Reg& a) { return Truth(a.lane[0] != a.lane[0], a.lane[1] != a.lane[1]); }
    static Mask Or(const Mask& a, const Mask& b) { return Truth((Bits(a) | Bits(b)) & 1, (Bits(a) | Bits(b)) & 2); }
    static Mask Nowhere() { return Truth(false, false); }
    static unsigned SignBits(const Reg& a) { return Bits(a); }
    static unsigned Bits(const Mask& a) {
        return (__builtin_signbit(a.lane[0]) ? 1u : 0u) | (__builtin_signbit(a.lane[1]) ? 2u : 0u);
    }

private:
    /// A vector comparison answers in the sign bits.
    static Mask Truth(bool first, bool second) { return {{first ? -0.0 : 0.0, second ? -0.0 : 0.0}}; }
};

}  // namespace

constinit const ClipKernels kClipKernelsPlain = ClipKernelLoops<PlainLanes>::kTable;

}  // namespace Vellum::internal
