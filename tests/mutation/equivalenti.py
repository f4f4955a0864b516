"""The list of mutants that change nothing: equivalenti.tsv, one a line, with the reason."""

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


def line(mutant, why="?"):
    return "\t".join((*mutant.key, why))
