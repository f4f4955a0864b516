"""Files that appear whole or not at all."""

from __future__ import annotations

import contextlib
import json
import os
import uuid
from collections.abc import Iterator
from typing import Any

__all__ = ["atomic", "sync_folder", "write_json"]


@contextlib.contextmanager
def atomic(path: str) -> Iterator[str]:
    """Give a name in the same folder to write to; what is there at the end gets the right name.

    The bytes are on the disk before they bear the name. On an error nothing is left behind. A
    worker that was killed leaves the temporary file, which the next run removes.
    """
    folder, name = os.path.split(path)
    temporary = os.path.join(folder, f".{name}.{uuid.uuid4().hex[:12]}.tmp")
    try:
        yield temporary
        with open(temporary, "rb") as file:
            os.fsync(file.fileno())
        os.replace(temporary, path)
        sync_folder(folder)
    except BaseException:
        with contextlib.suppress(OSError):
            os.unlink(temporary)
        raise


def sync_folder(folder: str) -> None:
    """Bring the names in a folder to the disk."""
    place = os.open(folder or ".", os.O_RDONLY)
    try:
        os.fsync(place)
    finally:
        os.close(place)


def write_json(path: str, what: Any) -> None:
    """Write JSON, whole or not at all."""
    with atomic(path) as temporary, open(temporary, "w", encoding="utf-8") as file:
        file.write(json.dumps(what))
