"""What the tests of fleets share: a season is simulated, an export is looked at as a whole."""

from __future__ import annotations

import os
import subprocess
import sys
from pathlib import Path

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
