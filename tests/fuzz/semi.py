#!/usr/bin/env python3
"""Writes the inputs that the fuzzer starts from, made of values that are known to mean something.

    semi.py           writes the folders of corpus/ anew
    semi.py --check   compares them with what would be written; exit status 1 at a difference

Each function below packs what its target takes apart: see the files of the same names.
"""

import pathlib
import re
import struct
import sys

QUI = pathlib.Path(__file__).resolve().parent
CORPUS = QUI / "corpus"
GOLDEN = QUI.parent / "golden"
TABELLE = QUI.parent / "model" / "tables"

FUNZIONI_CONVERTITORE = 12  # known functions of a channel; the number after them announces 32 bits
FUNZIONI_CANALI = 12


def u8(valore):
    return struct.pack("<B", valore)


def u16(valore):
    return struct.pack("<H", valore)


def u32(valore):
    return struct.pack("<I", valore & 0xFFFFFFFF)


def testo(valore):
    byte = valore.encode("latin-1")
    return u8(len(byte)) + byte


def tabella(nome):
    for riga in (TABELLE / f"{nome}.tsv").read_text().splitlines():
        if riga and not riga.startswith("#"):
            yield [campo.strip('"') for campo in riga.split("\t")]


def righe_golden(nome):
    """The lines of a file of known values, a list of texts each."""
    for riga in (GOLDEN / f"{nome}.txt").read_text().splitlines():
        if riga.strip() and not riga.startswith("#"):
            yield [campo.strip() for campo in re.split(r" +\| ", riga)]


def byte_di(campione):
    byte = b""
    for pezzo in campione.split():
        if pezzo == "-":
            continue
        cifre, _, volte = pezzo.partition("*")
        byte += bytes([int(cifre, 16)]) * int(volte or 1)
    return byte


def convertitori():
    """One sample of every sample type and every subfield that is read somewhere among the known values."""
    visti = set()
    for file in ("campioni_numeri", "campioni_testo", "campioni_tempi", "campioni_testi", "campioni_sottocampi"):
        for canale, funzione, tipo, _, larghezza, decimali, auto, formato, campione, *_ in righe_golden(file):
            canale, funzione, tipo = int(canale, 16), int(funzione, 16), int(tipo)
            if (canale, funzione, tipo) in visti or len(visti) == 48:
                continue
            visti.add((canale, funzione, tipo))
            seme = u8(FUNZIONI_CONVERTITORE) + u32(canale) + u8(tipo)
            seme += u8(0) if canale == funzione else u8(1) + u32(funzione)
            seme += u8(0) + u8(min(int(larghezza) if larghezza.isdigit() else 8, 40)) + u8(min(int(decimali), 4))
            seme += u8(int(auto)) + u8(int(formato)) + u8(0) + u8(0) + u8(0) + u16(0) + byte_di(campione)
            yield f"type-{tipo:02}-{canale:x}-{funzione:x}", seme
    # A field far wider than any text, with decimals and automatic decimals: of a speed in two bytes.
    for larghezza in (0x7FFFFFFF, 0x80000000, 0xFFFFFFFF):
        for auto in (0, 1):
            seme = u8(FUNZIONI_CONVERTITORE) + u32(0x10) + u8(1) + u8(0) + u8(0) + u8(250) + u32(larghezza) + u8(2)
            seme += u8(auto) + u8(0) + u8(0) + u8(0) + u8(0) + u16(0) + struct.pack("<h", -1234)
            yield f"width-{larghezza:x}-{'auto' if auto else 'fixed'}", seme


def tempi():
    for i, (scritto, *_) in enumerate(righe_golden("tempi_lettura")):
        if i < 24:
            yield f"text-{i:02}", scritto.strip()[1:-1].encode("latin-1")
    yield "line", b" 12 - 1:23.456"


