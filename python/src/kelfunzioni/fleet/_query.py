"""An export as views of DuckDB."""

from __future__ import annotations

import os
import re
from collections import defaultdict
from typing import TYPE_CHECKING, Any

from .._errors import KelError
from ._folder import Folder
from ._functions import register

if TYPE_CHECKING:
    import duckdb

__all__ = ["Fleet", "connect"]

_SAMPLES = re.compile(r"samples_[0-9a-z_]+|where_was|channel_0x", re.IGNORECASE)
_LATITUDE, _LONGITUDE = "Latitude", "Longitude"

_VIEWS = """
CREATE VIEW channels AS
  SELECT c.*, r.vehicle, r.date FROM {channels} c JOIN {recordings} r USING (recording);
CREATE VIEW laps AS
  SELECT r.vehicle, r.date, r.track, l.*, r.file
  FROM {laps} l JOIN {recordings} r USING (recording);
CREATE VIEW recordings AS FROM {recordings};
CREATE VIEW failures AS FROM {failures};
CREATE VIEW best_laps AS
  SELECT vehicle, track, kel_lap(ms) AS lap_time, ms, lap, date, recording, file FROM (
    SELECT *, row_number() OVER (PARTITION BY vehicle, track ORDER BY ms, recording, lap) AS place
    FROM laps WHERE state = 'good' AND ms IS NOT NULL)
  WHERE place = 1 ORDER BY vehicle, track;
CREATE VIEW channel_statistics AS
  SELECT identifier, name, any_value(long_name) AS long_name, unit,
    count(DISTINCT vehicle) AS vehicles, count(*) AS recordings,
    sum(samples)::BIGINT AS samples, sum(nulls)::BIGINT AS nulls,
    min(least) AS least, max(greatest) AS greatest,
    sum(mean * (samples - nulls))
      / nullif(sum(samples - nulls) FILTER (mean IS NOT NULL), 0) AS mean
  FROM channels GROUP BY identifier, name, unit ORDER BY name, identifier, unit;
"""

# Rows for which the condition holds form one span as long as none is left out between them.
_WHERE_WAS = """
CREATE MACRO where_was(identifier, condition) AS TABLE
  WITH hits AS (
    SELECT * FROM query('SELECT * FROM "channel_' || kel_identifier(identifier)
      || '" WHERE value IS NOT NULL AND (' || condition || ')')),
  steps AS (
    SELECT *, CASE WHEN time - lag(time) OVER (PARTITION BY recording, session ORDER BY time)
      < 1.5 / rate THEN 0 ELSE 1 END AS begins FROM hits),
  spans AS (
    SELECT *, sum(begins) OVER (PARTITION BY recording, session ORDER BY time
      ROWS UNBOUNDED PRECEDING) AS span FROM steps),
  found AS (
    SELECT recording, vehicle, date, session, min(time) AS start,
      round(max(time) - min(time), 6) AS seconds,
      count(*) AS samples, min(value) AS least, max(value) AS greatest,
      arg_min(latitude, time) AS latitude, arg_min(longitude, time) AS longitude
    FROM spans GROUP BY recording, vehicle, date, session, span)
  SELECT f.vehicle, f.date, f.recording, l.lap, f.start, f.seconds, f.samples, f.least, f.greatest,
    f.latitude, f.longitude
  FROM found f LEFT JOIN (
      SELECT *, lead(start) OVER (PARTITION BY recording, session ORDER BY start) AS until
      FROM laps) l
    ON split_part(l.recording, '.', 1) = split_part(f.recording, '.', 1)
      AND l.session = f.session AND f.start >= l.start
      AND (l.until IS NULL OR f.start < l.until)
  ORDER BY f.vehicle, f.date, f.recording, f.start;
"""


def connect(folder: str) -> duckdb.DuckDBPyConnection:
    """Connect to an export.

    The connection has the views ``recordings``, ``channels``, ``laps``, ``failures``,
    ``best_laps``, ``channel_statistics``; a view ``samples_10hz`` for each sample rate; the table
    macro ``where_was(identifier, condition)``; and the package's functions in SQL.

    Raises
    ------
    KelError
        The folder has no export.
    """
    fleet = Fleet(folder)
    fleet.views_of_samples()
    return fleet.connection


