"""A mutant: the library with one small change, and what became of it."""

import hashlib
from dataclasses import dataclass, field

KINDS = ("relational", "logical", "arithmetic", "constant", "condition", "statement", "cell")

# What can become of a mutant. One that is no valid C++ is not counted.
COMPILER = "caught by the compiler"
TESTS = "caught by tests"
SAME = "same code"
EQUIVALENT = "equivalent"
ALIVE = "alive"
INVALID = "invalid"


@dataclass
class Mutant:
    """`change` shows a statement with the change in it: "return a {{< => <=}} b;", or a cell: "[3].gain {{1 => 2}}"."""

    kind: str
    file: str
    function: str                 # for a cell, the table
    change: str
    line: int
    begin: int = 0                # the piece of the file that is replaced, and by what
    end: int = 0
    text: str = ""
    alone: bool = False           # compiled alone: the compiler computes it, so no switch can turn it on
    cell: str = ""                # what switch.cpp is told, for a cell
    lines: int = 0                # that the piece goes on for
    number: int = 0               # of the switch
    outcome: str = field(default="", compare=False)
    by: str = field(default="", compare=False)

    def __hash__(self):
        return hash(self.key)

    @property
    def key(self):
        """Tells the mutants apart, and outlives changed comments, line breaks and everything outside the statement."""
        return self.file, self.function, self.change

    @property
    def name(self):
        """The key in ten characters."""
        return hashlib.sha256("\t".join(self.key).encode()).hexdigest()[:10]

    def __str__(self):
        return f"{self.name} {self.kind:10} {self.file}:{self.line} {self.function}: {self.change}"


def number_same(mutants):
    """Tells mutants with the same words apart: the second of a function ends in "#2"."""
    seen = {}
    for mutant in sorted(mutants, key=lambda m: (m.file, m.begin, m.end)):
        key = mutant.key
        seen[key] = seen.get(key, 0) + 1
        if seen[key] > 1:
            mutant.change += f" #{seen[key]}"
