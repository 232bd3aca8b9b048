#!/usr/bin/env python3
"""Makes of a drawing that `pipenet import` has written one that looks drawn by hand.

    pipenet import MODEL.inp --output CLEAN.dxf
    python3 roughen.py CLEAN.dxf MODEL.inp OUTPUT.dxf [--tree] [--seed N]

Writes OUTPUT.dxf and, beside it, OUTPUT.truth.json: the graph of the model with the handles of the
entities and the values that each of them carries. With --tree the links that close loops are left
out. Standard library only; the same input gives the same bytes.

* Some of the longer pipes are cut into two or three pieces in line with small gaps between, and
  polylines at their bends if a chain can follow these; not where another pipe is near. Heights are
  shared out along the pieces.
* Every other piece is turned round. Of mains the first piece of a run of several is not: the search
  turns such a run about and takes its far end for the place where it has already been. The water of
  mains is led away from the first reservoir; in links that close loops it runs as the model says.
* The texts by which import remembers the model are taken off, all but those that searches read.
* The order of the entities is shuffled. Handles are 1001 onwards for nodes, then for valves, 2001
  onwards for pipes, 4001 onwards for texts; further up where tables and objects of the drawing
  stand there.

The truth is reckoned from the model and from what is done here. The drawing must agree with it as
it comes, else nothing is written.
"""
import argparse
import math
import os

from drawing_edit import DrawingEdit
from dxf_writer import Chance, shuffled
from main_walk import MainWalk, spanning_tree
from model_layout import Layout, way
from model_truth import Truth
from network_layout import REACH, VALVE, TruthBook, off_line, rounded, towards

SYSTEMS = {True: "雨水", False: "给水"}
SEED = 2018
SAME_PLACE = 1e-6  # drawing units, and of a coordinate a share beside it
GAP = 0.2
SHARPEST_BEND, SHORTEST_LEG = math.radians(15.0), 3.0
OWN_TEXTS = ("管段编号", "管段长度", "管件", "井底标高", "地面标高", "水位")
PIECE = 12.0  # a straight pipe is cut only where each piece stays about this long
CLEAR = 2.0  # nothing is cut where another pipe is so near: it might be taken for the next piece


def agree(what, drawn, reckoned):
    """Holds what the drawing has against what the model says."""
    if drawn != reckoned:
        raise SystemExit(f"{what}: the drawing has {drawn}, the model says {reckoned}")


def agree_on_places(what, drawn, reckoned):
    agree(f"points of {what}", len(drawn), len(reckoned))
    for one, other in zip(drawn, reckoned):
        if math.dist(one, other) > SAME_PLACE + 1e-13 * max(map(abs, other)):
            raise SystemExit(f"{what}: the drawing has it at {one}, the model at {other}")


def bend(a, b, c):
    """The angle by which a path turns at b."""
    first = math.atan2(b[1] - a[1], b[0] - a[0])
    second = math.atan2(c[1] - b[1], c[0] - b[0])
    return abs(math.remainder(second - first, math.tau))


def with_gaps(path):
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


def between(start, end, share):
    """The point at a share of the way from start to end, the ends themselves as they are."""
    if share in (0.0, 1.0):
        return end if share else start
    return (start[0] + (end[0] - start[0]) * share, start[1] + (end[1] - start[1]) * share)


class Lines:
    """The paths of links, to be asked for what is near."""

    def __init__(self, paths):
        self._pieces = [(name, a, b) for name, path in paths.items()
                        for a, b in zip(path, path[1:])]

    def are_clear(self, places, but, distance):
        """Whether all links but one keep so far away from some places."""
        return not any(
            name != but and min(a[0], b[0]) - distance <= x <= max(a[0], b[0]) + distance
            and min(a[1], b[1]) - distance <= y <= max(a[1], b[1]) + distance
            and off_line((x, y), a, b) < distance
            for x, y in places for name, a, b in self._pieces)


