"""Networks of drawings as files, held against the drawings' truths and against figures by hand."""
import math
import os
import unittest

from ExchangeTest import ExchangeTest, example, truth_of
from model_truth import Truth
from PipenetProcess import SmallDrawing, chain


def upstream_first(truth, edge):
    """The ends and heights of an edge's pipes, each from its upstream end."""
    pieces = []
    for handle in edge["pipes"]:
        pipe = truth["pipes"][handle]
        ends = [(pipe["startPoint"], pipe["startElevation"]),
                (pipe["endPoint"], pipe["endElevation"])]
        pieces.append((ends if pipe["flow"] == "SE" else ends[::-1], pipe["length"]))
    return pieces


def with_gaps(pieces):
    """How long a chain is: its pieces and what lies between them."""
    gaps = sum(math.dist(a[0][1][0], b[0][0][0]) for a, b in zip(pieces, pieces[1:]))
    return sum(length for _, length in pieces) + gaps


# Links drawn as polylines with a bend, one pipe of the town and one of brambleton: the truth has their
# chords, which is how the search measures them.
BENT = ("316", "c2")


class SewerExportTest(ExchangeTest):
    def assert_edges(self, name, system, *start):
        """Each edge of a truth that pipes lead along end to end is a link of the table."""
        truth = truth_of(name)
        handles = {node["name"]: node["handles"] for node in truth["nodes"]}
        nodes, links, _ = self.table(example(name + ".dxf"), *start)
        place = {node["name"]: node["handles"] for node in nodes}
        compared = 0
        for edge in truth["edges"]:
            if edge["system"] != system or edge["joint"] == "side":
                continue
            link = next(links[handle] for handle in edge["pipes"] if handle in links)
            pieces = upstream_first(truth, edge)
            self.assertIn(place[link["from"]], handles[edge["upstream"]])
            self.assertIn(place[link["to"]], handles[edge["downstream"]])
            self.assertEqual(sorted(link["handles"].split()), sorted(edge["pipes"]))
            if edge.get("link", edge["pipes"][0]) not in BENT:
                self.assertAlmostEqual(float(link["length_m"]), with_gaps(pieces), delta=3e-6)
            self.assertEqual(float(link["start_elevation_m"]), pieces[0][0][0][1])
            self.assertEqual(float(link["end_elevation_m"]), pieces[-1][0][1][1])
            compared += 1
        return compared, len(nodes), len(links)

    def test_sewers_of_the_town(self):
        """20 edges, one of which goes over into the side of a pipe."""
        self.assertEqual(self.assert_edges("town", "污水", "--start", "501"), (19, 21, 20))

    def test_a_storm_drain_drawn_in_pieces_from_both_ends(self):
        self.assertEqual(self.assert_edges("brambleton", "雨水", "--start", "1176"),
                         (374, 375, 374))
        self.assertEqual(self.assert_edges("epa-user1", "雨水", "--start", "103C"), (59, 60, 59))

    def test_a_way_into_the_side_of_a_pipe(self):
        """325 comes down from W18 and crosses 324, which stands on x = 160 up to y = 95, at y = 90:
        from (153.084887, 117.66045) that is 28.511781, and down to the rim at 60.625 29.375 more."""
        _, links, _ = self.table(example("town.dxf"), "--start", "501")
        link = links["325"]
        self.assertEqual((link["from"], link["to"]), ("W18", "W6"))
        way = math.dist((153.084887, 117.66045), (160.0, 90.0)) + 90.0 - 60.625
        self.assertAlmostEqual(float(link["length_m"]), way, delta=2e-6)
        self.assertEqual(link["start_elevation_m"], "93.072")
        self.assertEqual(link["end_elevation_m"], "92.49")

    def test_a_polyline_counts_along_its_legs(self):
        """316 has a bend at (92, 93.5)."""
        _, links, _ = self.table(example("town.dxf"), "--start", "501")
        pipe = truth_of("town")["pipes"]["316"]
        way = math.dist(pipe["startPoint"], (92, 93.5)) + math.dist((92, 93.5), pipe["endPoint"])
        self.assertAlmostEqual(float(links["316"]["length_m"]), way, delta=2e-6)
        self.assertGreater(way, pipe["length"] + 0.2)

    def test_an_arc_counts_along_the_curve(self):
        _, links, _ = self.table(example("town.dxf"), "--start", "501")
        self.assertAlmostEqual(float(links["315"]["length_m"]),
                               truth_of("town")["pipes"]["315"]["length"], delta=2e-6)

    def test_a_well_at_the_root_is_the_outfall(self):
        """B1 from A1 to A2: 19 m, 10 to 9.5. B2 from A3 to A2: 14 m, 11 to 10, so 0.5 above the
        bottom of A2, which is the lowest pipe there."""
        run, target = self.export(self.write(chain()), "swmm", "--start", "A3")
        self.assertEqual(run.status, 0)
        back = Truth(target)
        self.assertEqual({n: (d["kind"], d["height"]) for n, d in back.nodes.items()},
                         {"A": ("junction", 10.0), "B": ("junction", 9.5), "C": ("junction", 11.0),
                          "OUT": ("outfall", 11.0)})
        self.assertEqual(back.links["B1"], {"ends": ("A", "B"), "length": 19.0, "diameter": 300.0,
                                            "heights": [10.0, 9.5], "device": "pipe",
                                            "material": "PE"})
        self.assertEqual(back.links["B2"], {"ends": ("C", "B"), "length": 14.0, "diameter": 200.0,
                                            "heights": [11.0, 10.0], "device": "pipe",
                                            "material": "PE"})
        # Water leaves C towards B, so C cannot be the outfall itself.
        self.assertIn("the outfall OUT and a conduit of 1 m to it are added", run.err)

    def test_an_outfall_with_a_single_pipe_into_it(self):
        small = chain()
        small.pipe("B3", (20.0, -0.5), (20.0, -9.5), low="9.4", high="9.3")
        small.well("A6", (20.0, -10.0), "Z")
        run, target = self.export(self.write(small), "swmm", "--start", "A6")
        self.assert_done(run)
        back = Truth(target)
        self.assertEqual(back.nodes["Z"]["kind"], "outfall")
        self.assertEqual(len(back.links), 3)

    def test_a_tank_at_the_root_stays_a_tank(self):
        run, target = self.export(example("town.dxf"), "swmm", "--start", "501")
        back = Truth(target)
        self.assertEqual(back.nodes["化粪池"]["kind"], "storage")
        self.assertEqual(back.nodes["OUT"]["kind"], "outfall")
        self.assertEqual(back.links["OUT"]["ends"], ("化粪池", "OUT"))
        self.assertEqual(run.err.count("pipenet: note: "), 2)

    def test_names_are_numbers_where_they_are_legal_and_stand_once(self):
        small = SmallDrawing()
        small.well("A1", (0.0, 0.0), "W 1")
        small.well("A2", (20.0, 0.0), "same")
        small.well("A3", (40.0, 0.0), "Same")
        small.well("A4", (60.0, 0.0), "井4")
        for i, x in enumerate((0.0, 20.0, 40.0)):
            small.pipe(f"B{i + 1}", (x + 0.5, 0.0), (x + 19.5, 0.0), low="1", high="1")
        run, target = self.export(self.write(small), "swmm", "--start", "A4")
        self.assert_done(run)
        self.assertEqual(set(Truth(target).nodes), {"A1", "A2", "A3", "井4"})
        with open(target, encoding="utf-8") as file:
            text = file.read()
        self.assertIn(";; node A1 = A1, W 1\n", text)
        self.assertIn(";; node A2 = A2, same\n", text)
        self.assertIn(";; node 井4 = A4, 井4\n", text)
        self.assertIn(";; link B1 = B1, \n", text)

    def test_what_the_drawing_lacks_has_a_default_and_a_note(self):
        small = SmallDrawing()
        small.well("A1", (0.0, 0.0), "A")
        small.well("A2", (20.0, 0.0), "B")
        small.pipe("B1", (0.5, 0.0), (19.5, 0.0), diameter="")
        run, target = self.export(self.write(small), "swmm", "--start", "A2")
        self.assertEqual(run.err, "pipenet: note: heights that the drawing lacks stand as 0 m (2 of "
                         "them)\n"
                         "pipenet: note: diameters that the drawing lacks stand as 300 mm (1 of "
                         "them)\n")
        back = Truth(target)
        self.assertEqual(back.nodes["A"]["height"], 0.0)
        self.assertEqual(back.links["B1"]["diameter"], 300.0)

    def test_a_length_text_holds_while_the_pipe_is_as_long_as_it_says(self):
        for text, length in (("30/19.000", 30.0), ("30/19.001", 30.0), ("30/18.000", 19.0),
                             ("30", 19.0), ("x/19.000", 19.0), ("-3/19.000", 19.0)):
            small = chain()
            small.drawing.line("B9", "管", (100.5, 0.0), (119.5, 0.0),
                               [("管道系统", "污水"), ("水流方向", "SE"), ("管段长度", text)])
            small.well("A8", (100.0, 0.0), "U")
            small.well("A9", (120.0, 0.0), "V")
            _, links, _ = self.table(self.write(small), "--start", "A9")
            self.assertEqual(float(links["B9"]["length_m"]), length, text)

    def test_a_drawing_scale_other_than_metres(self):
        """A unit of half a metre: 19 units are 9.5 m, and the places of the model are metres."""
        target = self.path("half.inp")
        run = self.run_program("--draw-scale", "500", "export", self.write(chain()), "--start",
                               "A3", "--to", "swmm", "--output", target)
        self.assertEqual(run.status, 0)
        back = Truth(target)
        self.assertEqual(back.links["B1"]["length"], 9.5)
        self.assertEqual(back.nodes["B"]["point"], (10.0, 0.0))

    def test_a_form_that_cannot_take_the_kind(self):
        for start, form, word in (("501", "epanet", "flows by gravity"),
                                  ("601", "swmm", "is a pressure system")):
            run, target = self.export(example("town.dxf"), form, "--start", start)
            self.assertEqual((run.status, run.out), (1, "Nothing exported\n"))
            self.assertIn(word, run.err)
            self.assertEqual(run.err.count("\n"), 1)
            self.assertFalse(os.path.exists(target))

    def test_a_search_that_is_refused_writes_nothing(self):
        run, target = self.export(self.write(chain()), "csv", "--start", "A5")
        self.assertEqual((run.status, run.out), (1, "Nothing exported\n"))
        self.assertIn("ends at well A5", run.err)
        self.assertIn("[well-without-pipe, ", run.err)
        self.assertFalse(os.path.exists(target))

    def test_the_file_is_replaced_or_left_as_it_was(self):
        target = self.text_file("out.csv", "what was there")
        run, _ = self.export(self.write(chain()), "csv", "--start", "A5")
        self.assertEqual(run.status, 1)
        with open(target, encoding="utf-8") as file:
            self.assertEqual(file.read(), "what was there")
        run, _ = self.export(self.write(chain()), "csv", "--start", "A3")
        self.assert_done(run)
        self.assertEqual(sorted(os.listdir(self.folder)), ["out.csv", "small.dxf"])

    def test_the_output_is_not_the_drawing(self):
        drawing = self.write(chain())
        run = self.run_program("export", drawing, "--start", "A3", "--to", "csv", "--output",
                               drawing)
        self.assert_failed(run, f"{drawing}: not written: it is the input itself")

    def test_an_export_needs_a_start_and_a_form(self):
        drawing = self.write(chain())
        run = self.run_program("export", drawing, "--to", "csv", "--output", self.path("x"))
        self.assert_failed(run, "export needs an entity to start from: --start HANDLE or "
                           "--pick X,Y; see pipenet --help")
        run = self.run_program("export", drawing, "--start", "A3", "--to", "dwg", "--output",
                               self.path("x"))
        self.assertEqual(run.status, 2)

    def test_the_answer_as_json(self):
        target = self.path("x.csv")
        run = self.run_program("export", self.write(chain()), "--start", "A3", "--to", "csv",
                               "--output", target, "--format", "json")
        self.assertEqual(run.json(), {"result": 1, "kind": "gravity", "system": "污水", "root": "C",
                                      "nodes": 3, "links": 2, "to": "csv", "output": target})


