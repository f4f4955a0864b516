#!/usr/bin/env python3
"""Puts the tables of a run into a page, between the marks that say where they go.

  pagina.py [--python] FOLDER PAGE

FOLDER holds results.json, operations.md and footprint.md of the run; with --python, python.md of a run of this Python.
"""

import importlib.metadata
import json
import os
import pathlib
import platform
import re
import subprocess
import sys


def processore():
    modello = re.search(r"^model name\s*: (.*)$", pathlib.Path("/proc/cpuinfo").read_text(), re.MULTILINE)
    return modello[1] if modello else "Unknown processor"


def macchina(risultati):
    """One sentence about where the run was made."""
    contesto = json.loads(risultati.read_text())["context"]
    compilatore = subprocess.run(["c++", "--version"], check=True, stdout=subprocess.PIPE, text=True).stdout.splitlines()[0]
    carico = contesto["load_avg"][0] if contesto.get("load_avg") else 0.0
    return (f"{processore()}, {contesto['num_cpus']} processors at "
            f"{contesto['mhz_per_cpu']} MHz, load {carico:.1f} at the start; {compilatore}.")


def macchina_python():
    nomi = ("numpy", "pandas", "polars", "cantools")
    versioni = ", ".join(f"{nome} {importlib.metadata.version(nome)}" for nome in nomi)
    return (f"{processore()}, {os.cpu_count()} processors, load {os.getloadavg()[0]:.1f} at the end; "
            f"Python {platform.python_version()}, {versioni}.")


def sostituisci(pagina, segno, testo):
    modello = re.compile(rf"(<!-- {segno}: begin -->\n).*?(<!-- {segno}: end -->)", re.DOTALL)
    if not modello.search(pagina):
        sys.exit(f"the page has no marks <!-- {segno}: begin --> and <!-- {segno}: end -->")
    return modello.sub(lambda trovata: f"{trovata[1]}\n{testo.strip()}\n\n{trovata[2]}", pagina)


def main():
    pacchetto = "--python" in sys.argv[1:]
    argomenti = [uno for uno in sys.argv[1:] if uno != "--python"]
    if len(argomenti) != 2:
        sys.exit(__doc__)
    cartella, percorso = map(pathlib.Path, argomenti)
    pagina = percorso.read_text()
    if pacchetto:
        pagina = sostituisci(pagina, "python", f"{macchina_python()}\n\n{(cartella / 'python.md').read_text()}")
    else:
        operazioni = (cartella / "operations.md").read_text()
        pagina = sostituisci(pagina, "operations", f"{macchina(cartella / 'results.json')}\n\n{operazioni}")
        pagina = sostituisci(pagina, "footprint", (cartella / "footprint.md").read_text())
    percorso.write_text(pagina)


if __name__ == "__main__":
    main()
