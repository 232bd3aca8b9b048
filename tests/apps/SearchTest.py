"""The command search on networks that it finds."""
import json
import math
import os
import unittest

from PipenetProcess import EXAMPLES, PipenetTest, SmallDrawing, SQUARE, chain

CHAIN_WELLS = (
    '"wells":[{"entity":"A1","merged":[],"isWell":1,"number":"A","systemName":"污水",'
    '"point":[0,0,0],"radius":0.5,"inSeg":-1,"outSegs":[0]},'
    '{"entity":"A2","merged":[],"isWell":1,"number":"B","systemName":"污水",'
    '"point":[20,0,0],"radius":0.5,"inSeg":0,"outSegs":[1]},'
    '{"entity":"A3","merged":[],"isWell":1,"number":"C","systemName":"污水",'
    '"point":[20,15,0],"radius":0.5,"inSeg":1,"outSegs":[]}]')
# The first pipe is drawn along the walk: its water runs with it, its higher end comes second.
# The second is drawn against the walk.
CHAIN_SEGS = (
    '"segs":[{"pipes":["B1"],"startWell":0,"endWell":1,"startEntity":"A1","endEntity":"A2",'
    '"startPoint":[0,0,0],"endPoint":[20,0,0],"startElevation":9.5,"endElevation":10,'
    '"slope":0.025,"diameter":300,"flowText":"SE","material":"PE","systemName":"污水",'
    '"flowReversed":0,"length":19,"annotatePoint":[10,0,0],"annotateVector":[1,0,0]},'
    '{"pipes":["B2"],"startWell":1,"endWell":2,"startEntity":"A2","endEntity":"A3",'
    '"startPoint":[20,0,0],"endPoint":[20,15,0],"startElevation":10,"endElevation":11,'
    '"slope":0.1,"diameter":200,"flowText":"SE","material":"PE","systemName":"污水",'
    '"flowReversed":1,"length":14,"annotatePoint":[20,7.5,0],"annotateVector":[0,-1,0]}]')


def edge_of(seg, name_of):
    return (frozenset((name_of[seg["startEntity"]], name_of[seg["endEntity"]])),
            frozenset(seg["pipes"]))