def ricerche():
    grandezze = [riga for riga in tabella("grandezze") if riga[0] != "chiave"]
    udm = [riga for riga in tabella("udm") if riga[0] != "tabella"]
    for i, riga in enumerate(grandezze[::6]):
        unita = [u[2] for u in udm if u[0] == riga[6]]
        yield f"unit-{i:02}", u32(int(riga[0], 16)) + testo(unita[0]) + testo(unita[-1])
    for i, riga in enumerate([r for r in tabella("funz_kel") if r[0] != "riga"][::5]):
        yield f"legacy-{i:02}", u32(int(riga[4], 16)) + testo(riga[3])
    for i, riga in enumerate([r for r in tabella("camera") if r[0] != "tabella"][::8]):
        yield f"camera-{i:02}", u32(int(riga[2], 16)) + testo(riga[8])
    for nome in ("FID_PHI_SPEED", "FID_OBJ_OIL", "FID_POS_ENGINE"):
        yield nome.lower(), u32(0x10) + testo(nome)


def canali():
    def scrivi(posto, quale):
        return u8(0) + u8(posto) + u8(quale)

    def fid(valore):
        return u8(FUNZIONI_CANALI) + u32(valore)

    libero, ultimo, indice, somma = u8(1), u8(2), u8(5), u8(6)
    intestazione = u8(4) + u8(3)  # four records, room for three
    yield "hand-out-and-back", intestazione + libero * 4 + somma + ultimo * 4 + indice + u8(0)
    yield "find-packets", (intestazione + libero * 3 + scrivi(0, 4) + bytes(112) + scrivi(1, 0) + bytes(112) +
                           u8(3) + u8(10) + u8(3) + u8(8) + u8(4) + u8(9) + u8(5))
    yield "names", intestazione + libero * 2 + indice + u8(1) + indice + u8(2) + indice + u8(3)
    yield "any-function", intestazione + libero + u8(3) + fid(0x10) + u8(7) + fid(0x48611)
    yield "no-array", u8(0) + libero + ultimo + somma + indice + u8(0)


def messaggio(classe, numero, dati):
    corpo = bytes([classe, numero]) + u16(len(dati)) + dati
    a = b = 0
    for byte in corpo:
        a = (a + byte) & 0xFF
        b = (b + a) & 0xFF
    return b"\xb5\x62" + corpo + bytes([a, b])


def soluzione(fix=3, satelliti=8):
    """A NAV-SOL payload: near Imola, at some 50 m/s."""
    byte = bytearray(52)
    struct.pack_into("<I", byte, 0, 345600000)
    byte[10] = fix
    struct.pack_into("<iii", byte, 12, 445500000, 93000000, 444600000)
    struct.pack_into("<iii", byte, 28, 3000, -2500, 3100)
    byte[47] = satelliti
    return bytes(byte)


def ubx():
    buono = messaggio(1, 6, soluzione())
    yield "one", u8(255) + buono
    yield "byte-by-byte", u8(0) + buono + messaggio(1, 6, soluzione(0, 0))
    yield "empty-message", u8(10) + messaggio(5, 1, b"")
    yield "among-text", u8(100) + b"$GPGGA,123519*47\r\n" + buono + b"\xb5\xb5\x62" + buono
    yield "bad-checksum", u8(255) + buono[:-1] + b"\x00" + buono
    yield "cut", u8(255) + buono[:30]
    yield "message-in-a-cut-one", u8(255) + b"\xb5\x62\x01\x06\xff\x00" + buono


def canale(fid, tipo, offset, nome):
    byte = nome.encode("latin-1")
    return u32(fid) + u8(tipo) + u8(offset) + u8(0) + u8(len(byte)) + byte


def record():
    def insieme(*canali_):
        return u8(len(canali_)) + b"".join(canali_) + u8(0)

    mostra = u8(0) * 3  # values, no unit, no choice
    yield "two-numbers", (u8(0) + insieme(canale(0x10, 6, 0, "Speed"), canale(0xF, 4, 4, "RPM")) + mostra + u8(0) +
                          u8(255) + bytes(range(60)))
    yield "packed-gps", u8(1) + insieme(canale(0x19A, 8, 0, "GPS")) + mostra + u8(1) + u8(7) + bytes(4) * 2 + soluzione() * 2
    yield "texts", u8(1) + insieme(canale(0x9A, 7, 0, "")) + u8(1) + u8(0) * 2 + u8(2) + u8(63) + bytes(range(80))
    yield "packet-in-a-byte", u8(1) + insieme(canale(0x19A, 2, 0, "GPS")) + mostra + u8(0) + u8(255) + bytes(8)
    yield "unit", (u8(1) + insieme(canale(0x10, 6, 0, "Speed")) + u8(0) + u8(3) + testo("mph") + u8(0) + u8(0) + u8(9) +
                   bytes(range(16)))


