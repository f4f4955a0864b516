#!/usr/bin/env python3
"""kelfun ubx, record and laps as processes: damaged files, random bytes, and memory that stays the same for any length."""
import os
import random
import re
import subprocess
import sys
import threading

from programmi import Programmi, lettore

RIASSUNTO = re.compile(
    rb"^(\d+) solutions in (\d+) bytes; skipped: (\d+) bytes outside messages, (\d+) other messages, (\d+) bad checksums, "
    rb"(\d+) NAV-SOL or NAV-PVT of wrong length, (\d+) bytes truncated at the end$", re.M)


def prova(programmi, byte, che_cosa, soluzioni=None):
    """One run; gives the faults."""
    stato, uscita, errori = programmi.esegui("kelfun", ["ubx", "-", "--csv"], byte)
    riassunto = RIASSUNTO.search(errori)
    if not riassunto:
        return [f"{che_cosa}: no summary: {errori!r}"]
    viste = int(riassunto[1])
    difetti = []
    if stato != (0 if viste else 1):
        difetti.append(f"{che_cosa}: exit {stato} with {viste} solutions")
    if uscita.count(b"\n") != viste + 1:
        difetti.append(f"{che_cosa}: {viste} solutions counted, {uscita.count(bytes([10])) - 1} shown")
    if int(riassunto[2]) != len(byte):
        difetti.append(f"{che_cosa}: {len(byte)} bytes given, {int(riassunto[2])} read")
    if soluzioni is not None and viste not in soluzioni:
        difetti.append(f"{che_cosa}: {viste} solutions, expected one of {soluzioni}")
    return difetti


def registrazioni(programmi, lento):
    """kelfun record on files cut anywhere, with any byte changed, and on random bytes; gives the faults."""
    os.chdir(programmi.cartella.name)
    programmi.esegui("kelsim", ["--laps", "1", "--rate", "1", "--channels", "c", "--samples", "s"])
    with open("c", "rb") as c, open("s", "rb") as s:
        canali, campioni = c.read(), s.read()
    caso = random.Random(5)

    def esegui(canali, campioni, che_cosa, stati, opzioni=()):
        for nome, byte in (("c2", canali), ("s2", campioni)):
            with open(nome, "wb") as f:
                f.write(byte)
        stato, uscita, errori = programmi.esegui("kelfun", ["record", "c2", "s2", "--csv", *opzioni])
        visti = re.search(rb"^(\d+) records of (\d+) bytes in (\d+) bytes; (\d+) bytes of a cut record", errori, re.M)
        if stato not in stati:
            return [f"record, {che_cosa}: exit {stato}: {errori[-300:]!r}"]
        if visti is None:
            return [] if stato and errori.count(b"\n") == 1 and not uscita else [f"record, {che_cosa}: {errori!r}"]
        record, dimensione, letti, avanzo = map(int, visti.groups())
        if letti != len(campioni) or record * dimensione + avanzo != letti or uscita.count(b"\n") != record + 1:
            return [f"record, {che_cosa}: {visti[0]!r}, {uscita.count(bytes([10]))} lines of {len(campioni)} bytes"]
        return []

    tempo = ("--time", "u32ms")
    difetti = esegui(canali, campioni, "whole", [0], tempo)
    for n in range(0, len(canali), 37 if lento else 7):
        difetti += esegui(canali[:n], campioni, f"channels cut after {n} bytes", [0, 1] if n % 112 == 0 else [1], tempo)
        guasti = bytearray(canali)
        guasti[n] = caso.randrange(256)
        for opzioni in (tempo, ("--packed",), ("--text", "--packed")):
            difetti += esegui(guasti, campioni, f"byte {n} of the channels changed", [0, 1], opzioni)
    for n in range(0, 1000, 97 if lento else 11):
        difetti += esegui(canali, campioni[:n], f"samples cut after {n} bytes", [0 if n and n % 103 == 0 else 1], tempo)
        # Where few records are left they may as well be some without stamps, 99 bytes each.
        stati = [0, 1] if n % 99 == 0 else [0 if n % 103 == 0 else 1]
        difetti += esegui(canali, campioni[:n], f"samples cut after {n} bytes, framing found", stati)
    for giro in range(10 if lento else 100):
        casuali = b""
        for _ in range(caso.randrange(1, 9)):
            fid = caso.choice([caso.randrange(2**32), caso.choice([0x1A, 0x9A, 0x11A, 0x19A]) | caso.randrange(4) << 15])
            casuali += (caso.randbytes(12) + fid.to_bytes(4, "little") + caso.randbytes(4) +
                        caso.randrange(25).to_bytes(4, "little") + caso.randbytes(88))
        difetti += esegui(casuali, caso.randbytes(caso.randrange(4000)), f"random channels, round {giro}", [0, 1],
                          ("--packed", *caso.choice([(), ("--text",), ("--time", "u64us"), ("--rate", "7")])))
        difetti += esegui(caso.randbytes(112 * caso.randrange(1, 9)), campioni, f"random bytes, round {giro}", [0, 1])
    return difetti


