#!/usr/bin/env python3
"""Changes the library in one place after the other, and looks whether the tests notice.

    mutazione.py --root DIR --build DIR [--shard I/N] [--only FILE|MUTANT]... [--list] [--fresh] [--jobs N] [--write]

--build is a build of the library and its tests. Every mutant has to be caught by the compiler's proofs or by the unit
and golden tests, to compile to the same code, or to stand in equivalenti.tsv with the reason why it is the same. Exit 0:
so it is; 1: some are alive, or the list is wrong.
"""

import argparse
import multiprocessing
import os
import queue
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from clang import cindex

import equivalenti
import resoconto
from celle import Image, cell_mutants
from compilazione import Compilation
from mutante import ALIVE, COMPILER, EQUIVALENT, SAME, TESTS, count_occurrences
from operatori import parse, read_unit
from prove import Tests, Unfit
from schemi import instrument
from stato import State, fingerprint

PAGE = "docs/reliability.md"
LIBCLANG = "/usr/lib/llvm-19/lib/libclang-19.so.1"


def look_at(task):
    """Mutants, tables and included files of one source: run in a process of its own."""
    root, source, arguments = task
    if not cindex.Config.loaded:
        cindex.Config.set_library_file(LIBCLANG)
    unit = parse(root / source, arguments)
    readers = read_unit(unit, root, {})
    included = {str(Path(file.include.name).resolve()) for file in unit.get_includes()}
    return source, [(r.name, r.mutants, r.tables) for r in readers], included


