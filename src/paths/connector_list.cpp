// SPDX-License-Identifier: MIT
#include "paths/connector_list.h"

#include <algorithm>
#include <bit>

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
    EnterNew();
    for (size_t slot = FirstSlot(layer, centroid); slots_[slot] != kFree; slot = (slot + 1) & (slots_.size() - 1)) {
        const LayerConnector& connector = *(*this)[slots_[slot]];
        if (connector.layer == layer && CentroidOf(connector).IsExactly(centroid)) return true;
    }
    return false;
}

void ConnectorList::Clear() {
    clear();
    slots_.clear();
    entered_ = 0;
}

void ConnectorList::EnterNew() {
    if (entered_ > size() || slots_.size() < 2 * (size() + 1)) {
        slots_.assign(std::bit_ceil(std::max(kFewestSlots, 4 * size())), kFree);
        entered_ = 0;
    }
    while (entered_ < size())
        Enter(entered_++);
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
