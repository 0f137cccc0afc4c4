// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_CONNECTOR_FINDINGS_H
#define VELLUM_SRC_PATHS_CONNECTOR_FINDINGS_H

#include <cstddef>
#include <cstdint>
#include <span>

#include "paths/connector_steps.h"
#include "paths/scratch_array.h"

namespace Vellum::internal {

/// Keeps what the steps find on segment pairs that are taken in any order, and passes it on as if they had been
/// taken in theirs: polyline by polyline, with each the later polylines, segment by segment of the first, and with
/// each the segments of the second.
class ConnectorFindings final : public ConnectorSink {
public:
    /// Two segments by the numbers of their polylines and their own. `first` belongs to the earlier polyline.
    struct Pair {
        uint32_t firstPolyline;
        uint32_t secondPolyline;
        uint32_t first;
        uint32_t second;
    };

    /// The pair that what is found from now on comes from. No pair may be entered twice.
    void Enter(const Pair& pair) { pair_ = pair; }

    void AddPoint(uint32_t segment, const DblPt& p) override;
    void AddLink(const DblPt& p, const DblPt& q) override;

    /// Whether there was memory for all that was found.
    bool IsComplete() const { return isComplete_; }

    /// Passes everything on; the points of each segment are in order among themselves, as the links are. To be
    /// called once. False where memory runs out.
    /// @param segments  how many there are in all.
    bool PassTo(ConnectorSink& sink, size_t segments);

private:
    // On a segment the order of the pairs is that of the other segments' numbers: the polylines before its own come
    // first and take their segments one after another, and with the polylines after it the same goes for theirs.
    struct Point {
        DblPt at;
        uint32_t segment;
        uint32_t other;
    };

    struct Link {
        DblPt p;
        DblPt q;
        Pair pair;
    };

    // So many consecutive segments get their points together.
    static constexpr uint32_t kBundle = 1024;
    // Of fewer points in a bundle, sorting them all is as quick.
    static constexpr size_t kWorthCounting = 256;

    bool PassPointsTo(ConnectorSink& sink, size_t segments);
    bool PassBundleTo(ConnectorSink& sink, std::span<const Point> points, uint32_t firstSegment);
    bool OrderBundle(std::span<const Point> points, uint32_t firstSegment);
    void PassLinksTo(ConnectorSink& sink);

    Pair pair_{};
    ScratchArray<Point> points_;
    ScratchArray<Link> links_;
    ScratchArray<size_t> ends_;    ///< of the places of each segment in a bundle
    ScratchArray<size_t> places_;  ///< of points in a bundle, in their order
    bool isComplete_ = true;
};

}  // namespace Vellum::internal

#endif
