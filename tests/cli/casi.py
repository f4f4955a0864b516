#!/usr/bin/env python3
"""Runs the cases of a text file against kelfun.

A case is a block of lines, blocks apart by empty lines; lines that begin with # are remarks.

    why: one line that says what the case is about
    run: fid 0x10 --json            arguments, quoted as for a shell; "kelsim ..." runs the simulator instead; {ESC} and
                                    {LF} stand for an escape character and a line feed, {xE9} for a byte
    stdin: 0102                     a line of standard input, {CR} in it a carriage return; may be repeated; or
    stdin-kelsim: --laps 1          what the simulator writes with these arguments
    before: kelsim one.ubx          a command that must succeed first, in the same folder
    file: name 0102 00*10 "RPM":8   writes a file there: bytes, repeated bytes, text filled with NUL to a length
    stdout: /dev/full               where standard output goes
    env: LC_ALL=de_DE.UTF-8         one variable; may be repeated
    exit: 0                         expected exit status, 0 if left out
    out| Identifier  0x00000010     expected lines of standard output: all of them together are the whole of it; {ESC} as
                                    above, in out~ and err~ too
    out~ ^Speed$                    a regular expression that must be found in it; may be repeated
    out!~ regex                     one that must not be found
    err~ regex                      likewise for standard error
    json: fields.0.value = 16       a value inside the JSON output, # for a length; may be repeated

Without err~ standard error must be empty; where the exit status is not 0 it must be one line and nothing may be on
standard output. Exit 1 alone may have output before it.
"""
import json
import locale
import os
import re
import shlex
import sys

from programmi import Programmi, lettore


def blocchi(testo):
    """(first line number, [(key, value)]) of every case."""
    caso = []
    for numero, riga in enumerate(testo.splitlines() + [""], 1):
        if riga.startswith("#"):
            continue
        if not riga.strip():
            if caso:
                yield caso[0][0], [(chiave, valore) for _, chiave, valore in caso]
            caso = []
            continue
        trovato = re.match(r"(why|run|stdin|stdin-kelsim|stdout|before|file|env|exit|json): ?(.*)|(out\||out~|out!~|err~) ?(.*)", riga)
        if not trovato:
            sys.exit(f"line {numero}: no such key: {riga}")
        chiave = trovato[1] or trovato[3]
        valore = trovato[2] if trovato[1] else trovato[4]
        caso.append((numero, chiave, valore if trovato[1] else valore.replace("{ESC}", "\x1b")))


def dentro(documento, percorso):
    """The value at a path such as fields.0.value."""
    for passo in percorso.split("."):
        if passo == "#":
            documento = len(documento)
        else:
            documento = documento[int(passo)] if isinstance(documento, list) else documento[passo]
    return documento


def byte(pezzi):
    """Bytes of words such as 0102, 00*10 and "RPM":8."""
    uscita = b""
    for pezzo in re.findall(r'"[^"]*":\d+|\S+', pezzi):
        if pezzo.startswith('"'):
            testo, lunghezza = pezzo[1:].rsplit('":', 1)
            uscita += testo.encode().ljust(int(lunghezza), b"\0")
        else:
            cifre, _, volte = pezzo.partition("*")
            uscita += bytes.fromhex(cifre) * int(volte or 1)
    return uscita


def prepara(programmi, caso):
    """Writes the files of a case; gives what went wrong."""
    for chiave, valore in caso:
        if chiave == "before":
            nome, *argomenti = shlex.split(valore)
            stato, _, errori = programmi.esegui(nome, argomenti)
            if stato != 0:
                yield f"{valore}: exit status {stato}: {errori.decode()}"
        elif chiave == "file":
            nome, _, pezzi = valore.partition(" ")
            with open(os.path.join(programmi.cartella.name, nome), "wb") as f:
                f.write(byte(pezzi))


