#pragma once

#include "CheckReport.h"

#include <string>
#include <unordered_map>

namespace pipenet {

/// An entity's place in the networks of a report.
struct NetworkPlace {
    int network = -1;                  ///< index in the report's networks
    const CheckedNode* node = nullptr; ///< of a well or tank; the report keeps it
};

/// Finds systems by name, and entities in networks. The report must outlive it.
class ReportIndex {
public:
    explicit ReportIndex(const CheckReport& report);

    /// Index in the report's systems, -1 for none of them.
    int system(const std::string& name) const;
    /// Where the entity stands; of several networks the first.
    NetworkPlace place(const AcDbObjectId& entity) const;

private:
    void addNetwork(const CheckedNetwork& network, int index);

    std::unordered_map<std::string, int> systems_;
    std::unordered_map<AcDbObjectId, NetworkPlace> places_;
};

} // namespace pipenet
