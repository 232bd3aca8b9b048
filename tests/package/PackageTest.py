"""Installs the project into a folder of its own, builds the example sibling against that copy alone, and
runs both what was installed and what was built.

The build tree, its configuration, the sanitizer flags and the compiler come from the environment.
"""
import json
import os
import re
import subprocess
import tempfile
import unittest

BUILD = os.environ["TKVLT_BUILD"]
EXAMPLES = os.environ["TKVLT_EXAMPLES"]
CMAKE = os.environ["TKVLT_CMAKE"]
CONFIG = os.environ["TKVLT_CONFIG"]


def run(*arguments):
    """What a command wrote; a failure shows all of it."""
    # What is installed must find its libraries without any help of the caller's.
    foreign = ("TKVLT_SYSTEM_PATH", "DESTDIR", "LD_LIBRARY_PATH", "LD_RUN_PATH")
    environment = {k: v for k, v in os.environ.items() if k not in foreign}
    done = subprocess.run(arguments, capture_output=True, text=True, check=False, timeout=600,
                          env=environment)
    if done.returncode != 0:
        raise AssertionError(f"{arguments}: {done.returncode}\n{done.stdout}{done.stderr}")
    return done.stdout


class PackageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = folder.name
        first = os.path.join(cls.folder, "first")
        cls.prefix = os.path.join(cls.folder, "second")
        run(CMAKE, "--install", BUILD, "--prefix", first, "--config", CONFIG)
        # An installed copy holds no path of its own, so it may be moved.
        os.rename(first, cls.prefix)

    def truth(self):
        """Nodes and edges of the drawing's foul sewers."""
        with open(os.path.join(EXAMPLES, "town.truth.json"), encoding="utf-8") as file:
            truth = json.load(file)
        return tuple([each for each in truth[kind] if each["system"] == "污水"]
                     for kind in ("nodes", "edges"))

    def test_installed_files_name_neither_source_nor_build(self):
        found = []
        for folder, _, names in os.walk(os.path.join(self.prefix, "lib", "cmake")):
            for name in names:
                with open(os.path.join(folder, name), encoding="utf-8") as file:
                    text = file.read()
                found.append(name)
                self.assertNotIn(BUILD, text, name)
                self.assertNotIn(os.path.dirname(EXAMPLES), text, name)
        self.assertIn("TKVltSearchModule18Config.cmake", found)

    def test_libraries_and_command_look_for_each_other_beside_themselves(self):
        expected = {os.path.join("lib", "libtkvlt_host.so"): ["$ORIGIN"],
                    os.path.join("lib", "libtkvlt_siblings.so"): ["$ORIGIN"],
                    os.path.join("lib", "libTKVltSearchModule18.so"): ["$ORIGIN"],
                    os.path.join("lib", "libpipenet_check.so"): ["$ORIGIN"],
                    os.path.join("bin", "pipenet"): ["$ORIGIN/../lib"]}
        for name, places in expected.items():
            text = run("readelf", "-d", os.path.join(self.prefix, name))
            found = re.findall(r"\((?:RUNPATH|RPATH)\)[^\[]*\[([^\]]*)\]", text)
            self.assertIn("(NEEDED)", text, name)
            found = [place for each in found for place in each.split(":")]
            self.assertNotIn(BUILD, text, name)
            self.assertEqual(found, places, name)

    def test_installed_command_finds_its_settings_and_its_module(self):
        nodes, edges = self.truth()
        program = os.path.join(self.prefix, "bin", "pipenet")
        answer = json.loads(run(program, "search", os.path.join(EXAMPLES, "town.dxf"), "--start", "501",
                                "--format", "json"))
        self.assertEqual((len(answer["wells"]), len(answer["segs"])), (len(nodes), len(edges)))

    def test_sibling_is_built_and_run_against_the_installed_copy(self):
        build = os.path.join(self.folder, "sibling")
        run(CMAKE, "-S", os.path.join(EXAMPLES, "sibling_module"), "-B", build,
            f"-DCMAKE_PREFIX_PATH={self.prefix}", f"-DCMAKE_BUILD_TYPE={CONFIG}",
            f"-DCMAKE_CXX_COMPILER={os.environ['TKVLT_CXX']}",
            f"-DCMAKE_CXX_FLAGS={os.environ['TKVLT_CXX_FLAGS']}")
        run(CMAKE, "--build", build)
        printed = run(os.path.join(build, "sibling_host"), os.path.join(EXAMPLES, "town.dxf"),
                      os.path.join(build, "sibling.so")).splitlines()
        nodes, edges = self.truth()
        self.assertEqual(printed[0], f"{len(nodes)} nodes, {len(edges)} segments")
        rows = [tuple(map(int, line.split())) for line in printed[1:]]
        self.assertEqual(len(rows), len(edges))
        # A tree that hangs from node 0: each other node is reached by one segment.
        self.assertEqual(sorted(end for _, end, _ in rows), list(range(1, len(nodes))))
        self.assertTrue(all(start < end and diameter > 0 for start, end, diameter in rows))


if __name__ == "__main__":
    unittest.main()
