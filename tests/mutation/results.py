"""What became of the mutants: kept while a run goes on, and told at its end."""

import hashlib
import re
import sys
from pathlib import Path

from mutant import ALIVE, COMPILER, EQUIVALENT, INVALID, KINDS, SAME, TESTS

LIST = Path(__file__).resolve().parent / "equivalent.tsv"
COLUMNS = ("file", "function", "change", "why")
OUTCOMES = (COMPILER, TESTS, SAME, EQUIVALENT, ALIVE)


def fingerprint(root, folders):
    """Of all that an outcome depends on."""
    digest = hashlib.sha256()
    for folder in folders:
        for file in sorted((root / folder).rglob("*")):
            if file.suffix in (".h", ".cpp", ".py", ".txt", ".tsv") and file != LIST:
                digest.update(f"{file.relative_to(root)}\0".encode() + file.read_bytes() + b"\0")
    return digest.hexdigest()


class Journal:
    """A file with a line for each outcome: what a run that was stopped goes on with, unless the fingerprint differs."""

    def __init__(self, path, mark, fresh):
        lines = path.read_text().splitlines() if path.exists() else []
        same = lines[:1] == [mark] and not fresh
        rows = [line.split("\t") for line in lines[1:]] if same else []
        self.outcomes = {row[0]: (row[1], row[2]) for row in rows if len(row) == 3}  # the last one may be cut off
        self.file = path.open("w")
        self.file.write("\n".join([mark, *("\t".join(row) for row in rows if len(row) == 3), ""]))

    def keep(self, mutant):
        self.file.write(f"{mutant.name}\t{mutant.outcome}\t{mutant.by}\n")
        self.file.flush()


class Equivalents:
    """equivalent.tsv: mutants that no caller can tell from the library, by their keys, each with the reason why.

    For cells one line may stand for a column, "[*].name", and for every change, "{{*}}".
    """

    def __init__(self):
        self.keys = {}
        for number, line in enumerate(LIST.read_text().splitlines(), 1):
            if line.startswith("#"):
                continue
            cells = line.split("\t")
            key = tuple(cells[:3])
            if len(cells) != len(COLUMNS) or not all(cells) or key in self.keys:
                raise SystemExit(f"{LIST.name}:{number}: expected {', '.join(COLUMNS)}, with tabs between, and each key once")
            self.keys[key] = re.compile(re.escape("\t".join(key)).replace(r"\*", ".*")) if "*}}" in line else None

    def key_of(self, mutant):
        """The line that a mutant falls under; None when there is none."""
        if mutant.key in self.keys:
            return mutant.key
        return next((key for key, pattern in self.keys.items()
                     if pattern and mutant.cell and pattern.fullmatch("\t".join(mutant.key))), None)

    def gone(self, mutants, folders):
        """The lines about files of some folders that match no mutant."""
        lines = {key for key in self.keys if key[0].startswith(tuple(folders))}
        return sorted(lines - {self.key_of(mutant) for mutant in mutants})


def table(mutants):
    """For each kind, and for all: the mutants made and what became of them."""
    lines = [["kind", "made", *OUTCOMES], ["---", *["--:"] * (1 + len(OUTCOMES))]]
    for kind in (*KINDS, "all"):
        these = [m.outcome for m in mutants if kind in ("all", m.kind) and m.outcome != INVALID]
        lines.append([kind, len(these), *map(these.count, OUTCOMES)])
    return "".join("| " + " | ".join(map(str, line)) + " |\n" for line in lines)


def rooms(mutants):
    """The same for each room, in one line each."""
    lines = [["room", "made", *OUTCOMES], ["---", *["--:"] * (1 + len(OUTCOMES))]]
    for room in sorted({m.file.rsplit("/", 1)[0] for m in mutants}):
        these = [m.outcome for m in mutants if m.file.rsplit("/", 1)[0] == room and m.outcome != INVALID]
        lines.append([f"`{room}`", len(these), *map(these.count, OUTCOMES)])
    return "".join("| " + " | ".join(map(str, line)) + " |\n" for line in lines)


def write(page, text):
    """Puts the table between its marks on a page."""
    begin, end = "<!-- mutants: begin -->", "<!-- mutants: end -->"
    before, rest = page.read_text().split(begin, 1)
    page.write_text(f"{before}{begin}\n{text}{end}{rest.split(end, 1)[1]}")


def faults(mutants, listed, gone):
    """Tells what is wrong, and the line that the list would need; True when nothing is."""
    alive = [f"alive: {m}\n" + "\t".join((*m.key, "?")) for m in mutants if m.outcome == ALIVE]
    gone = [f"{LIST.name}: matches no mutant: {' | '.join(key)}" for key in gone]
    caught = [f"{LIST.name}: {m.outcome} {m.by}: {m}" for m in listed if m.outcome != EQUIVALENT]
    for fault in (*alive, *gone, *caught):
        print(fault, file=sys.stderr)
    return not (alive or gone or caught)
