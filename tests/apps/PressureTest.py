"""Pressure networks: the tree of runs, one run, and networks that close on themselves."""
import json
import os
import re
import unittest

from PipenetProcess import EXAMPLES, PipenetTest, SmallDrawing

# One pipe of nine units, drawn from west to east, water with it.
LONE_RUN = (
    '{"pipes":["B1"],"orientationFlags":[1],"startPoint":[0,0,0],"endPoint":[9,0,0],'
    '"beginPoint":[0,0,0],"searchPoint":[9,0,0],"parent":-1,"children":[],"reversed":0,'
    '"valves":[],"meters":[],"startElevation":7.5,"endElevation":7.25,"slope":0.01,'
    '"diameter":300,"flowText":"SE","material":"PE","systemName":"给水","isArc":0,"length":9,'
    '"annotatePoint":[4.5,0,0],"annotateVector":[1,0,0]}')


def lone_pipe():
    small = SmallDrawing()
    small.pipe("B1", (0.0, 0.0), (9.0, 0.0), system="给水", low="7.5", high="7.25")
    return small


class PressureTest(PipenetTest):
    def test_run_of_one_pipe(self):
        run = self.run_program("search", self.write(lone_pipe()), "--start", "B1", "--format",
                               "json")
        self.assert_done(run)
        self.assertEqual(run.out, '{"result":1,"kind":"pressure","rootSeg":0,"segs":['
                         + LONE_RUN + ']}\n')

    def test_segment_of_one_pipe(self):
        run = self.run_program("segment", self.write(lone_pipe()), "--pipe", "B1", "--format",
                               "json")
        self.assert_done(run)
        self.assertEqual(run.out,
                         '{"result":1,"kind":0,"gravity":null,"pressure":' + LONE_RUN + '}\n')

    def test_table(self):
        run = self.run_program("search", self.write(lone_pipe()), "--start", "B1")
        self.assert_done(run)
        lines = run.out.splitlines()
        self.assertEqual(lines[0],
                         "Pressure network 给水: 1 run, 0 valves, 0 meters, 9.00 m of pipe")
        self.assertEqual(lines[-1].split(), ["0", "0.00,", "0.00", "9.00,", "0.00", "9.00",
                                             "DN300", "7.500", "7.250", "PE", "B1"])

    def late_merge(self, behind_the_fork=True):
        """A run of two, B1 and B2, with two children: B3, which B4 and B5 beside it come to
        continue, so that they are taken in late, and B6, which forks into B7 and B8. Behind B7
        there is B9: what the fork's entries lead to is there then, though it is not what it was."""
        small = SmallDrawing()
        lines = [((0, -40), (0, -20)), ((0, -20), (0, 0)), ((0, 0), (100, 0)),
                 ((100, 0), (110, 1)), ((110, -1), (120, 0)), ((0, 0), (-50, 10)),
                 ((-50, 10), (-60, 40)), ((-50, 10), (-60, -30))]
        lines += [((-60, 40), (-90, 50))] if behind_the_fork else []
        for number, (start, end) in enumerate(lines, 1):
            small.pipe(f"B{number}", start, end, system="给水")
        return self.write(small)

    def test_runs_that_a_late_merge_has_moved_hang_where_they_begin(self):
        start = ["--start", "B1", "--point", "0,-40", "--break-dist", "0.5", "--dwg-scale", "1"]
        table = self.run_program("search", self.late_merge(), *start)
        self.assert_done(table)
        runs = [(line[:len(line) - len(line.lstrip())], line.split("PE")[1].split())
                for line in table.out.splitlines()[-6:]]
        self.assertEqual(runs, [("", ["B1", "B2"]), ("  ", ["B3", "B4", "B5"]), ("  ", ["B6"]),
                                ("    ", ["B7"]), ("      ", ["B9"]), ("    ", ["B8"])])
        model = self.path("late.inp")
        run = self.run_program("export", self.late_merge(), *start, "--to", "epanet",
                               "--output", model)
        self.assertEqual(run.status, 0)
        with open(model, encoding="utf-8") as file:
            text = file.read()
        ends = {pipe: (first, last) for pipe, first, last in
                re.findall(r"^(B\d) (\S+) (\S+) .* Open$", text, re.M)}
        self.assertEqual(ends["B7"][0], ends["B6"][1])
        self.assertEqual(ends["B8"][0], ends["B6"][1])
        self.assertEqual(ends["B6"][0], ends["B3"][0])

    def test_branch_that_a_late_merge_has_taken_away(self):
        """The walk cannot go on, which is no reason for a check to end."""
        drawing = self.late_merge(behind_the_fork=False)
        settings = ["--break-dist", "0.5", "--dwg-scale", "1", "--format", "json"]
        run = self.run_program("search", drawing, "--start", "B1", "--point", "0,-40", *settings)
        self.assertEqual((run.status, run.out), (1, '{"result":0,"kind":null}\n'))
        self.assertRegex(run.err, r"^pipenet: no network from pipe B1: the search loses its way "
                                  r"[^\n]*; check [^\n]* \[while walk\]\n$")
        check = self.run_program("check", drawing, *settings)
        self.assertIn(check.status, (0, 1))
        # The run of B1 and B2, that of B3, B4 and B5, and B6, B7 and B8.
        self.assertEqual(sum(network["segs"] for network in check.json()["networks"]), 5)

    def compare_with_truth(self, name):
        with open(os.path.join(EXAMPLES, name + ".truth.json"), encoding="utf-8") as file:
            truth = json.load(file)["pressure"]
        self.assertGreater(len(truth), 0)
        for search in truth:
            pick = search["pick"]
            run = self.run_program("search", os.path.join(EXAMPLES, name + ".dxf"), "--start",
                                   pick["pipe"], "--point", ",".join(map(str, pick["point"])),
                                   "--format", "json")
            self.assertEqual(run.json()["result"], search["result"])
            if search["result"] == 1:
                self.assert_runs(run.json()["segs"], search["runs"])

    def assert_runs(self, segs, runs):
        self.assertEqual(len(segs), len(runs))
        for seg, expected in zip(segs, runs):
            self.assertEqual(seg["pipes"], expected["pipes"])
            self.assertEqual(seg["orientationFlags"], expected["flags"])
            self.assertEqual(seg["parent"],
                             -1 if expected["parent"] is None else expected["parent"])
            self.assertEqual([v["entity"] for v in seg["valves"]], expected["valves"])
            self.assertEqual([m["entity"] for m in seg["meters"]], expected["meters"])
            self.assertEqual(seg["diameter"], expected["diameter"])

    def test_town(self):
        self.compare_with_truth("town")

    def test_published_model_as_a_tree(self):
        self.compare_with_truth("l-town-tree")

    def test_published_model_as_a_whole_is_refused(self):
        self.compare_with_truth("l-town-whole")

    def test_network_that_closes_on_itself(self):
        small = SmallDrawing()
        for handle, start, end in (("B1", (0.0, 0.0), (10.0, 0.0)),
                                   ("B2", (10.0, 0.0), (10.0, 10.0)),
                                   ("B3", (10.0, 10.0), (20.0, 10.0)),
                                   ("B4", (20.0, 10.0), (20.0, 0.0)),
                                   ("B5", (20.0, 0.0), (10.0, 0.0))):
            small.pipe(handle, start, end, system="给水")
        run = self.run_program("search", self.write(small), "--start", "B1", "--format", "json")
        self.assertEqual((run.status, run.out), (1, '{"result":0,"kind":null}\n'))
        # The ring without the pipe that leads to it, from either side; it is closed at one of its corners.
        found = re.fullmatch(r"pipenet: no network from pipe B1: the network closes on itself: "
                             r"(.*) lead back to the joint at "
                             r"(.*), and the search refuses it as a whole; [^\n]* "
                             r"\[cycle, while loop test\]\n", run.err)
        self.assertIsNotNone(found, run.err)
        self.assertEqual(sorted(found[1].split(", ")), ["pipe B2", "pipe B3", "pipe B4", "pipe B5"])
        self.assertIn(found[2], ("10, 0", "10, 10", "20, 10", "20, 0"))

    def test_run_that_is_turned_round(self):
        # Picked at its far end, the first pipe is walked against its drawing and runs straight on.
        small = SmallDrawing()
        small.pipe("B1", (10.0, 0.0), (0.0, 0.0), system="给水")
        small.pipe("B2", (20.0, 0.0), (20.0, 10.0), system="给水")
        small.pipe("B3", (20.0, 0.0), (10.0, 0.0), system="给水")
        small.pipe("B4", (10.0, 0.0), (10.0, 10.0), system="给水")
        small.pipe("B5", (20.0, 10.0), (30.0, 10.0), system="给水")
        small.pipe("B6", (30.0, 20.0), (30.0, 10.0), system="给水")
        small.pipe("B7", (30.0, 30.0), (30.0, 20.0), system="给水")
        run = self.run_program("search", self.write(small), "--start", "B1", "--format", "json")
        self.assertEqual((run.status, run.out), (1, '{"result":0,"kind":null}\n'))
        self.assertRegex(run.err, r"^pipenet: no network from pipe B1: pipe B6 is drawn against the way in "
                         r"which a search from "
                         r"pipe B1 comes to it, and goes straight on in pipe B7: [^\n]* "
                         r"\[turned-run, while loop test\]\n$")

    def test_search_from_a_well(self):
        small = lone_pipe()
        small.well("A1", (0.0, 0.0), system="给水")
        run = self.run_program("search", self.write(small), "--start", "A1", "--format", "json")
        self.assertEqual((run.status, run.out), (1, '{"result":0,"kind":null}\n'))
        self.assertRegex(run.err, r"^pipenet: [^\n]*'给水' is a pressure system[^\n]*check[^\n]*\n$")


if __name__ == "__main__":
    unittest.main()
