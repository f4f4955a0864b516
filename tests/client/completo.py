#!/usr/bin/env python3
"""The client programs use everything of the public headers: c99.c every flat function and table, cxx.cpp every virtual
operation and every lap time text, colonne.c and registrazioni.c every function of the second library. Exit status 1 when
one is not used."""

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
    seconda = re.findall(r"^KEL_API [^;]*?\b(\w+)\(", testo("kelregistrazioni.h"), re.M)
    for nomi, *programmi in ((flat + tabelle, "c99.c"), (slot + statiche, "cxx.cpp"),
                             (seconda, "colonne.c", "registrazioni.c")):
        dove = " or ".join(programmi)
        if len(nomi) < 30:
            yield f"only {len(nomi)} names found for {dove}: the headers are not read rightly"
        usati = {parola for programma in programmi for parola in re.findall(r"\w+", (QUI / programma).read_text())}
        for nome in nomi:
            if nome not in usati:
                yield f"{nome} is not used in {dove}"


problemi = list(mancanti())
print("\n".join(problemi) or "every flat function, table and operation is used")
sys.exit(1 if problemi else 0)
