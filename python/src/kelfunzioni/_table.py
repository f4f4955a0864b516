"""Rows of a recording, a column for each channel."""

from __future__ import annotations

import ctypes as c
import operator
import os
from collections.abc import Iterator, Sequence
from dataclasses import dataclass
from typing import TYPE_CHECKING, Any, overload

import numpy as np
import numpy.typing as npt

from . import _arrow
from . import _library as lib
from ._answer import warn
from ._column import Column
from ._errors import KelError, NotFoundError, RecordingError, nearest
from ._function import Function
from ._handle import Handle, checked, number, text_of
from ._records import Description, Reading
from ._texts import decoded

if TYPE_CHECKING:
    import pandas
    import polars
    import pyarrow

__all__ = ["ColumnInfo", "Table"]

_KINDS = ("float32", "float64", "uint32", "datetime64[us]", "text")
_TEXT = 32
_MANY = 1 << 20


@dataclass(frozen=True)
class ColumnInfo:
    """What a column is.

    Attributes
    ----------
    name : str
        Of the channel or the subfield; no two columns have the same.
    long_name : str
        The catalogue's name of its function; ``""`` for none.
    unit : str
        Unit of its values; ``""`` for none.
    function : Function or None
        What it measures; None for what has no function.
    kind : str
        numpy's name of the type of its values; ``"text"`` for a packet.
    decimals : int
        Digits after the point that its unit is shown with.
    """

    name: str
    long_name: str
    unit: str
    function: Function | None
    kind: str
    decimals: int


