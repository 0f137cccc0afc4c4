// SPDX-License-Identifier: MIT
#ifndef VELLUM_ROUNDING_H
#define VELLUM_ROUNDING_H

/// @file
/// Keeps inlined formulas bit for bit what they are inside the library.

namespace Vellum::internal {

/// Passes a product on as a value of its own. A host may be compiled with fused multiply-add; a product that goes
/// through here is rounded before anything is added to it, so an inlined member gives the same bits in every host.
///
/// An empty asm stands between the two operations: no compiler looks through one, whereas the barriers that compilers
/// offer for the purpose give way to -ffp-contract=fast or to vectorisation. It costs no instruction. It is there
/// without -mfma too, since a single function of a host may be compiled for processors that fuse.
inline double Rounded(double product) {
#if defined(__GNUC__) && defined(__SSE2__)
    __asm__("" : "+x"(product));
#elif defined(__GNUC__) && defined(__aarch64__)
    __asm__("" : "+w"(product));
#elif defined(__GNUC__) && !defined(__i386__)
    __asm__("" : "+m"(product));
#endif
    return product;
}

}  // namespace Vellum::internal

#endif
