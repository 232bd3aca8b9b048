#!/usr/bin/env python3
"""Draws examples/town.dxf and examples/town.truth.json: a small town with three pipe systems.

    python3 make_town.py [FOLDER]

Standard library only. Every place, handle and height below is chosen by hand; the drawing order is
shuffled with a fixed seed and every third pipe is turned round, as in a drawing that has grown.
"""
import math
import os
import sys

from network_layout import METER, ROUND, SQUARE, VALVE, Network, rounded, towards

# number: (x, y, diameter in metres, block)
SEWER_WELLS = {
    "W1": (12, 60, 1.0, ROUND), "W2": (40, 60, 1.0, ROUND), "W3": (70, 60, 1.2, SQUARE),
    "W4": (100, 60, 1.0, ROUND), "W5": (130, 60, 1.2, SQUARE), "W6": (160, 60, 1.25, ROUND),
    "W7": (40, 86, 0.7, ROUND), "W8": (40, 112, 0.7, ROUND), "W9": (100, 86, 1.0, ROUND),
    "W10": (118, 104, 0.7, ROUND), "W11": (82, 98, 0.7, ROUND), "W12": (70, 36, 1.0, ROUND),
    "W13": (70, 12, 0.7, ROUND), "W14": (48, 12, 0.7, ROUND), "W15": (130, 36, 1.0, ROUND),
    "W15A": (130.95, 36, 1.0, ROUND), "W16": (130, 12, 0.7, ROUND), "W17": (154, 30, 0.7, ROUND),
    "W18": (153, 118, 0.7, ROUND), "W19": (12, 84, 0.7, ROUND), "W20": (20, 36, 0.7, ROUND)}
STORM_WELLS = {
    "Y1": (26, 64, 1.0, ROUND), "Y2": (55, 64, 1.0, ROUND), "Y3": (85, 64, 1.0, ROUND),
    "Y4": (115, 64, 1.2, SQUARE), "Y5": (145, 64, 1.0, ROUND), "Y6": (172, 64, 1.25, ROUND),
    "Y7": (55, 44, 0.7, ROUND), "Y8": (85, 84, 0.7, ROUND), "Y9": (115, 40, 0.7, ROUND),
    "Y10": (145, 90, 0.7, ROUND), "Y11": (145, 112, 0.7, ROUND), "Y12": (26, 90, 0.7, ROUND),
    "Y13": (55, 88, 0.7, ROUND)}
SEWAGE_TANK = (186.0, 60.0, 6.0, 3.0)  # x, y, length, width
STORM_TANK_SIZE = (8.0, 5.0)  # turned by a right angle

# upstream, downstream, diameter, slope, how it is drawn
SEWER_RUNS = [
    ("W6", "T1", 500, 0.004, "line"), ("W5", "W6", 500, 0.004, "line"),
    ("W4", "W5", 400, 0.004, ("bend", (109.0, 60.4), (120.0, 60.5))),
    ("W3", "W4", 400, 0.004, "line"), ("W2", "W3", 400, 0.005, "line"),
    ("W1", "W2", 300, 0.005, ("gaps", 2)), ("W7", "W2", 300, 0.006, "line"),
    ("W8", "W7", 200, 0.008, ("gaps", 3)), ("W9", "W4", 300, 0.006, "line"),
    ("W10", "W9", 200, 0.008, ("arc", 0.3)), ("W11", "W9", 200, 0.008, ("corner", (92.0, 93.5))),
    ("W12", "W3", 300, 0.006, "line"), ("W13", "W12", 200, 0.008, "line"),
    ("W14", "W13", 200, 0.01, ("bend", (58.0, 13.2))), ("W15", "W5", 300, 0.006, "line"),
    ("W16", "W15", 200, 0.008, "line"), ("W17", "W15A", 200, 0.01, "line"),
    ("W18", "W6", 200, 0.01, ("side", (160.0, 90.0), (160.0, 95.0))),
    ("W19", "W1", 200, 0.008, "line"), ("W20", "W2", 200, 0.01, "line")]
