"""Recordings of other loggers: their columns become functions of the catalogue by a mapping.

CSV needs nothing more; MDF needs the extra ``mdf``, CAN logs and NMEA the extra ``can``.

>>> from kelfunzioni import Recording, mapping
>>> Recording("kart.channels", "kart.samples").write("logger.csv")  # as another logger might
>>> raw = mapping.read("logger.csv")
>>> found = mapping.suggest(raw)
>>> found.save("logger.toml")
>>> recording = mapping.Mapping.load("logger.toml").open("logger.csv")
>>> recording["Engine RPM"].function
Function(0x0000000F, 'Engine RPM')
"""

from __future__ import annotations

import json
import math
import os
import sys
from collections.abc import Iterable
from collections.abc import Mapping as Dictionary
from dataclasses import dataclass, field, replace
from pathlib import Path as FilePath
from typing import Any

import numpy as np

from ._csv import read_csv
from ._errors import KelError, nearest
from ._function import Function, FunctionLike, as_function
from ._mapped import MappedRecording
from ._rows import Held
from ._sources import Base, RawColumn, read_can, read_mdf, read_nmea, unique
from ._suggest import Found, likely
from ._table import ColumnInfo, Table

__all__ = ["Entry", "MappedRecording", "Mapping", "read", "suggest"]

Path = str | os.PathLike[str]
_FORMATS = {
    "csv": (".csv", ".tsv", ".txt"),
    "mdf": (".mf4", ".mdf", ".dat"),
    "can": (".log", ".asc", ".blf", ".trc"),
    "nmea": (".nmea", ".nma", ".ubx-nmea"),
}


@dataclass(frozen=True)
class Entry:
    """What a column of another logger is.

    Attributes
    ----------
    function : Function
        What it measures.
    unit : str
        Unit of its values after `gain` and `offset`: one of the function's.
    gain, offset : float
        A value is multiplied by the one, and then the other is added.
    name : str or None
        The column's name in the recording; None for the logger's own.
    note : str
        Why somebody should look at it; goes into the file as a comment.
    """

    function: Function
    unit: str
    gain: float = 1.0
    offset: float = 0.0
    name: str | None = None
    note: str = ""


