#pragma once

#include <vector>

#include "platform/random.h"

namespace qublet {

// One pass of the shuffle over the places `slots` (from 1, ascending, two or more) of `rows`, whose entries change
// places. Each item draws, reseeded, a position of a pool of the slots, never position 0, and not the one that bears
// the number of the slot moved last; that slot goes to the pool's end. When ten draws for each slot gave none, the
// last draw holds, and a 0 leaves the pool as it is. Then each slot in turn changes places with its partner in the
// pool. Gives the last partner. O(n log n).
int ShuffleSelectionOnce(const std::vector<int>& slots, std::vector<int>& rows, Random& random);

}  // namespace qublet
