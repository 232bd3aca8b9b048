#!/usr/bin/env python3
"""Checks that a drawing's pressure network is the one that its truth tells.

    python3 check_pressure.py DRAWING.dxf TRUTH.json

Reads the drawing's tags itself and works the network out anew from geometry alone: pipes are cut
where another one meets them in mid-span, runs are followed from end to end, straight ones and ones
on one circle grow together, wells go to the run that they stand on. It knows nothing of the model
or the layout that the drawing was made from, and tries all pairs, with no index. Beyond that each
distance is tested for room, so that no outcome hangs on a digit. An arc that is met in mid-span is
a fault here: none of these drawings has one. Ends with status 1 and one line for each thing wrong.
"""
import cmath
import json
import math
import sys

from check_layout import read_drawing

SYSTEM = "给水"
REACH = 0.1 * 1.0 * 2.0 * 2.0
AT_END = 10.0 / 1000.0  # a meeting as near as this to an end cuts nothing there
ONE_PLACE, ONE_DIRECTION, SLACK = 1.0, 1e-10, 1e-10
ROOM = 1.02  # how far off a distance must be from the one that decides


class Piece:
    """A pipe, or a part of one: points are complex numbers, centre is that of an arc or None."""

    def __init__(self, entity, start, end, whole=1, bulge=0.0):
        self.entity, self.handle, self.whole = entity, entity["handle"], whole
        self.start, self.end, self.bulge = start, end, bulge
        self.centre = None
        if bulge:
            self.centre = (start + end) / 2 + 1j * (end - start) * (1 - bulge ** 2) / (4 * bulge)

    @classmethod
    def read(cls, entity):
        start, end = (complex(*entity["points"][k]) for k in (0, -1))
        arc = entity["type"] == "LWPOLYLINE" and entity["bulges"][0] != 0.0
        return cls(entity, start, end, 1, entity["bulges"][0] if arc else 0.0)

    def curve(self):
        return self.centre, self.start, self.end, self.bulge


def length(curve):
    centre, start, end, bulge = curve
    return abs(end - start) if centre is None else abs(start - centre) * 4 * math.atan(abs(bulge))


def on_sweep(curve, point):
    """Whether a point of an arc's circle lies on the drawn part."""
    centre, start, end, bulge = curve
    turn = cmath.phase((point - centre) / (start - centre)) * (1 if bulge > 0 else -1)
    return turn % math.tau <= 4 * math.atan(abs(bulge))


def distance(curve, point):
    centre, start, end, _ = curve
    if centre is None:
        share = ((point - start) * (end - start).conjugate()).real / abs(end - start) ** 2
        return abs(point - start - min(1.0, max(0.0, share)) * (end - start))
    if on_sweep(curve, point):
        return abs(abs(point - centre) - abs(start - centre))
    return min(abs(point - start), abs(point - end))


def cross(u, v):
    return (u.conjugate() * v).imag


def bend(curve, other):
    """The angle between two chords, opposite directions taken as one."""
    turn = (curve[2] - curve[1]).conjugate() * (other[2] - other[1])
    return math.atan2(abs(turn.imag), abs(turn.real))


def line_and_line(p, q):
    u, v, gap = p.end - p.start, q.end - q.start, q.start - p.start
    if bend(p.curve(), q.curve()) <= ONE_DIRECTION:
        return []
    s, t = cross(gap, v) / cross(u, v), cross(gap, u) / cross(u, v)
    found = p.start + min(1.0, max(0.0, s)) * u
    beside = q.start + min(1.0, max(0.0, t)) * v
    return [found] if abs(found - beside) <= SLACK else []


def line_and_arc(line, arc):
    """Where a straight piece meets the drawn part of an arc."""
    along = (line.end - line.start) / abs(line.end - line.start)
    foot = ((arc.centre - line.start) * along.conjugate()).real
    off = abs(line.start + foot * along - arc.centre)
    radius = abs(arc.start - arc.centre)
    if off > radius:
        return []
    half = math.sqrt(radius ** 2 - off ** 2)
    places = [line.start + (foot + k * half) * along for k in (-1, 1)]
    return [p for p in places if distance(line.curve(), p) <= 1e-7
            and distance(arc.curve(), p) <= 1e-7]


def meetings(p, q):
    """The points where two pieces meet; of arcs only the ends are compared."""
    if p.centre is None and q.centre is None:
        return line_and_line(p, q)
    if p.centre is not None and q.centre is not None:
        return [a for a in (p.start, p.end) for b in (q.start, q.end) if abs(a - b) < AT_END]
    return line_and_arc(p, q) if p.centre is None else line_and_arc(q, p)


