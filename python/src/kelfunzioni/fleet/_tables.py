"""The tables beside the samples: their columns, and how they are read and written."""

from __future__ import annotations

import datetime
import os
from typing import Any

import pyarrow
from pyarrow import parquet

from ._atomic import atomic

__all__ = ["NAMES", "SCHEMAS", "read", "rows", "table", "write"]

_TEXT, _INT, _REAL = pyarrow.string(), pyarrow.int64(), pyarrow.float64()

SCHEMAS = {
    "recordings": pyarrow.schema(
        [
            ("recording", _TEXT),
            ("file", _TEXT),
            ("kind", _TEXT),
            ("vehicle", _TEXT),
            ("date", pyarrow.date32()),
            ("start", pyarrow.timestamp("us", "UTC")),
            ("seconds", _REAL),
            ("rows", _INT),
            ("rate", _REAL),
            ("channels", _INT),
            ("laps", _INT),
            ("lap_note", _TEXT),
            ("latitude", _REAL),
            ("longitude", _REAL),
            ("track", _TEXT),
            ("hash", _TEXT),
            ("signature", _TEXT),
            ("software", _TEXT),
            ("data", _TEXT),
        ]
    ),
    "channels": pyarrow.schema(
        [
            ("recording", _TEXT),
            ("name", _TEXT),
            ("channel", _TEXT),
            ("identifier", _TEXT),
            ("long_name", _TEXT),
            ("unit", _TEXT),
            ("rate", _REAL),
            ("samples", _INT),
            ("nulls", _INT),
            ("least", _REAL),
            ("greatest", _REAL),
            ("mean", _REAL),
        ]
    ),
    "laps": pyarrow.schema(
        [
            ("recording", _TEXT),
            ("lap", _INT),
            ("session", _INT),
            ("state", _TEXT),
            ("best", pyarrow.bool_()),
            ("ms", _INT),
            ("start", _REAL),
            ("gap", _REAL),
            ("top_speed", _REAL),
            ("least_speed", _REAL),
            ("distance", _REAL),
            ("rows", _INT),
        ]
    ),
    "failures": pyarrow.schema([("file", _TEXT), ("reason", _TEXT)]),
}
NAMES = tuple(SCHEMAS)


def write(folder: str, name: str, table: pyarrow.Table) -> None:
    """Write one of the tables."""
    with atomic(os.path.join(folder, f"{name}.parquet")) as temporary:
        parquet.write_table(table, temporary, compression="zstd", row_group_size=1 << 17)


def read(folder: str, name: str) -> pyarrow.Table:
    """Read one of the tables; an empty one where there is none."""
    path = os.path.join(folder, f"{name}.parquet")
    if not os.path.exists(path):
        return SCHEMAS[name].empty_table()
    return parquet.ParquetFile(path).read()


def rows(table: pyarrow.Table) -> list[dict[str, Any]]:
    """Rows of a table; dates and times as texts, as they stand in JSON."""
    found: list[dict[str, Any]] = table.to_pylist()
    for row in found:
        for key in ("date", "start"):
            if hasattr(row.get(key), "isoformat"):
                row[key] = row[key].isoformat()
    return found


def table(name: str, rows: list[dict[str, Any]]) -> pyarrow.Table:
    """Make one of the tables of rows."""
    if name == "recordings":
        rows = [_typed(row) for row in rows]
    schema = SCHEMAS[name]
    columns = [pyarrow.array([row[field.name] for row in rows], field.type) for field in schema]
    return pyarrow.Table.from_arrays(columns, schema=schema)


def _typed(row: dict[str, Any]) -> dict[str, Any]:
    made = dict(row)
    if isinstance(made.get("date"), str):
        made["date"] = datetime.date.fromisoformat(made["date"])
    if isinstance(made.get("start"), str):
        made["start"] = datetime.datetime.fromisoformat(made["start"])
    return made
