#!/usr/bin/env python3
"""The programs that --code prints: each is built by the command line that it names, with every warning an error, and
prints the values that the command itself prints as JSON."""
import json
import os
import re
import shlex
import subprocess
import sys

from programmi import Programmi, lettore

LINGUAGGI = {"c": ".c", "cpp": ".cpp", "python": ".py"}
AVVISI = ["-Wall", "-Wextra", "-Wpedantic", "-Werror"]

errori = []


def numero(testo):
    try:
        return float(testo)
    except ValueError:
        return None


def stessa(avuta, attesa):
    """Lines that differ in nothing but the last digits of a float."""
    a, b = avuta.split(" "), attesa.split(" ")
    if len(a) != len(b):
        return False
    for x, y in zip(a, b):
        nx, ny = numero(x.rstrip(":,")), numero(y.rstrip(":,"))
        if x != y and (nx is None or ny is None or abs(nx - ny) > 2e-6 * max(abs(nx), abs(ny))):
            return False
    return True


def g(valore):
    return f"{valore:.7g}"


def unita(documento):
    for u in documento["units"]:
        yield (f"unit {u['unit']} gain {g(u['gain'])} offset {g(u['offset'])} decimals {u['decimals']}"
               f" ({u['min_decimals']} to {u['max_decimals']})" + (" reciprocal" if u["reciprocal"] else ""))


# What a program is expected to print, from the JSON of the command. Each takes the document and the language.
def attese_fid(d, linguaggio):
    yield f"identifier {d['identifier']}"
    if linguaggio == "cpp":
        yield f"long name {d['long_name']}"
    yield f"short name {d['short_name']}"
    if linguaggio == "cpp":
        yield f"class {d['class'] or '0x00000000'}"
    yield f"base unit {d['base_unit'] or ''}"
    for campo in d["fields"]:
        if not campo["field"].startswith("bits"):
            yield f"{campo['field']} {campo['value']} {campo['xml'] or '-'}"
    yield from unita(d)
    for scelta in d.get("choices", []):
        if scelta["choice"] == "number":
            yield f"number {scelta['text']}"
        else:
            yield f"{scelta['choice']} {scelta['identifier']} {scelta['text']}"
    for c in d.get("camera", []):
        yield (f"camera code {-1 if c['code'] is None else c['code']} unit {c['unit']} scale {g(c['scale'])}"
               f" factor {g(c['factor'])}")
    for s in d.get("subfields", []):
        yield f"subfield {s['identifier']} at byte {s['offset']}, sample type {s['sample_type']}"


def attese_functions(d, _):
    for f in d["functions"]:
        yield f"{f['identifier']} {f['quantity']}: {f['name']} in {' '.join(f['units'])}"


def attese_units(d, _):
    if "codes" in d:
        for c in d["codes"]:
            yield f"{c['code']} {c['unit']}"
    elif "functions" in d:
        for f in d["functions"]:
            yield f"{f['identifier']} {f['name']} in {' '.join(f['units'])}"
    else:
        yield f"identifier {d['identifier']}"
        yield f"base unit {d['base_unit']}"
        yield from unita(d)


def attese_convert(d, _):
    for v in d["values"]:
        yield f"{g(v['value'])} {v['from']} = {g(v['result'])} {v['to']}, shown {v['shown']}"


def attese_decode(d, linguaggio):
    for t in d.get("sample_types", []):
        yield f"{t['code']} {t['bytes']}"
    for s in d.get("samples", []):
        riga = s["identifier"]
        if s["value"] is not None:
            riga += f" value {g(s['value'])}"
            if linguaggio != "cpp":
                riga += f" status {s['status']}"
        yield f"{riga} text \"{s['text']}\""


def attese_match(d, _):
    for m in d["matches"]:
        yield f"{m['variant']} {m['channel']} {m['identifier']}"


def attese_camera(d, _):
    for c in d["camera"]:
        yield (f"{c['table']} {-1 if c['code'] is None else c['code']} {c['identifier']} {c['legacy_id']}"
               f" scale {g(c['scale'])} {c['unit']} factor {g(c['factor'])}: {c['name']}")
    for v in d.get("legacy", []):
        yield f"legacy {v['legacy_id']} {v['identifier']} {v['name']}"


def attese_lap(d, _):
    for riga in d["laps"]:
        yield f"\"{riga['text']}\" {riga['milliseconds']}"


PACCHETTO = "01 02 0300 00460100 E8030000 00000000 00000000 00000000 00020000"

