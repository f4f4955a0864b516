"""Laps of a recording or a capture."""

from __future__ import annotations

import ctypes as c
import math
from collections.abc import Iterator, Sequence
from dataclasses import dataclass, replace
from typing import overload

from . import _library as lib
from ._errors import KelError, RecordingError, nearest
from ._handle import checked, text_of
from ._lapsource import NOTHING, by_logger, by_position, place_columns
from ._mapped import MappedRecording
from ._recording import Capture, Recording
from ._records import WORDS_AT, LapChoices, LapRecord, Line, Sector

__all__ = ["FinishLine", "Lap", "Laps", "laps"]

_SOURCES = {"any": 0, "logger": 1, "gps": 2}
_STATES = ("good", "out", "in", "no fix", "wrong way", "stood")


@dataclass(frozen=True)
class FinishLine:
    """A line across the track that is passed in one direction.

    Attributes
    ----------
    latitude, longitude : float
        Of its middle, degrees, WGS 84.
    course : float
        In which it is passed, degrees from north, clockwise.
    width : float
        From end to end, m.
    """

    latitude: float
    longitude: float
    course: float
    width: float = 30.0


@dataclass(frozen=True)
class Lap:
    """A lap. What is not known is NaN, or None.

    Attributes
    ----------
    number : int
        As the logger counted it, or from 1; 0 is the way out.
    session : int
        From 0; a new one begins where time runs backwards, or on by more than ten minutes.
    state : {"good", "out", "in", "no fix", "wrong way", "stood"}
        Whether it counts, and if not, why.
    best : bool
        Whether it is the best.
    milliseconds : int or None
        The lap time; None for a lap that is not closed.
    sectors : tuple of int or None
        Sector times, ms, in the order in which they are driven.
    start : float
        On the clock of the recording's rows, s; of a capture from its first row.
    gap : float
        To the best lap, s.
    top_speed, least_speed : float
        m/s.
    distance : float
        m.
    rows : int
        How many rows it has.
    """

    number: int
    session: int
    state: str
    best: bool
    milliseconds: int | None
    sectors: tuple[int | None, ...]
    start: float
    gap: float
    top_speed: float
    least_speed: float
    distance: float
    rows: int

    @property
    def seconds(self) -> float:
        """The lap time, s; NaN for a lap that is not closed."""
        return math.nan if self.milliseconds is None else self.milliseconds / 1000


class Laps(Sequence[Lap]):
    """Laps that were found, in the order in which they were driven."""

    def __init__(self, found: Sequence[Lap], notes: str) -> None:
        self._found = tuple(found)
        self.notes = notes

    @property
    def best(self) -> Lap | None:
        """The best lap; None where none counts."""
        return next((lap for lap in self._found if lap.best), None)

    @overload
    def __getitem__(self, which: int) -> Lap: ...
    @overload
    def __getitem__(self, which: slice) -> Laps: ...

    def __getitem__(self, which: int | slice) -> Lap | Laps:
        if isinstance(which, slice):
            return Laps(self._found[which], self.notes)
        return self._found[which]

    def __len__(self) -> int:
        return len(self._found)

    def __repr__(self) -> str:
        best = self.best
        return f"Laps({len(self)} laps, best: {best.number if best else None})"


