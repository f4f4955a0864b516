#!/usr/bin/env python3
"""Pictures that kelfun draws with gnuplot: what they show, names that try to break out, and gnuplot missing or failing."""
import os
import random
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
            riga = self.leggi(nome).split(b"\n")[errore.position[0] - 1] if isinstance(errore, ET.ParseError) else b""
            self.difetti.append(f"{nome}: {errore}: {riga!r}")
            return []
        self.pretendi(radice.tag == "{http://www.w3.org/2000/svg}svg", f"{nome}: its root is {radice.tag}")
        return ["".join(testo.itertext()) for testo in radice.iter("{http://www.w3.org/2000/svg}text")]


def png(banco, nome):
    """Width and height of a PNG picture."""
    byte = banco.leggi(nome)
    banco.pretendi(byte[:8] == b"\x89PNG\r\n\x1a\n", f"{nome} is no PNG: {byte[:24]!r}")
    return struct.unpack(">II", byte[16:24])


def disegni(banco):
    banco.programmi.esegui("kelsim", ["--laps", "2", "--rate", "4", "--channels", "c", "--samples", "s", "lap.ubx"])
    banco.kelfun("ubx", "./lap.ubx", "--plot", "lap.svg", errore="^426 solutions")
    testi = banco.testi("lap.svg")
    for atteso in ("lap.ubx", "Speed km/h", "Satellites", "time, m:ss", "1:30", "Track by speed km/h", "east, m", "north, m"):
        banco.pretendi(atteso in testi, f"lap.svg: no text {atteso!r} in {testi}")

    principali = ("Speed km/h", "Wheel Speed", "GPS Speed", "Engine RPM", "Gear", "Throttle %", "Lateral Accel g",
                  "Water Temp C", "time, m:ss", "Track by speed km/h", "lap 1", "lap 2")
    banco.kelfun("record", "c", "s", "--time", "u32ms", "--plot", "kart.SVG", errore="^426 records")
    testi = banco.testi("kart.SVG")
    for atteso in principali:
        banco.pretendi(atteso in testi, f"kart.SVG: no text {atteso!r} in {testi}")
    for altro in ("Oil Pressure bar", "Run Number", "Sats Number"):
        banco.pretendi(altro not in testi, f"kart.SVG shows {altro!r}, which was not asked for")
    banco.kelfun("record", "c", "s", "--time", "u32ms", "--plot", "kart.svg",
                 errore="^not drawn: Oil Pressure, Run Number, .*Sats Number.*; --all draws all, --only NAME one$")
    banco.kelfun("record", "c", "s", "--time", "u32ms", "--plot", "all.svg", "--all", "--unit", "mph",
                 errore="^not drawn, as they never change: Run Number, ")
    testi = banco.testi("all.svg")
    for atteso in ("Wheel Speed mph", "GPS Speed mph", "Oil Pressure bar", "Sats Number", "Position Accuracy m"):
        banco.pretendi(atteso in testi, f"all.svg: no text {atteso!r} in {testi}")
    banco.pretendi("Run Number" not in testi and "Latitude library rule" not in testi,
                   f"all.svg has what never changes, or the latitude beside the track: {testi}")

    banco.kelfun("record", "c", "s", "--time", "u32ms", "--plot", "rpm.svg", "--only", "rpm", errore="^426 records")
    testi = banco.testi("rpm.svg")
    banco.pretendi("Track by speed km/h" not in testi, "rpm.svg has a track without GPS")
    banco.pretendi("lap 2" in testi, f"rpm.svg has no laps: {testi}")

    banco.kelfun("ubx", "lap.ubx", "--plot", "lap.png", errore="^426 solutions")
    banco.pretendi(png(banco, "lap.png")[0] == 1280, f"lap.png is {png(banco, 'lap.png')}")
    banco.kelfun("ubx", "lap.ubx", "--plot", "large.png", "--size", "1600x900", errore="^426 solutions")
    banco.pretendi(png(banco, "large.png") == (1600, 900), f"large.png is {png(banco, 'large.png')}")
    banco.kelfun("ubx", "lap.ubx", "--plot", "lap.pdf", "--size", "960x480", errore="^426 solutions")
    pdf = banco.leggi("lap.pdf")
    banco.pretendi(pdf.startswith(b"%PDF-") and pdf.rstrip().endswith(b"%%EOF"), f"lap.pdf is no PDF: {pdf[:16]!r}")
    banco.kelfun("ubx", "lap.ubx", "--plot", "italian.svg", errore="^426 solutions", ambiente={"LC_ALL": "it_IT.UTF-8"})
    banco.pretendi(banco.leggi("italian.svg") == banco.leggi("lap.svg"), "a decimal comma of the locale changes a picture")
    banco.kelfun("ubx", "-", "--plot", "again.svg", errore="^426 solutions", stdin=banco.leggi("lap.ubx"))
    banco.pretendi("Speed km/h" in banco.testi("again.svg"), "no plot of standard input")
    banco.kelfun("ubx", "lap.ubx", "--plot", "narrow.svg", "--size", "400x300",
                 errore="^no room for the track: a larger --size shows it$")
    banco.kelfun("record", "c", "s", "--time", "u32ms", "--plot", "low.svg", "--size", "1280x200", stato=2,
                 errore="^kelfun record: --size: 200 dots are too low for 6 panels; accepted: a height of [0-9]+ and more$")


