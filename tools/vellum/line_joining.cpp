// SPDX-License-Identifier: MIT
#include "line_joining.h"

#include <memory>
#include <new>
#include <span>
#include <utility>

#include "error.h"
#include "feature_parts.h"

namespace tool {

namespace {

void Add(const FeatureLine& line, unsigned layer, Vellum::PolylineConnector& connector) {
    std::unique_ptr<Vellum::PolylineGeom> polyline = NewPolyline(line.points);
    if (!connector.AddPolyline(polyline.get(), layer)) throw std::bad_alloc();
    static_cast<void>(polyline.release());
}

/// Owns what a connector hands out.
class ConnectorOutput {
public:
    ConnectorOutput(Vellum::PolylineConnector& connector, double tolerance) {
        const bool done = connector.ConnectPolylines(tolerance, count_, polylines_);
        if (!done || connector.failed != 0) {
            Free();
            throw std::bad_alloc();
        }
    }
    ~ConnectorOutput() { Free(); }
    ConnectorOutput(const ConnectorOutput&) = delete;
    ConnectorOutput& operator=(const ConnectorOutput&) = delete;

    std::span<const Vellum::PolylineGeom* const> Polylines() const { return {polylines_, count_}; }

private:
    void Free() {
        for (unsigned i = 0; i < count_; ++i) {
            delete polylines_[i];
        }
        delete[] polylines_;
    }

    unsigned count_ = 0;
    Vellum::PolylineGeom** polylines_ = nullptr;
};

Points PointsOf(const Vellum::PolylineGeom& polyline) { return {polyline.Start(), polyline.End()}; }

/// A line that was split has its own points in their order, and the split points between them.
void AppendSplitPoints(const Points& line, const Points& split, Points& splitPoints) {
    std::size_t next = 0;
    for (const Vellum::DblPt& point : split) {
        if (next < line.size() && point.IsExactly(line[next])) {
            ++next;
        } else {
            splitPoints.push_back(point);
        }
    }
}

}  // namespace

std::vector<FeatureLine> LinesOf(const Drawing& drawing, const std::string& file) {
    std::vector<FeatureLine> lines;
    for (std::size_t i = 0; i < drawing.features.size(); ++i) {
        for (const Points& line : drawing.features[i].geometry.lines) {
            lines.push_back({line, i});
        }
    }
    if (lines.empty()) throw Error(file + ": holds no line");
    return lines;
}

JoinedLines JoinLines(const std::vector<FeatureLine>& lines, const std::vector<unsigned>& layers, double tolerance) {
    Vellum::PolylineConnector connector;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        Add(lines[i], layers[i], connector);
    }
    const ConnectorOutput output(connector, tolerance);

    JoinedLines joined;
    for (const Vellum::PolylineGeom* polyline : output.Polylines().first(lines.size())) {
        Points split = PointsOf(*polyline);
        AppendSplitPoints(lines[joined.lines.size()].points, split, joined.splitPoints);
        joined.lines.push_back(std::move(split));
    }
    for (const Vellum::PolylineGeom* polyline : output.Polylines().subspan(lines.size())) {
        joined.joining.push_back(PointsOf(*polyline));
    }
    return joined;
}

}  // namespace tool
