"""Lowering a pipe and what follows it, and the drawing that is written."""
import os
import shutil
import unittest

from PipenetProcess import EXAMPLES, PipenetTest, SmallDrawing

LOWERED = "#CC3377"


def falling():
    """Three wells from west to east. B1 is drawn against the water, B2 along it. Tops stand 0.3
    above the heights."""
    small = SmallDrawing()
    for handle, x in (("A1", 0.0), ("A2", 20.0), ("A3", 40.0)):
        small.well(handle, (x, 0.0), handle)
    small.pipe("B1", (19.5, 0.0), (0.5, 0.0), flow="ES", low="9.5", high="10.0")
    small.pipe("B2", (20.5, 0.0), (39.5, 0.0), flow="SE", low="9.8", high="9.6")
    small.pipe("D1", (0.0, 50.0), (9.0, 50.0), system="给水", low="7", high="7")
    return small


def lone_well():
    """One well; the water comes from the open end, so the search from the well finds nothing."""
    small = SmallDrawing()
    small.well("A1", (0.0, 0.0), "A1")
    small.pipe("B1", (0.5, 0.0), (19.5, 0.0), flow="ES", low="9.5", high="10")
    return small


def change(entity, start, end):
    return {"entity": entity, "startElevation": {"before": start[0], "after": start[1]},
            "endElevation": {"before": end[0], "after": end[1]}}


def changed_texts(before, after):
    """(entity, application, new text) of each line that differs between two text drawings of equal
    length."""
    with open(before, "rb") as file:
        old = file.read().split(b"\n")
    with open(after, "rb") as file:
        new = file.read().split(b"\n")
    assert len(old) == len(new), (len(old), len(new))
    found, handle, application = [], None, None
    for i in range(0, len(old) - 1, 2):
        code, value = old[i].strip(), old[i + 1].strip()
        assert code == new[i].strip(), i
        if code == b"5":
            handle = value.decode()
        elif code == b"1001":
            application = value.decode()
        if old[i + 1] != new[i + 1]:
            assert code == b"1000", (i, code)
            found.append((handle, application, new[i + 1].strip().decode()))
    return found


