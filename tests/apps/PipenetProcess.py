"""Runs the real program, and draws small networks for it."""
import json
import os
import subprocess
import sys
import tempfile
import unittest

EXAMPLES = os.environ["TKVLT_EXAMPLES"]
SETTINGS = os.path.join(EXAMPLES, "settings")
sys.path.insert(0, EXAMPLES)

from dxf_writer import Drawing  # noqa: E402
from network_layout import ROUND, SQUARE, TANK  # noqa: E402


class Run:
    """What one call of the program left."""

    def __init__(self, arguments, environment=None):
        done = subprocess.run([os.environ["PIPENET"], *arguments], capture_output=True,
                              check=False, timeout=240, stdin=subprocess.DEVNULL,
                              env=environment or clean_environment())
        self.status = done.returncode
        self.out = done.stdout.decode("utf-8")
        self.err = done.stderr.decode("utf-8")

    def json(self):
        return json.loads(self.out)


def clean_environment(**more):
    names = {k: v for k, v in os.environ.items() if k != "TKVLT_SYSTEM_PATH"}
    return {**names, **more}


class SmallDrawing:
    """A drawing of few entities. Wells are one metre wide unless told otherwise."""

    def __init__(self):
        self.drawing = Drawing()
        self.drawing.layer("管", 4)
        box = [(-0.5, -0.5), (0.5, -0.5), (0.5, 0.5), (-0.5, 0.5)]
        self.drawing.block(ROUND, [("circle", 0, 0, 0.5)])
        self.drawing.block(SQUARE, [("polygon", box)])
        self.drawing.block(TANK, [("polygon", box)])

    def well(self, handle, point, number="", system="污水", diameter="1", block=ROUND):
        data = [("管井系统", system), ("管井编号", number), ("井的直径", diameter)]
        self.drawing.insert(handle, "管", block, point, (1.0, 1.0), 0.0, data)

    def tank(self, handle, point, size, system="污水"):
        data = [("池体", "T"), ("池体系统", system)]
        self.drawing.insert(handle, "管", TANK, point, size, 0.0, data)

    def pipe(self, handle, start, end, system="污水", flow="SE", low="", high="", bulge=None,
             diameter="300", slope="0.01"):
        data = [("管道系统", system), ("管径", diameter), ("管材", "PE"), ("坡度", slope),
                ("起点标高", low), ("终点标高", high), ("水流方向", flow)]
        if bulge is None:
            self.drawing.line(handle, "管", start, end, data)
        else:
            self.drawing.polyline(handle, "管", [(*start, bulge), (*end, 0.0)], data)


def chain():
    """A1 at the origin, B1 to A2 in the east, B2 from A3 in the north of A2 down to A2. The water
    runs along both pipes as they are drawn. A5 stands alone, A4 belongs to another system."""
    small = SmallDrawing()
    small.well("A1", (0.0, 0.0), "A")
    small.well("A2", (20.0, 0.0), "B")
    small.well("A3", (20.0, 15.0), "C")
    small.well("A4", (50.0, 50.0), "D", "雨水")
    small.well("A5", (80.0, 0.0), "E")
    small.pipe("B1", (0.5, 0.0), (19.5, 0.0), low="10.0", high="9.5", slope="0.025")
    small.pipe("B2", (20.0, 14.5), (20.0, 0.5), low="11", high="10", diameter="200x",
               slope="1e-1")
    return small


class PipenetTest(unittest.TestCase):
    """A test with a folder of its own."""

    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, small, name="small.dxf"):
        small.drawing.write(self.path(name))
        return self.path(name)

    def text_file(self, name, text):
        path = self.path(name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as file:
            file.write(text if isinstance(text, bytes) else text.encode("utf-8"))
        return path

    def run_program(self, *arguments):
        return Run(["--settings", SETTINGS, *arguments])

    def assert_done(self, run):
        self.assertEqual((run.status, run.err), (0, ""))

    def assert_failed(self, run, line):
        """Status 2, nothing on standard output, and exactly this line on standard error."""
        self.assertEqual((run.status, run.out, run.err), (2, "", f"pipenet: {line}\n"))
