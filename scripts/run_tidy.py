"""Runs clang-tidy over a compilation database and remembers what was clean.

usage: run_tidy.py BUILD_DIR CACHE_DIR

A file counts as clean as long as its compile command, its own text, the text of every header of the
project that it reaches, the configuration and clang-tidy's version stay what they were.
"""

import concurrent.futures
import contextlib
import glob
import hashlib
import json
import os
import re
import shlex
import shutil
import subprocess
import sys
import tempfile

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
INCLUDE = re.compile(rb'^\s*#\s*include\s*["<]([^">]+)[">]', re.MULTILINE)
PARALLEL = 2
TOGETHER = 24


class Sources:
    """Reads each file of the project once: its hash and the names that it includes."""

    def __init__(self):
        self.known = {}

    def look(self, path):
        if path not in self.known:
            with open(path, "rb") as file:
                data = file.read()
            names = [name.decode("utf-8", "replace") for name in INCLUDE.findall(data)]
            self.known[path] = (hashlib.sha256(data).hexdigest(), names)
        return self.known[path]

    def reached(self, start, folders):
        """The files of the project that `start` includes, directly or not, itself among them."""
        found, open_list = {start}, [start]
        while open_list:
            path = open_list.pop()
            for name in self.look(path)[1]:
                for folder in [os.path.dirname(path), *folders]:
                    candidate = os.path.realpath(os.path.join(folder, name))
                    if candidate.startswith(ROOT + os.sep) and os.path.isfile(candidate):
                        if candidate not in found:
                            found.add(candidate)
                            open_list.append(candidate)
                        break
        return found


def include_folders(arguments, directory):
    folders, position = [], 0
    while position < len(arguments):
        argument = arguments[position]
        if argument in ("-I", "-isystem", "-iquote") and position + 1 < len(arguments):
            position += 1
            folders.append(os.path.join(directory, arguments[position]))
        elif argument.startswith("-I"):
            folders.append(os.path.join(directory, argument[2:]))
        position += 1
    return folders


def key_of(entry, sources, common):
    arguments = arguments_of(entry)
    path = os.path.realpath(os.path.join(entry["directory"], entry["file"]))
    digest = hashlib.sha256(common)
    digest.update("\0".join(arguments).encode())
    for reached in sorted(sources.reached(path, include_folders(arguments, entry["directory"]))):
        digest.update(f"{reached}\0{sources.look(reached)[0]}\n".encode())
    return path, digest.hexdigest()


def arguments_of(entry):
    return entry.get("arguments") or shlex.split(entry["command"])


def compiler_of(entry):
    return arguments_of(entry)[0]


def options_of(entry):
    """What the compiler is told about the file, apart from the file and the object's name."""
    arguments = arguments_of(entry)[1:]
    options, position = [], 0
    while position < len(arguments):
        if arguments[position] == "-o":
            position += 1
        elif arguments[position] not in ("-c", entry["file"]):
            options.append(arguments[position])
        position += 1
    return tuple(options)


class Wanted:
    """Files to look at that share a folder and the compiler's options, with the keys of their present state."""

    def __init__(self, compiler, directory, folder, options):
        self.compiler, self.directory, self.folder, self.options = compiler, directory, folder, options
        self.keys = {}

    def arguments(self):
        return [*self.options, "-iquote", self.folder]


def wanted_files(build):
    """Every file that ships, by the compilation database, in groups that can be looked at together.

    Tests are left out: the macros of the test library expand into what the checks are against.
    """
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        entries = json.load(file)
    common = subprocess.run(["clang-tidy", "--version"], check=True, capture_output=True).stdout
    settings = [os.path.join(ROOT, ".clang-tidy"), *sorted(glob.glob(os.path.join(ROOT, "*", ".clang-tidy")))]
    for name in [*settings, os.path.abspath(__file__)]:
        with open(name, "rb") as file:
            common += file.read()
    sources = Sources()
    left_out = (os.path.realpath(build) + os.sep, os.path.join(ROOT, "tests") + os.sep)
    groups, known = {}, set()
    for entry in entries:
        path, key = key_of(entry, sources, common)
        if path in known or path.startswith(left_out):
            continue
        known.add(path)
        place = (compiler_of(entry), entry["directory"], os.path.dirname(path), options_of(entry))
        groups.setdefault(place, Wanted(*place)).keys[path] = key
    return [groups[place] for place in sorted(groups)]


class Joined:
    """Sources written one behind the other, so that what they include is read and matched once for all of them.

    They stand in one main file and not behind includes: some checks look at nothing else.
    """

    def __init__(self, paths):
        self.starts, lines, included = [], [], set()
        for path in paths:
            with open(path, encoding="utf-8") as file:
                own = file.read().split("\n")
            self.starts.append((len(lines), path))
            # An include of an earlier file goes: it would be reported as a duplicate.
            names = [line for line in own if INCLUDE.match(line.encode())]
            lines += ["" if line in included else line for line in own]
            included.update(names)
        self.text = "\n".join(lines)

    def place(self, line):
        """Where a line of the joined text stands in the sources: path and line, both as an editor counts."""
        start, path = max(entry for entry in self.starts if entry[0] < line)
        return path, line - start


