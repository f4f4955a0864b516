#!/usr/bin/env python3
"""The number of rows of every exported table, as include/kel_tabelle.h declares it.

    rows.py ROOT

Exit status 1, and what to do, when
 - a version in tests/abi/releases declares another number: its programs hold copies of the table, so the soname must be new;
 - tests/client/c99.c, the program that reads every table to its end, stops at another row.
"""

import pathlib
import re
import sys

root = pathlib.Path(sys.argv[1])
DECLARED = re.compile(r"^extern KEL_API const \w+ (\w+)\[(\d+)\];", re.MULTILINE)


def declared(folder):
    return {name: int(rows) for name, rows in DECLARED.findall((folder / "kel_tabelle.h").read_text(encoding="utf-8"))}


tables = declared(root / "include")
mistakes = []

for include in sorted((root / "tests/abi/releases").glob("*/include")):
    for name, rows in declared(include).items():
        if tables.get(name) != rows:
            mistakes.append(f"{name} has {tables.get(name, 'no')} rows, in release {include.parent.name} {rows}: its programs hold a "
                            "copy of that size. The soname must be new: docs/adding-a-table-row.md")

# As calls name(TABLE, ROWS), or in a loop: i < ROWS, then TABLE[i] in its first line.
client = (root / "tests/client/c99.c").read_text(encoding="utf-8")
read = {name: int(rows) for name, rows in re.findall(r"^    \w+\((\w+), (\d+)\);", client, re.MULTILINE)}
read |= {name: int(rows) for rows, name in re.findall(r"i < (\d+); i\+\+\) \{\n.*?\b(\w+)\[i\]", client)}
for name, rows in tables.items():
    if read.get(name) != rows:
        mistakes.append(f"tests/client/c99.c reads {read.get(name, 'no')} rows of {name}, which has {rows}: write {rows} there")

if len(tables) < 60:
    mistakes.append(f"only {len(tables)} tables found in include/kel_tabelle.h: this test reads it wrongly")
print("\n".join(mistakes) or f"{len(tables)} tables, as long as the client programs take them to be")
sys.exit(1 if mistakes else 0)
