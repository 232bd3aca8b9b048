"""The tests that mutants are tried on: programs, their tests, how long each takes and what it reaches."""

import concurrent.futures
import os
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time

MEMORY_LIMIT = 4 << 30
LEAST_TIMEOUT = 10.0
TIMES_AS_LONG = 10.0
# These draw the same kind of drawings over and over with other seeds: the first block of each is enough.
BLOCKS = re.compile(r"^Blocks/.*/[1-9][0-9]*$")


class Test:
    """One test that can be run by itself: of a GoogleTest program, or a command."""

    def __init__(self, program, name, command, environment=None):
        self.program = program
        self.name = name
        self.command = command
        self.environment = environment or {}
        self.seconds = 0.0
        self.reached = frozenset()

    @property
    def is_filtered(self):
        return self.name is not None


class Outcome:
    def __init__(self, status, seconds, output):
        self.status = status  # passed, failed or timeout
        self.seconds = seconds
        self.output = output


def limited():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    os.nice(5)


def execute(command, variables, timeout):
    """Runs a command in a session and a temporary folder of its own, of which nothing is left."""
    folder = tempfile.mkdtemp(prefix="mutant-")
    environment = {**os.environ, **variables, "TMPDIR": folder, "TEST_TMPDIR": folder}
    began = time.monotonic()
    with tempfile.TemporaryFile() as output:
        with subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.STDOUT,
                              env=environment, start_new_session=True, preexec_fn=limited) as process:
            try:
                status = "passed" if process.wait(timeout) == 0 else "failed"
            except subprocess.TimeoutExpired:
                status = "timeout"
            try:
                os.killpg(process.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
        seconds = time.monotonic() - began
        output.seek(0)
        text = output.read().decode(errors="replace")
    shutil.rmtree(folder, ignore_errors=True)
    return Outcome(status, seconds, text)


def listed(program):
    """The tests of a GoogleTest program, without those that are the same with another seed."""
    text = subprocess.run([program, "--gtest_list_tests"], capture_output=True, text=True, check=True).stdout
    suite = ""
    for line in text.splitlines():
        name = line.split("#")[0].strip()
        if line.startswith("  "):
            if not BLOCKS.match(suite + name):
                yield suite + name
        elif name.endswith("."):
            suite = name


def run_tests(tests, mutant, timeout):
    """Runs tests of one program in one process; mutant: None, or the number of the one that runs."""
    variables = dict(tests[0].environment)
    if mutant is not None:
        variables["MUTANT"] = str(mutant)
    return execute(command_of(tests), variables, timeout)


def command_of(tests):
    if not tests[0].is_filtered:
        return tests[0].command
    names = ":".join(test.name for test in tests)
    return [*tests[0].command, f"--gtest_filter={names}", "--gtest_fail_fast", "--gtest_brief=1"]


def trace(test, mutants):
    """Runs a test without a mutant: it must pass. Notes its time and which mutants it reaches."""
    file, path = tempfile.mkstemp(prefix="mutant-trace-")
    os.close(file)
    outcome = execute(command_of([test]), {**test.environment, "MUTANT_TRACE": path}, 1200.0)
    with open(path, "rb") as traced:
        noted = traced.read()
    os.remove(path)
    if outcome.status != "passed":
        name = test.name or test.program
        sys.exit(f"mutate: {name} of {test.program} {outcome.status} without a mutant:\n{outcome.output[-3000:]}")
    test.seconds = outcome.seconds
    test.reached = frozenset(number for number in range(mutants) if number < len(noted) and noted[number])


def check_together(tests):
    """Tests that run one after the other in one process must pass as they do alone."""
    outcome = run_tests(tests, None, 1200.0)
    if outcome.status != "passed":
        sys.exit(f"mutate: {tests[0].program} {outcome.status} without a mutant:\n{outcome.output[-3000:]}")


def trace_all(programs, mutants, jobs):
    """programs: lists of tests, one for each program. Ends when one of them does not pass as it is."""
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        work = [pool.submit(check_together, tests) for tests in programs]
        work += [pool.submit(trace, test, mutants) for tests in programs for test in tests]
        for number, each in enumerate(concurrent.futures.as_completed(work), 1):
            each.result()
            if number % 50 == 0 or number == len(work):
                print(f"mutate: traced {number} of {len(work)}", file=sys.stderr)


def timeout_for(tests):
    return max(LEAST_TIMEOUT, TIMES_AS_LONG * sum(test.seconds for test in tests))


def batches(tests, quick=0.25):
    """Tests in the order in which they are tried: the quick ones of a program in one go, quickest first."""
    groups = {}
    for test in sorted(tests, key=lambda each: each.seconds):
        key = test.program if test.seconds < quick and test.is_filtered else (test.program, test.name)
        groups.setdefault(key, []).append(test)
    return sorted(groups.values(), key=lambda group: sum(test.seconds for test in group))
