// SPDX-License-Identifier: MIT
#include <immintrin.h>

#include "shapes/winding_kernels_impl.h"

namespace Vellum::internal {

namespace {

struct Avx512Lanes {
    using Reg = __m512d;
    static constexpr size_t kWidth = 8;

    static Reg Fill(double v) { return _mm512_set1_pd(v); }
    static void LoadSplit(const double* from, Reg& x, Reg& y) {
        const Reg a = _mm512_loadu_pd(from);
        const Reg b = _mm512_loadu_pd(from + 8);
        x = _mm512_permutex2var_pd(a, _mm512_setr_epi64(0, 2, 4, 6, 8, 10, 12, 14), b);
        y = _mm512_permutex2var_pd(a, _mm512_setr_epi64(1, 3, 5, 7, 9, 11, 13, 15), b);
    }
    static Reg Sub(Reg a, Reg b) { return _mm512_sub_pd(a, b); }
    static Reg Mul(Reg a, Reg b) { return _mm512_mul_pd(a, b); }
    static uint64_t Less(Reg a, Reg b) { return _mm512_cmp_pd_mask(a, b, _CMP_LT_OQ); }
    static uint64_t AtLeast(Reg a, Reg b) { return _mm512_cmp_pd_mask(a, b, _CMP_GE_OQ); }
};

}  // namespace

int64_t WindingAvx512(const DblPt* pts, size_t count, double x, double y) {
    return WindingLoop<Avx512Lanes>::Winding(pts, count, x, y);
}

}  // namespace Vellum::internal
