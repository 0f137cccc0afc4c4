// SPDX-License-Identifier: MIT

// The binary interface of the shapes: hosts compiled long ago read these objects and call through their tables.

#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

#include "support/vtable.h"
#include "vellum/circles.h"
#include "vellum/ellipses.h"
#include "vellum/matrix.h"
#include "vellum/polylines.h"
#include "vellum/rectangles.h"
#include "vellum/restricted_text.h"
#include "vellum/segment.h"

// Both compilers lay a polymorphic class out as offsetof says, which the standard only permits.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

namespace {

using support::VtableSlot;
using Vellum::ArcGeom;
using Vellum::CircleGeom;
using Vellum::ClosedShape;
using Vellum::DblPt;
using Vellum::EllipseGeom;
using Vellum::EllipticalArcGeom;
using Vellum::LineSegmentGeom;
using Vellum::Mtx2D;
using Vellum::PolygonGeom;
using Vellum::PolylineGeom;
using Vellum::RestrictedTextGeom;
using Vellum::Shape;

static_assert(sizeof(LineSegmentGeom) == 40 && offsetof(LineSegmentGeom, start) == 8 &&
              offsetof(LineSegmentGeom, end) == 24);
static_assert(sizeof(PolylineGeom) == 64 && offsetof(PolylineGeom, nPts) == 8 && offsetof(PolylineGeom, pts) == 16 &&
              offsetof(PolylineGeom, extents) == 24);
static_assert(sizeof(PolygonGeom) == 64 && offsetof(PolygonGeom, nPts) == 8 && offsetof(PolygonGeom, pts) == 16 &&
              offsetof(PolygonGeom, extents) == 24);
static_assert(sizeof(CircleGeom) == 32 && offsetof(CircleGeom, center) == 8 && offsetof(CircleGeom, radius) == 24);
static_assert(sizeof(ArcGeom) == 56 && offsetof(ArcGeom, startVec) == 8 && offsetof(ArcGeom, center) == 24 &&
              offsetof(ArcGeom, radius) == 40 && offsetof(ArcGeom, angle) == 48);
static_assert(sizeof(EllipseGeom) == 56 && offsetof(EllipseGeom, center) == 8 && offsetof(EllipseGeom, major) == 24 &&
              offsetof(EllipseGeom, minor) == 40);
static_assert(sizeof(EllipticalArcGeom) == 88 && offsetof(EllipticalArcGeom, center) == 8 &&
              offsetof(EllipticalArcGeom, conjugateDiameterPt1) == 24 &&
              offsetof(EllipticalArcGeom, conjugateDiameterPt2) == 40 && offsetof(EllipticalArcGeom, start) == 56 &&
              offsetof(EllipticalArcGeom, end) == 72);

template <class Base, class Derived>
constexpr bool kDerivesFrom = std::is_base_of_v<Base, Derived>;

static_assert(kDerivesFrom<ClosedShape, PolygonGeom> && kDerivesFrom<ClosedShape, CircleGeom> &&
              kDerivesFrom<ClosedShape, EllipseGeom>);
// The open shapes add nothing to the table of their base.
static_assert(kDerivesFrom<Shape, LineSegmentGeom> && !kDerivesFrom<ClosedShape, LineSegmentGeom>);
static_assert(kDerivesFrom<Shape, PolylineGeom> && !kDerivesFrom<ClosedShape, PolylineGeom>);
static_assert(kDerivesFrom<Shape, ArcGeom> && !kDerivesFrom<ClosedShape, ArcGeom>);
static_assert(kDerivesFrom<Shape, EllipticalArcGeom> && !kDerivesFrom<ClosedShape, EllipticalArcGeom>);
static_assert(kDerivesFrom<Shape, RestrictedTextGeom> && !kDerivesFrom<ClosedShape, RestrictedTextGeom>);

template <class Geom>
class ClosedShapeSlots : public testing::Test {};

using ClosedShapes = testing::Types<PolygonGeom, CircleGeom, EllipseGeom>;
TYPED_TEST_SUITE(ClosedShapeSlots, ClosedShapes);

TYPED_TEST(ClosedShapeSlots, FollowTheDestructorsInTheInterfacesOrder) {
    using Geom = TypeParam;
    EXPECT_EQ(VtableSlot(&Geom::Clone), 2);
    EXPECT_EQ(VtableSlot(&Geom::Print), 3);
    EXPECT_EQ(VtableSlot<bool (Geom::*)(const DblPt&, double) const>(&Geom::Contains), 4);
    EXPECT_EQ(VtableSlot<bool (Geom::*)(double, double, double) const>(&Geom::Contains), 5);
    EXPECT_EQ(VtableSlot(&Geom::GetCentroid), 6);
    EXPECT_EQ(VtableSlot(&Geom::ApplyTransform), 7);
}

template <class Geom>
class OpenShapeDestruction : public testing::Test {};

using OpenShapes = testing::Types<LineSegmentGeom, PolylineGeom, ArcGeom, EllipticalArcGeom, RestrictedTextGeom>;
TYPED_TEST_SUITE(OpenShapeDestruction, OpenShapes);

TYPED_TEST(OpenShapeDestruction, WorksThroughTheBase) {
    static_assert(std::has_virtual_destructor_v<TypeParam>);
    Shape* shape = new TypeParam();
    delete shape;
}

// The open shapes have no table entries for these: what a derived class declares is not called through its base.
TEST(LineSegmentMembers, AreNotVirtual) {
    struct Own : LineSegmentGeom {
        bool called = false;
        void ApplyTransform(const Mtx2D* /*m*/) { called = true; }
    };
    const Mtx2D m;
    Own own;
    LineSegmentGeom& base = own;
    base.ApplyTransform(&m);
    EXPECT_FALSE(own.called);
}

TEST(PolylineMembers, AreNotVirtual) {
    struct Own : PolylineGeom {
        mutable bool called = false;
        void ApplyTransform(const Mtx2D* /*m*/) { called = true; }
        void Print() const { called = true; }
    };
    const Mtx2D m;
    Own own;
    PolylineGeom& base = own;
    base.ApplyTransform(&m);
    EXPECT_FALSE(own.called);
    base.Print();
    EXPECT_FALSE(own.called);
}

}  // namespace
