// SPDX-License-Identifier: MIT

// Every loop of every instruction set against the plain loops of the reference, bit for bit: over all small counts,
// over counts about the size of a block and of a streamed output, with every alignment that an array of the type may
// have.

#include "xfm/point_kernels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <limits>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include "reference/transforms.h"
#include "types/instruction_set.h"
#include "xfm/point_kernels_impl.h"

namespace {

using Vellum::Mtx2D;
using Vellum::internal::BestInstructionSet;
using Vellum::internal::ClassKernels;
using Vellum::internal::Extents;
using Vellum::internal::InstructionSet;
using Vellum::internal::IsOffered;
using Vellum::internal::kBlockPoints;
using Vellum::internal::KernelsFor;
using Vellum::internal::kStreamingBytes;
using Vellum::internal::Numbers;
using Vellum::internal::PointKernels;

struct Tier {
    std::string name;
    InstructionSet needs;
    const PointKernels* kernels;
};

std::ostream& operator<<(std::ostream& out, const Tier& tier) { return out << tier.name; }

std::vector<Tier> Tiers() {
    return {
        {"Plain", InstructionSet::Plain, &Vellum::internal::kPlainPointKernels},
#if defined(__x86_64__)
            {"Sse2", InstructionSet::Sse2, &Vellum::internal::kSse2PointKernels},
            {"Avx2", InstructionSet::Avx2, &Vellum::internal::kAvx2PointKernels},
            {"Avx512", InstructionSet::Avx512, &Vellum::internal::kAvx512PointKernels},
#endif
    };
}

template <class Number>
bool SameBits(Number a, Number b) {
    return a == b;
}

/// Any NaN is as good as any other.
bool SameBits(double a, double b) {
    if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
    return a == b && std::signbit(a) == std::signbit(b);
}

constexpr unsigned char kUntouched = 0xA5;
constexpr size_t kMargin = 256;

/// An array that a kernel writes or reads, `offset` numbers after a boundary of 64 bytes, between margins that must not
/// change.
template <class Number>
class GuardedArray {
public:
    GuardedArray(size_t count, size_t offset)
        : bytes(2 * kMargin + (count + offset) * sizeof(Number), kUntouched), size(count) {
        const size_t past = reinterpret_cast<uintptr_t>(bytes.data()) % 64;
        start = kMargin - past + offset * sizeof(Number);
    }

    Number* Data() { return reinterpret_cast<Number*>(bytes.data() + start); }

    /// Whether the array begins with `expected` and nothing but these numbers was written.
    template <class Point>
    testing::AssertionResult Holds(const std::vector<Point>& expected) {
        const Number* const numbers = Numbers(expected.data());
        const size_t count = 2 * expected.size();
        for (size_t k = 0; k < count; ++k) {
            if (!SameBits(Data()[k], numbers[k])) {
                return testing::AssertionFailure()
                       << "number " << k << " of " << count << " is " << +Data()[k] << " and not " << +numbers[k];
            }
        }
        return UntouchedBut(count);
    }

    testing::AssertionResult Holds(const std::vector<uint32_t>& expected) {
        for (size_t k = 0; k < expected.size(); ++k) {
            if (Data()[k] != expected[k]) return testing::AssertionFailure() << "code " << k;
        }
        return UntouchedBut(expected.size());
    }

    testing::AssertionResult Untouched() { return UntouchedBut(0); }

private:
    testing::AssertionResult UntouchedBut(size_t count) {
        const auto isWritten = [](unsigned char byte) { return byte != kUntouched; };
        const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(start);
        const auto end = begin + static_cast<std::ptrdiff_t>(count * sizeof(Number));
        if (std::any_of(bytes.begin(), begin, isWritten)) return testing::AssertionFailure() << "written before it";
        const auto stray = std::find_if(end, bytes.end(), isWritten);
        if (stray == bytes.end()) return testing::AssertionSuccess();
        return testing::AssertionFailure()
               << "written " << stray - end << " bytes past the " << count << " numbers, in an array of " << size;
    }

