"""Arrow's capsules over memory of Python.

The protocol: https://arrow.apache.org/docs/format/CDataInterface/PyCapsuleInterface.html
"""

from __future__ import annotations

import atexit
import ctypes as c
import itertools
import struct
import threading
from collections.abc import Callable
from dataclasses import dataclass
from typing import Any

from . import _library as lib

_kept: dict[int, object] = {}
_marks = itertools.count(1)
_start = threading.Lock()
_started = False


def forget(mark: int) -> None:
    """Drop the memory of a mark, if there still is any."""
    _kept.pop(mark, None)


_forget = c.CFUNCTYPE(None, c.c_size_t)(forget)


def keep(owner: object) -> int:
    """Keep memory until the consumer of its mark releases it."""
    _begin()
    mark = next(_marks)
    _kept[mark] = owner
    return mark


def _begin() -> None:
    global _started
    with _start:
        if not _started:
            pointer = c.cast(_api("PyCapsule_GetPointer"), c.c_void_p)
            lib.arrow_start(c.cast(_forget, c.c_void_p), pointer)
            # Who releases memory after Python's end must not call it any more.
            atexit.register(lib.arrow_start, None, None)
            _started = True


def _api(name: str) -> Any:
    try:
        return getattr(c.pythonapi, name)
    except AttributeError:
        raise NotImplementedError(
            "this Python has no C functions for capsules; accepted: CPython"
        ) from None


def _capsule(place: int | None, name: bytes, destructor: c.c_void_p) -> object:
    if not place:
        raise MemoryError("out of memory")
    prototype = c.PYFUNCTYPE(c.py_object, c.c_void_p, c.c_char_p, c.c_void_p)
    return prototype(("PyCapsule_New", c.pythonapi))(place, name, destructor)


# A capsule keeps the pointer to its name, not the name.
_SCHEMA, _ARRAY, _STREAM = b"arrow_schema", b"arrow_array", b"arrow_array_stream"


def schema(format: str, name: str, metadata: dict[str, str]) -> object:
    """Make the capsule of a field."""
    return _capsule(_field(format, name, metadata), _SCHEMA, lib.destroy_schema)


def _field(format: str, name: str, metadata: dict[str, str]) -> int:
    _begin()
    packed = struct.pack("=i", len(metadata))
    for pair in metadata.items():
        for text in pair:
            raw = text.encode("utf-8", "replace")
            packed += struct.pack("=i", len(raw)) + raw
    name = name.replace("\0", "\N{REPLACEMENT CHARACTER}")
    place: int = lib.arrow_schema(
        format.encode(), name.encode("utf-8", "replace"), packed, len(packed)
    )
    return place


def array(length: int, valid: int | None, values: int, owner: object) -> object:
    """Make the capsule of a column of numbers: addresses of its bitmap and of its values."""
    return _capsule(_column(Buffers(length, valid, values, None, owner)), _ARRAY, lib.destroy_array)


@dataclass(frozen=True)
class Buffers:
    """Addresses of a column's bitmap, of its numbers or the ends of its texts, and of texts."""

    length: int
    valid: int | None
    values: int
    texts: int | None
    owner: object


def _column(of: Buffers) -> int:
    mark = keep(of.owner)
    place: int = lib.arrow_array(
        of.length, 0 if of.valid is None else -1, of.valid, of.values, of.texts, mark
    )
    return place


Description = tuple[str, str, dict[str, str]]


def rows(length: int, columns: list[tuple[Description, Buffers]]) -> object:
    """Make the capsule of a stream with one batch: a field's format, name and metadata each."""
    schemas = (c.c_void_p * len(columns))(*(_field(*field) for field, _ in columns))
    arrays = (c.c_void_p * len(columns))(*(_column(buffers) for _, buffers in columns))
    place = lib.arrow_rows(length, schemas, arrays, len(columns))
    return _capsule(place, _STREAM, lib.destroy_stream)


def stream(make: Callable[[int], int | None], owner: object) -> object:
    """Make the capsule of a stream, which `make` makes for a mark."""
    mark = keep(owner)
    try:
        place = make(mark)
    except BaseException:
        forget(mark)
        raise
    return _capsule(place, _STREAM, lib.destroy_stream)
