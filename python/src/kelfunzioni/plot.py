"""Plots of recordings, each in one call (extra ``plot``: matplotlib).

Every function draws into a figure of its own, or into that of its argument, and returns it; nothing
is shown or saved. Axes are labelled with units.
"""

from __future__ import annotations

from collections.abc import Sequence
from typing import TYPE_CHECKING, Any

import numpy as np
import numpy.typing as npt

from ._errors import KelError, RecordingError, nearest
from ._laps import Lap, Laps
from ._lapsource import place_columns
from ._mapped import MappedRecording
from ._table import Table

if TYPE_CHECKING:
    from matplotlib.figure import Figure

__all__ = ["channels", "distance", "laps", "progress", "track"]

_SPEED = 0x10  # the quantity
_KMH, _MPH, _MS = 3.6, 2.2369362920544, 1.0
_TO_METRES_A_SECOND = {"km/h": 1 / _KMH, "mph": 1 / _MPH, "m/s": _MS}


def distance(table: Table, speed: str | None = None) -> npt.NDArray[np.float64]:
    """Distance driven since the first of some rows, by the speed.

    Parameters
    ----------
    table : Table
        Rows with times.
    speed : str, optional
        Name of the column of the speed; None for the first in km/h, mph or m/s that is called so.

    Returns
    -------
    ndarray of float64
        Metres, at the times of the speed. Where it is missing it is taken from its neighbours.

    Raises
    ------
    RecordingError
        There is no speed, or no time.

    Examples
    --------
    >>> from kelfunzioni import Recording, plot
    >>> recording = Recording("kart.channels", "kart.samples")
    >>> bool(900 < plot.distance(recording)[-1] / 3 < 1500)
    True
    """
    _check(table)
    if speed is None:
        speed = _speed(table)
    table = table.table_of(speed)
    time, numbers = table.time, _metres_a_second(table, speed)
    steps = np.diff(time, prepend=time[:1]) * numbers
    return np.cumsum(np.where(steps > 0, steps, 0.0))


def _metres_a_second(table: Table, speed: str) -> npt.NDArray[np.float64]:
    """A column of speeds; what is missing is taken from its neighbours."""
    column = table[speed]
    if column.unit not in _TO_METRES_A_SECOND:
        raise RecordingError(
            f"'{speed}' is in {column.unit or 'no unit'}; "
            f"accepted: {', '.join(_TO_METRES_A_SECOND)}"
        )
    time, valid = table.time, column.valid
    if not valid.any():
        raise RecordingError(f"'{speed}' has no value")
    found: npt.NDArray[np.float64] = np.interp(time, time[valid], column.values[valid])
    return found * _TO_METRES_A_SECOND[column.unit]


def progress(
    table: Table, lap: Lap, length: float | None = None
) -> tuple[npt.NDArray[np.float64], npt.NDArray[np.float64]]:
    """Distance and time along a lap: at its start, at each of its rows, and at its end.

    Parameters
    ----------
    table : Table
        All rows of the recording, with a speed.
    lap : Lap
        One that is closed.
    length : float, optional
        Metres of the lap; None for those that the speed gives. Two laps of a circuit compare at
        the same places when both have the same.

    Returns
    -------
    metres, seconds : ndarray of float64
        From 0 to the length, and from 0 to the lap time.

    Raises
    ------
    RecordingError
        There is no speed, or the lap has no rows.

    Examples
    --------
    >>> import kelfunzioni as kel
    >>> from kelfunzioni import plot
    >>> recording = kel.Recording("kart.channels", "kart.samples")
    >>> metres, seconds = plot.progress(recording, kel.laps(recording).best)
    >>> float(metres[0]), float(seconds[0]), round(float(seconds[-1]), 3)
    (0.0, 0.0, 48.782)
    """
    _check(table)
    if not isinstance(lap, Lap):
        raise TypeError(f"a lap is {type(lap).__name__}; accepted: one of laps()")
    if length is not None and not (isinstance(length, (int, float)) and 0 < length < np.inf):
        raise KelError(f"a lap is {length!r} long; accepted: metres")
    if lap.milliseconds is None:
        raise KelError(f"lap {lap.number} is not closed; accepted: one with a time")
    rows = _at_speed(table, []).between(lap.start, lap.start + lap.seconds)
    since = np.concatenate([[0.0], rows.time - lap.start, [lap.seconds]])
    metres = distance(rows)
    # To the first row and from the last one on at their speeds.
    speeds = _metres_a_second(rows, _speed(rows))
    first, last = since[1] * speeds[0], (since[-1] - since[-2]) * speeds[-1]
    whole = np.concatenate([[0.0], first + metres, [first + metres[-1] + last]])
    if length is not None and whole[-1] > 0:
        whole *= length / whole[-1]
    return whole, since


