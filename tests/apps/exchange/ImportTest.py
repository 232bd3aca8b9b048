"""Drawings made from small models, worked by hand."""
import os
import unittest

import ezdxf
from ExchangeTest import ExchangeTest
from SmallModels import MAIN, SEWER


def texts(entity):
    return {name: next((tag.value for tag in entity.get_xdata(name) if tag.code == 1000), "")
            for name in entity.xdata.data}


class ImportTest(ExchangeTest):
    def entities(self, path, key):
        """Entities that carry a text under the key, with all their texts."""
        drawing = ezdxf.readfile(path)
        self.assertEqual(drawing.audit().errors, [])
        pairs = [(entity, texts(entity)) for entity in drawing.modelspace() if entity.xdata]
        return [(entity, values) for entity, values in pairs if key in values]

    def drawn(self, text, key, *more):
        run, target = self.import_model(text, *more)
        self.assert_done(run)
        return self.entities(target, key)

    def test_wells_carry_what_the_search_and_the_export_read(self):
        wells = {values["管井编号"]: (entity, values)
                 for entity, values in self.drawn(SEWER, "管井系统")}
        self.assertEqual(list(wells), ["A", "B", "C"])
        entity, values = wells["A"]
        self.assertEqual(values, {"管井系统": "雨水", "管井编号": "A", "井的直径": "0.7",
                                  "井底标高": "10.5", "地面标高": "13"})
        self.assertEqual((entity.dxf.name, tuple(entity.dxf.insert)[:2], entity.dxf.xscale),
                         ("VLT_WELL_01", (0.0, 0.0), 0.7))
        self.assertNotIn("地面标高", wells["C"][1])

    def test_sewers_run_from_rim_to_rim_with_all_their_texts(self):
        """Wells are 0.7 m wide, so P1 is drawn from 0.35 to 19.65. It falls from 10.5 to 10.2 on
        21 m."""
        pipes = {values["管段编号"]: (entity, values)
                 for entity, values in self.drawn(SEWER, "管道系统")}
        entity, values = pipes["P1"]
        self.assertEqual(values, {
            "管道系统": "雨水", "管径": "300", "管材": "PVC", "坡度": "0.014286",
            "起点标高": "10.5", "终点标高": "10.2", "水流方向": "SE", "管段编号": "P1",
            "管段长度": "21/19.300"})
        self.assertEqual((tuple(entity.dxf.start), tuple(entity.dxf.end)),
                         ((0.35, 0.0, 0.0), (19.65, 0.0, 0.0)))
        self.assertEqual(pipes["P2"][1]["管径"], "450")
        self.assertEqual(pipes["P2"][1]["管材"], "混凝土")

    def test_us_units_are_feet(self):
        """20 ft are 6.096 m, so P1 begins at 0.35 m and ends at 5.746 m, 10.5 ft are 3.2004 m."""
        feet = SEWER.replace("CMS", "CFS")
        pipes = [pair for pair in self.drawn(feet, "管道系统") if pair[1]["管段编号"] == "P1"]
        (entity, values), = pipes
        self.assertAlmostEqual(entity.dxf.end.x, 6.096 - 0.35, 9)
        self.assertEqual(values["起点标高"], "3.2")
        self.assertEqual(values["管径"], "91")  # 0.3 ft are 91.44 mm

    def test_offsets_may_be_heights(self):
        heights = SEWER.replace("FLOW_UNITS CMS", "FLOW_UNITS CMS\nLINK_OFFSETS ELEVATION")
        heights = heights.replace("P1 A B 21 0.01 0 0.2", "P1 A B 21 0.01 * 10.4")
        heights = heights.replace("P2 B C 30 0.013 0 0", "P2 B C 30 0.013 10.1 9")
        found = {values["管段编号"]: (values["起点标高"], values["终点标高"])
                 for _, values in self.drawn(heights, "管道系统")}
        self.assertEqual(found, {"P1": ("10.5", "10.4"), "P2": ("10.1", "9")})

    def test_a_short_pipe_narrows_its_wells(self):
        """Nodes 1.5 m apart leave 1.5 - 1.02 = 0.48 m for two radii, so 0.48 m for a diameter."""
        near = SEWER.replace("B 20 0", "B 1.5 0").replace("P1 A B 21", "P1 A B 1.5")
        near = near.replace("C 20 30", "C 1.5 30")
        wells = {values["管井编号"]: values["井的直径"]
                 for _, values in self.drawn(near, "管井系统")}
        self.assertEqual(wells, {"A": "0.48", "B": "0.48", "C": "0.7"})

    def test_a_pipe_of_a_unit_is_left_out_with_a_note(self):
        near = SEWER.replace("B 20 0", "B 1 0").replace("P1 A B 21", "P1 A B 1")
        run, target = self.import_model(near.replace("C 20 30", "C 1 30"))
        self.assertEqual(run.status, 0)
        self.assertEqual(run.err, "pipenet: note: P1 is left out: its ends are 1 drawing units "
                         "apart, and a pipe of one unit or less is none; a smaller --draw-scale "
                         "gives it room\n")
        self.assertEqual(len(self.entities(target, "管道系统")), 1)
        run, target = self.import_model(near.replace("C 20 30", "C 1 30"), "--draw-scale", "100")
        self.assert_done(run)
        self.assertEqual(len(self.entities(target, "管道系统")), 2)

    def test_a_storage_unit_becomes_a_tank_that_pipes_end_in(self):
        stored = SEWER.replace("[OUTFALLS]\nC 9 FREE NO",
                               "[STORAGE]\nC 9 4 0 FUNCTIONAL 0 0 40 0 0")
        run, target = self.import_model(stored)
        self.assert_done(run)
        (entity, values), = self.entities(target, "池体")
        self.assertEqual(values, {"池体": "C", "池体系统": "雨水", "长度": "8000",
                                  "井底标高": "9", "地面标高": "13"})
        self.assertEqual((entity.dxf.xscale, entity.dxf.yscale), (8.0, 5.0))
        ends = [pipe.dxf.end.y for pipe, text in self.entities(target, "管道系统")
                if text["管段编号"] == "P2"]
        self.assertAlmostEqual(ends[0], 30.0 - 2.5 + 0.05, 9)  # a little inside the wall

    def test_vertices_become_a_polyline(self):
        bent = SEWER + "[VERTICES]\nP2 25 10\nP2 25 20\n"
        pipes = {values["管段编号"]: entity for entity, values in self.drawn(bent, "管道系统")}
        line = pipes["P2"]
        self.assertEqual(line.dxftype(), "LWPOLYLINE")
        points = [tuple(point) for point in line.get_points("xy")]
        self.assertEqual(points[1:3], [(25.0, 10.0), (25.0, 20.0)])
        # From B (20, 0) to (25, 10) the way is 5 by 10: the rim lies 0.35 along it.
        self.assertAlmostEqual(points[0][0], 20.0 + 0.35 * 5.0 / 125.0 ** 0.5, 9)
        self.assertAlmostEqual(points[0][1], 0.35 * 10.0 / 125.0 ** 0.5, 9)

    def test_mains_meet_at_their_nodes_and_lead_away_from_the_reservoir(self):
        """P1 is given from J1 to R and drawn from R to J1; its water runs from J1, says the model. A
        reservoir has no height of its own: its pipe is level."""
        pipes = {values["管段编号"]: (entity, values)
                 for entity, values in self.drawn(MAIN, "管道系统")}
        entity, values = pipes["P1"]
        self.assertEqual((tuple(entity.dxf.start), tuple(entity.dxf.end)),
                         ((0.0, 0.0, 0.0), (100.0, 0.0, 0.0)))
        self.assertEqual(values, {
            "管道系统": "给水", "管径": "200", "管材": "PE", "坡度": "0", "起点标高": "5",
            "终点标高": "5", "水流方向": "ES", "管段编号": "P1", "管段长度": "100/100.000"})

    def test_a_valve_is_a_pipe_with_a_valve_well(self):
        run, target = self.import_model(MAIN)
        self.assert_done(run)
        valve, = [values for _, values in self.entities(target, "管道系统")
                  if values["管段编号"] == "V1"]
        self.assertEqual((valve["管件"], valve["管径"], valve["起点标高"], valve["终点标高"]),
                         ("阀门", "150", "5", "4"))
        well, = [(entity, values) for entity, values in self.entities(target, "管井系统")
                 if entity.dxf.name == "VLT_WELL_05"]
        self.assertEqual(tuple(well[0].dxf.insert)[:2], (105.0, 0.0))
        self.assertEqual(well[1], {"管井系统": "给水", "管井编号": "V1", "井的直径": "0.8"})

    def test_a_reservoir_is_a_tank_with_its_level(self):
        (_, values), = self.drawn(MAIN, "池体")
        self.assertEqual(values, {"池体": "R", "池体系统": "给水", "长度": "6000", "水位": "50"})

    def test_a_scheme_is_enlarged(self):
        """Pipes of 100 m and 50 m drawn with 10 and 5 units: ten times as long."""
        text = MAIN.replace("[VALVES]\nV1 J1 J2 150 PRV 40 0", "P2 J1 J2 50 150 140 0 Open")
        text = text.replace("J1 100 0", "J1 10 0").replace("J2 110 0", "J2 15 0")
        run, target = self.import_model(text)
        self.assertEqual(run.err, "pipenet: note: the map is a scheme: pipes are 10 times as long "
                         "as they are drawn, and the map is enlarged by as much\n")
        ends = sorted(entity.dxf.end.x for entity, _ in self.entities(target, "管道系统"))
        self.assertEqual(ends, [100.0, 150.0])

    def test_what_is_no_pipe_is_left_out_with_a_note(self):
        run, _ = self.import_model(SEWER + "[PUMPS]\nPU A C x ON 0 0\n[WEIRS]\nW A C TRANSVERSE 1 "
                                   "1 NO\n")
        self.assertEqual(run.err, "pipenet: note: pumps are no pipes and are left out (1 of them)\n"
                         "pipenet: note: weirs are no pipes and are left out (1 of them)\n")

    def test_the_answer_counts_what_was_drawn(self):
        run, target = self.import_model(SEWER)
        self.assertEqual(run.out, "SWMM model as 2 pipes and 3 wells of 雨水, 0 tanks: written to "
                         f"{target}\n")
        run, target = self.import_model(MAIN, "--format", "json")
        self.assertEqual(run.json(), {"result": 1, "model": "EPANET", "system": "给水", "wells": 3,
                                      "tanks": 1, "pipes": 2, "output": target})

    def test_another_system_of_the_right_kind(self):
        pipes = self.drawn(SEWER, "管道系统", "--system", "污水")
        self.assertEqual({values["管道系统"] for _, values in pipes}, {"污水"})

    def test_a_system_of_the_wrong_kind_is_refused(self):
        for system, says in (("给水", "flows under pressure"), ("无", "is no system of theirs")):
            run, target = self.import_model(SEWER, "--system", system)
            self.assertEqual((run.status, run.out), (1, "Nothing imported\n"))
            self.assertIn(f"the settings say of '{system}' that it {says}", run.err)
            self.assertFalse(os.path.exists(target))


if __name__ == "__main__":
    unittest.main()
