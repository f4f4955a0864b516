"""Bytes of a file or a buffer."""

from __future__ import annotations

import mmap
import os
from typing import Any

import numpy as np

from ._samples import Bytes, as_bytes

Source = Any
"""A path, or bytes, or another buffer."""


def load(source: Source, what: str) -> tuple[Bytes, str]:
    """Bytes of a source, and what to call it in an error. A file is mapped, not read.

    Raises
    ------
    OSError
        The file cannot be read.
    TypeError
        It is neither a path nor a buffer.
    """
    if not isinstance(source, (str, os.PathLike)):
        return as_bytes(source, what), what
    path = os.fspath(source)
    name = path.decode("utf-8", "replace") if isinstance(path, bytes) else path
    name = name.encode("utf-8", "replace").decode()  # paths may be any bytes
    with open(path, "rb") as file:
        if os.fstat(file.fileno()).st_size == 0:
            return np.empty(0, np.uint8), name
        try:
            return np.frombuffer(
                mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ), np.uint8
            ), name
        except (OSError, ValueError):  # what cannot be mapped, such as a pipe
            return np.frombuffer(file.read(), np.uint8), name
