// SPDX-License-Identifier: MIT
#include "vellum/matrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <type_traits>

#include "xfm/matrix_checks.h"

namespace {

using Vellum::Mtx2D;
using Vellum::Mtx2DOrient;
using xfm_tests::HasElements;
using xfm_tests::MatrixOf;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kPi = 3.141592653589793;
constexpr double kClose = 1e-15;

/// Their product 1 - 2^-60 rounds to 1, and only a fused operation keeps what is left.
constexpr double kAboveOne = 1 + 1.0 / (1 << 30);
constexpr double kBelowOne = 1 - 1.0 / (1 << 30);

constexpr double kTwoTo53 = 9007199254740992.0;

static_assert(sizeof(Mtx2D) == 56);
static_assert(offsetof(Mtx2D, m11) == 0 && offsetof(Mtx2D, m12) == 8);
static_assert(offsetof(Mtx2D, m21) == 16 && offsetof(Mtx2D, m22) == 24);
static_assert(offsetof(Mtx2D, dx) == 32 && offsetof(Mtx2D, dy) == 40);
static_assert(offsetof(Mtx2D, mirror) == 48 && offsetof(Mtx2D, type) == 52);
static_assert(std::is_trivially_copyable_v<Mtx2D> && std::is_standard_layout_v<Mtx2D>);
static_assert(std::is_same_v<decltype(Mtx2D::mirror), int32_t> && std::is_same_v<decltype(Mtx2D::type), int32_t>);
static_assert(std::is_same_v<std::underlying_type_t<Vellum::Mtx2DType>, int32_t>);
static_assert(std::is_same_v<std::underlying_type_t<Mtx2DOrient>, int32_t>);
static_assert(Vellum::Mtx2DAxisAligned == 0 && Vellum::Mtx2DAxisSwapped == 1 && Vellum::Mtx2DGeneral == 2 &&
              Vellum::Mtx2DIdentity == 3);
static_assert(Vellum::Mtx2DOrientNone == 0 && Vellum::Mtx2DOrientRot90 == 1 && Vellum::Mtx2DOrientRot180 == 2 &&
              Vellum::Mtx2DOrientRot270 == 3 && Vellum::Mtx2DOrientMirrorX == 4 && Vellum::Mtx2DOrientMirrorY == 5 &&
              Vellum::Mtx2DOrientRot90MirrorY == 6 && Vellum::Mtx2DOrientRot90MirrorX == 7);

constexpr double Mtx2D::*kElements[] = {&Mtx2D::m11, &Mtx2D::m12, &Mtx2D::m21, &Mtx2D::m22, &Mtx2D::dx, &Mtx2D::dy};

/// A matrix whose elements all differ.
Mtx2D Sample() {
    Mtx2D m = MatrixOf(2, 3, 5, 7, 11, 13);
    m.mirror = 1;
    return m;
}

TEST(Mtx2D, StartsAsTheIdentityOfAlignedType) {
    const Mtx2D m;
    EXPECT_TRUE(HasElements(m, 1, 0, 0, 1, 0, 0));
    EXPECT_EQ(m.mirror, 0);
    EXPECT_EQ(m.type, Vellum::Mtx2DAxisAligned);
    EXPECT_FALSE(m.IsIdentity());
}

TEST(Mtx2D, CopiesAllFields) {
    Mtx2D source = Sample();
    source.type = Vellum::Mtx2DIdentity;
    const Mtx2D copy(source);
    Mtx2D assigned;
    EXPECT_EQ(&(assigned = source), &assigned);
    for (const Mtx2D& m : {copy, assigned}) {
        EXPECT_TRUE(HasElements(m, 2, 3, 5, 7, 11, 13));
        EXPECT_EQ(m.mirror, 1);
        EXPECT_EQ(m.type, Vellum::Mtx2DIdentity);
    }
}

TEST(Mtx2D, IdentityAndInitializeReset) {
    Mtx2D a = Sample();
    a.Identity();
    Mtx2D b = Sample();
    b.Initialize();
    for (const Mtx2D& m : {a, b}) {
        EXPECT_TRUE(HasElements(m, 1, 0, 0, 1, 0, 0));
        EXPECT_EQ(m.mirror, 0);
        EXPECT_EQ(m.type, Vellum::Mtx2DAxisAligned);
    }
}

TEST(Mtx2D, SetIdentityMarksAnIdentity) {
    Mtx2D m;
    m.mirror = 2;
    m.type = Vellum::Mtx2DGeneral;
    m.SetIdentity();
    EXPECT_EQ(m.type, Vellum::Mtx2DIdentity);
    EXPECT_TRUE(m.IsIdentity());
    EXPECT_TRUE(HasElements(m, 1, 0, 0, 1, 0, 0));
    EXPECT_EQ(m.mirror, 2);

    m.Translate(5, 0);
    EXPECT_TRUE(m.IsIdentity());
    m.Scale(2, 2);
    EXPECT_TRUE(m.IsIdentity());
    m.SetType();
    EXPECT_FALSE(m.IsIdentity());
    EXPECT_EQ(m.type, Vellum::Mtx2DAxisAligned);
}

TEST(Mtx2D, SetIdentityLeavesAnyOtherMatrixAsItIs) {
    Mtx2D translated;
    translated.Translate(0, 1e-300);
    translated.SetIdentity();
    EXPECT_EQ(translated.type, Vellum::Mtx2DAxisAligned);

    for (double Mtx2D::*const element : kElements) {
        Mtx2D m;
        m.*element += 0.5;
        m.type = 42;
        m.SetIdentity();
        EXPECT_EQ(m.type, 42);
    }
}

TEST(Mtx2D, SetTypeComparesExactly) {
    EXPECT_EQ(MatrixOf(2, 0, 0, -3, 4, 5).type, Vellum::Mtx2DAxisAligned);
    EXPECT_EQ(MatrixOf(0, 0, 0, 0, 0, 0).type, Vellum::Mtx2DAxisAligned);
    EXPECT_EQ(MatrixOf(2, -0.0, -0.0, 3, 0, 0).type, Vellum::Mtx2DAxisAligned);
    EXPECT_EQ(MatrixOf(0, 1, -1, 0, 0, 0).type, Vellum::Mtx2DAxisSwapped);
    EXPECT_EQ(MatrixOf(-0.0, 1, 0, 0, 0, 0).type, Vellum::Mtx2DAxisSwapped);
    EXPECT_EQ(MatrixOf(0, 0, 1, -0.0, 0, 0).type, Vellum::Mtx2DAxisSwapped);
    EXPECT_EQ(MatrixOf(1, 1e-300, 0, 1, 0, 0).type, Vellum::Mtx2DGeneral);
    EXPECT_EQ(MatrixOf(1e-300, 1, 1, 0, 0, 0).type, Vellum::Mtx2DGeneral);
    EXPECT_EQ(MatrixOf(0, 1, 1, 1e-300, 0, 0).type, Vellum::Mtx2DGeneral);
    EXPECT_EQ(MatrixOf(1, kNaN, 0, 1, 0, 0).type, Vellum::Mtx2DGeneral);
    EXPECT_EQ(MatrixOf(kNaN, 0, 0, 1, 0, 0).type, Vellum::Mtx2DAxisAligned);
    EXPECT_EQ(MatrixOf(0, kNaN, 0, 0, 0, 0).type, Vellum::Mtx2DAxisSwapped);
}

TEST(Mtx2D, IsAlignedGoesByTheTypeAlone) {
    Mtx2D m;
    for (const int32_t type : {0, 1, 3}) {
        m.type = type;
        EXPECT_TRUE(m.IsAligned()) << type;
    }
    m.type = 2;
    EXPECT_FALSE(m.IsAligned());
}

TEST(Mtx2D, DeterminantAndOrientation) {
    EXPECT_EQ(Sample().GetDeterminant(), 2.0 * 7 - 5 * 3);
    EXPECT_TRUE(Sample().ReversesOrientation());
    EXPECT_FALSE(Mtx2D().ReversesOrientation());
    EXPECT_FALSE(MatrixOf(1, 2, 2, 4, 0, 0).ReversesOrientation());
    EXPECT_FALSE(MatrixOf(kNaN, 0, 0, 1, 0, 0).ReversesOrientation());
    EXPECT_EQ(MatrixOf(kAboveOne, 1, 1, kBelowOne, 0, 0).GetDeterminant(), 0.0);
    EXPECT_EQ(MatrixOf(1, kAboveOne, kBelowOne, 1, 0, 0).GetDeterminant(), 0.0);
}

TEST(Mtx2D, DiffersWhereAnElementDoes) {
    Mtx2D other = Sample();
    other.mirror = 3;
    other.type = 3;
    EXPECT_FALSE(Sample() != other);
    for (double Mtx2D::*const element : kElements) {
        Mtx2D m = Sample();
        m.*element += 1;
        EXPECT_TRUE(Sample() != m);
        m.*element = kNaN;
        EXPECT_TRUE(m != m);
    }
    EXPECT_FALSE(MatrixOf(1, 0, 0, 1, 0, 0) != MatrixOf(1, -0.0, -0.0, 1, -0.0, -0.0));
}

TEST(Mtx2D, ElementsAndTranslation) {
    double e[6];
    Sample().GetElements(&e[0], &e[1], &e[2], &e[3], &e[4], &e[5]);
    const double expected[] = {2, 3, 5, 7, 11, 13};
    for (size_t k = 0; k < 6; ++k) {
        EXPECT_EQ(e[k], expected[k]) << k;
    }
    double tx = 0;
    double ty = 0;
    Sample().GetTranslation(tx, ty);
    EXPECT_EQ(tx, 11);
    EXPECT_EQ(ty, 13);
}

TEST(Mtx2D, ScaleIsTheLengthOfTheFirstRow) {
    EXPECT_EQ(MatrixOf(3, 4, 100, 200, 0, 0).GetScale(), 5.0);
    EXPECT_EQ(MatrixOf(-2, 0, 0, 7, 0, 0).GetScale(), 2.0);
    // The squares overflow and vanish; nothing is rescaled to save them.
    EXPECT_EQ(MatrixOf(1e200, 0, 0, 1, 0, 0).GetScale(), kInfinity);
    EXPECT_EQ(MatrixOf(1e-200, 0, 0, 1, 0, 0).GetScale(), 0.0);
}

TEST(Mtx2D, RotationLosesItsSign) {
    Mtx2D left;
    left.Rotate(30, 2);
    Mtx2D right;
    right.Rotate(-30, 2);
    EXPECT_NEAR(left.GetRotation(), kPi / 6, kClose);
    EXPECT_EQ(left.GetRotation(), right.GetRotation());
    EXPECT_EQ(MatrixOf(-1, 0, 0, -1, 0, 0).GetRotation(), kPi);
    EXPECT_EQ(Mtx2D().GetRotation(), 0.0);
    EXPECT_TRUE(std::isnan(MatrixOf(0, 0, 1, 1, 0, 0).GetRotation()));
}

TEST(Mtx2D, OrientationKeepsTheSign) {
    double angle = 0;
    int mirror = 0;
    Mtx2D m;
    m.Rotate(-30, 2);
    m.mirror = 3;
    m.GetOrientation(&angle, &mirror);
    EXPECT_NEAR(angle, -kPi / 6, kClose);
    EXPECT_EQ(mirror, 3);
    MatrixOf(-1, 0, 0, 1, 0, 0).GetOrientation(&angle, &mirror);
    EXPECT_EQ(angle, kPi);
    EXPECT_EQ(mirror, 0);
    MatrixOf(-1, -0.0, 0, 1, 0, 0).GetOrientation(&angle, &mirror);
    EXPECT_EQ(angle, -kPi);
}

TEST(Mtx2D, TranslateComesAfter) {
    Mtx2D m = Sample();
    m.type = Vellum::Mtx2DIdentity;
    m.Translate(1, -2);
    EXPECT_TRUE(HasElements(m, 2, 3, 5, 7, 12, 11));
    EXPECT_EQ(m.mirror, 1);
    EXPECT_EQ(m.type, Vellum::Mtx2DIdentity);
}

TEST(Mtx2D, ScaleComesAfterAndKeepsTheType) {
    Mtx2D m = Sample();
    m.type = Vellum::Mtx2DIdentity;
    m.Scale(10, -100);
    EXPECT_TRUE(HasElements(m, 20, -300, 50, -700, 110, -1300));
    EXPECT_EQ(m.mirror, 1);
    EXPECT_EQ(m.type, Vellum::Mtx2DIdentity);
}

TEST(Mtx2D, QuarterTurnsAreExact) {
    Mtx2D m;
    m.Rotate(90, 2);
    EXPECT_TRUE(HasElements(m, 0, 1, -1, 0, 0, 0));
    EXPECT_EQ(m.type, Vellum::Mtx2DAxisSwapped);

    Mtx2D half;
    half.Rotate(180, 2);
    EXPECT_TRUE(HasElements(half, -1, 0, 0, -1, 0, 0));
    EXPECT_EQ(half.type, Vellum::Mtx2DAxisAligned);

    Mtx2D threeQuarters;
    threeQuarters.Rotate(270, 1);
    EXPECT_TRUE(HasElements(threeQuarters, 0, -1, 1, 0, 0, 0));
    EXPECT_EQ(threeQuarters.type, Vellum::Mtx2DAxisSwapped);

    Mtx2D none = Sample();
    none.type = Vellum::Mtx2DIdentity;
    none.Rotate(0, 2);
    EXPECT_TRUE(HasElements(none, 2, 3, 5, 7, 11, 13));
    EXPECT_EQ(none.type, Vellum::Mtx2DGeneral);
    EXPECT_EQ(none.mirror, 1);
}

TEST(Mtx2D, OneTurnIsTakenOff) {
    Mtx2D quarter;
    quarter.Rotate(450, 2);
    EXPECT_TRUE(HasElements(quarter, 0, 1, -1, 0, 0, 0));
    EXPECT_EQ(quarter.type, Vellum::Mtx2DAxisSwapped);

    Mtx2D turn;
    turn.Rotate(360, 2);
    EXPECT_TRUE(HasElements(turn, 1, 0, 0, 1, 0, 0));
    EXPECT_EQ(turn.type, Vellum::Mtx2DAxisAligned);

    Mtx2D threeHalves;
    threeHalves.Rotate(630, 2);
    EXPECT_TRUE(HasElements(threeHalves, 0, -1, 1, 0, 0, 0));
}

TEST(Mtx2D, OtherAnglesLeaveResidues) {
    for (const double degrees : {720.0, -90.0, -180.0, -360.0}) {
        Mtx2D m;
        m.Rotate(degrees, 2);
        EXPECT_EQ(m.type, Vellum::Mtx2DGeneral) << degrees;
    }
    Mtx2D twoTurns;
    twoTurns.Rotate(720, 2);
    EXPECT_EQ(twoTurns.m12, std::sin(360 * 0.017453292519943295));
    EXPECT_NEAR(twoTurns.m12, -2.4492935982947064e-16, 1e-30);
    EXPECT_NEAR(twoTurns.m21, 2.4492935982947064e-16, 1e-30);
    EXPECT_EQ(twoTurns.m11, 1.0);
    EXPECT_EQ(twoTurns.m22, 1.0);

    Mtx2D back;
    back.Rotate(-90, 2);
    EXPECT_NEAR(back.m11, 6.123233995736766e-17, 1e-30);
    EXPECT_EQ(back.m12, -1.0);
    EXPECT_EQ(back.m21, 1.0);
}

TEST(Mtx2D, RotationTurnsTheTranslation) {
    Mtx2D m;
    m.Translate(11, 13);
    m.Rotate(30, 2);
    EXPECT_NEAR(m.m11, 0.8660254037844387, kClose);
    EXPECT_NEAR(m.m12, 0.5, kClose);
    EXPECT_NEAR(m.dx, 3.0262794416288274, kClose);
    EXPECT_NEAR(m.dy, 16.758330249197702, kClose);
}

// The two products are equal and not exact: a fused operation would leave what one of them was rounded by.
TEST(Mtx2D, RotationFusesNothing) {
    const double s = std::sin(30 * 0.017453292519943295);
    const double c = std::cos(30 * 0.017453292519943295);
    Mtx2D differences = MatrixOf(s, c, s, c, s, c);
    differences.Rotate(30, 2);
    EXPECT_EQ(differences.m11, 0.0);
    EXPECT_EQ(differences.m21, 0.0);
    EXPECT_EQ(differences.dx, 0.0);
    Mtx2D sums = MatrixOf(-c, s, -c, s, -c, s);
    sums.Rotate(30, 2);
    EXPECT_EQ(sums.m12, 0.0);
    EXPECT_EQ(sums.m22, 0.0);
    EXPECT_EQ(sums.dy, 0.0);
    Mtx2D sourceSums = MatrixOf(s, s, -c, -c, 0, 0);
    sourceSums.Rotate(30, 1);
    EXPECT_EQ(sourceSums.m11, 0.0);
    EXPECT_EQ(sourceSums.m12, 0.0);
    Mtx2D sourceDifferences = MatrixOf(c, c, s, s, 0, 0);
    sourceDifferences.Rotate(30, 1);
    EXPECT_EQ(sourceDifferences.m21, 0.0);
    EXPECT_EQ(sourceDifferences.m22, 0.0);
}

TEST(Mtx2D, RotateInTheSourceSpace) {
    Mtx2D m = Sample();
    m.Rotate(90, 1);
    EXPECT_TRUE(HasElements(m, 5, 7, -2, -3, 11, 13));
    EXPECT_EQ(m.type, Vellum::Mtx2DGeneral);

    Mtx2D slanted = Sample();
    slanted.Rotate(30, 1);
    const double s = std::sin(30 * 0.017453292519943295);
    const double c = std::cos(30 * 0.017453292519943295);
    EXPECT_TRUE(HasElements(slanted, 2 * c + 5 * s, 3 * c + 7 * s, 5 * c - 2 * s, 7 * c - 3 * s, 11, 13));
    EXPECT_EQ(slanted.mirror, 1);
}

TEST(Mtx2D, RotateInTheDestinationSpace) {
    for (const int mode : {2, 0, -1, 3}) {
        Mtx2D m = Sample();
        m.Rotate(90, mode);
        EXPECT_TRUE(HasElements(m, -3, 2, -7, 5, -13, 11)) << mode;
    }
    Mtx2D slanted = Sample();
    slanted.Rotate(30, 2);
    const double s = std::sin(30 * 0.017453292519943295);
    const double c = std::cos(30 * 0.017453292519943295);
    EXPECT_TRUE(HasElements(slanted, 2 * c - 3 * s, 3 * c + 2 * s, 5 * c - 7 * s, 7 * c + 5 * s, 11 * c - 13 * s,
                            13 * c + 11 * s));
    EXPECT_EQ(slanted.mirror, 1);
}

TEST(Mtx2D, ReflectionsToggleTheRecord) {
    Mtx2D m = MatrixOf(2, 3, 5, 7, 11, 13);
    m.type = 42;
    m.ReflectInX();
    EXPECT_TRUE(HasElements(m, 2, -3, 5, -7, 11, -13));
    EXPECT_EQ(m.mirror, 1);
    m.ReflectInY();
    EXPECT_TRUE(HasElements(m, -2, -3, -5, -7, -11, -13));
    EXPECT_EQ(m.mirror, 3);
    m.ReflectInX();
    EXPECT_EQ(m.mirror, 2);
    m.ReflectInY();
    EXPECT_TRUE(HasElements(m, 2, 3, 5, 7, 11, 13));
    EXPECT_EQ(m.mirror, 0);
    EXPECT_EQ(m.type, 42);
}

TEST(Mtx2D, ShearReplacesTheElement) {
    Mtx2D m;
    m.Rotate(30, 2);
    const Mtx2D rotated = m;
    m.ShearInX(0.5);
    EXPECT_TRUE(HasElements(m, rotated.m11, rotated.m12, 0.5, rotated.m22, 0, 0));
    EXPECT_EQ(m.type, Vellum::Mtx2DGeneral);

    Mtx2D sheared;
    sheared.ShearInX(1);
    EXPECT_EQ(sheared.type, Vellum::Mtx2DGeneral);
    sheared.ShearInX(0);
    EXPECT_EQ(sheared.type, Vellum::Mtx2DAxisAligned);
}

TEST(Mtx2D, InvertYAxisAssignsTheHeight) {
    Mtx2D m = Sample();
    m.type = 42;
    m.InvertYAxis(600);
    EXPECT_TRUE(HasElements(m, 2, 3, 5, -7, 11, 600));
    EXPECT_EQ(m.mirror, 1);
    EXPECT_EQ(m.type, 42);
}

TEST(Mtx2D, OrientComposesEachOfTheEight) {
    const struct {
        int32_t orient;
        double elements[6];
        int32_t mirror;
    } expectations[] = {{0, {2, 3, 5, 7, 11, 13}, 0},       {1, {-3, 2, -7, 5, -13, 11}, 0},
                        {2, {-2, -3, -5, -7, -11, -13}, 0}, {3, {3, -2, 7, -5, 13, -11}, 0},
                        {4, {2, -3, 5, -7, 11, -13}, 1},    {5, {-2, 3, -5, 7, -11, 13}, 2},
                        {6, {3, 2, 7, 5, 13, 11}, 2},       {7, {-3, -2, -7, -5, -13, -11}, 1}};
    for (const auto& [orient, e, mirror] : expectations) {
        Mtx2D m = MatrixOf(2, 3, 5, 7, 11, 13);
        m.Orient(static_cast<Mtx2DOrient>(orient));
        EXPECT_TRUE(HasElements(m, e[0], e[1], e[2], e[3], e[4], e[5])) << orient;
        EXPECT_EQ(m.mirror, mirror) << orient;
    }
}

TEST(Mtx2D, OrientTwiceIsNone) {
    Mtx2D m = MatrixOf(2, 3, 5, 7, 11, 13);
    m.Orient(Vellum::Mtx2DOrientMirrorX);
    m.Orient(Vellum::Mtx2DOrientMirrorX);
    EXPECT_TRUE(HasElements(m, 2, 3, 5, 7, 11, 13));
    EXPECT_EQ(m.mirror, 0);
}

TEST(Mtx2D, OrientAlwaysClassifies) {
    const struct {
        int32_t orient;
        int32_t type;
    } expectations[] = {{-1, 0}, {0, 0}, {1, 1}, {2, 0}, {3, 1}, {4, 0}, {5, 0}, {6, 1}, {7, 1}, {8, 0}, {9, 0}};
    for (const auto& [orient, type] : expectations) {
        Mtx2D m;
        m.SetIdentity();
        m.Orient(static_cast<Mtx2DOrient>(orient));
        EXPECT_EQ(m.type, type) << orient;
    }
}

TEST(Mtx2D, OrientByNoCodeChangesNoElement) {
    for (const int32_t code : {-1, 8, 9}) {
        Mtx2D m = Sample();
        m.type = Vellum::Mtx2DIdentity;
        m.Orient(static_cast<Mtx2DOrient>(code));
        EXPECT_TRUE(HasElements(m, 2, 3, 5, 7, 11, 13)) << code;
        EXPECT_EQ(m.mirror, 1) << code;
        EXPECT_EQ(m.type, Vellum::Mtx2DGeneral) << code;
    }
}

TEST(Mtx2D, SetXfmBuildsFromNothing) {
    Mtx2D m = Sample();
    m.SetXfm(1, 2, Vellum::Mtx2DOrientRot90, 10, 100, 5, 6);
    // (-1, -2) turns to (2, -1), is scaled to (20, -100) and moved.
    EXPECT_TRUE(HasElements(m, 0, 100, -10, 0, 25, -94));
    EXPECT_EQ(m.mirror, 0);
    EXPECT_EQ(m.type, Vellum::Mtx2DAxisSwapped);

    const Mtx2D constructed(1, 2, Vellum::Mtx2DOrientRot90, 10, 100, 5, 6);
    EXPECT_FALSE(constructed != m);
    EXPECT_EQ(constructed.type, Vellum::Mtx2DAxisSwapped);

    Mtx2D flipped;
    flipped.SetXfm(0, 0, Vellum::Mtx2DOrientMirrorX, 2, 2, 3, 4);
    EXPECT_TRUE(HasElements(flipped, 2, 0, 0, -2, 3, 4));
    EXPECT_EQ(flipped.mirror, 1);
    EXPECT_EQ(flipped.type, Vellum::Mtx2DAxisAligned);
    EXPECT_EQ(Mtx2D(0, 0, Vellum::Mtx2DOrientMirrorX, 2, 2, 3, 4).mirror, 1);
}

TEST(Mtx2D, SetXfmGivesPositiveZeroForAZeroOrigin) {
    Mtx2D m;
    m.SetXfm(0, 0, Vellum::Mtx2DOrientNone, 1, 1, -0.0, -0.0);
    EXPECT_FALSE(std::signbit(m.dx));
    EXPECT_FALSE(std::signbit(m.dy));
}

TEST(Mtx2D, CompositionAppliesTheLeftOneFirst) {
    Mtx2D a = MatrixOf(2, 3, 5, 7, 11, 13);
    a.mirror = 1;
    Mtx2D b = MatrixOf(1, 10, 100, 1000, 4, 6);
    b.mirror = 2;
    const auto isProduct = [](const Mtx2D& m) {
        EXPECT_EQ(m.mirror, 3);
        EXPECT_EQ(m.type, Vellum::Mtx2DGeneral);
        return HasElements(m, 302, 3020, 705, 7050, 1315, 13116);
    };
    Mtx2D r;
    Mtx2D::Multiply(a, b, r);
    EXPECT_TRUE(isProduct(r));
    EXPECT_TRUE(isProduct(a * b));
    Mtx2D post = a;
    EXPECT_EQ(&post.Postmult(b), &post);
    EXPECT_TRUE(isProduct(post));
    Mtx2D pre = b;
    EXPECT_EQ(&pre.Premult(a), &pre);
    EXPECT_TRUE(isProduct(pre));
}

// (1 + 2^53) - 2^53 is 0, where 1 + (2^53 - 2^53) would be 1.
TEST(Mtx2D, CompositionAddsTheTranslationLast) {
    const Mtx2D b = MatrixOf(1, 1, 1, 1, -kTwoTo53, -kTwoTo53);
    const Mtx2D product = MatrixOf(1, 0, 0, 1, 1, kTwoTo53) * b;
    EXPECT_EQ(product.dx, 0.0);
    EXPECT_EQ(product.dy, 0.0);
}

TEST(Mtx2D, CompositionFusesNothing) {
    const Mtx2D one =
        MatrixOf(kAboveOne, -1, kAboveOne, -1, kAboveOne, -1) * MatrixOf(kBelowOne, kBelowOne, 1, 1, 0, 0);
    EXPECT_TRUE(HasElements(one, 0, 0, 0, 0, 0, 0));
    const Mtx2D other =
        MatrixOf(-1, kAboveOne, -1, kAboveOne, -1, kAboveOne) * MatrixOf(1, 1, kBelowOne, kBelowOne, 0, 0);
    EXPECT_TRUE(HasElements(other, 0, 0, 0, 0, 0, 0));
}

TEST(Mtx2D, CompositionClassifies) {
    Mtx2D quarter;
    quarter.Rotate(90, 2);
    quarter.mirror = 1;
    const Mtx2D half = quarter * quarter;
    EXPECT_EQ(half.type, Vellum::Mtx2DAxisAligned);
    EXPECT_EQ(half.mirror, 0);
    Mtx2D marked;
    marked.SetIdentity();
    EXPECT_EQ((marked * marked).type, Vellum::Mtx2DAxisAligned);
    EXPECT_EQ((marked * quarter).type, Vellum::Mtx2DAxisSwapped);
}

TEST(Mtx2D, PremultTakesTheMatrixItself) {
    Mtx2D m = MatrixOf(2, 3, 5, 7, 11, 13);
    m.Premult(m);
    EXPECT_TRUE(HasElements(m, 19, 27, 45, 64, 98, 137));
}

TEST(Mtx2D, InverseTakesPointsBack) {
    Mtx2D m = MatrixOf(2, 3, 5, 7, 11, 13);
    m.mirror = 2;
    // The determinant is -1.
    const Mtx2D inverse = m.Invert();
    EXPECT_TRUE(HasElements(inverse, -7, 3, 5, -2, 12, -7));
    EXPECT_EQ(inverse.mirror, 2);
    EXPECT_EQ(inverse.type, Vellum::Mtx2DGeneral);
    EXPECT_TRUE(HasElements(m, 2, 3, 5, 7, 11, 13));
    EXPECT_TRUE(HasElements(m * inverse, 1, 0, 0, 1, 0, 0));

    Mtx2D marked;
    marked.SetIdentity();
    EXPECT_EQ(marked.Invert().type, Vellum::Mtx2DAxisAligned);
    Mtx2D quarter;
    quarter.Rotate(90, 2);
    EXPECT_EQ(quarter.Invert().type, Vellum::Mtx2DAxisSwapped);
}

// None of these quotients is what a product with the rounded 1 / 7 would give, except 8 / 7 and 22 / 7.
TEST(Mtx2D, InverseDividesEachElement) {
    const Mtx2D inverse = MatrixOf(18, 5, 31, 9, 2, 1).Invert();
    EXPECT_TRUE(HasElements(inverse, 1.2857142857142858, -0.7142857142857143, -4.428571428571429, 2.5714285714285716,
                            1.8571428571428572, -1.1428571428571428));
    const Mtx2D moved = MatrixOf(18, 5, 31, 9, 1, 1).Invert();
    EXPECT_EQ(moved.dx, 3.142857142857143);
    EXPECT_EQ(moved.dy, -1.8571428571428572);
    EXPECT_EQ(MatrixOf(kAboveOne, 1, 1, kBelowOne, 0, 0).Invert().m11, kInfinity);
}

TEST(Mtx2D, InverseOfTheIdentityHasNegativeZeros) {
    const Mtx2D inverse = Mtx2D().Invert();
    EXPECT_TRUE(HasElements(inverse, 1, 0, 0, 1, 0, 0));
    EXPECT_TRUE(std::signbit(inverse.m12));
    EXPECT_TRUE(std::signbit(inverse.m21));
    EXPECT_FALSE(std::signbit(inverse.dx));
    EXPECT_TRUE(std::signbit(inverse.dy));
}

TEST(Mtx2D, SingularMatrixInvertsWithoutComplaint) {
    const Mtx2D zero = MatrixOf(0, 0, 0, 0, 0, 0).Invert();
    EXPECT_TRUE(std::isnan(zero.m11));
    EXPECT_TRUE(std::isnan(zero.m12));
    EXPECT_TRUE(std::isnan(zero.m21));
    EXPECT_TRUE(std::isnan(zero.m22));
    EXPECT_TRUE(std::isnan(zero.dx));
    EXPECT_TRUE(std::isnan(zero.dy));
    EXPECT_EQ(zero.type, Vellum::Mtx2DGeneral);

    const Mtx2D flat = MatrixOf(1, 2, 2, 4, 0, 0).Invert();
    EXPECT_EQ(flat.m11, kInfinity);
    EXPECT_EQ(flat.m12, -kInfinity);
}

struct MirrorAndRotation {
    bool mirrored;
    double degrees;
};

MirrorAndRotation XMirrorAndRotationOf(const Mtx2D& m) {
    MirrorAndRotation r{};
    m.GetXMirrorAndRotation(&r.mirrored, &r.degrees);
    return r;
}

double RotationOf(double degrees) {
    Mtx2D m;
    m.Rotate(degrees, 2);
    return XMirrorAndRotationOf(m).degrees;
}

TEST(Mtx2D, RotationSnapsToQuarterTurns) {
    EXPECT_EQ(RotationOf(89.95), 90.0);
    EXPECT_EQ(RotationOf(90.05), 90.0);
    EXPECT_EQ(RotationOf(179.95), 180.0);
    EXPECT_EQ(RotationOf(180.05), 180.0);
    EXPECT_EQ(RotationOf(269.95), 270.0);
    EXPECT_EQ(RotationOf(270.05), 270.0);
    EXPECT_EQ(RotationOf(359.95), 0.0);
    EXPECT_EQ(RotationOf(0.05), 0.0);
    EXPECT_EQ(RotationOf(0), 0.0);
    EXPECT_EQ(RotationOf(-0.05), 0.0);
}

TEST(Mtx2D, OtherRotationsDoNotSnap) {
    for (const double degrees : {0.2, 89.8, 90.2, 179.8, 180.2, 269.8, 270.2, 359.8, 30.0, 225.0}) {
        EXPECT_NEAR(RotationOf(degrees), degrees, 1e-9);
        EXPECT_NE(RotationOf(degrees), std::round(degrees / 90) * 90);
    }
    EXPECT_NEAR(RotationOf(-30), 330.0, 1e-9);
}

TEST(Mtx2D, BoundsOfTheSnappingAreOutsideIt) {
    for (const double degrees : {89.9, 90.1, 269.9, 270.1}) {
        EXPECT_EQ(RotationOf(degrees), degrees);
    }
}

TEST(Mtx2D, MirrorIsReportedBesideTheRotation) {
    Mtx2D m;
    m.ReflectInX();
    m.Rotate(30, 2);
    EXPECT_TRUE(XMirrorAndRotationOf(m).mirrored);
    EXPECT_NEAR(XMirrorAndRotationOf(m).degrees, 30.0, 1e-12);
    m.ReflectInX();
    EXPECT_FALSE(XMirrorAndRotationOf(m).mirrored);
    EXPECT_NEAR(XMirrorAndRotationOf(m).degrees, 330.0, 1e-12);
    EXPECT_TRUE(std::isnan(XMirrorAndRotationOf(MatrixOf(0, 0, 1, 1, 0, 0)).degrees));
}

TEST(Mtx2D, RotationOfATinyNegativeSineIsAFullTurn) {
    EXPECT_EQ(XMirrorAndRotationOf(MatrixOf(1, -1e-300, 0, 1, 0, 0)).degrees, 360.0);
}

struct MirrorAndOrient {
    bool mirrored;
    int orient;

