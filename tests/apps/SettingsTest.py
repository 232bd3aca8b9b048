"""Where the settings come from, and settings that cannot be read."""
import os
import unittest

from PipenetProcess import PipenetTest, Run, SETTINGS, chain, clean_environment

SYSTEMS = "1 = 污水\n1\\GroupType = 重力流\n1\\GroupFlag = {}\n"


class SettingsTest(PipenetTest):
    def setUp(self):
        super().setUp()
        self.drawing = self.write(chain())

    def folder_with(self, name, systems, drawing=None):
        self.text_file(os.path.join(name, "SysCon", "PipeLineSetting.Kdp"), systems)
        if drawing is not None:
            self.text_file(os.path.join(name, "SysCon", "DrawingSetting.Kdp"), drawing)
        return self.path(name)

    def flag(self, arguments, environment):
        run = Run([*arguments, "info", self.drawing, "--format", "json"], environment)
        self.assert_done(run)
        return run.json()["systems"][0]["flag"]

    def test_option_wins_over_the_variable(self):
        one = self.folder_with("one", SYSTEMS.format("A"))
        two = self.folder_with("two", SYSTEMS.format("B"))
        environment = clean_environment(TKVLT_SYSTEM_PATH=one)
        self.assertEqual(self.flag([], environment), "A")
        self.assertEqual(self.flag(["--settings", two], environment), "B")

    def test_missing_folder_and_folder_without_files(self):
        os.mkdir(self.path("empty"))
        for folder in (self.path("nowhere"), self.path("empty")):
            run = Run(["--settings", folder, "info", self.drawing])
            self.assert_failed(run, f"{folder}/SysCon/PipeLineSetting.Kdp: No such file or "
                               "directory; give the folder of the settings with --settings DIR "
                               "or TKVLT_SYSTEM_PATH")

    def test_malformed_line_is_named(self):
        bad = "it is neither blank, nor a comment, nor 'key = value'".replace("it is", "the line is")
        folder = self.folder_with("bad", "\ufeff# systems\r\n1 = 污水\r\nnonsense\r\n")
        self.assert_failed(Run(["--settings", folder, "info", self.drawing]),
                           f"{folder}/SysCon/PipeLineSetting.Kdp:3: {bad}")
        folder = self.folder_with("worse", SYSTEMS.format("W"), "DwgScale = 1\n\nDrawScale\n")
        self.assert_failed(Run(["--settings", folder, "search", self.drawing, "--start", "A1"]),
                           f"{folder}/SysCon/DrawingSetting.Kdp:3: {bad}")

    def test_line_that_is_not_utf8_is_named(self):
        folder = self.folder_with("gbk", "1 = x\n2 = 污水\n".encode("gbk"))
        self.assert_failed(Run(["--settings", folder, "info", self.drawing]),
                           f"{folder}/SysCon/PipeLineSetting.Kdp:2: the line is not UTF-8 text")

    def test_drawing_settings_of_the_folder_and_flags_over_them(self):
        folder = self.folder_with("scaled", SYSTEMS.format("W"), "DrawScale = 500\n")
        arguments = ["--settings", folder, "search", self.drawing, "--start", "A1", "--format",
                     "json"]
        self.assertEqual(Run(arguments).json()["wells"][0]["radius"], 1)
        self.assertEqual(Run([*arguments, "--draw-scale", "1000"]).json()["wells"][0]["radius"],
                         0.5)

    def test_answer_does_not_depend_on_the_locale(self):
        arguments = ["--settings", SETTINGS, "search", self.drawing, "--start", "A1", "--format",
                     "json"]
        plain = Run(arguments, clean_environment(LC_ALL="C"))
        self.assert_done(plain)
        self.assertEqual(Run(arguments, clean_environment(LC_ALL="de_DE.UTF-8")).out, plain.out)


if __name__ == "__main__":
    unittest.main()
