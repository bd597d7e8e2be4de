"""Builds a copy of the tree, and from it test programs that have one fault.

The copy is never changed. A fault lies in a folder of its own that the compiler searches first; the
objects made from it stand before all others when the program is linked. Of several definitions of
an inline function the linker takes the first, and from a library nothing that it has already. So
those objects are enough: neither the library nor the tests are built anew.
"""

import filecmp
import json
import os
import re
import shlex
import shutil
import subprocess
from pathlib import Path

from mutation.faults import Fault

NOT_COPIED = {".git", ".cache", "build"}


def copy_tree(source: Path, target: Path) -> None:
    """Makes `target` alike; what did not change keeps its time, so that it is not built again."""
    wanted: set[Path] = set()
    for folder, folders, files in os.walk(source):
        if Path(folder) == source:
            folders[:] = [name for name in folders if name not in NOT_COPIED]
        place = Path(folder).relative_to(source)
        (target / place).mkdir(parents=True, exist_ok=True)
        for name in files:
            if (Path(folder) / name).is_file():
                wanted.add(place / name)
    for path in wanted:
        copy = target / path
        if not copy.exists() or not filecmp.cmp(source / path, copy, shallow=False):
            shutil.copyfile(source / path, copy)
            shutil.copymode(source / path, copy)
    for copy in [path for path in target.rglob("*") if path.is_file()]:
        if copy.relative_to(target) not in wanted:
            copy.unlink()


class Program:
    """A test program, built without a fault, and how to build it with one."""

    def __init__(self, tree: Path, build: Path, name: str, library: str) -> None:
        """`name` and `library` are targets; faults are planted in what the library is made of."""
        self.tree, self.build, self.path = tree, build, build / "bin" / name
        self._make(name)
        self.objects = self._objects_by_source(library)
        self.link = self._link_command(name)
        commands = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
        self.compile = {}
        for entry in commands:
            command = shlex.split(entry["command"])
            self.compile[command[command.index("-o") + 1]] = command

    def _make(self, name: str) -> None:
        # -O1 compiles as quickly as -O0, and the tests run in a tenth of the time. The program must
        # not be run to list its tests.
        # fmt: off
        configure = ["cmake", "-G", "Ninja", "-S", self.tree, "-B", self.build,
                     "-DCMAKE_CXX_COMPILER=g++", "-DCMAKE_BUILD_TYPE=Debug",
                     "-DCMAKE_CXX_FLAGS_DEBUG=-O1 -w", "-DVESMORA_TESTS=ON",
                     "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST"]
        # fmt: on
        if shutil.which("ld.lld"):
            configure.append("-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld")
        log = self.build.with_suffix(".log")
        with log.open("w", encoding="utf-8") as output:
            for command in (configure, ["ninja", "-C", self.build, name]):
                done = subprocess.run(command, stdout=output, stderr=output, check=False)
                if done.returncode != 0:
                    raise SystemExit(f"the tree does not build: {log}")

    def _ninja(self, *arguments: str) -> str:
        command = ["ninja", "-C", str(self.build), *arguments]
        return subprocess.run(command, check=True, capture_output=True, text=True).stdout

    def _objects_by_source(self, library: str) -> dict[Path, list[str]]:
        """For every source and header of the tree the library's objects that are made from it."""
        objects: dict[Path, list[str]] = {}
        name = ""
        for line in self._ninja("-t", "deps").splitlines():
            if match := re.match(r"(\S+): #deps", line):
                name = match[1]
            elif f"/{library}.dir/" in name and "_autogen/" not in name and line.strip():
                source = (self.build / line.strip()).resolve()
                if source.is_relative_to(self.tree):
                    objects.setdefault(source.relative_to(self.tree), []).append(name)
        return objects

    def _link_command(self, name: str) -> list[str]:
        commands = self._ninja("-t", "commands", f"bin/{name}").splitlines()[-1].split(" && ")
        return next(shlex.split(part) for part in commands if f"-o bin/{name}" in part)

    def with_fault(self, fault: Fault, work: Path) -> Path | None:
        """Builds the program in the empty folder `work`; None when the fault does not compile."""
        objects = self._compile(fault.path, fault.plant(self._source(fault)), work, [])
        if not objects:
            return None
        program = work / self.path.name
        command = list(self.link)
        command[command.index("-o") + 1] = str(program)
        first = next(i for i, word in enumerate(command) if word.endswith(".o"))
        command[first:first] = map(str, objects)
        return program if self._run(command) else None

    def is_equivalent(self, fault: Fault, work: Path) -> bool:
        """Whether an optimising compiler makes the same of the source with and without the fault."""
        made = []
        for text in (self._source(fault), fault.plant(self._source(fault))):
            objects = self._compile(fault.path, text, work, ["-O2"])
            made.append([path.read_bytes() for path in objects])
        return bool(made[0]) and made[0] == made[1]

    def _source(self, fault: Fault) -> str:
        return (self.tree / fault.path).read_text(encoding="utf-8")

    def _compile(self, path: Path, text: str, work: Path, options: list[str]) -> list[Path]:
        """All objects that are made from a file, `text` being what it holds; none when one fails."""
        changed = work / path
        changed.parent.mkdir(parents=True, exist_ok=True)
        changed.write_text(text, encoding="utf-8")
        objects = []
        for number, name in enumerate(self.objects[path]):
            objects.append(work / f"{number}.o")
            command = list(self.compile[name])
            command[command.index("-o") + 1] = str(objects[-1])
            if command[-1] == str(self.tree / path):
                command[-1] = str(changed)
            first = next(i for i, word in enumerate(command) if word.startswith("-I"))
            command.insert(first, f"-I{work / 'src'}")
            if not self._run([*command, *options]):
                return []
        return objects

    def _run(self, command: list[str]) -> bool:
        # Each is compiled once: a compiler cache would only fill.
        environment = {**os.environ, "CCACHE_DISABLE": "1"}
        done = subprocess.run(
            command, cwd=self.build, env=environment, capture_output=True, check=False
        )
        return done.returncode == 0
