"""Recordings as files of other programs."""

from __future__ import annotations

import csv
import os
import re
from collections.abc import Callable
from typing import TYPE_CHECKING, Any
from xml.sax.saxutils import escape

import numpy as np
import numpy.typing as npt

from ._column import Column
from ._errors import KelError, RecordingError, nearest
from ._lapsource import place_columns
from ._mapped import MappedRecording
from ._rows import Rows

if TYPE_CHECKING:
    from ._table import Table

__all__ = ["write"]

Path = str | os.PathLike[str]
_ROWS = 1 << 17
_TEXT_ROWS = 1 << 13  # a cell is a text of some sixty bytes


def write(table: Table, path: Path, format: str | None, version: str) -> None:
    """Write a table in a format, or in that which the name of the file ends with.

    Raises
    ------
    KelError
        There is no such format. The text says the nearest.
    """
    if not isinstance(path, (str, os.PathLike)):
        raise TypeError(f"a file is {type(path).__name__}; accepted: its path")
    kind = os.path.splitext(os.fspath(path))[1].lstrip(".").lower() if format is None else format
    if kind not in _WRITERS:
        raise KelError(
            f"there is no format '{kind}'; {nearest(str(kind), _WRITERS)}"
            f"accepted: {', '.join(_WRITERS)}"
        )
    if version not in _MDF:
        raise KelError(f"there is no MDF {version!r}; accepted: {', '.join(_MDF)}")
    if kind == "mf4":
        _write_mdf(table, path, version)
    else:
        _WRITERS[kind](table, path)


def _columns(table: Table) -> dict[str, Column]:
    """Columns that have values, behind the time."""
    return table.read()


def _time(table: Table) -> npt.NDArray[np.float64] | None:
    return table.time if table.has_time else None


def _cells(column: Column) -> list[str]:
    """The shortest digits that give the same bits back; nothing for what is missing."""
    texts = column.values.astype(str)
    found: list[str] = np.where(column.valid, texts, "").tolist()
    return found


def _write_csv(table: Table, path: Path) -> None:
    table[:0].read()  # what is closed leaves no empty file behind
    with open(path, "w", newline="", encoding="utf-8") as file:
        writer = csv.writer(file, lineterminator="\n")
        timed = len(table) >= 0 and table.has_time
        held = bool(table.tables) and isinstance(table.tables[0], Rows)
        infos = [info for info in table.columns if held or info.kind != "text"]
        writer.writerow([*(["time"] if timed else []), *(info.name for info in infos)])
        writer.writerow([*(["s"] if timed else []), *(info.unit for info in infos)])
        for piece in table.batches(_TEXT_ROWS):
            columns = _columns(piece)
            cells = [
                _cells(columns[i.name]) if i.name in columns else piece.texts(i.name).tolist()
                for i in infos
            ]
            times = [[repr(each) for each in piece.time.tolist()]] if timed else []
            writer.writerows(zip(*times, *cells, strict=True))


def _write_parquet(table: Table, path: Path) -> None:
    import pyarrow
    from pyarrow import parquet

    schema = pyarrow.RecordBatchReader.from_stream(table[:0]).schema
    with parquet.ParquetWriter(path, schema, compression="zstd") as writer:
        for piece in table.batches(_ROWS):
            writer.write_table(pyarrow.table(piece), row_group_size=_ROWS)


def _write_hdf5(table: Table, path: Path) -> None:
    import h5py

    with h5py.File(path, "w") as file:
        time = _time(table)
        if time is not None:
            file.create_dataset("time", data=time).attrs["unit"] = "s"
        for name, column in _columns(table).items():
            values = column.values
            if values.dtype.kind == "M":  # microseconds since 1970
                values = np.where(column.valid, values.astype(np.int64), 0)
            group = file.create_group(name.replace("/", "_"))
            group.create_dataset("values", data=values)
            group.create_dataset("valid", data=column.valid)
            group.attrs.update(column.metadata)


def _matlab_names(names: list[str]) -> list[str]:
    """Names as MATLAB has them: letters, digits and underscores, at most 31, none twice."""
    found: list[str] = []
    for name in names:
        word = re.sub(r"\W+", "_", name, flags=re.ASCII).strip("_")
        word = (word if word[:1].isalpha() else f"x{word}")[:28]
        known, number = word, 1
        while word in found:
            number += 1
            word = f"{known}_{number}"
        found.append(word)
    return found


