"""What a hydraulic model says of its nodes and links, read with the examples' own reader.

The program has another reader, written apart from this one, so the two can be held against each
other. Everything is in metres and millimetres.
"""
import os
import sys

sys.path.insert(0, os.environ["TKVLT_EXAMPLES"])

from model_input import FOOT, Map, option, read_sections  # noqa: E402

INCH = 25.4
FEET = ("CFS", "GPM", "MGD", "IMGD", "AFD")
SEWER_NODES = {"JUNCTIONS": "junction", "OUTFALLS": "outfall", "STORAGE": "storage"}
MAIN_NODES = {"JUNCTIONS": "junction", "RESERVOIRS": "reservoir", "TANKS": "tank"}


class Truth:
    """nodes: name to kind, height (invert, elevation or head) and point; links: name to ends,
    length, diameter, heights at both ends and device."""

    def __init__(self, path):
        self.path = path
        sections = {name: [row for row in rows if row] for name, rows in
                    read_sections(path).items()}
        self.is_sewer = "CONDUITS" in sections
        flow = option(sections, "FLOW_UNITS" if self.is_sewer else "UNITS", "GPM")
        self.unit = FOOT if flow in FEET else 1.0
        self.nodes, self.links = {}, {}
        places = Map(sections, self.unit)
        for section, kind in (SEWER_NODES if self.is_sewer else MAIN_NODES).items():
            for row in sections.get(section, []):
                depth = float(row[2]) if self.is_sewer and section != "OUTFALLS" else 0.0
                self.nodes[row[0]] = {"kind": kind, "height": float(row[1]) * self.unit,
                                      "depth": depth * self.unit, "point": places.points[row[0]]}
        self.vertices = places.vertices
        if self.is_sewer:
            self._conduits(sections)
        else:
            self._pipes(sections, INCH if flow in FEET else 1.0)

    def _conduits(self, sections):
        shapes = {row[0]: row for row in sections["XSECTIONS"]}
        for row in sections["CONDUITS"]:
            shape = shapes[row[0]]
            wide = None if shape[1] == "IRREGULAR" else float(shape[2]) * self.unit * 1000.0
            ends = (row[1], row[2])
            offsets = [float(word) * self.unit for word in row[5:7]]
            heights = [self.nodes[end]["height"] + offset for end, offset in zip(ends, offsets)]
            self.links[row[0]] = {"ends": ends, "length": float(row[3]) * self.unit,
                                  "diameter": wide, "heights": heights, "device": "pipe"}

    def _pipes(self, sections, inch):
        for row in sections["PIPES"]:
            self.links[row[0]] = {"ends": (row[1], row[2]), "length": float(row[3]) * self.unit,
                                  "diameter": float(row[4]) * inch, "device": "pipe"}
        for row in sections.get("VALVES", []):
            self.links[row[0]] = {"ends": (row[1], row[2]), "length": None,
                                  "diameter": float(row[3]) * inch, "device": "valve"}
        for row in sections.get("PUMPS", []):
            self.links[row[0]] = {"ends": (row[1], row[2]), "length": None, "diameter": None,
                                  "device": "pump"}

    def parts(self):
        """The connected parts of the network: each its nodes and its links, in the model's order;
        nodes without a link are none."""
        group = {node: node for node in self.nodes}

        def root(node):
            while group[node] != node:
                group[node] = group[group[node]]
                node = group[node]
            return node

        for link in self.links.values():
            a, b = map(root, link["ends"])
            group[a] = b
        parts = {}
        for name, link in self.links.items():
            nodes, links = parts.setdefault(root(link["ends"][0]), ({}, []))
            links.append(name)
            nodes.update(dict.fromkeys(link["ends"]))
        return [(list(nodes), links) for nodes, links in parts.values()]

    def spanning_links(self, first=()):
        """Links that join the same nodes without a loop; those named first are tried first."""
        group = {node: node for node in self.nodes}

        def root(node):
            while group[node] != node:
                group[node] = group[group[node]]
                node = group[node]
            return node

        kept = []
        for name in [*first, *(name for name in self.links if name not in first)]:
            a, b = map(root, self.links[name]["ends"])
            if a != b:
                group[a] = b
                kept.append(name)
        return set(kept)


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
