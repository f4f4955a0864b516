"""kelfun record --arrow: the stream read back by programs that share no code with its writer, against NDJSON and texts.

A small reader here goes by the flatbuffers package of Debian. pyarrow, where it is installed, reads the same bytes.
"""

import argparse
import json
import math
import pathlib
import shlex
import struct
import subprocess
import sys
import tempfile

try:
    from flatbuffers import encode, number_types as n, table
except ImportError:
    # Debian's package, also where another Python comes first.
    sys.path.append("/usr/lib/python3/dist-packages")
    try:
        from flatbuffers import encode, number_types as n, table
    except ImportError:
        print("SKIPPED: the stream is read back by the package python3-flatbuffers, which is not installed")
        sys.exit(77)


class Tabella:
    """A table of a flatbuffer, its fields by number."""

    def __init__(self, byte, posto):
        self.t = table.Table(byte, posto)

    def posto(self, campo):
        da = self.t.Offset(4 + 2 * campo)
        return da + self.t.Pos if da else None

    def numero(self, campo, tipo, altrimenti=0):
        posto = self.posto(campo)
        return altrimenti if posto is None else self.t.Get(tipo, posto)

    def testo(self, campo):
        posto = self.posto(campo)
        return None if posto is None else self.t.String(posto).decode()

    def figlia(self, campo):
        return Tabella(self.t.Bytes, self.t.Indirect(self.posto(campo)))

    def lista(self, campo):
        """Where a vector's elements begin, and how many there are."""
        da = self.t.Offset(4 + 2 * campo)
        return (self.t.Vector(da), self.t.VectorLen(da)) if da else (0, 0)

    def figlie(self, campo):
        da, quante = self.lista(campo)
        return [Tabella(self.t.Bytes, self.t.Indirect(da + 4 * i)) for i in range(quante)]


def messaggi(byte):
    """Each message and its body; the stream must end with its end."""
    da = 0
    while True:
        segno, lunga = struct.unpack_from("<II", byte, da)
        assert segno == 0xFFFFFFFF and da % 8 == 0 and lunga % 8 == 0, "messages are aligned"
        da += 8
        if lunga == 0:
            assert da == len(byte), "nothing stands behind the end"
            return
        metadati = bytearray(byte[da:da + lunga])
        testa = Tabella(metadati, encode.Get(n.UOffsetTFlags.packer_type, metadati, 0))
        corpo = testa.numero(3, n.Int64Flags)
        assert testa.numero(0, n.Int16Flags) == 4, "metadata of version 5"
        yield testa, byte[da + lunga:da + lunga + corpo]
        da += lunga + corpo


TIPI = {2: "I", 3: None, 5: "u", 10: "q", 18: "q"}