STORM_RUNS = [
    ("Y6", "T2", 800, 0.003, "sweep"), ("Y5", "Y6", 800, 0.003, "line"),
    ("Y4", "Y5", 600, 0.003, ("gaps", 2)), ("Y3", "Y4", 600, 0.003, "line"),
    ("Y2", "Y3", 500, 0.003, "line"), ("Y1", "Y2", 400, 0.004, "line"),
    ("Y7", "Y2", 300, 0.006, "line"), ("Y8", "Y3", 300, 0.006, "line"),
    ("Y9", "Y4", 300, 0.006, ("gaps", 2)), ("Y10", "Y5", 400, 0.005, "line"),
    ("Y11", "Y10", 300, 0.006, "line"), ("Y12", "Y1", 300, 0.006, "line"),
    ("Y13", "Y2", 300, 0.006, "line")]
# The centres of these two are 0.95 m apart: no farther than both radii and 10 mm, so one node.
MERGED = {"W15A": "W15"}
OUTFALL = {"T1": 92.400, "T2": 93.100}  # invert where the last run ends, metres
GAPS = (0.2, 0.35, 0.1)  # metres left open between the pieces of a run
DEAD_END = ("W17", (172.0, 22.0))
NUMBER_HEIGHT = 1.8

# The water main: handle, start, end, diameter, elevations at both ends
MAIN = [
    ("601", (6.0, 54.0), (150.0, 54.0), 200, 94.600, 94.000),
    ("602", (150.0, 54.0), (178.0, 46.0), 150, 94.000, 93.800),
    ("603", (28.0, 54.0), (28.0, 26.0), 100, 94.500, 94.300),
    ("604", (90.0, 24.0), (90.0, 54.0), 100, 94.100, 94.250),
    ("605", (124.0, 54.0), (124.0, 80.0), 100, 94.100, 94.300)]
# Two arcs round (178, 34) with a radius of 12, by a quarter of a turn and by 53.13 degrees, and a
# last piece of 605 beyond a gap of 0.2. They were drawn after everything else: handle, start, end,
# bulge, diameter, flow, elevations at both ends.
EXTENSIONS = [
    ("606", (178.0, 46.0), (190.0, 34.0), 1.0 - math.sqrt(2.0), 150, "SE", 93.800, 93.700),
    ("607", (185.2, 24.4), (190.0, 34.0), math.sqrt(5.0) - 2.0, 150, "ES", 93.640, 93.700),
    ("608", (124.0, 87.0), (124.0, 80.2), 0.0, 100, "ES", 94.350, 94.300)]
MAIN_WELLS = [
    ("611", "J1", (14.0, 54.0), VALVE), ("612", "J2", (60.0, 54.0), VALVE),
    ("613", "J3", (28.0, 40.0), METER), ("614", "J4", (90.0, 38.0), METER)]
EXTENSION_WELLS = [
    ("615", "J5", (187.6, 41.2), VALVE), ("616", "J6", (124.0, 84.0), METER),
    ("617", "J7", (189.52, 30.64), METER)]


