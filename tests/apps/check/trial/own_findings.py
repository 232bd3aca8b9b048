"""What is amiss with an example drawing as it stands, reckoned from its truth alone.

The models are of real networks: some conduits run uphill, some follow a wider one, and a schematic map
has other lengths than the slopes were reckoned from. A check tells all of it, and must tell no more.
Each finding is a code with the entities that it must name first.
"""
import math

from drawing_edit import DrawingEdit

SAME_FALL, SAME_SHARE = 0.02, 0.1  # what a fall by a slope text may differ by: metres, share


def heights(pipe):
    """The elevations where the water enters a pipe and where it leaves."""
    ends = pipe["startElevation"], pipe["endElevation"]
    return ends if pipe["flow"] == "SE" else ends[::-1]


class Truth:
    def __init__(self, truth, drawing):
        self.nodes = {node["name"]: node for node in truth["nodes"]}
        self.pipes, self.edges = truth["pipes"], truth["edges"]
        self.nowhere = truth["leadNowhere"]
        self.runs = [run for search in truth.get("pressure", []) for run in search.get("runs", [])]
        self.drawing = drawing
        flows = {system["name"]: system["flow"] for system in truth["systems"]}
        self.gravity = [e for e in self.edges if flows[e["system"]] == "gravity"]

    def uphill(self):
        for edge in self.gravity:
            rising = [h for h in edge["pipes"] if heights(self.pipes[h])[1] > heights(self.pipes[h])[0]]
            if rising:
                yield "heights-against-flow", frozenset(rising)

    def narrowing(self):
        for node in self.nodes.values():
            width = {"upstream": [], "downstream": []}
            for edge in self.gravity:
                for end, found in width.items():
                    if edge[end] == node["name"]:
                        found.append(self.pipes[edge["pipes"][0]]["diameter"])
            come, leave = width["downstream"], width["upstream"]
            if come and leave and max(leave) < max(come):
                yield "diameter-shrinks", frozenset(node["handles"][:1])

    def slopes(self):
        for edge in self.gravity:
            ends = [self.nodes[edge[end]]["point"] for end in ("upstream", "downstream")]
            length = sum(self.pipes[h]["length"] for h in edge["pipes"])
            wrong = [h for h in edge["pipes"] if self.misses(h, length, math.dist(*ends), True)]
            if wrong:
                yield "slope-disagrees", frozenset(wrong)
        for run in self.runs:
            wrong = [h for h in run["pipes"] if self.pipes[h]["slope"] != 0.0 and self.misses(
                h, run["length"], math.dist(run["from"], run["to"]), False)]
            if wrong:
                yield "slope-disagrees", frozenset(wrong)

    def misses(self, handle, run, centres, is_gravity):
        """Whether a slope text tells another fall over each length that may have been meant."""
        pipe = self.pipes[handle]
        enters, leaves = heights(pipe)
        fall = enters - leaves
        allowed = max(SAME_FALL, SAME_SHARE * abs(fall))
        for length in (pipe["length"], run, centres):
            told = pipe["slope"] * length
            if is_gravity and fall >= 0.0:
                missed = abs(told - fall)
            else:
                missed = abs(abs(told) - abs(fall))
            if missed <= allowed:
                return False
        return True

    def numbers(self):
        wells = {}
        for entity in self.drawing.carriers("管井系统"):
            texts = entity.texts()
            wells.setdefault((texts["管井系统"], texts["管井编号"]), []).append(entity.handle)
        for handles in wells.values():
            if len(handles) > 1:
                yield "duplicate-number", frozenset(handles)

    def layout(self):
        for handle in self.nowhere:
            yield "dead-end", frozenset([handle])
        for node in self.nodes.values():
            if len(node["handles"]) > 1:
                yield "merged-wells", frozenset(node["handles"])


def own_findings(path, truth):
    told = Truth(truth, DrawingEdit(path))
    found = []
    for findings in (told.uphill(), told.narrowing(), told.slopes(), told.numbers(), told.layout()):
        found += findings
    return found
