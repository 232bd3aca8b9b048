#include "editor/EntityPick.h"

#include "database/OpenObject.h"
#include "editor/EditorWindows.h"
#include "editor/PlanView.h"
#include "editor/SystemVariables.h"

#include <algorithm>
#include <limits>

namespace host_ed {
namespace {

/// Half the pick box in drawing units.
double pickReach() {
    resbuf pixels{};
    resbuf height{};
    acedGetVar(L"PICKBOX", &pixels);
    acedGetVar(L"VIEWSIZE", &height);
    CRect view;
    acedGetAcadDwgView()->GetWindowRect(&view);
    return view.Height() <= 0 ? 0.0 : pixels.resval.rint * height.resval.rreal / view.Height();
}

double distanceTo(const AcDbEntity& entity, const AcGePoint2d& point, const PlanView& view) {
    double least = std::numeric_limits<double>::infinity();
    for (const host_db::PlanePiece& piece : view.shown(entity)) {
        const double param = closestParam(piece, point);
        least = std::min(least, host_db::pointAt(piece, param).distanceTo(point));
    }
    return least;
}

bool areAlive(const std::vector<AcDbObjectId>& ids) {
    return std::all_of(ids.begin(), ids.end(),
                       [](AcDbObjectId id) { return host_db::peek<AcDbEntity>(id) != nullptr; });
}

} // namespace

std::vector<AcDbObjectId> previousEntities(const EditorSession& session) {
    std::vector<AcDbObjectId> ids;
    if (session.previous != nullptr) {
        std::copy_if(session.previous->begin(), session.previous->end(), std::back_inserter(ids),
                     [](AcDbObjectId id) { return id.isValid(); });
    }
    return ids;
}

std::vector<AcDbObjectId> shownEntities(const AcDbDatabase& database) {
    std::vector<AcDbObjectId> shown;
    const auto* space = host_db::peek<AcDbBlockTableRecord>(database.currentSpaceId());
    if (space == nullptr) {
        return shown;
    }
    std::copy_if(space->entityIds().begin(), space->entityIds().end(), std::back_inserter(shown),
                 [](AcDbObjectId id) {
                     const auto* entity = host_db::peek<AcDbEntity>(id);
                     return entity != nullptr && isShown(*entity);
                 });
    return shown;
}

AcDbObjectId entityAt(const AcGePoint3d& point, const CommandContext& context) {
    const PlanView view(context.session.ucs);
    const AcGePoint2d at = view.pointOf(point);
    AcDbObjectId nearest;
    double least = pickReach();
    for (const AcDbObjectId id : shownEntities(context.database)) {
        const double distance = distanceTo(*host_db::peek<AcDbEntity>(id), at, view);
        if (distance <= least) {
            least = distance;
            nearest = id;
        }
    }
    return nearest;
}

std::optional<std::vector<AcDbObjectId>> selectedBy(const CommandInput& input,
                                                    const CommandContext& context) {
    using Kind = CommandInput::Kind;
    if (input.kind == Kind::Entity || input.kind == Kind::Set) {
        return areAlive(input.ids) ? std::optional(input.ids) : std::nullopt;
    }
    if (const auto point = pointOf(input, context.session.ucs, context.session.lastPoint)) {
        const AcDbObjectId id = entityAt(*point, context);
        return id.isNull() ? std::vector<AcDbObjectId>() : std::vector{id};
    }
    const bool isText = input.kind == Kind::Text;
    if (isText && plainName(input.text) == L"ALL") {
        return shownEntities(context.database);
    }
    if (isText && isKeyword(input.text, L"LAST")) {
        std::vector<AcDbObjectId> shown = shownEntities(context.database);
        return shown.empty() ? shown : std::vector{shown.back()};
    }
    if (isText && isKeyword(input.text, L"PREVIOUS")) {
        return previousEntities(context.session);
    }
    return std::nullopt;
}

} // namespace host_ed