def tratti(banco):
    """A part of a recording, and distance in the place of time."""
    banco.kelfun("record", "c", "s", "--time", "u32ms", "--plot", "part.svg", "--from", "0:20", "--to", "40",
                 errore="^426 records")
    testi = banco.testi("part.svg")
    banco.pretendi("0:20" in testi and "0:40" in testi and "0:45" not in testi and "0:15" not in testi,
                   f"part.svg is not of 0:20 to 0:40: {testi}")
    banco.kelfun("record", "c", "s", "--time", "u32ms", "--plot", "way.svg", "--x", "distance", errore="^426 records")
    testi = banco.testi("way.svg")
    banco.pretendi("distance, m" in testi and "1800" in testi and "2300" not in testi,
                   f"way.svg is not of two laps of 1 km: {testi}")
    # The speed is the one that is shown: a fix in the plane has one, of which the device shows nothing.
    in_piano = bytearray(52)
    in_piano[10], in_piano[47] = 2, 3
    struct.pack_into("<3i", in_piano, 12, 637_813_700, 0, 0)  # on the equator
    struct.pack_into("<3i", in_piano, 28, 0, 1000, 0)         # 10 m/s
    banco.scrivi("cp", canale(b"GPS", 0x819A, 9, 0, 52))
    banco.scrivi("sp", bytes(in_piano) * 101)
    banco.kelfun("record", "cp", "sp", "--rate", "1", "--plot", "plane.svg", "--x", "distance", "--all",
                 errore="^101 records")
    testi = banco.testi("plane.svg")
    banco.pretendi("1000" in testi, f"plane.svg is not of 1000 m: {testi}")
    banco.scrivi("c0", canale(b"Temp"))
    banco.scrivi("s0", struct.pack("<2H", 1, 2))
    banco.kelfun("record", "c0", "s0", "--rate", "1", "--plot", "none.svg", "--x", "distance", stato=1,
                 errore="^kelfun record: --x distance takes a speed, and none of the channels is one$")


def giri(banco):
    """Laps over their distance: speeds above, the time that they lose below."""
    banco.kelfun("laps", "c", "s", "--plot", "laps.svg", errore="^kelfun laps: laps from 'Lap packet'$")
    testi = banco.testi("laps.svg")
    for atteso in ("Speed km/h", "Gap to lap 2 s", "distance, m", "Track by speed km/h"):
        banco.pretendi(atteso in testi, f"laps.svg: no text {atteso!r} in {testi}")
    banco.kelfun("laps", "lap.ubx", "--plot", "laps.png", "--lap", "1", "--lap", "2", errore="^kelfun laps: laps from GPS; ")
    banco.pretendi(png(banco, "laps.png")[0] == 1280, f"laps.png is {png(banco, 'laps.png')}")
    banco.kelfun("laps", "c", "s", "--plot", "one.svg", "--lap", "2", errore="^kelfun laps: laps from 'Lap packet'$")
    banco.pretendi(not any("Gap" in testo for testo in banco.testi("one.svg")), "the best lap has a gap to itself")


