"""Help, version and usage errors."""
import os
import unittest

from PipenetProcess import EXAMPLES, PipenetTest, Run, SETTINGS, chain

TOWN = os.path.join(EXAMPLES, "town.dxf")


class CommandLineTest(PipenetTest):
    def test_version_and_help_go_to_standard_output(self):
        version = Run(["--version"])
        self.assert_done(version)
        self.assertRegex(version.out, r"^pipenet \d+\.\d+\.\d+\n$")
        for arguments in (["--help"], ["search", "--help"]):
            text = Run(arguments)
            self.assert_done(text)
            self.assertIn("Exit status" if arguments[0] == "--help" else "--pick", text.out)

    def test_help_names_every_command_and_none_that_does_not_exist(self):
        text = Run(["--help"]).out
        commands = [line.split()[0] for line in text.split("Subcommands:")[1].splitlines()
                    if line.startswith("  ") and line[2] != " "]
        self.assertEqual([c for c in commands if c != "pipenet"],
                         ["info", "search", "segment", "segments", "path", "lower", "break",
                           "trim", "check", "export", "import"])

    def test_usage_errors_are_one_line_and_status_2(self):
        for arguments in ([], ["frobnicate"], ["info"], ["info", TOWN, "--bogus"],
                          ["search", TOWN], ["search", TOWN, "--start", "1", "--pick", "1,1"],
                          ["segment", TOWN], ["info", TOWN, "--format", "xml"],
                          ["search", TOWN, "--start"]):
            run = self.run_program(*arguments)
            self.assertEqual((run.status, run.out), (2, ""), arguments)
            self.assertRegex(run.err, r"^pipenet: [^\n]+; see pipenet --help\n$")

    def test_what_users_and_files_name_stays_on_one_line(self):
        for arguments in (["search", TOWN, "--start", "3\n4"], ["info", "a\nb.dxf"],
                          ["search", TOWN, "--start", "FFFF", "--settings", "no\r\nfolder"]):
            run = self.run_program(*arguments)
            self.assertEqual((run.status, run.out), (2, ""), arguments)
            self.assertRegex(run.err, r"^pipenet: [^\n\r]+\n$")

    def test_malformed_values(self):
        cases = {
            ("search", TOWN, "--start", "12G"):
                "--start: '12G' is no handle (1 to 16 hexadecimal digits, not all of them 0)",
            ("search", TOWN, "--start", "0"):
                "--start: '0' is no handle (1 to 16 hexadecimal digits, not all of them 0)",
            ("search", TOWN, "--pick", "1"): "--pick: '1' is not of the form X,Y",
            ("search", TOWN, "--pick", "1,2,3"): "--pick: '1,2,3' is not of the form X,Y",
            ("search", TOWN, "--pick", "1,nan"): "--pick: '1,nan' is not of the form X,Y",
            ("search", TOWN, "--start", "101", "--point", "1,2,3,4"):
                "--point: '1,2,3,4' is not of the form X,Y or X,Y,Z",
            ("info", TOWN, "--draw-scale", "0"): "--draw-scale: '0' is no number above 0",
            ("info", TOWN, "--break-dist", "-1"):
                "--break-dist: '-1' is no number of at least 0",
            ("info", TOWN, "--length-mode", "0.5"):
                "--length-mode: '0.5' is no number without a fraction"}
        for arguments, line in cases.items():
            self.assert_failed(self.run_program(*arguments), line)

    def test_settings_may_stand_after_the_command_but_not_twice(self):
        path = self.write(chain())
        self.assert_done(Run(["info", path, "--settings", SETTINGS, "--format", "json"]))
        self.assertEqual(Run(["--format", "json", "info", path, "--settings", SETTINGS]).out,
                         Run(["info", path, "--settings", SETTINGS, "--format", "json"]).out)
        self.assert_failed(self.run_program("info", path, "--settings", SETTINGS),
                           "--settings is given more than once; see pipenet --help")

    def test_unknown_handle(self):
        path = self.write(chain())
        for arguments in (["search", path, "--start", "1F3"],
                          ["search", path, "--start", "A1", "--end", "1f3"],
                          ["segment", path, "--pipe", "1F3"]):
            self.assert_failed(self.run_program(*arguments),
                               f"{path}: no entity has the handle 1F3")

    def test_drawing_that_cannot_be_read_names_file_line_and_cause(self):
        missing = self.path("no.dxf")
        run = self.run_program("info", missing)
        self.assertEqual((run.status, run.out), (2, ""))
        self.assertRegex(run.err, rf"^pipenet: {missing}: [^\n]*No such file or directory\n$")
        # The group code in the fifth line is no number.
        bad = self.text_file("bad.dxf", "0\nSECTION\n2\nENTITIES\nxyz\n1\n0\nENDSEC\n0\nEOF\n")
        run = self.run_program("info", bad)
        self.assertEqual((run.status, run.out), (2, ""))
        self.assertRegex(run.err, rf"^pipenet: {bad}:5: [^\n]+\n$")

    def test_handles_are_read_in_either_case(self):
        path = self.write(chain())
        upper, lower = (self.run_program("search", path, "--start", handle, "--format", "json")
                        for handle in ("A1", "a1"))
        self.assert_done(upper)
        self.assertEqual(upper.out, lower.out)


if __name__ == "__main__":
    unittest.main()
