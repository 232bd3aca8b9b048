#!/usr/bin/env python3
"""Turns a water supply model in EPANET input format into two drawings of loose pipes and wells.

    python3 epanet_to_dxf.py INPUT.inp NAME [SYSTEM]

Writes NAME-tree.dxf, a part of the network that has every node and no loop, and NAME-whole.dxf with
all of its loops; beside each the truth as NAME-tree.truth.json and NAME-whole.truth.json. What
stands in the tree has the same handles and the same place in the whole. SYSTEM is the pipe system,
给水 by default. Standard library only; the same input gives the same bytes.

* A drawing unit is a metre. Models in US units have their map, lengths and heights in feet.
* Pipes, pumps and valves become pipes from node to node. The ones with vertices are polylines and
  count by their chords. A long one is drawn in two or three pieces, exactly in line.
* A valve stands as a valve well in its link, a flow sensor as a meter well. A junction that is read
  by radio (AMR) has a meter well in the pipe that leads to it, one with a pressure sensor a plain
  well at the junction itself. Reservoirs and tanks are tanks.
* Every other piece is turned round, except where it heads a run of several: the search turns such a
  run about and takes its far end for the place where it has already been.
"""
import math
import os
import sys

from model_input import FOOT, Converter, Map, option, read_sections
from network_layout import METER, REACH, ROUND, VALVE, rounded

INCH = 25.4  # millimetres
US_UNITS = ("CFS", "GPM", "MGD", "IMGD", "AFD")
SHORTEST_LINK = 1.02  # a pipe of one unit or less is none
METER_DIAMETER, SENSOR_DIAMETER = 0.8, 1.2
TANK_LENGTH, TANK_WIDTH = 6.0, 4.0
PIECE = 12.0  # a pipe is broken only where each piece stays about this long
# Where a pipe is broken, as shares of its length. With map coordinates of two decimals these
# products have five, so the pieces lie in one line to the last digit that a drawing keeps.
BREAKS = {1: [(0.0, 1.0)], 2: [(0.0, 0.5), (0.504, 1.0)],
          3: [(0.0, 0.35), (0.354, 0.7), (0.704, 1.0)]}
AT_SENSOR, AT_VALVE, AT_METER = 0.25, 0.6, 0.75  # places of wells, as shares of a pipe's length
ONE_DIRECTION, CLEAR_BEND = 1e-10, 1e-8  # radians
# A model has no material; this is the pipe that such a roughness is usually chosen for.
MATERIALS = {140.0: "PE", 120.0: "球墨铸铁"}


class Model:
    """Nodes and links of a model, in metres."""

    def __init__(self, path):
        sections = read_sections(path)
        us_units = option(sections, "UNITS", "GPM") in US_UNITS
        unit = FOOT if us_units else 1.0
        self.map = Map(sections, unit)
        self.elevations, self.notes, self.reservoirs = {}, {}, []
        for section in ("JUNCTIONS", "TANKS", "RESERVOIRS"):
            for row in sections.get(section, []):
                self.elevations[row[0]] = float(row[1]) * unit
                self.notes[row[0]] = row.note.upper()
        self.reservoirs = [row[0] for row in sections.get("RESERVOIRS", [])]
        self.tanks = self.reservoirs + [row[0] for row in sections.get("TANKS", [])]
        self.links = {row[0]: self._pipe(row, unit, us_units) for row in sections["PIPES"]}
        self._devices(sections, INCH if us_units else 1.0)
        self._level_reservoirs()

    def _pipe(self, row, unit, us_units):
        return {"name": row[0], "ends": (row[1], row[2]), "length": float(row[3]) * unit,
                "diameter": round(float(row[4]) * (INCH if us_units else 1.0)),
                "material": MATERIALS.get(float(row[5]), ""), "note": row.note.upper(),
                "device": ""}

    def _devices(self, sections, inch):
        """Valves and pumps, which are stretches of pipe here; a pump is as wide as its pipes."""
        for kind in ("VALVES", "PUMPS"):
            for row in sections.get(kind, []):
                ends = (row[1], row[2])
                beside = [link["diameter"] for link in self.links.values()
                          if set(link["ends"]) & set(ends)]
                wide = round(float(row[3]) * inch) if kind == "VALVES" else max(beside)
                self.links[row[0]] = {
                    "name": row[0], "ends": ends, "length": math.dist(*map(self.point, ends)),
                    "diameter": wide, "material": "", "note": row.note.upper(), "device": kind}

    def _level_reservoirs(self):
        """A reservoir's head is no height of a pipe: its pipe is laid level up to it."""
        for link in self.links.values():
            for here, there in (link["ends"], link["ends"][::-1]):
                if here in self.reservoirs:
                    self.elevations[here] = self.elevations[there]

    def point(self, node):
        return self.map.points[node]

    def path(self, link):
        return self.map.path(link["name"], *link["ends"])

    def check(self):
        for link in self.links.values():
            if math.dist(*map(self.point, link["ends"])) < SHORTEST_LINK:
                raise SystemExit(f"{link['name']} is too short for a pipe on this map")


