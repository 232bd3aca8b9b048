"""How water mains without loops are walked from their source, reckoned from the model's graph."""
import math

from model_truth import Groups

ONE_DIRECTION, CLEAR_BEND = 1e-10, 1e-8  # radians


def spanning_tree(truth, links):
    """Of some links those that join the same nodes without a loop; of mains pumps and valves first,
    then the widest."""
    order = list(links)
    if not truth.is_sewer:
        order.sort(key=lambda name: (truth.links[name]["device"] == "pipe", -truth.width(name)))
    group = Groups(truth.nodes)
    return [name for name in order if group.join(*truth.links[name]["ends"])]


class MainWalk:
    """The links of a tree of mains, or of several, each led away from its source.

    ends: of each link, the one towards the source first; onward: the links that leave a node;
    towards: the link that leads to a node; sources: the nodes where the walks begin."""

    def __init__(self, layout, tree):
        self.layout, self.truth = layout, layout.truth
        at = {}
        for name in tree:
            for node in self.truth.links[name]["ends"]:
                at.setdefault(node, []).append(name)
        self.ends, self.onward, self.towards, self.sources = {}, {}, {}, []
        for node in sorted(self.truth.nodes, key=self._rank):
            if node in at and node not in self.onward:
                self.sources.append(node)
                self._walk(node, at)

    def _rank(self, node):
        """Reservoirs are likelier sources than tanks, tanks than junctions."""
        return ("reservoir", "tank", "junction").index(self.truth.nodes[node]["kind"])

    def _walk(self, source, at):
        todo = [source]
        for node in todo:
            self.onward[node] = [name for name in at[node] if name not in self.ends]
            for name in self.onward[node]:
                a, b = self.truth.links[name]["ends"]
                self.ends[name] = (a, b) if a == node else (b, a)
                self.towards[self.ends[name][1]] = name
                todo.append(self.ends[name][1])

    def next_in_line(self, name):
        """The only link that goes on from a link's far end, if it goes on in a straight line."""
        onward = self.onward[self.ends[name][1]]
        if len(onward) != 1:
            return None
        (a, b), (c, d) = ([self.layout.points[node] for node in self.ends[link]]
                          for link in (name, onward[0]))
        ux, uy, vx, vy = b[0] - a[0], b[1] - a[1], d[0] - c[0], d[1] - c[1]
        bend = abs(ux * vy - uy * vx) / (math.hypot(ux, uy) * math.hypot(vx, vy))
        if ONE_DIRECTION < bend < CLEAR_BEND:
            raise SystemExit(f"{name} and {onward[0]} are neither in line nor clearly bent")
        return onward[0] if bend <= ONE_DIRECTION else None

    def run_from(self, first):
        """The links that grow together with one that begins a run."""
        names = [first]
        while self.next_in_line(names[-1]):
            names.append(self.next_in_line(names[-1]))
        return names

    def runs(self, source, place):
        """The runs from a source in the order in which a walk adds them, each its links and its
        parent's index. place: of each link in the drawing."""
        runs, todo = [], []

        def add(parent, links):
            begin = len(runs)
            runs.extend((self.run_from(first), parent) for first in sorted(links, key=place))
            todo.extend(range(len(runs) - 1, begin - 1, -1))

        add(None, self.onward[source])
        while todo:
            k = todo.pop()
            add(k, self.onward[self.ends[runs[k][0][-1]][1]])
        return runs

    def ring(self, start, end):
        """The links of the tree on the way from one node to another: back, then onward."""
        out, home = self._way_back(start), self._way_back(end)
        while out and home and out[-1] == home[-1]:
            out.pop()
            home.pop()
        return out, home[::-1]

    def _way_back(self, node):
        names = []
        while node in self.towards:
            names.append(self.towards[node])
            node = self.ends[names[-1]][0]
        return names
