"""What is said when the module says no."""
import unittest

from PipenetProcess import PipenetTest, SmallDrawing, TANK, chain


class RefusalTest(PipenetTest):
    def refused(self, small, words, *arguments, out='{"result":0,"kind":null}\n'):
        run = self.run_program("search", self.write(small), "--format", "json", *arguments)
        self.assertEqual((run.status, run.out), (1, out))
        self.assertRegex(run.err, r"^pipenet: [^\n]*check[^\n]*\n$")
        self.assertIn(words, run.err)

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
                           ("99", "the end carries no system name"),
                           ("A5", "the network (3 wells and tanks) does not reach the end")):
            self.refused(small, words, "--start", "A1", "--end", end)

    def test_end_within_the_root(self):
        small = chain()
        small.well("A6", (-0.8, 0.0))
        self.refused(small, "the end overlaps the root", "--start", "A1", "--end", "A6")

    def test_loop(self):
        small = chain()
        # Straight from A3 back to A1, its ends half a metre from the centres: 25 m, so 0.4 and 0.3.
        small.pipe("B3", (19.6, 14.7), (0.4, 0.3))
        self.refused(small, "close a loop", "--start", "A1")

    def test_well_alone(self):
        self.refused(chain(), "no pipe of the system '污水' leads from it", "--start", "A5")

    def test_pipe_without_ends(self):
        small = chain()
        small.pipe("B9", (0.0, 90.0), (9.0, 90.0))
        self.refused(small, "neither end of the pipe leads to a well or tank", "--start", "B9")

    def test_pipe_too_short_to_take_part(self):
        small = chain()
        small.pipe("B9", (0.5, 0.0), (0.5, 1.0))
        self.refused(small, "the pipe measures 1 in drawing units", "--start", "B9")

    def test_tank_that_is_not_collected(self):
        small = chain()
        small.drawing.insert("C1", "管", TANK, (60.0, 0.0), (6.0, 3.0), 0.0,
                             [("池体系统", "污水")])
        self.refused(small, "a tank carries 池体 beside 池体系统", "--start", "C1")

    def test_table_says_so_too(self):
        run = self.run_program("search", self.write(chain()), "--start", "A5")
        self.assertEqual((run.status, run.out), (1, "No network (result 0)\n"))


if __name__ == "__main__":
    unittest.main()