class Run:
    """Pieces that have grown together, from the end where the walk came in to the far one."""

    def __init__(self, piece, turned, parent):
        self.pieces, self.turned, self.parent = [piece], turned, parent
        self.begin, self.far = (piece.end, piece.start) if turned else (piece.start, piece.end)
        self.curve, self.children = piece.curve(), []
        self.valves, self.meters = [], []

    def take(self, other):
        centre, bulge = self.curve[0], 0.0
        if centre is not None:
            sweep = sum(4 * math.atan(abs(run.curve[3])) for run in (self, other))
            side = 1 if cross(self.begin - centre, self.far - centre) > 0 else -1
            bulge = -side * math.tan(sweep / 4)
        self.pieces += other.pieces
        self.curve = (centre, other.far, self.begin, bulge)
        # A run whose first pipe is drawn towards the pick comes out the wrong way round.
        self.begin, self.far = ((other.far, self.begin) if self.turned
                                else (self.begin, other.far))

    def turned_about(self):
        return self.turned and len(self.pieces) > 1


class Checker:
    def __init__(self, drawing, truth):
        self.truth, self.faults = truth, []
        _, entities = read_drawing(drawing)
        self.entities = {e["handle"]: e for e in entities}
        self.pool = [Piece.read(e) for e in entities if e["xdata"].get("管道系统") == SYSTEM]
        self.wells = [e for e in entities if "管井系统" in e["xdata"]]
        self.pipes = len(self.pool)

    def fault(self, text):
        self.faults.append(text)

    def near(self, value, limit, text):
        """A value must not be so near to the limit that rounding could decide."""
        if limit / ROOM < value < limit * ROOM:
            self.fault(f"{text}: {value:.6f} is too near to {limit}")

    # -- the network from geometry ---------------------------------------------------------------

    def cut(self):
        """Cuts pipes where they meet, in the order of pairs; the pieces go to the pool's end."""
        i = 0
        while i < len(self.pool) - 1:
            j, cut_first = i + 1, False
            while j < len(self.pool) and not cut_first:
                p, q = self.pool[i], self.pool[j]
                points = meetings(p, q)
                cuts = [self.inner(piece, points[0]) for piece in (p, q)] if len(
                    points) == 1 else [False, False]
                if cuts[1]:
                    self.cut_at(j, points[0])
                if cuts[0]:
                    self.cut_at(i, points[0])
                    cut_first = True
                elif not cuts[1]:
                    j += 1
            i += not cut_first

    def inner(self, piece, point):
        for end in (piece.start, piece.end):
            self.near(abs(end - point), AT_END, f"{piece.handle} is met by its end")
        return min(abs(piece.start - point), abs(piece.end - point)) >= AT_END

    def cut_at(self, k, point):
        piece = self.pool.pop(k)
        if piece.centre is not None:
            self.fault(f"the arc {piece.handle} is met in mid-span")
        self.pool.append(Piece(piece.entity, piece.start, point, 0))
        self.pool.append(Piece(piece.entity, point, piece.end, 0))

    def build(self, pick):
        """The runs in the order in which the walk adds them."""
        point = complex(*pick["point"])
        root = min((p for p in self.pool if p.handle == pick["pipe"]),
                   key=lambda p: distance(p.curve(), point))
        self.pool.remove(root)
        self.runs = [Run(root, abs(point - root.end) <= abs(point - root.start), None)]
        todo = [0]
        while todo:
            todo += self.walk(todo.pop())[::-1]

    def walk(self, k):
        run = self.runs[k]
        while True:
            added = self.adopt(run.far, k)
            if len(added) != 1 or not self.goes_on(run, added[0]):
                break
            run.take(added[0])
        first = len(self.runs)
        self.runs += added
        run.children = list(range(first, len(self.runs)))
        return run.children

    def adopt(self, point, parent):
        radius = next((self.radius(w) for w in self.wells if w["xdata"]["管井系统"] == SYSTEM
                       and abs(self.place(w) - point) <= self.radius(w) + 0.0001), 0.0)
        added = []
        for piece in list(self.pool):
            gaps = abs(piece.start - point), abs(piece.end - point)
            self.near(min(gaps) - radius, REACH, f"an end of {piece.handle}")
            if min(gaps) - radius <= REACH:
                added.append(Run(piece, gaps[1] < gaps[0], parent))
                self.pool.remove(piece)
        return added

    def goes_on(self, run, other):
        if (run.curve[0] is None) != (other.curve[0] is None):
            return False
        if run.curve[0] is not None:
            return abs(run.curve[0] - other.curve[0]) < ONE_PLACE
        angle = bend(run.curve, other.curve)
        if ONE_DIRECTION / 100 < angle < ONE_DIRECTION * 100:
            self.fault(f"{other.pieces[0].handle} is neither in line nor clearly bent: {angle}")
        return angle <= ONE_DIRECTION

    def coincide(self):
        """Pairs of runs whose far ends are one place."""
        pairs = []
        for j, other in enumerate(self.runs):
            for i, run in enumerate(self.runs[:j]):
                gap = abs(run.far - other.far)
                self.near(gap, ONE_PLACE, f"the far ends of runs {i} and {j}")
                if gap < ONE_PLACE:
                    pairs.append((i, j))
        return pairs

    def attach(self):
        for well in self.wells:
            if well[2] not in ("VLT_WELL_05", "VLT_WELL_15"):
                continue
            radius, on = self.radius(well), []
            for k, run in enumerate(self.runs):
                gap = distance(run.curve, self.place(well))
                self.near(gap, radius, f"{well['handle']} beside run {k}")
                if gap <= radius:
                    on.append(run)
            if len(on) != 1:
                self.fault(f"{well['handle']} stands on {len(on)} runs")
            for run in on[:1]:
                (run.valves if well[2] == "VLT_WELL_05" else run.meters).append(well)
        for run in self.runs:
            for wells in (run.valves, run.meters):
                wells.sort(key=lambda well: abs(self.place(well) - run.begin))

    @staticmethod
    def radius(well):
        return 0.5 * float(well["xdata"]["井的直径"])

    @staticmethod
    def place(well):
        return complex(*well["points"][0])

    # -- against the truth -----------------------------------------------------------------------

    def run(self):
        for entity in self.pool:
            if length(entity.curve()) < ROOM - 0.001:
                self.fault(f"pipe {entity.handle} is too short")
        self.cut()
        answers = self.truth["pressure"]
        whole = list(self.pool)
        for answer in answers:
            self.pool = list(whole)
            self.build(answer["pick"])
            pairs = self.coincide()
            if answer.get("result", 1):
                self.attach()
                self.compare(answer["runs"], pairs)
            else:
                self.closed(answer["loops"], pairs)
        return self.faults

    def compare(self, told, pairs):
        for i, j in pairs:
            self.fault(f"runs {i} and {j} end at one place")
        if self.pool:
            self.fault(f"not reached: {[p.handle for p in self.pool]}")
        if len(self.runs) != len(told):
            self.fault(f"{len(self.runs)} runs, {len(told)} in the truth")
        for k, (run, other) in enumerate(zip(map(self.tell, self.runs), told)):
            for key, value in run.items():
                same = (abs(value - other[key]) < 1e-5 if key == "length" else value == other[key])
                if not same:
                    self.fault(f"run {k}: {key} is {value}, {other[key]} in the truth")

    @staticmethod
    def tell(run):
        first = run.pieces[0]
        data = first.entity["xdata"]
        start, end = (complex(*first.entity["points"][k]) for k in (0, -1))
        heights = [float(data[key]) for key in ("起点标高", "终点标高")]
        if abs(end - run.begin) <= abs(start - run.begin):
            heights.reverse()
        return {"pipe": first.handle, "pipes": [p.handle for p in run.pieces],
                "flags": [p.whole for p in run.pieces], "parent": run.parent,
                "valves": [w["handle"] for w in run.valves],
                "meters": [w["handle"] for w in run.meters], "reversed": int(run.turned),
                "isArc": int(run.curve[0] is not None), "diameter": int(data["管径"]),
                "material": data["管材"], "slope": float(data["坡度"]), "flow": data["水流方向"],
                "startElevation": heights[0], "endElevation": heights[1],
                "length": round(length(run.curve), 6), "from": pair(run.begin),
                "to": pair(run.far)}

    def closed(self, loops, pairs):
        """Whether far ends meet, and whether each loop is a ring of pipes from end to end."""
        if not any(not any(self.runs[k].turned_about() for k in two) for two in pairs):
            self.fault("no two runs end at one place, but for runs that turn about")
        for k, loop in enumerate(loops):
            ring = [[complex(*p) for p in (self.entities[h]["points"][0],
                                           self.entities[h]["points"][-1])] for h in loop["pipes"]]
            if len(set(loop["pipes"])) != len(ring) or not self.is_ring(ring):
                self.fault(f"loop {k} is no ring of pipes")

    @staticmethod
    def is_ring(ring):
        for first in ring[0]:
            point = first
            for ends in ring:
                near = [k for k in (0, 1) if abs(ends[k] - point) <= REACH]
                if not near:
                    break
                point = ends[1 - near[0]]
            else:
                if abs(point - first) <= REACH:
                    return True
        return False


def pair(point):
    return [round(point.real, 6), round(point.imag, 6)]


def main():
    if len(sys.argv) != 3:
        raise SystemExit(__doc__)
    with open(sys.argv[2], encoding="utf-8") as file:
        checker = Checker(sys.argv[1], json.load(file))
    faults = checker.run()
    for text in faults:
        print(text)
    print(f"{sys.argv[1]}: {checker.pipes} pipes, {len(checker.runs)} runs, "
          f"{len(checker.coincide())} pairs that end at one place, {len(faults)} faults")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
