"""The folder of an export: what stands where, and which of it counts.

``samples/`` has the data files. ``tables`` is a link to the newest generation of the tables, in
``.fleet/``; what their column ``data`` does not name is not there. A run writes data files first,
for each task a marker with its rows behind them, and at the end the next generation, whose link
takes the place of the old one in one step. Whatever stops a run before that step, queries see the
old generation, and the next run takes over the markers.
"""

from __future__ import annotations

import contextlib
import fcntl
import glob
import json
import os
import re
import shutil
from collections.abc import Iterable, Iterator
from typing import Any

import pyarrow

from .._errors import KelError, nearest
from . import _tables
from ._atomic import sync_folder, write_json

__all__ = ["FORMATS", "Folder"]

FORMATS = ("parquet", "csv", "mdf", "mat")
_STATE, _LINK, _SAMPLES = ".fleet", "tables", "samples"


class Folder:
    """A folder of an export.

    Parameters
    ----------
    path : str
        The folder.
    """

    def __init__(self, path: str) -> None:
        self.path = os.path.abspath(path)
        self.state = os.path.join(self.path, _STATE)

    @contextlib.contextmanager
    def locked(self, format: str) -> Iterator[None]:
        """Make the folder if there is none, and keep other runs out.

        Raises
        ------
        KelError
            Another run works here, or it was begun in another format.
        """
        if format not in FORMATS:
            raise KelError(
                f"there is no format '{format}'; {nearest(format, FORMATS)}"
                f"accepted: {', '.join(FORMATS)}"
            )
        os.makedirs(os.path.join(self.path, _SAMPLES), exist_ok=True)
        os.makedirs(self.state, exist_ok=True)
        with open(os.path.join(self.state, "lock"), "a", encoding="ascii") as lock:
            try:
                fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
            except BlockingIOError:
                raise KelError(f"another run exports to {self.path}; accepted: one") from None
            settings = os.path.join(self.state, "settings.json")
            if not os.path.exists(settings):
                write_json(settings, {"format": format})
            known = self.format
            if known != format:
                raise KelError(f"{self.path} is in {known}; accepted: that, or another folder")
            yield

    @property
    def format(self) -> str:
        """In which format the samples are."""
        with open(os.path.join(self.state, "settings.json"), encoding="utf-8") as file:
            return str(json.load(file)["format"])

    @property
    def generation(self) -> int:
        """Number of the tables; 0 where there are none yet."""
        with contextlib.suppress(OSError):
            return int(os.readlink(os.path.join(self.path, _LINK)).rsplit("-", 1)[1])
        return 0

    def read(self, name: str) -> pyarrow.Table:
        """Read one of the tables."""
        return _tables.read(os.path.join(self.path, _LINK), name)

    @property
    def run(self) -> str:
        """Folder of the markers of the tasks behind the newest tables."""
        return os.path.join(self.state, f"run-{self.generation}")

    def markers(self) -> Iterator[dict[str, Any]]:
        """What tasks have done since the newest tables."""
        for path in sorted(glob.glob(f"{glob.escape(self.run)}/*.json")):
            with open(path, encoding="utf-8") as file:
                yield json.load(file)

    def begin(self) -> None:
        """Make the folder of the markers, and remove what killed workers left."""
        os.makedirs(self.run, exist_ok=True)
        for place, _, files in os.walk(self.path):
            for name in files:
                if name.startswith(".") and name.endswith(".tmp"):
                    with contextlib.suppress(FileNotFoundError):
                        os.unlink(os.path.join(place, name))

    def commit(self, tables: dict[str, pyarrow.Table]) -> None:
        """Put the next generation of the tables in the place of the old one, in one step."""
        number = self.generation + 1
        name = f"tables-{number}"
        folder = os.path.join(self.state, name)
        shutil.rmtree(folder, ignore_errors=True)
        os.makedirs(folder)
        for which, table in tables.items():
            _tables.write(folder, which, table)
        sync_folder(self.state)
        link = os.path.join(self.path, _LINK)
        with contextlib.suppress(FileNotFoundError):
            os.unlink(link + ".new")
        os.symlink(os.path.join(_STATE, name), link + ".new")
        os.replace(link + ".new", link)
        sync_folder(self.path)
        self._clear(number, set(tables["recordings"]["data"].to_pylist()))

    def _clear(self, number: int, named: set[str]) -> None:
        """Remove older tables, markers, and data files that the tables do not name."""
        for path in glob.glob(f"{glob.escape(self.state)}/*-*"):
            found = re.fullmatch(r"(tables|run)-(\d+)", os.path.basename(path))
            if found and int(found[2]) < number:
                shutil.rmtree(path, ignore_errors=True)
        top = os.path.join(self.path, _SAMPLES)
        for place, _, files in os.walk(top, topdown=False):
            for name in files:
                path = os.path.join(place, name)
                if os.path.relpath(path, self.path) not in named:
                    with contextlib.suppress(FileNotFoundError):
                        os.unlink(path)
            if place != top:
                with contextlib.suppress(OSError):  # it is not empty
                    os.rmdir(place)

    def missing(self, data: Iterable[str]) -> set[str]:
        """Tell which data files are not there."""
        return {each for each in set(data) if not os.path.exists(os.path.join(self.path, each))}
