"""What the tests of import and export share."""
import csv
import json
import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [HERE, os.path.dirname(HERE)]

from PipenetProcess import EXAMPLES, PipenetTest  # noqa: E402, F401
from RoundTrip import Trip  # noqa: E402, F401

MODELS = os.path.join(EXAMPLES, "models")


def example(name):
    return os.path.join(EXAMPLES, name)


def truth_of(name):
    with open(example(name + ".truth.json"), encoding="utf-8") as file:
        return json.load(file)


class ExchangeTest(PipenetTest):
    def export(self, drawing, form, *start):
        """Exports and gives the run and the path of the file."""
        target = self.path("out." + form)
        return self.run_program("export", drawing, *start, "--to", form, "--output", target), target

    def table(self, drawing, *start):
        """The rows of a table: nodes and fittings in lists, links by their first handle."""
        run, target = self.export(drawing, "csv", *start)
        self.assert_done(run)
        with open(target, encoding="utf-8", newline="") as file:
            rows = list(csv.DictReader(file))
        return ([row for row in rows if row["record"] == "node"],
                {row["handles"].split()[0]: row for row in rows if row["record"] == "link"},
                [row for row in rows if row["record"] == "fitting"])

    def model(self, text):
        return self.text_file("model.inp", text)

    def import_model(self, text, *more):
        target = self.path("drawing.dxf")
        return self.run_program("import", self.model(text), "--output", target, *more), target
