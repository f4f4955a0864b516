"""One column of values."""

from __future__ import annotations

import threading
from typing import TYPE_CHECKING, Any

import numpy as np
import numpy.typing as npt

from . import _arrow

if TYPE_CHECKING:
    from ._function import Function

__all__ = ["Column"]

FORMATS = {"float32": "f", "float64": "g", "uint32": "I", "datetime64[us]": "tsu:UTC"}


class Column:
    """Values of one channel, and which of them are missing.

    A column is made by a `Converter` and by recordings. It goes into `numpy.asarray`, and as it is
    into everything that reads Arrow: ``pyarrow.array(column)``, ``polars.Series(column)``.

    Attributes
    ----------
    name, long_name : str
        Of the channel, and of its function.
    unit : str
        Unit of the values; ``""`` for none.
    function : Function or None
        What it measures; None for what has no function.
    """

    def __init__(
        self,
        raw: npt.NDArray[Any],
        bitmap: npt.NDArray[np.uint8],
        *,
        name: str,
        long_name: str,
        unit: str,
        function: Function | None,
        shape: tuple[int, ...] | None = None,
    ) -> None:
        self._raw, self._bitmap = raw, bitmap
        self._shape = raw.shape if shape is None else shape
        self._shared = False
        self._values: npt.NDArray[Any] | None = None
        self._valid: npt.NDArray[np.bool_] | None = None
        self._lock = threading.Lock()
        self.name, self.long_name, self.unit, self.function = name, long_name, unit, function

    @property
    def values(self) -> npt.NDArray[Any]:
        """The values, of the samples' shape: float32, or of GPS solutions float64.

        Missing ones are NaN, of times NaT, and of counters (uint32) 0: see `valid`.
        """
        with self._lock:
            if self._values is None:
                self._values = self._with_gaps().reshape(self._shape)
            return self._values

    def _with_gaps(self) -> npt.NDArray[Any]:
        if self._raw.dtype.kind == "u":
            return self._raw
        gaps = _gaps(self._bitmap, len(self._raw))
        if not len(gaps):
            return self._raw
        # Under a null of Arrow any number may stand, but nobody may see it change.
        values = self._raw.copy() if self._shared else self._raw
        values[gaps] = np.datetime64("NaT") if values.dtype.kind == "M" else np.nan
        return values

    def _bits(self) -> npt.NDArray[np.bool_]:
        if self._valid is None:
            bits = np.unpackbits(self._bitmap, count=len(self._raw), bitorder="little")
            self._valid = bits.view(np.bool_)
        return self._valid

    @property
    def valid(self) -> npt.NDArray[np.bool_]:
        """Which values are there, of the samples' shape."""
        with self._lock:
            return self._bits().reshape(self._shape)

    @property
    def metadata(self) -> dict[str, str]:
        """Unit, identifier and long name, as the field's metadata in Arrow."""
        return self.metadata_of(self.unit, self.function, self.long_name)

    @staticmethod
    def metadata_of(unit: str, function: Function | None, long_name: str) -> dict[str, str]:
        """Metadata of a field with this unit, function and long name."""
        identifier = f"0x{function.identifier:08X}" if function is not None else ""
        return {"unit": unit, "identifier": identifier, "long_name": long_name}

    def __len__(self) -> int:
        return self._shape[0] if self._shape else 0

    def __array__(self, dtype: Any = None, copy: bool | None = None) -> npt.NDArray[Any]:
        if copy or (dtype is not None and np.dtype(dtype) != self._raw.dtype):
            if copy is False:
                raise ValueError(f"the column is of {self._raw.dtype}; another type needs a copy")
            return np.array(self.values, dtype=dtype)
        return self.values

    def __arrow_c_schema__(self) -> object:
        """Arrow's schema of the column."""
        return _arrow.schema(FORMATS[str(self._raw.dtype)], self.name, self.metadata)

    def __arrow_c_array__(self, requested_schema: object = None) -> tuple[object, object]:
        """Arrow's array over the memory of the column: missing values are nulls."""
        with self._lock:
            self._shared = self._shared or self._values is None
            bitmap, raw = self._bitmap, self._raw
        addresses = (each.__array_interface__["data"][0] for each in (bitmap, raw))
        bits, values = addresses
        return self.__arrow_c_schema__(), _arrow.array(len(raw), bits, values, (bitmap, raw))

    def __repr__(self) -> str:
        unit = f", unit={self.unit!r}" if self.unit else ""
        return f"Column({self.name!r}, {len(self)} values{unit})"


def _gaps(bitmap: npt.NDArray[np.uint8], count: int) -> npt.NDArray[np.intp]:
    """Places of the zeros among the first bits: only bytes that have one are looked at."""
    some = np.flatnonzero(bitmap != 0xFF)
    bits = np.unpackbits(bitmap[some], bitorder="little").reshape(-1, 8)
    which, bit = np.nonzero(bits == 0)
    places: npt.NDArray[np.intp] = some[which] * 8 + bit
    found: npt.NDArray[np.intp] = places[: np.searchsorted(places, count)]
    return found