    std::vector<unsigned char> bytes;
    size_t size;
    size_t start;
};

/// Where the output of a kernel stands and where its input does, in numbers after a boundary of 64 bytes.
struct Offsets {
    size_t out;
    size_t in = 0;
};

GuardedArray<double> ArrayOf(const std::vector<real_pt_t>& points, size_t offset) {
    GuardedArray<double> array(2 * points.size(), offset);
    std::copy_n(Numbers(points.data()), 2 * points.size(), array.Data());
    return array;
}

class PointKernelsTest : public testing::TestWithParam<Tier> {
protected:
    void SetUp() override {
        if (!IsOffered(GetParam().needs)) GTEST_SKIP() << "this processor has none of it";
    }

    static const ClassKernels& Kernels(const Mtx2D& m) { return GetParam().kernels->ForType(m.type); }

    void CheckAll(const Mtx2D& m, const std::vector<real_pt_t>& points, const std::vector<uint32_t>& codes,
                  const Offsets& at) const {
        SCOPED_TRACE(testing::Message() << "type " << m.type << ", " << points.size() << " points, output offset "
                                        << at.out << ", input offset " << at.in);
        CheckArrays(m, points, at);
        CheckInPlace(m, points, at.out);
        CheckPolygons(m, points, codes, at);
    }

    void CheckArrays(const Mtx2D& m, const std::vector<real_pt_t>& points, const Offsets& at) const {
        CheckArray<double>(Kernels(m).toModel, m, points, reference::ToModel(m, points), at);
        CheckArray<int32_t>(Kernels(m).toDevice, m, points, reference::ToDevice(m, points), at);
        CheckArray<int32_t>(Kernels(m).toEighths, m, points, reference::ToEighths(m, points), at);
        CheckArray<int16_t>(Kernels(m).toShort, m, points, reference::ToShort(m, points), at);
    }

    void CheckInPlace(const Mtx2D& m, const std::vector<real_pt_t>& points, size_t offset) const {
        const std::vector<real_pt_t> expected = reference::ToModel(m, points);
        GuardedArray<double> array = ArrayOf(points, offset);
        const Extents extents = Kernels(m).inPlace(m, static_cast<int>(points.size()), array.Data());
        EXPECT_TRUE(array.Holds(expected));
        const reference::Box box = reference::ExtentsOf(expected);
        EXPECT_TRUE(SameBits(extents.xMin, box.xMin)) << extents.xMin << " " << box.xMin;
        EXPECT_TRUE(SameBits(extents.yMin, box.yMin)) << extents.yMin << " " << box.yMin;
        EXPECT_TRUE(SameBits(extents.xMax, box.xMax)) << extents.xMax << " " << box.xMax;
        EXPECT_TRUE(SameBits(extents.yMax, box.yMax)) << extents.yMax << " " << box.yMax;
    }

    void CheckPolygons(const Mtx2D& m, const std::vector<real_pt_t>& points, const std::vector<uint32_t>& codes,
                       const Offsets& at) const {
        CheckPolygon<double>(Kernels(m).polygonToModel, m, points, codes, reference::PolygonToModel(m, points, codes),
                             at);
        CheckPolygon<int32_t>(Kernels(m).polygonToDevice, m, points, codes,
                              reference::PolygonToDevice(m, points, codes), at);
    }

    template <class Number, class Kernel, class Point>
    static void CheckArray(Kernel kernel, const Mtx2D& m, const std::vector<real_pt_t>& points,
                           const std::vector<Point>& expected, const Offsets& at) {
        GuardedArray<double> in = ArrayOf(points, at.in);
        GuardedArray<Number> out(2 * points.size(), at.out);
        kernel(m, static_cast<int>(points.size()), in.Data(), out.Data());
        EXPECT_TRUE(out.Holds(expected));
    }