class Tidy:
    """clang-tidy over joined sources; `scratch` takes the joined text."""

    def __init__(self, scratch, groups):
        self.scratch = scratch
        for wanted in groups:
            self.lay_out(os.path.relpath(wanted.folder, ROOT))

    def lay_out(self, folder):
        """Makes the folder in the scratch, with the settings for clang-tidy of it and of those above."""
        os.makedirs(os.path.join(self.scratch, folder), exist_ok=True)
        while True:
            settings = os.path.join(ROOT, folder, ".clang-tidy")
            if os.path.exists(settings):
                shutil.copy(settings, os.path.join(self.scratch, folder))
            if not folder:
                break
            folder = os.path.dirname(folder)

    def look(self, wanted, paths):
        """Yields (paths, clean, report) for the paths, in as few parts as can be compiled together."""
        while paths:
            apart = self.hindered(wanted, paths)
            together = [path for path in paths if path not in apart]
            yield together, *self.run(wanted, together)
            paths = [path for path in paths if path in apart]

    def hindered(self, wanted, paths):
        """Those that cannot be compiled behind the others, as they have a local name in common with one."""
        apart = set()
        while len(paths) - len(apart) > 1:
            joined = Joined([path for path in paths if path not in apart])
            with self.written(wanted, joined) as name:
                result = subprocess.run([wanted.compiler, "-fsyntax-only", name, *wanted.arguments()],
                                        cwd=wanted.directory, capture_output=True, text=True, errors="replace")
            if result.returncode == 0:
                break
            places = re.findall(re.escape(name) + r":(\d+):\d+: (?:fatal )?error:", result.stderr)
            found = {joined.place(int(line))[0] for line in places} - {joined.starts[0][1]}
            # An error that stands nowhere, or in the first file alone, is not for want of room: one file at a time.
            apart |= found or {path for _, path in joined.starts[1:]}
        return apart

    def run(self, wanted, paths):
        joined = Joined(paths)
        with self.written(wanted, joined) as name:
            result = subprocess.run(
                ["clang-tidy", "--quiet", name, "--", *wanted.arguments()],
                cwd=wanted.directory, capture_output=True, text=True, errors="replace")
        return result.returncode == 0, located(result.stdout, name, joined) + result.stderr

    @contextlib.contextmanager
    def written(self, wanted, joined):
        """The name of a file with the joined text, as long as it is needed; below the settings of its folder."""
        place = os.path.join(self.scratch, os.path.relpath(wanted.folder, ROOT))
        with tempfile.TemporaryDirectory(dir=place) as folder:
            name = os.path.join(folder, os.path.basename(joined.starts[0][1]))
            with open(name, "w", encoding="utf-8") as file:
                file.write(joined.text)
            yield name


def located(report, name, joined):
    """The report with the places of the sources instead of those of the joined text."""
    def place(match):
        path, line = joined.place(int(match.group(1)))
        return f"{os.path.relpath(path, ROOT)}:{line}:"
    return re.sub(re.escape(name) + r":(\d+):", place, report)


def batches(groups, cache):
    for wanted in groups:
        todo = [path for path, key in sorted(wanted.keys.items())
                if not os.path.exists(os.path.join(cache, key))]
        for start in range(0, len(todo), TOGETHER):
            yield wanted, todo[start:start + TOGETHER]


def main():
    build, cache = sys.argv[1:3]
    os.makedirs(cache, exist_ok=True)
    groups = wanted_files(build)
    if not groups:
        sys.exit("run_tidy: the compilation database names no file of the project")
    todo = list(batches(groups, cache))
    print(f"{sum(len(wanted.keys) for wanted in groups)} files, {sum(len(paths) for _, paths in todo)} to look at",
          flush=True)
    clean = True
    with tempfile.TemporaryDirectory() as scratch, \
            concurrent.futures.ThreadPoolExecutor(PARALLEL) as pool:
        tidy = Tidy(scratch, groups)
        results = pool.map(lambda batch: (batch[0], list(tidy.look(*batch))), todo)
        for wanted, parts in results:
            for paths, good, report in parts:
                for path in paths if good else ():
                    open(os.path.join(cache, wanted.keys[path]), "w", encoding="utf-8").close()
                if not good:
                    clean = False
                    names = ", ".join(os.path.relpath(path, ROOT) for path in paths)
                    print(f"{names}:\n{report}", flush=True)
    for name in set(os.listdir(cache)) - {key for wanted in groups for key in wanted.keys.values()}:
        os.remove(os.path.join(cache, name))
    sys.exit(0 if clean else 1)


if __name__ == "__main__":
    main()
