// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_GOLDEN_DIGEST_H
#define VELLUM_TESTS_GOLDEN_DIGEST_H

#include <bit>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "vellum/points.h"
#include "vellum/records.h"
#include "vellum/rectangles.h"

namespace golden {

/// A hash of results, bit for bit. Any NaN is as good as any other; the two zeros are different numbers.
class Digest {
public:
    template <class... Results>
    void Add(const Results&... results) {
        (AddOne(results), ...);
    }

    template <class Result>
    void AddAll(const Result* results, size_t count) {
        for (size_t i = 0; i < count; ++i)
            AddOne(results[i]);
    }

    uint64_t Value() const { return hash_; }

private:
    void AddOne(double v) { Mix(std::isnan(v) ? kAnyNan : std::bit_cast<uint64_t>(v)); }

    template <class Whole>
    requires std::integral<Whole> || std::is_enum_v<Whole>
    void AddOne(Whole v) { Mix(static_cast<uint64_t>(static_cast<int64_t>(v))); }

    void AddOne(const Vellum::DblPt& p) { Add(p.x, p.y); }
    void AddOne(const Vellum::real_pt_t& p) { Add(p.x, p.y); }
    void AddOne(const Vellum::IntPt& p) { Add(p.x, p.y); }
    void AddOne(const Vellum::int_pt_t& p) { Add(p.x, p.y); }
    void AddOne(const Vellum::short_pt_t& p) { Add(p.x, p.y); }
    void AddOne(const Vellum::real_rect_t& r) { Add(r.ll, r.ul, r.ur, r.lr); }
    void AddOne(const Vellum::int_rect_t& r) { Add(r.ll, r.ul, r.ur, r.lr); }
    void AddOne(const Vellum::AlignedDblRect& r) { Add(r.ll, r.ur); }
    void AddOne(const Vellum::DblRect& r) { Add(r.p0, r.p1, r.p2, r.p3); }

    /// The FNV-1a hash taken 64 bits at a time, with the high bits brought down: a product only carries upwards.
    void Mix(uint64_t word) {
        hash_ = (hash_ ^ word) * kPrime;
        hash_ ^= hash_ >> kHalf;
    }

    static constexpr uint64_t kAnyNan = 0x7ff8000000000000;
    static constexpr uint64_t kPrime = 0x100000001b3;
    static constexpr int kHalf = 32;
    uint64_t hash_ = 0xcbf29ce484222325;
};

}  // namespace golden

#endif
