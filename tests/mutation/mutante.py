"""A mutant, whatever it is made of, and what became of it."""

import hashlib
from dataclasses import dataclass, field

KINDS = ("relational", "logical", "arithmetic", "constant", "condition", "statement", "cell")

# What can become of one. An ill-typed one is no program, and not counted as a mutant.
COMPILER = "caught by the compiler"
TESTS = "caught by tests"
SAME = "same code"
EQUIVALENT = "equivalent"
ALIVE = "alive"
ILL = "ill-typed"


@dataclass
class Mutant:
    """One change of one place of the source, or of one cell of a table.

    file, function, original, changed and occurrence tell which, in words that outlive shifted lines: `occurrence`
    counts the same change of the same line within a function.
    """

    kind: str
    file: str
    function: str
    original: str
    changed: str
    occurrence: int = 1
    number: int = 0               # of the switch, for a mutant that one library carries beside the others
    begin: int = 0                # the piece of the file that is replaced, in bytes ...
    end: int = 0
    text: str = ""                # ... and by what
    compiled: bool = False        # belongs to what the compiler computes: a change of text, compiled alone
    cell: str = ""                # what the library is told, for a cell
    line: int = 0
    outcome: str = field(default="", compare=False)
    by: str = field(default="", compare=False)

    @property
    def key(self):
        return (self.file, self.function, self.original, self.changed, str(self.occurrence))

    @property
    def name(self):
        return hashlib.sha256("\t".join(self.key).encode()).hexdigest()[:10]

    def __str__(self):
        again = f" (#{self.occurrence})" if self.occurrence > 1 else ""
        where = f"{self.file}:{self.line} {self.function}"
        return f"{self.name} {self.kind:10} {where}: {self.original}  =>  {self.changed}{again}"


def count_occurrences(mutants):
    """Tells mutants of equal words apart by their order in the file."""
    seen = {}
    for mutant in sorted(mutants, key=lambda m: (m.file, m.begin, m.end)):
        words = mutant.key[:4]
        seen[words] = mutant.occurrence = seen.get(words, 0) + 1
