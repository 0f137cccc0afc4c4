// SPDX-License-Identifier: MIT
#include <immintrin.h>

#include "shapes/winding_kernels_impl.h"

namespace Vellum::internal {

namespace {

struct Avx2Lanes {
    using Reg = __m256d;
    static constexpr size_t kWidth = 4;

    static Reg Fill(double v) { return _mm256_set1_pd(v); }
    static void LoadSplit(const double* from, Reg& x, Reg& y) {
        const Reg a = _mm256_loadu_pd(from);
        const Reg b = _mm256_loadu_pd(from + 4);
        x = InOrder(_mm256_unpacklo_pd(a, b));
        y = InOrder(_mm256_unpackhi_pd(a, b));
    }
    static Reg Sub(Reg a, Reg b) { return _mm256_sub_pd(a, b); }
    static Reg Mul(Reg a, Reg b) { return _mm256_mul_pd(a, b); }
    static uint64_t Less(Reg a, Reg b) { return Bits(_mm256_cmp_pd(a, b, _CMP_LT_OQ)); }
    static uint64_t AtLeast(Reg a, Reg b) { return Bits(_mm256_cmp_pd(a, b, _CMP_GE_OQ)); }

private:
    static Reg InOrder(Reg points0213) { return _mm256_permute4x64_pd(points0213, _MM_SHUFFLE(3, 1, 2, 0)); }
    static uint64_t Bits(Reg truth) { return static_cast<unsigned>(_mm256_movemask_pd(truth)); }
};

}  // namespace

int64_t WindingAvx2(const DblPt* pts, size_t count, double x, double y) {
    return WindingLoop<Avx2Lanes>::Winding(pts, count, x, y);
}

}  // namespace Vellum::internal
