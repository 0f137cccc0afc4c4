// SPDX-License-Identifier: MIT
#include <immintrin.h>

#include "paths/clip_kernels_impl.h"

namespace Vellum::internal {
namespace {

struct Avx512Lanes {
    using Reg = __m512d;
    using Mask = __mmask8;
    static constexpr size_t kWidth = 8;
    static constexpr size_t kCodes = 16;

    static unsigned EndCodes(const uint32_t* codes) {
        const __m512i open = _mm512_and_si512(_mm512_set1_epi32(-2), _mm512_loadu_si512(codes));
        return _mm512_cmpeq_epi32_mask(open, _mm512_set1_epi32(2));
    }
    static Reg Fill(double v) { return _mm512_set1_pd(v); }
    static Reg Load(const double* from) { return _mm512_loadu_pd(from); }
    static void LoadSplit(const double* from, Reg& x, Reg& y) {
        const Reg a = _mm512_loadu_pd(from);
        const Reg b = _mm512_loadu_pd(from + 8);
        x = _mm512_permutex2var_pd(a, _mm512_setr_epi64(0, 2, 4, 6, 8, 10, 12, 14), b);
        y = _mm512_permutex2var_pd(a, _mm512_setr_epi64(1, 3, 5, 7, 9, 11, 13, 15), b);
    }
    static void Store(double* to, Reg a) { _mm512_storeu_pd(to, a); }
    static Reg Sub(Reg a, Reg b) { return _mm512_sub_pd(a, b); }
    static Reg Mul(Reg a, Reg b) { return _mm512_mul_pd(a, b); }
    static Reg Abs(Reg a) { return _mm512_andnot_pd(_mm512_set1_pd(-0.0), a); }
    // Masked with all lanes set: the headers' plain forms start from an undefined value, of which GCC warns.
    static Reg Min(Reg a, Reg b) { return _mm512_mask_min_pd(b, 0xFF, a, b); }
    static Reg Max(Reg a, Reg b) { return _mm512_mask_max_pd(b, 0xFF, a, b); }
    static Mask Less(Reg a, Reg b) { return _mm512_cmp_pd_mask(a, b, _CMP_LT_OQ); }
    static Mask Unordered(Reg a) { return _mm512_cmp_pd_mask(a, a, _CMP_UNORD_Q); }
    static Mask Or(Mask a, Mask b) { return static_cast<Mask>(a | b); }
    static Mask Nowhere() { return 0; }
    static unsigned Bits(Mask a) { return a; }
    static unsigned SignBits(Reg a) { return _mm512_movepi64_mask(_mm512_castpd_si512(a)); }
};

}  // namespace

constinit const ClipKernels kClipKernelsAvx512 = ClipKernelLoops<Avx512Lanes>::kTable;

}  // namespace Vellum::internal
