// SPDX-License-Identifier: MIT
#include <immintrin.h>

#include "xfm/point_kernels_impl.h"

namespace Vellum::internal {

namespace {

/// For each set of points to keep out of four, where their coordinates stand.
alignas(32) constexpr int32_t kKeptCoordinates[16][8] = {
    {0, 0, 0, 0, 0, 0, 0, 0}, {0, 1, 0, 0, 0, 0, 0, 0}, {2, 3, 0, 0, 0, 0, 0, 0}, {0, 1, 2, 3, 0, 0, 0, 0},
    {4, 5, 0, 0, 0, 0, 0, 0}, {0, 1, 4, 5, 0, 0, 0, 0}, {2, 3, 4, 5, 0, 0, 0, 0}, {0, 1, 2, 3, 4, 5, 0, 0},
    {6, 7, 0, 0, 0, 0, 0, 0}, {0, 1, 6, 7, 0, 0, 0, 0}, {2, 3, 6, 7, 0, 0, 0, 0}, {0, 1, 2, 3, 6, 7, 0, 0},
    {4, 5, 6, 7, 0, 0, 0, 0}, {0, 1, 4, 5, 6, 7, 0, 0}, {2, 3, 4, 5, 6, 7, 0, 0}, {0, 1, 2, 3, 4, 5, 6, 7}};

/// Two points in a vector of four doubles.
struct Avx2Lanes {
    static constexpr size_t kPoints = 2;
    static constexpr bool kStreams = true;

    using Doubles = __m256d;
    using Ints = __m128i;

    static Doubles Load(const double* p) { return _mm256_loadu_pd(p); }
    static Doubles LoadOne(const double* p) { return _mm256_broadcast_pd(reinterpret_cast<const __m128d*>(p)); }
    static void Store(Doubles v, double* p) { _mm256_storeu_pd(p, v); }
    static void StoreOne(Doubles v, double* p) { _mm_storeu_pd(p, _mm256_castpd256_pd128(v)); }
    static Doubles Pair(double x, double y) { return _mm256_setr_pd(x, y, x, y); }
    static Doubles Exchanged(Doubles v) { return _mm256_permute_pd(v, 0x5); }
    static Doubles Add(Doubles a, Doubles b) { return _mm256_add_pd(a, b); }
    static Doubles Multiply(Doubles a, Doubles b) { return _mm256_mul_pd(a, b); }
    static Doubles Min(Doubles v, Doubles acc) { return _mm256_min_pd(v, acc); }
    static Doubles Max(Doubles v, Doubles acc) { return _mm256_max_pd(v, acc); }

    /// The conversion itself gives the smallest int for what does not fit.
    static Ints Round(Doubles v) {
        const Doubles half = _mm256_or_pd(_mm256_and_pd(v, _mm256_set1_pd(-0.0)), _mm256_set1_pd(0.5));
        return _mm256_cvttpd_epi32(_mm256_add_pd(v, half));
    }
    static Ints Eighths(Ints v) { return _mm_slli_epi32(v, 3); }
    static void Store(Ints v, int32_t* p) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
    static void StoreOne(Ints v, int32_t* p) { _mm_storel_epi64(reinterpret_cast<__m128i*>(p), v); }
    static void StoreShort(Ints v, int16_t* p) { _mm_storel_epi64(reinterpret_cast<__m128i*>(p), LowHalves(v)); }
    static void StoreShortOne(Ints v, int16_t* p) {
        const int both = _mm_cvtsi128_si32(LowHalves(v));
        std::memcpy(p, &both, sizeof both);
    }

    static void StreamLine(const unsigned char* from, unsigned char* to) {
        for (size_t k = 0; k < kLineBytes; k += sizeof(__m256i)) {
            const __m256i part = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from + k));
            _mm256_stream_si256(reinterpret_cast<__m256i*>(to + k), part);
        }
    }
    static void Fence() { _mm_sfence(); }

    struct ModelGroup {
        static constexpr size_t kPoints = 2;
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
            const Doubles previous = _mm256_permute2f128_pd(before.p, p, 0x21);
            const Doubles differs = _mm256_cmp_pd(p, previous, _CMP_NEQ_UQ);
            const Doubles eitherDiffers = _mm256_or_pd(differs, _mm256_permute_pd(differs, 0x5));
            const auto mask = static_cast<unsigned>(_mm256_movemask_pd(eitherDiffers));
            return (mask & 1U) | (mask >> 2 << 1 & 2U);
        }
        static size_t Count(unsigned kept) { return (kept & 1) + (kept >> 1); }
        void Keep(unsigned kept, Number* out) const {
            StoreOne(p, out);
            _mm_storeu_pd(out + 2 * Count(kept & 1), _mm256_extractf128_pd(p, 1));
        }
        static void KeepCodes(unsigned kept, const uint32_t* codes, uint32_t* out) {
            KeepCodesInTurn<ModelGroup>(kept, codes, out);
        }
    };

    struct DeviceGroup {
        static constexpr size_t kPoints = 4;
        using Number = int32_t;
        __m256i p;

        template <class Map>
        static DeviceGroup Of(const Map& map, const double* in) {
            return {_mm256_set_m128i(Round(map(Load(in + 4))), Round(map(Load(in))))};
        }
        template <class Map>
        static DeviceGroup OfOne(const Map& map, const double* in) {
            return {_mm256_broadcastsi128_si256(Round(map(LoadOne(in))))};
        }
        unsigned Changes(DeviceGroup before) const {
            const __m256i straddling = _mm256_permute2x128_si256(before.p, p, 0x21);
            const __m256i previous = _mm256_alignr_epi8(p, straddling, 8);
            const __m256i equal = _mm256_cmpeq_epi64(p, previous);
            return ~static_cast<unsigned>(_mm256_movemask_pd(_mm256_castsi256_pd(equal))) & 15U;
        }
        static size_t Count(unsigned kept) { return static_cast<size_t>(_mm_popcnt_u32(kept)); }
        void Keep(unsigned kept, Number* out) const {
            const __m256i order = _mm256_load_si256(reinterpret_cast<const __m256i*>(kKeptCoordinates[kept]));
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(out), _mm256_permutevar8x32_epi32(p, order));
        }
        static void KeepCodes(unsigned kept, const uint32_t* codes, uint32_t* out) {
            KeepCodesInTurn<DeviceGroup>(kept, codes, out);
        }
    };

private:
    static Ints LowHalves(Ints v) {
        return _mm_shuffle_epi8(v, _mm_setr_epi8(0, 1, 4, 5, 8, 9, 12, 13, -1, -1, -1, -1, -1, -1, -1, -1));
    }
};

}  // namespace

constinit const PointKernels kAvx2PointKernels = MakePointKernels<Avx2Lanes>();

}  // namespace Vellum::internal
