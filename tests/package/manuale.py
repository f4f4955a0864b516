"""The manual pages: one for every command, the simulator and every flat function, complete, and clean under mandoc."""
import argparse
import glob
import os
import re
import shutil
import subprocess
import sys
import tempfile

SEZIONI_3 = ["NAME", "LIBRARY", "SYNOPSIS", "DESCRIPTION", "PARAMETERS", "RETURN VALUES", "THREADS", "SEE ALSO", "HISTORY"]
SEZIONI_1 = ["NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "EXIT STATUS", "SEE ALSO"]

errori = []


def pretendi(vero, testo):
    if not vero:
        errori.append(testo)


def leggi(file):
    with open(file, encoding="ascii") as f:
        return f.read()


def semplice(testo):
    """A page without the marks of its text: what a reader sees, all blanks one."""
    for segno, carattere in (("\\-", "-"), ("\\(aq", "'"), ("\\(ga", "`"), ("\\(ha", "^"), ("\\(ti", "~"), ("\\&", ""),
                             ("\\fB", ""), ("\\fP", ""), ('"', ""), ("\\(dq", '"'), ("\\e", "\\")):
        testo = testo.replace(segno, carattere)
    return " ".join(testo.split())


def contenuto(pagine, kelfun, kelsim, intestazione):
    def aiuto(*comando):
        return subprocess.run([*comando, "--help"], capture_output=True, text=True, check=True).stdout

    comandi = re.findall(r"^  ([a-z]+)  ", aiuto(kelfun).split("Subcommands:")[1], re.M)
    attese = {"kelfun.1", "kelsim.1", *(f"kelfun-{comando}.1" for comando in comandi)}
    avute = {os.path.basename(f) for f in glob.glob(f"{pagine}/man1/*")}
    pretendi(avute == attese, f"pages of commands: {avute ^ attese} are not in both")
    for nome, suo in [*((f"kelfun-{comando}.1", aiuto(kelfun, comando)) for comando in comandi), ("kelsim.1", aiuto(kelsim))]:
        testo = semplice(leggi(f"{pagine}/man1/{nome}"))
        for opzione in re.findall(r"^  (?:-\w,)?-(-[a-z0-9-]+)", suo, re.M):
            pretendi(f"Fl {opzione}" in testo, f"{nome} does not tell of -{opzione}")
        for esempio in suo.split("Examples:\n")[1].splitlines():
            pretendi(" ".join(esempio.split()).replace('"', "") in testo, f"{nome} does not show: {esempio.strip()}")
    for nome, suo in (("kelfun.1", aiuto(kelfun)), ("kelsim.1", aiuto(kelsim))):
        testo = semplice(leggi(f"{pagine}/man1/{nome}"))
        stati = re.findall(r"\d ([^;.]+)", suo.split("Exit status:")[1].split("\n")[0])
        pretendi(len(stati) == 3, f"{nome}: --help names {len(stati)} exit statuses")
        for stato in stati:
            pretendi(f"{stato[0].upper()}{stato[1:]}." in testo, f"{nome} does not name the exit status: {stato}")

    dichiarate = re.findall(r"^KEL_API [^;]*?(\w+)\(", leggi(intestazione), re.M)
    attese = {"libkelfunzioni.3", *(f"{funzione}.3" for funzione in dichiarate)}
    avute = {os.path.basename(f) for f in glob.glob(f"{pagine}/man3/*")}
    pretendi(len(dichiarate) > 40 and avute == attese, f"pages of functions: {avute ^ attese} are not in both")
    principale = leggi(f"{pagine}/man3/libkelfunzioni.3")
    for funzione in dichiarate:
        testo = leggi(f"{pagine}/man3/{funzione}.3")
        sezioni = re.findall(r"^\.Sh (.*)$", testo, re.M)
        attese_qui = [s for s in SEZIONI_3 if s != "PARAMETERS" or f".Fn {funzione} void" not in testo]
        pretendi(sezioni == attese_qui, f"{funzione}.3 has the sections {sezioni}")
        pretendi(f".Xr {funzione} 3" in principale, f"libkelfunzioni.3 does not name {funzione}")
    for file in glob.glob(f"{pagine}/man1/*"):
        sezioni = re.findall(r"^\.Sh (.*)$", leggi(file), re.M)
        pretendi([s for s in SEZIONI_1 if s not in sezioni] == [], f"{file} has only the sections {sezioni}")
    for file in glob.glob(f"{pagine}/*/*"):
        testo = leggi(file)
        rimasto = re.search(r"(^|\s)@[a-z]+|`", testo)
        pretendi(not rimasto, f"{file} shows a mark of the comment that it is made of: {rimasto and rimasto[0]!r}")
        for nome, sezione in re.findall(r"^\.(?:Xr|It Xr) (\S+) (\d)", testo, re.M):
            pretendi(os.path.exists(f"{pagine}/man{sezione}/{nome}.{sezione}"), f"{file} refers to {nome}({sezione})")


def lint(pagine):
    if shutil.which("mandoc") is None:
        print("SKIPPED: mandoc is not installed, so the manual pages are not checked")
        return 77
    file = sorted(glob.glob(f"{pagine}/*/*"))
    pretendi(len(file) > 50, f"only {len(file)} pages in {pagine}")
    fatto = subprocess.run(["mandoc", "-T", "lint", "-W", "warning", *file], capture_output=True, text=True, check=False)
    pretendi(fatto.returncode == 0 and not fatto.stdout, f"mandoc: {fatto.stdout}{fatto.stderr}")
    return 0


def spazi(pagine, kelfun, kelsim, generatore):
    """The same pages come from programs, and an emulator, whose folder has a blank in its name."""
    with tempfile.TemporaryDirectory(prefix="kel fun-") as dove:
        os.symlink(os.path.abspath(kelfun), f"{dove}/kelfun")
        os.symlink(os.path.abspath(kelsim), f"{dove}/kelsim")
        with open(f"{dove}/emulator", "w", encoding="ascii") as f:
            f.write('#!/bin/sh\nshift\nexec "$@"\n')
        os.chmod(f.name, 0o755)
        versione = subprocess.run([kelfun, "--version"], capture_output=True, text=True, check=True).stdout.split()[-1]
        fatto = subprocess.run([sys.executable, generatore, "--kelfun", f"{dove}/kelfun", "--kelsim", f"{dove}/kelsim",
                                f"--emulator={dove}/emulator", "--emulator=-L", "--version", versione, "--date-of", generatore, f"{dove}/pages"],
                               capture_output=True, text=True, check=False)
        pretendi(fatto.returncode == 0, f"comandi.py in a folder with a blank: {fatto.stderr}")
        attese = sorted(os.path.basename(f) for f in glob.glob(f"{pagine}/man1/*"))
        avute = sorted(os.path.basename(f) for f in glob.glob(f"{dove}/pages/man1/*"))
        pretendi(attese == avute and attese, f"pages of a folder with a blank: {avute} instead of {attese}")
        for nome in avute:
            una, altra = (re.sub(r"(?m)^\.Dd .*$", "", leggi(f"{da}/man1/{nome}")) for da in (pagine, f"{dove}/pages"))
            pretendi(una == altra, f"{nome} is another page when it is made in a folder with a blank")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--kelfun", required=True)
    parser.add_argument("--kelsim", required=True)
    parser.add_argument("--header", required=True)
    parser.add_argument("--generator", required=True)
    parser.add_argument("prova", choices=["contents", "lint", "blanks"])
    parser.add_argument("pagine")
    argomenti = parser.parse_args()
    stato = 0
    if argomenti.prova == "lint":
        stato = lint(argomenti.pagine)
    elif argomenti.prova == "blanks":
        spazi(argomenti.pagine, argomenti.kelfun, argomenti.kelsim, argomenti.generator)
    else:
        contenuto(argomenti.pagine, argomenti.kelfun, argomenti.kelsim, argomenti.header)
    for errore in errori:
        print(errore, file=sys.stderr)
    return 1 if errori else stato


if __name__ == "__main__":
    sys.exit(main())
