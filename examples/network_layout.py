"""What the example drawings have in common: wells, tanks and pipes with their data, and the truth.

The truth is the graph as it was laid out: which node is joined to which, by which pipes. It is
written from the layout alone, never from a rebuilt network.
"""
import json
import math

from dxf_writer import Drawing

METRES = 1000.0  # DrawScale: a drawing unit is a metre
SNAP = 1.0 * 0.1 * 2.0 * 1.1 * 2.0  # DwgScale x PipeBreakDist x 2 x 1.1 x 2
REACH = 0.1 * 1.0 * 2.0 * 2.0  # PipeBreakDist x DwgScale x 2 x 2: how far pressure pipes reach

ROUND, SQUARE, VALVE, METER = "VLT_WELL_01", "VLT_WELL_04", "VLT_WELL_05", "VLT_WELL_15"
TANK = "VLT_TANK_01"
SYSTEMS = {"污水": ("gravity", "W", 30), "雨水": ("gravity", "Y", 4), "给水": ("pressure", "J", 5)}


def towards(start, end, distance):
    """The point at a distance from start on the way to end."""
    length = math.dist(start, end)
    return (start[0] + (end[0] - start[0]) * distance / length,
            start[1] + (end[1] - start[1]) * distance / length)


def off_line(point, start, end):
    """The distance of a point from a straight piece."""
    (px, py), (ax, ay), (bx, by) = point, start, end
    square = (bx - ax) ** 2 + (by - ay) ** 2
    share = ((px - ax) * (bx - ax) + (py - ay) * (by - ay)) / square if square else 0.0
    share = min(1.0, max(0.0, share))
    return math.dist(point, (ax + share * (bx - ax), ay + share * (by - ay)))


def rounded(point):
    return (round(point[0], 6), round(point[1], 6))


def arc_length(start, end, bulge):
    """Length of an arc given by its ends and its bulge; of a straight piece with bulge 0."""
    chord = math.dist(start, end)
    if not bulge:
        return chord
    sweep = 4.0 * math.atan(abs(bulge))
    return chord / (2.0 * math.sin(sweep / 2.0)) * sweep


class TruthBook:
    """Keeps the truth about a drawing: its nodes, the edges between them, and their pipes."""

    def __init__(self, name):
        self._truth = {"drawing": name, "drawScale": METRES, "snapDistance": round(SNAP, 6)}
        self._nodes, self._edges, self._pipes = [], [], {}
        self._kinds = {}

    def entity(self, handle, kind, system):
        """Counts an entity: a "pipe", a "well" or a "tank"."""
        self._kinds[handle] = (kind, system)

    def pipe(self, handle, system, ends, data, length, is_arc=False):
        """A pipe from the first of its ends to the second.

        data: diameter (mm), material, slope, flow ("SE" or "ES"), start, end (elevations in m).
        """
        self.entity(handle, "pipe", system)
        self._pipes[handle] = {
            "system": system, "edge": None, "startPoint": list(rounded(ends[0])),
            "endPoint": list(rounded(ends[1])), "isArc": int(is_arc), "length": round(length, 6),
            "diameter": data["diameter"], "material": data["material"], "slope": data["slope"],
            "flow": data["flow"], "startElevation": round(data["start"], 3),
            "endElevation": round(data["end"], 3)}

    def told(self, handle):
        """What has been kept about a pipe."""
        return self._pipes[handle]

    def node(self, name, system, kind, handles, point, radius, square=False, number=""):
        """A node of the graph: one well, several wells that merge, or a tank."""
        self._nodes.append({"name": name, "system": system, "kind": kind, "handles": list(handles),
                            "point": list(point), "radius": round(radius, 6), "square": square,
                            "number": number})

    def edge(self, upstream, downstream, system, pipes, joint, **more):
        """A run of pipe between two nodes; pipes from the upstream to the downstream end.

        joint: "direct" (one pipe), "chain" (end to end) or "side" (into the side of another pipe).
        """
        for handle in pipes:
            self._pipes[handle]["edge"] = len(self._edges)
        self._edges.append({"upstream": upstream, "downstream": downstream, "system": system,
                            "pipes": list(pipes), "joint": joint, **more})

    def _systems(self, order):
        systems = {}
        for handle in order:
            kind, system = self._kinds.get(handle, (None, None))
            if kind in ("pipe", "well"):
                count = systems.setdefault(system, {"pipe": 0, "well": 0})
                count[kind] += 1
        return [{"name": name, "flow": SYSTEMS[name][0], "flag": SYSTEMS[name][1],
                 "pipes": count["pipe"], "wells": count["well"]}
                for name, count in systems.items()]

    def write(self, path, order, **more):
        """Writes the truth. order: the handles of all entities as they stand in the drawing."""
        truth = self._truth
        truth["entities"] = len(order)
        truth["tanks"] = sum(1 for kind, _ in self._kinds.values() if kind == "tank")
        truth["systems"] = self._systems(order)
        truth.update(more)
        truth["nodes"] = self._nodes
        truth["edges"] = self._edges
        truth["leadNowhere"] = sorted(
            (h for h, p in self._pipes.items()
             if p["edge"] is None and SYSTEMS[p["system"]][0] == "gravity"),
            key=lambda h: int(h, 16))
        truth["pipes"] = {h: self._pipes[h] for h in sorted(self._pipes, key=lambda h: int(h, 16))}
        with open(path, "w", encoding="utf-8", newline="\n") as file:
            file.write(compact(truth))


