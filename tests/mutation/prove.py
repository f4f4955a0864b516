"""The tests that have to catch the mutants: which there are, which of them come by a mutant, and running them."""

import json
import os
import re
import subprocess
import tempfile
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass
from pathlib import Path

FOLDERS = ("tables", "units", "channels", "converters", "laptime", "camera", "catalogue", "golden")
RECENT = 6
MEMORY = 4 << 30  # bytes: a mutant may ask for all there is
SLOW = 0.05  # seconds, from which a test is run for itself, after the others


@dataclass
class Stage:
    """Some tests of one program, run together."""

    folder: str
    program: Path
    filter: str
    seconds: float
    seen: bytes = b""

    @property
    def slow(self):
        return not self.filter.startswith("-")


class Unfit(Exception):
    """The tests fail without any mutant."""


class Tests:
    def __init__(self, build, work, library, jobs):
        self.programs = {folder: build / "tests" / f"kel_test_{folder}" for folder in FOLDERS}
        self.work = work
        self.environment = {name: value for name, value in os.environ.items()
                            if not name.startswith(("KEL_", "GTEST_", "LD_"))}
        self.stages = []
        self.recent = {}
        with ThreadPoolExecutor(jobs) as pool:
            for stages in pool.map(lambda folder: self.divide(folder, library), FOLDERS):
                self.stages += stages
            list(pool.map(lambda stage: self.look(stage, library), self.stages))

    def divide(self, folder, library):
        """The program's quick tests together, each slow one for itself; all of them pass."""
        program = self.programs[folder]
        with tempfile.NamedTemporaryFile(dir=self.work, suffix=".json") as file:
            done = self.start(program, library, [f"--gtest_output=json:{file.name}"], 600, {})
            if done.returncode != 0:
                raise Unfit(f"{program.name} fails without a mutant:\n{done.stdout[-3000:]}")
            times = {f"{suite['name']}.{test['name']}": float(test["time"].rstrip("s"))
                     for suite in json.loads(Path(file.name).read_text())["testsuites"] for test in suite["testsuite"]}
        slow = [test for test, time in times.items() if time >= SLOW]
        quick = sum(time for time in times.values() if time < SLOW)
        return [Stage(folder, program, "-" + ":".join(slow), quick)] + [
            Stage(folder, program, test, times[test]) for test in slow]

    def look(self, stage, library):
        """Notes which mutants the stage comes by."""
        with tempfile.NamedTemporaryFile(dir=self.work, suffix=".seen") as file:
            self.start(stage.program, library, [f"--gtest_filter={stage.filter}"], 600, {"KEL_VISTI": file.name})
            records = Path(file.name).read_bytes()
        size = 65536
        merged = bytearray(size)
        for begin in range(0, len(records), size):
            for place, byte in enumerate(records[begin:begin + size]):
                merged[place] |= byte
        stage.seen = bytes(merged)

    def start(self, program, library, arguments, timeout, environment, limits=()):
        return subprocess.run([*limits, str(program), "--gtest_brief=1", "--gtest_color=no", *arguments], cwd=self.work,
                              env={**self.environment, "LD_LIBRARY_PATH": str(library.parent), **environment},
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=timeout,
                              encoding="utf-8", errors="replace")

    def order(self, file, number=0):
        """The stages that come by a mutant, the likeliest to catch it first."""
        folder = Path(file).parent.name
        return sorted((stage for stage in self.stages if not number or stage.seen[number]),
                      key=lambda stage: (stage.slow, stage.folder != folder, stage.seconds))

    def catcher(self, mutant, library, environment):
        """The first test that fails; "" when none does."""
        recent = self.recent.setdefault((mutant.file, mutant.function), [])
        stages = self.order(mutant.file, 0 if mutant.compiled else mutant.number)
        for stage in (self.neighbours(recent) if stages else []) + stages:
            caught = self.failure(stage, library, environment)
            if caught:
                test = caught.split(": ")[1]
                if "." in test:
                    recent[:] = [(stage, test), *((s, t) for s, t in recent if t != test)][:RECENT]
                return caught
        return ""

    def neighbours(self, recent):
        """What caught mutants nearby is asked first."""
        if not recent:
            return []
        first = recent[0][0]
        tests = [test for stage, test in recent if stage.program == first.program]
        return [Stage(first.folder, first.program, ":".join(tests), min(first.seconds, SLOW * len(tests)))]

    def failure(self, stage, library, environment):
        """The test of a stage that fails."""
        seconds = int(3 + 8 * stage.seconds)
        try:
            done = self.start(stage.program, library, ["--gtest_fail_fast", f"--gtest_filter={stage.filter}"], 20 * seconds,
                              environment, ["prlimit", f"--cpu={seconds}", f"--as={MEMORY}", "--core=0"])
        except subprocess.TimeoutExpired:
            return f"{stage.folder}: no end"
        if done.returncode == 125:
            raise Unfit(done.stdout)
        if done.returncode != 0:
            failed = re.search(r"^\[  FAILED  \] ([\w/]+\.[\w/]+)", done.stdout, re.M)
            return f"{stage.folder}: {failed[1] if failed else f'exit {done.returncode}'}"
        return ""
