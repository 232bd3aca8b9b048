#include "utilities/Commands.h"

#include "utilities/SystemVariableAtZero.h"

namespace {

using tkvlt::kCommandEcho;
using tkvlt::SystemVariableAtZero;

void SendUndo(const ACHAR* option) {
    const SystemVariableAtZero echo(kCommandEcho);
    acedCommand(RTSTR, L"Undo", RTSTR, option, 0);
}

void RedrawEntity(const AcDbObjectId& entity, int mode) {
    ads_name name = {0, 0};
    if (acdbGetAdsName(name, entity) == Acad::eOk) {
        acedRedraw(name, mode);
    }
}

} // namespace

void PelClearLastCommand() {
    const SystemVariableAtZero echo(kCommandEcho);
    acedCommand(RTSTR, L"", RTSTR, L"", RTSTR, L"", RTSTR, L"", RTSTR, L"", RTSTR, L"", 0);
}

void PelStartCommandGroup() {
    SendUndo(L"Group");
}

void PelEndCommandGroup() {
    SendUndo(L"End");
}

void PelRedraw() {
    const SystemVariableAtZero echo(kCommandEcho);
    acedCommand(RTSTR, L"redraw", 0);
}

void PelIdRedraw(const AcDbObjectId& entity, int mode) {
    RedrawEntity(entity, mode);
    PelRedraw();
}

void PelIdArrRedraw(const AcDbObjectIdArray& entities, int mode) {
    for (int i = 0; i < entities.length(); ++i) {
        RedrawEntity(entities[i], mode);
    }
    PelRedraw();
}
