"""Exported water mains run in a real hydraulic engine."""
import json
import os
import subprocess
import unittest

from ExchangeTest import MODELS, ExchangeTest, Trip, example
from model_truth import Truth, without_links


class EngineTest(ExchangeTest):
    def solve(self, model, *demand):
        script = os.path.join(os.path.dirname(os.path.abspath(__file__)), "RunEngine.mjs")
        done = subprocess.run([os.environ["NODE"], script, os.environ["ENGINE"], model, *demand],
                              capture_output=True, check=False, encoding="utf-8", timeout=240,
                              cwd=self.folder)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return json.loads(done.stdout)

    def town(self):
        run, target = self.export(example("town.dxf"), "epanet", "--start", "601", "--point",
                                  "6,54")
        self.assertEqual(run.status, 0, run.err)
        return target

    def test_without_demands_the_water_stands_level(self):
        """124.6 m at every node, so each of them hangs together with the picked end."""
        found = self.solve(self.town())
        self.assertEqual((len(found["nodes"]), len(found["links"])), (18, 17))
        for name, node in found["nodes"].items():
            self.assertAlmostEqual(node["head"], 124.6, 3, name)

    def test_with_demands_each_pipe_carries_what_is_drawn_behind_it(self):
        """1 l/s at each of the 17 junctions: 17 through the first pipe of 8 m and on. The head lost
        there by Hazen and Williams, in SI units with C 120 and 0.2 m."""
        found = self.solve(self.town(), "1")
        behind = {name: 1 for name, node in found["nodes"].items() if node["type"] == "Junction"}
        self.assertEqual(len(behind), 17)
        onward = {}
        for name, link in found["links"].items():
            ends = (link["from"], link["to"]) if link["flow"] > 0 else (link["to"], link["from"])
            onward.setdefault(ends[0], []).append((name, ends[1]))

        def drawn(node):
            return behind.get(node, 0) + sum(drawn(far) for _, far in onward.get(node, []))

        for links in onward.values():
            for name, far in links:
                self.assertAlmostEqual(abs(found["links"][name]["flow"]), drawn(far), 3, name)
        first = found["links"]["601"]
        self.assertAlmostEqual(first["flow"], 17.0, 3)
        lost = 10.667 * 0.017 ** 1.852 * 8.0 / (120.0 ** 1.852 * 0.2 ** 4.871)
        self.assertAlmostEqual(first["headloss"], lost, 4)

    def test_a_town_that_was_imported_runs_and_keeps_its_water(self):
        """785 nodes and 784 links, the lengths and diameters of the model, and at each junction as
        much water in as out."""
        source = os.path.join(MODELS, "ltown.inp")
        truth = Truth(source)
        tree, target = self.path("tree.inp"), self.path("back.inp")
        without_links(source, tree, set(truth.links) - truth.spanning_links())
        trip = Trip(tree, self.folder)
        (nodes, links), = trip.truth.parts()
        self.assertEqual(trip.export(nodes, links, target).returncode, 0)
        found = self.solve(target, "0.01")
        self.assertEqual((set(found["nodes"]), set(found["links"])), (set(nodes), set(links)))
        balance = dict.fromkeys(nodes, 0.0)
        for name, link in found["links"].items():
            balance[link["from"]] -= link["flow"]
            balance[link["to"]] += link["flow"]
            wanted = trip.truth.links[name]
            self.assertEqual((link["from"], link["to"]), wanted["ends"])
            if wanted["device"] == "pipe":
                self.assertAlmostEqual(link["length"], wanted["length"], 6)
                self.assertAlmostEqual(link["diameter"], wanted["diameter"], delta=0.51)
        for name, water in balance.items():
            if found["nodes"][name]["type"] == "Junction":
                self.assertAlmostEqual(water, 0.01, 4, name)


if __name__ == "__main__":
    unittest.main()
