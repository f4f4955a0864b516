"""An open recording of the library, and the memory that it reads."""

from __future__ import annotations

import ctypes as c
import mmap
import threading
import weakref
from collections.abc import Callable, Iterator
from contextlib import contextmanager
from typing import Any

from . import _library as lib
from ._errors import RecordingError
from ._records import ErrorText

_LARGE = 1 << 26


class Handle:
    """A recording that is open; used by one thread at a time.

    `owners` are the buffers that the library reads, which it does not copy.
    """

    def __init__(self, place: int, owners: tuple[Any, ...]) -> None:
        self._place: int | None = place
        self.owners = owners
        self._lock = threading.RLock()
        self._close = weakref.finalize(self, lib.rec_close, place)

    @contextmanager
    def open(self) -> Iterator[int]:
        """The library's pointer, for this thread alone.

        Raises
        ------
        RecordingError
            It was closed.
        """
        with self._lock:
            if self._place is None:
                raise RecordingError("the recording is closed")
            yield self._place

    def rest(self) -> None:
        """Let go of the pages of large files that were read: they are in the system's cache.

        Without, a file that is read once through counts as memory of the process, all of it.
        """
        for file in self.files:
            file.madvise(mmap.MADV_DONTNEED)

    @property
    def files(self) -> list[mmap.mmap]:
        """The large files among the memory that the library reads."""
        views = (getattr(each, "base", None) for each in self.owners)
        # CPython's numpy holds a view of a file, PyPy's the file itself.
        under = (each.obj if isinstance(each, memoryview) else each for each in views)
        return [each for each in under if isinstance(each, mmap.mmap) and len(each) >= _LARGE]

    @property
    def closed(self) -> bool:
        """Whether it was closed."""
        return self._place is None

    def close(self) -> None:
        """Close it; a second time does nothing."""
        with self._lock:
            self._place = None
            self._close()
            self.owners = ()


def checked(call: Callable[[ErrorText], Any], what: str = "") -> Any:
    """Call a function that tells in an `ErrorText` why it failed.

    Raises
    ------
    RecordingError
        It failed.
    """
    error = ErrorText()
    found = call(error)
    if not found:
        text = error.testo.decode("utf-8", "replace") or "out of memory"
        raise RecordingError(f"{what}: {text}" if what else text)
    return found


def text_of(raw: bytes | None) -> str:
    """Make a text of C's; bytes that are no UTF-8 become question marks."""
    return (raw or b"").decode("utf-8", "replace")


def number() -> c.c_uint64:
    """A number for the library to write."""
    return c.c_uint64()
