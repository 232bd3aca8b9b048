"""Damaged models: one line with file, line and cause, status 2, and the output as it was."""
import os
import unittest

from ExchangeTest import ExchangeTest
from SmallModels import MAIN, SEWER


def line_of(text, begin):
    return next(i for i, line in enumerate(text.split("\n"), 1) if line.startswith(begin))


class DamagedModelTest(ExchangeTest):
    def assert_damaged(self, text, line, cause):
        """`line` is a number, or None for a fault of the whole file."""
        target = self.text_file("drawing.dxf", "what was there")
        run, _ = self.import_model(text)
        place = f"{self.path('model.inp')}:{line}" if line else self.path("model.inp")
        self.assert_failed(run, f"{place}: {cause}")
        with open(target, encoding="utf-8") as file:
            self.assertEqual(file.read(), "what was there")
        self.assertEqual(sorted(os.listdir(self.folder)), ["drawing.dxf", "model.inp"])

    def assert_row(self, text, old, new, cause):
        self.assertEqual(text.count(old), 1, old)
        damaged = text.replace(old, new)
        self.assert_damaged(damaged, line_of(damaged, new.split("\n")[-1]), cause)

    def test_a_number_that_is_none(self):
        self.assert_row(SEWER, "B 10 3", "B 1o 3", "'1o' is no number")
        self.assert_row(SEWER, "B 10 3", "B nan 3", "'nan' is no number")
        self.assert_row(SEWER, "B 10 3", "B 1e999 3", "'1e999' is no number")

    def test_a_row_that_is_too_short(self):
        self.assert_row(SEWER, "P1 A B 21 0.01 0 0.2 0 0", "P1 A B",
                        "the line has 3 words, at least 4 are needed")
        self.assert_row(SEWER, "C 20 30", "C 20", "the line has 2 words, at least 3 are needed")

    def test_a_node_that_is_missing(self):
        self.assert_row(SEWER, "P1 A B 21", "P1 A X 21", "there is no node X")

    def test_a_node_without_a_place(self):
        damaged = SEWER.replace("B 20 0\n", "")
        self.assert_damaged(damaged, line_of(damaged, "B 10"),
                            "the node B has no place under [COORDINATES]")

    def test_names_that_stand_twice(self):
        self.assert_row(SEWER, "B 10 3", "B 10 3\nA 9 3", "the node A is there already, on line 6")
        self.assert_row(SEWER, "P2 B C", "P1 B C", "the link P1 is there already, on line 11")

    def test_a_link_from_a_node_to_itself(self):
        self.assert_row(SEWER, "P1 A B", "P1 A A", "the link P1 begins and ends at A")

    def test_a_conduit_without_a_section(self):
        damaged = SEWER.replace("P2 RECT_CLOSED 0.45 0.6 0 0 1\n", "")
        self.assert_damaged(damaged, line_of(damaged, "P2 B C"),
                            "the conduit P2 has no cross-section")

    def test_a_length_of_nothing(self):
        self.assert_row(SEWER, "P1 A B 21", "P1 A B 0", "'0' is no length above 0")
        self.assert_row(MAIN, "P1 J1 R 100 200", "P1 J1 R 100 -200", "'-200' is no length above 0")

    def test_sizes_beyond_all_measure(self):
        self.assert_row(SEWER, "C 20 30", "C 20 1e13", "'1e13' is too large")
        self.assert_row(SEWER, "P1 CIRCULAR 0.3", "P1 CIRCULAR 1e9",
                        "'1e9' is no width of a pipe")
        self.assert_row(SEWER, "P1 CIRCULAR 0.3", "P1 CIRCULAR -1", "'-1' is no width of a pipe")

    def test_units_that_nobody_knows(self):
        self.assert_damaged(SEWER.replace("CMS", "QQQ"), None,
                            "FLOW_UNITS QQQ is none of CFS, GPM, MGD, CMS, LPS, MLD")
        self.assert_damaged(MAIN.replace("LPS", "QQQ"), None,
                            "UNITS QQQ is none of CFS, GPM, MGD, IMGD, AFD, LPS, LPM, MLD, CMH, "
                            "CMD, CMS")

    def test_a_file_that_is_no_model(self):
        self.assert_damaged("", None, "the sections are neither those of a SWMM nor those of an "
                            "EPANET model")
        self.assert_damaged("some text\n", 1,
                            "the line stands before the first section, so this is no model")
        self.assert_damaged("[TITLE]\n\0\0\n", 2,
                            "the line holds a null character, so this is no model")
        self.assert_damaged(SEWER + MAIN, None, "the sections are partly those of a SWMM and "
                            "partly those of an EPANET model")

    def test_a_model_without_pipes(self):
        self.assert_damaged("[JUNCTIONS]\nA 1\n[XSECTIONS]\n", None, "the model has no pipes")

    def test_a_name_that_is_no_text(self):
        damaged = SEWER.encode().replace(b"P1 A B 21", b"P\xff A B 21")
        line = line_of(SEWER, "P1 A B")
        self.assert_damaged(damaged, line, "the name 'P�' is not UTF-8 text")

    def test_a_file_that_is_not_there(self):
        run = self.run_program("import", self.path("none.inp"), "--output", self.path("d.dxf"))
        self.assert_failed(run, f"{self.path('none.inp')}: there is no such file")
        run = self.run_program("import", self.folder, "--output", self.path("d.dxf"))
        self.assert_failed(run, f"{self.folder}: cannot be read")

    def test_an_output_that_cannot_be_written(self):
        target = self.path("none/d.dxf")
        run = self.run_program("import", self.model(SEWER), "--output", target)
        self.assertEqual((run.status, run.out), (2, ""))
        self.assertEqual(run.err.count("\n"), 1)
        self.assertIn(target, run.err)

    def test_an_output_that_is_the_model(self):
        path = self.model(SEWER)
        run = self.run_program("import", path, "--output", path)
        self.assert_failed(run, f"{path}: not written: it is the input itself")
        run = self.run_program("import", path, "--output", self.folder)
        self.assert_failed(run, f"{self.folder}: not written: it is there and is no plain file")

    def test_options_that_are_missing(self):
        run = self.run_program("import", self.model(SEWER))
        self.assert_failed(run, "--output is required; see pipenet --help")


if __name__ == "__main__":
    unittest.main()
