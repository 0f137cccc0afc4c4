// SPDX-License-Identifier: MIT
#include <emmintrin.h>

#include "shapes/clearance_kernels_impl.h"

namespace Vellum::internal {
namespace {

struct Sse2Lanes {
    struct Reg {
        __m128d part[4];
    };
    using Mask = Reg;

    static Reg Fill(double v) {
        const __m128d both = _mm_set1_pd(v);
        return {{both, both, both, both}};
    }
    static Reg Load(const double* from) {
        return {{_mm_loadu_pd(from), _mm_loadu_pd(from + 2), _mm_loadu_pd(from + 4), _mm_loadu_pd(from + 6)}};
    }
    static void LoadSplit(const double* from, Reg& x, Reg& y) {
        for (size_t i = 0; i < 4; ++i) {
            const __m128d first = _mm_loadu_pd(from + 4 * i);
            const __m128d second = _mm_loadu_pd(from + 4 * i + 2);
            x.part[i] = _mm_unpacklo_pd(first, second);
            y.part[i] = _mm_unpackhi_pd(first, second);
        }
    }
    static void Store(double* to, const Reg& a) {
        for (size_t i = 0; i < 4; ++i)
            _mm_storeu_pd(to + 2 * i, a.part[i]);
    }
    static Reg Add(const Reg& a, const Reg& b) {
        return Each(a, b, [](auto u, auto v) { return _mm_add_pd(u, v); });
    }
    static Reg Sub(const Reg& a, const Reg& b) {
        return Each(a, b, [](auto u, auto v) { return _mm_sub_pd(u, v); });
    }
    static Reg Mul(const Reg& a, const Reg& b) {
        return Each(a, b, [](auto u, auto v) { return _mm_mul_pd(u, v); });
    }
    static Reg Div(const Reg& a, const Reg& b) {
        return Each(a, b, [](auto u, auto v) { return _mm_div_pd(u, v); });
    }
    static Reg Abs(const Reg& a) {
        return Each(Fill(-0.0), a, [](auto u, auto v) { return _mm_andnot_pd(u, v); });
    }
    static Reg Min(const Reg& a, const Reg& b) {
        return Each(a, b, [](auto u, auto v) { return _mm_min_pd(u, v); });
    }
    static Reg Max(const Reg& a, const Reg& b) {
        return Each(a, b, [](auto u, auto v) { return _mm_max_pd(u, v); });
    }
    static Mask Less(const Reg& a, const Reg& b) {
        return Each(a, b, [](auto u, auto v) { return _mm_cmplt_pd(u, v); });
    }
    static Mask NotAbove(const Reg& a, const Reg& b) {
        return Each(a, b, [](auto u, auto v) { return _mm_cmple_pd(u, v); });
    }
    static Mask Equal(const Reg& a, const Reg& b) {
        return Each(a, b, [](auto u, auto v) { return _mm_cmpeq_pd(u, v); });
    }
    static Mask And(const Mask& a, const Mask& b) {
        return Each(a, b, [](auto u, auto v) { return _mm_and_pd(u, v); });
    }
    static Mask Or(const Mask& a, const Mask& b) {
        return Each(a, b, [](auto u, auto v) { return _mm_or_pd(u, v); });
    }
    static Reg Select(const Mask& where, const Reg& a, const Reg& b) {
        return Or(And(where, a), Each(where, b, [](auto u, auto v) { return _mm_andnot_pd(u, v); }));
    }
    static unsigned Bits(const Mask& a) {
        return UpperHalves(a.part[0], a.part[1]) | UpperHalves(a.part[2], a.part[3]) << 4;
    }
    static void LowestPair(const Reg& a, double& even, double& odd) {
        Split(_mm_min_pd(_mm_min_pd(a.part[0], a.part[1]), _mm_min_pd(a.part[2], a.part[3])), even, odd);
    }
    static void HighestPair(const Reg& a, double& even, double& odd) {
        Split(_mm_max_pd(_mm_max_pd(a.part[0], a.part[1]), _mm_max_pd(a.part[2], a.part[3])), even, odd);
    }

private:
    template <class Operation>
    static Reg Each(const Reg& a, const Reg& b, Operation operation) {
        return {{operation(a.part[0], b.part[0]), operation(a.part[1], b.part[1]), operation(a.part[2], b.part[2]),
                 operation(a.part[3], b.part[3])}};
    }
    static unsigned UpperHalves(__m128d a, __m128d b) {
        return static_cast<unsigned>(
            _mm_movemask_ps(_mm_shuffle_ps(_mm_castpd_ps(a), _mm_castpd_ps(b), _MM_SHUFFLE(3, 1, 3, 1))));
    }
    static void Split(__m128d pair, double& even, double& odd) {
        _mm_storel_pd(&even, pair);
        _mm_storeh_pd(&odd, pair);
    }
};

}  // namespace

constinit const ClearanceKernels kClearanceKernelsSse2 = ClearanceKernelLoops<Sse2Lanes>::kTable;

}  // namespace Vellum::internal
