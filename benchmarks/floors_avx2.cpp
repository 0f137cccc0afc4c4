// SPDX-License-Identifier: MIT
#include <immintrin.h>

#include "floors_impl.h"
#include "floors_x86.h"

namespace VellumBench {
namespace {

struct Avx2 {
    using Vector = __m256i;

    static Vector Load(const char* from) { return _mm256_loadu_si256(reinterpret_cast<const Vector*>(from)); }
    static void Store(char* to, Vector v) { _mm256_store_si256(reinterpret_cast<Vector*>(to), v); }
    static void Stream(char* to, Vector v) { _mm256_stream_si256(reinterpret_cast<Vector*>(to), v); }
    static Vector Add(Vector a, Vector b) { return _mm256_add_epi64(a, b); }
    static Vector FlipSigns(Vector v) { return _mm256_xor_si256(v, _mm256_set1_epi64x(INT64_MIN)); }
    static void Use(Vector v) { asm volatile("" : : "x"(v)); }
    static void Fence() { _mm_sfence(); }
};

}  // namespace

constinit const Floors kFloorsAvx2 = FloorPasses<Avx2>::All();

}  // namespace VellumBench
