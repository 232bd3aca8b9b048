#!/usr/bin/env python3
"""Checks that an example drawing says what its truth says, and says it without ambiguity.

    python3 check_layout.py DRAWING.dxf TRUTH.json

Reads the drawing's tags itself, joins wells and pipes anew from geometry alone and compares the
graph with the truth; pairs of all ends and wells are tried one by one, with no index. Beyond that
each distance is tested for room: nothing may come near a reach that it is not meant to be in.
In gravity systems only. The sides of arcs are not looked at: none of these drawings joins there.
Ends with status 1 and one line for each thing found wrong.
"""
import json
import math
import sys

UNIT = 1000.0 / 1000.0  # one metre in drawing units
CLEAR = 1.02  # room wanted around a reach that something must stay out of
PARALLEL = math.pi / 10.0
SAME_PLACE = 2e-6  # the truth has six decimals


def read_groups(path):
    with open(path, encoding="utf-8") as file:
        lines = file.read().split("\n")
    for i in range(0, len(lines) - 1, 2):
        yield int(lines[i]), lines[i + 1]


def read_entities(path):
    """Each entity as (section, name of its block or nothing, entity), in file order."""
    section, block, current, app, opening = "", None, None, None, False
    for code, value in read_groups(path):
        if code == 0:
            if current is not None:
                yield section, block, current
            opening, current = value == "SECTION", None
            if value == "ENDSEC":
                section = ""
            elif section in ("ENTITIES", "BLOCKS"):
                current = {"type": value, "xdata": {}, "points": [], "bulges": []}
        elif opening and code == 2:
            section, opening = value, False
        elif current is not None:
            app = take(current, code, value, app)
            if current["type"] == "BLOCK" and code == 2:
                block = value


def read_drawing(path):
    """Block outlines by name, and the entities of model space in file order."""
    blocks, entities = {}, []
    for section, block, entity in read_entities(path):
        if section == "ENTITIES":
            entities.append(entity)
        elif entity["type"] not in ("BLOCK", "ENDBLK"):
            blocks.setdefault(block, []).append(entity)
    return blocks, entities


def take(entity, code, value, app):
    if code == 1001:
        entity["xdata"].setdefault(value, None)
        return value
    if code == 1000 and entity["xdata"].get(app) is None:
        entity["xdata"][app] = value
    elif code in (10, 11):
        entity["points"].append((float(value), None))
        entity["bulges"].append(0.0)
    elif code in (20, 21):
        entity["points"][-1] = (entity["points"][-1][0], float(value))
    elif code in (30, 31) and float(value) != 0.0:
        raise SystemExit(f"{entity['handle']} is not in the plane z = 0")
    elif code == 42 and entity["type"] == "LWPOLYLINE":
        entity["bulges"][-1] = float(value)
    elif code == 5:
        entity["handle"] = value
    elif code in (2, 8, 40, 41, 42, 50):
        entity[code] = value
    return app


def extents(entity, blocks):
    """The box of a block reference: its definition's points under scale, rotation and position."""
    turn = math.radians(float(entity.get(50, 0.0)))
    (px, py), sx, sy = entity["points"][0], float(entity.get(41, 1)), float(entity.get(42, 1))
    xs, ys = [], []
    for shape in blocks[entity[2]]:
        for x, y in shape["points"]:
            x, y = x * sx, y * sy
            xs.append(px + x * math.cos(turn) - y * math.sin(turn))
            ys.append(py + x * math.sin(turn) + y * math.cos(turn))
    return min(xs), min(ys), max(xs), max(ys)


def inside(point, box, margin):
    return (box[0] - margin <= point[0] <= box[2] + margin
            and box[1] - margin <= point[1] <= box[3] + margin)


class Pipe:
    def __init__(self, entity):
        self.handle, self.system = entity["handle"], entity["xdata"]["管道系统"]
        self.ends = (entity["points"][0], entity["points"][-1])
        self.arc = entity["type"] == "LWPOLYLINE" and entity["bulges"][0] != 0.0
        self.bulge = entity["bulges"][0]

    def length(self):
        chord = math.dist(*self.ends)
        if not self.arc:
            return chord
        half = 2.0 * math.atan(abs(self.bulge))
        return chord * half / math.sin(half)

    def parallel(self, other):
        """Whether the chords, either way round, are within the angle at which pipes go on."""
        (a, b), (c, d) = self.ends, other.ends
        first = math.atan2(b[1] - a[1], b[0] - a[0])
        second = math.atan2(d[1] - c[1], d[0] - c[0])
        return abs(math.remainder(first - second, math.pi)) <= PARALLEL