def sessioni(banco):
    """Recordings joined: each keeps its own time, and nothing is drawn from one to the other."""
    banco.programmi.esegui("kelsim", ["--laps", "1", "--rate", "4", "--seed", "5", "--channels", "c", "--samples", "t", "u.ubx"])
    banco.scrivi("st", banco.leggi("s") + banco.leggi("t"))
    banco.kelfun("record", "c", "st", "--time", "u32ms", "--plot", "joined.svg",
                 errore="^time runs backwards at record 426: 2 sessions, drawn one after the other$")
    testi = banco.testi("joined.svg")
    banco.pretendi("session 2" in testi and testi.count("0:00") == 2 and "2:00" not in testi,
                   f"joined.svg does not count both sessions: {testi}")
    banco.scrivi("lu.ubx", banco.leggi("lap.ubx") + banco.leggi("u.ubx"))
    banco.kelfun("ubx", "lu.ubx", "--plot", "joined.svg",
                 errore="^time runs backwards at record 426: 2 sessions, drawn one after the other$")
    banco.pretendi("session 2" in banco.testi("joined.svg"), "a capture of two sessions does not say so")


def interruzioni(banco):
    """A break in the values is a break in the line: SVG begins a new path, "M", for each piece."""
    banco.scrivi("c1", canale(b"Temp"))
    def quanti(nome):
        percorsi = re.findall(rb"<path stroke='rgb\( *0, +114, 178\)' +d='([^']*)'", banco.leggi(nome))
        return sum(percorso.count(b"M") for percorso in percorsi)

    pezzi = {}
    for nome, mancante in (("whole", 30), ("broken", 0xCFFE)):
        banco.scrivi("s1", struct.pack("<7H", 10, 20, 25, mancante, 40, 50, 60))
        banco.kelfun("record", "c1", "s1", "--rate", "1", "--plot", f"{nome}.svg", errore="^7 records")
        pezzi[nome] = quanti(f"{nome}.svg")
    banco.pretendi(pezzi["whole"] > 0 and pezzi["broken"] == pezzi["whole"] + 1, f"pieces of the line: {pezzi}")
    # The kart loses its fix once: its GPS speed is broken there, its wheel speed is not.
    for nome in ("Wheel Speed", "GPS Speed"):
        banco.kelfun("record", "c", "s", "--time", "u32ms", "--plot", "speed.svg", "--only", nome, errore="^426 records")
        pezzi[nome] = quanti("speed.svg")
    banco.kelfun("ubx", "lap.ubx", "--plot", "speed.svg", errore="^426 solutions")
    pezzi["capture"] = quanti("speed.svg")
    # A capture's satellites are the one line more.
    banco.pretendi(pezzi["Wheel Speed"] > 0 and pezzi["GPS Speed"] == pezzi["capture"] - 1 == pezzi["Wheel Speed"] + 1,
                   f"pieces of the lines: {pezzi}")


PEZZI = ["'", "''", '"', "\\", "\\n", "`", "`touch broken`", "@", "@x", "$(touch broken)", "{/Bold q}", "_a^b", "~", "#", "%s", "%", "|",
         "EOD", "\n!touch broken\n", "'; system 'touch broken' #", '"; system "touch broken', "<b>", "&amp;", "]]>", "-", "(", "[",
         "$N[1]", " ", "\t", "\x1b[31m", "\u00e9", "\u3072", "\U0001f3c1", "\ufffe", "a", "Z", "9"]


def mostrato(nome):
    """What a picture shows of a name."""
    nome = re.sub("[\x00-\x1f\x7f-\x9f]", lambda c: "".join(f"\\x{byte:02X}" for byte in c[0].encode()), nome)
    return re.sub("[\ufffe\uffff]", "?", nome)


