#pragma once

namespace tkvlt {

/// How a search finds the pool entries that can matter at a place. The results are the same, field
/// by field.
enum class CandidateMode {
    kIndexed,   ///< trees and grids over the pools
    kPlainScan, ///< every entry, each time
};

/// The mode that the environment variable TKVLT_CANDIDATES asks for: "plain" gives the plain scan,
/// anything else the index.
CandidateMode CandidateModeFromEnvironment();

} // namespace tkvlt
