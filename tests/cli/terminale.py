#!/usr/bin/env python3
"""What kelfun shows on a terminal: colours, the progress line and charts, and where it leaves them out."""
import fcntl
import os
import pty
import struct
import subprocess
import sys
import tempfile
import termios
import time

from programmi import Programmi, lettore

ESC = "\x1b"


def terminale(programmi, argomenti, ambiente, errori=False, misura=None):
    """What a run writes to a terminal that is its standard output, or its standard error; the other goes to a file. With a
    size the terminal is both."""
    with tempfile.TemporaryFile() as altro:
        figlio, padrone = pty.fork()
        if figlio == 0:
            if not misura:
                os.dup2(altro.fileno(), 1 if errori else 2)
            os.chdir(programmi.cartella.name)
            if misura:
                misura(0)
            comando = programmi.emulatore + [programmi.programmi["kelfun"], *argomenti]
            tutto = {**programmi.ambiente, **ambiente}
            os.execvpe(comando[0], comando, {nome: valore for nome, valore in tutto.items() if valore is not None})
        visto = b""
        while True:
            try:
                pezzo = os.read(padrone, 65536)
            except OSError:  # a terminal whose last writer has gone
                break
            if not pezzo:
                break
            visto += pezzo
        os.close(padrone)
        os.waitpid(figlio, 0)
        return visto.decode("latin-1")


def lento(programmi, opzioni, ambiente):
    """Standard error, a terminal, of a run whose standard input comes in two pieces with more than two seconds between."""
    cattura = programmi.esegui("kelsim", ["--laps", "1", "--rate", "1", "-"])[1]
    padrone, schiavo = pty.openpty()
    comando = programmi.emulatore + [programmi.programmi["kelfun"], "ubx", "-", *opzioni]
    processo = subprocess.Popen(comando, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=schiavo,
                                cwd=programmi.cartella.name, env={**programmi.ambiente, **ambiente})
    os.close(schiavo)
    processo.stdin.write(cattura[:4000])
    processo.stdin.flush()
    # The first piece's rows are shown before the second is waited for: from then on the clock runs.
    primo = processo.stdout.read1(65536)
    time.sleep(2.5)
    processo.stdin.write(cattura[4000:])
    processo.stdin.close()
    processo.stdout.read()
    processo.wait()
    visto = b""
    while True:
        try:
            pezzo = os.read(padrone, 65536)
        except OSError:
            break
        visto += pezzo
    os.close(padrone)
    return visto.decode("latin-1") if primo else "no row before the second piece"


def avanzamento(programmi, xterm):
    """The progress line; gives the faults."""
    visto = lento(programmi, ["--csv"], xterm)
    if "\r13.7 kB\033[K" not in visto or "\r\033[K58 solutions" not in visto:
        yield f"a long reading shows its progress, and erases it before the summary: {visto!r}"
    visto = lento(programmi, ["--csv"], {"TERM": "dumb"})
    if ESC in visto or not visto.startswith("58 solutions"):
        yield f"a dumb terminal gets no progress line: {visto!r}"
    visto = terminale(programmi, ["ubx", "lap.ubx", "--csv"], xterm, True)
    if ESC in visto or not visto.startswith("58 solutions"):
        yield f"a short reading shows no progress: {visto!r}"


def grafico(programmi, xterm):
    """A chart, with all that is said below it and the next prompt, fills its terminal and goes not beyond; gives the faults."""
    registrazione = ["record", "c", "s", "--time", "u32ms", "--plot", "-"]
    for argomenti in (["ubx", "lap.ubx", "--plot", "-"], registrazione):
        for colonne, righe in ((80, 24), (100, 30), (60, 24), (40, 24), (20, 24), (132, 43)):
            def misura(fd, righe=righe, colonne=colonne):
                fcntl.ioctl(fd, termios.TIOCSWINSZ, struct.pack("HHHH", righe, colonne, 0, 0))
            visto = terminale(programmi, argomenti, xterm, misura=misura).splitlines()
            alte = sum(max(1, -(-len(riga) // colonne)) for riga in visto)
            disegno = [riga for riga in visto if "|" in riga or "+-" in riga]
            if not righe - 4 <= alte <= righe - 1 or max(map(len, disegno)) > colonne or len(disegno) < 3:
                yield f"{argomenti[0]} on {colonne} by {righe}: {alte} lines, drawn up to {max(map(len, disegno))}:\n" + "\n".join(visto)


def main():
    programmi = Programmi(lettore(__doc__).parse_args())
    programmi.ambiente.pop("NO_COLOR", None)
    xterm = {"TERM": "xterm-256color"}
    casi = [
        ("a table on a terminal has colours", ["fid", "0x11"], xterm, False, True),
        ("NO_COLOR takes them away", ["fid", "0x11"], {**xterm, "NO_COLOR": "1"}, False, False),
        ("an empty NO_COLOR does not", ["fid", "0x11"], {**xterm, "NO_COLOR": ""}, False, True),
        ("a dumb terminal has none", ["fid", "0x11"], {"TERM": "dumb"}, False, False),
        ("nor one that tells nothing of itself", ["fid", "0x11"], {"TERM": ""}, False, False),
        ("--color never", ["fid", "0x11", "--color", "never"], xterm, False, False),
        ("--color always on a dumb terminal", ["fid", "0x11", "--color=always"], {"TERM": "dumb"}, False, True),
        ("JSON on a terminal has no colours", ["fid", "0x11", "--json"], xterm, False, False),
        ("JSON lines on a terminal have no colours", ["fid", "0x11", "--ndjson"], xterm, False, False),
        ("CSV on a terminal has no colours", ["fid", "0x11", "--csv"], xterm, False, False),
        ("an error on a terminal has its tool's name in red", ["units", "0x1C"], xterm, True, True),
        ("an error with NO_COLOR has not", ["units", "0x1C"], {**xterm, "NO_COLOR": "1"}, True, False),
    ]
    rotti = 0
    for perche, argomenti, ambiente, errori, colori in casi:
        visto = terminale(programmi, argomenti, ambiente, errori)
        if (ESC in visto) != colori or not visto.strip():
            print(f"{perche}: {visto!r}")
            rotti += 1
    programmi.esegui("kelsim", ["--laps", "1", "--rate", "1", "--channels", "c", "--samples", "s", "lap.ubx"])
    for difetto in [*avanzamento(programmi, xterm), *grafico(programmi, xterm)]:
        print(difetto)
        rotti += 1
    print(f"{len(casi)} runs on a terminal for their colours, {rotti} faults")
    return 1 if rotti else 0


if __name__ == "__main__":
    sys.exit(main())
