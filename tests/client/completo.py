#!/usr/bin/env python3
"""The client programs use everything of the public headers: c99.c every flat function and table, cxx.cpp every virtual
operation and every lap time text. Exit status 1 when one is not used."""

import pathlib
import re
import sys

QUI = pathlib.Path(__file__).resolve().parent
INCLUDE = QUI.parents[1] / "include"


def mancanti():
    def testo(*nomi):
        return "".join((INCLUDE / nome).read_text() for nome in nomi)

    flat = re.findall(r"^KEL_API [^;]*?\b(\w+)\(", testo("kel_funzioni.h"), re.M)
    tabelle = re.findall(r"^extern KEL_API const \w+ (\w+)\[", testo("kel_tabelle.h"), re.M)
    slot = re.findall(r"^ +virtual [^;]*?\b(\w+)\(", testo("IFunzioni.h", "IConverter.h"), re.M)
    statiche = re.findall(r"^ +static [^;]*?\b(\w+)\(", testo("CLaptimeAndStrings.h"), re.M)
    for nomi, programma in ((flat + tabelle, "c99.c"), (slot + statiche, "cxx.cpp")):
        if len(nomi) < 40:
            yield f"only {len(nomi)} names found for {programma}: the headers are not read rightly"
        usati = set(re.findall(r"\w+", (QUI / programma).read_text()))
        for nome in nomi:
            if nome not in usati:
                yield f"{nome} is not used in {programma}"


problemi = list(mancanti())
print("\n".join(problemi) or "every flat function, table and operation is used")
sys.exit(1 if problemi else 0)
