// SPDX-License-Identifier: MIT
#include <geos/algorithm/LineIntersector.h>
#include <geos/geom/Coordinate.h>
#include <geos/geom/CoordinateSequence.h>
#include <geos/geom/DefaultCoordinateSequenceFactory.h>
#include <geos/noding/IntersectionAdder.h>
#include <geos/noding/MCIndexNoder.h>
#include <geos/noding/NodedSegmentString.h>

#include "connector_contenders.h"
#include "geos_shapes.h"
#include "suite.h"

namespace VellumBench {
namespace {

using geos::noding::NodedSegmentString;
using geos::noding::SegmentString;

class GeosNode : public ConnectorContender {
public:
    explicit GeosNode(const Lines& lines) : input(shapes.MultiLine(lines)) {}

    void Connect() override {
        noded = GEOSNode_r(shapes.Context(), input);
        if (noded == nullptr) Abort("GEOS cannot node lines");
    }

    size_t CountPieces() const override {
        size_t pieces = 0;
        const int lines = GEOSGetNumGeometries_r(shapes.Context(), noded);
        for (int i = 0; i < lines; ++i) {
            const GEOSGeometry* line = GEOSGetGeometryN_r(shapes.Context(), noded, i);
            pieces += static_cast<size_t>(GEOSGeomGetNumPoints_r(shapes.Context(), line)) - 1;
        }
        return pieces;
    }

    void Release() override { GEOSGeom_destroy_r(shapes.Context(), noded); }

private:
    GeosShapes shapes;
    const GEOSGeometry* input;
    GEOSGeometry* noded = nullptr;
};

class GeosNoder : public ConnectorContender {
public:
    explicit GeosNoder(const Lines& lines) {
        for (const auto& points : lines) {
            std::vector<geos::geom::Coordinate> coordinates;
            for (const Vellum::DblPt& p : points)
                coordinates.emplace_back(p.x, p.y);
            const auto* factory = geos::geom::DefaultCoordinateSequenceFactory::instance();
            input.push_back(factory->create(std::move(coordinates)));
        }
    }

    void Connect() override {
        strings.reserve(input.size());
        for (auto& line : input)
            strings.push_back(new NodedSegmentString(line.release(), nullptr));
        geos::algorithm::LineIntersector intersector;
        geos::noding::IntersectionAdder adder(intersector);
        geos::noding::MCIndexNoder noder(&adder);
        noder.computeNodes(&strings);
        output.reset(noder.getNodedSubstrings());
    }

    size_t CountPieces() const override {
        size_t pieces = 0;
        for (const SegmentString* string : *output)
            pieces += string->size() - 1;
        return pieces;
    }

    void Release() override {
        for (const SegmentString* string : *output)
            delete string;
        output.reset();
        for (size_t i = 0; i < strings.size(); ++i) {
            input[i].reset(static_cast<NodedSegmentString*>(strings[i])->releaseCoordinates());
            delete strings[i];
        }
        strings.clear();
    }

private:
    std::vector<std::unique_ptr<geos::geom::CoordinateSequence>> input;
    std::vector<SegmentString*> strings;
    std::unique_ptr<std::vector<SegmentString*>> output;
};

}  // namespace

std::unique_ptr<ConnectorContender> MakeGeosNode(const Lines& lines, double) {
    return std::make_unique<GeosNode>(lines);
}

std::unique_ptr<ConnectorContender> MakeGeosNoder(const Lines& lines, double) {
    return std::make_unique<GeosNoder>(lines);
}

}  // namespace VellumBench
