#!/usr/bin/env python3
"""kelfun laps on simulated recordings: lap times from GPS are those of the logger's own lap packets."""
import json
import pathlib
import re
import sys

from programmi import Programmi, lettore

ENTRO_MS = 20


def giri(programmi, argomenti, difetti):
    """The laps of one run, by number, and what it said."""
    stato, uscita, errori = programmi.esegui("kelfun", ["laps", *argomenti, "--json"])
    if stato != 0:
        difetti.append(f"laps {' '.join(argomenti)}: exit {stato}: {errori.decode()}")
        return {}, ""
    return {giro["lap"]: giro for giro in json.loads(uscita)["laps"]}, errori.decode()


def confronta(programmi, frequenza, seme, difetti):
    """One recording; gives the largest difference in ms."""
    programmi.esegui("kelsim", ["--laps", "6", "--rate", str(frequenza), "--seed", str(seme), "--channels", "c",
                                "--samples", "s", "x.ubx"])
    linea = re.search(rb"^\s+(\d+\.\d+,\d+\.\d+,\d+\.\d+)", programmi.esegui("kelsim", ["--help"])[1], re.M)[1].decode()
    del_registratore, _ = giri(programmi, ["c", "s"], difetti)
    chi = f"{frequenza} Hz, seed {seme}"
    massima = 0
    for che_cosa, argomenti in (("recording", ["c", "s", "--source", "gps", "--line", linea]),
                                ("capture", ["x.ubx", "--line", linea])):
        da_gps, _ = giri(programmi, argomenti, difetti)
        if list(da_gps) != list(del_registratore):
            difetti.append(f"{chi}, {che_cosa}: laps {list(da_gps)}, by the logger {list(del_registratore)}")
            continue
        note = [giro["note"] for giro in da_gps.values()]
        if note[0] != "out" or note[-1] != "in" or note.count("no fix") != 1 or note.count("best") != 1:
            difetti.append(f"{chi}, {che_cosa}: notes {note}")
        for numero, giro in da_gps.items():
            suo = del_registratore[numero]
            if (giro["time_ms"] is None) != (suo["time_ms"] is None):
                difetti.append(f"{chi}, {che_cosa}, lap {numero}: {giro['time']}, by the logger {suo['time']}")
            elif giro["time_ms"] is not None:
                massima = max(massima, abs(giro["time_ms"] - suo["time_ms"]))
    if massima > ENTRO_MS:
        difetti.append(f"{chi}: lap times differ by {massima} ms")
    # A line that is found has its laps elsewhere, but as many and as long; given as it is printed, it gives the same.
    trovati, detto = giri(programmi, ["x.ubx"], difetti)
    linea = re.search(r"--line (\S+)", detto)
    suoi, del_logger = ([g["time_ms"] is None for g in tutti.values()] for tutti in (trovati, del_registratore))
    # The last fix may lie on that line: then nothing is behind it, and there is no way in.
    if suoi not in (del_logger, del_logger[:-1]):
        difetti.append(f"{chi}: {len(trovati)} laps at the line that is found, {len(del_registratore)} by the logger")
    if not linea or giri(programmi, ["x.ubx", "--line", linea[1]], difetti)[0] != trovati:
        difetti.append(f"{chi}: not the same laps by the line that is printed: {detto!r}")
    return massima


def sessioni(programmi, difetti):
    """Recordings joined: every session begins with its own time, whatever clock the laps come from."""
    cartella = pathlib.Path(programmi.cartella.name)
    for seme, fine in (("1", "a"), ("2", "b")):
        programmi.esegui("kelsim", ["--laps", "2", "--rate", "5", "--seed", seme, "--channels", "c", "--samples", "s" + fine,
                                    "x" + fine])
    for nome in "sx":
        (cartella / nome).write_bytes((cartella / f"{nome}a").read_bytes() + (cartella / f"{nome}b").read_bytes())
    for argomenti in (["c", "s"], ["c", "s", "--source", "gps"], ["x"]):
        stato, uscita, errori = programmi.esegui("kelfun", ["laps", *argomenti, "--json"])
        tutti = json.loads(uscita)["laps"] if stato == 0 else []
        inizi = [giro["start_s"] for giro in tutti]
        ritorni = sum(dopo < prima for prima, dopo in zip(inizi, inizi[1:]))
        note = [giro["note"] for giro in tutti]
        if note.count("out") != 2 or note.count("in") != 2:
            difetti.append(f"two sessions, {argomenti}: not each has its way out and in: {note}")
        if ritorni != 1 or not all(0 <= inizio < 120 for inizio in inizi):
            difetti.append(f"two sessions, {argomenti}: laps begin at {inizi}")
        if b"kelfun laps: 2 sessions, as time runs backwards" not in errori:
            difetti.append(f"two sessions, {argomenti}: not said: {errori!r}")


def main():
    programmi = Programmi(lettore(__doc__).parse_args())
    difetti = []
    massima = max(confronta(programmi, frequenza, seme, difetti)
                  for frequenza in (1, 4, 5, 10, 18, 25) for seme in range(1, 5))
    sessioni(programmi, difetti)
    for difetto in difetti:
        print(difetto)
    print(f"lap times from GPS within {massima} ms of the logger's, {len(difetti)} faults")
    return 1 if difetti else 0


if __name__ == "__main__":
    sys.exit(main())
