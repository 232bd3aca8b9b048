#pragma once

#include "Drawing.h"
#include "NetworkSearch.h"

#include <string>

namespace pipenet {

/// Why the module gave no network: a sentence with what was asked and what to check. The module
/// itself says only no, so this looks at the entities and, for a gravity network, at how far a
/// search gets. Empty for an outcome with a network.
std::string refusalOf(const Drawing& drawing, const SearchRequest& request,
                      const SearchOutcome& outcome);

/// The same for the segment of one pipe, whose build gave 0.
std::string segmentRefusal(const AcDbObjectId& pipe, int kind);

/// Why there may be no path to `target` in what the search from the request's start gave: a
/// sentence in any case, to be used when there is none. To be asked before a path is put into the
/// network.
std::string pathRefusal(const Drawing& drawing, const SearchRequest& request,
                        const SearchOutcome& outcome, const AcDbObjectId& target);

/// Why lowering a pipe gave 0; `path` is where the change was written all the same, if `changed`.
std::string lowerRefusal(const AcDbObjectId& pipe, bool changed, const std::string& path);

} // namespace pipenet
