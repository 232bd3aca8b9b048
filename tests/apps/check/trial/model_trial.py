#!/usr/bin/env python3
"""Tries the check on drawings of hydraulic models, with faults planted in them.

    PIPENET=build/release/bin/pipenet TKVLT_EXAMPLES=examples python3 model_trial.py MODEL.inp...

Each model is imported and roughened, without the links that close loops. What the check then says
is held against what follows from the model. Then faults are planted, drawing after drawing, until
each kind has stood in so many places or no more are to be had. Prints two tables in Markdown, and
what was missed or told falsely; the exit status is 1 when anything was.
"""
import collections
import json
import os
import subprocess
import sys
import tempfile

sys.path[:0] = [os.environ["TKVLT_EXAMPLES"], os.path.dirname(os.path.abspath(__file__))]

from drawing_edit import DrawingEdit  # noqa: E402
from own_findings import Truth, essence, own_findings  # noqa: E402
from plant_faults import FAULTS, plant  # noqa: E402
from roughen import roughen  # noqa: E402

FAMILIES = {True: ("gravity", "loops", "tank", "doubled"),
            False: ("pressure", "loops", "turned", "doubled", "tank")}
WANTED = 3  # of each kind in each model
DRAWINGS = 8  # at most for each family
WALKED = ("cycle", "turned-run")  # which of several findings it is hangs on where a walk begins


def without_walked(known, findings):
    """Findings without those that hang on the walk where crossings close rings: where a ring closes,
    and how runs grow together."""
    return collections.Counter({key: count for key, count in findings.items()
                                if key[0] not in WALKED and not key[1] & known.walked})


def sentences(new, lost):
    return ([f"told: {code} {sorted(handles)}" for code, handles in new]
            + [f"not told: {code} {sorted(handles)}" for code, handles in lost])


def compared(known, findings):
    """How many findings follow from a truth, and what a report says otherwise."""
    told, expected = collections.Counter(map(essence, findings)), own_findings(known)
    if known.rings():
        told, expected = without_walked(known, told), without_walked(known, expected)
    return sum(expected.values()), sentences(told - expected, expected - told)


class Count:
    """How it went with one kind of fault in one model."""

    def __init__(self):
        self.planted = self.told = self.tried = 0
        self.title = self.codes = None