class Cut:
    """How a link is cut: at its bends, or a straight one into so many pieces, or not at all."""

    def __init__(self, path, one_in, chance, is_free):
        self.count = 1
        bends = [bend(*path[i:i + 3]) for i in range(len(path) - 2)]
        self.at_bends = bool(bends) and max(bends) <= SHARPEST_BEND and all(
            math.dist(a, b) >= SHORTEST_LEG for a, b in zip(path, path[1:]))
        if not bends and chance.below(one_in) == 0:
            self.count = max(1, min(3, int(math.dist(*path) / PIECE)))
        if not is_free(joint for piece in self.pieces(path)[1:] for joint in piece[:1]):
            self.at_bends, self.count = False, 1

    def pieces(self, path):
        """The pieces of the link, each a list of points."""
        if self.count == 1:
            return with_gaps(path) if self.at_bends else [path]
        # Reckoned in steps that give the same digits everywhere.
        dx, dy = path[1][0] - path[0][0], path[1][1] - path[0][1]
        gap = GAP / math.sqrt(dx * dx + dy * dy)
        ends = [k / self.count for k in range(self.count + 1)]
        return [[between(*path, begin + gap if begin else 0.0), between(*path, end)]
                for begin, end in zip(ends, ends[1:])]


class Imported:
    """The entities of an imported drawing by the names of the model."""

    def __init__(self, path):
        self.drawing = DrawingEdit(path)
        self.nodes, self.valves, self.links, self.labels = {}, {}, {}, {}
        for entity in self.drawing.entities:
            texts = entity.texts()
            if "管段编号" in texts:
                self.links[texts["管段编号"]] = entity
            elif "池体" in texts:
                self.nodes[texts["池体"]] = entity
            elif "管井编号" in texts:
                kind = self.valves if entity.value(2) == VALVE else self.nodes
                kind[texts["管井编号"]] = entity
            elif entity.kind == "TEXT":
                self.labels[entity.value(1)] = entity


