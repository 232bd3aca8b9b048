#!/usr/bin/env python3
"""Measures the module beside its peers and prints the figures as tables.

    compare.py BUILD [--sizes N,N,...] [--repetitions N] [--plain-sizes N,N,...] [--write FILE]

See scripts/benchmark, which builds what this needs and starts it.
"""
import argparse
import math
import os
import platform
import re
import subprocess
import sys
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from measure_programs import Programs  # noqa: E402

# What a row must keep to: at most this ratio, but for the index, which must gain this much.
LIMITS = {
    "index": 50.0,       # times that the index is faster, at 10,000 wells
    "peer": 1.0,         # search : bare join and walk
    "load": 0.25,        # search : load
    "lower": 1.5,        # lowering : search
    "ezdxf": 0.05,       # load : ezdxf
    "load memory": 3.0,  # peak : file
    "search memory": 3.0,
    "grid": 1.0,         # search in a grid : load of 100,000 pipes
    "growth": 1.1,       # exponent
}
INDEX_SIZE = 10_000
PEER_SMALLEST = 100_000  # below, what the bare graph leaves out weighs the most
EZDXF_LARGEST = 100_000
TWIN_LARGEST = 100_000
MEMORY_SMALLEST = 100_000
GROWTH_SMALLEST = 10_000
PLAIN_TOWNS = [("sewers", "gravity_search", "gravity search"),
               ("districts", "gravity_search", "search of one of five networks"),
               ("water", "pressure_search", "pressure search")]
PLAIN_SIZES = {"sewers": [1000],  # 10,000 take a quarter of an hour, and are measured if asked for
               "districts": [1000, INDEX_SIZE],
               "water": [1000, INDEX_SIZE]}
GRIDS = [("shallow", "40 rising and 40 falling lines, no well"),
         ("shallow-well", "the same with a well in a corner"),
         ("arcs", "40 by 40 places joined by arcs, no well"),
         ("arcs-well", "the same with a well in a corner")]
GRID_SIDE = 40
PLAIN_SIDES = (3, 4, 5)  # with one more the plain scan takes too long
PLAIN_GRIDS = [("shallow", "gravity_search", "{0} rising and {0} falling lines"),
               ("square", "pressure_search", "{0} streets and {0} avenues")]
MANY_PIPES = 100_000
BREAK_SIDES = (10, 20, 40)
SEWER_OPERATIONS = ("collect", "trace_chains", "gravity_search", "single_segment", "lower_heights",
                    "load", "save")
DISTRICT_OPERATIONS = ("gravity_search", "lower_heights", "load")
WATER_OPERATIONS = ("prepare_pipes", "pressure_search", "load")
EXAMPLES = [("brambleton", "gravity_search"), ("epa-user1", "gravity_search"),
            ("l-town-tree", "pressure_search"), ("l-town-whole", "pressure_search")]
BEGIN, END = "<!-- figures: begin -->", "<!-- figures: end -->"


def arguments():
    def numbers(text):
        return [int(word) for word in text.split(",") if word]
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build")
    parser.add_argument("--sizes", type=numbers, default=[1000, 10_000, 100_000, 1_000_000])
    parser.add_argument("--plain-sizes", type=numbers)
    parser.add_argument("--repetitions", type=int, default=5)
    parser.add_argument("--write", metavar="FILE")
    options = parser.parse_args()
    if not options.sizes or any(size < 100 or size % 2 for size in options.sizes):
        parser.error("sizes are even numbers, at least 100")
    if options.repetitions < 1:
        parser.error("at least one repetition")
    return options


