"""What became of the mutants: the table of kinds and outcomes, and what is wrong."""

import datetime
import sys

import equivalenti
from mutante import ALIVE, COMPILER, EQUIVALENT, ILL, KINDS, SAME, TESTS

BEGIN, END = "<!-- mutants: begin -->", "<!-- mutants: end -->"
OUTCOMES = (COMPILER, TESTS, SAME, EQUIVALENT, ALIVE)


def rows(mutants):
    """For each kind, and for all: the mutants made and what became of them."""
    for kind in (*KINDS, "all"):
        these = [m for m in mutants if kind in ("all", m.kind) and m.outcome != ILL]
        yield kind, len(these), [sum(m.outcome == outcome for m in these) for outcome in OUTCOMES]


def terminal(mutants, seconds):
    print(f"{'KIND':12} {'MADE':>6} {'COMPILER':>9} {'TESTS':>6} {'SAME CODE':>10} {'EQUIVALENT':>11} {'ALIVE':>6}")
    for kind, made, (compiler, tests, same, equivalent, alive) in rows(mutants):
        print(f"{kind:12} {made:6} {compiler:9} {tests:6} {same:10} {equivalent:11} {alive:6}")
    print(f"{sum(m.outcome == ILL for m in mutants)} more changes are no programs; {seconds:.0f} s")


def markdown(mutants, seconds, jobs):
    lines = ["| kind | made | caught by the compiler | caught by tests | same code | equivalent | alive |",
             "|---|--:|--:|--:|--:|--:|--:|"]
    lines += [f"| {kind} | {made} | " + " | ".join(map(str, counts)) + " |" for kind, made, counts in rows(mutants)]
    day = datetime.date.today()
    return "\n".join(lines) + f"\n\nOf {day}; {seconds:.0f} seconds with {jobs} jobs.\n"


def write(page, table):
    """Puts the table between its marks on a page."""
    before, rest = page.read_text().split(BEGIN, 1)
    after = rest.split(END, 1)[1]
    page.write_text(f"{before}{BEGIN}\n{table}{END}{after}")


def faults(mutants, missing, caught):
    """Tells what is wrong; True when nothing is."""
    alive = [m for m in mutants if m.outcome == ALIVE]
    for mutant in alive:
        print(f"alive: {mutant}", file=sys.stderr)
        print(equivalenti.line(mutant))
    for key in missing:
        print(f"{equivalenti.FILE.name}: matches no mutant: {' | '.join(key)}", file=sys.stderr)
    for mutant in caught:
        print(f"{equivalenti.FILE.name}: {mutant.outcome} {mutant.by}: {mutant}", file=sys.stderr)
    return not (alive or missing or caught)
