"""An answer larger than what the program keeps of it at a time."""
import json
import os
import subprocess
import sys
import tempfile
import unittest

from PipenetProcess import PipenetTest, Run, SETTINGS, SmallDrawing, clean_environment

WELLS = 8000
FIRST_WELL, FIRST_PIPE, LONE_WELL = 0x100000, 0x200000, 0x300000
# The peak of a process counts what the one that began it had in memory then, so a bare one begins it.
MEASURE = """
import resource, subprocess, sys
status = subprocess.run(sys.argv[1:], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                        stderr=subprocess.DEVNULL).returncode
print(status, resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss * 1024)
"""


def long_chain():
    """Wells 20 m apart in a line, each joined to the next, and one far off."""
    small = SmallDrawing()
    for i in range(WELLS):
        small.well(f"{FIRST_WELL + i:X}", (20.0 * i, 0.0), f"N{i}")
    for i in range(WELLS - 1):
        small.pipe(f"{FIRST_PIPE + i:X}", (20.0 * i + 0.5, 0.0), (20.0 * i + 19.5, 0.0))
    small.well(f"{LONE_WELL:X}", (0.0, 500.0), "far")
    return small


class LargeAnswerTest(PipenetTest):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.drawing = os.path.join(folder.name, "chain.dxf")
        long_chain().drawing.write(cls.drawing)

    def command(self, name, *arguments):
        return ["--settings", SETTINGS, name, self.drawing, "--start", f"{FIRST_WELL:X}",
                "--format", "json", *arguments]

    def answer(self, name, *arguments):
        run = Run(self.command(name, *arguments))
        self.assert_done(run)
        return run.out

    def peak(self, name, *arguments):
        """Exit status and the most memory that the process had, bytes."""
        # Sanitizers that keep what was freed would count it as had.
        sanitizers = os.environ.get("ASAN_OPTIONS", "")
        environment = clean_environment(
            ASAN_OPTIONS=f"{sanitizers}:quarantine_size_mb=0:thread_local_quarantine_size_kb=0")
        done = subprocess.run(
            [sys.executable, "-c", MEASURE, os.environ["PIPENET"], *self.command(name, *arguments)],
            capture_output=True, check=True, timeout=240, env=environment)
        return [int(word) for word in done.stdout.split()]

    def assert_whole_chain(self, network):
        self.assertEqual([well["number"] for well in network["wells"]],
                         [f"N{i}" for i in range(WELLS)])
        self.assertEqual([seg["pipes"] for seg in network["segs"]],
                         [[f"{FIRST_PIPE + i:X}"] for i in range(WELLS - 1)])

    def test_every_record_is_written_in_its_order(self):
        self.assert_whole_chain(json.loads(self.answer("search")))

    def test_a_path_is_written_with_its_whole_network(self):
        network = json.loads(self.answer("path", "--target", f"{FIRST_WELL + WELLS - 1:X}"))
        self.assert_whole_chain(network)
        self.assertEqual(sorted(network["pathWells"]), list(range(WELLS)))

    def test_timing_joins_an_answer_of_many_pieces(self):
        plain = self.answer("search")
        timed = self.answer("search", "--timing")
        self.assertTrue(plain.endswith("}\n"))
        self.assertEqual(timed[:len(plain) - 2], plain[:-2])
        self.assertRegex(timed[len(plain) - 2:],
                         r'\A,"timing":\{"load_ms":[0-9.]+,"search_ms":[0-9.]+\}\}\n\Z')

    def test_the_answer_never_stands_in_memory_as_a_whole(self):
        """The same search answers in a line when it finds no path."""
        refused, without_answer = self.peak("path", "--target", f"{LONE_WELL:X}")
        done, with_answer = self.peak("search")
        self.assertEqual((refused, done), (1, 0))
        self.assertLess(with_answer, without_answer + len(self.answer("search")) // 4)

    def test_an_answer_that_cannot_be_written(self):
        """A long one breaks off at the first piece that does not fit, a short one at its end."""
        for command in (self.command("search"), self.command("path", "--target", f"{LONE_WELL:X}")):
            with self.subTest(command[2]), open("/dev/full", "wb") as full:
                done = subprocess.run([os.environ["PIPENET"], *command], stdout=full,
                                      stderr=subprocess.PIPE, stdin=subprocess.DEVNULL, check=False,
                                      timeout=240, env=clean_environment())
                self.assertEqual((done.returncode, done.stderr.decode("utf-8")),
                                 (2, "pipenet: standard output: cannot be written\n"))


if __name__ == "__main__":
    unittest.main()
