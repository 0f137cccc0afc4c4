// SPDX-License-Identifier: MIT
#include "paths/connector_findings.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace Vellum::internal {

namespace {

/// Where in an order by their keys the items with each key start; there is one more start, the end. False where
/// memory runs out.
template <class Item, class Key>
bool FindStarts(std::span<const Item> items, size_t keys, const Key& keyOf, ScratchArray<size_t>& starts) {
    if (!starts.Resize(keys + 1)) return false;
    std::fill(starts.begin(), starts.end(), 0);
    for (const Item& item : items)
        ++starts[keyOf(item) + 1];
    std::partial_sum(starts.begin(), starts.end(), starts.begin());
    return true;
}

}  // namespace

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

// In two steps, since on their way to places all over the memory points would miss every cache.
bool ConnectorFindings::PassPointsTo(ConnectorSink& sink, size_t segments) {
    if (points_.IsEmpty()) return true;
    const size_t bundles = (segments + kBundle - 1) / kBundle;
    ScratchArray<size_t> ends;
    ScratchArray<Point> bundled;
    if (!bundled.Resize(points_.Size())) return false;
    const auto bundleOf = [](const Point& point) { return point.segment / kBundle; };
    if (!FindStarts(std::span<const Point>(points_.begin(), points_.end()), bundles, bundleOf, ends)) return false;
    for (const Point& point : points_)
        bundled[ends[bundleOf(point)]++] = point;
    points_.Release();

    size_t start = 0;
    for (size_t i = 0; i < bundles; ++i) {
        if (!PassBundleTo(sink, {&bundled[start], ends[i] - start}, static_cast<uint32_t>(i * kBundle))) return false;
        start = ends[i];
    }
    return true;
}

bool ConnectorFindings::PassBundleTo(ConnectorSink& sink, std::span<const Point> points, uint32_t firstSegment) {
    if (!OrderBundle(points, firstSegment)) return false;
    for (const size_t place : places_)
        sink.AddPoint(points[place].segment, points[place].at);
    return true;
}

/// Leaves the order in `places_`.
bool ConnectorFindings::OrderBundle(std::span<const Point> points, uint32_t firstSegment) {
    if (!places_.Resize(points.size())) return false;
    // What comes from one pair stays in order.
    const auto isBefore = [points](size_t a, size_t b) {
        return std::tie(points[a].segment, points[a].other, a) < std::tie(points[b].segment, points[b].other, b);
    };
    if (points.size() < kWorthCounting) {
        std::iota(places_.begin(), places_.end(), size_t{0});
        std::sort(places_.begin(), places_.end(), isBefore);
        return true;
    }

    const auto segmentOf = [firstSegment](const Point& point) { return point.segment - firstSegment; };
    if (!FindStarts(points, kBundle, segmentOf, ends_)) return false;
    for (size_t i = 0; i < points.size(); ++i)
        places_[ends_[segmentOf(points[i])]++] = i;
    size_t start = 0;
    for (size_t i = 0; i < kBundle; ++i) {
        std::sort(places_.begin() + start, places_.begin() + ends_[i], isBefore);
        start = ends_[i];
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
