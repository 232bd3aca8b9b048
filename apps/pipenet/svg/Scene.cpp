#include "svg/Scene.h"

#include "HandleText.h"
#include "NetworkTable.h"
#include "Systems.h"
#include "TextTable.h"

namespace pipenet {

namespace {

SceneNode sceneNode(const Well& well) {
    SceneNode node;
    node.place = inPlan(well.nodePoint);
    node.radius = well.nodeRadius;
    node.rotation = well.rotation;
    node.name = nodeName(well);
    node.merged = well.mergedEntities.length() > 0;
    if (well.isSquareWell != 0) {
        node.shape = NodeShape::square;
    }
    const AcDbExtents& box = well.extents;
    if (well.isWell == 0 && !box.isEmpty()) {
        node.shape = NodeShape::box;
        node.box = {box.minPoint().x, box.minPoint().y, box.maxPoint().x, box.maxPoint().y};
    }
    return node;
}

SceneRun sceneRun(const GravitySeg& seg) {
    SceneRun run;
    for (int i = 0; i < seg.pipeIds.length(); ++i) {
        PlanCurve curve = planCurve(seg.pipeIds[i]);
        if (!curve.steps.empty()) {
            run.curves.push_back(std::move(curve));
        }
    }
    run.from = inPlan(seg.startPoint);
    run.to = inPlan(seg.endPoint);
    run.flowReversed = seg.flowReversed != 0;
    run.diameter = seg.diameter;
    run.label = inPlan(seg.annotatePoint);
    run.labelDirection = {seg.annotateVector.x, seg.annotateVector.y};
    return run;
}

void markPath(Scene& scene, const GravitySearchObject& network) {
    for (INT_PTR i = 0; i < network.pathWells.GetSize(); ++i) {
        scene.nodes[static_cast<std::size_t>(network.pathWells[i])].onPath = true;
    }
    for (INT_PTR i = 0; i < network.pathSegs.GetSize(); ++i) {
        SceneRun& run = scene.runs[static_cast<std::size_t>(network.pathSegs[i])];
        run.onPath = true;
        run.colour = style::kPath;
    }
    if (!network.pathWells.IsEmpty()) {
        scene.nodes[static_cast<std::size_t>(network.pathWells[0])].pathEnd = true;
    }
    scene.nodes[static_cast<std::size_t>(network.rootWell)].root = true;
}

} // namespace

Scene makeScene(const Drawing& drawing, const GravitySearchObject& network) {
    Scene scene;
    scene.kind = "gravity";
    scene.showsFlow = true;
    scene.summary = networkSummary(network);
    for (INT_PTR i = 0; i < network.wells.GetSize(); ++i) {
        scene.nodes.push_back(sceneNode(network.wells[i]));
    }
    for (INT_PTR i = 0; i < network.segs.GetSize(); ++i) {
        scene.runs.push_back(sceneRun(network.segs[i]));
        scene.system = utf8(network.segs[i].systemName);
    }
    markPath(scene, network);
    scene.context = drawnPipes(drawing);
    return scene;
}

Scene loweringScene(const Drawing& drawing, const GravitySearchObject* network,
                    const std::vector<AcDbObjectId>& lowered) {
    Scene scene;
    if (network != nullptr) {
        scene = makeScene(drawing, *network);
    } else {
        scene.kind = "gravity";
        scene.showsFlow = true;
        scene.context = drawnPipes(drawing);
    }
    for (const AcDbObjectId& pipe : lowered) {
        const PlanCurve curve = planCurve(pipe);
        if (curve.steps.empty()) {
            continue;
        }
        SceneRun run;
        run.from = curve.start;
        run.to = curve.steps.back().end;
        run.curves.push_back(curve);
        run.colour = style::kLowered;
        run.onPath = true;
        run.isLowered = true;
        scene.runs.push_back(std::move(run));
    }
    scene.summary = counted(static_cast<std::ptrdiff_t>(lowered.size()), "pipe", "pipes") +
                    " lowered" + (scene.summary.empty() ? "" : " · " + scene.summary);
    return scene;
}

std::vector<PlanCurve> drawnPipes(const Drawing& drawing) {
    std::vector<PlanCurve> pipes;
    for (const NetworkEntity& entity : drawing.networkEntities()) {
        if (entity.kind == EntityKind::pipe) {
            pipes.push_back(planCurve(entity.id));
        }
    }
    return pipes;
}

} // namespace pipenet
