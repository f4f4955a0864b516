"""A shell for SQL: statements end with a semicolon."""

from __future__ import annotations

import contextlib
import sys
from collections.abc import Callable

from ._query import Fleet

__all__ = ["shell"]

_HELP = "SQL ends with ';'.  SHOW TABLES; lists views.  .quit or Ctrl-D leaves."


def shell(fleet: Fleet, answer: Callable[[str], int]) -> int:
    """Read statements, and answer each. The exit status is that of the last one."""
    person = sys.stdin.isatty()
    if person:
        print(_HELP)
        with contextlib.suppress(ImportError):
            import readline  # noqa: F401  lines can be edited, and come back
        fleet.views_of_samples()
    status, text = 0, ""
    while True:
        try:
            line = input(("kelflotta> " if not text else "      ...> ") if person else "")
        except EOFError:
            break
        except KeyboardInterrupt:
            print()
            text = ""
            continue
        if not text and line.strip() in (".quit", ".exit"):
            return status
        text += line + "\n"
        if text.rstrip().endswith(";"):
            status, text = answer(text), ""
    return answer(text) if text.strip() else status
