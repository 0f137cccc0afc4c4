// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_SPT_STATE_H
#define VELLUM_SRC_PATHS_SPT_STATE_H

#include <cstdint>
#include <list>

#include "paths/monotone_queue.h"
#include "paths/scratch_array.h"
#include "paths/spt_network.h"
#include "paths/spt_queue_index.h"

namespace Vellum::internal {

/// What an engine keeps beside the fields that its hosts know. Engines that share those share this too; it goes, and
/// the nodes with it, with the last of them.
struct SPTState {
    uint32_t holders = 1;
    SPTNetwork network;
    MonotoneQueue queue;
    SPTQueueIndex queueIndex;
    ScratchArray<std::list<SPTNode*>::const_iterator> listPlaces;  ///< where each node stands in the node list
    uint64_t listSteps = 0;  ///< how many entries of the node list were passed to find out
};

}  // namespace Vellum::internal

#endif
