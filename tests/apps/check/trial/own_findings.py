"""What is amiss with an example drawing as it stands, reckoned from its truth alone.

The models are of real networks: some conduits run uphill, some follow a wider one, and a schematic
map has other lengths than the slopes were reckoned from. A check tells all of it, and must tell no
more. Each finding is a code with the entities that it must name first.
"""
import collections
import math

from drawing_edit import DrawingEdit
from model_truth import Groups
from network_layout import REACH, SNAP, off_line
from plan_geometry import at_share, bend, crossing_shares, near_pairs

SAME_FALL, SAME_SHARE = 0.02, 0.1  # what a fall by a slope text may differ by: metres, share
STRAIGHT_ON = math.pi / 10.0  # at most so much a pipe may turn and go on in another
NEAR_MISS = 5.0  # times the reach of a joint
TANK_SIZE = 4.0, 2.5  # half of the length and of the width


def heights(pipe):
    """The elevations where the water enters a pipe and where it leaves."""
    ends = pipe["startElevation"], pipe["endElevation"]
    return ends if pipe["flow"] == "SE" else ends[::-1]


def holds(node, place):
    """Whether a place lies in a well or a tank."""
    x, y = (abs(a - b) for a, b in zip(place, node["point"]))
    if node["kind"] == "tank":
        return x <= TANK_SIZE[0] and y <= TANK_SIZE[1]
    return math.hypot(x, y) <= node["radius"] * 1.01