def laps(
    recording: Recording | Capture | MappedRecording,
    *,
    source: str = "any",
    line: FinishLine | None = None,
    sectors: Sequence[float | FinishLine] = (),
    minimum: float | None = None,
) -> Laps:
    """Find the laps of a recording or a capture (``kelGiriCalcola``).

    Parameters
    ----------
    recording : Recording, Capture or MappedRecording
        With all its rows. Of another logger's recording laps are found by its columns of lap
        numbers or lap times, or by its positions, to the millisecond.
    source : {"any", "logger", "gps"}
        Whose laps: the logger's own if it has any and no line is given, or by GPS.
    line : FinishLine, optional
        None: the place that is passed most often at speed.
    sectors : sequence of float or FinishLine
        Ends of sectors in the order in which they are driven: metres behind the finish line, or
        lines.
    minimum : float, optional
        Shortest lap by GPS, 1 to 3600 s; None: 10 s.

    Returns
    -------
    Laps
        A sequence of `Lap`, with ``notes`` and ``best``.

    Raises
    ------
    RecordingError
        No lap is closed, or a line is no line. The text says why.
    KelError
        A wrong argument.

    Examples
    --------
    >>> found = laps(Recording("kart.channels", "kart.samples"))
    >>> [(lap.number, lap.state, lap.milliseconds) for lap in found]
    [(0, 'out', None), (1, 'good', 50083), (2, 'good', 48782), (3, 'good', 48844), (4, 'in', None)]
    >>> found.best.number
    2
    """
    if not isinstance(recording, (Recording, Capture, MappedRecording)):
        raise TypeError(
            f"laps of {type(recording).__name__}; "
            f"accepted: a Recording, a Capture or a MappedRecording"
        )
    if source not in _SOURCES:
        raise KelError(
            f"there is no source {source!r}; {nearest(str(source), _SOURCES)}"
            f"accepted: {', '.join(_SOURCES)}"
        )
    if minimum is not None and not 1 <= minimum <= 3600:
        raise KelError(f"the shortest lap is {minimum} s; accepted: 1 to 3600")
    choices, kept = _choices(source, line, sectors, minimum)
    if isinstance(recording, MappedRecording):
        found = _mapped(recording, source, line is not None, choices)
    else:
        found = _found(recording, choices)
    del kept
    return found


def _mapped(recording: MappedRecording, source: str, at_line: bool, choices: LapChoices) -> Laps:
    logged = None if source == "gps" or (source == "any" and at_line) else by_logger(recording)
    if logged is not None:
        try:
            return _later(_found(logged[0], choices), logged[1])
        except RecordingError:
            if source == "logger" or place_columns(recording) is None:
                raise
    if source == "logger":
        raise RecordingError(f"there is no column of lap numbers or lap times; {NOTHING}")
    capture, start = by_position(recording)
    choices.fonte = _SOURCES["any"]  # a capture has positions alone
    return _later(_found(capture, choices), start)


def _later(found: Laps, start: float) -> Laps:
    return Laps([replace(lap, start=lap.start + start) for lap in found], found.notes)


def _found(recording: Recording | Capture, choices: LapChoices) -> Laps:
    with recording._handle.open() as reg:
        place = checked(lambda error: lib.laps_open(reg, error))
        try:
            checked(lambda error: lib.laps_add(place, error))
            checked(lambda error: lib.laps_find(place, choices, error))
            return Laps(list(_read(place)), text_of(lib.laps_said(place)))
        finally:
            lib.laps_close(place)


def _line(line: FinishLine) -> Line:
    if not isinstance(line, FinishLine):
        raise TypeError(f"a line is {type(line).__name__}; accepted: a FinishLine")
    return Line(line.latitude, line.longitude, line.course, line.width)


def _choices(
    source: str,
    line: FinishLine | None,
    sectors: Sequence[float | FinishLine],
    minimum: float | None,
) -> tuple[LapChoices, object]:
    ends = (Sector * len(sectors))()
    for end, sector in zip(ends, sectors, strict=True):
        if isinstance(sector, FinishLine):
            end.linea = _line(sector)
        elif not sector > 0:
            raise KelError(f"a sector ends at {sector} m; accepted: above 0, or a FinishLine")
        else:
            end.metri = sector
    choices = LapChoices(_SOURCES[source], len(ends), None, ends, minimum or 0.0, None, WORDS_AT)
    if line is not None:
        choices.linea = c.pointer(_line(line))
    return choices, ends


def _read(place: int) -> Iterator[Lap]:
    record = LapRecord()
    for which in range(lib.laps_number(place)):
        lib.laps_lap(place, which, record)
        times = (record.settori[i] for i in range(record.num_settori))
        yield Lap(
            number=record.numero,
            session=record.sessione,
            state=_STATES[record.stato],
            best=bool(record.migliore),
            milliseconds=record.ms if record.ms >= 0 else None,
            sectors=tuple(each if each >= 0 else None for each in times),
            start=record.inizio,
            gap=record.distacco,
            top_speed=record.massima,
            least_speed=record.minima,
            distance=record.metri,
            rows=record.campioni,
        )
