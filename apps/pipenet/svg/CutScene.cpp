#include "svg/Scene.h"

#include "TextTable.h"

namespace pipenet {

namespace {

void addRun(Scene& scene, const AcDbObjectId& id, const char* colour) {
    PlanCurve curve = planCurve(id);
    if (curve.steps.empty()) {
        return;
    }
    SceneRun run;
    run.from = curve.start;
    run.to = curve.steps.back().end;
    run.colour = colour;
    run.curves.push_back(std::move(curve));
    scene.runs.push_back(std::move(run));
}

void addCut(Scene& scene, const AcGePoint3d& place) {
    SceneNode node;
    node.place = inPlan(place);
    node.shape = NodeShape::cut;
    scene.nodes.push_back(node);
}

} // namespace

Scene cutScene(const Drawing& drawing, const CurveChanges& changes) {
    Scene scene;
    scene.kind = "cuts";
    for (const ChangedCurve& curve : changes.changed) {
        addRun(scene, curve.curve, style::kNetwork);
        if (curve.after.start != curve.before.start) {
            addCut(scene, curve.after.start);
        }
        if (curve.after.end != curve.before.end) {
            addCut(scene, curve.after.end);
        }
    }
    for (const AcDbObjectId& id : changes.added) {
        addRun(scene, id, style::kLowered);
    }
    scene.sizes = {{"cut line", style::kNetwork}, {"new piece", style::kLowered}};
    scene.summary =
        counted(static_cast<std::ptrdiff_t>(changes.changed.size()), "line", "lines") + " cut, " +
        counted(static_cast<std::ptrdiff_t>(changes.added.size()), "new piece", "new pieces");
    for (const AcDbObjectId& id : drawing.entities()) {
        scene.context.push_back(planCurve(id));
    }
    return scene;
}

} // namespace pipenet