def _write_mat(table: Table, path: Path) -> None:
    from scipy import io

    columns, time = _columns(table), _time(table)
    words = _matlab_names(["time", *columns] if time is not None else list(columns))
    found: dict[str, Any] = {}
    if time is not None:
        found[words.pop(0)] = {"values": time, "unit": "s"}
    for word, (name, column) in zip(words, columns.items(), strict=True):
        values = column.values
        if values.dtype.kind == "M":
            values = np.where(column.valid, values.astype(np.int64), 0)
        found[word] = {
            "values": values, "valid": column.valid, "name": name, **column.metadata,
        }  # fmt: skip
    io.savemat(path, found, long_field_names=True, oned_as="column")


_MDF = ("4.10", "4.11")


def _write_mdf(table: Table, path: Path, version: str = _MDF[0]) -> None:
    from asammdf import MDF

    with MDF(version=version) as file:
        for number, each in enumerate(table.tables):
            # What was appended lies in a temporary file. Texts have a width, that of all of them.
            rows = max(len(each), 1) if isinstance(each, Rows) else _ROWS
            pieces = each.batches(rows)
            signals = _signals(next(pieces, each))
            file.append(signals, comment="kelfunzioni", common_timebase=True)
            for piece in pieces:
                more = _signals(piece)
                time = (piece.time, None)
                file.extend(number, [time, *((s.samples, s.invalidation_bits) for s in more)])
        file.save(path, overwrite=True)


def _signals(table: Table) -> list[Any]:
    from asammdf import Signal

    time = table.time
    signals = []
    for name, column in _columns(table).items():
        values = column.values
        if values.dtype.kind == "M":
            values = np.where(column.valid, values.astype(np.int64), 0)
        signals.append(
            Signal(
                samples=values,
                timestamps=time,
                name=name,
                unit=column.unit or ("us" if column.values.dtype.kind == "M" else ""),
                comment=f"{column.metadata['identifier']} {column.long_name}".strip(),
                invalidation_bits=~column.valid,
            )
        )
    for info in table.columns:
        if info.kind == "text" and isinstance(table, Rows):
            texts = np.char.encode(table.texts(info.name), "utf-8")
            texts = texts.astype(f"S{max(texts.dtype.itemsize, 1)}")
            signals.append(Signal(samples=texts, timestamps=time, name=info.name, encoding="utf-8"))
    return signals


def _write_gpx(table: Table, path: Path) -> None:
    names = {info.name for info in table.columns}
    place = place_columns(table)
    if place is None:
        raise RecordingError("there is no track: no columns of latitude and longitude")
    if isinstance(table, MappedRecording):
        table = table.on(place[0])
    latitude, longitude = place
    wanted = [*place, *(each for each in ("Altitude", "UTC") if each in names)]
    table[:0].read()
    with open(path, "w", encoding="utf-8") as file:
        file.write(
            '<?xml version="1.0" encoding="UTF-8"?>\n'
            '<gpx version="1.1" creator="kelfunzioni" xmlns="http://www.topografix.com/GPX/1/1">\n'
            f"<trk><name>{escape(os.path.basename(os.fspath(path)))}</name><trkseg>\n"
        )
        for piece in table.batches(_TEXT_ROWS):
            columns = piece.read(wanted)
            texts = {name: _cells(column) for name, column in columns.items()}
            for row in np.flatnonzero(columns[latitude].valid & columns[longitude].valid):
                cells = {name: column[row] for name, column in texts.items()}
                file.write(_point(cells[latitude], cells[longitude], cells))
        file.write("</trkseg></trk>\n</gpx>\n")


def _point(latitude: str, longitude: str, cells: dict[str, str]) -> str:
    inner = ""
    if cells.get("Altitude"):
        inner += f"<ele>{cells['Altitude']}</ele>"
    if cells.get("UTC"):
        inner += f"<time>{cells['UTC']}Z</time>"
    return f'<trkpt lat="{latitude}" lon="{longitude}">{inner}</trkpt>\n'


_WRITERS: dict[str, Callable[[Table, Path], None]] = {
    "csv": _write_csv,
    "parquet": _write_parquet,
    "h5": _write_hdf5,
    "mat": _write_mat,
    "mf4": _write_mdf,
    "gpx": _write_gpx,
}
