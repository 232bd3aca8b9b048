"""Runs mutants against the tests that reach them, and keeps what came of it."""

import concurrent.futures
import json
import os
import re
import sys
import threading

from suite import batches, run_tests, timeout_for


class Results:
    """build/mutate/results.json: written after each mutant, so that a run that was cut short goes on."""

    def __init__(self, path, fingerprint, afresh):
        self.path = path
        self.lock = threading.Lock()
        self.data = {"fingerprint": fingerprint, "mutants": {}}
        if not afresh and os.path.exists(path):
            with open(path, encoding="utf-8") as file:
                kept = json.load(file)
            if kept.get("fingerprint") == fingerprint:
                self.data = kept

    def of(self, place):
        return self.data["mutants"].get(place.name)

    def note(self, place, status, by, seconds):
        with self.lock:
            self.data["mutants"][place.name] = {"kind": place.kind, "change": place.change,
                                                "text": place.line_text, "status": status, "by": by,
                                                "seconds": round(seconds, 2)}
            with open(self.path + ".new", "w", encoding="utf-8") as file:
                json.dump(self.data, file, indent=1)
            os.replace(self.path + ".new", self.path)


def first_failure(output):
    failed = re.search(r"^\[ +FAILED +\] ([\w/.]+)", output, re.MULTILINE)
    return failed.group(1) if failed else None


def judge(number, place, tests, results):
    reaching = [test for test in tests if number in test.reached]
    if not reaching:
        if results.of(place) is None:  # other programs may have come by and seen nothing
            results.note(place, "not reached", None, 0.0)
        return
    seconds = 0.0
    for group in batches(reaching):
        outcome = run_tests(group, number, timeout_for(group))
        seconds += outcome.seconds
        if outcome.status != "passed":
            by = first_failure(outcome.output) or os.path.basename(group[0].program)
            how = "timeout" if outcome.status == "timeout" else "killed"
            results.note(place, how, by, seconds)
            return
    results.note(place, "survived", None, seconds)


def judge_all(places, wanted, tests, results, jobs):
    """wanted: the numbers of the mutants to run."""
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        work = [pool.submit(judge, number, places[number], tests, results) for number in wanted]
        for done, each in enumerate(concurrent.futures.as_completed(work), 1):
            each.result()
            if done % 10 == 0 or done == len(work):
                print(f"mutate: ran {done} of {len(work)}", file=sys.stderr)
