"""Faults planted in drawings of real networks: each is found and named, and nothing else is."""
import collections
import json
import os
import sys
import unittest

from PipenetProcess import EXAMPLES, PipenetTest

import own_findings
import plant_faults
from drawing_edit import DrawingEdit

# Drawing, family of faults, seed, how many of each fault at most.
TRIALS = (("brambleton", "gravity", 1, 2), ("brambleton", "gravity", 2, 2),
          ("brambleton", "gravity", 3, 2), ("brambleton", "loops", 4, 2),
          ("brambleton", "tank", 5, 1), ("epa-user1", "gravity", 6, 1),
          ("epa-user1", "gravity", 7, 1), ("epa-user1", "loops", 8, 1),
          ("l-town-tree", "pressure", 9, 3), ("l-town-tree", "pressure", 10, 3),
          ("l-town-tree", "loops", 11, 2), ("l-town-tree", "turned", 12, 3),
          ("brambleton", "doubled", 13, 3), ("l-town-tree", "doubled", 14, 3))


def truth_of(name):
    with open(os.path.join(EXAMPLES, name + ".truth.json"), encoding="utf-8") as file:
        return json.load(file)


def drawing_of(name):
    return os.path.join(EXAMPLES, name + ".dxf")


def same(finding):
    """What makes a finding the same one in two reports."""
    return finding["code"], frozenset(finding["handles"])


class PlantedFaultsTest(PipenetTest):
    def report(self, path):
        run = self.run_program("check", path, "--format", "json")
        self.assertIn(run.status, (0, 1), run.err)
        return run.json()

    def findings(self, path):
        return self.report(path)["findings"]

    def test_what_is_amiss_with_the_examples_follows_from_their_models(self):
        for name in ("town", "brambleton", "epa-user1", "l-town-tree"):
            with self.subTest(name):
                told = collections.Counter()
                for finding in self.findings(drawing_of(name)):
                    handles = finding["handles"]
                    if finding["code"] == "diameter-shrinks":
                        handles = handles[2:]  # behind the two pipes the well
                    elif finding["code"] == "dead-end":
                        handles = handles[:1]  # behind the pipe what it misses
                    told[finding["code"], frozenset(handles)] += 1
                expected = collections.Counter(
                    own_findings.own_findings(drawing_of(name), truth_of(name)))
                self.assertGreater(sum(expected.values()), 0)
                self.assertEqual(told, expected)

    def test_each_planted_fault_is_told_and_what_was_left_whole_is_not(self):
        for trial in TRIALS:
            with self.subTest(trial):
                planted, after = self.try_out(*trial)
                missed = [(f.kind, f.codes, f.named) for f in planted
                          if not any(f.is_told_by(each) for each in after)]
                self.assertEqual(missed, [])

    def try_out(self, name, family, seed, rounds):
        """Plants faults, and holds what a check says of the rest against what it said before."""
        path = self.path("spoilt.dxf")
        drawing = DrawingEdit(drawing_of(name))
        planted = plant_faults.plant(drawing, truth_of(name), seed, family, rounds)
        drawing.write(path)
        self.assertTrue(planted)
        before, report = self.report(drawing_of(name)), self.report(path)
        after = report["findings"]
        touched = {handle for fault in planted for handle in fault.touched}
        roots = {network["root"] for network in before["networks"]}

        rings = {handle for finding in after if finding["code"] == "cycle"
                 and touched & set(finding["handles"]) for handle in finding["handles"]}

        def is_walked_otherwise(finding):
            """Runs are walked from where their network begins: what a fault has parted from its network
            begins elsewhere, and a ring that one has closed is walked from either side."""
            return finding["code"] == "turned-run" and (
                report["networks"][finding["network"]]["root"] not in roots
                or set(finding["handles"]) <= rings)

        whole = [{same(f) for f in before["findings"] if not touched & set(f["handles"])},
                 {same(f) for f in after
                  if not touched & set(f["handles"]) and not is_walked_otherwise(f)}]
        self.assertEqual(whole[1] - whole[0], set(), "told of what was left whole")
        self.assertEqual(whole[0] - whole[1], set(), "no longer told")
        return planted, after


def table():
    """The trial as a table in Markdown: for each kind of fault how many were planted and told."""
    counts = {}
    test = PlantedFaultsTest("test_each_planted_fault_is_told_and_what_was_left_whole_is_not")
    test.setUp()
    for name, family, seed, rounds in TRIALS:
        planted, after = test.try_out(name, family, seed, rounds)
        for fault in planted:
            row = counts.setdefault((fault.kind, " or ".join(fault.codes)), [0, 0])
            row[0] += 1
            row[1] += any(fault.is_told_by(each) for each in after)
    test.doCleanups()
    print("| Fault | Told as | Planted | Told |\n|---|---|---|---|")
    for (kind, code), (planted, told) in sorted(counts.items(), key=lambda item: item[0][::-1]):
        print(f"| {kind} | `{code}` | {planted} | {told} |")
    print(f"| all | | {sum(c[0] for c in counts.values())} | {sum(c[1] for c in counts.values())} |")


if __name__ == "__main__":
    if sys.argv[1:] == ["--table"]:
        table()
    else:
        unittest.main()
