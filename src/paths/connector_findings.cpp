// SPDX-License-Identifier: MIT
#include "paths/connector_findings.h"

#include <algorithm>
#include <tuple>

namespace Vellum::internal {

void ConnectorFindings::AddPoint(uint32_t segment, const DblPt& p) {
    const uint32_t other = segment == pair_.first ? pair_.second : pair_.first;
    isComplete_ = points_.Append({p, segment, other}) && isComplete_;
}

void ConnectorFindings::AddLink(const DblPt& p, const DblPt& q) {
    isComplete_ = links_.Append({p, q, pair_}) && isComplete_;
}

void ConnectorFindings::PassTo(ConnectorSink& sink) {
    // Stable: what comes from one pair stays in order.
    std::stable_sort(points_.begin(), points_.end(), [](const Point& a, const Point& b) {
        return a.segment != b.segment ? a.segment < b.segment : a.other < b.other;
    });
    std::stable_sort(links_.begin(), links_.end(), [](const Link& a, const Link& b) {
        const auto place = [](const Pair& pair) {
            return std::tie(pair.firstPolyline, pair.secondPolyline, pair.first, pair.second);
        };
        return place(a.pair) < place(b.pair);
    });
    for (const Point& point : points_)
        sink.AddPoint(point.segment, point.at);
    for (const Link& link : links_)
        sink.AddLink(link.p, link.q);
}

}  // namespace Vellum::internal