# Command lines, and whether the order of the lines matters.
CASI = [
    ("fid 0x05070010", False), ("fid REF_SPEED", True), ("fid 0x06440C9E", False), ("fid 0x00318281", True),
    ("fid 0x19A", True), ("fid 0x1009A", True), ("fid 0x11A", True), ("fid 0x9819A", True), ("fid 0x1C", True),
    ("fid 0xE0000010", True), ("fid 0x0001FF90", True), ("fid --quantity velocity --position suspension", False),
    ("functions", False), ("functions speed temperature", False), ("functions 0x0B8E 0x20E", False),
    ("units 0x05070010", True), ("units --quantity velocity", True), ("units BATTERY", True), ("units", True),
    ("units --codes", True),
    ("convert 0x10 100 -3.5 1e6 0 --to mph", True), ("convert --quantity temperature --from F --to C 32 212", True),
    ("convert OIL_PRESS 2.5 --to psi", True),
    ("decode 0x10 --type 6 --unit mph 0000C842", True),
    ("decode 0x11 --type 1 7B00 FFCF FECF FDCF --width 4", True),
    ("decode 0x11 --type 6 0AD7443F --width 4 --decimals 2 --format left", True),
    ("decode --quantity gear --type 11 0300 FFFF 0000 --format compact", True),
    ("decode 0x0B --type 5 --bits 2:3 F7 08", True), ("decode 0x11 --type 6 --auto-decimals 0000C842 0AD7443F", True),
    ("decode 0x11 --type 20 007C 0048", True),
    (f"decode --details laptime '{PACCHETTO}'", True), (f"decode 0x9A '{PACCHETTO}' --decimals 2 --width 12", True),
    (f"decode 0x98B --channel 0x9A '{PACCHETTO}'", True), ("decode --types", True),
    ("match 0x10 0x0F 0x00070010 0x00068010", True), ("match 0xA8010 0x0F 0x19A --variant full", True),
    ("match --quantity speed --side right REF_SPEED_RL REF_SPEED_FR --variant match", True),
    ("match 0x10 REF_SPEED_RL REF_SPEED_FR --variant list", True),
    ("camera", True), ("camera --all", True), ("camera WATER_TEMP", True), ("camera 0x69214 --legacy", True),
    ("camera --all --legacy", True),
    ("lap 83456 3723000 -1 -2147483648 1:23.456 1:02:03", True), ("lap --number 7 83456 3723456", True),
    ("lap --lines '  7 - 1:23.456' '123 - 59:00.001'", True), ("lap --text 83456 '1:2\"\\?\t3.4'", True),
]

# Languages that have no program for a case.
RIFIUTI = [
    ("lap 83456 --code c", "accepted: cpp"), ("lap 83456 --code python", "accepted: cpp"),
    ("decode 0x0B --type 5 --bits 2:3 F7 --code cpp", "accepted: --code c, --code python"),
    ("decode 0x0B --type 5 --auto-decimals F7 --code cpp", "accepted: --code c, --code python"),
    ("fid 0x10 --code rust", "there is no --code 'rust'; accepted: c, cpp, python"),
    ("fid 0x10 --code ''", "accepted: c, cpp, python"),
    ("find oil --code c", "accepted with --code: fid, functions, units, convert, decode, match, camera, lap"),
    ("ubx - --code c", "accepted with --code: fid, functions"),
    ("catalogue --code python", "accepted with --code: fid, functions"),
    ("fid 0x10 --code c --json", "--json"), ("units --csv --code c", "--csv"),
]


