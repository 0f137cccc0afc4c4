// SPDX-License-Identifier: MIT
#include <cmath>

#include "clipping_contenders.h"
#include "vellum/clipping.h"

namespace VellumBench {
namespace {

double AreaOf(const real_pt_t* pts, size_t count) {
    const real_pt_t origin = pts[0];
    double doubled = 0;
    for (size_t i = 0; i < count; ++i) {
        const real_pt_t& a = pts[i];
        const real_pt_t& b = pts[(i + 1) % count];
        doubled += (a.x - origin.x) * (b.y - origin.y) - (b.x - origin.x) * (a.y - origin.y);
    }
    return std::fabs(doubled / 2);
}

template <typename ClipFunction>
class VellumContender : public ClippingContender {
public:
    VellumContender(const PolySet& set, ClipFunction clipFunction) : input(set.Record()), clip(clipFunction) {
        output.pts.resize(Vellum::ClipPolygonSetMaxPts(&input));
        output.codes.resize(output.pts.size());
    }

    void SetView(const View& view) override { rectangle = view.Rectangle(); }

    void Clip() override {
        DrwPSetT record = {0, output.pts.data(), output.codes.data()};
        clip(&input, &record, &rectangle);
        count = static_cast<size_t>(record.numPts);
    }

    double Area() const override {
        double sum = 0;
        output.ForEachPolygon(count, [&sum](const real_pt_t* pts, size_t size) { sum += AreaOf(pts, size); });
        return sum;
    }

private:
    DrwPSetT input;
    ClipFunction clip;
    Vellum::DblRect rectangle;
    PolySet output;
    size_t count = 0;
};

template <typename ClipFunction>
std::unique_ptr<ClippingContender> MakeContender(const PolySet& set, ClipFunction clipFunction) {
    return std::make_unique<VellumContender<ClipFunction>>(set, clipFunction);
}

}  // namespace

std::unique_ptr<ClippingContender> MakeClipPolygonSetComplete(const PolySet& set) {
    return MakeContender(set, Vellum::ClipPolygonSetComplete);
}

std::unique_ptr<ClippingContender> MakeClipPolygonSet(const PolySet& set) {
    return MakeContender(set, Vellum::ClipPolygonSet);
}

}  // namespace VellumBench
