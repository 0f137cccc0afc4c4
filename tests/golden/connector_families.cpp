// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "golden/families.h"
#include "vellum/circles.h"
#include "vellum/connector.h"
#include "vellum/ellipses.h"

namespace golden {

using Vellum::ClosedShape;
using Vellum::DblPt;
using Vellum::PolygonGeom;
using Vellum::PolylineConnector;
using Vellum::PolylineGeom;

namespace {

constexpr int kRuns = 60;
constexpr size_t kLayers = 2;

uint32_t DrawLayer(Inputs& inputs) { return static_cast<uint32_t>(inputs.random.Below(kLayers)) * 0x80000001U; }

void AddLine(Inputs& inputs, Kind kind, PolylineConnector& connector) {
    const size_t few = 2 + inputs.random.Below(5);
    const size_t count = inputs.random.OneIn(20) ? inputs.random.Below(100) : few;
    const auto points = inputs.Points(kind, count);
    auto* const line = new PolylineGeom(static_cast<unsigned>(count), points.data());
    if (inputs.random.OneIn(16)) line->extents = inputs.Box(kind);
    connector.AddPolyline(line, DrawLayer(inputs));
}

std::unique_ptr<ClosedShape> DrawShape(Inputs& inputs, Kind kind) {
    const auto points = inputs.Points(kind, 7);
    switch (inputs.random.Below(5)) {
        case 0:
            return std::make_unique<Vellum::AlignedDblRect>(inputs.Box(kind));
        case 1:
            return std::make_unique<Vellum::DblRect>(inputs.Rectangle(kind));
        case 2:
            return std::make_unique<Vellum::CircleGeom>(points[0], std::fabs(points[1].x));
        case 3:
            return std::make_unique<PolygonGeom>(static_cast<unsigned>(points.size()), points.data());
        default:
            return std::make_unique<Vellum::EllipseGeom>(points[0], points[1], points[2]);
    }
}

void AddShape(Inputs& inputs, Kind kind, PolylineConnector& connector) {
    std::unique_ptr<ClosedShape> shape = DrawShape(inputs, kind);
    const size_t before = connector.connectors->size();
    connector.AddConnector(shape.get(), DrawLayer(inputs));
    if (connector.connectors->size() != before) static_cast<void>(shape.release());
}

void Run(Inputs& inputs, Digest& digest, PolylineConnector& connector) {
    unsigned count = 0;
    PolylineGeom** lines = nullptr;
    digest.Add(connector.ConnectPolylines(inputs.Tolerance(), count, lines), count, connector.failed);
    for (unsigned i = 0; i < count; ++i) {
        digest.Add(lines[i]->NPts(), lines[i]->Extents());
        digest.AddAll(lines[i]->Pts(), lines[i]->NPts());
        delete lines[i];
    }
    delete[] lines;
}

void ConnectAll(Inputs& inputs, Digest& digest, bool withShapes) {
    for (const Kind kind : kAllKinds) {
        for (int i = 0; i < kRuns; ++i) {
            PolylineConnector connector;
            const size_t lines = 1 + inputs.random.Below(i % 10 == 0 ? 60 : 14);
            for (size_t k = 0; k < lines; ++k)
                AddLine(inputs, kind, connector);
            const size_t shapes = withShapes ? 1 + inputs.random.Below(20) : 0;
            for (size_t k = 0; k < shapes; ++k)
                AddShape(inputs, kind, connector);
            Run(inputs, digest, connector);
        }
    }
}

void Lines(Inputs& inputs, Digest& digest) { ConnectAll(inputs, digest, false); }

void LinesAndShapes(Inputs& inputs, Digest& digest) { ConnectAll(inputs, digest, true); }

}  // namespace

Families ConnectorFamilies() { return {{"connector.lines", Lines}, {"connector.lines_and_shapes", LinesAndShapes}}; }

}  // namespace golden
