"""Help, version and usage errors."""
import os
import subprocess
import unittest

from PipenetProcess import EXAMPLES, PipenetTest, Run, SETTINGS, chain, clean_environment

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

    def test_arguments_too_many_are_named_in_their_order(self):
        run = self.run_program("search", TOWN, "--star", "501", "more")
        self.assertEqual((run.status, run.out), (2, ""))
        self.assertEqual(run.err, "pipenet: not expected: --star 501 more; see pipenet --help\n")

    def test_a_plus_sign_may_stand_before_a_number(self):
        path = self.write(chain())
        plain, signed = (self.run_program("search", path, "--pick", pick, "--format", "json")
                         for pick in ("19,0.5", "+19,+0.5"))
        self.assert_done(plain)
        self.assertEqual(signed.out, plain.out)
        for pick in ("+-19,0", "++19,0", "+,0"):
            self.assertEqual(self.run_program("search", path, "--pick", pick).status, 2, pick)

    def through_shell(self, redirection, *arguments):
        """How the program ends where the shell has changed its streams."""
        command = ["sh", "-c", f'exec "$@" {redirection}', "sh", os.environ["PIPENET"],
                   "--settings", SETTINGS, *arguments]
        return subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, check=False,
                              timeout=60, env=clean_environment())

    def test_standard_error_that_cannot_be_written_changes_no_status(self):
        path = self.write(chain())
        for redirection in ("2>/dev/full", "2>&-"):
            for arguments, status in ((["info", "nofile.dxf"], 2), (["search", path, "--start", "A5"], 1),
                                      (["search", path, "--start", "A1"], 0)):
                with self.subTest(redirection, arguments=arguments):
                    done = self.through_shell(redirection, *arguments)
                    self.assertEqual((done.returncode, done.stderr), (status, b""))

    def test_notes_go_into_no_file_where_standard_error_is_closed(self):
        path = self.write(chain())
        wanted, there = self.path("wanted.inp"), self.path("there.inp")
        with_notes = self.run_program("export", path, "--start", "A1", "--to", "swmm", "--output", wanted)
        self.assertEqual(with_notes.status, 0)
        self.assertIn("note:", with_notes.err)
        self.assertEqual(self.through_shell("2>&-", "export", path, "--start", "A1", "--to", "swmm",
                                            "--output", there).returncode, 0)
        with open(wanted, "rb") as one, open(there, "rb") as other:
            self.assertEqual(one.read(), other.read())

    def test_help_that_cannot_be_written(self):
        for arguments in (["--help"], ["--version"], ["search", "--help"]):
            for redirection in (">/dev/full", ">&-"):
                with self.subTest(redirection, arguments=arguments):
                    done = self.through_shell(redirection, *arguments)
                    self.assertEqual((done.returncode, done.stderr),
                                     (2, b"pipenet: standard output: cannot be written\n"))

    def test_output_may_have_the_longest_name_there_is(self):
        path = self.write(chain())
        for name in ("n" * 251 + ".dxf", "井" * 83 + "ab.dxf"):
            self.assertEqual(len(name.encode("utf-8")), 255)
            output = self.path(name)
            done = self.run_program("lower", path, "--pipe", "B1", "--drop", "0.5", "--output", output)
            self.assert_done(done)
            self.assertTrue(os.path.getsize(output) > 0)
        self.assertEqual(len(os.listdir(self.folder)), 3, "nothing temporary is left")

    def test_handles_are_read_in_either_case(self):
        path = self.write(chain())
        upper, lower = (self.run_program("search", path, "--start", handle, "--format", "json")
                        for handle in ("A1", "a1"))
        self.assert_done(upper)
        self.assertEqual(upper.out, lower.out)


if __name__ == "__main__":
    unittest.main()
