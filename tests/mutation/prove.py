"""The tests that have to catch the mutants: which there are, which of them come by a mutant, and running them."""

import json
import os
import re
import subprocess
import tempfile
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass
from pathlib import Path

FOLDERS = ("tables", "units", "camera", "names", "packets", "converters", "channels", "laptime", "object", "golden")
RECENT = 6
MEMORY = 4 << 30  # bytes: a mutant may ask for all there is
SLOW = 0.05  # seconds, from which a test is run for itself, after the others


@dataclass
class Test:
    """One test, and which mutants it comes by."""

    folder: str
    name: str
    seconds: float
    seen: bytes = b""


class Unfit(Exception):
    """The tests fail without any mutant."""


class Tests:
    def __init__(self, build, work, library, jobs):
        self.programs = {folder: build / "tests" / f"kel_test_{folder}" for folder in FOLDERS}
        self.work = work
        self.environment = {name: value for name, value in os.environ.items()
                            if not name.startswith(("KEL_", "GTEST_", "LD_"))}
        self.recent = {}
        with ThreadPoolExecutor(jobs) as pool:
            programs = pool.map(lambda folder: self.all_of(folder, library), FOLDERS)
            self.tests = [test for tests in programs for test in tests]
            list(pool.map(lambda test: self.look(test, library), self.tests))

    def all_of(self, folder, library):
        """The tests of a program, all of which pass."""
        with tempfile.NamedTemporaryFile(dir=self.work, suffix=".json") as file:
            done = self.start(folder, library, [f"--gtest_output=json:{file.name}"], 600, {})
            if done.returncode != 0:
                raise Unfit(f"{self.programs[folder].name} fails without a mutant:\n{done.stdout[-3000:]}")
            suites = json.loads(Path(file.name).read_text())["testsuites"]
        return [Test(folder, f"{suite['name']}.{test['name']}", float(test["time"].rstrip("s")))
                for suite in suites for test in suite["testsuite"]]

    def look(self, test, library):
        """Notes which mutants the test comes by."""
        with tempfile.NamedTemporaryFile(dir=self.work, suffix=".seen") as file:
            self.start(test.folder, library, [f"--gtest_filter={test.name}"], 600, {"KEL_VISTI": file.name})
            records = Path(file.name).read_bytes()
        # One record of each process that the test consists of, added up as one long number.
        size = 65536
        total = 0
        for begin in range(0, len(records), size):
            total |= int.from_bytes(records[begin:begin + size], "little")
        test.seen = total.to_bytes(size, "little")

    def reached(self, numbers):
        """The tests that come by one of the mutants; all where there are none."""
        return [test for test in self.tests if not numbers or any(test.seen[number] for number in numbers)]

    def runs(self, file, tests):
        """The tests in the order in which they are run: the quick ones of a program together, the likeliest first."""
        own = Path(file).parent.name
        order = sorted(FOLDERS, key=lambda folder: (folder != own, sum(t.seconds for t in tests if t.folder == folder)))
        quick = [[t for t in tests if t.folder == folder and t.seconds < SLOW] for folder in order]
        slow = sorted((t for t in tests if t.seconds >= SLOW), key=lambda t: (t.folder != own, t.seconds))
        return [run for run in quick if run] + [[test] for test in slow]

    def start(self, folder, library, arguments, timeout, environment, limits=()):
        command = [*limits, str(self.programs[folder]), "--gtest_brief=1", "--gtest_color=no", *arguments]
        return subprocess.run(command, cwd=self.work, timeout=timeout, encoding="utf-8", errors="replace",
                              env={**self.environment, "LD_LIBRARY_PATH": str(library.parent), **environment},
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)

    def order(self, file, number=0):
        """The stages that come by a mutant, the likeliest to catch it first."""
        folder = Path(file).parent.name
        return sorted((stage for stage in self.stages if not number or stage.seen[number]),
                      key=lambda stage: (stage.slow, stage.folder != folder, stage.seconds))

    def catcher(self, mutant, tests, library, environment):
        """The first of the tests that fails; "" when none does."""
        recent = self.recent.setdefault((mutant.file, mutant.function), [])
        first = [test for test in recent if test.folder == recent[0].folder]  # they caught mutants nearby
        for run in ([first] if first and tests else []) + self.runs(mutant.file, tests):
            caught, test = self.failure(run, library, environment)
            if test:
                recent[:] = [test, *(other for other in recent if other is not test)][:RECENT]
            if caught:
                return caught
        return ""

    def failure(self, tests, library, environment):
        """What a run of some tests of one program ends with, "" when they pass; and the test that fails."""
        folder = tests[0].folder
        seconds = int(3 + 8 * sum(test.seconds for test in tests))
        names = ":".join(test.name for test in tests)
        try:
            done = self.start(folder, library, ["--gtest_fail_fast", f"--gtest_filter={names}"], 20 * seconds, environment,
                              ["prlimit", f"--cpu={seconds}", f"--as={MEMORY}", "--core=0"])
        except subprocess.TimeoutExpired:
            return f"{folder}: no end", None
        if done.returncode == 125:
            raise Unfit(done.stdout)
        if done.returncode == 0:
            return "", None
        failed = re.search(r"^\[  FAILED  \] ([\w/]+\.[\w/]+)", done.stdout, re.M)
        if not failed:
            return f"{folder}: exit {done.returncode}", None
        return f"{folder}: {failed[1]}", next((test for test in tests if test.name == failed[1]), None)
