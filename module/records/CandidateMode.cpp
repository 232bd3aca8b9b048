#include "records/CandidateMode.h"

#include <cstdlib>
#include <string_view>

namespace tkvlt {

CandidateMode CandidateModeFromEnvironment() {
    const char* mode = std::getenv("TKVLT_CANDIDATES");
    return mode != nullptr && std::string_view(mode) == "plain" ? CandidateMode::kPlainScan
                                                                : CandidateMode::kIndexed;
}

} // namespace tkvlt
