#include "editor/SelectionModes.h"

#include "editor/EntityPick.h"
#include "editor/PlanView.h"

#include <algorithm>

namespace host_ed {
namespace {

using Ids = std::vector<AcDbObjectId>;

/// Erased ones too, which whoever looks at the entities anyway leaves out.
Ids everything(const AcDbDatabase& database) {
    Ids ids;
    for (const AcDbObjectId space : database.spaceIds()) {
        if (const auto* record = host_db::peek<AcDbBlockTableRecord>(space)) {
            ids.insert(ids.end(), record->entityIds().begin(), record->entityIds().end());
        }
    }
    return ids;
}

/// The straight pieces of a fence in plan; nullopt for a chain of anything but two or more points.
std::optional<std::vector<host_db::PlanePiece>> fenceOf(const resbuf* chain) {
    std::vector<AcGePoint2d> points;
    for (const resbuf* item = chain; item != nullptr; item = item->rbnext) {
        if (item->restype != RTPOINT && item->restype != RT3DPOINT) {
            return std::nullopt;
        }
        points.emplace_back(item->resval.rpoint[0], item->resval.rpoint[1]);
    }
    if (points.size() < 2) {
        return std::nullopt;
    }
    std::vector<host_db::PlanePiece> fence;
    for (std::size_t i = 1; i < points.size(); ++i) {
        fence.push_back(PlanView::segment(points[i - 1], points[i]));
    }
    return fence;
}

bool crosses(const AcDbEntity& entity, const std::vector<host_db::PlanePiece>& fence,
             const PlanView& view) {
    const std::vector<host_db::PlanePiece> pieces = view.shown(entity);
    return std::any_of(pieces.begin(), pieces.end(), [&](const host_db::PlanePiece& piece) {
        return std::any_of(fence.begin(), fence.end(),
                           [&](const host_db::PlanePiece& part) { return touch(piece, part); });
    });
}

std::optional<Ids> onFence(const resbuf* chain, const AcDbDatabase& database,
                           const EditorSession& session) {
    const auto fence = fenceOf(chain);
    if (!fence.has_value()) {
        return std::nullopt;
    }
    const PlanView view(session.ucs);
    Ids ids = shownEntities(database);
    std::erase_if(ids, [&](AcDbObjectId id) {
        return !crosses(*host_db::peek<AcDbEntity>(id), *fence, view);
    });
    return ids;
}

/// The last entity of the current space, if it is drawn.
Ids last(const AcDbDatabase& database) {
    const auto* space = host_db::peek<AcDbBlockTableRecord>(database.currentSpaceId());
    const auto end = space->entityIds().rend();
    const auto found = std::find_if(space->entityIds().rbegin(), end,
                                    [](AcDbObjectId id) { return id.isValid(); });
    const bool isThere = found != end && isShown(*host_db::peek<AcDbEntity>(*found));
    return isThere ? Ids{*found} : Ids();
}

} // namespace

std::optional<Ids> candidatesOf(const std::wstring& mode, const void* point1, const void* point2,
                                const AcDbDatabase& database, const EditorSession& session) {
    if (point2 != nullptr || (point1 != nullptr) != (mode == L"F")) {
        return std::nullopt;
    }
    if (mode == L"X") {
        return everything(database);
    }
    if (mode == L"F") {
        return onFence(static_cast<const resbuf*>(point1), database, session);
    }
    if (mode == L"P") {
        return previousEntities(session);
    }
    return mode == L"L" ? std::optional(last(database)) : std::nullopt;
}

} // namespace host_ed
