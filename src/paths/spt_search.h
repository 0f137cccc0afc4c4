// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_SPT_SEARCH_H
#define VELLUM_SRC_PATHS_SPT_SEARCH_H

#include <cstdint>

#include "paths/monotone_queue.h"
#include "paths/spt_network.h"

namespace Vellum::internal {

// Whole searches. They leave the tree, and the node expanded last, that single steps over a sorted list lead to,
// where nodes of equal cost stand in the order in which they came to it. That order shows only where a node is
// offered the same cost by two others, since the first offer counts, and in which node is the last.
//
// The nodes have to be in the state of new ones, and the coordinates of the start finite: then no cost is NaN, and
// what has been taken off the queue is never offered less than it cost.

enum class SearchOutcome { Complete, Undecided, OutOfMemory };

/// Queues only nodes with a choice of ways on; chains of others are walked to the end. Of two equal offers it takes
/// the cheaper node's to be the first. It is undecided, with the nodes in no particular state, where both cost the
/// same, and where an edge is so short that it is lost in the sum: the node at its end then costs the same as the one
/// that makes the offer, and may make offers itself before.
SearchOutcome SearchAlongChains(const SPTNetwork& network, MonotoneQueue& queue, uint32_t start, SPTNode*& last);

/// Queues every node, and so knows the order in all cases.
SearchOutcome SearchInOrder(const SPTNetwork& network, MonotoneQueue& queue, uint32_t start, SPTNode*& last);

}  // namespace Vellum::internal

#endif