def crossing(p, q):
    """The point where the chords of two pipes cross, or nothing."""
    (a, b), (c, d) = p.ends, q.ends
    ux, uy, vx, vy = b[0] - a[0], b[1] - a[1], d[0] - c[0], d[1] - c[1]
    cross = ux * vy - uy * vx
    if cross == 0.0:
        return None
    s = ((c[0] - a[0]) * vy - (c[1] - a[1]) * vx) / cross
    t = ((c[0] - a[0]) * uy - (c[1] - a[1]) * ux) / cross
    return (a[0] + s * ux, a[1] + s * uy) if 0 <= s <= 1 and 0 <= t <= 1 else None


class Node:
    def __init__(self, handle, system, point, radius, square, box=None):
        self.handles, self.system, self.point = [handle], system, point
        self.radius, self.square, self.box = radius, square, box
        self.parts = [(point, radius, square)]

    def merge(self, other):
        distance = math.dist(self.point, other.point)
        self.point = tuple((p + q) / 2.0 for p, q in zip(self.point, other.point))
        self.radius = (distance + self.radius + other.radius) / 2.0
        self.handles += other.handles
        self.parts += other.parts

    def touch(self):
        return self.radius * 2.0 * (1.414 if self.square else 1.0) + 0.01 * UNIT

    def holds(self, point, room=1.0):
        if self.box:
            return inside(point, self.box, 0.001 * UNIT + (room - 1.0))
        return any(math.dist(p, point) < reach(r, s) * room for p, r, s in self.parts)

    def touched(self, point, room=1.0):
        if self.box:
            return self.holds(point, room)
        return math.dist(self.point, point) <= self.touch() * room


def reach(radius, square):
    return radius * 1.01 * (1.414 if square else 1.0)


