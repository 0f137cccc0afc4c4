// SPDX-License-Identifier: MIT
#include "transform_peers.h"

#include <agg_basics.h>
#include <agg_trans_affine.h>

#include <Eigen/Geometry>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometry.hpp>

namespace VellumBench {

namespace geometry = boost::geometry;
using Vellum::DblPt;
using Vellum::Mtx2D;

namespace {

// Boost's own rounding conversion checks the range of every number, which a host would not pay for.
int32_t RoundToDevice(double v) { return static_cast<int32_t>(v < 0.0 ? v - 0.5 : v + 0.5); }

}  // namespace

void AggXfmPts(const Mtx2D& m, int n, const DblPt* in, int_pt_t* out) {
    const agg::trans_affine affine(m.m11, m.m12, m.m21, m.m22, m.dx, m.dy);
    for (int i = 0; i < n; ++i) {
        double x = in[i].x;
        double y = in[i].y;
        affine.transform(&x, &y);
        out[i] = {agg::iround(x), agg::iround(y)};
    }
}

void BoostXfmPts(const Mtx2D& m, int n, const DblPt* in, int_pt_t* out) {
    using Point = geometry::model::d2::point_xy<double>;
    const geometry::strategy::transform::matrix_transformer<double, 2, 2> affine(m.m11, m.m21, m.dx, m.m12, m.m22, m.dy,
                                                                                 0, 0, 1);
    for (int i = 0; i < n; ++i) {
        Point mapped;
        affine.apply(Point(in[i].x, in[i].y), mapped);
        out[i] = {RoundToDevice(mapped.x()), RoundToDevice(mapped.y())};
    }
}

void EigenXfmPts(const Mtx2D& m, int n, const DblPt* in, int_pt_t* out) {
    const Eigen::Map<const Eigen::Matrix2Xd> points(&in->x, 2, n);
    Eigen::Map<Eigen::Matrix2Xi> device(&out->x, 2, n);
    Eigen::Affine2d affine;
    affine.matrix() << m.m11, m.m21, m.dx, m.m12, m.m22, m.dy, 0, 0, 1;
    device = (affine * points).array().round().cast<int>();
}

}  // namespace VellumBench
