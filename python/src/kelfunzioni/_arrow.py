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
    _begin()
    packed = struct.pack("=i", len(metadata))
    for pair in metadata.items():
        for text in pair:
            raw = text.encode()
            packed += struct.pack("=i", len(raw)) + raw
    place = lib.arrow_schema(format.encode(), name.encode(), packed, len(packed))
    return _capsule(place, _SCHEMA, lib.destroy_schema)


def array(length: int, valid: int | None, values: int, owner: object) -> object:
    """Make the capsule of a column of numbers: addresses of its bitmap and of its values."""
    mark = keep(owner)
    place = lib.arrow_array(length, 0 if valid is None else -1, valid, values, mark)
    return _capsule(place, _ARRAY, lib.destroy_array)


def stream(make: Callable[[int], int | None], owner: object) -> object:
    """Make the capsule of a stream, which `make` makes for a mark."""
    mark = keep(owner)
    try:
        place = make(mark)
    except BaseException:
        forget(mark)
        raise
    return _capsule(place, _STREAM, lib.destroy_stream)
