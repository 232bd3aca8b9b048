"""What is said when the module says no."""
import unittest

from PipenetProcess import PipenetTest, SmallDrawing, TANK, chain


class RefusalTest(PipenetTest):
    def refused(self, small, words, *arguments, out='{"result":0,"kind":null}\n'):
        run = self.run_program("search", self.write(small), "--format", "json", *arguments)
        self.assertEqual((run.status, run.out), (1, out))
        self.assertRegex(run.err, r"^pipenet: [^\n]*\n$")
        self.assertIn(words, run.err)
        return run.err

    def stopped(self, small, code, step, words, *arguments):
        """A finding of the drawing stopped the search, and its own sentence says so."""
        said = self.refused(small, words, *arguments)
        self.assertRegex(said, r"^pipenet: no (network from|path from [^:]* to) [^:]*: ")
        self.assertEqual("path" in said[:len("pipenet: no path")], "--end" in arguments, said)
        self.assertTrue(said.endswith(f" [{code}, while {step}]\n"), said)

    def without_finding(self, small, step, words, *arguments):
        said = self.refused(small, words, *arguments)
        self.assertRegex(said, r"check[^\n]* \[while " + step + r"\]\n$")

    def test_unknown_system_counts_as_success_without_a_network(self):
        small = SmallDrawing()
        small.well("A1", (0.0, 0.0), system="燃气")
        self.refused(small, "the settings do not say whether its system '燃气'", "--start", "A1",
                     out='{"result":1,"kind":null}\n')

    def test_entity_outside_any_network(self):
        small = chain()
        small.drawing.line("99", "0", (0.0, 0.0), (5.0, 5.0))
        self.refused(small, "no network from entity 99: it carries no system name", "--start",
                     "99")

    def test_nothing_to_pick(self):
        small = SmallDrawing()
        small.drawing.line("99", "0", (0.0, 0.0), (5.0, 5.0))
        self.refused(small, "no pipe, well or tank to pick", "--pick", "1,1")

    def test_ends(self):
        small = chain()
        small.drawing.line("99", "0", (0.0, 0.0), (5.0, 5.0))
        for end, words in (("A1", "start and end are the same entity"),
                           ("A4", "the start belongs to system '污水' and the end to '雨水'"),
                           ("99", "the end carries no system name")):
            self.without_finding(small, "validation", words, "--start", "A1", "--end", end)

    def test_end_within_the_root(self):
        small = chain()
        small.well("A6", (-0.8, 0.0))
        self.without_finding(small, "end path", "the end overlaps the root", "--start", "A1", "--end",
                             "A6")

    def test_end_that_is_not_reached(self):
        small = chain()
        small.well("A7", (80.0, 15.0))
        small.pipe("B7", (80.0, 0.5), (80.0, 14.5))
        self.without_finding(small, "end path",
                             "the network (3 wells and tanks) does not reach the end", "--start", "A1",
                             "--end", "A7")

    def test_end_that_no_pipe_comes_to(self):
        self.stopped(chain(), "well-without-pipe", "end path", "no pipe of the system ends at well A5",
                     "--start", "A1", "--end", "A5")

    def test_loop(self):
        small = chain()
        # Straight from A3 back to A1, its ends half a metre from the centres: 25 m, so 0.4 and 0.3.
        small.pipe("B3", (19.6, 14.7), (0.4, 0.3))
        self.stopped(small, "cycle", "walk", "the network closes on itself: well ", "--start", "A1")

    def test_well_alone(self):
        self.stopped(chain(), "well-without-pipe", "end path", "no pipe of the system ends at well A5",
                     "--start", "A5")

    def test_gap_at_the_start(self):
        small = SmallDrawing()
        small.well("A1", (0.0, 0.0))
        small.well("A2", (40.0, 0.0))
        small.pipe("B1", (0.5, 0.0), (20.0, 0.0))
        small.pipe("B2", (20.75, 0.0), (39.5, 0.0))
        self.stopped(small, "gap-at-joint", "end path", "are in line and 0.75 m apart", "--start", "B1")

    def test_fault_at_a_pipe_that_hangs_together_with_the_start(self):
        small = SmallDrawing()
        small.well("A1", (0.0, 0.0), system="雨水")
        small.pipe("B1", (-30.0, 0.0), (-20.0, 0.0))
        small.pipe("B2", (-20.0, 0.0), (-10.0, 0.0))
        small.pipe("B3", (-10.0, 0.0), (-0.25, 0.0))
        self.stopped(small, "end-in-foreign-well", "root", "pipe B3 ends in well A1", "--start", "B2")

    def test_pipe_without_ends(self):
        small = chain()
        small.pipe("B9", (0.0, 90.0), (9.0, 90.0))
        self.stopped(small, "dead-end", "root", "pipe B9 ends where nothing is", "--start", "B9")

    def test_pipe_too_short_to_take_part(self):
        small = chain()
        small.pipe("B9", (0.5, 0.0), (0.5, 1.0))
        self.stopped(small, "pipe-too-short", "root", "pipe B9 is 1 m long", "--start", "B9")

    def test_tank_that_is_not_collected(self):
        small = chain()
        small.drawing.insert("C1", "管", TANK, (60.0, 0.0), (6.0, 3.0), 0.0,
                             [("池体系统", "污水")])
        self.stopped(small, "missing-key", "root", "entity C1 carries 池体系统 but not 池体", "--start", "C1")

    def test_text_that_is_missing_and_stops_nothing_is_not_blamed(self):
        """Three pipes that hang together and lead to no well, as they are without their other texts."""
        small = SmallDrawing()
        for handle, x in (("B1", 0.0), ("B2", 10.0), ("B3", 20.0)):
            small.drawing.line(handle, "管", (x, 0.0), (x + 10.0, 0.0), [("管道系统", "污水")])
        self.stopped(small, "dead-end", "root", "ends where nothing is", "--start", "B1")

    def test_end_that_is_the_root(self):
        small = chain()
        self.without_finding(small, "end path",
                             "no path from pipe B1 to well A1: the end is the root itself", "--start",
                             "B1", "--point", "0,0", "--end", "A1")

    def test_table_says_so_too(self):
        run = self.run_program("search", self.write(chain()), "--start", "A5")
        self.assertEqual((run.status, run.out), (1, "No network (result 0)\n"))


if __name__ == "__main__":
    unittest.main()
