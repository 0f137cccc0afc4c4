// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_CLIPPING_CONTENDERS_H
#define VELLUM_BENCHMARKS_CLIPPING_CONTENDERS_H

#include <memory>

#include "dataset.h"

namespace VellumBench {

/// A function that clips a set of polygons, each by itself.
class ClippingContender {
public:
    virtual ~ClippingContender() = default;
    /// Brings the view into the contender's own form; not timed.
    virtual void SetView(const View& view) = 0;
    /// Replaces the output by that of a new run.
    virtual void Clip() = 0;
    /// Of the output.
    virtual double Area() const = 0;
};

std::unique_ptr<ClippingContender> MakeClipPolygonSetComplete(const PolySet& set);
std::unique_ptr<ClippingContender> MakeClipPolygonSet(const PolySet& set);

/// What a peer's host does with a polygon whose box lies within the view.
enum class WithinView {
    Clip,  ///< hands it to the library like any other
    Copy   ///< takes it as it is, at no cost of the library's
};

std::unique_ptr<ClippingContender> MakeBoost(const PolySet& set, WithinView within);
std::unique_ptr<ClippingContender> MakeClipper(const PolySet& set, WithinView within);
std::unique_ptr<ClippingContender> MakeGeos(const PolySet& set, WithinView within);
/// The operation that GEOS has for upright views alone.
std::unique_ptr<ClippingContender> MakeGeosRectangle(const PolySet& set, WithinView within);

}  // namespace VellumBench

#endif
