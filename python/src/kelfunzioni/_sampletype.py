"""The formats of one sample."""

from __future__ import annotations

import operator
from enum import IntEnum
from typing import SupportsIndex

import numpy as np

from . import _library as lib
from ._errors import KelError, nearest

__all__ = ["SampleType", "SampleTypeLike", "as_sample_type"]


class SampleType(IntEnum):
    """The format of one sample (``KEL_TIPO_...``). Samples are little-endian.

    Examples
    --------
    >>> SampleType.INT16.size, SampleType.INT16.dtype
    (2, dtype('int16'))
    """

    INT32 = 0
    INT16 = 1
    UINT8_PLAIN = 2
    UINT32 = 3
    UINT16 = 4
    UINT8 = 5
    FLOAT32 = 6
    LAP_2G = 7
    GPS = 8
    NAVSOL = 9
    DATE_TIME = 10
    GEAR = 11
    LAP_TIME = 12
    BITS = 13
    NONE = 14
    TEXT6 = 15
    TEXT30 = 16
    LAP_1G = 17
    SATELLITES = 18
    BYTES8 = 19
    FLOAT16 = 20
    COORDINATE = 21
    PACKET_TIME = 22
    NONE_2 = 23
    TIME_DIFFERENCE = 24

    @property
    def size(self) -> int:
        """Bytes of one sample (``kelFunGetSamplSize``); 0 for the types without a sample."""
        return int(lib.sample_size(self.value))

    @property
    def dtype(self) -> np.dtype[np.generic]:
        """Numpy's type of one sample; bytes (void) for packets."""
        kind = _KINDS.get(self)
        return np.dtype(f"<{kind}{self.size}" if kind else f"V{self.size}")


_KINDS = {
    SampleType.INT32: "i",
    SampleType.INT16: "i",
    SampleType.UINT8_PLAIN: "u",
    SampleType.UINT32: "u",
    SampleType.UINT16: "u",
    SampleType.UINT8: "u",
    SampleType.FLOAT32: "f",
    SampleType.GEAR: "i",
    SampleType.LAP_TIME: "i",
    SampleType.BITS: "u",
    SampleType.FLOAT16: "f",
    SampleType.COORDINATE: "i",
    SampleType.TIME_DIFFERENCE: "i",
}

SampleTypeLike = SampleType | SupportsIndex | str | np.dtype[np.generic]


def as_sample_type(what: SampleTypeLike) -> SampleType:
    """Read a sample type: a member, its number, its name, or numpy's type of plain numbers.

    Raises
    ------
    KelError
        There is no such type. The text says the nearest.
    """
    names = {each.name.lower().replace("_", "-"): each for each in SampleType}
    if isinstance(what, np.dtype):
        what = what.name
    if isinstance(what, str):
        word = what.lower().replace("_", "-")
        if word in names:
            return names[word]
        raise KelError(
            f"there is no sample type '{what}'; {nearest(word, names)}accepted: {', '.join(names)}"
        )
    try:
        return SampleType(operator.index(what))
    except TypeError:
        raise TypeError(
            f"a sample type is {type(what).__name__}; accepted: a SampleType, its name or number"
        ) from None
    except ValueError:
        raise KelError(f"there is no sample type {what}; accepted: 0 to {len(names) - 1}") from None