class Town:
    def __init__(self):
        self.network = Network("town.dxf")
        self.places = {}  # node: (point, rim distance)
        self.inverts = dict(OUTFALL)
        self.counters = {"污水": 0x301, "雨水": 0x401}

    # -- wells and tanks -----------------------------------------------------------------------

    def wells(self, system, table, base):
        for number, (x, y, diameter, block) in table.items():
            digits = "".join(c for c in number if c.isdigit())
            handle = f"{base}{int(digits):02d}" if number[-1].isdigit() else f"{base}{digits}A"
            self.places[number] = ((float(x), float(y)), diameter / 2.0)
            self.network.well(handle, system, number, (float(x), float(y)), diameter, block)
            if number not in ("W15", *MERGED):
                self.network.node(number, system, "well", [handle], (float(x), float(y)),
                                  diameter / 2.0, block == SQUARE, number)
        if system == "污水":
            self.network.node("W15", system, "well", ["115", "115A"], (130.475, 36.0),
                              (0.95 + 0.5 + 0.5) / 2.0, False, "W15")

    def tanks(self):
        x, y, length, width = SEWAGE_TANK
        self.places["T1"] = ((x, y), length / 2.0 - 0.05)
        self.network.tank("501", "污水", "化粪池", (x, y), length, width)
        self.network.node("T1", "污水", "tank", ["501"], (x, y), 0.0)
        self.network.tank("502", "雨水", "蓄水池", self.storm_tank(), *STORM_TANK_SIZE, 90.0)
        self.network.node("T2", "雨水", "tank", ["502"], self.storm_tank(), 0.0)

    def sweep(self):
        """Y6 to the storm tank: a straight piece, an arc that turns by 30 degrees, and another."""
        (x, y), rim = self.places["Y6"]
        ahead, turn, radius = math.radians(20.0), math.radians(30.0), 20.0
        away = (math.cos(ahead), math.sin(ahead))
        start = (x + rim * away[0], y + rim * away[1])
        bend = (x + 10.0 * away[0], y + 10.0 * away[1])
        arc_start = (bend[0] + 0.2 * away[0], bend[1] + 0.2 * away[1])
        centre = (arc_start[0] - radius * away[1], arc_start[1] + radius * away[0])
        after = (math.cos(ahead + turn), math.sin(ahead + turn))
        arc_end = (centre[0] + radius * after[1], centre[1] - radius * after[0])
        last = (arc_end[0] + 0.2 * after[0], arc_end[1] + 0.2 * after[1])
        end = (last[0] + 6.0 * after[0], last[1] + 6.0 * after[1])
        bulge = math.tan(turn / 4.0)
        return [[(*start, 0.0), (*bend, 0.0)], [(*arc_start, bulge), (*arc_end, 0.0)],
                [(*last, 0.0), (*end, 0.0)]]

    def storm_tank(self):
        """The tank stands so that the last piece ends 50 mm inside its lower wall."""
        x, y = self.sweep()[-1][-1][:2]
        return (round(x, 2), round(y - 0.05 + STORM_TANK_SIZE[0] / 2.0, 2))

    # -- runs ----------------------------------------------------------------------------------

    def pieces(self, upstream, downstream, shape):
        """The pieces of a run from upstream to downstream, each a list of vertices."""
        if shape == "sweep":
            return self.sweep()
        (a, rim_a), (b, rim_b) = self.places[upstream], self.places[downstream]
        how = shape if shape == "line" else shape[0]
        if how == "side":
            # The run overshoots the other pipe's axis by 0.3 m; that pipe is capped beyond it.
            joint, cap = shape[1:]
            return [[towards(a, joint, rim_a), towards(a, joint, math.dist(a, joint) + 0.3)],
                    [cap, towards(b, joint, rim_b)]]
        via = list(shape[1:]) if how in ("bend", "corner") else []
        line = [a] + via + [b]
        start, end = towards(a, line[1], rim_a), towards(b, line[-2], rim_b)
        if how == "arc":
            return [[(*start, shape[1]), (*end, 0.0)]]
        if how == "corner":
            return [[start] + via + [end]]
        stops = via or [towards(start, end, math.dist(start, end) * k / shape[1])
                        for k in range(1, shape[1] if how == "gaps" else 1)]
        chain, begin = [], start
        for gap, stop in zip(GAPS, stops):
            chain.append([begin, stop])
            following = stops[stops.index(stop) + 1] if stop != stops[-1] else end
            begin = towards(stop, following, gap)
        return chain + [[begin, end]]

    def runs(self, system, table):
        for upstream, downstream, diameter, slope, shape in table:
            pieces = self.pieces(upstream, downstream, shape)
            above, below = (MERGED.get(n, n) for n in (upstream, downstream))
            handles, top = self.run(system, pieces, diameter, slope, self.inverts[below], shape)
            self.inverts[above] = top
            how = "side" if shape[0] == "side" else ("chain" if len(pieces) > 1 else "direct")
            self.network.edge(above, below, system, handles, how)

    def run(self, system, pieces, diameter, slope, low, shape):
        """Draws a run that ends at the invert low; gives its handles and the invert at its top."""
        handles, height, material = [], low, "HDPE" if diameter < 400 else "钢筋混凝土"
        for piece in reversed(pieces):
            handle = f"{self.counters[system]:X}"
            upper = height + slope * sum(math.dist(p[:2], q[:2]) for p, q in zip(piece, piece[1:]))
            polyline = len(piece) > 2 or any(len(v) > 2 and v[2] for v in piece)
            self.draw(handle, system, piece, polyline, diameter, material, slope, upper, height)
            self.counters[system] = self.next_handle(self.counters[system])
            if shape[0] == "side" and not handles:
                # The capped pipe is entered at the joint, below its upper end.
                upper = height + slope * math.dist(shape[1], piece[-1])
            handles.insert(0, handle)
            height = upper
        return handles, height

    def draw(self, handle, system, piece, polyline, diameter, material, slope, upper, lower):
        data = {"diameter": diameter, "material": material, "slope": slope, "flow": "SE",
                "start": upper, "end": lower}
        if int(handle, 16) % 3 == 0:
            piece = turned(piece)
            data.update(flow="ES", start=lower, end=upper)
        self.network.lay_pipe(handle, system, piece, data, polyline)

    @staticmethod
    def next_handle(value):
        """Handles read as decimal numbers: 309 is followed by 310."""
        return int(str(int(f"{value:X}") + 1), 16)

    def dead_end(self):
        number, end = DEAD_END
        point, rim = self.places[number]
        invert = self.inverts[number]
        self.draw("399", "污水", [end, towards(point, end, rim)], False, 200, "HDPE", 0.01,
                  invert + 0.01 * math.dist(point, end), invert)

    def main(self):
        for handle, start, end, diameter, high, low in MAIN:
            data = {"diameter": diameter, "material": "球墨铸铁", "slope": 0.0, "flow": "SE",
                    "start": high, "end": low}
            self.network.lay_pipe(handle, "给水", [start, end], data)
        self.main_wells(MAIN_WELLS)

    def main_wells(self, table):
        for handle, number, point, block in table:
            self.network.well(handle, "给水", number, point, 0.8, block)

    def extensions(self):
        for handle, start, end, bulge, diameter, flow, first, last in EXTENSIONS:
            data = {"diameter": diameter, "material": "球墨铸铁", "slope": 0.0, "flow": flow,
                    "start": first, "end": last}
            self.network.lay_pipe(handle, "给水", [(*start, bulge), (*end, 0.0)], data, bool(bulge))
        self.main_wells(EXTENSION_WELLS)

    # -- what is no network --------------------------------------------------------------------

    def surroundings(self):
        drawing = self.network.drawing
        for name, colour in (("建筑", 8), ("道路", 9), ("文字", 7)):
            drawing.layer(name, colour)
        houses = [(14.5, 70, 10, 10), (44, 94, 22, 12), (104, 70, 14, 10), (122, 88, 14, 9),
                  (32, 18, 12, 10), (94, 12, 18, 12), (138, 40, 14, 8), (98, 36, 12, 10)]
        for i, (x, y, w, h) in enumerate(houses):
            drawing.polyline(f"{0x801 + i:X}", "建筑",
                             [(x, y, 0), (x + w, y, 0), (x + w, y + h, 0), (x, y + h, 0)],
                             closed=True)
        for i, y in enumerate((50.0, 67.0)):
            drawing.line(f"{0x811 + i:X}", "道路", (0.0, y), (198.0, y))
        drawing.text("821", "文字", (4.0, 47.0), 2.5, "人民路")

    def numbers(self):
        """The number of each well beside it."""
        handle = 0x701
        for number in list(SEWER_WELLS) + list(STORM_WELLS):
            (x, y), rim = self.places[number]
            lower = number.startswith("W")
            below = y - rim - NUMBER_HEIGHT - 0.4 if lower else y + rim + 0.4
            self.network.drawing.text(f"{handle:X}", "文字", (x + rim + 0.3, below), NUMBER_HEIGHT,
                                      number)
            handle = self.next_handle(handle)


