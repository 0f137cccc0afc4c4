// SPDX-License-Identifier: MIT

// What crosses the border between a host and the shared library: dynamic types, virtual members of both, and memory.

#include <gtest/gtest.h>

#include <memory>
#include <typeinfo>

#include "support/point_checks.h"
#include "vellum/vellum.h"

namespace {

using support::IsAt;

class HostRegion : public Vellum::PickRect {
public:
    HostRegion() : PickRect(1.0, 2.0, 5.0, 8.0) {}
    void Reserved() override { ++calls; }

    int calls = 0;
};

class HostCircle : public Vellum::CircleGeom {
public:
    explicit HostCircle(bool& told) : CircleGeom(3.0, 4.0, 2.0), gone(told) {}
    HostCircle(const HostCircle&) = delete;
    HostCircle& operator=(const HostCircle&) = delete;
    ~HostCircle() override { gone = true; }

private:
    bool& gone;
};

TEST(LibraryBorder, AHostsRegionHasTheLibrarysMembersAndItsOwn) {
    HostRegion host;
    Vellum::PickRegion& region = host;
    EXPECT_TRUE(region.Contains(5.0, 8.0, 0.0));
    EXPECT_FALSE(region.Contains(5.5, 8.0, 0.0));
    EXPECT_EQ(region.Top(), 8.0);
    region.Reserved();
    EXPECT_EQ(host.calls, 1);
    EXPECT_EQ(dynamic_cast<HostRegion*>(&region), &host);
    EXPECT_EQ(dynamic_cast<Vellum::PickRect*>(&region), &host);
}

TEST(LibraryBorder, WhatTheLibraryMakesHasItsDynamicType) {
    Vellum::DblPt center(3.0, 4.0);
    const Vellum::CircleGeom circle(center, 2.0);
    const std::unique_ptr<Vellum::ClosedShape> clone(circle.Clone());
    const Vellum::Shape& shape = *clone;
    EXPECT_EQ(typeid(shape), typeid(Vellum::CircleGeom));
    EXPECT_NE(dynamic_cast<const Vellum::CircleGeom*>(&shape), nullptr);
    EXPECT_NE(dynamic_cast<const Vellum::ClosedShape*>(&shape), nullptr);
    EXPECT_EQ(dynamic_cast<const Vellum::PolygonGeom*>(&shape), nullptr);
}

TEST(LibraryBorder, TheLibraryTakesWhatAHostDerives) {
    bool gone = false;
    {
        const std::unique_ptr<Vellum::Shape> shape = std::make_unique<HostCircle>(gone);
        const auto* circle = dynamic_cast<const Vellum::CircleGeom*>(shape.get());
        ASSERT_NE(circle, nullptr);
        const Vellum::CircleGeom other(10.0, 4.0, 1.0);
        Vellum::DblPt onA;
        Vellum::DblPt onB;
        ASSERT_TRUE(Vellum::CircleCircleGeomClearance(circle, &other, nullptr, &onA, &onB));
        EXPECT_TRUE(IsAt(onA, 5.0, 4.0));
        EXPECT_TRUE(IsAt(onB, 9.0, 4.0));
    }
    EXPECT_TRUE(gone);
}

TEST(LibraryBorder, AHostReleasesWhatTheLibraryAllocates) {
    Vellum::DblPtVec points;
    ASSERT_TRUE(points.push_back(Vellum::DblPt(1.0, 2.0)));
    ASSERT_TRUE(points.push_back(Vellum::DblPt(3.0, 5.0)));
    Vellum::PolylineGeom* line = nullptr;
    ASSERT_TRUE(Vellum::ToPolylineGeom(points, &line));
    const std::unique_ptr<Vellum::PolylineGeom> owner(line);
    EXPECT_TRUE(IsAt(line->Pts()[1], 3.0, 5.0));
    EXPECT_TRUE(line->AddPoint(Vellum::DblPt(7.0, 9.0)));
    EXPECT_TRUE(IsAt(line->Pts()[2], 7.0, 9.0));
}

}  // namespace
