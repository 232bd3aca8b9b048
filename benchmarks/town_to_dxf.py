#!/usr/bin/env python3
"""Turns a town given as tables into a drawing that pipenet can search.

    town_to_dxf.py PREFIX [OUTPUT.dxf]        prints the handle of the root well

The tables: PREFIX.csv (id,x1,y1,x2,y2: the pipes), PREFIX.wells.csv (id,x,y), and
PREFIX.truth.lines.csv (id,pipe,well_from,well_to: the way of the water) beside PREFIX.meta.json
("root"; "twin" above 0 when the second half of the wells is a system of its own).

Each line becomes a pipe with all its texts and each well a block of one metre, in one drawing unit
a metre; a pipe may stop half a metre short of the centre of its well. Pipes come first, as they
stand in the table. Handles count up from 1000 (hexadecimal): the pipes, then the wells.
"""
import csv
import json
import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "examples"))
from dxf_writer import Drawing  # noqa: E402

SYSTEMS = ("污水", "雨水")
WELL = "VLT_WELL_01"
FIRST_HANDLE = 0x1000


def rows(path):
    with open(path, encoding="utf-8") as file:
        reader = csv.reader(file)
        next(reader)
        yield from reader


def town_drawing(prefix):
    """The drawing and the handle of its root well."""
    with open(prefix + ".meta.json", encoding="utf-8") as file:
        meta = json.load(file)
    wells = [(float(x), float(y)) for _, x, y in rows(prefix + ".wells.csv")]
    one_system = len(wells) // 2 if meta.get("twin") else len(wells)
    drawing = Drawing()
    for system in SYSTEMS:
        drawing.layer(system + "管", 30)
        drawing.layer(system + "井", 30)
    drawing.block(WELL, [("circle", 0, 0, 0.5)])
    handle = FIRST_HANDLE
    tables = zip(rows(prefix + ".csv"), rows(prefix + ".truth.lines.csv"))
    for (_, x1, y1, x2, y2), (_, _, upstream, downstream) in tables:
        start, end = (float(x1), float(y1)), (float(x2), float(y2))
        system = SYSTEMS[int(upstream) >= one_system]
        drawing.line(f"{handle:X}", system + "管", start, end,
                     pipe_texts(system, start, end, wells[int(upstream)]))
        handle += 1
    first_well = handle
    for number, point in enumerate(wells):
        system = SYSTEMS[number >= one_system]
        drawing.insert(f"{handle:X}", system + "井", WELL, point, xdata=[
            ("管井系统", system), ("管井编号", f"W{number}"), ("井的直径", "1")])
        handle += 1
    return drawing, f"{first_well + meta['root']:X}"


def pipe_texts(system, start, end, source):
    """The water runs from the well at `source`, falling by three in a thousand."""
    def away(point):
        return abs(point[0] - source[0]) + abs(point[1] - source[1])
    heights = [100.0 - 0.003 * away(point) for point in (start, end)]
    return [("管道系统", system), ("管径", "300"), ("管材", "HDPE"), ("坡度", "0.003"),
            ("起点标高", f"{heights[0]:.3f}"), ("终点标高", f"{heights[1]:.3f}"),
            ("水流方向", "SE" if away(start) < away(end) else "ES")]


def main(arguments):
    if len(arguments) not in (1, 2):
        sys.exit(__doc__)
    drawing, root = town_drawing(arguments[0])
    drawing.write(arguments[1] if len(arguments) == 2 else arguments[0] + ".dxf")
    print(root)


if __name__ == "__main__":
    main(sys.argv[1:])