def turned(piece):
    """A piece drawn the other way: an arc's bulge changes its sign and moves to the new start."""
    points = [p[:2] for p in reversed(piece)]
    bulges = [-(p[2] if len(p) > 2 else 0.0) for p in reversed(piece[:-1])] + [0.0]
    return [(*p, b) for p, b in zip(points, bulges)]


# The main as the search should see it from its western end, worked out by hand: cut where a branch
# leaves it, and grown together where a pipe goes straight on or round the same circle. A piece has
# the elevations of the whole 601: the one of the end that is nearer to where the piece begins comes
# first. Whole pipes come before pieces, which the cutting puts behind them. Columns: pipes, flags
# (0 for a piece), from, to, parent, valves, meters, reversed, length, elevations at both ends.
MAIN_RUNS = [
    (["601"], [0], (6.0, 54.0), (28.0, 54.0), None, ["611"], [], 0, 22.0, 94.6, 94.0),
    (["603"], [1], (28.0, 54.0), (28.0, 26.0), 0, [], ["613"], 0, 28.0, 94.5, 94.3),
    (["601"], [0], (28.0, 54.0), (90.0, 54.0), 0, ["612"], [], 0, 62.0, 94.6, 94.0),
    (["604"], [1], (90.0, 54.0), (90.0, 24.0), 2, [], ["614"], 1, 30.0, 94.25, 94.1),
    (["601"], [0], (90.0, 54.0), (124.0, 54.0), 2, [], [], 0, 34.0, 94.0, 94.6),
    (["605", "608"], [1, 1], (124.0, 54.0), (124.0, 87.0), 4, [], ["616"], 0, 33.0, 94.1, 94.3),
    (["601"], [0], (124.0, 54.0), (150.0, 54.0), 4, [], [], 0, 26.0, 94.0, 94.6),
    (["602"], [1], (150.0, 54.0), (178.0, 46.0), 6, [], [], 0, 29.120440, 94.0, 93.8),
    (["606", "607"], [1, 1], (178.0, 46.0), (185.2, 24.4), 7, ["615"], ["617"], 0, 29.977099,
     93.8, 93.7)]
