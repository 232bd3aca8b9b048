"""The way from a well or pipe to the root of a gravity network."""
import json
import os
import unittest

from PipenetProcess import EXAMPLES, PipenetTest, SmallDrawing, chain


class PathTest(PipenetTest):
    def path_to(self, target, start="A1"):
        run = self.run_program("path", self.write(chain()), "--start", start, "--target", target,
                               "--format", "json")
        self.assert_done(run)
        return run.json()

    def refused(self, target, start="A1", small=None):
        run = self.run_program("path", self.write(small or chain()), "--start", start, "--target",
                               target, "--format", "json")
        self.assertEqual((run.status, run.out), (1, '{"result":0,"kind":null}\n'))
        self.assertRegex(run.err, r"^pipenet: no [^\n]*\n$")
        self.assertRegex(run.err, r"check|\[[a-z-]+, while [a-z ]+\]")
        return run.err

    def test_way_of_a_well_begins_at_it_and_ends_at_the_root(self):
        answer = self.path_to("A3")
        self.assertEqual([w["entity"] for w in answer["wells"]], ["A1", "A2", "A3"])
        self.assertEqual((answer["result"], answer["kind"]), (1, "gravity"))
        self.assertEqual((answer["pathWells"], answer["pathSegs"]), ([2, 1, 0], [1, 0]))

    def test_way_of_a_pipe_begins_at_the_far_end_of_its_segment(self):
        self.assertEqual(self.path_to("B2")["pathWells"], [2, 1, 0])
        self.assertEqual(self.path_to("B1")["pathWells"], [1, 0])

    def test_root_has_no_way_to_itself(self):
        self.assertIn("the target is the root itself", self.refused("A1"))

    def test_target_of_another_system_or_of_none(self):
        self.assertIn("'污水' and the target to '雨水'", self.refused("A4"))
        small = chain()
        small.tank("C1", (70.0, 70.0), (4.0, 4.0))
        self.assertIn("carries no system name as a well or a pipe", self.refused("C1", small=small))

    def test_target_that_the_network_does_not_hold(self):
        self.assertIn("the network (3 wells and tanks) does not hold", self.refused("A5"))

    def test_well_with_the_text_of_a_pipe_too_is_looked_for_among_the_wells(self):
        small = chain()
        small.drawing.line("B7", "管", (20.0, -0.5), (20.0, -20.0),
                           [("管道系统", "污水"), ("管井系统", "污水")])
        small.well("A7", (20.0, -20.5))
        self.assertIn("(4 wells and tanks) does not hold", self.refused("B7", small=small))

    def test_target_that_is_one_node_with_the_root(self):
        small = chain()
        small.well("A6", (-0.8, 0.0))
        self.assertIn("overlaps the root", self.refused("A6", small=small))

    def test_ways_do_not_lead_to_a_tank(self):
        small = SmallDrawing()
        small.tank("C1", (0.0, 0.0), (4.0, 4.0))
        small.well("A2", (20.0, 0.0))
        small.pipe("B1", (2.0, 0.0), (19.5, 0.0))
        self.assertIn("the root tank C1 is no well", self.refused("A2", start="C1", small=small))

    def test_network_that_cannot_be_found(self):
        self.assertIn("no pipe of the system ends at well A5", self.refused("A1", start="A5"))

    def test_pressure_network_has_no_ways(self):
        small = chain()
        small.pipe("D1", (0.0, 50.0), (9.0, 50.0), system="给水")
        self.assertIn("'给水'", self.refused("A1", start="D1", small=small))

    def test_options_are_required(self):
        for arguments in (("--start", "A1"), ("--target", "A1")):
            run = self.run_program("path", self.write(chain()), *arguments)
            self.assertEqual((run.status, run.out), (2, ""))

    def test_town_agrees_with_its_truth(self):
        """The way is that of the drawn tree, which has only one."""
        with open(os.path.join(EXAMPLES, "town.truth.json"), encoding="utf-8") as file:
            truth = json.load(file)
        nodes = [n for n in truth["nodes"] if n["system"] == "污水"]
        name_of = {handle: n["name"] for n in nodes for handle in n["handles"]}
        neighbours = {}
        for edge in truth["edges"]:
            if edge["system"] == "污水":
                ends = (edge["upstream"], edge["downstream"])
                for a, b in (ends, ends[::-1]):
                    neighbours.setdefault(a, []).append(b)
        # The root is a tank, whose ways go by the text of wells; so start at a well.
        wells = [n for n in nodes if n["kind"] == "well"]
        root, target = wells[0], wells[-1]
        way = [target["name"]]
        came = {root["name"]: None}
        open_nodes = [root["name"]]
        while open_nodes:
            node = open_nodes.pop()
            for other in neighbours[node]:
                if other not in came:
                    came[other] = node
                    open_nodes.append(other)
        while came[way[-1]] is not None:
            way.append(came[way[-1]])
        run = self.run_program("path", os.path.join(EXAMPLES, "town.dxf"), "--start",
                               root["handles"][0], "--target", target["handles"][0], "--format",
                               "json")
        self.assert_done(run)
        answer = run.json()
        self.assertEqual([name_of[answer["wells"][i]["entity"]] for i in answer["pathWells"]], way)

    def test_picture_marks_the_way(self):
        picture = self.path("way.svg")
        run = self.run_program("path", self.write(chain()), "--start", "A1", "--target", "A3",
                               "--svg", picture)
        self.assert_done(run)
        with open(picture, encoding="utf-8") as file:
            self.assertIn("C end", file.read())


if __name__ == "__main__":
    unittest.main()
