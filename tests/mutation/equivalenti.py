"""The list of mutants that change nothing: equivalenti.tsv, one a line, with the reason.

Of cells one line may stand for a column, "[*].name", and for every change, "*".
"""

import re
from pathlib import Path

FILE = Path(__file__).resolve().parent / "equivalenti.tsv"
COLUMNS = ("file", "function", "original", "changed", "occurrence", "why")


def read():
    """The reasons by the mutants' keys."""
    reasons = {}
    for number, line in enumerate(FILE.read_text().splitlines(), 1):
        if not line or line.startswith("#"):
            continue
        cells = line.split("\t")
        if len(cells) != len(COLUMNS) or not all(cells):
            raise SystemExit(f"{FILE.name}:{number}: {len(cells)} columns, expected {', '.join(COLUMNS)}")
        if tuple(cells[:5]) in reasons:
            raise SystemExit(f"{FILE.name}:{number}: stands there twice")
        reasons[tuple(cells[:5])] = cells[5]
    return reasons


class Reasons:
    """The list, asked by mutants."""

    def __init__(self):
        self.exact = read()
        self.columns = {key: re.compile("\t".join(re.escape(cell).replace(r"\*", ".*") for cell in key))
                        for key in self.exact if "[*]" in key[2]}

    def line_of(self, mutant):
        """The key of the line that a mutant falls under; None when there is none."""
        if mutant.key in self.exact:
            return mutant.key
        if mutant.kind != "cell":
            return None
        return next((key for key, pattern in self.columns.items() if pattern.fullmatch("\t".join(mutant.key))), None)

    def without_mutant(self, mutants):
        return sorted(set(self.exact) - {self.line_of(mutant) for mutant in mutants})


def line(mutant, why="?"):
    return "\t".join((*mutant.key, why))
