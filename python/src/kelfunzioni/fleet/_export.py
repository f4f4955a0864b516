"""The whole export: what is to be done, handed to workers, and made to count at the end."""

from __future__ import annotations

import hashlib
import os
import time
from collections.abc import Callable, Iterable, Sequence
from dataclasses import dataclass, field

from .. import __version__
from .._errors import KelError
from ._decode import content_of
from ._engine import Engine, EngineLostError, bytes_of, engine
from ._folder import Folder
from ._inputs import Source, find
from ._state import State
from ._task import ExportTask, HashTask, failure, signature

__all__ = ["TASK_BYTES", "Progress", "Summary", "export"]

Progress = Callable[[str, int, int], None]
"""Told what is being done, how many bytes of it are done, and how many there are."""

TASK_BYTES = 16 << 20
_DIED = "the worker that read it died each time; its memory was full, or the file shrank meanwhile"


@dataclass
class Summary:
    """What a run has done.

    Attributes
    ----------
    files : int
        Recordings that were found.
    exported, unchanged, copies : int
        Of these: done now, done before, and with the same content as another one.
    ignored : int
        Files of folders that are no recordings.
    rows, bytes : int
        Of what was exported.
    failures : list of (str, str)
        Files that could not be exported, each with the reason.
    seconds : float
        That the run took.
    work : dict of str to float
        Of all workers: seconds in ``"tasks"``; seconds of processors, ``"cpu"``, and of these for
        ``"writing"``. Seconds until all were hashed: ``"hashing"``.
    """

    files: int = 0
    exported: int = 0
    unchanged: int = 0
    copies: int = 0
    ignored: int = 0
    rows: int = 0
    bytes: int = 0
    failures: list[tuple[str, str]] = field(default_factory=list)
    seconds: float = 0.0
    work: dict[str, float] = field(default_factory=dict)


def export(
    inputs: Iterable[str],
    folder: str,
    *,
    format: str = "parquet",
    vehicle: str | None = None,
    mappings: Sequence[tuple[str, str]] = (),
    jobs: int | None = None,
    scheduler: str | None = None,
    memory: str = "512 MiB",
    checksum: bool = False,
    task_bytes: int = TASK_BYTES,
    progress: Progress = lambda what, done, total: None,
) -> Summary:
    """Export recordings. What was exported before and has not changed stays as it is.

    Parameters
    ----------
    inputs : iterable of str
        Files, folders, patterns: see `find`.
    folder : str
        Where to, seen at the same path by all workers.
    format : {"parquet", "csv", "mdf", "mat"}
        Of the samples. The tables are always Parquet.
    vehicle, mappings
        See `find`.
    jobs, scheduler, memory
        Workers on this machine (0: this process), or the address of a scheduler of Dask; and the
        most memory of a worker on this machine.
    checksum : bool
        Compare contents, also of files whose size and time of change are the same.
    task_bytes : int
        Bytes of recordings that a task has, about.
    progress : callable
        Told how far it is.

    Raises
    ------
    KelError
        A wrong argument, another run works there, or the scheduler is gone.
    OSError
        The tables cannot be written.
    """
    begun = time.monotonic()
    most = bytes_of(memory)
    place = Folder(folder)
    summary = Summary()
    with place.locked(format):
        place.begin()
        state = State(place)
        found = find(inputs, vehicle=vehicle, mappings=mappings)
        summary.files, summary.ignored = len(found.sources), found.ignored
        summary.failures += found.failures
        asked = {each.file for each in found.sources} | {file for file, _ in found.failures}
        run = _Run(place, state, summary, progress, task_bytes)
        run.memory = 0 if scheduler else most
        try:
            with engine(jobs, scheduler, memory) as workers:
                todo = run.plan(workers, found.sources, checksum)
                run.work(workers, todo, format)
                run.rewrite(workers)
        except (EngineLostError, TimeoutError) as error:
            raise KelError(
                f"the scheduler{f' at {scheduler}' if scheduler else ''} is gone; "
                f"start it, and run the same command again: what is done stays"
            ) from error
        rows = [{"file": file, "reason": reason} for file, reason in summary.failures]
        progress("tables", 0, 0)
        place.commit(state.tables(rows, asked))
    summary.seconds = time.monotonic() - begun
    return summary


Todo = list[tuple[Source, str, str]]


