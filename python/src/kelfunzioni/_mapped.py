"""A recording of another logger, whose columns have several time bases."""

from __future__ import annotations

from collections.abc import Iterator, Sequence
from dataclasses import replace
from typing import Any, overload

import numpy as np
import numpy.typing as npt

from ._column import Column
from ._errors import NotFoundError, RecordingError
from ._rows import Held, Rows
from ._table import ColumnInfo, Table, no_column

__all__ = ["MappedRecording"]


class MappedRecording(Table):
    """A recording of another logger: columns by name, and a table for each time base.

    Columns that were sampled at the same times are rows of one `Table`; `tables` are all of them.
    Nothing is put onto a common time: a union of the times would be mostly gaps. A recording with
    one time base is a table itself. One with several has no rows of its own: what needs rows takes
    one of `tables`, or `on`, which says what happens between samples.

    Examples
    --------
    >>> from kelfunzioni import Recording, mapping
    >>> Recording("kart.channels", "kart.samples").write("logger.csv")
    >>> recording = mapping.read("logger.csv")
    >>> recording
    MappedRecording(30 columns, 1 time base)
    >>> recording["Wheel Speed"].unit
    'km/h'
    """

    def __init__(
        self,
        parts: Sequence[tuple[str, npt.NDArray[np.float64] | None, list[Held]]],
        start: float = 0.0,
    ) -> None:
        self._parts = {name: Rows(time, held) for name, time, held in parts}
        if len(self._parts) != len(parts):  # names of bases that are the same
            self._parts = {f"{i} {p[0]}": Rows(p[1], p[2]) for i, p in enumerate(parts)}
        self.start = start
        """What the file's clock showed at the recording's time 0, seconds."""
        self.database: Any = None

    @property
    def bases(self) -> dict[str, Table]:
        """The table of each time base, by its name: of a message, a group or a sentence."""
        return dict(self._parts)

    @property
    def tables(self) -> tuple[Table, ...]:
        """A table for each time base."""
        return tuple(self._parts.values())

    @property
    def columns(self) -> tuple[ColumnInfo, ...]:
        """What the columns are, base by base."""
        return tuple(info for part in self._parts.values() for info in part.columns)

    @property
    def unrecognised(self) -> tuple[str, ...]:
        """Names of the columns that are no function."""
        return tuple(each.name for each in self.columns if each.function is None)

    def table_of(self, name: str) -> Table:
        """Give the table that a column is in.

        Raises
        ------
        NotFoundError
            There is no such column. The text says the nearest.
        """
        return self._part_of(name)

    def _part_of(self, name: str) -> Rows:
        if not isinstance(name, str):
            raise TypeError(f"a column is {type(name).__name__}; accepted: its name")
        for part in self._parts.values():
            if any(held.info.name == name for held in part._held):
                return part
        raise NotFoundError(no_column(name, list(self.names)))

    def on(self, base: str, names: Sequence[str] | None = None) -> Table:
        """Give columns at the times of one: each with its last sample at or before that time.

        Parameters
        ----------
        base : str
            A column, whose time base the rows have.
        names : sequence of str, optional
            Other columns; None for all.

        Returns
        -------
        Table
            Rows of that time base. Before the first sample of a column it is missing.

        Raises
        ------
        NotFoundError
            There is no such column.
        RecordingError
            The columns have no times.
        """
        rows = self._part_of(base)
        wanted = [*rows.names, *self.names] if names is None else [base, *names]
        time, held = rows.time, []
        for name in dict.fromkeys(wanted):
            part = self._part_of(name)
            [each] = part._named([name])
            held.append(each if part is rows else _held_on(each, part.time, time))
        return Rows(time, held)

    def _only(self) -> Rows:
        if len(self._parts) != 1:
            names = ", ".join(list(self._parts)[:6])
            raise RecordingError(
                f"the recording has {len(self._parts)} time bases ({names}); accepted: one of "
                f"its tables, or on() with the name of a column"
            )
        return next(iter(self._parts.values()))

    @overload
    def __getitem__(self, which: str) -> Column: ...
    @overload
    def __getitem__(self, which: slice) -> Table: ...

    def __getitem__(self, which: str | slice) -> Column | Table:
        if isinstance(which, str):
            return self._part_of(which)[which]
        return self._only()[which]

    def read(self, names: Sequence[str] | None = None) -> dict[str, Column]:
        """Columns by name, each as long as its time base; None for all that have values.

        Raises
        ------
        NotFoundError
            There is no such column. The text says the nearest.
        """
        if names is None:
            return {k: v for part in self._parts.values() for k, v in part.read().items()}
        if isinstance(names, str):
            raise TypeError("names of columns are one str; accepted: a list of them")
        return {name: self._part_of(name)[name] for name in names}

    def texts(self, name: str) -> npt.NDArray[np.str_]:
        """Texts of a column, with its decimals."""
        return self._part_of(name).texts(name)

    def set_unit(self, name: str, unit: str) -> None:
        """Show a column in another unit of its function.

        Raises
        ------
        KelError
            There is no such column, or it has no such unit. The text says the nearest.
        """
        self._part_of(name).set_unit(name, unit)

    def between(self, start: float, stop: float) -> Table:
        """Rows from the first not before `start` to the last before `stop`, seconds.

        Raises
        ------
        RecordingError
            There are several time bases, no such row, or no time.
        """
        return self._only().between(start, stop)

    def batches(self, rows: int = 1 << 16) -> Iterator[Table]:
        """The same rows in pieces."""
        return self._only().batches(rows)

    @property
    def first_row(self) -> int:
        """The first row, 0."""
        return 0

    @property
    def has_time(self) -> bool:
        """Whether the rows have times."""
        return all(part.has_time for part in self._parts.values())

    @property
    def time(self) -> npt.NDArray[np.float64]:
        """Times of the rows, seconds from the start of the recording.

        Raises
        ------
        RecordingError
            There are several time bases, or none.
        """
        return self._only().time

    def __len__(self) -> int:
        return len(self._only())

    def __bool__(self) -> bool:
        return True

    def as_texts(self) -> Table:
        """Make a table of the same rows whose Arrow columns are their texts."""
        return self._only().as_texts()

    def __arrow_c_stream__(self, requested_schema: object = None) -> object:
        """Arrow's stream of the rows of a recording with one time base.

        Raises
        ------
        RecordingError
            There are several: take `tables`, or `on`.
        """
        return self._only().__arrow_c_stream__(requested_schema)

    def __repr__(self) -> str:
        count = len(self._parts)
        bases = f"{count} time base{'s' if count != 1 else ''}"
        return f"MappedRecording({len(self.columns)} columns, {bases})"


def _held_on(held: Held, time: npt.NDArray[np.float64], wanted: npt.NDArray[np.float64]) -> Held:
    """The last sample at or before each of the wanted times."""
    place = np.searchsorted(time, wanted, side="right") - 1
    there = place >= 0
    place = np.maximum(place, 0)
    if not len(time):
        values = np.full(len(wanted), np.nan if held.values.dtype.kind == "f" else 0)
        return replace(held, values=values.astype(held.values.dtype), valid=there)
    return replace(held, values=held.values[place], valid=held.valid[place] & there)
