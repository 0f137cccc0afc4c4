// SPDX-License-Identifier: MIT
#include <immintrin.h>

#include "shapes/clearance_kernels_impl.h"

namespace Vellum::internal {
namespace {

struct Avx512Lanes {
    using Reg = __m512d;
    using Mask = __mmask8;

    static Reg Fill(double v) { return _mm512_set1_pd(v); }
    static Reg Load(const double* from) { return _mm512_loadu_pd(from); }
    static void LoadSplit(const double* from, Reg& x, Reg& y) {
        const Reg a = _mm512_loadu_pd(from);
        const Reg b = _mm512_loadu_pd(from + 8);
        x = _mm512_permutex2var_pd(a, _mm512_setr_epi64(0, 2, 4, 6, 8, 10, 12, 14), b);
        y = _mm512_permutex2var_pd(a, _mm512_setr_epi64(1, 3, 5, 7, 9, 11, 13, 15), b);
    }
    static void Store(double* to, Reg a) { _mm512_storeu_pd(to, a); }
    static Reg Add(Reg a, Reg b) { return _mm512_add_pd(a, b); }
    static Reg Sub(Reg a, Reg b) { return _mm512_sub_pd(a, b); }
    static Reg Mul(Reg a, Reg b) { return _mm512_mul_pd(a, b); }
    static Reg Div(Reg a, Reg b) { return _mm512_div_pd(a, b); }
    static Reg Abs(Reg a) { return _mm512_andnot_pd(_mm512_set1_pd(-0.0), a); }
    // Masked with all lanes set: the headers' plain forms start from an undefined value, of which GCC warns.
    static Reg Min(Reg a, Reg b) { return _mm512_mask_min_pd(b, 0xFF, a, b); }
    static Reg Max(Reg a, Reg b) { return _mm512_mask_max_pd(b, 0xFF, a, b); }
    static Mask Less(Reg a, Reg b) { return _mm512_cmp_pd_mask(a, b, _CMP_LT_OQ); }
    static Mask NotAbove(Reg a, Reg b) { return _mm512_cmp_pd_mask(a, b, _CMP_LE_OQ); }
    static Mask Equal(Reg a, Reg b) { return _mm512_cmp_pd_mask(a, b, _CMP_EQ_OQ); }
    static Mask And(Mask a, Mask b) { return static_cast<Mask>(a & b); }
    static Mask Or(Mask a, Mask b) { return static_cast<Mask>(a | b); }
    static Reg Select(Mask where, Reg a, Reg b) { return _mm512_mask_blend_pd(where, b, a); }
    static unsigned Bits(Mask a) { return a; }
    static void LowestPair(Reg a, double& even, double& odd) {
        const __m256d half = _mm256_min_pd(Half<0>(a), Half<1>(a));
        Split(_mm_min_pd(_mm256_castpd256_pd128(half), _mm256_extractf128_pd(half, 1)), even, odd);
    }
    static void HighestPair(Reg a, double& even, double& odd) {
        const __m256d half = _mm256_max_pd(Half<0>(a), Half<1>(a));
        Split(_mm_max_pd(_mm256_castpd256_pd128(half), _mm256_extractf128_pd(half, 1)), even, odd);
    }

private:
    template <int kUpper>
    static __m256d Half(Reg a) {
        return _mm512_mask_extractf64x4_pd(_mm256_setzero_pd(), 0xFF, a, kUpper);
    }
    static void Split(__m128d pair, double& even, double& odd) {
        _mm_storel_pd(&even, pair);
        _mm_storeh_pd(&odd, pair);
    }
};

}  // namespace

constinit const ClearanceKernels kClearanceKernelsAvx512 = ClearanceKernelLoops<Avx512Lanes>::kTable;

}  // namespace Vellum::internal
