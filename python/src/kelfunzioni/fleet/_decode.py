"""The heart, without any engine: a recording in, Arrow batches and rows of tables out."""

from __future__ import annotations

import contextlib
import datetime
import hashlib
import itertools
import mmap
import re
import threading
import warnings
from collections.abc import Iterator
from dataclasses import replace
from typing import Any

import numpy as np
import pyarrow

from .. import KelError, KelWarning, RecordingError, __version__
from .._laps import FinishLine, Lap, laps
from .._lapsource import lap_column, place_columns
from .._mapped import MappedRecording
from .._recording import Capture, Recording
from .._table import Table
from ._compute import pc
from ._inputs import Source, shown

__all__ = ["Decoded", "content_hash", "content_of", "decode", "decode_tables"]

_PAGES = 32 << 20  # bytes of a file from which its pages are given back while it is read
_PAUSE = 600_000_000  # a session ends before a pause of ten minutes, us
_LAP_ROWS = 3 << 18
_BEFORE, _MOMENT = 20.0, 0.5  # s: before a lap that goes on, and what its start may differ by
_LINE = re.compile(r"finish line found.*: line ([-\d.,]+)")
_BATCH = 1 << 16
_CLOCKS = 946_684_800.0, 4_102_444_800.0  # seconds since 1970: the years 2000 to 2100
_TAKEN = ("recording", "session", "time", "rate", "vehicle", "date")
_UNSTEADY = 0.02
_PATH_DATE = re.compile(r"(?<!\d)(20\d\d)-?(0[1-9]|1[0-2])-?(0[1-9]|[12]\d|3[01])(?!\d)")


def content_hash(paths: tuple[str, ...]) -> str:
    """Hash of the bytes of files, the length of each before them."""
    whole = hashlib.sha256()
    for path in paths:
        inner = hashlib.sha256()
        with open(path, "rb") as file:
            while piece := file.read(1 << 20):
                inner.update(piece)
        whole.update(inner.digest())
    return whole.hexdigest()


def decode(source: Source, *, identity: str | None = None) -> Decoded:
    """Open a recording, to be read in Arrow batches.

    Parameters
    ----------
    source : Source
        Its files.
    identity : str, optional
        Name of the recording in all tables; None: the first digits of the hash of its bytes.

    Raises
    ------
    KelError
        The bytes are no recording, or one without rows, or with several time bases.
    OSError
        A file cannot be read.
    """
    found = decode_tables(source, identity=identity)
    if len(found) != 1:
        raise RecordingError(
            f"it has {len(found)} time bases, which have no rows in common; accepted: decode_tables"
        )
    return found[0]


def decode_tables(source: Source, *, identity: str | None = None) -> tuple[Decoded, ...]:
    """Open a recording of any number of time bases: another logger's, that has a mapping.

    Parameters
    ----------
    source, identity
        As of `decode`. From the second on the names of the tables end in a point and a number.

    Raises
    ------
    KelError, OSError
        As of `decode`.
    """
    if identity is None:
        identity = content_hash(source.paths)[:16]
    if source.kind != "mapped":
        return (Decoded(source, identity),)
    from ..mapping import Mapping

    whole = Mapping.load(source.mapping).open(source.paths[0])
    tables = [each for each in whole.tables if len(each)]
    if not tables:
        raise RecordingError("it has no rows")
    found = []
    for number, table in enumerate(tables):
        name = f"{identity}.{number}" if number else identity
        found.append(Decoded(source, name, table, whole))
    return tuple(found)


def content_of(recording: str) -> str:
    """The part of a recording's name that all tables of one file have in common."""
    return recording.partition(".")[0]


