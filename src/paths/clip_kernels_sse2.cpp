// SPDX-License-Identifier: MIT
#include <emmintrin.h>

#include "paths/clip_kernels_impl.h"

namespace Vellum::internal {
namespace {

struct Sse2Lanes {
    struct Reg {
        __m128d first;
        __m128d second;
    };
    using Mask = Reg;
    static constexpr size_t kWidth = 4;
    static constexpr size_t kCodes = 4;

    static unsigned EndCodes(const uint32_t* codes) {
        const __m128i open =
            _mm_andnot_si128(_mm_set1_epi32(1), _mm_loadu_si128(reinterpret_cast<const __m128i*>(codes)));
        return static_cast<unsigned>(_mm_movemask_ps(_mm_castsi128_ps(_mm_cmpeq_epi32(open, _mm_set1_epi32(2)))));
    }
    static Reg Fill(double v) { return {_mm_set1_pd(v), _mm_set1_pd(v)}; }
    static Reg Load(const double* from) { return {_mm_loadu_pd(from), _mm_loadu_pd(from + 2)}; }
    static void LoadSplit(const double* from, Reg& x, Reg& y) {
        const Reg a = Load(from);
        const Reg b = Load(from + 4);
        x = {_mm_unpacklo_pd(a.first, a.second), _mm_unpacklo_pd(b.first, b.second)};
        y = {_mm_unpackhi_pd(a.first, a.second), _mm_unpackhi_pd(b.first, b.second)};
    }
    static void Store(double* to, const Reg& a) {
        _mm_storeu_pd(to, a.first);
        _mm_storeu_pd(to + 2, a.second);
    }
    static Reg Sub(const Reg& a, const Reg& b) {
        return {_mm_sub_pd(a.first, b.first), _mm_sub_pd(a.second, b.second)};
    }
    static Reg Mul(const Reg& a, const Reg& b) {
        return {_mm_mul_pd(a.first, b.first), _mm_mul_pd(a.second, b.second)};
    }
    static Reg Abs(const Reg& a) {
        const __m128d sign = _mm_set1_pd(-0.0);
        return {_mm_andnot_pd(sign, a.first), _mm_andnot_pd(sign, a.second)};
    }
    static Reg Min(const Reg& a, const Reg& b) {
        return {_mm_min_pd(a.first, b.first), _mm_min_pd(a.second, b.second)};
    }
    static Reg Max(const Reg& a, const Reg& b) {
        return {_mm_max_pd(a.first, b.first), _mm_max_pd(a.second, b.second)};
    }
    static Mask Less(const Reg& a, const Reg& b) {
        return {_mm_cmplt_pd(a.first, b.first), _mm_cmplt_pd(a.second, b.second)};
    }
    static Mask Unordered(const Reg& a) {
        return {_mm_cmpunord_pd(a.first, a.first), _mm_cmpunord_pd(a.second, a.second)};
    }
    static Mask Or(const Mask& a, const Mask& b) {
        return {_mm_or_pd(a.first, b.first), _mm_or_pd(a.second, b.second)};
    }
    /// The upper half of each double holds its sign.
    static unsigned Bits(const Mask& a) {
        return static_cast<unsigned>(
            _mm_movemask_ps(_mm_shuffle_ps(_mm_castpd_ps(a.first), _mm_castpd_ps(a.second), _MM_SHUFFLE(3, 1, 3, 1))));
    }
    static unsigned SignBits(const Reg& a) { return Bits(a); }
    static Mask Nowhere() { return Fill(0.0); }
};

}  // namespace

constinit const ClipKernels kClipKernelsSse2 = ClipKernelLoops<Sse2Lanes>::kTable;

}  // namespace Vellum::internal
