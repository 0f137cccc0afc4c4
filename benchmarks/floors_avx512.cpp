// SPDX-License-Identifier: MIT
#include <immintrin.h>

#include "floors_impl.h"
#include "floors_x86.h"

namespace VellumBench {
namespace {

struct Avx512 {
    using Vector = __m512i;

    static Vector Load(const char* from) { return _mm512_loadu_si512(from); }
    static void Store(char* to, Vector v) { _mm512_store_si512(to, v); }
    static void Stream(char* to, Vector v) { _mm512_stream_si512(reinterpret_cast<Vector*>(to), v); }
    static Vector Add(Vector a, Vector b) { return _mm512_add_epi64(a, b); }
    static Vector FlipSigns(Vector v) { return _mm512_xor_si512(v, _mm512_set1_epi64(INT64_MIN)); }
    static void Use(Vector v) { asm volatile("" : : "v"(v)); }
    static void Fence() { _mm_sfence(); }
};

}  // namespace

constinit const Floors kFloorsAvx512 = FloorPasses<Avx512>::All();

}  // namespace VellumBench
