"""What the Debian packages say of the library is what the library is: version and exported symbols."""
import argparse
import re
import sys


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--version", required=True)
    parser.add_argument("--debian", required=True)
    parser.add_argument("--symbols", required=True, action="append", metavar="PACKAGE:FILE",
                        help="the list of what a package's library exports")
    argomenti = parser.parse_args()
    errori = []

    with open(f"{argomenti.debian}/changelog", encoding="utf-8") as f:
        versione = re.match(r"libkelfunzioni \(([^)]*)-[^-]*\)", f.readline())
    if not versione or versione[1] != argomenti.version:
        errori.append(f"debian/changelog has {versione and versione[1]} on top, the project is {argomenti.version}")

    for voce in argomenti.symbols:
        pacchetto, elenco = voce.split(":", 1)
        with open(elenco, encoding="ascii") as f:
            esportati = {riga.split()[-1] for riga in f if not riga.startswith("#")}
        with open(f"{argomenti.debian}/{pacchetto}.symbols", encoding="ascii") as f:
            righe = f.read().splitlines()
        dichiarati = {riga.split("@")[0].strip() for riga in righe if riga.startswith(" ")}
        if dichiarati != esportati or not dichiarati:
            errori.append(f"debian/{pacchetto}.symbols and {elenco} differ: {sorted(dichiarati ^ esportati)}\n"
                          "Add a line ' NAME@Base VERSION' with the version that first has it; a name that vanishes needs "
                          "a new SONAME.")
    for errore in errori:
        print(errore, file=sys.stderr)
    return 1 if errori else 0


if __name__ == "__main__":
    sys.exit(main())
