"""The command segment."""
import unittest

from PipenetProcess import PipenetTest, SmallDrawing, chain


class SegmentTest(PipenetTest):
    def segment(self, path, pipe, *arguments):
        return self.run_program("segment", path, "--pipe", pipe, "--format", "json", *arguments)

    def test_json_is_exact(self):
        run = self.segment(self.write(chain()), "B2")
        self.assert_done(run)
        # The record runs against the entity: its end is the well at the pipe's start.
        self.assertEqual(
            run.out,
            '{"result":1,"kind":1,"gravity":{"pipes":["B2"],"startWell":-1,"endWell":-1,'
            '"startEntity":"A2","endEntity":"A3","startPoint":[20,0,0],"endPoint":[20,15,0],'
            '"startElevation":10,"endElevation":11,"slope":0.1,"diameter":200,"flowText":"SE",'
            '"material":"PE","systemName":"污水","flowReversed":1,"length":14,'
            '"annotatePoint":[20,7.5,0],"annotateVector":[0,-1,0]},"pressure":null}\n')

    def test_one_end_open(self):
        small = SmallDrawing()
        small.well("A1", (0.0, 0.0))
        small.pipe("B1", (0.5, 0.0), (8.5, 0.0), flow="ES", low="1", high="2")
        run = self.segment(self.write(small), "B1")
        self.assert_done(run)
        answer = run.json()
        seg = answer["gravity"]
        self.assertEqual((answer["result"], seg["startEntity"], seg["endEntity"]), (2, None, "A1"))
        self.assertEqual((seg["startPoint"], seg["endPoint"], seg["length"]),
                         ([8.5, 0, 0], [0, 0, 0], 8))
        # The upstream end is the pipe's end, which is the record's start.
        self.assertEqual((seg["startElevation"], seg["endElevation"]), (1, 2))

    def test_no_end_prints_the_record_and_says_why(self):
        small = SmallDrawing()
        small.pipe("B1", (0.0, 0.0), (8.0, 0.0))
        run = self.segment(self.write(small), "B1")
        self.assertEqual(run.status, 1)
        self.assertEqual((run.json()["result"], run.json()["kind"]), (0, 1))
        self.assertEqual((run.json()["gravity"]["pipes"], run.json()["gravity"]["length"]),
                         (["B1"], 8))
        self.assertRegex(run.err, r"^pipenet: no segment at pipe B1: neither end .*check the gaps "
                         r"between its pieces \(at most 0\.44 drawing units\).*\n$")

    def test_pipe_too_short_to_take_part(self):
        small = SmallDrawing()
        small.pipe("B1", (0.0, 0.0), (1.0, 0.0))
        run = self.segment(self.write(small), "B1")
        self.assertEqual((run.status, run.json()["result"]), (1, 0))
        self.assertEqual(run.json()["gravity"]["pipes"], [])
        self.assertIn("the pipe measures 1 in drawing units", run.err)

    def test_other_kinds(self):
        small = chain()
        small.pipe("D2", (0.0, 50.0), (9.0, 50.0), system="燃气")
        path = self.write(small)
        for handle, kind, words in (("D2", -1, "the settings do not say"),
                                    ("A1", -1, "carries no system name under 管道系统")):
            run = self.segment(path, handle)
            self.assertEqual(
                (run.status, run.out),
                (1, f'{{"result":0,"kind":{kind},"gravity":null,"pressure":null}}\n'))
            self.assertRegex(run.err, rf"^pipenet: no segment at [^\n]*{words}[^\n]*check[^\n]*\n$")

    def test_table(self):
        run = self.run_program("segment", self.write(chain()), "--pipe", "B2")
        self.assert_done(run)
        rows = dict(line.split("  ", 1) for line in run.out.splitlines()[2:])
        rows = {key: value.strip() for key, value in rows.items()}
        self.assertEqual(rows["ends found"], "both")
        self.assertEqual(rows["start"], "well A2 at 20, 0, 0")
        self.assertEqual(rows["length"], "14.00 m")
        self.assertEqual(rows["size"], "DN200 PE")


if __name__ == "__main__":
    unittest.main()
