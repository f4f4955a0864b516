"""What became of the mutants of a run that was stopped: kept as long as sources, tests and this program are the same."""

import hashlib
from pathlib import Path


def fingerprint(root):
    """Of all that an outcome depends on."""
    digest = hashlib.sha256()
    for folder in ("src/funzioni", "include", "tests/mutation", "tests/golden", "tests/comune", "tests/funzioni"):
        for file in sorted((root / folder).rglob("*")):
            if file.suffix in (".h", ".cpp", ".py", ".txt"):
                digest.update(f"{file.relative_to(root)}\0".encode() + file.read_bytes() + b"\0")
    return digest.hexdigest()


class State:
    """A journal: the fingerprint, and a line for each outcome."""

    def __init__(self, path, mark, fresh):
        self.path = Path(path)
        self.outcomes = {}
        lines = self.path.read_text().splitlines() if self.path.exists() else []
        if lines and lines[0] == mark and not fresh:
            for line in lines[1:]:
                cells = line.split("\t")
                if len(cells) == 3:
                    self.outcomes[cells[0]] = (cells[1], cells[2])
            self.file = self.path.open("a")
        else:
            self.file = self.path.open("w")
            self.file.write(mark + "\n")

    def keep(self, mutant):
        self.file.write(f"{mutant.name}\t{mutant.outcome}\t{mutant.by}\n")
        self.file.flush()
