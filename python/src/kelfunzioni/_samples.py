"""Where the samples of an array lie, for a library that reads memory."""

from __future__ import annotations

from dataclasses import dataclass
from typing import Any

import numpy as np
import numpy.typing as npt

from ._errors import KelError
from ._sampletype import SampleType

Bytes = npt.NDArray[np.uint8]


@dataclass(frozen=True)
class Samples:
    """Samples in memory: `count` of them, `step` bytes apart from `address` on.

    `backwards` tells that the last of the caller's comes first, because steps are not negative.
    `owner` keeps the memory.
    """

    address: int
    step: int
    count: int
    shape: tuple[int, ...]
    backwards: bool
    owner: Any


def as_bytes(data: Any, what: str) -> Bytes:
    """Bytes of a buffer, without a copy.

    Raises
    ------
    TypeError
        It is no buffer.
    KelError
        Its memory has gaps.
    """
    if isinstance(data, np.ndarray):
        if not data.flags.c_contiguous:
            raise KelError(f"{what} are an array with gaps; accepted: a contiguous one")
        return data.reshape(-1).view(np.uint8)
    try:
        return np.frombuffer(data, np.uint8)
    except (TypeError, ValueError, BufferError):
        raise TypeError(
            f"{what} are {type(data).__name__}; accepted: bytes, an array or another buffer"
        ) from None


def locate(data: Any, kind: SampleType, offset: int | None) -> Samples:
    """Where the samples lie.

    Parameters
    ----------
    data : array or buffer
        Samples of the type's own dtype, or bytes: of samples that lie side by side, or a
        two-dimensional array with a row for each record. Where records are read, also an array of
        records (a structured dtype).
    kind : SampleType
        Format of a sample.
    offset : int or None
        Where the sample lies in a record; None where there are samples alone.

    Raises
    ------
    TypeError
        The data are no buffer, or of another type than samples are.
    KelError
        They are no whole samples, or records are too short.
    """
    need = kind.size + (offset or 0)
    if not isinstance(data, np.ndarray):
        data = as_bytes(data, "samples")
    if data.dtype == np.uint8 and (data.ndim == 2 or kind.size != 1 or offset is not None):
        return _of_bytes(data, kind, offset, need)
    wanted = kind.dtype
    if offset is not None:
        if data.dtype.itemsize < need:
            raise KelError(_short(data.dtype.itemsize, need))
    elif data.dtype.itemsize != kind.size or data.dtype.hasobject:
        raise TypeError(_wrong(data, kind, wanted))
    elif wanted.kind != "V" and data.dtype.kind != "V" and data.dtype != wanted:
        raise TypeError(_wrong(data, kind, wanted))
    if data.dtype.hasobject:
        raise TypeError(_wrong(data, kind, wanted))
    return _of_array(data)


def _wrong(data: npt.NDArray[Any], kind: SampleType, wanted: np.dtype[np.generic]) -> str:
    return (
        f"samples of type {kind.name.lower()} are an array of {data.dtype.str}; "
        f"accepted: {wanted.str}, or bytes"
    )


def _short(length: int, need: int) -> str:
    return f"records of {length} bytes are too short; accepted: {need} bytes at least"


def _of_bytes(data: Bytes, kind: SampleType, offset: int | None, need: int) -> Samples:
    if data.ndim == 2:
        if data.shape[1] < need or (offset is None and data.shape[1] != need):
            raise KelError(_short(data.shape[1], need))
        if data.shape[1] > 1 and data.strides[1] != 1:
            data = np.ascontiguousarray(data)
        return _rows(data, data.shape[0], data.strides[0], (data.shape[0],))
    if data.ndim != 1 or offset is not None:
        raise KelError(
            f"bytes of records have {data.ndim} dimensions; accepted: 2, a row for each record"
        )
    if len(data) % kind.size:
        raise KelError(
            f"{len(data)} bytes are no whole samples; accepted: a multiple of {kind.size}"
        )
    if len(data) and data.strides[0] != 1:
        data = np.ascontiguousarray(data)
    count = len(data) // kind.size
    return _rows(data, count, kind.size, (count,))


def _of_array(data: npt.NDArray[Any]) -> Samples:
    flat = data.reshape(-1)  # a view wherever one step leads through all of it
    return _rows(flat, len(flat), flat.strides[0], data.shape)


def _rows(data: npt.NDArray[Any], count: int, step: int, shape: tuple[int, ...]) -> Samples:
    address: int = data.__array_interface__["data"][0]
    backwards = step < 0
    if backwards:
        address += step * max(count - 1, 0)
    return Samples(address, abs(step), count, shape, backwards, data)