@dataclass
class Mapping:
    """Which columns of a logger are which functions; kept as a TOML file.

    Attributes
    ----------
    entries : dict of str to Entry
        By the logger's names of columns.
    unrecognised : list of str
        Columns that are no function. They stay in the recording under their own names.
    database : path or None
        Of a CAN log, such as a DBC; in a file relative to it.

    Examples
    --------
    >>> found = suggest({"WS_FL": "m/s", "Engine Speed": "rpm", "Foo": ""})
    >>> for name, entry in found.entries.items():
    ...     print(name, entry.function, entry.unit, entry.gain)
    WS_FL Function(0x05070010, 'Speed Wheel FL') km/h 3.6
    Engine Speed Function(0x0000000F, 'Engine RPM') rpm 1.0
    >>> found.unrecognised
    ['Foo']
    """

    entries: dict[str, Entry] = field(default_factory=dict)
    unrecognised: list[str] = field(default_factory=list)
    database: Path | None = None

    def set(
        self,
        column: str,
        function: FunctionLike,
        unit: str | None = None,
        *,
        gain: float = 1.0,
        offset: float = 0.0,
        name: str | None = None,
    ) -> None:
        """Say what a column is.

        Parameters
        ----------
        column : str
            The logger's name of it.
        function : Function, int or str
            What it measures.
        unit : str, optional
            Unit of its values after `gain` and `offset`; None for the function's base unit.
        gain, offset : float
            A value is multiplied by the one, and then the other is added.
        name : str, optional
            The column's name in the recording; None for the logger's own.

        Raises
        ------
        KelError
            There is no such function or unit, or a number is none.
        """
        if not isinstance(column, str):
            raise TypeError(f"a column is {type(column).__name__}; accepted: its name")
        which = as_function(function)
        if not (math.isfinite(gain) and math.isfinite(offset) and gain):
            raise KelError(f"gain {gain} and offset {offset}; accepted: numbers, no gain of 0")
        if name is not None and (not isinstance(name, str) or not name or name == "time"):
            raise KelError(f"a column cannot be called {name!r}; accepted: a text, not 'time'")
        self.entries[column] = Entry(which, which.unit(unit), float(gain), float(offset), name)
        if column in self.unrecognised:
            self.unrecognised.remove(column)

    @classmethod
    def load(cls, path: Path) -> Mapping:
        """Read a mapping from a TOML file.

        Raises
        ------
        KelError
            The file is no mapping. The text says which column is wrong, and why.
        OSError
            The file cannot be read.
        """
        data = _toml(path)
        found = cls()
        try:
            for column, row in data.pop("columns", {}).items():
                known = {"function", "unit", "gain", "offset", "name"}
                wrong = next(iter(set(row) - known), None)
                if wrong is not None:
                    raise KelError(f"column '{column}' has a '{wrong}'; {nearest(wrong, known)}")
                if "function" not in row:
                    raise KelError(f"column '{column}' has no function")
                found.set(column, row.pop("function"), row.pop("unit", None), **row)
            found.unrecognised = [str(each) for each in data.pop("unrecognised", [])]
            database = data.pop("database", None)
            for wrong in data:
                accepted = ("columns", "unrecognised", "database")
                raise KelError(f"there is a '{wrong}'; {nearest(wrong, accepted)}")
        except (KelError, AttributeError, TypeError) as error:
            raise KelError(f"{os.fspath(path)}: {error}") from None
        if database is not None:
            found.database = FilePath(path).parent / str(database)
        return found

    def save(self, path: Path) -> None:
        """Write the mapping as a TOML file, with the names of functions as comments.

        Raises
        ------
        OSError
            The file cannot be written.
        """
        lines = ["# What the columns of a logger are. A value is multiplied by the gain, and then"]
        lines += ["# the offset is added; the unit is that of the result.", ""]
        if self.database is not None:
            folder = FilePath(path).absolute().parent
            database = os.path.relpath(FilePath(self.database).absolute(), folder)
            lines += [f"database = {_text(database)}"]
        lines += ["# These are no function that the catalogue knows, and keep their own names:"]
        lines += [f"unrecognised = [{', '.join(map(_text, self.unrecognised))}]", ""]
        for column, entry in self.entries.items():
            lines.append(f"[columns.{_text(column)}]")
            lines += [f"# {entry.note}"] if entry.note else []
            identifier = _text(f"0x{entry.function.identifier:08X}")
            lines.append(f"function = {identifier}  # {entry.function.name}")
            lines += [f"unit = {_text(entry.unit)}"] if entry.unit else []
            lines += [f"gain = {entry.gain!r}"] if entry.gain != 1 else []
            lines += [f"offset = {entry.offset!r}"] if entry.offset else []
            lines += [f"name = {_text(entry.name)}"] if entry.name is not None else []
            lines.append("")
        with open(path, "w", encoding="utf-8") as file:
            file.write("\n".join(lines))

    def open(self, path: Path, format: str | None = None, **choices: Any) -> MappedRecording:
        """Open a recording of the logger.

        Parameters
        ----------
        path : path
            The file.
        format : {"csv", "mdf", "can", "nmea"}, optional
            None: what the name of the file ends with.
        **choices
            As of `read`.

        Returns
        -------
        MappedRecording
            All columns: those of the mapping as functions, the others under their own names.

        Raises
        ------
        KelError
            There is no such format, or two columns would have the same name.
        RecordingError
            The file is no recording.
        OSError
            The file cannot be read.
        """
        if self.database is not None:
            choices.setdefault("database", self.database)
        bases, start = _load(path, format, **choices)
        return self._mapped(bases, start)

    def _mapped(self, bases: list[Base], start: float) -> MappedRecording:
        taken: dict[str, str] = {}
        parts = []
        for base in bases:
            held = [self._held(column) for column in base.columns]
            for column, each in zip(base.columns, held, strict=True):
                other = taken.setdefault(each.info.name, column.name)
                if other != column.name:
                    raise KelError(
                        f"'{other}' and '{column.name}' would both be called '{each.info.name}'"
                    )
            time = None if base.time is None else base.time - start
            parts.append((base.name, time, held))
        return MappedRecording(parts, start)

    def _held(self, column: RawColumn) -> Held:
        entry = self.entries.get(column.name)
        values, count = column.values, len(column.values)
        valid = np.ones(count, bool) if column.valid is None else column.valid
        text = values.dtype.kind == "U"
        if entry is None or text or values.dtype.kind == "M":
            kind = "text" if text else str(values.dtype)
            info = ColumnInfo(column.name, column.name, column.unit, None, kind, _DECIMALS)
        else:
            if entry.gain != 1 or entry.offset:
                values = np.asarray(values, np.float64) * entry.gain + entry.offset
            decimals = entry.function.decimals(entry.unit or None)
            info = ColumnInfo(
                entry.name or column.name, entry.function.name, entry.unit, entry.function,
                str(values.dtype), decimals,
            )  # fmt: skip
        if values.dtype.kind == "f":
            valid = valid & ~np.isnan(values)
        values = values.view()
        values.flags.writeable = False
        return Held(info, values, valid, info.unit)


_DECIMALS = 6