class Truth:
    def __init__(self, truth, drawing):
        self.nodes = {node["name"]: node for node in truth["nodes"]}
        self.pipes, self.edges = truth["pipes"], truth["edges"]
        self.nowhere = truth["leadNowhere"]
        self.runs = [run for search in truth.get("pressure", []) for run in search.get("runs", [])]
        self.drawing = drawing
        flows = {system["name"]: system["flow"] for system in truth["systems"]}
        self.gravity = [e for e in self.edges if flows[e["system"]] == "gravity"]
        self.flows, self.is_sewer = flows, bool(self.gravity)
        self.crossings = list(self.find_crossings())
        crossed = {h for pair in self.crossings for h in pair[:2]}
        # Mains that cross are joined there: runs end that the graph knows nothing of. On rings they
        # end where the walks meet.
        rings = self.on_rings()
        self.walked = {h for run in self.runs if len(run["pipes"]) > 1 and any(
            h in crossed or self.pipes[h]["edge"] in rings for h in run["pipes"])
                       for h in run["pipes"]} | {h for h in crossed if self.is_main(h)}

    def is_main(self, handle):
        return self.flows[self.pipes[handle]["system"]] == "pressure"

    def ends(self, handle):
        return self.pipes[handle]["startPoint"], self.pipes[handle]["endPoint"]

    def nodes_of(self, handle):
        edge = self.pipes[handle]["edge"]
        return set() if edge is None else {
            self.edges[edge][end] for end in ("upstream", "downstream")}

    def find_crossings(self):
        """Pairs of straight pipes of one system that meet in plan where the graph has no joint: the
        two, the place, and the heights of both there."""
        straight = [h for h, pipe in self.pipes.items() if not pipe["isArc"]]
        for a, b in near_pairs(straight, self.ends):
            if self.pipes[a]["system"] != self.pipes[b]["system"] or (
                    self.is_main(a) and not self.are_apart(a, b)):
                continue
            shares = crossing_shares(self.ends(a), self.ends(b))
            if shares:
                yield a, b, at_share(*self.ends(a), shares[0]), tuple(
                    self.height(h, share) for h, share in zip((a, b), shares))

    def are_apart(self, a, b):
        """Whether two mains have no node in common; of mains without nodes nothing is known."""
        nodes = self.nodes_of(a), self.nodes_of(b)
        return all(nodes) and not nodes[0] & nodes[1]

    def height(self, handle, share):
        pipe = self.pipes[handle]
        return pipe["startElevation"] + share * (pipe["endElevation"] - pipe["startElevation"])

    def crossing_sewers(self):
        """Sewers that cross away from their ends and from wells and do not go on in another."""
        for a, b, place, _ in self.crossings:
            ends = [*self.ends(a), *self.ends(b)]
            if not self.is_main(a) and min(math.dist(place, end) for end in ends) >= SNAP and \
                    bend(self.ends(a), self.ends(b)) > STRAIGHT_ON and not any(
                        holds(node, place) for node in self.nodes.values()):
                yield "crossing-without-joint", frozenset((a, b))

    def crossing_mains(self):
        """Mains that the search joins though they pass over one another."""
        for a, b, _, heights in self.crossings:
            wide = (self.pipes[a]["diameter"] + self.pipes[b]["diameter"]) / 1000.0
            if self.is_main(a) and abs(heights[0] - heights[1]) > wide:
                yield "crossing-heights", frozenset((a, b))

    def rings(self):
        """How many rings the mains have, counting crossings as joints."""
        group = Groups(self.nodes)
        rings = sum(not group.join(edge["upstream"], edge["downstream"]) for edge in self.edges)
        for a, b, _, _ in self.crossings:
            if self.is_main(a):
                rings += not group.join(min(self.nodes_of(a)), min(self.nodes_of(b)))
        return rings

    def on_rings(self):
        """The edges of mains that lie on rings or between them, crossings taken for joints: what is
        left when branches are taken off, from their ends on. None in a tree."""
        at, across = collections.defaultdict(set), collections.defaultdict(set)
        for k, edge in enumerate(self.edges):
            for end in ("upstream", "downstream"):
                at[edge[end]].add(k)
        for a, b, _, _ in self.crossings:
            if self.is_main(a):
                a, b = self.pipes[a]["edge"], self.pipes[b]["edge"]
                across[a].add(b)
                across[b].add(a)
        left, todo = set(range(len(self.edges))), list(range(len(self.edges)))
        while todo:
            k = todo.pop()
            ends = self.edges[k]["upstream"], self.edges[k]["downstream"]
            if k in left and not across[k] and any(len(at[end]) == 1 for end in ends):
                left.discard(k)
                beside = set().union(*(at[end] for end in ends)) - {k}
                for end in ends:
                    at[end].discard(k)
                todo += beside
        return left

    def gaps(self):
        """Ends of branches that all but meet another main. A short pipe's own joint, a few metres
        back, is no such thing."""
        places = {h: self.ends(h) for h in self.pipes if self.is_main(h)}
        found = set()
        for node in self.nodes.values():
            at = [e for e in self.edges if node["name"] in (e["upstream"], e["downstream"])]
            if len(at) == 1 and not node["kind"] == "tank" and at[0]["pipes"][0] in places:
                last = at[0]["pipes"][0 if at[0]["upstream"] == node["name"] else -1]
                found.add(frozenset((last, self.nearest_main(node, last, places) or last)))
        return [("gap-at-joint", pair) for pair in found if len(pair) == 2]

    def nearest_main(self, node, own, places):
        reach, point = REACH + node["radius"], node["point"]
        far = max(places[own], key=lambda end: math.dist(end, point))
        found = []
        for handle, ends in places.items():
            if handle == own:
                continue
            to_line, to_end = off_line(point, *ends), min(math.dist(point, end) for end in ends)
            gap = to_end if to_end <= to_line + reach else to_line
            joint = min(off_line(far, *ends), min(math.dist(far, end) for end in ends))
            is_behind = joint <= reach and gap >= math.dist(point, far) - reach
            if gap <= NEAR_MISS * reach and not is_behind:
                found.append((gap, handle))
        return min(found)[1] if found else None

    def unequal_pieces(self):
        """Runs of mains of which not all pipes are as the first one, whose values the run has."""
        for run in self.runs:
            first = self.pipes[run["pipes"][0]]
            others = [h for h in run["pipes"] if any(
                self.pipes[h][key] != first[key] for key in ("diameter", "material"))]
            if others:
                yield "pieces-differ", frozenset([run["pipes"][0], *others])

    def lone_nodes(self):
        joined = {edge[end] for edge in self.edges for end in ("upstream", "downstream")}
        for node in self.nodes.values():
            if node["name"] not in joined and self.flows[node["system"]] == "gravity":
                yield ("no-network" if node["kind"] == "tank" else "well-without-pipe",
                       frozenset(node["handles"]))

    def uphill(self):
        for edge in self.gravity:
            rising = [h for h in edge["pipes"]
                      if heights(self.pipes[h])[1] > heights(self.pipes[h])[0]]
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


def own_findings(told):
    """What a check must say of a drawing, reckoned from its truth."""
    found = []
    for findings in (told.uphill(), told.narrowing(), told.slopes(), told.numbers(), told.layout(),
                     told.crossing_sewers(), told.crossing_mains(), told.lone_nodes(),
                     told.gaps(), told.unequal_pieces()):
        found += findings
    return collections.Counter(found)


def essence(finding):
    """A finding as `own_findings` has it: the code and the entities that count."""
    handles = finding["handles"]
    if finding["code"] == "diameter-shrinks":
        handles = handles[2:]  # behind the two pipes the well
    elif finding["code"] == "dead-end":
        handles = handles[:1]  # behind the pipe what it misses
    return finding["code"], frozenset(handles)
