#include "editor/EditorView.h"

#include "database/AcDbEntity.h"
#include "database/OpenObject.h"
#include "database/OpenObjects.h"
#include "editor/EditorSession.h"
#include "platform/HostEvents.h"

#include <cmath>

namespace {

bool convert(const ads_point from, ads_point to, bool isVector, bool toWorld) {
    const host_ed::EditorSession* session = host_ed::currentSession();
    if (session == nullptr || from == nullptr || to == nullptr) {
        return false;
    }
    const AcGeMatrix3d map = toWorld ? session->ucs : session->ucs.inverse();
    const AcGeVector3d moved = map * AcGeVector3d(from[0], from[1], from[2]);
    const AcGeVector3d shift = isVector ? AcGeVector3d() : map.translation();
    to[0] = moved.x + shift.x;
    to[1] = moved.y + shift.y;
    to[2] = moved.z + shift.z;
    return true;
}

/// Axes of length one at right angles, right-handed, and nothing but a shift beside them.
bool isCoordinateSystem(const AcGeMatrix3d& matrix) {
    constexpr double kSlack = 1e-9;
    AcGePoint3d origin;
    AcGeVector3d x;
    AcGeVector3d y;
    AcGeVector3d z;
    matrix.getCoordSystem(origin, x, y, z);
    const auto isUnit = [](const AcGeVector3d& v) { return std::abs(v.length() - 1.0) <= kSlack; };
    return isUnit(x) && isUnit(y) && (x.crossProduct(y) - z).length() <= kSlack &&
           std::abs(x.dotProduct(y)) <= kSlack && std::isfinite(matrix.translation().length());
}

} // namespace

bool acdbUcs2Wcs(const ads_point from, ads_point to, bool isVector) {
    return convert(from, to, isVector, true);
}

bool acdbWcs2Ucs(const ads_point from, ads_point to, bool isVector) {
    return convert(from, to, isVector, false);
}

Acad::ErrorStatus acedGetCurrentUCS(AcGeMatrix3d& ucs) {
    const host_ed::EditorSession* session = host_ed::currentSession();
    if (session == nullptr) {
        return Acad::eNoDocument;
    }
    ucs = session->ucs;
    return Acad::eOk;
}

Acad::ErrorStatus acedSetCurrentUCS(const AcGeMatrix3d& ucs) {
    host_ed::EditorSession* session = host_ed::currentSession();
    if (session == nullptr) {
        return Acad::eNoDocument;
    }
    if (!isCoordinateSystem(ucs)) {
        return Acad::eInvalidInput;
    }
    session->ucs = ucs;
    return Acad::eOk;
}

int acedRedraw(const ads_name entity, int mode) {
    constexpr int kModes = 4;
    if (mode == 0 || std::abs(mode) > kModes || host_ed::currentSession() == nullptr) {
        return RTERROR;
    }
    const bool isWhole = entity == nullptr || (entity[0] == 0 && entity[1] == 0);
    AcDbObjectId id;
    const bool isEntity = !isWhole && acdbGetObjectId(id, entity) == Acad::eOk &&
                          host_db::peek<AcDbEntity>(id) != nullptr;
    if (!isWhole && !isEntity) {
        return RTERROR;
    }
    if (host::isListening()) {
        const std::wstring what = isWhole ? L"redraw all" : host_db::eventLine(L"redraw", id);
        host::announce(what + L" " + std::to_wstring(mode));
    }
    return RTNORM;
}

bool host::setView(const AcGePoint3d& center, double height) {
    host_ed::EditorSession* session = host_ed::currentSession();
    const bool isView =
        std::isfinite(center.asVector().length()) && std::isfinite(height) && height > 0.0;
    if (session == nullptr || !isView) {
        return false;
    }
    session->viewCenter = session->ucs * center;
    session->numbers[L"VIEWSIZE"] = height;
    return true;
}

ads_real* asDblArray(AcGePoint3d& point) {
    return &point.x;
}

const ads_real* asDblArray(const AcGePoint3d& point) {
    return &point.x;
}

ads_real* asDblArray(AcGeVector3d& vector) {
    return &vector.x;
}

const ads_real* asDblArray(const AcGeVector3d& vector) {
    return &vector.x;
}
