"""Breaking lines that cross and trimming lines at a block, and the drawings that are written."""
import os
import unittest

from PipenetProcess import ROUND, PipenetTest, SmallDrawing


def crossing():
    """L1 from west to east, L2 across it at (50, 0); a well with a rim of 2 at (100, 0)."""
    small = SmallDrawing()
    for handle, start, end in (("1A1", (0.0, 0.0), (100.0, 0.0)),
                               ("1A2", (50.0, -50.0), (50.0, 50.0))):
        small.drawing.line(handle, "管", start, end, [("管道系统", "污水")])
    small.drawing.insert("1B1", "管", ROUND, (100.0, 0.0), (2.0, 2.0), 0.0, [])
    return small


class CutTest(PipenetTest):
    def cut(self, command, *arguments, small=None):
        self.drawing = self.write(small or crossing())
        self.output = self.path("out.dxf")
        return self.run_program(command, self.drawing, *arguments, "--output", self.output,
                                "--format", "json")

    def test_lines_that_cross_are_broken(self):
        run = self.cut("break", "--lines", "1A1,1A2")
        self.assert_done(run)
        answer = run.json()
        self.assertEqual(answer["changed"], [
            {"entity": "1A1", "start": {"before": [0, 0, 0], "after": [0, 0, 0]},
             "end": {"before": [100, 0, 0], "after": [50, 0, 0]}},
            {"entity": "1A2", "start": {"before": [50, -50, 0], "after": [50, -50, 0]},
             "end": {"before": [50, 50, 0], "after": [50, 0, 0]}}])
        # The second line's piece is entered first; pieces run back from the old end.
        self.assertEqual([(p["start"], p["end"]) for p in answer["new"]],
                         [([50, 50, 0], [50, 0, 0]), ([100, 0, 0], [50, 0, 0])])
        self.assertEqual(answer["erased"], [])

    def test_broken_drawing_can_be_read_again_and_its_pieces_carry_their_texts(self):
        answer = self.cut("break", "--lines", "1A1,1A2").json()
        info = self.run_program("info", self.output, "--format", "json").json()
        self.assertEqual((info["entities"], info["systems"][0]["pipes"]), (5, 4))
        again = self.run_program("break", self.output, "--lines",
                                 ",".join(["1A1", "1A2"] + [p["entity"] for p in answer["new"]]),
                                 "--in-place", "--format", "json")
        self.assert_done(again)
        self.assertEqual(again.json(), {"changed": [], "new": [], "erased": []})

    def test_line_is_trimmed_at_the_rim_of_the_block(self):
        run = self.cut("trim", "--block", "1B1", "--lines", "1A1")
        self.assert_done(run)
        self.assertEqual(run.json(), {"changed": [
            {"entity": "1A1", "start": {"before": [0, 0, 0], "after": [0, 0, 0]},
             "end": {"before": [100, 0, 0], "after": [98, 0, 0]}}], "new": [], "erased": []})
        info = self.run_program("info", self.output, "--format", "json").json()
        self.assertEqual(info["entities"], 3)

    def test_nothing_to_cut_writes_nothing(self):
        run = self.cut("trim", "--block", "1B1", "--lines", "1A2")
        self.assert_done(run)
        self.assertFalse(os.path.exists(self.output))

    def test_table_and_picture(self):
        picture = self.path("cuts.svg")
        path = self.write(crossing())
        run = self.run_program("break", path, "--lines", "1A1,1A2", "--in-place", "--svg", picture)
        self.assert_done(run)
        self.assertEqual(run.out.splitlines()[0],
                         f"2 lines cut, 2 new pieces; written to {path}")
        with open(picture, encoding="utf-8") as file:
            text = file.read()
        for part in (">Lines cut</text>", ">cut line</text>", ">new piece</text>", ">cut</text>"):
            self.assertIn(part, text)

    def test_what_is_no_line_or_no_block_is_refused(self):
        path = self.write(crossing())
        run = self.run_program("break", path, "--lines", "1A1,1B1", "--in-place")
        self.assert_failed(run, f"{path}: the entity with the handle 1B1 is no line")
        run = self.run_program("trim", path, "--block", "1A2", "--lines", "1A1", "--in-place")
        self.assert_failed(run, f"{path}: the entity with the handle 1A2 is no block reference")
        run = self.run_program("trim", path, "--block", "1B1", "--lines", "1B1", "--in-place")
        self.assert_failed(run, f"{path}: the entity with the handle 1B1 is no line, arc, circle "
                                "or polyline")

    def test_output_must_be_said(self):
        path = self.write(crossing())
        for command in (("break",), ("trim", "--block", "1B1")):
            run = self.run_program(command[0], path, *command[1:], "--lines", "1A1")
            self.assertEqual((run.status, run.out), (2, ""))
            self.assertIn("--output FILE, or --in-place", run.err)


if __name__ == "__main__":
    unittest.main()
