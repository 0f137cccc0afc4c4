// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_SPT_QUEUE_INDEX_H
#define VELLUM_SRC_PATHS_SPT_QUEUE_INDEX_H

#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <set>

#include "vellum/shortest_paths.h"

namespace Vellum::internal {

/// Sorts the queue of a search that goes step by step: by ascending cost, nodes of equal cost as they stand. While
/// it follows a queue it knows where the nodes stand in it, and moves only those whose cost has changed.
class SPTQueueIndex {
public:
    using Queue = std::list<SPTNode*>;

    /// Follows @p queue from here on, unless it does so already. Where the costs do not ascend or memory runs out it
    /// does not, and sorts the queue as a whole.
    void Follow(Queue& queue);
    /// To be called before anything but this class changes the queue, or the costs of the nodes in it. Where a node is
    /// only appended, and not sorted in, there is no need: `Follow` sees that the queue is longer.
    void Forget();

    void PopFront(Queue& queue);
    /// Sorts after the costs of some nodes have changed and these nodes, @p appended of them, were appended.
    void Sort(Queue& queue, size_t appended);

    /// How many entries of the queue were put in their places while it was followed.
    uint64_t Placed() const { return placed_; }

private:
    struct Place {
        double cost;
        uint64_t stamp;  ///< of places of equal cost the later one has the greater
        Queue::iterator entry;

        bool operator<(const Place& other) const {
            return cost != other.cost ? cost < other.cost : stamp < other.stamp;
        }
    };
    using Places = std::set<Place>;

    bool Follows(Queue& queue) const;
    Places::iterator Add(Queue::iterator entry);
    void SortAppended(Queue& queue, Queue::iterator appended);
    void Settle(Queue& queue, Places::iterator place, Queue::iterator unsettled) const;

    const Queue* followed_ = nullptr;
    Places places_;  ///< of all entries, in the order of the queue
    std::multimap<const SPTNode*, Places::iterator> placesOf_;
    uint64_t nextStamp_ = 0;
    uint64_t placed_ = 0;
};

}  // namespace Vellum::internal

#endif
