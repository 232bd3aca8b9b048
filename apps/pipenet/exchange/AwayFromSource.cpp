#include "exchange/AwayFromSource.h"

#include <algorithm>
#include <numeric>

namespace pipenet {

namespace {

/// The nodes with the likeliest sources first.
std::vector<std::size_t> sourcesFirst(const PipeModel& model) {
    const auto rank = [&model](std::size_t node) {
        const ModelNodeKind kind = model.nodes[node].kind;
        return kind == ModelNodeKind::reservoir ? 0 : kind == ModelNodeKind::tank ? 1 : 2;
    };
    std::vector<std::size_t> order(model.nodes.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&rank](std::size_t a, std::size_t b) { return rank(a) < rank(b); });
    return order;
}

std::vector<std::vector<std::size_t>> linksAtNodes(const PipeModel& model) {
    std::vector<std::vector<std::size_t>> links(model.nodes.size());
    for (std::size_t i = 0; i < model.links.size(); ++i) {
        links[model.links[i].from].push_back(i);
        links[model.links[i].to].push_back(i);
    }
    return links;
}

} // namespace

std::vector<bool> turnedAwayFromSource(const PipeModel& model) {
    const std::vector<std::vector<std::size_t>> links = linksAtNodes(model);
    std::vector<bool> turned(model.links.size(), false);
    std::vector<bool> drawn(model.links.size(), false);
    std::vector<bool> reached(model.nodes.size(), false);
    for (const std::size_t source : sourcesFirst(model)) {
        std::vector<std::size_t> queue;
        if (!reached[source]) {
            reached[source] = true;
            queue.push_back(source);
        }
        for (std::size_t next = 0; next < queue.size(); ++next) {
            for (const std::size_t link : links[queue[next]]) {
                const bool atEnd = model.links[link].to == queue[next];
                const std::size_t far = atEnd ? model.links[link].from : model.links[link].to;
                if (!drawn[link]) {
                    drawn[link] = true;
                    turned[link] = atEnd;
                }
                if (!reached[far]) {
                    reached[far] = true;
                    queue.push_back(far);
                }
            }
        }
    }
    return turned;
}

} // namespace pipenet
