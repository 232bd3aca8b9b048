#pragma once

#include "CheckReport.h"

#include <vector>

namespace pipenet {

/// What one pipe says about the run that it lies in, as the search reads it.
struct PipeReading {
    AcDbObjectId pipe;
    int diameter = 0; ///< millimetres
    CString material;
    double slope = 0.0;
    bool flowReversed = false; ///< as in the run
    double upstream = 0.0; ///< elevation where the water enters by the pipe's own flow text, metres
    double downstream = 0.0; ///< elevation where it leaves
};

/// A run of a network with what each of its pipes says, each pipe once.
struct RunReading {
    int network = -1;
    const CheckedRun* run = nullptr;
    std::vector<PipeReading> pipes; ///< in the order of the run, at least one
    std::size_t speaker = 0;        ///< index in `pipes` of the one whose values the run has

    const PipeReading& speakingPipe() const { return pipes[speaker]; }
};

/// Reads a pipe as if it alone spoke for a run that begins at `start`.
PipeReading readPipe(const AcDbObjectId& pipe, const AcGePoint3d& start);

/// Reads all runs of a report, which must outlive the readings unchanged.
std::vector<RunReading> readRuns(const CheckReport& report);

} // namespace pipenet
