// SPDX-License-Identifier: MIT
#include "vellum/connector.h"

#include <optional>

#include "connector_contenders.h"
#include "heap_use.h"
#include "suite.h"

namespace VellumBench {
namespace {

using Vellum::PolylineGeom;

class VellumConnector : public ConnectorContender {
public:
    VellumConnector(const Lines& lines, double tolerance) : tol(tolerance) {
        input.reserve(lines.size());
        for (const auto& points : lines)
            input.push_back(std::make_unique<PolylineGeom>(static_cast<unsigned>(points.size()), points.data()));
    }

    void Connect() override {
        connector.emplace();
        for (const auto& line : input)
            connector->AddPolyline(line.get(), 0);
        if (!connector->ConnectPolylines(tol, count, output)) Abort("Vellum cannot connect polylines");
    }

    size_t CountPieces() const override {
        size_t pieces = 0;
        for (size_t i = 0; i < input.size(); ++i)
            pieces += output[i]->NPts() - 1;
        return pieces;
    }

    Lines Output() const {
        Lines lines;
        for (unsigned i = 0; i < count; ++i)
            lines.emplace_back(output[i]->Start(), output[i]->End());
        return lines;
    }

    void Release() override {
        ReleaseConnector();
        ReleaseOutput();
    }

    void ReleaseConnector() {
        // The connector would destroy them, and they are wanted again.
        for (Vellum::LayerPolyline* line : *connector->polylines)
            line->poly = nullptr;
        connector.reset();
    }
    void ReleaseOutput() {
        for (unsigned i = 0; i < count; ++i)
            delete output[i];
        delete[] output;
    }

private:
    double tol;
    std::vector<std::unique_ptr<PolylineGeom>> input;
    std::optional<Vellum::PolylineConnector> connector;
    unsigned count = 0;
    PolylineGeom** output = nullptr;
};

}  // namespace

std::unique_ptr<ConnectorContender> MakeVellumConnector(const Lines& lines, double tol) {
    return std::make_unique<VellumConnector>(lines, tol);
}

Lines ConnectedByVellum(const Lines& lines, double tol) {
    VellumConnector connector(lines, tol);
    connector.Connect();
    Lines connected = connector.Output();
    connector.Release();
    return connected;
}

double MemoryShareOfVellumConnector(const Lines& lines, double tol) {
    const HeapUse heap;
    VellumConnector connector(lines, tol);
    const double input = heap.Now();
    connector.Connect();
    const double most = heap.Most();
    connector.ReleaseConnector();
    const double inputAndOutput = heap.Now();
    connector.ReleaseOutput();
    return input == 0 ? 0 : most / inputAndOutput;
}

}  // namespace VellumBench