class Fleet:
    """An export with a connection to it. Views of samples are made when they are first named."""

    def __init__(self, folder: str) -> None:
        import duckdb

        self.folder = Folder(folder)
        if not self.folder.generation:
            raise KelError(f"{folder} has no export; accepted: a folder that 'export' has written")
        # Through the link once: all views are of the same generation.
        self._tables = os.path.realpath(os.path.join(self.folder.path, "tables"))
        self.connection = duckdb.connect(":memory:")
        register(self.connection)
        paths = {
            name: f"read_parquet('{self.table(name)}')"
            for name in ("recordings", "channels", "laps", "failures")
        }
        self.connection.execute(_VIEWS.format(**paths))
        self._with_samples = False

    def table(self, name: str) -> str:
        """Path of a table, as it stands in a text of SQL."""
        return os.path.join(self._tables, f"{name}.parquet").replace("'", "''")

    def sql(self, text: str) -> Any:
        """Ask. The relation; None for a statement that gives no rows."""
        if _SAMPLES.search(text):
            self.views_of_samples()
        return self.connection.sql(text)

    def views_of_samples(self) -> None:
        """Make the views of the samples, where they are Parquet, and ``where_was``."""
        if self._with_samples:
            return
        if self.folder.format != "parquet":
            raise KelError(
                f"the samples are {self.folder.format}; accepted: an export in parquet, or the "
                f"tables recordings, channels, laps and failures"
            )
        self._with_samples = True
        shapes: dict[float, dict[str, list[str]]] = defaultdict(lambda: defaultdict(list))
        files = self.connection.sql("SELECT DISTINCT rate, data FROM recordings ORDER BY data")
        for rate, data in files.fetchall():
            shape = os.path.basename(data).split("-")[0]
            shapes[rate][shape].append(os.path.join(self.folder.path, data))
        for rate, files_of in shapes.items():
            # Files of one shape have the same columns: only the first of them must be looked at.
            parts = " UNION ALL BY NAME ".join(
                f"SELECT * FROM read_parquet([{', '.join(map(_text, some))}], "
                "hive_partitioning = true, hive_types_autocast = false, hive_types = "
                "{'rate': DOUBLE, 'vehicle': VARCHAR, 'date': DATE})"
                for some in files_of.values()
            )
            self.connection.execute(f"CREATE VIEW {view_of(rate)} AS {parts}")
        self._channel_views()
        self.connection.execute(_WHERE_WAS)

    def _channel_views(self) -> None:
        """Make a view of each channel, over all rates and names that it has."""
        places: dict[str, list[tuple[float, str]]] = defaultdict(list)
        for identifier, rate, name in self.connection.sql(
            "SELECT DISTINCT identifier, rate, name FROM channels "
            "WHERE identifier IS NOT NULL AND least IS NOT NULL ORDER BY ALL"
        ).fetchall():
            places[identifier].append((rate, name))
        position = {
            (rate, name)
            for rate, name in self.connection.sql(
                f"SELECT DISTINCT rate, name FROM channels "
                f"WHERE name IN ('{_LATITUDE}', '{_LONGITUDE}')"
            ).fetchall()
        }
        for identifier, columns in places.items():
            parts = []
            for rate, name in columns:
                at = [
                    f"{_name(each)} AS {each.lower()}"
                    if (rate, each) in position
                    else f"NULL::DOUBLE AS {each.lower()}"
                    for each in (_LATITUDE, _LONGITUDE)
                ]
                parts.append(
                    f"SELECT recording, vehicle, date, session, time, rate, "
                    f"{_name(name)}::DOUBLE AS value, {', '.join(at)} FROM {view_of(rate)}"
                )
            self.connection.execute(
                f'CREATE VIEW "channel_{identifier}" AS {" UNION ALL ".join(parts)}'
            )


def view_of(rate: float) -> str:
    """Name of the view of the samples of a rate."""
    return f"samples_{rate:g}hz".replace(".", "_").replace("+", "").replace("-", "m")


def _text(text: str) -> str:
    return "'" + text.replace("'", "''") + "'"


def _name(text: str) -> str:
    return '"' + text.replace('"', '""') + '"'