class Roughener:
    def __init__(self, imported, layout, name, seed):
        self.imported, self.layout, self.truth = imported, layout, layout.truth
        self.system = SYSTEMS[self.truth.is_sewer]
        self.book, self.chance, self.seed = TruthBook(name), Chance(seed), seed
        self.entities = []
        self.handles = {}  # of the pieces of each link, from its first end
        self.valves = {}
        first = imported.drawing.last_other_handle() // 0x1000 * 0x1000 + 0x1001
        self.next_node, self.next_pipe, self.next_label = first, first + 0x1000, first + 0x3000
        drawn = [link for link in self.truth.links if layout.path(link)]
        agree("links", sorted(imported.links), sorted(drawn))
        self.tree = spanning_tree(self.truth, drawn)
        self.walk = None if self.truth.is_sewer else MainWalk(layout, self.tree)
        self.lines = Lines({link: layout.path(link) for link in drawn})
        rest = set(drawn) - set(self.tree)
        self.closing = [link for link in drawn if link in rest]

    def keep(self, entity, handle, kind=None):
        """Takes an entity over under another handle."""
        self.entities.append(entity.copy(handle))
        for text in set(OWN_TEXTS) & set(entity.texts()):
            self.entities[-1].set_text(text, None)
        if kind:
            self.book.entity(handle, kind, self.system)
        return self.entities[-1]

    def block(self, entity, kind):
        self.next_node += 1
        return self.keep(entity, f"{self.next_node - 1:X}", kind).handle

    def nodes(self):
        for name in self.truth.nodes:
            entity, point = self.imported.nodes[name], self.layout.points[name]
            agree_on_places(f"node {name}", [entity.point()], [point])
            kind = "tank" if name in self.layout.tanks else "well"
            handle, radius = self.block(entity, kind), self.layout.radii.get(name, 0.0)
            if kind == "well":
                agree(f"width of {name}", float(entity.texts()["井的直径"]), round(2.0 * radius, 3))
            self.book.node(name, self.system, kind, [handle], rounded(point), radius,
                           number=name if kind == "well" else "")

    def links(self, with_loops):
        """Draws the links, those of the tree first where they are walked from a source."""
        order = list(self.walk.ends) if self.walk else self.tree
        if with_loops:
            order = order + self.closing
            if not self.walk:
                order.sort(key=list(self.truth.links).index)
        for name in order:
            self.link(name, self.walk.ends.get(name) if self.walk else None)
        for name, entity in self.imported.valves.items():
            if name in self.handles:
                self.valves[name] = self.block(entity, "well")

    def link(self, name, ends):
        """Draws a link from the first of its ends to the second, in pieces."""
        entity, model_ends = self.imported.links[name], self.truth.links[name]["ends"]
        texts, path, heights = entity.texts(), self.layout.path(name), self.layout.heights(name)
        drawn = self.drawn_path(name, entity, path, texts["水流方向"])
        data = self.values(name, texts, heights)
        ends = ends or model_ends
        if ends != model_ends:
            path, drawn, heights = path[::-1], drawn[::-1], heights[::-1]
        cut = Cut(path, 3 if self.truth.is_sewer else 4, self.chance,
                  lambda joints: self.lines.are_clear(joints, name, CLEAR))
        told = cut.pieces(path)
        pieces = cut.pieces(drawn)
        self.handles[name] = [self.piece(entity, *each, data) for each in zip(
            pieces, told, self.shared(told, *heights), self.turns(name, len(pieces)))]
        self.book.edge(*ends, self.system, self.handles[name],
                       "chain" if len(pieces) > 1 else "direct", link=name,
                       modelLength=round(self.truth.links[name]["length"] or way(path), 6),
                       upstreamElevation=heights[0], downstreamElevation=heights[1])

    @staticmethod
    def drawn_path(name, entity, path, flow):
        """A link's points in the drawing, from its first end in the model on."""
        drawn = entity.points() if flow == "SE" else entity.points()[::-1]
        agree_on_places(f"link {name}", drawn, path)
        return drawn

    def values(self, name, texts, heights):
        data = {"diameter": self.truth.width(name), "slope": self.layout.slope(name),
                "material": self.truth.links[name]["material"]}
        agree(f"width of {name}", int(texts["管径"]), data["diameter"])
        agree(f"slope of {name}", float(texts["坡度"]), data["slope"])
        agree(f"material of {name}", texts["管材"], data["material"])
        told = [float(texts[key]) for key in ("起点标高", "终点标高")]
        agree(f"heights of {name}", told if texts["水流方向"] == "SE" else told[::-1], heights)
        return data

    def turns(self, name, count):
        """Which of a link's pieces are turned round."""
        heads = self.walk and (
            count > 1 or name in self.walk.ends and self.walk.next_in_line(name) is not None)
        return [bool(self.chance.below(2)) and not (heads and k == 0) for k in range(count)]

    @staticmethod
    def shared(pieces, upper, lower):
        """The heights at the ends of the pieces of a link."""
        length, done = sum(map(way, pieces)), 0.0
        for piece in pieces:
            start = upper - (upper - lower) * done / length
            done += way(piece)
            yield start, upper - (upper - lower) * done / length

    def piece(self, entity, points, told, heights, turned, data):
        """Draws one piece of a link and gives its handle."""
        entity = self.keep(entity, f"{self.next_pipe:X}")
        self.next_pipe += 1
        data = {**data, "flow": "SE", "start": heights[0], "end": heights[1]}
        if turned:
            points, told = points[::-1], told[::-1]
            data.update(flow="ES", start=heights[1], end=heights[0])
        entity.lead(points)
        for app, key in (("起点标高", "start"), ("终点标高", "end")):
            entity.set_text(app, f"{data[key]:.3f}")
        entity.set_text("水流方向", data["flow"])
        self.book.pipe(entity.handle, self.system, (told[0], told[-1]), data,
                       math.dist(told[0], told[-1]))
        return entity.handle

    def labels(self):
        for i, name in enumerate(self.truth.nodes):
            self.keep(self.imported.labels[name], f"{self.next_label + i:X}")

    def save(self, target, **more):
        shuffled(self.entities, self.seed)
        self.imported.drawing.replace(self.entities)
        self.imported.drawing.write(target)
        order = [entity.handle for entity in self.entities]
        if self.walk:
            more.update(reach=REACH, pressure=self.searches(order))
        self.book.write(os.path.splitext(target)[0] + ".truth.json", order, **more)

    # -- what a search of the mains finds --------------------------------------------------------

    def searches(self, order):
        """For each part that is read from a source with one pipe, what a search finds there."""
        place = {handle: i for i, handle in enumerate(order)}
        rings = [] if not set(self.closing) & set(self.handles) else self.loops()
        found = []
        for source in self.walk.sources:
            first = self.walk.onward[source]
            if len(first) == 1:
                pick = {"pipe": self.handles[first[0]][0],
                        "point": list(rounded(self.layout.points[source]))}
                runs = self.walk.runs(source, lambda name: place[self.handles[name][0]])
                found.append({"pick": pick, "result": 0, "loops": rings} if rings else
                             {"pick": pick, "result": 1, "runs": [self.run(*run) for run in runs]})
        return found

    def run(self, names, parent):
        pipes = [handle for name in names for handle in self.handles[name]]
        begin = rounded(self.layout.points[self.walk.ends[names[0]][0]])
        far = rounded(self.layout.points[self.walk.ends[names[-1]][1]])
        first = self.book.told(pipes[0])
        turned = math.dist(first["endPoint"], begin) < math.dist(first["startPoint"], begin)
        heights = (first["startElevation"], first["endElevation"])[::-1 if turned else 1]
        return {"pipe": pipes[0], "pipes": pipes, "flags": [1] * len(pipes), "from": list(begin),
                "to": list(far), "parent": parent,
                "valves": [self.valves[name] for name in names if name in self.valves],
                "meters": [], "reversed": int(turned), "isArc": 0,
                "length": round(math.dist(begin, far), 6), "startElevation": heights[0],
                "endElevation": heights[1], "diameter": first["diameter"],
                "material": first["material"], "slope": first["slope"], "flow": first["flow"],
                "links": names}

    def loops(self):
        """For each link outside the tree the loop that it closes."""
        loops = []
        for name in self.closing:
            ends = self.truth.links[name]["ends"]
            back, onward = self.walk.ring(ends[1], ends[0])
            pipes = list(self.handles[name])
            for one in back:
                pipes += self.handles[one][::-1]
            for one in onward:
                pipes += self.handles[one]
            loops.append({"nodes": list(ends), "points": [
                list(rounded(self.layout.points[node])) for node in ends],
                "pipes": pipes, "links": [name, *back, *onward]})
        return loops


def roughen(clean, model, target, tree=False, seed=SEED):
    """Roughens a drawing that was imported from a model, and writes it with its truth."""
    rough = Roughener(Imported(clean), Layout(Truth(model)), os.path.basename(target), seed)
    rough.nodes()
    rough.links(with_loops=not tree)
    rough.labels()
    rough.save(target, model=os.path.basename(model))


def main():
    parser = argparse.ArgumentParser(description="Makes an imported drawing look drawn by hand.")
    parser.add_argument("clean", help="a drawing that pipenet import has written")
    parser.add_argument("model", help="the model that it was imported from")
    parser.add_argument("target", help="the drawing to write")
    parser.add_argument("--tree", action="store_true", help="leave out links that close loops")
    parser.add_argument("--seed", type=int, default=SEED)
    given = parser.parse_args()
    roughen(given.clean, given.model, given.target, given.tree, given.seed)


if __name__ == "__main__":
    main()
