#!/usr/bin/env python3
"""Whether the pages that promise to list everything do: every function on the page of failures, every table on that of
tables.

    completo.py INCLUDE_DIR DOCS_DIR
"""

import re
import sys
from pathlib import Path

include, docs = map(Path, sys.argv[1:])


def code(header):
    return re.sub(r"//.*", "", (include / header).read_text())


def named(page):
    # Names in running text or tables, not in programs.
    text = re.sub(r"^```.*?^```$", "", (docs / page).read_text(), flags=re.M | re.S)
    return set(re.findall(r"`(\w+)`", text))


flat = re.findall(r"(\w+)\([^()]*\)\s*KEL_NOEXCEPT;", code("kel_funzioni.h"))
tables = re.findall(r"extern KEL_API const \w+ (\w+)\[", code("kel_tabelle.h"))
operations = re.findall(r"(?:virtual|static)\s[^;(]*?\b(\w+)\(",
                        code("IFunzioni.h") + code("IConverter.h") + code("CLaptimeAndStrings.h"))
operations = [name for name in operations if name not in ("IFunzioni", "IConverter")]

missing = 0
for kind, names, least, page in (("flat function", flat, 42, "failures.md"), ("operation", operations, 50, "failures.md"),
                                 ("table", tables, 64, "tables.md")):
    found = set(names)
    if len(found) < least:
        print(f"only {len(found)} names of kind {kind} found in the headers: the pattern fails")
        missing += 1
    for name in sorted(found - named(page)):
        print(f"{docs / page}: {kind} {name} is missing")
        missing += 1
    print(f"{page}: {len(found)} names of kind {kind}")
sys.exit(missing > 0)