class Checker:
    def __init__(self, drawing, truth):
        self.truth, self.faults = truth, []
        blocks, self.entities = read_drawing(drawing)
        self.pipes, self.nodes, self.tanks = [], [], 0
        for entity in self.entities:
            data = entity["xdata"]
            if "管道系统" in data:
                self.pipes.append(Pipe(entity))
            elif "管井系统" in data:
                radius = 0.5 * float(data["井的直径"]) * UNIT
                self.nodes.append(Node(entity["handle"], data["管井系统"], entity["points"][0],
                                       radius, entity[2] == "VLT_WELL_04"))
            elif "池体" in data:
                self.tanks += 1
                self.nodes.append(Node(entity["handle"], data["池体系统"], entity["points"][0],
                                       0.0, False, extents(entity, blocks)))
        self.pipes = [p for p in self.pipes if p.system != "给水"]
        self.nodes = [n for n in self.nodes if n.system != "给水"]
        self.largest = max(reach(r, s) for n in self.nodes for _, r, s in n.parts if not n.box)
        self.snap = 1.0 * 0.1 * 2.0 * 1.1 * 2.0

    def fault(self, text):
        self.faults.append(text)

    def run(self):
        self.merge_wells()
        self.place_ends()
        self.join()
        self.compare()
        return self.faults

    def merge_wells(self):
        merged = []
        for node in self.nodes:
            near = [m for m in merged if m.system == node.system and not m.box and not node.box
                    and self.gap(m, node) <= 0.01 * UNIT]
            for other in merged:
                if other.system == node.system and other not in near \
                        and self.gap(other, node) < 0.1:
                    self.fault(f"{node.handles} stands too near {other.handles}")
            if near:
                near[0].merge(node)
            else:
                merged.append(node)
        self.nodes = merged

    @staticmethod
    def gap(a, b):
        widen = [1.414 if n.square else 1.0 for n in (a, b)]
        return math.dist(a.point, b.point) - a.radius * widen[0] - b.radius * widen[1]

    def place_ends(self):
        """For each end of each pipe its node, or None for a free end."""
        self.at = {}
        for pipe in self.pipes:
            if pipe.length() < 1.0 * CLEAR - 0.001:
                self.fault(f"pipe {pipe.handle} is only {pipe.length():.4f} long")
            for k, end in enumerate(pipe.ends):
                own = [n for n in self.nodes if n.system == pipe.system and n.holds(end)]
                self.at[pipe, k] = own[0] if own else None
                if len(own) > 1:
                    self.fault(f"an end of {pipe.handle} is at several wells")
                self.room(pipe, end, own)
            if self.at[pipe, 0] is not None and self.at[pipe, 0] is self.at[pipe, 1]:
                self.fault(f"both ends of {pipe.handle} are at one well")

    def room(self, pipe, end, own):
        for node in self.nodes:
            if node in own:
                if not node.touched(end):
                    self.fault(f"an end of {pipe.handle} is at {node.handles} without touching it")
            elif node.box and node.holds(end, CLEAR):
                self.fault(f"an end of {pipe.handle} is near the tank {node.handles}")
            elif node.system == pipe.system and (node.touched(end, CLEAR) or node.holds(end, CLEAR)
                                                 or math.dist(node.point, end)
                                                 <= self.largest * CLEAR):
                self.fault(f"an end of {pipe.handle} is in reach of {node.handles}")

    def join(self):
        self.group = {p: {p} for p in self.pipes}
        free = [(p, k) for p in self.pipes for k in (0, 1) if self.at[p, k] is None]
        for p, k in free:
            near = [(q, j) for q in self.pipes for j in (0, 1) if q is not p
                    and q.system == p.system and math.dist(p.ends[k], q.ends[j])
                    < self.snap * CLEAR]
            if len(near) > 1:
                self.fault(f"a free end of {p.handle} has several neighbours")
            elif near:
                q, j = near[0]
                if math.dist(p.ends[k], q.ends[j]) >= self.snap / CLEAR:
                    self.fault(f"the gap between {p.handle} and {q.handle} is too wide")
                if self.at[q, j] is not None:
                    self.fault(f"a free end of {p.handle} meets an end of {q.handle} at a well")
                if not (p.arc or p.parallel(q)):
                    self.fault(f"{p.handle} and {q.handle} do not continue one another")
                self.unite(p, q)
            else:
                self.sides(p, k)

    def sides(self, p, k):
        """A free end without a neighbour: the pipes that p crosses at a small angle."""
        for q in self.pipes:
            place = crossing(p, q) if q is not p and q.system == p.system else None
            if place and p.parallel(q):
                self.unite(p, q)

    def unite(self, p, q):
        joined = self.group[p] | self.group[q]
        for member in joined:
            self.group[member] = joined

    def compare(self):
        names = {h: n["name"] for n in self.truth["nodes"] for h in n["handles"]}
        drawn = {frozenset(n.handles) for n in self.nodes}
        told = {frozenset(n["handles"]) for n in self.truth["nodes"]}
        if drawn != told:
            self.fault(f"other nodes than in the truth: {sorted(map(sorted, drawn ^ told))}")
        edges, nowhere = set(), []
        for group in {id(g): g for g in self.group.values()}.values():
            ends = {names[n.handles[0]] for p in group for n in (self.at[p, 0], self.at[p, 1]) if n}
            if len(ends) == 2:
                edges.add((frozenset(ends), frozenset(p.handle for p in group)))
            elif len(ends) > 2:
                self.fault(f"a run ends at {sorted(ends)}")
            else:
                nowhere += [p.handle for p in group]
        wanted = {(frozenset((e["upstream"], e["downstream"])), frozenset(e["pipes"]))
                  for e in self.truth["edges"]}
        for ends, pipes in edges ^ wanted:
            self.fault(f"edge {sorted(ends)} by {sorted(pipes)} is in one of the two only")
        if sorted(nowhere) != sorted(self.truth["leadNowhere"]):
            self.fault(f"these pipes lead nowhere: {sorted(nowhere)}")
        if len(self.entities) != self.truth["entities"] or self.tanks != self.truth["tanks"]:
            self.fault("the counts of entities or tanks differ")
        self.trees(edges, names)
        self.texts()
        self.edges = edges

    def trees(self, edges, names):
        """Each system is one tree: connected, and one node more than edges."""
        for system in sorted({n.system for n in self.nodes}):
            mine = {names[n.handles[0]] for n in self.nodes if n.system == system}
            links = [e for e, _ in edges if e <= mine]
            seen, todo = set(), [min(mine)]
            while todo:
                node = todo.pop()
                seen.add(node)
                todo += [m for e in links if node in e for m in e if m not in seen]
            if seen != mine or len(links) != len(mine) - 1:
                self.fault(f"{system}: {len(mine)} nodes, {len(links)} edges, {len(seen)} reached")

    def texts(self):
        """The texts of each pipe against the values of the truth."""
        keys = {"管径": "diameter", "坡度": "slope", "起点标高": "startElevation",
                "终点标高": "endElevation", "管材": "material", "水流方向": "flow",
                "管道系统": "system"}
        for entity in self.entities:
            if "管道系统" not in entity["xdata"]:
                continue
            told = self.truth["pipes"][entity["handle"]]
            for key, field in keys.items():
                text = entity["xdata"][key]
                if text != told[field] and float(text) != told[field]:
                    self.fault(f"{entity['handle']}: {key} is {text}, not {told[field]}")
            ends = zip((entity["points"][0], entity["points"][-1]),
                       (told["startPoint"], told["endPoint"]))
            if any(math.dist(*pair) > SAME_PLACE for pair in ends):
                self.fault(f"{entity['handle']}: other ends than in the truth")


def main():
    if len(sys.argv) != 3:
        raise SystemExit(__doc__)
    with open(sys.argv[2], encoding="utf-8") as file:
        checker = Checker(sys.argv[1], json.load(file))
    faults = checker.run()
    for text in faults:
        print(text)
    shortest = min(p.length() for p in checker.pipes)
    print(f"{sys.argv[1]}: {len(checker.nodes)} nodes, {len(checker.edges)} runs, "
          f"{len(checker.pipes)} pipes, shortest {shortest:.3f}, {len(faults)} faults")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
