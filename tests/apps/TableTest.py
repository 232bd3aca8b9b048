"""The table of a network."""
import unittest

from PipenetProcess import PipenetTest, SmallDrawing, chain


def comb(teeth):
    """A row of wells, each with a well of its own above it, drawn so that the row goes on last."""
    small = SmallDrawing()
    for i in range(teeth):
        x = 10.0 * i
        small.well(f"{0x1000 + i:X}", (x, 0.0), f"R{i}")
        small.well(f"{0x2000 + i:X}", (x, 8.0), f"T{i}")
        small.pipe(f"{0x3000 + i:X}", (x, 0.5), (x, 7.5))
        if i > 0:
            small.pipe(f"{0x4000 + i:X}", (x - 9.5, 0.0), (x - 0.5, 0.0))
    return small


def row(wells):
    small = SmallDrawing()
    for i in range(wells):
        small.well(f"{0x1000 + i:X}", (10.0 * i, 0.0), f"R{i}")
        if i > 0:
            small.pipe(f"{0x20000 + i:X}", (10.0 * i - 9.5, 0.0), (10.0 * i - 0.5, 0.0))
    return small


class TableTest(PipenetTest):
    def table(self, small, *arguments):
        run = self.run_program("search", self.write(small), *arguments)
        self.assert_done(run)
        return run.out.splitlines()

    def test_head_and_rows(self):
        lines = self.table(chain(), "--start", "A1", "--end", "A2")
        self.assertEqual(lines[0], "Gravity network 污水: 3 wells, 0 tanks, 2 segments, 33.00 m of "
                         "pipe, root A")
        self.assertEqual(lines[1], "Path (●): B to A, 1 segment, 19.00 m")
        rows = [line.split() for line in lines[-3:]]
        self.assertEqual(rows[0], ["●", "A", "well", "A1"])
        self.assertEqual(rows[1], ["●", "B", "well", "A2", "19.00", "DN300", "→", "9.500",
                                   "10.000", "0.025", "PE", "B1"])
        self.assertEqual(rows[2], ["C", "well", "A3", "14.00", "DN200", "←", "10.000", "11.000",
                                   "0.1", "PE", "B2"])

    def test_branches_are_indented(self):
        lines = self.table(comb(3), "--start", "1000")
        nodes = [line[:16].rstrip() for line in lines[-6:]]
        self.assertEqual(nodes[0].split()[0], "R0")
        self.assertTrue(nodes[1].startswith("├─ T0"), nodes)
        self.assertTrue(nodes[2].startswith("└─ R1"), nodes)
        self.assertTrue(nodes[3].startswith("   ├─ T1"), nodes)

    def test_indentation_of_a_deep_tree_stops_growing(self):
        lines = self.table(comb(60), "--start", "1000")
        self.assertEqual(len(lines[-120:]), 120)
        self.assertTrue(any("… level 59 T58" in line for line in lines), lines[-3:])
        self.assertLess(max(len(line) for line in lines), 220)

    def test_long_run_keeps_its_indentation(self):
        lines = self.table(row(3000), "--start", "1000")
        self.assertIn("R2999", lines[-1])
        self.assertTrue(lines[-1].startswith("R2999 "))
        self.assertLess(max(len(line) for line in lines), 160)


if __name__ == "__main__":
    unittest.main()
