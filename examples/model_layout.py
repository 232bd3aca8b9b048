"""Where `pipenet import` puts the nodes and links of a model, by the rules in docs/exchange.md.

Reckoned from the model alone, apart from the program, for the usual settings: a drawing unit is a
metre, and pressure pipes join over 0.4 units.
"""
import math
from bisect import bisect_left

from network_layout import REACH, towards

SHORTEST_PIPE = 1.02  # between the rims; a pipe of one unit or less is none
SCHEME = 2.0  # from this ratio on a map says nothing about lengths
CLEARANCE, INTO_TANK, LEAST_RADIUS = 0.05, 0.05, 0.005
# Radius of a well, half length and half width of a tank.
SEWER_SIZES, MAIN_SIZES = (0.35, 4.0, 2.5), (0.25, 3.0, 2.0)


def way(path):
    """The length of a path of points."""
    return sum(math.dist(p, q) for p, q in zip(path, path[1:]))


def nearest_others(points, farthest):
    """For each named point how far the next one is, at most so much."""
    order = sorted(points, key=lambda name: points[name])
    left = [points[name][0] for name in order]
    nearest = dict.fromkeys(order, farthest)
    for i, name in enumerate(order):
        begin = bisect_left(left, left[i] - farthest)
        for k in range(begin, i):
            gap = math.dist(points[name], points[order[k]])
            nearest[name] = min(nearest[name], gap)
            nearest[order[k]] = min(nearest[order[k]], gap)
    return nearest


class Layout:
    """points: of the nodes; radii: of the wells; tanks: half length and half width."""

    def __init__(self, truth):
        self.truth = truth
        self.sizes = SEWER_SIZES if truth.is_sewer else MAIN_SIZES
        self.scale = self._scale()
        self.points = {name: self._place(node["point"]) for name, node in truth.nodes.items()}
        self.radii, self.tanks = {}, {}
        self._measure_nodes()
        if truth.is_sewer:
            self._narrow_for_pipes()
        for name, radius in self.radii.items():
            self.radii[name] = max(1.0, math.floor(2000.0 * radius + 1e-9)) / 2000.0

    def _place(self, point):
        return point[0] * self.scale, point[1] * self.scale

    def _scale(self):
        """Schemes are enlarged by the middle ratio of given to drawn lengths."""
        ratios = []
        for name, link in self.truth.links.items():
            ends = [self.truth.nodes[end]["point"] for end in link["ends"]]
            drawn = way([ends[0], *self.truth.vertices.get(name, []), ends[1]])
            if link["length"] and drawn > 0.0:
                ratios.append(link["length"] / drawn)
        middle = sorted(ratios)[len(ratios) // 2] if ratios else 1.0
        return 1.0 if 1.0 / SCHEME <= middle <= SCHEME else middle

    def _measure_nodes(self):
        radius, length, width = self.sizes
        usual = math.hypot(length, width)
        for name, gap in nearest_others(self.points, 2.0 * length + SHORTEST_PIPE).items():
            room = (gap - CLEARANCE) / 3.0 if self.truth.is_sewer else gap - REACH - CLEARANCE
            well = max(LEAST_RADIUS, min(radius, room))
            if self.truth.nodes[name]["kind"] in ("junction", "outfall"):
                self.radii[name] = well
            else:
                room = gap - well - SHORTEST_PIPE - CLEARANCE
                share = max(CLEARANCE, min(usual, room)) / usual
                self.tanks[name] = (length * share, width * share)

    def _narrow_for_pipes(self):
        """A sewer keeps more than a unit between the rims, and its first bend outside of them."""
        for name, link in self.truth.links.items():
            path = self.line(name)
            room = math.dist(path[0], path[-1]) - SHORTEST_PIPE
            legs = math.dist(*path[:2]), math.dist(*path[-2:])
            for end, other, leg in zip(link["ends"], link["ends"][::-1], legs):
                share = room - math.hypot(*self.tanks[other]) if other in self.tanks else room / 2.0
                if end in self.radii:
                    self.radii[end] = min(self.radii[end], max(LEAST_RADIUS, share))
                    if len(path) > 2:
                        self.radii[end] = min(self.radii[end], max(LEAST_RADIUS, 0.9 * leg))

    def line(self, name):
        """The points of a link from node to node, bends included, none twice in a row."""
        link = self.truth.links[name]
        start, end = (self.points[node] for node in link["ends"])
        path = [start]
        for point in map(self._place, self.truth.vertices.get(name, [])):
            if point != path[-1]:
                path.append(point)
        while len(path) > 1 and path[-1] == end:
            path.pop()
        return [*path, end]

    def path(self, name):
        """A link as it is drawn: a sewer from rim to rim, a main from node to node. None where
        there is no room for it."""
        ends, path = self.truth.links[name]["ends"], self.line(name)
        if math.dist(path[0], path[-1]) < SHORTEST_PIPE:
            return None
        if self.truth.is_sewer:
            path = [self._rim(ends[0], path[1]), *path[1:-1], self._rim(ends[1], path[-2])]
        return path if math.dist(path[0], path[-1]) > 1.0 + 1e-6 else None

    def _rim(self, node, outside):
        """Where a sewer from outside ends: at a well's rim, or just inside a tank's wall."""
        centre = self.points[node]
        if node in self.radii:
            return towards(centre, outside, self.radii[node])
        length, width = self.tanks[node]
        into = min(INTO_TANK, 0.2 * width)
        dx, dy = abs(outside[0] - centre[0]), abs(outside[1] - centre[1])
        share = min((length - into) / dx if dx else math.inf,
                    (width - into) / dy if dy else math.inf)
        return towards(centre, outside, share * math.hypot(dx, dy))

    def heights(self, name):
        """The heights at the ends of a link, as texts give them, to a millimetre."""
        link = self.truth.links[name]
        return [round(height, 3) for height in link.get("heights") or self.truth.level(name)]

    def slope(self, name):
        """The fall of a link by its own length, as texts give it; by the drawn one without any."""
        link = self.truth.links[name]
        upper, lower = link.get("heights") or self.truth.level(name)
        return round((upper - lower) / (link["length"] or way(self.path(name))), 6)
