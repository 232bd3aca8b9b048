"""Runs the programs of the benchmarks and hands their figures back.

A figure is a pair of medians in milliseconds: the time in user mode and the wall time.
"""
import json
import os
import statistics
import subprocess
import sys
from collections import namedtuple

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
SETTINGS = os.path.join(ROOT, "examples", "settings")
LEAST_SECONDS = "0.1"  # of one repetition

Figure = namedtuple("Figure", "user wall")


def say(text):
    print(text, file=sys.stderr, flush=True)


def output_of(command):
    environment = {key: value for key, value in os.environ.items() if not key.startswith("TKVLT_")}
    done = subprocess.run(command, env=environment, stdout=subprocess.PIPE, text=True, check=False)
    if done.returncode != 0:
        sys.exit(f"benchmark: {os.path.basename(command[0])} failed")
    return done.stdout


def median(pairs):
    """Of pairs of user and wall time."""
    return Figure(*(statistics.median(values) for values in zip(*pairs)))


def figure_of_lines(text):
    """Each line has the wall time and the time in user mode."""
    pairs = [tuple(float(word) for word in reversed(line.split())) for line in text.splitlines()]
    return median(pairs)


class Programs:
    def __init__(self, build):
        self.programs = os.path.join(build, "bin")
        self.towns = os.path.join(build, "benchmark-towns")
        os.makedirs(self.towns, exist_ok=True)

    def program(self, name):
        return os.path.join(self.programs, name)

    def town(self, kind, size, ending=""):
        return os.path.join(self.towns, f"{kind}-{size}{ending}")

    def lay(self, kind, size):
        """Makes a drawing unless it is there, made by this very generator or a later one."""
        drawing, generator = self.town(kind, size, ".dxf"), self.program("lay_town")
        if not os.path.exists(drawing) or os.path.getmtime(drawing) < os.path.getmtime(generator):
            say(f"laying {kind} {size:,}")
            output_of([generator, kind, str(size), self.town(kind, size)])

    def measure(self, drawing, operations, repetitions):
        """The figures of some operations on one drawing, one after the other in one process."""
        say(f"measuring {drawing}: {', '.join(operations)}")
        answer = json.loads(output_of([
            self.program("benchmark_module"), self.towns, os.path.join(ROOT, "examples"), SETTINGS,
            f"--benchmark_filter=^({'|'.join(operations)})/{drawing}/manual_time$",
            f"--benchmark_min_time={LEAST_SECONDS}", f"--benchmark_repetitions={repetitions}",
            "--benchmark_format=json"]))
        pairs = {operation: [] for operation in operations}
        for run in answer["benchmarks"]:
            if run.get("error_occurred"):
                sys.exit(f"benchmark: {run['name']} was refused: {run['error_message']}")
            if run["run_type"] == "iteration":
                pairs[run["name"].split("/")[0]].append((run["user_ms"], run["real_time"]))
        return {operation: median(values) for operation, values in pairs.items()}

    def peer(self, kind, size, repetitions):
        say(f"measuring {kind}-{size}: the peer")
        return figure_of_lines(output_of(
            [self.program("strtree_peer"), self.town(kind, size, ".csv"), str(repetitions)]))

    def ezdxf(self, kind, size, repetitions):
        say(f"measuring {kind}-{size}: ezdxf")
        python = "/usr/bin/python3" if os.access("/usr/bin/python3", os.X_OK) else sys.executable
        script = os.path.join(ROOT, "benchmarks", "ezdxf_load.py")
        return figure_of_lines(output_of(
            [python, script, self.town(kind, size, ".dxf"), str(repetitions)]))

    def memory(self, kind, size):
        """Peak after loading and after searching, and the file's size, in KiB."""
        say(f"measuring {kind}-{size}: memory")
        return [int(word) for word in output_of(
            [self.program("peak_memory"), self.town(kind, size), SETTINGS]).split()]