class Run:
    def __init__(self, options):
        self.options = options
        self.root = options.root.resolve()
        self.compilation = Compilation(self.root, options.build.resolve(), options.jobs)
        self.work = self.compilation.work
        self.mutants, self.tables, self.users = [], [], {}
        self.texts = {}
        self.readers_of = {}

    # --- Which mutants there are ------------------------------------------------------------------------------------

    def find(self):
        tasks = [(self.root, source, self.compilation.libclang_arguments(source)) for source in self.compilation.sources]
        known = set()
        with multiprocessing.Pool(self.options.jobs) as pool:
            for source, files, included in pool.imap(look_at, tasks):
                for name, mutants, tables in files:
                    self.users.setdefault(name, [])
                    if name not in known:
                        known.add(name)
                        self.mutants += mutants
                        self.tables += tables
                for name in {source, *(str(Path(path).relative_to(self.root)) for path in included
                                       if Path(path).is_relative_to(self.root / "src/funzioni"))}:
                    self.users.setdefault(name, []).append(source)
        self.texts = {name: (self.root / name).read_text() for name in known}
        count_occurrences(self.mutants)

    def chosen(self, mutants):
        """Those that are asked for. A share goes by the names: it stays the same when others come and go."""
        if self.options.shard:
            share, shares = map(int, self.options.shard.split("/"))
            mutants = [m for m in mutants if int(m.name, 16) % shares == share - 1]
        if self.options.only:
            mutants = [m for m in mutants if any(m.name == one or m.file.endswith(one) for one in self.options.only)]
        return sorted(mutants, key=lambda m: (m.file, m.begin))

    def switched(self, mutants):
        """Numbers those that can be switched, and builds the library that has them all."""
        by_file = {}
        for number, mutant in enumerate((m for m in mutants if not m.compiled), 1):
            mutant.number = number
            by_file.setdefault(mutant.file, []).append(mutant)
        instrumented = {name: instrument(self.texts[name], these) for name, these in by_file.items()}
        own_tables = {table.file for table in self.tables if not table.file.startswith("src/funzioni/tables/")}
        sources = own_tables.union(*(self.users[name] for name in instrumented))
        return self.compilation.instrumented(instrumented, sources)

    # --- What becomes of them ---------------------------------------------------------------------------------------

    def judge(self, mutant):
        if mutant.cell:
            self.try_tests(mutant, self.readers(mutant), {"KEL_CELLA": mutant.cell})
        elif not mutant.compiled:
            self.try_tests(mutant, self.tests.reached([mutant.number]), {"KEL_MUTANTE": str(mutant.number)})
        known = not mutant.compiled and self.reasons.line_of(mutant)
        if not mutant.outcome and not mutant.cell and not known:
            self.judge_text(mutant)
        mutant.outcome = mutant.outcome or ALIVE

    def readers(self, mutant):
        """The tests that come by the one file that reads a table; all where others may read it."""
        whole = not self.options.shard and not self.options.only
        own = whole and mutant.file.endswith(".cpp") and not mutant.file.startswith("src/funzioni/tables/")
        if mutant.file not in self.readers_of:
            numbers = [m.number for m in self.mutants if m.number and m.file == mutant.file] if own else []
            self.readers_of[mutant.file] = self.tests.reached(numbers)
        return self.readers_of[mutant.file]

    def try_tests(self, mutant, tests, environment, library=None):
        mutant.by = self.tests.catcher(mutant, tests, library or self.shared_object, environment)
        if mutant.by:
            mutant.outcome = TESTS

    def judge_text(self, mutant):
        """As a change of text: what the compiler computes, what no test comes by, and what the tests did not catch."""
        number = self.places.get()
        try:
            mutant.outcome, library = self.compilation.changed(mutant, self.texts[mutant.file], self.users[mutant.file],
                                                               number)
            if library is not None:
                mutant.outcome = ""
                if mutant.compiled or not self.tests.reached([mutant.number]):
                    self.try_tests(mutant, self.tests.reached([]), {}, library)
        finally:
            self.places.put(number)

    def run(self):
        began = time.time()
        self.find()
        mutants = self.chosen(self.mutants)
        self.shared_object = self.switched(mutants)
        cells = list(cell_mutants(self.tables, Image(self.shared_object)))
        self.mutants += cells
        mutants += self.chosen(cells)
        if self.options.list:
            print(*mutants, sep="\n")
            return True
        self.reasons = equivalenti.Reasons()
        print(f"{len(self.mutants)} mutants, {len(mutants)} of them to try; {time.time() - began:.0f} s", file=sys.stderr)
        self.tests = Tests(self.options.build.resolve(), self.work, self.shared_object, self.options.jobs)
        self.places = queue.Queue()
        for number in range(self.options.jobs):
            self.places.put(number)
        self.try_all(mutants)
        listed = [mutant for mutant in mutants if self.reasons.line_of(mutant)]
        for mutant in listed:
            if mutant.outcome == ALIVE:
                mutant.outcome = EQUIVALENT
        caught = [mutant for mutant in listed if mutant.outcome in (COMPILER, TESTS, SAME)]
        missing = self.reasons.without_mutant(self.mutants)
        seconds = time.time() - began
        resoconto.terminal(mutants, seconds)
        good = resoconto.faults(mutants, missing, caught)
        if good and self.options.write:
            resoconto.write(self.root / PAGE, resoconto.markdown(mutants, seconds, self.options.jobs))
        return good

    def try_all(self, mutants):
        state = State(self.work / "state.tsv", fingerprint(self.root), self.options.fresh)
        left = []
        for mutant in mutants:
            mutant.outcome, mutant.by = state.outcomes.get(mutant.name, ("", ""))
            if not mutant.outcome:
                left.append(mutant)
        left.sort(key=self.to_compile)  # that takes longest
        done, began = len(mutants) - len(left), time.time()
        with ThreadPoolExecutor(self.options.jobs) as pool:
            for count, mutant in enumerate(pool.map(self.tried, left), 1):
                state.keep(mutant)
                if sys.stderr.isatty() and count % 10 == 0:
                    rest = (time.time() - began) / count * (len(left) - count)
                    print(f"\r{done + count} of {len(mutants)}, {rest:.0f} s left   ", end="", file=sys.stderr)
        if sys.stderr.isatty():
            print(file=sys.stderr)

    def to_compile(self, mutant):
        return mutant.compiled or not mutant.cell and not self.tests.reached([mutant.number])

    def tried(self, mutant):
        self.judge(mutant)
        return mutant


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--root", type=Path, required=True)
    parser.add_argument("--build", type=Path, required=True)
    parser.add_argument("--shard", metavar="I/N")
    parser.add_argument("--only", metavar="FILE|MUTANT", action="append")
    parser.add_argument("--list", action="store_true")
    parser.add_argument("--fresh", action="store_true")
    parser.add_argument("--write", action="store_true")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    options = parser.parse_args()
    cindex.Config.set_library_file(LIBCLANG)
    try:
        return 0 if Run(options).run() else 1
    except Unfit as unfit:
        print(unfit, file=sys.stderr)
        return 1


if __name__ == "__main__":
    sys.exit(main())