    bool operator==(const MirrorAndOrient& o) const { return mirrored == o.mirrored && orient == o.orient; }
};

MirrorAndOrient OrientationAndXMirrorOf(Mtx2D m) {
    MirrorAndOrient r{};
    m.GetOrientationAndXMirror(&r.mirrored, &r.orient);
    return r;
}

MirrorAndOrient XMirrorAndOrientationOf(const Mtx2D& m) {
    MirrorAndOrient r{};
    m.GetXMirrorAndOrientation(&r.mirrored, &r.orient);
    return r;
}

TEST(Mtx2D, QuarterTurnCodesHaveNoTolerance) {
    const struct {
        double u, v;
        int orient;
    } expectations[] = {{1, 0, 0},      {1, -0.0, 0}, {-1, 0, 2},      {0, 1, 1},   {0, -1, 3},
                        {1, 1e-300, 1}, {-1, 1, 1},   {1, -1e-300, 3}, {-1, -1, 3}, {0, 0, -1}};
    for (const auto& [u, v, orient] : expectations) {
        // The second row is the first one turned by a quarter, so that nothing is mirrored.
        const Mtx2D m = MatrixOf(u, v, -v, u, 0, 0);
        EXPECT_EQ(OrientationAndXMirrorOf(m), (MirrorAndOrient{false, orient})) << u << " " << v;
        EXPECT_EQ(XMirrorAndOrientationOf(m), (MirrorAndOrient{false, orient})) << u << " " << v;
    }
}

TEST(Mtx2D, QuarterTurnCodesOfNaN) {
    const struct {
        double u, v;
        int orient;
    } expectations[] = {{kNaN, 0, -1}, {kNaN, 1, 1}, {kNaN, -1, 3}, {1, kNaN, 3}, {0, kNaN, 3}, {kNaN, kNaN, 3}};
    for (const auto& [u, v, orient] : expectations) {
        const Mtx2D m = MatrixOf(u, v, 1, 1, 0, 0);
        EXPECT_EQ(OrientationAndXMirrorOf(m), (MirrorAndOrient{false, orient})) << u << " " << v;
        EXPECT_EQ(XMirrorAndOrientationOf(m), (MirrorAndOrient{false, orient})) << u << " " << v;
    }
}

TEST(Mtx2D, QuarterTurnCodesOfAMirroredMatrix) {
    Mtx2D m;
    m.Rotate(90, 2);
    m.ReflectInX();
    EXPECT_EQ(OrientationAndXMirrorOf(m), (MirrorAndOrient{true, 1}));
    EXPECT_EQ(XMirrorAndOrientationOf(m), (MirrorAndOrient{true, 3}));

    Mtx2D turned;
    turned.ReflectInX();
    turned.Rotate(180, 2);
    EXPECT_EQ(OrientationAndXMirrorOf(turned), (MirrorAndOrient{true, 2}));
    EXPECT_EQ(XMirrorAndOrientationOf(turned), (MirrorAndOrient{true, 2}));
}

}  // namespace
