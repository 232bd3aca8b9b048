"""Checks the borders between the parts of the project, and marks of unfinished work.

usage: check_layers.py [ROOT]

Prints each offending line as FILE:LINE: text (rule) and ends with status 1 when there is one.
"""

import os
import re
import sys

SOURCE = (".h", ".cpp")
INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]')
BUILDINGS = ("host", "siblings", "module", "apps", "tests", "benchmarks")
ROOMS_OF_HOST = ("platform", "geometry", "database", "editor", "application", "dxf")
UPPER_BUILDINGS = {
    "host": ("siblings", "module", "apps", "tests"),
    "siblings": ("module", "apps", "tests"),
    "module": ("apps", "tests"),
    "apps": ("tests",),
}
# The tail of the pattern keeps "well" and "pressure" out: they are plain English too.
PIPE_WORDS = re.compile(r"管|污水|给水|雨水|池体|\bpipes?\b|\bpipenet\b|\bsewers?\b|\bgravity\b|\bmanholes?\b",
                        re.IGNORECASE)
UNFINISHED = re.compile(r"\b(TODO|FIXME|XXX|HACK)\b|\bGTEST_SKIP\b|\bDISABLED_\w")
HOST_ONLY = re.compile(r"\b(host|siblings|host_\w+)::")


def files_of(root, building):
    for folder, folders, names in os.walk(os.path.join(root, building)):
        folders.sort()
        for name in sorted(names):
            if name.endswith(SOURCE):
                yield os.path.relpath(os.path.join(folder, name), root)


def files_below(root, building):
    """Names under which the headers of a building can be included."""
    headers = set()
    for path in files_of(root, building):
        if path.endswith(".h"):
            headers.add(os.path.relpath(path, building))
            headers.add(os.path.basename(path))
    return headers


class Checker:
    def __init__(self, root):
        self.root = root
        self.faults = []
        self.headers = {name: files_below(root, name) for name in BUILDINGS}

    def fault(self, path, number, line, rule):
        self.faults.append(f"{path}:{number}: {line.strip()} ({rule})")

    def check_include(self, path, number, line, bracket, name):
        building = path.split(os.sep)[0]
        parts = name.replace("../", "").split("/")
        for upper in UPPER_BUILDINGS.get(building, ()):
            foreign = name in self.headers[upper] and name not in self.headers[building]
            if parts[0] == upper or foreign:
                self.fault(path, number, line, f"{building}/ includes something of {upper}/")
        if building == "module":
            self.check_module_include(path, number, line, bracket, name, parts)

    def check_module_include(self, path, number, line, bracket, name, parts):
        if path == os.path.join("module", "platform.h"):
            return
        if bracket == "<":
            if not re.fullmatch(r"[a-z_]+", name):
                self.fault(path, number, line, "module/ uses the C++ standard library alone")
        elif name not in self.headers["module"] or parts[0] in ROOMS_OF_HOST:
            self.fault(path, number, line, "module/ reaches the platform by platform.h alone")

    def check_line(self, path, number, line):
        building = path.split(os.sep)[0]
        include = INCLUDE.match(line)
        if include:
            self.check_include(path, number, line, *include.groups())
        if building == "host" and PIPE_WORDS.search(line):
            self.fault(path, number, line, "host/ knows nothing of pipes")
        if building == "module" and path != os.path.join("module", "platform.h"):
            if HOST_ONLY.search(line):
                self.fault(path, number, line, "module/ names something that only the embedded host has")
        if UNFINISHED.search(line):
            self.fault(path, number, line, "unfinished work or a test that does not run")

    def check_file(self, path):
        with open(os.path.join(self.root, path), encoding="utf-8") as file:
            lines = file.read().splitlines()
        if path.endswith(".h") and "#pragma once" not in lines:
            self.fault(path, 1, lines[0] if lines else "", "a header without #pragma once")
        for number, line in enumerate(lines, 1):
            self.check_line(path, number, line)


def main():
    here = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    checker = Checker(sys.argv[1] if len(sys.argv) > 1 else here)
    count = 0
    for building in BUILDINGS:
        for path in files_of(checker.root, building):
            checker.check_file(path)
            count += 1
    if count == 0:
        sys.exit("check_layers: no source file found")
    print("\n".join(checker.faults + [f"{count} files"]))
    sys.exit(1 if checker.faults else 0)


if __name__ == "__main__":
    main()