class LowerTest(PipenetTest):
    def lower(self, small, pipe, drop, *arguments):
        self.drawing = self.write(small)
        self.output = self.path("out.dxf")
        return self.run_program("lower", self.drawing, "--pipe", pipe, "--drop", drop, "--format",
                                "json", *(arguments or ("--output", self.output)))

    def read(self, path):
        with open(path, "rb") as file:
            return file.read()

    def test_pipe_and_what_follows_sink(self):
        # B1 sinks by 0.25: its top at A2 becomes 9.25 + 0.3 = 9.55. The lower top of B2, 9.9, lies
        # 0.35 above and sinks to it: heights 9.25 and 9.45, the lower one under the start's name.
        run = self.lower(falling(), "B1", "0.25")
        self.assert_done(run)
        self.assertEqual(run.json(), {"result": 1, "changed": [
            change("B1", ("9.5", "9.25"), ("10.0", "9.75")),
            change("B2", ("9.8", "9.25"), ("9.6", "9.45"))]})

    def test_only_the_texts_listed_differ_in_the_output(self):
        self.assert_done(self.lower(falling(), "B1", "0.25"))
        self.assertEqual(changed_texts(self.drawing, self.output), [
            ("B1", "起点标高", "9.25"), ("B1", "终点标高", "9.75"),
            ("B2", "起点标高", "9.25"), ("B2", "终点标高", "9.45")])

    def test_input_is_never_written_without_in_place(self):
        self.drawing = self.write(falling())
        before = self.read(self.drawing)
        self.assert_done(self.lower(falling(), "B1", "0.25"))
        self.assertEqual(self.read(self.drawing), before)

    def test_in_place(self):
        run = self.lower(falling(), "B1", "0.25", "--in-place")
        self.assert_done(run)
        info = self.run_program("segment", self.drawing, "--pipe", "B1", "--format", "json").json()
        self.assertEqual(sorted((info["gravity"]["startElevation"],
                                 info["gravity"]["endElevation"])), [9.25, 9.75])
        self.assertEqual(os.listdir(self.folder), ["small.dxf"])

    def test_table(self):
        self.lower(falling(), "B1", "0.25")
        run = self.run_program("lower", self.drawing, "--pipe", "B1", "--drop", "0.25", "--output",
                               self.output)
        self.assert_done(run)
        lines = run.out.splitlines()
        self.assertEqual(lines[0], "Heights of 2 pipes changed (result 1), in metres; written to "
                         + self.output)
        self.assertEqual(lines[-1].split(), ["B2", "9.8", "9.25", "9.6", "9.45"])

    def test_drop_of_nothing_shortens_texts_all_the_same(self):
        run = self.lower(falling(), "B1", "0")
        self.assert_done(run)
        self.assertEqual(run.json()["changed"][0], change("B1", ("9.5", "9.5"), ("10.0", "10")))

    def test_missing_heights_are_empty_before(self):
        small = SmallDrawing()
        small.well("A1", (0.0, 0.0))
        small.well("A2", (20.0, 0.0))
        small.drawing.line("B1", "管", (0.5, 0.0), (19.5, 0.0), [("管道系统", "污水")])
        run = self.lower(small, "B1", "1")
        self.assert_done(run)
        self.assertEqual(run.json()["changed"], [change("B1", ("", "-1"), ("", "-1"))])

    def test_pipe_left_lowered_is_written_and_said(self):
        run = self.lower(lone_well(), "B1", "1")
        self.assertEqual(run.status, 1)
        self.assertEqual(run.json(), {"result": 0, "changed": [
            change("B1", ("9.5", "8.5"), ("10", "9"))]})
        self.assertRegex(run.err, rf"^pipenet: lowered pipe B1 alone[^\n]*{self.output}[^\n]*\n$")
        self.assertEqual(len(changed_texts(self.drawing, self.output)), 2)

    def test_pressure_pipe_is_refused_and_nothing_written(self):
        run = self.lower(falling(), "D1", "1")
        self.assertEqual((run.status, run.out), (1, '{"result":0,"changed":[]}\n'))
        self.assertRegex(run.err, r"^pipenet: nothing to lower at [^\n]*'给水'[^\n]*check[^\n]*\n$")
        self.assertFalse(os.path.exists(self.output))

    def test_output_must_be_said(self):
        run = self.run_program("lower", self.write(falling()), "--pipe", "B1", "--drop", "1")
        self.assertEqual((run.status, run.out), (2, ""))
        self.assertIn("--output FILE, or --in-place", run.err)
        run = self.run_program("lower", self.path("small.dxf"), "--pipe", "B1", "--drop", "1",
                               "--in-place", "--output", self.path("o.dxf"))
        self.assertEqual((run.status, run.out), (2, ""))
        self.assertIn("exclude each other", run.err)

    def test_output_that_is_the_input_is_refused(self):
        path = self.write(falling())
        before = self.read(path)
        os.symlink(path, self.path("link.dxf"))
        os.link(path, self.path("hard.dxf"))
        for name in ("small.dxf", "link.dxf", "hard.dxf", "./small.dxf"):
            run = self.run_program("lower", path, "--pipe", "B1", "--drop", "1", "--output",
                                   self.path(name))
            self.assert_failed(run, f"{self.path(name)}: not written: it is the drawing itself; "
                                    "give another file, or --in-place")
        self.assertEqual(self.read(path), before)

    def test_output_that_is_no_plain_file_is_refused(self):
        path = self.write(falling())
        os.mkdir(self.path("folder.dxf"))
        os.mkfifo(self.path("pipe.dxf"))
        for name in ("folder.dxf", "pipe.dxf"):
            run = self.run_program("lower", path, "--pipe", "B1", "--drop", "1", "--output",
                                   self.path(name))
            self.assert_failed(run, f"{self.path(name)}: not written: it is there and is no plain "
                                    "file")

    def test_output_in_a_folder_that_is_not_there(self):
        path = self.write(falling())
        output = self.path("nowhere/out.dxf")
        run = self.run_program("lower", path, "--pipe", "B1", "--drop", "1", "--output", output)
        self.assertEqual((run.status, run.out), (2, ""))
        self.assertRegex(run.err, rf"^pipenet: [^\n]*{output}[^\n]*\n$")

    def test_picture_never_overwrites_a_drawing(self):
        path = self.write(falling())
        before = self.read(path)
        output = self.path("o.dxf")
        for arguments in (("--output", output, "--svg", path), ("--output", output, "--svg", output),
                          ("--in-place", "--svg", path)):
            run = self.run_program("lower", path, "--pipe", "B1", "--drop", "1", *arguments)
            self.assert_failed(run, f"{arguments[-1]}: not written: the picture would overwrite a "
                                    "drawing; give --svg another file")
        run = self.run_program("search", path, "--start", "A1", "--svg", path)
        self.assertEqual(run.status, 2)
        self.assertEqual(self.read(path), before)
        self.assertFalse(os.path.exists(output))

    def test_picture_that_cannot_be_drawn_leaves_the_drawing_as_it_was(self):
        path = self.write(falling())
        before = self.read(path)
        run = self.run_program("lower", path, "--pipe", "B1", "--drop", "1", "--in-place", "--svg",
                               self.path("nowhere/x.svg"))
        self.assertEqual((run.status, run.out), (2, ""))
        self.assertEqual(self.read(path), before)

    def test_side_without_a_well_is_named(self):
        small = SmallDrawing()
        small.well("A1", (0.0, 0.0), "A1")
        # Drawn from the open end to the well.
        small.pipe("B1", (19.5, 0.0), (0.5, 0.0), low="9.5", high="10")
        run = self.lower(small, "B1", "1")
        self.assertEqual((run.status, run.out), (1, '{"result":0,"changed":[]}\n'))
        self.assertRegex(run.err, r"^pipenet: nothing lowered at pipe B1: the side[^\n]*check[^\n]*\n$")

    def test_negative_drop_raises(self):
        run = self.lower(falling(), "B2", "-0.5")
        self.assert_done(run)
        self.assertEqual(run.json()["changed"][0], change("B2", ("9.8", "10.3"), ("9.6", "10.1")))

    def test_picture_shows_the_lowered_pipes_in_their_own_colour(self):
        picture = self.path("lowered.svg")
        run = self.lower(falling(), "B1", "0.25", "--output", self.path("o.dxf"), "--svg", picture)
        self.assert_done(run)
        with open(picture, encoding="utf-8") as file:
            text = file.read()
        # Two pipes and the legend.
        self.assertEqual(text.count(f'stroke="{LOWERED}"'), 3)
        self.assertIn(">lowered</text>", text)

    def test_published_sewer_differs_in_the_listed_texts_only(self):
        source = os.path.join(EXAMPLES, "brambleton.dxf")
        self.drawing = self.path("brambleton.dxf")
        shutil.copy(source, self.drawing)
        output = self.path("out.dxf")
        pipe = self.a_pipe(source)
        run = self.run_program("lower", self.drawing, "--pipe", pipe, "--drop", "0.5", "--output",
                               output, "--format", "json")
        self.assert_done(run)
        changed = run.json()["changed"]
        self.assertGreater(len(changed), 0)
        expected = set()
        for entry in changed:
            for field, key in (("startElevation", "起点标高"), ("endElevation", "终点标高")):
                if entry[field]["before"] != entry[field]["after"]:
                    expected.add((entry["entity"], key, entry[field]["after"]))
        self.assertEqual(set(changed_texts(self.drawing, output)), expected)
        self.assertEqual(self.read(self.drawing), self.read(source))

    def a_pipe(self, drawing):
        """The first pipe of the segment that the longest way ends with."""
        run = self.run_program("search", drawing, "--start", "1176", "--end", "1174", "--format",
                               "json")
        answer = run.json()
        return answer["segs"][answer["pathSegs"][0]]["pipes"][0]


if __name__ == "__main__":
    unittest.main()
