"""One hash over all that an export holds."""

from __future__ import annotations

import hashlib

from ._query import Fleet, view_of

__all__ = ["digest"]

_WHERE_AND_WHEN = {"recordings": "EXCLUDE (file, signature, data)", "channels": "", "laps": ""}


def digest(folder: str) -> str:
    """Hash the sorted rows of the tables and of all samples.

    It is the same for the same recordings, whoever exported them, in how many runs and tasks, and
    wherever the files lay.
    """
    fleet = Fleet(folder)
    fleet.views_of_samples()
    whole = hashlib.sha256()
    rates = fleet.connection.sql("SELECT DISTINCT rate FROM recordings ORDER BY rate").fetchall()
    views = {
        **{f"read_parquet('{fleet.table(name)}')": less for name, less in _WHERE_AND_WHEN.items()},
        **{view_of(rate): "" for (rate,) in rates},
    }
    for view, less in views.items():
        answer = fleet.connection.sql(
            f"SELECT count(*), sha256(string_agg(row, ' ' ORDER BY row)) FROM "
            f"(SELECT hash(every)::VARCHAR AS row FROM (SELECT * {less} FROM {view}) AS every)"
        ).fetchall()[0]
        whole.update(f"{answer}\n".encode())
    return whole.hexdigest()
