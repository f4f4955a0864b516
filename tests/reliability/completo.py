#!/usr/bin/env python3
"""Every exported flat function is called by each of the programs that say something about all of them."""

import pathlib
import re
import sys

RADICE = pathlib.Path(__file__).resolve().parents[2]
SORGENTI = {
    "tests/digest/famiglie_flat.cpp": r'\{"(\w+)',
    "bench/conti/operazioni_flat.cpp": r'\{"(\w+)',
    "tests/funzioni/converters/allocazioni_test.cpp": r"\b(\w+)\(",
    "tests/client/c99.c": r"\b(\w+)\(",
}


def funzioni():
    for riga in (RADICE / "tests/abi/exported-symbols.txt").read_text().splitlines():
        campi = riga.split()
        if campi[:1] == ["FUNC"] and not campi[-1].startswith("_Z"):
            yield campi[-1]


def main():
    tutte = set(funzioni())
    mancanti = [f"{nome} is not called in {file}"
                for file, chiamata in SORGENTI.items()
                for nome in sorted(tutte - set(re.findall(chiamata, (RADICE / file).read_text())))]
    print("\n".join(mancanti) or f"{len(tutte)} flat functions, each called in {len(SORGENTI)} programs")
    return 1 if mancanti or not tutte else 0


sys.exit(main())
