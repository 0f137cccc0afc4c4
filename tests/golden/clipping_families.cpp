// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstdint>

#include "golden/families.h"
#include "vellum/clipping.h"

namespace golden {

using Vellum::DblPt;
using Vellum::DblRect;
using Vellum::DrwPSetT;
using Vellum::real_pt_t;

namespace {

class PointSet {
public:
    explicit PointSet(size_t room) : pts_(room), codes_(room) {}

    /// A polygon, with end codes before it now and then.
    void AddPolygon(const std::vector<DblPt>& points, Inputs& inputs) {
        if (inputs.random.OneIn(10)) AddPoint(DblPt(1, 2), 2);
        for (size_t i = 0; i < points.size(); ++i) {
            const int inner = inputs.random.OneIn(30) ? 77 : inputs.random.Between(0, 1);
            const int last = inputs.random.Between(2, 3);
            AddPoint(points[i], static_cast<uint32_t>(i + 1 == points.size() ? last : inner));
        }
    }

    /// The polygon that was added last has no end.
    void OpenTail() { codes_.back() = 0; }

    DrwPSetT Input() { return {static_cast<int32_t>(pts_.size()), pts_.data(), codes_.data()}; }
    DrwPSetT Output() { return {0, pts_.data(), codes_.data()}; }

private:
    void AddPoint(const DblPt& p, uint32_t code) {
        pts_.push_back({p.x, p.y});
        codes_.push_back(code);
    }

    std::vector<real_pt_t> pts_;
    std::vector<uint32_t> codes_;
};

PointSet DrawPolygons(Inputs& inputs, Kind kind) {
    PointSet set(0);
    const size_t polygons = 1 + inputs.random.Below(6);
    for (size_t k = 0; k < polygons; ++k) {
        const size_t few = 1 + inputs.random.Below(9);
        const size_t any = inputs.random.OneOf(kCounts);
        const size_t count = inputs.random.OneIn(3) ? any : few;
        const bool isRing = inputs.random.OneIn(2);
        set.AddPolygon(isRing ? inputs.Ring(kind, count) : inputs.Points(kind, count), inputs);
    }
    set.AddPolygon(inputs.Points(kind, 4), inputs);
    if (inputs.random.OneIn(6)) set.OpenTail();
    return set;
}

/// Around everything, turned: what lies within it is found so without a crossing.
DblRect WideRectangle() { return DblRect(DblPt(-40, 0), DblPt(0, 30), DblPt(40, 0), DblPt(0, -30)); }

template <class Clip>
void ClipAll(Inputs& inputs, Digest& digest, Clip clip) {
    for (const Kind kind : kAllKinds) {
        for (int i = 0; i < 120; ++i) {
            PointSet polygons = DrawPolygons(inputs, kind);
            DrwPSetT in = polygons.Input();
            DblRect rectangle = inputs.random.OneIn(8) ? WideRectangle() : inputs.Rectangle(kind);
            PointSet clipped(Vellum::ClipPolygonSetMaxPts(&in));
            DrwPSetT out = clipped.Output();
            clip(&in, &out, &rectangle);
            digest.Add(out.numPts);
            digest.AddAll(out.pts, static_cast<size_t>(out.numPts));
            digest.AddAll(out.codes, static_cast<size_t>(out.numPts));
        }
    }
}

void Traced(Inputs& inputs, Digest& digest) { ClipAll(inputs, digest, Vellum::ClipPolygonSet); }

void Complete(Inputs& inputs, Digest& digest) { ClipAll(inputs, digest, Vellum::ClipPolygonSetComplete); }

void MostPoints(Inputs& inputs, Digest& digest) {
    for (const Kind kind : kAllKinds) {
        for (int i = 0; i < 120; ++i) {
            PointSet polygons = DrawPolygons(inputs, kind);
            const DrwPSetT in = polygons.Input();
            digest.Add(Vellum::ClipPolygonSetMaxPts(&in));
        }
    }
}

}  // namespace

Families ClippingFamilies() {
    return {{"clipping.traced", Traced}, {"clipping.complete", Complete}, {"clipping.most_points", MostPoints}};
}

}  // namespace golden
