#include "exchange/MapScale.h"

#include "Messages.h"

#include <algorithm>

namespace pipenet {

namespace {

constexpr double kScheme = 2.0; ///< from this ratio on a map says nothing about lengths

double drawnLength(const PipeModel& model, const ModelLink& link) {
    std::vector<PlanPoint> path{model.nodes[link.from].at};
    path.insert(path.end(), link.vertices.begin(), link.vertices.end());
    path.push_back(model.nodes[link.to].at);
    return wayOf(path) * model.mapUnit;
}

/// Given by drawn length of each pipe that has both.
std::vector<double> ratiosOf(const PipeModel& model) {
    std::vector<double> ratios;
    for (const ModelLink& link : model.links) {
        const double drawn = drawnLength(model, link);
        if (link.length && drawn > 0.0) {
            ratios.push_back(*link.length / drawn);
        }
    }
    return ratios;
}

} // namespace

double wayOf(const std::vector<PlanPoint>& path) {
    double length = 0.0;
    for (std::size_t i = 1; i < path.size(); ++i) {
        length += distance(path[i - 1], path[i]);
    }
    return length;
}

double metresOfMapUnit(PipeModel& model) {
    std::vector<double> ratios = ratiosOf(model);
    if (ratios.empty()) {
        return model.mapUnit;
    }
    const auto middle = ratios.begin() + static_cast<std::ptrdiff_t>(ratios.size() / 2);
    std::nth_element(ratios.begin(), middle, ratios.end());
    if (*middle >= 1.0 / kScheme && *middle <= kScheme) {
        return model.mapUnit;
    }
    model.notes.push_back(textOf({0, "the map is a scheme: pipes are {:.4g} times as long as they "
                                     "are drawn, and the map is enlarged by as much"},
                                 *middle));
    return model.mapUnit * *middle;
}

} // namespace pipenet
