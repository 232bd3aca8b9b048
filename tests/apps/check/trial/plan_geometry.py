"""Straight pieces in plan: where they cross and how they lie to one another."""
import math


def near_pairs(names, ends):
    """Pairs of pieces whose boxes meet, each pair once, the first of the two first in the list."""
    order = {name: i for i, name in enumerate(names)}
    boxes = {}
    for name in names:
        (ax, ay), (bx, by) = ends(name)
        boxes[name] = (min(ax, bx), min(ay, by), max(ax, bx), max(ay, by))
    open_ones = []
    for name in sorted(names, key=lambda each: boxes[each][0]):
        left, low, _, high = boxes[name]
        open_ones = [other for other in open_ones if boxes[other][2] >= left]
        for other in open_ones:
            if boxes[other][1] <= high and boxes[other][3] >= low:
                yield (name, other) if order[name] < order[other] else (other, name)
        open_ones.append(name)


def crossing_shares(first, second):
    """At which shares of their ways two pieces meet; None when they do not, or are parallel."""
    (ax, ay), (bx, by) = first
    (cx, cy), (dx, dy) = second
    ux, uy, vx, vy = bx - ax, by - ay, dx - cx, dy - cy
    cross = ux * vy - uy * vx
    if cross == 0.0:
        return None
    s = ((cx - ax) * vy - (cy - ay) * vx) / cross
    t = ((cx - ax) * uy - (cy - ay) * ux) / cross
    return (s, t) if 0.0 <= s <= 1.0 and 0.0 <= t <= 1.0 else None


def at_share(start, end, share):
    """The point at a share of the way from start to end."""
    return (start[0] + (end[0] - start[0]) * share, start[1] + (end[1] - start[1]) * share)


def bend(first, second):
    """The angle between two pieces, opposite directions taken as one."""
    (a, b), (c, d) = first, second
    turn = (math.atan2(b[1] - a[1], b[0] - a[0]) - math.atan2(d[1] - c[1], d[0] - c[0]))
    return abs(math.remainder(turn, math.pi))