class ModelTrial:
    """One model on trial. counts: by kind of fault; faults: what went wrong, as sentences."""

    def __init__(self, model, folder):
        self.model, self.folder = model, folder
        self.name = os.path.splitext(os.path.basename(model))[0]
        self.drawing = os.path.join(folder, self.name + ".dxf")
        clean = os.path.join(folder, "clean.dxf")
        self.call("import", model, "--output", clean)
        roughen(clean, model, self.drawing, tree=True)
        with open(os.path.join(folder, self.name + ".truth.json"), encoding="utf-8") as file:
            self.truth = json.load(file)
        self.known = Truth(self.truth, DrawingEdit(self.drawing))
        self.before = self.report(self.drawing)
        self.counts = collections.defaultdict(Count)
        self.misses, self.alarms = [], []

    @staticmethod
    def call(*arguments, accepted=(0,)):
        settings = os.path.join(os.environ["TKVLT_EXAMPLES"], "settings")
        done = subprocess.run([os.environ["PIPENET"], "--settings", settings, *arguments],
                              capture_output=True, check=False, encoding="utf-8", timeout=600)
        if done.returncode not in accepted:
            raise SystemExit(f"{arguments}: status {done.returncode}, {done.stderr}")
        return done.stdout

    def report(self, drawing):
        return json.loads(self.call("check", drawing, "--format", "json", accepted=(0, 1)))

    # -- what is amiss with the model itself -----------------------------------------------------

    def own(self):
        """How many findings follow from the model, and what the check says otherwise."""
        return compared(self.known, self.before["findings"])

    # -- planted faults --------------------------------------------------------------------------

    def run(self):
        for number, family in enumerate(FAMILIES[self.known.is_sewer]):
            for seed in range(100 * number + 1, 100 * number + 1 + DRAWINGS):
                wanted = [kind for kind in FAULTS[family] if self.counts[kind].planted < WANTED]
                if not wanted or not self.one_drawing(wanted, seed):
                    break

    def one_drawing(self, kinds, seed):
        """Plants faults in one drawing and looks at what the check says. False without any."""
        path = os.path.join(self.folder, "spoilt.dxf")
        drawing = DrawingEdit(self.drawing)
        planted = plant(drawing, self.truth, seed, kinds, 2, self.known.on_rings())
        for kind in kinds:
            self.counts[kind].tried += 2
        if not planted:
            return False
        drawing.write(path)
        after = self.report(path)
        for kind, fault in planted:
            count = self.counts[kind]
            told = any(fault.is_told_by(finding) for finding in after["findings"])
            count.planted, count.told = count.planted + 1, count.told + told
            count.title, count.codes = fault.kind, " or ".join(f"`{c}`" for c in fault.codes)
            if not told:
                self.misses.append(f"seed {seed}: {fault.kind}, {fault.codes} at {fault.named}")
        self.alarms += [f"seed {seed}: {each}" for each in self.changes(planted, after)]
        return True

    def changes(self, planted, after):
        """What is said of what was left whole and was not said before, and what no longer is."""
        touched = {handle for _, fault in planted for handle in fault.touched}
        rings = {handle for finding in after["findings"] if finding["code"] == "cycle"
                 and touched & set(finding["handles"]) for handle in finding["handles"]}
        roots = {network["root"] for network in self.before["networks"]}

        def is_walked_otherwise(finding):
            """Runs are walked from where their network begins: what a fault has parted from its
            network begins elsewhere, and a ring that one has closed is walked from either side."""
            return finding["code"] == "turned-run" and (
                after["networks"][finding["network"]]["root"] not in roots
                or set(finding["handles"]) <= rings)

        def keys(finding):
            """On a ring that a fault has closed runs end where the walks from both sides meet:
            there the pipes count, not how they are told together."""
            handles = set(finding["handles"])
            together = [handles] if not handles <= rings else [{handle} for handle in handles]
            return [(finding["code"], frozenset(each)) for each in together]

        whole = [collections.Counter(key for f in findings if not touched & set(f["handles"])
                                     for key in keys(f))
                 for findings in (self.before["findings"],
                                  [f for f in after["findings"] if not is_walked_otherwise(f)])]
        if self.known.rings():
            whole = [without_walked(self.known, findings) for findings in whole]
        return sentences(whole[1] - whole[0], whole[0] - whole[1])


def models_table(trials):
    """One line for each model. Of kinds without a place it says how often one was looked for."""
    titles = {kind: count.title for trial, _, _ in trials
              for kind, count in trial.counts.items() if count.title}
    yield ("| Model | Own findings | Reckoned otherwise | Kinds | Planted | Told | Told falsely "
           "| No place for |")
    yield "|---|---|---|---|---|---|---|---|"
    for trial, own, wrong in trials:
        counts = trial.counts.values()
        kinds = [count for count in counts if count.planted]
        homeless = [f"{titles.get(kind, kind)} ({count.tried})"
                    for kind, count in trial.counts.items() if not count.planted]
        yield (f"| {trial.name} | {own} | {len(wrong)} | {len(kinds)} "
               f"| {sum(c.planted for c in counts)} | {sum(c.told for c in counts)} "
               f"| {len(trial.alarms)} | {', '.join(homeless)} |")


def kinds_table(trials):
    """One line for each kind of fault, over all models."""
    rows = {}
    for trial, _, _ in trials:
        for count in trial.counts.values():
            if count.planted:
                row = rows.setdefault((count.codes, count.title), [0, 0])
                row[0] += count.planted
                row[1] += count.told
    yield "| Fault | Told as | Planted | Told |"
    yield "|---|---|---|---|"
    for (codes, title), (planted, told) in sorted(rows.items()):
        yield f"| {title} | {codes} | {planted} | {told} |"
    yield f"| all | | {sum(r[0] for r in rows.values())} | {sum(r[1] for r in rows.values())} |"


def main():
    if len(sys.argv) < 2:
        raise SystemExit(__doc__)
    trials, status = [], 0
    for model in sys.argv[1:]:
        with tempfile.TemporaryDirectory() as folder:
            trial = ModelTrial(model, folder)
            own, wrong = trial.own()
            trial.run()
        trials.append((trial, own, wrong))
        for line in wrong + trial.misses + trial.alarms:
            print(f"{trial.name}: {line}", file=sys.stderr)
            status = 1
    print("\n".join([*models_table(trials), "", *kinds_table(trials)]))
    return status


if __name__ == "__main__":
    sys.exit(main())
