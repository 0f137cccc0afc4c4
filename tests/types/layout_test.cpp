// SPDX-License-Identifier: MIT

// The binary interface of the value types: hosts compiled long ago read these objects.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <type_traits>

#include "support/vtable.h"
#include "types/records_in_c.h"
#include "vellum/geometry.h"
#include "vellum/points.h"
#include "vellum/records.h"
#include "vellum/rectangles.h"
#include "vellum/shape.h"
#include "vellum/status.h"

// Both compilers lay a polymorphic class out as offsetof says, which the standard only permits.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

namespace {

using support::VtableSlot;
using Vellum::AlignedDblRect;
using Vellum::ClosedShape;
using Vellum::DblPt;
using Vellum::IntPt;
using Vellum::Shape;
using Vellum::Status;

static_assert(sizeof(DblPt) == 16 && offsetof(DblPt, x) == 0 && offsetof(DblPt, y) == 8);
static_assert(sizeof(IntPt) == 8 && offsetof(IntPt, x) == 0 && offsetof(IntPt, y) == 4);
static_assert(std::is_standard_layout_v<DblPt> && std::is_standard_layout_v<IntPt>);
static_assert(alignof(DblPt) == alignof(real_pt_t) && sizeof(DblPt) == sizeof(real_pt_t));
static_assert(alignof(IntPt) == alignof(int_pt_t) && sizeof(IntPt) == sizeof(int_pt_t));
static_assert(sizeof(Status) == 4 && offsetof(Status, code) == 0 && std::is_standard_layout_v<Status>);
static_assert(sizeof(Shape) == sizeof(void*) && sizeof(ClosedShape) == sizeof(void*));
static_assert(sizeof(void*) != 8 || sizeof(AlignedDblRect) == 40);
static_assert(offsetof(AlignedDblRect, ll) == 8 && offsetof(AlignedDblRect, ur) == 24);

static_assert(sizeof(real_pt_t) == 16 && offsetof(real_pt_t, x) == 0 && offsetof(real_pt_t, y) == 8);
static_assert(sizeof(int_pt_t) == 8 && offsetof(int_pt_t, x) == 0 && offsetof(int_pt_t, y) == 4);
static_assert(sizeof(short_pt_t) == 4 && offsetof(short_pt_t, x) == 0 && offsetof(short_pt_t, y) == 2);
static_assert(sizeof(real_rect_t) == 64 && offsetof(real_rect_t, ll) == 0 && offsetof(real_rect_t, ul) == 16 &&
              offsetof(real_rect_t, ur) == 32 && offsetof(real_rect_t, lr) == 48);
static_assert(sizeof(int_rect_t) == 32 && offsetof(int_rect_t, ll) == 0 && offsetof(int_rect_t, ul) == 8 &&
              offsetof(int_rect_t, ur) == 16 && offsetof(int_rect_t, lr) == 24);
static_assert(sizeof(void*) != 8 || sizeof(DrwPSetT) == 24);
static_assert(offsetof(DrwPSetT, numPts) == 0 && offsetof(DrwPSetT, pts) == sizeof(void*) &&
              offsetof(DrwPSetT, codes) == 2 * sizeof(void*));
static_assert(sizeof(DrwDPSetT) == sizeof(DrwPSetT) && offsetof(DrwDPSetT, numPts) == 0 &&
              offsetof(DrwDPSetT, pts) == sizeof(void*) && offsetof(DrwDPSetT, codes) == 2 * sizeof(void*));

static_assert(std::is_same_v<real_pt_t, Vellum::real_pt_t> && std::is_same_v<int_pt_t, Vellum::int_pt_t> &&
              std::is_same_v<short_pt_t, Vellum::short_pt_t> && std::is_same_v<real_rect_t, Vellum::real_rect_t> &&
              std::is_same_v<int_rect_t, Vellum::int_rect_t> && std::is_same_v<DrwPSetT, Vellum::DrwPSetT> &&
              std::is_same_v<DrwDPSetT, Vellum::DrwDPSetT>);

static_assert(std::is_abstract_v<ClosedShape> && !std::is_abstract_v<Shape>);
static_assert(std::has_virtual_destructor_v<Shape>);
static_assert(std::is_base_of_v<Shape, ClosedShape> && std::is_base_of_v<ClosedShape, AlignedDblRect>);

template <class Point>
concept ConvertsToRecord = requires(Point& p, real_pt_t& out) {
    p.ToRealPtT(out);
};
static_assert(ConvertsToRecord<DblPt> && !ConvertsToRecord<const DblPt>);

static_assert(std::is_same_v<std::underlying_type_t<Vellum::EntityHandleEnum::EntityHandle>, int32_t>);
static_assert(std::is_same_v<std::underlying_type_t<Vellum::MeasuringUnit>, int32_t>);
static_assert(std::is_same_v<std::underlying_type_t<Vellum::MeasurementSizeEnum::MeasurementSize>, int32_t>);
static_assert(std::is_same_v<std::underlying_type_t<Status::StCode>, uint32_t>);

static_assert(Vellum::EntityHandleEnum::HandleUpperLeft == 0 && Vellum::EntityHandleEnum::HandleTopMiddle == 1 &&
              Vellum::EntityHandleEnum::HandleUpperRight == 2 && Vellum::EntityHandleEnum::HandleMiddleLeft == 3 &&
              Vellum::EntityHandleEnum::HandleCenter == 4 && Vellum::EntityHandleEnum::HandleMiddleRight == 5 &&
              Vellum::EntityHandleEnum::HandleLowerLeft == 6 && Vellum::EntityHandleEnum::HandleBottomMiddle == 7 &&
              Vellum::EntityHandleEnum::HandleLowerRight == 8 && Vellum::EntityHandleEnum::HandleNone == 10);

static_assert(Vellum::UnitNone == 0 && Vellum::UnitInch == 1 && Vellum::UnitMillimetre == 2 &&
              Vellum::UnitUnnamed3 == 3 && Vellum::UnitFoot == 4 && Vellum::UnitMile == 5 && Vellum::UnitMetre == 6 &&
              Vellum::UnitKilometre == 7 && Vellum::UnitMil == 8 && Vellum::UnitMicron == 9 &&
              Vellum::UnitCentimetre == 10 && Vellum::UnitMicroinch == 11 && Vellum::UnitYard == 12 &&
              Vellum::UnitAngstrom == 13 && Vellum::UnitNanometre == 14 && Vellum::UnitDecimetre == 15 &&
              Vellum::UnitHectometre == 16 && Vellum::UnitGigametre == 17 && Vellum::UnitAstronomical == 18 &&
              Vellum::UnitLightYear == 19 && Vellum::UnitParsec == 20 && Vellum::UnitTenThousandth == 21 &&
              Vellum::UnitHundredThousandth == 22);

static_assert(Vellum::MeasurementSizeEnum::SizeNone == -2 && Vellum::MeasurementSizeEnum::SizeCustom == -1 &&
              Vellum::MeasurementSizeEnum::Size000625 == 0 && Vellum::MeasurementSizeEnum::Size00125 == 1 &&
              Vellum::MeasurementSizeEnum::Size0025 == 2 && Vellum::MeasurementSizeEnum::Size005 == 3 &&
              Vellum::MeasurementSizeEnum::Size0075 == 4 && Vellum::MeasurementSizeEnum::Size01 == 5 &&
              Vellum::MeasurementSizeEnum::Size02 == 6);

template <class T>
using ContainsPoint = bool (T::*)(const DblPt&, double) const;
template <class T>
using ContainsLoose = bool (T::*)(double, double, double) const;

template <class T>
void CheckSlots() {
    // The two destructors come first.
    EXPECT_EQ(VtableSlot(&T::Clone), 2);
    EXPECT_EQ(VtableSlot(&T::Print), 3);
    EXPECT_EQ(VtableSlot(ContainsPoint<T>{&T::Contains}), 4);
    EXPECT_EQ(VtableSlot(ContainsLoose<T>{&T::Contains}), 5);
    EXPECT_EQ(VtableSlot(&T::GetCentroid), 6);
    EXPECT_EQ(VtableSlot(&T::ApplyTransform), 7);
}

TEST(Layout, VirtualOperationsKeepTheirSlots) {
    CheckSlots<ClosedShape>();
    CheckSlots<AlignedDblRect>();
}

// Counts the destructions of its objects.
class CountedRect : public AlignedDblRect {
public:
    explicit CountedRect(int& count) : destroyed(count) {}
    CountedRect(const CountedRect&) = delete;
    CountedRect& operator=(const CountedRect&) = delete;
    ~CountedRect() override { ++destroyed; }

private:
    int& destroyed;
};

TEST(Layout, AShapeIsDestroyedThroughEitherBase) {
    int destroyed = 0;
    std::unique_ptr<Shape> shape = std::make_unique<CountedRect>(destroyed);
    shape.reset();
    EXPECT_EQ(destroyed, 1);
    std::unique_ptr<ClosedShape> closed = std::make_unique<CountedRect>(destroyed);
    closed.reset();
    EXPECT_EQ(destroyed, 2);
}

TEST(Layout, ACCompilerSeesTheSameRecords) {
    RecordSizes sizes = {};
    ReadRecordSizesInC(&sizes);
    EXPECT_EQ(sizes.realPt, sizeof(real_pt_t));
    EXPECT_EQ(sizes.intPt, sizeof(int_pt_t));
    EXPECT_EQ(sizes.shortPt, sizeof(short_pt_t));
    EXPECT_EQ(sizes.realRect, sizeof(real_rect_t));
    EXPECT_EQ(sizes.realRectLr, offsetof(real_rect_t, lr));
    EXPECT_EQ(sizes.intRect, sizeof(int_rect_t));
    EXPECT_EQ(sizes.intRectLr, offsetof(int_rect_t, lr));
    EXPECT_EQ(sizes.polySet, sizeof(DrwPSetT));
    EXPECT_EQ(sizes.polySetCodes, offsetof(DrwPSetT, codes));
    EXPECT_EQ(sizes.devicePolySet, sizeof(DrwDPSetT));
    EXPECT_EQ(sizes.devicePolySetCodes, offsetof(DrwDPSetT, codes));
    EXPECT_EQ(sizes.fontList, sizeof(fnt_lst_t));
    EXPECT_EQ(sizes.fontListFile, offsetof(fnt_lst_t, file_name));
}

}  // namespace
