"""Random calls and the digest of what they give, as tests/digest of the library makes both.

The arguments of a call are drawn from the operation's name and the call's number by the same
generator; the tables that it draws from are read from the package's catalogue. The digests are
those that ``tests/digest/values.txt`` keeps.
"""

from __future__ import annotations

import ctypes as c
import struct
from collections.abc import Iterable, Iterator
from functools import cached_property
from typing import Any

import numpy as np

import kelfunzioni as kel
from kelfunzioni import _library as lib
from kelfunzioni._records import QuantityRow

_ALL = 2**64 - 1
_STEP = 0x9E3779B97F4A7C15
_END = 32  # quantity of the row that ends a table
PACKETS = (0x1A, 0x9A, 0x809A, 0x1009A, 0x11A, 0x19A, 0x819A, 0x1019A, 0x21A)


class Variant(c.Structure):
    """`s_variante_posizione`."""

    _fields_ = [
        ("posizione", c.c_uint32),
        ("breve", c.c_char_p),
        ("testo", c.c_char_p),
        ("num_inout", c.c_int32),
        ("inout", c.c_void_p),
        ("primo", c.c_int32),
        ("ultimo", c.c_int32),
        ("num_lati", c.c_int32),
        ("lati", c.c_void_p),
    ]


class Tables:
    """The library's tables as the package has them, each with its end row where it has one."""

    @cached_property
    def _catalogue(self) -> kel.Catalogue:
        return kel.Catalogue()

    def _legacy(self, table: str) -> list[tuple[int, str]]:
        rows = self._catalogue["legacy_identifiers"]
        found = [(int(r["identifier"], 16), r["legacy_id"]) for r in rows if r["table"] == table]
        return [*found, (_END | 58 << 7, "")]

    @cached_property
    def legacy(self) -> list[list[tuple[int, str]]]:
        return [self._legacy(table) for table in ("basic", "extended", "legacy")]

    @cached_property
    def codes(self) -> list[str]:
        return [row["unit"] for row in self._catalogue["unit_codes"]]

    def words(self, field: str, what: str) -> list[str]:
        return [row[what] or "" for row in self._catalogue["fields"][field]]

    @cached_property
    def keys(self) -> list[int]:
        """Keys of the quantities in the order of the rows, which is that of their addresses."""
        objects = [each for q in self._catalogue["quantities"] for each in q["objects"]]
        rows = [lib.get_units(int(each["identifier"], 16)) for each in objects]
        first = min(c.addressof(row.contents) for row in rows)
        place = c.cast(first, c.POINTER(QuantityRow))
        return [place[i].chiave for i in range(len(rows) + 1)]

    @cached_property
    def texts(self) -> list[list[str]]:
        """What the texts of arguments are made of."""
        fields = ("quantity", "object", "position")
        return [
            *([text for _, text in table] for table in self.legacy),
            self.codes,
            *(self.words(field, "xml") for field in fields),
        ]


TABLES = Tables()


def _numbers(state: int) -> Iterator[int]:
    while True:
        state = state + _STEP & _ALL
        z = (state ^ state >> 30) * 0xBF58476D1CE4E5B9 & _ALL
        z = (z ^ z >> 27) * 0x94D049BB133111EB & _ALL
        yield z ^ z >> 31


def _many_numbers(state: int) -> Iterator[int]:
    block = np.arange(1, 8193, dtype=np.uint64) * np.uint64(_STEP)
    with np.errstate(over="ignore"):
        while True:
            z = block + np.uint64(state)
            state = int(z[-1])
            z = (z ^ z >> np.uint64(30)) * np.uint64(0xBF58476D1CE4E5B9)
            z = (z ^ z >> np.uint64(27)) * np.uint64(0x94D049BB133111EB)
            yield from (z ^ z >> np.uint64(31)).tolist()