class Network(TruthBook):
    """Puts network entities into a drawing and keeps the truth about them."""

    def __init__(self, name):
        super().__init__(name)
        self.drawing = Drawing()
        self._define()

    def _define(self):
        drawing = self.drawing
        for system, (_, _, colour) in SYSTEMS.items():
            drawing.layer(system + "管", colour)
            drawing.layer(system + "井", colour)
        drawing.layer("池体", 6)
        square = [(-0.5, -0.5), (0.5, -0.5), (0.5, 0.5), (-0.5, 0.5)]
        drawing.block(ROUND, [("circle", 0, 0, 0.5)])
        drawing.block(SQUARE, [("polygon", square)])
        drawing.block(VALVE, [("circle", 0, 0, 0.5), ("line", -0.3, -0.3, 0.3, 0.3),
                              ("line", -0.3, 0.3, 0.3, -0.3)])
        drawing.block(METER, [("circle", 0, 0, 0.5), ("circle", 0, 0, 0.25)])
        drawing.block(TANK, [("polygon", square), ("line", 0, -0.5, 0, 0.5)])

    def well(self, handle, system, number, point, diameter, block=ROUND):
        """A well. diameter in metres; a square well is that wide."""
        data = [("管井系统", system), ("管井编号", number), ("井的直径", f"{diameter:g}")]
        self.drawing.insert(handle, system + "井", block, point, (diameter, diameter), 0.0, data)
        self.entity(handle, "well", system)

    def tank(self, handle, system, name, point, length, width, rotation=0.0):
        """A tank. length and width in metres; its length is kept in millimetres."""
        data = [("池体", name), ("池体系统", system), ("长度", f"{length * 1000:g}")]
        self.drawing.insert(handle, "池体", TANK, point, (length, width), rotation, data)
        self.entity(handle, "tank", system)

    def lay_pipe(self, handle, system, vertices, data, polyline=False):
        """A pipe entity from its first to its last vertex (x, y, bulge); data as for `pipe`."""
        vertices = [(*rounded(v), v[2] if len(v) > 2 else 0.0) for v in vertices]
        start, end = vertices[0][:2], vertices[-1][:2]
        slope = f"{data['slope']:.6g}"
        xdata = [("管道系统", system), ("管径", f"{data['diameter']:d}"),
                 ("管材", data["material"]), ("坡度", slope),
                 ("起点标高", f"{data['start']:.3f}"), ("终点标高", f"{data['end']:.3f}"),
                 ("水流方向", data["flow"])]
        if polyline:
            self.drawing.polyline(handle, system + "管", vertices, xdata)
        else:
            self.drawing.line(handle, system + "管", start, end, xdata)
        bulge = vertices[0][2]
        self.pipe(handle, system, (start, end), {**data, "slope": float(slope)},
                  arc_length(start, end, bulge), bool(bulge))

    def save(self, drawing_path, truth_path, **more):
        """Writes the drawing and its truth."""
        self.drawing.write(drawing_path)
        self.write(truth_path, self.drawing.order(), **more)


def compact(truth):
    """JSON with one entry of a long list a line, which reads and compares well."""
    parts = []
    for key, value in truth.items():
        if isinstance(value, list) and value and isinstance(value[0], dict):
            inner = ",\n".join("  " + one(entry) for entry in value)
            parts.append(f" {one(key)}: [\n{inner}\n ]")
        elif isinstance(value, dict) and value and isinstance(next(iter(value.values())), dict):
            inner = ",\n".join(f"  {one(k)}: {one(v)}" for k, v in value.items())
            parts.append(f" {one(key)}: {{\n{inner}\n }}")
        else:
            parts.append(f" {one(key)}: {one(value)}")
    return "{\n" + ",\n".join(parts) + "\n}\n"


def one(value):
    return json.dumps(value, ensure_ascii=False)