def _toml(path: Path) -> dict[str, Any]:
    if sys.version_info >= (3, 11):
        import tomllib
    else:
        import tomli as tomllib
    with open(path, "rb") as file:
        try:
            found: dict[str, Any] = tomllib.load(file)
        except (tomllib.TOMLDecodeError, UnicodeDecodeError) as error:
            raise KelError(f"{os.fspath(path)}: no TOML: {error}") from None
    return found


def _text(text: str) -> str:
    """A basic string of TOML, which JSON's are but for one character."""
    return json.dumps(text, ensure_ascii=False).replace("\x7f", "\\u007f")


def _load(
    path: Path,
    format: str | None,
    database: Path | None = None,
    rate: float | None = None,
) -> tuple[list[Base], float]:
    """Bases of a file with unique names, and the earliest of their times."""
    if not isinstance(path, (str, os.PathLike)):
        raise TypeError(f"a file is {type(path).__name__}; accepted: its path")
    if database is not None and not isinstance(database, (str, os.PathLike)):
        raise TypeError(f"a database is {type(database).__name__}; accepted: its path")
    ending = os.path.splitext(os.fspath(path))[1].lower()
    kind = next((k for k, ends in _FORMATS.items() if ending in ends), ending.lstrip("."))
    kind = kind if format is None else format
    if kind not in _FORMATS:
        raise KelError(
            f"there is no format '{kind}'; {nearest(str(kind), _FORMATS)}"
            f"accepted: {', '.join(_FORMATS)}"
        )
    if rate is not None and not (math.isfinite(rate) and 0.001 <= rate <= 1e6):
        raise KelError(f"the rate is {rate}; accepted: 0.001 to 1000000 rows a second")
    if kind == "csv":
        bases = read_csv(path, rate)
    elif kind == "mdf":
        bases = read_mdf(path)
    elif kind == "can":
        bases = read_can(path, database)
    else:
        bases = read_nmea(path)
    starts = [float(base.time[0]) for base in bases if base.time is not None and len(base.time)]
    return unique(bases), min(starts, default=0.0)


def read(
    path: Path,
    format: str | None = None,
    *,
    database: Path | None = None,
    rate: float | None = None,
) -> MappedRecording:
    """Read a recording of another logger under its own names, without a mapping.

    Parameters
    ----------
    path : path
        The file.
    format : {"csv", "mdf", "can", "nmea"}, optional
        None: what the name of the file ends with.
    database : path, optional
        Of a CAN log: a DBC, or another that cantools reads.
    rate : float, optional
        Rows a second of a CSV file without a column of times.

    Returns
    -------
    MappedRecording
        With a table for each time base.

    Raises
    ------
    KelError
        There is no such format, or a CAN log has no database.
    RecordingError
        The file is no recording.
    OSError
        The file cannot be read.
    """
    bases, start = _load(path, format, database, rate)
    found = Mapping()._mapped(bases, start)
    found.database = database
    return found


def suggest(columns: Table | Dictionary[str, str] | Iterable[str]) -> Mapping:
    """Propose a mapping by the catalogue's words: names, short names, legacy identifiers, fields.

    Parameters
    ----------
    columns : Table, dict of str to str, or names
        What `read` gave, or names and their units, or names alone. The unit decides among
        functions: one that does not measure what the unit does is none.

    Returns
    -------
    Mapping
        With a note where somebody should look: a unit that was assumed, other functions that fit
        as well. What nobody recognised is in ``unrecognised``.

    Examples
    --------
    >>> suggest(["Oil Press"]).entries["Oil Press"].note
    'no unit is given, bar is assumed'
    """
    database = None
    if isinstance(columns, Table):
        database = getattr(columns, "database", None)
        units = {each.name: each.unit for each in columns.columns}
    elif isinstance(columns, Dictionary):
        units = dict(columns)
    elif isinstance(columns, str):
        raise TypeError("names of columns are one str; accepted: a list of them")
    else:
        units = dict.fromkeys(columns, "")
    found = Mapping(database=database)
    for name, unit in units.items():
        if not isinstance(name, str) or not isinstance(unit, str):
            raise TypeError(f"a column is {name!r} in {unit!r}; accepted: texts")
        best = likely(name, unit)
        if best is None:
            found.unrecognised.append(name)
        else:
            entry = Entry(best.function, best.unit, best.gain, best.offset)
            found.entries[name] = replace(entry, note=_note(best))
    return found


def _note(found: Found) -> str:
    notes = [f"no unit is given, {found.unit} is assumed"] if found.assumed else []
    if found.others:
        fit = ", ".join(f"0x{each.identifier:08X} {each.name}" for each in found.others)
        notes.append(f"these fit as well: {fit}")
    return "; ".join(notes)