class Case:
    """The arguments of one call."""

    def __init__(self, operation: str, call: int, many: bool = False) -> None:
        seed = 0xCBF29CE484222325
        for byte in operation.encode():
            seed = (seed ^ byte) * 0x100000001B3 & _ALL
        seed = next(_numbers(seed + call & _ALL))
        self.u64 = (_many_numbers if many else _numbers)(seed).__next__

    def u32(self) -> int:
        return self.u64() >> 32

    def below(self, limit: int) -> int:
        return (self.u64() >> 32) * limit >> 32

    def one_in(self, many: int) -> bool:
        return (self.u64() >> 32) * many >> 32 == 0

    def sizes(self) -> int:
        every = self.u32()
        return every >> self.below(32)

    def float_bits(self) -> int:
        if self.one_in(4):
            return self.u32()
        rest = self.u32() & 0x807FFFFF
        return rest | 107 + self.below(50) << 23

    def real(self) -> float:
        found: float = struct.unpack("<f", struct.pack("<I", self.float_bits()))[0]
        return found

    def packet(self) -> int:
        return PACKETS[self.below(len(PACKETS))]

    def subfield(self) -> int:
        table = None
        while not table:
            details = 1 + self.below(3)
            table = lib.subfields(details, self.below(3))
        rows = 0
        while table[rows].fid & 0x7F != _END:
            rows += 1
        return int(table[self.below(rows + 1)].fid)

    def fid(self) -> int:
        which = self.below(8)
        if which == 0:
            return self.u32()
        if which < 4:
            table = TABLES.legacy[which - 1]
            return table[self.below(len(table))][0]
        if which == 4:
            return self.packet()
        if which == 5:
            return self.subfield()
        key = TABLES.keys[self.below(len(TABLES.keys))]
        sides = self.u32() & 0x3FF00000 if self.one_in(2) else 0
        return key & 0x7FFF | (self.below(32) << 15 if self.one_in(2) else 0) | sides

    def sample(self, size: int) -> bytes:
        how = self.below(6)
        if how == 0:
            found = bytearray(b"\xff\x7f" * size)[:size]
        elif how == 1:
            found = bytearray(size)
            one = self.u64() >> 56
            found[self.below(size)] = one
        else:
            found = bytearray(self.u64() >> 56 for _ in range(size))
        if how >= 4:
            for i in range(0, size - 3, 4):
                if how == 4:
                    number = self.float_bits()
                else:
                    number = -self.sizes() & 0xFFFFFFFF if self.one_in(2) else self.sizes()
                found[i : i + 4] = number.to_bytes(4, "little")
        return bytes(found)

    def text(self, room: int) -> bytes:
        if self.one_in(4):
            return bytes(1 + self.below(255) for _ in range(self.below(room)))
        table = TABLES.texts[self.below(7)]
        found = bytearray(table[self.below(len(table))].encode()[: room - 1])
        if found and self.one_in(4):
            other = ord(" ") + self.below(95)
            found[self.below(len(found))] = other
        return bytes(found)

    def unit(self, fid: int, room: int = 24) -> bytes:
        row = lib.get_units(self.fid() if self.one_in(4) else fid)
        if not row or row[0].num_udm < 1 or self.one_in(8):
            return self.text(room)
        found: bytes = row[0].udm[self.below(row[0].num_udm)].dati.udm
        return found[: room - 1]

    def time(self, room: int = 20) -> bytes:
        letters = b"0123456789012345678901234567890123456789:::...  +-\t\nxabe"
        count = self.below(room)
        found = bytearray(letters[self.below(len(letters))] for _ in range(count))
        if count >= 8 and self.one_in(2):
            found[1], found[4] = ord(":"), ord(".")
        return bytes(found)


class Digest:
    """128 bits of results: two lanes, each multiplied by a constant of its own."""

    def __init__(self) -> None:
        self.high, self.low = 0x27D4EB2F165667C5, 0x165667B19E3779F9

    def number(self, value: int) -> None:
        z = (self.high ^ value & _ALL) * 0x9E3779B185EBCA87 & _ALL
        self.high = z ^ z >> 29
        z = (self.low + value) * 0xC2B2AE3D27D4EB4F & _ALL
        self.low = z ^ z >> 29

    def numbers(self, values: Iterable[int]) -> None:
        for value in values:
            self.number(value)

    def real(self, value: float) -> None:
        bits = struct.unpack("<I", struct.pack("<f", value))[0] if value == value else 0x7FC00000
        self.number(bits)

    def text(self, text: bytes | str) -> None:
        raw = text.encode() if isinstance(text, str) else text
        self.number(len(raw))
        for i in range(0, len(raw), 8):
            self.number(int.from_bytes(raw[i : i + 8], "little"))

    def pointer(self, text: bytes | None) -> None:
        """A text of C's, null or not."""
        self.number(0 if text is None else 1)
        if text is not None:
            self.text(text)

    def texts(self, texts: Any) -> None:
        self.number(len(texts))
        for text in texts:
            self.text(text)

    def unit_data(self, data: Any) -> None:
        self.number(1)
        self.pointer(data.udm)
        self.real(data.offset)
        self.real(data.gain)
        self.number(data.reciproco)

    def quantity(self, row: Any) -> None:
        self.number(1 if row else 0)
        if not row:
            return
        row = row[0]
        self.number(row.chiave)
        self.pointer(row.breve)
        self.pointer(row.testo)
        self.number(row.num_udm)
        for unit in row.udm[: row.num_udm]:
            self.unit_data(unit.dati)
            self.numbers((unit.decimali_default, unit.decimali_max, unit.decimali_min))
        self.number(row.num_varianti)
        variants = c.cast(row.varianti, c.POINTER(Variant))
        for i in range(row.num_varianti):
            self.pointer(variants[i].testo)

    def subfields(self, table: Any) -> None:
        """All rows of a table of subfields, the end row included."""
        if not table:
            self.number(0)
        i = 0
        while table:
            row = table[i]
            self.numbers((1, row.fid, row.offset, row.pos_bit, row.num_bit, row.maschera))
            known = (row.valore, row.valore_reciproco, row.conv_testo)
            self.numbers((row.tipo_campione, sum(1 << i for i in range(3) if known[i])))
            self.pointer(row.breve)
            self.pointer(row.testo)
            if row.fid & 0x7F == _END:
                break
            i += 1

    def __str__(self) -> str:
        return f"{self.high:016x}{self.low:016x}"


def of_words(words: np.ndarray[Any, np.dtype[np.uint64]]) -> list[tuple[int, int]]:
    """The digests of as many calls as there are rows, which all gave as many numbers, at once."""
    start = Digest()
    high = np.full(len(words), start.high, np.uint64)
    low = np.full(len(words), start.low, np.uint64)
    far, one, other = np.uint64(29), np.uint64(0x9E3779B185EBCA87), np.uint64(0xC2B2AE3D27D4EB4F)
    for column in np.ascontiguousarray(words.T):
        high = (high ^ column) * one
        high ^= high >> far
        low = (low + column) * other
        low ^= low >> far
    return list(zip(high.tolist(), low.tolist(), strict=True))
