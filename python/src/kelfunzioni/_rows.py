"""Rows that are held in memory: a table of another logger's columns with one time base."""

from __future__ import annotations

from collections.abc import Sequence
from dataclasses import dataclass, replace
from typing import TYPE_CHECKING, Any

import numpy as np
import numpy.typing as npt

from . import _arrow
from ._column import FORMATS, Column
from ._errors import KelError, NotFoundError, RecordingError
from ._table import ColumnInfo, Table, no_column
from ._units import convert

if TYPE_CHECKING:
    from typing_extensions import Self

__all__ = ["Held", "Rows"]


@dataclass
class Held:
    """A column as it was read: its values, which of them are there, and the unit it is shown in."""

    info: ColumnInfo
    values: npt.NDArray[Any]
    valid: npt.NDArray[np.bool_]
    shown: str

    def numbers(self, rows: slice) -> npt.NDArray[Any]:
        """Values of some rows in the unit that is shown."""
        values = self.values[rows]
        if self.shown == self.info.unit or self.info.function is None:
            return values
        return convert(values, self.info.function, self.info.unit, self.shown)


class Rows(Table):
    """Rows of columns that were read at the same times.

    It has all that a `Table` has, and holds its values in memory.
    """

    def __init__(
        self,
        time: npt.NDArray[np.float64] | None,
        held: Sequence[Held],
        first: int = 0,
        count: int | None = None,
        as_texts: bool = False,
    ) -> None:
        self._time, self._held = time, list(held)
        whole = len(time) if time is not None else max((len(h.values) for h in held), default=0)
        self._first, self._count = first, whole if count is None else count
        self._as_texts = as_texts

    @property
    def columns(self) -> tuple[ColumnInfo, ...]:
        """What the columns are, in their order."""
        return tuple(replace(each.info, unit=each.shown) for each in self._held)

    @property
    def has_time(self) -> bool:
        """Whether the rows have times."""
        return self._time is not None

    @property
    def time(self) -> npt.NDArray[np.float64]:
        """Times of the rows, seconds from the start of the recording.

        Raises
        ------
        RecordingError
            The rows have no time.
        """
        if self._time is None:
            raise RecordingError("the rows have no time; accepted: a rate when it is opened")
        return self._time[self._span()]

    def _span(self) -> slice:
        return slice(self._first, self._first + self._count)

    def _rest(self) -> None:
        pass

    def _rows(self, first: int, count: int, as_texts: bool | None = None) -> Self:
        texts = self._as_texts if as_texts is None else as_texts
        return type(self)(self._time, self._held, first, count, texts)

    def between(self, start: float, stop: float) -> Table:
        """Rows from the first not before `start` to the last before `stop`, seconds.

        Raises
        ------
        RecordingError
            There is no such row, or the rows have no time.
        """
        for time in (start, stop):
            if not isinstance(time, (int, float, np.number)):
                raise TypeError(f"a time is {type(time).__name__}; accepted: seconds")
        found = np.searchsorted(self.time, [start, stop])
        low, high = (int(each) for each in found)
        if low >= high:
            raise RecordingError(f"there are no rows from {start} s to {stop} s")
        return self._rows(self._first + low, high - low)

    def read(self, names: Sequence[str] | None = None) -> dict[str, Column]:
        """Columns by name; None for all that have values.

        Raises
        ------
        NotFoundError
            There is no such column. The text says the nearest.
        """
        chosen = self._named(names)
        if names is None:
            chosen = [each for each in chosen if each.info.kind != "text"]
        return {each.info.name: self._column(each) for each in chosen}

    def _column(self, held: Held) -> Column:
        if held.info.kind == "text":
            raise KelError(f"'{held.info.name}' has texts alone; accepted: texts()")
        values = np.ascontiguousarray(held.numbers(self._span()))
        column = Column(
            values,
            np.packbits(held.valid[self._span()], bitorder="little"),
            name=held.info.name,
            long_name=held.info.long_name,
            unit=held.shown,
            function=held.info.function,
        )
        # The memory is that of all tables of these rows.
        column._shared = np.shares_memory(values, held.values)
        return column

    def texts(self, name: str) -> npt.NDArray[np.str_]:
        """Texts of a column, with its decimals.

        Raises
        ------
        NotFoundError
            There is no such column. The text says the nearest.
        """
        [held] = self._named([name])
        values, valid = held.numbers(self._span()), held.valid[self._span()]
        if held.info.kind == "text":
            found = values.astype(str)
        elif values.dtype.kind == "f":
            decimals = max(held.info.decimals, 0)
            found = np.array([f"{each:.{decimals}f}" for each in values.tolist()], str)
        else:
            found = values.astype(str)
        shown: npt.NDArray[np.str_] = np.where(valid, found, "") if len(found) else found
        return shown

    def table_of(self, name: str) -> Table:
        """Give the table that a column is in: this one.

        Raises
        ------
        NotFoundError
            There is no such column. The text says the nearest.
        """
        self._named([name])
        return self

    def _named(self, names: Sequence[str] | None) -> list[Held]:
        if names is None:
            return self._held
        if isinstance(names, str):
            raise TypeError("names of columns are one str; accepted: a list of them")
        known = {each.info.name: each for each in self._held}
        for name in names:
            if not isinstance(name, str):
                raise TypeError(f"a column is {type(name).__name__}; accepted: its name")
            if name not in known:
                raise NotFoundError(no_column(name, list(known)))
        return [known[name] for name in names]

    def set_unit(self, name: str, unit: str) -> None:
        """Show a column in another unit of its function, here and in all rows of the recording.

        Raises
        ------
        KelError
            There is no such column, or it has no such unit. The text says the nearest.
        """
        [held] = self._named([name])
        if not isinstance(unit, str):
            raise TypeError(f"a unit is {type(unit).__name__}; accepted: str")
        function = held.info.function
        if function is None or held.info.unit not in function.units:
            if unit == held.info.unit:
                return
            accepted = f"{held.info.unit!r} alone" if held.info.unit else "none, it has no unit"
            raise KelError(f"{unit!r} is no unit of '{name}'; accepted: {accepted}")
        held.shown = function.unit(unit)

    def as_texts(self) -> Table:
        """Make a table of the same rows whose Arrow columns are their texts."""
        return self._rows(self._first, self._count, as_texts=True)

    def __arrow_c_stream__(self, requested_schema: object = None) -> object:
        """Arrow's stream of the rows, in one batch over the memory that holds them.

        As of a `Recording`, the time is a duration in microseconds.
        """
        fields: list[tuple[_arrow.Description, _arrow.Buffers]] = []
        if self._time is not None:
            about = {"unit": "us", "long_name": "time"}
            microseconds = np.round(self.time * 1e6).astype(np.int64)
            fields.append((("tDu", "time", about), _numbers(microseconds, None)))
        for held in self._held:
            name = held.info.name
            if self._as_texts or held.info.kind == "text":
                about = Column.metadata_of(held.shown, held.info.function, held.info.long_name)
                texts = _texts(self.texts(name), held.valid[self._span()])
                fields.append((("u", name, about), texts))
            else:
                column = self._column(held)
                form = FORMATS[str(column._raw.dtype)]
                buffers = _numbers(column._raw, column._bitmap)
                fields.append(((form, name, column.metadata), buffers))
        return _arrow.rows(self._count, fields)

    def __repr__(self) -> str:
        return f"{type(self).__name__}({len(self)} rows, {len(self.columns)} columns)"


def _address(array: npt.NDArray[Any]) -> int:
    address: int = array.__array_interface__["data"][0]
    return address


def _numbers(values: npt.NDArray[Any], bitmap: npt.NDArray[np.uint8] | None) -> _arrow.Buffers:
    bits = None if bitmap is None else _address(bitmap)
    return _arrow.Buffers(len(values), bits, _address(values), None, (values, bitmap))


def _texts(texts: npt.NDArray[np.str_], valid: npt.NDArray[np.bool_]) -> _arrow.Buffers:
    raw = [each.encode("utf-8", "replace") for each in texts.tolist()]
    ends = np.zeros(len(raw) + 1, np.int32)
    np.cumsum([len(each) for each in raw], out=ends[1:])
    joined = np.frombuffer(b"".join(raw) or b"\0", np.uint8)
    bitmap = np.packbits(valid, bitorder="little")
    owner = (ends, joined, bitmap)
    return _arrow.Buffers(len(raw), _address(bitmap), _address(ends), _address(joined), owner)
