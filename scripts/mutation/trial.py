"""Runs a test program, in the order that finds a fault soonest, and tells which tests failed."""

import json
import os
import re
import shutil
import signal
import subprocess
import threading
from dataclasses import dataclass, field
from pathlib import Path
from typing import Collection

RAN = re.compile(r"\[ +(OK|FAILED|SKIPPED) +\] (\S+?)(?:, where [^\n]*)? \((\d+) ms\)")
BEGAN = re.compile(r"\[ RUN +\] (\S+)")
OUTSIDE = "(before or after the tests)"
MEMORY = Path("/dev/shm")
OFFSCREEN = Path(__file__).resolve().parents[2] / "cmake" / "offscreen"  # as ctest runs them
# A fault may ask for all memory and fill all disks.
LIMITS = ["prlimit", "--as=8589934592", "--fsize=268435456", "--core=0"]


@dataclass
class Outcome:
    milliseconds: dict[str, int] = field(default_factory=dict)  # of tests that ended, either way
    failed: list[str] = field(default_factory=list)  # also those that crashed or hung

    @property
    def ended(self) -> set[str]:
        return {*self.milliseconds, *self.failed}


def run_tests(program: Path, tests: list[str], seconds: float, stop_early: bool) -> Outcome:
    """Runs the tests, all when none is named, for so long at most.

    Files go to a folder of the worker's own, in memory where that can be, settings too: a fault may
    delete what it finds.
    """
    home = (MEMORY if MEMORY.is_dir() else program.parent) / f"mutate-{program.parent.name}"
    shutil.rmtree(home, ignore_errors=True)
    home.mkdir()
    kept = {name: os.environ[name] for name in ("PATH", "LANG") if name in os.environ}
    folders = {name: str(home) for name in ("HOME", "TMPDIR", "XDG_RUNTIME_DIR")}
    environment = {**kept, **folders}
    command = ["timeout", "--kill-after=1", str(seconds), *LIMITS, str(OFFSCREEN), str(program)]
    command += ["--gtest_color=no", "--gtest_filter=" + (":".join(tests) or "*")]
    command += ["--gtest_fail_fast"] if stop_early else []
    log = program.parent / "output"
    with log.open("wb") as output:
        process = subprocess.Popen(
            command,
            cwd=home,
            env=environment,
            stdin=subprocess.DEVNULL,
            stdout=output,
            stderr=subprocess.DEVNULL,
            start_new_session=True,
        )
    status = process.wait()
    try:
        os.killpg(process.pid, signal.SIGKILL)  # what the program started and left behind
    except ProcessLookupError:
        pass
    return read_outcome(log.read_text(encoding="utf-8", errors="replace"), status)


def read_outcome(output: str, status: int) -> Outcome:
    """
    >>> read_outcome("[ RUN      ] A.B\\n[       OK ] A.B (7 ms)\\n[ RUN      ] A.C\\n", -11)
    Outcome(milliseconds={'A.B': 7}, failed=['A.C'])
    >>> read_outcome("[  FAILED  ] A.B/1, where GetParam() = 3 (7 ms)\\n", 1).failed
    ['A.B/1']
    """
    outcome = Outcome()
    for result, test, milliseconds in RAN.findall(output):
        outcome.milliseconds[test] = int(milliseconds)
        if result == "FAILED":
            outcome.failed.append(test)
    outcome.failed += [test for test in BEGAN.findall(output) if test not in outcome.milliseconds]
    if status != 0 and not outcome.failed:
        outcome.failed.append(OUTSIDE)
    return outcome


class Trials:
    """The tests of a program: how long each takes, and which found faults in earlier runs."""

    def __init__(self, program: Path, record: Path) -> None:
        """`record` keeps from run to run how often which test found a fault in which file."""
        self._record = record
        self._found: dict[str, dict[str, int]] = {}
        self._lock = threading.Lock()
        if record.exists():
            self._found = json.loads(record.read_text(encoding="utf-8"))
        sound = run_tests(program, [], 600, stop_early=False)
        if sound.failed or not sound.milliseconds:
            raise SystemExit("without a fault there fail: " + ", ".join(sound.failed or ["all"]))
        self.milliseconds = sound.milliseconds

    def _limit(self, tests: list[str]) -> float:
        return 10 + sum(self.milliseconds[test] for test in tests) / 100  # ten times as long

    def _likely(self, path: Path) -> list[str]:
        """The tests to begin with: what found faults in this file, then what did elsewhere."""
        anywhere: dict[str, int] = {}
        with self._lock:
            here = dict(self._found.get(str(path), {}))
            for counts in self._found.values():
                for test, count in counts.items():
                    anywhere[test] = anywhere.get(test, 0) + count
        likely = sorted(here, key=lambda test: -here[test])[:5]
        likely += sorted(anywhere, key=lambda test: -anywhere[test])[:10]
        return [test for test in dict.fromkeys(likely) if test in self.milliseconds]

    def first_to_fail(self, program: Path, path: Path, tests: Collection[str]) -> list[str]:
        """One of the tests that finds the fault of the program in this file, or none."""
        likely = [test for test in self._likely(path) if test in tests]
        others = [test for test in tests if test not in likely]
        for some in filter(None, (likely, others)):
            failed = run_tests(program, some, self._limit(some), stop_early=True).failed
            if failed:
                return failed[:1]
        return []

    def all_that_fail(self, program: Path, tests: Collection[str]) -> list[str]:
        """All that find the program's fault; what a crash or a hang kept from running too."""
        failed: list[str] = []
        left = list(tests)
        while left:
            outcome = run_tests(program, left, self._limit(left), stop_early=False)
            failed += outcome.failed
            if not outcome.ended & {*left}:
                break
            left = [test for test in left if test not in outcome.ended]
        return failed

    def remember(self, path: Path, tests: list[str]) -> None:
        with self._lock:
            counts = self._found.setdefault(str(path), {})
            for test in tests:
                counts[test] = counts.get(test, 0) + 1
            text = json.dumps(self._found, indent=1)
        fresh = self._record.with_suffix(".new")
        fresh.write_text(text, encoding="utf-8")
        fresh.replace(self._record)