class Comparison:
    """Gathers the figures: self.figures[town kind][size][operation]."""

    def __init__(self, options):
        self.options = options
        self.programs = Programs(options.build)
        self.figures = {"sewers": {}, "water": {}, "twin": {}, "districts": {}}
        self.plain = {}
        self.plain_drawings = {}  # by search and what the drawing is
        self.memory = {}
        self.grids = {}
        self.breaks = {}
        self.examples = {}

    def repetitions(self, size):
        """Of the largest drawings fewer: their times are long enough to be steady."""
        return min(self.options.repetitions, 3) if size >= 100_000 else self.options.repetitions

    def run(self):
        for size in self.options.sizes:
            self.measure_sewers(size)
            self.measure_districts(size)
            self.measure_water(size)
            if size <= TWIN_LARGEST:
                self.measure_twin(size)
            if size >= MEMORY_SMALLEST:
                for kind in ("sewers", "districts", "water"):
                    self.memory[kind, size] = self.programs.memory(kind, size)
        for kind, search, _ in PLAIN_TOWNS:
            for size in self.plain_sizes(kind):
                self.measure_plain(kind, search, size)
        if self.options.plain_sizes != []:
            self.measure_plain_drawings()
        self.measure_grids()
        for name, search in EXAMPLES:
            self.examples[name] = self.programs.measure(
                name, (search, "single_segment", "load", "save"), self.options.repetitions)

    def measure_sewers(self, size):
        self.programs.lay("sewers", size)
        repetitions = self.repetitions(size)
        figures = self.programs.measure(f"sewers-{size}", SEWER_OPERATIONS, repetitions)
        figures["peer"] = self.programs.peer("sewers", size, repetitions)
        if size <= EZDXF_LARGEST:
            few = 1 if size == EZDXF_LARGEST else repetitions
            figures["ezdxf"] = self.programs.ezdxf("sewers", size, few)
        self.figures["sewers"][size] = figures

    def measure_districts(self, size):
        self.programs.lay("districts", size)
        repetitions = self.repetitions(size)
        figures = self.programs.measure(f"districts-{size}", DISTRICT_OPERATIONS, repetitions)
        figures["peer"] = self.programs.peer("districts", size, repetitions)
        self.figures["districts"][size] = figures

    def measure_water(self, size):
        self.programs.lay("water", size)
        self.figures["water"][size] = self.programs.measure(
            f"water-{size}", WATER_OPERATIONS, self.repetitions(size))

    def measure_twin(self, size):
        self.programs.lay("twin", size)
        figures = self.programs.measure(f"twin-{size}", ("gravity_search",), self.repetitions(size))
        figures["peer"] = self.programs.peer("twin", size, self.repetitions(size))
        self.figures["twin"][size] = figures

    def plain_sizes(self, kind):
        wanted = self.options.plain_sizes
        return PLAIN_SIZES[kind] if wanted is None else wanted

    def measure_plain(self, kind, search, size):
        """The plain scan of ten thousand wells takes minutes: once is enough there."""
        repetitions = 1 if size >= INDEX_SIZE else self.options.repetitions
        self.programs.lay(kind, size)
        self.plain[kind, size] = self.programs.measure(
            f"{kind}-{size}", (search, search + "_plain"), repetitions)

    def measure_plain_drawings(self):
        """The published models and grids so small that the plain scan comes to an end."""
        drawings = [(name, search, name) for name, search in EXAMPLES]
        for kind, search, what in PLAIN_GRIDS:
            for side in PLAIN_SIDES:
                self.programs.lay(kind, side)
                drawings.append((f"{kind}-{side}", search, what.format(side)))
        for drawing, search, what in drawings:
            self.plain_drawings[search, what] = self.programs.measure(
                drawing, (search, search + "_plain"), min(3, self.options.repetitions))

    def measure_grids(self):
        self.programs.lay("pipes", MANY_PIPES)
        self.grids["load"] = self.programs.measure(
            f"pipes-{MANY_PIPES}", ("load",), self.repetitions(MANY_PIPES))["load"]
        for kind, _ in GRIDS:
            self.programs.lay(kind, GRID_SIDE)
            self.grids[kind] = self.programs.measure(
                f"{kind}-{GRID_SIDE}", ("gravity_search",),
                self.options.repetitions)["gravity_search"]
        for side in BREAK_SIDES:
            self.programs.lay("shallow", side)
            self.breaks[side] = self.programs.measure(
                f"shallow-{side}", ("break_lines",),
                min(3, self.options.repetitions))["break_lines"]


