#pragma once

#include "CheckReport.h"

#include <string>

namespace pipenet {

/// "7 findings: 3 errors, 4 warnings", "no findings".
std::string findingsSummary(const CheckReport& report);

/// The report for a person to read: a head with the counts, the findings of each system with the
/// errors first, then the figures of each system.
std::string checkTable(const std::string& drawing, const CheckReport& report);

} // namespace pipenet
