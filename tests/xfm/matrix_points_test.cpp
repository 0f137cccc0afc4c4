// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <random>
#include <vector>

#include "vellum/matrix.h"
#include "xfm/matrix_checks.h"

namespace {

using Vellum::DblPt;
using Vellum::IntPt;
using Vellum::Mtx2D;
using xfm_tests::MatrixOf;

uint64_t BitsOf(double v) { return std::bit_cast<uint64_t>(v); }

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr int32_t kIndefinite = -2147483647 - 1;
constexpr double kLargestSingle = 3.4028234663852886e38;

template <class Point>
testing::AssertionResult IsAt(const Point& p, double x, double y) {
    if (p.x == x && p.y == y) return testing::AssertionSuccess();
    return testing::AssertionFailure() << testing::PrintToString(p.x) << ", " << testing::PrintToString(p.y)
                                       << " instead of " << testing::PrintToString(x) << ", "
                                       << testing::PrintToString(y);
}

Mtx2D General() { return MatrixOf(2, 3, 5, 7, 0.25, -0.25); }

/// Every member that maps a point to a device point, by its name.
struct DeviceMember {
    const char* name;
    IntPt (*map)(Mtx2D& m, const DblPt& p);
};

const DeviceMember kDeviceMembers[] = {
    {"XfmPt(double, double, int&, int&)",
     [](Mtx2D& m, const DblPt& p) {
         IntPt out(7, 7);
         m.XfmPt(p.x, p.y, out.x, out.y);
         return out;
     }},
    {"XfmPt(DblPt, int_pt_t)",
     [](Mtx2D& m, const DblPt& p) {
         int_pt_t out{7, 7};
         m.XfmPt(&p, &out);
         return IntPt(out.x, out.y);
     }},
    {"XfmPt(DblPt, IntPt)",
     [](Mtx2D& m, const DblPt& p) {
         IntPt out(7, 7);
         m.XfmPt(&p, &out);
         return out;
     }},
    {"XfmPts(int_pt_t)",
     [](Mtx2D& m, const DblPt& p) {
         int_pt_t out{7, 7};
         m.XfmPts(1, &p, &out);
         return IntPt(out.x, out.y);
     }},
    {"XfmPts(IntPt)",
     [](Mtx2D& m, const DblPt& p) {
         IntPt out(7, 7);
         m.XfmPts(1, &p, &out);
         return out;
     }},
    {"XfmPolyPts(int_pt_t)",
     [](Mtx2D& m, const DblPt& p) {
         int_pt_t out{7, 7};
         int count = 0;
         m.XfmPolyPts(1, &count, &p, &out);
         return IntPt(out.x, out.y);
     }},
    {"XfmPolyPts(IntPt)",
     [](Mtx2D& m, const DblPt& p) {
         IntPt out(7, 7);
         int count = 0;
         m.XfmPolyPts(1, &count, &p, &out);
         return out;
     }},
    {"XfmPolySetPts",
     [](Mtx2D& m, const DblPt& p) {
         real_pt_t in{p.x, p.y};
         int_pt_t out{7, 7};
         uint32_t codes[] = {0, 0};
         const DrwPSetT inSet{1, &in, &codes[0]};
         DrwDPSetT outSet{0, &out, &codes[1]};
         m.XfmPolySetPts(&inSet, &outSet);
         return IntPt(out.x, out.y);
     }},
};

/// Every member that maps a point to a point in doubles.
struct ModelMember {
    const char* name;
    DblPt (*map)(Mtx2D& m, const DblPt& p);
};

const ModelMember kModelMembers[] = {
    {"RealXfmPt(DblPt*, real_pt_t*)",
     [](Mtx2D& m, const DblPt& p) {
         real_pt_t out{7, 7};
         m.RealXfmPt(&p, &out);
         return DblPt(out.x, out.y);
     }},
    {"RealXfmPt(DblPt*, DblPt*)",
     [](Mtx2D& m, const DblPt& p) {
         DblPt out(7, 7);
         m.RealXfmPt(&p, &out);
         return out;
     }},
    {"RealXfmPt(DblPt&)",
     [](Mtx2D& m, const DblPt& p) {
         DblPt out = p;
         const Mtx2D& constant = m;
         constant.RealXfmPt(out);
         return out;
     }},
    {"RealXfmPt(DblPt&, DblPt&)",
     [](Mtx2D& m, const DblPt& p) {
         DblPt out(7, 7);
         const Mtx2D& constant = m;
         constant.RealXfmPt(p, out);
         return out;
     }},
    {"XfmPt(double, double, double*, double*)",
     [](Mtx2D& m, const DblPt& p) {
         DblPt out(7, 7);
         m.XfmPt(p.x, p.y, &out.x, &out.y);
         return out;
     }},
    {"RealXfmPts(real_pt_t, DblPt)",
     [](Mtx2D& m, const DblPt& p) {
         const real_pt_t in{p.x, p.y};
         DblPt out(7, 7);
         m.RealXfmPts(1, &in, &out);
         return out;
     }},
    {"RealXfmPts(DblPt, real_pt_t)",
     [](Mtx2D& m, const DblPt& p) {
         real_pt_t out{7, 7};
         m.RealXfmPts(1, &p, &out);
         return DblPt(out.x, out.y);
     }},
    {"RealXfmPts(DblPt, DblPt)",
     [](Mtx2D& m, const DblPt& p) {
         DblPt out(7, 7);
         const Mtx2D& constant = m;
         constant.RealXfmPts(1, &p, &out);
         return out;
     }},
    {"RealXfmPtsExt",
     [](Mtx2D& m, const DblPt& p) {
         DblPt out = p;
         double extents[4];
         const Mtx2D& constant = m;
         constant.RealXfmPtsExt(1, &out, extents[0], extents[1], extents[2], extents[3]);
         return out;
     }},
    {"RealXfmPolyPtSet",
     [](Mtx2D& m, const DblPt& p) {
         real_pt_t in{p.x, p.y};
         real_pt_t out{7, 7};
         uint32_t codes[] = {0, 0};
         const DrwPSetT inSet{1, &in, &codes[0]};
         DrwPSetT outSet{0, &out, &codes[1]};
         m.RealXfmPolyPtSet(&inSet, &outSet);
         return DblPt(out.x, out.y);
     }},
};

void ExpectDevicePoint(Mtx2D m, const DblPt& p, int32_t x, int32_t y) {
    for (const DeviceMember& member : kDeviceMembers) {
        EXPECT_TRUE(IsAt(member.map(m, p), x, y)) << member.name;
    }
}

void ExpectModelPoint(Mtx2D m, const DblPt& p, double x, double y) {
    for (const ModelMember& member : kModelMembers) {
        EXPECT_TRUE(IsAt(member.map(m, p), x, y)) << member.name;
    }
}

TEST(Mtx2DPoints, EachTypeTakesItsPath) {
    Mtx2D m = General();
    ExpectModelPoint(m, DblPt(10, 100), 520.25, 729.75);
    ExpectDevicePoint(m, DblPt(10, 100), 520, 730);
    // The paths skip what ought to be zero, whatever it is.
    m.type = Vellum::Mtx2DAxisAligned;
    ExpectModelPoint(m, DblPt(10, 100), 20.25, 699.75);
    ExpectDevicePoint(m, DblPt(10, 100), 20, 700);
    m.type = Vellum::Mtx2DAxisSwapped;
    ExpectModelPoint(m, DblPt(10, 100), 500.25, 29.75);
    ExpectDevicePoint(m, DblPt(10, 100), 500, 30);
    for (const int32_t type : {3, 4, -1}) {
        m.type = type;
        ExpectModelPoint(m, DblPt(10, 100), 520.25, 729.75);
        ExpectDevicePoint(m, DblPt(10, 100), 520, 730);
    }
}

void ExpectFixedAndShortPoint(Mtx2D m, const DblPt& p, int32_t x, int32_t y) {
    int_pt_t record{7, 7};
    m.XfmFPts(1, &p, &record);
    EXPECT_TRUE(IsAt(record, 8 * x, 8 * y));
    IntPt point(7, 7);
    m.XfmFPts(1, &p, &point);
    EXPECT_TRUE(IsAt(point, 8 * x, 8 * y));
    short_pt_t shortPoint{7, 7};
    m.XfmSPts(1, &p, &shortPoint);
    EXPECT_TRUE(IsAt(shortPoint, x, y));
}

TEST(Mtx2DPoints, FixedAndShortOutputsGoByTheTypeToo) {
    Mtx2D m = General();
    ExpectFixedAndShortPoint(m, DblPt(10, 100), 520, 730);
    m.type = Vellum::Mtx2DAxisAligned;
    ExpectFixedAndShortPoint(m, DblPt(10, 100), 20, 700);
    m.type = Vellum::Mtx2DAxisSwapped;
    ExpectFixedAndShortPoint(m, DblPt(10, 100), 500, 30);
    m.type = Vellum::Mtx2DIdentity;
    ExpectFixedAndShortPoint(m, DblPt(10, 100), 520, 730);
}

// The members for one point and those for arrays are implemented apart.
TEST(Mtx2DPoints, EveryMemberGivesTheSameBits) {
    std::mt19937 engine(1);
    std::uniform_real_distribution<double> coordinate(-5000, 5000);
    std::vector<DblPt> in(203);
    for (DblPt& p : in) {
        const double x = coordinate(engine);
        p.Set(x, coordinate(engine));
    }
    const int n = static_cast<int>(in.size());
    Mtx2D m = MatrixOf(0.7, 0.3, -1.1, 1.9, 0.1, -0.9);
    for (const int32_t type : {0, 1, 2, 3}) {
        m.type = type;
        std::vector<DblPt> model(in.size());
        m.RealXfmPts(n, in.data(), model.data());
        std::vector<IntPt> device(in.size());
        m.XfmPts(n, in.data(), device.data());
        for (size_t i = 0; i < in.size(); ++i) {
            for (const ModelMember& member : kModelMembers) {
                const DblPt p = member.map(m, in[i]);
                EXPECT_EQ(BitsOf(p.x), BitsOf(model[i].x)) << member.name << ", type " << type;
                EXPECT_EQ(BitsOf(p.y), BitsOf(model[i].y)) << member.name << ", type " << type;
            }
            for (const DeviceMember& member : kDeviceMembers) {
                EXPECT_TRUE(IsAt(member.map(m, in[i]), device[i].x, device[i].y)) << member.name << ", type " << type;
            }
        }
    }
}

// (1 + 2^53) - 2^53 is 0, where 1 + (2^53 - 2^53) would be 1.
TEST(Mtx2DPoints, TranslationIsAddedLast) {
    constexpr double kTwoTo53 = 9007199254740992.0;
    ExpectModelPoint(MatrixOf(1, 1, 1, 1, -kTwoTo53, -kTwoTo53), DblPt(1, kTwoTo53), 0, 0);
    ExpectModelPoint(MatrixOf(1, 1, 1, 1, kTwoTo53, kTwoTo53), DblPt(-kTwoTo53, 1), 1, 1);
}

// The product 1 - 2^-60 rounds to 1; a fused multiply-add would keep what is left.
TEST(Mtx2DPoints, NothingIsFused) {
    constexpr double kAbove = 1 + 1.0 / (1 << 30);
    constexpr double kBelow = 1 - 1.0 / (1 << 30);
    ExpectModelPoint(MatrixOf(kAbove, 0, 0, kAbove, -1, -1), DblPt(kBelow, kBelow), 0, 0);
    ExpectModelPoint(MatrixOf(0, kAbove, kAbove, 0, -1, -1), DblPt(kBelow, kBelow), 0, 0);
    ExpectModelPoint(MatrixOf(kAbove, 1, -1, kAbove, 0, 0), DblPt(kBelow, 1), 0, kBelow + kAbove);
}

TEST(Mtx2DPoints, DeviceTransformWithFlippedY) {
    Mtx2D m;
    m.SetXfm(0, 0, Vellum::Mtx2DOrientMirrorX, 1, 1, 0, 100);
    ASSERT_EQ(m.type, Vellum::Mtx2DAxisAligned);
    ExpectDevicePoint(m, DblPt(10, 10), 10, 90);
    ExpectDevicePoint(m, DblPt(0.5, -0.5), 1, 101);
}

TEST(Mtx2DPoints, RoundsHalfAwayFromZero) {
    for (const int32_t type : {0, 2, 3}) {
        Mtx2D m;
        m.type = type;
        ExpectDevicePoint(m, DblPt(-2.5, 2.5), -3, 3);
        ExpectDevicePoint(m, DblPt(2.4999, -2.4999), 2, -2);
        ExpectDevicePoint(m, DblPt(-0.0, 0.0), 0, 0);
        ExpectDevicePoint(m, DblPt(0.5, -0.5), 1, -1);
        ExpectDevicePoint(m, DblPt(0.49, -0.49), 0, 0);
        // The sum with one half is what is truncated, and it rounds up to 1.
        ExpectDevicePoint(m, DblPt(0.49999999999999994, -0.49999999999999994), 1, -1);
        ExpectDevicePoint(m, DblPt(4e-320, -4e-320), 0, 0);
    }
}

TEST(Mtx2DPoints, ExchangedCoordinatesRoundTheSameWay) {
    const Mtx2D m = MatrixOf(0, 1, 1, 0, 0, 0);
    ASSERT_EQ(m.type, Vellum::Mtx2DAxisSwapped);
    ExpectDevicePoint(m, DblPt(-2.5, 2.5), 3, -3);
    ExpectDevicePoint(m, DblPt(2.4999, -2.4999), -2, 2);
    ExpectDevicePoint(m, DblPt(0.49999999999999994, -0.49999999999999994), -1, 1);
    ExpectDevicePoint(m, DblPt(3e9, 0), 0, kIndefinite);
}

TEST(Mtx2DPoints, WhatDoesNotFitIsIndefinite) {
    const Mtx2D m;
    ExpectDevicePoint(m, DblPt(3e9, 0), kIndefinite, 0);
    ExpectDevicePoint(m, DblPt(0, -3e9), 0, kIndefinite);
    ExpectDevicePoint(m, DblPt(kNaN, kNaN), kIndefinite, kIndefinite);
    ExpectDevicePoint(m, DblPt(kInfinity, -kInfinity), kIndefinite, kIndefinite);
    ExpectDevicePoint(m, DblPt(1e300, -1e300), kIndefinite, kIndefinite);
    ExpectDevicePoint(m, DblPt(2147483647.25, 2147483647.5), 2147483647, kIndefinite);
    ExpectDevicePoint(m, DblPt(-2147483648.25, -2147483648.5), kIndefinite, kIndefinite);
    ExpectDevicePoint(m, DblPt(-2147483647.25, -2147483647.5), -2147483647, kIndefinite);
}

TEST(Mtx2DPoints, FixedPointIsAlwaysWhole) {
    Mtx2D m;
    const DblPt in[] = {DblPt(1.4, 1.6), DblPt(-2.5, 268435456), DblPt(3e9, -268435457)};
    int_pt_t records[3];
    m.XfmFPts(3, in, records);
    IntPt points[3];
    m.XfmFPts(3, in, points);
    for (const auto& [a, b, c] : {std::array{IntPt(records[0].x, records[0].y), IntPt(records[1].x, records[1].y),
                                             IntPt(records[2].x, records[2].y)},
                                  std::array{points[0], points[1], points[2]}}) {
        EXPECT_TRUE(IsAt(a, 8, 16));
        EXPECT_TRUE(IsAt(b, -24, kIndefinite));
        EXPECT_TRUE(IsAt(c, 0, 2147483640));
    }
}

TEST(Mtx2DPoints, ShortOutputsWrap) {
    Mtx2D m;
    const DblPt in[] = {DblPt(40000, -40000), DblPt(3e9, 65536), DblPt(32767.5, -32768.5), DblPt(-1.5, 1.4)};
    short_pt_t out[4];
    m.XfmSPts(4, in, out);
    EXPECT_TRUE(IsAt(out[0], -25536, 25536));
    EXPECT_TRUE(IsAt(out[1], 0, 0));
    EXPECT_TRUE(IsAt(out[2], -32768, 32767));
    EXPECT_TRUE(IsAt(out[3], -2, 1));
}

TEST(Mtx2DPoints, QuarterTurnOnTheFastPath) {
    Mtx2D m;
    m.Rotate(90, 2);
    m.Scale(2, 3);
    ASSERT_EQ(m.type, Vellum::Mtx2DAxisSwapped);
    ExpectModelPoint(m, DblPt(1, 1), -2, 3);
    ExpectDevicePoint(m, DblPt(1, 1), -2, 3);
    m.type = Vellum::Mtx2DGeneral;
    ExpectModelPoint(m, DblPt(1, 1), -2, 3);
}

TEST(Mtx2DPoints, MarkedIdentityIsStillTransformed) {
    Mtx2D m;
    m.SetIdentity();
    m.Translate(5, -5);
    ASSERT_TRUE(m.IsIdentity());
    ExpectModelPoint(m, DblPt(1, 2), 6, -3);
    ExpectDevicePoint(m, DblPt(1, 2), 6, -3);
}

TEST(Mtx2DPoints, InvXfmPtInvertsNothing) {
    Mtx2D m;
    const IntPt device(-7, 2147483647);
    DblPt out(1, 1);
    m.InvXfmPt(&device, &out);
    EXPECT_TRUE(IsAt(out, -7, 2147483647));

    const IntPt p(10, 100);
    m = General();
    m.InvXfmPt(&p, &out);
    EXPECT_TRUE(IsAt(out, 520.25, 729.75));
    m.type = Vellum::Mtx2DAxisSwapped;
    m.InvXfmPt(&p, &out);
    EXPECT_TRUE(IsAt(out, 500.25, 29.75));
}

TEST(Mtx2DPoints, ADevicePointGoesBackThroughTheInverse) {
    Mtx2D toDevice;
    toDevice.SetXfm(0, 0, Vellum::Mtx2DOrientMirrorX, 4, 4, 10, 20);
    Mtx2D back = toDevice.Invert();
    const IntPt device(14, 12);
    DblPt model;
    back.InvXfmPt(&device, &model);
    EXPECT_TRUE(IsAt(model, 1, 2));
}

TEST(Mtx2DPoints, OnePointMayBeItsOwnImage) {
    Mtx2D m = General();
    DblPt p(10, 100);
    m.RealXfmPt(p, p);
    EXPECT_TRUE(IsAt(p, 520.25, 729.75));
    p.Set(10, 100);
    m.RealXfmPt(&p, &p);
    EXPECT_TRUE(IsAt(p, 520.25, 729.75));
}

TEST(Mtx2DPoints, ArraysKeepTheirOrder) {
    Mtx2D m = MatrixOf(1, 0, 0, 1, 0.5, 0);
    std::vector<DblPt> in(23);
    for (int i = 0; i < 23; ++i) {
        in[size_t(i)].Set(i, -i);
    }
    const int n = static_cast<int>(in.size());
    std::vector<DblPt> real(in.size());
    m.RealXfmPts(n, in.data(), real.data());
    std::vector<IntPt> device(in.size());
    m.XfmPts(n, in.data(), device.data());
    std::vector<short_pt_t> shorts(in.size());
    m.XfmSPts(n, in.data(), shorts.data());
    for (size_t i = 0; i < in.size(); ++i) {
        const int value = static_cast<int>(i);
        EXPECT_TRUE(IsAt(real[i], value + 0.5, -value));
        EXPECT_TRUE(IsAt(device[i], value + 1, -value));
        EXPECT_TRUE(IsAt(shorts[i], value + 1, -value));
    }
}

TEST(Mtx2DPoints, NoPointsNothingWritten) {
    Mtx2D m;
    const DblPt in(1, 2);
    const real_pt_t inRecord{1, 2};
    for (const int n : {0, -1, -2147483647}) {
        DblPt real(7, 7);
        real_pt_t record{7, 7};
        int_pt_t device{7, 7};
        IntPt point(7, 7);
        short_pt_t shortPoint{7, 7};
        m.RealXfmPts(n, &inRecord, &real);
        m.RealXfmPts(n, &in, &real);
        m.RealXfmPts(n, &in, &record);
        m.XfmPts(n, &in, &device);
        m.XfmPts(n, &in, &point);
        m.XfmFPts(n, &in, &device);
        m.XfmFPts(n, &in, &point);
        m.XfmSPts(n, &in, &shortPoint);
        EXPECT_TRUE(IsAt(real, 7, 7));
        EXPECT_TRUE(IsAt(record, 7, 7));
        EXPECT_TRUE(IsAt(device, 7, 7));
        EXPECT_TRUE(IsAt(point, 7, 7));
        EXPECT_TRUE(IsAt(shortPoint, 7, 7));
    }
    m.XfmPts(0, nullptr, static_cast<IntPt*>(nullptr));
}

struct Extents {
    double xMin = 7, yMin = 7, xMax = 7, yMax = 7;
};

Extents MapInPlace(const Mtx2D& m, std::vector<DblPt>& points) {
    Extents e;
    m.RealXfmPtsExt(static_cast<int>(points.size()), points.data(), e.xMin, e.yMin, e.xMax, e.yMax);
    return e;
}

TEST(Mtx2DPoints, ExtentsOfNoPointsStayInverted) {
    for (const int n : {0, -5}) {
        Extents e;
        DblPt untouched(1, 2);
        Mtx2D().RealXfmPtsExt(n, &untouched, e.xMin, e.yMin, e.xMax, e.yMax);
        EXPECT_EQ(e.xMin, kLargestSingle);
        EXPECT_EQ(e.yMin, kLargestSingle);
        EXPECT_EQ(e.xMax, -kLargestSingle);
        EXPECT_EQ(e.yMax, -kLargestSingle);
        EXPECT_TRUE(IsAt(untouched, 1, 2));
    }
}

TEST(Mtx2DPoints, ExtentsAreThoseOfTheImages) {
    std::vector<DblPt> points = {DblPt(1, 5), DblPt(-3, 2), DblPt(4, 4)};
    const Extents e = MapInPlace(MatrixOf(0, 1, -1, 0, 10, 0), points);
    EXPECT_TRUE(IsAt(points[0], 5, 1));
    EXPECT_TRUE(IsAt(points[1], 8, -3));
    EXPECT_TRUE(IsAt(points[2], 6, 4));
    EXPECT_EQ(e.xMin, 5);
    EXPECT_EQ(e.yMin, -3);
    EXPECT_EQ(e.xMax, 8);
    EXPECT_EQ(e.yMax, 4);
}

TEST(Mtx2DPoints, NaNNeverEntersTheExtents) {
    std::vector<DblPt> points = {DblPt(kNaN, 1), DblPt(2, kNaN), DblPt(3, 4)};
    const Extents e = MapInPlace(Mtx2D(), points);
    EXPECT_EQ(e.xMin, 2);
    EXPECT_EQ(e.yMin, 1);
    EXPECT_EQ(e.xMax, 3);
    EXPECT_EQ(e.yMax, 4);
    EXPECT_TRUE(std::isnan(points[0].x));

    std::vector<DblPt> nothingElse(9, DblPt(kNaN, kNaN));
    const Extents none = MapInPlace(Mtx2D(), nothingElse);
    EXPECT_EQ(none.xMin, kLargestSingle);
    EXPECT_EQ(none.yMin, kLargestSingle);
    EXPECT_EQ(none.xMax, -kLargestSingle);
    EXPECT_EQ(none.yMax, -kLargestSingle);
}

TEST(Mtx2DPoints, ExtentsBeyondSinglePrecisionKeepTheirStart) {
    std::vector<DblPt> points = {DblPt(1e300, -1e300), DblPt(kInfinity, -kInfinity)};
    const Extents e = MapInPlace(Mtx2D(), points);
    EXPECT_EQ(e.xMin, kLargestSingle);
    EXPECT_EQ(e.yMin, -kInfinity);
    EXPECT_EQ(e.xMax, kInfinity);
    EXPECT_EQ(e.yMax, -kLargestSingle);
}

TEST(Mtx2DPoints, SecondZeroDoesNotReplaceTheFirst) {
    Mtx2D m;
    m.dx = m.dy = -0.0;
    const auto extentsOfZerosAmong = [&m](double others) {
        std::vector<DblPt> points(20, DblPt(others, others));
        points[3] = DblPt(-0.0, 0.0);
        points[10] = DblPt(0.0, -0.0);
        return MapInPlace(m, points);
    };
    const Extents above = extentsOfZerosAmong(1);
    EXPECT_TRUE(std::signbit(above.xMin));
    EXPECT_FALSE(std::signbit(above.yMin));
    const Extents below = extentsOfZerosAmong(-1);
    EXPECT_TRUE(below.xMax == 0 && std::signbit(below.xMax));
    EXPECT_TRUE(below.yMax == 0 && !std::signbit(below.yMax));
}

}  // namespace
