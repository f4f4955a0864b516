#!/usr/bin/env python3
"""Pictures that kelfun draws with gnuplot: what they show, names that try to break out, and gnuplot missing or failing."""
import os
import re
import shutil
import struct
import sys
import xml.etree.ElementTree as ET

from programmi import Programmi, lettore

OSTILE = b"a<b>&'\"`touch broken`@x\n$HOME"


def canale(nome, fid=0x11, tipo=1, offset=0, dimensione=2):
    return struct.pack("<H10xI4xI8s36sII36x", 0, fid, tipo, nome[:7], nome, offset, dimensione)


class Banco:
    def __init__(self, programmi):
        self.programmi = programmi
        self.difetti = []
        # Full paths: some runs have another PATH.
        if programmi.emulatore:
            programmi.emulatore[0] = shutil.which(programmi.emulatore[0]) or programmi.emulatore[0]

    def percorso(self, nome):
        return os.path.join(self.programmi.cartella.name, nome)

    def scrivi(self, nome, byte):
        with open(self.percorso(nome), "wb") as f:
            f.write(byte)

    def leggi(self, nome):
        with open(self.percorso(nome), "rb") as f:
            return f.read()

    def pretendi(self, vero, testo):
        if not vero:
            self.difetti.append(testo)

    def kelfun(self, *argomenti, stato=0, errore="", **altro):
        avuto, uscita, errori = self.programmi.esegui("kelfun", argomenti, **altro)
        self.pretendi(avuto == stato and not uscita, f"{argomenti}: exit {avuto}, {uscita!r}, {errori!r}")
        self.pretendi(re.search(errore, errori.decode(), re.M), f"{argomenti}: {errori!r} has no {errore!r}")

    def testi(self, nome):
        """The texts of an SVG picture, which must be well-formed."""
        try:
            radice = ET.fromstring(self.leggi(nome))
        except (ET.ParseError, OSError) as errore:
            self.difetti.append(f"{nome}: {errore}")
            return []
        self.pretendi(radice.tag == "{http://www.w3.org/2000/svg}svg", f"{nome}: its root is {radice.tag}")
        return ["".join(testo.itertext()) for testo in radice.iter("{http://www.w3.org/2000/svg}text")]


def disegni(banco):
    banco.programmi.esegui("kelsim", ["--laps", "1", "--rate", "4", "--channels", "c", "--samples", "s", "lap.ubx"])
    banco.kelfun("ubx", "./lap.ubx", "--plot", "lap.svg", errore="^231 solutions")
    testi = banco.testi("lap.svg")
    for atteso in ("lap.ubx", "Speed", "km/h", "Satellites", "time, s", "Track by speed",
                   "east, m", "north, m"):
        banco.pretendi(atteso in testi, f"lap.svg: no text {atteso!r} in {testi}")

    banco.kelfun("record", "c", "s", "--time", "u32ms", "--plot", "kart.SVG", "--unit", "mph", errore="^231 records")
    testi = banco.testi("kart.SVG")
    for atteso in ("Wheel Speed", "mph", "Engine RPM", "rpm", "Gear", "Water Temp", "C", "Oil Pressure", "bar", "GPS Speed",
                   "time, s", "Track by speed", "Position Accuracy", "m"):
        banco.pretendi(atteso in testi, f"kart.SVG: no text {atteso!r} in {testi}")
    banco.pretendi("Run Number" not in testi and "Latitude library rule" not in testi,
                   f"kart.SVG has what never changes, or the latitude beside the track: {testi}")

    banco.kelfun("record", "c", "s", "--time", "u32ms", "--plot", "rpm.svg", "--only", "rpm", errore="^231 records")
    banco.pretendi("Track by speed" not in banco.testi("rpm.svg"), "rpm.svg has a track without GPS")

    banco.kelfun("ubx", "lap.ubx", "--plot", "lap.png", errore="^231 solutions")
    png = banco.leggi("lap.png")
    banco.pretendi(png[:8] == b"\x89PNG\r\n\x1a\n" and struct.unpack(">I", png[16:20])[0] == 1280,
                   f"lap.png is no PNG of 1280 dots: {png[:24]!r}")
    banco.kelfun("ubx", "lap.ubx", "--plot", "italian.svg", errore="^231 solutions", ambiente={"LC_ALL": "it_IT.UTF-8"})
    banco.pretendi(banco.leggi("italian.svg") == banco.leggi("lap.svg"), "a decimal comma of the locale changes a picture")
    banco.kelfun("ubx", "-", "--plot", "again.svg", errore="^231 solutions", stdin=banco.leggi("lap.ubx"))
    banco.pretendi("Speed" in banco.testi("again.svg"), "no plot of standard input")


