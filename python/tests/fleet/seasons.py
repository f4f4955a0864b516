"""What the tests of fleets share: a season is simulated, an export is looked at as a whole."""

from __future__ import annotations

import os
import subprocess
import sys
from pathlib import Path

from pyarrow import parquet

from kelfunzioni import fleet

FLOTTA = [sys.executable, "-m", "kelfunzioni.fleet"]
RECORDINGS, DAMAGED = 24, 3


def simulate(folder, count, *arguments):
    command = [os.environ["KELSIM"], "--laps", "1", "--rate", "4", *arguments, "--fleet"]
    subprocess.run([*command, str(count), str(folder)], check=True, timeout=60)


def data_files(folder) -> list[str]:
    """All files of samples, whether a table names them or not."""
    return sorted(
        str(each.relative_to(folder))
        for each in Path(folder, "samples").rglob("*")
        if each.is_file()
    )


def whole(folder) -> str:
    """Check that there is nothing twice, nothing left over and no gap; the hash of all values."""
    from kelfunzioni.fleet._query import Fleet

    opened = Fleet(str(folder))
    named = opened.sql("SELECT DISTINCT data FROM recordings ORDER BY data").fetchall()
    assert [data for (data,) in named] == data_files(folder)
    rows = dict(opened.sql("SELECT recording, rows FROM recordings").fetchall())
    opened.views_of_samples()
    rates = opened.sql("SELECT DISTINCT rate FROM recordings").fetchall()
    found = {}
    for (rate,) in rates:
        view = f"samples_{rate:g}hz"
        asked = opened.sql(f"SELECT recording, count(*) FROM {view} GROUP BY recording").fetchall()
        assert not set(found) & {name for name, _ in asked}
        found.update(asked)
    assert found == rows
    assert not list(Path(folder).rglob("*.tmp"))
    assert not list(Path(folder, ".fleet").glob("run-*"))
    return fleet.digest(str(folder))


def _table(folder, name) -> list[dict]:
    return parquet.ParquetFile(Path(folder, "tables", f"{name}.parquet")).read().to_pylist()


def undisturbed(folder, season, expected) -> None:
    """Check that an export that was disturbed is what one that was not has made of a season.

    Every file of the season stands once in `recordings` or in `failures`, its rows are those of
    the other export, and nothing is left of what was killed.
    """
    found = fleet.find([str(season)])
    inputs = sorted([each.file for each in found.sources] + [file for file, _ in found.failures])
    tables = {name: _table(folder, name) for name in ("recordings", "failures")}
    listed = sorted(row["file"] for rows in tables.values() for row in rows)
    assert listed == inputs, "each file of the input once"
    assert tables["failures"] == _table(expected, "failures")
    of_whom = ("file", "recording", "hash", "rows", "seconds", "channels", "laps")
    rows, others = (
        [{key: row[key] for key in of_whom} for row in each]
        for each in (tables["recordings"], _table(expected, "recordings"))
    )
    assert rows == others
    for row in tables["recordings"]:
        names = parquet.ParquetFile(Path(folder, row["data"])).read(["recording"])["recording"]
        assert names.to_pylist().count(row["recording"]) == row["rows"], row["file"]
    assert whole(folder) == whole(expected)
    left = [p for p in Path(folder).rglob("*") if p.name.startswith(".") and p.name != ".fleet"]
    assert not left and not os.path.lexists(Path(folder, "tables.new"))
    state = sorted(each.name for each in Path(folder, ".fleet").iterdir())
    assert [each for each in state if each not in ("lock", "settings.json")] == [
        os.path.basename(os.readlink(Path(folder, "tables")))
    ]
