"""Prints what gcovr counted, folder by folder, and the lines that did not run.

usage: coverage_table.py REPORT LEAST

REPORT is gcovr's own JSON. Ends with status 1 when less than LEAST per cent of the lines ran, or none was counted.
"""

import json
import os
import sys


class Count:
    def __init__(self):
        self.lines = self.lines_run = self.branches = self.branches_run = 0

    def add(self, other):
        self.lines += other.lines
        self.lines_run += other.lines_run
        self.branches += other.branches
        self.branches_run += other.branches_run

    def row(self, name):
        return (f"{name:<20}{self.lines_run:>7} of {self.lines:>5}{share(self.lines_run, self.lines):>8}"
                f"{self.branches_run:>9} of {self.branches:>5}{share(self.branches_run, self.branches):>8}")


def share(part, whole):
    return f"{100.0 * part / whole:.1f} %" if whole else "-"


def counted_lines(file):
    return [line for line in file["lines"] if not line.get("gcovr/noncode", False)]


def count_of(file):
    count = Count()
    for line in counted_lines(file):
        count.lines += 1
        count.lines_run += line["count"] > 0
        branches = line.get("branches", [])
        count.branches += len(branches)
        count.branches_run += sum(branch["count"] > 0 for branch in branches)
    return count


def main(report, least):
    with open(report, encoding="utf-8") as file:
        files = json.load(file)["files"]
    folders, total = {}, Count()
    for file in files:
        count = count_of(file)
        folders.setdefault(os.path.dirname(file["file"]) + "/", Count()).add(count)
        total.add(count)
    print(f"{'':<20}{'lines':>15}{'':>8}{'branches':>17}")
    for name in sorted(folders):
        print(folders[name].row(name))
    print(total.row("all"))
    for file in files:
        missed = [str(line["line_number"]) for line in counted_lines(file) if line["count"] == 0]
        if missed:
            print(f"not run: {file['file']}: {', '.join(missed)}")
    if total.lines == 0 or 100.0 * total.lines_run < least * total.lines:
        print(f"coverage: fewer than {least:g} % of the lines ran", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], float(sys.argv[2])))
