#include "report/ReportIndex.h"

namespace pipenet {

ReportIndex::ReportIndex(const CheckReport& report) {
    for (const SystemFigures& system : report.systems) {
        systems_.emplace(system.name, static_cast<int>(systems_.size()));
    }
    for (std::size_t i = 0; i < report.networks.size(); ++i) {
        addNetwork(report.networks[i], static_cast<int>(i));
    }
}

void ReportIndex::addNetwork(const CheckedNetwork& network, int index) {
    for (const CheckedRun& run : network.runs) {
        for (const AcDbObjectId& pipe : run.pipes) {
            places_.emplace(pipe, NetworkPlace{index});
        }
    }
    for (const CheckedNode& node : network.nodes) {
        if (!node.entity.isNull()) {
            places_.emplace(node.entity, NetworkPlace{index, &node});
        }
        for (const AcDbObjectId& well : node.merged) {
            places_.emplace(well, NetworkPlace{index});
        }
    }
}

int ReportIndex::system(const std::string& name) const {
    const auto found = systems_.find(name);
    return found == systems_.end() ? -1 : found->second;
}

NetworkPlace ReportIndex::place(const AcDbObjectId& entity) const {
    const auto found = places_.find(entity);
    return found == places_.end() ? NetworkPlace{} : found->second;
}

} // namespace pipenet
