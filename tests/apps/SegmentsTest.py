"""The stretches around several pipes."""
import unittest

from PipenetProcess import PipenetTest, chain


def with_other_kinds():
    small = chain()
    small.pipe("D1", (0.0, 50.0), (9.0, 50.0), system="给水")
    small.pipe("D2", (0.0, 60.0), (9.0, 60.0), system="无名")
    return small


class SegmentsTest(PipenetTest):
    def segments(self, *arguments, small=None):
        return self.run_program("segments", self.write(small or chain()), "--format", "json",
                                *arguments)

    def pipes_of(self, run):
        self.assert_done(run)
        return [seg["gravity"]["pipes"] for seg in run.json()["segs"]]

    def test_one_segment_a_pipe_in_the_order_asked_for(self):
        run = self.segments("--pipes", "B2,B1,B2")
        self.assertEqual(self.pipes_of(run), [["B2"], ["B1"], ["B2"]])
        self.assertEqual(run.json()["result"], 1)
        self.assertEqual([s["kind"] for s in run.json()["segs"]], [1, 1, 1])

    def test_fields_are_those_of_one_segment(self):
        path = self.write(chain())
        one = self.run_program("segment", path, "--pipe", "B1", "--format", "json").json()
        many = self.run_program("segments", path, "--pipes", "B1", "--format", "json").json()
        self.assertEqual(many, {"result": 1, "segs": [{k: one[k] for k in
                                                       ("kind", "gravity", "pressure")}]})

    def test_unique_lists_equal_stretches_once(self):
        run = self.segments("--pipes", "B2,B1,B2", "--unique")
        self.assertEqual(self.pipes_of(run), [["B2"], ["B1"]])

    def test_pressure_pipe_beside_gravity_pipes(self):
        run = self.segments("--pipes", "D1,B1", small=with_other_kinds())
        self.assert_done(run)
        first, second = run.json()["segs"]
        self.assertEqual((first["kind"], first["gravity"]), (0, None))
        self.assertEqual(first["pressure"]["pipes"], ["D1"])
        self.assertEqual((second["kind"], second["pressure"]), (1, None))

    def test_pipe_of_an_unknown_system_is_named(self):
        run = self.segments("--pipes", "B1,D2", small=with_other_kinds())
        self.assertEqual(run.status, 1)
        self.assertEqual(run.json()["segs"][1], {"kind": -1, "gravity": None, "pressure": None})
        self.assertRegex(run.err, r"^pipenet: no segment at [^\n]*D2[^\n]*'无名'[^\n]*check[^\n]*\n$")

    def test_table(self):
        run = self.run_program("segments", self.write(with_other_kinds()), "--pipes", "B1,D1")
        self.assert_done(run)
        rows = [line.split() for line in run.out.splitlines()]
        self.assertEqual(rows[-2], ["0", "gravity", "污水", "A2", "A1", "19.00", "DN300", "B1"])
        self.assertEqual(rows[-1], ["1", "pressure", "给水", "9.00", "DN300", "D1"])

    def test_bad_handles(self):
        path = self.write(chain())
        for text, bad in (("B1,,B2", ""), ("B1,xyz", "xyz"), ("B1,", "")):
            run = self.run_program("segments", path, "--pipes", text)
            self.assert_failed(run, f"--pipes: '{bad}' is no handle (1 to 16 hexadecimal digits, "
                                    "not all of them 0)")
        run = self.run_program("segments", path, "--pipes", "B1,FFF")
        self.assert_failed(run, f"{path}: no entity has the handle FFF")


if __name__ == "__main__":
    unittest.main()