    template <class Number, class Kernel, class Point>
    static void CheckPolygon(Kernel kernel, const Mtx2D& m, const std::vector<real_pt_t>& points,
                             const std::vector<uint32_t>& codes, const reference::Polygon<Point>& expected,
                             const Offsets& at) {
        const int n = static_cast<int>(points.size());
        GuardedArray<double> in = ArrayOf(points, at.in);
        GuardedArray<Number> out(2 * points.size(), at.out);
        GuardedArray<uint32_t> outCodes(points.size(), at.out);
        const int count = kernel(m, n, in.Data(), out.Data(), {codes.data(), outCodes.Data()});
        EXPECT_EQ(size_t(count), expected.points.size());
        EXPECT_TRUE(out.Holds(expected.points));
        EXPECT_TRUE(outCodes.Holds(expected.codes));

        GuardedArray<Number> outWithoutCodes(2 * points.size(), at.out);
        const int same = kernel(m, n, in.Data(), outWithoutCodes.Data(), {});
        EXPECT_EQ(same, count);
        EXPECT_TRUE(outWithoutCodes.Holds(expected.points));
    }
};

INSTANTIATE_TEST_SUITE_P(EachInstructionSet, PointKernelsTest, testing::ValuesIn(Tiers()),
                         [](const auto& tier) { return tier.param.name; });

/// One of each class, and a general one marked as the identity.
std::vector<Mtx2D> Matrices(double scale, double tx, double ty) {
    Mtx2D aligned;
    aligned.SetXfm(0, 0, Vellum::Mtx2DOrientMirrorX, scale, 0.75 * scale, tx, ty);
    Mtx2D swapped;
    swapped.SetXfm(0, 0, Vellum::Mtx2DOrientRot90, scale, 0.75 * scale, tx, ty);
    Mtx2D general;
    general.Rotate(30, 2);
    general.Scale(scale, scale);
    general.Translate(tx, ty);
    Mtx2D marked;
    marked.SetIdentity();
    marked.Translate(tx, ty);
    return {aligned, swapped, general, marked};
}

/// Where the coordinates of a test come from.
enum class Source { SmallGrid, FewValues, Plane, Halves, AllSizes, Special };
constexpr Source kSources[] = {Source::SmallGrid, Source::FewValues, Source::Plane,
                               Source::Halves,    Source::AllSizes,  Source::Special};

class Coordinates {
public:
    Coordinates(Source kind, uint32_t seed) : source(kind), engine(seed) {}

    double Next() {
        constexpr double kInfinity = std::numeric_limits<double>::infinity();
        constexpr double kSpecial[] = {
            0.0,        -0.0,    1.0,    -1.0,         0.5,
            -0.5,       1e308,   -1e308, 2147483647.5, -2147483648.5,
            4e-320,     -4e-320, 5e9,    -5e9,         kInfinity,
            -kInfinity, 32768.,  3.5e38, -3.5e38,      std::numeric_limits<double>::quiet_NaN()};
        switch (source) {
            case Source::SmallGrid:
                return Integer(-3, 3);
            case Source::FewValues:
                return Integer(0, 1) * 0.3;
            case Source::Plane:
                return std::uniform_real_distribution<double>(-5000, 5000)(engine);
            case Source::Halves:
                return Integer(-200, 200) * 0.5;
            case Source::AllSizes:
                return std::ldexp(std::uniform_real_distribution<double>(-1, 1)(engine), int(Integer(-1080, 1023)));
            case Source::Special:
                break;
        }
        return kSpecial[size_t(Integer(0, int(std::size(kSpecial)) - 1))];
    }

