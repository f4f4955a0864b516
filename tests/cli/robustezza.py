#!/usr/bin/env python3
"""kelfun ubx as a process: a damaged capture, random bytes, and memory that stays the same for any length."""
import os
import random
import re
import resource
import subprocess
import sys
import threading

from programmi import Programmi, lettore

RIASSUNTO = re.compile(
    rb"^(\d+) solutions in (\d+) bytes; skipped: (\d+) bytes outside messages, (\d+) other messages, (\d+) bad checksums, "
    rb"(\d+) NAV-SOL of wrong length, (\d+) bytes truncated at the end$", re.M)


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


def memoria(programmi, milioni):
    """Largest memory, KiB, of a run that reads so many million bytes of a pattern full of sync bytes."""
    pezzo = (b"\xb5\x62\x01\x06\xff\xff" + bytes(range(256)) + b"\xb5\x62") * 4000
    comando = programmi.emulatore + [programmi.programmi["kelfun"], "ubx", "-"]
    processo = subprocess.Popen(comando, stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                env=programmi.ambiente)

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
    poca, tanta = memoria(programmi, 1), memoria(programmi, 8 if lento else 200)
    if tanta - poca > 4096:
        difetti.append(f"memory grows with the length of the stream: {poca} KiB, then {tanta} KiB")
    for difetto in difetti:
        print(difetto)
    print(f"{intere} solutions in the capture, memory {poca} and {tanta} KiB, {len(difetti)} faults")
    return 1 if difetti else 0


if __name__ == "__main__":
    sys.exit(main())
