"""A recording needs no more memory than any other, however long it is: here 1 GB, which is a hole in a file.

Peak memory is that of the child alone, as the system counts it.
"""

import argparse
import os
import pathlib
import struct
import subprocess
import sys
import tempfile

LIMITE_KB = 64 * 1024
GIGA = 1 << 30


def canale(nome, posto, byte):
    record = bytearray(112)
    struct.pack_into("<I", record, 20, 6)  # float
    record[32:32 + len(nome)] = nome.encode()
    struct.pack_into("<II", record, 68, posto, byte)
    return bytes(record)


def picco(comando):
    """Exit status and peak memory of a command, KB. Its output is thrown away."""
    figlio = subprocess.Popen(comando, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    detto = figlio.stderr.read()
    _, stato, uso = os.wait4(figlio.pid, 0)
    figlio.returncode = os.waitstatus_to_exitcode(stato)
    return figlio.returncode, uso.ru_maxrss, detto.decode()


def main():
    lettore = argparse.ArgumentParser()
    lettore.add_argument("--kelfun", required=True)
    lettore.add_argument("--kelsim")
    lettore.add_argument("--emulator", default="")
    argomenti = lettore.parse_args()
    difetti = 0
    with tempfile.TemporaryDirectory() as cartella:
        canali, campioni = pathlib.Path(cartella, "ch"), pathlib.Path(cartella, "sa")
        # Records of 4 KB with one value at their end: most of the time goes into reading.
        canali.write_bytes(canale("Value", 4092, 4096))
        with campioni.open("wb") as file:
            file.truncate(GIGA)
        righe = GIGA // 4096
        for opzioni in (["--csv"], ["--ndjson"], [], ["--arrow", "-"], ["--plot", cartella + "/plot.svg"]):
            stato, kb, detto = picco([argomenti.kelfun, "record", canali, campioni, "--time", "none", *opzioni])
            bene = stato == 0 and kb <= LIMITE_KB and (f"{righe} records of 4096 bytes" in detto)
            print("ok" if bene else "DEFECT", f"record {' '.join(opzioni)}: {kb} KB, exit status {stato}")
            if not bene:
                print(detto)
                difetti += 1
        # A stream without a message, which is gone through byte by byte.
        stato, kb, detto = picco([argomenti.kelfun, "ubx", campioni])
        bene = stato == 1 and kb <= LIMITE_KB
        print("ok" if bene else "DEFECT", f"ubx: {kb} KB, exit status {stato}")
        difetti += not bene
    return 1 if difetti else 0


if __name__ == "__main__":
    sys.exit(main())