def _speed(table: Table) -> str:
    """Name of the column of the speed: by its function, or by its name."""
    fast = [i for i in table.columns if i.unit in _TO_METRES_A_SECOND]
    found = [i for i in fast if i.function is not None and i.function.identifier & 0x7F == _SPEED]
    found += [i for i in fast if "peed" in i.name and "ccuracy" not in i.name]
    if not found:
        raise RecordingError("there is no speed; accepted: the name of its column")
    return found[0].name


def _at_speed(table: Table, names: Sequence[str], base: str | None = None) -> Table:
    """Rows of one time base, that of the speed or of a column, with some columns."""
    if not isinstance(table, MappedRecording):
        return table
    return table.on(_speed(table) if base is None else base, names)


def channels(
    table: Table, names: Sequence[str], *, over: str = "time", figure: Figure | None = None
) -> Figure:
    r"""Draw channels over time or distance, each in a panel.

    Parameters
    ----------
    table : Table
        Rows of a recording.
    names : sequence of str
        Names of columns.
    over : {"time", "distance"}
        What lies along the horizontal axis.
    figure : Figure, optional
        Where to draw.

    Returns
    -------
    Figure
        With an axis for each channel.

    Raises
    ------
    KelError
        There is no such column, or nothing to draw.

    Examples
    --------
    >>> from kelfunzioni import Recording, plot
    >>> recording = Recording("kart.channels", "kart.samples")
    >>> figure = plot.channels(recording, ["Wheel Speed", "Engine RPM"])
    >>> [axis.get_ylabel() for axis in figure.axes]
    ['Wheel Speed\nkm/h', 'Engine RPM\nrpm']
    """
    _check(table, figure)
    if not isinstance(names, str) and not len(names):
        raise KelError("there are no channels to draw; accepted: names of columns")
    columns = table.read(names)
    label = _along(over)
    figure = figure or _figure(len(columns))
    panels = figure.subplots(len(columns), sharex=True, squeeze=False)[:, 0]
    for panel, (name, column) in zip(panels, columns.items(), strict=True):
        along = table.table_of(name).time
        if over == "distance":
            along = np.interp(along, table.table_of(_speed(table)).time, distance(table))
        panel.plot(along, column.values, linewidth=0.9)
        panel.set_ylabel(_label(name, column.unit))
        panel.grid(alpha=0.3)
    panels[-1].set_xlabel(label)
    panels[-1].margins(x=0)
    return figure


def laps(
    table: Table, name: str, driven: Laps | Sequence[Lap], *, figure: Figure | None = None
) -> Figure:
    """Draw one channel of several laps over their distance, and the gap to the first of them.

    Parameters
    ----------
    table : Table
        All rows of the recording.
    name : str
        Name of the column.
    driven : Laps or sequence of Lap
        The laps of that recording to draw, the reference first. Of `Laps` those that count, the
        best first.
    figure : Figure, optional
        Where to draw.

    Returns
    -------
    Figure
        With an axis for the channel, and one for the gap in seconds.

    Raises
    ------
    KelError
        There is no such column, or no lap that is closed.

    Examples
    --------
    >>> import kelfunzioni as kel
    >>> from kelfunzioni import plot
    >>> recording = kel.Recording("kart.channels", "kart.samples")
    >>> figure = plot.laps(recording, "Wheel Speed", kel.laps(recording))
    >>> [line.get_label() for line in figure.axes[0].get_lines()]
    ['lap 2  0:48.782', 'lap 1  0:50.083', 'lap 3  0:48.844']
    """
    from ._laptime import format_lap

    _check(table, figure)
    chosen = list(driven)
    for lap in chosen:
        if not isinstance(lap, Lap):
            raise TypeError(f"a lap is {type(lap).__name__}; accepted: one of laps()")
    if isinstance(driven, Laps):
        chosen = sorted(
            (lap for lap in driven if lap.state == "good"), key=lambda lap: not lap.best
        )
    chosen = [lap for lap in chosen if lap.milliseconds is not None]
    if not chosen:
        raise KelError("there is no lap to draw; accepted: laps that are closed")
    if any(lap.session for lap in chosen):
        raise RecordingError("laps of several sessions have no common time; accepted: one session")
    table = _at_speed(table, [name])
    figure = figure or _figure(3)
    top, bottom = figure.subplots(2, sharex=True, height_ratios=[2, 1])
    reference: tuple[Any, Any] | None = None
    length: float | None = None
    for lap in chosen:
        rows = table.between(lap.start, lap.start + lap.seconds)
        metres, since = progress(table, lap, length)
        text = f"lap {lap.number}  {format_lap(lap.milliseconds or 0, strict=False)}"
        top.plot(metres[1:-1], rows[name].values, linewidth=0.9, label=text)
        if reference is None:
            reference, length = (metres, since), float(metres[-1])
        bottom.plot(metres, since - np.interp(metres, *reference), linewidth=0.9)
    top.set_ylabel(_label(name, table.units[name]))
    bottom.set_ylabel(f"gap to lap {chosen[0].number}\ns")
    bottom.set_xlabel("distance, m")
    figure.legend(loc="outside upper center", ncols=4, fontsize="small")
    for panel in (top, bottom):
        panel.grid(alpha=0.3)
    bottom.margins(x=0)
    return figure


