#!/usr/bin/env python3
"""Counts of every operation: instructions on amd64, stack and code on armhf. They are kept in the tree and compared.

  conti.py --native DIR --armhf DIR [--emulator COMMAND] [--write]

DIR are build folders with KEL_BUILD_BENCH on. Ends with 1 when a count differs from the kept one by more than 2 %.
"""

import argparse
import bisect
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

TENUTI = pathlib.Path(__file__).resolve().parent.parent / "counts"
TOLLERANZA = 0.02
LIBRERIA = "libkelfunzioni.so"

# The C library chooses functions by the extensions of the processor. With all of them switched off it chooses the same
# ones on every machine.
SENZA_ESTENSIONI = ",".join("-" + nome for nome in (
    "AVX", "AVX2", "AVX2_Usable", "AVX512F", "AVX512BW", "AVX512CD", "AVX512DQ", "AVX512VL", "BMI1", "BMI2", "ERMS",
    "FMA", "FMA4", "FSRM", "LZCNT", "MOVBE", "POPCNT", "RTM", "SSE3", "SSE4_1", "SSE4_2", "SSSE3"))


def esegui(comando, **opzioni):
    return subprocess.run(comando, check=True, stdout=subprocess.PIPE, text=True, **opzioni).stdout


def costi_propri(percorso):
    """Instructions of one callgrind file by the object that they lie in, and the operation's name."""
    costi, oggetto, nome, salta = {}, "", "", False
    for linea in percorso.read_text().splitlines():
        if linea.startswith("desc: Trigger: Client Request: "):
            nome = linea.split(": ", 3)[3]
        elif linea.startswith("ob="):
            oggetto = linea[3:]
        elif linea.startswith("calls="):
            salta = True  # the next line is the cost of the call, which is counted in the function that was called
        elif linea[:1].isdigit():
            if not salta:
                costi[oggetto] = costi.get(oggetto, 0) + int(linea.split()[1])
            salta = False
    return nome, costi


def istruzioni(cartella):
    """{operation: [in the library, in libm, elsewhere]}, per call."""
    with tempfile.TemporaryDirectory() as temporanea:
        ambiente = {**os.environ, "GLIBC_TUNABLES": f"glibc.cpu.hwcaps={SENZA_ESTENSIONI}", "LC_ALL": "C"}
        elenco = esegui(["valgrind", "-q", "--tool=callgrind", "--collect-atstart=no", "--compress-strings=no",
                         "--compress-pos=no", f"--callgrind-out-file={temporanea}/out",
                         cartella / "bench/conti/kel_conti_istruzioni"], env=ambiente)
        chiamate = {nome: int(volte) for nome, volte in (riga.split("\t") for riga in elenco.splitlines())}
        conti = {}
        for percorso in pathlib.Path(temporanea).iterdir():
            nome, costi = costi_propri(percorso)
            if nome not in chiamate:
                continue
            somme = [0, 0, 0]
            for oggetto, costo in costi.items():
                base = pathlib.Path(oggetto).name
                if base == "kel_conti_istruzioni":
                    continue  # the loop that calls
                somme[0 if base.startswith(LIBRERIA) else 1 if base.startswith("libm.") else 2] += costo
            conti[nome] = [round(somma / chiamate[nome]) for somma in somme]
    return {nome: conti[nome] for nome in chiamate}


class Codice:
    """The library's functions, and which calls which."""

    def __init__(self, libreria, prefisso):
        self.nomi, posti = {}, {}
        for riga in esegui([prefisso + "nm", "-S", "-C", "--defined-only", libreria]).splitlines():
            trovata = re.match(r"([0-9a-f]+) ([0-9a-f]+) [tTwW] (.*)", riga)
            if trovata:
                inizio = int(trovata[1], 16) & ~1
                posti[inizio] = max(posti.get(inizio, 0), int(trovata[2], 16))
                self.nomi.setdefault(trovata[3].replace("[abi:cxx11]", ""), inizio)
        self.inizi = sorted(posti)
        self.dimensioni = posti
        self.chiama = {inizio: set() for inizio in posti}
        da = None
        for riga in esegui([prefisso + "objdump", "-d", "-C", "--no-show-raw-insn", libreria]).splitlines():
            if re.match(r"[0-9a-f]+ <", riga):
                da = self.funzione(int(riga.split()[0], 16))
                continue
            salto = re.match(r" *[0-9a-f]+:\tb\S*\s+([0-9a-f]+) <(.*?)(@plt)?>$", riga)
            if salto and da is not None:
                a = self.nomi.get(salto[2].replace("[abi:cxx11]", "")) if salto[3] else self.funzione(int(salto[1], 16))
                if a is not None and a != da:
                    self.chiama[da].add(a)

    def funzione(self, indirizzo):
        """The function that an address lies in."""
        indice = bisect.bisect_right(self.inizi, indirizzo & ~1) - 1
        if indice < 0 or (indirizzo & ~1) >= self.inizi[indice] + max(self.dimensioni[self.inizi[indice]], 1):
            return None
        return self.inizi[indice]

    def raggiunto(self, nome, decodificatori):
        """Bytes of a function and of all that it calls within the library, and so on."""
        da_vedere = [inizio for intero, inizio in self.nomi.items() if intero == nome or intero.startswith(nome + "(")]
        da_vedere += [self.funzione(int(posto, 16)) for posto in decodificatori]
        viste = set()
        while da_vedere:
            inizio = da_vedere.pop()
            if inizio is not None and inizio not in viste:
                viste.add(inizio)
                da_vedere.extend(self.chiama[inizio])
        return sum(self.dimensioni[inizio] for inizio in viste)