class Table:
    """Rows of a recording. `Recording` and `Capture` are tables of all their rows.

    ``table["Wheel Speed"]`` is a `Column`; ``table[100:200]`` are rows of it, without a copy; its
    length is the number of rows. A table goes as it is into everything that reads Arrow:
    ``pyarrow.table(table)``, ``polars.DataFrame(table)``, a query of DuckDB.
    """

    def __init__(self, handle: Handle, first: int, count: int, as_texts: bool = False) -> None:
        self._handle, self._first, self._count = handle, first, count
        self._as_texts = as_texts

    @property
    def columns(self) -> tuple[ColumnInfo, ...]:
        """What the columns are, in their order."""
        with self._handle.open() as reg:
            return tuple(_describe(reg, i) for i in range(lib.rec_columns(reg)))

    @property
    def names(self) -> tuple[str, ...]:
        """Names of the columns."""
        return tuple(each.name for each in self.columns)

    @property
    def units(self) -> dict[str, str]:
        """Unit of each column."""
        return {each.name: each.unit for each in self.columns}

    @property
    def first_row(self) -> int:
        """The first of these rows, counted from the start of the recording."""
        return self._first

    def __len__(self) -> int:
        return self._count

    @property
    def has_time(self) -> bool:
        """Whether the rows have times."""
        with self._handle.open() as reg:
            probe = np.empty(0, np.float64)
            return bool(lib.rec_times(reg, 0, 0, _address(probe)))

    @property
    def time(self) -> npt.NDArray[np.float64]:
        """Times of the rows, seconds: by stamps, by the rate, or by the receiver's time of week.

        Raises
        ------
        RecordingError
            The rows have no time.
        """
        seconds = np.empty(self._count, np.float64)
        with self._handle.open() as reg:
            if not lib.rec_times(reg, self._first, self._count, _address(seconds)):
                raise RecordingError("the rows have no time; accepted: a rate when it is opened")
        return seconds

    @overload
    def __getitem__(self, which: str) -> Column: ...
    @overload
    def __getitem__(self, which: slice) -> Table: ...

    def __getitem__(self, which: str | slice) -> Column | Table:
        if isinstance(which, str):
            return self.read([which])[which]
        if isinstance(which, slice):
            start, stop, step = which.indices(self._count)
            if step != 1:
                raise KelError(f"rows by a step of {step}; accepted: 1")
            return self._rows(self._first + start, max(stop - start, 0))
        raise TypeError(
            f"a column is {type(which).__name__}; accepted: its name, or a slice of rows"
        )

    def _rows(self, first: int, count: int) -> Table:
        return Table(self._handle, first, count, self._as_texts)

    @property
    def tables(self) -> tuple[Table, ...]:
        """The table itself: the rows of a recording have one time base.

        A `MappedRecording` has a table for each of its time bases, so what goes through `tables`
        takes both.
        """
        return (self,)

    def table_of(self, name: str) -> Table:
        """Give the table that a column is in: this one.

        Raises
        ------
        NotFoundError
            There is no such column. The text says the nearest.
        """
        self._chosen([name])
        return self

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
        first, count = number(), number()
        with self._handle.open() as reg:
            found = lib.rec_span(reg, float(start), float(stop), first, count)
        low = max(first.value, self._first)
        high = min(first.value + count.value, self._first + self._count)
        if not found or low >= high:
            self.time  # noqa: B018  the other reason has an error of its own
            raise RecordingError(f"there are no rows from {start} s to {stop} s")
        return Table(self._handle, low, high - low, self._as_texts)

    def batches(self, rows: int = 1 << 16) -> Iterator[Table]:
        """The same rows in pieces, for recordings that do not fit into memory."""
        if operator.index(rows) < 1:
            raise KelError(f"pieces of {rows} rows; accepted: 1 at least")
        for start in range(0, self._count, rows):
            yield self[start : start + rows]
            self._rest()

    def _rest(self) -> None:
        self._handle.rest()

    def read(self, names: Sequence[str] | None = None) -> dict[str, Column]:
        """Read columns, in one pass over the samples.

        Parameters
        ----------
        names : sequence of str, optional
            Names of columns; None for all that have values (packets have texts alone).

        Returns
        -------
        dict of str to Column
            In the order of `names`.

        Raises
        ------
        NotFoundError
            There is no such column. The text says the nearest.
        """
        infos = self._chosen(names)
        if names is None:
            infos = [each for each in infos if each[1].kind != "text"]
        raws = _arrays([info.kind for _, info in infos], self._count)
        bitmaps = _arrays(["uint8"] * len(infos), (self._count + 7) // 8)
        readings = (Reading * len(infos))()
        for reading, (place, info), raw, bitmap in zip(readings, infos, raws, bitmaps, strict=True):
            if info.kind == "text":
                raise KelError(
                    f"'{info.name}' is a packet, which has texts alone; accepted: texts()"
                )
            reading.colonna, reading.valori = place, _address(raw)
            reading.validi = _address(bitmap)
        self._fill(readings)
        return {
            info.name: Column(
                raw,
                bitmap,
                name=info.name,
                long_name=info.long_name,
                unit=info.unit,
                function=info.function,
            )
            for (_, info), raw, bitmap in zip(infos, raws, bitmaps, strict=True)
        }

    def texts(self, name: str) -> npt.NDArray[np.str_]:
        """Texts of a column, as a display shows them.

        Raises
        ------
        NotFoundError
            There is no such column. The text says the nearest.
        """
        [(place, _)] = self._chosen([name])
        raw = np.zeros(self._count, f"S{_TEXT}")
        readings = (Reading * 1)(Reading(colonna=place, testi=_address(raw)))
        self._fill(readings)
        return decoded(raw)

    def _fill(self, readings: c.Array[Reading]) -> None:
        with self._handle.open() as reg:
            if not lib.rec_read(reg, self._first, self._count, readings, len(readings)):
                raise MemoryError("out of memory")

    def _chosen(self, names: Sequence[str] | None) -> list[tuple[int, ColumnInfo]]:
        columns = self.columns
        if names is None:
            return list(enumerate(columns))
        if isinstance(names, str):
            raise TypeError("names of columns are one str; accepted: a list of them")
        places = {each.name: i for i, each in enumerate(columns)}
        for name in names:
            if not isinstance(name, str):
                raise TypeError(f"a column is {type(name).__name__}; accepted: its name")
            if name not in places:
                raise NotFoundError(no_column(name, list(places)))
        return [(places[name], columns[places[name]]) for name in names]

    def set_unit(self, name: str, unit: str) -> None:
        """Show a column in another unit of its function, here and in all rows of the recording.

        Raises
        ------
        KelError
            There is no such column, or it has no such unit. The text says the nearest.
        """
        [(place, info)] = self._chosen([name])
        if not isinstance(unit, str):
            raise TypeError(f"a unit is {type(unit).__name__}; accepted: str")
        if info.function is not None and info.function.units:
            unit = info.function.unit(unit)
            warn(lib.py_unit_warning, info.function.identifier, unit.encode())
        with self._handle.open() as reg:
            if "\0" in unit or not lib.rec_unit(reg, place, unit.encode("utf-8", "replace")):
                accepted = f"{info.unit!r} alone" if info.unit else "none, it has no unit"
                raise KelError(f"{unit!r} is no unit of '{name}'; accepted: {accepted}")

    def as_texts(self) -> Table:
        """Make a table of the same rows whose Arrow columns are the texts of a display."""
        return Table(self._handle, self._first, self._count, as_texts=True)

    def __arrow_c_stream__(self, requested_schema: object = None) -> object:
        """Arrow's stream of the rows, in batches of 65536, decoded as they are asked for."""
        with self._handle.open() as reg:
            files = [np.frombuffer(each, np.uint8) for each in self._handle.files]
            # The larger is the samples'.
            memory = max(files, key=len, default=None)
            file = (None, 0) if memory is None else (_address(memory), len(memory))

            def make(mark: int) -> int:
                place: int = checked(
                    lambda error: lib.arrow_stream(
                        reg, self._first, self._count, self._as_texts, *file, mark, error
                    )
                )
                return place

            return _arrow.stream(make, self._handle.owners)

    def to_numpy(self) -> dict[str, npt.NDArray[Any]]:
        """All columns that have values as arrays; ``"time"`` first where the rows have times."""
        found: dict[str, npt.NDArray[Any]] = {"time": self.time} if self.has_time else {}
        for name, column in self.read().items():
            found.setdefault(name, column.values)
        return found

    def to_arrow(self) -> pyarrow.Table:
        """Make a table of pyarrow (extra ``arrow``)."""
        import pyarrow

        return pyarrow.table(self)

    def to_polars(self) -> polars.DataFrame:
        """Make a frame of polars (extra ``polars``)."""
        import polars

        return polars.DataFrame(self)

    def to_pandas(self) -> pandas.DataFrame:
        """Make a frame of pandas (extra ``pandas``).

        The index is the time in seconds where rows have times; ``attrs`` holds ``"units"``,
        ``"identifiers"`` and ``"long_names"`` by column.
        """
        import pandas

        columns = self.read()
        index = pandas.Index(self.time, name="time", copy=False) if self.has_time else None
        frame = pandas.DataFrame(
            {name: column.values for name, column in columns.items()}, index=index, copy=False
        )
        for what, key in (
            ("unit", "units"),
            ("identifier", "identifiers"),
            ("long_name", "long_names"),
        ):
            frame.attrs[key] = {name: column.metadata[what] for name, column in columns.items()}
        return frame

    def write(
        self, path: str | os.PathLike[str], format: str | None = None, *, version: str = "4.10"
    ) -> None:
        """Write the rows as a file of another program.

        Parameters
        ----------
        path : path
            The file to write.
        format : {"csv", "parquet", "h5", "mat", "mf4", "gpx"}, optional
            None: what the name of the file ends with. ``csv`` has a row of names and a row of
            units; ``parquet`` (extra ``arrow``) is compressed with zstd; ``h5`` and ``mat`` (extra
            ``mat``) have a group or a struct for each column; ``mf4`` (extra ``mdf``) is MDF, with
            a channel group for each time base, and needs times; ``gpx`` is the track.
        version : {"4.10", "4.11"}
            Of MDF.

        Raises
        ------
        KelError
            There is no such format; for ``gpx`` no position, for ``mf4`` no time. Only ``mf4``
            takes several time bases.
        OSError
            The file cannot be written.

        Examples
        --------
        >>> from pathlib import Path
        >>> from kelfunzioni import Capture
        >>> Capture("kart.ubx").write("kart.csv")
        >>> Path("kart.csv").read_text()[:26]
        'time,Time of Week,UTC,Fix,'
        """
        from ._export import write

        write(self, path, format, version)

    def __repr__(self) -> str:
        if self._handle.closed:
            return f"{type(self).__name__}(closed)"
        return f"{type(self).__name__}({self._count} rows, {len(self.columns)} columns)"


def _describe(reg: int, place: int) -> ColumnInfo:
    what = Description()
    lib.rec_describe(reg, place, what)
    return ColumnInfo(
        text_of(what.nome),
        text_of(what.lungo),
        text_of(what.udm),
        Function(what.fid) if what.fid else None,
        _KINDS[what.valori],
        what.decimali,
    )


_LINE = 64


def _arrays(kinds: Sequence[str], count: int) -> list[npt.NDArray[Any]]:
    """Arrays of these types in one piece of memory: large pieces have large pages.

    Arrays of their own would be a page fault for each 4 KB.
    """
    types = [np.dtype(kind if kind != "text" else np.uint8) for kind in kinds]
    # Each begins at a cache line, and not at the same place of a page as the one before.
    steps = [(each.itemsize * count // _LINE + 2) * _LINE for each in types]
    memory = np.empty(sum(steps) + _LINE, np.uint8)
    place = -_address(memory) % _LINE
    found: list[npt.NDArray[Any]] = []
    for each, step in zip(types, steps, strict=True):
        found.append(memory[place : place + each.itemsize * count].view(each))
        place += step
    return found


def _address(array: npt.NDArray[Any]) -> int:
    address: int = array.__array_interface__["data"][0]
    return address


def no_column(name: str, names: list[str]) -> str:
    shown = ", ".join(names[:8]) + (f" and {len(names) - 8} more" if len(names) > 8 else "")
    return f"there is no column '{name}'; {nearest(name, names)}accepted: {shown or 'none'}"
