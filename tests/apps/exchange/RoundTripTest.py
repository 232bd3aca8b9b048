"""A model that is imported, searched and exported again is the model."""
import os
import shutil
import unittest

from ExchangeTest import MODELS, ExchangeTest, Trip
from model_truth import Truth, without_links


class RoundTripTest(ExchangeTest):
    def assert_comes_back(self, source, notes=""):
        trip = Trip(source, self.folder)
        self.assertEqual((trip.imported.returncode, trip.imported.stderr), (0, notes))
        (nodes, links), = trip.truth.parts()
        target = self.path("back.inp")
        run = trip.export(nodes, links, target)
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(trip.differences(nodes, links, target), [])
        return Truth(target)

    def test_a_storm_drain_in_feet_comes_back_whole(self):
        back = self.assert_comes_back(os.path.join(MODELS, "brambleton.inp"))
        self.assertEqual((len(back.nodes), len(back.links)), (375, 374))
        self.assertEqual(back.nodes["Stb"]["kind"], "storage")
        self.assertEqual(back.nodes["F15531"]["kind"], "outfall")

    def test_a_conduit_with_a_vertex_comes_back_with_it(self):
        source = Truth(os.path.join(MODELS, "brambleton.inp"))
        back = self.assert_comes_back(os.path.join(MODELS, "brambleton.inp"))
        self.assertEqual(list(back.vertices), list(source.vertices))
        for name, points in source.vertices.items():
            for wanted, found in zip(points, back.vertices[name]):
                self.assertAlmostEqual(wanted[0], found[0], 5)
                self.assertAlmostEqual(wanted[1], found[1], 5)

    def test_a_storm_drain_in_metres_comes_back_whole(self):
        back = self.assert_comes_back(os.path.join(MODELS, "epa-user1.inp"))
        self.assertEqual((len(back.nodes), len(back.links)), (60, 59))

    def test_water_mains_without_loops_come_back_whole(self):
        source = os.path.join(MODELS, "ltown.inp")
        truth = Truth(source)
        tree = self.path("tree.inp")
        without_links(source, tree, set(truth.links) - truth.spanning_links())
        back = self.assert_comes_back(tree)
        self.assertEqual((len(back.nodes), len(back.links)), (785, 784))
        kinds = [node["kind"] for node in back.nodes.values()]
        self.assertEqual((kinds.count("reservoir"), kinds.count("tank")), (2, 1))

    def test_valves_come_back_as_valves(self):
        source = os.path.join(MODELS, "ltown.inp")
        truth = Truth(source)
        valves = [name for name, link in truth.links.items() if link["device"] == "valve"]
        self.assertEqual(len(valves), 3)
        tree = self.path("tree.inp")
        without_links(source, tree, set(truth.links) - truth.spanning_links(valves))
        back = self.assert_comes_back(tree)
        self.assertEqual({name for name, link in back.links.items() if link["device"] == "valve"},
                         set(valves))

    def test_water_mains_with_loops_are_imported_but_no_search_takes_them(self):
        trip = Trip(os.path.join(MODELS, "ltown.inp"), self.folder)
        self.assertEqual((trip.imported.returncode, trip.imported.stderr), (0, ""))
        (nodes, links), = trip.truth.parts()
        run = trip.export(nodes, links, self.path("back.inp"))
        self.assertEqual(run.returncode, 1)
        self.assertIn("closes on itself", run.stderr)
        self.assertFalse(os.path.exists(self.path("back.inp")))

    def test_a_model_comes_back_at_another_drawing_scale(self):
        """A drawing unit of half a metre: everything is drawn twice as large."""
        source = os.path.join(MODELS, "epa-user1.inp")
        target, back = self.path("half.dxf"), self.path("back.inp")
        run = self.run_program("--draw-scale", "500", "import", source, "--output", target)
        self.assert_done(run)
        truth = Truth(source)
        x, y = truth.nodes["Cierre"]["point"]
        run = self.run_program("--draw-scale", "500", "export", target, "--pick",
                               f"{2.0 * x!r},{2.0 * y!r}", "--to", "swmm", "--output", back)
        self.assert_done(run)
        trip = Trip(source, self.folder)
        (nodes, links), = truth.parts()
        self.assertEqual(trip.differences(nodes, links, back), [])

    def test_the_comparison_sees_what_is_changed(self):
        """Nodes, lengths, diameters, heights, ends: each is missed when it is not the same."""
        source = os.path.join(MODELS, "epa-user1.inp")
        trip = Trip(source, self.folder)
        (nodes, links), = trip.truth.parts()
        target = self.path("back.inp")
        self.assertEqual(trip.export(nodes, links, target).returncode, 0)
        with open(target, encoding="utf-8") as file:
            whole = file.read()
        self.assertEqual(trip.differences(nodes, links, target), [])
        changes = {"\n2 05y33 05y32 135 ": "\n2 05y33 05y32 135.1 ",
                   "\n2 CIRCULAR 1.9 ": "\n2 CIRCULAR 1.8 ",
                   "\n01y40 14.89 ": "\n01y40 14.88 ",
                   "\n2 05y33 05y32 ": "\n2 05y32 05y33 "}
        for old, new in changes.items():
            self.assertEqual(whole.count(old), 1, old)
            changed = shutil.copy(target, self.path("changed.inp"))
            with open(changed, "w", encoding="utf-8") as file:
                file.write(whole.replace(old, new))
            self.assertNotEqual(trip.differences(nodes, links, changed), [], new)


if __name__ == "__main__":
    unittest.main()