def pila_e_codice(cartella, emulatore, nomi):
    """{operation: [stack or None, code]}, bytes."""
    pila = {}
    for riga in esegui([*shlex.split(emulatore), cartella / "bench/conti/kel_conti_pila"]).splitlines():
        nome, byte, *decodificatori = riga.split("\t")
        pila[nome] = (int(byte), decodificatori)
    codice = Codice(cartella / "src/funzioni" / LIBRERIA, "arm-linux-gnueabihf-")
    conti = {}
    for nome in nomi:
        byte, decodificatori = pila.get(nome, (None, []))
        conti[nome] = [byte, codice.raggiunto(nome.split(" ")[0], decodificatori)]
    return conti


FILE = {
    "amd64.txt": ("Instructions per call: in the library, in libm, elsewhere (libc, libstdc++). The last are not compared.",
                  ["library", "libm", "elsewhere"], 2),
    "armhf.txt": ("Bytes per operation: stack, with all that is called (flat functions only); code of the library that the\n"
                  "# operation reaches.", ["stack", "code"], 2),
}


def leggi(nome_file):
    percorso = TENUTI / nome_file
    conti = {}
    for riga in percorso.read_text().splitlines() if percorso.exists() else []:
        if riga and not riga.startswith(("#", "operation")):
            nome, *numeri = (parte.strip() for parte in riga.split("|"))
            conti[nome] = [None if numero == "-" else int(numero) for numero in numeri]
    return conti


def scrivi(nome_file, conti):
    titolo, colonne, _ = FILE[nome_file]
    larghezza = max(map(len, conti))
    righe = [f"# {titolo}", "# Written by scripts/counts --write.", "",
             " | ".join(["operation".ljust(larghezza), *(colonna.rjust(9) for colonna in colonne)])]
    for nome, numeri in conti.items():
        righe.append(" | ".join([nome.ljust(larghezza),
                                 *(("-" if numero is None else str(numero)).rjust(9) for numero in numeri)]))
    TENUTI.mkdir(exist_ok=True)
    (TENUTI / nome_file).write_text("\n".join(righe) + "\n")


def somma(numeri):
    return sum(numero or 0 for numero in numeri)


def diversi(nome_file, nuovi):
    """Sentences about the counts that are not the kept ones."""
    titolo, colonne, confrontate = FILE[nome_file]
    vecchi = leggi(nome_file)
    for nome in vecchi.keys() | nuovi.keys():
        if nome not in vecchi or nome not in nuovi:
            yield f"{nome_file}: {nome}: {'no longer there' if nome in vecchi else 'not kept yet'}"
            continue
        # Instructions in the library and in libm count together: one may take the place of the other.
        gruppi = [(colonne[0] + " + " + colonne[1], slice(0, 2))] if nome_file == "amd64.txt" else \
            [(colonna, slice(i, i + 1)) for i, colonna in enumerate(colonne[:confrontate])]
        for colonna, quali in gruppi:
            prima, ora = somma(vecchi[nome][quali]), somma(nuovi[nome][quali])
            if abs(ora - prima) > TOLLERANZA * prima:
                yield f"{nome_file}: {nome}: {colonna} was {prima}, is {ora}"


def tabella(amd64, armhf):
    larghezza = max(map(len, amd64))
    yield f"| {'operation'.ljust(larghezza)} | library | libm | elsewhere | stack | code |"
    yield f"| {'-' * larghezza} | ------: | ---: | --------: | ----: | ---: |"
    for nome, (libreria, libm, altrove) in amd64.items():
        pila, codice = armhf[nome]
        yield (f"| {nome.ljust(larghezza)} | {libreria:7} | {libm:4} | {altrove:9} | "
               f"{'-' if pila is None else pila:>5} | {codice:4} |")


def main():
    argomenti = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    argomenti.add_argument("--native", type=pathlib.Path, required=True, metavar="DIR")
    argomenti.add_argument("--armhf", type=pathlib.Path, required=True, metavar="DIR")
    argomenti.add_argument("--emulator", default="qemu-arm -L /usr/arm-linux-gnueabihf", metavar="COMMAND")
    argomenti.add_argument("--write", action="store_true", help="keep the counts")
    scelti = argomenti.parse_args()

    amd64 = istruzioni(scelti.native)
    armhf = pila_e_codice(scelti.armhf, scelti.emulator, amd64)
    print("\n".join(tabella(amd64, armhf)))
    if scelti.write:
        scrivi("amd64.txt", amd64)
        scrivi("armhf.txt", armhf)
        return 0
    trovati = sorted([*diversi("amd64.txt", amd64), *diversi("armhf.txt", armhf)])
    if trovati:
        print("\n" + "\n".join(trovati), file=sys.stderr)
        print(f"{len(trovati)} counts differ by more than 2 %. If they are meant to: scripts/counts --write", file=sys.stderr)
    return 1 if trovati else 0


if __name__ == "__main__":
    sys.exit(main())