def track(table: Table, color: str | None = None, *, figure: Figure | None = None) -> Figure:
    """Draw the track, coloured by a channel.

    Parameters
    ----------
    table : Table
        Rows with columns that are latitude and longitude.
    color : str, optional
        Name of the column that colours it; None for one colour.
    figure : Figure, optional
        Where to draw.

    Returns
    -------
    Figure
        Metres to the east and to the north of the middle, in the same scale.

    Raises
    ------
    KelError
        There is no such column, or no position.

    Examples
    --------
    >>> from kelfunzioni import Capture, plot
    >>> figure = plot.track(Capture("kart.ubx"), "Speed")
    >>> figure.axes[1].get_ylabel()
    'Speed, km/h'
    """
    _check(table, figure)
    names = place_columns(table)
    if names is None:
        raise RecordingError("there are no columns of latitude and longitude")
    table = _at_speed(table, [names[1], *([color] if color else [])], names[0])
    columns = table.read([*names, *([color] if color else [])])
    latitude, longitude = (columns[name] for name in names)
    there = latitude.valid & longitude.valid
    if not there.any():
        raise RecordingError("there is no position in these rows")
    degrees = np.stack([longitude.values, latitude.values])[:, there]
    middle = degrees.mean(axis=1, keepdims=True)
    # Metres of a degree: near enough for a picture of some kilometres.
    scale = np.array([[np.cos(np.radians(middle[1, 0])) * 111_320], [111_132]])
    east, north = (degrees - middle) * scale
    figure = figure or _figure(3)
    panel = figure.subplots()
    if color:
        dots = panel.scatter(east, north, c=columns[color].values[there], s=4, cmap="viridis")
        figure.colorbar(dots, ax=panel, label=_label(color, columns[color].unit, ", "))
    else:
        panel.plot(east, north, linewidth=0.9)
    panel.set_aspect("equal", "datalim")
    panel.set_xlabel("east, m")
    panel.set_ylabel("north, m")
    panel.grid(alpha=0.3)
    return figure


def _check(table: object, figure: object = None) -> None:
    if not isinstance(table, Table):
        raise TypeError(f"a table is {type(table).__name__}; accepted: the rows of a recording")
    if figure is not None and not hasattr(figure, "subplots"):
        raise TypeError(f"a figure is {type(figure).__name__}; accepted: one of matplotlib")


def _figure(panels: int) -> Figure:
    from matplotlib.figure import Figure

    return Figure(figsize=(9, 1.5 + 1.6 * panels), layout="constrained")


def _along(over: str) -> str:
    labels = {"time": "time, s", "distance": "distance, m"}
    if not isinstance(over, str) or over not in labels:
        raise KelError(
            f"nothing can be drawn over {over!r}; {nearest(str(over), labels)}"
            f"accepted: {', '.join(labels)}"
        )
    return labels[over]


def _label(name: str, unit: str, between: str = "\n") -> str:
    return f"{name}{between}{unit}" if unit else name
