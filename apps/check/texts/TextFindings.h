#pragma once

#include "CheckContext.h"

namespace pipenet {

/// Adds what is amiss with the texts of the entities, and the figures of each system. The report's
/// networks must be complete.
void addTextFindings(const CheckContext& context, CheckReport& report);

} // namespace pipenet
