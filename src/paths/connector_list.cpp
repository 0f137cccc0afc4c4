// SPDX-License-Identifier: MIT
#include "paths/connector_list.h"

#include <algorithm>
#include <bit>
#include <exception>

namespace Vellum::internal {

namespace {

constexpr size_t kFewestSlots = 16;

DblPt CentroidOf(const LayerConnector& connector) {
    DblPt centroid;
    connector.shape->GetCentroid(centroid);
    return centroid;
}

uint64_t Mixed(uint64_t bits) {
    bits ^= bits >> 32;
    bits *= 0x9e3779b97f4a7c15;
    return bits ^ bits >> 29;
}

// Adding zero makes the two zeros one.
uint64_t BitsOf(double v) { return std::bit_cast<uint64_t>(v + 0.0); }

}  // namespace

bool ConnectorList::Holds(uint32_t layer, const DblPt& centroid) {
    const auto isThat = [&](const LayerConnector* connector) {
        return connector->layer == layer && CentroidOf(*connector).IsExactly(centroid);
    };
    if (!EnterNew()) return std::any_of(begin(), end(), isThat);
    for (size_t slot = FirstSlot(layer, centroid); slots_[slot] != kFree; slot = (slot + 1) & (slots_.size() - 1))
        if (isThat((*this)[slots_[slot]])) return true;
    return false;
}

/// Brings the table up to date. False where there is no memory for it.
bool ConnectorList::EnterNew() {
    if (entered_ > size() || slots_.size() < 2 * (size() + 1)) {
        // Without slots it is made anew the next time, should that fail now.
        slots_.clear();
        entered_ = 0;
        try {
            slots_.assign(std::bit_ceil(std::max(kFewestSlots, 4 * size())), kFree);
        } catch (const std::exception&) {
            return false;
        }
    }
    while (entered_ < size())
        Enter(entered_++);
    return true;
}

void ConnectorList::Enter(size_t index) {
    const DblPt centroid = CentroidOf(*(*this)[index]);
    // NaN equals nothing, and shapes without a centroid would all go to the same slot.
    if (!centroid.IsExactly(centroid)) return;
    size_t slot = FirstSlot((*this)[index]->layer, centroid);
    while (slots_[slot] != kFree)
        slot = (slot + 1) & (slots_.size() - 1);
    slots_[slot] = index;
}

size_t ConnectorList::FirstSlot(uint32_t layer, const DblPt& centroid) const {
    const uint64_t hash = Mixed(Mixed(Mixed(layer) ^ BitsOf(centroid.x)) ^ BitsOf(centroid.y));
    return static_cast<size_t>(hash) & (slots_.size() - 1);
}

}  // namespace Vellum::internal
