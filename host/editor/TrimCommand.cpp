#include "editor/TrimCommand.h"

#include "database/OpenObject.h"
#include "editor/ApplyCut.h"
#include "editor/CurveCut.h"
#include "editor/EntityPick.h"

#include <algorithm>
#include <optional>

namespace host_ed {
namespace {

std::vector<host_db::PlanePiece> piecesOf(const std::vector<AcDbObjectId>& edges,
                                          AcDbObjectId except, const PlanView& view) {
    std::vector<host_db::PlanePiece> pieces;
    for (const AcDbObjectId id : edges) {
        const auto* edge = host_db::peek<AcDbEntity>(id);
        if (edge == nullptr || id == except) {
            continue;
        }
        const std::vector<host_db::PlanePiece> shown = view.shown(*edge);
        pieces.insert(pieces.end(), shown.begin(), shown.end());
    }
    return pieces;
}

/// The part of a curve around a position.
struct Part {
    double from = 0.0;
    double to = 0.0;
};

/// The part of an open curve between the cuts next to a position, or its ends. nullopt when that is
/// the whole curve. Edges that touch its very ends do not cut it.
std::optional<Part> openPart(std::vector<double> cuts, double at, double length) {
    std::erase_if(cuts, [&](double cut) { return cut <= 0.0 || cut >= length; });
    if (cuts.empty()) {
        return std::nullopt;
    }
    const auto above = std::upper_bound(cuts.begin(), cuts.end(), at);
    const Part part{above == cuts.begin() ? 0.0 : *std::prev(above),
                    above == cuts.end() ? length : *above};
    return part;
}

/// The same of a closed curve, which takes two cuts.
std::optional<Part> closedPart(const std::vector<double>& cuts, double at) {
    if (cuts.size() < 2) {
        return std::nullopt;
    }
    const auto above = std::upper_bound(cuts.begin(), cuts.end(), at);
    return Part{above == cuts.begin() ? cuts.back() : *std::prev(above),
                above == cuts.end() ? cuts.front() : *above};
}

} // namespace

CommandState TrimCommand::take(const CommandInput& input, const CommandContext& context) {
    return hasEdges_ ? takePick(input, context) : takeEdges(input, context);
}

CommandState TrimCommand::takeEdges(const CommandInput& input, const CommandContext& context) {
    if (input.isEnter()) {
        hasEdges_ = true;
        if (edges_.empty()) {
            edges_ = shownEntities(context.database);
        }
        return CommandState::Waiting;
    }
    const auto ids = selectedBy(input, context);
    if (!ids.has_value()) {
        return CommandState::Failed;
    }
    edges_.insert(edges_.end(), ids->begin(), ids->end());
    return CommandState::Waiting;
}

CommandState TrimCommand::takePick(const CommandInput& input, const CommandContext& context) {
    if (input.isEnter()) {
        return CommandState::Done;
    }
    const bool isEntity = input.kind == CommandInput::Kind::Entity;
    const auto point =
        isEntity ? input.point : pointOf(input, context.session.ucs, context.session.lastPoint);
    if (!point.has_value()) {
        return CommandState::Failed;
    }
    context.session.lastPoint = *point;
    return trim(isEntity ? input.ids.front() : entityAt(*point, context), *point, context);
}

CommandState TrimCommand::trim(AcDbObjectId object, const AcGePoint3d& at,
                               const CommandContext& context) const {
    if (object.isNull()) {
        return CommandState::Waiting;
    }
    const auto* entity = host_db::peek<AcDbEntity>(object);
    if (entity == nullptr) {
        return CommandState::Failed;
    }
    if (!CurveCut::canCut(*entity) || isOnLockedLayer(*entity)) {
        return CommandState::Waiting;
    }
    const PlanView view(context.session.ucs);
    const CurveCut cut(*AcDbCurve::cast(entity));
    const std::vector<double> cuts = cut.meetings(piecesOf(edges_, object, view), view);
    const double picked = cut.nearestInPlan(view.pointOf(at), view);
    const auto part =
        cut.isClosed() ? closedPart(cuts, picked) : openPart(cuts, picked, cut.length());
    if (!part.has_value()) {
        return CommandState::Waiting;
    }
    auto pieces = cut.without(part->from, part->to);
    return applyCut(object, std::move(pieces)) ? CommandState::Waiting : CommandState::Failed;
}

} // namespace host_ed