def difetti(programmi, caso):
    """What is wrong with one case."""
    def tutti(chiave):
        return [valore for c, valore in caso if c == chiave]

    if not tutti("why") or not tutti("run"):
        yield "has no why or no run"
        return
    yield from prepara(programmi, caso)
    argomenti = [re.sub("\\{x([0-9A-F]{2})\\}", lambda cifre: os.fsdecode(bytes.fromhex(cifre[1])),
                        parte.replace("{ESC}", "\x1b").replace("{LF}", "\n")) for parte in shlex.split(tutti("run")[0])]
    nome = "kelsim" if argomenti[:1] == ["kelsim"] else "kelfun"
    ingresso = "".join(riga + "\n" for riga in tutti("stdin")).replace("{CR}", "\r").encode()
    for simulata in tutti("stdin-kelsim"):
        ingresso = programmi.esegui("kelsim", shlex.split(simulata) + ["-"])[1]
    ambiente = dict(voce.split("=", 1) for voce in tutti("env"))
    stato, uscita, errori = programmi.esegui(nome, argomenti[1:] if nome == "kelsim" else argomenti, ingresso, ambiente,
                                             stdout=(tutti("stdout") or [None])[0])
    uscita, errori = uscita.decode("utf-8", "replace"), errori.decode("utf-8", "replace")

    atteso = int(tutti("exit")[0]) if tutti("exit") else 0
    if stato != atteso:
        yield f"exit status {stato}, expected {atteso}; standard error: {errori}"
    if tutti("out|") and uscita != "".join(riga + "\n" for riga in tutti("out|")):
        yield "standard output is:\n" + uscita
    for espressione in tutti("out~"):
        if not re.search(espressione, uscita, re.M):
            yield f"standard output has no {espressione!r}:\n" + uscita
    for espressione in tutti("out!~"):
        if re.search(espressione, uscita, re.M):
            yield f"standard output has {espressione!r}:\n" + uscita
    for espressione in tutti("err~"):
        if not re.search(espressione, errori, re.M):
            yield f"standard error has no {espressione!r}: {errori}"
    if atteso == 0 and not tutti("err~") and errori:
        yield f"standard error is not empty: {errori}"
    if atteso == 2 and (errori.count("\n") != 1 or uscita):
        yield f"a wrong argument gets one line on standard error and nothing else: {errori!r} {uscita!r}"
    if atteso == 1 and not errori.endswith("\n"):
        yield f"no reason on standard error: {errori!r}"
    if tutti("json"):
        try:
            documento = json.loads(uscita)
        except ValueError as errore:
            yield f"no JSON: {errore}\n{uscita}"
            return
        for voce in tutti("json"):
            percorso, valore = voce.split(" = ", 1)
            try:
                trovato = dentro(documento, percorso)
            except (KeyError, IndexError, ValueError, TypeError):
                yield f"{percorso} is not in {uscita}"
                continue
            if trovato != json.loads(valore) or isinstance(trovato, bool) != isinstance(json.loads(valore), bool):
                yield f"{percorso} is {json.dumps(trovato)}, expected {valore}"


def main():
    parser = lettore(__doc__.splitlines()[0])
    parser.add_argument("--locale", help="run every case in it that asks for no other; without it in C")
    parser.add_argument("casi")
    argomenti = parser.parse_args()
    programmi = Programmi(argomenti)
    if argomenti.locale:
        locale.setlocale(locale.LC_ALL, argomenti.locale)  # one that is not there would prove nothing
        programmi.ambiente["LC_ALL"] = argomenti.locale
    with open(argomenti.casi, encoding="utf-8") as f:
        casi = list(blocchi(f.read()))
    if not casi:
        sys.exit(f"{argomenti.casi}: no cases")
    rotti = 0
    for numero, caso in casi:
        trovati = list(difetti(programmi, caso))
        rotti += bool(trovati)
        perche = next((valore for chiave, valore in caso if chiave == "why"), "?")
        for difetto in trovati:
            print(f"{argomenti.casi}:{numero}: {perche}: {difetto}")
    print(f"{len(casi)} cases, {rotti} failed")
    return 1 if rotti else 0


if __name__ == "__main__":
    sys.exit(main())
