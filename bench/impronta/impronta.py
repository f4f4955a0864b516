#!/usr/bin/env python3
"""The footprint of the library beside other libraries: size, relocations, exports, initialisers, writable data, load time.

  impronta.py --native DIR [--armhf DIR]

DIR are build folders with KEL_BUILD_BENCH on. Ends with 1 when a target is not held.
"""

import argparse
import pathlib
import re
import subprocess
import sys
import tempfile

LIBRERIA = "src/funzioni/libkelfunzioni.so"
PARI = ["libgpiod.so.2", "libiio.so.0", "libexif.so.12", "libfmt.so.9", "libsigrok.so.4"]
CARICHI = 400

# What the C runtime and gcc's exception handling put into the writable sections of every library.
DEL_RUNTIME = {"__dso_handle", "__TMC_END__", "completed.0", "DW.ref.__gxx_personality_v0"}


def esegui(*comando):
    return subprocess.run(comando, check=True, stdout=subprocess.PIPE, text=True).stdout


class Elf:
    """A shared library, as readelf shows it."""

    def __init__(self, percorso, spogliata):
        self.percorso = percorso
        self.byte = pathlib.Path(spogliata).stat().st_size
        testata = esegui("readelf", "-hW", percorso)
        self.puntatore = 8 if "ELF64" in testata else 4
        self.sezioni = {}
        for riga in esegui("readelf", "-SW", percorso).splitlines():
            trovata = re.match(r" *\[ *\d+\] (\S+) +\S+ +([0-9a-f]+) [0-9a-f]+ ([0-9a-f]+)", riga)
            if trovata:
                self.sezioni[trovata[1]] = (int(trovata[2], 16), int(trovata[3], 16))
        self.esportati = [s for s in self.simboli("--dyn-syms") if s[3] != "UND" and s[2] in ("GLOBAL", "WEAK", "UNIQUE")]
        self.relative, self.con_simbolo, self.simboli_cercati = [], [], []
        for riga in esegui("readelf", "-rW", percorso).splitlines():
            if re.match(r"[0-9a-f]+ +[0-9a-f]+ R_\S+_RELATIVE", riga):
                self.relative.append(int(riga.split()[0], 16))
            elif re.match(r"[0-9a-f]+ +[0-9a-f]+ R_", riga):
                self.con_simbolo.append(int(riga.split()[0], 16))
                self.simboli_cercati.append(riga.split()[4].split("@")[0])
            elif re.fullmatch(r"[0-9a-f]{8,16}", riga):  # the offsets of a section of packed relative relocations
                self.relative.append(int(riga, 16))

    def simboli(self, quali):
        """(value, size, bind, section, type, name)"""
        for riga in esegui("readelf", quali, "-W", self.percorso).splitlines():
            parti = riga.split()
            if len(parti) >= 8 and parti[0].rstrip(":").isdigit():
                yield int(parti[1], 16), int(parti[2], 0), parti[4], parti[6], parti[3], parti[7].split("@")[0]

    def dimensione(self, sezione):
        return self.sezioni.get(sezione, (0, 0))[1]

    def inizializzatori(self):
        """Functions that run when the library is loaded, the C runtime's own left out."""
        return max(self.dimensione(".init_array") // self.puntatore - 1, 0)

    def scrivibili(self):
        return self.dimensione(".data") + self.dimensione(".bss")

    def scrivibili_propri(self):
        """The same without those of the runtime. Needs the library's symbols."""
        zone = [self.sezioni[nome] for nome in (".data", ".bss") if nome in self.sezioni]
        return sum(byte for posto, byte, _, _, tipo, nome in self.simboli("-s")
                   if tipo == "OBJECT" and nome not in DEL_RUNTIME and any(a <= posto < a + n for a, n in zone))

    def puntatori_in_tabelle(self):
        """Pointers in the exported tables, null ones left out: each is relocated one way or the other."""
        zone = [(posto, posto + byte) for posto, byte, _, _, tipo, nome in self.esportati
                if tipo == "OBJECT" and not nome.startswith("_ZT")]
        return sum(any(a <= posto < b for a, b in zone) for posto in self.relative + self.con_simbolo)


    def imposti(self):
        """Symbol relocations that the interface asks for: a program may hold copies of the exported tables, so that each
        address of one is looked up by name; and every operation of an abstract class has its slot for the call of nothing."""
        tabelle = {nome for _, _, _, _, tipo, nome in self.esportati if tipo == "OBJECT" and not nome.startswith("_ZT")}
        return sum(nome in tabelle or nome == "__cxa_pure_virtual" for nome in self.simboli_cercati)


def spoglia(percorso, strip, cartella):
    fatta = pathlib.Path(cartella) / (pathlib.Path(percorso).name + "." + strip)
    esegui(strip, "--strip-unneeded", "-o", fatta, percorso)
    return fatta


def carico(programma, librerie):
    """{library: microseconds, and whether it stays loaded}"""
    tempi = {}
    for riga in esegui(programma, str(CARICHI), *librerie).splitlines():
        nome, microsecondi, esito = riga.split("\t")
        tempi[nome] = (float(microsecondi), esito == "stays")
    return tempi


def trovate(programma):
    """The peers that are installed: name and path."""
    cache = esegui("/sbin/ldconfig", "-p")
    for nome in PARI:
        riga = re.search(rf"^\s*{re.escape(nome)} .*x86-64.* => (\S+)$", cache, re.MULTILINE)
        if riga:
            yield nome, riga[1]


def tabella(elf, tempi):
    colonne = ["library", "bytes", "relative", "symbol", "exports", "initialisers", "writable", "load us"]
    righe = [colonne, ["---", *["--:"] * 7]]
    for nome, libreria in elf.items():
        tempo = tempi.get(str(libreria.percorso))
        righe.append([nome, libreria.byte, len(libreria.relative), len(libreria.con_simbolo), len(libreria.esportati),
                      libreria.inizializzatori(), libreria.scrivibili(),
                      "-" if tempo is None else f"{tempo[0]:.0f}{' (stays)' if tempo[1] else ''}"])
    larghezze = [max(len(str(riga[i])) for riga in righe) for i in range(len(colonne))]
    for riga in righe:
        yield "| " + " | ".join(str(cella).ljust(n) if i == 0 else str(cella).rjust(n)
                                for i, (cella, n) in enumerate(zip(riga, larghezze))) + " |"


def obiettivi(nostra, armhf, tempi):
    """(what, value, at most)"""
    yield "stripped bytes, amd64", nostra.byte, 104 * 1024
    if armhf is not None:
        yield "stripped bytes, armhf", armhf.byte, 76 * 1024
    yield "relative relocations, beside the pointers in exported tables", len(nostra.relative), \
        nostra.puntatori_in_tabelle()
    yield "symbol relocations, beside addresses of exported tables and slots of pure operations", \
        len(nostra.con_simbolo) - nostra.imposti(), 60
    yield "static initialisers", nostra.inizializzatori(), 0
    yield "bytes of writable data of its own", nostra.scrivibili_propri(), 0
    di_gpiod = next((tempo for percorso, tempo in tempi.items() if "libgpiod" in percorso), None)
    nostro = tempi[str(nostra.percorso)]
    if di_gpiod is not None:
        yield "load and unload, times that of libgpiod", round(nostro[0] / di_gpiod[0], 2), 1.4
    yield "cannot be unloaded", int(nostro[1]), 0


def main():
    argomenti = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    argomenti.add_argument("--native", type=pathlib.Path, required=True, metavar="DIR")
    argomenti.add_argument("--armhf", type=pathlib.Path, metavar="DIR")
    scelti = argomenti.parse_args()

    with tempfile.TemporaryDirectory() as temporanea:
        nostra = (scelti.native / LIBRERIA).resolve()
        spogliata = spoglia(nostra, "strip", temporanea)
        elf = {"libkelfunzioni, amd64": Elf(nostra, spogliata)}
        armhf = None
        if scelti.armhf is not None:
            altra = (scelti.armhf / LIBRERIA).resolve()
            armhf = Elf(altra, spoglia(altra, "arm-linux-gnueabihf-strip", temporanea))
            elf["libkelfunzioni, armhf"] = armhf
        programma = scelti.native / "bench/impronta/kel_impronta_carico"
        pari = dict(trovate(programma))
        elf.update({nome: Elf(percorso, percorso) for nome, percorso in pari.items()})
        tempi = carico(programma, [str(nostra), *pari.values()])

    print("\n".join(tabella(elf, tempi)))
    print()
    tutti = True
    for nome, valore, massimo in obiettivi(elf["libkelfunzioni, amd64"], armhf, tempi):
        tenuto = valore <= massimo
        tutti = tutti and tenuto
        print(f"- {nome}: {valore} <= {massimo}: {'held' if tenuto else 'NOT HELD'}")
    mancanti = [nome for nome in PARI if nome not in pari]
    print(f"\nMissing: {', '.join(mancanti) or 'none'}.")
    return 0 if tutti else 1


if __name__ == "__main__":
    sys.exit(main())
