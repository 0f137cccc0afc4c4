// SPDX-License-Identifier: MIT
#include <immintrin.h>

#include "paths/clip_kernels_impl.h"

namespace Vellum::internal {
namespace {

struct Avx2Lanes {
    struct Reg {
        __m256d first;
        __m256d second;
    };
    using Mask = Reg;
    static constexpr size_t kWidth = 8;
    static constexpr size_t kCodes = 8;

    static unsigned EndCodes(const uint32_t* codes) {
        const __m256i open =
            _mm256_andnot_si256(_mm256_set1_epi32(1), _mm256_loadu_si256(reinterpret_cast<const __m256i*>(codes)));
        return static_cast<unsigned>(
            _mm256_movemask_ps(_mm256_castsi256_ps(_mm256_cmpeq_epi32(open, _mm256_set1_epi32(2)))));
    }
    static Reg Fill(double v) { return {_mm256_set1_pd(v), _mm256_set1_pd(v)}; }
    static Reg Load(const double* from) { return {_mm256_loadu_pd(from), _mm256_loadu_pd(from + 4)}; }
    /// The halves of the registers are points 0 to 3 and 4 to 7, so that `Bits` finds them in their order.
    static void LoadSplit(const double* from, Reg& x, Reg& y) {
        const __m256d p04 = _mm256_loadu2_m128d(from + 8, from);
        const __m256d p15 = _mm256_loadu2_m128d(from + 10, from + 2);
        const __m256d p26 = _mm256_loadu2_m128d(from + 12, from + 4);
        const __m256d p37 = _mm256_loadu2_m128d(from + 14, from + 6);
        x = {_mm256_unpacklo_pd(p04, p15), _mm256_unpacklo_pd(p26, p37)};
        y = {_mm256_unpackhi_pd(p04, p15), _mm256_unpackhi_pd(p26, p37)};
    }
    static void Store(double* to, const Reg& a) {
        _mm256_storeu_pd(to, a.first);
        _mm256_storeu_pd(to + 4, a.second);
    }
    static Reg Sub(const Reg& a, const Reg& b) {
        return {_mm256_sub_pd(a.first, b.first), _mm256_sub_pd(a.second, b.second)};
    }
    static Reg Mul(const Reg& a, const Reg& b) {
        return {_mm256_mul_pd(a.first, b.first), _mm256_mul_pd(a.second, b.second)};
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
    static Mask Unordered(const Reg& a) {
        return {_mm256_cmp_pd(a.first, a.first, _CMP_UNORD_Q), _mm256_cmp_pd(a.second, a.second, _CMP_UNORD_Q)};
    }
    static Mask Or(const Mask& a, const Mask& b) {
        return {_mm256_or_pd(a.first, b.first), _mm256_or_pd(a.second, b.second)};
    }
    /// The upper half of each double holds its sign.
    static unsigned Bits(const Mask& a) {
        return static_cast<unsigned>(_mm256_movemask_ps(
            _mm256_shuffle_ps(_mm256_castpd_ps(a.first), _mm256_castpd_ps(a.second), _MM_SHUFFLE(3, 1, 3, 1))));
    }
    static unsigned SignBits(const Reg& a) { return Bits(a); }
    static Mask Nowhere() { return Fill(0.0); }
};

}  // namespace

constinit const ClipKernels kClipKernelsAvx2 = ClipKernelLoops<Avx2Lanes>::kTable;

}  // namespace Vellum::internal
