"""What a person sees of an export: a bar with the time left, and a summary."""

from __future__ import annotations

import os
import sys
from types import TracebackType

from ._export import Summary

__all__ = ["Bar", "summary"]

_SHOWN = 10


class Bar:
    """A bar on standard error, where that is a terminal."""

    def __init__(self, quiet: bool = False) -> None:
        from rich.console import Console
        from rich.progress import (
            BarColumn,
            DownloadColumn,
            Progress,
            TaskID,
            TextColumn,
            TimeRemainingColumn,
            TransferSpeedColumn,
        )

        console = Console(stderr=True)
        self._bar = Progress(
            TextColumn("{task.description}"),
            BarColumn(),
            DownloadColumn(),
            TransferSpeedColumn(),
            TimeRemainingColumn(),
            console=console,
            disable=quiet or not console.is_terminal,
            transient=True,
        )
        self._known: dict[str, TaskID] = {}

    def __enter__(self) -> Bar:
        self._bar.start()
        return self

    def __exit__(
        self,
        kind: type[BaseException] | None,
        error: BaseException | None,
        trace: TracebackType | None,
    ) -> None:
        self._bar.stop()

    def __call__(self, what: str, done: int, total: int) -> None:
        if what not in self._known:
            for each in self._known.values():
                self._bar.remove_task(each)
            self._known = {what: self._bar.add_task(what, total=total or None)}
        self._bar.update(self._known[what], completed=done)


def summary(done: Summary, folder: str) -> None:
    """Write what a run has done to standard error, the failures as a table."""
    say = sys.stderr.write
    parts = [f"{done.exported} exported"]
    parts += [f"{done.unchanged} unchanged"] if done.unchanged else []
    parts += [f"{done.copies} copies of others"] if done.copies else []
    parts += [f"{len(done.failures)} failed"] if done.failures else []
    rate = f", {done.bytes / 1e6 / done.seconds:.1f} MB/s" if done.seconds and done.bytes else ""
    say(
        f"{done.files} recordings: {', '.join(parts)}; {done.rows} rows "
        f"in {done.seconds:.1f} s{rate}\n"
    )
    if done.ignored:
        say(f"{done.ignored} other files were left out\n")
    if done.failures:
        from rich import box
        from rich.console import Console
        from rich.table import Table
        from rich.text import Text

        table = Table(box=box.SIMPLE_HEAD, title_justify="left", pad_edge=False)
        table.add_column("file", overflow="fold")
        table.add_column("reason", overflow="fold")
        for file, reason in done.failures[:_SHOWN]:
            table.add_row(Text(_visible(_near(file))), Text(_visible(reason)))
        Console(stderr=True).print(table)
        if len(done.failures) > _SHOWN:
            say(
                f"and {len(done.failures) - _SHOWN} more: "
                f'kelflotta query {folder} "FROM failures"\n'
            )


def _near(file: str) -> str:
    """Write a path as it is called from here, where that is shorter."""
    near = os.path.relpath(file) if os.path.isabs(file) else file
    return near if len(near) < len(file) else file


def _visible(text: str) -> str:
    return "".join(each if each.isprintable() else f"\\x{ord(each):02X}" for each in text)
