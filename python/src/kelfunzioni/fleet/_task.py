"""What a worker does: hash some files, export some recordings, rewrite a data file."""

from __future__ import annotations

import functools
import os
import time
from dataclasses import dataclass
from typing import Any

from .._errors import KelError
from ._atomic import write_json
from ._data import GROUP, Group, rewrite, write_alone, write_group
from ._decode import Decoded, content_hash, decode_tables
from ._inputs import Source

__all__ = ["ExportTask", "HashTask", "RewriteTask", "failure", "signature"]


def signature(source: Source) -> str:
    """Size and time of change of each file: while they stay, its hash need not be computed."""
    stats = [os.stat(each) for each in _read(source)]
    return ";".join(f"{each.st_size}:{each.st_mtime_ns}" for each in stats)


def _read(source: Source) -> tuple[str, ...]:
    """Files that tell what a recording holds: its own, its mapping, and that one's database."""
    if not source.mapping:
        return source.paths
    database = _database(source.mapping, os.stat(source.mapping).st_mtime_ns)
    return (*source.paths, source.mapping, *([database] if database else []))


@functools.lru_cache(maxsize=64)
def _database(mapping: str, changed: int) -> str | None:
    from ..mapping import Mapping

    try:
        found = Mapping.load(mapping).database
    except KelError:  # it is said of each file when that is to be exported
        return None
    return None if found is None else os.fspath(found)


def failure(source: Source, error: BaseException) -> dict[str, str]:
    """Give a row of the table of failures: the file, and the reason in one line."""
    text = str(error)
    if isinstance(error, OSError) and error.strerror:
        text = error.strerror
        if error.filename and os.fsdecode(error.filename) not in source.paths:
            text += f": '{os.path.basename(os.fsdecode(error.filename))}'"
    elif not isinstance(error, KelError):
        text = f"{type(error).__name__}: {text}" if text else type(error).__name__
    return {"file": source.file, "reason": " ".join(text.split())}


@dataclass(frozen=True)
class HashTask:
    """Hash the bytes of some sources."""

    sources: tuple[Source, ...]

    def __call__(self) -> list[tuple[str, str] | dict[str, str]]:
        """Signature and hash of each, or why it cannot be read."""
        found: list[tuple[str, str] | dict[str, str]] = []
        for source in self.sources:
            try:
                found.append((signature(source), content_hash(_read(source))))
            except OSError as error:
                found.append(failure(source, error))
        return found


@dataclass(frozen=True)
class ExportTask:
    """Export some sources, and leave a marker.

    Attributes
    ----------
    folder, marker : str
        Of the export, and the path of the marker, whose folder is there.
    format : str
        Of the samples.
    sources : tuple of (Source, str, str)
        Each with its signature and its hash.
    memory : int
        Bytes that a worker has; 0: not known.
    """

    folder: str
    marker: str
    format: str
    sources: tuple[tuple[Source, str, str], ...]
    memory: int = 0

    def __call__(self) -> dict[str, Any]:
        """Give what stands in the marker, rows of tables and failures, and the seconds it took."""
        begun = time.perf_counter(), time.process_time()
        done: list[dict[str, Any]] = []
        failures: list[dict[str, str]] = []
        groups: dict[tuple[str, str], Group] = {}
        waiting: dict[str, dict[str, Any]] = {}
        writing = 0.0
        for source, known, digest in self.sources:
            try:
                tables = []
                if source.kind == "mapped":
                    self._fits(os.path.getsize(source.paths[0]) * _held(source.paths[0]))
                for decoded in decode_tables(source, identity=digest[:16]):
                    try:
                        data, batches, took = self._table(decoded)
                        rows = decoded.rows()
                    finally:
                        decoded.close()
                    writing += took
                    rows["recording"].update(hash=digest, signature=known, data=data)
                    tables.append((decoded, batches, rows))
                if signature(source) != known:
                    raise KelError("it changed while it was read")
            except Exception as error:
                if isinstance(error, OSError) and error.errno in _FULL:
                    raise
                failures.append(failure(source, error))
                continue
            # All tables of a file, or none.
            for decoded, batches, rows in tables:
                if rows["recording"]["data"]:
                    done.append(rows)
                else:
                    key = Group.key(decoded)
                    group = groups.setdefault(key, Group(key[0], decoded.schema))
                    group.add(decoded.recording, batches)
                    waiting[decoded.recording] = rows
        before = time.process_time()
        for group in groups.values():
            data = write_group(self.folder, group)
            for recording in group.recordings:
                waiting[recording]["recording"]["data"] = data
                done.append(waiting[recording])
        writing += time.process_time() - before
        result = {"done": done, "failures": failures}
        write_json(self.marker, result)
        spent = time.perf_counter() - begun[0], time.process_time() - begun[1]
        return {**result, "seconds": spent[0], "cpu": spent[1], "writing": writing}

    def _table(self, decoded: Decoded) -> tuple[str, list[Any], float]:
        """Write a table, or read its batches if it goes into a file with others; and the time."""
        if self.format == "parquet" and len(decoded) < GROUP:
            return "", list(decoded.batches()), 0.0
        if self.format == "mat":
            self._fits(_IN_MAT * len(decoded) * (8 + 5 * len(decoded.names)))
        before = time.process_time()
        data = write_alone(self.folder, decoded, self.format)
        return data, [], time.process_time() - before

    def _fits(self, needed: float) -> None:
        """Refuse what is held in memory whole, where it needs more than a worker has.

        Raises
        ------
        KelError
            It does. The text says how much it needs.
        """
        if self.memory and _EMPTY + needed > self.memory:
            whole, has = (round(each / 2**20) for each in (_EMPTY + needed, self.memory))
            raise KelError(
                f"it is held in memory whole, which needs about {whole} MiB, and a worker has "
                f"{has}; accepted: --memory '{whole} MiB'"
            )


def _held(path: str) -> int:
    """Bytes of memory for each byte of another logger's file, about; as measured."""
    ending = os.path.splitext(path)[1].lower()
    return {".mf4": 6, ".mdf": 6, ".dat": 6}.get(ending, 16)


_EMPTY = 200 << 20  # of a worker, with its packages
_IN_MAT = 2.2  # arrays, and the same once more as they are written


@dataclass(frozen=True)
class RewriteTask:
    """Put recordings of several data files into one."""

    folder: str
    place: str
    files: tuple[tuple[str, tuple[str, ...]], ...]

    def __call__(self) -> dict[str, str]:
        """For each recording the new data file."""
        return rewrite(self.folder, self.place, [(data, list(some)) for data, some in self.files])


_FULL = {28, 122, 27}  # no space, quota, file too large: the folder's fault, not the recording's