ARCS = ("606",)


def pressure_truth():
    runs = []
    for (pipes, flags, begin, end, parent, valves, meters, turned, length, first,
         last) in MAIN_RUNS:
        wide = 200 if pipes == ["601"] else 150 if pipes[0] in ("602", "606") else 100
        runs.append({"pipe": pipes[0], "pipes": pipes, "flags": flags, "from": list(begin),
                     "to": list(end), "parent": parent, "valves": valves, "meters": meters,
                     "reversed": turned, "isArc": int(pipes[0] in ARCS), "length": length,
                     "startElevation": first, "endElevation": last, "diameter": wide,
                     "material": "球墨铸铁", "slope": 0.0, "flow": "SE"})
    return {"pick": {"pipe": "601", "point": [6.0, 54.0]}, "result": 1, "runs": runs}


def main():
    folder = sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(os.path.abspath(__file__))
    town = Town()
    town.wells("污水", SEWER_WELLS, "1")
    town.wells("雨水", STORM_WELLS, "2")
    town.tanks()
    town.runs("污水", SEWER_RUNS)
    town.runs("雨水", STORM_RUNS)
    town.dead_end()
    town.main()
    town.surroundings()
    town.numbers()
    town.network.drawing.shuffle(18)
    town.extensions()
    town.network.save(os.path.join(folder, "town.dxf"), os.path.join(folder, "town.truth.json"),
                      pressure=[pressure_truth()])


if __name__ == "__main__":
    main()
