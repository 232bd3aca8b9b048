"""The report of a check as a table for a person to read."""
import unicodedata
import unittest

from PipenetProcess import PipenetTest, SmallDrawing


def columns(text):
    return sum(2 if unicodedata.east_asian_width(c) in "WF" else 1 for c in text)


def faulty():
    """Two systems: in the one a wrong flow text and a letter too many, in the other nothing."""
    small = SmallDrawing()
    small.well("A1", (0.0, 0.0), "1")
    small.well("A2", (33.0, 0.0), "2")
    small.well("A3", (66.0, 0.0), "3")
    small.pipe("B1", (0.5, 0.0), (32.5, 0.0), low="10", high="9.5m", slope="0.015625")
    small.pipe("B2", (33.5, 0.0), (65.5, 0.0), low="9.5", high="9", slope="0.015625", flow="no")
    small.well("A4", (0.0, 90.0), "1", system="雨水")
    small.well("A5", (33.0, 90.0), "2", system="雨水")
    small.pipe("B3", (0.5, 90.0), (32.5, 90.0), low="8", high="7.5", slope="0.015625",
               system="雨水", diameter="400")
    return small


class CheckTableTest(PipenetTest):
    def test_findings_come_by_system_errors_first_with_their_sentences(self):
        lines = self.run_program("check", self.write(faulty())).out.splitlines()
        self.assertEqual(lines[0], "small.dxf: 2 findings: 1 error, 1 warning")
        self.assertEqual(lines[2], "System 污水: 2 findings")
        self.assertEqual(lines[4].split(),
                         ["Severity", "Finding", "At", "Measured", "Limit", "Entities"])
        error = next(i for i, line in enumerate(lines) if line.startswith("error"))
        warning = next(i for i, line in enumerate(lines) if line.startswith("warning"))
        self.assertEqual((error, warning), (6, 8))
        self.assertEqual(lines[error].split(), ["error", "flow-text", "49.50,", "0.00", "B2"])
        self.assertIn("'no'", lines[error + 1])
        self.assertTrue(lines[error + 1].startswith("    "))
        self.assertEqual(lines[warning].split(),
                         ["warning", "number-not-whole", "16.50,", "0.00", "9.5", "m", "B1"])
        self.assertIn("'9.5m'", lines[warning + 1])
        # Nothing is amiss in the other system, so only its figures are told.
        self.assertFalse(any(line.startswith("System 雨水: 1 finding") for line in lines))

    def test_columns_line_up(self):
        lines = self.run_program("check", self.write(faulty())).out.splitlines()
        place = columns(lines[4][:lines[4].index("Entities")])
        for row, handle in ((lines[6], "B2"), (lines[8], "B1")):
            self.assertEqual(columns(row[:row.rindex(handle)]), place)

    def test_figures_close_each_system(self):
        text = self.run_program("check", self.write(faulty())).out
        lines = text.splitlines()
        self.assertIn("System 污水: gravity, flag W, 2 pipes, 3 wells, 0 tanks, 1 network, 64.00 m",
                      lines)
        start = lines.index(
            "System 雨水: gravity, flag Y, 1 pipe, 2 wells, 0 tanks, 1 network, 32.00 m")
        rest = [line.split() for line in lines[start:]]
        self.assertIn(["DN400", "PE", "1", "32.00"], rest)
        self.assertIn(["1", "A5", "2", "1", "32.00"], rest)
        self.assertIn("Lowest  7.500 m at 32.50, 90.00, pipe B3", lines)
        self.assertIn("Highest 8.000 m at 0.50, 90.00, pipe B3", lines)

    def test_a_sound_drawing_says_so(self):
        small = SmallDrawing()
        small.well("A1", (0.0, 0.0), "1")
        small.well("A2", (33.0, 0.0), "2")
        small.pipe("B1", (0.5, 0.0), (32.5, 0.0), low="10", high="9.5", slope="0.015625")
        run = self.run_program("check", self.write(small))
        self.assert_done(run)
        self.assertTrue(run.out.startswith("small.dxf: no findings\n\nSystem 污水: gravity"))

    def test_many_entities_are_counted(self):
        small = SmallDrawing()
        for i in range(9):
            small.well(f"{0xA0 + i:X}", (33.0 * i, 0.0), "same")
        text = self.run_program("check", self.write(small)).out
        row = next(line for line in text.splitlines() if " duplicate-number " in line)
        self.assertTrue(row.endswith("A0 A1 A2 A3 A4 A5 and 3 more"), row)

    def test_timing_stands_below(self):
        path = self.write(faulty())
        timed = self.run_program("check", path, "--timing").out
        self.assertRegex(timed, r"\nLoaded in \d+\.\d+ ms, searched in \d+\.\d+ ms\n$")
        self.assertTrue(timed.startswith(self.run_program("check", path).out))


if __name__ == "__main__":
    unittest.main()
