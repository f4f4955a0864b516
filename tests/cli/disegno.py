#!/usr/bin/env python3
"""The drawing of an identifier's bits: its boxes hold all 32 bits in their order, and name the fields and values that the
JSON of the same identifier names."""
import json
import os
import random
import sys

from programmi import Programmi, lettore

LARGHEZZE = {"quantity": 7, "object": 8, "details": 8, "position": 5, "specialisation": 5, "in/out": 2, "numbered": 1,
             "number": 6, "left/right": 2, "front/rear": 2, "up/down": 2, "unused": 3}

# Sides, numbers, every kind of packet, values without a name, bits that belong to no field, the end marker.
PARTICOLARI = [0, 0x10, 0x05070010, 0x06440C9E, 0x00C00000, 0x1FC00000, 0x9A, 0x809A, 0x1009A, 0x1809A, 0x11A, 0x811A, 0x19A,
               0x819A, 0x1019A, 0x1A, 0x21A, 0x0440819A, 0x0300019A, 0x0010009A, 0x1C, 0x7F, 0x7F80, 0xF8000, 0xE0000010,
               0x20000000, 0x000B9D20, 0xFFFFFFFF]


def disegno(testo):
    """The boxes from bit 31 down: (first bit, last bit, bits, name, value), and what is wrong with the drawing."""
    righe = testo.splitlines()
    bordi = [i for i, riga in enumerate(righe) if riga.startswith("+-")]
    if len(bordi) != 2 or bordi[1] - bordi[0] != 4:
        return [], "no box of three lines"
    numeri, bordo = righe[bordi[0] - 1], righe[bordi[0]]
    if righe[bordi[1]] != bordo:
        return [], "the borders differ"
    muri = [i for i, c in enumerate(bordo) if c == "+"]
    dentro = righe[bordi[0] + 1:bordi[1]]
    for riga in dentro:
        if [i for i, c in enumerate(riga) if c == "|"] != muri:
            return [], f"walls out of line: {riga}"
    caselle = []
    for sinistra, destra in zip(muri, muri[1:]):
        bit = numeri[sinistra + 1:destra].split()
        caselle.append((int(bit[0]), int(bit[-1]), *(riga[sinistra + 1:destra].strip() for riga in dentro)))
    return caselle, None


def difetto(programmi, fid):
    """What is wrong with the drawing of one identifier."""
    stato, uscita, errori = programmi.esegui("kelfun", ["fid", hex(fid)])
    caselle, che_cosa = disegno(uscita.decode("ascii"))
    if stato != 0 or errori or che_cosa:
        return f"exit {stato}, {errori.decode()}, {che_cosa}"
    if max(len(riga) for riga in uscita.decode().splitlines()[9:15]) > 132:
        return "wider than 132 characters"
    prossimo = 31
    for alto, basso, bit, nome, _ in caselle:
        if alto != prossimo or alto - basso + 1 != len(bit) or LARGHEZZE.get(nome) != len(bit):
            return f"{nome}: bits {alto} to {basso} hold {bit!r}"
        prossimo = basso - 1
    if prossimo != -1 or int("".join(c[2] for c in caselle), 2) != fid:
        return f"the boxes hold {''.join(c[2] for c in caselle)}, the identifier is {fid:032b}"
    valori = {nome: valore for _, _, _, nome, valore in caselle}
    if valori.pop("numbered") != ("yes" if fid >> 22 & 1 else "no") or valori.pop("unused") != (str(fid >> 29) if fid >> 29 else "-"):
        return "the flag or the unused bits"
    campi = json.loads(programmi.esegui("kelfun", ["fid", hex(fid), "--json"])[1])["fields"]
    attesi = {c["field"]: c["text"] or ("-" if c["xml"] else str(c["value"])) for c in campi if not c["field"].startswith("bits")}
    return None if valori == attesi else f"fields {valori}, expected {attesi}"


def main():
    programmi = Programmi(lettore(__doc__.splitlines()[0]).parse_args())
    caso = random.Random(22)
    tutti = PARTICOLARI + [caso.getrandbits(32) for _ in range(30)]
    quanti = 40 if int(os.environ.get("KEL_PASSO_ROBUSTEZZA", "1")) > 1 else 200
    # Most values at random have no name: these have one.
    tutti += [caso.randrange(32) | caso.randrange(58) << 7 | caso.randrange(23) << 15 | caso.getrandbits(9) << 20
              for _ in range(quanti)]
    rotti = 0
    for fid in tutti:
        che_cosa = difetto(programmi, fid)
        if che_cosa:
            print(f"0x{fid:08X}: {che_cosa}")
            rotti += 1
    print(f"{len(tutti)} identifiers drawn, {rotti} faults")
    return 1 if rotti else 0


if __name__ == "__main__":
    sys.exit(main())
