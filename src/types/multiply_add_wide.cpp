// SPDX-License-Identifier: MIT

// For systems whose own fma is computed in the x87's registers, which have not the digits for it.

#include <bit>

#include "types/multiply_add.h"

namespace Vellum::internal {

namespace {

__extension__ using Wide = __float128;
__extension__ using WideBits = unsigned __int128;

/// a + b, rounded to the neighbour whose last digit is odd, where it is between two numbers. So a further rounding to
/// fewer digits goes the way that it would have gone from the exact sum.
Wide SumRoundedToOdd(Wide a, Wide b) {
    const Wide sum = a + b;
    const Wide shareOfB = sum - a;
    const Wide lost = (a - (sum - shareOfB)) + (b - shareOfB);
    // Of sums that are not finite nothing is lost that could be added.
    const bool isMore = lost > 0;
    if (!isMore && !(lost < 0)) return sum;
    const auto bits = std::bit_cast<WideBits>(sum);
    if ((bits & 1) != 0) return sum;
    return std::bit_cast<Wide>(isMore == (sum > 0) ? bits + 1 : bits - 1);
}

}  // namespace

double MultiplyAdd(double a, double b, double c) {
    // The product is exact: it has at most 106 digits, and there are 113.
    return static_cast<double>(SumRoundedToOdd(Wide{a} * Wide{b}, Wide{c}));
}

}  // namespace Vellum::internal
