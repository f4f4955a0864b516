"""What an export holds: rows of its tables, and which rows lie in which data file."""

from __future__ import annotations

import os
from collections import defaultdict
from collections.abc import Iterable
from typing import Any

import pyarrow

from . import _tables
from ._compute import pc
from ._data import GROUP
from ._decode import content_of
from ._folder import Folder
from ._task import RewriteTask
from ._tracks import name_tracks

__all__ = ["State"]

Row = dict[str, Any]


class State:
    """Rows of the newest tables, and of what tasks have done since."""

    def __init__(self, folder: Folder) -> None:
        self.folder = folder
        self.recordings: dict[str, Row] = {}
        self.owners: dict[str, set[str]] = defaultdict(set)
        self._of_content: dict[str, set[str]] = defaultdict(set)
        self._contents: dict[str, set[str]] = defaultdict(set)
        self._new: dict[str, list[Row]] = {"channels": [], "laps": []}
        self._redone: set[str] = set()
        self._old = {name: folder.read(name) for name in _tables.NAMES}
        for row in _tables.rows(self._old["recordings"]):
            self._add(row)
        for marker in folder.markers():
            self.take(marker["done"])
        gone = folder.missing(row["data"] for row in self.recordings.values())
        for name in [each for each, row in self.recordings.items() if row["data"] in gone]:
            for each in self.tables_of(name):
                self.drop(each)

    def _add(self, row: Row) -> None:
        self.recordings[row["recording"]] = row
        self.owners[row["file"]].add(row["recording"])
        self._of_content[content_of(row["recording"])].add(row["recording"])
        self._contents[row["data"]].add(row["recording"])

    def take(self, done: Iterable[Row]) -> None:
        """Take over what a task has done. What its files were before is no more."""
        done = list(done)
        for rows in done:
            row = rows["recording"]
            for before in self.owners[row["file"]] | self.tables_of(row["recording"]):
                self.drop(before)
        for rows in done:
            self._add(rows["recording"])
            self._redone.add(rows["recording"]["recording"])
            for table, kept in self._new.items():
                kept += rows[table]

    def tables_of(self, name: str) -> set[str]:
        """Names of all tables that a recording's file has."""
        return set(self._of_content[content_of(name)])

    def drop(self, name: str) -> None:
        """Forget a recording. The rows of its data file remain until that is written again."""
        row = self.recordings.pop(name, None)
        if row is not None:
            self.owners[row["file"]].discard(name)
            self._of_content[content_of(name)].discard(name)
            self._redone.add(name)
            for table, kept in self._new.items():
                self._new[table] = [each for each in kept if each["recording"] != name]

    def moved(self, name: str, file: str, signature: str) -> None:
        """Note that a recording now lies elsewhere, or that only its times have changed."""
        for each in self.tables_of(name):
            row = self.recordings[each]
            self.owners[row["file"]].discard(each)
            row.update(file=file, signature=signature)
            self.owners[file].add(each)

    def rewrites(self) -> list[RewriteTask]:
        """Tell which data files to write again: small ones, and those with outdated rows."""
        live: dict[str, list[str]] = defaultdict(list)
        for row in sorted(
            self.recordings.values(), key=lambda row: (row["start"] or "", row["recording"])
        ):
            live[row["data"]].append(row["recording"])
        groups: dict[tuple[str, str], list[str]] = defaultdict(list)
        for data in live:
            place, name = os.path.split(data)
            groups[place, name.split("-")[0]].append(data)
        tasks = []
        for (place, _), files in sorted(groups.items()):
            stale = {each for each in files if self._contents[each] - set(live[each])}
            small = [each for each in files if self._rows(live[each]) < GROUP]
            chosen = sorted(stale | set(small if len(small) > 1 else []))
            if chosen:
                # In the order of their recordings, so that the file is the same whoever wrote it.
                chosen.sort(key=lambda data: self._order(live[data][0]))
                files_and_rows = tuple((data, tuple(live[data])) for data in chosen)
                tasks.append(RewriteTask(self.folder.path, place, files_and_rows))
        return tasks

    def _rows(self, names: list[str]) -> int:
        return sum(int(self.recordings[each]["rows"]) for each in names)

    def _order(self, name: str) -> tuple[str, str]:
        return self.recordings[name]["start"] or "", name

    def rewritten(self, places: dict[str, str]) -> None:
        """Note in which data files recordings lie now."""
        for name, data in places.items():
            self.recordings[name]["data"] = data

    def tables(self, failures: list[Row], asked: set[str]) -> dict[str, pyarrow.Table]:
        """Make the next tables; older failures of files that were not asked for now remain."""
        rows = sorted(self.recordings.values(), key=lambda row: (row["vehicle"], row["file"]))
        name_tracks(rows)
        before = [row for row in self._old["failures"].to_pylist() if row["file"] not in asked]
        failures = sorted([*before, *failures], key=lambda row: row["file"])
        found = {
            "recordings": _tables.table("recordings", rows),
            "failures": _tables.table("failures", failures),
        }
        redone = pyarrow.array(sorted(self._redone), pyarrow.string())
        for name, kept in self._new.items():
            old = self._old[name]
            left = old.filter(pc.invert(pc.is_in(old["recording"], value_set=redone)))
            both = pyarrow.concat_tables([left, _tables.table(name, kept)])
            # Sorting is stable: channels and laps of a recording stay in their order.
            found[name] = both.take(pc.sort_indices(both, [("recording", "ascending")]))
        return found