def giri(programmi, lento):
    """kelfun laps on captures and recordings that are cut, changed or random; gives the faults."""
    programmi.esegui("kelsim", ["--laps", "2", "--rate", "2", "--channels", "c", "--samples", "s", "x.ubx"])
    caso = random.Random(11)
    with open("s", "rb") as s, open("x.ubx", "rb") as x:
        campioni, cattura = s.read(), x.read()

    def esegui(che_cosa, *argomenti, byte=b""):
        stato, uscita, errori = programmi.esegui("kelfun", ["laps", *argomenti, "--csv"], byte)
        if stato not in (0, 1) or (uscita != b"") != (stato == 0) or not errori.endswith(b"\n"):
            yield f"laps, {che_cosa}: exit {stato}, {len(uscita)} bytes: {errori[-300:]!r}"

    for giro in range(4 if lento else 40):
        n = caso.randrange(len(cattura))
        yield from esegui(f"capture cut after {n} bytes", "-", byte=cattura[:n])
        guasta = bytearray(cattura)
        for _ in range(caso.randrange(1, 200)):
            guasta[caso.randrange(len(guasta))] = caso.randrange(256)
        yield from esegui(f"changed capture, round {giro}", "-", "--split", "300", byte=bytes(guasta))
        guasti = bytearray(campioni)
        for _ in range(caso.randrange(1, 2000)):
            guasti[caso.randrange(len(guasti))] = caso.randrange(256)
        for fonte in ("auto", "gps"):
            yield from esegui(f"changed samples, round {giro}", "c", "-", "--source", fonte, byte=bytes(guasti))
        canale = (bytes(12) + caso.choice([0x9A, 0x809A, 0x98B, 0x992, 0x19A, 0x819A, 0x10]).to_bytes(4, "little") +
                  bytes(4) + caso.randrange(25).to_bytes(4, "little") + bytes(88))
        with open("c2", "wb") as f:
            f.write(canale)
        yield from esegui(f"random samples, round {giro}", "c2", "-", "--packed", "--rate", "10",
                          byte=caso.randbytes(56 * caso.randrange(100)))


def uscite(programmi):
    """What becomes of standard output when nobody takes it, and of standard input when there is none; gives the faults."""
    attesi = [
        ("kelfun catalogue | head -n 1", 0, rb"", "a reader that has had enough"),
        ("kelsim --laps 1 - | kelfun ubx - | head -n 1", 0, rb"", "the same of a stream"),
        ("yes | kelfun ubx - >/dev/full", 1, rb"kelfun ubx: cannot write the output: .+\n", "a stream without an end"),
        ("kelfun fid 0x10 >&-", 1, rb"kelfun fid: cannot write the output: .+\n", "no standard output"),
        ("kelfun ubx - <&-", 1, rb"kelfun ubx: cannot read 'standard input': .+\n", "no standard input"),
        ("kelfun match 0x10 --channels - <&-", 1, rb"kelfun match: cannot read 'standard input': .+\n", "nor for a list"),
        ("kelfun lap - </", 1, rb"kelfun lap: cannot read 'standard input': Is a directory\n", "a folder for lines"),
    ]
    for riga, stato, errori, che_cosa in attesi:
        avuti = programmi.shell(riga)
        if avuti[0] != stato or not re.fullmatch(errori, avuti[2]):
            yield f"{che_cosa}: {riga}: exit {avuti[0]}, {avuti[2]!r}"


def memoria(programmi, milioni, argomenti):
    """Largest memory, KiB, of a run that reads so many million bytes of a pattern full of sync bytes."""
    pezzo = (b"\xb5\x62\x01\x06\xff\xff" + bytes(range(256)) + b"\xb5\x62") * 4000
    comando = programmi.emulatore + [programmi.programmi["kelfun"], *argomenti]
    processo = subprocess.Popen(comando, stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                # A sanitizer would keep what has been freed, up to a quarter of a gigabyte of it.
                                env={**programmi.ambiente, "ASAN_OPTIONS": "quarantine_size_mb=1"})

    def dai():
        for _ in range(milioni * 1000000 // len(pezzo)):
            processo.stdin.write(pezzo)
        processo.stdin.close()

    filo = threading.Thread(target=dai)
    filo.start()
    _, _, uso = os.wait4(processo.pid, 0)
    filo.join()
    return uso.ru_maxrss


def main():
    programmi = Programmi(lettore(__doc__).parse_args())
    lento = int(os.environ.get("KEL_PASSO_ROBUSTEZZA", "1")) > 1
    cattura = programmi.esegui("kelsim", ["--laps", "1", "--rate", "2", "-"])[1]
    intere = len(re.findall(rb"\xb5\x62\x01\x06\x34\x00", cattura))
    difetti = prova(programmi, cattura, "whole capture", [intere])
    passo = 997 if lento else 97
    for n in range(0, len(cattura), passo):
        difetti += prova(programmi, cattura[:n], f"cut after {n} bytes",
                         [len(re.findall(rb"\xb5\x62\x01\x06\x34\x00.{54}", cattura[:n], re.S))])
        guasta = bytearray(cattura)
        guasta[n] ^= 0xFF
        difetti += prova(programmi, bytes(guasta), f"byte {n} changed", [intere, intere - 1])
    caso = random.Random(3)
    for giro in range(5):
        difetti += prova(programmi, caso.randbytes(caso.randrange(200000)), f"random bytes, round {giro}")
    difetti += prova(programmi, os.urandom(1000000), "a million bytes of urandom")
    difetti += prova(programmi, b"", "empty input", [0])
    difetti += registrazioni(programmi, lento)
    difetti += giri(programmi, lento)
    difetti += uscite(programmi)
    for argomenti, milioni in ((["ubx", "-"], 200), (["record", "c", "-"], 40)):
        poca, tanta = memoria(programmi, 1, argomenti), memoria(programmi, 8 if lento else milioni, argomenti)
        if tanta - poca > 4096:
            difetti.append(f"{argomenti[0]}: memory grows with the length of the stream: {poca} KiB, then {tanta} KiB")
    for difetto in difetti:
        print(difetto)
    print(f"{intere} solutions in the capture, memory {tanta} KiB, {len(difetti)} faults")
    return 1 if difetti else 0


if __name__ == "__main__":
    sys.exit(main())