class Decoded:
    """A recording that is open.

    Attributes
    ----------
    source : Source
    recording : str
        Its name in all tables.
    rate : float
        Rows a second; 0 where rows have no times, or where there are less than two.
    start : datetime or None
        When it began, UTC.
    date : date or None
        Of its start; without that the date in its path.
    schema : pyarrow.Schema
        Of the batches: ``recording``, ``session``, ``time`` in seconds since the start of the
        session, and a column for each channel in the base unit of its function.
    """

    def __init__(
        self,
        source: Source,
        identity: str,
        table: Table | None = None,
        whole: MappedRecording | None = None,
    ) -> None:
        self.source, self.recording = source, identity
        self._files = [_MappedFile(each) for each in source.paths if whole is None]
        self._whole = whole
        self.table: Any = self._open() if table is None else table
        self._base_units()
        # Texts of another logger are columns; those of packets stand in columns of their fields.
        self.infos = [
            each for each in self.table.columns if each.kind != "text" or whole is not None
        ]
        # The first batch tells rate and start, and is kept, so that nothing is decoded twice.
        self._stream = pyarrow.RecordBatchReader.from_stream(self.table)
        self._pieces_of_rows = _pieces_of(self._stream)
        self._first: pyarrow.RecordBatch | None = next(self._pieces_of_rows, None)
        if self._first is None:
            raise RecordingError("it has no rows")
        self.names = _names([each.name for each in self.infos])
        self._timed = self._stream.schema.field(0).type == pyarrow.duration("us")
        self.rate, self.start = self._rate(), self._start()
        self.date = self.start.date() if self.start else _date_of(source.file)
        fields = list(self._stream.schema)[1 if self._timed else 0 :]
        self.schema = pyarrow.schema(
            [
                ("recording", pyarrow.string()),
                ("session", pyarrow.int16()),
                ("time", pyarrow.float64()),
                *(old.with_name(new) for old, new in zip(fields, self.names, strict=True)),
            ]
        )
        self._statistics = [_Statistics() for _ in self.names]
        self._seconds, self._begins = 0.0, [0]
        self._firsts: list[float] = []

    def _open(self) -> Recording | Capture:
        buffers = [each.data for each in self._files]
        if self.source.kind == "capture":
            return Capture(buffers[0])
        return Recording(buffers[0], buffers[1])

    def _base_units(self) -> None:
        """Show each channel in its function's base unit, so that files can be compared."""
        for info in self.table.columns:
            units = list(info.function.units) if info.function is not None else []
            if info.unit in units[1:]:
                # Columns of GPS solutions have their unit for good, the same in all files.
                with warnings.catch_warnings(), contextlib.suppress(KelError):
                    warnings.simplefilter("ignore", KelWarning)
                    self.table.set_unit(info.name, units[0])

    def __len__(self) -> int:
        return len(self.table)

    def _rate(self) -> float:
        if not self._timed or self._first is None or self._first.num_rows < 2:
            return 0.0
        times = np.asarray(self._first.column(0).cast(pyarrow.int64()))
        step = float(np.median(np.diff(times))) / 1e6
        if step <= 0:
            return 0.0
        whole = round(1 / step)
        if self._whole is not None and abs(1 / step - whole) <= _UNSTEADY * whole:
            return float(whole)  # the clock of a bus is not that of who sends
        return float(f"{1 / step:.3g}")

    def _start(self) -> datetime.datetime | None:
        """Tell the start by the first UTC of the first batch, less the time until then.

        The clock of another logger's file tells it, where it counts the seconds since 1970.
        """
        epoch = datetime.datetime(1970, 1, 1, tzinfo=datetime.timezone.utc)
        if self._whole is not None and _CLOCKS[0] <= self._whole.start < _CLOCKS[1]:
            return epoch + datetime.timedelta(microseconds=round(self._whole.start * 1e6))
        if self._first is None or "UTC" not in self._stream.schema.names:
            return None
        column = self._first.column("UTC")
        if not pyarrow.types.is_timestamp(column.type) or column.null_count == len(column):
            return None
        row = int(np.flatnonzero(np.asarray(column.is_valid()))[0])
        micros = column[row].value
        if self._timed:
            times = self._first.column(0)
            micros -= max(times[row].value - times[0].value, 0)
        return epoch + datetime.timedelta(microseconds=micros)

    def batches(self) -> Iterator[pyarrow.RecordBatch]:
        """Read all rows, once, in batches of 65536 that each are decoded when asked for."""
        # Tables of one file have their times from one moment on.
        clock = _Clock(None if self._whole is None else 0)
        first, self._first = self._first, None
        with self.given_back():
            for batch in itertools.chain([] if first is None else [first], self._pieces_of_rows):
                columns = list(batch.columns)
                rows = batch.num_rows
                session: Any = pyarrow.array(np.zeros(rows, np.int16))
                time: Any = pyarrow.nulls(rows, pyarrow.float64())
                if self._timed:
                    session, time = clock.read(columns.pop(0))
                for statistics, column in zip(self._statistics, columns, strict=True):
                    statistics.add(column)
                name = pyarrow.repeat(pyarrow.scalar(self.recording), rows)
                yield pyarrow.RecordBatch.from_arrays(
                    [name, session, time, *columns], schema=self.schema
                )
        self._seconds, self._begins, self._firsts = clock.seconds, clock.begins, clock.firsts

    def rows(self) -> dict[str, Any]:
        """Rows of the tables, behind the last batch: of ``recordings``, ``channels``, ``laps``."""
        driven, note = self._laps()
        position = self._position()
        recording = {
            "recording": self.recording,
            "file": self.source.file,
            "kind": self.source.kind,
            "vehicle": self.source.vehicle,
            "date": self.date.isoformat() if self.date else None,
            "start": self.start.isoformat() if self.start else None,
            "seconds": self._seconds,
            "rows": len(self.table),
            "rate": self.rate,
            "channels": len(self.names),
            "laps": sum(lap["state"] == "good" for lap in driven),
            "lap_note": note,
            "latitude": position[0],
            "longitude": position[1],
            "software": __version__,
        }
        channels = [
            {
                "recording": self.recording,
                "name": name,
                "channel": info.name,
                "identifier": f"0x{info.function.identifier:08X}" if info.function else None,
                "long_name": info.long_name,
                "unit": info.unit,
                "rate": self.rate,
                **statistics.row(),
            }
            for name, info, statistics in zip(self.names, self.infos, self._statistics, strict=True)
        ]
        return {"recording": recording, "channels": channels, "laps": driven}

    def _position(self) -> list[float | None]:
        names = ("Latitude", "Longitude")
        if self._whole is None:
            return [self._mean(each) for each in names]
        # Of the whole file, so that all its tables are of one track.
        columns = [self._whole[each] for each in place_columns(self._whole) or ()]
        there = [column.values[column.valid] for column in columns]
        return [float(each.mean(dtype=float)) if len(each) else None for each in there] or [
            None,
            None,
        ]

    def _mean(self, name: str) -> float | None:
        if name not in self.names:
            return None
        found: float | None = self._statistics[self.names.index(name)].row()["mean"]
        return found

    def _laps(self) -> tuple[list[dict[str, Any]], str]:
        if self._whole is not None:
            column = lap_column(self._whole)
            if column is not None and column not in self.table.names:
                return [], f"laps are those of the rows with {column}"
        found: list[tuple[Lap, int]] = []
        notes: list[str] = []
        with self.given_back():
            for kind, first, end in self._spans():
                if kind == "whole":
                    found += self._driven(self._whole or self.table, 0, notes)
                elif kind == "sessions":
                    span = self._cut(self._begins[first], self._row_of(end))
                    found += self._driven(span, first, notes)
                else:
                    found += self._in_windows(first, self._begins[first], end, notes)
        times = [lap.milliseconds for lap, _ in found if lap.best]
        best = min((each for each in times if each is not None), default=None)
        rows = [self._lap_row(lap, session, best) for lap, session in found]
        return rows, "; ".join(dict.fromkeys(each.strip() for each in notes if each.strip()))

    def _lap_row(self, lap: Lap, session: int, best: int | None) -> dict[str, Any]:
        time = lap.milliseconds
        return {
            "recording": self.recording,
            "lap": lap.number,
            "session": session,
            "state": lap.state,
            "best": lap.best and time == best,
            "ms": time,
            "start": lap.start - (self._firsts[session] if self._firsts else 0.0),
            "gap": None if time is None or best is None else (time - best) / 1000,
            "top_speed": lap.top_speed,
            "least_speed": lap.least_speed,
            "distance": lap.distance,
            "rows": lap.rows,
        }

    def _spans(self) -> Iterator[tuple[str, int, int]]:
        """What laps are found in at once: that takes some 270 bytes a row.

        All rows; or from one session to before another one; or of one long session (its number)
        the rows until the end, in windows.
        """
        if len(self.table) <= _LAP_ROWS or self._whole is not None:
            yield "whole", 0, 0
            return
        first, last = 0, len(self._begins)
        for session in range(last):
            rows = self._row_of(session + 1) - self._begins[session]
            if rows > _LAP_ROWS:
                yield "session", session, self._row_of(session + 1)
                first = session + 1
            elif session + 1 == last or self._row_of(session + 2) - self._begins[first] > _LAP_ROWS:
                yield "sessions", first, session + 1
                first = session + 1

    def _row_of(self, session: int) -> int:
        """The row that a session begins with; behind the last one the number of rows."""
        return self._begins[session] if session < len(self._begins) else len(self.table)

    def _cut(self, first: int, end: int) -> Recording | Capture:
        """Rows as a recording of their own. Those of a capture are where they are on average."""
        rows = len(self.table)
        if isinstance(self.table, Recording):
            channels, samples = (each.data for each in self._files)
            size = (len(samples) - self.table.leftover) // rows
            return Recording(channels, samples[first * size : end * size], stamps=self.table.stamps)
        stream = self._files[0].data
        return Capture(stream[first * len(stream) // rows : end * len(stream) // rows])

    def _driven(
        self,
        table: Recording | Capture | MappedRecording,
        session: int,
        notes: list[str],
        line: FinishLine | None = None,
    ) -> list[tuple[Lap, int]]:
        """Laps of rows whose first session has a number; they start on the clock of the rows."""
        try:
            driven = laps(table, line=line)
        except KelError as error:
            notes.append(str(error))
            return []
        if line is None:
            notes.append(driven.notes)
        # A receiver's laps count from its first row.
        clock = float(table[:1].time[0]) if isinstance(table, Capture) else 0.0
        return [(replace(lap, start=lap.start + clock), lap.session + session) for lap in driven]

    def _in_windows(
        self, session: int, first: int, end: int, notes: list[str]
    ) -> list[tuple[Lap, int]]:
        """Laps of a session that is too long to be held, window by window.

        A window begins a lap before the one that was open at the end of the window before, as laps
        need one that is closed; a line that was found in the first window is that of all.
        """
        found: list[tuple[Lap, int]] = []
        line: FinishLine | None = None
        open_lap: Lap | None = None
        while first < end:
            stop = min(first + _LAP_ROWS, end)
            table = self._cut(first, stop)
            said: list[str] = []
            driven = self._driven(table, session, said, line)
            if line is None:
                notes += said
                line = _line_in(said)
            following = stop
            if open_lap is not None:
                resumed = open_lap.start - _MOMENT
                driven = [each for each in driven if each[0].start >= resumed]
                if driven and line is not None:  # laps by GPS are counted from each window's first
                    more = open_lap.number - driven[0][0].number
                    driven = [(replace(a, number=a.number + more), b) for a, b in driven]
            if stop < end and driven:
                open_lap = driven.pop()[0]
                before = driven[-1][0] if driven else open_lap
                for each in (before, open_lap):
                    following = first + int(np.searchsorted(table.time, each.start - _BEFORE))
                    if following > first:
                        break
            found += driven
            if following <= first:
                notes.append(f"a lap of more than {stop - first} rows was not followed")
                open_lap, following = None, stop
            first = following
        return found

    @contextlib.contextmanager
    def given_back(self) -> Iterator[None]:
        """Give back the pages of large files while they are read: a worker's memory is counted."""
        large = [each for each in self._files if len(each.data) > _PAGES]
        done = threading.Event()

        def give_back() -> None:
            while not done.wait(0.02):
                for each in large:
                    each.give_back()

        thread = threading.Thread(target=give_back, daemon=True) if large else None
        if thread is not None:
            thread.start()
        try:
            yield
        finally:
            done.set()
            if thread is not None:
                thread.join()

    def close(self) -> None:
        """Close it."""
        close = getattr(self.table, "close", None)
        if close is not None:
            close()


def _line_in(notes: list[str]) -> FinishLine | None:
    """The finish line that was found, as the notes say it."""
    said = _LINE.search(" ".join(notes))
    return FinishLine(*(float(each) for each in said[1].split(","))) if said else None


def _pieces_of(stream: pyarrow.RecordBatchReader) -> Iterator[pyarrow.RecordBatch]:
    """Batches of no more than 65536 rows: tables that lie in memory come in one."""
    for batch in stream:
        for start in range(0, batch.num_rows, _BATCH):
            yield batch.slice(start, _BATCH)


class _MappedFile:
    """A file that is mapped, and whose pages can be given back."""

    def __init__(self, path: str) -> None:
        self.path = shown(path)
        with open(path, "rb") as file:
            try:
                self._map: mmap.mmap | None = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
                self.data = np.frombuffer(self._map, np.uint8)
            except ValueError:  # nothing can be mapped of an empty file
                self._map, self.data = None, np.empty(0, np.uint8)

    def give_back(self) -> None:
        if self._map is not None:
            self._map.madvise(mmap.MADV_DONTNEED)


class _Clock:
    """Times since the start of their session, from times of any origin in microseconds.

    `start` is that of the first session; None: its first row.
    """

    def __init__(self, start: int | None = None) -> None:
        self._session, self._first = 0, start
        self._last: int | None = None
        self.seconds = 0.0
        self.begins = [0]
        self.firsts: list[float] = []  # s
        self._rows = 0

    def read(self, column: pyarrow.Array) -> tuple[pyarrow.Array, pyarrow.Array]:
        times = np.asarray(column.cast(pyarrow.int64()))
        if not len(times):
            return pyarrow.array([], pyarrow.int16()), pyarrow.array([], pyarrow.float64())
        if self._last is None:
            self._last = int(times[0])
            self._first = self._last if self._first is None else self._first
            self.firsts.append(self._first / 1e6)
        steps = np.diff(times, prepend=np.int64(self._last))
        begins = np.flatnonzero((steps < 0) | (steps > _PAUSE))
        sessions = np.full(len(times), self._session, np.int64)
        firsts = np.full(len(times), self._first, np.int64)
        for begin in begins:
            self._session, self._first = self._session + 1, int(times[begin])
            self.begins.append(self._rows + int(begin))
            self.firsts.append(self._first / 1e6)
            sessions[begin:], firsts[begin:] = self._session, self._first
        self.seconds += float(np.where((steps < 0) | (steps > _PAUSE), 0, steps).sum()) / 1e6
        self._last = int(times[-1])
        self._rows += len(times)
        sessions = np.minimum(sessions, np.iinfo(np.int16).max)
        return pyarrow.array(sessions.astype(np.int16)), pyarrow.array((times - firsts) / 1e6)


class _Statistics:
    """Of a channel, in the order of its rows: the same whoever computes them."""

    def __init__(self) -> None:
        self._samples = self._nulls = 0
        self._least: float | None = None
        self._greatest: float | None = None
        self._sum = 0.0

    def add(self, column: pyarrow.Array) -> None:
        self._samples += len(column)
        self._nulls += column.null_count
        kind = column.type
        text = pyarrow.types.is_string(kind)
        if column.null_count == len(column) or text or pyarrow.types.is_temporal(kind):
            return
        both = pc.min_max(column)
        least, greatest = (float(both[each].as_py()) for each in ("min", "max"))
        self._least = least if self._least is None else min(self._least, least)
        self._greatest = greatest if self._greatest is None else max(self._greatest, greatest)
        self._sum += float(pc.sum(column).as_py())

    def row(self) -> dict[str, Any]:
        there = self._samples - self._nulls
        return {
            "samples": self._samples,
            "nulls": self._nulls,
            "least": self._least,
            "greatest": self._greatest,
            "mean": self._sum / there if there and self._least is not None else None,
        }


def _names(given: list[str]) -> list[str]:
    """Names of columns: SQL sees no difference between capitals and small letters."""
    taken, found = {*_TAKEN}, []
    for name in given:
        number, word = 1, name or "unnamed"
        while word.lower() in taken:
            number += 1
            word = f"{name} {number}"
        taken.add(word.lower())
        found.append(word)
    return found


def _date_of(path: str) -> datetime.date | None:
    for year, month, day in reversed(_PATH_DATE.findall(path)):
        with contextlib.suppress(ValueError):
            return datetime.date(int(year), int(month), int(day))
    return None
