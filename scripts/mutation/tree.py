"""The copy of the project that the mutants are written into, and its build."""

import json
import os
import shlex
import subprocess
import sys

from schemata import mutated

HERE = os.path.dirname(os.path.abspath(__file__))
SKIPPED = {".git", "build"}
# Mutants look odd to a compiler's warnings; programs of tests are built once and run briefly.
OPTIONS = {
    "module/CMakeLists.txt": b"add_compile_options(-O1 -w)\n",
    "tests/CMakeLists.txt": b"add_compile_options(-O0 -w)\n",
}


def write_if_changed(path, data):
    """Leaves the time of a file alone that would be the same, so that nothing is built again for it."""
    try:
        with open(path, "rb") as file:
            if file.read() == data:
                return
    except FileNotFoundError:
        os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as file:
        file.write(data)


def files_of(root):
    for folder, folders, names in os.walk(root):
        if folder == root:
            folders[:] = [name for name in folders if name not in SKIPPED]
        folders[:] = sorted(name for name in folders if name != "__pycache__")
        for name in sorted(names):
            yield os.path.relpath(os.path.join(folder, name), root)


def run(command, log, what):
    with open(log, "wb") as file:
        if subprocess.run(command, stdout=file, stderr=subprocess.STDOUT, check=False).returncode != 0:
            sys.exit(f"mutate: {what} failed (log: {log})")


class Tree:
    """build/mutate: `src` holds the copy, built where the project itself builds its releases.

    What no mutant is in is compiled with the very commands of a release, so that a cache of the compiler
    knows it.
    """

    def __init__(self, root, jobs):
        self.root = root
        self.jobs = jobs
        self.home = os.path.join(root, "build", "mutate")
        self.source = os.path.join(self.home, "src")
        self.build = os.path.join(self.source, "build", "release")
        self.switch = os.path.join(self.home, "libMutantSwitch.so")
        self.switch_header = os.path.join(HERE, "MutantSwitch.h")
        os.makedirs(self.home, exist_ok=True)

    def product_files(self):
        return [path for path in files_of(self.root)
                if path.startswith("module/") and path.endswith((".h", ".cpp"))]

    def units(self):
        """What libclang has to read: each source of module/ as it stands in the tree."""
        log = os.path.join(self.home, "commands.log")
        build = os.path.join(self.home, "commands")
        run(["cmake", "-S", self.root, "-B", build, "-G", "Ninja", "-DTKVLT_TESTS=OFF"], log, "configuring")
        with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
            commands = json.load(file)
        module = os.path.join(self.root, "module") + os.sep
        return [(command["file"], compiler_arguments(command)) for command in commands
                if command["file"].startswith(module)]

    def copy(self, places):
        """Brings the copy up to date, with place number n as mutant n."""
        by_path = {}
        for number, place in enumerate(places):
            by_path.setdefault(place.path, []).append((place, number))
        wanted = set(files_of(self.root))
        for path in wanted:
            original = os.path.join(self.root, path)
            with open(original, "rb") as file:
                data = file.read()
            if path in by_path:
                data = mutated(data, by_path[path], self.switch_header).encode()
            data = OPTIONS.get(path, b"") + data
            target = os.path.join(self.source, path)
            write_if_changed(target, data)
            os.chmod(target, os.stat(original).st_mode)
        for path in list(files_of(self.source)):
            if path not in wanted:
                os.remove(os.path.join(self.source, path))

    def compile(self, targets):
        """Builds the targets, with the mutants switched by a library of their own."""
        run(["g++", "-std=c++20", "-O2", "-shared", "-fPIC", "-o", self.switch,
             os.path.join(HERE, "MutantSwitch.cpp")], os.path.join(self.home, "switch.log"),
            "compiling the switch")
        link = f"-Wl,--no-as-needed {self.switch} -Wl,--as-needed -Wl,-rpath,{self.home}"
        run(["cmake", "--preset", "release", "-S", self.source, "-B", self.build,
             f"-DCMAKE_EXE_LINKER_FLAGS={link}", f"-DCMAKE_SHARED_LINKER_FLAGS={link}"],
            os.path.join(self.home, "configure.log"), "configuring the copy")
        log = os.path.join(self.home, "build.log")
        print(f"mutate: building (log: {log})", file=sys.stderr)
        run(["nice", "-n", "5", "cmake", "--build", self.build, "--target", *targets, "--",
             f"-j{self.jobs}"], log, "building the mutants")


def compiler_arguments(command):
    """The flags that decide what a source means: language, include paths and definitions."""
    words = shlex.split(command["command"])
    kept = ["-std=c++20"]
    for number, word in enumerate(words):
        if word.startswith(("-I", "-D")):
            kept.append(word)
        elif word == "-isystem":
            kept += [word, words[number + 1]]
    return kept
