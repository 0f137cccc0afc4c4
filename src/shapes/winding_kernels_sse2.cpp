// SPDX-License-Identifier: MIT
#include <emmintrin.h>

#include "shapes/winding_kernels_impl.h"

namespace Vellum::internal {

namespace {

struct Sse2Lanes {
    using Reg = __m128d;
    static constexpr size_t kWidth = 2;

    static Reg Fill(double v) { return _mm_set1_pd(v); }
    static void LoadSplit(const double* from, Reg& x, Reg& y) {
        const Reg a = _mm_loadu_pd(from);
        const Reg b = _mm_loadu_pd(from + 2);
        x = _mm_unpacklo_pd(a, b);
        y = _mm_unpackhi_pd(a, b);
    }
    static Reg Sub(Reg a, Reg b) { return _mm_sub_pd(a, b); }
    static Reg Mul(Reg a, Reg b) { return _mm_mul_pd(a, b); }
    static uint64_t Less(Reg a, Reg b) { return Bits(_mm_cmplt_pd(a, b)); }
    static uint64_t AtLeast(Reg a, Reg b) { return Bits(_mm_cmpge_pd(a, b)); }

private:
    static uint64_t Bits(Reg truth) { return static_cast<unsigned>(_mm_movemask_pd(truth)); }
};

// Adds up what pairs of edges contribute, as counts in two lanes.
class WindingSum {
public:
    WindingSum(double x, double y) : x_(_mm_set1_pd(x)), y_(_mm_set1_pd(y)) {}

    /// The edges from @p v0 to @p w0 and from @p v1 to @p w1.
    void Add(const DblPt& v0, const DblPt& w0, const DblPt& v1, const DblPt& w1) {
        const __m128d first = _mm_loadu_pd(&v0.x);
        const __m128d second = _mm_loadu_pd(&v1.x);
        const __m128d vx = _mm_unpacklo_pd(first, second);
        const __m128d vy = _mm_unpackhi_pd(first, second);
        const __m128d firstEnd = _mm_loadu_pd(&w0.x);
        const __m128d secondEnd = _mm_loadu_pd(&w1.x);
        const __m128d wx = _mm_unpacklo_pd(firstEnd, secondEnd);
        const __m128d wy = _mm_unpackhi_pd(firstEnd, secondEnd);
        const __m128d side = _mm_sub_pd(_mm_mul_pd(_mm_sub_pd(wx, vx), _mm_sub_pd(y_, vy)),
                                        _mm_mul_pd(_mm_sub_pd(x_, vx), _mm_sub_pd(wy, vy)));
        const __m128d isFromHigher = _mm_cmpgt_pd(vy, y_);
        const __m128d isToHigher = _mm_cmpgt_pd(wy, y_);
        const __m128d up = _mm_and_pd(_mm_andnot_pd(isFromHigher, isToHigher), _mm_cmpge_pd(side, _mm_setzero_pd()));
        const __m128d down = _mm_and_pd(_mm_andnot_pd(isToHigher, isFromHigher), _mm_cmple_pd(side, _mm_setzero_pd()));
        // What is true is all ones, that is -1.
        sum_ = _mm_add_epi64(sum_, _mm_sub_epi64(_mm_castpd_si128(down), _mm_castpd_si128(up)));
    }

    int64_t Total() const { return _mm_cvtsi128_si64(sum_) + _mm_cvtsi128_si64(_mm_unpackhi_epi64(sum_, sum_)); }

private:
    __m128d x_;
    __m128d y_;
    __m128i sum_ = _mm_setzero_si128();
};

}  // namespace

int64_t WindingOfFewSse2(const DblPt* pts, size_t count, double x, double y) {
    WindingSum sum(x, y);
    const size_t last = count - 1;
    size_t i = 0;
    for (; i + 2 <= last; i += 2)
        sum.Add(pts[i], pts[i + 1], pts[i + 1], pts[i + 2]);
    // The closing edge, and the one before it or an edge without length.
    sum.Add(pts[i], pts[last], pts[last], pts[0]);
    return sum.Total();
}

int64_t WindingSse2(const DblPt* pts, size_t count, double x, double y) {
    return WindingLoop<Sse2Lanes>::Winding(pts, count, x, y);
}

}  // namespace Vellum::internal
