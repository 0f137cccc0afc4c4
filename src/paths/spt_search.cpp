// SPDX-License-Identifier: MIT
#include "paths/spt_search.h"

#include "paths/scratch_array.h"

namespace Vellum::internal {

namespace {

using Occurrence = SPTNetwork::Occurrence;

class ChainSearch {
public:
    ChainSearch(const SPTNetwork& network, MonotoneQueue& queue) : network_(network), queue_(queue) {}

    SearchOutcome Run(uint32_t start, SPTNode*& last) {
        if (!queue_.Clear()) return SearchOutcome::OutOfMemory;
        network_[start].cost = 0.0;
        network_[start].inTree = 1;
        Queue(start);
        double cost = 0.0;
        uint32_t node = start;
        while (outcome_ == SearchOutcome::Complete && queue_.Pop(cost, node))
            if (network_[node].cost == cost) Expand(node);
        if (outcome_ == SearchOutcome::Complete) last = FindLast(start);
        return outcome_;
    }

private:
    void Queue(uint32_t node) {
        if (!queue_.Push(network_[node].cost, node)) outcome_ = SearchOutcome::OutOfMemory;
    }

    void Expand(uint32_t node) {
        for (const Occurrence& occurrence : network_.OccurrencesOf(node)) {
            Walk(node, occurrence.before);
            Walk(node, occurrence.after);
        }
    }

    // Goes on until there is a choice of ways, or what comes next is reached at no higher cost from elsewhere.
    void Walk(uint32_t from, uint32_t to) {
        SPTNode* previous = &network_[from];
        double cost = previous->cost;
        uint32_t depth = previous->depth;
        while (to != SPTNetwork::kNone) {
            SPTNode& node = network_[to];
            cost += EdgeCost(previous->pt, node.pt);
            if (cost == previous->cost) {
                // A node that is its own neighbour offers nothing.
                if (&node != previous) outcome_ = SearchOutcome::Undecided;
                return;
            }
            if (!(cost < node.cost)) {
                if (cost == node.cost) Settle(*previous, node);
                return;
            }
            node.cost = cost;
            node.parent = previous;
            node.depth = ++depth;
            node.inTree = 1;
            const uint32_t next = network_.Past(to, from);
            if (next == SPTNetwork::kNone) Queue(to);
            previous = &node;
            from = to;
            to = next;
        }
    }

    // Which of two offers of the same cost came first. Both nodes that make one cost less than `to`. What was walked
    // to from `to` on this side before, if anything, has been reached at less than `to` costs since: no depth hangs
    // on that of `to`.
    void Settle(SPTNode& from, SPTNode& to) {
        if (to.parent == nullptr || to.parent == &from) return;
        if (from.cost < to.parent->cost) {
            to.parent = &from;
            to.depth = from.depth + 1;
        } else if (from.cost == to.parent->cost) {
            outcome_ = SearchOutcome::Undecided;
        }
    }

    // The one with the greatest cost; of several the one whose last offer was the latest.
    SPTNode* FindLast(uint32_t start) {
        SPTNode* last = &network_[start];
        bool isTied = false;
        for (uint32_t i = 0; i < network_.Size(); ++i) {
            SPTNode& node = network_[i];
            if (node.parent == nullptr || node.cost < last->cost) continue;
            if (node.cost > last->cost || node.parent->cost > last->parent->cost) {
                last = &node;
                isTied = false;
            } else if (node.parent->cost == last->parent->cost) {
                isTied = true;
            }
        }
        if (isTied) outcome_ = SearchOutcome::Undecided;
        return last;
    }

    const SPTNetwork& network_;
    MonotoneQueue& queue_;
    SearchOutcome outcome_ = SearchOutcome::Complete;
};

// An improved node is queued anew. In the sorted list all entries of a node move with its cost, those that it has
// already ahead of the new one. The first of them is what counts here: the others find their node in the tree and
// change nothing.
//
// Nodes are ranked in the order in which they came to the queue. While a node is queued its depth holds its rank.
class OrderedSearch {
public:
    OrderedSearch(const SPTNetwork& network, MonotoneQueue& queue) : network_(network), queue_(queue) {}

