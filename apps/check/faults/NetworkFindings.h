#pragma once

#include "SystemUnderCheck.h"

namespace pipenet {

/// "cycle" for every run by which a network closes on itself, with the ring in order.
void findCycles(SystemUnderCheck& under);

/// "turned-run" for every run of a pressure network that a search is misled by, because its first
/// pipe is drawn against the way in which the search comes to it.
void findTurnedRuns(SystemUnderCheck& under, const std::vector<AcDbObjectId>& firstPipes);

/// What to say of a run of at least two pipes that a search from `root` turns round.
std::string turnedRunSentence(const std::vector<AcDbObjectId>& pipes, const AcDbObjectId& root);

/// "merged-wells" for every node that several wells became.
void findMergedWells(SystemUnderCheck& under);

} // namespace pipenet