class SearchTest(PipenetTest):
    def search(self, path, *arguments):
        run = self.run_program("search", path, "--format", "json", *arguments)
        self.assert_done(run)
        return run.json()

    def root(self, path, *arguments):
        answer = self.search(path, *arguments)
        return answer["wells"][answer["rootWell"]]["entity"]

    def test_json_is_exact(self):
        run = self.run_program("search", self.write(chain()), "--start", "A1", "--format", "json")
        self.assert_done(run)
        self.assertEqual(run.out, '{"result":1,"kind":"gravity","rootWell":0,"pathSegs":[],'
                         f'"pathWells":[],{CHAIN_WELLS},{CHAIN_SEGS}}}\n')

    def test_path_to_an_end(self):
        run = self.run_program("search", self.write(chain()), "--start", "A1", "--end", "A3",
                               "--format", "json")
        self.assert_done(run)
        self.assertEqual(run.out, '{"result":1,"kind":"gravity","rootWell":0,"pathSegs":[1,0],'
                         f'"pathWells":[2,1,0],{CHAIN_WELLS},{CHAIN_SEGS}}}\n')

    def test_path_to_a_pipe_ends_behind_it(self):
        answer = self.search(self.write(chain()), "--start", "A1", "--end", "B1")
        self.assertEqual((answer["pathWells"], answer["pathSegs"]), ([1, 0], [0]))

    def test_point_of_the_search(self):
        path = self.write(chain())
        # Without a point the origin counts, and the well there is the nearer of the two.
        self.assertEqual(self.root(path, "--start", "B1"), "A1")
        self.assertEqual(self.root(path, "--start", "B1", "--point", "19,0"), "A2")
        self.assertEqual(self.root(path, "--start", "B1", "--point", "19,0,0.5"), "A2")
        # The pick is the point, unless there is one of its own.
        self.assertEqual(self.root(path, "--pick", "16,1"), "A2")
        self.assertEqual(self.root(path, "--pick", "4,1"), "A1")
        self.assertEqual(self.root(path, "--pick", "4,1", "--point", "19,0"), "A2")
        self.assertEqual(self.root(path, "--pick", "-3,-1"), "A1")

    def test_pick_measures_to_true_arcs_and_to_the_extents_of_tanks(self):
        small = SmallDrawing()
        # Half a circle below the chord, its lowest place (105, -5); a line two below that.
        small.pipe("D1", (100.0, 0.0), (110.0, 0.0), system="燃气", bulge=1.0)
        small.pipe("D2", (90.0, -7.0), (120.0, -7.0), system="未知")
        small.tank("C1", (60.0, 0.0), (6.0, 3.0), system="未知")
        small.well("C2", (62.5, 2.0), system="消防")
        path = self.write(small)
        for pick, name in (("105,-5.2", "pipe D1"), ("105,-6.9", "pipe D2"),
                           ("105,-4", "pipe D1"), ("62.5,1.0", "tank C1"),
                           ("62.5,1.9", "well C2"), ("105,8", "pipe D1")):
            run = self.run_program("search", path, "--pick", pick)
            self.assertIn(f"no network from {name}:", run.err)

    def test_pick_measures_to_an_ellipse_and_not_to_a_polygon(self):
        # An ellipse of 1000 by 500 with its parameter cut into 96: half way along the piece behind
        # the top its chord is 0.27 away, while a pipe 0.1 above is nearer than that.
        t = math.pi / 2 + math.pi / 96
        x, y = 1000.0 * math.cos(t), 500.0 * math.sin(t)
        system = "1001\n管道系统\n1000\n燃气\n"
        path = self.text_file("ellipse.dxf", (
            "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1027\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n"
            "0\nELLIPSE\n5\nE1\n8\n0\n100\nAcDbEllipse\n10\n0.0\n20\n0.0\n11\n1000.0\n21\n0.0\n"
            f"40\n0.5\n41\n0.0\n42\n{2 * math.pi!r}\n{system}"
            f"0\nLINE\n5\nE2\n8\n0\n10\n{x - 1.0!r}\n20\n{y + 0.1!r}\n11\n{x + 1.0!r}\n21\n{y + 0.1!r}\n"
            f"{system}0\nENDSEC\n0\nEOF\n"))
        for pick, name in ((f"{x},{y}", "pipe E1"), (f"{x},{y + 0.09}", "pipe E2")):
            run = self.run_program("search", path, "--pick", pick)
            self.assertIn(f"no network from {name}:", run.err)

    def test_scale_flags_reach_the_search(self):
        path = self.write(chain())
        # At scale 500 a metre is two drawing units, so a well of one metre has a radius of 1.
        self.assertEqual(self.search(path, "--start", "A1", "--draw-scale", "500")["wells"][0]
                         ["radius"], 1)
        # From centre to centre: 0.5 + 19 + 0.5.
        self.assertEqual(self.search(path, "--start", "A1", "--length-mode", "1")["segs"][0]
                         ["length"], 20)
        self.assertEqual(self.search(path, "--start", "A1", "--length-mode", "7")["segs"][0]
                         ["length"], 0)

    def test_gap_within_reach_of_the_flag(self):
        small = SmallDrawing()
        small.well("A1", (0.0, 0.0))
        small.well("A2", (20.0, 0.0))
        small.pipe("B1", (0.5, 0.0), (9.5, 0.0))
        small.pipe("B2", (10.0, 0.0), (19.5, 0.0))
        path = self.write(small)
        # The gap is 0.5; joints reach 0.44 with a break distance of 0.1 and 0.88 with 0.2.
        self.assertEqual(self.run_program("search", path, "--start", "A1").status, 1)
        answer = self.search(path, "--start", "A1", "--break-dist", "0.2")
        self.assertEqual(answer["segs"][0]["pipes"], ["B1", "B2"])
        self.assertEqual(self.search(path, "--start", "A1", "--dwg-scale", "2")["segs"][0]
                         ["pipes"], ["B1", "B2"])

    def test_merged_wells_and_numbers_that_need_digits(self):
        small = SmallDrawing()
        small.well("A1", (0.1, 0.2))
        small.well("A2", (1.1, 0.2), block=SQUARE)
        small.well("A3", (20.1, 0.2))
        small.pipe("B1", (1.6, 0.2), (19.6, 0.2))
        answer = self.search(self.write(small), "--start", "A1")
        root = answer["wells"][0]
        self.assertEqual((root["merged"], root["number"]), (["A2"], ""))
        # Midpoint, and half of the distance plus both radii, the square one to its corner.
        self.assertAlmostEqual(root["point"][0], 0.6, 12)
        self.assertAlmostEqual(root["radius"], (1.0 + 0.5 + 0.5 * 1.414) / 2.0, 12)

    def test_examples_are_rebuilt_as_they_were_drawn(self):
        for drawing, systems in (("town", ("污水", "雨水")), ("brambleton", ("雨水",)),
                                 ("epa-user1", ("雨水",))):
            with open(os.path.join(EXAMPLES, drawing + ".truth.json"), encoding="utf-8") as file:
                truth = json.load(file)
            for system in systems:
                self.check_against(truth, drawing + ".dxf", system)

    def check_against(self, truth, drawing, system):
        nodes = [n for n in truth["nodes"] if n["system"] == system]
        edges = [e for e in truth["edges"] if e["system"] == system]
        name_of = {handle: n["name"] for n in nodes for handle in n["handles"]}
        answer = self.search(os.path.join(EXAMPLES, drawing), "--start", nodes[0]["handles"][0])
        self.assertEqual(answer["wells"][0]["entity"], nodes[0]["handles"][0])
        found = {name_of[w["entity"]]: w for w in answer["wells"]}
        self.assertEqual(set(found), {n["name"] for n in nodes})
        for node in nodes:
            well = found[node["name"]]
            self.assertEqual({well["entity"], *well["merged"]}, set(node["handles"]))
            self.assertEqual((well["isWell"], well["number"]),
                             (int(node["kind"] == "well"), node["number"]))
            for a, b in zip(well["point"] + [well["radius"]],
                            node["point"] + [0.0, node["radius"]]):
                self.assertAlmostEqual(a, b, 5)
        self.assertEqual({edge_of(s, name_of) for s in answer["segs"]},
                         {(frozenset((e["upstream"], e["downstream"])), frozenset(e["pipes"]))
                          for e in edges})
        self.check_water(answer, edges, name_of)

    def check_water(self, answer, edges, name_of):
        """The water of each segment runs from the upstream node to the downstream one."""
        upstream = {frozenset(e["pipes"]): e["upstream"] for e in edges}
        for seg in answer["segs"]:
            source = seg["endEntity"] if seg["flowReversed"] else seg["startEntity"]
            self.assertEqual(name_of[source], upstream[frozenset(seg["pipes"])], seg["pipes"])


if __name__ == "__main__":
    unittest.main()
