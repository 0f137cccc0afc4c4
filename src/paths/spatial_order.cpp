// SPDX-License-Identifier: MIT
#include "paths/spatial_order.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

#include "paths/plane_box.h"

namespace Vellum::internal {

namespace {

// So many neighbours are searched together: their order does not matter.
constexpr std::ptrdiff_t kBundle = 8;

// NaN has no place among numbers.
void MakeComparable(double& v) {
    if (std::isnan(v)) v = -std::numeric_limits<double>::infinity();
}

/// Halves the places at the median along the longer side of the cell that they lie in, and the halves again, down to
/// bundles.
void Halve(LayerPlace* first, LayerPlace* last, PlaneBox cell) {
    while (last - first > kBundle) {
        const std::ptrdiff_t bundles = (last - first + kBundle - 1) / kBundle;
        LayerPlace* const middle = first + bundles / 2 * kBundle;
        PlaneBox lower = cell;
        if (cell.maxX - cell.minX > cell.maxY - cell.minY) {
            std::nth_element(first, middle, last, [](const auto& a, const auto& b) { return a.at.x < b.at.x; });
            lower.maxX = cell.minX = middle->at.x;
        } else {
            std::nth_element(first, middle, last, [](const auto& a, const auto& b) { return a.at.y < b.at.y; });
            lower.maxY = cell.minY = middle->at.y;
        }
        Halve(first, middle, lower);
        first = middle;
    }
}

PlaneBox CellOf(const LayerPlace* first, const LayerPlace* last) {
    PlaneBox cell = NoPlane();
    for (const LayerPlace* place = first; place != last; ++place)
        cell.Enclose({place->at.x, place->at.y, place->at.x, place->at.y});
    return cell;
}

}  // namespace

void OrderSpatially(ScratchArray<LayerPlace>& places) {
    for (LayerPlace& place : places) {
        MakeComparable(place.at.x);
        MakeComparable(place.at.y);
    }
    const auto isBelow = [](const LayerPlace& a, const LayerPlace& b) { return a.layer < b.layer; };
    if (!std::is_sorted(places.begin(), places.end(), isBelow)) std::sort(places.begin(), places.end(), isBelow);
    for (LayerPlace* first = places.begin(); first != places.end();) {
        LayerPlace* const last = std::upper_bound(first, places.end(), *first, isBelow);
        Halve(first, last, CellOf(first, last));
        first = last;
    }
}

}  // namespace Vellum::internal