class Report:
    """The tables of a comparison, as lines of text."""

    def __init__(self, comparison):
        self.comparison = comparison
        self.lines = []
        self.missed = []  # what does not keep to its limit

    def text(self):
        self.machine()
        self.pairs()
        self.plain_drawings()
        self.growth()
        self.breaking()
        self.examples()
        return "\n".join(self.lines) + "\n"

    def table(self, *heads):
        self.lines += ["", "| " + " | ".join(heads) + " |", "|" + "---|" * len(heads)]

    def row(self, *cells):
        self.lines.append("| " + " | ".join(str(cell) for cell in cells) + " |")

    def machine(self):
        compiler = subprocess.run(["g++", "--version"], stdout=subprocess.PIPE, text=True,
                                  check=True).stdout.splitlines()[0]
        load = os.getloadavg()[0]
        self.lines += [
            f"Measured {time.strftime('%Y-%m-%d %H:%M', time.gmtime())} UTC on {processor()}, "
            f"{os.cpu_count()} cores, {platform.system()} {platform.release()}, {compiler}, "
            f"release preset. Load average at the end: {load:.1f}"
            + (" (the machine had other work: compare times in user mode, not wall times)."
               if load > os.cpu_count() else ".")]

    def pairs(self):
        self.lines += ["", "### Side by side"]
        self.table("What", "Size", "Measured, ms user (wall)", "Beside it, ms user (wall)", "Ratio",
                   "Limit", "Holds")
        self.index_pairs()
        self.size_pairs()
        self.memory_pairs()
        self.grid_pairs()

    def verdict(self, what, holds):
        if not holds and what not in self.missed:
            self.missed.append(what)
        return "yes" if holds else "**no**"

    def pair(self, what, size, first, second, limit=None):
        """Times in user mode decide: they are the program's own, whatever else the machine does."""
        ratio = first.user / second.user
        self.row(what, f"{size:,}", times(first), times(second), f"{ratio:.3g}",
                 *("", "") if limit is None
                 else (f"at most {limit:g}", self.verdict(what, ratio <= limit)))

    def index_row(self, what, where, search, figures, *rest):
        """The gain of the index, how many times the search is faster by it."""
        indexed, plain = figures[search], figures[search + "_plain"]
        self.row(index_name(what), where, times(indexed), times(plain),
                 f"1 / {number(gain(search, figures))}", *rest)

    def index_pairs(self):
        for kind, search, what in PLAIN_TOWNS:
            for size in self.comparison.plain_sizes(kind):
                figures = self.comparison.plain[kind, size]
                bound = size == INDEX_SIZE
                holds = gain(search, figures) >= LIMITS["index"]
                self.index_row(what, f"{size:,}", search, figures,
                               f"at most 1 / {LIMITS['index']:g}" if bound else "",
                               self.verdict(index_name(what), holds) if bound else "")

    def size_pairs(self):
        figures = self.comparison.figures
        rows = [("gravity search, beside the bare graph", "sewers", "gravity_search", "peer",
                 "peer"),
                ("two systems side by side, two searches, beside the bare graph", "twin",
                 "gravity_search", "peer", "peer"),
                ("one of five networks, beside the bare graph", "districts", "gravity_search",
                 "peer", "peer"),
                ("gravity search, beside loading", "sewers", "gravity_search", "load", "load"),
                ("one of five networks, beside loading", "districts", "gravity_search", "load",
                 "load"),
                ("pressure search, beside loading", "water", "pressure_search", "load", "load"),
                ("lowering, beside the search", "sewers", "lower_heights", "gravity_search",
                 "lower"),
                ("lowering in one of five networks, beside the search", "districts",
                 "lower_heights", "gravity_search", "lower"),
                ("loading, beside ezdxf", "sewers", "load", "ezdxf", "ezdxf")]
        for what, kind, first, second, limit in rows:
            for size, measured in figures[kind].items():
                if second in measured:
                    bound = limit != "peer" or size >= PEER_SMALLEST
                    self.pair(what, size, measured[first], measured[second],
                              LIMITS[limit] if bound else None)

    def memory_pairs(self):
        for (kind, size), (loaded, searched, file) in self.comparison.memory.items():
            for what, peak in (("load", loaded), ("search", searched)):
                limit = LIMITS[what + " memory"]
                row = f"{kind}: peak memory of the {what}, beside the file"
                self.row(row, f"{size:,}",
                         f"{peak / 1024:,.0f} MiB", f"{file / 1024:,.0f} MiB", f"{peak / file:.3g}",
                         f"at most {limit:g}", self.verdict(row, peak / file <= limit))

    def grid_pairs(self):
        for kind, what in GRIDS:
            self.pair(f"search in a grid: {what}; beside loading {MANY_PIPES:,} pipes",
                      GRID_SIDE, self.comparison.grids[kind], self.comparison.grids["load"],
                      LIMITS["grid"])

    def plain_drawings(self):
        if not self.comparison.plain_drawings:
            return
        self.lines += ["", "### Index beside the plain scan", "", "Towns stand above."]
        self.table("What", "Drawing", "Measured, ms user (wall)", "Beside it, ms user (wall)",
                   "Ratio")
        for (search, what), figures in self.comparison.plain_drawings.items():
            self.index_row(search.replace("_", " "), what, search, figures)

    def growth(self):
        sizes = self.comparison.options.sizes
        self.lines += ["", "### By size", "", "Milliseconds in user mode. Size is the number of "
                       "wells; a sewer town has three pipes to two wells."]
        self.table("Operation", *(f"{size:,}" for size in sizes), "Growth",
                   f"At most {LIMITS['growth']:g}")
        for kind, operations in (("sewers", SEWER_OPERATIONS + ("peer", "ezdxf")),
                                 ("water", WATER_OPERATIONS), ("twin", ("gravity_search",)),
                                 ("districts", ("gravity_search",))):
            for operation in operations:
                self.growth_row(kind, operation, self.comparison.figures[kind])
        self.lines += ["", missed_limits(self.missed)]

    def growth_row(self, kind, operation, figures):
        users = {size: measured[operation].user for size, measured in figures.items()
                 if operation in measured}
        power = exponent({size: user for size, user in users.items() if size >= GROWTH_SMALLEST})
        if operation == "trace_chains":
            power = None  # as many chains in every large town
        foreign = operation in ("peer", "ezdxf")
        self.row(f"{kind}: {operation.replace('_', ' ')}",
                 *(number(users[size]) if size in users else ""
                   for size in self.comparison.options.sizes),
                 "" if power is None else f"{power:.2f}",
                 "" if foreign or power is None
                 else self.verdict(f"growth of {kind}: {operation.replace('_', ' ')}",
                                   power <= LIMITS["growth"]))

    def breaking(self):
        self.lines += ["", "### Breaking lines", "", "Half of the lines cross the other half; each "
                       "is broken at every crossing."]
        self.table("Lines", "Pieces", "ms user (wall)")
        for side, figure in self.comparison.breaks.items():
            self.row(2 * side, f"{2 * side * (side + 1):,}", times(figure))

    def examples(self):
        self.lines += ["", "### Drawings from published models", "", "Milliseconds, user (wall)."]
        self.table("Drawing", "Search", "Single segment", "Load", "Save")
        for name, search in EXAMPLES:
            figures = self.comparison.examples[name]
            self.row(name, *(times(figures[operation])
                             for operation in (search, "single_segment", "load", "save")))


