#!/usr/bin/env python3
"""Puts the tables of a run into a page, between the marks that say where they go.

  pagina.py FOLDER PAGE

FOLDER holds results.json, operations.md and footprint.md of the run.
"""

import json
import pathlib
import re
import subprocess
import sys


def macchina(risultati):
    """One sentence about where the run was made."""
    contesto = json.loads(risultati.read_text())["context"]
    modello = re.search(r"^model name\s*: (.*)$", pathlib.Path("/proc/cpuinfo").read_text(), re.MULTILINE)
    compilatore = subprocess.run(["c++", "--version"], check=True, stdout=subprocess.PIPE, text=True).stdout.splitlines()[0]
    carico = contesto["load_avg"][0] if contesto.get("load_avg") else 0.0
    return (f"{modello[1] if modello else 'Unknown processor'}, {contesto['num_cpus']} processors at "
            f"{contesto['mhz_per_cpu']} MHz, load {carico:.1f} at the start; {compilatore}.")


def sostituisci(pagina, segno, testo):
    modello = re.compile(rf"(<!-- {segno}: begin -->\n).*?(<!-- {segno}: end -->)", re.DOTALL)
    if not modello.search(pagina):
        sys.exit(f"the page has no marks <!-- {segno}: begin --> and <!-- {segno}: end -->")
    return modello.sub(lambda trovata: f"{trovata[1]}\n{testo.strip()}\n\n{trovata[2]}", pagina)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    cartella, percorso = map(pathlib.Path, sys.argv[1:])
    dove = macchina(cartella / "results.json")
    operazioni = (cartella / "operations.md").read_text()
    pagina = sostituisci(percorso.read_text(), "operations", f"{dove}\n\n{operazioni}")
    pagina = sostituisci(pagina, "footprint", (cartella / "footprint.md").read_text())
    percorso.write_text(pagina)


if __name__ == "__main__":
    main()
