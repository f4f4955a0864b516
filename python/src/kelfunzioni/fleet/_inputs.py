"""Which recordings are to be exported: of files, folders, patterns and lists."""

from __future__ import annotations

import fnmatch
import glob
import os
import re
from collections.abc import Iterable, Iterator, Sequence
from dataclasses import dataclass, field
from pathlib import Path

__all__ = ["Found", "Source", "find", "shown"]

_CHANNELS, _SAMPLES, _CAPTURE = ".channels", ".samples", ".ubx"
_DATE = re.compile(r"(?:date=)?[\d._-]+")
_VEHICLE = re.compile(r"vehicle=(.+)")


@dataclass(frozen=True)
class Source:
    """Files of one recording.

    Attributes
    ----------
    kind : {"recording", "capture", "mapped"}
        A logger's recording, a capture of a u-blox receiver, or a table with a mapping.
    paths : tuple of str
        Of a recording the channels and the samples, else one file.
    vehicle : str
        Whose it is.
    mapping : str
        File of the mapping, of a table with one.
    """

    kind: str
    paths: tuple[str, ...]
    vehicle: str
    mapping: str = ""

    @property
    def file(self) -> str:
        """The file that names it in tables: that with the samples."""
        return shown(self.paths[-1])


@dataclass
class Found:
    """What was found: sources in order, and files that are none, each with the reason."""

    sources: list[Source] = field(default_factory=list)
    failures: list[tuple[str, str]] = field(default_factory=list)
    ignored: int = 0


def shown(path: str) -> str:
    """Write a path as text that may stand in a table, whatever its bytes."""
    return os.fsencode(path).decode("utf-8", "replace")


def find(
    inputs: Iterable[str],
    *,
    vehicle: str | None = None,
    mappings: Sequence[tuple[str, str]] = (),
) -> Found:
    """Find recordings.

    Parameters
    ----------
    inputs : iterable of str
        Files, folders (with all below them), and patterns as of a shell, ``**`` included.
    vehicle : str, optional
        Whose they are; None: the nearest folder ``vehicle=NAME``, or else the nearest folder that
        is not named after a date.
    mappings : sequence of (str, str)
        Pattern of file names, and file of the mapping that these files have.

    Returns
    -------
    Found
        In the order of paths, none twice. Files of a folder that are no recordings are counted in
        ``ignored``; those that were named are failures.
    """
    found = Found()
    known: set[str] = set()
    for text in inputs:
        named = _matches(text)
        if not named:
            found.failures.append((shown(text), "there is no such file or folder"))
        for path in named:
            folder = os.path.isdir(path)
            for file in _below(path) if folder else [path]:
                whole = os.path.abspath(file)
                if whole in known:
                    continue
                known.add(whole)
                _add(found, whole, vehicle, mappings, named=not folder)
    found.sources.sort(key=lambda each: (each.vehicle, each.paths))
    return found


def _matches(text: str) -> list[str]:
    if os.path.lexists(text):
        return [text]
    return sorted(glob.glob(text, recursive=True))


def _below(folder: str) -> Iterator[str]:
    for place, folders, files in os.walk(folder):
        folders[:] = sorted(each for each in folders if not each.startswith("."))
        yield from (os.path.join(place, each) for each in sorted(files) if each[:1] != ".")


def _add(
    found: Found,
    path: str,
    vehicle: str | None,
    mappings: Sequence[tuple[str, str]],
    named: bool,
) -> None:
    whose = vehicle if vehicle is not None else vehicle_of(path)
    stem, ending = os.path.splitext(path)
    for pattern, mapping in mappings:
        if fnmatch.fnmatch(os.path.basename(path), pattern):
            found.sources.append(Source("mapped", (path,), whose, os.path.abspath(mapping)))
            return
    if ending == _SAMPLES:
        channels = _channels_of(path)
        if channels is None:
            reason = f"it has no channels: there is no {os.path.basename(stem)}{_CHANNELS}"
            found.failures.append((shown(path), reason))
        else:
            found.sources.append(Source("recording", (channels, path), whose))
    elif ending == _CAPTURE:
        found.sources.append(Source("capture", (path,), whose))
    elif ending == _CHANNELS:
        if not glob.glob(f"{glob.escape(os.path.dirname(path))}/*{_SAMPLES}"):
            found.failures.append((shown(path), "there are no samples beside it"))
        elif not os.path.exists(stem + _SAMPLES) and not _alone(path):
            reason = f"it has no samples: there is no {os.path.basename(stem)}{_SAMPLES}"
            found.failures.append((shown(path), reason))
    elif named:
        reason = f"'{ending}' is no recording; accepted: {_SAMPLES}, {_CHANNELS}, {_CAPTURE}"
        found.failures.append((shown(path), f"{reason}, or a mapping"))
    else:
        found.ignored += 1


def _channels_of(samples: str) -> str | None:
    """Find the channels of the same name, or the only ones of the folder."""
    same = samples[: -len(_SAMPLES)] + _CHANNELS
    if os.path.exists(same):
        return same
    only = list(Path(samples).parent.glob("*" + _CHANNELS))
    return str(only[0]) if len(only) == 1 else None


def _alone(channels: str) -> bool:
    return len(list(Path(channels).parent.glob("*" + _CHANNELS))) == 1


def vehicle_of(path: str) -> str:
    """Tell whose a recording is, by its folders."""
    folders = [shown(each) for each in Path(path).parent.parts[::-1]]
    for folder in folders:
        if marked := _VEHICLE.fullmatch(folder):
            return marked[1]
    return next((each for each in folders if not _DATE.fullmatch(each) and each != "/"), "unknown")
