// SPDX-License-Identifier: MIT
#include <geos_c.h>

#include "clipping_peer.h"
#include "suite.h"

namespace VellumBench {
namespace {

enum class Operation { Intersection, ClipByRectangle };

class Geos : public ClippingPeer {
public:
    Geos(const PolySet& set, WithinView within, Operation clipOperation)
        : ClippingPeer(set, within), context(GEOS_init_r()), operation(clipOperation) {
        set.ForEachPolygon([this](const real_pt_t* pts, size_t count) { polygons.push_back(ToPolygon(pts, count)); });
    }
    Geos(const Geos&) = delete;
    Geos& operator=(const Geos&) = delete;
    ~Geos() override {
        Destroy(polygons);
        Destroy(output);
        GEOSGeom_destroy_r(context, viewPolygon);
        GEOS_finish_r(context);
    }

    double Area() const override {
        double sum = 0;
        for (const GEOSGeometry* piece : output) {
            double area = 0;
            if (!piece || !GEOSArea_r(context, piece, &area)) Abort("GEOS cannot clip a polygon");
            sum += area;
        }
        return sum;
    }

private:
    void ConvertView() override {
        real_rect_t corners;
        CurrentView().Rectangle().ToRealRectT(corners);
        GEOSGeom_destroy_r(context, viewPolygon);
        viewPolygon = ToPolygon(&corners.ll, 4);
    }
    void ReleaseOutput() override { Destroy(output); }
    void CopyPolygon(size_t index) override { output.push_back(GEOSGeom_clone_r(context, polygons[index])); }
    void ClipPolygon(size_t index) override {
        const Box& bounds = CurrentView().Bounds();
        output.push_back(
            operation == Operation::Intersection
                ? GEOSIntersection_r(context, polygons[index], viewPolygon)
                : GEOSClipByRect_r(context, polygons[index], bounds.left, bounds.bottom, bounds.right, bounds.top));
    }

    GEOSGeometry* ToPolygon(const real_pt_t* pts, size_t count) const {
        std::vector<real_pt_t> closed(pts, pts + count);
        closed.push_back(pts[0]);
        GEOSCoordSequence* sequence =
            GEOSCoordSeq_copyFromBuffer_r(context, &closed[0].x, static_cast<unsigned>(closed.size()), 0, 0);
        return GEOSGeom_createPolygon_r(context, GEOSGeom_createLinearRing_r(context, sequence), nullptr, 0);
    }
    void Destroy(std::vector<GEOSGeometry*>& geometries) const {
        for (GEOSGeometry* geometry : geometries)
            GEOSGeom_destroy_r(context, geometry);
        geometries.clear();
    }

    GEOSContextHandle_t context;
    Operation operation;
    std::vector<GEOSGeometry*> polygons;
    GEOSGeometry* viewPolygon = nullptr;
    std::vector<GEOSGeometry*> output;
};

}  // namespace

std::unique_ptr<ClippingContender> MakeGeos(const PolySet& set, WithinView within) {
    return std::make_unique<Geos>(set, within, Operation::Intersection);
}

std::unique_ptr<ClippingContender> MakeGeosRectangle(const PolySet& set, WithinView within) {
    return std::make_unique<Geos>(set, within, Operation::ClipByRectangle);
}

}  // namespace VellumBench
