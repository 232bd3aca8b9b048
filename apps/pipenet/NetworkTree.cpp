#include "NetworkTree.h"

#include <fmt/format.h>

namespace pipenet {

namespace {

constexpr int kDeepest = 16;

/// A node still to be listed. `before` is what its own line begins with, `below` what the lines of
/// its children begin with.
struct Pending {
    int well;
    int depth;
    std::string before;
    std::string below;
};

Pending childOf(const Pending& parent, int well, bool only, bool last) {
    if (only) {
        return {well, parent.depth, parent.below, parent.below};
    }
    const int depth = parent.depth + 1;
    if (depth > kDeepest) {
        const std::string note = fmt::format("… level {} ", depth);
        return {well, depth, note, note};
    }
    return {well, depth, parent.below + (last ? "└─ " : "├─ "),
            parent.below + (last ? "   " : "│  ")};
}

} // namespace

std::vector<TreeLine> treeLines(const GravitySearchObject& network) {
    std::vector<TreeLine> lines;
    std::vector<Pending> stack;
    if (network.wells.GetSize() > 0) {
        stack.push_back({network.rootWell, 0, "", ""});
    }
    while (!stack.empty()) {
        const Pending node = std::move(stack.back());
        stack.pop_back();
        lines.push_back({node.well, node.before});
        const CArray<int, int>& outSegs = network.wells[node.well].outSegs;
        const INT_PTR count = outSegs.GetSize();
        for (INT_PTR i = count - 1; i >= 0; --i) {
            const int child = network.segs[outSegs[i]].endWell;
            stack.push_back(childOf(node, child, count == 1, i == count - 1));
        }
    }
    return lines;
}

} // namespace pipenet
