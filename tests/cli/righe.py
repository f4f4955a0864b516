#!/usr/bin/env python3
"""Lines of standard input are answered as they come: each answer is there before the next line is sent."""
import queue
import subprocess
import sys
import threading

from programmi import Programmi, lettore

ATTESA = 60  # seconds: far longer than an answer takes, also through an emulator

# Arguments, lines, and what the answer to each of them holds; None for a wrong line, which has none.
DIALOGHI = [
    (["convert", "0x10", "-", "--to", "mph", "--csv"], [("100", "62.137096"), ("x", None), ("62.5", "38.835686")]),
    (["convert", "0x10", "-", "--to", "mph"], [("100", "62.137096"), ("62.5", "38.835686")]),
    (["convert", "0x10", "-", "--to", "mph", "--json"], [("100", "62.137096"), ("62.5", "38.835686")]),
    (["convert", "0x10", "-", "--to", "mph", "--ndjson"], [("100", "62.137096"), ("62.5", "38.835686")]),
    (["lap", "-", "--csv"], [("83456", "1:23.456"), ("abc", None), ("5", "0:00.005")]),
    (["lap", "--lines", "-"], [("  7 - 1:23.456", "83456"), ("  8 - 0:59.500", "59500")]),
    (["decode", "0x10", "--type", "int16", "-", "--csv"], [("7B00", ",123.0,"), ("zz", None), ("0100", ",1.0,")]),
]


class Colloquio:
    """A kelfun whose output is read line by line."""

    def __init__(self, programmi, argomenti):
        self.processo = subprocess.Popen(programmi.emulatore + [programmi.programmi["kelfun"]] + argomenti,
                                         stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                         cwd=programmi.cartella.name, env=programmi.ambiente)
        self.righe = queue.Queue()
        for flusso in (self.processo.stdout, self.processo.stderr):
            threading.Thread(target=self.leggi, args=(flusso,), daemon=True).start()

    def leggi(self, flusso):
        # As the bytes come: of JSON the end of a line comes with the next row.
        while byte := flusso.read1(65536):
            self.righe.put(byte.decode())

    def aspetta(self, testo):
        """Whether a text comes before the time is over."""
        visto = ""
        while testo not in visto:
            try:
                visto += self.righe.get(timeout=ATTESA)
            except queue.Empty:
                return False
        return True


def difetti(programmi, argomenti, righe):
    """What goes wrong in one dialogue."""
    colloquio = Colloquio(programmi, argomenti)
    for numero, (riga, risposta) in enumerate(righe, 1):
        try:
            colloquio.processo.stdin.write(riga.encode() + b"\n")
            colloquio.processo.stdin.flush()
        except BrokenPipeError:
            yield f"{argomenti}: ends before line {numero}, {riga!r}"
            return
        if not colloquio.aspetta(f"line {numero}: " if risposta is None else risposta):
            colloquio.processo.kill()
            yield f"{argomenti}: no answer to line {numero}, {riga!r}"
            return
    colloquio.processo.stdin.close()
    stato = colloquio.processo.wait(ATTESA)
    atteso = 1 if any(risposta is None for _, risposta in righe) else 0
    if stato != atteso:
        yield f"{argomenti}: exit status {stato}, expected {atteso}"


def main():
    programmi = Programmi(lettore(__doc__).parse_args())
    trovati = [difetto for argomenti, righe in DIALOGHI for difetto in difetti(programmi, argomenti, righe)]
    for difetto in trovati:
        print(difetto)
    print(f"{len(DIALOGHI)} dialogues, {len(trovati)} faults")
    return 1 if trovati else 0


if __name__ == "__main__":
    sys.exit(main())