def interruzioni(banco):
    """A break in the values is a break in the line: SVG begins a new path, "M", for each piece."""
    banco.scrivi("c1", canale(b"Temp"))
    def quanti(nome):
        percorsi = re.findall(rb"<path stroke='rgb\( *31, +95, 168\)' +d='([^']*)'", banco.leggi(nome))
        return sum(percorso.count(b"M") for percorso in percorsi)

    pezzi = {}
    for nome, mancante in (("whole", 30), ("broken", 0xCFFE)):
        banco.scrivi("s1", struct.pack("<7H", 10, 20, 25, mancante, 40, 50, 60))
        banco.kelfun("record", "c1", "s1", "--rate", "1", "--plot", f"{nome}.svg", errore="^7 records")
        pezzi[nome] = quanti(f"{nome}.svg")
    banco.pretendi(pezzi["whole"] > 0 and pezzi["broken"] == pezzi["whole"] + 1, f"pieces of the line: {pezzi}")
    # The kart loses its fix once: its GPS speed is broken there, its wheel speed is not.
    for nome in ("Wheel Speed", "GPS Speed"):
        banco.kelfun("record", "c", "s", "--time", "u32ms", "--plot", "speed.svg", "--only", nome, errore="^231 records")
        pezzi[nome] = quanti("speed.svg")
    banco.kelfun("ubx", "lap.ubx", "--plot", "speed.svg", errore="^231 solutions")
    pezzi["capture"] = quanti("speed.svg")
    banco.pretendi(pezzi["Wheel Speed"] > 0 and pezzi["GPS Speed"] == pezzi["capture"] == pezzi["Wheel Speed"] + 1,
                   f"pieces of the lines: {pezzi}")


def ostili(banco):
    banco.scrivi("c2", canale(OSTILE))
    banco.scrivi("s2", struct.pack("<3H", 1, 2, 3))
    banco.kelfun("record", "c2", "s2", "--plot", "hostile.svg", errore="^3 records")
    atteso = OSTILE.decode().replace("\n", "?")
    banco.pretendi(atteso in banco.testi("hostile.svg"), f"no {atteso!r} in {banco.testi('hostile.svg')}")
    banco.pretendi(not os.path.exists(banco.percorso("broken")), "a channel's name was run as a command")
    # No value, nothing but NaN, the greatest and the least of floats, the two smallest.
    for giro, (valori, nome) in enumerate(((b"", ""), (b"\0\0\xc0\x7f" * 3, "F: no values"),
                                           (b"\xff\xff\x7f\x7f\xff\xff\x7f\xff", "F"), (b"\1\0\0\0\2\0\0\0", "F"))):
        banco.scrivi("c3", canale(b"F", 0x0B, 6, 0, 4))
        banco.scrivi("s3", valori)
        banco.kelfun("record", "c3", "s3", "--plot", f"floats{giro}.svg", stato=0 if valori else 1)
        if valori:
            testi = banco.testi(f"floats{giro}.svg")
            banco.pretendi(nome in testi, f"floats{giro}.svg has no {nome!r} in {testi}")


def guasti(banco):
    vuota = banco.percorso("empty")
    os.mkdir(vuota)
    banco.kelfun("ubx", "lap.ubx", "--plot", "none.svg", stato=1, ambiente={"PATH": vuota},
                 errore="^kelfun ubx: a picture takes gnuplot, which is not installed: install the package gnuplot-nox")
    with open(os.path.join(vuota, "gnuplot"), "w", encoding="ascii") as f:
        f.write("#!/bin/sh\necho >&2\necho '      ^ out of ink' >&2\nexit 3\n")
    os.chmod(f.name, 0o755)
    banco.kelfun("ubx", "lap.ubx", "--plot", "none.svg", stato=1, ambiente={"PATH": vuota},
                 errore="^kelfun ubx: gnuplot fails: out of ink$")
    banco.pretendi(not os.path.exists(banco.percorso("none.svg")), "a plot that failed leaves a file")
    banco.kelfun("ubx", "lap.ubx", "--plot", "nowhere/lap.svg", stato=1,
                 errore="^kelfun ubx: cannot write 'nowhere/lap.svg': No such file or directory$")


def main():
    programmi = Programmi(lettore(__doc__).parse_args())
    if shutil.which("gnuplot") is None:
        print("gnuplot is not installed: skipped")
        return 77
    banco = Banco(programmi)
    for parte in (disegni, interruzioni, ostili, guasti):
        parte(banco)
    for difetto in banco.difetti:
        print(difetto)
    print(f"{len(banco.difetti)} faults")
    return 1 if banco.difetti else 0


if __name__ == "__main__":
    sys.exit(main())
