"""The example drawings of published models are what import and roughening make of them."""
import os
import re
import subprocess
import sys
import unittest

from PipenetProcess import EXAMPLES, PipenetTest

MADE_FROM = {"brambleton": ("brambleton",), "epa-user1": ("epa-user1",),
             "l-town-tree": ("ltown", "--tree"), "l-town-whole": ("ltown",)}


def content(path):
    with open(path, "rb") as file:
        return file.read()


class ExamplesTest(PipenetTest):
    def made(self, name):
        """Runs the two commands and gives the drawing's path."""
        model, *options = MADE_FROM[name]
        source = os.path.join(EXAMPLES, "models", model + ".inp")
        clean, target = self.path("clean.dxf"), self.path(name + ".dxf")
        self.assert_done(self.run_program("import", source, "--output", clean))
        subprocess.run([sys.executable, "-B", os.path.join(EXAMPLES, "roughen.py"), clean, source,
                        target, *options], check=True, timeout=240)
        return target

    def test_the_two_commands_give_the_same_bytes_again(self):
        for name in MADE_FROM:
            with self.subTest(name):
                target = self.made(name)
                for end in (".dxf", ".truth.json"):
                    committed = os.path.join(EXAMPLES, name + end)
                    self.assertTrue(content(target[:-4] + end) == content(committed), name + end)

    def test_a_drawing_that_does_not_agree_with_its_model_is_not_taken(self):
        """The first pipe is drawn 7 mm wide, which none of the model is."""
        source = os.path.join(EXAMPLES, "models", "epa-user1.inp")
        clean, target = self.path("clean.dxf"), self.path("rough.dxf")
        self.assert_done(self.run_program("import", source, "--output", clean))
        text = content(clean).decode("utf-8")
        changed, count = re.subn(r"(管径\n1000\n)(\d+)", r"\g<1>7", text, count=1)
        self.assertEqual(count, 1)
        with open(clean, "w", encoding="utf-8", newline="") as file:
            file.write(changed)
        done = subprocess.run([sys.executable, "-B", os.path.join(EXAMPLES, "roughen.py"), clean,
                               source, target], check=False, capture_output=True,
                              encoding="utf-8", timeout=240)
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stderr, r"^width of \S+: the drawing has 7, the model says \d+\n$")
        self.assertFalse(os.path.exists(target))


if __name__ == "__main__":
    unittest.main()
