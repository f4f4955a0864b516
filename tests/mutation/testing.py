"""The test programs that have to catch the mutants: which mutants each comes by, and running them."""

import os
import re
import resource
import subprocess
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

MEMORY = 4 << 30  # bytes: a mutant may ask for all there is


class Unfit(Exception):
    """The tests fail without any mutant."""


def processor_seconds():
    """What the programs took that have ended so far."""
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


class Program:
    """A test program. `seen` holds the numbers of the mutants that it comes by, `seconds` how long it takes."""

    def __init__(self, path, objects, made):
        self.path, self.objects, self.work, self.seconds = path, objects, objects.work, 600
        self.room = path.name.removeprefix("kel_test_")
        began, children = time.time(), processor_seconds()
        with tempfile.NamedTemporaryFile(dir=self.work, suffix=".seen") as file:
            failed = self.failure(made, {"KEL_SEEN": file.name})
            self.seen = frozenset(map(int, Path(file.name).read_text().split()))
        if failed:
            raise Unfit(f"without a mutant: {failed}")
        # Other work on the machine takes time, and so do the programs beside this one: the shorter of both is nearer.
        self.seconds = min(time.time() - began, processor_seconds() - children)

    def failure(self, made, environment):
        """The test that fails, or how the program ends; "" when all pass."""
        seconds = int(5 + 10 * self.seconds)
        kept = {name: value for name, value in os.environ.items() if not name.startswith(("KEL_", "GTEST_", "LD_"))}
        program, libraries = self.objects.launch(made, self.path)
        command = ["prlimit", f"--cpu={seconds}", f"--as={MEMORY}", "--core=0", str(program), "--gtest_fail_fast",
                   "--gtest_brief=1", "--gtest_color=no"]
        try:
            done = subprocess.run(command, cwd=self.work, timeout=20 * seconds, encoding="utf-8", errors="replace",
                                  env={**kept, **self.objects.environment, "LD_LIBRARY_PATH": str(libraries), **environment},
                                  stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        except subprocess.TimeoutExpired:
            return f"{self.room}: no end"
        if done.returncode == 125:  # switch.cpp gives up
            raise Unfit(done.stdout)
        failed = re.search(r"^\[  FAILED  \] ([\w/]+\.[\w/]+)", done.stdout, re.M)
        return f"{self.room}: {failed[1] if failed else f'exit {done.returncode}'}" if done.returncode else ""


class Tests:
    def __init__(self, objects, made):
        with ThreadPoolExecutor(objects.jobs) as pool:
            self.programs = sorted(pool.map(lambda path: Program(path, objects, made), objects.programs),
                                   key=lambda one: one.seconds)

    def reached(self, mutant):
        return [program for program in self.programs if mutant.number in program.seen]

    def catcher(self, mutant, programs, made, environment):
        """What catches a mutant, "" when nothing does. The tests of its own room come first."""
        own = Path(mutant.file).parent.name
        failures = (program.failure(made, environment)
                    for program in sorted(programs, key=lambda one: one.room != own))
        return next(filter(None, failures), "")
