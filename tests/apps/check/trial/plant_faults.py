#!/usr/bin/env python3
"""Plants faults in a sound drawing, so that a check can be tried on them.

    python3 plant_faults.py DRAWING.dxf TRUTH.json SEED OUTPUT.dxf [FAMILY]

Writes the spoilt drawing and prints what was planted: the code and the entities that a check must
name, and the entities that are no longer what they were. Which entities are spoilt follows from the
seed alone. No two faults touch each other: between the runs and nodes of one and those of another
lies at least one run that is left whole.
"""
import json
import math
import os
import sys

sys.path.insert(0, os.environ.get("TKVLT_EXAMPLES", os.path.join(
    os.path.dirname(os.path.abspath(__file__)), *[os.pardir] * 4, "examples")))

from drawing_edit import DrawingEdit  # noqa: E402
from model_truth import Groups  # noqa: E402
from dxf_writer import Chance, shuffled  # noqa: E402
from network_layout import off_line, towards  # noqa: E402

JOINT = 0.44  # pieces join over a gap below this, by the settings of the examples
OTHER_SYSTEM = {"雨水": "污水", "污水": "雨水", "给水": "污水"}


class Planted:
    """A fault: what a check must say of it, and what it has changed."""

    def __init__(self, kind, codes, named, touched):
        self.kind, self.codes, self.named, self.touched = kind, codes, named, touched

    def is_told_by(self, finding):
        return finding["code"] in self.codes and set(self.named) <= set(finding["handles"])


