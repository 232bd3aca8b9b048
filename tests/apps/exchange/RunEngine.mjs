// Runs one steady state of a water supply model in a hydraulic engine and prints what it read and found.
//
//   node RunEngine.mjs ENGINE_FOLDER MODEL.inp [DEMAND]
//
// With DEMAND (l/s) every junction draws that much.
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { pathToFileURL } from "node:url";

const [folder, file, demand] = process.argv.slice(2);
const found = createRequire(folder + "/package.json").resolve("epanet-js");
const engine = await import(pathToFileURL(found));
const { CountType, LinkProperty, NodeProperty, NodeType, Project, Workspace } = engine.default ?? engine;

const workspace = new Workspace();
await workspace.loadModule();
const model = new Project(workspace);
workspace.writeFile("model.inp", readFileSync(file));
model.open("model.inp", "report.txt", "results.bin");

const nodeCount = model.getCount(CountType.NodeCount);
const linkCount = model.getCount(CountType.LinkCount);
if (demand !== undefined) {
  for (let i = 1; i <= nodeCount; ++i) {
    if (model.getNodeType(i) === NodeType.Junction) {
      model.setNodeValue(i, NodeProperty.BaseDemand, Number(demand));
    }
  }
}
model.solveH();

const answer = { nodes: {}, links: {} };
for (let i = 1; i <= nodeCount; ++i) {
  answer.nodes[model.getNodeId(i)] = {
    type: NodeType[model.getNodeType(i)],
    elevation: model.getNodeValue(i, NodeProperty.Elevation),
    head: model.getNodeValue(i, NodeProperty.Head),
    demand: model.getNodeValue(i, NodeProperty.Demand),
  };
}
for (let i = 1; i <= linkCount; ++i) {
  const ends = model.getLinkNodes(i);
  answer.links[model.getLinkId(i)] = {
    from: model.getNodeId(ends.node1),
    to: model.getNodeId(ends.node2),
    flow: model.getLinkValue(i, LinkProperty.Flow),
    length: model.getLinkValue(i, LinkProperty.Length),
    diameter: model.getLinkValue(i, LinkProperty.Diameter),
    headloss: model.getLinkValue(i, LinkProperty.Headloss),
  };
}
model.close();
console.log(JSON.stringify(answer));
