// SPDX-License-Identifier: MIT
#include "paths/connector_findings.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace Vellum::internal {

void ConnectorFindings::AddPoint(uint32_t segment, const DblPt& p) {
    const uint32_t other = segment == pair_.first ? pair_.second : pair_.first;
    isComplete_ = points_.Append({p, segment, other}) && isComplete_;
}

void ConnectorFindings::AddLink(const DblPt& p, const DblPt& q) {
    isComplete_ = links_.Append({p, q, pair_}) && isComplete_;
}

bool ConnectorFindings::PassTo(ConnectorSink& sink, size_t segments) {
    if (!PassPointsTo(sink, segments)) return false;
    PassLinksTo(sink);
    return true;
}

bool ConnectorFindings::PassPointsTo(ConnectorSink& sink, size_t segments) {
    if (points_.IsEmpty()) return true;
    ScratchArray<size_t> ends;
    ScratchArray<size_t> places;
    if (!ends.Resize(segments + 1) || !places.Resize(points_.Size())) return false;

    // Counted, then added up, where the places of a segment start; and when all have theirs, where they end.
    std::fill(ends.begin(), ends.end(), 0);
    for (const Point& point : points_)
        ++ends[point.segment + 1];
    std::partial_sum(ends.begin(), ends.end(), ends.begin());
    for (size_t i = 0; i < points_.Size(); ++i)
        places[ends[points_[i].segment]++] = i;

    // What comes from one pair stays in order.
    const auto isBefore = [this](size_t a, size_t b) {
        return std::tie(points_[a].other, a) < std::tie(points_[b].other, b);
    };
    size_t* first = places.begin();
    for (size_t i = 0; i < segments; ++i) {
        size_t* const last = places.begin() + ends[i];
        std::sort(first, last, isBefore);
        for (; first != last; ++first)
            sink.AddPoint(static_cast<uint32_t>(i), points_[*first].at);
    }
    return true;
}

void ConnectorFindings::PassLinksTo(ConnectorSink& sink) {
    // Stable, for the same reason.
    std::stable_sort(links_.begin(), links_.end(), [](const Link& a, const Link& b) {
        const auto place = [](const Pair& pair) {
            return std::tie(pair.firstPolyline, pair.secondPolyline, pair.first, pair.second);
        };
        return place(a.pair) < place(b.pair);
    });
    for (const Link& link : links_)
        sink.AddLink(link.p, link.q);
}

}  // namespace Vellum::internal
