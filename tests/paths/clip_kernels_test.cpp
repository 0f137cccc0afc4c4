// SPDX-License-Identifier: MIT

// The kernels of every instruction set against loops over single points, for all the counts of a block and arrays at
// all alignments that they may have. Arrays end where the points end, so that a checked build sees what is read too
// far.

#include "paths/clip_kernels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "support/random_numbers.h"

namespace {

using support::RandomNumbers;
using Vellum::real_pt_t;
using Vellum::internal::ActiveClipKernels;
using Vellum::internal::BandTest;
using Vellum::internal::BestInstructionSet;
using Vellum::internal::Bounds;
using Vellum::internal::ClipKernels;
using Vellum::internal::ClipKernelsFor;
using Vellum::internal::EdgeBits;
using Vellum::internal::EdgeLimits;
using Vellum::internal::InstructionSet;
using Vellum::internal::IsOffered;
using Vellum::internal::kClipBlockPoints;
using Vellum::internal::ViewBits;
using Vellum::internal::ViewTest;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kSpecial[] = {kNan, -kNan, kInfinity, -kInfinity, 0.0, -0.0, 5e-324, -1.7e308};

struct Tier {
    std::string name;
    InstructionSet needs;
    const ClipKernels* kernels;
};

std::ostream& operator<<(std::ostream& out, const Tier& tier) { return out << tier.name; }

std::vector<Tier> Tiers() {
    return {
        {"Plain", InstructionSet::Plain, &Vellum::internal::kClipKernelsPlain},
#if defined(__x86_64__)
            {"Sse2", InstructionSet::Sse2, &Vellum::internal::kClipKernelsSse2},
            {"Avx2", InstructionSet::Avx2, &Vellum::internal::kClipKernelsAvx2},
            {"Avx512", InstructionSet::Avx512, &Vellum::internal::kClipKernelsAvx512},
#endif
    };
}

/// Points that begin a number of doubles after the beginning of an allocation.
class Points {
public:
    Points(size_t count, size_t offset) : offset_(offset), numbers_(offset + 2 * count) {}

    size_t Count() const { return (numbers_.size() - offset_) / 2; }
    const real_pt_t* Data() const { return reinterpret_cast<const real_pt_t*>(numbers_.data() + offset_); }
    real_pt_t& operator[](size_t i) { return reinterpret_cast<real_pt_t*>(numbers_.data() + offset_)[i]; }
    const real_pt_t& operator[](size_t i) const { return Data()[i]; }

private:
    size_t offset_;
    std::vector<double> numbers_;
};

enum class Numbers { Grid, Plane, Mixed, AllNan };
constexpr Numbers kAllNumbers[] = {Numbers::Grid, Numbers::Plane, Numbers::Mixed, Numbers::AllNan};

double RandomNumber(Numbers numbers, RandomNumbers& random) {
    switch (numbers) {
        case Numbers::Grid:
            return random.Between(-3, 3);
        case Numbers::Plane:
            return random.Within(-10, 10);
        case Numbers::Mixed:
            return random.OneIn(4) ? random.OneOf(kSpecial) : random.Between(-3, 3);
        default:
            return random.OneIn(2) ? kNan : -kNan;
    }
}

Points RandomPoints(size_t count, Numbers numbers, RandomNumbers& random) {
    Points points(count, random.Below(8));
    for (size_t i = 0; i < count; ++i)
        points[i] = {RandomNumber(numbers, random), RandomNumber(numbers, random)};
    return points;
}

/// The bits of the points for which something holds.
template <class Condition>
uint64_t BitsOf(const Points& points, Condition condition) {
    uint64_t bits = 0;
    for (size_t i = 0; i < points.Count(); ++i)
        bits |= uint64_t{condition(points[i])} << i;
    return bits;
}

double MeasureOf(const real_pt_t& p, const ViewTest& test, const BandTest& band) {
    return (p.y - test.y) * band.dx - (p.x - test.x) * band.dy;
}

class ClipKernelsTest : public testing::TestWithParam<Tier> {
protected:
    void SetUp() override {
        if (!IsOffered(GetParam().needs)) GTEST_SKIP() << "this processor has none of it";
    }

    static const ClipKernels& Kernels() { return *GetParam().kernels; }

    static uint64_t Within(size_t count) { return count == 64 ? ~uint64_t{0} : (uint64_t{1} << count) - 1; }

