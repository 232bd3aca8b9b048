"""The command info."""
import json
import os
import unicodedata
import unittest

from PipenetProcess import EXAMPLES, PipenetTest, SmallDrawing


def mixed():
    """Two systems that the settings know and one that they do not, a tank, and entities that are
    no network or several things at once."""
    small = SmallDrawing()
    small.well("121", (0.0, 0.0), system="雨水")
    small.pipe("122", (0.5, 0.0), (9.0, 0.0), system="燃气")
    small.well("123", (30.0, 0.0), system="雨水")
    small.pipe("124", (1.0, 5.0), (9.0, 5.0), system="给水")
    small.tank("125", (60.0, 0.0), (6.0, 3.0))
    small.drawing.line("126", "0", (0.0, 0.0), (1.0, 1.0))
    # A pipe by its first mark, whatever else it carries.
    small.drawing.line("127", "管", (0.0, 9.0), (8.0, 9.0),
                       [("管井系统", "雨水"), ("管道系统", "给水"), ("池体", "T")])
    return small


class InfoTest(PipenetTest):
    def test_json_is_exact(self):
        run = self.run_program("info", self.write(mixed()), "--format", "json")
        self.assert_done(run)
        self.assertEqual(
            run.out,
            '{"systems":['
            '{"name":"雨水","flow":"gravity","flag":"Y","pipes":0,"wells":2},'
            '{"name":"燃气","flow":"unknown","flag":"","pipes":1,"wells":0},'
            '{"name":"给水","flow":"pressure","flag":"J","pipes":2,"wells":0}],'
            '"tanks":1,"entities":7}\n')

    def test_examples_agree_with_what_was_drawn(self):
        for name in ("town", "brambleton", "epa-user1"):
            with open(os.path.join(EXAMPLES, name + ".truth.json"), encoding="utf-8") as file:
                truth = json.load(file)
            run = self.run_program("info", os.path.join(EXAMPLES, name + ".dxf"), "--format",
                                   "json")
            self.assert_done(run)
            self.assertEqual(run.json(), {key: truth[key]
                                          for key in ("systems", "tanks", "entities")})

    def test_layouts_count_and_block_definitions_do_not(self):
        def escaped(text):
            return "".join(f"\\U+{ord(c):04X}" for c in text)

        def line(handle, *more):
            tags = [(0, "LINE"), (5, handle), (8, "0"), *more, (10, 0.0), (20, 0.0), (30, 0.0),
                    (11, 9.0), (21, 0.0), (31, 0.0), (1001, escaped("管道系统")),
                    (1000, escaped("污水"))]
            return tags

        section = [(0, "SECTION")]
        tags = [*section, (2, "HEADER"), (9, "$ACADVER"), (1, "AC1009"), (0, "ENDSEC"),
                *section, (2, "TABLES"), (0, "TABLE"), (2, "APPID"), (70, 1), (0, "APPID"),
                (2, escaped("管道系统")), (70, 0), (0, "ENDTAB"), (0, "ENDSEC"),
                *section, (2, "BLOCKS"), (0, "BLOCK"), (8, "0"), (2, "PIECE"), (70, 0), (10, 0.0),
                (20, 0.0), (30, 0.0), (3, "PIECE"), *line("21"), (0, "ENDBLK"), (8, "0"),
                (0, "ENDSEC"), *section, (2, "ENTITIES"), *line("22", (67, 1)), *line("23"),
                (0, "INSERT"), (5, "24"), (8, "0"), (2, "PIECE"), (10, 5.0), (20, 5.0), (30, 0.0),
                (0, "ENDSEC"), (0, "EOF")]
        path = self.text_file("old.dxf", "".join(f"{code}\n{value}\n" for code, value in tags))
        run = self.run_program("info", path, "--format", "json")
        self.assert_done(run)
        # One line in model space, one in paper space, one reference.
        self.assertEqual(run.out, '{"systems":[{"name":"污水","flow":"gravity","flag":"W",'
                         '"pipes":2,"wells":0}],"tanks":0,"entities":3}\n')

    def test_drawing_without_network(self):
        small = SmallDrawing()
        small.drawing.line("126", "0", (0.0, 0.0), (1.0, 1.0))
        path = self.write(small)
        self.assertEqual(self.run_program("info", path, "--format", "json").out,
                         '{"systems":[],"tanks":0,"entities":1}\n')
        self.assertEqual(self.run_program("info", path).out,
                         "small.dxf: 1 entity, 0 pipe systems, 0 tanks\n")

    def test_columns_of_the_table_line_up_under_wide_names(self):
        small = mixed()
        small.well("130", (90.0, 0.0), system="plain")
        lines = self.run_program("info", self.write(small)).out.splitlines()
        self.assertEqual(lines[0], "small.dxf: 8 entities, 4 pipe systems, 1 tank")

        def column(line, word):
            before = line[:line.index(word)]
            return sum(2 if unicodedata.east_asian_width(c) in "WF" else 1 for c in before)

        rows = [("Flow", lines[2]), ("gravity", lines[4]), ("unknown", lines[5]),
                ("pressure", lines[6]), ("unknown", lines[7])]
        self.assertEqual(len({column(line, word) for word, line in rows}), 1, lines)

    def test_timing_comes_last(self):
        path = self.write(mixed())
        plain = self.run_program("info", path, "--format", "json").json()
        timed = self.run_program("info", path, "--format", "json", "--timing").json()
        timing = timed.pop("timing")
        self.assertEqual(timed, plain)
        self.assertEqual(list(timing), ["load_ms", "search_ms"])
        self.assertTrue(0.0 < timing["load_ms"] < 60000.0 and 0.0 <= timing["search_ms"] < 60000.0)
        table = self.run_program("info", path, "--timing").out
        self.assertRegex(table, r"\nLoaded in \d+\.\d+ ms, searched in \d+\.\d+ ms\n$")
        self.assertTrue(table.startswith(self.run_program("info", path).out))


if __name__ == "__main__":
    unittest.main()