def nomi(banco):
    """Names of any characters are shown as they are, and nothing in them is run; nor in the name of a file."""
    caso = random.Random(7)
    lento = int(os.environ.get("KEL_PASSO_ROBUSTEZZA", "1")) > 1
    quanti, canali_a_testa = (4, 10) if lento else (40, 10)
    for giro in range(quanti):
        attesi = []
        canali = b""
        for i in range(canali_a_testa):
            nome = ""
            while len(nome.encode()) < 20:
                pezzo = caso.choice(PEZZI)
                if len((nome + pezzo).encode()) > 33:
                    break
                nome += pezzo
            nome = "n" + nome + "n"  # the file ends a name at its first NUL; blanks at its ends are not looked at here
            attesi.append(mostrato(nome))
            canali += canale(nome.encode(), offset=2 * i)
        file = "s" + mostrato("".join(caso.choice(PEZZI) for _ in range(4))).replace("/", "")
        banco.scrivi("c4", canali)
        banco.scrivi(file, struct.pack(f"<{3 * canali_a_testa}H", *(caso.randrange(100) for _ in range(3 * canali_a_testa))))
        banco.kelfun("record", "c4", "--plot", "names.svg", "--all", "--", file, errore="^3 records")
        testi = banco.testi("names.svg")
        for atteso in attesi:
            banco.pretendi(any(t in (atteso, atteso + " C") or re.fullmatch(re.escape(atteso) + r" \d+ C", t) for t in testi),
                           f"picture {giro} has no {atteso!r} in {testi}")
        banco.pretendi(file in testi, f"picture {giro} has no title {file!r} in {testi}")
        if giro % 8 == 0:
            for altra in ("names.png", "names.pdf"):
                banco.kelfun("record", "c4", "--plot", altra, "--all", "--", file, errore="^3 records")
    banco.pretendi(not os.path.exists(banco.percorso("broken")), "a name was run as a command")


def senza_font(banco):
    """A character that no font has is a question mark: the box that stands for it otherwise hides the picture."""
    if shutil.which("fc-list") is None:
        return
    for nome, ambiente, detto in (("n\U0010fffd", {}, "\U0010fffd"),
                                  ("n\u00e9", {"PATH": banco.percorso("fonts") + ":" + os.environ["PATH"]}, "\u00e9")):
        os.makedirs(banco.percorso("fonts"), exist_ok=True)
        with open(banco.percorso("fonts/fc-list"), "w", encoding="ascii") as f:
            f.write("#!/bin/sh\necho 20-7e 3b1-3c9\necho nothing\n")
        os.chmod(f.name, 0o755)
        banco.scrivi("s5", struct.pack("<3H", 1, 2, 3))
        for quale, suo in (("with", nome), ("without", "n?")):
            banco.scrivi("c5", canale(suo.encode()))
            banco.kelfun("record", "c5", "s5", "--plot", f"{quale}.png", ambiente=ambiente,
                         errore=f"^no font of this machine has {detto}: \\? stands for them$" if quale == "with" else "^3 records")
        banco.pretendi(banco.leggi("with.png") == banco.leggi("without.png"), f"{nome!r} is not drawn as 'n?'")
        banco.scrivi("c5", canale(nome.encode()))
        banco.kelfun("record", "c5", "s5", "--plot", "with.svg", ambiente=ambiente, errore="^3 records")
        banco.pretendi(nome + " C" in banco.testi("with.svg"), f"with.svg has no {nome!r}")


def ostili(banco):
    banco.scrivi("c2", canale(OSTILE))
    banco.scrivi("s2", struct.pack("<3H", 1, 2, 3))
    banco.kelfun("record", "c2", "s2", "--plot", "hostile.svg", errore="^3 records")
    atteso = OSTILE.decode().replace("\n", "\\x0A") + " C"
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
    for parte in (disegni, tratti, giri, sessioni, interruzioni, nomi, senza_font, ostili, guasti):
        parte(banco)
    for difetto in banco.difetti:
        print(difetto)
    print(f"{len(banco.difetti)} faults")
    return 1 if banco.difetti else 0


if __name__ == "__main__":
    sys.exit(main())
