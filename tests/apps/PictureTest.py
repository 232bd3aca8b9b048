"""The picture of a network."""
import os
import re
import unittest
import xml.etree.ElementTree

from PipenetProcess import EXAMPLES, PipenetTest, SmallDrawing, chain

SVG = "{http://www.w3.org/2000/svg}"
TOWN = os.path.join(EXAMPLES, "town.dxf")
BLUE, ORANGE = "#0072B2", "#D55E00"


class Picture:
    def __init__(self, path):
        self.root = xml.etree.ElementTree.parse(path).getroot()

    def all(self, tag):
        return list(self.root.iter(SVG + tag))

    def plan_texts(self):
        """The labels of the plan: text, x, y, size, angle."""
        found = []
        for text in self.all("text"):
            if text.get("class") == "halo":
                turn = re.match(r"rotate\((\S+)", text.get("transform") or "rotate(0")
                found.append((text.text, float(text.get("x")), float(text.get("y")),
                              float(text.get("font-size")), float(turn[1].rstrip(")"))))
        return found

    def place(self, label):
        return next((x, y) for text, x, y, _, _ in self.plan_texts() if text == label)

    def arrows(self, colour):
        """Angles of the arrows in the plan; those of the legend stand in a group of their own."""
        found = []
        for path in self.root.findall(SVG + "path"):
            turn = re.search(r"rotate\((\S+)\)", path.get("transform") or "")
            if turn and path.get("fill") == colour:
                found.append(float(turn[1]))
        return found