class _Run:
    """One run: its steps in their order."""

    def __init__(
        self, folder: Folder, state: State, summary: Summary, progress: Progress, task_bytes: int
    ) -> None:
        self._folder, self._state, self._summary = folder, state, summary
        self._progress, self._task_bytes = progress, task_bytes
        self.memory = 0
        self._spent = {"tasks": 0.0, "cpu": 0.0, "writing": 0.0, "hashing": 0.0}
        summary.work = self._spent

    def plan(self, workers: Engine, sources: list[Source], checksum: bool) -> Todo:
        """Tell what is to be exported: neither what is done nor what is there twice."""
        state, summary = self._state, self._summary
        claimed: set[str] = set()
        unknown: list[Source] = []
        for source in sources:
            try:
                known = signature(source)
            except OSError as error:
                self._failed(source, error)
                continue
            done = [
                name
                for name in state.owners[source.file]
                if state.recordings[name]["signature"] == known and self._current(name, source)
            ]
            if done and not checksum:
                claimed.add(content_of(done[0]))
                summary.unchanged += 1
            else:
                unknown.append(source)
        todo: Todo = []
        before = {each.file: set(state.owners[each.file]) for each in unknown}
        for source, known, digest in self._hashes(workers, unknown):
            name = digest[:16]
            if name in claimed:
                summary.copies += 1
            elif name in state.recordings and self._current(name, source):
                state.moved(name, source.file, known)
                summary.unchanged += 1
            else:
                todo.append((source, known, digest))
            claimed.add(name)
            before[source.file] = {e for e in before[source.file] if content_of(e) != name}
        # What a changed file held before is no more, unless it lies in another file now.
        hashed = {source.file for source, *_ in todo} | set(before)
        failed = {file for file, _ in summary.failures}
        for file in hashed - failed:
            for name in before.get(file, set()):
                if content_of(name) not in claimed:
                    state.drop(name)
        return todo

    def _current(self, name: str, source: Source) -> bool:
        row = self._state.recordings[name]
        return bool(row["software"] == __version__ and row["vehicle"] == source.vehicle)

    def _failed(self, source: Source, error: BaseException) -> None:
        row = failure(source, error)
        self._summary.failures.append((row["file"], row["reason"]))

    def _hashes(self, workers: Engine, sources: list[Source]) -> Todo:
        found: dict[Source, tuple[str, str]] = {}
        sizes = {each: _size(each) for each in sources}
        total, done = sum(sizes.values()), 0
        begun = time.monotonic()
        tasks = [HashTask(tuple(each)) for each in self._batches(sources, 4 * self._task_bytes)]
        self._progress("hashes", 0, total)
        for task, result in workers.run(tasks):
            for number, source in enumerate(task.sources):  # type: ignore[attr-defined]
                one = result if isinstance(result, BaseException) else result[number]
                if isinstance(one, tuple):
                    found[source] = one
                elif isinstance(one, dict):
                    self._summary.failures.append((one["file"], one["reason"]))
                else:
                    self._failed(source, one)
                done += sizes[source]
            self._progress("hashes", done, total)
        self._spent["hashing"] = time.monotonic() - begun
        return [(each, *found[each]) for each in sources if each in found]

    def _batches(self, sources: list[Source], most: int) -> list[list[Source]]:
        """Several files a task. Those of one folder stay together, where they are not too many."""
        found: list[list[Source]] = [[]]
        size, folder = 0, ""
        for source in sources:
            here = os.path.dirname(source.paths[-1])
            if size >= most and (here != folder or size >= 2 * most):
                found.append([])
                size = 0
            found[-1].append(source)
            size += _size(source)
            folder = here
        return [each for each in found if each]

    def work(self, workers: Engine, todo: Todo, format: str) -> None:
        """Export, and take over what each task has done."""
        sizes = {source.file: _size(source) for source, *_ in todo}
        total, done = sum(sizes.values()), 0
        by_source = {source: (source, known, digest) for source, known, digest in todo}
        batches = self._batches([source for source, *_ in todo], self._task_bytes)
        waiting = [self._task(format, [by_source[each] for each in batch]) for batch in batches]
        self._progress("export", 0, total)
        while waiting:
            again: list[ExportTask] = []
            for task, result in workers.run(waiting):
                assert isinstance(task, ExportTask)
                if _died(result) and len(task.sources) > 1:
                    # One of its files is to blame: each gets a task of its own.
                    again += [self._task(format, [each]) for each in task.sources]
                    continue
                self._take(task, result, sizes)
                done += sum(sizes[source.file] for source, *_ in task.sources)
                self._progress("export", done, total)
            waiting = again

    def _task(self, format: str, sources: Todo) -> ExportTask:
        name = hashlib.sha256("\n".join(digest for *_, digest in sources).encode()).hexdigest()
        marker = os.path.join(self._folder.run, f"{name[:16]}.json")
        return ExportTask(self._folder.path, marker, format, tuple(sources), self.memory)

    def _take(self, task: ExportTask, result: object, sizes: dict[str, int]) -> None:
        summary = self._summary
        if isinstance(result, BaseException):
            for source, *_ in task.sources:
                if _died(result):
                    summary.failures.append((source.file, _DIED))
                else:
                    self._failed(source, result)
            return
        assert isinstance(result, dict)
        self._state.take(result["done"])
        for row in result["failures"]:
            summary.failures.append((row["file"], row["reason"]))
        files = {each["recording"]["file"] for each in result["done"]}
        summary.exported += len(files)
        summary.rows += sum(each["recording"]["rows"] for each in result["done"])
        summary.bytes += sum(sizes[each] for each in files)
        for key, name in (("tasks", "seconds"), ("cpu", "cpu"), ("writing", "writing")):
            self._spent[key] += result[name]

    def rewrite(self, workers: Engine) -> None:
        """Write again what is small, and what has rows that are no more."""
        tasks = self._state.rewrites() if self._folder.format == "parquet" else []
        self._progress("compaction", 0, len(tasks))
        for number, (_, result) in enumerate(workers.run(tasks), 1):
            if isinstance(result, BaseException):
                raise result
            self._state.rewritten(result)
            self._progress("compaction", number, len(tasks))


def _size(source: Source) -> int:
    try:
        return sum(os.path.getsize(each) for each in source.paths)
    except OSError:
        return 0


def _died(result: object) -> bool:
    return type(result).__name__ == "KilledWorker"
