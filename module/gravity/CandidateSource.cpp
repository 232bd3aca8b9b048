#include "gravity/CandidateSource.h"

#include "gravity/IndexedCandidates.h"
#include "gravity/PlainCandidates.h"

namespace tkvlt {

std::unique_ptr<CandidateSource> MakeCandidateSource(const GravityNetworkSearch& search,
                                                     CandidateMode mode) {
    if (mode == CandidateMode::kPlainScan) {
        return std::make_unique<PlainCandidates>(search);
    }
    return std::make_unique<IndexedCandidates>(search);
}

} // namespace tkvlt
