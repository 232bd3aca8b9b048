"""The picture of a pressure network."""
import json
import math
import os
import re
import unittest

from PictureTest import SVG, Picture
from PipenetProcess import EXAMPLES, PipenetTest, SmallDrawing


def numbers(text):
    return [float(n) for n in re.findall(r"-?\d+(?:\.\d+)?", text)]


class PressurePicture(Picture):
    """The plan of a picture; the legend's symbols stand deeper in the tree."""

    def groups(self):
        return self.root.findall(SVG + "g")

    def runs(self):
        """Colour and path data of each run."""
        lines = next(g for g in self.groups() if g.get("stroke-linecap") == "round")
        return [(p.get("stroke"), p.get("d")) for p in lines.findall(SVG + "path")]

    def fittings(self, kind):
        """Place and turn of each symbol of the plan."""
        found = []
        for group in self.groups():
            turn = re.match(r"translate\((\S+) (\S+)\) rotate\((\S+)\)",
                            group.get("transform") or "")
            if turn and self.kind_of(group) == kind:
                found.append(tuple(float(turn[i]) for i in (1, 2, 3)))
        return found

    @staticmethod
    def kind_of(group):
        radii = [c.get("r") for c in group.findall(SVG + "circle")]
        needle = group.find(SVG + "path") is not None
        kinds = {("3",): "junction", (): "valve", ("6",): "meter", ("8", "3.4"): "picked"}
        kind = kinds[tuple(radii)]
        return kind if needle == (kind in ("valve", "meter")) else None

    def legend(self):
        return [t.text for g in self.groups() if "scale" in (g.get("transform") or "")
                for t in g.findall(SVG + "text")]


def branched():
    """Eastwards 30 units of DN200, then DN150 on to the east and DN80 to the north."""
    small = SmallDrawing()
    small.pipe("B1", (0.0, 0.0), (30.0, 0.0), system="给水", diameter="200")
    small.pipe("B2", (30.0, 0.0), (60.0, 0.0), system="给水", diameter="150")
    small.pipe("B3", (30.0, 0.0), (30.0, 20.0), system="给水", diameter="80")
    return small


class PressurePictureTest(PipenetTest):
    def picture(self, drawing, *arguments):
        path = self.path("picture.svg")
        run = self.run_program("search", drawing, "--svg", path, *arguments)
        self.assert_done(run)
        return PressurePicture(path)

    def test_one_colour_a_diameter(self):
        picture = self.picture(self.write(branched()), "--start", "B1")
        colours = [colour for colour, _ in picture.runs()]
        self.assertEqual((len(colours), len(set(colours))), (3, 3))
        sizes = [t for t in picture.legend() if t.startswith("DN")]
        self.assertEqual(sizes, ["DN80", "DN150", "DN200"])

    def test_junction_stands_where_the_run_branches(self):
        picture = self.picture(self.write(branched()), "--start", "B1")
        junctions = picture.fittings("junction")
        self.assertEqual(len(junctions), 1)
        east = next(data for _, data in picture.runs() if self.width(data) > 0.0)
        x, y = numbers(east)[2:4]
        self.assertEqual(junctions[0][:2], (x, y))

    @staticmethod
    def width(data):
        x1, _, x2, _ = numbers(data)
        return x2 - x1

    def test_picked_end_is_the_one_near_the_point(self):
        for point, side in (("1,0", min), ("29,0", max)):
            small = SmallDrawing()
            small.pipe("B1", (0.0, 0.0), (30.0, 0.0), system="给水")
            picture = self.picture(self.write(small), "--start", "B1", "--point", point)
            x1, y1, x2, _ = numbers(picture.runs()[0][1])
            self.assertEqual([p[:2] for p in picture.fittings("picked")], [(side(x1, x2), y1)])
            self.assertIn("picked end", [t[0] for t in picture.plan_texts()])

    def test_town_shows_every_valve_and_meter(self):
        with open(os.path.join(EXAMPLES, "town.truth.json"), encoding="utf-8") as file:
            search = json.load(file)["pressure"][0]
        picture = self.picture(os.path.join(EXAMPLES, "town.dxf"), "--start",
                               search["pick"]["pipe"], "--point",
                               ",".join(map(str, search["pick"]["point"])))
        self.assertEqual(len(picture.runs()), len(search["runs"]))
        for kind in ("valve", "meter"):
            self.assertEqual(len(picture.fittings(kind)),
                             sum(len(run[kind + "s"]) for run in search["runs"]))
        for text in ("picked end", "junction", "valve", "meter", "other pipes"):
            self.assertIn(text, picture.legend())

    def test_only_what_is_shown_is_explained(self):
        small = SmallDrawing()
        small.pipe("B1", (0.0, 0.0), (30.0, 0.0), system="给水")
        legend = self.picture(self.write(small), "--start", "B1").legend()
        for text in ("junction", "valve", "meter"):
            self.assertNotIn(text, legend)

    def test_piece_cut_off_an_arc_is_drawn_alone(self):
        # A half circle of radius 20 about (20, 0), below the chord; a pipe from outside ends on it
        # at its lowest point (20, -20) and so cuts it into two quarters.
        small = SmallDrawing()
        small.pipe("B1", (0.0, 0.0), (40.0, 0.0), system="给水", bulge=1.0)
        small.pipe("B2", (20.0, -20.0), (20.0, -40.0), system="给水")
        picture = self.picture(self.write(small), "--start", "B1", "--point", "0,0")
        straight = next(d for _, d in picture.runs() if "A" not in d)
        pixels = self.height(straight) / 20.0
        quarters = [d for _, d in picture.runs() if "A" in d]
        self.assertEqual(len(quarters), 2)
        for data in quarters:
            start = numbers(data[1:data.index("A")])
            radius, _, _, large, sweep, *end = numbers(data[data.index("A"):])
            self.assertAlmostEqual(radius, 20.0 * pixels, 1)
            self.assertAlmostEqual(math.dist(start, end), 20.0 * math.sqrt(2.0) * pixels, 1)
            self.assertEqual((data.count("A"), large, sweep), (1, 0.0, 0.0))

    @staticmethod
    def height(data):
        _, y1, _, y2 = numbers(data)
        return abs(y2 - y1)

    def test_valve_lies_along_its_run(self):
        small = SmallDrawing()
        small.pipe("B1", (0.0, 0.0), (20.0, 20.0), system="给水")
        small.drawing.block("VLT_WELL_05", [("circle", 0, 0, 0.5)])
        small.well("A1", (10.0, 10.0), system="给水", block="VLT_WELL_05")
        picture = self.picture(self.write(small), "--start", "B1")
        turns = [turn for _, _, turn in picture.fittings("valve")]
        # Upwards in the drawing is against the page's sense of turning.
        self.assertEqual(turns, [-45.0])

    def test_title_names_the_kind(self):
        picture = self.picture(self.write(branched()), "--start", "B1")
        self.assertTrue(any(t.startswith("Pressure network 给水") for t in picture.legend()))


if __name__ == "__main__":
    unittest.main()
