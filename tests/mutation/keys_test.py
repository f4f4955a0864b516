#!/usr/bin/env python3
"""The keys of mutants: what they outlive, and what they do not. Ends with 77 where libclang's bindings are missing."""

import sys
import tempfile
from pathlib import Path

try:
    import clang.cindex
except ImportError:
    print("the bindings of libclang are not installed")
    sys.exit(77)

import mutant
import results
import source

FIRST = """// Adds.
int sum(int a, int b) {
    if (a < 0 || // negative
        b < 0)
        return 0;
    return a + b;
}
int twice(int a) { return a * 2; }
"""
# Another order of the functions, other comments, other lines.
MOVED = """int twice(int a)
{
    /* one half */ return a *
                          2;
}

int sum(int a, int b) {
    // Nothing to add.
    if (a < 0 || b < 0) return 0;
    return a + b; // the sum
}
"""
CHANGED = FIRST.replace("a * 2", "a * 3")
TWICE = "int f(int a) {\n    if (a == 1)\n        return 0;\n    return 0;\n}\n"


def keys(text):
    with tempfile.TemporaryDirectory() as folder:
        root = Path(folder).resolve()
        (root / "src").mkdir()
        (root / "src/a.cpp").write_text(text)
        (_, mutants, _), = source.read(root, "src", True, "src/a.cpp", ["-xc++", "-std=c++20"])
    mutant.number_same(mutants)
    return [one.key for one in mutants]


def listed(*lines):
    with tempfile.NamedTemporaryFile("w", suffix=".tsv") as file:
        file.write("".join("\t".join(line) + "\n" for line in lines))
        file.flush()
        results.LIST = Path(file.name)
        return results.Equivalents()


def main():
    first = keys(FIRST)
    assert ("src/a.cpp", "sum", "if (a {{< => <=}} 0 || b < 0)") in first, first
    assert ("src/a.cpp", "sum", "return a {{+ => -}} b;") in first, first
    assert len(set(first)) == len(first) >= 15, first
    assert set(keys(MOVED)) == set(first), set(keys(MOVED)) ^ set(first)

    changed = set(first) - set(keys(CHANGED))
    assert changed and {function for _, function, _ in changed} == {"twice"}, changed

    assert [key for key in keys(TWICE) if key[2].startswith("return {{0 => (0 + 1)}};")] == [
        ("src/a.cpp", "f", "return {{0 => (0 + 1)}};"), ("src/a.cpp", "f", "return {{0 => (0 + 1)}}; #2")]

    mutants = [mutant.Mutant("relational", *key, 1) for key in first]
    gone = ("src/a.cpp", "sum", "return a {{+ => -}} c;")
    assert listed((*first[0], "why"), (*gone, "why")).gone(mutants, ["src/"]) == [gone]
    cell = mutant.Mutant("cell", "src/a.cpp", "table", "[3].gain {{1 => 2}}", 1, cell="table 0 bytes 02")
    assert listed(("src/a.cpp", "table", "[*].gain {{*}}", "why")).key_of(cell)
    assert not listed(("src/a.cpp", "table", "[*].gain {{*}}", "why")).key_of(mutants[0])
    assert not listed(("src/a.cpp", "table", "[*].offset {{*}}", "why")).key_of(cell)


if __name__ == "__main__":
    main()
