#!/usr/bin/env python3
"""Changes the libraries in one place after the other, and looks whether the tests notice: docs/mutation.md.

--build is a build of the libraries and their tests. Exit 0: each mutant is caught, makes the same code, or stands in
equivalent.tsv with the reason why it changes nothing; 1: some are alive, or the list is wrong.
"""

import argparse
import datetime
import multiprocessing
import os
import sys
import time
from collections import defaultdict
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import cells
import results
import source
from library import Funzioni, Registrazioni
from mutant import ALIVE, EQUIVALENT, INVALID, TESTS, number_same
from testing import Tests, Unfit

PAGE = "docs/reliability.md"
# What the tests and with them the outcomes depend on.
INPUTS = ("src", "include", "tests/mutation", "tests/golden", "tests/comune", "tests/funzioni", "tests/registrazioni")


class Part:
    """One library: its mutants, and what they are tried with."""

    def __init__(self, objects):
        self.objects = objects
        self.mutants, self.tables, self.texts = [], [], {}
        self.users = defaultdict(list)  # by file: the sources that include it
        self.switched, self.tests = None, None

    def find(self, only):
        """The mutants of the code, and the tables. Where sources alone are asked for no others are read."""
        objects, sources = self.objects, self.objects.sources
        if only and all(one.endswith(".cpp") for one in only):
            sources = [one for one in sources if one.endswith(tuple(only))]
        tasks = [(objects.root, objects.folder, objects.tables, one, objects.libclang_arguments(one)) for one in sources]
        self.read = [f"{objects.folder}/"] if sources is objects.sources else sources
        with multiprocessing.Pool(objects.jobs) as pool:
            for one, files in zip(sources, pool.starmap(source.read, tasks)):
                for name, mutants, tables in files:
                    self.users[name].append(one)
                    if name not in self.texts:
                        self.texts[name] = (objects.root / name).read_text()
                        self.mutants += mutants
                        self.tables += tables
        number_same(self.mutants)

    def with_switches(self, mutants):
        """The library in which every mutant that can have a switch has one; and the tables where nm finds them."""
        with_switch = [mutant for mutant in mutants if not mutant.alone]
        for number, mutant in enumerate(with_switch, 1):
            mutant.number = number
        tables = {table.file for table in self.tables}.intersection(self.objects.sources)
        users = {one for mutant in with_switch for one in self.users[mutant.file]}
        self.switched = self.objects.with_switches(self.texts, with_switch, sorted(tables | users))
        if self.tables:
            in_tables = list(cells.mutants(self.tables, self.switched / self.objects.name))
            self.mutants += in_tables
            return in_tables
        return []

    def judge(self, mutant, equivalents):
        """What becomes of a mutant: switched on, and, when no test comes by it or catches it, compiled alone."""
        if mutant.cell:
            self.test(mutant, self.tests.programs, self.switched, {"KEL_CELL": mutant.cell})
        elif not mutant.alone:
            self.test(mutant, self.tests.reached(mutant), self.switched, {"KEL_MUTANT": str(mutant.number)})
        if not mutant.outcome and not mutant.cell and (mutant.alone or not equivalents.key_of(mutant)):
            text, users = self.texts[mutant.file], self.users[mutant.file]
            with self.objects.with_change(mutant, text, users) as (outcome, changed):
                mutant.outcome = outcome
                if changed and not self.tests.reached(mutant):
                    self.test(mutant, self.tests.programs, changed, {})
        mutant.outcome = mutant.outcome or ALIVE
        return mutant

    def test(self, mutant, programs, made, environment):
        mutant.by = self.tests.catcher(mutant, programs, made, environment)
        mutant.outcome = TESTS if mutant.by else ""


