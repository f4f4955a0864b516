"""Pictures of what a query gives: laps over their distance, or a distribution."""

from __future__ import annotations

import os
from typing import TYPE_CHECKING, Any

import numpy as np

from .. import format_lap
from .._errors import KelError, nearest
from ..plot import _TO_METRES_A_SECOND, _figure, _label
from ._query import Fleet

if TYPE_CHECKING:
    from matplotlib.figure import Figure

__all__ = ["plot"]

_MOST_LAPS, _MOST_GROUPS = 12, 40


def plot(fleet: Fleet, sql: str, channel: str | None = None) -> Figure:
    """Draw the answer of a query.

    Parameters
    ----------
    fleet : Fleet
        What is asked.
    sql : str
        A query that gives ``recording`` and ``lap``: laps, the first one as the reference of the
        gap. Or one that gives numbers, which may have a text before them: the distribution of the
        numbers, for each text.
    channel : str, optional
        Of laps: what is drawn; None for the speed.

    Raises
    ------
    KelError
        The query gives neither, or nothing.
    """
    relation = fleet.sql(sql)
    if relation is None:
        raise KelError("the statement gives no rows; accepted: a query of laps or of numbers")
    table = relation.to_arrow_table()
    if not table.num_rows:
        raise KelError("the query gives no rows; there is nothing to draw")
    if {"recording", "lap"} <= set(table.column_names):
        rows = table.select(["recording", "lap"]).to_pylist()
        return _laps(fleet, [(row["recording"], row["lap"]) for row in rows], channel)
    return _distribution(table)


def _laps(fleet: Fleet, chosen: list[tuple[str, int]], channel: str | None) -> Figure:
    if len(chosen) > _MOST_LAPS:
        raise KelError(f"the query gives {len(chosen)} laps; accepted: {_MOST_LAPS} at most")
    figure = _figure(3)
    top, bottom = figure.subplots(2, sharex=True, height_ratios=[2, 1])
    reference: tuple[Any, Any] = (None, None)
    for recording, number in chosen:
        lap = _Lap(fleet, recording, number, channel)
        top.plot(lap.metres, lap.values, linewidth=0.9, label=lap.title)
        if reference[0] is None:
            reference = lap.metres, lap.since
            top.set_ylabel(_label(lap.channel, lap.unit))
        # No gap before and behind what both have driven.
        both = np.interp(lap.metres, *reference, left=np.nan, right=np.nan)
        bottom.plot(lap.metres, lap.since - both, linewidth=0.9)
    bottom.set_ylabel("gap to the first\ns")
    bottom.set_xlabel("distance, m")
    figure.legend(loc="outside upper center", ncols=2, fontsize="small")
    for panel in (top, bottom):
        panel.grid(alpha=0.3)
    bottom.margins(x=0)
    return figure


class _Lap:
    """Rows of a lap, from the data file of its recording."""

    def __init__(self, fleet: Fleet, recording: str, number: int, channel: str | None) -> None:
        ask = fleet.connection.execute
        found = ask(
            "SELECT l.session, l.start, l.ms, r.vehicle, r.date, r.data FROM laps l "
            "JOIN recordings r USING (recording) WHERE recording = ? AND lap = ?",
            [recording, number],
        ).fetchone()
        if found is None or found[2] is None:
            raise KelError(f"lap {number} of {recording} is not closed; accepted: laps with a time")
        session, start, milliseconds, vehicle, date, data = found
        units = dict(
            ask("SELECT name, unit FROM channels WHERE recording = ?", [recording]).fetchall()
        )
        speeds = [
            name
            for name, unit in units.items()
            if unit in _TO_METRES_A_SECOND and "peed" in name and "ccuracy" not in name
        ]
        self.channel = channel or (speeds[0] if speeds else "")
        if self.channel not in units:
            raise KelError(
                f"{recording} has no channel '{self.channel}'; {nearest(self.channel, units)}"
                f"accepted: {', '.join(sorted(units))}"
            )
        if not speeds:
            raise KelError(f"{recording} has no speed, so that there is no distance to draw over")
        self.unit = units[self.channel]
        from pyarrow import parquet

        rows = parquet.read_table(
            os.path.join(fleet.folder.path, data),
            columns=list({"time", self.channel, speeds[0]}),
            filters=[
                ("recording", "=", recording),
                ("session", "=", session),
                ("time", ">=", start),
                ("time", "<=", start + milliseconds / 1000),
            ],
            partitioning=None,  # pyright: ignore[reportArgumentType]
        )
        column = {
            name: rows[name].to_numpy(zero_copy_only=False).astype(float)
            for name in rows.column_names
        }
        self.since = column["time"] - start
        self.values = column[self.channel]
        speed = column[speeds[0]] * _TO_METRES_A_SECOND[units[speeds[0]]]
        there = np.isfinite(speed)
        if there.sum() < 2:
            raise KelError(f"lap {number} of {recording} has no speed")
        speed = np.interp(self.since, self.since[there], speed[there])
        self.metres = np.cumsum(np.diff(self.since, prepend=0.0) * speed)
        self.title = f"{vehicle}, {date}, lap {number}  {format_lap(milliseconds, strict=False)}"


def _distribution(table: Any) -> Figure:
    import matplotlib
    import pyarrow

    new = tuple(int(each) for each in matplotlib.__version__.split(".")[:2]) >= (3, 10)
    kinds = pyarrow.types
    numbers = [
        field.name
        for field in table.schema
        if kinds.is_integer(field.type) or kinds.is_floating(field.type)
    ]
    texts = [field.name for field in table.schema if kinds.is_string(field.type)]
    if not numbers:
        raise KelError("the query gives no numbers; accepted: recording and lap, or numbers")
    name = numbers[0]
    values = table[name].cast(pyarrow.float64()).to_numpy()
    figure = _figure(2)
    panel = figure.subplots()
    there = np.isfinite(values)
    if texts:
        words = np.array([each or "" for each in table[texts[0]].to_pylist()])[there]
        groups = sorted(set(words))
        if len(groups) > _MOST_GROUPS:
            raise KelError(
                f"'{texts[0]}' has {len(groups)} different texts; accepted: {_MOST_GROUPS} at most"
            )
        figure.set_figheight(1.5 + 0.3 * len(groups))
        boxes = [values[there][words == each] for each in groups]
        # The two ways of matplotlib before 3.10 and from then on.
        lying: Any = {"orientation": "horizontal"} if new else {"vert": False}
        panel.boxplot(boxes, **lying)
        panel.set_yticks(range(1, len(groups) + 1), groups)
        panel.invert_yaxis()
        panel.set_ylabel(texts[0])
    else:
        panel.hist(values[there], bins="auto" if there.sum() < 100_000 else 200)
        panel.set_ylabel("rows")
    panel.set_xlabel(name)
    panel.grid(alpha=0.3)
    return figure