    /// Calls `check(points, random)` for blocks of all counts and kinds of numbers.
    template <class Check>
    static void ForEachBlock(Check check) {
        for (const Numbers numbers : kAllNumbers) {
            for (size_t count = 1; count <= kClipBlockPoints; ++count) {
                for (uint64_t seed = 0; seed < 24; ++seed) {
                    RandomNumbers random(100 * count + seed);
                    const Points points = RandomPoints(count, numbers, random);
                    check(points, random);
                    if (testing::Test::HasFailure()) {
                        FAIL() << "numbers " << int(numbers) << ", " << count << " points, seed " << seed;
                    }
                }
            }
        }
    }
};

TEST_P(ClipKernelsTest, EndCodes) {
    constexpr uint32_t kCodes[] = {0, 1, 2, 3, 4, 5, 6, 7, 0x80000002, 0x80000003, 0xFFFFFFFE, 0xFFFFFFFF, 0x102, 2, 3};
    for (size_t count = 1; count <= kClipBlockPoints; ++count) {
        for (uint64_t seed = 0; seed < 100; ++seed) {
            RandomNumbers random(100 * count + seed);
            const size_t offset = random.Below(16);
            std::vector<uint32_t> codes(offset + count);
            uint64_t expected = 0;
            for (size_t i = 0; i < count; ++i) {
                const uint32_t code = random.OneOf(kCodes);
                codes[offset + i] = code;
                expected |= uint64_t{code == 2 || code == 3} << i;
            }
            ASSERT_EQ(Kernels().endCodes(codes.data() + offset, count) & Within(count), expected)
                << count << " codes, seed " << seed;
        }
    }
}

void CheckBounds(const ClipKernels& kernels, const Points& points) {
    Bounds expected{kInfinity, kInfinity, -kInfinity, -kInfinity, false};
    for (size_t i = 0; i < points.Count(); ++i) {
        const real_pt_t& p = points[i];
        expected.hasNan = expected.hasNan || std::isnan(p.x) || std::isnan(p.y);
        if (p.x < expected.minX) expected.minX = p.x;
        if (p.y < expected.minY) expected.minY = p.y;
        if (p.x > expected.maxX) expected.maxX = p.x;
        if (p.y > expected.maxY) expected.maxY = p.y;
    }
    const Bounds box = kernels.boundsOf(points.Data(), points.Count());
    EXPECT_EQ(box.minX, expected.minX);
    EXPECT_EQ(box.minY, expected.minY);
    EXPECT_EQ(box.maxX, expected.maxX);
    EXPECT_EQ(box.maxY, expected.maxY);
    EXPECT_EQ(box.hasNan, expected.hasNan);
}

TEST_P(ClipKernelsTest, BoundsOfABlock) {
    ForEachBlock([](const Points& points, RandomNumbers&) { CheckBounds(Kernels(), points); });
}

TEST_P(ClipKernelsTest, BoundsOfMany) {
    for (const size_t count : {65u, 66u, 67u, 99u, 1000u, 1001u, 1002u, 1003u, 4097u}) {
        for (const Numbers numbers : kAllNumbers) {
            RandomNumbers random(count);
            CheckBounds(Kernels(), RandomPoints(count, numbers, random));
        }
    }
}

// Each bound and each NaN is found wherever it stands.
TEST_P(ClipKernelsTest, BoundsAndNanAtEveryPlace) {
    for (size_t count = 1; count <= 20; ++count) {
        for (size_t at = 0; at < count; ++at) {
            for (const double value : {-9.0, 9.0, -kInfinity, kInfinity, kNan}) {
                for (const bool isX : {true, false}) {
                    Points points(count, at % 2);
                    (isX ? points[at].x : points[at].y) = value;
                    CheckBounds(Kernels(), points);
                    ASSERT_FALSE(HasFailure()) << value << " at " << at << " of " << count;
                }
            }
        }
    }
}

/// A band and limits that some of the points meet exactly.
BandTest RandomBand(const ViewTest& test, const Points& points, Numbers directions, RandomNumbers& random) {
    BandTest band{RandomNumber(directions, random), RandomNumber(directions, random), 0, 0, 0};
    const auto limit = [&] {
        const double size = std::fabs(MeasureOf(points[random.Below(points.Count())], test, band));
        switch (random.Below(5)) {
            case 0:
                return std::nextafter(size, 0.0);
            case 1:
                return std::nextafter(size, kInfinity);
            case 2:
                return random.OneIn(2) ? kNan : kInfinity;
            default:
                return size;
        }
    };
    band.inner = limit();
    band.outer = limit();
    band.far = limit();
    return band;
}

TEST_P(ClipKernelsTest, Classify) {
    ForEachBlock([](const Points& points, RandomNumbers& random) {
        const Numbers directions = random.OneIn(2) ? Numbers::Grid : Numbers::Plane;
        ViewTest test{RandomNumber(directions, random), RandomNumber(directions, random), {}, {}};
        test.across = RandomBand(test, points, directions, random);
        test.along = RandomBand(test, points, directions, random);
        const auto isCore = [&test](const real_pt_t& p) {
            return std::fabs(MeasureOf(p, test, test.across)) < test.across.inner &&
                   std::fabs(MeasureOf(p, test, test.along)) < test.along.inner;
        };
        const auto above = [&test](const BandTest& band) {
            return [&test, &band](const real_pt_t& p) {
                const double u = MeasureOf(p, test, band);
                return std::fabs(u) > band.outer && !std::signbit(u);
            };
        };
        const auto below = [&test](const BandTest& band) {
            return [&test, &band](const real_pt_t& p) {
                const double u = MeasureOf(p, test, band);
                return std::fabs(u) > band.outer && std::signbit(u);
            };
        };
        const auto isFar = [&test](const real_pt_t& p) {
            return std::fabs(MeasureOf(p, test, test.across)) > test.across.far ||
                   std::fabs(MeasureOf(p, test, test.along)) > test.along.far;
        };
        ViewBits bits{1, 2, 3, 4, 5, random.OneIn(2)};
        Kernels().classify(points.Data(), points.Count(), test, bits);
        const uint64_t within = Within(points.Count());
        EXPECT_EQ(bits.core & within, BitsOf(points, isCore));
        EXPECT_EQ(bits.aboveAcross & within, BitsOf(points, above(test.across)));
        EXPECT_EQ(bits.belowAcross & within, BitsOf(points, below(test.across)));
        EXPECT_EQ(bits.aboveAlong & within, BitsOf(points, above(test.along)));
        EXPECT_EQ(bits.belowAlong & within, BitsOf(points, below(test.along)));
        EXPECT_EQ(bits.reachesFar, BitsOf(points, isFar) != 0);
    });
}

TEST_P(ClipKernelsTest, Compare) {
    ForEachBlock([](const Points& points, RandomNumbers& random) {
        const auto limit = [&](double coordinate) { return random.OneIn(4) ? random.OneOf(kSpecial) : coordinate; };
        const auto point = [&] { return points[random.Below(points.Count())]; };
        const EdgeLimits limits{limit(point().x), limit(point().x), limit(point().y), limit(point().y)};
        EdgeBits bits{1, 2, 3, 4};
        Kernels().compare(points.Data(), points.Count(), limits, bits);
        const uint64_t within = Within(points.Count());
        EXPECT_EQ(bits.left & within, BitsOf(points, [&](const real_pt_t& p) { return p.x < limits.left; }));
        EXPECT_EQ(bits.right & within, BitsOf(points, [&](const real_pt_t& p) { return p.x > limits.right; }));
        EXPECT_EQ(bits.below & within, BitsOf(points, [&](const real_pt_t& p) { return p.y < limits.below; }));
        EXPECT_EQ(bits.above & within, BitsOf(points, [&](const real_pt_t& p) { return p.y > limits.above; }));
    });
}

TEST_P(ClipKernelsTest, HigherThan) {
    ForEachBlock([](const Points& points, RandomNumbers& random) {
        const double y = random.OneIn(4) ? random.OneOf(kSpecial) : points[random.Below(points.Count())].y;
        EXPECT_EQ(Kernels().higherThan(points.Data(), points.Count(), y) & Within(points.Count()),
                  BitsOf(points, [y](const real_pt_t& p) { return p.y > y; }));
    });
}

INSTANTIATE_TEST_SUITE_P(EveryInstructionSet, ClipKernelsTest, testing::ValuesIn(Tiers()),
                         [](const auto& tier) { return tier.param.name; });

TEST(ClipKernels, TheBestInstructionSetIsUsed) {
    for (const Tier& tier : Tiers())
        EXPECT_EQ(&ActiveClipKernels() == tier.kernels, tier.needs == BestInstructionSet()) << tier;
}

TEST(ClipKernels, ThereIsATableForWhatIsBuiltIn) {
    const bool isPlainBuiltIn = BestInstructionSet() == InstructionSet::Plain;
    for (const Tier& tier : Tiers()) {
        const bool isBuiltIn = tier.needs != InstructionSet::Plain || isPlainBuiltIn;
        EXPECT_EQ(ClipKernelsFor(tier.needs), isBuiltIn ? tier.kernels : nullptr) << tier;
    }
}

}  // namespace
