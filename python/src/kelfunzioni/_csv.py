"""Tables of text: the names, units and numbers of another logger's CSV file."""

from __future__ import annotations

import csv
import io
import os
import re
from collections.abc import Sequence

import numpy as np
import numpy.typing as npt

from ._errors import RecordingError
from ._sources import Base, RawColumn

__all__ = ["read_csv"]

_SEPARATORS = ",;\t"
_NUMBER = re.compile(r"[+-]?(\d+([.,]\d*)?|[.,]\d+)([eE][+-]?\d+)?")
_CLOCK = re.compile(r"(?:(\d+):)?(\d+):(\d+(?:\.\d*)?)")
_UNIT = re.compile(r"(.*?)\s*[\[(]([^\])]*)[\])]\s*")
_TIMES = {"time", "t", "timestamp", "elapsed", "elapsed time", "session time", "log time"}
_SECONDS = {"": 1.0, "s": 1.0, "sec": 1.0, "ms": 1e-3, "us": 1e-6, "min": 60.0, "h": 3600.0}
_FEW = 0.5


def read_csv(path: str | os.PathLike[str], rate: float | None = None) -> list[Base]:
    """Columns of a CSV file: a row of names, perhaps one of units, then numbers.

    What stands above the names is left out. Separators are commas, semicolons or tabs; with
    semicolons a number may have a decimal comma. A column that has values in fewer than half of the
    rows was recorded at a slower rate: those with values in the same rows have a time base of their
    own, which are these rows.

    Raises
    ------
    RecordingError
        There is no row of numbers below a row of names.
    """
    with open(path, newline="", encoding="utf-8-sig", errors="replace") as file:
        text = file.read().replace("\0", "\N{REPLACEMENT CHARACTER}")
    separator = _separator(text)
    try:
        reader = csv.reader(io.StringIO(text, newline=""), delimiter=separator)
        rows = [row for row in reader if row]
    except csv.Error as error:
        raise RecordingError(f"{os.fspath(path)}: no table: {error}") from None
    first = _first_numbers(rows)
    width = len(rows[first])
    heads = [row for row in rows[max(first - 2, 0) : first] if len(row) == width]
    if not heads or _numeric(heads[-1]):
        raise RecordingError(f"{os.fspath(path)}: there is no row of names above the numbers")
    two = len(heads) == 2 and all(each.strip() for each in heads[0])
    names, units = (heads[0], heads[1]) if two else (heads[-1], [""] * width)
    body = [row for row in rows[first:] if len(row) == width]
    cells = [[row[place].strip() for row in body] for place in range(width)]
    columns: list[RawColumn | None] = []
    for place, (name, unit) in enumerate(zip(names, units, strict=True)):
        named = _UNIT.fullmatch(name)
        if named and not unit:
            name, unit = named[1], named[2]
        columns.append(
            _column(name.strip() or f"column {place + 1}", unit.strip(), cells[place], separator)
        )
    time = _time(columns, cells)
    if time is None and rate is not None:
        time = np.arange(len(body)) / rate
    return _bases([each for each in columns if each is not None], time, len(body))


def _separator(text: str) -> str:
    lines = text[: 1 << 16].splitlines()[:200]
    counts = {each: sum(line.count(each) > 0 for line in lines) for each in _SEPARATORS}
    # With semicolons or tabs, commas are those of numbers and of prose.
    for each in ";\t":
        if counts[each] * 2 > len(lines):
            return each
    return ","


def _is_number(cell: str) -> bool:
    return bool(_NUMBER.fullmatch(cell) or _CLOCK.fullmatch(cell))


def _numeric(row: Sequence[str]) -> bool:
    filled = [cell.strip() for cell in row if cell.strip()]
    return bool(filled) and sum(map(_is_number, filled)) * 2 >= len(filled)


def _first_numbers(rows: list[list[str]]) -> int:
    widths = [len(row) for row in rows[:1000]]
    usual = max(set(widths), key=widths.count) if widths else 0
    for place, row in enumerate(rows):
        if place and len(row) == usual and len(rows[place - 1]) == usual and _numeric(row):
            return place
    raise RecordingError("there are no rows of numbers below a row of names")


def _column(name: str, unit: str, cells: list[str], separator: str) -> RawColumn:
    there = np.array([cell != "" for cell in cells], bool)
    ready = [cell.replace(",", ".") for cell in cells] if separator == ";" else cells
    try:
        values = np.array([cell or "nan" for cell in ready], np.float64)
        return RawColumn(name, unit, values, there & ~np.isnan(values))
    except ValueError:
        pass
    clocks = [_CLOCK.fullmatch(cell) for cell in cells]
    if all(clock or not cell for clock, cell in zip(clocks, cells, strict=True)) and any(clocks):
        seconds = [
            int(c[1] or 0) * 3600 + int(c[2]) * 60 + float(c[3]) if c else np.nan for c in clocks
        ]
        return RawColumn(name, unit or "s", np.array(seconds), there)
    return RawColumn(name, unit, np.array(cells, str), there)


def _time(
    columns: list[RawColumn | None], cells: list[list[str]]
) -> npt.NDArray[np.float64] | None:
    """Take the first column of times out of the columns."""
    for place, column in enumerate(columns):
        if column is None or column.name.lower() not in _TIMES or column.values.dtype.kind != "f":
            continue
        scale = _SECONDS.get(column.unit.lower())
        whole = column.valid is None or bool(column.valid.all())
        if scale is not None and whole and bool((np.diff(column.values) >= 0).all()):
            columns[place] = None
            # By division the shortest digits of milliseconds stay those of seconds.
            divided = column.values / round(1 / scale) if scale < 1 else column.values * scale
            return np.asarray(divided, np.float64)
    return None


def _bases(
    columns: list[RawColumn], time: npt.NDArray[np.float64] | None, count: int
) -> list[Base]:
    whole = Base("rows", time, [])
    slower: dict[bytes, Base] = {}
    for column in columns:
        valid = column.valid if column.valid is not None else np.ones(count, bool)
        share = valid.mean() if count else 1.0
        if time is None or share >= _FEW or not valid.any():
            whole.columns.append(column)
            continue
        base = slower.setdefault(valid.tobytes(), Base(f"rows {len(slower) + 2}", time[valid], []))
        base.columns.append(RawColumn(column.name, column.unit, column.values[valid]))
    return [base for base in (whole, *slower.values()) if base.columns]
