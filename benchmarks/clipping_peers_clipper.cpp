// SPDX-License-Identifier: MIT
#include <clipper.hpp>
#include <cmath>

#include "clipping_peer.h"

namespace VellumBench {
namespace {

using ClipperLib::Path;
using ClipperLib::Paths;

/// Keeps both data sets below 2^30, where Clipper computes with 64-bit integers.
constexpr double kUnitsPerModelUnit = 1e6;

Path ToPath(const real_pt_t* pts, size_t count) {
    Path path;
    for (size_t i = 0; i < count; ++i) {
        path.emplace_back(std::llround(pts[i].x * kUnitsPerModelUnit), std::llround(pts[i].y * kUnitsPerModelUnit));
    }
    return path;
}

class Clipper : public ClippingPeer {
public:
    Clipper(const PolySet& set, WithinView within) : ClippingPeer(set, within) {
        set.ForEachPolygon([this](const real_pt_t* pts, size_t count) { paths.push_back(ToPath(pts, count)); });
    }

    double Area() const override {
        double sum = 0;
        for (const Path& path : output)
            sum += std::fabs(ClipperLib::Area(path));
        return sum / (kUnitsPerModelUnit * kUnitsPerModelUnit);
    }

private:
    void ConvertView() override {
        real_rect_t corners;
        CurrentView().Rectangle().ToRealRectT(corners);
        viewPath = ToPath(&corners.ll, 4);
    }
    void ReleaseOutput() override { output.clear(); }
    void CopyPolygon(size_t index) override { output.push_back(paths[index]); }
    void ClipPolygon(size_t index) override {
        clipper.Clear();
        clipper.AddPath(paths[index], ClipperLib::ptSubject, true);
        clipper.AddPath(viewPath, ClipperLib::ptClip, true);
        clipper.Execute(ClipperLib::ctIntersection, pieces, ClipperLib::pftNonZero, ClipperLib::pftNonZero);
        for (Path& piece : pieces)
            output.push_back(std::move(piece));
    }

    Paths paths;
    Path viewPath;
    ClipperLib::Clipper clipper;
    Paths pieces;
    Paths output;
};

}  // namespace

std::unique_ptr<ClippingContender> MakeClipper(const PolySet& set, WithinView within) {
    return std::make_unique<Clipper>(set, within);
}

}  // namespace VellumBench
