// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_TYPES_FUSED_HOST_H
#define VELLUM_TESTS_TYPES_FUSED_HOST_H

#include "vellum/points.h"
#include "vellum/rectangles.h"

/// The inline members as a host sees them that is compiled with fused multiply-add.
namespace fused_host {

double Dist(const Vellum::DblPt& a, const Vellum::DblPt& b);
double Distsq(const Vellum::DblPt& a, const Vellum::DblPt& b);
double ApproxDist(const Vellum::DblPt& a, const Vellum::DblPt& b);
bool IsLeftOfLine(const Vellum::DblPt& p, const Vellum::DblPt& a, const Vellum::DblPt& b);
bool IsLooseLeftOfLine(const Vellum::DblPt& p, const Vellum::DblPt& a, const Vellum::DblPt& b);
double CenterX(const Vellum::AlignedDblRect& r);
double CenterY(const Vellum::AlignedDblRect& r);
void SetAround(Vellum::AlignedDblRect& r, const Vellum::DblPt& centre, double width, double height);

/// The distances of n points from one, in loops that the compiler may vectorise.
void DistsqOfAll(const Vellum::DblPt* points, int n, const Vellum::DblPt& from, double* out);
void ApproxDistOfAll(const Vellum::DblPt* points, int n, const Vellum::DblPt& from, double* out);

/// A formula of the host's own, which nothing keeps from being fused.
double MultiplyAdd(double a, double b, double c);

}  // namespace fused_host

#endif
