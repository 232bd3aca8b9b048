"""Faults planted in drawings of real networks: each is found and named, and nothing else is."""
import json
import os
import unittest

from PipenetProcess import EXAMPLES, PipenetTest

from drawing_edit import DrawingEdit
from model_trial import FAMILIES, ModelTrial, compared
from own_findings import Truth
from plant_faults import FAULTS

MODELS = ("brambleton", "epa-user1", "ltown")
# Kinds of faults for which a model has no place: its slopes fit no drawn length, it has no tank.
NO_PLACE = {"epa-user1": {"shift_slope", "drop_tank_system", "drop_tank_mark"}}


class PlantedFaultsTest(PipenetTest):
    def test_what_is_amiss_with_the_town_follows_from_its_layout(self):
        with open(os.path.join(EXAMPLES, "town.truth.json"), encoding="utf-8") as file:
            truth = json.load(file)
        path = os.path.join(EXAMPLES, "town.dxf")
        run = self.run_program("check", path, "--format", "json")
        self.assertIn(run.status, (0, 1), run.err)
        count, otherwise = compared(Truth(truth, DrawingEdit(path)), run.json()["findings"])
        self.assertEqual((count, otherwise), (2, []))  # the dead end and the two wells that merge

    def test_what_is_amiss_with_models_is_told_and_so_is_each_planted_fault(self):
        for name in MODELS:
            with self.subTest(name):
                self.try_out(name)

    def try_out(self, name):
        trial = ModelTrial(os.path.join(EXAMPLES, "models", name + ".inp"), self.folder)
        count, otherwise = trial.own()
        self.assertGreater(count, 0)
        self.assertEqual(otherwise, [])
        trial.run()
        self.assertEqual((trial.misses, trial.alarms), ([], []))
        kinds = {kind for family in FAMILIES[trial.known.is_sewer] for kind in FAULTS[family]}
        planted = {kind for kind, each in trial.counts.items() if each.planted}
        self.assertEqual(kinds - planted, NO_PLACE.get(name, set()))


if __name__ == "__main__":
    unittest.main()
