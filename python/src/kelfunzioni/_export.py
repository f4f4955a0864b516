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

if TYPE_CHECKING:
    from ._table import Table

__all__ = ["write"]

Path = str | os.PathLike[str]
_ROWS = 1 << 17


def write(table: Table, path: Path, format: str | None) -> None:
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
    with open(path, "w", newline="", encoding="utf-8") as file:
        writer = csv.writer(file, lineterminator="\n")
        timed = table.has_time
        infos = [info for info in table.columns if info.kind != "text"]
        writer.writerow([*(["time"] if timed else []), *(info.name for info in infos)])
        writer.writerow([*(["s"] if timed else []), *(info.unit for info in infos)])
        for piece in table.batches(_ROWS):
            cells = [_cells(column) for column in _columns(piece).values()]
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


def _write_mdf(table: Table, path: Path) -> None:
    from asammdf import MDF, Signal

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
    with MDF(version="4.10") as file:
        file.append(signals, comment="kelfunzioni", common_timebase=True)
        file.save(path, overwrite=True)


def _write_gpx(table: Table, path: Path) -> None:
    names = {info.name for info in table.columns}
    missing = [each for each in ("Latitude", "Longitude") if each not in names]
    if missing:
        raise RecordingError(f"there is no track: no column {' and '.join(missing)}")
    wanted = [each for each in ("Latitude", "Longitude", "Altitude", "UTC") if each in names]
    with open(path, "w", encoding="utf-8") as file:
        file.write(
            '<?xml version="1.0" encoding="UTF-8"?>\n'
            '<gpx version="1.1" creator="kelfunzioni" xmlns="http://www.topografix.com/GPX/1/1">\n'
            f"<trk><name>{escape(os.path.basename(os.fspath(path)))}</name><trkseg>\n"
        )
        for piece in table.batches(_ROWS):
            columns = piece.read(wanted)
            texts = {name: _cells(column) for name, column in columns.items()}
            for row in np.flatnonzero(columns["Latitude"].valid & columns["Longitude"].valid):
                file.write(_point({name: cells[row] for name, cells in texts.items()}))
        file.write("</trkseg></trk>\n</gpx>\n")


def _point(cells: dict[str, str]) -> str:
    inner = ""
    if cells.get("Altitude"):
        inner += f"<ele>{cells['Altitude']}</ele>"
    if cells.get("UTC"):
        inner += f"<time>{cells['UTC']}Z</time>"
    return f'<trkpt lat="{cells["Latitude"]}" lon="{cells["Longitude"]}">{inner}</trkpt>\n'


_WRITERS: dict[str, Callable[[Table, Path], None]] = {
    "csv": _write_csv,
    "parquet": _write_parquet,
    "h5": _write_hdf5,
    "mat": _write_mat,
    "mf4": _write_mdf,
    "gpx": _write_gpx,
}
