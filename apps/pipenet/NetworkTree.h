#pragma once

#include "TKVltSearchModule18.h"

#include <string>
#include <vector>

namespace pipenet {

/// A node of the tree as a line of a listing.
struct TreeLine {
    int well = 0;            ///< index in the network's wells
    std::string indentation; ///< box-drawing characters before the node's name
};

/// The nodes from the root on, depth first, children in the order of the search. The children of a
/// node that branches are indented; an only child stands below its parent. From a fixed depth on
/// the indentation is a short note of the depth instead. Cost: linear.
std::vector<TreeLine> treeLines(const GravitySearchObject& network);

} // namespace pipenet
