// SPDX-License-Identifier: MIT
#include "paths/connector_checks.h"

#include <bit>
#include <cmath>

namespace paths_tests {

using Vellum::AlignedDblRect;
using Vellum::ClosedShape;
using Vellum::DblPt;
using Vellum::PolylineConnector;
using Vellum::PolylineGeom;

reference::InputLine LineOf(const Points& points, uint32_t layer) {
    if (points.empty()) return {points, AlignedDblRect(), layer};
    AlignedDblRect extents(points[0], points[0]);
    for (const DblPt& p : points)
        extents += p;
    return {points, extents, layer};
}

PolylineGeom* NewPolyline(const reference::InputLine& line) {
    Points points = line.points;
    points.resize(points.size() + 2);
    auto* const polyline = new PolylineGeom(static_cast<unsigned>(points.size()), points.data());
    if (line.points.empty())
        *polyline = PolylineGeom();
    else
        polyline->TrimBack(static_cast<unsigned>(line.points.size() - 1));
    polyline->extents = line.extents;
    return polyline;
}

void AddTo(PolylineConnector& connector, const Network& network) {
    for (const reference::InputLine& line : network.lines)
        EXPECT_TRUE(connector.AddPolyline(NewPolyline(line), line.layer));
    for (const OwnedShape& owned : network.shapes) {
        ClosedShape* const copy = owned.shape->Clone();
        const size_t before = connector.connectors->size();
        EXPECT_TRUE(connector.AddConnector(copy, owned.layer));
        if (connector.connectors->size() == before) delete copy;
    }
}

std::vector<reference::InputShape> ShapesOf(const Network& network) {
    std::vector<reference::InputShape> shapes;
    for (const OwnedShape& owned : network.shapes) {
        DblPt centroid;
        owned.shape->GetCentroid(centroid);
        bool isDuplicate = false;
        for (const reference::InputShape& other : shapes) {
            DblPt otherCentroid;
            other.shape->GetCentroid(otherCentroid);
            isDuplicate = isDuplicate || (other.layer == owned.layer && otherCentroid.IsExactly(centroid));
        }
        if (!isDuplicate) shapes.push_back({owned.shape.get(), owned.layer});
    }
    return shapes;
}

std::vector<Points> TakeLines(unsigned count, PolylineGeom** out) {
    std::vector<Points> lines;
    for (unsigned i = 0; i < count; ++i) {
        lines.emplace_back(out[i]->Start(), out[i]->End());
        const AlignedDblRect extents = LineOf(lines.back(), 0).extents;
        EXPECT_TRUE(SameBits(out[i]->extents.ll.x, extents.ll.x) && SameBits(out[i]->extents.ll.y, extents.ll.y) &&
                    SameBits(out[i]->extents.ur.x, extents.ur.x) && SameBits(out[i]->extents.ur.y, extents.ur.y))
            << "extents of polyline " << i;
        delete out[i];
    }
    delete[] out;
    return lines;
}

std::vector<Points> Connected(const Network& network, double tol) {
    PolylineConnector connector;
    AddTo(connector, network);
    unsigned count = 0;
    PolylineGeom** out = nullptr;
    EXPECT_TRUE(connector.ConnectPolylines(tol, count, out));
    EXPECT_EQ(connector.failed, 0);
    return TakeLines(count, out);
}

bool SameBits(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) || std::bit_cast<uint64_t>(a) == std::bit_cast<uint64_t>(b);
}

testing::AssertionResult Hold(const std::vector<Points>& found, const std::vector<Points>& expected) {
    if (found.size() != expected.size())
        return testing::AssertionFailure() << found.size() << " lines instead of " << expected.size();
    for (size_t i = 0; i < found.size(); ++i) {
        if (found[i].size() != expected[i].size())
            return testing::AssertionFailure()
                   << "line " << i << ": " << found[i].size() << " points instead of " << expected[i].size();
        for (size_t k = 0; k < found[i].size(); ++k) {
            const DblPt& p = found[i][k];
            const DblPt& q = expected[i][k];
            if (SameBits(p.x, q.x) && SameBits(p.y, q.y)) continue;
            return testing::AssertionFailure() << "line " << i << ", point " << k << ": " << testing::PrintToString(p.x)
                                               << ", " << testing::PrintToString(p.y) << " instead of "
                                               << testing::PrintToString(q.x) << ", " << testing::PrintToString(q.y);
        }
    }
    return testing::AssertionSuccess();
}

}  // namespace paths_tests