def leggi(byte):
    """Columns as (name, metadata, values), a missing value None; and how many batches there were."""
    colonne, blocchi = None, 0
    for testa, corpo in messaggi(byte):
        if testa.numero(1, n.Uint8Flags) == 1:
            assert colonne is None, "one schema"
            colonne = []
            for campo in testa.figlia(2).figlie(1):
                tipo = campo.numero(2, n.Uint8Flags)
                forma = TIPI[tipo] or {1: "f", 2: "d"}[campo.figlia(3).numero(0, n.Int16Flags)]
                metadati = {uno.testo(0): uno.testo(1) for uno in campo.figlie(6)}
                colonne.append((campo.testo(0), metadati, [], forma, tipo))
            continue
        blocchi += 1
        blocco = testa.figlia(2)
        righe = blocco.numero(0, n.Int64Flags)
        nodi, quanti_nodi = blocco.lista(1)
        buffer, quanti_buffer = blocco.lista(2)
        assert quanti_nodi == len(colonne)
        tratti = [struct.unpack_from("<qq", blocco.t.Bytes, buffer + 16 * i) for i in range(quanti_buffer)]
        tratti = iter([corpo[da:da + lungo] for da, lungo in tratti])
        for i, (_, _, valori, forma, _) in enumerate(colonne):
            lunga, nulle = struct.unpack_from("<qq", blocco.t.Bytes, nodi + 16 * i)
            assert lunga == righe
            bit = next(tratti)
            validi = [bit[k // 8] >> k % 8 & 1 for k in range(righe)]
            assert validi.count(0) == nulle, "missing values are counted"
            if forma == "u":
                inizi = struct.unpack(f"<{righe + 1}i", next(tratti))
                testi = next(tratti)
                nuovi = [testi[a:b].decode() for a, b in zip(inizi, inizi[1:])]
            else:
                nuovi = struct.unpack(f"<{righe}{forma}", next(tratti))
            valori += [valore if c_e else None for valore, c_e in zip(nuovi, validi)]
        assert next(tratti, None) is None
    return colonne, blocchi


class Prova:
    def __init__(self, argomenti):
        self.davanti = shlex.split(argomenti.emulator)
        self.kelfun = [*self.davanti, argomenti.kelfun]
        self.kelsim = [*self.davanti, argomenti.kelsim]

    def lancia(self, *comando, stato=0):
        fatto = subprocess.run(comando, capture_output=True, check=False)
        assert fatto.returncode == stato, (comando, fatto)
        return fatto.stdout

    def record(self, *opzioni, stato=0):
        return self.lancia(*self.kelfun, "record", *opzioni, stato=stato)


def uguale(valore, atteso):
    if valore is None or atteso is None:
        return valore is None and atteso is None
    return math.isclose(valore, atteso, rel_tol=1e-6, abs_tol=5e-9)


def confronta(prova, file, *opzioni):
    """All columns of numbers, against NDJSON."""
    byte = prova.record(*file, *opzioni, "--arrow", "-")
    colonne, blocchi = leggi(byte)
    righe = [json.loads(riga) for riga in prova.record(*file, *opzioni, "--ndjson").splitlines()]
    nomi = list(righe[0])[2:]  # behind the table and the number of the record
    assert len(nomi) == len(colonne), (nomi, [colonna[0] for colonna in colonne])
    numeri = 0
    for chiave, (nome, metadati, valori, forma, tipo) in zip(nomi, colonne):
        attesi = [riga[chiave] for riga in righe]
        assert len(valori) == len(attesi), nome
        assert {"unit", "long_name"} <= set(metadati), metadati
        if tipo == 18:
            assert nome == "time"
            valori = [valore / 1e6 for valore in valori]
        elif forma in "uq":
            assert [v is None for v in valori] == [a is None for a in attesi], nome
            continue
        numeri += 1
        diversi = [(i, v, a) for i, (v, a) in enumerate(zip(valori, attesi)) if not uguale(v, a)]
        # NDJSON rounds the numbers of a solution, and shows no heading of 360 degrees.
        grossi = [uno for uno in diversi if None in uno or
                  min(abs(uno[1] - uno[2]), abs(abs(uno[1] - uno[2]) - 360)) > 0.0051]
        assert not grossi, (nome, grossi[:3])
    assert numeri > 0
    return byte, colonne, blocchi


def main():
    lettore = argparse.ArgumentParser()
    lettore.add_argument("--kelfun", required=True)
    lettore.add_argument("--kelsim", required=True)
    lettore.add_argument("--emulator", default="")
    prova = Prova(lettore.parse_args())
    with tempfile.TemporaryDirectory() as cartella:
        canali, campioni, uscita = (str(pathlib.Path(cartella, nome)) for nome in ("ch", "sa", "out.arrows"))
        prova.lancia(*prova.kelsim, "--channels", canali, "--samples", campioni, "--laps", "60", "--rate", "25")
        file = (canali, campioni)
        byte, colonne, blocchi = confronta(prova, file)
        assert blocchi > 1, "a long recording has several batches"
        assert {"Engine RPM", "Latitude", "time"} <= {colonna[0] for colonna in colonne}
        confronta(prova, file, "--only", "RPM", "--only", "GPS Speed")
        confronta(prova, file, "--unit", "mph")
        confronta(prova, file, "--device")
        testi, _ = leggi(prova.record(*file, "--text", "--arrow", "-"))
        assert all(forma == "u" for _, _, _, forma, tipo in testi if tipo != 18)
        prova.record(*file, "--arrow", uscita)
        assert pathlib.Path(uscita).read_bytes() == byte, "a file has what a pipe has"
        prova.record(*file, "--arrow", cartella + "/no/file", stato=1)
        prova.record(*file, "--arrow", uscita, "--csv", stato=2)
        pathlib.Path(campioni).write_bytes(b"")
        vuote, blocchi = leggi(prova.record(*file, "--time", "u32ms", "--arrow", "-", stato=1))
        assert blocchi == 0 and len(vuote) == len(colonne), "no rows: the columns all the same"
        try:
            import pyarrow.ipc
        except ImportError:
            print("NOT TRIED: pyarrow is not installed; the stream was read by the small reader alone")
            return 0
        tabella = pyarrow.ipc.open_stream(byte).read_all()
        for i, (nome, metadati, valori, _, tipo) in enumerate(colonne):
            campo = tabella.schema.field(i)
            assert campo.name == nome and {k.decode(): v.decode() for k, v in campo.metadata.items()} == metadati
            if tipo not in (10, 18):
                assert tabella.column(i).to_pylist() == valori, nome
        print(f"pyarrow {pyarrow.__version__} reads the same {tabella.num_rows} rows")
    return 0


if __name__ == "__main__":
    sys.exit(main())
