// SPDX-License-Identifier: MIT
#include "view.h"

#include <gtest/gtest.h>

#include <cmath>

#include "error.h"

namespace {

using tool::View;
using tool::ViewRequest;

tool::Drawing Box(double left, double bottom, double right, double top) {
    tool::Drawing drawing;
    drawing.features.resize(1);
    drawing.features[0].geometry.points = {{left, bottom}, {right, top}};
    return drawing;
}

ViewRequest Request(double x, double y, double width, double rotation) {
    return {Vellum::DblPt(x, y), width, rotation};
}

void ExpectPoint(const Vellum::DblPt& p, double x, double y) {
    EXPECT_NEAR(p.x, x, 1e-9);
    EXPECT_NEAR(p.y, y, 1e-9);
}

TEST(View, ShowsTheWholeDrawingWithAMargin) {
    const View wide(Box(0, 0, 100, 10), {}, {400, 200});
    ExpectPoint(wide.Center(), 50, 5);
    EXPECT_DOUBLE_EQ(wide.Width(), 108.0);
    EXPECT_DOUBLE_EQ(wide.Height(), 54.0);
    const View tall(Box(0, 0, 10, 100), {}, {400, 200});
    EXPECT_DOUBLE_EQ(tall.Height(), 108.0);
    EXPECT_DOUBLE_EQ(tall.Width(), 216.0);
}

TEST(View, ShowsTheWholeDrawingTurned) {
    ViewRequest request;
    request.rotation = 90.0;
    const View view(Box(0, 0, 100, 10), request, {400, 200});
    ExpectPoint(view.Center(), 50, 5);
    EXPECT_DOUBLE_EQ(view.Height(), 108.0);

    // The ends of a diagonal lie level in a view that is turned with it.
    request.rotation = 45.0;
    const View diagonal(Box(0, 0, 100, 100), request, {400, 200});
    ExpectPoint(diagonal.Center(), 50, 50);
    EXPECT_NEAR(diagonal.Width(), 100.0 * std::sqrt(2.0) * 1.08, 1e-9);
}

TEST(View, TakesCenterAndWidthEachByItself) {
    ViewRequest request;
    request.center = Vellum::DblPt(7, 8);
    const View moved(Box(0, 0, 100, 10), request, {400, 200});
    ExpectPoint(moved.Center(), 7, 8);
    EXPECT_DOUBLE_EQ(moved.Width(), 108.0);
    request = {};
    request.width = 20.0;
    const View scaled(Box(0, 0, 100, 10), request, {400, 200});
    ExpectPoint(scaled.Center(), 50, 5);
    EXPECT_EQ(scaled.Width(), 20.0);
    EXPECT_EQ(scaled.Height(), 10.0);
}

TEST(View, GivesASinglePointSomeRoom) {
    EXPECT_EQ(View(Box(3, 4, 3, 4), {}, {400, 200}).Width(), 1.0);
    EXPECT_DOUBLE_EQ(View(Box(3e9, 4, 3e9, 4), {}, {400, 200}).Width(), 3000.0);
}

TEST(View, MapsTheModelToDeviceUnits) {
    const View view({}, Request(10, 20, 4, 0), {400, 200});
    Vellum::Mtx2D matrix = view.ToDevice();
    EXPECT_EQ(matrix.type, Vellum::Mtx2DAxisAligned);
    int x = 0;
    int y = 0;
    matrix.XfmPt(10, 20, x, y);
    EXPECT_EQ(x, 200 * 64);
    EXPECT_EQ(y, 100 * 64);
    matrix.XfmPt(8, 21, x, y);
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, 0);
    matrix.XfmPt(12, 19, x, y);
    EXPECT_EQ(x, 400 * 64);
    EXPECT_EQ(y, 200 * 64);
}

TEST(View, TurnsCounterClockwise) {
    // What lies to the north of the centre comes out to the right of a view turned by a quarter.
    Vellum::Mtx2D quarter = View({}, Request(10, 20, 4, 90), {400, 200}).ToDevice();
    EXPECT_EQ(quarter.type, Vellum::Mtx2DAxisSwapped);
    int x = 0;
    int y = 0;
    quarter.XfmPt(10, 22, x, y);
    EXPECT_EQ(x, 400 * 64);
    EXPECT_EQ(y, 100 * 64);

    Vellum::Mtx2D third = View({}, Request(0, 0, 4, 30), {400, 200}).ToDevice();
    third.XfmPt(std::sqrt(3.0), 1.0, x, y);
    EXPECT_EQ(x, 400 * 64);
    EXPECT_EQ(y, 100 * 64);
}

TEST(View, EqualTurnsAreEqual) {
    for (const double rotation : {-270.0, 450.0, 90.0 + 3600.0}) {
        Vellum::Mtx2D turned = View({}, Request(1, 2, 4, rotation), {400, 200}).ToDevice();
        EXPECT_FALSE(turned != View({}, Request(1, 2, 4, 90.0), {400, 200}).ToDevice()) << rotation;
    }
    Vellum::Mtx2D tiny = View({}, Request(1, 2, 4, -1e-20), {400, 200}).ToDevice();
    EXPECT_FALSE(tiny != View({}, Request(1, 2, 4, 0.0), {400, 200}).ToDevice());
}

TEST(View, RectOfAnUprightView) {
    const Vellum::DblRect rect = View({}, Request(10, 20, 4, 0), {400, 200}).Rect(1.0);
    ExpectPoint(rect.p0, 7, 18);
    ExpectPoint(rect.p1, 7, 22);
    ExpectPoint(rect.p2, 13, 22);
    ExpectPoint(rect.p3, 13, 18);
}

TEST(View, RectOfATurnedView) {
    const Vellum::DblRect quarter = View({}, Request(10, 20, 4, 90), {400, 200}).Rect(0.0);
    ExpectPoint(quarter.p0, 11, 18);
    ExpectPoint(quarter.p1, 9, 18);
    ExpectPoint(quarter.p2, 9, 22);
    ExpectPoint(quarter.p3, 11, 22);

    const double half = std::sqrt(0.5);
    const Vellum::DblRect eighth = View({}, Request(0, 0, 2, 45), {300, 300}).Rect(0.0);
    ExpectPoint(eighth.p0, 0, -2 * half);
    ExpectPoint(eighth.p1, -2 * half, 0);
    ExpectPoint(eighth.p2, 0, 2 * half);
    ExpectPoint(eighth.p3, 2 * half, 0);
}

TEST(View, RectKeepsItsFourCornersHoweverLittleItIsTurned) {
    const Vellum::DblRect rect = View({}, Request(1000, 1000, 4, 1e-14), {400, 200}).Rect(0.0);
    ExpectPoint(rect.p0, 998, 999);
    ExpectPoint(rect.p1, 998, 1001);
    ExpectPoint(rect.p2, 1002, 1001);
    ExpectPoint(rect.p3, 1002, 999);
}

TEST(View, RefusesPixelsFinerThanNumbers) {
    EXPECT_NO_THROW(View({}, Request(1e6, 0, 1e-3, 0), {1000, 1000}));
    EXPECT_THROW(View({}, Request(1e6, 0, 1e-9, 0), {1000, 1000}), tool::Error);
    EXPECT_THROW(View({}, Request(0, -1e30, 1, 0), {1000, 1000}), tool::Error);
}

}  // namespace
