#include "services/FindGravityPath.h"

#include "frame/NetworkPath.h"
#include "records/XdataKeys.h"

namespace {

/// A target is a well when it carries a well system, else a pipe. False without either text.
bool ReadTargetSystem(const AcDbObjectId& target, CString& systemName, bool& isPipe) {
    systemName = XdataText(target, xdata::kWellSystem);
    isPipe = systemName.IsEmpty();
    if (isPipe) {
        systemName = XdataText(target, xdata::kPipeSystem);
    }
    return !systemName.IsEmpty();
}

} // namespace

int FindGravityPath(GravitySearchObject*& network, AcDbObjectId& target) {
    if (network == nullptr || network->wells.GetSize() < 2 || target.isNull()) {
        return 0;
    }
    const AcDbObjectId root = network->wells.GetAt(0).nodeEntity;
    if (target == root) {
        return 0;
    }
    const CString rootSystem = XdataText(root, xdata::kWellSystem);
    CString targetSystem;
    bool isPipe = false;
    if (!ReadTargetSystem(target, targetSystem, isPipe) || targetSystem.Compare(rootSystem) != 0) {
        return 0;
    }
    const int well = isPipe ? tkvlt::FindNodeBehindPipe(*network, target)
                            : tkvlt::FindNodeOfBlock(*network, target);
    return well >= 0 && tkvlt::AppendPathToRoot(*network, well) ? 1 : 0;
}
