"""Data files: the rows of several recordings of a vehicle, a day and a sample rate."""

from __future__ import annotations

import datetime
import hashlib
import os
from collections.abc import Iterator
from typing import Any
from urllib.parse import quote

import pyarrow
from pyarrow import parquet

from .. import __version__
from ._atomic import atomic
from ._compute import pc
from ._decode import Decoded

__all__ = ["GROUP", "Group", "place_of", "rewrite", "write_alone", "write_group"]

GROUP = 1 << 17
"""Rows of a row group."""

_NOWHERE = "__HIVE_DEFAULT_PARTITION__"
_ENDINGS = {"parquet": "parquet", "csv": "csv", "mdf": "mf4", "mat": "mat"}


def place_of(rate: float, vehicle: str, date: datetime.date | None) -> str:
    """Folder of the samples of a vehicle on a day, within that of the export."""
    parts = [
        f"rate={rate:g}",
        f"vehicle={quote(vehicle, safe=' ') or _NOWHERE}",
        f"date={date.isoformat() if date else _NOWHERE}",
    ]
    return os.path.join("samples", *parts)


def _shape(schema: pyarrow.Schema) -> str:
    text = "\n".join(
        f"{field.name}\0{field.type}\0{(field.metadata or {}).get(b'unit', b'')!r}"
        for field in schema
    )
    return hashlib.sha256(text.encode()).hexdigest()[:8]


class Group:
    """Recordings with the same columns at the same place, to be written into one file."""

    def __init__(self, place: str, schema: pyarrow.Schema) -> None:
        self.place, self.schema = place, schema
        self.recordings: list[str] = []
        self.batches: list[pyarrow.RecordBatch] = []
        self.rows = 0

    @staticmethod
    def key(decoded: Decoded) -> tuple[str, str]:
        """What recordings of one group have in common."""
        place = place_of(decoded.rate, decoded.source.vehicle, decoded.date)
        return place, _shape(decoded.schema)

    def add(self, recording: str, batches: list[pyarrow.RecordBatch]) -> None:
        """Add a whole recording."""
        self.recordings.append(recording)
        self.batches += batches
        self.rows += sum(batch.num_rows for batch in batches)


def _name(schema: pyarrow.Schema, recordings: list[str]) -> str:
    """Name of a data file: the same columns, recordings and software give the same."""
    text = "\n".join([__version__, *recordings])
    return f"{_shape(schema)}-{hashlib.sha256(text.encode()).hexdigest()[:16]}.parquet"


def write_group(folder: str, group: Group) -> str:
    """Write a group; the path of the data file within the folder of the export."""
    return _write(folder, group.place, group.schema, group.recordings, iter(group.batches))


def _write(
    folder: str,
    place: str,
    schema: pyarrow.Schema,
    recordings: list[str],
    batches: Iterator[pyarrow.RecordBatch],
) -> str:
    data = os.path.join(place, _name(schema, recordings))
    path = os.path.join(folder, data)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with (
        atomic(path) as temporary,
        parquet.ParquetWriter(
            temporary,
            schema,
            compression="zstd",
            use_dictionary=["recording"],  # pyright: ignore[reportArgumentType]
        ) as writer,
    ):
        kept: list[pyarrow.RecordBatch] = []
        rows = 0
        for batch in batches:
            kept.append(batch)
            rows += batch.num_rows
            if rows >= GROUP:
                whole = pyarrow.Table.from_batches(kept, schema)
                writer.write_table(whole[:GROUP], row_group_size=GROUP)
                kept = whole[GROUP:].to_batches()
                rows -= GROUP
        if rows or not writer.is_open:
            writer.write_table(pyarrow.Table.from_batches(kept, schema), row_group_size=GROUP)
    return data


def write_alone(folder: str, decoded: Decoded, format: str) -> str:
    """Write one recording into a file of its own, row group by row group; the file's path."""
    place, shape = Group.key(decoded)
    if format == "parquet":
        return _write(folder, place, decoded.schema, [decoded.recording], decoded.batches())
    data = os.path.join(place, f"{shape}-{decoded.recording}.{_ENDINGS[format]}")
    path = os.path.join(folder, data)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with atomic(path) as temporary:
        for _ in decoded.batches():  # for the statistics
            pass
        # asammdf looks at the ending, too.
        named = f"{temporary}.{_ENDINGS[format]}"
        try:
            with decoded.given_back():
                decoded.table.write(named, _ENDINGS[format])
            os.replace(named, temporary)
        finally:
            if os.path.exists(named):
                os.unlink(named)
    return data


def rewrite(folder: str, place: str, files: list[tuple[str, list[str]]]) -> dict[str, str]:
    """Write some recordings of several data files, all with the same columns, into one.

    Parameters
    ----------
    folder : str
        Of the export.
    place : str
        Of the data file, within it.
    files : list
        Data files, and the recordings that are taken from each.

    Returns
    -------
    dict
        For each recording the new data file.
    """
    recordings = [each for _, some in files for each in some]
    schema = parquet.read_schema(os.path.join(folder, files[0][0]))

    def batches() -> Iterator[Any]:
        for data, some in files:
            wanted = pyarrow.array(some)
            with parquet.ParquetFile(os.path.join(folder, data)) as file:
                for batch in file.iter_batches(1 << 16):
                    mask = pc.is_in(batch.column("recording"), value_set=wanted)
                    left = batch.filter(mask)
                    if left.num_rows:
                        yield left

    data = _write(folder, place, schema, recordings, batches())
    return dict.fromkeys(recordings, data)
