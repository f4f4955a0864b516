#!/usr/bin/env python3
"""What kelfun shows on a terminal: colours, and where it leaves them out."""
import os
import pty
import sys
import tempfile

from programmi import Programmi, lettore

ESC = "\x1b"


def terminale(programmi, argomenti, ambiente, errori=False):
    """What a run writes to a terminal that is its standard output, or its standard error; the other goes to a file."""
    with tempfile.TemporaryFile() as altro:
        figlio, padrone = pty.fork()
        if figlio == 0:
            os.dup2(altro.fileno(), 1 if errori else 2)
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
    print(f"{len(casi)} runs on a terminal, {rotti} faults")
    return 1 if rotti else 0


if __name__ == "__main__":
    sys.exit(main())
