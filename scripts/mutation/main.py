"""Changes the module in small ways and sees whether the tests notice; scripts/mutate --help tells how."""

import argparse
import collections
import glob
import hashlib
import os
import pickle
import random
import sys

from judge import Results, judge_all
from places import find_places
from report import print_report
from suite import Test, listed, trace_all
from tree import HERE, Tree

ROOT = os.path.dirname(os.path.dirname(HERE))
# Looks at the sources, which are not themselves in the copy.
NOT_OF_BEHAVIOUR = {"module_boundary_test"}


def arguments_of(words):
    parser = argparse.ArgumentParser(prog="scripts/mutate", add_help=False)
    parser.add_argument("--sample", type=int, default=300)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--list", action="store_true")
    parser.add_argument("--programs", default="")
    parser.add_argument("--apps", action="store_true")
    parser.add_argument("--afresh", action="store_true")
    parser.add_argument("mutants", nargs="*", metavar="MUTANT")
    return parser.parse_args(words)


def hash_of(root, paths):
    digest = hashlib.sha256()
    for path in sorted(paths):
        digest.update(path.encode() + b"\0")
        with open(os.path.join(root, path), "rb") as file:
            digest.update(file.read())
    return digest.hexdigest()


def known_places(tree):
    """All places, read anew only when the module or the rules have changed."""
    rules = os.path.relpath(os.path.join(HERE, "places.py"), tree.root)
    state = hash_of(tree.root, [*tree.product_files(), rules])
    kept = os.path.join(tree.home, "places.pickle")
    if os.path.exists(kept):
        with open(kept, "rb") as file:
            of_state, places = pickle.load(file)
        if of_state == state:
            return places
    print("mutate: reading the module", file=sys.stderr)
    places = find_places(tree.root, tree.product_files(), tree.units(), tree.jobs)
    with open(kept, "wb") as file:
        pickle.dump((state, places), file)
    return places


def drawn(places, size, seed):
    chosen = random.Random(seed).sample(range(len(places)), min(size, len(places)))
    return [places[number] for number in sorted(chosen)]


def print_list(places):
    for place in places:
        print(f"{place.name}  {place.kind}  {place.line_text}")
    counts = collections.Counter(place.kind for place in places)
    print(f"{len(places)} places: " + ", ".join(f"{kind} {count}" for kind, count in sorted(counts.items())))


def module_programs(tree):
    """The programs of tests/module by their names, which are those of their targets."""
    names = set()
    for path in glob.glob(os.path.join(tree.root, "tests", "module", "*", "CMakeLists.txt")):
        with open(path, encoding="utf-8") as file:
            names.update(line.split("(")[1].split()[0] for line in file if line.startswith("tkvlt_add_test("))
    return sorted(names - NOT_OF_BEHAVIOUR)


def programs_of(tree, names, apps):
    programs = []
    for name in names:
        path = os.path.join(tree.build, "bin", name)
        programs.append([Test(path, test, [path]) for test in listed(path)])
    replay = os.path.join(tree.build, "bin", "fuzz_network")
    corpus = os.path.join(tree.source, "tests", "fuzz", "corpus", "network")
    if os.path.exists(replay):
        programs.append([Test(replay, None, [replay, corpus])])
    if apps:
        variables = {"PIPENET": os.path.join(tree.build, "bin", "pipenet"), "TKVLT_SANITIZE": "OFF",
                     "TKVLT_EXAMPLES": os.path.join(tree.source, "examples")}
        for path in sorted(glob.glob(os.path.join(tree.source, "tests", "apps", "*Test.py"))):
            programs.append([Test(path, None, [sys.executable, "-B", path], variables)])
    return programs


def wanted_numbers(places, named, results):
    """Named mutants run in any case; else those that no test has killed yet."""
    if named:
        return [number for number, place in enumerate(places) if place.name in named]
    done = ("killed", "timeout")
    return [number for number, place in enumerate(places)
            if (results.of(place) or {"status": None})["status"] not in done]


def main(words):
    options = arguments_of(words)
    tree = Tree(ROOT, options.jobs)
    every = known_places(tree)
    sample = drawn(every, options.sample, options.seed)
    named = set(options.mutants)
    unknown = named - {place.name for place in every}
    if unknown:
        sys.exit(f"mutate: no such mutant: {' '.join(sorted(unknown))}; scripts/mutate --list names them")
    if not named <= {place.name for place in sample}:
        sample = [place for place in every if place.name in named]
    if options.list:
        print_list(every)
        return
    results = Results(os.path.join(tree.home, "results.json"), hash_of(tree.root, tree.product_files()),
                      options.afresh)
    wanted = wanted_numbers(sample, named, results)
    if wanted:
        names = options.programs.split(",") if options.programs else module_programs(tree)
        tree.copy(sample)
        tree.compile([*names, "fuzz_network", *(["pipenet"] if options.apps else [])])
        programs = programs_of(tree, names, options.apps)
        trace_all(programs, len(sample), options.jobs)
        judge_all(sample, wanted, [test for tests in programs for test in tests], results, options.jobs)
    print_report(sample, results)


if __name__ == "__main__":
    main(sys.argv[1:])
