"""A second tool reads the map that an export writes."""
import csv
import io
import json
import os
import subprocess
import unittest

from ExchangeTest import ExchangeTest, example, truth_of


class MapTest(ExchangeTest):
    def features(self, path):
        """What the tool finds in the map, a row each with the geometry as text."""
        done = subprocess.run([os.environ["OGR2OGR"], "-f", "CSV", "/vsistdout/", path, "-lco",
                               "GEOMETRY=AS_WKT"], capture_output=True, check=False,
                              encoding="utf-8", timeout=120)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return list(csv.DictReader(io.StringIO(done.stdout)))

    @staticmethod
    def points(text):
        inner = text[text.index("(") + 1:text.rindex(")")]
        return [tuple(float(word) for word in pair.split()) for pair in inner.split(",")]

    def test_sewers_with_wells_as_points_and_pipes_as_lines(self):
        run, target = self.export(example("town.dxf"), "geojson", "--start", "501")
        self.assert_done(run)
        rows = self.features(target)
        truth = truth_of("town")
        places = {node["number"]: tuple(node["point"]) for node in truth["nodes"]
                  if node["system"] == "污水" and node["number"]}
        wells = {row["number"]: self.points(row["WKT"])[0] for row in rows if row["kind"] == "well"}
        self.assertEqual(len(wells), 20)
        for number, place in wells.items():
            self.assertEqual(place, places[number])
        links = {row["name"]: row for row in rows if row["record"] == "link"}
        self.assertEqual(len(links), 20)
        line = self.points(links["301"]["WKT"])
        pipe = truth["pipes"]["301"]
        self.assertEqual(sorted(line), sorted(map(tuple, (pipe["startPoint"], pipe["endPoint"]))))
        self.assertTrue(links["301"]["WKT"].startswith("LINESTRING"))
        self.assertEqual((links["301"]["from"], links["301"]["to"], links["301"]["material"]),
                         ("W6", "化粪池", "钢筋混凝土"))
        self.assertAlmostEqual(float(links["301"]["length_m"]), pipe["length"], 6)

    def test_mains_with_valves_and_meters(self):
        run, target = self.export(example("town.dxf"), "geojson", "--start", "601", "--point",
                                  "6,54")
        self.assert_done(run)
        rows = self.features(target)
        kinds = [(row["record"], row["kind"]) for row in rows]
        self.assertEqual(kinds.count(("link", "pipe")), 11)
        self.assertEqual(kinds.count(("node", "joint")), 12)
        self.assertEqual(kinds.count(("fitting", "valve")), 3)
        self.assertEqual(kinds.count(("fitting", "meter")), 4)

    def test_the_form_of_the_map(self):
        """RFC 7946: a collection of features; positions of two numbers. What they are is said."""
        _, target = self.export(example("town.dxf"), "geojson", "--start", "501")
        with open(target, encoding="utf-8") as file:
            found = json.load(file)
        self.assertEqual(found["type"], "FeatureCollection")
        self.assertEqual(found["positions"], "drawing coordinates, not longitude and latitude")
        self.assertEqual(found["metres_of_drawing_unit"], 1)
        for feature in found["features"]:
            self.assertEqual(feature["type"], "Feature")
            self.assertIn(feature["geometry"]["type"], ("Point", "LineString"))
            if feature["geometry"]["type"] == "LineString":
                self.assertGreaterEqual(len(feature["geometry"]["coordinates"]), 2)

    def test_a_table_that_opens_elsewhere(self):
        """A number with a comma, a quote and a line end stays one cell."""
        from PipenetProcess import SmallDrawing
        small = SmallDrawing()
        small.well("A1", (0.0, 0.0), 'a,"b"')
        small.well("A2", (20.0, 0.0), "B")
        small.pipe("B1", (0.5, 0.0), (19.5, 0.0))
        nodes, _, _ = self.table(self.write(small), "--start", "A2")
        self.assertEqual(sorted(node["number"] for node in nodes), ["B", 'a,"b"'])


if __name__ == "__main__":
    unittest.main()
