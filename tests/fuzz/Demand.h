#pragma once

namespace fuzz {

/// Ends the process with `what` on standard error when a property does not hold, which a fuzzer
/// takes for a finding.
void demand(bool holds, const char* what);

} // namespace fuzz