class MainExportTest(ExchangeTest):
    START = ("--start", "601", "--point", "6,54")

    def test_pipes_that_the_search_cuts_are_shares_of_themselves(self):
        """601 from (6, 54) to (150, 54) falls from 94.6 to 94.0 and is cut at x = 28, 90 and 124:
        22, 62, 34 and 26 m, with heights in proportion to the 144 m."""
        run, target = self.export(example("town.dxf"), "csv", *self.START)
        self.assert_done(run)
        with open(target, encoding="utf-8") as file:
            rows = [row.split(",") for row in file.read().splitlines()]
        pieces = [row for row in rows if row[0] == "link" and row[3] == "601"]
        self.assertEqual([float(row[14]) for row in pieces], [22.0, 62.0, 34.0, 26.0])
        heights = [94.6 - 0.6 * (x - 6.0) / 144.0 for x in (6.0, 28.0, 90.0, 124.0, 150.0)]
        for row, start, end in zip(pieces, heights, heights[1:]):
            self.assertAlmostEqual(float(row[17]), start, 9)
            self.assertAlmostEqual(float(row[18]), end, 9)
        self.assertEqual([row[1] for row in pieces], ["601", "601_2", "601_3", "601_4"])

    def test_merged_runs_come_apart_into_their_pipes(self):
        """605 and 608 are one run for the search, and so are the two quarters of an arc with radius
        12 about (178, 34), of which the second is shorter."""
        _, links, _ = self.table(example("town.dxf"), *self.START)
        truth = truth_of("town")
        for handle in ("605", "608", "606", "607"):
            self.assertAlmostEqual(float(links[handle]["length_m"]),
                                   truth["pipes"][handle]["length"], delta=3e-6)
        self.assertEqual(links["605"]["to"], links["608"]["from"])
        self.assertEqual(links["606"]["to"], links["607"]["from"])

    def test_valves_and_meters_stand_beside_the_pipes(self):
        _, links, fittings = self.table(example("town.dxf"), *self.START)
        found = {row["handles"]: (row["kind"], row["number"]) for row in fittings}
        self.assertEqual(found, {"611": ("valve", "J1"), "612": ("valve", "J2"),
                                 "615": ("valve", "J5"), "613": ("meter", "J3"),
                                 "614": ("meter", "J4"), "616": ("meter", "J6"),
                                 "617": ("meter", "J7")})
        self.assertEqual(len(links), 8)  # 601 four times, and 602 to 608

    def test_every_pipe_of_a_large_main(self):
        """Each pipe once, as long as it is drawn, with the water as its text says, between nodes
        that stand where it ends."""
        truth = truth_of("l-town-tree")
        pick = truth["pressure"][0]["pick"]
        x, y = pick["point"]
        nodes, links, _ = self.table(example("l-town-tree.dxf"), "--start", pick["pipe"],
                                     "--point", f"{x},{y}")
        self.assertEqual(len(links), 1140)
        places = {node["name"]: (float(node["x"]), float(node["y"])) for node in nodes}
        for handle, pipe in truth["pipes"].items():
            link = links[handle]
            ends = [pipe["startPoint"], pipe["endPoint"]]
            if pipe["flow"] == "ES":
                ends.reverse()
            self.assertAlmostEqual(float(link["length_m"]), pipe["length"], delta=3e-6)
            self.assertEqual(int(link["diameter_mm"]), pipe["diameter"])
            for end, node in zip(ends, (link["from"], link["to"])):
                reach = 0.6 + truth["reach"]  # a plain well's radius beside the joint's reach
                # A tank is a node at its own place; pipes end inside it.
                self.assertLessEqual(math.dist(end, places[node]), max(reach, 3.7), handle)

    def test_the_picked_end_is_a_reservoir(self):
        """The pipe begins at 94.6 m; 30 m of water stand above it."""
        run, target = self.export(example("town.dxf"), "epanet", *self.START)
        self.assertEqual(run.status, 0)
        back = Truth(target)
        reservoirs = {n: d["height"] for n, d in back.nodes.items() if d["kind"] == "reservoir"}
        self.assertEqual(reservoirs, {"J1": 124.6})
        self.assertIn("stands as 124.6 m, 30 m above the pipe", run.err)

    def test_a_valve_well_cuts_its_pipe(self):
        """611 stands at x = 14 on the first piece of 601: 8 m up to it and 14 m behind."""
        _, target = self.export(example("town.dxf"), "epanet", *self.START)
        back = Truth(target)
        valve = back.links["J1"]
        self.assertEqual((valve["device"], valve["diameter"]), ("valve", 200.0))
        before = next(link for link in back.links.values() if link["ends"][1] == valve["ends"][0])
        behind = next(link for link in back.links.values() if link["ends"][0] == valve["ends"][1])
        self.assertEqual((before["length"], behind["length"]), (8.0, 14.0))
        self.assertEqual(back.nodes[valve["ends"][0]]["point"], (14.0, 54.0))
        self.assertEqual(sum(link["device"] == "valve" for link in back.links.values()), 3)


if __name__ == "__main__":
    unittest.main()
