#!/usr/bin/env python3
"""The C++ names that the library exports, one by one against membri.txt, which is written by hand.

    membri.py LIBRARY

Fails, and names them, where a member of the list is not exported, or under another signature, and where the library
exports a C++ name that the list does not have.
"""

import os
import pathlib
import re
import subprocess
import sys

LISTA = pathlib.Path(__file__).resolve().parent / "membri.txt"
NM = os.environ.get("NM", "nm")

STRINGA = "std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char>>"
# The mangled name tells which constructor or destructor it is; all of a class read alike when demangled.
FORME = {"constructor": ("C1", "C2"), "destructor": ("D1", "D2", "D0")}
NOMI_FORME = {"C1": "complete", "C2": "base", "D1": "complete", "D2": "base", "D0": "deleting"}
DATI = ("vtable for {}", "typeinfo for {}", "typeinfo name for {}")


def breve(nome):
    """A demangled signature as the list writes it: without default arguments of templates, const in front."""
    nome = nome.replace("> >", ">>").replace("> >", ">>").replace(STRINGA, "std::string")
    prima = None
    while prima != nome:
        prima = nome
        nome = re.sub(r"std::__cxx11::list<((?:(?!list<).)+?), std::allocator<\1>>", r"std::list<\1>", nome)
        nome = re.sub(r"std::vector<([^<>]+), std::allocator<\1>>", r"std::vector<\1>", nome)
        nome = re.sub(r"std::map<(\w[\w ]*), (.+?), std::less<\1>, std::allocator<std::pair<\1 const, \2>>>",
                      r"std::map<\1, \2>", nome)
    return re.sub(r"([\w:]+) const([*&])", r"const \1\2", nome)


def firma(testo):
    """A member as it is demangled: a string that it gives is part of its name where no argument tells of its ABI."""
    nome, _, argomenti = testo.removeprefix("std::string ").partition("(")
    segno = "[abi:cxx11]" if testo.startswith("std::string ") and "std::" not in argomenti else ""
    return f"{nome}{segno}({argomenti}"


def voluti():
    """Every name of the list, with the line that asks for it."""
    nomi, classe = {}, None
    for riga in LISTA.read_text(encoding="ascii").splitlines():
        testo = riga.strip()
        if not testo or testo.startswith("#"):
            continue
        if not riga.startswith(" "):
            classe = testo
            continue
        specie, _, resto = testo.partition(" ")
        if testo == "class data":
            nuovi = [forma.format(classe) for forma in DATI]
        elif specie in FORME:
            nuovi = [f"{classe}::{resto} [{NOMI_FORME[forma]}]" for forma in FORME[specie]]
        else:
            nuovi = [f"{classe}::{firma(testo)}"]
        for nome in nuovi:
            nome = re.sub(r"\bkel_funpos\b", "unsigned int", nome)
            assert nome not in nomi, f"{LISTA.name} has {nome} twice"
            nomi[nome] = testo
    return nomi


def esportati(libreria):
    """Every exported C++ name as the list would write it, with its mangled form."""
    uscita = subprocess.run([NM, "-D", "--defined-only", libreria], check=True, capture_output=True, text=True).stdout
    mangled = [riga.split()[-1].split("@")[0] for riga in uscita.splitlines()]
    mangled = [nome for nome in mangled if nome.startswith("_Z")]
    chiari = subprocess.run(["c++filt"], input="\n".join(mangled), check=True, capture_output=True, text=True).stdout
    nomi = {}
    for grezzo, chiaro in zip(mangled, chiari.splitlines(), strict=True):
        forma = re.match(r"_ZN\d+\w+?(C[12]|D[012])E", grezzo)
        costruisce = forma and re.match(r"(\w+)::~?\1\(", chiaro)
        nomi[breve(chiaro) + (f" [{NOMI_FORME[forma[1]]}]" if costruisce else "")] = grezzo
    return nomi


def main():
    lista, libreria = voluti(), esportati(sys.argv[1])
    mancano = [nome for nome in lista if nome not in libreria]
    nuovi = [nome for nome in libreria if nome not in lista]
    for nome in mancano:
        print(f"not exported: {nome}")
    for nome in nuovi:
        print(f"not in {LISTA.name}: {nome}, exported as {libreria[nome]}")
    if mancano or nuovi:
        print("Programs that were built against the listed names do not start. Mend the class; change the list only if "
              "what is promised has changed.")
        return 1
    print(f"{len(lista)} C++ names are exported as the list has them")
    return 0


if __name__ == "__main__":
    sys.exit(main())