class Prova:
    def __init__(self, programmi, argomenti):
        self.programmi = programmi
        self.cartella = programmi.cartella.name
        prefisso = os.path.abspath(argomenti.prefix)
        libreria = os.path.join(prefisso, argomenti.libdir)
        self.cc, self.cxx = argomenti.cc, argomenti.cxx
        self.ambiente = {**programmi.ambiente, "PKG_CONFIG_PATH": os.path.join(libreria, "pkgconfig"),
                         "LD_LIBRARY_PATH": libreria}

    def esegui(self, comando):
        fatto = subprocess.run(comando, cwd=self.cartella, env=self.ambiente, capture_output=True, check=False,
                               stdin=subprocess.DEVNULL, timeout=300)
        return fatto.returncode, fatto.stdout.decode("latin-1"), fatto.stderr.decode("latin-1")

    def costruisci_ed_esegui(self, linguaggio, testo):
        """Status and output of a program, built by the line that stands in its own head."""
        riga = re.search(r"^(?://|#)     (.*)$", testo, re.M)
        if not riga:
            return 1, "", "the program does not say how it is built"
        nome = re.search(rf"\S+\{LINGUAGGI[linguaggio]}", riga[1])[0]
        with open(os.path.join(self.cartella, nome), "w", encoding="ascii") as f:
            f.write(testo)
        if linguaggio == "python":
            return self.esegui([sys.executable, "-W", "error", *shlex.split(riga[1])[1:]])
        comando = riga[1].replace("$(pkg-config --cflags --libs kelfunzioni)", shlex.join(shlex.split(self.esegui(
            ["pkg-config", "--cflags", "--libs", "kelfunzioni"])[1])))
        parole = shlex.split(comando)
        avvisi = [*AVVISI, *(["-pedantic-errors"] if linguaggio == "c" else [])]
        stato, uscita, errore = self.esegui([self.cc if linguaggio == "c" else self.cxx, *parole[1:], *avvisi])
        if stato != 0:
            return stato, uscita, errore
        return self.esegui(["./" + parole[parole.index("-o") + 1]])

    def caso(self, riga, ordine):
        argomenti = shlex.split(riga)
        stato, uscita, errore = self.programmi.esegui("kelfun", [*argomenti, "--json"])
        if stato != 0:
            errori.append(f"kelfun {riga}: exit {stato}: {errore.decode()}")
            return 0
        documento = json.loads(uscita)
        avvisi = errore
        fatti = 0
        for linguaggio in LINGUAGGI:
            stato, testo, errore = self.programmi.esegui("kelfun", [*argomenti, "--code", linguaggio])
            if (linguaggio != "cpp" and argomenti[0] == "lap") or (
                    linguaggio == "cpp" and ("--bits" in argomenti or "--auto-decimals" in argomenti)):
                continue  # refused, see above
            chi = f"kelfun {riga} --code {linguaggio}"
            if stato != 0 or errore != avvisi:  # what is to be said of the answer is to be said of its program
                errori.append(f"{chi}: exit {stato}: {errore.decode()}")
                continue
            testo = testo.decode("ascii")
            if re.search(r"\{\{|\}\}|[ \t]$|\n\n\n\n", testo, re.M) or not testo.endswith("\n") or "%%%" in testo:
                errori.append(f"{chi}: untidy:\n{testo}")
            stato, uscita, errore = self.costruisci_ed_esegui(linguaggio, testo)
            if stato != 0 or errore:
                errori.append(f"{chi}: the program ends with {stato}: {errore}\n{testo}")
                continue
            avute = uscita.splitlines()
            attese = list(globals()[f"attese_{argomenti[0]}"](documento, linguaggio))
            if argomenti[0] == "lap" and "--lines" in argomenti:
                attese = [f"{a} lap {r['lap']}" for a, r in zip(attese, documento["laps"])]
            if not ordine:
                avute, attese = sorted(avute), sorted(attese)
            fatti += 1
            if not attese or len(avute) != len(attese):
                errori.append(f"{chi}: {len(avute)} lines, expected {len(attese)}:\n{uscita}")
            for avuta, attesa in zip(avute, attese):
                if not stessa(avuta, attesa):
                    errori.append(f"{chi}: prints {avuta!r}, expected {attesa!r}")
        return fatti


def main():
    parser = lettore(__doc__.splitlines()[0])
    parser.add_argument("--prefix", required=True, help="where the library is installed")
    parser.add_argument("--libdir", required=True)
    parser.add_argument("--cc", required=True)
    parser.add_argument("--cxx", required=True)
    argomenti = parser.parse_args()
    programmi = Programmi(argomenti)
    prova = Prova(programmi, argomenti)
    fatti = sum(prova.caso(riga, ordine) for riga, ordine in CASI)
    for riga, testo in RIFIUTI:
        stato, uscita, errore = programmi.esegui("kelfun", shlex.split(riga))
        if stato != 2 or uscita or errore.count(b"\n") != 1 or testo.encode() not in errore:
            errori.append(f"kelfun {riga}: exit {stato}, {uscita.decode()!r}, {errore.decode()!r}; expected {testo!r}")
    for errore in errori:
        print(errore)
    print(f"{fatti} programs of {len(CASI)} command lines built and run, {len(errori)} faults")
    return 1 if errori else 0


if __name__ == "__main__":
    sys.exit(main())