def processor():
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        found = re.search(r"^model name\s*: (.*)$", file.read(), re.MULTILINE)
    return found.group(1) if found else platform.machine()


def index_name(what):
    return f"{what}: index, beside the plain scan"


def gain(search, figures):
    return figures[search + "_plain"].user / figures[search].user


def number(value):
    return f"{value:,.0f}" if value >= 100 else f"{value:.3g}"


def times(figure):
    return f"{number(figure.user)} ({number(figure.wall)})"


def missed_limits(rows):
    if not rows:
        return "All limits hold."
    return "Limits that do not hold: " + "; ".join(rows) + ". The others do."


def exponent(by_size):
    """Slope of the least-squares line through the logarithms; None unless the sizes span a decade,
    since noise would make the slope."""
    points = [(math.log(size), math.log(value)) for size, value in by_size.items() if value > 0]
    if len(points) < 2 or max(by_size) < 10 * min(by_size):
        return None
    x_mean = sum(x for x, _ in points) / len(points)
    y_mean = sum(y for _, y in points) / len(points)
    return (sum((x - x_mean) * (y - y_mean) for x, y in points)
            / sum((x - x_mean) ** 2 for x, _ in points))


def write(path, figures):
    with open(path, encoding="utf-8") as file:
        text = file.read()
    head, found, rest = text.partition(BEGIN)
    _, found_end, tail = rest.partition(END)
    if not found or not found_end:
        sys.exit(f"benchmark: {path} lacks the marks between which the figures stand")
    with open(path + ".part", "w", encoding="utf-8") as file:
        file.write(f"{head}{BEGIN}\n\n{figures}\n{END}{tail}")
    os.replace(path + ".part", path)


def main():
    options = arguments()
    comparison = Comparison(options)
    comparison.run()
    figures = Report(comparison).text()
    print(figures)
    if options.write:
        write(options.write, figures)


if __name__ == "__main__":
    main()
