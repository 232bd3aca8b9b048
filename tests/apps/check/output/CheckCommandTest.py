"""The command check: JSON, exit status, --system, --output and usage errors."""
import json
import os
import unittest

from PipenetProcess import EXAMPLES, PipenetTest, Run, SmallDrawing

TOWN = os.path.join(EXAMPLES, "town.dxf")


def street(end="9.5m", flow="SE"):
    """Two wells 33 m apart and a pipe of 32 m between their rims, which ends at 9.5 m but for a
    letter too many."""
    small = SmallDrawing()
    small.well("A1", (0.0, 0.0), "1")
    small.well("A2", (33.0, 0.0), "2")
    small.pipe("B1", (0.5, 0.0), (32.5, 0.0), low="10", high=end, slope="0.015625", flow=flow)
    return small


class CheckCommandTest(PipenetTest):
    def test_json_is_exact(self):
        run = self.run_program("check", self.write(street()), "--format", "json")
        self.assert_done(run)
        self.assertEqual(
            run.out,
            '{"findings":[{"code":"number-not-whole","severity":"warning","system":"污水",'
            '"handles":["B1"],"point":[16.5,0,0],"measured":9.5,"limit":null,"unit":"m",'
            '"sentence":"终点标高 of pipe B1 is \'9.5m\' and is read as 9.5 m; write the number alone",'
            '"network":0}],'
            '"networks":[{"system":"污水","kind":"gravity","root":"A2","wells":2,"segs":1,"length":32}],'
            '"systems":[{"name":"污水","flow":"gravity","flag":"W","pipes":1,"wells":2,"tanks":0,'
            '"networks":1,"length":32,"lengths":[{"diameter":300,"material":"PE","segs":1,'
            '"length":32}],"lowest":null,"highest":null}],"loose":[]}\n')

    def test_extremes_name_the_pipe_and_its_end(self):
        run = self.run_program("check", self.write(street("9.5")), "--format", "json")
        self.assert_done(run)
        report = run.json()
        self.assertEqual(report["findings"], [])
        self.assertEqual(report["systems"][0]["lowest"],
                         {"elevation": 9.5, "entity": "B1", "point": [32.5, 0, 0]})
        self.assertEqual(report["systems"][0]["highest"],
                         {"elevation": 10, "entity": "B1", "point": [0.5, 0, 0]})

    def test_an_error_gives_status_1_and_one_line_that_counts(self):
        run = self.run_program("check", self.write(street(flow="X")), "--format", "json")
        self.assertEqual([f["code"] for f in run.json()["findings"]],
                         ["flow-text", "number-not-whole"])
        self.assertEqual((run.status, run.err),
                         (1, "pipenet: small.dxf: 2 findings: 1 error, 1 warning; the report tells "
                          "what to do about each\n"))

    def test_the_settings_decide_what_is_found(self):
        path = self.write(street("9.5"))
        folder = os.path.join(self.folder, "none")
        self.text_file("none/SysCon/PipeLineSetting.Kdp", "1 = 雨水\n1\\GroupType = 重力流\n")
        with open(os.path.join(EXAMPLES, "settings", "SysCon", "DrawingSetting.Kdp"),
                  encoding="utf-8") as file:
            self.text_file("none/SysCon/DrawingSetting.Kdp", file.read())
        run = Run(["--settings", folder, "check", path, "--format", "json"])
        report = run.json()
        self.assertEqual(run.status, 1)
        self.assertIn("unknown-system", [f["code"] for f in report["findings"]])
        self.assertEqual(report["systems"][0]["flow"], "unknown")
        self.assertEqual(sorted(report["loose"]), ["A1", "A2", "B1"])

    def test_one_system_alone(self):
        whole = self.run_program("check", TOWN, "--format", "json").json()
        for name in ("雨水", "污水", "给水"):
            one = self.run_program("check", TOWN, "--system", name, "--format", "json").json()
            self.assertEqual([s["name"] for s in one["systems"]], [name])
            self.assertEqual(one["systems"], [s for s in whole["systems"] if s["name"] == name])
            self.assertEqual({n["system"] for n in one["networks"]}, {name})
            self.assertEqual([f["code"] for f in one["findings"]],
                             [f["code"] for f in whole["findings"] if f["system"] == name])

    def test_a_system_that_the_drawing_does_not_have(self):
        for form in ("table", "json", "geojson", "html"):
            run = self.run_program("check", TOWN, "--system", "燃气", "--format", form,
                                   "--output", self.path("report"))
            self.assertEqual((run.status, run.out), (1, ""))
            self.assertEqual(run.err, "pipenet: nothing checked: the drawing has no system '燃气'; it "
                             "has 雨水, 污水 and 给水\n")
            self.assertFalse(os.path.exists(self.path("report")))
        empty = SmallDrawing()
        empty.drawing.line("126", "0", (0.0, 0.0), (1.0, 1.0))
        run = self.run_program("check", self.write(empty), "--system", "污水")
        self.assertEqual(run.err, "pipenet: nothing checked: the drawing has no system '污水'; it has "
                         "none\n")

    def test_a_drawing_without_network_has_no_findings(self):
        empty = SmallDrawing()
        empty.drawing.line("126", "0", (0.0, 0.0), (1.0, 1.0))
        run = self.run_program("check", self.write(empty), "--format", "json")
        self.assert_done(run)
        self.assertEqual(run.out, '{"findings":[],"networks":[],"systems":[],"loose":[]}\n')

    def test_output_takes_the_report_instead_of_standard_output(self):
        path = self.write(street())
        for form in ("table", "json", "geojson", "html"):
            plain = self.run_program("check", path, "--format", form)
            target = self.text_file("report." + form, "what stood there before")
            run = self.run_program("check", path, "--format", form, "--output", target)
            self.assertEqual((run.status, run.out, run.err), (0, "", ""))
            with open(target, encoding="utf-8") as file:
                self.assertEqual(file.read(), plain.out)
        self.assertEqual(sorted(os.listdir(self.folder)),
                         ["report.geojson", "report.html", "report.json", "report.table",
                          "small.dxf"])

    def test_output_never_overwrites_the_drawing(self):
        path = self.write(street())
        with open(path, "rb") as file:
            before = file.read()
        self.assert_failed(
            self.run_program("check", path, "--output", path),
            f"{path}: not written: it is the drawing itself; give another file, or --in-place")
        self.assert_failed(self.run_program("check", path, "--output", self.folder),
                           f"{self.folder}: not written: it is there and is no plain file")
        run = self.run_program("check", path, "--output", self.path("no/such/folder"))
        self.assertEqual((run.status, run.out), (2, ""))
        self.assertRegex(run.err, r"^pipenet: .*no/such/folder: cannot be written: [^\n]+\n$")
        with open(path, "rb") as file:
            self.assertEqual(file.read(), before)

    def test_forms_that_only_a_check_gives(self):
        path = self.write(street())
        for form in ("geojson", "html"):
            for arguments in (["info", path, "--format", form], ["--format", form, "info", path]):
                run = self.run_program(*arguments)
                self.assertEqual((run.status, run.out), (2, ""))
                self.assertRegex(run.err, r"^pipenet: [^\n]*" + form + r"[^\n]*; see pipenet --help\n$")
        run = self.run_program("--format", "geojson", "check", path)
        self.assert_done(run)
        self.assertEqual(json.loads(run.out)["type"], "FeatureCollection")
        self.assert_failed(self.run_program("check", path, "--format", "html", "--timing"),
                           "--timing and --format html exclude each other; see pipenet --help")

    def test_timing_comes_last(self):
        path = self.write(street())
        for form in ("json", "geojson"):
            plain = self.run_program("check", path, "--format", form).json()
            timed = self.run_program("check", path, "--format", form, "--timing").json()
            timing = timed.pop("timing")
            self.assertEqual(timed, plain)
            self.assertEqual(list(timing), ["load_ms", "search_ms"])

    def test_bad_input_is_status_2(self):
        missing = self.path("no.dxf")
        run = self.run_program("check", missing)
        self.assertEqual((run.status, run.out), (2, ""))
        self.assertRegex(run.err, rf"^pipenet: {missing}: [^\n]*No such file or directory\n$")
        self.assertFalse(os.path.exists(self.path("report")))
        for arguments in (["check"], ["check", TOWN, "--system", ""], ["check", TOWN, "--output", ""],
                          ["check", TOWN, "--format", "xml"], ["check", TOWN, "--svg", "a.svg"]):
            run = self.run_program(*arguments)
            self.assertEqual((run.status, run.out), (2, ""), arguments)
            self.assertRegex(run.err, r"^pipenet: [^\n]+; see pipenet --help\n$")


if __name__ == "__main__":
    unittest.main()
