#include "records/NodeHalfSize.h"

#include "records/XdataKeys.h"

namespace tkvlt {

double NodeHalfSize(const AcDbObjectId& id) {
    if (!XdataText(id, xdata::kWellSystem).IsEmpty()) {
        const CString diameter = XdataText(id, xdata::kWellDiameter);
        return diameter.IsEmpty() ? 0.0
                                  : (NumberPrefix(diameter) * 1000.0 / GetVZDrawScale()) * 0.5;
    }
    if (!XdataText(id, xdata::kTankSystem).IsEmpty()) {
        return (NumberPrefix(XdataText(id, xdata::kTankLength)) / GetVZDrawScale()) * 0.5;
    }
    return 0.0;
}

} // namespace tkvlt
