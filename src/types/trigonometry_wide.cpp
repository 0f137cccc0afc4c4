// SPDX-License-Identifier: MIT

// Sine and cosine in pairs of doubles, for systems whose own have the x87's: that knows pi to 66 bits, so that what
// comes out near a multiple of pi, where the result is close to 0, has few digits that are right. The x87 itself is not
// used here: how it rounds is up to the host.

#include <cmath>

#include "types/trigonometry.h"

namespace Vellum::internal {

namespace {

// Up to here a whole number of quarter-turns times a part of pi is exact.
constexpr double kLargestAngle = 0x1p20;

// An angle up to here is its own sine.
constexpr double kSmallestAngle = 0x1p-27;

constexpr double kQuarterTurnsPerRadian = 0.6366197723675814;

// pi / 2, in parts of 33 bits each and the rest.
constexpr double kQuarterTurn[] = {0x1.921fb544p+0, 0x1.0b4611a6p-34, 0x1.3198a2ep-69, 0x1.b839a252049c1p-104};

// As many as change the result.
constexpr int kTerms = 11;

/// A number of twice a double's digits: the nearest double and what is left.
struct Wide {
    double high;
    double low;
};

/// The sum of a number and a smaller one.
Wide OrderedSum(double a, double b) {
    const double sum = a + b;
    return {sum, b - (sum - a)};
}

Wide Sum(double a, double b) {
    const double sum = a + b;
    const double shareOfB = sum - a;
    return {sum, (a - (sum - shareOfB)) + (b - shareOfB)};
}

Wide Sum(const Wide& a, double b) {
    const Wide sum = Sum(a.high, b);
    return OrderedSum(sum.high, sum.low + a.low);
}

/// The upper half of the digits. Two of them have an exact product.
double UpperHalf(double a) {
    const double shifted = a * 0x1.0000002p27;
    return shifted - (shifted - a);
}

Wide Product(double a, double b) {
    const double upperA = UpperHalf(a);
    const double upperB = UpperHalf(b);
    const double lowerA = a - upperA;
    const double lowerB = b - upperB;
    const double product = a * b;
    return {product, ((upperA * upperB - product) + upperA * lowerB + lowerA * upperB) + lowerA * lowerB};
}

Wide Product(const Wide& a, const Wide& b) {
    const Wide product = Product(a.high, b.high);
    return OrderedSum(product.high, product.low + (a.high * b.low + a.low * b.high));
}

Wide Quotient(const Wide& a, double divisor) {
    const double quotient = a.high / divisor;
    const Wide back = Product(quotient, divisor);
    return OrderedSum(quotient, ((a.high - back.high) - back.low + a.low) / divisor);
}

Wide Negative(const Wide& a) { return {-a.high, -a.low}; }

/// An angle as a number of quarter-turns and what is left, which is at most half of one.
struct Reduced {
    int quarterTurns;
    Wide rest;
};

Reduced Reduce(double angle) {
    const double turns = std::floor(angle * kQuarterTurnsPerRadian + 0.5);
    Wide rest = {angle, 0.0};
    for (const double part : kQuarterTurn) {
        rest = Sum(rest, -turns * part);
    }
    return {static_cast<int>(turns) & 3, rest};
}

/// 1 - x^2 / (n (n + 1)) (1 - x^2 / ((n + 2) (n + 3)) (1 - ...)).
Wide Series(const Wide& x, int n) {
    const Wide square = Product(x, x);
    Wide sum = {1.0, 0.0};
    for (int i = n + 2 * (kTerms - 1); i >= n; i -= 2) {
        sum = Sum(Negative(Quotient(Product(square, sum), static_cast<double>(i * (i + 1)))), 1.0);
    }
    return sum;
}

/// The sine of an angle that was reduced, with so many quarter-turns added.
double SineOf(const Reduced& angle, int quarterTurns) {
    const int turns = (angle.quarterTurns + quarterTurns) & 3;
    const Wide sine = (turns & 1) != 0 ? Series(angle.rest, 1) : Product(angle.rest, Series(angle.rest, 2));
    return (turns & 2) != 0 ? -sine.high : sine.high;
}

}  // namespace

double Sine(double angle) {
    if (std::fabs(angle) <= kSmallestAngle) return angle;
    return std::fabs(angle) <= kLargestAngle ? SineOf(Reduce(angle), 0) : std::sin(angle);
}

double Cosine(double angle) { return std::fabs(angle) <= kLargestAngle ? SineOf(Reduce(angle), 1) : std::cos(angle); }

}  // namespace Vellum::internal
