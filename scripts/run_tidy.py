"""Runs clang-tidy over a compilation database and remembers what was clean.

usage: run_tidy.py BUILD_DIR CACHE_DIR

A file counts as clean as long as its compile command, its own text, the text of every header of the
project that it reaches, the configuration and clang-tidy's version stay what they were.
"""

import concurrent.futures
import hashlib
import json
import os
import re
import shlex
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
INCLUDE = re.compile(rb'^\s*#\s*include\s*["<]([^">]+)[">]', re.MULTILINE)
PARALLEL = 2


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
    arguments = entry.get("arguments") or shlex.split(entry["command"])
    path = os.path.realpath(os.path.join(entry["directory"], entry["file"]))
    digest = hashlib.sha256(common)
    digest.update("\0".join(arguments).encode())
    for reached in sorted(sources.reached(path, include_folders(arguments, entry["directory"]))):
        digest.update(f"{reached}\0{sources.look(reached)[0]}\n".encode())
    return path, digest.hexdigest()


def wanted_files(build):
    """Every file that ships, by the compilation database, with the key of its present state.

    Tests are left out: the macros of the test library expand into what the checks are against.
    """
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        entries = json.load(file)
    common = subprocess.run(["clang-tidy", "--version"], check=True, capture_output=True).stdout
    with open(os.path.join(ROOT, ".clang-tidy"), "rb") as file:
        common += file.read()
    sources = Sources()
    build_prefix = os.path.realpath(build) + os.sep
    keyed = (key_of(entry, sources, common) for entry in entries)
    left_out = (build_prefix, os.path.join(ROOT, "tests") + os.sep)
    return {path: key for path, key in keyed if not path.startswith(left_out)}


def tidy(build, path):
    result = subprocess.run(["clang-tidy", "--quiet", "-p", build, path], capture_output=True,
                            text=True, errors="replace")
    return result.returncode == 0, result.stdout, result.stderr


def main():
    build, cache = sys.argv[1:3]
    os.makedirs(cache, exist_ok=True)
    wanted = wanted_files(build)
    if not wanted:
        sys.exit("run_tidy: the compilation database names no file of the project")
    todo = [path for path, key in sorted(wanted.items())
            if not os.path.exists(os.path.join(cache, key))]
    print(f"{len(wanted)} files, {len(todo)} to look at", flush=True)
    clean = True
    with concurrent.futures.ThreadPoolExecutor(PARALLEL) as pool:
        results = pool.map(lambda path: (path, tidy(build, path)), todo)
        for path, (good, output, errors) in results:
            if good:
                open(os.path.join(cache, wanted[path]), "w", encoding="utf-8").close()
            else:
                clean = False
                print(f"{os.path.relpath(path, ROOT)}:\n{output}{errors}", flush=True)
    for name in set(os.listdir(cache)) - set(wanted.values()):
        os.remove(os.path.join(cache, name))
    sys.exit(0 if clean else 1)


if __name__ == "__main__":
    main()
