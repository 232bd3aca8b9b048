"""The report of a check as GeoJSON, read by the standard library and by a second tool."""
import json
import math
import os
import re
import subprocess
import unittest

from PipenetProcess import EXAMPLES, PipenetTest, SmallDrawing

TOWN = os.path.join(EXAMPLES, "town.dxf")
# A quarter of a full turn has this bulge.
QUARTER = math.tan(math.pi / 8.0)


def way(points):
    return sum(math.dist(p, q) for p, q in zip(points, points[1:]))


class CheckGeoJsonTest(PipenetTest):
    def collection(self, path):
        run = self.run_program("check", path, "--format", "geojson")
        self.assertIn(run.status, (0, 1))
        return run.json()

    def features(self, path, kind):
        return [f for f in self.collection(path)["features"]
                if f["properties"]["feature"] == kind]

    def line(self, path, *pipes):
        """The points of the run with these pipes."""
        lines = [f["geometry"]["coordinates"] for f in self.features(path, "run")
                 if sorted(f["properties"]["pipes"]) == sorted(pipes)]
        self.assertEqual(len(lines), 1, pipes)
        return lines[0]

    def ogr(self, path, query=None):
        arguments = ["-ro", "-al", "-so", path] if query is None else [
            "-ro", "-q", path, "-dialect", "SQLite", "-sql", query]
        done = subprocess.run([os.environ["OGRINFO"], *arguments], capture_output=True, text=True,
                              check=True, timeout=120)
        self.assertEqual(done.stderr, "")
        return done.stdout

    def test_the_collection_says_what_its_coordinates_are(self):
        collection = self.collection(TOWN)
        self.assertEqual(collection["type"], "FeatureCollection")
        self.assertEqual(collection["drawing"], "town.dxf")
        self.assertEqual(collection["note"], "Coordinates are those of the drawing, in drawing "
                         "units. They are not longitude and latitude.")
        self.assertNotIn("crs", collection)
        for feature in collection["features"]:
            self.assertEqual(list(feature), ["type", "geometry", "properties"])
            self.assertEqual(feature["type"], "Feature")

    def test_everything_of_the_report_is_a_feature(self):
        report = self.run_program("check", TOWN, "--format", "json").json()
        features = self.collection(TOWN)["features"]
        count = {}
        for feature in features:
            kind = feature["properties"]["feature"]
            count[kind] = count.get(kind, 0) + 1
        self.assertEqual(count.pop("finding", 0), len(report["findings"]))
        self.assertEqual(count.pop("run"), sum(n["segs"] for n in report["networks"]))
        # 20 + 13 nodes that are wells, two tanks; three valve and four meter wells on the main.
        self.assertEqual(count, {"well": 33, "tank": 2, "valve": 3, "meter": 4})

    def test_a_finding_keeps_all_that_the_report_says(self):
        small = SmallDrawing()
        small.well("A1", (0.0, 0.0), "1")
        small.well("A2", (33.0, 0.0), "2")
        small.pipe("B1", (0.5, 0.0), (32.5, 0.0), low="10", high="9", slope="0.1")
        path = self.write(small)
        told = self.run_program("check", path, "--format", "json").json()["findings"]
        found = self.features(path, "finding")
        self.assertEqual([f["code"] for f in told], ["slope-disagrees"])
        expected = dict(told[0])
        self.assertEqual(found[0]["geometry"],
                         {"type": "Point", "coordinates": expected.pop("point")})
        properties = dict(found[0]["properties"])
        self.assertEqual(properties.pop("feature"), "finding")
        self.assertEqual(properties, expected)

    def test_a_run_is_a_line_from_node_to_node(self):
        small = SmallDrawing()
        small.well("A1", (0.0, 0.0), "1")
        small.well("A2", (33.0, 0.0), "2")
        small.pipe("B1", (0.5, 0.0), (16.0, 0.0), low="10", high="10", slope="0")
        small.pipe("B2", (32.5, 0.0), (16.2, 0.0), low="10", high="10", slope="0", flow="ES")
        path = self.write(small)
        points = self.line(path, "B1", "B2")
        self.assertIn(points, ([[0, 0], [0.5, 0], [16, 0], [16.2, 0], [32.5, 0], [33, 0]],
                               [[33, 0], [32.5, 0], [16.2, 0], [16, 0], [0.5, 0], [0, 0]]))

    def test_arcs_are_flattened_on_their_circle(self):
        # A quarter circle about (10, 0) from (0, 0) to (10, 10), clockwise.
        small = SmallDrawing()
        small.well("A1", (0.0, -0.5), "1")
        small.well("A2", (10.5, 10.0), "2")
        small.pipe("B1", (0.0, 0.0), (10.0, 10.0), low="10", high="10", slope="0", bulge=-QUARTER)
        points = self.line(self.write(small), "B1")
        arc = [p for p in points if p not in ([0, -0.5], [10.5, 10])]
        self.assertGreaterEqual(len(arc), 10)
        for point in arc:
            self.assertAlmostEqual(math.dist(point, (10.0, 0.0)), 10.0, 6)
            self.assertTrue(-1e-9 <= point[0] <= 10.000001 and -1e-9 <= point[1] <= 10.000001)
        self.assertAlmostEqual(way(arc), 5.0 * math.pi, 1)

    def test_a_run_that_joins_a_side_leaves_out_what_lies_beyond(self):
        # 325 comes from W18 and ends beside 324 at (160.07, 89.71); 324 goes on to a cap at (160, 95).
        points = self.line(TOWN, "324", "325")
        on_324 = [y for x, y in points if abs(x - 160.0) < 1e-9]
        self.assertEqual(min(on_324), 60)
        self.assertAlmostEqual(max(on_324), 89.708957, 9)

    def test_a_piece_cut_off_a_main_is_not_the_whole_of_it(self):
        lines = [f["geometry"]["coordinates"] for f in self.features(TOWN, "run")
                 if f["properties"]["pipes"] == ["601"]]
        spans = sorted(tuple(sorted((line[0][0], line[-1][0]))) for line in lines)
        # 601 runs from 6 to 150 and is cut at 28, 90 and 124.
        self.assertEqual(spans, [(6, 28), (28, 90), (90, 124), (124, 150)])
        for line in lines:
            self.assertEqual({y for _, y in line}, {54})

    def test_an_arc_of_several_pipes_is_followed_along_them(self):
        # From (178, 46) to (185.2, 24.4) along 606 and 607: 29.977099 m by the layout.
        points = self.line(TOWN, "606", "607")
        self.assertAlmostEqual(way(points), 29.977, 1)

    def test_a_second_tool_reads_it(self):
        target = self.path("town.geojson")
        self.run_program("check", TOWN, "--format", "geojson", "--output", target)
        with open(target, encoding="utf-8") as file:
            features = json.load(file)["features"]
        count = int(re.search(r"Feature Count: (\d+)", self.ogr(target)).group(1))
        self.assertEqual(count, len(features))
        asked = self.ogr(target, "SELECT feature, COUNT(*) AS n, MIN(ST_GeometryType(geometry)) AS "
                         "t FROM town GROUP BY feature ORDER BY feature")
        told = re.findall(r"feature \(String\) = (\w+)\n  n \(Integer\) = (\d+)\n  "
                          r"t \(String\) = (\w+)", asked)
        expected = {}
        for feature in features:
            kind = feature["properties"]["feature"]
            number, shape = expected.get(kind, (0, ""))
            expected[kind] = (number + 1, feature["geometry"]["type"].upper())
        self.assertEqual({kind: (int(number), shape) for kind, number, shape in told}, expected)

    def test_the_second_tool_measures_the_same_lengths(self):
        target = self.path("town.geojson")
        self.run_program("check", TOWN, "--format", "geojson", "--output", target)
        with open(target, encoding="utf-8") as file:
            runs = [f for f in json.load(file)["features"] if f["properties"]["feature"] == "run"]
        asked = self.ogr(target, "SELECT SUM(ST_Length(geometry)) AS total FROM town WHERE "
                         "feature = 'run'")
        total = float(re.search(r"total \(Real\) = ([\d.]+)", asked).group(1))
        self.assertAlmostEqual(total, sum(way(f["geometry"]["coordinates"]) for f in runs), 6)


if __name__ == "__main__":
    unittest.main()
