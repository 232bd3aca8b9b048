"""What the scripts that turn published models into drawings have in common.

Drainage and water supply models come in the same text form: sections of rows of words. Both become
loose pipes in the same way: a long link is drawn in several pieces, some of them turned round, in a
shuffled drawing.
"""
import math
import os

from dxf_writer import Chance
from network_layout import Network, rounded

FOOT = 0.3048
SEED = 2018


class Row(list):
    """The words of one line, and as `note` what the line says behind its semicolon."""

    def __init__(self, text):
        words, _, note = text.partition(";")
        super().__init__(words.split())
        self.note = note.strip()


def read_sections(path):
    """The sections of the input file: name to rows of words, lines of mere comment left out."""
    sections, rows = {}, []
    with open(path, encoding="utf-8") as file:
        for line in file:
            row = Row(line)
            if row and row[0].startswith("["):
                rows = sections.setdefault(row[0].strip("[]").upper(), [])
            elif row:
                rows.append(row)
    return sections


def option(sections, name, default=None):
    """The value of an option, in capitals."""
    values = {row[0].upper(): row[1].upper() for row in sections["OPTIONS"] if len(row) > 1}
    return values.get(name, default)


class Map:
    """Where the nodes of a model stand and how its links bend."""

    def __init__(self, sections, unit):
        self.points = {row[0]: self._place(row, unit) for row in sections["COORDINATES"]}
        self.vertices = {}
        for row in sections.get("VERTICES", []):
            self.vertices.setdefault(row[0], []).append(self._place(row, unit))

    @staticmethod
    def _place(row, unit):
        return rounded((float(row[1]) * unit, float(row[2]) * unit))

    def path(self, link, start, end):
        """The points of a link from node to node, vertices included."""
        return [self.points[start], *self.vertices.get(link, []), self.points[end]]


def way(path):
    """The length of a path of points."""
    return sum(math.dist(p, q) for p, q in zip(path, path[1:]))


class Converter:
    """Draws a model's links as loose pipes and keeps the truth about them."""

    def __init__(self, name, system):
        self.system = system
        self.network = Network(name)
        self.chance = Chance(SEED)
        self.handle = 0x2001

    def draw(self, pieces, data, upper, lower, turnable=lambda k: True):
        """Draws a link's pieces from its upper end on and gives their handles.

        The heights are shared out along the pieces. Every other piece that may be turned (k is its
        place) is drawn against the flow.
        """
        handles, done, fall, length = [], 0.0, upper - lower, sum(way(piece) for piece in pieces)
        for k, piece in enumerate(pieces):
            start = upper - fall * done / length
            done += way(piece)
            end = upper - fall * done / length
            values = {**data, "flow": "SE", "start": start, "end": end}
            if self.chance.below(2) and turnable(k):
                piece = piece[::-1]
                values.update(flow="ES", start=end, end=start)
            handles.append(f"{self.handle:X}")
            self.handle += 1
            self.network.pipe(handles[-1], self.system, piece, values, len(piece) > 2)
        return handles

    def numbers(self, points):
        """The name of each node beside it."""
        self.network.drawing.layer("文字", 7)
        for i, (name, (x, y)) in enumerate(points.items()):
            self.network.drawing.text(f"{0x4001 + i:X}", "文字", (x + 0.6, y + 0.6), 1.2, name)

    def shuffle(self):
        """Puts the entities into the order of a drawing that has grown."""
        self.network.drawing.shuffle(SEED)

    def write(self, target, **more):
        """Writes the drawing and, beside it, its truth."""
        self.network.write(target, os.path.splitext(target)[0] + ".truth.json", **more)
