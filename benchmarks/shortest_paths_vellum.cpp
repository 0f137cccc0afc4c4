// SPDX-License-Identifier: MIT
#include <optional>

#include "shortest_paths_contenders.h"
#include "suite.h"
#include "vellum/shortest_paths.h"

namespace VellumBench {
namespace {

using Vellum::PolylineGeom;

class VellumPaths : public PathsContender {
public:
    explicit VellumPaths(const Lines& lines)
        : count(static_cast<unsigned>(lines.size())), network(new PolylineGeom*[lines.size()]) {
        for (size_t i = 0; i < count; ++i)
            network[i] = new PolylineGeom(static_cast<unsigned>(lines[i].size()), lines[i].data());
    }
    VellumPaths(const VellumPaths&) = delete;
    VellumPaths& operator=(const VellumPaths&) = delete;
    ~VellumPaths() override {
        if (engine) VellumPaths::Release();
        for (size_t i = 0; i < count; ++i)
            delete network[i];
        delete[] network;
    }

    void Build() override { engine.emplace(network, count); }
    void Search(const Vellum::DblPt& start) override {
        if (!engine->BuildSPT(start)) Abort("Vellum cannot search a network");
    }
    double CostOf(const Place& place) const override { return engine->nodePolys[place.line][place.point]->cost; }
    void Release() override {
        // The engine would destroy them, and they are wanted again.
        engine->polylines = nullptr;
        engine.reset();
    }

private:
    unsigned count;
    PolylineGeom** network;
    std::optional<Vellum::SPTEngine> engine;
};

}  // namespace

std::unique_ptr<PathsContender> MakeVellumPaths(const Lines& lines) { return std::make_unique<VellumPaths>(lines); }

}  // namespace VellumBench
