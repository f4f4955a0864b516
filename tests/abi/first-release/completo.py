#!/usr/bin/env python3
"""The programs of the first release use everything of its headers, which are still what they were.

    completo.py          exit status 1 when an operation or a table is not used, or a header was touched
    completo.py --write  after the first release's headers were put here: keeps their digests
"""

import hashlib
import pathlib
import re
import sys

QUI = pathlib.Path(__file__).resolve().parent
DIGEST = QUI / "include.sha256"


def somme():
    return "".join(f"{hashlib.sha256(file.read_bytes()).hexdigest()}  {file.name}\n"
                   for file in sorted((QUI / "include").glob("*.h")))


def mancanti():
    def testo(nome):
        return (QUI / nome).read_text()

    flat = re.findall(r"^KEL_API [^;]*?\b(\w+)\(", testo("include/kel_funzioni.h"), re.M)
    tabelle = re.findall(r"^extern KEL_API const \w+ (\w+)\[", testo("include/kel_tabelle.h"), re.M)
    slot = re.findall(r"^ +virtual [^;]*?\b(\w+)\(", testo("include/IFunzioni.h") + testo("include/IConverter.h"), re.M)
    statiche = re.findall(r"^ +static [^;]*?\b(\w+)\(", testo("include/CLaptimeAndStrings.h"), re.M)
    for nomi, programma in ((flat + tabelle, "client.c"), (slot + statiche, "client.cpp")):
        if len(nomi) < 40:
            yield f"only {len(nomi)} names found for {programma}: the headers are not read rightly"
        usati = set(re.findall(r"\w+", testo(programma)))
        for nome in nomi:
            if nome not in usati:
                yield f"{nome} is not used in {programma}"


def main():
    if sys.argv[1:] == ["--write"]:
        DIGEST.write_text(somme())
        return 0
    problemi = list(mancanti())
    if DIGEST.read_text() != somme():
        problemi.append("a header of the first release is no longer what it was")
    print("\n".join(problemi) or "every flat function, table and slot of the first release is used")
    return 1 if problemi else 0


sys.exit(main())
