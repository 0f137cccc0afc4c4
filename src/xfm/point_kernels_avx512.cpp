// SPDX-License-Identifier: MIT
#include <immintrin.h>

#include "xfm/point_kernels_impl.h"

namespace Vellum::internal {

namespace {

/// Four points in a vector of eight doubles.
struct Avx512Lanes {
    static constexpr size_t kPoints = 4;
    static constexpr bool kStreams = true;

    using Doubles = __m512d;
    using Ints = __m256i;

    static Doubles Load(const double* p) { return _mm512_loadu_pd(p); }
    static Doubles LoadOne(const double* p) { return Repeated(_mm_loadu_pd(p)); }
    static void Store(Doubles v, double* p) { _mm512_storeu_pd(p, v); }
    static void StoreOne(Doubles v, double* p) { _mm_storeu_pd(p, _mm512_castpd512_pd128(v)); }
    static Doubles Pair(double x, double y) { return Repeated(_mm_setr_pd(x, y)); }
    static Doubles Exchanged(Doubles v) { return _mm512_permute_pd(v, 0x55); }
    static Doubles Add(Doubles a, Doubles b) { return _mm512_add_pd(a, b); }
    static Doubles Multiply(Doubles a, Doubles b) { return _mm512_mul_pd(a, b); }
    static Doubles Min(Doubles v, Doubles acc) { return _mm512_min_pd(v, acc); }
    static Doubles Max(Doubles v, Doubles acc) { return _mm512_max_pd(v, acc); }

    /// The conversion itself gives the smallest int for what does not fit.
    static Ints Round(Doubles v) {
        constexpr int kThirdChoosesFirstOrSecond = 0xE4;
        const __m512i signMask = _mm512_set1_epi64(INT64_MIN);
        const __m512i half = _mm512_castpd_si512(_mm512_set1_pd(0.5));
        const __m512i signedHalf =
            _mm512_ternarylogic_epi64(_mm512_castpd_si512(v), half, signMask, kThirdChoosesFirstOrSecond);
        return _mm512_cvttpd_epi32(_mm512_add_pd(v, _mm512_castsi512_pd(signedHalf)));
    }
    static Ints Eighths(Ints v) { return _mm256_slli_epi32(v, 3); }
    static void Store(Ints v, int32_t* p) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v); }
    static void StoreOne(Ints v, int32_t* p) {
        _mm_storel_epi64(reinterpret_cast<__m128i*>(p), _mm256_castsi256_si128(v));
    }
    static void StoreShort(Ints v, int16_t* p) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(p), _mm256_cvtepi32_epi16(v));
    }
    static void StoreShortOne(Ints v, int16_t* p) {
        const int both = _mm_cvtsi128_si32(_mm256_cvtepi32_epi16(v));
        std::memcpy(p, &both, sizeof both);
    }

    static void StreamLine(const unsigned char* from, unsigned char* to) {
        _mm512_stream_si512(reinterpret_cast<__m512i*>(to), _mm512_loadu_si512(from));
    }
    static void Fence() { _mm_sfence(); }

    struct ModelGroup {
        static constexpr size_t kPoints = 4;
        using Number = double;
        Doubles p;

        template <class Map>
        static ModelGroup Of(const Map& map, const double* in) {
            return {map(Load(in))};
        }
        template <class Map>
        static ModelGroup OfOne(const Map& map, const double* in) {
            return {map(LoadOne(in))};
        }
        unsigned Changes(ModelGroup before) const {
            const __m512i previous = _mm512_alignr_epi64(_mm512_castpd_si512(p), _mm512_castpd_si512(before.p), 6);
            const unsigned differs = _mm512_cmp_pd_mask(p, _mm512_castsi512_pd(previous), _CMP_NEQ_UQ);
            return _pext_u32(differs | differs >> 1, kOnePerPoint);
        }
        static size_t Count(unsigned kept) { return static_cast<size_t>(_mm_popcnt_u32(kept)); }
        void Keep(unsigned kept, Number* out) const {
            const auto lanes = static_cast<__mmask8>(3 * _pdep_u32(kept, kOnePerPoint));
            _mm512_storeu_pd(out, _mm512_maskz_compress_pd(lanes, p));
        }
        static void KeepCodes(unsigned kept, const uint32_t* codes, uint32_t* out) {
            const __m128i all = _mm_loadu_si128(reinterpret_cast<const __m128i*>(codes));
            const __m128i packed = _mm_maskz_compress_epi32(static_cast<__mmask8>(kept), all);
            _mm_storeu_si128(reinterpret_cast<__m128i*>(out), packed);
        }

    private:
        static constexpr unsigned kOnePerPoint = 0x55;
    };

    struct DeviceGroup {
        static constexpr size_t kPoints = 8;
        using Number = int32_t;
        __m512i p;

        template <class Map>
        static DeviceGroup Of(const Map& map, const double* in) {
            const Ints lower = Round(map(Load(in)));
            const Ints upper = Round(map(Load(in + 8)));
            return {_mm512_inserti64x4(_mm512_castsi256_si512(lower), upper, 1)};
        }
        template <class Map>
        static DeviceGroup OfOne(const Map& map, const double* in) {
            return {_mm512_broadcast_i64x4(Round(map(LoadOne(in))))};
        }
        unsigned Changes(DeviceGroup before) const {
            return _mm512_cmpneq_epi64_mask(p, _mm512_alignr_epi64(p, before.p, 7));
        }
        static size_t Count(unsigned kept) { return static_cast<size_t>(_mm_popcnt_u32(kept)); }
        void Keep(unsigned kept, Number* out) const {
            _mm512_storeu_si512(out, _mm512_maskz_compress_epi64(static_cast<__mmask8>(kept), p));
        }
        static void KeepCodes(unsigned kept, const uint32_t* codes, uint32_t* out) {
            const __m256i all = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(codes));
            const __m256i packed = _mm256_maskz_compress_epi32(static_cast<__mmask8>(kept), all);
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(out), packed);
        }
    };

private:
    static Doubles Repeated(__m128d point) { return _mm512_castps_pd(_mm512_broadcast_f32x4(_mm_castpd_ps(point))); }
};

}  // namespace

constinit const PointKernels kAvx512PointKernels = MakePointKernels<Avx512Lanes>();

}  // namespace Vellum::internal
