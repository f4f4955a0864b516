#!/usr/bin/env python3
"""No flat function takes more stack than a small thread of the device has to give.

    pila.py PROGRAM...    runs the program that measures the stack of each call, and looks at the figures
"""

import subprocess
import sys

LIMITE = 1024  # bytes, those of the functions called included

righe = [riga.split("\t") for riga in subprocess.run(sys.argv[1:], check=True, capture_output=True,
                                                    text=True).stdout.splitlines()]
misure = {nome: int(byte) for nome, byte, *_ in righe}
troppo = {nome: byte for nome, byte in misure.items() if byte >= LIMITE}
for nome, byte in troppo.items():
    print(f"{nome}: {byte} bytes of stack, {LIMITE} or more")
if misure:
    massimo = max(misure, key=misure.get)
    print(f"{len(misure)} calls, the most stack {misure[massimo]} bytes: {massimo}")
# A call that takes none at all is nothing strange; a program that measures none of any is.
sys.exit(1 if troppo or not any(misure.values()) else 0)