class Run:
    def __init__(self, options):
        self.options = options
        self.root, build = options.root.resolve(), options.build.resolve()
        self.work = build / "mutation"
        self.parts = [Part(kind(self.root, build, options.jobs, rooms))
                      for kind, rooms in ((Funzioni, options.tests), (Registrazioni, options.recordings))]

    def part(self, mutant):
        return next(part for part in self.parts if mutant.file.startswith(f"{part.objects.folder}/"))

    def share(self, part):
        """Which share of a part's mutants is asked for, of how many. Each share is of one library alone, so that the other need
        not be read and built: the first half of them is the first one's, as about half of the mutants are. None: no share."""
        share, shares = map(int, self.options.shard.split("/"))
        first = shares // 2
        if shares == 1:
            return 1, 1
        if part is self.parts[0]:
            return (share, first) if share <= first else None
        return (share - first, shares - first) if share > first else None

    def asked(self, part):
        """Whether any mutant of a part can be asked for."""
        files = [one for one in self.options.only or () if "." in one]
        others = not self.options.only or len(files) < len(self.options.only)
        ours = any(str(file).endswith(one) for one in files for file in (self.root / part.objects.folder).rglob("*.*"))
        return (others or ours) and (not self.options.shard or self.share(part) is not None)

    def chosen(self, part, mutants):
        """Those that are asked for. A share goes by the names: it stays the same when others come and go."""
        if self.options.shard:
            share, shares = self.share(part)
            mutants = [m for m in mutants if int(m.name, 16) % shares == share % shares]
        if self.options.only:
            mutants = [m for m in mutants if any(m.name == one or m.file.endswith(one) for one in self.options.only)]
        return sorted(mutants, key=lambda m: (m.file, m.begin))

    def judge_all(self, mutants):
        mark = results.fingerprint(self.root, INPUTS)
        journal = results.Journal(self.work / "state.tsv", mark, self.options.fresh)
        for mutant in mutants:
            mutant.outcome, mutant.by = journal.outcomes.get(mutant.name, ("", ""))
        left = sorted((mutant for mutant in mutants if not mutant.outcome), key=lambda mutant: mutant.alone)
        began = time.time()
        with ThreadPoolExecutor(self.options.jobs) as pool:
            for count, mutant in enumerate(pool.map(lambda one: self.part(one).judge(one, self.equivalents), left), 1):
                journal.keep(mutant)
                if sys.stderr.isatty():
                    rest = (time.time() - began) / count * (len(left) - count)
                    print(f"\r{count} of {len(left)}, {rest:.0f} s left   ", end="", file=sys.stderr)

    def run(self):
        began = time.time()
        mutants = []
        parts = [part for part in self.parts if self.asked(part)]
        for part in parts:
            part.find(self.options.only)
            ours = self.chosen(part, part.mutants)
            mutants += ours
            if ours or part.tables:
                mutants += self.chosen(part, part.with_switches(ours))
        every = [mutant for part in parts for mutant in part.mutants]
        if self.options.list:
            print(*mutants, sep="\n")
            return True
        self.equivalents = results.Equivalents()
        print(f"{len(every)} mutants, {len(mutants)} of them to try", file=sys.stderr)
        for part in parts:
            if any(self.part(mutant) is part for mutant in mutants):
                part.tests = Tests(part.objects, part.switched)
        self.judge_all(mutants)
        listed = [mutant for mutant in mutants if self.equivalents.key_of(mutant)]
        for mutant in listed:
            mutant.outcome = EQUIVALENT if mutant.outcome == ALIVE else mutant.outcome
        table = f"{results.table(mutants)}\n{results.rooms(mutants)}"
        seconds = f"{time.time() - began:.0f} seconds with {self.options.jobs} jobs"
        print(f"{table}{sum(m.outcome == INVALID for m in mutants)} more changes are not valid C++; {seconds}")
        good = results.faults(mutants, listed, self.equivalents.gone(every, [folder for part in parts for folder in part.read]))
        if good and self.options.write:
            results.write(self.root / PAGE, f"{table}\nOf {datetime.date.today()}; {seconds}.\n")
        return good


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--root", type=Path, required=True)
    parser.add_argument("--build", type=Path, required=True)
    parser.add_argument("--tests", nargs="+", required=True,
                        help="the test programs of the first library that count, without kel_test_")
    parser.add_argument("--recordings", nargs="+", required=True, help="those of the second library")
    parser.add_argument("--shard", metavar="I/N", help="the I-th of N shares, 1 to N")
    parser.add_argument("--only", metavar="FILE|MUTANT", action="append", help="one file's, or one; may stand more than once")
    parser.add_argument("--list", action="store_true", help="show the mutants, and try none")
    parser.add_argument("--fresh", action="store_true", help="begin anew, in place of going on")
    parser.add_argument("--write", action="store_true", help=f"put the table of all into {PAGE}")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    options = parser.parse_args()
    if options.write and (options.shard or options.only):
        parser.error("--write goes neither with --shard nor with --only")
    try:
        return 0 if Run(options).run() else 1
    except Unfit as unfit:
        sys.exit(str(unfit))


if __name__ == "__main__":
    sys.exit(main())