def registrazioni():
    def insieme(*canali_):
        return u8(len(canali_)) + b"".join(canali_) + u8(0)

    scelte = u8(0) * 5  # framing found, as declared, WGS 84, no packets, no rate
    unita = u8(0)
    buono = messaggio(1, 6, soluzione())
    yield "stream", u8(0) + u8(255) + buono + b"$GPGGA" + messaggio(1, 6, soluzione(0, 0)) + buono[:30]
    yield "stream-in-pieces", u8(2) + u8(6) + messaggio(5, 1, b"") + buono * 2
    righe = b"".join(u32(40 * i) + u32(i) + u16(1000 + i) for i in range(40))
    numeri = insieme(canale(0x10, 0, 0, "Speed"), canale(0xF, 4, 4, "RPM"))
    yield "records", u8(5) + u8(255) + numeri + scelte + unita + righe
    yield "records-as-texts", u8(3) + u8(11) + numeri + scelte + u8(3) + testo("mph") + righe
    gps = b"".join(u32(100 * i) + u32(100 * i) + soluzione(3 * (i % 2)) for i in range(8))
    yield "gps", u8(6) + u8(99) + insieme(canale(0x19A, 8, 0, "GPS")) + u8(0) * 3 + u8(1) + u8(0) + unita + gps
    yield "no-channels", u8(7) + u8(0) + u8(0) * 2


PAROLE = re.compile(r'"([^"]*)"')


def comando():
    sorgente = (QUI / "comando.cpp").read_text()
    parole = PAROLE.findall(sorgente[sorgente.index("PAROLE = {"):sorgente.index("};", sorgente.index("PAROLE = {"))])

    def riga(*argomenti, ingresso=b""):
        seme = u8(len(argomenti))
        for argomento in argomenti:
            seme += u8(parole.index(argomento)) if argomento in parole else u8(95) + testo(argomento)
        return seme + ingresso

    yield "help", riga("--help")
    yield "fid", riga("fid", "0x10")
    yield "fid-json", riga("fid", "REF_SPEED", "--json")
    yield "fid-fields", riga("fid", "--quantity", "FID_PHI_SPEED", "--position", "FID_POS_WHEEL")
    yield "find", riga("find", "wheel", "speed")
    yield "functions", riga("functions", "--csv")
    yield "units", riga("units", "0x10")
    yield "convert", riga("convert", "0x10", "100", "--from", "km/h", "--to", "mph")
    yield "decode", riga("decode", "0x10", "00 00 C8 42", "--type", "6")
    yield "match", riga("match", "0xA940B", "0x9A")
    yield "camera", riga("camera")
    yield "lap", riga("lap", "1:23.456")
    yield "ubx", riga("ubx", "-", "--ndjson", ingresso=messaggio(1, 6, soluzione()))
    yield "record", riga("record", "-", "c", "--packed")
    yield "laps", riga("laps", "-", "--line", "45,10,90", "--split", "350", "--plot", "-",
                       ingresso=messaggio(1, 6, soluzione()) * 2)
    yield "complete", riga("__complete", "fid", "--q")
    yield "wrong", riga("units", "--width", "-1", "nan")


def semi():
    for funzione in (convertitori, tempi, ricerche, canali, ubx, record, registrazioni, comando):
        for nome, byte in funzione():
            yield CORPUS / funzione.__name__ / nome, byte


def main():
    attesi = dict(semi())
    presenti = {file for file in CORPUS.glob("*/*") if file.is_file()}
    if sys.argv[1:] == ["--check"]:
        diversi = sorted(str(file.relative_to(QUI)) for file in presenti | set(attesi)
                         if file not in presenti or attesi.get(file) != file.read_bytes())
        for file in diversi:
            print(f"{file} is not what {pathlib.Path(__file__).name} writes")
        if diversi:
            print("tests/fuzz/semi.py writes them anew")
        return 1 if diversi else 0
    if sys.argv[1:]:
        print(__doc__.strip(), file=sys.stderr)
        return 2
    for file in presenti - set(attesi):
        file.unlink()
    for file, byte in attesi.items():
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_bytes(byte)
    return 0


if __name__ == "__main__":
    sys.exit(main())
