// SPDX-License-Identifier: MIT
#ifndef VELLUM_ROUNDING_H
#define VELLUM_ROUNDING_H

/// @file
/// Keeps inlined formulas bit for bit what they are inside the library.

namespace Vellum::internal {

/// Passes a product on as a value of its own. A host may be compiled with fused multiply-add; a product that goes
/// through here is rounded before anything is added to it, so an inlined member gives the same bits in every host.
///
/// On x86 with SSE2 and on AArch64, under GCC and Clang, an empty asm stands between the two operations: no compiler
/// looks through one, whereas the barriers that compilers offer for the purpose give way to -ffp-contract=fast or to
/// vectorisation. It costs no instruction. It is there without -mfma too, since a single function of a host may be
/// compiled for processors that fuse. Every other host goes through memory, which rounds as well but costs a store and
/// a load. Not covered are hosts that compute in x87 registers, since they keep sums in a wider format too, and those
/// compiled with -ffast-math.
inline double Rounded(double product) {
#if defined(__GNUC__) && defined(__SSE2__)
    __asm__("" : "+x"(product));
    return product;
#elif defined(__GNUC__) && defined(__aarch64__)
    __asm__("" : "+w"(product));
    return product;
#else
    const volatile double stored = product;
    return stored;
#endif
}

}  // namespace Vellum::internal

#endif
