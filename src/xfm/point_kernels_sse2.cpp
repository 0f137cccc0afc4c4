// SPDX-License-Identifier: MIT
#include <emmintrin.h>

#include "xfm/point_kernels_impl.h"

namespace Vellum::internal {

namespace {

/// One point in a vector of two doubles.
struct Sse2Lanes {
    static constexpr size_t kPoints = 1;
    static constexpr bool kStreams = true;

    using Doubles = __m128d;

    /// The coordinates stand in the lower half.
    using Ints = __m128i;

    static Doubles Load(const double* p) { return _mm_loadu_pd(p); }
    static Doubles LoadOne(const double* p) { return Load(p); }
    static void Store(Doubles v, double* p) { _mm_storeu_pd(p, v); }
    static void StoreOne(Doubles v, double* p) { Store(v, p); }
    static Doubles Pair(double x, double y) { return _mm_setr_pd(x, y); }
    static Doubles Exchanged(Doubles v) { return _mm_shuffle_pd(v, v, 1); }
    static Doubles Add(Doubles a, Doubles b) { return _mm_add_pd(a, b); }
    static Doubles Multiply(Doubles a, Doubles b) { return _mm_mul_pd(a, b); }
    static Doubles Min(Doubles v, Doubles acc) { return _mm_min_pd(v, acc); }
    static Doubles Max(Doubles v, Doubles acc) { return _mm_max_pd(v, acc); }

    /// The conversion itself gives the smallest int for what does not fit.
    static Ints Round(Doubles v) {
        const Doubles half = _mm_or_pd(_mm_and_pd(v, _mm_set1_pd(-0.0)), _mm_set1_pd(0.5));
        return _mm_cvttpd_epi32(_mm_add_pd(v, half));
    }
    static Ints Eighths(Ints v) { return _mm_slli_epi32(v, 3); }
    static void Store(Ints v, int32_t* p) { _mm_storel_epi64(reinterpret_cast<__m128i*>(p), v); }
    static void StoreOne(Ints v, int32_t* p) { Store(v, p); }
    static void StoreShort(Ints v, int16_t* p) {
        const int both = _mm_cvtsi128_si32(_mm_shufflelo_epi16(v, _MM_SHUFFLE(3, 3, 2, 0)));
        std::memcpy(p, &both, sizeof both);
    }
    static void StoreShortOne(Ints v, int16_t* p) { StoreShort(v, p); }

    static void StreamLine(const unsigned char* from, unsigned char* to) {
        for (size_t k = 0; k < kLineBytes; k += sizeof(__m128i)) {
            const __m128i part = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + k));
            _mm_stream_si128(reinterpret_cast<__m128i*>(to + k), part);
        }
    }
    static void Fence() { _mm_sfence(); }

    struct ModelGroup {
        static constexpr size_t kPoints = 1;
        using Number = double;
        Doubles p;

        template <class Map>
        static ModelGroup Of(const Map& map, const double* in) {
            return {map(Load(in))};
        }
        template <class Map>
        static ModelGroup OfOne(const Map& map, const double* in) {
            return Of(map, in);
        }
        unsigned Changes(ModelGroup before) const { return _mm_movemask_pd(_mm_cmpneq_pd(p, before.p)) != 0 ? 1 : 0; }
        static size_t Count(unsigned kept) { return kept; }
        void Keep(unsigned, Number* out) const { Store(p, out); }
        static void KeepCodes(unsigned kept, const uint32_t* codes, uint32_t* out) {
            KeepCodesInTurn<ModelGroup>(kept, codes, out);
        }
    };

    struct DeviceGroup {
        static constexpr size_t kPoints = 2;
        using Number = int32_t;
        Ints p;

        template <class Map>
        static DeviceGroup Of(const Map& map, const double* in) {
            return {_mm_unpacklo_epi64(Round(map(Load(in))), Round(map(Load(in + 2))))};
        }
        template <class Map>
        static DeviceGroup OfOne(const Map& map, const double* in) {
            const Ints one = Round(map(Load(in)));
            return {_mm_unpacklo_epi64(one, one)};
        }
        unsigned Changes(DeviceGroup before) const {
            const Ints previous = _mm_castpd_si128(_mm_shuffle_pd(_mm_castsi128_pd(before.p), _mm_castsi128_pd(p), 1));
            const Ints equal = _mm_cmpeq_epi32(p, previous);
            const Ints bothEqual = _mm_and_si128(equal, _mm_shuffle_epi32(equal, _MM_SHUFFLE(2, 3, 0, 1)));
            return ~static_cast<unsigned>(_mm_movemask_pd(_mm_castsi128_pd(bothEqual))) & 3U;
        }
        static size_t Count(unsigned kept) { return (kept & 1) + (kept >> 1); }
        void Keep(unsigned kept, Number* out) const {
            Store(p, out);
            Store(_mm_unpackhi_epi64(p, p), out + 2 * Count(kept & 1));
        }
        static void KeepCodes(unsigned kept, const uint32_t* codes, uint32_t* out) {
            KeepCodesInTurn<DeviceGroup>(kept, codes, out);
        }
    };
};

}  // namespace

constinit const PointKernels kSse2PointKernels = MakePointKernels<Sse2Lanes>();

}  // namespace Vellum::internal