def spanning_tree(model):
    """The names of links that join all nodes without a loop: wells first, then the widest."""
    group = {node: node for node in model.elevations}

    def root(node):
        while group[node] != node:
            group[node] = group[group[node]]
            node = group[node]
        return node

    tree = []
    wanted = sorted(model.links.values(), key=lambda link: (
        link["device"] == "" and "SENSOR" not in link["note"], -link["diameter"]))
    for link in wanted:
        a, b = map(root, link["ends"])
        if a != b:
            group[a] = b
            tree.append(link["name"])
    if len(tree) != len(group) - 1:
        raise SystemExit("the network of this model is in several parts")
    return tree


class Tree:
    """The links of a spanning tree, each directed away from the node where it is read from."""

    def __init__(self, model, source):
        self.model, self.source = model, source
        at = {}
        for name in spanning_tree(model):
            for node in model.links[name]["ends"]:
                at.setdefault(node, []).append(name)
        self.ends, self.onward, self.towards, todo = {}, {}, {}, [source]
        for node in todo:
            self.onward[node] = [name for name in at[node] if name not in self.ends]
            for name in self.onward[node]:
                a, b = model.links[name]["ends"]
                self.ends[name] = (a, b) if a == node else (b, a)
                self.towards[self.ends[name][1]] = name
                todo.append(self.ends[name][1])

    def next_in_line(self, name):
        """The only link that goes on from a link's far end, if it goes on in a straight line."""
        onward = self.onward[self.ends[name][1]]
        if len(onward) != 1:
            return None
        (a, b), (c, d) = ([self.model.point(node) for node in self.ends[link]]
                          for link in (name, onward[0]))
        ux, uy, vx, vy = b[0] - a[0], b[1] - a[1], d[0] - c[0], d[1] - c[1]
        bend = abs(ux * vy - uy * vx) / (math.hypot(ux, uy) * math.hypot(vx, vy))
        if ONE_DIRECTION < bend < CLEAR_BEND:
            raise SystemExit(f"{name} and {onward[0]} are neither in line nor clearly bent")
        return onward[0] if bend <= ONE_DIRECTION else None

    def way_back(self, node):
        """The links from a node to the source."""
        names = []
        while node != self.source:
            names.append(self.towards[node])
            node = self.ends[names[-1]][0]
        return names

    def ring(self, start, end):
        """The links of the tree on the way from one node to another: back, then onward."""
        out, home = self.way_back(start), self.way_back(end)
        while out and home and out[-1] == home[-1]:
            out.pop()
            home.pop()
        return out, home[::-1]