class PictureTest(PipenetTest):
    def picture(self, drawing, *arguments):
        path = self.path("picture.svg")
        run = self.run_program("search", drawing, "--svg", path, *arguments)
        self.assert_done(run)
        return Picture(path)

    def test_drawing_stands_upright(self):
        picture = self.picture(self.write(chain()), "--start", "A1")
        a, b, c = (picture.place(name) for name in ("A root", "B", "C"))
        self.assertLess(a[0], b[0])
        self.assertLess(c[1], b[1] - 50.0)

    def test_arrows_follow_the_water(self):
        # Eastwards from A to B, and southwards from C to B.
        picture = self.picture(self.write(chain()), "--start", "A1")
        self.assertEqual(sorted(picture.arrows(BLUE)), [0.0, 90.0])
        # The same water, walked from the other end.
        picture = self.picture(self.write(chain()), "--start", "A3")
        self.assertEqual(sorted(picture.arrows(BLUE)), [0.0, 90.0])

    def test_path_is_set_apart(self):
        picture = self.picture(self.write(chain()), "--start", "A1", "--end", "A2")
        self.assertEqual((picture.arrows(ORANGE), picture.arrows(BLUE)), ([0.0], [90.0]))
        self.assertTrue(any(t[0] == "B end" for t in picture.plan_texts()))

    def test_sizes_along_their_pipes_read_from_left_or_below(self):
        picture = self.picture(self.write(chain()), "--start", "A1")
        angles = {text: angle for text, _, _, _, angle in picture.plan_texts()
                  if text.startswith("DN")}
        self.assertEqual(angles, {"DN300": 0.0, "DN200": -90.0})

    def test_arcs_stay_arcs(self):
        small = SmallDrawing()
        small.well("A1", (0.0, 0.0))
        small.well("A2", (20.0, 0.0))
        small.pipe("B1", (0.5, 0.0), (19.5, 0.0), bulge=0.4)
        picture = self.picture(self.write(small), "--start", "A1")
        data = [p.get("d") for p in picture.all("path") if p.get("stroke") == BLUE
                and "A" in p.get("d")]
        self.assertEqual(len(data), 1)
        # The bulge is the tangent of a quarter of the sweep: radius = chord (1 + b^2) / (4 b).
        radius, sweep = re.search(r"A(\S+) \S+ 0 0 ([01])", data[0]).groups()
        start, end = re.findall(r"(?:M|[01] )(\d\S*) (?=[\d.]+)", data[0])[0], data[0].split()[-2]
        chord = float(end) - float(start)
        self.assertAlmostEqual(float(radius), chord * 1.16 / 1.6, 1)
        # A left turn in the drawing runs below the chord: left to right on the page, that is
        # against the sweep's direction.
        self.assertEqual(sweep, "0")

    def test_scale_bar_measures_metres(self):
        for scale, factor in (("1000", 1.0), ("500", 2.0)):
            picture = self.picture(self.write(chain()), "--start", "A1", "--draw-scale", scale)
            metres = next(float(t.text[:-2]) for t in picture.all("text")
                          if (t.text or "").endswith(" m"))
            fields = [r for r in picture.all("rect") if r.get("height") == "6"]
            pixels = sum(float(r.get("width")) for r in fields)
            blue = [p for p in picture.all("path") if p.get("stroke") == BLUE
                    and re.fullmatch(r"M[\d.]+ ([\d.]+)L[\d.]+ \1", p.get("d"))]
            ends = [float(n) for n in re.findall(r"([\d.]+) [\d.]+", blue[0].get("d"))]
            # The pipe is 19 drawing units long.
            self.assertAlmostEqual(pixels / metres, (ends[1] - ends[0]) / 19.0 * factor, 1)

    def test_labels_keep_apart_and_on_the_page(self):
        for name, arguments in (("town", ("--start", "501", "--end", "108")),
                                ("brambleton", ("--pick", "0,0")),
                                ("epa-user1", ("--pick", "0,0"))):
            picture = self.picture(os.path.join(EXAMPLES, name + ".dxf"), *arguments)
            width, height = (float(picture.root.get(k)) for k in ("width", "height"))
            level = [t for t in picture.plan_texts() if t[4] == 0.0]
            self.assertGreater(len(level), 15)
            boxes = []
            for text, x, y, size, _ in level:
                half = 0.5 * len(text) * size / 2.0
                box = (x - half, y - 0.7 * size, x + half, y)
                self.assertTrue(0.0 <= box[0] and box[2] <= width and 0.0 <= box[1] and
                                box[3] <= height, text)
                boxes.append((text, box))
            for i, (text, a) in enumerate(boxes):
                for other, b in boxes[i + 1:]:
                    apart = a[2] <= b[0] or b[2] <= a[0] or a[3] <= b[1] or b[3] <= a[1]
                    self.assertTrue(apart, f"{name}: {text} on {other}")

    def test_town_names_every_well(self):
        picture = self.picture(TOWN, "--start", "501", "--end", "108")
        names = {t[0] for t in picture.plan_texts()}
        for number in [f"W{i}" for i in range(1, 21) if i != 8] + ["W8 end", "501 root"]:
            self.assertIn(number, names)
        self.assertFalse(any((t.text or "").startswith("labels without room")
                             for t in picture.all("text")))

    def test_markup_in_texts_is_escaped(self):
        small = SmallDrawing()
        small.well("A1", (0.0, 0.0), '<&"A')
        small.well("A2", (20.0, 0.0))
        small.pipe("B1", (0.5, 0.0), (19.5, 0.0))
        picture = self.picture(self.write(small, "a&b.dxf"), "--start", "A1")
        self.assertTrue(any(t[0] == '<&"A root' for t in picture.plan_texts()))

    def test_file_is_replaced_and_nothing_is_left_beside_it(self):
        folder = self.path("pictures")
        os.mkdir(folder)
        path = os.path.join(folder, "town.svg")
        with open(path, "w", encoding="utf-8") as file:
            file.write("old")
        run = self.run_program("search", self.write(chain()), "--start", "A1", "--svg", path)
        self.assert_done(run)
        self.assertEqual(os.listdir(folder), ["town.svg"])
        self.assertEqual(Picture(path).root.tag, SVG + "svg")

    def test_unwritable_place(self):
        path = self.path("nowhere/town.svg")
        run = self.run_program("search", self.write(chain()), "--start", "A1", "--svg", path)
        self.assertEqual((run.status, run.out), (2, ""))
        self.assertRegex(run.err, rf"^pipenet: {path}: cannot be written: [^\n]+\n$")

    def test_refused_search_draws_nothing(self):
        path = self.path("none.svg")
        run = self.run_program("search", self.write(chain()), "--start", "A5", "--svg", path)
        self.assertEqual(run.status, 1)
        self.assertFalse(os.path.exists(path))


if __name__ == "__main__":
    unittest.main()
