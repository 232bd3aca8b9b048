#include "editor/BreakCommand.h"

#include "database/OpenObject.h"
#include "editor/ApplyCut.h"
#include "editor/CurveCut.h"
#include "editor/EntityPick.h"

namespace host_ed {

CommandState BreakCommand::takeObject(const CommandInput& input, const CommandContext& context) {
    const auto ids = selectedBy(input, context);
    if (!ids.has_value() || ids->size() != 1) {
        return CommandState::Failed;
    }
    object_ = ids->front();
    const bool isOne = input.kind == CommandInput::Kind::Entity;
    first_ = isOne ? input.point : pointOf(input, context.session.ucs, context.session.lastPoint);
    firstIsPick_ = first_.has_value();
    if (first_.has_value()) {
        context.session.lastPoint = *first_;
    }
    return CommandState::Waiting;
}

CommandState BreakCommand::take(const CommandInput& input, const CommandContext& context) {
    if (object_.isNull()) {
        return takeObject(input, context);
    }
    const bool isFirstAgain =
        firstIsPick_ && input.kind == CommandInput::Kind::Text && isKeyword(input.text, L"FIRST");
    if (isFirstAgain) {
        first_.reset();
        firstIsPick_ = false;
        return CommandState::Waiting;
    }
    const auto point = pointOf(input, context.session.ucs, context.session.lastPoint);
    if (!point.has_value()) {
        return CommandState::Failed;
    }
    context.session.lastPoint = *point;
    if (!first_.has_value()) {
        first_ = point;
        return CommandState::Waiting;
    }
    return cut(*point);
}

CommandState BreakCommand::cut(const AcGePoint3d& second) const {
    const auto* curve = host_db::peek<AcDbCurve>(object_);
    if (curve == nullptr || !CurveCut::canCut(*curve)) {
        return CommandState::Failed;
    }
    const CurveCut cut(*curve);
    auto pieces = cut.without(cut.nearest(*first_), cut.nearest(second));
    const bool isDone = !pieces.empty() && applyCut(object_, std::move(pieces));
    return isDone ? CommandState::Done : CommandState::Failed;
}

} // namespace host_ed
