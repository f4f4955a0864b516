#!/usr/bin/env python3
"""Every command's --help gives three examples, and each of them works as it stands."""
import re
import sys

from programmi import Programmi, lettore


def main():
    programmi = Programmi(lettore(__doc__).parse_args())
    rotti = 0
    registrazione = ["--channels", "session.channels", "--samples", "session.samples"]
    assert programmi.esegui("kelsim", ["--laps", "1", *registrazione, "capture.ubx"])[0] == 0

    def prova(chi, aiuto):
        nonlocal rotti
        esempi = [riga.strip() for riga in aiuto.split("Examples:\n")[-1].splitlines() if riga.startswith("  kel")]
        if len(esempi) != 3:
            print(f"{chi} --help gives {len(esempi)} examples, expected 3")
            rotti += 1
        for esempio in esempi:
            stato, uscita, errori = programmi.shell(esempio)
            if stato != 0 or (not uscita and "kelsim" not in esempio):
                print(f"example of {chi} fails: {esempio}\nexit {stato}\n{uscita.decode()}\n{errori.decode()}")
                rotti += 1

    stato, uscita, _ = programmi.esegui("kelfun", ["--help"])
    comandi = re.findall(r"^  ([a-z]+)  ", uscita.decode().split("Subcommands:\n")[-1], re.M)
    if stato != 0 or "fid" not in comandi or "ubx" not in comandi:
        print(f"kelfun --help does not list the commands:\n{uscita.decode()}")
        rotti += 1
    prova("kelfun", uscita.decode())
    for comando in comandi:
        stato, uscita, errori = programmi.esegui("kelfun", [comando, "--help"])
        if stato != 0 or errori:
            print(f"kelfun {comando} --help: exit {stato}, {errori.decode()}")
            rotti += 1
        prova(f"kelfun {comando}", uscita.decode())
    prova("kelsim", programmi.esegui("kelsim", ["--help"])[1].decode())
    print(f"{len(comandi) + 1} helps, {rotti} faults")
    return 1 if rotti else 0


if __name__ == "__main__":
    sys.exit(main())