class Network:
    """The truth of a drawing: what lies where, and what lies beside it."""

    def __init__(self, truth):
        self.nodes = {node["name"]: node for node in truth["nodes"]}
        self.edges, self.pipes = truth["edges"], truth["pipes"]
        self.at = {name: [] for name in self.nodes}
        self.parts = Groups(self.nodes)
        for index, edge in enumerate(self.edges):
            for name in (edge["upstream"], edge["downstream"]):
                self.at[name].append(index)
            self.parts.join(edge["upstream"], edge["downstream"])
        lengths = sorted(pipe["length"] for pipe in self.pipes.values())
        self.usual_length = lengths[len(lengths) // 2]

    def ends(self, edge):
        return self.edges[edge]["upstream"], self.edges[edge]["downstream"]

    def degree(self, name):
        return len(self.at[name])

    def pipes_at(self, name):
        return [pipe for edge in self.at[name] for pipe in self.edges[edge]["pipes"]]

    def handles_around(self, edge):
        """An edge's pipes, its nodes, and all that meets it there."""
        around = set()
        for name in self.ends(edge):
            around |= set(self.nodes[name]["handles"]) | set(self.pipes_at(name))
        return around


class Planter:
    def __init__(self, drawing, truth, seed, on_rings):
        self.drawing, self.net = drawing, Network(truth)
        self.on_rings = on_rings  # edges to which a search may come from either side
        self.chance = Chance(seed)
        self.taken = set()  # edges that belong to a fault or lie beside one
        self.planted = []
        self.wells = drawing.carriers("管井系统")

    # -- what is free ----------------------------------------------------------------------------

    def around(self, names):
        """The edges at some nodes and those beside them."""
        edges = {edge for name in names for edge in self.net.at[name]}
        return edges | {near for edge in edges for name in self.net.ends(edge)
                        for near in self.net.at[name]}

    def claim(self, names):
        """Keeps other faults away from some nodes; False when one is there already."""
        wanted = self.around(names)
        if wanted & self.taken:
            return False
        self.taken |= wanted
        return True

    def free_edges(self, fits):
        """Edges that fit, in an order of chance; the caller claims the one that it takes."""
        for edge in shuffled(list(range(len(self.net.edges))), self.chance.below(1 << 30)):
            if fits(edge) and not self.around(self.net.ends(edge)) & self.taken:
                yield edge

    def free_wells(self, fits=lambda name: True):
        return self.free_nodes(lambda name: self.net.nodes[name]["kind"] == "well" and fits(name))

    def free_nodes(self, fits=lambda name: True):
        """Wells and mere joints."""
        names = [name for name, node in self.net.nodes.items()
                 if node["kind"] != "tank" and len(node["handles"]) < 2 and self.net.at[name]]
        for name in shuffled(names, self.chance.below(1 << 30)):
            if fits(name) and not self.around([name]) & self.taken:
                yield name

    def straight(self, edge, length, in_pieces=False):
        """Whether an edge is drawn in one line, or in several, each at least so long."""
        pipes = self.net.edges[edge]["pipes"]
        return ((len(pipes) > 1) == in_pieces
                and all(self.drawing[pipe].kind == "LINE" for pipe in pipes)
                and all(self.net.pipes[pipe]["length"] >= length for pipe in pipes))

    def well_ends(self, edge):
        return all(self.net.nodes[name]["kind"] == "well" for name in self.net.ends(edge))

    def keep(self, kind, codes, named, touched):
        self.planted.append(Planted(kind, codes, sorted(named), sorted(set(touched) | set(named))))
        return True

    def sound(self, handles):
        """The first of some entities that no fault has touched."""
        touched = {handle for fault in self.planted for handle in fault.touched}
        return next(handle for handle in handles if handle not in touched)

    def take_edge(self, fits):
        edge = next(self.free_edges(fits), None)
        if edge is not None:
            self.claim(self.net.ends(edge))
        return edge

    def take_well(self, fits=lambda name: True):
        name = next(self.free_wells(fits), None)
        if name is not None:
            self.claim([name])
        return name

    def touched_by_edge(self, edge):
        """An edge, all that meets it at its nodes, and the wells that stand on it."""
        pipes = [self.net.pipes[pipe] for pipe in self.net.edges[edge]["pipes"]]
        on_it = {well.handle for well in self.wells if any(off_line(
            well.point(), pipe["startPoint"], pipe["endPoint"]) < 1.0 for pipe in pipes)}
        return self.net.handles_around(edge) | on_it

    def touched_by_node(self, name):
        return set(self.net.nodes[name]["handles"]).union(
            *(self.touched_by_edge(edge) for edge in self.net.at[name]))

    # -- geometry --------------------------------------------------------------------------------

    def end_at(self, pipe, point):
        """Which end of a pipe, 0 or -1, is the one nearer to a point."""
        entity = self.drawing[pipe]
        return min((0, -1), key=lambda which: math.dist(entity.point(which), point))

    def middle(self, edge):
        entity = self.drawing[self.net.edges[edge]["pipes"][0]]
        (ax, ay), (bx, by) = entity.point(0), entity.point(-1)
        return (ax + bx) / 2.0, (ay + by) / 2.0

    def is_clear(self, point, radius, but=()):
        """Whether no other pipe or node comes within a radius of a point."""
        for pipe, values in self.net.pipes.items():
            if pipe not in but and off_line(point, values["startPoint"],
                                            values["endPoint"]) < radius:
                return False
        return all(math.dist(node["point"], point) >= radius for node in self.net.nodes.values())

    # -- faults of geometry ----------------------------------------------------------------------

    def widen_gap(self):
        """A joint of pieces in line is pulled apart to 0.9 m."""
        edge = self.take_edge(lambda e: self.straight(e, 4.0, True) and self.in_line(e))
        if edge is None:
            return False
        first, second = self.net.edges[edge]["pipes"][:2]
        near = min(((i, j) for i in (0, -1) for j in (0, -1)), key=lambda ends: math.dist(
            self.drawing[first].point(ends[0]), self.drawing[second].point(ends[1])))
        joint = self.drawing[first].point(near[0])
        self.drawing[second].move(near[1], towards(joint, self.drawing[second].point(
            -1 if near[1] == 0 else 0), 0.9))
        return self.keep("gap widened", ["gap-at-joint"], [first, second],
                         self.touched_by_edge(edge))

    def in_line(self, edge):
        ends = [self.net.nodes[name]["point"] for name in self.net.ends(edge)]
        return all(off_line(self.drawing[pipe].point(which), *ends) < 0.01
                   for pipe in self.net.edges[edge]["pipes"] for which in (0, -1))

    def pull_end(self):
        """An end is pulled 5 m away from its well."""
        edge = self.take_edge(lambda e: self.straight(e, 14.0) and self.well_ends(e))
        if edge is None:
            return False
        pipe, name = self.net.edges[edge]["pipes"][0], self.net.ends(edge)[self.chance.below(2)]
        which = self.end_at(pipe, self.net.nodes[name]["point"])
        entity = self.drawing[pipe]
        entity.move(which, towards(entity.point(which), entity.point(-1 - which), 5.0))
        return self.keep("end pulled away", ["dead-end"], [pipe], self.touched_by_edge(edge))

    def remove_leaf_well(self):
        """The last well of a branch is taken out."""
        name = self.take_well(lambda n: self.net.degree(n) == 1)
        if name is None:
            return False
        pipe = self.end_pipe(name)
        touched = self.touched_by_node(name)
        self.drawing.remove(self.net.nodes[name]["handles"][0])
        return self.keep("well removed", ["dead-end"], [pipe], touched)

    def end_pipe(self, name):
        """The pipe of a branch's last run that ends at its well."""
        edge = self.net.edges[self.net.at[name][0]]
        return edge["pipes"][0] if edge["upstream"] == name else edge["pipes"][-1]

    def close_loop(self):
        """A new pipe joins two wells that are joined already."""
        for name in self.free_nodes():
            partner = self.partner(name)
            if partner is None:
                continue
            self.claim([name])
            self.claim([partner])
            a, b = (self.net.nodes[each] for each in (name, partner))
            pipe = self.drawing.add_like(self.sound(
                p for p in self.net.pipes if self.drawing[p].kind == "LINE"
                and self.net.pipes[p]["system"] == a["system"]))
            # Sewers end at the rims of their wells, mains meet in the middle.
            rims = (0.0, 0.0) if a["system"] == "给水" else (a["radius"], b["radius"])
            pipe.move(0, towards(a["point"], b["point"], rims[0]))
            pipe.move(-1, towards(b["point"], a["point"], rims[1]))
            return self.keep("loop closed", ["cycle"], [pipe.handle],
                             self.touched_by_node(name) | self.touched_by_node(partner))
        return False

    def partner(self, name):
        """A free well of the same network in sight, from 8 m to some pipes' lengths away, which is
        no neighbour."""
        here, mine = self.net.nodes[name], self.around([name])
        farthest = max(60.0, 4.0 * self.net.usual_length)
        for other in self.free_nodes(lambda n: 8.0 <= math.dist(
                self.net.nodes[n]["point"], here["point"]) <= farthest):
            there = self.net.nodes[other]
            if self.net.parts.of(other) == self.net.parts.of(name) and \
                    not self.around([other]) & mine and \
                    self.is_open(here["point"], there["point"], (name, other)):
                return other
        return None

    def is_open(self, a, b, but):
        """Whether a straight way keeps clear of wells and of the ends and lines of all pipes."""
        for name, node in self.net.nodes.items():
            if name not in but and off_line(node["point"], a, b) < 2.0:
                return False
        mine = {p for name in but for p in self.net.pipes_at(name)}
        for pipe, values in self.net.pipes.items():
            if pipe not in mine and crosses(a, b, values["startPoint"], values["endPoint"]):
                return False
        return True

    def cut_too_short(self):
        """A pipe is drawn in two pieces of which the last is 0.8 m long."""
        edge = self.take_edge(lambda e: self.straight(e, 8.0) and self.well_ends(e))
        if edge is None:
            return False
        pipe = self.net.edges[edge]["pipes"][0]
        short = self.drawing.add_like(pipe)
        start, end = short.point(0), short.point(-1)
        short.move(0, towards(end, start, 0.8))
        self.drawing[pipe].move(-1, towards(end, start, 0.9))
        return self.keep("piece too short", ["pipe-too-short"], [short.handle],
                         self.touched_by_edge(edge))

    def bend(self):
        """A pipe is drawn in two pieces that meet at an angle of some 44 degrees."""
        edge = self.take_edge(lambda e: self.straight(e, 10.0) and self.well_ends(e)
                              and self.is_clear(self.bow(e), 4.0, self.net.edges[e]["pipes"]))
        if edge is None:
            return False
        pipe, middle = self.net.edges[edge]["pipes"][0], self.bow(edge)
        second = self.drawing.add_like(pipe)
        second.move(0, middle)
        self.drawing[pipe].move(-1, middle)
        return self.keep("joint bent", ["angle-at-joint"], [pipe, second.handle],
                         self.touched_by_edge(edge))

    def bow(self, edge):
        """A point beside the middle of a pipe, a fifth of its length away."""
        entity = self.drawing[self.net.edges[edge]["pipes"][0]]
        (ax, ay), (bx, by) = entity.point(0), entity.point(-1)
        return (ax + bx) / 2.0 - 0.2 * (by - ay), (ay + by) / 2.0 + 0.2 * (bx - ax)

    def cross_main(self):
        """A main is laid across another, 10 m above it."""
        edge = self.take_edge(lambda e: self.straight(e, 20.0) and self.is_clear(
            self.middle(e), 9.0, self.net.edges[e]["pipes"]))
        if edge is None:
            return False
        crossed, (x, y) = self.net.edges[edge]["pipes"][0], self.middle(edge)
        (ax, ay), (bx, by) = (self.drawing[crossed].point(which) for which in (0, -1))
        pipe = self.drawing.add_like(crossed)
        for side, which in ((-1, 0), (1, -1)):
            share = side * 6.0 / math.dist((ax, ay), (bx, by))
            pipe.move(which, (x - share * (by - ay), y + share * (bx - ax)))
        for app in ("起点标高", "终点标高"):
            pipe.set_text(app, f"{float(pipe.texts()[app]) + 10.0:.3f}")
        return self.keep("main laid across", ["crossing-heights"], [pipe.handle, crossed],
                         self.touched_by_edge(edge))

    def turn_first(self):
        """The pipe that heads a run of several is drawn the other way round."""
        edge = self.take_edge(lambda e: self.straight(e, 3.0, True) and e not in self.on_rings and
                              not self.net.pipes[self.net.edges[e]["pipes"][0]]["flow"] == "ES")
        if edge is None:
            return False
        entity = self.drawing[self.net.edges[edge]["pipes"][0]]
        start, end, texts = entity.point(0), entity.point(-1), entity.texts()
        entity.move(0, end)
        entity.move(-1, start)
        entity.set_text("起点标高", texts["终点标高"])
        entity.set_text("终点标高", texts["起点标高"])
        entity.set_text("水流方向", "ES")
        return self.keep("run turned", ["turned-run"], [entity.handle],
                         self.touched_by_edge(edge))

    def double_pipe(self):
        """A pipe is drawn a second time, upon itself."""
        edge = self.take_edge(lambda e: self.straight(e, 3.0))
        if edge is None:
            return False
        pipe = self.net.edges[edge]["pipes"][0]
        twin = self.drawing.add_like(pipe)
        return self.keep("pipe doubled", ["cycle", "no-network"], [twin.handle],
                         self.touched_by_edge(edge))

    def cross(self):
        """A pipe between two new wells crosses a run without a joint."""
        edge = self.take_edge(lambda e: self.straight(e, 20.0) and self.is_clear(
            self.middle(e), 9.0, self.net.edges[e]["pipes"]))
        if edge is None:
            return False
        crossed, centre = self.net.edges[edge]["pipes"][0], self.middle(edge)
        (ax, ay), (bx, by) = (self.drawing[crossed].point(which) for which in (0, -1))
        length = math.dist((ax, ay), (bx, by))
        across = (-(by - ay) / length, (bx - ax) / length)
        like = self.sound(
            node["handles"][0] for node in self.net.nodes.values()
            if node["kind"] == "well" and node["system"] == self.net.edges[edge]["system"])
        wells = [self.drawing.add_like(like) for _ in range(2)]
        radius = float(wells[0].texts()["井的直径"]) / 2.0
        pipe = self.drawing.add_like(crossed)
        for side, well, which in ((-1, wells[0], 0), (1, wells[1], -1)):
            well.move(0, tuple(c + side * 6.0 * u for c, u in zip(centre, across)))
            well.set_text("管井编号", f"new {well.handle}")
            pipe.move(which, tuple(c + side * (6.0 - radius) * u
                                   for c, u in zip(centre, across)))
        return self.keep("pipe laid across", ["crossing-without-joint"], [pipe.handle, crossed],
                         {well.handle for well in wells})

    def add_lone_well(self):
        """A new well stands where no pipe is."""
        name = self.take_well()
        if name is None:
            return False
        well = self.drawing.add_like(self.net.nodes[name]["handles"][0])
        well.set_text("管井编号", f"new {well.handle}")
        well.move(0, self.nowhere(-300.0))
        return self.keep("well added", ["well-without-pipe"], [well.handle], [])

    def add_lone_pipe(self):
        """A new pipe lies where no well is."""
        edge = self.take_edge(lambda e: self.straight(e, 3.0))
        if edge is None:
            return False
        pipe = self.drawing.add_like(self.net.edges[edge]["pipes"][0])
        x, y = self.nowhere(300.0)
        pipe.move(0, (x, y))
        pipe.move(-1, (x + 9.0, y))
        return self.keep("pipe added", ["dead-end"], [pipe.handle], [])

    def nowhere(self, aside):
        """A place so far to the left or right of the map, another one each time."""
        points = [node["point"] for node in self.net.nodes.values()]
        edge = max if aside > 0.0 else min
        return (edge(p[0] for p in points) + aside,
                min(p[1] for p in points) + 50.0 * len(self.planted))

    def add_overlapping_well(self):
        """A second well is put over the rim of one."""
        name = self.take_well(lambda n: self.net.nodes[n]["radius"] >= 0.3)
        if name is None:
            return False
        node = self.net.nodes[name]
        well = self.drawing.add_like(node["handles"][0])
        well.set_text("管井编号", f"new {well.handle}")
        well.move(0, (node["point"][0] + 0.1, node["point"][1]))
        return self.keep("well doubled", ["merged-wells"], [well.handle],
                         self.touched_by_node(name))

    def foreign_well(self):
        """A well in a run is given the name of another system."""
        name = self.take_well(lambda n: self.net.degree(n) == 2)
        if name is None:
            return False
        node = self.net.nodes[name]
        self.drawing[node["handles"][0]].set_text("管井系统", OTHER_SYSTEM[node["system"]])
        return self.keep("well of another system", ["end-in-foreign-well"], node["handles"],
                         self.touched_by_node(name))

    # -- faults of texts -------------------------------------------------------------------------

    def double_number(self):
        """A well is given the number of another."""
        first, second = self.take_well(), self.take_well()
        if second is None:
            return False
        wells = [self.net.nodes[name]["handles"][0] for name in (first, second)]
        self.drawing[wells[0]].set_text("管井编号", self.drawing[wells[1]].texts()["管井编号"])
        return self.keep("number doubled", ["duplicate-number"], wells, [])

    def misspell_system(self):
        """A pipe is given a system that there is not."""
        return self.spoil_pipe("system misspelt", "unknown-system", "管道系统",
                               lambda text: f"{text}{len(self.planted)}", True)

    def add_unit(self):
        """An elevation is written with its unit."""
        return self.spoil_pipe("unit in an elevation", "number-not-whole", "起点标高",
                               lambda text: text + "m")

    def add_letters(self):
        """A diameter is written with letters before it, so that it reads as 0."""
        return self.spoil_pipe("letters before a diameter", "number-not-whole", "管径",
                               lambda text: "DN" + text, True)

    def lower_flow(self):
        """A flow text is written in small letters."""
        return self.spoil_pipe("flow in small letters", "flow-text", "水流方向", str.lower,
                               True)

    def drop_elevation(self):
        """An elevation is taken off."""
        return self.spoil_pipe("elevation taken off", "missing-key", "终点标高", lambda text: None)

    def drop_diameter(self):
        """The diameter of a pipe is taken off."""
        return self.spoil_pipe("diameter taken off", "missing-key", "管径", lambda text: None,
                               True)

    def spoil_pipe(self, kind, code, app, change, reaches=False):
        edge = self.take_edge(lambda e: True)
        if edge is None:
            return False
        pipes = self.net.edges[edge]["pipes"]
        entity = self.drawing[pipes[self.chance.below(len(pipes))]]
        entity.set_text(app, change(entity.texts()[app]))
        return self.keep(kind, [code], [entity.handle],
                         self.touched_by_edge(edge) if reaches else pipes)

    def drop_number(self):
        """The number of a well is taken off."""
        return self.spoil_well("number taken off", "管井编号")

    def drop_well_diameter(self):
        """The diameter of a well is taken off."""
        return self.spoil_well("well diameter taken off", "井的直径")

    def drop_well_mark(self):
        """A well loses the text by which it is known."""
        return self.spoil_well("well mark taken off", "管井系统")

    def spoil_well(self, kind, app):
        name = self.take_well()
        if name is None:
            return False
        handle = self.net.nodes[name]["handles"][0]
        self.drawing[handle].set_text(app, None)
        return self.keep(kind, ["missing-key"], [handle], self.touched_by_node(name))

    def fall(self, edge):
        """The fall of an edge by the elevations of its pipes' outer ends, as its flow has it."""
        pipes = [self.net.pipes[pipe] for pipe in self.net.edges[edge]["pipes"]]
        upper = pipes[0]["startElevation" if pipes[0]["flow"] == "SE" else "endElevation"]
        lower = pipes[-1]["endElevation" if pipes[-1]["flow"] == "SE" else "startElevation"]
        return upper - lower

    def exchange_heights(self):
        """The elevations of a pipe that falls by 0.1 m at least are exchanged."""
        edge = self.take_edge(lambda e: len(self.net.edges[e]["pipes"]) == 1 and
                              self.fall(e) >= 0.1)
        if edge is None:
            return False
        entity = self.drawing[self.net.edges[edge]["pipes"][0]]
        texts = entity.texts()
        entity.set_text("起点标高", texts["终点标高"])
        entity.set_text("终点标高", texts["起点标高"])
        return self.keep("elevations exchanged", ["heights-against-flow"], [entity.handle], [])

    def shift_slope(self):
        """The point of a slope text slips by one place."""
        edge = self.take_edge(lambda e: len(self.net.edges[e]["pipes"]) == 1 and
                              abs(self.fall(e)) >= 0.1 and self.tells_slope(e))
        if edge is None:
            return False
        entity = self.drawing[self.net.edges[edge]["pipes"][0]]
        entity.set_text("坡度", f"{10.0 * float(entity.texts()['坡度']):.6g}")
        return self.keep("slope times ten", ["slope-disagrees"], [entity.handle], [])

    def tells_slope(self, edge):
        """Whether an edge's slope text fits its fall to a twentieth."""
        pipe = self.net.pipes[self.net.edges[edge]["pipes"][0]]
        return abs(pipe["slope"] * pipe["length"] - self.fall(edge)) <= 0.05 * abs(self.fall(edge))

    def narrow(self):
        """A run is made half as wide as the widest that comes to it."""
        edge = self.take_edge(lambda e: self.follows_alone(e)
                              and self.widest_into(self.net.ends(e)[0]) >= 100)
        if edge is None:
            return False
        name = self.net.ends(edge)[0]
        half = self.widest_into(name) // 2
        pipes = self.net.edges[edge]["pipes"]
        for pipe in pipes:
            self.drawing[pipe].set_text("管径", str(half))
        return self.keep("run narrowed", ["diameter-shrinks"],
                         self.net.nodes[name]["handles"][:1], self.touched_by_edge(edge))

    def follows_alone(self, edge):
        name = self.net.ends(edge)[0]
        outlets = [e for e in self.net.at[name] if self.net.ends(e)[0] == name]
        return (self.net.nodes[name]["kind"] == "well" and len(outlets) == 1
                and self.net.degree(name) > 1)

    def widest_into(self, name):
        return max(self.net.pipes[self.net.edges[e]["pipes"][0]]["diameter"]
                   for e in self.net.at[name] if self.net.ends(e)[1] == name)

    def differ(self):
        """One of the pieces of a run is given another size."""
        edge = self.take_edge(lambda e: len(self.net.edges[e]["pipes"]) > 1)
        if edge is None:
            return False
        pipes = self.net.edges[edge]["pipes"]
        entity = self.drawing[pipes[self.chance.below(len(pipes))]]
        entity.set_text("管径", str(int(entity.texts()["管径"]) + 50))
        return self.keep("piece of another size", ["pieces-differ"], [entity.handle],
                         self.touched_by_edge(edge))

    def turn_piece(self):
        """One of the pieces of a run is turned against the flow of the others."""
        edge = self.take_edge(lambda e: len(self.net.edges[e]["pipes"]) > 1)
        if edge is None:
            return False
        pipes = self.net.edges[edge]["pipes"]
        entity = self.drawing[pipes[self.chance.below(len(pipes))]]
        entity.set_text("水流方向", {"SE": "ES", "ES": "SE"}[entity.texts()["水流方向"]])
        return self.keep("piece against the flow", ["pieces-differ"], [entity.handle],
                         self.touched_by_edge(edge))

    def drop_tank_system(self):
        return self.spoil_tank("tank without system", "池体系统")

    def drop_tank_mark(self):
        return self.spoil_tank("tank mark taken off", "池体")

    def spoil_tank(self, kind, app):
        """A tank loses one of its two marks."""
        for name, node in self.net.nodes.items():
            if node["kind"] == "tank" and self.claim([name]):
                self.drawing[node["handles"][0]].set_text(app, None)
                return self.keep(kind, ["missing-key"], node["handles"],
                                 self.touched_by_node(name))
        return False


def crosses(a, b, c, d):
    def side(p, q, r):
        return (q[0] - p[0]) * (r[1] - p[1]) - (q[1] - p[1]) * (r[0] - p[0])
    return side(a, b, c) * side(a, b, d) <= 0.0 and side(c, d, a) * side(c, d, b) <= 0.0


TEXT_FAULTS = ("double_number", "misspell_system", "add_unit", "add_letters", "lower_flow",
               "drop_elevation", "drop_diameter", "drop_number", "differ")
FAULTS = {
    "gravity": TEXT_FAULTS + (
        "widen_gap", "pull_end", "remove_leaf_well", "cut_too_short", "bend", "cross",
        "add_lone_well", "add_lone_pipe", "add_overlapping_well", "foreign_well",
        "drop_well_diameter", "drop_well_mark", "exchange_heights", "shift_slope", "narrow",
        "turn_piece", "drop_tank_system"),
    "loops": ("close_loop",),
    "tank": ("drop_tank_mark",),
    "pressure": TEXT_FAULTS + (
        "widen_gap", "cut_too_short", "shift_slope", "cross_main", "add_lone_well",
        "drop_well_diameter", "drop_well_mark", "drop_tank_system"),
    "turned": ("turn_first",),
    "doubled": ("double_pipe",)}


def plant(drawing, truth, seed, faults, rounds=1, on_rings=frozenset()):
    """Plants each of some faults so many times, as far as there is room. Which comes first is a
    matter of the seed, for the first one finds the most room. on_rings: edges to which a search may
    come from either side. Gives each fault with its name in `faults`."""
    planter = Planter(drawing, truth, seed, on_rings)
    planted = []
    for _ in range(rounds):
        for name in shuffled(list(faults), seed):
            if getattr(planter, name)():
                planted.append((name, planter.planted[-1]))
    return planted


def main():
    if len(sys.argv) not in (5, 6):
        raise SystemExit(__doc__)
    with open(sys.argv[2], encoding="utf-8") as file:
        truth = json.load(file)
    drawing = DrawingEdit(sys.argv[1])
    family = sys.argv[5] if len(sys.argv) > 5 else "gravity"
    planted = plant(drawing, truth, int(sys.argv[3]), FAULTS[family])
    drawing.write(sys.argv[4])
    for _, fault in planted:
        print(f"{fault.kind}: {' or '.join(fault.codes)} at {', '.join(fault.named)}")


if __name__ == "__main__":
    main()
