#!/usr/bin/env python3
"""Turns a drainage model in SWMM input format into a drawing of loose pipe and well entities.

    python3 swmm_to_dxf.py INPUT.inp OUTPUT.dxf [SYSTEM]

Writes OUTPUT.dxf and, beside it, OUTPUT.truth.json: the graph of the model with the handles of the
entities and the values that each of them carries. SYSTEM is the pipe system, 雨水 by default.
Standard library only; the same input gives the same bytes.

* A drawing unit is a metre. Models in US units have their map, lengths and heights in feet.
* Junctions and outfalls become round wells, storage units tanks, conduits pipes from rim to rim.
* A long conduit is drawn in two or three pieces with small gaps. One with vertices becomes a chain
  of pieces if no bend is sharper than a chain can follow, else a polyline.
* Half of the pieces are turned round, and the order of the entities is shuffled.
"""
import math
import os
import sys

from model_input import FOOT, Converter, Map, option, read_sections, way
from network_layout import towards

US_UNITS = ("CFS", "GPM", "MGD")
WELL_DIAMETER = 0.7  # metres, where there is room for it
SHORTEST_PIPE = 1.02  # a pipe of one unit or less is none, so leave a little more between the rims
TANK_LENGTH, TANK_WIDTH, INTO_TANK = 8.0, 5.0, 0.05
GAP = 0.2
SHARPEST_BEND = math.radians(15.0)
PIECE = 12.0  # a conduit is broken only where each piece stays about this long
# A model has no material; this is the pipe that such a roughness is usually chosen for.
MATERIALS = {0.01: "PVC", 0.013: "混凝土", 0.015: "钢筋混凝土"}


class Model:
    """Nodes and conduits of a model, in metres."""

    def __init__(self, path):
        sections = read_sections(path)
        unit = FOOT if option(sections, "FLOW_UNITS") in US_UNITS else 1.0
        if option(sections, "LINK_OFFSETS", "DEPTH") != "DEPTH":
            raise SystemExit(f"{path}: offsets must be depths above the node's invert")
        self.map = Map(sections, unit)
        self.kinds, self.inverts = {}, {}
        for section in ("JUNCTIONS", "OUTFALLS", "STORAGE"):
            for row in sections.get(section, []):
                self.kinds[row[0]] = section
                self.inverts[row[0]] = float(row[1]) * unit
        heights = {r[0]: float(r[2]) * unit for r in sections["XSECTIONS"]}
        self.conduits = [self._conduit(row, unit, heights)
                         for row in sections["CONDUITS"]]

    def _conduit(self, row, unit, heights):
        name, upstream, downstream = row[:3]
        length, roughness, rise_in, rise_out = (float(word) for word in row[3:7])
        upper = self.inverts[upstream] + rise_in * unit
        lower = self.inverts[downstream] + rise_out * unit
        return {"name": name, "upstream": upstream, "downstream": downstream,
                "length": length * unit, "diameter": round(heights[name] * 1000),
                "upper": upper, "lower": lower,
                "slope": (upper - lower) / (length * unit),
                "material": MATERIALS.get(roughness, "")}

    def path(self, conduit):
        """The points of a conduit from node to node, vertices included."""
        return self.map.path(conduit["name"], conduit["upstream"], conduit["downstream"])


def well_diameters(model):
    """A diameter for each well: the usual one, less where a conduit would be left too short."""
    diameters = {name: WELL_DIAMETER for name, kind in model.kinds.items() if kind != "STORAGE"}
    for conduit in model.conduits:
        room = way(model.path(conduit)) - SHORTEST_PIPE
        for name in (conduit["upstream"], conduit["downstream"]):
            if name in diameters:
                diameters[name] = min(diameters[name], math.floor(room * 100.0) / 100.0)
    if min(diameters.values()) <= 0.0:
        raise SystemExit("two nodes are too close for a pipe between them")
    return diameters