    double Integer(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(engine); }

private:
    Source source;
    std::mt19937 engine;
};

std::vector<real_pt_t> Points(Source source, uint32_t seed, size_t count) {
    Coordinates coordinates(source, seed);
    std::vector<real_pt_t> points;
    while (points.size() < count) {
        const real_pt_t p{coordinates.Next(), coordinates.Next()};
        // One point in four is repeated.
        const double times = std::max(1.0, coordinates.Integer(-30, 10));
        points.insert(points.end(), std::min(count - points.size(), size_t(times)), p);
    }
    return points;
}

std::vector<uint32_t> Codes(uint32_t seed, size_t count) {
    std::mt19937 engine(seed);
    std::vector<uint32_t> codes(count);
    for (uint32_t& code : codes) {
        code = uint32_t(engine());
    }
    return codes;
}

TEST_P(PointKernelsTest, AllSmallCounts) {
    for (const Source source : kSources) {
        SCOPED_TRACE(testing::Message() << "source " << int(source));
        for (uint32_t count = 0; count <= 70; ++count) {
            for (const Mtx2D& m : Matrices(1.0, 0.0, 0.0)) {
                CheckAll(m, Points(source, count, count), Codes(count, count), {count % 16});
            }
        }
    }
}

TEST_P(PointKernelsTest, ManyRandomInputs) {
    for (uint32_t seed = 0; seed < 4000; ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        std::mt19937 engine(seed);
        const Source source = kSources[seed % std::size(kSources)];
        const size_t count = engine() % 150;
        const double scale = std::ldexp(1.0, int(engine() % 7) - 4);
        const double tx = double(engine() % 64) / 8 - 4;
        for (const Mtx2D& m : Matrices(scale, tx, -tx)) {
            CheckAll(m, Points(source, seed, count), Codes(seed, count), {engine() % 16, engine() % 8});
        }
    }
}

TEST_P(PointKernelsTest, CountsAboutTheBlockSize) {
    for (const Source source : kSources) {
        SCOPED_TRACE(testing::Message() << "source " << int(source));
        for (const size_t blocks : {size_t{1}, size_t{2}, size_t{3}}) {
            for (size_t count = blocks * kBlockPoints - 3; count <= blocks * kBlockPoints + 5; ++count) {
                for (const Mtx2D& m : Matrices(0.01, 0.25, 0.25)) {
                    CheckAll(m, Points(source, uint32_t(count), count), Codes(uint32_t(count), count), {count % 16});
                }
            }
        }
    }
}

// All is one point for whole blocks, until a second and a third come.
TEST_P(PointKernelsTest, FewPointsOutOfManyBlocks) {
    for (const size_t before : {size_t{1}, kBlockPoints - 1, kBlockPoints, kBlockPoints + 1, 3 * kBlockPoints}) {
        for (const size_t kept : {size_t{1}, size_t{2}, size_t{3}, size_t{4}, size_t{5}}) {
            for (const bool thereAndBack : {false, true}) {
                std::vector<real_pt_t> points(before, real_pt_t{1, 1});
                for (size_t k = 1; k < kept; ++k) {
                    const real_pt_t next{thereAndBack && k % 2 == 0 ? 1.0 : double(k + 1), 1};
                    points.insert(points.end(), kBlockPoints + k, next);
                }
                for (const Mtx2D& m : Matrices(1.0, 0.0, 0.0)) {
                    CheckPolygons(m, points, Codes(uint32_t(before), points.size()), {3});
                }
            }
        }
    }
}

TEST_P(PointKernelsTest, EveryAlignment) {
    for (const Mtx2D& m : Matrices(1.0, 0.0, 0.0)) {
        for (size_t out = 0; out < 32; ++out) {
            for (size_t in = 0; in < 8; ++in) {
                CheckAll(m, Points(Source::Plane, 5, 53), Codes(5, 53), {out, in});
            }
        }
    }
}

/// Counts about the one from which an output is streamed that takes so many bytes for each point.
std::vector<size_t> CountsAboutTheStreamingSize(size_t bytesPerPoint) {
    const size_t threshold = kStreamingBytes / bytesPerPoint;
    return {threshold - 1, threshold, threshold + kBlockPoints + 7};
}

TEST_P(PointKernelsTest, StreamedPoints) {
    const std::vector<Mtx2D> matrices = Matrices(1.0, 0.5, 0.5);
    size_t offset = 0;
    for (const size_t bytesPerPoint : {sizeof(real_pt_t), sizeof(int_pt_t), sizeof(short_pt_t)}) {
        for (const size_t count : CountsAboutTheStreamingSize(bytesPerPoint)) {
            const Mtx2D& m = matrices[++offset % matrices.size()];
            const std::vector<real_pt_t> points = Points(Source::Plane, uint32_t(count), count);
            if (bytesPerPoint == sizeof(real_pt_t)) {
                CheckArray<double>(Kernels(m).toModel, m, points, reference::ToModel(m, points), {offset});
            } else if (bytesPerPoint == sizeof(int_pt_t)) {
                CheckArray<int32_t>(Kernels(m).toDevice, m, points, reference::ToDevice(m, points), {offset});
                CheckArray<int32_t>(Kernels(m).toEighths, m, points, reference::ToEighths(m, points), {offset});
            } else {
                CheckArray<int16_t>(Kernels(m).toShort, m, points, reference::ToShort(m, points), {offset});
            }
        }
    }
}

TEST_P(PointKernelsTest, StreamedPolygons) {
    const std::vector<Mtx2D> matrices = Matrices(1.0, 0.5, 0.5);
    size_t offset = 0;
    for (const size_t bytesPerPoint : {sizeof(real_pt_t), sizeof(int_pt_t), sizeof(uint32_t)}) {
        for (const size_t count : CountsAboutTheStreamingSize(bytesPerPoint)) {
            const Mtx2D& m = matrices[++offset % matrices.size()];
            const std::vector<real_pt_t> points = Points(Source::Plane, uint32_t(count), count);
            CheckPolygons(m, points, Codes(uint32_t(count), count), {offset});
        }
    }
}

// What is streamed is decided by what may come; little may come in the end.
TEST_P(PointKernelsTest, StreamedPolygonsThatCollapse) {
    const size_t count = kStreamingBytes / sizeof(int_pt_t) + 100;
    for (const size_t kept : {size_t{1}, size_t{2}, size_t{3}, size_t{4}, size_t{9}}) {
        std::vector<real_pt_t> points;
        for (size_t k = 0; k < kept; ++k) {
            points.resize((k + 1) * count / kept, real_pt_t{double(k % 2), 7});
        }
        CheckPolygons(Mtx2D(), points, Codes(1, points.size()), {kept});
    }
}

TEST_P(PointKernelsTest, NegativeCountsTouchNothing) {
    for (const Mtx2D& m : Matrices(1.0, 0.0, 0.0)) {
        const ClassKernels& kernels = Kernels(m);
        GuardedArray<double> doubles(8, 0);
        GuardedArray<int32_t> ints(8, 0);
        GuardedArray<int16_t> shorts(8, 0);
        GuardedArray<uint32_t> codes(8, 0);
        for (const int n : {0, -1, std::numeric_limits<int>::min()}) {
            kernels.toModel(m, n, nullptr, doubles.Data());
            kernels.toDevice(m, n, nullptr, ints.Data());
            kernels.toEighths(m, n, nullptr, ints.Data());
            kernels.toShort(m, n, nullptr, shorts.Data());
            const Extents extents = kernels.inPlace(m, n, doubles.Data());
            EXPECT_EQ(extents.xMin, 3.4028234663852886e38);
            EXPECT_EQ(extents.yMin, 3.4028234663852886e38);
            EXPECT_EQ(extents.xMax, -3.4028234663852886e38);
            EXPECT_EQ(extents.yMax, -3.4028234663852886e38);
            EXPECT_EQ(kernels.polygonToModel(m, n, nullptr, doubles.Data(), {nullptr, codes.Data()}), 0);
            EXPECT_EQ(kernels.polygonToDevice(m, n, nullptr, ints.Data(), {nullptr, codes.Data()}), 0);
        }
        EXPECT_TRUE(doubles.Untouched());
        EXPECT_TRUE(ints.Untouched());
        EXPECT_TRUE(shorts.Untouched());
        EXPECT_TRUE(codes.Untouched());
    }
}

// A bound of zero carries the sign of the zero that came first, wherever the two stand.
TEST_P(PointKernelsTest, FirstZeroGivesTheSignOfABound) {
    constexpr size_t kCount = 41;
    for (const double outer : {1.0, -1.0}) {
        for (size_t first = 0; first < kCount; ++first) {
            for (size_t second = 0; second < kCount; ++second) {
                std::vector<real_pt_t> points(kCount, real_pt_t{outer, outer});
                points[second] = {-0.0, 0.0};
                points[first] = {0.0, -0.0};
                // Any transform adds something, and turns -0.0 to 0.0 unless what it adds is -0.0.
                Mtx2D m;
                m.dx = m.dy = -0.0;
                CheckInPlace(m, points, 1);
            }
        }
    }
}

TEST(PointKernels, TypeChoosesTheClass) {
    Mtx2D m;
    const ClassKernels* const aligned = &KernelsFor(m);
    m.type = Vellum::Mtx2DAxisSwapped;
    const ClassKernels* const swapped = &KernelsFor(m);
    m.type = Vellum::Mtx2DGeneral;
    const ClassKernels* const general = &KernelsFor(m);
    EXPECT_NE(aligned, swapped);
    EXPECT_NE(aligned, general);
    EXPECT_NE(swapped, general);
    for (const int32_t type : {3, 4, -1, 77}) {
        m.type = type;
        EXPECT_EQ(&KernelsFor(m), general);
    }
}

TEST(PointKernels, TheBestInstructionSetIsUsed) {
    for (const Tier& tier : Tiers()) {
        EXPECT_EQ(&KernelsFor(Mtx2D()) == &tier.kernels->aligned, tier.needs == BestInstructionSet()) << tier;
    }
}

}  // namespace
