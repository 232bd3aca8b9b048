"""What a hydraulic model says of its nodes and links: the reader behind the truths and the tests.

Drainage models (SWMM) and water supply models (EPANET) come in the same text form: sections of rows
of words. The program has another reader, written apart from this one, so the two can be held
against each other. Everything is in metres and millimetres.
"""
import math

FOOT, INCH = 0.3048, 25.4  # metres, millimetres
FEET = ("CFS", "GPM", "MGD", "IMGD", "AFD")
SEWER_NODES = {"JUNCTIONS": "junction", "OUTFALLS": "outfall", "STORAGE": "storage"}
MAIN_NODES = {"JUNCTIONS": "junction", "RESERVOIRS": "reservoir", "TANKS": "tank"}
# A model has no material; this is the pipe that such a roughness is usually chosen for.
MANNING = {0.010: "PVC", 0.0105: "玻璃钢", 0.011: "PE", 0.012: "球墨铸铁", 0.0125: "钢",
           0.013: "混凝土", 0.014: "铸铁", 0.015: "钢筋混凝土", 0.017: "砖砌"}
HAZEN_WILLIAMS = {150.0: "PVC", 145.0: "HDPE", 140.0: "PE", 125.0: "钢", 120.0: "球墨铸铁",
                  110.0: "混凝土", 100.0: "铸铁"}


def read_sections(path):
    """The sections of the input file: name to rows of words, comments left out."""
    sections, rows = {}, []
    with open(path, encoding="utf-8") as file:
        for line in file:
            row = line.partition(";")[0].split()
            if row and row[0].startswith("["):
                rows = sections.setdefault(row[0].strip("[]").upper(), [])
            elif row:
                rows.append(row)
    return sections


def option(sections, name, default=None):
    """The value of an option, in capitals."""
    values = {row[0].upper(): row[1].upper() for row in sections["OPTIONS"] if len(row) > 1}
    return values.get(name, default)


def whole(value):
    """The nearest whole number, halves upwards."""
    return math.floor(value + 0.5)


class Truth:
    """nodes: name to kind, height (invert, elevation or head) and point; links: name to ends,
    length, diameter, heights at both ends, material and device; vertices: of the bent links."""

    def __init__(self, path):
        self.path = path
        sections = read_sections(path)
        self.is_sewer = "CONDUITS" in sections
        flow = option(sections, "FLOW_UNITS" if self.is_sewer else "UNITS", "GPM")
        self.unit = FOOT if flow in FEET else 1.0
        self.nodes, self.links, self.vertices = {}, {}, {}
        points = {row[0]: self._place(row) for row in sections["COORDINATES"]}
        for row in sections.get("VERTICES", []):
            self.vertices.setdefault(row[0], []).append(self._place(row))
        for section, kind in (SEWER_NODES if self.is_sewer else MAIN_NODES).items():
            for row in sections.get(section, []):
                depth = float(row[2]) if self.is_sewer and section != "OUTFALLS" else 0.0
                self.nodes[row[0]] = {"kind": kind, "height": float(row[1]) * self.unit,
                                      "depth": depth * self.unit, "point": points[row[0]]}
        if self.is_sewer:
            self._conduits(sections)
        else:
            self._pipes(sections, INCH if flow in FEET else 1.0)

    def _place(self, row):
        return float(row[1]) * self.unit, float(row[2]) * self.unit

    def _conduits(self, sections):
        shapes = {row[0]: row for row in sections["XSECTIONS"]}
        for row in sections["CONDUITS"]:
            shape = shapes[row[0]]
            wide = None if shape[1] == "IRREGULAR" else float(shape[2]) * self.unit * 1000.0
            ends = (row[1], row[2])
            offsets = [float(word) * self.unit for word in row[5:7]]
            heights = [self.nodes[end]["height"] + offset for end, offset in zip(ends, offsets)]
            self.links[row[0]] = {"ends": ends, "length": float(row[3]) * self.unit,
                                  "diameter": wide, "heights": heights, "device": "pipe",
                                  "material": MANNING.get(float(row[4]), "")}

    def _pipes(self, sections, inch):
        is_usual = option(sections, "HEADLOSS", "H-W") == "H-W"
        for row in sections["PIPES"]:
            self._main(row, "pipe", float(row[3]) * self.unit, float(row[4]) * inch,
                       HAZEN_WILLIAMS.get(float(row[5]), "") if is_usual else "")
        for row in sections.get("VALVES", []):
            self._main(row, "valve", None, float(row[3]) * inch)
        for row in sections.get("PUMPS", []):
            self._main(row, "pump", None, None)

    def _main(self, row, device, length, diameter, material=""):
        self.links[row[0]] = {"ends": (row[1], row[2]), "length": length, "diameter": diameter,
                              "device": device, "material": material}

    def level(self, link):
        """The heights at the ends of a main. A reservoir has a head and no height: its pipes are
        laid level up to it."""
        ends = self.links[link]["ends"]
        beside = [other if self.nodes[end]["kind"] == "reservoir" else end
                  for end, other in zip(ends, ends[::-1])]
        return [self.nodes[node]["height"] for node in beside]

    def width(self, link):
        """The diameter in whole millimetres: 0 for a surveyed section; a pump is as wide as the
        widest of the pipes and valves at its nodes."""
        one = self.links[link]
        if one["device"] != "pump":
            return whole(one["diameter"] or 0.0)
        return max([whole(other["diameter"]) for other in self.links.values()
                    if other["device"] != "pump" and set(other["ends"]) & set(one["ends"])] + [0])

    def parts(self):
        """The connected parts of the network: each its nodes and its links, in the model's order;
        nodes without a link are none."""
        group = Groups(self.nodes)
        for link in self.links.values():
            group.join(*link["ends"])
        parts = {}
        for name, link in self.links.items():
            nodes, links = parts.setdefault(group.of(link["ends"][0]), ({}, []))
            links.append(name)
            nodes.update(dict.fromkeys(link["ends"]))
        return [(list(nodes), links) for nodes, links in parts.values()]

    def spanning_links(self, first=()):
        """Links that join the same nodes without a loop; those named first are tried first."""
        group = Groups(self.nodes)
        return {name for name in [*first, *(name for name in self.links if name not in first)]
                if group.join(*self.links[name]["ends"])}


class Groups:
    """Things that are joined to groups."""

    def __init__(self, things):
        self._group = {thing: thing for thing in things}

    def of(self, thing):
        """What stands for a thing's group."""
        while self._group[thing] != thing:
            self._group[thing] = self._group[self._group[thing]]
            thing = self._group[thing]
        return thing

    def join(self, one, other):
        """Makes the groups of two things one; False when they are one already."""
        one, other = self.of(one), self.of(other)
        self._group[one] = other
        return one != other


def without_links(source, target, dropped):
    """Writes a copy of a model without the links named."""
    section = ""
    with open(source, encoding="utf-8") as lines, open(target, "w", encoding="utf-8") as out:
        for line in lines:
            words = line.split()
            if words and words[0].startswith("["):
                section = words[0].strip("[]").upper()
            is_link = section in ("CONDUITS", "PIPES", "PUMPS", "VALVES", "XSECTIONS", "VERTICES")
            if not (is_link and words and words[0] in dropped):
                out.write(line)
