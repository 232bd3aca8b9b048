#include "Systems.h"

#include "HandleText.h"
#include "records/XdataKeys.h"

namespace pipenet {

CString systemNameOf(const AcDbObjectId& entity) {
    for (const wchar_t* key : {xdata::kWellSystem, xdata::kTankSystem, xdata::kPipeSystem}) {
        CString name = XdataText(entity, key);
        if (!name.IsEmpty()) {
            return name;
        }
    }
    return {};
}

int flowKindOfPipe(const AcDbObjectId& pipe) {
    return PelGetDirectionSytle(XdataText(pipe, xdata::kPipeSystem));
}

double jointReach() {
    return GetDwgScale() * GetPipeBreakDist() * 2.0 * 1.1 * 2.0;
}

double metres(double drawingUnits) {
    return drawingUnits * GetVZDrawScale() / 1000.0;
}

std::string nameOf(const AcDbObjectId& entity) {
    const bool well = !XdataText(entity, xdata::kWellSystem).IsEmpty();
    const bool tank = !XdataText(entity, xdata::kTankSystem).IsEmpty();
    const bool pipe = !XdataText(entity, xdata::kPipeSystem).IsEmpty();
    const char* kind = well ? "well " : tank ? "tank " : pipe ? "pipe " : "entity ";
    return kind + handleText(entity);
}

} // namespace pipenet
