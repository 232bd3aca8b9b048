"""An answer larger than what the program keeps of it at a time."""
import json
import os
import subprocess
import sys
import unittest

from PipenetProcess import PipenetTest, SETTINGS, SmallDrawing, clean_environment

WELLS = 8000
# The peak of a process counts what the one that began it had in memory then, so a bare one begins it.
MEASURE = """
import resource, subprocess, sys
status = subprocess.run(sys.argv[1:], stdin=subprocess.DEVNULL).returncode
print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss, file=sys.stderr)
sys.exit(status)
"""


def long_chain():
    """Wells 20 m apart in a line, each joined to the next."""
    small = SmallDrawing()
    for i in range(WELLS):
        small.well(f"{0x100000 + i:X}", (20.0 * i, 0.0), f"N{i}")
    for i in range(WELLS - 1):
        small.pipe(f"{0x200000 + i:X}", (20.0 * i + 0.5, 0.0), (20.0 * i + 19.5, 0.0))
    return small


class LargeAnswerTest(PipenetTest):
    def setUp(self):
        super().setUp()
        self.drawing = self.write(long_chain())

    def search(self, *arguments):
        """Standard output of a search and the most memory that the process had, bytes."""
        # Sanitizers that keep what was freed would count it as had.
        sanitizers = os.environ.get("ASAN_OPTIONS", "")
        environment = clean_environment(
            ASAN_OPTIONS=f"{sanitizers}:quarantine_size_mb=0:thread_local_quarantine_size_kb=0")
        done = subprocess.run(
            [sys.executable, "-c", MEASURE, os.environ["PIPENET"], "--settings", SETTINGS, "search",
             self.drawing, "--start", "100000", *arguments],
            capture_output=True, check=True, timeout=240, env=environment)
        return done.stdout, int(done.stderr) * 1024

    def test_every_record_is_written_in_its_order(self):
        network = json.loads(self.search("--format", "json")[0])
        self.assertEqual([well["number"] for well in network["wells"]],
                         [f"N{i}" for i in range(WELLS)])
        self.assertEqual([seg["pipes"] for seg in network["segs"]],
                         [[f"{0x200000 + i:X}"] for i in range(WELLS - 1)])

    def test_timing_joins_an_answer_of_many_pieces(self):
        plain = self.search("--format", "json")[0]
        timed = self.search("--format", "json", "--timing")[0]
        self.assertTrue(plain.endswith(b"}\n"))
        self.assertEqual(timed[:len(plain) - 2], plain[:-2])
        end = json.loads(b"{" + timed[len(plain) - 1:])
        self.assertEqual(list(end["timing"]), ["load_ms", "search_ms"])

    def test_the_answer_never_stands_in_memory_as_a_whole(self):
        table, with_table = self.search("--format", "table")
        answer, with_json = self.search("--format", "json")
        self.assertGreater(len(answer), 5 * len(table))
        self.assertLess(with_json, with_table + len(answer) // 2)


if __name__ == "__main__":
    unittest.main()