def into_tank(centre, outside):
    """Where a pipe from outside towards a tank's centre ends: a little inside its wall."""
    dx, dy = abs(outside[0] - centre[0]), abs(outside[1] - centre[1])
    half_length, half_width = TANK_LENGTH / 2.0 - INTO_TANK, TANK_WIDTH / 2.0 - INTO_TANK
    share = min(half_length / dx if dx else math.inf, half_width / dy if dy else math.inf)
    return towards(centre, outside, share * math.hypot(dx, dy))


def bend(a, b, c):
    """The angle by which a path turns at b."""
    first = math.atan2(b[1] - a[1], b[0] - a[0])
    second = math.atan2(c[1] - b[1], c[0] - b[0])
    return abs(math.remainder(second - first, math.tau))


class DrainConverter(Converter):
    def __init__(self, model, name, system):
        super().__init__(name, system)
        self.model = model
        self.diameters = well_diameters(model)

    def nodes(self):
        for i, (name, kind) in enumerate(self.model.kinds.items()):
            handle, point = f"{0x1001 + i:X}", self.model.map.points[name]
            if kind == "STORAGE":
                self.network.tank(handle, self.system, "调蓄池", point, TANK_LENGTH, TANK_WIDTH)
                self.network.node(name, self.system, "tank", [handle], point, 0.0)
                continue
            diameter = self.diameters[name]
            self.network.well(handle, self.system, name, point, diameter)
            self.network.node(name, self.system, "well", [handle], point, diameter / 2.0,
                              number=name)

    def end(self, node, neighbour):
        """Where a pipe that comes from the neighbouring point ends at a node."""
        point = self.model.map.points[node]
        if node not in self.diameters:
            return into_tank(point, neighbour)
        return towards(point, neighbour, self.diameters[node] / 2.0)

    def conduits(self):
        for conduit in self.model.conduits:
            path = self.model.path(conduit)
            path[0] = self.end(conduit["upstream"], path[1])
            path[-1] = self.end(conduit["downstream"], path[-2])
            pieces = self.pieces(path)
            data = {key: conduit[key] for key in ("diameter", "material", "slope")}
            handles = self.draw(pieces, data, conduit["upper"], conduit["lower"])
            self.network.edge(conduit["upstream"], conduit["downstream"], self.system, handles,
                              "chain" if len(pieces) > 1 else "direct", conduit=conduit["name"],
                              modelLength=round(conduit["length"], 6),
                              upstreamElevation=round(conduit["upper"], 3),
                              downstreamElevation=round(conduit["lower"], 3))

    def pieces(self, path):
        """The pieces in which a path is drawn, each a list of points."""
        if len(path) > 2:
            bends = [bend(*path[i:i + 3]) for i in range(len(path) - 2)]
            return [path] if max(bends) > SHARPEST_BEND else self.broken(path)
        length = math.dist(*path)
        count = min(3, int(length / PIECE)) if self.chance.below(3) == 0 else 1
        stops = [towards(path[0], path[1], length * k / count) for k in range(1, count)]
        return self.broken([path[0], *stops, path[1]])

    @staticmethod
    def broken(path):
        """A path cut at each of its inner points, with a gap on the longer side of the cut."""
        pieces, begin = [], path[0]
        for before, stop, after in zip(path, path[1:], path[2:]):
            if math.dist(before, stop) > math.dist(stop, after):
                pieces.append([begin, towards(stop, before, GAP)])
                begin = stop
            else:
                pieces.append([begin, stop])
                begin = towards(stop, after, GAP)
        return pieces + [[begin, path[-1]]]


def main():
    if len(sys.argv) not in (3, 4):
        raise SystemExit(__doc__)
    source, target = sys.argv[1:3]
    name = os.path.basename(target)
    converter = DrainConverter(Model(source), name, sys.argv[3] if len(sys.argv) > 3 else "雨水")
    converter.nodes()
    converter.conduits()
    converter.numbers({name: converter.model.map.points[name] for name in converter.model.kinds})
    converter.shuffle()
    converter.write(target, model=os.path.basename(source))


if __name__ == "__main__":
    main()