class SupplyConverter(Converter):
    def __init__(self, model, tree, name, system):
        super().__init__(name, system)
        self.model, self.tree = model, tree
        self.handles = {}  # of the pieces of each link, from its upstream end on
        self.wells = {}  # of each link: handle, share of its length, valve or meter
        self.next_well = 0x1001

    # -- nodes and wells -----------------------------------------------------------------------

    def handle_of_well(self):
        self.next_well += 1
        return f"{self.next_well - 1:X}"

    def nodes(self):
        for name in self.model.elevations:
            point, handles, radius = self.model.point(name), [], 0.0
            if name in self.model.tanks:
                handles = [self.handle_of_well()]
                self.network.tank(handles[0], self.system, name, point, TANK_LENGTH, TANK_WIDTH)
            elif "PRESSURE SENSOR" in self.model.notes[name]:
                handles, radius = [self.handle_of_well()], SENSOR_DIAMETER / 2.0
                self.network.well(handles[0], self.system, name, point, SENSOR_DIAMETER, ROUND)
            kind = "tank" if name in self.model.tanks else "well" if handles else "junction"
            self.network.node(name, self.system, kind, handles, point, radius,
                              number=name if kind == "well" else "")

    def wells_on(self, name, ends):
        """Draws the valve and meter wells that stand in a link."""
        link = self.model.links[name]
        wanted = []
        if link["device"] == "VALVES":
            wanted.append((AT_VALVE, VALVE, name))
        if "FLOW SENSOR" in link["note"]:
            wanted.append((AT_SENSOR, METER, name))
        if name == self.tree.towards.get(ends[1]) and "AMR" in self.model.notes[ends[1]]:
            wanted.append((AT_METER, METER, ends[1]))
        for share, block, number in wanted:
            handle = self.handle_of_well()
            place = between(*map(self.model.point, ends), share)
            self.network.well(handle, self.system, number, place, METER_DIAMETER, block)
            self.wells.setdefault(name, []).append(
                (handle, share, "valves" if block == VALVE else "meters"))

    # -- links ---------------------------------------------------------------------------------

    def link(self, name, ends):
        """Draws a link from the first of its ends to the second."""
        link, model = self.model.links[name], self.model
        path = model.path(link) if ends == link["ends"] else model.path(link)[::-1]
        upper, lower = (model.elevations[node] for node in ends)
        data = {"diameter": link["diameter"], "material": link["material"],
                "slope": (upper - lower) / link["length"]}
        pieces = self.pieces(path)
        handles = self.draw(pieces, data, upper, lower,
                            lambda k: k > 0 or not self.heads_a_run(name, pieces))
        self.handles[name] = handles
        self.network.edge(*ends, self.system, handles, "chain" if len(pieces) > 1 else "direct",
                          link=name, modelLength=round(link["length"], 6))
        self.wells_on(name, ends)

    def heads_a_run(self, name, pieces):
        return len(pieces) > 1 or name in self.tree.ends and bool(self.tree.next_in_line(name))

    def pieces(self, path):
        if len(path) > 2:
            return [path]
        count = min(3, int(math.dist(*path) / PIECE)) if self.chance.below(4) == 0 else 1
        return [[between(*path, share) for share in shares] for shares in BREAKS[max(1, count)]]

    # -- the truth -----------------------------------------------------------------------------

    def runs(self):
        """The runs of the tree in the order in which the walk adds them."""
        place = {handle: i for i, handle in enumerate(self.network.drawing.order())}
        runs, todo = [], []
        self.add_runs(runs, todo, None, self.tree.onward[self.tree.source], place)
        while todo:
            k, last = todo.pop()
            self.add_runs(runs, todo, k, self.tree.onward[self.tree.ends[last][1]], place)
        return runs

    def add_runs(self, runs, todo, parent, links, place):
        """Adds the runs that begin with links at one node, in drawing order."""
        added = []
        for first in sorted(links, key=lambda name: place[self.handles[name][0]]):
            names = [first]
            while self.tree.next_in_line(names[-1]):
                names.append(self.tree.next_in_line(names[-1]))
            added.append((len(runs), names[-1]))
            runs.append(self.one_run(names, parent))
        todo += added[::-1]

    def one_run(self, names, parent):
        pipes = [handle for name in names for handle in self.handles[name]]
        begin = self.model.point(self.tree.ends[names[0]][0])
        far = self.model.point(self.tree.ends[names[-1]][1])
        first = self.network.told(pipes[0])
        turned = int(first["flow"] == "ES")
        wells = {kind: [handle for name in names for handle, _, of in sorted(
            self.wells.get(name, []), key=lambda well: well[1]) if of == kind]
                 for kind in ("valves", "meters")}
        heights = (first["startElevation"], first["endElevation"])[::-1 if turned else 1]
        return {"pipe": pipes[0], "pipes": pipes, "flags": [1] * len(pipes), "from": list(begin),
                "to": list(far), "parent": parent, **wells, "reversed": turned,
                "isArc": 0, "length": round(math.dist(begin, far), 6),
                "startElevation": heights[0], "endElevation": heights[1],
                "diameter": first["diameter"], "material": first["material"],
                "slope": first["slope"], "flow": first["flow"], "links": names}

    def loops(self):
        """For each link outside the tree the loop that it closes."""
        loops = []
        for name, link in self.model.links.items():
            if name in self.tree.ends:
                continue
            back, onward = self.tree.ring(link["ends"][1], link["ends"][0])
            pipes = list(self.handles[name])
            for one in back:
                pipes += self.handles[one][::-1]
            for one in onward:
                pipes += self.handles[one]
            loops.append({"nodes": list(link["ends"]),
                          "points": [list(self.model.point(node)) for node in link["ends"]],
                          "pipes": pipes, "links": [name, *back, *onward]})
        return loops

    def pick(self):
        first = self.tree.onward[self.tree.source][0]
        return {"pipe": self.handles[first][0], "point": list(self.model.point(self.tree.source))}


def between(start, end, share):
    """The point at a share of the way from start to end."""
    return rounded((start[0] + (end[0] - start[0]) * share, start[1] + (end[1] - start[1]) * share))


def convert(source, name, system, whole):
    model = Model(source)
    model.check()
    tree = Tree(model, model.reservoirs[0])
    if len(tree.onward[tree.source]) != 1:
        raise SystemExit(f"the reservoir {tree.source} has several pipes")
    target = f"{name}-{'whole' if whole else 'tree'}.dxf"
    converter = SupplyConverter(model, tree, os.path.basename(target), system)
    converter.nodes()
    for link, ends in tree.ends.items():
        converter.link(link, ends)
    if whole:
        for link in model.links.values():
            if link["name"] not in tree.ends:
                converter.link(link["name"], link["ends"])
    converter.shuffle()
    answer = {"result": 0, "loops": converter.loops()} if whole else {
        "result": 1, "runs": converter.runs()}
    converter.write(target, model=os.path.basename(source), reach=REACH,
                    pressure=[{"pick": converter.pick(), **answer}])


def main():
    if len(sys.argv) not in (3, 4):
        raise SystemExit(__doc__)
    for whole in (False, True):
        convert(*sys.argv[1:3], sys.argv[3] if len(sys.argv) > 3 else "给水", whole)


if __name__ == "__main__":
    main()
