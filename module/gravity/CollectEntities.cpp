// Takes every network entity of the drawing into the pools, of every pipe system: which system is
// walked is decided at each use.

#include "gravity/GravityNetworkSearch.h"
#include "records/NetworkSelection.h"
#include "records/XdataKeys.h"

namespace tkvlt {

namespace {

/// A pipe takes part in a search only when it is longer than this, in drawing units.
constexpr double kLongestIgnoredPipe = 1.0;

} // namespace

int GravityNetworkSearch::CollectEntities() {
    const NetworkSelection selection{xdata::kWellSystem, xdata::kPipeSystem, xdata::kTank};
    const Adesk::Int32 length = selection.Length();
    for (Adesk::Int32 index = 0; index < length; ++index) {
        AddToPool(selection.At(index));
    }
    candidates_ = MakeCandidateSource(*this, candidateMode_);
    return length > 0 ? 1 : 0;
}

int GravityNetworkSearch::CollectEntitiesOnly() {
    CollectEntities();
    return 1;
}

void GravityNetworkSearch::AddToPool(const AcDbObjectId& id) {
    CString text;
    if (ReadXdata(id, xdata::kPipeSystem, text) != 0) {
        _Pipe pipe(id, text);
        if (pipe.GetLength() > kLongestIgnoredPipe) {
            pipePool.Add(pipe);
        }
    } else if (ReadXdata(id, xdata::kWellSystem, text) != 0) {
        wellPool.Add(_Block(id, CString(), text));
    } else if (ReadXdata(id, xdata::kTank, text) != 0) {
        // A tank belongs to no system, so that pipes of every system may end at it.
        tankPool.Add(_Block(id, CString(), CString()));
    }
}

} // namespace tkvlt