    SearchOutcome Run(uint32_t start, SPTNode*& last) {
        if (!queue_.Clear()) return SearchOutcome::OutOfMemory;
        network_[start].cost = 0.0;
        network_[start].inTree = 1;
        last = &network_[start];
        bool hasMemory = Expand(start);
        double cost = 0.0;
        uint32_t i = start;
        while (hasMemory && queue_.Pop(cost, i)) {
            SPTNode& node = network_[i];
            if (node.cost != cost) continue;
            if (!IsEnclosed(node)) last = &node;
            formerCost_ = cost;
            formerRank_ = node.depth;
            node.depth = node.parent->depth + 1;
            hasMemory = Expand(i);
        }
        return hasMemory ? SearchOutcome::Complete : SearchOutcome::OutOfMemory;
    }

private:
    static constexpr uint32_t kRankStep = 2;
    // Marks the rank of a node that came to the list ahead of the one with the rank before, though that one had an
    // entry further ahead already.
    static constexpr uint32_t kEnclosed = 1;

    struct Offer {
        uint32_t index;
        SPTNode* node;
        double cost;

        bool IsBetter() const { return node != nullptr && cost < node->cost; }
    };

    bool Expand(uint32_t i) {
        SPTNode& current = network_[i];
        for (const Occurrence& occurrence : network_.OccurrencesOf(i)) {
            const Offer before = OfferTo(occurrence.before, current);
            const Offer after = OfferTo(occurrence.after, current);
            const bool isBefore = before.IsBetter();
            const bool isAfter = after.IsBetter();
            if (isBefore && isAfter) {
                if (!AcceptBoth(before, after, current)) return false;
            } else if (isBefore) {
                if (!Accept(before, current, 0)) return false;
            } else if (isAfter) {
                if (!Accept(after, current, 0)) return false;
            }
        }
        return true;
    }

    bool AcceptBoth(const Offer& before, const Offer& after, SPTNode& current) {
        if (IsAheadOf(*before.node, *after.node))
            return Accept(after, current, 0) && Accept(before, current, kEnclosed);
        return Accept(before, current, 0) && (before.node == after.node || Accept(after, current, 0));
    }

    Offer OfferTo(uint32_t to, const SPTNode& current) const {
        if (to == SPTNetwork::kNone) return {to, nullptr, 0.0};
        SPTNode& node = network_[to];
        return {to, &node, current.cost + EdgeCost(current.pt, node.pt)};
    }

    // Whether the second node is queued already, ahead of the first if that is too: what is not costs more than all
    // that is.
    static bool IsAheadOf(const SPTNode& first, const SPTNode& second) {
        return second.cost != first.cost ? second.cost < first.cost : second.depth < first.depth;
    }

    bool Accept(const Offer& offer, SPTNode& current, uint32_t mark) {
        SPTNode& node = *offer.node;
        node.cost = offer.cost;
        node.parent = &current;
        node.depth = nextRank_ | mark;
        node.inTree = 1;
        nextRank_ += kRankStep;
        network_.PrefetchOccurrencesOf(offer.index);
        return queue_.Push(offer.cost, offer.index);
    }

    // Whether the list holds, behind this node's entries, another one of the node expanded before.
    bool IsEnclosed(const SPTNode& node) const {
        return (node.depth & kEnclosed) != 0 && node.cost == formerCost_ &&
               node.depth == formerRank_ + kRankStep + kEnclosed;
    }

    const SPTNetwork& network_;
    MonotoneQueue& queue_;
    uint32_t nextRank_ = 0;
    // Of the node expanded before.
    double formerCost_ = 0.0;
    uint32_t formerRank_ = 0;
};

}  // namespace

SearchOutcome SearchAlongChains(const SPTNetwork& network, MonotoneQueue& queue, uint32_t start, SPTNode*& last) {
    return ChainSearch(network, queue).Run(start, last);
}

SearchOutcome SearchInOrder(const SPTNetwork& network, MonotoneQueue& queue, uint32_t start, SPTNode*& last) {
    return OrderedSearch(network, queue).Run(start, last);
}

}  // namespace Vellum::internal
