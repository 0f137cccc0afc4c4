// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_SUPPORT_RANDOM_NUMBERS_H
#define VELLUM_TESTS_SUPPORT_RANDOM_NUMBERS_H

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>

namespace support {

/// Random numbers that a seed determines, with every standard library the same ones.
class RandomNumbers {
public:
    explicit RandomNumbers(uint64_t seed) : engine(seed) {}

    /// A whole number from 0 to one less than `n`.
    size_t Below(size_t n) { return static_cast<size_t>(engine() % n); }

    /// A whole number from `least` to `most`.
    int Between(int least, int most) { return least + static_cast<int>(Below(static_cast<size_t>(most - least + 1))); }

    bool OneIn(size_t n) { return Below(n) == 0; }

    /// A number from 0 to 1.
    double Unit() { return std::ldexp(static_cast<double>(engine() >> 11), -53); }

    double Within(double least, double most) { return least + Unit() * (most - least); }

    /// One of some values.
    template <class T, size_t kCount>
    const T& OneOf(const T (&values)[kCount]) {
        return values[Below(kCount)];
    }

private:
    std::mt19937_64 engine;
};

}  // namespace support

#endif
