// SPDX-License-Identifier: MIT
#include "paths/spt_queue_index.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <new>
#include <utility>
#include <vector>

namespace Vellum::internal {

namespace {

bool IsCheaper(const SPTNode* a, const SPTNode* b) { return a->cost < b->cost; }

bool HasNanCost(const SPTNode* node) { return std::isnan(node->cost); }

}  // namespace

void SPTQueueIndex::Follow(Queue& queue) {
    if (Follows(queue)) return;
    Forget();
    if (std::any_of(queue.begin(), queue.end(), HasNanCost)) return;
    if (!std::is_sorted(queue.begin(), queue.end(), IsCheaper)) return;
    try {
        for (Queue::iterator entry = queue.begin(); entry != queue.end(); ++entry)
            Add(entry);
        followed_ = &queue;
    } catch (const std::bad_alloc&) {
        Forget();
    }
}

// A host may have emptied, filled or turned round the queue since.
bool SPTQueueIndex::Follows(Queue& queue) const {
    if (followed_ != &queue || places_.size() != queue.size()) return false;
    return places_.empty() || places_.begin()->entry == queue.begin();
}

void SPTQueueIndex::Forget() {
    followed_ = nullptr;
    places_.clear();
    placesOf_.clear();
}

void SPTQueueIndex::PopFront(Queue& queue) {
    if (followed_ == &queue) {
        const auto [begin, end] = placesOf_.equal_range(queue.front());
        placesOf_.erase(
            std::find_if(begin, end, [this](const auto& placeOf) { return placeOf.second == places_.begin(); }));
        places_.erase(places_.begin());
    }
    queue.pop_front();
}

void SPTQueueIndex::Sort(Queue& queue, size_t appended) {
    const Queue::iterator first = std::prev(queue.end(), static_cast<std::ptrdiff_t>(appended));
    try {
        if (followed_ == &queue && std::none_of(first, queue.end(), HasNanCost)) {
            SortAppended(queue, first);
            return;
        }
    } catch (const std::bad_alloc&) {
        // What has been put in its place so far is where sorting all of the queue would put it too.
    }
    Forget();
    queue.sort(IsCheaper);
}

// All entries of a node change their cost with it. Those that it had stood ahead of the appended ones, and go on
// doing so where their costs are equal now; what has had that cost before stands ahead of both.
void SPTQueueIndex::SortAppended(Queue& queue, Queue::iterator appended) {
    using PlaceOf = decltype(placesOf_)::iterator;
    std::vector<PlaceOf> moved;
    for (Queue::iterator entry = appended; entry != queue.end(); ++entry) {
        const auto [begin, end] = placesOf_.equal_range(*entry);
        for (PlaceOf placeOf = begin; placeOf != end; ++placeOf)
            moved.push_back(placeOf);
    }
    std::sort(moved.begin(), moved.end(), [](PlaceOf a, PlaceOf b) { return *a->second < *b->second; });
    for (const PlaceOf placeOf : moved) {
        auto place = places_.extract(placeOf->second);
        place.value().cost = placeOf->first->cost;
        place.value().stamp = nextStamp_++;
        placeOf->second = places_.insert(std::move(place)).position;
        Settle(queue, placeOf->second, appended);
    }
    while (appended != queue.end()) {
        const Queue::iterator entry = appended++;
        Settle(queue, Add(entry), appended);
    }
    placed_ += moved.size();
}

SPTQueueIndex::Places::iterator SPTQueueIndex::Add(Queue::iterator entry) {
    const Places::iterator place = places_.insert({(*entry)->cost, nextStamp_, entry}).first;
    placesOf_.emplace(*entry, place);
    ++nextStamp_;
    ++placed_;
    return place;
}

// Moves an entry to its place, past which only entries of higher costs follow, and the unsettled ones at the end.
void SPTQueueIndex::Settle(Queue& queue, Places::iterator place, Queue::iterator unsettled) const {
    const Places::iterator next = std::next(place);
    queue.splice(next == places_.end() ? unsettled : next->entry, queue, place->entry);
}

}  // namespace Vellum::internal
