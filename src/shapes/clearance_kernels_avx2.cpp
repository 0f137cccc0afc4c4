// SPDX-License-Identifier: MIT
#include <immintrin.h>

#include "shapes/clearance_kernels_impl.h"

namespace Vellum::internal {
namespace {

struct Avx2Lanes {
    struct Reg {
        __m256d first;
        __m256d second;
    };
    using Mask = Reg;

    static Reg Fill(double v) { return {_mm256_set1_pd(v), _mm256_set1_pd(v)}; }
    static Reg Load(const double* from) { return {_mm256_loadu_pd(from), _mm256_loadu_pd(from + 4)}; }
    static void LoadSplit(const double* from, Reg& x, Reg& y) {
        SplitFour(from, x.first, y.first);
        SplitFour(from + 8, x.second, y.second);
    }
    static void Store(double* to, const Reg& a) {
        _mm256_storeu_pd(to, a.first);
        _mm256_storeu_pd(to + 4, a.second);
    }
    static Reg Add(const Reg& a, const Reg& b) {
        return {_mm256_add_pd(a.first, b.first), _mm256_add_pd(a.second, b.second)};
    }
    static Reg Sub(const Reg& a, const Reg& b) {
        return {_mm256_sub_pd(a.first, b.first), _mm256_sub_pd(a.second, b.second)};
    }
    static Reg Mul(const Reg& a, const Reg& b) {
        return {_mm256_mul_pd(a.first, b.first), _mm256_mul_pd(a.second, b.second)};
    }
    static Reg Div(const Reg& a, const Reg& b) {
        return {_mm256_div_pd(a.first, b.first), _mm256_div_pd(a.second, b.second)};
    }
    static Reg Abs(const Reg& a) {
        const __m256d sign = _mm256_set1_pd(-0.0);
        return {_mm256_andnot_pd(sign, a.first), _mm256_andnot_pd(sign, a.second)};
    }
    static Reg Min(const Reg& a, const Reg& b) {
        return {_mm256_min_pd(a.first, b.first), _mm256_min_pd(a.second, b.second)};
    }
    static Reg Max(const Reg& a, const Reg& b) {
        return {_mm256_max_pd(a.first, b.first), _mm256_max_pd(a.second, b.second)};
    }
    static Mask Less(const Reg& a, const Reg& b) {
        return {_mm256_cmp_pd(a.first, b.first, _CMP_LT_OQ), _mm256_cmp_pd(a.second, b.second, _CMP_LT_OQ)};
    }
    static Mask NotAbove(const Reg& a, const Reg& b) {
        return {_mm256_cmp_pd(a.first, b.first, _CMP_LE_OQ), _mm256_cmp_pd(a.second, b.second, _CMP_LE_OQ)};
    }
    static Mask Equal(const Reg& a, const Reg& b) {
        return {_mm256_cmp_pd(a.first, b.first, _CMP_EQ_OQ), _mm256_cmp_pd(a.second, b.second, _CMP_EQ_OQ)};
    }
    static Mask And(const Mask& a, const Mask& b) {
        return {_mm256_and_pd(a.first, b.first), _mm256_and_pd(a.second, b.second)};
    }
    static Mask Or(const Mask& a, const Mask& b) {
        return {_mm256_or_pd(a.first, b.first), _mm256_or_pd(a.second, b.second)};
    }
    static Reg Select(const Mask& where, const Reg& a, const Reg& b) {
        return {_mm256_blendv_pd(b.first, a.first, where.first), _mm256_blendv_pd(b.second, a.second, where.second)};
    }
    static unsigned Bits(const Mask& a) {
        return static_cast<unsigned>(_mm256_movemask_pd(a.first) | _mm256_movemask_pd(a.second) << 4);
    }
    static void LowestPair(const Reg& a, double& even, double& odd) {
        const __m256d half = _mm256_min_pd(a.first, a.second);
        Split(_mm_min_pd(_mm256_castpd256_pd128(half), _mm256_extractf128_pd(half, 1)), even, odd);
    }
    static void HighestPair(const Reg& a, double& even, double& odd) {
        const __m256d half = _mm256_max_pd(a.first, a.second);
        Split(_mm_max_pd(_mm256_castpd256_pd128(half), _mm256_extractf128_pd(half, 1)), even, odd);
    }

private:
    static void SplitFour(const double* from, __m256d& x, __m256d& y) {
        const __m256d p02 = _mm256_loadu2_m128d(from + 4, from);
        const __m256d p13 = _mm256_loadu2_m128d(from + 6, from + 2);
        x = _mm256_unpacklo_pd(p02, p13);
        y = _mm256_unpackhi_pd(p02, p13);
    }
    static void Split(__m128d pair, double& even, double& odd) {
        _mm_storel_pd(&even, pair);
        _mm_storeh_pd(&odd, pair);
    }
};

}  // namespace

constinit const ClearanceKernels kClearanceKernelsAvx2 = ClearanceKernelLoops<Avx2Lanes>::kTable;

}  // namespace Vellum::internal
